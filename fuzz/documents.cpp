// The input is two bytes of switches, a definition file, a parameter file and requests for help, one on each
// line, with a line "%%" between these parts. Everything that the library can write is written, and all
// documents of the tool. Whatever the definition contains, each must follow the rules of its form, so that no
// text of the definition becomes markup or code.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "api/handle.h"
#include "base/textcase.h"
#include "fuzz/support/target.h"
#include "output/vksoptionwriter.h"
#include "page.h"
#include "tools/doc/documents.h"
#include "tools/doc/templatedocument.h"
#include "tools/text.h"

namespace fuzzing {
namespace {

using optcore::tvksoptionwriter;
using tool::treference;

// ---- what the library writes

// A written definition can be read.
void checkdefinition(std::string_view bytes) {
  writefile("written.def", bytes);
  tpair pair;
  HOLDS(pair.readdefinition("written.def") == 0, "definition");
  checkstate(pair, tscope::everything);
}

bool isofentity(char c) { return c == '#' || optcore::isletter(c) || optcore::isdigit(c); }

// Returns the next piece of the page and removes it: a tag, in which all quotes must be closed, an entity, or
// text without markup.
std::string_view nextpiece(std::string_view& page) {
  std::size_t end = std::min(page.find_first_of("<>&"), page.size());
  if (page[0] == '<') {
    for (bool quoted = false; end < page.size() && (quoted || page[end] != '>'); ++end)
      quoted ^= page[end] == '"';
    ++end;
  } else if (page[0] == '&') {
    end = std::min(page.find(';'), page.size()) + 1;
    HOLDS(end > 2 && std::ranges::all_of(page.substr(1, end - 2), isofentity), page.substr(0, 80));
  }
  HOLDS(end > 0 && end <= page.size(), page.substr(0, 80));
  const std::string_view piece = page.substr(0, end);
  page.remove_prefix(end);
  return piece;
}

// The page has only the markup that the table writer uses, and text only in cells. Rows are not checked: the
// writer does not close all of them.
void checkhtml(std::string_view page) {
  std::string frame;
  bool incell = false;
  while (!page.empty()) {
    const std::string_view piece = nextpiece(page);
    if (piece == "<td>" || piece == "</td>")
      HOLDS(std::exchange(incell, piece == "<td>") == (piece == "</td>"), piece, page.substr(0, 80));
    else if (piece[0] == '<' && piece != "<tr>" && piece != "</tr>")
      frame += piece;
    else
      HOLDS(incell != (piece[0] == '<') || piece.find_first_not_of(" \n") == piece.npos, piece,
            page.substr(0, 80));
  }
  HOLDS(frame == "<html><body><table border></table></body></html>", frame);
}

// One row for each kind of document: how a store writes it, and what must hold of the bytes.
constexpr struct {
  std::int32_t (tvksoptionwriter::*write)(std::string_view filename) const;
  void (*check)(std::string_view bytes);
} librarydocuments[] = {
    {&tvksoptionwriter::writedefinition, checkdefinition},
    {&tvksoptionwriter::writedelphiinc, [](std::string_view) {}},
    {&tvksoptionwriter::writeashtml, checkhtml},
};

void checklibrarydocuments(const optcore::tvksoptions& store) {
  const tvksoptionwriter writer(store.definition());
  beforecall();
  for (const auto& [write, check] : librarydocuments) {
    HOLDS((writer.*write)("out") == 0, "out");
    const std::string bytes = readfile("out");
    HOLDS((writer.*write)("absent/out") != 0 && (writer.*write)("full") != 0, "full");
    check(bytes);
  }
}

// ---- what the tool writes

bool isvisible(char c) { return static_cast<unsigned char>(c) >= ' ' && c != '\x7F'; }

// There are no control characters except line end and tab.
void checkvisible(std::string_view text) {
  HOLDS(std::ranges::all_of(text, [](char c) { return isvisible(c) || c == '\n' || c == '\t'; }), text);
}

// Every line is ASCII and has at most one comment, which ends with the line. If an enumerator is defined twice,
// the header is known not to compile.
void checkheader(const treference& reference, std::string_view text) {
  std::set<std::string_view> enumerators;
  bool unique = true;
  while (!text.empty()) {
    const std::string_view line = nextline(text);
    const std::size_t comment = std::min(line.find("/*"), line.size());
    HOLDS(std::ranges::all_of(line, [](char c) { return isvisible(c) && (c & 0x80) == 0; }), line);
    HOLDS(comment == line.size() || line.find("*/", comment + 2) == line.size() - 2, line);
    HOLDS(comment == line.size() || line.find("/*", comment + 2) == line.npos, line);
    const std::size_t equals = line.substr(0, comment).find(" = ");
    unique &= equals == line.npos || enumerators.insert(line.substr(2, equals - 2)).second;
  }
  HOLDS(unique == tool::cproblems(reference).empty(), "enumerators");
}

// Each row of a table has as many cells as its first one, two or three.
void checkmarkdown(const treference&, std::string_view text) {
  checkvisible(text);
  int columns = 0;  // of the table; 0 outside one
  while (!text.empty()) {
    const std::string_view line = nextline(text);
    int cells = -1;
    for (std::size_t i = 0; i < line.size(); i += line[i] == '\\' ? 2 : 1) cells += line[i] == '|' ? 1 : 0;
    const bool isrow = line.starts_with('|');
    HOLDS(!isrow || (columns == 0 ? cells == 2 || cells == 3 : cells == columns), line);
    columns = isrow ? cells : 0;
  }
}

void checkjson(const treference& reference, std::string_view text) {
  const auto document = nlohmann::json::parse(text, nullptr, false);
  HOLDS(!document.is_discarded() && document["options"].size() == reference.options.size(), text);
}

// The form of a tag: the tag without the values that depend on the definition. Of these, links lead into the
// page, and anchors need no escape.
std::string formof(std::string_view tag) {
  HOLDS(tag.find('<', 1) == tag.npos, tag);
  std::string result;
  for (;;) {
    const std::size_t begin = std::min(tag.find('"'), tag.size());
    result += tag.substr(0, begin);
    if (begin == tag.size()) return result;
    const std::size_t end = tag.find('"', begin + 1);
    std::string_view value = tag.substr(begin + 1, end - begin - 1);
    const bool islink = result.ends_with(" href=");
    HOLDS(!islink || value.starts_with('#'), tag);
    if (islink || result.ends_with(" id=") || result.ends_with(" aria-labelledby=")) {
      HOLDS(value.find_first_of(" %&'/:") == value.npos, tag);
      value = "";
    }
    if (result.ends_with(" data-line=")) value = "";
    result.append("\"").append(value).append("\"");
    tag.remove_prefix(end + 1);
  }
}

// The forms of the tags in the page's skeleton, and of those that the page adds to it.
std::set<std::string> tagforms() {
  std::set<std::string> result = {"<article class=\"option gone\" id=\"\">",
                                  "<article class=\"option\" id=\"\">",
                                  "<a class=\"find\" href=\"\">",
                                  "<br>",
                                  "<code>",
                                  "<code class=\"ready\">",
                                  "<code id=\"\">",
                                  "<dd>",
                                  "<dd class=\"find\">",
                                  "<div>",
                                  "<div class=\"default\">",
                                  "<dl class=\"facts\">",
                                  "<dl class=\"values\">",
                                  "<dt>",
                                  "<dt class=\"find\">",
                                  "<dt class=\"find\" data-line=\"\">",
                                  "<h3>",
                                  "<li>",
                                  "<p class=\"also find\">",
                                  "<p class=\"deprecated find\">",
                                  "<p class=\"details find\">",
                                  "<p class=\"help find\">",
                                  "<p class=\"members\">",
                                  "<p class=\"notes\">",
                                  "<p class=\"obsolete find\">",
                                  "<section class=\"group\" id=\"\" aria-labelledby=\"\">",
                                  "<span>",
                                  "<strong>"};
  std::string skeleton(tool::pagehtml);
  for (const auto& [field, digest] :
       {std::pair{"{{styledigest}}", tool::pagecssdigest}, std::pair{"{{scriptdigest}}", tool::pagejsdigest}})
    skeleton.replace(skeleton.find(field), std::string_view(field).size(), digest);
  for (std::string_view rest = skeleton; !rest.empty();)
    if (const std::string_view piece = nextpiece(rest); piece[0] == '<') result.insert(formof(piece));
  return result;
}

// All tags are the page's own, and all elements are nested and closed correctly.
void checkpage(const treference&, std::string_view text) {
  checkvisible(text);
  static const std::set<std::string> forms = tagforms();
  static const std::set<std::string_view> single = {"!DOCTYPE", "meta", "br", "input"};
  std::vector<std::string_view> open;
  while (!text.empty()) {
    const std::string_view piece = nextpiece(text);
    if (piece[0] != '<') continue;
    const std::string_view name = piece.substr(1, piece.find_first_of(" \n>") - 1);
    if (name[0] == '/') {
      HOLDS(!open.empty() && open.back() == name.substr(1), piece, text.substr(0, 80));
      open.pop_back();
      continue;
    }
    HOLDS(forms.contains(formof(piece)), piece, text.substr(0, 80));
    if (single.contains(name)) continue;
    open.push_back(name);
    if (name == "script" || name == "style") text = text.substr(text.find("</" + std::string(name)));
  }
  HOLDS(open.empty(), open.back());
}

// A template sets nothing before its user changes it, and reads without a message.
void checktemplate(const treference& reference) {
  tpair pair;
  pair.readdefinition("def");
  pair.clearmessages();
  optcore::tvksoptions trial;
  beforecall();
  trial.optreaddefinition("def");
  tool::tsettinglines lines(trial);
  writefile("template", tool::templatedocument(reference, lines));
  HOLDS(pair.call(BOTH(readparameterfile), ttext("template")) == 0, messages(pair));
  HOLDS(pair.one(optmessagecount) == 0, messages(pair));
  for (std::int32_t number = 1, defined = 0; number <= pair.one(optcount); ++number)
    HOLDS(pair.one(optgetdefinednr, number, defined) == 1 && defined == 0, number);
}

constexpr struct {
  std::string (*write)(const treference& reference);
  void (*check)(const treference& reference, std::string_view text);
} tooldocuments[] = {
    {tool::cdocument, checkheader},
    {tool::markdowndocument, checkmarkdown},
    {tool::jsondocument, checkjson},
    {tool::pagedocument, checkpage},
};

void checktooldocuments(const optcore::tvksoptions& store) {
  const treference reference = tool::describe(store, "fuzz.def");
  for (const auto& [write, check] : tooldocuments) {
    const std::string text = write(reference);
    HOLDS(tool::utf8(text) == text, text);
    check(reference, text);
  }
  checktemplate(reference);
}

void checkhelp(tpair& pair, std::string_view request) {
  pair.clearmessages();
  pair.call(BOTH(showhelp), ttext(request));
  checkmessages(pair);
}

}  // namespace
}  // namespace fuzzing

void fuzzing::run(std::string_view input) {
  const tswitches switches(input);
  const auto [definition, rest] = split(input);
  auto [parameters, requests] = split(rest);
  writefile("def", definition);
  tpair pair;
  pair.readdefinition("def");
  switches.read(pair, parameters);
  checklibrarydocuments(*pair.handle(0));
  checktooldocuments(*pair.handle(0));
  checkroundtrip(pair, switches.writeeolonly());
  for (const std::string_view request : {"", "11", "2"}) checkhelp(pair, request);
  for (int count = 0; count < 20 && !requests.empty(); ++count) checkhelp(pair, nextline(requests));
}

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
#include "tools/doc/documents.h"
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

// Every line is ASCII and has at most one comment, which ends with the line. No enumerator is defined twice.
void checkheader(const treference&, std::string_view text) {
  std::set<std::string_view> enumerators;
  while (!text.empty()) {
    const std::string_view line = nextline(text);
    const std::size_t comment = std::min(line.find("/*"), line.size());
    HOLDS(std::ranges::all_of(line, [](char c) { return isvisible(c) && (c & 0x80) == 0; }), line);
    HOLDS(comment == line.size() || line.find("*/", comment + 2) == line.size() - 2, line);
    HOLDS(comment == line.size() || line.find("/*", comment + 2) == line.npos, line);
    const std::size_t equals = line.substr(0, comment).find(" = ");
    HOLDS(equals == line.npos || enumerators.insert(line.substr(2, equals - 2)).second, line);
  }
}

// Rows of tables have two or three cells.
void checkmarkdown(const treference&, std::string_view text) {
  checkvisible(text);
  while (!text.empty()) {
    const std::string_view line = nextline(text);
    int bars = 0;
    for (std::size_t i = 0; i < line.size(); i += line[i] == '\\' ? 2 : 1) bars += line[i] == '|' ? 1 : 0;
    HOLDS(!line.starts_with("| ") || bars == 3 || bars == 4, line);
  }
}

void checkjson(const treference& reference, std::string_view text) {
  const auto document = nlohmann::json::parse(text, nullptr, false);
  HOLDS(!document.is_discarded() && document["options"].size() == reference.options.size(), text);
}

// All elements are nested and closed correctly.
void checkpage(const treference&, std::string_view text) {
  checkvisible(text);
  static const std::set<std::string_view> single = {"!DOCTYPE", "meta", "br", "input"};
  std::vector<std::string_view> open;
  while (!text.empty()) {
    const std::string_view piece = nextpiece(text);
    if (piece[0] != '<') continue;
    const std::string_view name = piece.substr(1, piece.find_first_of(" \n>") - 1);
    if (name[0] == '/') {
      HOLDS(!open.empty() && open.back() == name.substr(1), piece, text.substr(0, 80));
      open.pop_back();
    } else if (!single.contains(name)) {
      open.push_back(name);
      if (name == "script" || name == "style") text = text.substr(text.find("</" + std::string(name)));
    }
  }
  HOLDS(open.empty(), open.back());
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

// Checks every document; some forms refuse some definitions.
void checktooldocuments(const optcore::tvksoptions& store) {
  const treference reference = tool::describe(store, "fuzz.def");
  for (const auto& [write, check] : tooldocuments) try {
      const std::string text = write(reference);
      HOLDS(tool::utf8(text) == text, text);
      check(reference, text);
    } catch (const tool::trefuseddocument&) {
      continue;
    }
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

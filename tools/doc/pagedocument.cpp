// doc page: the reference of the options as one self-contained HTML file. Its skeleton, style and search are
// the files in page/. This file inserts the texts of the definition and escapes all of them.
#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>

#include "base/textcase.h"
#include "page.h"
#include "tools/doc/documents.h"
#include "tools/doc/pagetext.h"
#include "tools/doc/readyline.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

constexpr std::array<std::string_view, 3> lookupnotes = {
    "Names may be typed in upper or lower case.",
    "Names may be typed in upper or lower case, and the first three characters of each word are enough.",
    "Names may be typed in upper or lower case. Three characters of the first word are enough, and four of "
    "each other word."};

// Fills in the {{fields}} of the skeleton. A field within an inserted text is left as it is.
std::string filled(std::string_view skeleton, const std::map<std::string_view, std::string>& fields) {
  std::string result;
  for (std::size_t begin = skeleton.find("{{"); begin != std::string_view::npos;
       begin = skeleton.find("{{")) {
    const std::size_t end = skeleton.find("}}", begin);
    result += skeleton.substr(0, begin);
    result += fields.at(skeleton.substr(begin + 2, end - begin - 2));
    skeleton.remove_prefix(end + 2);
  }
  return result + std::string(skeleton);
}

std::string_view word(tstanding standing) {
  switch (standing) {
    case tstanding::current: break;
    case tstanding::deprecated: return "deprecated";
    case tstanding::obsolete: return "obsolete";
  }
  return "";
}

// What a word for a number means.
constexpr auto numberwords = std::to_array<std::pair<std::string_view, std::string_view>>(
    {{"maxint", "the largest integer, 2147483647"},
     {"minint", "the smallest integer, -2147483648"},
     {"maxdouble", "the largest number, 1E299"},
     {"mindouble", "the smallest number, -1E299"}});

std::string defaultwords(const toptionreference& option) {
  const std::string& text = option.defaultvalue.text;
  if (text.empty()) return "";
  if (option.type == topttype::boolean) return code(text) + (text == "0" ? " (no)" : " (yes)");
  if (option.type == topttype::integer || option.type == topttype::dbl)
    for (const auto& [word, meaning] : numberwords)
      if (text == word) return code(text) + " (" + std::string(meaning) + ")";
  return code(text);
}

std::string rangewords(const toptionreference& option) {
  if (option.low.text.empty()) return "";
  const bool openlow = option.low.text == "minint" || option.low.text == "mindouble";
  const bool openhigh = option.high.text == "maxint" || option.high.text == "maxdouble";
  if (openlow && openhigh) return option.type == topttype::integer ? "any integer" : "any number";
  if (openhigh) return code(option.low.text) + " or more";
  if (openlow) return code(option.high.text) + " or less";
  return code(option.low.text) + " to " + code(option.high.text);
}

std::string fact(std::string_view title, const std::string& text) {
  return text.empty()
             ? ""
             : "<div><dt>" + std::string(title) + "</dt><dd class=\"find\">" + text + "</dd></div>\n";
}

// Explains how to write an option file with the lookup mode and the comment characters of the definition.
std::string notes(const treference& reference) {
  std::string result =
      "<p class=\"notes\">Each line of an option file sets one option: <code>name value</code> or "
      "<code>name = value</code>. ";
  result += lookupnotes[ordinal(reference.lookupmode)];
  result += " A line that begins with <code>*</code> is a comment";
  if (!reference.commentcharacters.empty())
    result +=
        ", and so is the rest of a line from one of the characters " + code(reference.commentcharacters);
  result += ".";
  if (std::ranges::any_of(reference.options, [](const toptionreference& option) {
        return option.listed && option.type == topttype::boolean;
      }))
    result +=
        " Yes can be written as <code>1</code>, <code>y</code>, <code>yes</code>, <code>on</code>, "
        "<code>t</code> or <code>true</code>, no as <code>0</code>, <code>n</code>, <code>no</code>, "
        "<code>off</code>, <code>f</code> or <code>false</code>.";
  return result + "</p>\n";
}

class tpagewriter {
 public:
  explicit tpagewriter(const treference& reference)
      : freference(reference), fchapters(chapters(reference)), fanchors(fchapters), flines(reference) {}

  std::string write() const {
    const std::string title = escaped(titleof(freference));
    const std::string release = escaped(freference.release);
    return filled(pagehtml, {{"styledigest", std::string(pagecssdigest)},
                             {"scriptdigest", std::string(pagejsdigest)},
                             {"style", std::string(pagecss)},
                             {"script", std::string(pagejs)},
                             {"windowtitle", title + (release.empty() ? "" : ", " + release)},
                             {"title", title},
                             {"about", about()},
                             {"groups", grouplinks()},
                             {"indexanchor", fanchors.ofindex()},
                             {"notes", notes(freference)},
                             {"chapters", chapterblocks()},
                             {"index", index()}});
  }

 private:
  std::string link(std::string_view text, const toptionreference& self) const {
    return linkedtext(text, fanchors, self);
  }

  // For example "obsolete: the name is now ...", as HTML.
  std::string standingnote(const toptionreference& option) const {
    const std::string kind(word(option.standing.standing));
    if (kind.empty()) return "";
    const std::string& reason = option.standing.reason;
    return "<p class=\"" + kind + " find\"><strong>" + kind + "</strong>" +
           (reason.empty() ? "" : ": " + linkedtext(reason, fanchors, option, tnaming::everyword)) + "</p>\n";
  }

  std::string synonyms(const toptionreference& option) const {
    if (option.synonyms.empty()) return "";
    const std::string kind(word(option.synonymstanding.standing));
    std::string names;
    for (std::size_t i = 0; i < option.synonyms.size(); ++i)
      names += (i == 0 ? " " : ", ") +
               ("<code id=\"" + fanchors.ofsynonym(option, i) + "\">" + escaped(option.synonyms[i])) +
               "</code>";
    const std::string& reason = option.synonymstanding.reason;
    return "<p class=\"also find\">" +
           (kind.empty() ? "also" : kind + (option.synonyms.size() == 1 ? " synonym" : " synonyms")) + names +
           (reason.empty() ? "" : " (" + linkedtext(reason, fanchors, option, tnaming::everyword) + ")") +
           "</p>\n";
  }

  std::string nameblock(const toptionreference& option) const {
    return "<div>\n<h3><a class=\"find\" href=\"#" + fanchors.of(option) + "\">" + escaped(option.name) +
           "</a></h3>\n" + synonyms(option) + "</div>\n";
  }

  // The script lets users change the value, which has an element of its own.
  std::string readyfact(const toptionreference& option) const {
    const std::string line = flines.readyline(option);
    if (line.empty()) return "";
    const std::size_t keylength = flines.lineof(option, "").size();
    const std::string value = line.size() == keylength ? "" : line.substr(keylength + 1);
    return "<div><dt>Written</dt><dd><code class=\"ready\">" + escaped(line.substr(0, keylength)) +
           (value.empty() ? "" : " <span>" + escaped(value) + "</span>") + "</code></dd></div>\n";
  }

  std::string facts(const toptionreference& option) const {
    return "<dl class=\"facts\">\n" + fact("Type", escaped(typephrase(option))) +
           fact("Range", rangewords(option)) + fact("Default", defaultwords(option)) + readyfact(option) +
           "</dl>\n";
  }

  std::string details(const toptionreference& option) const {
    if (option.details.empty()) return "";
    std::string result = "<p class=\"details find\">";
    for (const std::string& line : option.details)
      result += (&line == &option.details.front() ? "" : "\n") + link(line, option);
    return result + "</p>\n";
  }

  // The script adds a button that copies the line to each value with such a line.
  std::string values(const toptionreference& option) const {
    const bool ready = !flines.readyline(option).empty();
    std::string result;
    for (const tvaluereference& value : option.values) {
      if (!value.listed) continue;
      const bool isdefault = struequal(value.value.text, option.defaultvalue.text);
      const std::string line = ready ? flines.lineof(option, value.value.text) : "";
      result += (isdefault ? "<div class=\"default\">" : "<div>") +
                ("<dt class=\"find\"" + (line.empty() ? "" : " data-line=\"" + escaped(line) + "\"")) + ">" +
                code(value.value.text) + "</dt><dd class=\"find\">" + link(value.help, option) +
                "</dd></div>\n";
    }
    return result.empty() ? "" : "<dl class=\"values\">\n" + result + "</dl>\n";
  }

  std::string members(const toptionreference& option) const {
    std::string result;
    for (const std::string& member : option.members)
      if (!member.empty()) result += (result.empty() ? "" : ", ") + namelink(member, fanchors);
    return result.empty() ? "" : "<p class=\"members\">Stands for " + result + "</p>\n";
  }

  std::string optionblock(const toptionreference& option) const {
    const std::string note = standingnote(option);
    std::string result = "<article class=\"option" + std::string(note.empty() ? "" : " gone") + "\" id=\"" +
                         fanchors.of(option) + "\">\n" + nameblock(option) + "<div>\n";
    if (!option.help.empty()) result += "<p class=\"help find\">" + link(option.help, option) + "</p>\n";
    return result + note + facts(option) + details(option) + values(option) + members(option) +
           "</div>\n</article>\n";
  }

  std::string grouplinks() const {
    std::string result;
    for (std::size_t i = 0; i < fchapters.size(); ++i)
      result += "<li><a href=\"#" + fanchors.ofchapter(i) + "\">" + escaped(fchapters[i].title) + " <span>" +
                std::to_string(fchapters[i].options.size()) + "</span></a></li>\n";
    return result;
  }

  static std::string chapterbegin(const std::string& anchor, const std::string& title) {
    return "<section class=\"group\" id=\"" + anchor + "\" aria-labelledby=\"~" + anchor + "\">\n<h2 id=\"~" +
           anchor + "\">" + escaped(title) + "</h2>\n";
  }

  std::string chapterblocks() const {
    std::string result;
    for (std::size_t i = 0; i < fchapters.size(); ++i) {
      result += chapterbegin(fanchors.ofchapter(i), fchapters[i].title);
      for (const toptionreference* option : fchapters[i].options) result += optionblock(*option);
      result += "</section>\n";
    }
    return result;
  }

  std::string index() const {
    std::string result;
    for (const tindexentry& entry : fanchors.index())
      result += "<li><a href=\"#" + entry.anchor + "\">" + code(entry.name) + "</a>" +
                (entry.synonym ? " for " + escaped(entry.option->name) : "") + "</li>\n";
    return result;
  }

  std::string about() const {
    std::size_t options = 0;
    for (const tchapter& chapter : fchapters) options += chapter.options.size();
    std::string result = escaped(freference.release);
    // the title of the tool has the name of the file
    if (!freference.title.empty() && !filename(freference).empty())
      result += (result.empty() ? "" : "<br>") + escaped(filename(freference));
    return result + (result.empty() ? "" : "<br>") + counted(options, "option") + " in " +
           counted(fchapters.size(), "group");
  }

  const treference& freference;
  std::vector<tchapter> fchapters;
  tanchors fanchors;
  treadylines flines;
};

}  // namespace

std::string pagedocument(const treference& reference) { return tpagewriter(reference).write(); }

}  // namespace tool

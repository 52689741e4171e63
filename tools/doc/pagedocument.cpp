// doc page: the reference of the options as one self-contained HTML file. Its skeleton, style and search are
// the files in page/. This file inserts the texts of the definition and escapes all of them.
#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string_view>

#include "base/textcase.h"
#include "page.h"
#include "tools/doc/documents.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

constexpr std::array<std::string_view, 3> lookupnotes = {
    "Names may be typed in upper or lower case.",
    "Names may be typed in upper or lower case, and the first three characters of each word are enough.",
    "Names may be typed in upper or lower case. Three characters of the first word are enough, and four of "
    "each other word."};

// Escapes a text for elements and for attributes in quotes.
std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : printableprose(text)) {
    switch (c) {
      case '&': result += "&amp;"; break;
      case '<': result += "&lt;"; break;
      case '>': result += "&gt;"; break;
      case '"': result += "&quot;"; break;
      case '\'': result += "&#39;"; break;
      default: result += c;
    }
  }
  return result;
}

std::string code(const std::string& text) { return "<code>" + escaped(text) + "</code>"; }

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

// Returns a name as an anchor. The other anchors of the page begin with "~", which the anchor of a name never
// does.
std::string anchorform(const std::string& name) {
  std::string result;
  for (const char c : name) {
    if (isdigit(c) || isletter(c) || c == '.' || c == '-' || c == '_')
      result += c;
    else if (c == ' ')
      result += '_';
    else
      result.append("-").append(hexdigits(c));
  }
  return result.empty() ? "-" : result;
}

// Gives each option and each synonym an anchor of its own, made from its name. Options get theirs first, so
// that a synonym cannot take the anchor of an option.
class tanchors {
 public:
  explicit tanchors(const std::vector<tchapter>& chapters) {
    for (const tchapter& chapter : chapters)
      for (const toptionreference* option : chapter.options) {
        const std::string anchor = unused(anchorform(option->name));
        foptions.emplace(option, anchor);
        fnames.emplace(option->name, anchor);
      }
  }
  const std::string& of(const toptionreference& option) const { return foptions.at(&option); }
  std::string forsynonym(const std::string& name) { return unused(anchorform(name)); }
  // Returns the name, as a link if the page has the option.
  std::string link(const std::string& name) const {
    const auto found = fnames.find(name);
    return found == fnames.end() ? code(name) : "<a href=\"#" + found->second + "\">" + code(name) + "</a>";
  }

 private:
  std::string unused(const std::string& form) {
    std::string result = form;
    for (std::size_t& uses = fuses[form]; !ftaken.insert(result).second;)
      result = form + "-" + std::to_string(++uses + 1);
    return result;
  }
  std::set<std::string> ftaken;
  std::map<std::string, std::size_t> fuses;  // saves equal names from trying all numbers again
  std::map<const toptionreference*, std::string> foptions;
  std::map<std::string, std::string> fnames;
};

std::string_view word(tstanding standing) {
  switch (standing) {
    case tstanding::current: break;
    case tstanding::deprecated: return "deprecated";
    case tstanding::obsolete: return "obsolete";
  }
  return "";
}

// For example "obsolete: the name is now ...", as HTML.
std::string standingnote(const tnamestanding& standing) {
  const std::string kind(word(standing.standing));
  if (kind.empty()) return "";
  const std::string reason = standing.reason.empty() ? "" : ": " + escaped(standing.reason);
  return "<span class=\"" + kind + "\"><strong>" + kind + "</strong>" + reason + "</span>";
}

std::string nameblock(const toptionreference& option, tanchors& anchors) {
  const std::string& anchor = anchors.of(option);
  std::string result =
      "<div>\n<h3><a class=\"find\" href=\"#" + anchor + "\">" + escaped(option.name) + "</a></h3>\n";
  if (option.synonyms.empty()) return result + "</div>\n";
  result += "<p class=\"also\">also";
  for (const std::string& synonym : option.synonyms)
    result += (&synonym == &option.synonyms.front() ? " " : ", ") +
              ("<code class=\"find\" id=\"" + anchors.forsynonym(synonym)) + "\">" + escaped(synonym) +
              "</code>";
  const std::string note = standingnote(option.synonymstanding);
  return result + (note.empty() ? "" : "; " + note) + "</p>\n</div>\n";
}

std::string fact(std::string_view title, const std::string& text) {
  return text.empty() ? "" : "<div><dt>" + std::string(title) + "</dt><dd>" + text + "</dd></div>\n";
}

std::string facts(const toptionreference& option) {
  const auto value = [](const tshownvalue& shown) { return shown.text.empty() ? "" : code(shown.text); };
  std::string result = fact("Type", escaped(typephrase(option)));
  if (option.name.starts_with('.')) result += fact("Written", code("symbol" + option.name));
  if (!rangephrase(option).empty()) result += fact("Range", value(option.low) + " to " + value(option.high));
  return "<dl class=\"facts\">\n" + result + fact("Default", value(option.defaultvalue)) + "</dl>\n";
}

std::string details(const toptionreference& option) {
  if (option.details.empty()) return "";
  std::string result = "<p class=\"details find\">";
  for (const std::string& line : option.details)
    result += (&line == &option.details.front() ? "" : "\n") + escaped(line);
  return result + "</p>\n";
}

std::string values(const toptionreference& option) {
  std::string result;
  for (const tvaluereference& value : option.values)
    if (value.listed)
      result +=
          (struequal(value.value.text, option.defaultvalue.text) ? "<div class=\"default\">" : "<div>") +
          ("<dt class=\"find\">" + code(value.value.text) + "</dt><dd class=\"find\">" +
           escaped(value.help)) +
          "</dd></div>\n";
  return result.empty() ? "" : "<dl class=\"values\">\n" + result + "</dl>\n";
}

std::string members(const toptionreference& option, const tanchors& anchors) {
  std::string result;
  for (const std::string& member : option.members)
    if (!member.empty()) result += (result.empty() ? "" : ", ") + anchors.link(member);
  return result.empty() ? "" : "<p class=\"members\">Stands for " + result + "</p>\n";
}

std::string optionblock(const toptionreference& option, tanchors& anchors) {
  const std::string note = standingnote(option.standing);
  std::string result = "<article class=\"option" + std::string(note.empty() ? "" : " gone") + "\" id=\"" +
                       anchors.of(option) + "\">\n" + nameblock(option, anchors) + "<div>\n";
  if (!option.help.empty()) result += "<p class=\"help find\">" + escaped(option.help) + "</p>\n";
  if (!note.empty()) result += "<p>" + note + "</p>\n";
  return result + facts(option) + details(option) + values(option) + members(option, anchors) +
         "</div>\n</article>\n";
}

std::string groupanchor(std::size_t index) { return "~group" + std::to_string(index + 1); }

std::string grouplinks(const std::vector<tchapter>& chapters) {
  std::string result;
  for (std::size_t i = 0; i < chapters.size(); ++i)
    result += "<li><a href=\"#" + groupanchor(i) + "\">" + escaped(chapters[i].title) + " <span>" +
              std::to_string(chapters[i].options.size()) + "</span></a></li>\n";
  return result;
}

std::string chapterbegin(const std::string& anchor, const std::string& title) {
  return "<section class=\"group\" id=\"" + anchor + "\" aria-labelledby=\"" + anchor +
         "title\">\n<h2 id=\"" + anchor + "title\">" + escaped(title) + "</h2>\n";
}

std::string chapterblocks(const std::vector<tchapter>& chapters, tanchors& anchors) {
  std::string result;
  for (std::size_t i = 0; i < chapters.size(); ++i) {
    result += chapterbegin(groupanchor(i), chapters[i].title);
    for (const toptionreference* option : chapters[i].options) result += optionblock(*option, anchors);
    result += "</section>\n";
  }
  return result;
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
  return result + ".</p>\n";
}

std::string about(const std::string& definition, const std::vector<tchapter>& chapters) {
  std::size_t options = 0;
  for (const tchapter& chapter : chapters) options += chapter.options.size();
  return escaped(definition) + "<br>" + counted(options, "option") + " in " +
         counted(chapters.size(), "group");
}

}  // namespace

std::string pagedocument(const treference& reference) {
  const std::vector<tchapter> chapters = tool::chapters(reference);
  const std::string definition = std::filesystem::path(reference.definition).filename().string();
  tanchors anchors(chapters);
  return filled(pagehtml, {{"styledigest", std::string(pagecssdigest)},
                           {"scriptdigest", std::string(pagejsdigest)},
                           {"style", std::string(pagecss)},
                           {"script", std::string(pagejs)},
                           {"definition", escaped(definition)},
                           {"about", about(definition, chapters)},
                           {"groups", grouplinks(chapters)},
                           {"notes", notes(reference)},
                           {"chapters", chapterblocks(chapters, anchors)}});
}

}  // namespace tool

// Makes anchors from names, and the index of names.
#include "tools/doc/anchors.h"

#include <algorithm>

#include "base/textcase.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

// Returns a name as an anchor, which needs no escape in an address.
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
  return result;
}

// Equal for names that differ only in case, or in blanks and underscores.
std::string folded(std::string_view name) {
  std::string result;
  for (const char c : name) result.push_back(c == ' ' ? '_' : lowchar(c));
  return result;
}

}  // namespace

tanchors::tanchors(const std::vector<tchapter>& chapters) {
  for (const tchapter& chapter : chapters)
    for (const toptionreference* option : chapter.options) {
      foptions.emplace(option, unused(anchorform(option->name)));
      fnames.emplace(folded(option->name), option);
    }
  for (const tchapter& chapter : chapters)
    for (const toptionreference* option : chapter.options)
      for (const std::string& synonym : option->synonyms) {
        fsynonyms[option].push_back(unused(anchorform(synonym)));
        fnames.emplace(folded(synonym), option);
      }
  for (const tchapter& chapter : chapters)
    fchapters.push_back(
        unused(chapter.group.empty() ? "further-options" : "group-" + anchorform(chapter.group)));
  findex = unused("index-of-names");
}

const std::string& tanchors::ofsynonym(const toptionreference& option, std::size_t index) const {
  return fsynonyms.at(&option).at(index);
}

const toptionreference* tanchors::find(std::string_view name) const {
  const auto found = fnames.find(folded(name));
  return found == fnames.end() ? nullptr : found->second;
}

std::vector<tindexentry> tanchors::index() const {
  std::vector<tindexentry> result;
  for (const auto& [option, anchor] : foptions) {
    result.push_back({option->name, anchor, option, false});
    for (std::size_t i = 0; i < option->synonyms.size(); ++i)
      result.push_back({option->synonyms[i], ofsynonym(*option, i), option, true});
  }
  std::ranges::sort(result, [](const tindexentry& a, const tindexentry& b) {
    const std::int32_t order = strucmp(a.name, b.name);
    return order != 0 ? order < 0 : a.anchor < b.anchor;
  });
  return result;
}

std::string tanchors::unused(const std::string& form) {
  std::string result = form;
  for (std::size_t& uses = fuses[form]; !ftaken.insert(result).second;)
    result = form + "-" + std::to_string(++uses + 1);
  return result;
}

}  // namespace tool

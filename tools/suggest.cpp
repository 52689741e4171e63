// Edit distance, and the reading of the messages that suggestions are made for.
#include "tools/suggest.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tool {

namespace {

constexpr std::size_t maxsuggestions = 3;

// Texts of library messages; the quoted names stand between their parts.
constexpr std::string_view unknownoption = "Unknown option \"";
constexpr std::string_view unknownsuffix = "unknown .suffix \"";
constexpr std::string_view unknownvalue = "Unknown value for option \"";

std::string uppercase(std::string_view text) {
  std::string result(text);
  for (char& c : result)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return result;
}

// Upper case, and underscores for blanks: names are compared alike however they are handed out.
std::string folded(std::string_view text) {
  std::string result = uppercase(text);
  std::ranges::replace(result, ' ', '_');
  return result;
}

std::size_t difference(std::size_t a, std::size_t b) { return a > b ? a - b : b - a; }

// One mistake in every three characters is still a mistake; more is another word.
std::size_t tolerated(std::size_t length) { return std::clamp<std::size_t>(length / 3, 1, 4); }

bool isnear(std::string_view typed, std::string_view candidate, std::size_t distance) {
  return distance <= tolerated(typed.size()) && distance < std::max(typed.size(), candidate.size());
}

bool isabbreviation(std::string_view typed, std::string_view candidate) {
  return typed.size() >= 3 && candidate.starts_with(typed);
}

// The text between `head`, at the start of text, and the next double quote.
std::optional<std::string> quotedafter(std::string_view text, std::string_view head) {
  if (!text.starts_with(head)) return std::nullopt;
  text.remove_prefix(head.size());
  const std::size_t end = text.find('"');
  if (end == std::string_view::npos) return std::nullopt;
  return std::string(text.substr(0, end));
}

// The known names, fetched when the first finding asks for them.
class tsuggester {
 public:
  explicit tsuggester(const thandle& handle) : fhandle(handle) {}

  std::vector<std::string> suggestionsfor(const std::string& text) {
    if (const auto key = quotedafter(text, unknownoption);
        key && text.size() == unknownoption.size() + key->size() + 1)
      return keysuggestions(*key);
    if (const auto suffix = quotedafter(text, unknownsuffix))
      return nearest(*suffix, names().dots, tmatch::nearorlonger);
    if (const auto option = quotedafter(text, unknownvalue)) {
      const auto value = quotedafter(text, std::string(unknownvalue) + *option + "\" saw \"");
      const std::int32_t number = fhandle.find(*option);
      if (value && fhandle.info(number).type == optTypeEnumStr)
        return nearest(*value, fhandle.enumvalues(number), tmatch::nearorlonger);
    }
    return {};
  }

 private:
  struct tnames {
    std::vector<std::string> keys;
    std::vector<std::string> dots;
  };

  const tnames& names() {
    if (!fnames) {
      fnames.emplace();
      fnames->keys = keynames(fhandle);
      for (std::int32_t number = 1; number <= fhandle.count(); ++number)
        if (const std::string name = fhandle.storedname(number); name.starts_with('.'))
          fnames->dots.push_back(name);
    }
    return *fnames;
  }

  // A key may have one word too many; in lookup mode Minos words of its value are joined to an unknown key.
  // So its first words are tried alone as well, unless they are too short to tell anything.
  std::vector<std::string> keysuggestions(const std::string& key) {
    std::vector<std::string> result = nearest(key, names().keys, tmatch::nearorlonger);
    for (std::size_t end = key.rfind('_'); result.empty() && end != std::string::npos && end >= 4;
         end = key.rfind('_', end - 1)) {
      const std::string words = key.substr(0, end);
      if (const std::int32_t number = fhandle.find(words); number != 0) return {fhandle.name(number)};
      result = nearest(words, names().keys, tmatch::near);
    }
    return result;
  }

  const thandle& fhandle;
  std::optional<tnames> fnames;
};

}  // namespace

std::size_t editdistance(std::string_view a, std::string_view b) {
  const std::string from = folded(a);
  const std::string to = folded(b);
  // rows for from[0 .. i-2], from[0 .. i-1] and from[0 .. i]
  std::vector<std::size_t> beforelast, last(to.size() + 1), row(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    beforelast = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
        row[j] = std::min(row[j], beforelast[j - 2] + 1);
    }
  }
  return row[to.size()];
}

std::vector<std::string> nearest(std::string_view typed, const std::vector<std::string>& candidates,
                                 tmatch match) {
  const std::string key = folded(typed);
  std::vector<std::pair<std::size_t, const std::string*>> found;
  for (const std::string& candidate : candidates) {
    // a name that its lookup mode cannot match is not worth another try
    if (uppercase(typed) == uppercase(candidate)) continue;
    const std::string name = folded(candidate);
    const bool abbreviated = match == tmatch::nearorlonger && isabbreviation(key, name);
    if (!abbreviated && difference(key.size(), name.size()) > tolerated(key.size())) continue;
    const std::size_t distance = editdistance(key, name);
    if (abbreviated || isnear(key, name, distance)) found.emplace_back(distance, &candidate);
  }
  std::ranges::stable_sort(found, {}, &std::pair<std::size_t, const std::string*>::first);
  std::vector<std::string> result;
  for (const auto& [distance, name] : found)
    if (result.size() < maxsuggestions && std::ranges::find(result, *name) == result.end())
      result.push_back(*name);
  return result;
}

std::vector<std::string> keynames(const thandle& handle) {
  std::vector<std::string> result;
  bool blanks = false;  // names are typed with blanks for their underscores
  for (std::int32_t number = 1; number <= handle.count(); ++number) {
    const std::string name = handle.name(number);
    blanks = blanks || name != handle.storedname(number);
    if (!name.starts_with('.') && !name.starts_with("--")) result.push_back(name);
  }
  for (std::string& synonym : handle.synonyms()) {
    if (blanks) std::ranges::replace(synonym, '_', ' ');
    result.push_back(std::move(synonym));
  }
  return result;
}

void addsuggestions(const thandle& handle, tfindings& findings) {
  tsuggester suggester(handle);
  for (tfinding& finding : findings)
    if (finding.severity != tseverity::plain && finding.suggestions.empty())
      finding.suggestions = suggester.suggestionsfor(finding.text);
}

}  // namespace tool

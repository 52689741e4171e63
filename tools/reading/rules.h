// The rules of findings: the kinds of problems, each with a name that never changes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tool {

enum class tfiledby : std::uint8_t {
  library,  // a message of the library: an error, or a warning as well
  warning,  // a message of the library that is always a warning
  mistake,  // an error of the tool
  tool      // a warning of the tool, which shows the name of its rule
};

struct trule {
  std::string_view name;
  tfiledby filedby;
  std::string_view meaning;  // one sentence
};

// Whether findings of the rule are warnings, which can be left out.
inline bool iswarning(const trule& rule) {
  return rule.filedby == tfiledby::warning || rule.filedby == tfiledby::tool;
}

// The rules of what check reports. The other commands have further ones, for what they cannot write.
std::span<const trule> checkrules();
// The rule of this name; null if there is none.
const trule* findrule(std::string_view name);

}  // namespace tool

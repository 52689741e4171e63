// Warnings about a line of an option file that sets something else than was meant.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_map>

#include "options/vksoptions.h"
#include "tools/reading/findings.h"
#include "tools/reading/nearnames.h"

namespace tool {

// The name of a list as it stands in the line, which may have slashes for dashes.
std::string_view typedname(const optcore::toption& list, std::string_view line);

class tsettingwarnings {
 public:
  // The store must outlive this object, and have read its definition before the first setting.
  explicit tsettingwarnings(const optcore::tvksoptions& store) : fstore(store) {}

  // To be called after a value of the option was set. `line` is the line that does it.
  std::optional<tfinding> list(const optcore::toption& option, std::string_view line, const tplace& place);
  std::optional<tfinding> comment(const optcore::toption& option, std::string_view line,
                                  const tplace& place) const;

 private:
  const std::vector<std::string>& meant(const optcore::toption& option);

  const optcore::tvksoptions& fstore;
  std::optional<tnearnames> fkeys;
  std::unordered_map<const optcore::toption*, std::vector<std::string>> fmeant;
};

}  // namespace tool

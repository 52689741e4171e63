// What migrating did with a line, or leaves to a person.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tool {

enum class taction : std::uint8_t {
  renamed,    // it has the current name
  spelled,    // the name or value is written in another way, and means the same as before
  clamped,    // a value was moved to a bound
  pinned,     // a default that has changed was written into the file
  commented,  // what can no longer be set is a comment now
  remark,     // a comment is marked in another way
  // what was not changed
  left,        // a person must decide
  refused,     // the older definition does not take it either
  taken,       // only the newer definition takes it, as in a file that was migrated before
  deprecated,  // it works, but its name is deprecated
  reduced,     // a part of what it set is gone
  newdefault   // the file relies on a default that has changed
};
inline constexpr auto actionnames =
    std::to_array<std::string_view>({"renamed", "spelled", "clamped", "pinned", "commented", "remark", "left",
                                     "refused", "taken", "deprecated", "reduced", "new-default"});

inline std::string_view nameof(taction action) { return actionnames[static_cast<std::size_t>(action)]; }

struct tnote {
  taction action;
  std::string name;  // of the option in the older definition; perhaps empty
  std::string text;
  bool decide = false;  // a person has to decide something
};

}  // namespace tool

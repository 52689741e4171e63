// Warnings about an option that is set twice with different values, which the library accepts silently.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>

#include "options/toption.h"
#include "tools/reading/findings.h"

namespace tool {

// Remembers the last value of each option. There is no warning for
// - a value of another file or text, because later ones are meant to replace values of earlier ones,
// - a strlist, because it collects texts,
// - a dot option, because its values belong to different symbols,
// - a value that replaces one set by a macro, because a macro is a preset that later lines may refine. A
//   macro that replaces an earlier value is reported.
class tassignments {
 public:
  // A value as it is stored, because its text is seldom needed. None before the first assignment.
  using tvalue = std::variant<std::monostate, std::int32_t, double, std::string>;

  // Another value that the option had before.
  struct tearlier {
    tvalue value{};
    const std::string* file = nullptr;  // belongs to the tassignments
    std::int32_t line = 0;
  };

  // To be called after every assignment, with the place of the line that makes it. Returns the value that it
  // replaces if that deserves a warning; it holds until the next call. `bits` are those of
  // tstoreobserver::assigned.
  const tearlier* replaced(const optcore::toption& option, std::int32_t bits, std::string_view file,
                           std::int32_t line);

 private:
  struct tassignment {
    tearlier last;
    bool bymacro = false;
  };

  const std::string* stored(std::string_view file);
  bool isreported(const optcore::toption& option, optcore::twhich which, const std::string* file,
                  std::int32_t line);

  std::unordered_map<const optcore::toption*, std::array<tassignment, 2>> fassignments;
  std::set<std::string, std::less<>> ffiles;
  const std::string* ffile = nullptr;  // the last one that was asked for
  tearlier freplaced;
  const optcore::toption* freported = nullptr;  // the option of the last warning, and its place
  const std::string* freportedfile = nullptr;
  std::int32_t freportedline = 0;
};

inline constexpr std::string_view replacedrule = "set-again";
// The finding about a value that replaces another one.
tfinding replacedfinding(const optcore::toption& option, std::int32_t bits,
                         const tassignments::tearlier& earlier, const tplace& place);

}  // namespace tool

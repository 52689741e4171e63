// What the library forgives silently and a maintainer must know: a definition whose reading ends before its
// last line, and an option that is set twice with different values.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "options/toption.h"
#include "options/vksoptions.h"
#include "tools/reading.h"

namespace tool {

// Warns when a line that no definition can begin with has ended the reading of the definition.
void addearlyend(treading& reading);

// While it lives, reports each option that receives another value than it has received before, with both
// places. That is no mistake for
// - a strlist, which is meant to collect texts,
// - a dot option, whose values belong to different symbols,
// - a value that replaces one set by a macro: a macro is a preset, which lines of their own may refine. A
//   macro that replaces what was set before it is reported.
class tassignmentwatch final : public optcore::tstoreobserver {
 public:
  explicit tassignmentwatch(treading& reading);
  ~tassignmentwatch() override;
  tassignmentwatch(const tassignmentwatch&) = delete;
  tassignmentwatch& operator=(const tassignmentwatch&) = delete;

  void filed(const optcore::tmessage&) override {}
  void assigned(const optcore::toption& option, std::int32_t bits) override;

 private:
  struct tassignment {
    std::string value;
    tplace place;
    bool bymacro;
  };

  tplace here() const;
  bool bymacro(const optcore::toption& option) const;
  void report(const optcore::toption& option, bool second, const tassignment& before, const tassignment& now);

  treading& freading;
  optcore::tvksoptions& fstore;
  std::unordered_map<const optcore::toption*, std::array<std::optional<tassignment>, 2>> flast;
  const optcore::toption* freported = nullptr;  // the option of the last report
  tplace freportedplace;
};

}  // namespace tool

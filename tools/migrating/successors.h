// Which option of the newer definition continues an option of the older one, and how its name is written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/tracing/counterparts.h"

namespace tool {

class tsuccessors {
 public:
  // An option's successor is its counterpart (tcounterparts), or the new option of the same type
  // that the reason of its deprecation names.
  tsuccessors(const tpositions& older, const tpositions& newer);

  // Of the option at a position of the older definition; null if there is none.
  const optcore::toption* of(std::int32_t position) const {
    return position < 0 || position >= count() ? nullptr : fsuccessors[static_cast<std::size_t>(position)];
  }

  // The number of options in the older definition.
  std::int32_t count() const { return static_cast<std::int32_t>(fsuccessors.size()); }

  const tpositions& older() const { return folder; }
  const tpositions& newer() const { return fnewer; }

 private:
  void follow(const tcounterparts& counterparts, std::int32_t position);

  const tpositions& folder;
  const tpositions& fnewer;
  std::vector<const optcore::toption*> fsuccessors;
  // For the newer options the positions of the older ones that they continue; -1 for a new one.
  std::vector<std::int32_t> fpredecessors;
};

// How the option's name is typed, so that it finds the option; empty if it cannot be typed. Without the period
// of a dot option.
std::string writtenname(const optcore::tdefinition& definition, const optcore::toption& option);

// Why the newer definition does not have an option of the older one, or no longer takes it: the text that one
// of the definitions has about it; empty if there is none.
std::string reasonof(const optcore::toption& older, const optcore::toption* newer);

}  // namespace tool

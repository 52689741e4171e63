// Which option of a newer definition is which of an older one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "options/definition.h"

namespace tool {

// Finds positions in the option list of a definition, from 0; -1 stands for none.
class tpositions {
 public:
  // The definition must outlive this object, and have been read.
  explicit tpositions(const optcore::tdefinition& definition);
  const optcore::tdefinition& definition() const { return fdefinition; }
  std::int32_t of(const optcore::toption* option) const;
  // Of the option with exactly this name, whatever the lookup mode.
  std::int32_t named(std::string_view name) const { return of(fdefinition.exactoption(name)); }

 private:
  const optcore::tdefinition& fdefinition;
  std::unordered_map<const optcore::toption*, std::int32_t> fpositions;
};

class tcounterparts {
 public:
  // An option's counterpart has its name. If no option of the newer definition has it, but a synonym has, the
  // counterpart is the synonym's option, unless the older definition has that one, too: the option was
  // renamed.
  tcounterparts(const tpositions& older, const tpositions& newer);

  std::int32_t newerof(std::int32_t position) const { return fnewer[static_cast<std::size_t>(position)]; }
  std::int32_t olderof(std::int32_t position) const { return folder[static_cast<std::size_t>(position)]; }
  // For a position that may be none.
  std::int32_t newerofany(std::int32_t position) const { return position < 0 ? -1 : newerof(position); }

 private:
  std::vector<std::int32_t> fnewer, folder;
};

// The option of the definition that the reason of a deprecation names, as in: use "infinity". A name in
// quotes goes before others. -1 if it names none, or only `but`.
std::int32_t namedin(std::string_view reason, const tpositions& options, std::string_view but);

}  // namespace tool

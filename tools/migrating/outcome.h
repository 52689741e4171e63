// What lines set in terms of the newer definition, so that lines of both definitions can be compared.
#pragma once

#include <string>
#include <vector>

#include "tools/migrating/meaning.h"
#include "tools/migrating/successors.h"

namespace tool {

// Whether the option is a list that an option file made itself.
inline bool isownlist(const optcore::toption* option) {
  return option != nullptr && option->name().starts_with("--");
}

struct titem {
  teffect::tkind kind;
  const optcore::toption* option = nullptr;  // null for an indicator and for a list that option files made
  optcore::twhich which = optcore::twhich::first;
  tvalue value{};
  std::string symbol{};  // what a dot entry or indicator is for, or the name of a list without an option
  optcore::topttype type = optcore::topttype::integer;  // under which the value was read
  optcore::tsubtype subtype = optcore::tsubtype::required;
};

struct toutcome {
  std::vector<titem> items;
  bool isreduced = false;  // some effects have no place in the newer definition

  void append(const toutcome& other) { items.insert(items.end(), other.items.begin(), other.items.end()); }
};

// Of a line that was read into a store of the older definition, whose positions these are.
toutcome outcomeof(const std::vector<teffect>& effects, const tpositions& older,
                   const tsuccessors& successors);
// Of a line that was read into a store of the newer definition.
toutcome outcomeof(const std::vector<teffect>& effects);

// Whether the values mean the same to programs that ask for them.
bool samevalue(const titem& expected, const titem& seen);

// Whether the same is set in the end.
bool issame(const toutcome& expected, const toutcome& seen);
// Whether nothing is set but what is expected.
bool isnothingelse(const toutcome& expected, const toutcome& seen);

}  // namespace tool

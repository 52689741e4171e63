// What may be typed at a place of an option file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/lsp/analysis.h"
#include "tools/lsp/optiontyped.h"

namespace tool::lsp {

// The kinds of the protocol.
enum class tcandidatekind {
  property = 10,
  value = 12,
  keyword = 14,
  file = 17,
  reference = 18,
  folder = 19,
  word = 20
};

struct tcandidate {
  std::string text;  // that is to be typed
  tcandidatekind kind = tcandidatekind::property;
  std::string detail{};
  bool deprecated = false;   // or obsolete
  bool isnear = false;       // what is typed is no part of it
  std::int32_t option = -1;  // its index, if it is the name of one
};

struct tcandidates {
  std::vector<tcandidate> all{};  // the best ones first
  bool iscomplete = true;         // whether typing more brings no further ones
  tspan span{};                   // of the line, that they replace
};

// Names of options, or with `dotted` of dot options: those that help lists, and their synonyms.
tcandidates namesfor(const tdefinitionstate& definition, const std::string& typed, bool dotted);
// Values of an option.
tcandidates valuesfor(const optcore::tvksoptions& store, const ttyped& typed);
// The names of files that an option file can include, from the folder of the process.
tcandidates filesfor(const ttyped& typed);

// By which a client sorts the item at this place of a list.
inline std::string sorttext(std::size_t position) { return std::to_string(100'000 + position).substr(1); }

}  // namespace tool::lsp

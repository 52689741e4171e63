// What editors take the entries of a definition for.
#pragma once

#include "tools/lsp/definitionindex.h"

namespace tool::lsp {

inline constexpr int tagdeprecated = 1;  // of symbols and completion items

// The kinds of symbols of the protocol.
inline int kindof(const tdefinitionindex::tentry& entry) {
  constexpr int space = 3, property = 7, choice = 10, function = 12, list = 18, key = 20, event = 24;
  if (entry.kind == tdefinitionindex::tkind::group) return space;
  if (entry.kind == tdefinitionindex::tkind::synonym) return key;
  if (entry.keyword.starts_with("enum")) return choice;
  if (entry.keyword.ends_with("list")) return list;
  return entry.keyword == "macro" ? function : entry.keyword == "immediate" ? event : property;
}

}  // namespace tool::lsp

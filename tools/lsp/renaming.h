// What a new name of an option, synonym or group changes, and whether everything else stays as it is.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tools/lsp/definitionindex.h"
#include "tools/lsp/edits.h"

namespace tool::lsp {

// A name that can be changed.
struct trenamed {
  std::string definitionkey;
  std::shared_ptr<const ttext> definition;        // its text
  std::shared_ptr<const tdefinitionindex> index;  // of that text
  const tdefinitionindex::tentry* entry;          // of the index
  tspan span;                                     // at the cursor, without the period of a dot option
};

// What the place of the request names; nothing if that has no name that can be changed.
std::optional<trenamed> renamedat(const trequest& request);

// Why the entry cannot have the name; empty if it can.
std::string problemofname(const trenamed& renamed, std::string_view name);

// All changes, or why they cannot be made. `name` has the period of a dot option, and underscores.
using trenaming = std::variant<tworkspaceedits, terror>;
trenaming renaming(const trequest& request, const trenamed& renamed, const std::string& name);

}  // namespace tool::lsp

// Where the option files of the workspace name an option.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/lsp/workspace.h"

namespace tool::lsp {

struct toptionfile {
  std::string key;
  std::shared_ptr<const ttext> text;  // as the client has it if it is open, otherwise as it is on the disk
};

// The option files that are read with the definition: those that are open and those of `files`, and the files
// that they include. In the order of their keys.
std::vector<toptionfile> optionfilesof(const trequest& request, const std::string& definitionkey,
                                       const optcore::tvksoptions& store, const tfolderfiles& files);

struct tuse {
  std::string key;                    // of the file
  std::shared_ptr<const ttext> text;  // as the client has it if it is open, otherwise as it is on the disk
  tspan name;                         // in the text; as it was written, maybe a synonym or a short form
};

// The uses of the option at this position of the definition, in the option files that belong to it: those that
// are open and those in the folders, in the order of their keys.
std::vector<tuse> usesof(const trequest& request, const tdefinitionstate& definition, std::int32_t index);

// The line of the definition that makes the option; nothing if the definition has none.
std::optional<tuse> declarationof(const tdefinitionstate& definition, std::int32_t index);
// The places in the definition that name the option: lists, macros, synonyms and marks; with `declared`, its own
// line before them.
std::vector<tuse> usesindefinition(const tworkspace& workspace, const tdefinitionstate& definition,
                                   std::int32_t index, bool declared);

// The first word of a line; the whole line if it has none.
tspan firstword(const ttext& text, std::int32_t number);

json locationof(const tuse& use, const tworkspace& workspace);

}  // namespace tool::lsp

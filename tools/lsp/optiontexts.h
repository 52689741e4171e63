// What editors show of an option: the texts of explain, as Markdown or plain.
#pragma once

#include <cstdint>
#include <string>

#include "options/vksoptions.h"
#include "tools/tracing/touches.h"

namespace tool::lsp {

enum class tmarkup { plaintext, markdown };
inline tmarkup markup(bool markdown) { return markdown ? tmarkup::markdown : tmarkup::plaintext; }
inline const char* nameof(tmarkup markup) { return markup == tmarkup::markdown ? "markdown" : "plaintext"; }

// What the definition says about the option of this index.
std::string definitiontext(const optcore::tvksoptions& store, std::int32_t index, tmarkup markup);

// What the lines did, and the values in force, unless the touches are those of a symbol.
std::string touchestext(const ttouches& touches, bool issymbol, tmarkup markup);

// A name or value as it is typed.
std::string codetext(std::string_view text, tmarkup markup);
std::string prosetext(std::string_view text, tmarkup markup);

// The index of an option; below 0 for one that the definition does not have.
std::int32_t indexof(const optcore::tvksoptions& store, const optcore::toption& option);

}  // namespace tool::lsp

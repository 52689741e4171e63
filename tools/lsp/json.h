// Messages of the protocol as JSON, and how the members of one are taken, whatever a client sends: what is
// missing or of another type is as if it were not there.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "tools/text.h"

namespace tool::lsp {

using json = nlohmann::json;

// The member of the value; null if there is none.
const json& member(const json& value, std::string_view name);
// The member of a member, and so on.
template <class... tnames>
const json& member(const json& value, std::string_view name, std::string_view next, tnames... rest) {
  return member(member(value, name), next, rest...);
}

// The value, or what is taken for it if it is of another type.
std::string textof(const json& value, std::string_view otherwise = {});
bool flagof(const json& value, bool otherwise = false);
std::optional<std::int64_t> integerof(const json& value);
// Whether it is an array that has this text.
bool has(const json& value, std::string_view text);

// Adds a text to what is written as JSON. For results of very many parts, of which a tree would take long to make.
void appendtext(std::string& written, std::string_view text);

// An array, if it is one; otherwise an empty one. For loops.
const json& arrayof(const json& value);

}  // namespace tool::lsp

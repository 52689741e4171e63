// Takes members of messages.
#include "tools/lsp/json.h"

#include <algorithm>

namespace tool::lsp {

const json& member(const json& value, std::string_view name) {
  static const json none;
  if (!value.is_object()) return none;
  const auto found = value.find(name);
  return found == value.end() ? none : *found;
}

std::string textof(const json& value, std::string_view otherwise) {
  return value.is_string() ? value.get_ref<const std::string&>() : std::string(otherwise);
}

bool flagof(const json& value, bool otherwise) { return value.is_boolean() ? value.get<bool>() : otherwise; }

std::optional<std::int64_t> integerof(const json& value) {
  if (value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX) return std::nullopt;
  return value.is_number_integer() ? std::optional(value.get<std::int64_t>()) : std::nullopt;
}

bool has(const json& value, std::string_view text) {
  return std::ranges::any_of(arrayof(value), [&](const json& each) { return each == text; });
}

void appendtext(std::string& written, std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  written += '"';
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (code < 0x20) {
      written.append("\\u00").append(1, digits[code / 16]).append(1, digits[code % 16]);
      continue;
    }
    if (character == '"' || character == '\\') written += '\\';
    written += character;
  }
  written += '"';
}

const json& arrayof(const json& value) {
  static const json none = json::array();
  return value.is_array() ? value : none;
}

}  // namespace tool::lsp

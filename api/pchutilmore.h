// The rest of the unit of text conversion: neither the library nor the tool calls these; programs that are
// built with the objects may.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace optcore {

// As pchartostr, in place: makes the zero-terminated text in a buffer of 256 bytes the short string in it.
void convertpchar(char* buffer) noexcept;

// Copies a text and a terminating zero; returns the number of characters. The second form copies at most
// `max`.
std::int32_t strpcopy(char* target, std::string_view source) noexcept;
std::int32_t strpcopyn(char* target, std::string_view source, std::int32_t max) noexcept;

// A new zero-terminated copy, null for the empty text; and a new empty text.
std::unique_ptr<char[]> strtopchar(std::string_view text);
std::unique_ptr<char[]> emptytopchar();

// 0 for a null pointer.
std::size_t pcharlen(const char* text) noexcept;

}  // namespace optcore

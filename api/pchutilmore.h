// The routines of the text conversion unit that neither the library nor the tool calls. They are kept for
// programs that are linked with the library's objects. pchutil.h has the routine that the library uses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace optcore {

// Converts the zero-terminated text in a buffer of 256 bytes to a short string in the same buffer. A text of
// more than 254 characters is replaced by words that say so.
void convertpchar(char* buffer) noexcept;

// Copy the text and a terminating zero byte to `target`, which must have room for both. The result is the
// number of characters copied. strpcopyn copies at most `max` characters.
std::int32_t strpcopy(char* target, std::string_view source) noexcept;
std::int32_t strpcopyn(char* target, std::string_view source, std::int32_t max) noexcept;

// strtopchar returns a new zero-terminated copy, or null for the empty text. emptytopchar returns a new empty
// text.
std::unique_ptr<char[]> strtopchar(std::string_view text);
std::unique_ptr<char[]> emptytopchar();

// The number of characters; 0 for a null pointer.
std::size_t pcharlen(const char* text) noexcept;

}  // namespace optcore

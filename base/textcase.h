// Upper and lower case of ASCII letters, and comparison and hashing without regard to case. Never asks the
// process locale: bytes above 127 are themselves.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace optcore {

namespace detail {
consteval std::array<unsigned char, 256> makeuppertable() {
  std::array<unsigned char, 256> table{};
  for (std::size_t code = 0; code < table.size(); ++code)
    table[code] = static_cast<unsigned char>(code >= 'a' && code <= 'z' ? code - 'a' + 'A' : code);
  return table;
}
inline constexpr std::array<unsigned char, 256> uppertable = makeuppertable();
}  // namespace detail

// The code of the upper-case form.
constexpr unsigned char upcode(char character) {
  return detail::uppertable[static_cast<unsigned char>(character)];
}
constexpr char upchar(char character) { return static_cast<char>(upcode(character)); }
constexpr char lowchar(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}
constexpr bool isletter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}
constexpr bool isdigit(char character) { return character >= '0' && character <= '9'; }

// Three-way comparison: the difference of the first upper-cased codes that differ, else of the lengths.
std::int32_t strucmp(std::string_view a, std::string_view b) noexcept;

// True when both texts are the same but for the case of letters.
namespace detail {
bool equalcharacters(const char* a, const char* b, std::size_t count) noexcept;
}
inline bool struequal(std::string_view a, std::string_view b) noexcept {
  return a.size() == b.size() && detail::equalcharacters(a.data(), b.data(), a.size());
}

// A hash that is equal for texts that are equal without regard to case. It differs from process to process,
// so that no file can be made up whose names all collide.
std::uint32_t struhash(std::string_view text) noexcept;
// The same for numbers.
std::uint32_t inthash(std::int32_t number) noexcept;

}  // namespace optcore

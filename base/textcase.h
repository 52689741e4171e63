// Upper and lower case of ASCII letters, and comparison and hashing regardless of case. The locale of the
// process has no effect, and bytes above 127 never change.
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

// Three-way comparison regardless of case. The result is the difference of the first upper-case codes that
// differ, or else of the lengths.
std::int32_t strucmp(std::string_view a, std::string_view b) noexcept;

namespace detail {
bool equalfolded(const char* a, const char* b, std::size_t count) noexcept;
}
// Whether the texts are equal regardless of case.
inline bool struequal(std::string_view a, std::string_view b) noexcept {
  return a.size() == b.size() && detail::equalfolded(a.data(), b.data(), a.size());
}

// A hash for comparison regardless of case: equal texts have equal hashes. It differs between processes, so
// that nobody can prepare a file whose names all collide.
std::uint32_t struhash(std::string_view text) noexcept;
// A hash of a number, which also differs between processes.
std::uint32_t inthash(std::int32_t number) noexcept;

}  // namespace optcore

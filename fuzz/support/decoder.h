// Turns the bytes of an input into numbers and texts, from the front to the back. At the end every number is
// 0 and every text empty.
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

namespace fuzzing {

class tdecoder {
 public:
  explicit tdecoder(std::string_view input) noexcept : finput(input) {}

  bool atend() const noexcept { return finput.empty(); }

  unsigned byte() noexcept {
    if (finput.empty()) return 0;
    const auto value = static_cast<unsigned char>(finput.front());
    finput.remove_prefix(1);
    return value;
  }
  // 0 to highest.
  std::int32_t pick(std::int32_t highest) noexcept {
    return static_cast<std::int32_t>(byte()) % (highest + 1);
  }

  // Mostly a number that exists, that is from 1 to count, or one beside them; sometimes any.
  std::int32_t number(std::int32_t count) noexcept {
    const unsigned choice = byte();
    if (choice == 255) return integer();
    return static_cast<std::int32_t>(choice) % (count + 2);
  }
  std::int32_t integer() noexcept {
    const unsigned choice = byte();
    if (choice < 128) return static_cast<std::int32_t>(choice) - 16;
    std::uint32_t value = choice % 4 == 0 ? 0x7fffffff : 0;
    for (int i = 0; i < 4; ++i) value = (value << 8) ^ byte();
    return static_cast<std::int32_t>(value);
  }
  double dbl() noexcept {
    const unsigned choice = byte();
    if (choice < 128) return (static_cast<double>(choice) - 16) / 8;
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = (bits << 8) | byte();
    return std::bit_cast<double>(bits);
  }
  // Up to 254 characters, or with the highest lengths some more, which are made up.
  std::string text() {
    const std::size_t length = byte();
    std::string value(finput.substr(0, length));
    finput.remove_prefix(value.size());
    if (length >= 250) value.append(length - 246, 'x');
    return value;
  }
  // Up to 64 KiB.
  std::string_view longtext() noexcept {
    const std::size_t length = byte() * 256 + byte();
    const std::string_view value = finput.substr(0, length);
    finput.remove_prefix(value.size());
    return value;
  }

 private:
  std::string_view finput;
};

}  // namespace fuzzing

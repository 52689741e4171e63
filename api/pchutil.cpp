// Conversion between short strings and zero-terminated texts.
#include "api/pchutil.h"

#include <algorithm>
#include <cstring>

namespace optcore {

namespace {

// One short of what a short string can hold: a text this long is refused.
constexpr std::size_t overlong = 255;

std::string_view converted(const char* text, std::string_view overflow) noexcept {
  const std::size_t length = ::strnlen(text, overlong);
  return length < overlong ? std::string_view(text, length) : overflow;
}

}  // namespace

std::string_view pchartostr(const char* text) noexcept {
  return text == nullptr ? std::string_view() : converted(text, "PCharToStr Overflow");
}

void convertpchar(char* buffer) noexcept {
  const shortstring text = converted(buffer, "ConvertPChar Overflow");
  buffer[0] = static_cast<char>(text.size());
  std::copy_n(text.view().data(), text.size(), buffer + 1);
}

std::int32_t strpcopy(char* target, std::string_view source) noexcept {
  *std::copy_n(source.data(), source.size(), target) = '\0';
  return static_cast<std::int32_t>(source.size());
}

std::int32_t strpcopyn(char* target, std::string_view source, std::int32_t max) noexcept {
  return strpcopy(target, source.substr(0, static_cast<std::size_t>(std::max(max, 0))));
}

std::unique_ptr<char[]> strtopchar(std::string_view text) {
  if (text.empty()) return nullptr;
  auto copy = std::make_unique_for_overwrite<char[]>(text.size() + 1);
  strpcopy(copy.get(), text);
  return copy;
}

std::unique_ptr<char[]> emptytopchar() { return std::make_unique<char[]>(1); }

std::size_t pcharlen(const char* text) noexcept { return text == nullptr ? 0 : std::strlen(text); }

}  // namespace optcore

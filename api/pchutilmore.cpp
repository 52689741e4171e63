// The routines of the text conversion unit that neither the library nor the tool calls: conversion in place,
// copies and length.
#include "api/pchutilmore.h"

#include <algorithm>
#include <cstring>

#include "api/pchutil.h"
#include "base/shortstring.h"

namespace optcore {

void convertpchar(char* buffer) noexcept {
  const shortstring text = pchartostr(buffer, "ConvertPChar Overflow");
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

// Percent codes and paths.
#include "tools/lsp/uri.h"

#include <charconv>
#include <filesystem>
#include <system_error>

#include "base/textcase.h"
#include "tools/text.h"

namespace tool::lsp {

namespace {

constexpr std::string_view scheme = "file:";

std::string decoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned code = 0;
    const char* const digits = text.data() + i + 1;
    const bool iscode = text[i] == '%' && i + 2 < text.size() &&
                        std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2;
    result.push_back(iscode ? static_cast<char>(code) : text[i]);
    if (iscode) i += 2;
  }
  return result;
}

bool isplain(char character) {
  return optcore::isletter(character) || optcore::isdigit(character) ||
         std::string_view("-._~/").find(character) != std::string_view::npos;
}

}  // namespace

std::string pathofuri(std::string_view uri) {
  if (uri.size() < scheme.size() || !optcore::struequal(uri.substr(0, scheme.size()), scheme)) return {};
  const std::string_view rest = uri.substr(scheme.size());
  const std::size_t path = rest.find('/', rest.starts_with("//") ? 2 : 0);  // a host may stand before it
  if (path == std::string_view::npos) return {};
  std::string result = decoded(rest.substr(path));
  return result.find('\0') == std::string::npos ? result : std::string();
}

std::string uriofpath(std::string_view path) {
  std::string result = std::string(scheme) + "//";
  for (const char each : path) {
    if (isplain(each))
      result.push_back(each);
    else
      result += percentcode(each);
  }
  return result;
}

std::string keyof(const std::string& filename) {
  std::error_code problem;
  const std::filesystem::path path = std::filesystem::absolute(filename, problem);
  if (problem) return filename;
  const std::filesystem::path result = std::filesystem::weakly_canonical(path, problem);
  return (problem ? path.lexically_normal() : result).string();
}

}  // namespace tool::lsp

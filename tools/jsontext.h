// Texts of the library as JSON values. The texts are converted first, because JSON must be UTF-8.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "tools/text.h"

namespace tool {

inline nlohmann::ordered_json jsontext(std::string_view text) { return utf8(text); }

inline nlohmann::ordered_json jsontexts(const std::vector<std::string>& texts) {
  nlohmann::ordered_json result = nlohmann::ordered_json::array();
  for (const std::string& text : texts) result.push_back(utf8(text));
  return result;
}

// The document as text, which is safe on a terminal, too.
inline std::string jsondocumenttext(const nlohmann::ordered_json& document) {
  return printablejson(document.dump(2)) + "\n";
}

}  // namespace tool

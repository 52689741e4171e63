// Texts of the library as JSON values. The texts are converted first, because JSON must be UTF-8.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>
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

// A value as text that is safe on a terminal, laid out like one that stands so deep in a document.
inline std::string jsonlines(const nlohmann::ordered_json& value, std::size_t depth) {
  std::string result;
  for (const char character : printablejson(value.dump(2))) {
    result.push_back(character);
    if (character == '\n') result.append(2 * depth, ' ');
  }
  return result;
}

// An array or object that is written piece by piece, because as a whole it would take much memory. The pieces
// stand one level deeper.
class tjsonpieces {
 public:
  tjsonpieces(char opener, std::size_t depth) : ftext(1, opener), fdepth(depth) {}
  // `piece` is a text of jsonlines; the key is for objects.
  void add(std::string_view piece, std::string_view key = {}) {
    ftext.append(fhaspiece ? "," : "").append("\n").append(2 * fdepth + 2, ' ');
    if (!key.empty()) ftext.append("\"").append(key).append("\": ");
    ftext.append(piece);
    fhaspiece = true;
  }
  // The text that is complete so far.
  std::string take() { return std::exchange(ftext, {}); }
  std::string finish(char closer) {
    if (fhaspiece) ftext.append("\n").append(2 * fdepth, ' ');
    return take() + closer;
  }

 private:
  std::string ftext;
  std::size_t fdepth;
  bool fhaspiece = false;
};

}  // namespace tool

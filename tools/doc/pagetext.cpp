// Escapes texts for HTML and finds the names of options in them.
#include "tools/doc/pagetext.h"

#include <algorithm>

#include "base/textcase.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

// Whether a character can be part of a name in a sentence. Bytes above 127 are parts of letters.
bool belongs(char c) {
  return isletter(c) || isdigit(c) || c == '_' || c == '-' || c == '.' || static_cast<unsigned char>(c) > 127;
}

// The word at the beginning of the text without a full stop or a hyphen at its end.
std::string_view firstword(std::string_view text) {
  std::string_view word =
      text.substr(0, static_cast<std::size_t>(std::ranges::find_if_not(text, belongs) - text.begin()));
  while (word.ends_with('.') || word.ends_with('-')) word.remove_suffix(1);
  return word;
}

// Whether a word that is the name of an option cannot be one of plain English: it has an underscore, a digit
// or a dot, or the name's own capital letters behind its first character.
bool lookslikename(std::string_view word, std::string_view name) {
  return word.starts_with('.') || std::ranges::any_of(word.substr(1), [&](char c) {
           return c == '_' || c == '.' || isdigit(c) || (isletter(c) && c == upchar(c) && word == name);
         });
}

// Whether the text before a word announces a name: "the option threads".
bool announces(std::string_view before) {
  while (before.ends_with(' ')) before.remove_suffix(1);
  const std::size_t begin = before.find_last_of(' ') + 1;  // 0 if there is none
  const std::string_view word = before.substr(begin);
  return struequal(word, "option") || struequal(word, "options") || struequal(word, "parameter");
}

// The length of the quoted text at the beginning, without its quotes; 0 if there is none.
std::size_t quotedlength(std::string_view text) {
  if (text.empty() || std::string_view("\"'`").find(text[0]) == std::string_view::npos) return 0;
  const std::size_t end = text.find(text[0], 1);
  return end == std::string_view::npos ? 0 : end - 1;
}

class tlinker {
 public:
  tlinker(std::string_view text, const tanchors& anchors, const toptionreference& self, tnaming naming)
      : ftext(text), fanchors(anchors), fself(self), fnaming(naming) {}

  std::string linked() {
    while (fposition < ftext.size()) {
      const std::string_view rest = ftext.substr(fposition);
      if (const std::size_t length = quotedlength(rest); length != 0 && isother(rest.substr(1, length))) {
        ++fposition;
        link(length);
      } else if (const std::string_view word = firstword(rest); word.empty()) {
        ++fposition;
      } else if (isname(word)) {
        link(word.size());
      } else {
        fposition += word.size();
      }
    }
    return fresult + escaped(ftext.substr(fdone));
  }

 private:
  bool isother(std::string_view name) const {
    const toptionreference* option = fanchors.find(name);
    return option != nullptr && option != &fself;
  }
  bool isname(std::string_view word) const {
    return isother(word) &&
           (fnaming == tnaming::everyword || lookslikename(word, fanchors.find(word)->name) ||
            announces(ftext.substr(0, fposition)));
  }
  void link(std::size_t length) {
    const std::string_view name = ftext.substr(fposition, length);
    fresult += escaped(ftext.substr(fdone, fposition - fdone)) + "<a href=\"#" +
               fanchors.of(*fanchors.find(name)) + "\">" + escaped(name) + "</a>";
    fposition += length;
    fdone = fposition;
  }

  std::string_view ftext;
  const tanchors& fanchors;
  const toptionreference& fself;
  tnaming fnaming;
  std::size_t fposition = 0;
  std::size_t fdone = 0;  // the text before this position is in the result
  std::string fresult;
};

}  // namespace

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : printableprose(text)) {
    switch (c) {
      case '&': result += "&amp;"; break;
      case '<': result += "&lt;"; break;
      case '>': result += "&gt;"; break;
      case '"': result += "&quot;"; break;
      case '\'': result += "&#39;"; break;
      default: result += c;
    }
  }
  return result;
}

std::string code(std::string_view text) { return "<code>" + escaped(text) + "</code>"; }

std::string namelink(const std::string& name, const tanchors& anchors) {
  const toptionreference* option = anchors.find(name);
  return option == nullptr ? code(name) : "<a href=\"#" + anchors.of(*option) + "\">" + code(name) + "</a>";
}

std::string linkedtext(std::string_view text, const tanchors& anchors, const toptionreference& self,
                       tnaming naming) {
  return tlinker(text, anchors, self, naming).linked();
}

}  // namespace tool

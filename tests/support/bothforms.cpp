// Texts in both forms, and the two handles.
#include "bothforms.h"

#include <algorithm>
#include <cstring>

namespace bothforms {

constexpr std::size_t longest = 255;

ttext::ttext(std::string_view text, bool takesresult) : fhasinitial(true), ftakesresult(takesresult) {
  const bool iscut = takesresult || text.find('\0') != std::string_view::npos;
  finitial = iscut ? text.substr(0, longest) : text;
}

bool ttext::hasboth() const { return finitial.size() != longest && finitial.find('\0') == std::string::npos; }

void ttext::prepare(bool both) {
  for (const std::size_t form : {0U, 1U}) {
    const bool isshort = form == 0 || !both;
    const std::string text = isshort && finitial.size() > longest ? "PCharToStr Overflow" : finitial;
    fbuffers[form] = std::vector<unsigned char>(
        guards + (ftakesresult ? WEXCORIN_TEXT_SIZE + guards : text.size() + 1), 0xA5);
    if (!fhasinitial) continue;
    const std::string bytes = isshort ? static_cast<char>(text.size()) + text : text + '\0';
    std::copy(bytes.begin(), bytes.end(), fbuffers[form].begin() + guards);
  }
  fbefore = fbuffers;
}

void ttext::finish(bool both) {
  if (!ftakesresult) return HOLDS(fbuffers == fbefore, finitial);
  const auto shorttext = fbuffers[0].begin() + guards;
  const unsigned char* const zero = fbuffers[1].data() + guards;
  ftext.assign(shorttext + 1, shorttext + 1 + *shorttext);
  // a text that is left untouched comes back empty in the second form
  fisuntouched = fbuffers[0] == fbefore[0] && (!both || *zero == 0);
  if (fisuntouched) ftext.clear();
  if (both)
    HOLDS(std::memcmp(zero, ftext.c_str(), ftext.size() + 1) == 0, ftext);
  else
    HOLDS(fbuffers[0] == fbuffers[1], ftext);
  for (const std::size_t form : {0U, 1U}) {
    const auto now = fbuffers[form].begin();
    const auto rest = guards + static_cast<std::ptrdiff_t>(ftext.size()) + 1;
    HOLDS(std::equal(now, now + guards, fbefore[form].begin()), ftext);
    HOLDS(std::equal(now + rest, fbuffers[form].end(), fbefore[form].begin() + rest), ftext);
  }
}

thandles::thandles() {
  for (tvksoptions*& handle : fhandles) HOLDS(xcreate(&handle) == handle && handle != nullptr, "no handle");
}

thandles::~thandles() {
  for (tvksoptions*& handle : fhandles) {
    xfree(&handle);
    HOLDS(handle == nullptr, "a handle is left");
  }
}

}  // namespace bothforms

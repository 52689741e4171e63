// Arguments and results in both text forms, and the pair of handles.
#include "bothforms.h"

#include <algorithm>
#include <cstring>

namespace bothforms {

const char* const everytype =
    "maxit integer 1 5 0 10 1 1\nbig_step double 2 0.5 0 1e20 1 1\nnote string 3 none 1 1\n"
    "flag boolean 4 0 1 1\nmethod enumstr 5 auto 1 1\n auto 1\n Primal 1\n \"two words\" 1\n"
    "level enumint 6 1 1 1\n 1 1\n 2 1\nquiet integer.nv 7 1 0 1 1 1\ntrace integer.opt 8 4 0 9 1 1\n"
    "pair integer.two 9 1 0 10 1 1\nspan double.two 10 0 mindouble maxdouble 1 1\n"
    "both enumstr.two 11 a 1 1\n a 1\n \"b c\" 1\nstring_list strlist 12 1 1\nwords multilist 13 1 1\n"
    " maxit note\nall macro 1 1\n maxit\n flag\nlimits immediate NoBounds 1 1\n"
    "free immediate NoBounds 1 1\n.prior double 14 1 0 100 1 1\n.mark integer 15 1 0 9 1 1\n"
    "indic indicator\n";

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
  // if a result is not set, the second form returns an empty text
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

// Text arguments and results in both forms, and the two handles.
#include "fuzz/support/pair.h"

#include <algorithm>
#include <cstring>

#include "api/handle.h"

namespace fuzzing {

namespace {

constexpr std::size_t longestshort = 255;
constexpr std::size_t longestzero = 254;
constexpr unsigned char filler = 0xA5;

bool inbothforms(std::string_view text) {
  return text.size() != longestshort && text.find('\0') == std::string_view::npos;
}

}  // namespace

ttextin::ttextin(std::string_view text) : fhasboth(inbothforms(text)) {
  if (text.find('\0') != std::string_view::npos) text = text.substr(0, longestshort);
  const std::string_view arriving = text.size() > longestshort ? "PCharToStr Overflow" : text;
  fshort.length = static_cast<unsigned char>(arriving.size());
  std::copy(arriving.begin(), arriving.end(), fshort.text);
  fzero = std::make_unique<char[]>(text.size() + 1);  // of exactly its length, so that reading on is noticed
  std::copy(text.begin(), text.end(), fzero.get());
}

bool ttextresult::hasboth() const noexcept {
  return finitial.size() <= longestzero && finitial.find('\0') == std::string::npos;
}

void ttextresult::prepare() {
  for (tbuffer& buffer : fbuffers) buffer.fill(filler);
  if (fhasinitial) {
    const std::size_t length = std::min(finitial.size(), longestshort);
    for (int form = 0; form < (hasboth() ? 1 : 2); ++form) {
      asshort(form)->length = static_cast<unsigned char>(length);
      std::copy_n(finitial.data(), length, asshort(form)->text);
    }
    if (hasboth()) *std::copy_n(finitial.data(), length, aszero()) = '\0';
  }
  fbefore = fbuffers;
}

void ttextresult::finish(bool both) {
  ftext = fbuffers[0] == fbefore[0] ? std::string() : shorttext(0);
  if (!both) {
    FUZZ_CHECK(fbuffers[0] == fbuffers[1], ftext);
    return checkrest(0, ftext.size() + 1);
  }
  checkrest(0, static_cast<std::size_t>(asshort(0)->length) + 1);
  // a text that is left untouched comes back empty in the second form
  const bool isempty = aszero()[0] == '\0';
  if (fbuffers[0] == fbefore[0] && isempty) return checkrest(1, 1);
  ftext = shorttext(0);
  FUZZ_CHECK(std::memcmp(aszero(), ftext.data(), ftext.size()) == 0 && aszero()[ftext.size()] == '\0', ftext);
  checkrest(1, ftext.size() + 1);
}

std::string ttextresult::shorttext(std::size_t form) const {
  const unsigned char* begin = fbuffers[form].data() + guardsize;
  return {begin + 1, begin + 1 + *begin};
}

// Nothing but so many bytes of the buffer may differ from what was there before.
void ttextresult::checkrest(std::size_t form, std::size_t used) const {
  const tbuffer& now = fbuffers[form];
  const tbuffer& before = fbefore[form];
  const bool isclean = std::equal(now.begin(), now.begin() + guardsize, before.begin()) &&
                       std::memcmp(now.data() + guardsize + used, before.data() + guardsize + used,
                                   now.size() - guardsize - used) == 0;
  FUZZ_CHECK(isclean, ftext);
}

tpair::tpair() {
  for (tvksoptions*& handle : fhandles.handles)
    FUZZ_CHECK(xcreate(&handle) == handle && handle != nullptr, "no handle");
}

tpair::~tpair() {
  for (tvksoptions*& handle : fhandles.handles) {
    xfree(&handle);
    FUZZ_CHECK(handle == nullptr, "a handle is left");
  }
}

std::int32_t tpair::readdefinition(std::string_view filename) {
  const bool isfirst = callone(optcount) == 0;
  fdefinitions += isfirst ? 1 : 2;
  const std::string bytes = tfiles::get().read(filename);
  const std::int32_t code = call(optreaddefinition, coptreaddefinition, ttextin(filename));
  if (code == 0 && isfirst) fdefinition = bytes;
  if (code != 0) fdefinitions += isfirst ? -1 : -2;
  return code;
}

std::int32_t tpair::readparameters(std::string_view filename) {
  return call(optreadparameterfile, coptreadparameterfile, ttextin(filename));
}

void tpair::clearmessages() {
  fwasfull = wasfull();
  callone(optclearmessages);
}

bool tpair::wasfull() const noexcept { return fwasfull || handle(0)->messagesfull(); }

}  // namespace fuzzing

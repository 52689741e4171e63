// The calls of the C interface behind thandle.
#include "tools/handle.h"

#include <array>
#include <new>

namespace tool {

namespace {

// A text output of the C interface.
using tbuffer = std::array<char, WEXCORIN_TEXT_SIZE>;

}  // namespace

thandle::thandle() {
  if (xcreate(&fhandle) == nullptr) throw std::bad_alloc();
}

thandle::~thandle() { xfree(&fhandle); }

std::int32_t thandle::readdefinition(const std::string& filename) const {
  return coptreaddefinition(fhandle, filename.c_str());
}

std::int32_t thandle::readparameterfile(const std::string& filename) const {
  return coptreadparameterfile(fhandle, filename.c_str());
}

std::int32_t thandle::writeparameterfile(const std::string& filename) const {
  return coptwriteparameterfile(fhandle, filename.c_str());
}

void thandle::readtext(const std::string& text) const { optreadfrompchar(fhandle, text.c_str()); }

void thandle::showhelp(const std::string& request) const { coptshowhelp(fhandle, request.c_str()); }

std::int32_t thandle::messagecount() const { return optmessagecount(fhandle); }

tmessage thandle::message(std::int32_t number) const {
  tbuffer text{};
  std::int32_t kind = 0;
  coptgetmessage(fhandle, number, text.data(), &kind);
  return {text.data(), kind};
}

void thandle::clearmessages() const { optclearmessages(fhandle); }

std::int32_t thandle::count() const { return optcount(fhandle); }

std::int32_t thandle::find(const std::string& name) const {
  std::int32_t number = 0;
  std::int32_t refnr = 0;
  return coptfindstr(fhandle, name.c_str(), &number, &refnr) != 0 ? number : 0;
}

tinfo thandle::info(std::int32_t number) const {
  std::int32_t defined = 0, definedr = 0, refnr = 0, datatype = 0, type = 0, subtype = 0;
  optgetinfonr(fhandle, number, &defined, &definedr, &refnr, &datatype, &type, &subtype);
  return {defined, type, subtype};
}

std::string thandle::name(std::int32_t number) const {
  tbuffer text{};
  coptgetnamenr(fhandle, number, text.data());
  return text.data();
}

std::string thandle::storedname(std::int32_t number) const {
  tbuffer text{};
  tbuffer help{};
  coptgethelpnr(fhandle, number, text.data(), help.data());
  return text.data();
}

std::string thandle::value(std::int32_t number) const {
  tbuffer text{};
  coptgetstrnr(fhandle, number, text.data());
  return text.data();
}

std::string thandle::value2(std::int32_t number) const {
  tbuffer text{};
  coptgetstr2nr(fhandle, number, text.data());
  return text.data();
}

std::int32_t thandle::intvalue(std::int32_t number, bool second) const {
  std::int32_t result = 0;
  (second ? optgetint2nr : optgetintnr)(fhandle, number, &result);
  return result;
}

double thandle::doublevalue(std::int32_t number, bool second) const {
  double result = 0;
  (second ? optgetdbl2nr : optgetdblnr)(fhandle, number, &result);
  return result;
}

tbounds<std::int32_t> thandle::intbounds(std::int32_t number) const {
  std::int32_t low = 0, high = 0, defaultvalue = 0;
  optgetboundsint(fhandle, number, &low, &high, &defaultvalue);
  return {low, high};
}

tbounds<double> thandle::doublebounds(std::int32_t number) const {
  double low = 0, high = 0, defaultvalue = 0;
  optgetboundsdbl(fhandle, number, &low, &high, &defaultvalue);
  return {low, high};
}

std::vector<std::string> thandle::enumvalues(std::int32_t number) const {
  std::int32_t count = 0;
  if (optgetenumcount(fhandle, number, &count) == 0) return {};
  std::vector<std::string> result;
  for (std::int32_t item = 1; item <= count; ++item) {
    tbuffer text{};
    std::int32_t value = 0;
    coptgetenumvalue(fhandle, number, item, &value, text.data());
    result.emplace_back(text.data());
  }
  return result;
}

std::vector<std::string> thandle::liststrings(std::int32_t number) const {
  const std::string name = storedname(number);
  const std::int32_t count = coptlistcountstr(fhandle, name.c_str());
  std::vector<std::string> result;
  for (std::int32_t index = 1; index <= count; ++index) {
    tbuffer text{};
    coptreadfromliststr(fhandle, name.c_str(), index, text.data());
    result.emplace_back(text.data());
  }
  return result;
}

std::vector<std::string> thandle::synonyms() const {
  std::vector<std::string> result;
  const std::int32_t count = optsynonymcount(fhandle);
  for (std::int32_t number = 1; number <= count; ++number) {
    tbuffer synonym{};
    tbuffer option{};
    coptgetsynonym(fhandle, number, synonym.data(), option.data());
    if (option[0] != '\0') result.emplace_back(synonym.data());
  }
  return result;
}

std::string thandle::nameoftype(std::int32_t type) const {
  tbuffer text{};
  coptgettypename(fhandle, type, text.data());
  return text.data();
}

std::string thandle::version() const {
  tbuffer text{};
  coptversion(fhandle, text.data());
  return text.data();
}

}  // namespace tool

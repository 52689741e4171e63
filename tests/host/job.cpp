// The work of a client: every family of calls, numbers and texts of all kinds, every mistake that the
// examples know.
#include "host/job.h"

#include <array>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>

namespace host {
namespace {

using tbuffer = std::array<char, WEXCORIN_TEXT_SIZE>;

constexpr double infinity = std::numeric_limits<double>::infinity();
const double numbers[] = {0.1,
                          -0.0,
                          1e15 / 3,
                          2.0 / 3,
                          1e-320,
                          1.7976931348623157e308,
                          123456.75,
                          1e22 + 1.,
                          infinity,
                          -infinity,
                          std::numeric_limits<double>::quiet_NaN()};
constexpr const char* texts =
    "0.1 1e400 -1e400 1e-400 0.30000000000000004 2.5d-7 123456789012345678901234567890 1,5 nan inf -0 "
    "9007199254740993 4.9e-324 maxdouble 1e-05 1. .5 +3 2147483648 -2147483649";

void add(std::string& log, const char* text) { log.append(text).append(1, '\n'); }
void add(std::string& log, std::int32_t number) { log.append(std::to_string(number)).append(1, '\n'); }

void addmessages(std::string& log, tvksoptions* handle) {
  for (std::int32_t number = 1; number <= optmessagecount(handle); ++number) {
    tbuffer text{};
    std::int32_t kind = 0;
    coptgetmessage(handle, number, text.data(), &kind);
    add(log, text.data());
    add(log, kind);
  }
  optclearmessages(handle);
}

void addvalues(std::string& log, tvksoptions* handle) {
  for (std::int32_t number = 1; number <= optcount(handle); ++number) {
    tbuffer name{}, text{};
    std::int32_t defined = 0, recent = 0, refnr = 0, datatype = 0, opttype = 0, subtype = 0, integer = 0;
    double real = 0;
    optgetinfonr(handle, number, &defined, &recent, &refnr, &datatype, &opttype, &subtype);
    add(log, defined + 4 * recent);
    coptgetvaluesnr(handle, number, name.data(), &integer, &real, text.data());
    add(log, name.data());
    add(log, integer);
    add(log, text.data());
    coptgetstr2nr(handle, number, text.data());
    add(log, text.data());
    for (std::int32_t i = 1; coptreadfromliststr(handle, name.data(), i, text.data()) == 1; ++i)
      add(log, text.data());
    coptgetdefaultstr(handle, number, text.data());
    add(log, text.data());
  }
}

void adddotentries(std::string& log, tvksoptions* handle) {
  std::int32_t rejected = 0;
  for (std::int32_t number = 1; number <= optdotoptcount(handle, &rejected); ++number) {
    tbuffer name{}, element{};
    std::int32_t option = 0, dimensions = 0;
    double value = 0;
    coptgetdotoptnr(handle, number, name.data(), &option, &dimensions, &value);
    add(log, name.data());
    add(log, value == 7 ? 1 : 0);
    for (std::int32_t i = 1; coptgetdotoptuel(handle, number, i, element.data()) != 0; ++i)
      add(log, element.data());
  }
}

// Every number is set to every option that takes it, every text to every option.
void setall(std::string& log, tvksoptions* handle) {
  for (std::int32_t number = 1; number <= optcount(handle); number += 7) {
    for (const double value : numbers) add(log, optsetdblnr(handle, number, value));
    std::istringstream words(texts);
    for (std::string text; words >> text;) add(log, coptsetstrnr(handle, number, text.c_str()));
    add(log, optsetint2nr(handle, number, -1));
    addmessages(log, handle);
  }
}

void addfile(std::string& log, const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  log.append(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

}  // namespace

tvksoptions* begin() {
  tvksoptions* handle = nullptr;
  xcreate(&handle);
  coptreaddefinition(handle, "examples/solver.def");
  coptreadparameterfile(handle, "examples/solver.opt");
  return handle;
}

std::string finish(tvksoptions* handle, const std::string& written) {
  std::string log;
  coptreadparameterfile(handle, "examples/solver_mistakes.opt");
  coptreadparameterfile(handle, "examples/solver_loop.opt");
  coptreadparameterfile(handle, "examples/none.opt");
  addmessages(log, handle);
  addvalues(log, handle);
  adddotentries(log, handle);
  setall(log, handle);
  coptshowhelp(handle, "11");
  coptshowhelp(handle, "gap_window");
  addmessages(log, handle);
  add(log, coptwriteparameterfile(handle, written.c_str()));
  addfile(log, written);
  optresetall(handle);
  add(log, coptreadparameterfile(handle, written.c_str()));
  add(log, coptwriteparameterfile(handle, written.c_str()));
  addfile(log, written);
  add(log, optmessagecount(handle));
  xfree(&handle);
  return log;
}

std::string dojob(const std::string& written) { return finish(begin(), written); }

}  // namespace host

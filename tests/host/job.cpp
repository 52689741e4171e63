// The work of a client: every family of calls, numbers and texts of all kinds, every mistake that the
// examples know.
#include "host/job.h"

#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>

namespace host {
namespace {

using tbuffer = std::array<char, WEXCORIN_TEXT_SIZE>;

constexpr double numbers[] = {
    0.1,       -0.0, 333333333333333.31, 0.66666666666666663, 1e-320, 1.7976931348623157e308,
    123456.75, 1e22, HUGE_VAL,           -HUGE_VAL,           NAN};
constexpr const char* texts =
    "0.1 1e400 -1e400 1e-400 0.30000000000000004 2.5d-7 123456789012345678901234567890 1,5 nan inf -0 "
    "9007199254740993 4.9e-324 maxdouble 1e-05 1. .5 +3 2147483648 -2147483649";

void add(std::string& log, const char* text) { log.append(text).append(1, '\n'); }
void add(std::string& log, std::int32_t number) { add(log, std::to_string(number).c_str()); }

void addmessages(std::string& log, tvksoptions* handle) {
  for (std::int32_t number = 1; number <= optmessagecount(handle); ++number) {
    tbuffer text{};
    std::int32_t kind = 0;
    coptgetmessage(handle, number, text.data(), &kind);
    add(log, text.data());
  }
  optclearmessages(handle);
}

// Every number is set to every option that takes it, every text to every option.
void setall(std::string& log, tvksoptions* handle) {
  for (std::int32_t number = 1; number <= optcount(handle); number += 7) {
    tbuffer name{}, text{};
    std::int32_t integer = 0;
    double real = 0;
    for (const double value : numbers) {
      add(log, optsetdblnr(handle, number, value));
      coptgetvaluesnr(handle, number, name.data(), &integer, &real, text.data());
      add(log, text.data());
    }
    std::istringstream words(texts);
    for (std::string word; words >> word;) add(log, coptsetstrnr(handle, number, word.c_str()));
    add(log, optsetint2nr(handle, number, -1));
    coptgetstr2nr(handle, number, text.data());
    add(log, text.data());
    addmessages(log, handle);
  }
}

void addwritten(std::string& log, tvksoptions* handle, const std::string& name) {
  add(log, coptwriteparameterfile(handle, name.c_str()));
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
  for (const char* name : {"solver_mistakes.opt", "solver_loop.opt", "none.opt"})
    coptreadparameterfile(handle, (std::string("examples/") + name).c_str());
  addmessages(log, handle);
  setall(log, handle);
  coptshowhelp(handle, "11");
  coptshowhelp(handle, "gap_window");
  addmessages(log, handle);
  addwritten(log, handle, written);
  optresetall(handle);
  add(log, coptreadparameterfile(handle, written.c_str()));
  addwritten(log, handle, written);
  add(log, optmessagecount(handle));
  xfree(&handle);
  return log;
}

std::string dojob(const std::string& written) { return finish(begin(), written); }

}  // namespace host

// Of the job as a library that is linked with the system's library, as a solver's is that is loaded into a
// modelling system: does the job; the result is its length, as much as there is room for in `text`. With null
// as `written` it only makes a handle and frees it.
extern "C" __attribute__((visibility("default"))) std::size_t runclient(const char* written, char* text,
                                                                        std::size_t size) {
  if (written != nullptr) return host::dojob(written).copy(text, size);
  tvksoptions* handle = nullptr;
  xcreate(&handle);
  coptreadfromstr(handle, "help 3 --list x");
  xfree(&handle);
  return 0;
}

// Shared by the benchmarks: registration, timing, a handle, memory figures, and the check of all values.
//
// The name of a benchmark is ROW/WHO/SIZE: what is done, by whom or how, and for how many options, lines or
// calls. The clock runs only during the work. The result of each repetition is checked, and a wrong result
// makes the program fail. The counter "items" is the number of options, lines or calls in a repetition,
// "bytes" the number of bytes that it wrote.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "wexcorin/wexcorin.h"
#include "workload.h"

namespace bench {

using tbenchmark = std::function<void(benchmark::State&, std::int64_t size)>;

// With --smallest on the command line, sizes are limited to 500 and each benchmark does its work once.
void add(std::string_view row, std::string_view who, std::int64_t size, tbenchmark run);

// The benchmarks of a program, each family in a file of its own.
void addtablerows();
void addsinglerows();
void addfamilies();
void addgrowth();
void addwriters();
void addpeers();

// Runs the program: command line, registration, benchmarks. Returns 0 when every check succeeded.
int run(int count, char** arguments, const std::vector<void (*)()>& families);

void wrong(benchmark::State& state);

// Return seconds: the processor time that this thread has used, and the time of day.
double processorseconds();
double seconds();
// The time that processorseconds measures for no work at all.
double emptyseconds();

// Times work(object) for objects that setup makes, and checks them. The clock is the processor time of the
// thread, so the time that other programs use does not count.
template <class tsetup, class twork, class tcheck>
void timed(benchmark::State& state, std::int64_t items, tsetup setup, twork work, tcheck check) {
  for ([[maybe_unused]] auto _ : state) {
    auto object = setup();
    const double start = processorseconds();
    work(object);
    const double passed = processorseconds() - start - emptyseconds();
    state.SetIterationTime(std::max(passed, 1e-9));
    if (!check(object)) {
      wrong(state);
      break;
    }
  }
  state.counters["items"] = static_cast<double>(items);
}

// Does the same for work that does not change its object.
template <class twork, class tcheck>
void timed(benchmark::State& state, std::int64_t items, twork work, tcheck check) {
  timed(
      state, items, [] { return 0; }, [&](int) { work(); }, [&](int) { return check(); });
}

class thandle {
 public:
  thandle() { xcreate(&fhandle); }
  thandle(const thandle&) = delete;
  thandle& operator=(const thandle&) = delete;
  ~thandle() { xfree(&fhandle); }
  operator tvksoptions*() const { return fhandle; }

 private:
  tvksoptions* fhandle = nullptr;
};

// A handle that has read a definition file.
struct tdefined : thandle {
  explicit tdefined(const std::string& definitionfile) { coptreaddefinition(*this, definitionfile.c_str()); }
};

std::int32_t errors(tvksoptions* handle);
// Returns whether the handle has no error and every option, queried by number, has the value that the
// workload gives.
bool holdsvalues(tvksoptions* handle, const tworkload& work);
bool holdsoptions(tvksoptions* handle, const tworkload& work);
bool holdsdots(tvksoptions* handle, std::int64_t lines);
bool holdsindicators(tvksoptions* handle, std::int64_t lines);

optshortstring shorttext(std::string_view text);

double asdouble(std::string_view text);
// Return the resident bytes of the process, and the bytes of its heap that are in use.
double residentbytes();
double heapbytes();

}  // namespace bench

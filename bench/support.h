// What the benchmarks share: how one is registered and timed, a handle, memory figures, the check of every
// value.
//
// A benchmark is called ROW/WHO/SIZE: what is done, by whom or how, and with how many options, lines or
// calls. The clock runs during the work alone; the result of every piece of work is checked, and a wrong one
// makes the program fail. Counters: "items" says how many options, lines or calls a piece of work has,
// "bytes" how much it wrote.
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

// With --smallest on the command line sizes are cut to 500 and each benchmark does its work once.
void add(std::string_view row, std::string_view who, std::int64_t size, tbenchmark run);

// The benchmarks of a program, each family in a file of its own.
void addtablerows();
void addsinglerows();
void addfamilies();
void addgrowth();
void addwriters();
void addpeers();

// The program: command line, registration, run. The result is 0 if every check held.
int run(int count, char** arguments, const std::vector<void (*)()>& families);

void wrong(benchmark::State& state);

// Seconds: of processor time that this thread has used, and of the time of day.
double processorseconds();
double seconds();
// What processorseconds shows for no work at all.
double emptyseconds();

// Times work(object) for objects that setup makes, and checks them. The clock is that of the thread: what
// other programs do to the machine meanwhile does not count.
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

// The same for work that leaves its object as it is.
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
// Whether the handle holds no error and every option the value that the workload says, asked by number.
bool holdsvalues(tvksoptions* handle, const tworkload& work);
bool holdsoptions(tvksoptions* handle, const tworkload& work);
bool holdsdots(tvksoptions* handle, std::int64_t lines);
bool holdsindicators(tvksoptions* handle, std::int64_t lines);

optshortstring shorttext(std::string_view text);

double asdouble(std::string_view text);
// The bytes of the process in memory, and those of its heap that are in use.
double residentbytes();
double heapbytes();

}  // namespace bench

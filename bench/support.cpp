// Registration, command line, checks and memory figures of the benchmarks.
#include "support.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <set>

namespace bench {

namespace {

bool smallest = false;
bool failed = false;

// Makes the heap keep its pages. Otherwise returned pages would be fetched again, and medians would depend on
// the size at which the heap begins to return memory.
void keepmemory() {
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

bool holdsvalue(tvksoptions* handle, std::int32_t number, const tsample& option) {
  if (option.type == 'd') {
    double value = 0;
    return optgetdblnr(handle, number, &value) == 1 && value == asdouble(option.finaltext);
  }
  std::array<char, WEXCORIN_TEXT_SIZE> text{};
  return coptgetstrnr(handle, number, text.data()) == 1 && text.data() == option.finaltext;
}

}  // namespace

void add(std::string_view row, std::string_view who, std::int64_t size, tbenchmark run) {
  static std::set<std::string> names;
  if (smallest) size = std::min<std::int64_t>(size, 500);
  const std::string name = std::string(row) + "/" + std::string(who) + "/" + std::to_string(size);
  if (!names.insert(name).second) return;
  auto* made = benchmark::RegisterBenchmark(
      name.c_str(), [run = std::move(run), size](benchmark::State& state) { run(state, size); });
  made->UseManualTime();
  if (smallest) made->Iterations(1);
}

int run(int count, char** arguments, const std::vector<void (*)()>& families) {
  benchmark::Initialize(&count, arguments);
  for (int i = 1; i < count; ++i) {
    if (std::string_view(arguments[i]) == "--smallest") {
      smallest = true;
    } else {
      std::fprintf(stderr, "%s: unknown argument %s\n", arguments[0], arguments[i]);
      return 2;
    }
  }
  keepmemory();
  for (const auto addfamily : families) addfamily();
  benchmark::RunSpecifiedBenchmarks();
  return failed ? 1 : 0;
}

double processorseconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double emptyseconds() {
  static const double least = [] {
    double shortest = 1;
    for (int i = 0; i < 1000; ++i) {
      const double start = processorseconds();
      shortest = std::min(shortest, processorseconds() - start);
    }
    return shortest;
  }();
  return least;
}

void wrong(benchmark::State& state) {
  failed = true;
  state.SkipWithError("the result is wrong");
}

std::int32_t errors(tvksoptions* handle) {
  std::int32_t count = 0;
  std::int32_t warnings = 0;
  opterrorcount(handle, &count, &warnings);
  return count;
}

bool holdsvalues(tvksoptions* handle, const tworkload& work) {
  if (!holdsoptions(handle, work)) return false;
  for (std::size_t i = 0; i < work.options.size(); ++i)
    if (!holdsvalue(handle, tworkload::number(static_cast<std::int32_t>(i)), work.options[i])) return false;
  return true;
}

bool holdsoptions(tvksoptions* handle, const tworkload& work) {
  return errors(handle) == 0 && optcount(handle) == std::ssize(work.options) + 1;
}

bool holdsdots(tvksoptions* handle, std::int64_t lines) {
  std::array<char, WEXCORIN_TEXT_SIZE> name{};
  std::array<char, WEXCORIN_TEXT_SIZE> element{};
  std::int32_t rejected = 0;
  std::int32_t option = 0;
  std::int32_t dimensions = 0;
  double value = 0;
  const auto last = static_cast<std::int32_t>(lines);
  coptgetdotoptnr(handle, last, name.data(), &option, &dimensions, &value);
  coptgetdotoptuel(handle, last, 1, element.data());
  return errors(handle) == 0 && optdotoptcount(handle, &rejected) == last && dimensions == 2 &&
         value == static_cast<double>((lines - 1) % 1000) &&
         element.data() == "i" + std::to_string(lines - 1);
}

bool holdsindicators(tvksoptions* handle, std::int64_t lines) {
  std::array<char, WEXCORIN_TEXT_SIZE> element{};
  std::int32_t rejected = 0;
  const auto last = static_cast<std::int32_t>(lines);
  coptgetvarindicatornr(handle, last, 1, element.data());
  return errors(handle) == 0 && optindicatorcount(handle, &rejected) == last &&
         element.data() == "'i" + std::to_string(lines - 1) + "'";
}

optshortstring shorttext(std::string_view text) {
  optshortstring result{};
  result.length = static_cast<unsigned char>(text.size());
  std::copy(text.begin(), text.end(), result.text);
  return result;
}

double asdouble(std::string_view text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

double residentbytes() {
  std::ifstream file("/proc/self/statm");
  double total = 0;
  double resident = 0;
  file >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double heapbytes() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

}  // namespace bench

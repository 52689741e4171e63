// The benchmarks that have a target but no floor: creating a handle, a whole process, a million dot lines or
// faulty lines, writing help and option files, and getters by number. The documentation writers are in
// writers.cpp.
#include <fcntl.h>
#include <malloc.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "support.h"

extern char** environ;

namespace bench {

namespace {

// ---- handles and processes

void createandfree(benchmark::State& state, std::int64_t count) {
  timed(
      state, count,
      [&] {
        for (std::int64_t i = 0; i < count; ++i) {
          tvksoptions* handle = nullptr;
          xcreate(&handle);
          benchmark::DoNotOptimize(handle);
          xfree(&handle);
        }
      },
      [] { return optmessagecount(thandle()) == 0; });
}

int exitcode(std::string program, std::vector<std::string> arguments) {
  std::vector<char*> texts = {program.data()};
  for (std::string& argument : arguments) texts.push_back(argument.data());
  texts.push_back(nullptr);
  pid_t child = 0;
  if (posix_spawn(&child, program.c_str(), nullptr, nullptr, texts.data(), environ) != 0) return -1;
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The program's exit code is 0 when it found everything.
void process(benchmark::State& state, const std::string& program) {
  const tworkload& work = workload({500, 500});
  std::string lines;
  for (const std::int32_t position : work.queryorder) {
    const tsample& option = work.options[static_cast<std::size_t>(position)];
    if (position % 25 == 0) lines += option.name + " " + option.finaltext + "\n";
  }
  const std::string parameterfile = writefile("twenty.opt", lines);
  for ([[maybe_unused]] auto _ : state) {
    const double start = seconds();
    const int code = exitcode(program, {work.definitionfile, parameterfile});
    state.SetIterationTime(seconds() - start);
    if (code != 0) {
      wrong(state);
      break;
    }
  }
  state.counters["items"] = 1;
}

// ---- lines

// Calls check(handle) after so many lines of a kind were read.
template <class tcheck>
void readlines(benchmark::State& state, tlines kind, std::int64_t lines, tcheck check) {
  const std::string definitionfile = entrydefinition();
  const std::string file = linesfile(kind, lines);
  timed(
      state, lines, [&] { return tdefined(definitionfile); },
      [&](const thandle& handle) { coptreadparameterfile(handle, file.c_str()); }, check);
}

void dotlines(benchmark::State& state, std::int64_t lines) {
  readlines(state, tlines::dot, lines, [&](const thandle& handle) { return holdsdots(handle, lines); });
}

void indicatorlines(benchmark::State& state, std::int64_t lines) {
  readlines(state, tlines::indicator, lines,
            [&](const thandle& handle) { return holdsindicators(handle, lines); });
}

void faultylines(benchmark::State& state, tlines kind, std::int64_t lines) {
  readlines(state, kind, lines, [&](const thandle& handle) {
    std::int32_t defined = 0;
    for (std::int32_t number = 1; number <= optcount(handle) && defined == 0; ++number)
      optgetdefinednr(handle, number, &defined);
    return defined == 0 && errors(handle) >= std::min<std::int64_t>(lines, 4999);
  });
}

void dotmemory(benchmark::State& state, std::int64_t lines) {
  const tdefined handle(entrydefinition());
  const std::string file = linesfile(tlines::dot, lines);
  const double texts = static_cast<double>(dottextsize(lines));
  malloc_trim(0);
  const double resident = residentbytes();
  const double heap = heapbytes();
  for ([[maybe_unused]] auto _ : state) {
    if (optmessagecount(handle) == 0) coptreadparameterfile(handle, file.c_str());
    coptaddmessage(handle, "once is enough");
    state.SetIterationTime(1e-3);
  }
  std::int32_t rejected = 0;
  if (optdotoptcount(handle, &rejected) != lines) wrong(state);
  state.counters["items"] = static_cast<double>(lines);
  state.counters["resident"] = (residentbytes() - resident - texts) / static_cast<double>(lines);
  state.counters["heap"] = (heapbytes() - heap - texts) / static_cast<double>(lines);
}

// ---- output

void help(benchmark::State& state, std::int64_t size, const char* request) {
  const tworkload& work = workload({size, size});
  double bytes = 0;
  timed(
      state, size, [&] { return tdefined(work.definitionfile); },
      [&](const thandle& handle) { coptshowhelp(handle, request); },
      [&](const thandle& handle) {
        bytes = 0;
        for (std::int32_t i = 1; i <= optmessagecount(handle); ++i) {
          std::array<char, WEXCORIN_TEXT_SIZE> text{};
          std::int32_t kind = 0;
          coptgetmessage(handle, i, text.data(), &kind);
          if (kind != optMsgHelp) return false;
          bytes += static_cast<double>(std::string_view(text.data()).size() + 1);
        }
        return bytes > static_cast<double>(size) * 60;
      });
  state.counters["bytes"] = bytes;
}

void writeparameters(benchmark::State& state, std::int64_t size) {
  const tworkload& work = workload({size, size});
  const tdefined handle(work.definitionfile);
  coptreadparameterfile(handle, work.parameterfile.c_str());
  const std::string path = pathof("written.opt");
  timed(
      state, size, [&] { coptwriteparameterfile(handle, path.c_str()); },
      [&] {
        const tdefined reread(work.definitionfile);
        coptreadparameterfile(reread, path.c_str());
        return holdsvalues(reread, work);
      });
  state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(path));
}

// Times the system alone at writing as many bytes to a file of that name.
void writebytes(benchmark::State& state, std::int64_t size) {
  const std::string bytes(static_cast<std::size_t>(27 * size), 'x');
  const std::string path = pathof("bytes");
  timed(
      state, size,
      [&] {
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        const bool iswritten = ::write(file, bytes.data(), bytes.size()) > 0;
        if (::close(file) != 0 || !iswritten) state.SkipWithError("cannot write");
      },
      [&] { return std::filesystem::file_size(path) == bytes.size(); });
  state.counters["bytes"] = static_cast<double>(bytes.size());
}

}  // namespace

void addsinglerows() {
  add("create", "wexcorin", 100, createandfree);
  add("process", "wexcorin", 1,
      [](benchmark::State& state, std::int64_t) { process(state, BENCH_PROCESS_LIBRARY); });
  add("process", "floor", 1,
      [](benchmark::State& state, std::int64_t) { process(state, BENCH_PROCESS_FILES); });
  add("lines", "dot", 1000000, dotlines);
  add("lines", "indicator", 1000000, indicatorlines);
  add("lines", "unknown", 1000000,
      [](benchmark::State& state, std::int64_t lines) { faultylines(state, tlines::unknown, lines); });
  add("lines", "refused", 1000000,
      [](benchmark::State& state, std::int64_t lines) { faultylines(state, tlines::refused, lines); });
  add("lines", "assignment", 1000000, [](benchmark::State& state, std::int64_t lines) {
    const tworkload& work = workload({500, lines});
    timed(
        state, lines, [&] { return tdefined(work.definitionfile); },
        [&](const thandle& handle) { coptreadparameterfile(handle, work.parameterfile.c_str()); },
        [&](const thandle& handle) { return holdsvalues(handle, work); });
  });
  add("dotmemory", "wexcorin", 1000000, dotmemory);
  add("output", "summary", 500, [](benchmark::State& state, std::int64_t size) { help(state, size, "1"); });
  add("output", "descriptions", 500,
      [](benchmark::State& state, std::int64_t size) { help(state, size, "2"); });
  for (const std::int64_t size : {500, 100000}) add("output", "parameters", size, writeparameters);
  add("output", "file", 500, writebytes);
}

}  // namespace bench

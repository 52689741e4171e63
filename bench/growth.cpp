// How the time of reading and of queries grows. The number of options, or of lines for 500 options, doubles
// from 1,000 to a million: in each lookup mode, with a synonym for every option, with messages in the list,
// with echo, and for entries.
#include <memory>

#include "support.h"

namespace bench {

namespace {

constexpr std::int64_t smallestsize = 1000;
constexpr std::int64_t largestsize = 1024000;

struct tnamed {
  const char* name;
  tnaming naming;
};

constexpr tnamed namings[] = {{"normal", tnaming::normal},
                              {"path", tnaming::path},
                              {"minos", tnaming::minos},
                              {"synonyms", tnaming::synonyms}};

void growdefinition(benchmark::State& state, const tworkload& work) {
  timed(
      state, std::ssize(work.options), [] { return thandle(); },
      [&](const thandle& handle) { coptreaddefinition(handle, work.definitionfile.c_str()); },
      [&](const thandle& handle) { return holdsoptions(handle, work); });
}

// Calls prepare(handle) before the file is read and check(handle) after it.
template <class tprepare, class tcheck>
void growparameters(benchmark::State& state, const tworkload& work, std::int64_t lines, tprepare prepare,
                    tcheck check) {
  timed(
      state, lines,
      [&] {
        auto handle = std::make_unique<tdefined>(work.definitionfile);
        prepare(*handle);
        return handle;
      },
      [&](const std::unique_ptr<tdefined>& handle) {
        coptreadparameterfile(*handle, work.parameterfile.c_str());
      },
      [&](const std::unique_ptr<tdefined>& handle) { return check(*handle); });
}

void growqueries(benchmark::State& state, const tworkload& work) {
  const tdefined handle(work.definitionfile);
  std::vector<std::string> names;
  for (const std::int32_t position : work.queryorder)
    names.push_back((work.naming == tnaming::synonyms ? "x" : "") +
                    work.options[static_cast<std::size_t>(position)].name);
  std::int64_t found = 0;
  timed(
      state, std::ssize(names),
      [&] {
        found = 0;
        for (std::size_t i = 0; i < names.size(); ++i) {
          std::int32_t number = 0;
          std::int32_t refnr = 0;
          coptfindstr(handle, names[i].c_str(), &number, &refnr);
          found += number == tworkload::number(work.queryorder[i]) ? 1 : 0;
        }
      },
      [&] { return found == std::ssize(names); });
}

void addnamings(std::int64_t size) {
  for (const tnamed& named : namings) {
    const std::string suffix = std::string("_") + named.name;
    const tnaming naming = named.naming;
    add("growth", "definition" + suffix, size, [naming](benchmark::State& state, std::int64_t count) {
      growdefinition(state, workload({count, count, naming}));
    });
    add("growth", "queries" + suffix, size, [naming](benchmark::State& state, std::int64_t count) {
      growqueries(state, workload({count, count, naming}));
    });
    add("growth", "parameters" + suffix, size, [naming](benchmark::State& state, std::int64_t count) {
      const tworkload& work = workload({count, count, naming});
      growparameters(
          state, work, count, [](tvksoptions*) {},
          [&](tvksoptions* handle) { return holdsvalues(handle, work); });
    });
  }
}

void fillmessages(tvksoptions* handle) {
  for (int i = 0; i < 5001; ++i) coptaddmessage(handle, "a message");
}

void addlines(std::int64_t size) {
  add("growth", "lines_plain", size, [](benchmark::State& state, std::int64_t lines) {
    const tworkload& work = workload({500, lines});
    growparameters(
        state, work, lines, [](tvksoptions*) {},
        [&](tvksoptions* handle) { return holdsvalues(handle, work); });
  });
  add("growth", "lines_messages", size, [](benchmark::State& state, std::int64_t lines) {
    const tworkload& work = workload({500, lines});
    growparameters(state, work, lines, fillmessages, [&](tvksoptions* handle) {
      const bool full = optmessagecount(handle) == 5001;
      optclearmessages(handle);
      return full && holdsvalues(handle, work);
    });
  });
  add("growth", "lines_echo", size, [](benchmark::State& state, std::int64_t lines) {
    const tworkload& work = workload({500, lines});
    growparameters(
        state, work, lines, [](tvksoptions* handle) { optechoset(handle, 1); },
        [&](tvksoptions* handle) { return optmessagecount(handle) >= lines && holdsvalues(handle, work); });
  });
}

template <class tcheck>
void addentries(const char* who, std::int64_t size, tlines kind, tcheck check) {
  add("growth", who, size, [kind, check](benchmark::State& state, std::int64_t lines) {
    tworkload work;
    work.definitionfile = entrydefinition();
    work.parameterfile = linesfile(kind, lines);
    growparameters(
        state, work, lines, [](tvksoptions*) {}, [&](tvksoptions* handle) { return check(handle, lines); });
  });
}

bool manyerrors(tvksoptions* handle, std::int64_t lines) {
  return errors(handle) >= std::min<std::int64_t>(lines, 4999);
}

}  // namespace

void addgrowth() {
  for (std::int64_t size = smallestsize; size <= largestsize; size *= 2) {
    addnamings(size);
    addlines(size);
    addentries("lines_dot", size, tlines::dot, holdsdots);
    addentries("lines_indicator", size, tlines::indicator, holdsindicators);
    addentries("lines_refused", size, tlines::refused, manyerrors);
  }
}

}  // namespace bench

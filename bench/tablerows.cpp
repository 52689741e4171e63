// The work that is compared with the floor: reading a definition of N options, reading N or a million
// assignments, getting every value by name, and the memory that an option takes.
#include <malloc.h>

#include <algorithm>
#include <array>
#include <memory>
#include <numeric>

#include "floor.h"
#include "support.h"

namespace bench {

namespace {

const tworkload& even(std::int64_t size) { return workload({size, size}); }

bool istextof(const tsample& option, std::string_view text) {
  return option.type == 'd' ? asdouble(text) == asdouble(option.finaltext) : text == option.finaltext;
}

bool floorholdsvalues(const tfloor& floor, const tworkload& work) {
  std::array<char, WEXCORIN_TEXT_SIZE> text{};
  for (std::size_t i = 0; i < work.options.size(); ++i) {
    floor.valuetext(floor.at(i), text.data());
    if (!istextof(work.options[i], text.data())) return false;
  }
  return true;
}

// ---- reading

void readdefinition(benchmark::State& state, std::int64_t size) {
  const tworkload& work = even(size);
  timed(
      state, size, [] { return thandle(); },
      [&](const thandle& handle) { coptreaddefinition(handle, work.definitionfile.c_str()); },
      [&](const thandle& handle) { return holdsoptions(handle, work); });
}

void floordefinition(benchmark::State& state, std::int64_t size) {
  const tworkload& work = even(size);
  timed(
      state, size, [] { return tfloor(); }, [&](tfloor& floor) { floor.readdefinition(work.definitionfile); },
      [&](tfloor& floor) {
        return floor.count() == work.options.size() && floor.readparameters(work.parameterfile) == 0 &&
               floorholdsvalues(floor, work);
      });
}

void readparameters(benchmark::State& state, const tworkload& work, std::int64_t lines) {
  timed(
      state, lines, [&] { return tdefined(work.definitionfile); },
      [&](const thandle& handle) { coptreadparameterfile(handle, work.parameterfile.c_str()); },
      [&](const thandle& handle) { return holdsvalues(handle, work); });
}

// Registers from memory. This packs the floor's texts more densely than reading a definition does.
tfloor packedfloor(const tworkload& work) {
  tfloor floor;
  floor.define(work.options);
  return floor;
}

void floorparameters(benchmark::State& state, const tworkload& work, std::int64_t lines) {
  std::int64_t faults = 0;
  timed(
      state, lines, [&] { return packedfloor(work); },
      [&](tfloor& floor) { faults = floor.readparameters(work.parameterfile); },
      [&](const tfloor& floor) { return faults == 0 && floorholdsvalues(floor, work); });
}

// ---- queries by name

// What a value adds to the sum: a number its value, a text its length.
double weight(const tsample& option) {
  return option.type == 's' || option.type == 'e' ? static_cast<double>(option.finaltext.size())
                                                  : asdouble(option.finaltext);
}

// The queries in their order. It holds both forms of the names and little else, because a client that has its
// names at hand would not have to load ours into the cache.
struct tqueries {
  explicit tqueries(const tworkload& work) {
    for (const std::int32_t position : work.queryorder) {
      const tsample& option = work.options[static_cast<std::size_t>(position)];
      shortnames.push_back(shorttext(option.name));
      names.push_back(option.name);
      types += option.type;
      options.push_back(&option);
      sum += weight(option);
    }
  }
  std::vector<optshortstring> shortnames;
  std::vector<std::string> names;
  std::string types;
  std::vector<const tsample*> options;
  double sum = 0;
};

double typedvalue(tvksoptions* handle, const tqueries& queries, std::size_t i) {
  std::int32_t number = 0;
  std::int32_t refnr = 0;
  optfindstr(handle, &queries.shortnames[i], &number, &refnr);
  switch (queries.types[i]) {
    case 'i':
    case 'b': {
      std::int32_t value = 0;
      optgetintnr(handle, number, &value);
      return value;
    }
    case 'd': {
      double value = 0;
      optgetdblnr(handle, number, &value);
      return value;
    }
    default: {
      optshortstring text;
      optgetstrnr(handle, number, &text);
      return text.length;
    }
  }
}

double typedvalue(const tfloor& floor, const tqueries& queries, std::size_t i) {
  const tfloor::toption& option = *floor.find(queries.names[i]);
  switch (queries.types[i]) {
    case 'i':
    case 'b': return static_cast<double>(option.value.integer);
    case 'd': return option.value.real;
    default: return static_cast<double>(floor.view(option.text).size());
  }
}

template <class tsystem>
void querytyped(benchmark::State& state, const tsystem& system, const tworkload& work) {
  const tqueries queries(work);
  double sum = 0;
  timed(
      state, std::ssize(queries.names),
      [&] {
        sum = 0;
        for (std::size_t i = 0; i < queries.names.size(); ++i) sum += typedvalue(system, queries, i);
      },
      [&] { return sum == queries.sum; });
}

// Checks the texts of all values, from get(name, buffer). A double may have another text than in the file.
template <class tget>
void querytexts(benchmark::State& state, const tworkload& work, tget get) {
  const tqueries queries(work);
  std::array<char, WEXCORIN_TEXT_SIZE> text{};
  timed(
      state, std::ssize(queries.names),
      [&] {
        for (const std::string& name : queries.names) {
          get(name, text.data());
          benchmark::DoNotOptimize(text);
        }
      },
      [&] {
        return std::all_of(queries.options.begin(), queries.options.end(), [&](const tsample* option) {
          get(option->name, text.data());
          return istextof(*option, text.data());
        });
      });
}

tdefined* fullhandle(const tworkload& work) {
  auto handle = std::make_unique<tdefined>(work.definitionfile);
  coptreadparameterfile(*handle, work.parameterfile.c_str());
  return handle.release();
}

void addqueries(std::int64_t size) {
  add("query_typed", "wexcorin", size, [](benchmark::State& state, std::int64_t count) {
    const std::unique_ptr<tdefined> handle(fullhandle(even(count)));
    querytyped(state, static_cast<tvksoptions*>(*handle), even(count));
    if (!holdsvalues(*handle, even(count))) wrong(state);
  });
  add("query_typed", "floor", size, [](benchmark::State& state, std::int64_t count) {
    tfloor floor = packedfloor(even(count));
    floor.readparameters(even(count).parameterfile);
    querytyped(state, floor, even(count));
  });
  add("query_text", "wexcorin", size, [](benchmark::State& state, std::int64_t count) {
    const std::unique_ptr<tdefined> handle(fullhandle(even(count)));
    querytexts(state, even(count),
               [&](const std::string& name, char* text) { coptgetvalstr(*handle, name.c_str(), text); });
  });
  add("query_text", "floor", size, [](benchmark::State& state, std::int64_t count) {
    tfloor floor = packedfloor(even(count));
    floor.readparameters(even(count).parameterfile);
    querytexts(state, even(count),
               [&](const std::string& name, char* text) { floor.valuetext(*floor.find(name), text); });
  });
}

// ---- memory

// Enough registries to make temporary blocks and partly used pages negligible.
template <class tmake>
void memory(benchmark::State& state, std::int64_t size, tmake make) {
  const tworkload& work = even(size);
  const std::size_t texts =
      std::accumulate(work.options.begin(), work.options.end(), std::size_t{0},
                      [](std::size_t sum, const tsample& option) { return sum + option.textsize(); });
  const std::int64_t copies = std::max<std::int64_t>(1, 50000 / size);
  malloc_trim(0);
  const double resident = residentbytes();
  const double heap = heapbytes();
  std::vector<decltype(make(work))> registries;
  for ([[maybe_unused]] auto _ : state) {
    for (std::int64_t i = 0; i < copies && registries.size() < static_cast<std::size_t>(copies); ++i)
      registries.push_back(make(work));
    state.SetIterationTime(1e-3);
  }
  const double options = static_cast<double>(copies * size);
  const double textbytes = static_cast<double>(texts) / static_cast<double>(size);
  state.counters["items"] = static_cast<double>(size);
  state.counters["texts"] = textbytes;
  state.counters["resident"] = (residentbytes() - resident) / options - textbytes;
  state.counters["heap"] = (heapbytes() - heap) / options - textbytes;
}

void addmemory(std::int64_t size) {
  add("memory", "wexcorin", size, [](benchmark::State& state, std::int64_t count) {
    memory(state, count,
           [&](const tworkload& work) { return std::make_unique<tdefined>(work.definitionfile); });
  });
  add("memory", "floor", size, [](benchmark::State& state, std::int64_t count) {
    memory(state, count, [&](const tworkload& work) {
      auto floor = std::make_unique<tfloor>();
      if (!floor->readdefinition(work.definitionfile)) wrong(state);
      return floor;
    });
  });
}

}  // namespace

void addtablerows() {
  for (const std::int64_t size : {500, 10000, 100000}) {
    add("definition", "wexcorin", size, readdefinition);
    add("definition", "floor", size, floordefinition);
  }
  for (const std::int64_t size : {500, 10000, 100000}) {
    add("parameters", "wexcorin", size,
        [](benchmark::State& state, std::int64_t count) { readparameters(state, even(count), count); });
    add("parameters", "floor", size,
        [](benchmark::State& state, std::int64_t count) { floorparameters(state, even(count), count); });
  }
  add("million", "wexcorin", 1000000, [](benchmark::State& state, std::int64_t lines) {
    readparameters(state, workload({500, lines}), lines);
  });
  add("million", "floor", 1000000, [](benchmark::State& state, std::int64_t lines) {
    floorparameters(state, workload({500, lines}), lines);
  });
  for (const std::int64_t size : {500, 10000, 100000}) addqueries(size);
  addmemory(500);
}

}  // namespace bench

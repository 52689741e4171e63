// Each family of functions on a handle with 500 options that all have a value. A repetition calls one
// function once for every option, message, text or entry, and adds up the results. Reading files and queries
// by name are in tablerows.cpp, creation and output in singlerows.cpp.
#include <array>
#include <memory>

#include "support.h"

namespace bench {

namespace {

struct tbuffers {
  std::array<char, WEXCORIN_TEXT_SIZE> a, b;
  std::int32_t i, j, k, l, m, n;
  double x, y, z;
};

// A call of the family for one number; returns the result of the function.
using tcall = std::int32_t (*)(tvksoptions* h, std::int32_t nr, tbuffers& o);

struct tfamily {
  const char* name;
  const char* types;  // the options for which the call succeeds, as in tsample; "*" is the predefined one
  tcall call;
};

constexpr const char* every = "idbse*";

// ---- by option number

constexpr tfamily byoption[] = {
    {"getint", "ib", [](auto h, auto nr, auto& o) { return optgetintnr(h, nr, &o.i); }},
    {"getdbl", "d", [](auto h, auto nr, auto& o) { return optgetdblnr(h, nr, &o.x); }},
    {"getstr", every, [](auto h, auto nr, auto& o) { return coptgetstrnr(h, nr, o.a.data()); }},
    {"getvalues", "idbse",
     [](auto h, auto nr, auto& o) { return coptgetvaluesnr(h, nr, o.a.data(), &o.i, &o.x, o.b.data()); }},
    {"setint", "ib", [](auto h, auto nr, auto&) { return optsetintnr(h, nr, 1); }},
    {"setdbl", "d", [](auto h, auto nr, auto&) { return optsetdblnr(h, nr, 0.005); }},
    {"getset", every,
     [](auto h, auto nr, auto& o) {
       coptgetstrnr(h, nr, o.a.data());
       return coptsetstrnr(h, nr, o.a.data());
     }},
    {"getname", every, [](auto h, auto nr, auto& o) { return coptgetnamenr(h, nr, o.a.data()); }},
    {"getinfo", every,
     [](auto h, auto nr, auto& o) { return optgetinfonr(h, nr, &o.i, &o.j, &o.k, &o.l, &o.m, &o.n); }},
    {"gethelp", every, [](auto h, auto nr, auto& o) { return coptgethelpnr(h, nr, o.a.data(), o.b.data()); }},
    {"getbounds", "id",
     [](auto h, auto nr, auto& o) {
       return optgetboundsint(h, nr, &o.i, &o.j, &o.k) + optgetboundsdbl(h, nr, &o.x, &o.y, &o.z);
     }},
    {"getenum", "e", [](auto h, auto nr, auto& o) { return coptgetenumvalue(h, nr, 4, &o.i, o.a.data()); }},
    {"getenumstr", "e", [](auto h, auto nr, auto& o) { return coptgetenumstrnr(h, nr, o.a.data(), &o.i); }},
    {"refnr", every, [](auto h, auto nr, auto&) { return optsetrefnr(h, nr, nr); }},
    {"reset", every, [](auto h, auto nr, auto&) { return optresetnr(h, nr); }},
    {"lookup", every,
     [](auto h, auto nr, auto& o) {
       coptgetnamenr(h, nr, o.a.data());
       return std::int32_t{coptlookup(h, o.a.data()) == nr - 1};
     }},
    {"readtext", "idbse",
     [](auto h, auto nr, auto& o) {
       coptgethelpnr(h, nr, o.a.data(), o.b.data());
       std::string line = o.a.data();
       coptgetstrnr(h, nr, o.b.data());
       line.append(" = ").append(o.b.data());
       optclearmessages(h);
       optreadfrompchar(h, line.c_str());
       optgetdefinednr(h, nr, &o.i);
       return std::int32_t{o.i == 1};
     }},
    // what does not depend on the option
    {"counts", every,
     [](auto h, auto, auto&) {
       return std::int32_t{optcount(h) == 501 && optgroupcount(h) == 1 && optsynonymcount(h) == 0};
     }},
    {"group", every,
     [](auto h, auto nr, auto& o) {
       return std::int32_t{optgetgroupgrpnr(h, 1) == 1 &&
                           coptgetgroupnr(h, 1, o.a.data(), &o.i, &o.j, o.b.data()) == 1 && nr > 0};
     }},
    {"flags", every,
     [](auto h, auto, auto&) {
       optechoset(h, 0);
       optnoboundsset(h, 0);
       optrecentenabledset(h, 1);
       return std::int32_t{opteolonlyset(h, 1) == 1 && optrecentenabled(h) == 1};
     }},
    {"loadpath", every,
     [](auto, auto, auto& o) {
       coptsetloadpath("some/folder");
       coptgetloadpath(o.a.data());
       return std::int32_t{o.a[0] == 's'};
     }},
    {"check", every,
     [](auto, auto, auto& o) {
       constexpr std::array<std::int32_t, 3> signature = {3, 3, 4};
       return cxcheck("optGetIntNr", 2, signature.data(), o.a.data()) & cxapiversion(2, o.a.data(), &o.i);
     }},
    {"version", every,
     [](auto h, auto, auto& o) {
       coptversion(h, o.a.data());
       return coptgettypename(h, optTypeDouble, o.b.data());
     }},
};

std::int64_t expected(const tworkload& work, std::string_view types) {
  std::int64_t count = types.find('*') != std::string_view::npos ? 1 : 0;
  for (const tsample& option : work.options)
    count += types.find(option.type) != std::string_view::npos ? 1 : 0;
  return count;
}

void callforoptions(benchmark::State& state, const tfamily& family) {
  const tworkload& work = workload({500, 500});
  const tdefined handle(work.definitionfile);
  coptreadparameterfile(handle, work.parameterfile.c_str());
  tbuffers out{};
  const std::int32_t count = optcount(handle);
  std::int64_t succeeded = 0;
  timed(
      state, count,
      [&] {
        succeeded = 0;
        for (std::int32_t number = 1; number <= count; ++number) {
          succeeded += family.call(handle, number, out);
          benchmark::DoNotOptimize(out);
        }
      },
      [&] { return succeeded == expected(work, family.types) && errors(handle) == 0; });
}

// ---- messages, lists and entries

// Times call(handle, number) for so many numbers, with a handle that prepare has filled. Each call must
// return 1.
template <class tprepare, class tentrycall>
void callforentries(benchmark::State& state, std::int64_t count, tprepare prepare, tentrycall call) {
  std::int64_t succeeded = 0;
  const std::string definitionfile = entrydefinition();
  timed(
      state, count,
      [&] {
        auto handle = std::make_unique<tdefined>(definitionfile);
        prepare(*handle);
        return handle;
      },
      [&](const std::unique_ptr<tdefined>& handle) {
        succeeded = 0;
        for (std::int64_t i = 1; i <= count; ++i) succeeded += call(*handle, static_cast<std::int32_t>(i));
      },
      [&](const std::unique_ptr<tdefined>&) { return succeeded == count; });
}

void nothing(tvksoptions*) {}

std::int32_t message(tvksoptions* handle, std::int32_t number) {
  std::array<char, WEXCORIN_TEXT_SIZE> text{};
  std::int32_t kind = 0;
  coptaddmessage(handle, "what a client has to say");
  coptgetmessage(handle, number, text.data(), &kind);
  return std::int32_t{kind == optMsgUserError};
}

// Every fourth text stays in the list.
std::int32_t listtext(tvksoptions* handle, std::int32_t number) {
  std::array<char, WEXCORIN_TEXT_SIZE> text{};
  coptreadfromstr(handle, "--scenario dry year");
  return number % 4 == 0 ? coptreadfromliststr(handle, "--scenario", number / 4, text.data())
                         : coptgetfromliststr(handle, "--scenario", text.data());
}

std::int32_t dotentry(tvksoptions* handle, std::int32_t number) {
  tbuffers o{};
  return coptgetdotoptnr(handle, number, o.a.data(), &o.i, &o.j, &o.x) &
         coptgetdotoptuel(handle, number, 2, o.b.data());
}

std::int32_t indicatorentry(tvksoptions* handle, std::int32_t number) {
  tbuffers o{};
  return coptgetindicatornr(handle, number, o.a.data(), o.b.data(), &o.i, &o.j, &o.k) &
         coptgetequindicatornr(handle, number, 1, o.b.data()) &
         coptgetvarindicatornr(handle, number, 1, o.b.data());
}

void addentries() {
  add("family", "messages", 1000,
      [](benchmark::State& state, std::int64_t count) { callforentries(state, count, nothing, message); });
  add("family", "lists", 1000,
      [](benchmark::State& state, std::int64_t count) { callforentries(state, count, nothing, listtext); });
  add("family", "dotentries", 1000, [](benchmark::State& state, std::int64_t count) {
    const std::string file = linesfile(tlines::dot, count);
    callforentries(
        state, count, [&](tvksoptions* handle) { coptreadparameterfile(handle, file.c_str()); }, dotentry);
  });
  add("family", "indicators", 1000, [](benchmark::State& state, std::int64_t count) {
    const std::string file = linesfile(tlines::indicator, count);
    callforentries(
        state, count, [&](tvksoptions* handle) { coptreadparameterfile(handle, file.c_str()); },
        indicatorentry);
  });
}

}  // namespace

void addfamilies() {
  for (const tfamily& family : byoption)
    add("family", family.name, 500,
        [&family](benchmark::State& state, std::int64_t) { callforoptions(state, family); });
  addentries();
}

}  // namespace bench

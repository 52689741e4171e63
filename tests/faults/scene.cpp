// A sequence of calls from every family of functions, and every query.
#include "faults/scene.h"

#include <array>
#include <vector>

namespace testsupport::faults {

namespace {

// Added to everytype.
constexpr const char* moreoptions =
    "one group 1 1 Group\ncomment eolcomm !\ninclude immediate ReadFile 1 1\nsay immediate Message 1 1\n"
    "old integer 9 0 0 9 1 1 Old\n More on it\nlim synonym maxit\nnames deprecated\n old use maxit\n";

constexpr std::string_view parameters =
    "pair 3 4\nbig_step 3\ntrace\nnote \"one two\"\nquiet\nmethod primal\nlevel 2\nstring_list a\n"
    "string_list b\n--more c\nwords 5:x\nall 1\ninclude nested.opt\nsay hello\nold 5\nlim 101\nnosuch 1\n"
    "x.prior(\"a\",\"b\") 3\nindic e(\"a\") v(\"b\") 1\n";

// ---- queries

struct toutputs {
  char text[256] = "", name[256] = "";
  std::int32_t i[6] = {};
  double d[3] = {};
};

using tquery = std::int32_t (*)(tvksoptions* handle, std::int32_t number, toutputs* to);

// Calls the query for several parts of what the number stands for: items, elements, texts.
template <class task>
std::int32_t parts(task ask) {
  std::int32_t found = 0;
  for (std::int32_t part = 0; part <= 3; ++part) found += ask(part);
  return found;
}

// Makes the query with the name of the option.
template <class task>
std::int32_t byname(tvksoptions* handle, std::int32_t number, toutputs* to, task ask) {
  return coptgethelpnr(handle, number, to->name, to->text) == 1 ? ask(to->name) : 0;
}

// The queries of a kind of numbers, which count from 1.
struct tkind {
  std::int32_t (*count)(tvksoptions* handle);
  std::vector<tquery> always;  // have an answer for every number up to the count, and for no other
  std::vector<tquery> others;
};

const tkind kinds[] = {
    {[](auto h) { return optcount(h); },
     {[](auto h, auto n, auto to) { return coptgetnamenr(h, n, to->text); },
      [](auto h, auto n, auto to) { return coptgethelpnr(h, n, to->name, to->text); },
      [](auto h, auto n, auto to) { return coptgetopthelpnr(h, n, to->text, to->i, to->i + 1); },
      [](auto h, auto n, auto to) {
        return optgetinfonr(h, n, to->i, to->i + 1, to->i + 2, to->i + 3, to->i + 4, to->i + 5);
      },
      [](auto h, auto n, auto to) { return optgetdefinednr(h, n, to->i); },
      [](auto h, auto n, auto to) { return coptgetstrnr(h, n, to->text); },
      [](auto h, auto n, auto to) {
        return byname(h, n, to, [&](auto name) { return coptfindstr(h, name, to->i, to->i + 1); });
      },
      [](auto h, auto n, auto to) {
        return byname(h, n, to, [&](auto name) { return coptgetvalstr(h, name, to->text); });
      },
      [](auto h, auto n, auto to) {
        return byname(h, n, to, [&](auto name) { return coptlookup(h, name) == n - 1 ? 1 : 0; });
      }},
     {[](auto h, auto n, auto to) { return coptgetvaluesnr(h, n, to->name, to->i, to->d, to->text); },
      [](auto h, auto n, auto to) { return optgetintnr(h, n, to->i); },
      [](auto h, auto n, auto to) { return optgetint2nr(h, n, to->i); },
      [](auto h, auto n, auto to) { return optgetdblnr(h, n, to->d); },
      [](auto h, auto n, auto to) { return optgetdbl2nr(h, n, to->d); },
      [](auto h, auto n, auto to) { return coptgetstr2nr(h, n, to->text); },
      [](auto h, auto n, auto to) { return coptgetdefaultstr(h, n, to->text); },
      [](auto h, auto n, auto to) { return optgetboundsint(h, n, to->i, to->i + 1, to->i + 2); },
      [](auto h, auto n, auto to) { return optgetboundsdbl(h, n, to->d, to->d + 1, to->d + 2); },
      [](auto h, auto n, auto to) { return optgetenumcount(h, n, to->i); },
      [](auto h, auto n, auto to) { return coptgetenumstrnr(h, n, to->text, to->i); },
      [](auto h, auto n, auto to) {
        return parts([&](auto item) { return coptgetenumhelp(h, n, item, to->i, to->text); });
      },
      [](auto h, auto n, auto to) {
        return parts([&](auto item) { return coptgetenumvalue(h, n, item, to->i, to->text); });
      },
      [](auto h, auto n, auto) { return optgetoptgroupnr(h, n); },
      [](auto h, auto n, auto to) {
        return byname(h, n, to, [&](auto name) { return coptgetval2str(h, name, to->text); });
      },
      [](auto h, auto n, auto to) {
        return byname(h, n, to, [&](auto name) { return coptlistcountstr(h, name); });
      },
      [](auto h, auto n, auto to) {
        return byname(h, n, to, [&](auto name) {
          return parts([&](auto index) { return coptreadfromliststr(h, name, index, to->text); });
        });
      }}},
    {[](auto h) { return optsynonymcount(h); },
     {[](auto h, auto n, auto to) { return coptgetsynonym(h, n, to->name, to->text); }},
     {}},
    {[](auto h) { return optgroupcount(h); },
     {[](auto h, auto n, auto to) { return coptgetgroupnr(h, n, to->name, to->i, to->i + 1, to->text); }},
     {[](auto h, auto n, auto) { return optgetgroupgrpnr(h, n); }}},
    {[](auto h) {
       std::int32_t rejected = 0;
       return optdotoptcount(h, &rejected);
     },
     {[](auto h, auto n, auto to) { return coptgetdotoptnr(h, n, to->text, to->i, to->i + 1, to->d); }},
     {[](auto h, auto n, auto to) {
       return parts([&](auto index) { return coptgetdotoptuel(h, n, index, to->text); });
     }}},
    {[](auto h) {
       std::int32_t rejected = 0;
       return optindicatorcount(h, &rejected);
     },
     {[](auto h, auto n, auto to) {
       return coptgetindicatornr(h, n, to->name, to->text, to->i, to->i + 1, to->i + 2);
     }},
     {[](auto h, auto n, auto to) {
        return parts([&](auto index) { return coptgetequindicatornr(h, n, index, to->text); });
      },
      [](auto h, auto n, auto to) {
        return parts([&](auto index) { return coptgetvarindicatornr(h, n, index, to->text); });
      }}},
    {[](auto) { return 10; },  // types
     {[](auto h, auto n, auto to) { return coptgettypename(h, n - 1, to->text); }},
     {[](auto h, auto n, auto to) {
       return parts([&](auto group) { return coptgetconstname(h, group, n, to->text); });
     }}},
};

// The queries without a number.
void askonce(tsteps& step, tvksoptions* handle) {
  std::int32_t errors = 0, warnings = 0;
  step(opterrorcount, handle, &errors, &warnings);
  step(optmessagecount, handle);
  step(optrecentenabled, handle);
  step(coptdefinitionfile, handle, step.text);
  step(coptversion, handle, step.text);
  step(coptgetloadpath, step.text);
}

}  // namespace

// ---- the scene

tscene::tscene() {
  std::string options = std::string(everytype) + moreoptions;
  for (char name = 'a'; name <= 'p'; ++name)  // enough names that the index grows
    options.append("o").append(1, name).append(" strlist 20 1 1\n");
  fdirectory.write("test.def", options);
  fdirectory.write("test.opt", parameters);
  fdirectory.write("nested.opt", "trace 2\nnote nested\n");
  std::filesystem::current_path(fdirectory.path("."));
}

std::string tscene::play(tvksoptions*& handle) {
  tsteps step;
  const std::int32_t signature[] = {3, 3};
  std::int32_t compatible = 0;
  step(cxapiversion, WEXCORIN_INTERFACE_VERSION, step.text, &compatible);
  step(cxcheck, "optResetNr", 1, signature, step.text);
  step(coptsetloadpath, "a path");
  step(xcreate, &handle);
  if (handle == nullptr) return "no handle";
  step(coptreaddefinition, handle, "test.def");
  step(optechoset, handle, 1);
  step(coptreadparameterfile, handle, "test.opt");
  step(optechoset, handle, 0);
  step(coptreadfromstr, handle, "maxit 7 note=x");
  step(optreadfrompchar, handle, "string_list d\nnote \"from a long text\"");
  for (const tkind& kind : kinds)
    for (const std::int32_t number : {2, kind.count(handle)})
      for (const auto* queries : {&kind.always, &kind.others})
        for (const tquery query : *queries) {
          toutputs to;
          step(query, handle, number, &to);
          step.log += to.text;
        }
  askonce(step, handle);
  step(coptsetstrnr, handle, 4, "a value that is set by number");
  step(coptsetstr2nr, handle, 12, "b c");
  step(coptsetvaluesnr, handle, 4, 0, 0.0, "another one");
  step(coptsetvalues2nr, handle, 10, 3, 0.0, "");
  step(optsetintnr, handle, 2, 200);
  step(optsetint2nr, handle, 10, 200);
  step(optsetdblnr, handle, 3, -1.0);
  step(optsetdbl2nr, handle, 11, 2.5);
  step(optsetrefnr, handle, 2, 77);
  step(coptsetrefnrstr, handle, "lim", 78);
  step(coptgetvalstr, handle, "note", step.text);
  step(coptgetvalstr, handle, "lim", step.text);
  step(coptgetfromliststr, handle, "string_list", step.text);
  std::array<char, 256> name{};
  step(coptgetfromanystrlist, handle, 0, name.data(), step.text);
  step(coptlookup, handle, "method");
  step(coptshowhelp, handle, "3");
  step(coptaddmessage, handle, "a client's own message");
  step(optrecentenabledset, handle, 1);
  step(optnoboundsset, handle, 0);
  step(opteolonlyset, handle, 0);
  step(optresetnr, handle, 6);
  step(coptwriteparameterfile, handle, "written.opt");
  step(optresetrecentchanges, handle);
  step(optresetall, handle);
  step(coptwriteparameterfile, handle, "reset.opt");
  return step.log + readfile("written.opt");
}

std::string tscene::messages(tvksoptions* handle) {
  coptaddmessage(handle, "the end");
  std::string result;
  for (std::int32_t number = 1; number <= optmessagecount(handle); ++number) {
    std::array<char, 256> text{};
    std::int32_t kind = 0;
    coptgetmessage(handle, number, text.data(), &kind);
    result += std::string(text.data()) + "\n";
  }
  return result;
}

void askeverything(tvksoptions* handle) {
  toutputs to;
  for (const tkind& kind : kinds) {
    const std::int32_t last = kind.count(handle);
    for (std::int32_t number = 0; number <= last + 1; ++number) {
      for (const tquery query : kind.always)
        EXPECT_EQ(query(handle, number, &to), number >= 1 && number <= last ? 1 : 0) << number;
      for (const tquery query : kind.others) query(handle, number, &to);
    }
  }
  tsteps step;
  askonce(step, handle);
}

}  // namespace testsupport::faults

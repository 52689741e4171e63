// A sequence of calls from every family of functions, and every query.
#include "faults/scene.h"

#include <array>
#include <functional>
#include <regex>
#include <tuple>
#include <utility>
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

// Arguments for a query: a number, 1 as the number of a part, the name of the option that has the number, and
// room for results.
struct targuments {
  targuments(tvksoptions* handle, std::int32_t asked) : number(asked) {
    coptgethelpnr(handle, number, name, texts[0]);
    texts[0][0] = '\0';
  }
  template <class tparameter>
  tparameter next() {
    if constexpr (std::is_same_v<tparameter, const char*>)
      return name;
    else if constexpr (std::is_same_v<tparameter, char*>)
      return texts[usedtexts++];
    else if constexpr (std::is_same_v<tparameter, std::int32_t*>)
      return &integers[usedintegers++];
    else if constexpr (std::is_same_v<tparameter, double*>)
      return &doubles[useddoubles++];
    else
      return static_cast<tparameter>(std::exchange(number, 1));
  }
  std::int32_t number;
  char name[256] = "", texts[2][256] = {};
  std::int32_t integers[6] = {};
  double doubles[3] = {};
  std::size_t usedtexts = 0, usedintegers = 0, useddoubles = 0;
};

using tquery = std::function<void(tsteps& step, tvksoptions* handle, std::int32_t number)>;

template <class tresult, class... tparameters>
tquery asking(tresult (*function)(tvksoptions*, tparameters...)) {
  return [function](tsteps& step, tvksoptions* handle, std::int32_t number) {
    targuments all(handle, number);
    const std::tuple<tparameters...> passed{all.next<tparameters>()...};
    std::apply([&](auto... each) { step(function, handle, each...); }, passed);
    step.log.append(all.texts[0]).append(all.texts[1]);
  };
}
tquery asking(...) { return {}; }  // has no handle

// The exported functions that change nothing.
const std::vector<tquery> queries = [] {
  const std::regex names(
      "c?opt(get(?!from|message).*|.*count.*|readfromliststr|findstr|lookup|version|definitionfile|"
      "recentenabled)");
  std::vector<tquery> found;
#define WEXCORIN_BOTH(first, second) \
  if (std::regex_match(#second, names) && asking(second)) found.push_back(asking(second));
#include "abi_both.inc"
  return found;
}();

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
  for (const std::int32_t number : {1, 2, optcount(handle)})
    for (const tquery& query : queries) query(step, handle, number);
  step(coptgetloadpath, step.text);
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
  tsteps step;
  for (std::int32_t number = 0; number <= optcount(handle) + 1; ++number)
    for (const tquery& query : queries) query(step, handle, number);
  char name[256], text[256];
  std::int32_t i[3];
  double value = 0;
  for (std::int32_t number = optcount(handle); number > 0; --number)
    EXPECT_TRUE(coptgethelpnr(handle, number, name, text) == 1 && coptlookup(handle, name) == number - 1)
        << name;
  for (std::int32_t number = optsynonymcount(handle); number > 0; --number)
    EXPECT_EQ(coptgetsynonym(handle, number, name, text), 1);
  for (std::int32_t number = optgroupcount(handle); number > 0; --number)
    EXPECT_EQ(coptgetgroupnr(handle, number, name, i, i + 1, text), 1);
  for (std::int32_t number = optdotoptcount(handle, i); number > 0; --number)
    EXPECT_EQ(coptgetdotoptnr(handle, number, name, i, i + 1, &value), 1);
  for (std::int32_t number = optindicatorcount(handle, i); number > 0; --number)
    EXPECT_EQ(coptgetindicatornr(handle, number, name, text, i, i + 1, i + 2), 1);
}

}  // namespace testsupport::faults

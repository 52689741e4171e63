// Checks that the results of all queries of the interface agree with each other.
#include <algorithm>

#include "base/textcase.h"
#include "fuzz/support/target.h"

namespace fuzzing {

namespace {

// ---- options

void checkvalues(tpair& pair, std::int32_t number, std::int32_t datatype, std::int32_t subtype) {
  constexpr std::int32_t untouched = -77777;
  ttext name, value, text, second;
  std::int32_t integer{}, integeralone = untouched, integer2{};
  double dbl{}, dblalone{}, dbl2{};
  const bool hasvalue = pair.call(BOTH(getvaluesnr), number, name, integer, dbl, value) == 1;
  const bool hastwo = subtype == optsub2Values;
  const bool isinteger = datatype == optDataInteger, isdouble = datatype == optDataDouble;
  HOLDS(hasvalue == (isinteger || isdouble || datatype == optDataString), number);
  HOLDS(pair.call(BOTH(getstrnr), number, text) == 1 && text.text() == value.text(), number, value.text());
  HOLDS(pair.call(BOTH(getstr2nr), number, second) == hastwo, number);
  HOLDS(pair.one(optgetintnr, number, integeralone) == isinteger, number);
  HOLDS(integeralone == (isinteger ? integer : untouched), number);
  HOLDS(pair.one(optgetint2nr, number, integer2) == (isinteger && hastwo), number);
  HOLDS(pair.one(optgetdblnr, number, dblalone) == isdouble, number);
  HOLDS(!isdouble || std::bit_cast<std::uint64_t>(dblalone) == std::bit_cast<std::uint64_t>(dbl), number);
  HOLDS(pair.one(optgetdbl2nr, number, dbl2) == (isdouble && hastwo), number);
}

// A query by name finds the first option that matches the name, which may be an earlier one.
void checkname(tpair& pair, std::int32_t number, const std::string& name) {
  ttext argument(name), byname, bynumber, text;
  std::int32_t found{}, refnr{}, foundrefnr{}, defined{}, recent{}, datatype{}, opttype{}, subtype{};
  const std::int32_t position = pair.call(BOTH(lookup), argument);
  const std::int32_t isfound = pair.call(BOTH(findstr), argument, found, foundrefnr);
  HOLDS(position < number && (position < 0 || found == position + 1), number, name);
  HOLDS(isfound == (found > 0), number, name);
  HOLDS(pair.call(BOTH(getvalstr), argument, byname) == isfound, number, name);
  const std::int32_t hastwo = pair.call(BOTH(getval2str), argument, text);
  const std::int32_t count = pair.call(BOTH(listcountstr), argument);
  if (isfound == 0) return HOLDS(found == -1 && foundrefnr == -1 && hastwo == 0 && count == -2, number, name);
  pair.call(BOTH(getstrnr), found, bynumber);
  HOLDS(byname.text() == bynumber.text(), number, name);
  pair.one(optgetinfonr, found, defined, recent, refnr, datatype, opttype, subtype);
  HOLDS(refnr == foundrefnr && hastwo == (subtype == optsub2Values), number, name);
  HOLDS((count >= 0) == (opttype == optTypeStrList), number, name);
  for (std::int32_t i = 0; count >= 0 && i <= count + 1; ++i)
    HOLDS(pair.call(BOTH(readfromliststr), argument, i, text) == (i >= 1 && i <= count), i, name);
}

void checkitems(tpair& pair, std::int32_t number, std::int32_t opttype) {
  const bool isenum = opttype == optTypeEnumStr || opttype == optTypeEnumInt;
  std::int32_t count{}, helpflag{}, integer{}, item{};
  ttext help, value, current;
  HOLDS(pair.one(optgetenumcount, number, count) == isenum, number);
  HOLDS(isenum ? count >= 0 : count == -1, number);
  for (std::int32_t i = 0; i <= count + 1; ++i) {
    const bool exists = i >= 1 && i <= count;
    HOLDS(pair.call(BOTH(getenumhelp), number, i, helpflag, help) == exists, number);
    HOLDS(pair.call(BOTH(getenumvalue), number, i, integer, value) == exists, number);
    HOLDS(opttype != optTypeEnumInt || !exists || value.text() == std::to_string(integer), number);
  }
  const bool istext = opttype == optTypeEnumStr;
  HOLDS(pair.call(BOTH(getenumstrnr), number, current, item) == istext, number);
  if (!istext || item == 0) return;
  HOLDS(pair.call(BOTH(getenumvalue), number, item, integer, value) == 1, number);
  HOLDS(optcore::struequal(value.text(), current.text()), number, value.text());
}

void checkoption(tpair& pair, std::int32_t number) {
  std::int32_t defined{}, recent{}, refnr{}, datatype{}, opttype{}, subtype{}, alone{}, helpflag{}, group{};
  HOLDS(pair.one(optgetinfonr, number, defined, recent, refnr, datatype, opttype, subtype) == 1, number);
  HOLDS(pair.one(optgetdefinednr, number, alone) == 1, number);
  HOLDS(alone == defined && (recent & ~defined) == 0, number);
  ttext name, rawname, helpname, help, defaulttext;
  HOLDS(pair.call(BOTH(getnamenr), number, name) == 1, number);
  HOLDS(pair.call(BOTH(gethelpnr), number, rawname, help) == 1, number);
  HOLDS(pair.call(BOTH(getopthelpnr), number, helpname, helpflag, group) == 1, number);
  HOLDS(name.text() == helpname.text() && name.text().size() == rawname.text().size(), number, name.text());
  HOLDS(pair.one(optgetoptgroupnr, number) == group, number);
  HOLDS(pair.call(BOTH(getdefaultstr), number, defaulttext) == (opttype == optTypeString), number);
  double dbllow{}, dblhigh{}, dbldefault{};
  HOLDS(pair.one(optgetboundsint, number, defined, recent, refnr) == (opttype == optTypeInteger), number);
  HOLDS(pair.one(optgetboundsdbl, number, dbllow, dblhigh, dbldefault) == (opttype == optTypeDouble), number);
  checkvalues(pair, number, datatype, subtype);
  checkname(pair, number, rawname.text());
  checkitems(pair, number, opttype);
}

// ---- the rest; a count is right if exactly the numbers from 1 to the count can be queried

void checksynonymsandgroups(tpair& pair) {
  ttext name, target, help;
  std::int32_t group{}, helpflag{};
  const std::int32_t synonyms = pair.one(optsynonymcount), groups = pair.one(optgroupcount);
  for (std::int32_t i = 0; i <= synonyms + 1; ++i)
    HOLDS(pair.call(BOTH(getsynonym), i, name, target) == (i >= 1 && i <= synonyms), i);
  for (std::int32_t i = 0; i <= groups + 1; ++i) {
    const std::int32_t exists = pair.call(BOTH(getgroupnr), i, name, group, helpflag, help);
    HOLDS(exists == (i >= 1 && i <= groups), i);
    const std::int32_t first = exists == 0 ? i : pair.one(optgetgroupgrpnr, group);
    HOLDS(exists == 0 || (first >= 1 && first <= i), i, name.text());
  }
}

template <class tfirst, class tsecond>
void checkelements(tpair& pair, tfirst first, tsecond second, std::int32_t number, std::int32_t count) {
  ttext element;
  for (std::int32_t i = 0; i <= count + 1; ++i)
    HOLDS(pair.call(first, second, number, i, element) == (i >= 1 && i <= count), number, i);
}

void checkentries(tpair& pair) {
  ttext name, variable;
  std::int32_t option{}, dimensions{}, variabledims{}, flag{}, rejected{};
  double value{};
  const std::int32_t entries = pair.one(optdotoptcount, rejected);
  for (std::int32_t i = 0; i <= entries + 1; ++i) {
    const std::int32_t exists = pair.call(BOTH(getdotoptnr), i, name, option, dimensions, value);
    HOLDS(exists == (i >= 1 && i <= entries), i);
    HOLDS(exists == 0 || (option >= 1 && option <= pair.one(optcount)), i);
    HOLDS(dimensions <= 20 || pair.wasfull(), i);
    checkelements(pair, BOTH(getdotoptuel), i, dimensions);
  }
  const std::int32_t indicators = pair.one(optindicatorcount, rejected);
  for (std::int32_t i = 0; i <= indicators + 1; ++i) {
    const std::int32_t exists =
        pair.call(BOTH(getindicatornr), i, name, variable, dimensions, variabledims, flag);
    HOLDS(exists == (i >= 1 && i <= indicators) && (flag == 0 || flag == 1), i);
    checkelements(pair, BOTH(getequindicatornr), i, dimensions);
    checkelements(pair, BOTH(getvarindicatornr), i, variabledims);
  }
}

}  // namespace

std::string messages(tpair& pair) {
  std::string all;
  ttext text;
  std::int32_t kind{};
  for (std::int32_t i = 1; i <= std::min(pair.one(optmessagecount), 20); ++i) {
    pair.call(BOTH(getmessage), i, text, kind);
    all += text.text() + "\n";
  }
  return all;
}

void checkmessages(tpair& pair) {
  const std::int32_t count = pair.one(optmessagecount);
  ttext text;
  std::int32_t kind{}, errors{}, warnings{};
  std::array<std::int32_t, 10> kinds{};
  for (std::int32_t i = 1; i <= count; ++i) {
    pair.call(BOTH(getmessage), i, text, kind);
    HOLDS(kind >= 0 && kind <= 9, kind, text.text());
    ++kinds[static_cast<std::size_t>(kind)];
  }
  pair.one(opterrorcount, errors, warnings);
  const std::int32_t raised = kinds[optMsgDefineError] + kinds[optMsgValueError] + kinds[optMsgUserError];
  HOLDS(errors == raised + kinds[optMsgTooManyMsgs], errors, raised);
  HOLDS(warnings == kinds[optMsgValueWarning] + kinds[optMsgDeprecated], warnings);
  HOLDS(kinds[optMsgTooManyMsgs] <= 1 && count - kinds[optMsgInputEcho] <= 5001, count);
}

void checkstate(tpair& pair, tscope scope) {
  ttext text;
  std::int32_t defined{};
  const std::int32_t count = pair.one(optcount);
  for (std::int32_t i = 1; i <= count; ++i) {
    pair.one(optgetdefinednr, i, defined);
    if (scope == tscope::everything || defined != 0) checkoption(pair, i);
  }
  pair.call(BOTH(definitionfile), text);
  pair.one(optrecentenabled);
  checksynonymsandgroups(pair);
  checkentries(pair);
  checkmessages(pair);
}

}  // namespace fuzzing

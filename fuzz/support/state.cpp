// The answers of the interface and what must hold between them.
#include "fuzz/support/state.h"

#include <algorithm>
#include <array>

#include "base/textcase.h"

namespace fuzzing {

namespace {

std::string at(std::int32_t number, const std::string& text = {}) {
  return "number " + std::to_string(number) + " " + text;
}

std::int32_t onbit(bool condition) { return condition ? 1 : 0; }

// What stands around the text of a message of each kind.
bool fitskind(std::string_view text, std::int32_t kind) {
  constexpr std::array<std::string_view, 10> prefixes = {">> ",
                                                         "",
                                                         "*** Definition Error ",
                                                         "*** Value Error ",
                                                         "*** Warning ",
                                                         "*** Warning ",
                                                         "Reading parameter(s) from \"",
                                                         "Finished reading from \"",
                                                         "Maximum of 5000 messages reached",
                                                         "*** Error "};
  return kind >= 0 && kind <= 9 &&
         text.substr(0, prefixes[static_cast<std::size_t>(kind)].size()) ==
             prefixes[static_cast<std::size_t>(kind)];
}

// ---- options

void checkvalues(tpair& pair, std::int32_t number, std::int32_t datatype, std::int32_t subtype) {
  ttextresult name, value, text, second;
  tintresult integer, integeralone, integer2;
  tdblresult dbl, dblalone, dbl2;
  const bool hasvalue = pair.call(optgetvaluesnr, coptgetvaluesnr, number, name, integer, dbl, value) == 1;
  FUZZ_CHECK(hasvalue == (datatype >= optDataInteger && datatype <= optDataString), at(number));
  FUZZ_CHECK(pair.call(optgetstrnr, coptgetstrnr, number, text) == 1, at(number));
  FUZZ_CHECK(text.text() == value.text(), at(number, value.text()));
  const bool hastwo = subtype == optsub2Values;
  FUZZ_CHECK(pair.call(optgetstr2nr, coptgetstr2nr, number, second) == onbit(hastwo), at(number));
  const bool isinteger = datatype == optDataInteger;
  FUZZ_CHECK(pair.callone(optgetintnr, number, integeralone) == onbit(isinteger), at(number));
  FUZZ_CHECK(isinteger ? integeralone.value() == integer.value() : integeralone.isuntouched(), at(number));
  FUZZ_CHECK(pair.callone(optgetint2nr, number, integer2) == onbit(isinteger && hastwo), at(number));
  const bool isdouble = datatype == optDataDouble;
  FUZZ_CHECK(pair.callone(optgetdblnr, number, dblalone) == onbit(isdouble), at(number));
  FUZZ_CHECK(!isdouble ||
                 std::bit_cast<std::uint64_t>(dblalone.value()) == std::bit_cast<std::uint64_t>(dbl.value()),
             at(number));
  FUZZ_CHECK(pair.callone(optgetdbl2nr, number, dbl2) == onbit(isdouble && hastwo), at(number));
}

// By name the first option is found that the name stands for, which may be an earlier one.
void checkname(tpair& pair, std::int32_t number, const std::string& name) {
  const ttextin argument(name);
  tintresult found, refnr, foundrefnr, defined, recent, datatype, opttype, subtype;
  const std::int32_t position = pair.call(optlookup, coptlookup, argument);
  const std::int32_t isfound = pair.call(optfindstr, coptfindstr, argument, found, foundrefnr);
  FUZZ_CHECK(position < 0 || found.value() == position + 1, at(number, name));
  FUZZ_CHECK(position < number, at(number, name));
  FUZZ_CHECK(isfound == onbit(found.value() > 0), at(number, name));
  ttextresult byname, bynumber, second;
  FUZZ_CHECK(pair.call(optgetvalstr, coptgetvalstr, argument, byname) == isfound, at(number, name));
  const std::int32_t hastwo = pair.call(optgetval2str, coptgetval2str, argument, second);
  const std::int32_t count = pair.call(optlistcountstr, coptlistcountstr, argument);
  if (isfound == 0) {
    FUZZ_CHECK(found.value() == -1 && foundrefnr.value() == -1 && hastwo == 0 && count == -2,
               at(number, name));
    return;
  }
  pair.call(optgetstrnr, coptgetstrnr, found.value(), bynumber);
  FUZZ_CHECK(byname.text() == bynumber.text(), at(number, name));
  pair.callone(optgetinfonr, found.value(), defined, recent, refnr, datatype, opttype, subtype);
  FUZZ_CHECK(refnr.value() == foundrefnr.value(), at(number, name));
  FUZZ_CHECK(hastwo == onbit(subtype.value() == optsub2Values), at(number, name));
  FUZZ_CHECK((count >= 0) == (opttype.value() == optTypeStrList), at(number, name));
  ttextresult text;
  for (std::int32_t i = 0; count >= 0 && i <= count + 1; ++i)
    FUZZ_CHECK(
        pair.call(optreadfromliststr, coptreadfromliststr, argument, i, text) == onbit(i >= 1 && i <= count),
        at(i, name));
}

void checkitems(tpair& pair, std::int32_t number, std::int32_t opttype) {
  const bool isenum = opttype == optTypeEnumStr || opttype == optTypeEnumInt;
  tintresult count, helpflag, integer, item;
  ttextresult help, value, current;
  FUZZ_CHECK(pair.callone(optgetenumcount, number, count) == onbit(isenum), at(number));
  FUZZ_CHECK(isenum ? count.value() >= 0 : count.value() == -1, at(number));
  for (std::int32_t i = 0; i <= count.value() + 1; ++i) {
    const std::int32_t exists = onbit(i >= 1 && i <= count.value());
    FUZZ_CHECK(pair.call(optgetenumhelp, coptgetenumhelp, number, i, helpflag, help) == exists, at(number));
    FUZZ_CHECK(pair.call(optgetenumvalue, coptgetenumvalue, number, i, integer, value) == exists, at(number));
    FUZZ_CHECK(opttype != optTypeEnumInt || exists == 0 || value.text() == std::to_string(integer.value()),
               at(number));
  }
  const std::int32_t istext = pair.call(optgetenumstrnr, coptgetenumstrnr, number, current, item);
  FUZZ_CHECK(istext == onbit(opttype == optTypeEnumStr), at(number));
  if (istext == 1 && item.value() != 0) {
    FUZZ_CHECK(pair.call(optgetenumvalue, coptgetenumvalue, number, item.value(), integer, value) == 1,
               at(number));
    FUZZ_CHECK(wexcorin::struequal(value.text(), current.text()), at(number, value.text()));
  }
}

}  // namespace

void checkoption(tpair& pair, std::int32_t number) {
  tintresult defined, recent, refnr, datatype, opttype, subtype, definedalone, helpflag, group;
  FUZZ_CHECK(pair.callone(optgetinfonr, number, defined, recent, refnr, datatype, opttype, subtype) == 1,
             at(number));
  FUZZ_CHECK(pair.callone(optgetdefinednr, number, definedalone) == 1, at(number));
  FUZZ_CHECK(definedalone.value() == defined.value() && (recent.value() & ~defined.value()) == 0, at(number));
  ttextresult name, rawname, helpname, help, defaulttext;
  FUZZ_CHECK(pair.call(optgetnamenr, coptgetnamenr, number, name) == 1, at(number));
  FUZZ_CHECK(pair.call(optgethelpnr, coptgethelpnr, number, rawname, help) == 1, at(number));
  FUZZ_CHECK(pair.call(optgetopthelpnr, coptgetopthelpnr, number, helpname, helpflag, group) == 1,
             at(number));
  FUZZ_CHECK(name.text() == helpname.text() && name.text().size() == rawname.text().size(),
             at(number, name.text()));
  FUZZ_CHECK(pair.callone(optgetoptgroupnr, number) == group.value(), at(number));
  FUZZ_CHECK(pair.call(optgetdefaultstr, coptgetdefaultstr, number, defaulttext) ==
                 onbit(opttype.value() == optTypeString),
             at(number));
  tintresult low, high, defaultvalue;
  tdblresult dbllow, dblhigh, dbldefault;
  FUZZ_CHECK(pair.callone(optgetboundsint, number, low, high, defaultvalue) ==
                 onbit(opttype.value() == optTypeInteger),
             at(number));
  FUZZ_CHECK(pair.callone(optgetboundsdbl, number, dbllow, dblhigh, dbldefault) ==
                 onbit(opttype.value() == optTypeDouble),
             at(number));
  checkvalues(pair, number, datatype.value(), subtype.value());
  checkname(pair, number, rawname.text());
  checkitems(pair, number, opttype.value());
}

std::string messages(tpair& pair) {
  std::string all;
  ttextresult text;
  tintresult kind;
  for (std::int32_t i = 1; i <= std::min(pair.callone(optmessagecount), 20); ++i) {
    pair.call(optgetmessage, coptgetmessage, i, text, kind);
    all += text.text() + "\n";
  }
  return all;
}

void checkmessages(tpair& pair) {
  const std::int32_t count = pair.callone(optmessagecount);
  ttextresult text;
  tintresult kind, errors, warnings;
  std::array<std::int32_t, 10> kinds{};
  for (std::int32_t i = 1; i <= count; ++i) {
    pair.call(optgetmessage, coptgetmessage, i, text, kind);
    FUZZ_CHECK(fitskind(text.text(), kind.value()), at(kind.value(), text.text()));
    ++kinds[static_cast<std::size_t>(kind.value())];
  }
  for (const std::int32_t beyond : {0, count + 1}) {
    pair.call(optgetmessage, coptgetmessage, beyond, text, kind);
    FUZZ_CHECK(text.text() == "Bad message number = " + std::to_string(beyond - 1), at(beyond, text.text()));
    FUZZ_CHECK(kind.value() == optMsgUserError, at(kind.value()));
  }
  pair.callone(opterrorcount, errors, warnings);
  FUZZ_CHECK(errors.value() == kinds[optMsgDefineError] + kinds[optMsgValueError] + kinds[optMsgTooManyMsgs] +
                                   kinds[optMsgUserError],
             at(errors.value()));
  FUZZ_CHECK(warnings.value() == kinds[optMsgValueWarning] + kinds[optMsgDeprecated], at(warnings.value()));
  FUZZ_CHECK(kinds[optMsgTooManyMsgs] <= 1 && count - kinds[optMsgInputEcho] <= 5001, at(count));
}

namespace {

void checksynonymsandgroups(tpair& pair) {
  ttextresult name, target, help;
  tintresult group, helpflag;
  const std::int32_t synonyms = pair.callone(optsynonymcount);
  for (std::int32_t i = 0; i <= synonyms + 1; ++i)
    FUZZ_CHECK(pair.call(optgetsynonym, coptgetsynonym, i, name, target) == onbit(i >= 1 && i <= synonyms),
               at(i));
  const std::int32_t groups = pair.callone(optgroupcount);
  for (std::int32_t i = 0; i <= groups + 1; ++i) {
    const std::int32_t exists = pair.call(optgetgroupnr, coptgetgroupnr, i, name, group, helpflag, help);
    FUZZ_CHECK(exists == onbit(i >= 1 && i <= groups), at(i));
    if (exists == 0) continue;
    const std::int32_t first = pair.callone(optgetgroupgrpnr, group.value());
    FUZZ_CHECK(first >= 1 && first <= i, at(i, name.text()));
  }
}

void checkdotentries(tpair& pair) {
  ttextresult name, element;
  tintresult option, dimensions, rejected;
  tdblresult value;
  const std::int32_t count = pair.callone(optdotoptcount, rejected);
  for (std::int32_t i = 0; i <= count + 1; ++i) {
    const std::int32_t exists =
        pair.call(optgetdotoptnr, coptgetdotoptnr, i, name, option, dimensions, value);
    FUZZ_CHECK(exists == onbit(i >= 1 && i <= count), at(i));
    FUZZ_CHECK(exists == 0 || (option.value() >= 1 && option.value() <= pair.callone(optcount)), at(i));
    FUZZ_CHECK(dimensions.value() <= 20 || pair.wasfull(), at(i));
    for (std::int32_t d = 0; d <= dimensions.value() + 1; ++d)
      FUZZ_CHECK(pair.call(optgetdotoptuel, coptgetdotoptuel, i, d, element) ==
                     onbit(d >= 1 && d <= dimensions.value()),
                 at(i));
  }
}

void checkindicators(tpair& pair) {
  ttextresult equation, variable, element;
  tintresult equationdims, variabledims, value, rejected;
  const std::int32_t count = pair.callone(optindicatorcount, rejected);
  for (std::int32_t i = 0; i <= count + 1; ++i) {
    const std::int32_t exists = pair.call(optgetindicatornr, coptgetindicatornr, i, equation, variable,
                                          equationdims, variabledims, value);
    FUZZ_CHECK(exists == onbit(i >= 1 && i <= count), at(i));
    FUZZ_CHECK(value.value() == 0 || value.value() == 1, at(i));
    for (std::int32_t d = 0; d <= equationdims.value() + 1; ++d)
      FUZZ_CHECK(pair.call(optgetequindicatornr, coptgetequindicatornr, i, d, element) ==
                     onbit(d >= 1 && d <= equationdims.value()),
                 at(i));
    for (std::int32_t d = 0; d <= variabledims.value() + 1; ++d)
      FUZZ_CHECK(pair.call(optgetvarindicatornr, coptgetvarindicatornr, i, d, element) ==
                     onbit(d >= 1 && d <= variabledims.value()),
                 at(i));
  }
}

}  // namespace

void checkstate(tpair& pair, tscope scope) {
  ttextresult text;
  tintresult integer, helpflag, group;
  const std::int32_t count = pair.callone(optcount);
  for (std::int32_t i = 1; i <= count; ++i) {
    pair.callone(optgetdefinednr, i, integer);
    if (scope == tscope::everything || integer.value() != 0) checkoption(pair, i);
  }
  for (const std::int32_t beyond : {0, count + 1}) {
    FUZZ_CHECK(pair.callone(optgetdefinednr, beyond, integer) == 0 && integer.value() == 0, at(beyond));
    FUZZ_CHECK(pair.call(optgetnamenr, coptgetnamenr, beyond, text) == 0 && text.text().empty(), at(beyond));
    FUZZ_CHECK(pair.call(optgetopthelpnr, coptgetopthelpnr, beyond, text, helpflag, group) == 0, at(beyond));
    FUZZ_CHECK(pair.callone(optgetoptgroupnr, beyond) == -1 && group.value() == -1, at(beyond));
  }
  pair.call(optdefinitionfile, coptdefinitionfile, text);
  checksynonymsandgroups(pair);
  checkdotentries(pair);
  checkindicators(pair);
  checkmessages(pair);
}

}  // namespace fuzzing

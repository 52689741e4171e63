// Handles, the load path, the check of interface version and function signatures, and the two string forms at
// their limits: what arrives of long texts, null pointers, and a result buffer that is also the argument.
#include <iterator>

#include "interface/script.h"

namespace testsupport {
namespace {

std::string loadpath(tform form) {
  std::string path = "old";
  invoke(form, BOTH(getloadpath), path);
  return path;
}

const std::string pathatload = loadpath(tform::zeroterminated);

TEST(lifecycle, createandfree) {
  tvksoptions *first = nullptr, *second = nullptr;
  EXPECT_EQ(xcreate(&first), first);
  EXPECT_EQ(xcreate(&second), second);
  coptaddmessage(first, "only here");
  EXPECT_EQ(optmessagecount(first), 1);
  EXPECT_EQ(optmessagecount(second), 0);
  xfree(&first);
  xfree(&first);  // nothing to free
  EXPECT_EQ(first, nullptr);
  std::int32_t dots = -7, indicators = -7;
  EXPECT_EQ(optcount(second) + optsynonymcount(second) + optgroupcount(second) + coptlookup(second, "Help"),
            -1);
  EXPECT_EQ(optdotoptcount(second, &dots) + optindicatorcount(second, &indicators) + dots + indicators, 0);
  EXPECT_EQ(optrecentenabled(second) + opteolonlyset(second, 0), 2);
  xfree(&second);
}

// One path for the whole process, in whichever form it was set.
TEST(lifecycle, loadpath) {
  EXPECT_EQ(pathatload, "");
  const auto set = [](tform form, auto path) {
    invoke(form, BOTH(setloadpath), path);
    EXPECT_EQ(loadpath(tform::shortstring), loadpath(tform::zeroterminated));
    return loadpath(form);
  };
  const std::string longest(255, 'p');
  EXPECT_EQ(set(tform::shortstring, longest), longest);
  EXPECT_EQ(set(tform::zeroterminated, longest), "PCharToStr Overflow");
  EXPECT_EQ(set(tform::zeroterminated, nullptr), "");
  EXPECT_EQ(set(tform::zeroterminated, "lib"), "lib");
  EXPECT_EQ(set(tform::shortstring, nullptr), "");
}

// The client's version, the result, the kind of agreement, and the message.
TEST(check, compares_the_client_s_version_with_the_library_s) {
  foreachrow(R"(
    2 => 1 1 => API version and library version are the same.
    3 => 1 3 => API version is newer than this library.
    2147483647 => 1 3 => API version is newer than this library.
    1 => 1 2 => Client version is compatible to this version of the library.
    0 => 0 0 => The API is too old for the used library, API version: 0, library version: 2
    -1 => 0 0 => The API is too old for the used library, API version: -1, library version: 2
  )",
             [](thandle& h, const tcolumns& row) {
               std::string message = "old";
               std::int32_t compat = -1;
               const int result =
                   invoke(h.form(), xapiversion, cxapiversion, std::stoi(row[0]), message, compat);
               EXPECT_EQ(std::to_string(result) + ' ' + std::to_string(compat), row[1]);
               EXPECT_EQ(message, row[2]);
             });
}

// Functions as clients declare them: the name, the result's code, those of the arguments after the handle; and
// what differs from the library's. The compiler takes the codes from the functions' types.
TEST(check, tells_which_functions_differ) {
  foreachrow(R"(
    optReadFromPChar 0 10
    optFindStr 3 11 4 4
    optSetValuesNr 3 3 3 13 11
    optCount 3
    optGetValuesNr 3 3 12 4 14 12
    optGetInfoNr 3 3 4 4 4 4 4 4
    optResetAll 0
    optreaddefinition 3 11 => optreaddefinition cannot be found in wexcorin.
    \e 3 => \x20cannot be found in wexcorin.
    xCreate 3 => xCreate cannot be found in wexcorin.
    <254x> 3 => <254x>\x20
    optCount 3 3 => optCount has wrong number of arguments, the API expects 0 but it has 1 in the library.
    optGetValuesNr 3 3 12 4 13 12 => optGetValuesNr has wrong argument type for argument 4
    optFindStr 0 11 3 4 => optFindStr has wrong argument type for argument 0,2
    optFindStr 0 0 0 0 => optFindStr has wrong argument type for argument 0,1,2,3
  )",
             [](thandle& h, const tcolumns& row) {
               std::istringstream words(row[0].substr(row[0].find(' ')));
               const std::vector<std::int32_t> codes{std::istream_iterator<std::int32_t>(words), {}};
               std::string message = "old";
               EXPECT_EQ(invoke(h.form(), xcheck, cxcheck, row[0].substr(0, row[0].find(' ')),
                                static_cast<int>(codes.size()) - 1, codes.data(), message),
                         row[1].empty() ? 1 : 0);
               EXPECT_EQ(message, row[1]);
             });
}

// Zero-terminated texts arrive whole up to 254 characters; a short string holds 255, and zero bytes like any
// other.
TEST(lifecycle, longtexts) {
  thandle h(tform::zeroterminated);
  h.definition(everytype);
  const int note = h.number("note");
  for (const std::size_t length : {254u, 255u, 100000u}) {
    const std::string text(length, 'x');
    h.call(BOTH(setstrnr), note, text);
    EXPECT_EQ(h.value("note"), length < 255 ? text : "PCharToStr Overflow");
  }
  thandle s(tform::shortstring);
  s.definition(everytype);
  const std::string longest = std::string(200, 'x') + std::string(55, 'y');
  for (const std::string& text : {std::string("a\0b", 3), longest}) {
    s.call(BOTH(setstrnr), note, text);
    EXPECT_EQ(s.value("note"), text);
  }
  std::string chars;
  EXPECT_EQ(invoke(tform::zeroterminated, BOTH(getstrnr), s.get(), note, chars), 1);
  EXPECT_EQ(chars, longest);
  // A character buffer is no short string: it is one line of any length.
  h.pchar("note " + std::string(400, ' ') + "end");
  EXPECT_EQ(h.value("note"), "end");
  EXPECT_EQ(told(h), "");
}

TEST(lifecycle, nulltextsareempty) {
  play(everytype, R"(
    readdefinition(null) => 2 ; readparameterfile(null) => 2 ; readfromstr(null) ; readfrompchar(null)
    // The help is the summary, which has no group to show here.
    writeparameterfile(null) => 2 ; addmessage(null) ; showhelp(null)
    told => D Cannot open option file "" | D Error code = 2; No such file or directory
      | E Cannot open parameter file "" | E Error code = 2; No such file or directory
      | E Cannot write parameter file "" | E    Error code = 2; No such file or directory | E  |\x20
    findstr(null) => 0|-1|-1 ; lookup(null) => -1 ; listcountstr(null) => -2
    setstrnr(null) note => 1 ; value note => ; setstr2nr(null) pair => 0 ; setvaluesnr(null) method 1 1 => 0
    told => V Integer expected, for option "pair" saw "" | V Unknown value for option "method" saw ""
      | V    Possible values are  auto Primal two words
  )");
}

// The name may stand in the buffer that receives the text.
TEST(lifecycle, resultoverargument) {
  thandle h;
  h.definition(everytype);
  for (const char* line : {"string_list same", "string_list same", "pair 3 4"}) h.string(line);
  const auto readsecond = [](auto function) {
    return [function](tvksoptions* handle, auto name, auto text) { return function(handle, name, 2, text); };
  };
  const auto over = [&h](std::string text, auto shortform, auto charform) {
    std::string other = text;
    {
      targument<optshortstring*> buffer(text);
      shortform(h.get(), buffer.pass(), buffer.pass());
      targument<char*> otherbuffer(other);
      charform(h.get(), otherbuffer.pass(), otherbuffer.pass());
    }
    return text + '|' + other;
  };
  EXPECT_EQ(over("pair", BOTH(getvalstr)), "3|3");
  EXPECT_EQ(over("pair", BOTH(getval2str)), "4|4");
  EXPECT_EQ(over("nosuch", BOTH(getvalstr)), "|");
  EXPECT_EQ(over("string_list", readsecond(optreadfromliststr), readsecond(coptreadfromliststr)),
            "same|same");
  EXPECT_EQ(over("string_list", BOTH(getfromliststr)), "same|same");
}

// The line is 78 characters wide: component, status, date, version, platform and builds, build code and
// system.
TEST(lifecycle, versionline) {
  inbothforms([](thandle& h) {
    std::string line;
    h.call(BOTH(version), line);
    EXPECT_EQ(line.size(), 78u);
    const std::regex form(
        R"(Option Lib       .{4} \d\d.{3} \S+\.\S+\.\S+ +.{3} \d{4}\.\d{4} .{3} x86_64/Linux {13})");
    EXPECT_TRUE(std::regex_match(line, form)) << line;
  });
}

}  // namespace
}  // namespace testsupport

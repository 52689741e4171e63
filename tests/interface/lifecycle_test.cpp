// Handles, the load path, and the two string forms at their limits: what arrives of long texts, null
// pointers, and a result buffer that is also the argument.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "support/handle.h"

namespace testsupport {
namespace {

std::string loadpath(tform form) {
  std::string path = "old";
  tout out(path);
  if (form == tform::shortstring)
    optgetloadpath(out.asshort());
  else
    coptgetloadpath(out.aschars());
  out.finish(form);
  return path;
}

const std::string pathatload = loadpath(tform::zeroterminated);

TEST(lifecycle, createandfree) {
  tvksoptions* first = nullptr;
  tvksoptions* second = nullptr;
  EXPECT_EQ(xcreate(&first), first);
  EXPECT_EQ(xcreate(&second), second);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  coptaddmessage(first, "only here");
  EXPECT_EQ(optmessagecount(first), 1);
  EXPECT_EQ(optmessagecount(second), 0);
  xfree(&first);
  EXPECT_EQ(first, nullptr);
  xfree(&first);  // nothing to free
  EXPECT_EQ(first, nullptr);
  EXPECT_EQ(optcount(second), 0);
  xfree(&second);
}

TEST(lifecycle, freshstore) {
  inbothforms([](thandle& h) {
    std::int32_t rejected = -7;
    EXPECT_EQ(optcount(h.get()), 0);
    EXPECT_EQ(optsynonymcount(h.get()), 0);
    EXPECT_EQ(optgroupcount(h.get()), 0);
    EXPECT_EQ(optmessagecount(h.get()), 0);
    EXPECT_EQ(optdotoptcount(h.get(), &rejected), 0);
    EXPECT_EQ(rejected, 0);
    rejected = -7;
    EXPECT_EQ(optindicatorcount(h.get(), &rejected), 0);
    EXPECT_EQ(rejected, 0);
    EXPECT_EQ(optrecentenabled(h.get()), 1);
    EXPECT_EQ(opteolonlyset(h.get(), 0), 1);
    EXPECT_EQ(opteolonlyset(h.get(), -2), 0);
    EXPECT_EQ(opteolonlyset(h.get(), 1), 1);
    EXPECT_EQ(h.definitionfile(), "");
    EXPECT_EQ(h.lookup("Help"), -1);
    EXPECT_EQ(h.written(), "");
  });
}

// One path for the whole process, in whichever form it was set.
TEST(lifecycle, loadpath) {
  EXPECT_EQ(pathatload, "");
  const auto isinbothforms = [](const std::string& expected) {
    for (const tform form : bothforms) EXPECT_EQ(loadpath(form), expected) << formname(form);
  };
  const std::string longest(255, 'p');
  optsetloadpath(tin(longest).asshort());
  isinbothforms(longest);
  coptsetloadpath(longest.c_str());
  isinbothforms("PCharToStr Overflow");
  coptsetloadpath(longest.substr(1).c_str());
  isinbothforms(longest.substr(1));
  coptsetloadpath(nullptr);
  isinbothforms("");
  optsetloadpath(tin("lib").asshort());
  isinbothforms("lib");
  optsetloadpath(nullptr);
  isinbothforms("");
}

constexpr const char* definitiontext = R"(maxit integer 1 5 0 10 1 1 Iteration limit
note string 2 none 1 1
names strlist 3 1 1
pair integer.two 4 1 0 10 1 1
method enumstr 5 auto 1 1
 auto 1
)";

TEST(lifecycle, longtexts) {
  thandle h(tform::zeroterminated);
  h.definition(definitiontext);
  const int note = h.number("note");
  for (const std::size_t length : {253u, 254u}) {
    h.setstrnr(note, std::string(length, 'x'));
    EXPECT_EQ(h.value("note"), std::string(length, 'x'));
  }
  for (const std::size_t length : {255u, 256u, 100000u}) {
    h.setstrnr(note, std::string(length, 'x'));
    EXPECT_EQ(h.value("note"), "PCharToStr Overflow");
  }
  EXPECT_EQ(h.readparameterfile(std::string(255, 'x')), ENOENT);
  EXPECT_EQ(h.takemessages().at(0), R"(*** Error Cannot open parameter file "PCharToStr Overflow")");
  h.string(std::string(300, 'x'));
  EXPECT_EQ(joined(h.takemessages()),
            joined({R"(Reading parameter(s) from "string")", R"(*** Error Unknown option "PCharToStr")",
                    R"(Finished reading from "string")"}));

  // A short string holds 255 characters, and all of them come back, in both forms.
  thandle s(tform::shortstring);
  s.definition(definitiontext);
  const std::string longest(255, 'x');
  s.setstrnr(s.number("note"), longest);
  EXPECT_EQ(s.value("note"), longest);
  std::string chars;
  tout out(chars);
  EXPECT_EQ(coptgetstrnr(s.get(), s.number("note"), out.aschars()), 1);
  out.finish(tform::zeroterminated);
  EXPECT_EQ(chars, longest);

  // A character buffer is no short string: it is one line of any length.
  h.pchar("note " + std::string(400, ' ') + "end");
  EXPECT_EQ(h.value("note"), "end");
  h.pchar("note " + std::string(300, 'a') + "z");
  EXPECT_EQ(h.value("note"), std::string(254, 'a') + "z");
  EXPECT_EQ(joined(h.messages()), "");
}

// Zero bytes inside a short string are text like any other.
TEST(lifecycle, zerobytesinshortstrings) {
  thandle h;
  h.definition(definitiontext);
  const std::string text("a\0b", 3);
  h.setstrnr(h.number("note"), text);
  EXPECT_EQ(h.value("note"), text);
}

TEST(lifecycle, nulltextsareempty) {
  const auto check = [](thandle& h, auto null, auto readdefinition, auto readparameters, auto readstr,
                        auto write, auto addmessage, auto showhelp, auto lookup, auto findstr, auto setstr,
                        auto setstr2, auto setvalues, auto listcount, auto setrefnr) {
    h.definition(definitiontext);
    tvksoptions* const raw = h.get();
    EXPECT_EQ(readdefinition(raw, null), ENOENT);
    EXPECT_EQ(readparameters(raw, null), ENOENT);
    readstr(raw, null);
    optreadfrompchar(raw, nullptr);
    EXPECT_EQ(write(raw, null), ENOENT);
    addmessage(raw, null);
    const std::string code = std::string("Error code = 2; ") + std::strerror(ENOENT);
    EXPECT_EQ(joined(h.takemessages()),
              joined({R"(*** Definition Error Cannot open option file "")", "*** Definition Error " + code,
                      R"(*** Error Cannot open parameter file "")", "*** Error " + code,
                      R"(*** Error Cannot write parameter file "")", "*** Error    " + code, "*** Error "}));
    showhelp(raw, null);  // the summary, which has no group to show here
    EXPECT_EQ(joined(h.takemessages()), "\n");
    std::int32_t nr = -7;
    std::int32_t refnr = -7;
    EXPECT_EQ(lookup(raw, null), -1);
    EXPECT_EQ(findstr(raw, null, &nr, &refnr), 0);
    EXPECT_EQ(nr, -1);
    EXPECT_EQ(listcount(raw, null), -2);
    EXPECT_EQ(setrefnr(raw, null, 1), 0);
    EXPECT_EQ(setstr(raw, h.number("note"), null), 1);
    EXPECT_EQ(h.value("note"), "");
    EXPECT_EQ(setstr2(raw, h.number("pair"), null), 0);
    EXPECT_EQ(setvalues(raw, h.number("method"), 1, 1.0, null), 0);
    EXPECT_EQ(joined(h.messages()), joined({R"(*** Value Error Integer expected, for option "pair" saw "")",
                                            R"(*** Value Error Unknown value for option "method" saw "")",
                                            "*** Value Error    Possible values are  auto"}));
  };
  thandle shorts(tform::shortstring);
  check(shorts, static_cast<const optshortstring*>(nullptr), optreaddefinition, optreadparameterfile,
        optreadfromstr, optwriteparameterfile, optaddmessage, optshowhelp, optlookup, optfindstr, optsetstrnr,
        optsetstr2nr, optsetvaluesnr, optlistcountstr, optsetrefnrstr);
  thandle chars(tform::zeroterminated);
  check(chars, static_cast<const char*>(nullptr), coptreaddefinition, coptreadparameterfile, coptreadfromstr,
        coptwriteparameterfile, coptaddmessage, coptshowhelp, coptlookup, coptfindstr, coptsetstrnr,
        coptsetstr2nr, coptsetvaluesnr, coptlistcountstr, coptsetrefnrstr);
}

// The name may stand in the buffer that receives the text.
TEST(lifecycle, resultoverargument) {
  thandle h;
  h.definition(definitiontext);
  h.string("names first");
  h.string("names second");
  h.string("pair 3 4");
  struct trow {
    int where;
    const char* name;
    std::int32_t (*shortform)(tvksoptions*, const optshortstring*, optshortstring*);
    std::int32_t (*charform)(tvksoptions*, const char*, char*);
    const char* expected;
  };
  const trow rows[] = {
      {__LINE__, "pair", optgetvalstr, coptgetvalstr, "3"},
      {__LINE__, "pair", optgetval2str, coptgetval2str, "4"},
      {__LINE__, "nosuch", optgetvalstr, coptgetvalstr, ""},
      {__LINE__, "names",
       [](tvksoptions* raw, const optshortstring* n, optshortstring* v) {
         return optreadfromliststr(raw, n, 2, v);
       },
       [](tvksoptions* raw, const char* n, char* v) { return coptreadfromliststr(raw, n, 2, v); }, "second"},
  };
  for (const trow& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.name);
    std::string text = row.name;
    tout shortbuffer(text);
    optshortstring* const shared = shortbuffer.asshort();
    row.shortform(h.get(), shared, shared);
    shortbuffer.finish(tform::shortstring);
    EXPECT_EQ(text, row.expected);
    text = row.name;
    tout charbuffer(text);
    char* const chars = charbuffer.aschars();
    row.charform(h.get(), chars, chars);
    charbuffer.finish(tform::zeroterminated);
    EXPECT_EQ(text, row.expected);
  }
  std::string text = "names";
  tout buffer(text);
  optshortstring* const shared = buffer.asshort();
  EXPECT_EQ(optgetfromliststr(h.get(), shared, shared), 1);
  buffer.finish(tform::shortstring);
  EXPECT_EQ(text, "first");
}

// The line is 78 characters wide: component, status, date, version, platform and builds, build code and
// system.
TEST(lifecycle, versionline) {
  inbothforms([](thandle& h) {
    const std::string line = h.version();
    ASSERT_EQ(line.size(), 78u);
    EXPECT_EQ(line.substr(0, 17), "Option Lib       ");
    for (const std::size_t at : {21u, 27u, 34u, 38u, 48u, 52u})
      EXPECT_EQ(line[at], ' ') << at << " in " << line;
    const auto digits = [&line](std::size_t at, std::size_t n) {
      return std::all_of(line.begin() + static_cast<std::ptrdiff_t>(at),
                         line.begin() + static_cast<std::ptrdiff_t>(at + n),
                         [](char c) { return c >= '0' && c <= '9'; });
    };
    EXPECT_TRUE(digits(22, 2)) << line;
    EXPECT_EQ(std::count(line.begin() + 28, line.begin() + 34, '.'), 2) << line;
    EXPECT_TRUE(digits(39, 4) && line[43] == '.' && digits(44, 4)) << line;
    EXPECT_EQ(line.substr(53), "x86_64/Linux             ");
  });
}

}  // namespace
}  // namespace testsupport

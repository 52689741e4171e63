// Handles, the load path, and the two string forms at their limits: what arrives of long texts, null
// pointers, and a result buffer that is also the argument.
#include "interface/optiontext.h"

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
  tvksoptions *first = nullptr, *second = nullptr;
  EXPECT_EQ(xcreate(&first), first);
  EXPECT_EQ(xcreate(&second), second);
  EXPECT_NE(first, second);
  coptaddmessage(first, "only here");
  EXPECT_EQ(optmessagecount(first), 1);
  EXPECT_EQ(optmessagecount(second), 0);
  xfree(&first);
  xfree(&first);  // nothing to free
  EXPECT_EQ(first, nullptr);
  EXPECT_EQ(optcount(second), 0);
  xfree(&second);
}

TEST(lifecycle, freshstore) {
  inbothforms([](thandle& h) {
    std::int32_t dots = -7, indicators = -7;
    EXPECT_EQ(optcount(h.get()) + optsynonymcount(h.get()) + optgroupcount(h.get()), 0);
    EXPECT_EQ(optmessagecount(h.get()), 0);
    EXPECT_EQ(optdotoptcount(h.get(), &dots) + optindicatorcount(h.get(), &indicators), 0);
    EXPECT_EQ(dots, 0);
    EXPECT_EQ(indicators, 0);
    EXPECT_EQ(optrecentenabled(h.get()), 1);
    EXPECT_EQ(opteolonlyset(h.get(), 0), 1);
    EXPECT_EQ(h.definitionfile() + h.written(), "");
    EXPECT_EQ(h.lookup("Help"), -1);
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
  coptsetloadpath(nullptr);
  isinbothforms("");
  coptsetloadpath("lib");
  isinbothforms("lib");
  optsetloadpath(nullptr);
  isinbothforms("");
}

// Zero-terminated texts arrive whole up to 254 characters; a short string holds 255, and zero bytes like any
// other.
TEST(lifecycle, longtexts) {
  thandle h(tform::zeroterminated);
  h.definition(everytype);
  const int note = h.number("note");
  for (const std::size_t length : {254u, 255u, 100000u}) {
    const std::string text(length, 'x');
    h.setstrnr(note, text);
    EXPECT_EQ(h.value("note"), length < 255 ? text : "PCharToStr Overflow");
  }
  thandle s(tform::shortstring);
  s.definition(everytype);
  const std::string longest = std::string(200, 'x') + std::string(55, 'y');
  for (const std::string& text : {std::string("a\0b", 3), longest}) {
    s.setstrnr(note, text);
    EXPECT_EQ(s.value("note"), text);
  }
  std::string chars;
  tout out(chars);
  EXPECT_EQ(coptgetstrnr(s.get(), note, out.aschars()), 1);
  out.finish(tform::zeroterminated);
  EXPECT_EQ(chars, longest);
  // A character buffer is no short string: it is one line of any length.
  h.pchar("note " + std::string(400, ' ') + "end");
  EXPECT_EQ(h.value("note"), "end");
  EXPECT_EQ(told(h), "");
}

TEST(lifecycle, nulltextsareempty) {
  const auto check = [](thandle& h, auto null, auto readdefinition, auto readparameters, auto readstr,
                        auto write, auto addmessage, auto showhelp, auto lookup, auto findstr, auto setstr,
                        auto setstr2, auto setvalues, auto listcount, auto setrefnr) {
    h.definition(everytype);
    tvksoptions* const raw = h.get();
    EXPECT_EQ(readdefinition(raw, null), 2);
    EXPECT_EQ(readparameters(raw, null), 2);
    readstr(raw, null);
    optreadfrompchar(raw, nullptr);
    EXPECT_EQ(write(raw, null), 2);
    addmessage(raw, null);
    showhelp(raw, null);  // the summary, which has no group to show here
    EXPECT_EQ(told(h),
              R"(D Cannot open option file "" | D Error code = 2; No such file or directory | )"
              R"(E Cannot open parameter file "" | E Error code = 2; No such file or directory | )"
              R"(E Cannot write parameter file "" | E    Error code = 2; No such file or directory | E  | )");
    optclearmessages(raw);
    std::int32_t nr = -7, refnr = -7;
    EXPECT_EQ(lookup(raw, null), -1);
    EXPECT_EQ(findstr(raw, null, &nr, &refnr), 0);
    EXPECT_EQ(nr, -1);
    EXPECT_EQ(listcount(raw, null), -2);
    EXPECT_EQ(setrefnr(raw, null, 1), 0);
    EXPECT_EQ(setstr(raw, h.number("note"), null), 1);
    EXPECT_EQ(h.value("note"), "");
    EXPECT_EQ(setstr2(raw, h.number("pair"), null), 0);
    EXPECT_EQ(setvalues(raw, h.number("method"), 1, 1.0, null), 0);
    EXPECT_EQ(
        told(h),
        R"(V Integer expected, for option "pair" saw "" | )"
        R"(V Unknown value for option "method" saw "" | V    Possible values are  auto Primal two words)");
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
  h.definition(everytype);
  for (const char* line : {"string_list same", "string_list same", "pair 3 4"}) h.string(line);
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
      {__LINE__, "string_list",
       [](tvksoptions* raw, const optshortstring* n, optshortstring* v) {
         return optreadfromliststr(raw, n, 2, v);
       },
       [](tvksoptions* raw, const char* n, char* v) { return coptreadfromliststr(raw, n, 2, v); }, "same"},
      {__LINE__, "string_list", optgetfromliststr, coptgetfromliststr, "same"},
  };
  for (const trow& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.name);
    for (const tform form : bothforms) {
      std::string text = row.name;
      tout buffer(text);
      if (form == tform::shortstring) {
        optshortstring* const shared = buffer.asshort();
        row.shortform(h.get(), shared, shared);
      } else {
        char* const shared = buffer.aschars();
        row.charform(h.get(), shared, shared);
      }
      buffer.finish(form);
      EXPECT_EQ(text, row.expected);
    }
  }
}

// The line is 78 characters wide: component, status, date, version, platform and builds, build code and
// system.
TEST(lifecycle, versionline) {
  inbothforms([](thandle& h) {
    const std::string line = h.version();
    EXPECT_EQ(line.size(), 78u);
    const std::regex form(
        R"(Option Lib       .{4} \d\d.{3} \S+\.\S+\.\S+ +.{3} \d{4}\.\d{4} .{3} x86_64/Linux {13})");
    EXPECT_TRUE(std::regex_match(line, form)) << line;
  });
}

}  // namespace
}  // namespace testsupport

// Handles, the load path, and the two string forms at their limits: what arrives of long texts, null
// pointers, and a result buffer that is also the argument.
#include "interface/optiontext.h"

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
  inbothforms([](thandle& h) {
    h.definition(everytype);
    EXPECT_EQ(h.call(BOTH(readdefinition), nullptr), 2);
    EXPECT_EQ(h.call(BOTH(readparameterfile), nullptr), 2);
    invoke(h.form(), BOTH(readfromstr), h.get(), nullptr);
    optreadfrompchar(h.get(), nullptr);
    EXPECT_EQ(h.call(BOTH(writeparameterfile), nullptr), 2);
    h.call(BOTH(addmessage), nullptr);
    h.call(BOTH(showhelp), nullptr);  // the summary, which has no group to show here
    EXPECT_EQ(told(h),
              R"(D Cannot open option file "" | D Error code = 2; No such file or directory | )"
              R"(E Cannot open parameter file "" | E Error code = 2; No such file or directory | )"
              R"(E Cannot write parameter file "" | E    Error code = 2; No such file or directory | E  | )");
    optclearmessages(h.get());
    std::int32_t nr = -7, refnr = -7;
    EXPECT_EQ(h.call(BOTH(findstr), nullptr, nr, refnr) + nr + h.call(BOTH(lookup), nullptr) +
                  h.call(BOTH(listcountstr), nullptr),
              -4);
    EXPECT_EQ(h.call(BOTH(setstrnr), h.number("note"), nullptr), 1);
    EXPECT_EQ(h.value("note"), "");
    EXPECT_EQ(h.call(BOTH(setstr2nr), h.number("pair"), nullptr) +
                  h.call(BOTH(setvaluesnr), h.number("method"), 1, 1.0, nullptr),
              0);
    EXPECT_EQ(
        told(h),
        R"(V Integer expected, for option "pair" saw "" | )"
        R"(V Unknown value for option "method" saw "" | V    Possible values are  auto Primal two words)");
  });
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

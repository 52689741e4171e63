// Handles, the load path, the check of interface version and function signatures, and the two string forms at
// their limits: long texts, null pointers, and a result buffer that is also the argument.
#include <iterator>

#include "interface/script.h"

namespace testsupport::lifecycletest {

std::string loadpath() {
  std::string path = "old";
  bothforms::call(BOTH(getloadpath), path);
  return path;
}

const std::string pathatload = loadpath();

TEST(lifecycle, handles_are_independent_and_a_freed_one_is_null) {
  tvksoptions *first = nullptr, *second = nullptr;
  EXPECT_EQ(xcreate(&first), first);
  EXPECT_EQ(xcreate(&second), second);
  coptaddmessage(first, "only here");
  EXPECT_EQ(optmessagecount(first), 1);
  EXPECT_EQ(optmessagecount(second), 0);
  xfree(&first);
  xfree(&first);  // nothing to free
  EXPECT_EQ(first, nullptr);
  xfree(&second);
  play("", {__LINE__, R"(
    count => 0 ; synonymcount => 0 ; groupcount => 0 ; lookup Help => -1 ; dotoptcount => 0|0
    indicatorcount => 0|0 ; recentenabled => 1 ; eolonlyset 0 => 1
  )"});
}

TEST(lifecycle, the_process_has_one_load_path_in_whichever_form_it_was_set) {
  EXPECT_EQ(pathatload, "");
  const auto set = [](auto path) {
    bothforms::call(BOTH(setloadpath), path);
    return loadpath();
  };
  const std::string longest(255, 'p');
  EXPECT_EQ(set(longest), longest);
  coptsetloadpath(longest.c_str());
  EXPECT_EQ(loadpath(), "PCharToStr Overflow");
  EXPECT_EQ(set(nullptr), "");
  EXPECT_EQ(set("lib"), "lib");
  EXPECT_EQ(set(""), "");
}

// A client's version; then the result of the check, its message, and the code for how the versions match.
const taddedstep apiversion("apiversion", [](thandle&, const std::string& version) {
  std::string message = "old";
  std::int32_t compat = -1;
  const int result = bothforms::call(xapiversion, cxapiversion, std::stoi(version), message, compat);
  return std::to_string(result) + '|' + message + '|' + std::to_string(compat);
});

// A function as clients declare it: the name, the code of the result, the codes of the arguments after the
// handle.
const taddedstep check("check", [](thandle&, const std::string& declared) {
  const std::size_t end = declared.find(' ');
  std::istringstream words(declared.substr(end));
  const std::vector<std::int32_t> codes{std::istream_iterator<std::int32_t>(words), {}};
  const int count = static_cast<int>(codes.size()) - 1;
  std::string message = "old";
  const int result = bothforms::call(xcheck, cxcheck, declared.substr(0, end), count, codes.data(), message);
  return std::to_string(result) + '|' + message;
});

// On the library's side the compiler derives the codes from the types of the functions.
const trules agreement("agreement", "", {__LINE__, R"(
    // a client of another version is compatible, too new or too old
    apiversion 2 => 1|API version and library version are the same.|1
    apiversion 3 => 1|API version is newer than this library.|3
    apiversion 1 => 1|Client version is compatible to this version of the library.|2
    apiversion 0 => 0|The API is too old for the used library, API version: 0, library version: 2|0

    // a function matches if the codes of its result and arguments do
    check optReadFromPChar 0 10 => 1| ; check optFindStr 3 11 4 4 => 1| ; check optCount 3 => 1|
    check optSetValuesNr 3 3 3 13 11 => 1| ; check optGetValuesNr 3 3 12 4 14 12 => 1|
    check optGetInfoNr 3 3 4 4 4 4 4 4 => 1| ; check optResetAll 0 => 1|

    // the names of functions are in mixed case
    check optreaddefinition 3 11 => 0|optreaddefinition cannot be found in wexcorin.
    check  3 => 0| cannot be found in wexcorin.
    check xCreate 3 => 0|xCreate cannot be found in wexcorin.
    check <254x> 3 => 0|<254x>\x20

    // the message on a function says what differs
    check optCount 3 3
      => 0|optCount has wrong number of arguments, the API expects 0 but it has 1 in the library.
    check optGetValuesNr 3 3 12 4 13 12 => 0|optGetValuesNr has wrong argument type for argument 4
    check optFindStr 0 11 3 4 => 0|optFindStr has wrong argument type for argument 0,2
    check optFindStr 0 0 0 0 => 0|optFindStr has wrong argument type for argument 0,1,2,3
)"});

// A short string may hold zero bytes like any other.
TEST(texts, arrive_whole_up_to_254_characters_and_up_to_255_as_short_strings) {
  play(everytype, "setstrnr note <254x> ; value note => <254x>");
  thandle h;
  h.definition(everytype);
  const int note = h.number("note");
  for (const std::size_t length : {255u, 100000u}) {
    for (const int form : {0, 1}) coptsetstrnr(h.handle(form), note, std::string(length, 'x').c_str());
    EXPECT_EQ(h.value("note"), "PCharToStr Overflow");
  }
  const std::string longest = std::string(200, 'x') + std::string(55, 'y');
  for (const std::string& text : {std::string("a\0b", 3), longest}) {
    h.call(BOTH(setstrnr), note, text);
    EXPECT_EQ(h.value("note"), text);
  }
}

// The request for help gives the summary, which has no group here.
const trules nulltexts("texts", everytype, {__LINE__, R"(
    // null stands for an empty file name
    readdefinition(null) => 2 ; readparameterfile(null) => 2 ; writeparameterfile(null) => 2
    told => D Cannot open option file "" | D Error code = 2; No such file or directory
      | E Cannot open parameter file "" | E Error code = 2; No such file or directory
      | E Cannot write parameter file "" | E    Error code = 2; No such file or directory

    // null stands for an empty text, message or request
    readfromstr(null) ; readfrompchar(null) ; addmessage(null) ; showhelp(null) ; told => E  |\x20

    // null stands for an empty option name
    findstr(null) => 0|-1|-1 ; lookup(null) => -1 ; listcountstr(null) => -2

    // null stands for an empty value
    setstrnr(null) note => 1 ; value note => ; setstr2nr(null) pair => 0 ; setvaluesnr(null) method 1 1 => 0
    told => V Integer expected, for option "pair" saw "" | V Unknown value for option "method" saw ""
      | V    Possible values are  auto Primal two words
)"});

TEST(texts, a_name_may_stand_in_the_buffer_that_receives_the_text) {
  thandle h;
  h.definition(everytype);
  for (const char* line : {"string_list same", "string_list same", "pair 3 4"}) h.string(line);
  const auto over = [&h](const char* name, auto shortform, auto charform, auto... index) {
    bothforms::ttext text(name, true);
    h.call(shortform, charform, text, index..., text);
    return text.text();
  };
  EXPECT_EQ(over("pair", BOTH(getvalstr)), "3");
  EXPECT_EQ(over("pair", BOTH(getval2str)), "4");
  EXPECT_EQ(over("nosuch", BOTH(getvalstr)), "");
  EXPECT_EQ(over("string_list", BOTH(readfromliststr), 2), "same");
  EXPECT_EQ(over("string_list", BOTH(getfromliststr)), "same");
}

// Component, status, date, version, platform and builds, build code and system.
TEST(lifecycle, the_version_line_is_78_characters_wide) {
  thandle h;
  std::string line;
  h.call(BOTH(version), line);
  EXPECT_EQ(line.size(), 78u);
  const std::regex expected(
      R"(Option Lib       .{4} \d\d.{3} \S+\.\S+\.\S+ +.{3} \d{4}\.\d{4} .{3} x86_64/Linux {13})");
  EXPECT_TRUE(std::regex_match(line, expected)) << line;
}

}  // namespace testsupport::lifecycletest

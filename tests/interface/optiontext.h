// What the reader tests compare after a piece of option text was read: the messages without the notes on
// entering and leaving a source, and the options that hold a value of their own.
#pragma once

#include <algorithm>
#include <regex>
#include <sstream>
#include <string>

#include "support/handle.h"

namespace testsupport {

// Options of every type; two that switch the checking of bounds, dot options and a keyword of indicators.
inline constexpr const char* everytype =
    "maxit integer 1 5 0 10 1 1\nbig_step double 2 0.5 0 1e20 1 1\nnote string 3 none 1 1\n"
    "flag boolean 4 0 1 1\nmethod enumstr 5 auto 1 1\n auto 1\n Primal 1\n \"two words\" 1\n"
    "level enumint 6 1 1 1\n 1 1\n 2 1\nquiet integer.nv 7 1 0 1 1 1\ntrace integer.opt 8 4 0 9 1 1\n"
    "pair integer.two 9 1 0 10 1 1\nspan double.two 10 0 mindouble maxdouble 1 1\n"
    "both enumstr.two 11 a 1 1\n a 1\n \"b c\" 1\nstring_list strlist 12 1 1\nwords multilist 13 1 1\n"
    " maxit note\nall macro 1 1\n maxit\n flag\nlimits immediate NoBounds 1 1\n"
    "free immediate NoBounds 1 1\n.prior double 14 1 0 100 1 1\n.mark integer 15 1 0 9 1 1\n"
    "indic indicator\n";

// A message in few characters: "E3 text" is "*** Error line 3: text", "E text" one without a line; V is a
// value error, W a warning, D a definition error. "+name" and "-name" are the notes on entering and leaving a
// source.
inline std::string brief(const std::string& message) {
  static const std::regex head(
      R"(\*\*\* (?:(E)rror|(V)alue Error|(W)arning|(D)efinition Error) (?:line (\d+): )?)");
  static const std::regex enter(R"~(Reading parameter\(s\) from "([^"]*)")~");
  static const std::regex leave(R"~(Finished reading from "([^"]*)")~");
  std::smatch parts;
  if (std::regex_match(message, parts, enter)) return '+' + parts[1].str();
  if (std::regex_match(message, parts, leave)) return '-' + parts[1].str();
  return std::regex_replace(message, head, "$1$2$3$4$5 ", std::regex_constants::match_continuous);
}

// All messages, " | " between them; of equal texts one after the other the heads only: "E1 E2 text".
inline std::string told(thandle& handle, bool notes = true) {
  std::string result, before;
  for (const std::string& message : handle.messages()) {
    const std::string text = brief(message);
    if (!notes && (text[0] == '+' || text[0] == '-')) continue;
    const std::string tail = text.substr(std::min(text.find(' '), text.size()));
    if (!tail.empty() && tail == before)
      result.insert(result.size() - tail.size(), ' ' + text.substr(0, text.size() - tail.size()));
    else
      result += (result.empty() ? "" : " | ") + text;
    before = tail;
  }
  return result;
}

inline std::string problems(thandle& handle) { return told(handle, false); }

// "name=value" for each option with a defined value, in definition order: "a=1 two=3,- l=[x|y]". A second
// value stands after a comma; "-" is a value that was not set.
inline std::string settings(thandle& handle) {
  std::string result;
  for (std::int32_t nr = 1; nr <= optcount(handle.get()); ++nr) {
    std::int32_t defined = 0, recent = 0, refnr = 0, datatype = 0, opttype = 0, subtype = 0;
    optgetinfonr(handle.get(), nr, &defined, &recent, &refnr, &datatype, &opttype, &subtype);
    if (defined == 0) continue;
    std::string name, text;
    handle.call(BOTH(gethelpnr), nr, name, text);
    result += (result.empty() ? "" : " ") + name + '=';
    if (opttype == optTypeStrList) {
      result += '[';
      for (int index = 1; handle.call(BOTH(readfromliststr), name, index, text) == 1; ++index)
        result += (index > 1 ? "|" : "") + text;
      result += ']';
      continue;
    }
    handle.call(BOTH(getstrnr), nr, text);
    result += (defined & 1) != 0 ? text : "-";
    if (subtype != optsub2Values) continue;
    handle.call(BOTH(getstr2nr), nr, text);
    result += ',' + ((defined & 2) != 0 ? text : "-");
  }
  return result;
}

// Rows of a file that is read with the definition, what it sets, and what is told; before it "eol" for
// end-of-line reading, "any" for both, else a word.
inline void checkreading(const char* definition, const char* table, bool notes = false) {
  foreachrow(table, [&](thandle& h, const tcolumns& row) {
    EXPECT_EQ(h.definition(definition), 0);
    optclearmessages(h.get());
    opteolonlyset(h.get(), row[0] == "eol" ? 1 : 0);
    EXPECT_EQ(h.parameters(row[1]), 0);
    EXPECT_EQ(settings(h), row[2]);
    EXPECT_EQ(told(h, notes), row[3]);
  });
}

}  // namespace testsupport

// Scenes of calls and answers, written as text. A step is the name of a function without "opt", its arguments
// and, after "=>", its result and outputs with bars between. " ; " separates steps on a line. An option's
// number may be given by its name, and the last text argument takes the rest of the step. Before the call,
// outputs have the values -7, -7.5 and "old". Further steps are defined in script.cpp and in the files of
// tests.
#pragma once

#include <algorithm>
#include <functional>
#include <regex>
#include <sstream>

#include "support/handle.h"

namespace testsupport {

// Reads the definition, unless it is empty, and does the steps. With rows it does this for each row, whose
// columns replace "$1" to "$6" in the steps.
void play(const std::string& definition, const ttable& steps);
void play(const std::string& definition, const ttable& steps, const ttable& rows);

// Tests, one for each comment. The lines below the comment are rows or, if no steps are given, steps.
struct trules : ttests {
  trules(const char* suite, const std::string& definition, const ttable& table);
  trules(const char* suite, const std::string& definition, const ttable& steps, const ttable& table);
};

// Steps for rows of four columns: the mode (1 for end-of-line reading), a parameter file, what it sets, and
// its messages without the notes on entering and leaving.
inline constexpr const char* reading = "eolonlyset $1 ; parameters $2 => 0 ; settings => $3 ; problems => $4";

// A step: a function from the argument to the answer.
using tstep = std::function<std::string(thandle& handle, const std::string& argument)>;
struct taddedstep {
  taddedstep(const char* name, tstep step);
};

// A message in short form: "E3 text" is "*** Error line 3: text", "E text" an error without a line; V is a
// value error, W a warning, D a definition error. "+name" and "-name" are the notes on entering and leaving a
// source.
std::string brief(const std::string& message);
// All messages, or all but the notes, with " | " between them. Of successive messages with the same text only
// the beginnings are repeated: "E1 E2 text".
std::string told(thandle& handle, bool notes = true);
// "name=value" for each option with a defined value, in definition order: "a=1 two=3,- l=[x|y]". A second
// value stands after a comma; "-" is a value that was not set.
std::string settings(thandle& handle);

}  // namespace testsupport

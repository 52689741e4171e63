// Scenes of calls and answers, written as text. A step is the name of a function without "opt", its arguments
// and, after "=>", its result and outputs with bars between; " ; " stands between steps on a line. An
// argument that is a number of an option may be its name, and the last text takes the rest of the step.
// Outputs hold -7, -7.5 and "old" before. Besides the functions there are the steps of script.cpp and those
// that a file of tests adds.
#pragma once

#include <algorithm>
#include <functional>
#include <regex>
#include <sstream>

#include "support/handle.h"

namespace testsupport {

// Reads the definition, unless it is empty, and takes the steps; with rows once for each row, whose columns
// stand where the steps have "$1" to "$6".
void play(const std::string& definition, const ttable& steps);
void play(const std::string& definition, const ttable& steps, const ttable& rows);

// Tests that are played: the lines below a comment as rows or, without steps, as steps.
struct trules : ttests {
  trules(const char* suite, const std::string& definition, const ttable& table);
  trules(const char* suite, const std::string& definition, const ttable& steps, const ttable& table);
};

// For rows of a mode, 1 for end-of-line reading, a parameter file, what it sets, and what is told but for the
// notes on entering and leaving.
inline constexpr const char* reading = "eolonlyset $1 ; parameters $2 => 0 ; settings => $3 ; problems => $4";

// A step: what it answers to its argument.
using tstep = std::function<std::string(thandle& handle, const std::string& argument)>;
struct taddedstep {
  taddedstep(const char* name, tstep step);
};

// A message in few characters: "E3 text" is "*** Error line 3: text", "E text" one without a line; V is a
// value error, W a warning, D a definition error. "+name" and "-name" are the notes on entering and leaving a
// source.
std::string brief(const std::string& message);
// All messages, or all but the notes, " | " between them; of equal texts one after the other the heads only:
// "E1 E2 text".
std::string told(thandle& handle, bool notes = true);
// "name=value" for each option with a defined value, in definition order: "a=1 two=3,- l=[x|y]". A second
// value stands after a comma; "-" is a value that was not set.
std::string settings(thandle& handle);

}  // namespace testsupport

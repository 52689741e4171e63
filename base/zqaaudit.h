// Release data and the audit line: one fixed-width line that names the component, its release status and
// date, version, build and platform. All of it is module state that the start of the unit sets.
#pragma once

#include <cstdint>
#include <string_view>

namespace optcore {

// The start sets every value below and empties both audit lines; the stop empties all of it.
void zqaauditstart();
void zqaauditstop();

// The audit line as the library registers it: 77 characters, a mark of six characters at either end included.
std::string_view zqaauditregistration();

// Store what lies between the first six and the last six characters, padded with blanks or cut to 78. The
// first sets the library's line; the second sets the line that goes before it, and the system name with it.
void zqasetauditlinelib(std::string_view text);
void zqasetauditline(std::string_view text);

// The audit line if one is set, else the library's.
std::string_view zqagetauditline();

bool zqaisalfa();
bool zqaisbeta();
std::string_view zqagetrel();      // major.minor
std::string_view zqagetvid();      // platform code and version, a dash, system version
double zqagetver();                // the system version as a number
std::string_view zqagetsysname();  // 16 characters
std::string_view zqagetreldat();   // 12 characters: status and date of the release
std::string_view zqagetblddat();   // 12 characters
std::string_view zqagetbldcod();   // 3 characters
std::string_view zqagethdr();      // 22 characters: the platform in words
std::string_view zqagetcod();      // 3 characters
std::string_view zqagetcpr();      // 70 characters: the notice

// Day numbers, 1 January 1900 being day 1: the release, and the day before the start of the unit.
std::int32_t zqagetjul();
std::int32_t zqagettoday();

// Whether a parameter asks for the audit line: AUDIT in any case.
bool zqaisauditword(std::string_view parameter);

// Whether the first command-line parameter of the process does. The file holds the parameters, a zero byte
// behind each.
bool zqaauditrun(const char* commandline = "/proc/self/cmdline");

}  // namespace optcore

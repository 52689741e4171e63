// The routines of the release data unit (see zqaaudit.h) that neither the library nor the tool calls. They
// are kept for programs that are linked with the library's objects.
#pragma once

#include <cstdint>
#include <string_view>

namespace optcore {

// Sets the audit line that takes precedence over the library's. The text is treated as by zqasetauditlinelib.
// The system name becomes the first 16 characters of the line.
void zqasetauditline(std::string_view text);

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

// Day numbers, with 1 January 1900 as day 1: of the release, and of the day before the unit was started.
std::int32_t zqagetjul();
std::int32_t zqagettoday();

// Whether a parameter asks for the audit line: the word AUDIT, regardless of case.
bool zqaisauditword(std::string_view parameter);

// Whether the first command-line parameter of the process asks for the audit line. `commandline` names a file
// with the program's name and its parameters, each followed by a zero byte.
bool zqaauditrun(const char* commandline = "/proc/self/cmdline");

}  // namespace optcore

// The rest of the unit of release data: neither the library nor the tool calls these; programs that are built
// with the objects may.
#pragma once

#include <cstdint>
#include <string_view>

namespace optcore {

// Sets the line that goes before the library's, as zqasetauditlinelib does, and the system name to its first
// 16 characters.
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

// Day numbers, 1 January 1900 being day 1: the release, and the day before the start of the unit.
std::int32_t zqagetjul();
std::int32_t zqagettoday();

// Whether a parameter asks for the audit line: AUDIT in any case.
bool zqaisauditword(std::string_view parameter);

// Whether the first command-line parameter of the process does. The file holds the parameters, a zero byte
// behind each.
bool zqaauditrun(const char* commandline = "/proc/self/cmdline");

}  // namespace optcore

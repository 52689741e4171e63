// What one process shares among all handles.
#include "options/globals.h"

#include "base/shortstring.h"
#include "base/zqaaudit.h"

namespace optcore {

namespace {

constexpr int osfamily = 4;
constexpr char separators[] = {';', '/', '/', '\\', ':', '?'};  // by operating-system family

char separator = '\0';

// Made on first use: the unit may be started before this file's own globals are.
shortstring& loadpathtext() {
  static shortstring path;
  return path;
}

}  // namespace

void vksoptionsstart() {
  zqasetauditlinelib(zqaauditregistration());
  loadpathtext().clear();
  separator = separators[osfamily];
}

void vksoptionsstop() {
  loadpathtext().clear();
  separator = '\0';
}

std::string_view loadpath() { return loadpathtext(); }
void setloadpath(std::string_view path) { loadpathtext().assign(path); }
char charpath() { return separator; }

}  // namespace optcore

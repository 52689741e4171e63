// The global state of the option store: the load path, and the separator of path lists.
#include "options/globals.h"

#include "base/shortstring.h"
#include "base/zqaaudit.h"

namespace optcore {

namespace {

constexpr int osfamily = 4;
constexpr char separators[] = {';', '/', '/', '\\', ':', '?'};  // by operating-system family

char separator = '\0';

// Constructed on first use, because the unit may be started before the globals of this file are constructed.
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

// The routines of the release data unit that neither the library nor the tool calls: single release data, the
// audit line that takes precedence, and whether the command line asks for it.
#include "base/zqaauditmore.h"

#include <cstdio>
#include <memory>
#include <string>

#include "base/numtext.h"
#include "base/textcase.h"
#include "base/zqaauditstate.h"
#include "release.h"

namespace optcore {

void zqasetauditline(std::string_view text) {
  tauditstate& state = zqaauditstate();
  state.auditline = zqabetweenmarks(text);
  state.systemname = state.auditline.view().substr(0, zqasystemnamelength);
}

bool zqaisalfa() { return zqaauditstate().reldat.view().substr(0, 4) == "ALFA"; }
bool zqaisbeta() { return zqaauditstate().reldat.view().substr(0, 4) == "BETA"; }
std::string_view zqagetrel() { return zqaauditstate().rel; }
std::string_view zqagetvid() { return zqaauditstate().vid; }
std::string_view zqagetsysname() { return zqaauditstate().systemname; }
std::string_view zqagetreldat() { return zqaauditstate().reldat; }
std::string_view zqagetblddat() { return release::builddate; }
std::string_view zqagetbldcod() { return release::buildcode; }
std::string_view zqagethdr() { return zqaauditstate().hdr; }
std::string_view zqagetcod() { return release::platformcode; }
std::string_view zqagetcpr() { return zqaauditstate().cpr; }
std::int32_t zqagetjul() { return zqaauditstate().jul; }
std::int32_t zqagettoday() { return zqaauditstate().today; }

double zqagetver() {
  double version = 0.0;
  strasdoubleex(zqaauditstate().sysver, version);
  return version;
}

bool zqaisauditword(std::string_view parameter) { return struequal(parameter, "AUDIT"); }

bool zqaauditrun(const char* commandline) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(commandline, "rb"), std::fclose);
  if (file == nullptr) return false;
  // index 0 is the program's own name
  std::string parameter;
  std::int32_t index = 0;
  for (int character = std::getc(file.get()); character != EOF; character = std::getc(file.get())) {
    if (character != 0) {
      if (index == 1) parameter += static_cast<char>(character);
      continue;
    }
    if (index++ == 1) return zqaisauditword(parameter);
  }
  return false;
}

}  // namespace optcore

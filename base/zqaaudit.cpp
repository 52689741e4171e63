// Release data and the audit line.
#include "base/zqaaudit.h"

#include <cstdio>
#include <ctime>
#include <memory>
#include <string>

#include "base/numtext.h"
#include "base/shortstring.h"
#include "base/strutilx.h"
#include "release.h"

namespace optcore {

namespace {

constexpr std::int32_t auditlinelength = 78;
constexpr std::int32_t systemnamelength = 16;
constexpr std::size_t marklength = 6;  // at either end of a registered line
constexpr std::string_view platformname = "x86_64/Linux";

struct tauditstate {
  shortstring systemname, reldat, hdr, cpr, rel, vid, sysver, registration;
  shortstring auditline, auditlinelib;
  std::int32_t jul = 0, today = 0;
};
// Made on first use: the unit may be started before this file's own globals are.
tauditstate& state() {
  static tauditstate theone;
  return theone;
}

// Days from 1 January 1900 (day 1) to a day of the Gregorian calendar, the year beginning in March so that
// the leap day is its last.
std::int32_t daynumber(std::int32_t year, std::int32_t month, std::int32_t day) {
  if (month <= 2) {
    --year;
    month += 12;
  }
  const std::int32_t days =
      365 * year + year / 4 - year / 100 + year / 400 + (153 * (month - 3) + 2) / 5 + day;
  constexpr std::int32_t daybefore1900 = 365 * 1899 + 1899 / 4 - 1899 / 100 + 1899 / 400 + 306;
  return days - daybefore1900;
}

std::int32_t daybeforenow() {
  constexpr std::int64_t secondsperday = 86400;
  const std::int64_t now = std::time(nullptr);
  return static_cast<std::int32_t>((now - secondsperday) / secondsperday) + daynumber(1970, 1, 1);
}

shortstring betweenmarks(std::string_view text) {
  const std::string_view kept = text.size() < 2 * marklength
                                    ? std::string_view()
                                    : text.substr(marklength, text.size() - 2 * marklength);
  return padright(kept.substr(0, auditlinelength), auditlinelength);
}

shortstring makeregistration() {
  return concat("_VELK_", padright("Option Lib", 17).view(), release::status, " ",
                release::releasedate.substr(0, 5), " ", release::major, ".", release::minor, ".",
                release::gold, " ", release::platformcode, " ", release::buildnumbers, " ",
                release::buildcode, " ", platformname, "_BUILD");
}

}  // namespace

void zqaauditstart() {
  state().systemname = padright("Uninitialized", systemnamelength);
  state().reldat = concat(release::status, " ", release::releasedate);
  state().hdr = padright(platformname, 22);
  state().cpr = padright(release::notice, 70);
  state().rel = concat(release::major, ".", release::minor);
  state().sysver = concat(release::major, release::minor);
  state().vid = concat(release::platformcode, state().sysver.view(), "-", state().sysver.view());
  state().registration = makeregistration();
  state().auditline.clear();
  state().auditlinelib.clear();
  state().jul = daynumber(release::year, release::month, release::day);
  state().today = daybeforenow();
}

void zqaauditstop() { state() = tauditstate(); }

std::string_view zqaauditregistration() { return state().registration; }

void zqasetauditlinelib(std::string_view text) { state().auditlinelib = betweenmarks(text); }

void zqasetauditline(std::string_view text) {
  state().auditline = betweenmarks(text);
  state().systemname = state().auditline.view().substr(0, systemnamelength);
}

std::string_view zqagetauditline() {
  return state().auditline.empty() ? state().auditlinelib.view() : state().auditline.view();
}

bool zqaisalfa() { return state().reldat.view().substr(0, 4) == "ALFA"; }
bool zqaisbeta() { return state().reldat.view().substr(0, 4) == "BETA"; }
std::string_view zqagetrel() { return state().rel; }
std::string_view zqagetvid() { return state().vid; }
std::string_view zqagetsysname() { return state().systemname; }
std::string_view zqagetreldat() { return state().reldat; }
std::string_view zqagetblddat() { return release::builddate; }
std::string_view zqagetbldcod() { return release::buildcode; }
std::string_view zqagethdr() { return state().hdr; }
std::string_view zqagetcod() { return release::platformcode; }
std::string_view zqagetcpr() { return state().cpr; }
std::int32_t zqagetjul() { return state().jul; }
std::int32_t zqagettoday() { return state().today; }

double zqagetver() {
  double version = 0.0;
  strasdoubleex(state().sysver, version);
  return version;
}

bool zqaisauditword(std::string_view parameter) { return struequal(parameter, "AUDIT"); }

bool zqaauditrun(const char* commandline) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(commandline, "rb"), std::fclose);
  if (file == nullptr) return false;
  // the first one is the program's own name
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

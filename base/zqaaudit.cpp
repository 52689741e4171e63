// Release data and the audit line.
#include "base/zqaaudit.h"

#include <ctime>

#include "base/shortstring.h"
#include "base/strutilx.h"
#include "base/zqaauditstate.h"
#include "release.h"

namespace optcore {

namespace {

constexpr std::int32_t auditlinelength = 78;
constexpr std::size_t marklength = 6;  // at either end of a registered line
constexpr std::string_view platformname = "x86_64/Linux";

// The day number of a date of the Gregorian calendar, with 1 January 1900 as day 1. The year begins in March
// here, so that a leap day is its last day.
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

shortstring makeregistration() {
  return concat("_VELK_", padright("Option Lib", 17).view(), release::status, " ",
                release::releasedate.substr(0, 5), " ", release::major, ".", release::minor, ".",
                release::gold, " ", release::platformcode, " ", release::buildnumbers, " ",
                release::buildcode, " ", platformname, "_BUILD");
}

}  // namespace

// Constructed on first use, because the unit may be started before the globals of this file are constructed.
tauditstate& zqaauditstate() {
  static tauditstate theone;
  return theone;
}

shortstring zqabetweenmarks(std::string_view text) {
  const std::string_view kept = text.size() < 2 * marklength
                                    ? std::string_view()
                                    : text.substr(marklength, text.size() - 2 * marklength);
  return padright(kept.substr(0, auditlinelength), auditlinelength);
}

void zqaauditstart() {
  tauditstate& state = zqaauditstate();
  state.systemname = padright("Uninitialized", zqasystemnamelength);
  state.reldat = concat(release::status, " ", release::releasedate);
  state.hdr = padright(platformname, 22);
  state.cpr = padright(release::notice, 70);
  state.rel = concat(release::major, ".", release::minor);
  state.sysver = concat(release::major, release::minor);
  state.vid = concat(release::platformcode, state.sysver.view(), "-", state.sysver.view());
  state.registration = makeregistration();
  state.auditline.clear();
  state.auditlinelib.clear();
  state.jul = daynumber(release::year, release::month, release::day);
  state.today = daybeforenow();
}

void zqaauditstop() { zqaauditstate() = tauditstate(); }

std::string_view zqaauditregistration() { return zqaauditstate().registration; }

void zqasetauditlinelib(std::string_view text) { zqaauditstate().auditlinelib = zqabetweenmarks(text); }

std::string_view zqagetauditline() {
  const tauditstate& state = zqaauditstate();
  return state.auditline.empty() ? state.auditlinelib.view() : state.auditline.view();
}

}  // namespace optcore

// The option store: the owner of all parts of one handle. It is kept thin: the definition, messages, dot
// entries and indicators are classes of their own in this folder, the readers are in input/ and the writers in
// output/.
//
// The methods with the prefix opt are those of the interface, and follow the conventions of the public
// header. Each is one line, which passes a part or an option to the function that does the work; what it does
// is said where that function is declared. Option and message numbers count from 1. Text results are written
// to the caller's buffer. The outputs of a failed query are part of its contract, too.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "base/textout.h"
#include "base/zqaaudit.h"
#include "options/definition.h"
#include "options/descriptions.h"
#include "options/dotoptions.h"
#include "options/indicators.h"
#include "options/messages.h"
#include "options/observer.h"
#include "options/stringlists.h"
#include "options/symbolqueries.h"
#include "options/values.h"

namespace optcore {

class tvksoptions : public toptionx {
 public:
  tvksoptions() : toptionx(0, {}) {}

  // ---- the parts
  tdefinition& definition() noexcept { return fdefinition; }
  const tdefinition& definition() const noexcept { return fdefinition; }
  tmessagelist& messages() noexcept { return fmessages; }
  const tmessagelist& messages() const noexcept { return fmessages; }
  tdotobjlist& dotoptions() noexcept { return fdotoptions; }
  const tdotobjlist& dotoptions() const noexcept { return fdotoptions; }
  tindicatorlist& indicators() noexcept { return findicators; }
  const tindicatorlist& indicators() const noexcept { return findicators; }

  // ---- reading and writing: each is defined in input/ or output/, beside the function that does the work
  std::int32_t optreaddefinition(std::string_view filename);
  std::int32_t optreadparameterfile(std::string_view filename);
  void optreadfromstr(std::string_view text);
  void optreadfrompchar(const char* text);
  std::int32_t optwriteparameterfile(std::string_view filename);
  // Returns what it has cost, see thelplisting::cost.
  std::int64_t optshowhelp(std::string_view hlpmsg);

  // ---- messages
  void optaddmessage(std::string_view text) { fmessages.addmessage(tmsgkind::usererror, text); }
  void optgetmessage(std::int32_t nr, ttextout text, std::int32_t& kind) const {
    fmessages.get(nr, text, kind);
  }
  void optclearmessages() { fmessages.clear(); }
  std::int32_t optmessagecount() const noexcept { return fmessages.count(); }
  void opterrorcount(std::int32_t& errors, std::int32_t& warnings) const noexcept {
    fmessages.getcounts(errors, warnings);
  }

  // ---- resetting
  void optresetall() { fdefinition.resetoptions(); }
  // Clear the recent bits of all options. Both do the same.
  void optresetallrecent() { fdefinition.clearrecent(); }
  void optresetrecentchanges() { fdefinition.clearrecent(); }
  bool optresetnr(std::int32_t nr) { return reset(at(nr)); }

  // ---- lookup
  std::int32_t optlookup(std::string_view name) const { return fdefinition.optlookup(name); }
  const toption* optionasobj(std::string_view name) const { return fdefinition.optionasobj(name); }
  toption* optionasobj(std::string_view name) { return fdefinition.optionasobj(name); }
  bool optfindstr(std::string_view name, std::int32_t& nr, std::int32_t& refnr) const {
    return findoption(fdefinition, name, nr, refnr);
  }
  std::int32_t getcount() const noexcept { return fdefinition.getcount(); }
  std::int32_t getgroupcount() const noexcept { return fdefinition.groups().count(); }
  std::int32_t optsynonymcount() const noexcept { return fdefinition.synonyms().count(); }

  // ---- values by number (values.h)
  bool optgetvaluesnr(std::int32_t nr, ttextout name, std::int32_t& ival, double& dval, ttextout sval) const {
    return getvalues(at(nr), name, ival, dval, sval);
  }
  bool optsetvaluesnr(std::int32_t nr, std::int32_t ival, double dval, std::string_view sval) {
    return setvalues(at(nr), twhich::first, ival, dval, sval);
  }
  bool optsetvalues2nr(std::int32_t nr, std::int32_t ival, double dval, std::string_view sval) {
    return setvalues(at(nr), twhich::second, ival, dval, sval);
  }
  bool optgetintnr(std::int32_t nr, std::int32_t& ival) const {
    return getinteger(at(nr), twhich::first, ival);
  }
  bool optgetint2nr(std::int32_t nr, std::int32_t& ival) const {
    return getinteger(at(nr), twhich::second, ival);
  }
  bool optsetintnr(std::int32_t nr, std::int32_t ival) { return setinteger(at(nr), twhich::first, ival); }
  bool optsetint2nr(std::int32_t nr, std::int32_t ival) { return setinteger(at(nr), twhich::second, ival); }
  bool optgetdblnr(std::int32_t nr, double& dval) const { return getdouble(at(nr), twhich::first, dval); }
  bool optgetdbl2nr(std::int32_t nr, double& dval) const { return getdouble(at(nr), twhich::second, dval); }
  bool optsetdblnr(std::int32_t nr, double dval) { return setdouble(at(nr), twhich::first, dval); }
  bool optsetdbl2nr(std::int32_t nr, double dval) { return setdouble(at(nr), twhich::second, dval); }
  bool optgetstrnr(std::int32_t nr, ttextout sval) const { return gettext(at(nr), twhich::first, sval); }
  bool optgetstr2nr(std::int32_t nr, ttextout sval) const { return gettext(at(nr), twhich::second, sval); }
  bool optsetstrnr(std::int32_t nr, std::string_view sval) { return settext(at(nr), twhich::first, sval); }
  bool optsetstr2nr(std::int32_t nr, std::string_view sval) { return settext(at(nr), twhich::second, sval); }

  // ---- values by name (values.h), texts of string lists (stringlists.h)
  bool optgetvalstr(std::string_view name, ttextout value) const {
    return gettext(optionasobj(name), twhich::first, value);
  }
  bool optgetval2str(std::string_view name, ttextout value) const {
    return gettext(optionasobj(name), twhich::second, value);
  }
  tvaluetext getasstring(std::string_view name) const { return textof(optionasobj(name), twhich::first); }
  void setasstring(std::string_view name, std::string_view text) { setnamed(optionasobj(name), name, text); }
  std::int32_t optlistcountstr(std::string_view name) const { return listcount(optionasobj(name)); }
  std::int32_t optreadfromliststr(std::string_view name, std::int32_t index, ttextout value) const {
    return readfromlist(optionasobj(name), index, value);
  }
  std::int32_t optgetfromliststr(std::string_view name, ttextout value) {
    return getfromlist(optionasobj(name), value);
  }
  bool optgetfromanystrlist(std::int32_t flag, ttextout name, ttextout value) {
    return getfromanylist(fdefinition, flag, name, value);
  }

  // ---- descriptions (descriptions.h)
  bool optgetinfonr(std::int32_t nr, std::int32_t& defined, std::int32_t& definedr, std::int32_t& refnr,
                    std::int32_t& datatype, std::int32_t& opttype, std::int32_t& subtype) const {
    return getinfo(at(nr), defined, definedr, refnr, datatype, opttype, subtype);
  }
  bool optgetdefinednr(std::int32_t nr, std::int32_t& defined) const { return getdefined(at(nr), defined); }
  bool optgetnamenr(std::int32_t nr, ttextout name) const { return getname(at(nr), name); }
  bool optgethelpnr(std::int32_t nr, ttextout name, ttextout help) const {
    return gethelp(at(nr), name, help);
  }
  bool optgetopthelpnr(std::int32_t nr, ttextout name, std::int32_t& helpflag, std::int32_t& group) const {
    return getopthelp(at(nr), name, helpflag, group);
  }
  bool optgetdefaultstr(std::int32_t nr, ttextout defaultvalue) const {
    return getdefault(at(nr), defaultvalue);
  }
  bool optgetboundsint(std::int32_t nr, std::int32_t& lo, std::int32_t& hi,
                       std::int32_t& defaultvalue) const {
    return getbounds(at(nr), lo, hi, defaultvalue);
  }
  bool optgetboundsdbl(std::int32_t nr, double& lo, double& hi, double& defaultvalue) const {
    return getbounds(at(nr), lo, hi, defaultvalue);
  }
  bool optgetenumcount(std::int32_t nr, std::int32_t& count) const { return getenumcount(at(nr), count); }
  bool optgetenumhelp(std::int32_t nr, std::int32_t index, std::int32_t& helpflag, ttextout help) const {
    return getenumhelp(at(nr), index, helpflag, help);
  }
  bool optgetenumvalue(std::int32_t nr, std::int32_t index, std::int32_t& ival, ttextout sval) const {
    return getenumvalue(at(nr), index, ival, sval);
  }
  bool optgetenumstrnr(std::int32_t nr, ttextout value, std::int32_t& index) const {
    return getenumstr(at(nr), value, index);
  }
  bool optgetsynonym(std::int32_t nr, ttextout synonym, ttextout name) const {
    return getsynonym(fdefinition, nr, synonym, name);
  }
  std::int32_t optgetoptgroupnr(std::int32_t nr) const { return getgroupof(at(nr)); }
  bool optgetgroupnr(std::int32_t nr, ttextout name, std::int32_t& groupnumber, std::int32_t& helpflag,
                     ttextout help) const {
    return getgroup(fdefinition, nr, name, groupnumber, helpflag, help);
  }
  std::int32_t optgetgroupgrpnr(std::int32_t groupnumber) const {
    return getgroupgrpnr(fdefinition, groupnumber);
  }
  static bool optgetconstname(std::int32_t group, std::int32_t index, ttextout name) {
    return getconstname(group, index, name);
  }
  static bool optgettypename(std::int32_t opttype, ttextout name) { return gettypename(opttype, name); }
  void optdefinitionfile(ttextout filename) const { getdefinitionfile(fdefinition, filename); }
  static void optversion(ttextout auditline) { auditline.set(zqagetauditline()); }
  bool optsetrefnr(std::int32_t nr, std::int32_t refnr) { return setrefnr(at(nr), refnr); }
  bool optsetrefnrstr(std::string_view name, std::int32_t refnr) {
    return setrefnr(optionasobj(name), refnr);
  }

  // ---- dot options and indicators (symbolqueries.h)
  std::int32_t optdotoptcount(std::int32_t& errors) const noexcept { return fdotoptions.count(errors); }
  bool optgetdotoptnr(std::int32_t nr, ttextout name, std::int32_t& optnr, std::int32_t& dimensions,
                      double& value) const {
    return getdotopt(fdotoptions, nr, name, optnr, dimensions, value);
  }
  bool optgetdotoptuel(std::int32_t nr, std::int32_t dim, ttextout uel) const {
    return getdotoptuel(fdotoptions, nr, dim, uel);
  }
  std::int32_t optindicatorcount(std::int32_t& errors) const noexcept { return findicators.count(errors); }
  bool optgetindicatornr(std::int32_t nr, ttextout equation, ttextout variable, std::int32_t& equdims,
                         std::int32_t& vardims, std::int32_t& value) const {
    return getindicator(findicators, nr, equation, variable, equdims, vardims, value);
  }
  bool optgetequindicatornr(std::int32_t nr, std::int32_t dim, ttextout element) const {
    return getelement(findicators, nr, dim, &tindicatoritem::equation, element);
  }
  bool optgetvarindicatornr(std::int32_t nr, std::int32_t dim, ttextout element) const {
    return getelement(findicators, nr, dim, &tindicatoritem::variable, element);
  }

  // ---- switches
  void optechoset(bool echo) noexcept { fmessages.setecho(echo); }
  bool opteolonlyset(bool eolonly) noexcept { return std::exchange(feolonly, eolonly); }
  bool eolonly() const noexcept { return feolonly; }
  void optnoboundsset(bool nobounds) noexcept { fnobounds = nobounds; }
  bool nobounds() const noexcept { return fnobounds; }
  void optrecentenabledset(bool recentenabled) noexcept { frecentenabled = recentenabled; }
  bool optrecentenabled() const noexcept { return frecentenabled; }

  // ---- the observer
  // Sets the observer that is notified of every message and of every value that is stored; null for none. It
  // is not owned, and must be removed before it is destroyed.
  void setobserver(tstoreobserver* observer) noexcept { fmessages.setobserver(observer); }
  void notifyassigned(const toption& option, std::int32_t bits) const {
    if (fmessages.observer() != nullptr) fmessages.observer()->assigned(option, bits);
  }

 private:
  // The option with a number; null if there is none. A number below 1 gives a position that no option has.
  const toption* at(std::int32_t nr) const noexcept { return fdefinition.getobjects(positionof(nr)); }
  toption* at(std::int32_t nr) noexcept { return fdefinition.getobjects(positionof(nr)); }
  static std::int32_t positionof(std::int32_t nr) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(nr) - 1);
  }

  tdefinition fdefinition{*this};
  tmessagelist fmessages;
  tdotobjlist fdotoptions{fdefinition, fmessages};
  tindicatorlist findicators{fmessages};
  bool feolonly = true;
  bool fnobounds = false;
  bool frecentenabled = true;
};

}  // namespace optcore

// The option store: the owner of all parts of one handle. It is kept thin: the definition, lookup, messages,
// dot entries and indicators are classes of their own in this folder, the readers are in input/ and the
// writers in output/.
//
// The methods with the prefix opt are those of the interface, and follow the conventions of the public
// header. Option and message numbers count from 1 there. Text results are written to the caller's buffer. The
// outputs of a failed query are part of its contract, too.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "base/textout.h"
#include "options/definition.h"
#include "options/dotoptions.h"
#include "options/indicators.h"
#include "options/messages.h"
#include "options/observer.h"

namespace optcore {

class tvksoptions : public toptionx {
 public:
  tvksoptions();
  ~tvksoptions() override;

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
  void optshowhelp(std::string_view hlpmsg);

  // ---- messages
  void optaddmessage(std::string_view text) { fmessages.addmessage(tmsgkind::usererror, text); }
  void optgetmessage(std::int32_t nr, ttextout text, std::int32_t& kind) const;
  void optclearmessages() { fmessages.clear(); }
  std::int32_t optmessagecount() const noexcept { return fmessages.count(); }
  void opterrorcount(std::int32_t& errors, std::int32_t& warnings) const noexcept;

  // ---- resetting
  void optresetall();
  // Clear the recent bits of all options. Both do the same.
  void optresetallrecent();
  void optresetrecentchanges() { optresetallrecent(); }
  bool optresetnr(std::int32_t nr);

  // ---- lookup
  std::int32_t optlookup(std::string_view name) const { return fdefinition.optlookup(name); }
  const toption* optionasobj(std::string_view name) const { return fdefinition.optionasobj(name); }
  bool optfindstr(std::string_view name, std::int32_t& nr, std::int32_t& refnr) const;
  std::int32_t getcount() const noexcept { return fdefinition.getcount(); }
  std::int32_t getgroupcount() const noexcept { return fdefinition.groups().count(); }
  std::int32_t optsynonymcount() const noexcept { return fdefinition.synonyms().count(); }

  // ---- values by number (numberedvalues.cpp)
  bool optgetvaluesnr(std::int32_t nr, ttextout name, std::int32_t& ival, double& dval, ttextout sval) const;
  bool optsetvaluesnr(std::int32_t nr, std::int32_t ival, double dval, std::string_view sval);
  bool optsetvalues2nr(std::int32_t nr, std::int32_t ival, double dval, std::string_view sval);
  bool optgetintnr(std::int32_t nr, std::int32_t& ival) const;
  bool optgetint2nr(std::int32_t nr, std::int32_t& ival) const;
  bool optsetintnr(std::int32_t nr, std::int32_t ival);
  bool optsetint2nr(std::int32_t nr, std::int32_t ival);
  bool optgetdblnr(std::int32_t nr, double& dval) const;
  bool optgetdbl2nr(std::int32_t nr, double& dval) const;
  bool optsetdblnr(std::int32_t nr, double dval);
  bool optsetdbl2nr(std::int32_t nr, double dval);
  bool optgetstrnr(std::int32_t nr, ttextout sval) const;
  bool optgetstr2nr(std::int32_t nr, ttextout sval) const;
  bool optsetstrnr(std::int32_t nr, std::string_view sval);
  bool optsetstr2nr(std::int32_t nr, std::string_view sval);

  // ---- values by name (namedvalues.cpp)
  bool optgetvalstr(std::string_view name, ttextout value) const;
  bool optgetval2str(std::string_view name, ttextout value) const;
  tvaluetext getasstring(std::string_view name) const;
  void setasstring(std::string_view name, std::string_view text);
  std::int32_t optlistcountstr(std::string_view name) const;
  std::int32_t optreadfromliststr(std::string_view name, std::int32_t index, ttextout value) const;
  std::int32_t optgetfromliststr(std::string_view name, ttextout value);
  bool optgetfromanystrlist(std::int32_t flag, ttextout name, ttextout value);

  // ---- descriptions by number (descriptions.cpp)
  bool optgetinfonr(std::int32_t nr, std::int32_t& defined, std::int32_t& definedr, std::int32_t& refnr,
                    std::int32_t& datatype, std::int32_t& opttype, std::int32_t& subtype) const;
  bool optgetdefinednr(std::int32_t nr, std::int32_t& defined) const;
  bool optgetnamenr(std::int32_t nr, ttextout name) const;
  bool optgethelpnr(std::int32_t nr, ttextout name, ttextout help) const;
  bool optgetopthelpnr(std::int32_t nr, ttextout name, std::int32_t& helpflag, std::int32_t& group) const;
  bool optgetdefaultstr(std::int32_t nr, ttextout defaultvalue) const;
  bool optgetboundsint(std::int32_t nr, std::int32_t& lo, std::int32_t& hi, std::int32_t& defaultvalue) const;
  bool optgetboundsdbl(std::int32_t nr, double& lo, double& hi, double& defaultvalue) const;
  bool optgetenumcount(std::int32_t nr, std::int32_t& count) const;
  bool optgetenumhelp(std::int32_t nr, std::int32_t index, std::int32_t& helpflag, ttextout help) const;
  bool optgetenumvalue(std::int32_t nr, std::int32_t index, std::int32_t& ival, ttextout sval) const;
  bool optgetenumstrnr(std::int32_t nr, ttextout value, std::int32_t& index) const;
  bool optgetsynonym(std::int32_t nr, ttextout synonym, ttextout name) const;
  std::int32_t optgetoptgroupnr(std::int32_t nr) const;
  bool optgetgroupnr(std::int32_t nr, ttextout name, std::int32_t& groupnumber, std::int32_t& helpflag,
                     ttextout help) const;
  // The 1-based position of the first group with this number, or -1.
  std::int32_t optgetgroupgrpnr(std::int32_t groupnumber) const;
  static bool optgetconstname(std::int32_t group, std::int32_t index, ttextout name);
  static bool optgettypename(std::int32_t opttype, ttextout name);
  void optdefinitionfile(ttextout filename) const;
  static void optversion(ttextout auditline);
  bool optsetrefnr(std::int32_t nr, std::int32_t refnr);
  bool optsetrefnrstr(std::string_view name, std::int32_t refnr);

  // ---- dot options and indicators (symbolqueries.cpp)
  std::int32_t optdotoptcount(std::int32_t& errors) const noexcept;
  bool optgetdotoptnr(std::int32_t nr, ttextout name, std::int32_t& optnr, std::int32_t& dimensions,
                      double& value) const;
  bool optgetdotoptuel(std::int32_t nr, std::int32_t dim, ttextout uel) const;
  std::int32_t optindicatorcount(std::int32_t& errors) const noexcept;
  bool optgetindicatornr(std::int32_t nr, ttextout equation, ttextout variable, std::int32_t& equdims,
                         std::int32_t& vardims, std::int32_t& value) const;
  bool optgetequindicatornr(std::int32_t nr, std::int32_t dim, ttextout element) const;
  bool optgetvarindicatornr(std::int32_t nr, std::int32_t dim, ttextout element) const;

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
  const toption* optionat(std::int32_t nr) const noexcept {
    return nr >= 1 ? fdefinition.getobjects(nr - 1) : nullptr;
  }
  toption* optionat(std::int32_t nr) noexcept { return nr >= 1 ? fdefinition.getobjects(nr - 1) : nullptr; }
  const toption* twovalueoption(std::int32_t nr) const noexcept;
  template <class tassign>
  bool assignednew(std::int32_t nr, twhich which, tassign assign);
  bool setvalues(std::int32_t nr, twhich which, std::int32_t ival, double dval, std::string_view sval);

  tdefinition fdefinition{*this};
  tmessagelist fmessages;
  tdotobjlist fdotoptions{fdefinition, fmessages};
  tindicatorlist findicators{fmessages};
  bool feolonly = true;
  bool fnobounds = false;
  bool frecentenabled = true;
};

}  // namespace optcore

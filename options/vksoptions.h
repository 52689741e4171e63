// The option store: the thin owner of everything that one handle stands for. What is done with it lives
// beside it: lookup, messages, dot options and indicators in this folder, the readers in input/, the writers
// in output/.
//
// The methods with an opt prefix are what the interface exports; option and message numbers count from 1
// there. Text results are written to the caller's buffer, and what a query leaves in its outputs on failure
// is part of its contract.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "base/strutilx.h"
#include "base/textout.h"
#include "base/vksobj.h"
#include "options/dotoptions.h"
#include "options/indicators.h"
#include "options/linesource.h"
#include "options/lookup.h"
#include "options/messages.h"
#include "options/toption.h"

namespace optcore {

class tvksoptions : public toptionx {
 public:
  tvksoptions();
  ~tvksoptions() override;

  // ---- reading and writing (input/, output/)
  std::int32_t optreaddefinition(std::string_view filename);
  std::int32_t optreadparameterfile(std::string_view filename);
  void optreadfromstr(std::string_view text);
  void optreadfrompchar(const char* text);
  std::int32_t optwriteparameterfile(std::string_view filename);
  void optshowhelp(std::string_view hlpmsg);

  // ---- messages
  void addmessage(tmsgkind kind, std::string_view text, const tsubject& subject = {});
  // Files a message that adds to the one before it.
  void addexplanation(tmsgkind kind, std::string_view text);
  // Messages of this kind are neither kept nor noticed: their texts need not be put together.
  bool ignores(tmsgkind kind) const noexcept { return fmessages.ignores(kind); }
  void optaddmessage(std::string_view text) { addmessage(tmsgkind::usererror, text); }
  void optgetmessage(std::int32_t nr, ttextout& text, std::int32_t& kind) const;
  void optclearmessages() { fmessages.clear(); }
  std::int32_t optmessagecount() const noexcept { return fmessages.count(); }
  void opterrorcount(std::int32_t& errors, std::int32_t& warnings) const noexcept;
  // The count that setters and readers compare before and after.
  std::int32_t errorcount() const noexcept { return fmessages.errorcount(); }
  tmessagelist& messages() noexcept { return fmessages; }
  // Further messages are dropped.
  bool messagesfull() const noexcept { return fmessages.full(); }

  // ---- resetting
  void optresetall();
  // Clear the recent bits of every option.
  void optresetallrecent();
  void optresetrecentchanges() { optresetallrecent(); }
  bool optresetnr(std::int32_t nr);

  // ---- lookup
  // The position of an option, counted from 0, or -1; synonyms are not looked at.
  std::int32_t optlookup(std::string_view name) const { return flookup.find(flookupmode, tsoughtname(name)); }
  // The option of a name or synonym, or null.
  toption* optionasobj(std::string_view name) const { return optionasobj(tsoughtname(name)); }
  toption* optionasobj(const tsoughtname& name) const { return getobjects(optionindex(name)); }
  bool optfindstr(std::string_view name, std::int32_t& nr, std::int32_t& refnr) const;
  // With blanks for underscores in lookup mode "Minos", else as it is.
  shortstring nounderscore(std::string_view name) const;

  // ---- values by number (numberedvalues.cpp)
  bool optgetvaluesnr(std::int32_t nr, ttextout& name, std::int32_t& ival, double& dval,
                      ttextout& sval) const;
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
  bool optgetstrnr(std::int32_t nr, ttextout& sval) const;
  bool optgetstr2nr(std::int32_t nr, ttextout& sval) const;
  bool optsetstrnr(std::int32_t nr, std::string_view sval);
  bool optsetstr2nr(std::int32_t nr, std::string_view sval);

  // ---- values by name (namedvalues.cpp)
  bool optgetvalstr(std::string_view name, ttextout& value);
  bool optgetval2str(std::string_view name, ttextout& value);
  tvaluetext getasstring(std::string_view name);
  void setasstring(std::string_view name, std::string_view text);
  std::int32_t optlistcountstr(std::string_view name);
  std::int32_t optreadfromliststr(std::string_view name, std::int32_t index, ttextout& value);
  std::int32_t optgetfromliststr(std::string_view name, ttextout& value);
  bool optgetfromanystrlist(std::int32_t flag, ttextout& name, ttextout& value);

  // ---- descriptions by number (descriptions.cpp)
  bool optgetinfonr(std::int32_t nr, std::int32_t& defined, std::int32_t& definedr, std::int32_t& refnr,
                    std::int32_t& datatype, std::int32_t& opttype, std::int32_t& subtype) const;
  bool optgetdefinednr(std::int32_t nr, std::int32_t& defined) const;
  bool optgetnamenr(std::int32_t nr, ttextout& name) const;
  bool optgethelpnr(std::int32_t nr, ttextout& name, ttextout& help) const;
  bool optgetopthelpnr(std::int32_t nr, ttextout& name, std::int32_t& helpflag, std::int32_t& group) const;
  bool optgetdefaultstr(std::int32_t nr, ttextout& defaultvalue) const;
  bool optgetboundsint(std::int32_t nr, std::int32_t& lo, std::int32_t& hi, std::int32_t& defaultvalue) const;
  bool optgetboundsdbl(std::int32_t nr, double& lo, double& hi, double& defaultvalue) const;
  bool optgetenumcount(std::int32_t nr, std::int32_t& count) const;
  bool optgetenumhelp(std::int32_t nr, std::int32_t index, std::int32_t& helpflag, ttextout& help) const;
  bool optgetenumvalue(std::int32_t nr, std::int32_t index, std::int32_t& ival, ttextout& sval) const;
  bool optgetenumstrnr(std::int32_t nr, ttextout& value, std::int32_t& index) const;
  bool optgetsynonym(std::int32_t nr, ttextout& synonym, ttextout& name) const;
  std::int32_t optgetoptgroupnr(std::int32_t nr) const;
  bool optgetgroupnr(std::int32_t nr, ttextout& name, std::int32_t& groupnumber, std::int32_t& helpflag,
                     ttextout& help) const;
  // The 1-based position of the first group with this number, or -1.
  std::int32_t optgetgroupgrpnr(std::int32_t groupnumber) const;
  static bool optgetconstname(std::int32_t group, std::int32_t index, ttextout& name);
  static bool optgettypename(std::int32_t opttype, ttextout& name);
  void optdefinitionfile(ttextout& filename) const;
  static void optversion(ttextout& auditline);
  bool optsetrefnr(std::int32_t nr, std::int32_t refnr);
  bool optsetrefnrstr(std::string_view name, std::int32_t refnr);

  // ---- dot options and indicators (entryqueries.cpp)
  std::int32_t optdotoptcount(std::int32_t& errors) const noexcept;
  bool optgetdotoptnr(std::int32_t nr, ttextout& name, std::int32_t& optnr, std::int32_t& dimensions,
                      double& value) const;
  bool optgetdotoptuel(std::int32_t nr, std::int32_t dim, ttextout& uel) const;
  std::int32_t optindicatorcount(std::int32_t& errors) const noexcept;
  bool optgetindicatornr(std::int32_t nr, ttextout& equation, ttextout& variable, std::int32_t& equdims,
                         std::int32_t& vardims, std::int32_t& value) const;
  bool optgetequindicatornr(std::int32_t nr, std::int32_t dim, ttextout& element) const;
  bool optgetvarindicatornr(std::int32_t nr, std::int32_t dim, ttextout& element) const;

  // ---- switches
  void optechoset(bool echo);
  bool opteolonlyset(bool eolonly) noexcept;
  void optnoboundsset(bool nobounds) noexcept { fnobounds = nobounds; }
  void optrecentenabledset(bool recentenabled) noexcept { frecentenabled = recentenabled; }
  bool optrecentenabled() const noexcept { return frecentenabled; }
  bool recentenabled() const noexcept { return frecentenabled; }
  bool eolonly() const noexcept { return feolonly; }
  bool nobounds() const noexcept { return fnobounds; }

  // ---- the store's contents, for readers and writers; positions count from 0
  std::int32_t getcount() const noexcept { return foptions.count(); }
  std::int32_t getgroupcount() const noexcept { return fgroups.count(); }
  std::int32_t optsynonymcount() const noexcept { return fsynonyms.count(); }
  // Empty or null outside 0 .. count - 1.
  std::string_view getstrings(std::int32_t index) const noexcept {
    const toption* option = getobjects(index);
    return option != nullptr ? option->name() : std::string_view();
  }
  toption* getobjects(std::int32_t index) const noexcept {
    return index >= 0 && index < getcount() ? foptions.getobject(index) : nullptr;
  }
  // Of an index that is known to be one.
  toption& option(std::int32_t index) const noexcept { return *foptions.getobject(index); }
  toption& addoption(std::unique_ptr<toption> option) {
    const tsoughtname name(option->name());
    return addoption(std::move(option), name);
  }
  // The same for an option whose name has been looked for.
  toption& addoption(std::unique_ptr<toption> option, const tsoughtname& name);
  // Where options and what else a definition holds are made.
  tarena& arena() noexcept { return farena; }
  // The first option of exactly this name, regardless of case and lookup mode; null if there is none.
  toption* exactoption(std::string_view name) const { return getobjects(foptions.indexof(name)); }

  const txstringlist<std::int32_t>& synonyms() const noexcept { return fsynonyms; }
  void addsynonym(std::string_view synonym, std::int32_t index) { fsynonyms.addobject(synonym, index); }
  // The option of a synonym in the synonym list, or null.
  toption* synonymtarget(std::int32_t position) const noexcept {
    return getobjects(fsynonyms.getobject(position));
  }
  const txstringlistobj<tgroupobj>& groups() const noexcept { return fgroups; }
  void addgroup(std::string_view name, std::unique_ptr<tgroupobj> group);

  tdotobjlist& dotoptions() noexcept { return fdotoptions; }
  const tdotobjlist& dotoptions() const noexcept { return fdotoptions; }
  // Null unless the definition declares an indicator keyword.
  tindicatorlist* indicators() const noexcept { return findicators.get(); }
  std::string_view dotname() const noexcept { return fdotname.view(); }
  void declareindicator(std::string_view keyword);
  void countdoterror() noexcept { ++fdoterrors; }
  void countindicatorerrors(std::int32_t rejected) noexcept { findicatorerrors += rejected; }

  // The name that messages quote for the option whose value is being set, and only then: a view of what the
  // client or a line gave.
  std::string_view curoptname() const noexcept { return fcuroptname; }
  void setcuroptname(std::string_view name) noexcept { fcuroptname = name; }
  void setfilename(std::string_view filename) { strassign(ffilename, filename); }
  tlookupmode lookupmode() const noexcept { return flookupmode; }
  void setlookupmode(tlookupmode mode) noexcept { flookupmode = mode; }
  const tcharset& eolcommset() const noexcept { return feolcommset; }
  void seteolcommset(const tcharset& set) noexcept { feolcommset = set; }

  // ---- the reading under way
  // The scanner that is being read, or null; exchanged by readers around each nested read.
  const tlinesource* activesource() const noexcept { return fparser; }
  tlinesource* exchangesource(tlinesource* source) noexcept { return std::exchange(fparser, source); }
  // Where the last reading of a definition file ended; early when a line that nothing can begin with ended
  // it.
  struct tdefinitionend {
    std::int32_t line = 0;
    bool early = false;
  };
  tdefinitionend definitionend() const noexcept { return fdefinitionend; }
  void setdefinitionend(tdefinitionend end) noexcept { fdefinitionend = end; }

  // Notified of every message and of every value that is stored; null for nobody. It must outlive the store
  // or be removed.
  void setobserver(tstoreobserver* observer) noexcept {
    fobserver = observer;
    fmessages.setobserver(observer);
  }
  void notifyassigned(const toption& option, std::int32_t bits) const {
    if (fobserver != nullptr) fobserver->assigned(option, bits);
  }

 private:
  std::int32_t optionindex(const tsoughtname& name) const {
    const std::int32_t index = flookup.find(flookupmode, name);
    return index >= 0 ? index : synonymindex(name);
  }
  std::int32_t synonymindex(const tsoughtname& name) const;
  void filemessage(tmessage message);
  bool checkoptnr(std::int32_t nr) noexcept;
  toption* optionat(std::int32_t nr) const noexcept { return nr >= 1 ? getobjects(nr - 1) : nullptr; }
  const toption* twovalueoption(std::int32_t nr) const noexcept;
  template <class tassign>
  bool assignednew(std::int32_t nr, bool second, tassign assign);
  bool setvalues(std::int32_t nr, bool second, std::int32_t ival, double dval, std::string_view sval);

  tarena farena;
  heapstring ffilename;
  tstoredlistobj<toption> foptions;
  tlookup flookup{foptions};
  txstringlist<std::int32_t> fsynonyms;  // synonym and position of its option, negative for none
  txstringlistobj<tgroupobj> fgroups;
  mutable tnameindex fgroupindex;
  tmessagelist fmessages;
  tlinesource* fparser = nullptr;
  tstoreobserver* fobserver = nullptr;
  tdefinitionend fdefinitionend;
  std::int32_t fnestlevel = 0;  // parameter files that are open within each other
  std::int32_t ffilesread = 0;  // parameter files read since the outermost one was opened
  std::string_view fcuroptname;
  tdotobjlist fdotoptions{*this};
  heapstring fdotname;
  std::unique_ptr<tindicatorlist> findicators;
  std::int32_t findicatorerrors = 0;
  std::int32_t fdoterrors = 0;
  tcharset feolcommset;
  tlookupmode flookupmode = tlookupmode::normal;
  bool feolonly = true;
  bool fecho = false;
  bool fnobounds = false;
  bool frecentenabled = true;
};

}  // namespace optcore

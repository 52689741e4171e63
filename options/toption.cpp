// The parts of the option objects that do not get or set values: construction, marks, reset, and the items of
// enumerations and string lists.
#include "options/toption.h"

#include <unordered_set>
#include <vector>

#include "options/vksoptions.h"

namespace optcore {

// The name is stored before the help text, so it lies beside the object in the arena: a search reads both.
toption::toption(tvksoptions& owner, const toptionhead& head, topttype opttype)
    : toption(owner, head, opttype, owner.definition().stored(head.name)) {}

toption::toption(tvksoptions& owner, const toptionhead& head, topttype opttype, tstoredtext name)
    : toptionx(head.helpflag, owner.definition().stored(head.helptext)),
      fgroupnr(head.groupnr),
      fowner(&owner),
      fname(name),
      frefnr(head.refnr),
      fopttype(opttype) {}

tstoredtext toption::stored(std::string_view text) const { return fowner->definition().stored(text); }

shortstring toption::getname() const { return fowner->definition().nounderscore(name()); }

toption::trare& toption::rare() {
  if (frare == nullptr) frare = std::make_unique<trare>();
  return *frare;
}

void toption::setdeprecated(tdeprecation kind, std::string_view text) {
  const bool ownname = kind == tdeprecation::deprecated || kind == tdeprecation::obsolete;
  (ownname ? rare().deprecatedmsg : rare().deprecatedmsg2) = stored(text);
  fdeprecation |= deprecationbit(kind);
}

void toption::addbigtext(std::string_view line) {
  rare().bigtext.startsmall(3);
  rare().bigtext.add(line);
}

// ---- reset

void toption::reset() {
  setdefined(0);
  clearoutofbounds();
}

void tmultilistoption::reset() {
  fitems.clear();
  toption::reset();
}

void tstrlistoption::reset() {
  fitems.clear();
  ftaken = 0;
  toption::reset();
}

// Macros may contain macros to any depth, and the same member many times. Therefore the members are collected
// without recursion, and each is reset once.
void tmacrooption::reset() {
  std::vector<toption*> reached{this};
  std::unordered_set<toption*> seen{this};
  for (std::size_t next = 0; next < reached.size(); ++next) {
    const tmacrooption* macro = ifis<tmacrooption>(reached[next]);
    for (std::int32_t i = 0; macro != nullptr && i < macro->fitems.count(); ++i)
      if (seen.insert(macro->fitems.get(i)).second) reached.push_back(macro->fitems.get(i));
  }
  for (toption* option : reached) {
    if (option->opttype() == topttype::macro)
      option->toption::reset();
    else
      option->reset();
  }
}

// ---- items

void tenumstroption::additem(std::string_view value, std::int32_t helpflag, std::string_view helptext) {
  fitems.startsmall(4);
  fitems.addstored(stored(value),
                   owner().definition().arena().make<tenumstritem>(helpflag, stored(helptext)));
}

void tenumintoption::additem(std::int32_t value, std::int32_t helpflag, std::string_view helptext) {
  fitems.startsmall(3);
  fitems.add(owner().definition().arena().make<tlistoptionx>(value, helpflag, stored(helptext)));
}

void tmultilistoption::additem(std::int32_t index) {
  fitems.startsmall(6);
  fitems.add(index);
}

void tmacrooption::additem(toption* option) {
  fitems.startsmall(3);
  fitems.add(option);
}

bool tenumintoption::hasitem(std::int32_t value) const {
  const auto keyat = [this](std::int32_t i) { return tnumberkey{fitems.get(i)->enumvalue()}; };
  return fitemindex.find(fitems.count(), tnumberkey{value}, keyat) >= 0;
}

shortstring tstrlistoption::takefirst() {
  const shortstring first = item(0);
  ++ftaken;
  if (ftaken > itemcount()) {
    fitems.removefirst(ftaken);
    ftaken = 0;
  }
  return first;
}

}  // namespace optcore

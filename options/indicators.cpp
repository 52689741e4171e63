// Collecting and checking of indicators.
#include "options/indicators.h"

#include <cassert>

#include "options/dotoptions.h"  // the limits of identifiers
#include "options/messages.h"

namespace optcore {

namespace {

bool isquotedelement(std::string_view text) { return text.starts_with('\'') || text.starts_with('"'); }

bool istoolong(std::string_view text) {
  return text.size() > (isquotedelement(text) ? maxidentifier + 2 : maxidentifier);
}

// A text, compared with regard to case.
struct texactkey {
  std::string_view text;
  std::uint32_t hash() const noexcept { return struhash(text); }
  bool operator==(const texactkey& other) const noexcept { return text == other.text; }
};

}  // namespace

void tsymbolparts::clear() noexcept {
  fname.clear();
  felements.clear();
  findex.reset();
}

bool tsymbolparts::haselement(std::string_view text) {
  const auto keyat = [this](std::int32_t i) { return texactkey{felements.get(i)}; };
  return findex.find(felements.count(), texactkey{text}, keyat) >= 0;
}

tsymbol tsymbolparts::pack(tarena& arena) const {
  const tstoredtext name = arena.text(fname);
  return {name, felements.pack(arena)};
}

void tindicatorlist::addentry(std::string_view equation) {
  if (fcontents == nullptr) fcontents = std::make_unique<tcontents>();
  fbegun = true;
  fcontents->value = 0;
  fcontents->equation.clear();
  fcontents->variable.clear();
  fcontents->equation.setname(equation);
  if (equation.size() > maxidentifier)
    fmessages.addmessage(tmsgkind::usererror, concat("Not a good equation identifier ", quoted(equation)),
                         {equation});
}

bool tindicatorlist::keepitem() {
  if (!fbegun) return false;
  auto& [arena, items, equation, variable, value] = *fcontents;
  const tsymbol packed = equation.pack(arena);
  items.append(arena.make<tindicatoritem>(packed, variable.pack(arena), value));
  fbegun = false;
  return true;
}

void tindicatorlist::addequdim(std::string_view text) {
  assert(fbegun);
  tsymbolparts& equation = fcontents->equation;
  if (equation.elements().count() >= maxdimensions)
    fmessages.addmessage(tmsgkind::usererror,
                         concat("Too many dimensions for equation ", quoted(equation.name())),
                         {equation.name()});
  if (istoolong(text))
    fmessages.addmessage(tmsgkind::usererror, concat("Bad Equation index = ", quoted(equation.name())),
                         {equation.name()});
  equation.addelement(text);
}

void tindicatorlist::addvardim(std::string_view text) {
  assert(fbegun);
  tsymbolparts& variable = fcontents->variable;
  if (variable.elements().count() >= maxdimensions)
    fmessages.addmessage(tmsgkind::usererror,
                         concat("Too many dimensions for variable ", quoted(variable.name())),
                         {variable.name()});
  if (istoolong(text))
    fmessages.addmessage(tmsgkind::usererror, concat("Bad variable index = ", quoted(variable.name())),
                         {variable.name()});
  else if (!isquotedelement(text) && !fcontents->equation.haselement(text))
    fmessages.addmessage(
        tmsgkind::usererror,
        concat("Index ", quoted(text), " not controled for variable ", quoted(variable.name())),
        {variable.name()});
  variable.addelement(text);
}

}  // namespace optcore

// Collecting and checking of indicators.
#include "options/indicators.h"

#include <cassert>

#include "options/vksoptions.h"

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
  fbegun = true;
  fvalue = 0;
  fequation.clear();
  fvariable.clear();
  fequation.setname(equation);
  if (equation.size() > maxidentifier)
    fowner.addmessage(tmsgkind::usererror, concat("Not a good equation identifier ", quoted(equation)),
                      {equation});
}

void tindicatorlist::keepitem() {
  if (!fbegun) return;
  const tsymbol equation = fequation.pack(farena);
  fitems.append(farena.make<tindicatoritem>(equation, fvariable.pack(farena), fvalue));
  fbegun = false;
}

void tindicatorlist::addequdim(std::string_view text) {
  assert(fbegun);
  if (fequation.elements().count() >= maxdimensions)
    fowner.addmessage(tmsgkind::usererror,
                      concat("Too many dimensions for equation ", quoted(fequation.name())),
                      {fequation.name()});
  if (istoolong(text))
    fowner.addmessage(tmsgkind::usererror, concat("Bad Equation index = ", quoted(fequation.name())),
                      {fequation.name()});
  fequation.addelement(text);
}

void tindicatorlist::addvardim(std::string_view text) {
  assert(fbegun);
  if (fvariable.elements().count() >= maxdimensions)
    fowner.addmessage(tmsgkind::usererror,
                      concat("Too many dimensions for variable ", quoted(fvariable.name())),
                      {fvariable.name()});
  if (istoolong(text))
    fowner.addmessage(tmsgkind::usererror, concat("Bad variable index = ", quoted(fvariable.name())),
                      {fvariable.name()});
  else if (!isquotedelement(text) && !fequation.haselement(text))
    fowner.addmessage(
        tmsgkind::usererror,
        concat("Index ", quoted(text), " not controled for variable ", quoted(fvariable.name())),
        {fvariable.name()});
  fvariable.addelement(text);
}

}  // namespace optcore

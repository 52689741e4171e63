// Indicators.
#include "options/indicators.h"

#include <memory>

#include "options/vksoptions.h"

namespace wexcorin {

namespace {

bool isquotedelement(std::string_view text) { return text.starts_with('\'') || text.starts_with('"'); }

bool istoolong(std::string_view text) {
  return text.size() > (isquotedelement(text) ? maxidentifier + 2 : maxidentifier);
}

// A text that is compared with regard to case.
struct texactkey {
  std::string_view text;
  std::uint32_t hash() const noexcept { return struhash(text); }
  bool operator==(const texactkey& other) const noexcept { return text == other.text; }
};

}  // namespace

bool tsymbol::haselement(std::string_view text) const {
  const auto keyat = [this](std::int32_t i) { return texactkey{felements.get(i)}; };
  return findex.find(felements.count(), texactkey{text}, keyat) >= 0;
}

void tindicatorlist::addentry(std::string_view equation) {
  auto item = std::make_unique<tindicatoritem>(equation);
  add(item.get());
  static_cast<void>(item.release());
  if (equation.size() > maxidentifier)
    fowner.addmessage(tmsgkind::usererror, concat("Not a good equation identifier ", quoted(equation)));
}

void tindicatorlist::addequdim(std::string_view text) {
  tsymbol& equation = current().equation();
  if (equation.elements().count() >= maxdimensions)
    fowner.addmessage(tmsgkind::usererror,
                      concat("Too many dimensions for equation ", quoted(equation.name())));
  if (istoolong(text))
    fowner.addmessage(tmsgkind::usererror, concat("Bad Equation index = ", quoted(equation.name())));
  equation.addelement(text);
}

void tindicatorlist::addvardim(std::string_view text) {
  tsymbol& variable = current().variable();
  if (variable.elements().count() >= maxdimensions)
    fowner.addmessage(tmsgkind::usererror,
                      concat("Too many dimensions for variable ", quoted(variable.name())));
  if (istoolong(text))
    fowner.addmessage(tmsgkind::usererror, concat("Bad variable index = ", quoted(variable.name())));
  else if (!isquotedelement(text) && !current().equation().haselement(text))
    fowner.addmessage(tmsgkind::usererror, concat("Index ", quoted(text), " not controled for variable ",
                                                  quoted(variable.name())));
  variable.addelement(text);
}

}  // namespace wexcorin

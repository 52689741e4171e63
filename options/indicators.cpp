// Indicators.
#include "options/indicators.h"

#include <memory>

#include "options/vksoptions.h"

namespace wexcorin {

namespace {

bool isquotedelement(std::string_view text) { return !text.empty() && (text[0] == '\'' || text[0] == '"'); }

bool istoolong(std::string_view text) {
  return text.size() > (isquotedelement(text) ? maxidentifier + 2 : maxidentifier);
}

// Elements are texts as written: unlike names, they are compared with regard to case.
bool contains(const txstrings& elements, std::string_view text) {
  for (std::int32_t i = 0; i < elements.count(); ++i)
    if (elements.get(i) == text) return true;
  return false;
}

}  // namespace

void tindicatorlist::addentry(std::string_view equation) {
  auto item = std::make_unique<tindicatoritem>(equation);
  add(item.get());
  static_cast<void>(item.release());
  if (equation.size() > maxidentifier)
    fowner.addmessage(tmsgkind::usererror, concat("Not a good equation identifier ", quoted(equation)));
}

void tindicatorlist::addequdim(std::string_view text) {
  tsymbol& equation = current().equation();
  if (equation.elements.count() >= maxdimensions)
    fowner.addmessage(tmsgkind::usererror,
                      concat("Too many dimensions for equation ", quoted(equation.name.view())));
  if (istoolong(text))
    fowner.addmessage(tmsgkind::usererror, concat("Bad Equation index = ", quoted(equation.name.view())));
  equation.elements.add(text);
}

void tindicatorlist::addvardim(std::string_view text) {
  tsymbol& variable = current().variable();
  if (variable.elements.count() >= maxdimensions)
    fowner.addmessage(tmsgkind::usererror,
                      concat("Too many dimensions for variable ", quoted(variable.name.view())));
  if (istoolong(text))
    fowner.addmessage(tmsgkind::usererror, concat("Bad variable index = ", quoted(variable.name.view())));
  else if (!isquotedelement(text) && !contains(current().equation().elements, text))
    fowner.addmessage(tmsgkind::usererror, concat("Index ", quoted(text), " not controled for variable ",
                                                  quoted(variable.name.view())));
  variable.elements.add(text);
}

}  // namespace wexcorin

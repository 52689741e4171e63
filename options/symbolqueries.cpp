// Queries for dot entries and indicators.
#include "options/symbolqueries.h"

namespace optcore {

namespace {

template <class tlist>
bool isnumberin(const tlist& list, std::int32_t nr) {
  return nr >= 1 && nr <= list.count();
}

}  // namespace

bool getdotopt(const tdotobjlist& entries, std::int32_t nr, ttextout& name, std::int32_t& optnr,
               std::int32_t& dimensions, double& value) {
  const tdotobj* entry = isnumberin(entries, nr) ? entries.getobject(nr - 1) : nullptr;
  name.set(entry != nullptr ? entry->name() : std::string_view());
  optnr = entry != nullptr ? entry->optionindex() + 1 : 0;
  dimensions = entry != nullptr ? entry->indices().count() : 0;
  value = entry != nullptr ? entry->value() : 0.0;
  return entry != nullptr;
}

bool getdotoptuel(const tdotobjlist& entries, std::int32_t nr, std::int32_t dim, ttextout& uel) {
  if (!isnumberin(entries, nr) || !isnumberin(entries.getobject(nr - 1)->indices(), dim)) {
    uel.clear();
    return false;
  }
  const std::string_view index = entries.getobject(nr - 1)->indices().get(dim - 1);
  uel.set(index == "*" ? index : index.substr(1, index.size() - 2));
  return true;
}

bool getindicator(const tindicatorlist& indicators, std::int32_t nr, ttextout& equation, ttextout& variable,
                  std::int32_t& equdims, std::int32_t& vardims, std::int32_t& value) {
  const bool found = isnumberin(indicators, nr);
  const tindicatoritem* item = found ? indicators.get(nr - 1) : nullptr;
  equation.set(found ? item->equation().name() : std::string_view());
  variable.set(found ? item->variable().name() : std::string_view());
  equdims = found ? item->equation().elements().count() : 0;
  vardims = found ? item->variable().elements().count() : 0;
  value = found ? item->value() : 0;
  return found;
}

bool getelement(const tindicatorlist& indicators, std::int32_t nr, std::int32_t dim,
                const tsymbol& (tindicatoritem::*symbol)() const noexcept, ttextout& element) {
  if (!isnumberin(indicators, nr) || !isnumberin((indicators.get(nr - 1)->*symbol)().elements(), dim)) {
    element.clear();
    return false;
  }
  element.set((indicators.get(nr - 1)->*symbol)().elements().get(dim - 1));
  return true;
}

}  // namespace optcore

// Queries for dot entries and indicators by number.
#include "options/vksoptions.h"

namespace optcore {

namespace {

template <class tlist>
bool isnumberin(const tlist& list, std::int32_t nr) {
  return nr >= 1 && nr <= list.count();
}

}  // namespace

std::int32_t tvksoptions::optdotoptcount(std::int32_t& errors) const noexcept {
  errors = fdotoptions.errors();
  return fdotoptions.count();
}

bool tvksoptions::optgetdotoptnr(std::int32_t nr, ttextout name, std::int32_t& optnr,
                                 std::int32_t& dimensions, double& value) const {
  const tdotobj* entry = isnumberin(fdotoptions, nr) ? fdotoptions.getobject(nr - 1) : nullptr;
  name.set(entry != nullptr ? fdotoptions.getname(nr - 1) : std::string_view());
  optnr = entry != nullptr ? entry->optionindex() + 1 : 0;
  dimensions = entry != nullptr ? entry->indices().count() : 0;
  value = entry != nullptr ? entry->value() : 0.0;
  return entry != nullptr;
}

bool tvksoptions::optgetdotoptuel(std::int32_t nr, std::int32_t dim, ttextout uel) const {
  if (!isnumberin(fdotoptions, nr) || !isnumberin(fdotoptions.getobject(nr - 1)->indices(), dim)) {
    uel.clear();
    return false;
  }
  const std::string_view index = fdotoptions.getobject(nr - 1)->indices().get(dim - 1);
  uel.set(index == "*" ? index : index.substr(1, index.size() - 2));
  return true;
}

std::int32_t tvksoptions::optindicatorcount(std::int32_t& errors) const noexcept {
  errors = findicators.errors();
  return findicators.count();
}

bool tvksoptions::optgetindicatornr(std::int32_t nr, ttextout equation, ttextout variable,
                                    std::int32_t& equdims, std::int32_t& vardims, std::int32_t& value) const {
  const bool found = isnumberin(findicators, nr);
  const tindicatoritem* item = found ? findicators.get(nr - 1) : nullptr;
  equation.set(found ? item->equation().name() : std::string_view());
  variable.set(found ? item->variable().name() : std::string_view());
  equdims = found ? item->equation().elements().count() : 0;
  vardims = found ? item->variable().elements().count() : 0;
  value = found ? item->value() : 0;
  return found;
}

namespace {

bool getelement(const tindicatorlist& indicators, std::int32_t nr, std::int32_t dim,
                const tsymbol& (tindicatoritem::*symbol)() const noexcept, ttextout& element) {
  if (!isnumberin(indicators, nr) || !isnumberin((indicators.get(nr - 1)->*symbol)().elements(), dim)) {
    element.clear();
    return false;
  }
  element.set((indicators.get(nr - 1)->*symbol)().elements().get(dim - 1));
  return true;
}

}  // namespace

bool tvksoptions::optgetequindicatornr(std::int32_t nr, std::int32_t dim, ttextout element) const {
  return getelement(findicators, nr, dim, &tindicatoritem::equation, element);
}

bool tvksoptions::optgetvarindicatornr(std::int32_t nr, std::int32_t dim, ttextout element) const {
  return getelement(findicators, nr, dim, &tindicatoritem::variable, element);
}

}  // namespace optcore

// Queries for dot entries, indicators and their elements, each counted from 1. The result says whether what is
// asked for exists; if not, numbers become 0 and texts empty.
#pragma once

#include <cstdint>

#include "base/textout.h"
#include "options/dotoptions.h"
#include "options/indicators.h"

namespace optcore {

bool getdotopt(const tdotobjlist& entries, std::int32_t nr, ttextout& name, std::int32_t& optnr,
               std::int32_t& dimensions, double& value);
// The index is returned without its quotes.
bool getdotoptuel(const tdotobjlist& entries, std::int32_t nr, std::int32_t dim, ttextout& uel);

bool getindicator(const tindicatorlist& indicators, std::int32_t nr, ttextout& equation, ttextout& variable,
                  std::int32_t& equdims, std::int32_t& vardims, std::int32_t& value);
// An element of the equation or variable.
bool getelement(const tindicatorlist& indicators, std::int32_t nr, std::int32_t dim,
                const tsymbol& (tindicatoritem::*symbol)() const noexcept, ttextout& element);

}  // namespace optcore

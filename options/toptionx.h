// The base class of everything that has a help text, and two kinds of classes that derive from it: groups and
// enumeration items. The options are in toption.h.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/arena.h"
#include "base/vksobj.h"

namespace optcore {

class toptionx {
 public:
  toptionx(std::int32_t helpflag, tstoredtext helptext) : fhelptext(helptext), fhelpflag(helpflag) {}
  toptionx(const toptionx&) = delete;
  toptionx& operator=(const toptionx&) = delete;
  virtual ~toptionx() = default;

  // The item is listed by help and documentation if the flag is greater than 0.
  std::int32_t helpflag() const noexcept { return fhelpflag; }
  bool islisted() const noexcept { return fhelpflag > 0; }
  std::string_view helptext() const noexcept { return fhelptext.view(); }

 private:
  // In this order, the 32 bits that a derived class adds lie beside the flag. There may be millions of items.
  tstoredtext fhelptext;
  std::int32_t fhelpflag;
};

// A group of options.
class tgroupobj final : public toptionx, public tinarena {
 public:
  tgroupobj(std::int32_t groupnumber, std::int32_t helpflag, tstoredtext helptext)
      : toptionx(helpflag, helptext), fgroupnumber(groupnumber) {}
  std::int32_t groupnumber() const noexcept { return fgroupnumber; }

 private:
  std::int32_t fgroupnumber;
};

// The help of one legal value of an enumstr option. The value itself is the text of the list item.
class tenumstritem final : public toptionx, public tinarena {
 public:
  using toptionx::toptionx;
};

// One legal value of an enumint option, with its help.
class tlistoptionx final : public toptionx, public tinarena {
 public:
  tlistoptionx(std::int32_t value, std::int32_t helpflag, tstoredtext helptext)
      : toptionx(helpflag, helptext), fenumvalue(value) {}
  std::int32_t enumvalue() const noexcept { return fenumvalue; }

 private:
  std::int32_t fenumvalue;
};

}  // namespace optcore

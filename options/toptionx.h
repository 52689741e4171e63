// What carries help: the base of options, groups and enumeration items.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "base/arena.h"
#include "base/vksobj.h"

namespace optcore {

class toptionx {
 public:
  toptionx(std::int32_t helpflag, tstoredtext helptext) : fhelpflag(helpflag), fhelptext(helptext) {}
  toptionx(const toptionx&) = delete;
  toptionx& operator=(const toptionx&) = delete;
  virtual ~toptionx() = default;

  // Greater than 0: listed by help and documentation.
  std::int32_t helpflag() const noexcept { return fhelpflag; }
  bool islisted() const noexcept { return fhelpflag > 0; }
  std::string_view helptext() const noexcept { return fhelptext.view(); }

  // The long help text, a line each; null when there is none.
  const txstrings* bigtext() const noexcept { return fbigtext.get(); }
  void addbigtext(std::string_view line) {
    if (fbigtext == nullptr) fbigtext = std::make_unique<txstrings>();
    fbigtext->add(line);
  }

 private:
  std::int32_t fhelpflag;
  tstoredtext fhelptext;
  std::unique_ptr<txstrings> fbigtext;
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

// One permitted value of an enumstr option; the list that it is in has the value.
class tenumstritem final : public toptionx, public tinarena {
 public:
  using toptionx::toptionx;
};

// One permitted value of an enumint option.
class tlistoptionx final : public toptionx, public tinarena {
 public:
  tlistoptionx(std::int32_t value, std::int32_t helpflag, tstoredtext helptext)
      : toptionx(helpflag, helptext), fenumvalue(value) {}
  std::int32_t enumvalue() const noexcept { return fenumvalue; }

 private:
  std::int32_t fenumvalue;
};

}  // namespace optcore

// Translates and compares what lines set.
#include "tools/migrating/outcome.h"

#include <algorithm>
#include <optional>

#include "base/textcase.h"

namespace tool {

using namespace optcore;

namespace {

titem itemof(const teffect& effect) {
  titem result{.kind = effect.kind, .which = effect.which, .value = effect.value, .symbol = effect.symbol};
  if (effect.option == nullptr) return result;
  result.type = effect.option->opttype();
  result.subtype = effect.option->subtype();
  if (isownlist(effect.option)) result.symbol = effect.option->name();
  return result;
}

// A number, whatever its type.
std::optional<double> numberof(const tvalue& value) {
  if (const auto* integer = std::get_if<std::int32_t>(&value)) return *integer;
  if (const auto* number = std::get_if<double>(&value)) return *number;
  return std::nullopt;
}

bool isplace(const titem& a, const titem& b) {
  return a.kind == b.kind && a.option == b.option && a.which == b.which &&
         (a.symbol == b.symbol || (a.option == nullptr && struequal(a.symbol, b.symbol)));
}

bool isvalue(const titem& item) { return item.kind == teffect::tkind::value; }

// The values in force after a line: the last one of each option. They are sorted, because a macro may set very
// many.
class tvalues {
 public:
  explicit tvalues(const toutcome& outcome) {
    for (const titem& item : outcome.items)
      if (isvalue(item)) fitems.push_back(&item);
    std::ranges::stable_sort(fitems, isbefore);
    const auto islast = [&](std::size_t i) {
      return i + 1 == fitems.size() || isbefore(fitems[i], fitems[i + 1]);
    };
    std::size_t kept = 0;
    for (std::size_t i = 0; i < fitems.size(); ++i)
      if (islast(i)) fitems[kept++] = fitems[i];
    fitems.resize(kept);
  }
  const std::vector<const titem*>& all() const { return fitems; }
  const titem* find(const titem& place) const {
    const auto found = std::ranges::lower_bound(fitems, &place, isbefore);
    return found != fitems.end() && isplace(**found, place) ? *found : nullptr;
  }

 private:
  static bool isbefore(const titem* a, const titem* b) {
    if (a->option != b->option) return std::less<const toption*>()(a->option, b->option);
    return a->which < b->which;
  }

  std::vector<const titem*> fitems;
};

// The second value of an option that had only one, or has only one now: then a single value stands for both.
bool isimplied(const titem& second, const tvalues& own, const tvalues& others) {
  if (second.which != twhich::second) return false;
  titem place = second;
  place.which = twhich::first;
  const titem* first = own.find(place);
  const titem* other = others.find(place);
  return first != nullptr && other != nullptr && other->subtype != tsubtype::twovalues &&
         samevalue(*first, second);
}

// Whether one of two values was left alone, where the other definition has only one value. That one stands for both.
bool isalone(const titem& item, const titem& other, const tvalues& own) {
  if (item.subtype != tsubtype::twovalues || other.subtype == tsubtype::twovalues) return false;
  titem place = item;
  place.which = twhich::second;
  return own.find(place) == nullptr;
}

bool samevalues(const tvalues& expected, const tvalues& seen) {
  const auto isseen = [&](const titem* item) {
    const titem* other = seen.find(*item);
    if (other == nullptr) return isimplied(*item, expected, seen);
    return samevalue(*item, *other) && !isalone(*item, *other, expected) && !isalone(*other, *item, seen);
  };
  return std::ranges::all_of(expected.all(), isseen) &&
         std::ranges::all_of(seen.all(), [&](const titem* item) {
           return expected.find(*item) != nullptr || isimplied(*item, seen, expected);
         });
}

// What is not a value, in its order.
std::vector<const titem*> entries(const toutcome& outcome) {
  std::vector<const titem*> result;
  for (const titem& item : outcome.items)
    if (!isvalue(item)) result.push_back(&item);
  return result;
}

bool sameitem(const titem* a, const titem* b) { return isplace(*a, *b) && samevalue(*a, *b); }

}  // namespace

toutcome outcomeof(const std::vector<teffect>& effects, const tpositions& older,
                   const tsuccessors& successors) {
  toutcome result;
  for (const teffect& effect : effects) {
    titem item = itemof(effect);
    const bool iskept = effect.option == nullptr || isownlist(effect.option);
    if (!iskept) item.option = successors.of(older.of(effect.option));
    if (iskept || item.option != nullptr)
      result.items.push_back(std::move(item));
    else
      result.isreduced = true;
  }
  return result;
}

toutcome outcomeof(const std::vector<teffect>& effects) {
  toutcome result;
  result.items.reserve(effects.size());
  for (const teffect& effect : effects) {
    result.items.push_back(itemof(effect));
    if (!isownlist(effect.option)) result.items.back().option = effect.option;
  }
  return result;
}

bool samevalue(const titem& expected, const titem& seen) {
  const bool isflag = expected.subtype == tsubtype::novalue && seen.subtype == tsubtype::novalue;
  if (isflag && isvalue(expected)) return true;                              // it is set, that is all
  if (expected.value.index() == 0 || seen.value.index() == 0) return false;  // it depends on lines before
  const auto a = numberof(expected.value), b = numberof(seen.value);
  if (a && b) return *a == *b;
  const std::string one = valuetext(expected.value), other = valuetext(seen.value);
  const bool isword = expected.type == topttype::enumstr && seen.type == topttype::enumstr;
  return isword ? struequal(one, other) : one == other;
}

bool issame(const toutcome& expected, const toutcome& seen) {
  const auto havesameform = [&] {
    const titem &one = expected.items[0], &other = seen.items[0];
    return one.which == other.which &&
           (one.subtype == tsubtype::twovalues) == (other.subtype == tsubtype::twovalues);
  };
  if (expected.items.size() == 1 && seen.items.size() == 1 && havesameform())
    return sameitem(expected.items.data(), seen.items.data());
  return samevalues(tvalues(expected), tvalues(seen)) &&
         std::ranges::equal(entries(expected), entries(seen), sameitem);
}

bool isnothingelse(const toutcome& expected, const toutcome& seen) {
  const tvalues wanted(expected), got(seen);
  const bool samevalues = std::ranges::all_of(got.all(), [&](const titem* item) {
    const titem* other = wanted.find(*item);
    return other != nullptr ? samevalue(*other, *item) : isimplied(*item, got, wanted);
  });
  const std::vector<const titem*> all = entries(expected), some = entries(seen);
  auto next = all.begin();
  return samevalues && std::ranges::all_of(some, [&](const titem* item) {
           next = std::find_if(next, all.end(), [&](const titem* other) { return sameitem(other, item); });
           return next != all.end() && (++next, true);
         });
}

}  // namespace tool

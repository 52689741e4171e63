// Compares two stores, setting by setting, in the order in which settings are written.
#include "tools/reading/readback.h"

#include <algorithm>
#include <bit>
#include <deque>
#include <map>
#include <set>
#include <span>

#include "tools/doc/entrytext.h"
#include "tools/doc/shownvalue.h"
#include "tools/reading/nearnames.h"
#include "tools/reading/symboltexts.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;

namespace {

using tremarks = std::span<const tremark>;

// ---- values

bool samenumber(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool samevalue(const toption& a, const toption& b, twhich which) {
  if (a.opttype() == topttype::dbl)
    return samenumber(as<tdbloption>(a).value(which), as<tdbloption>(b).value(which));
  return a.getasstring12(which).view() == b.getasstring12(which).view();
}

std::string valuetext(const toption& option, twhich which) {
  const auto* dbl = ifis<tdbloption>(&option);
  return dbl != nullptr ? numbertext(dbl->value(which)) : currentvalue(option, which).text;
}

std::string subjectof(const toption& option) { return "option " + inquotes(option.getname()); }

// The option, or one of its two values.
std::string subjectof(const toption& option, twhich which) {
  if (option.subtype() != tsubtype::twovalues) return subjectof(option);
  return (which == twhich::second ? "second value of " : "first value of ") + subjectof(option);
}

std::string isset(const std::string& subject, const std::string& value) {
  return subject + " is set to " + value + ", but is ";
}
std::string isreadback(const std::string& value) { return "read back as " + value; }
constexpr const char* notset = "not set when it is read back";

// ---- dot entries and indicators

bool sameelements(const tpackedtexts& a, const tpackedtexts& b) {
  bool same = a.count() == b.count();
  for (std::int32_t i = 0; same && i < a.count(); ++i) same = a.get(i) == b.get(i);
  return same;
}

bool samesymbol(const tsymbol& a, const tsymbol& b) {
  return a.name() == b.name() && sameelements(a.elements(), b.elements());
}

struct tdotlines {
  static constexpr const char* kind = "dot line";
  const tvksoptions& store;

  std::int32_t count() const { return store.dotoptions().count(); }
  const tdotobj& get(std::int32_t index) const { return *store.dotoptions().getobject(index); }
  static bool samekey(const tdotobj& a, const tdotobj& b) {
    return a.name() == b.name() && a.optionindex() == b.optionindex() &&
           sameelements(a.indices(), b.indices());
  }
  static bool same(const tdotobj& a, const tdotobj& b) {
    return samekey(a, b) && samenumber(a.value(), b.value());
  }
  std::string key(const tdotobj& entry) const { return keytext(store, entry); }
  static std::int32_t option(const tdotobj& entry) { return entry.optionindex(); }
  static std::string value(const tdotobj& entry) { return numbertext(entry.value()); }
};

struct tindicatorlines {
  static constexpr const char* kind = "indicator";
  const tvksoptions& store;

  std::int32_t count() const { return store.indicators().count(); }
  const tindicatoritem& get(std::int32_t index) const { return *store.indicators().get(index); }
  static bool samekey(const tindicatoritem& a, const tindicatoritem& b) {
    return samesymbol(a.equation(), b.equation()) && samesymbol(a.variable(), b.variable());
  }
  static bool same(const tindicatoritem& a, const tindicatoritem& b) {
    return samekey(a, b) && a.value() == b.value();
  }
  static std::string key(const tindicatoritem& item) {
    return std::string(item.equation().name()) + elementstext(item.equation().elements()) + "$" +
           std::string(item.variable().name()) + elementstext(item.variable().elements());
  }
  static std::int32_t option(const tindicatoritem&) { return -1; }
  static std::string value(const tindicatoritem& item) { return std::to_string(item.value()); }
};

// Keys are shortened, because they may have many elements.
std::string shortened(const std::string& text) {
  constexpr std::size_t longest = 80;
  return inquotes(text.size() <= longest ? text : text.substr(0, longest - 3) + "...");
}

// ---- lines

std::int32_t newlines(std::string_view text) {
  return static_cast<std::int32_t>(std::ranges::count(text, '\n'));
}

bool isdotoption(const toption& option) { return option.name().starts_with('.'); }

// The number of lines that are written for an option: one for each of its texts, more if a text holds line
// ends, and two around a value that is out of bounds.
std::int32_t linesof(const toption& option) {
  if (option.defined() == 0) return 0;
  std::int32_t lines = option.outofbounds() != 0 ? 3 : 1;
  if (const auto* list = ifis<tstrlistoption>(&option)) {
    lines += list->itemcount() - 1;
    for (std::int32_t i = 0; i < list->itemcount(); ++i) lines += newlines(list->item(i));
  } else if (const auto* text = ifis<tstringoption>(&option)) {
    lines += newlines(text->value(twhich::first));
  }
  return lines;
}

const tremark* firsterror(tremarks remarks) {
  const auto found = std::ranges::find_if(remarks, &tremark::iserror);
  return found != remarks.end() ? &*found : nullptr;
}

// ---- the comparison

class tcomparison {
 public:
  tcomparison(const tvksoptions& written, const tvksoptions& fresh, std::int32_t defined, tremarks remarks)
      : fwritten(written), ffresh(fresh), fdefined(defined), fremarks(remarks) {
    for (std::int32_t i = defined; i < fresh.getcount(); ++i) {
      const toption& option = fresh.definition().option(i);
      fadded[nameof(option)].push_back(&option);
    }
  }

  std::vector<tdifference> run() {
    for (std::int32_t i = 0; i < fwritten.getcount(); ++i) option(i);
    for (std::int32_t i = fdefined; i < ffresh.getcount(); ++i) added(ffresh.definition().option(i));
    entries(tdotlines{fwritten}, tdotlines{ffresh});
    dotoptions();
    entries(tindicatorlines{fwritten}, tindicatorlines{ffresh});
    explainnothing(fremarks);
    return std::move(fdifferences);
  }

 private:
  void add(std::int32_t option, std::string text) { fdifferences.push_back({option, std::move(text), {}}); }
  void add(std::int32_t option, const std::string& subject, const tremark& reason) {
    fdifferences.push_back(
        {option, subject + " is not read back as it was set: " + reason.text, reason.details});
  }

  // Advances by this number of lines and returns the remarks about them.
  tremarks take(std::int32_t lines) {
    fline += lines;
    const auto behind =
        std::ranges::find_if(fremarks, [&](const tremark& each) { return each.line >= fline; });
    const auto count = static_cast<std::size_t>(behind - fremarks.begin());
    const tremarks taken = fremarks.first(count);
    fremarks = fremarks.subspan(count);
    return taken;
  }

  // Reports errors on lines whose setting is the same in both stores. Each text is reported once.
  void explainnothing(tremarks remarks) {
    for (const tremark& remark : remarks)
      if (remark.iserror && ftexts.insert(remark.text).second)
        fdifferences.push_back({0, "reading it back: " + remark.text, remark.details});
  }

  // ---- options

  // Returns the same option in the fresh store, null if it has none.
  const toption* twinof(std::int32_t index) {
    const toption& option = fwritten.definition().option(index);
    const toption* twin = index < fdefined ? ffresh.definition().getobjects(index) : takeadded(option);
    // The definition file may have changed since it was first read.
    const bool issame = twin != nullptr && twin->opttype() == option.opttype();
    return issame ? twin : nullptr;
  }

  // An option that reading added may have another number in the fresh store. In lookup mode Minos, several may
  // have the same name; they are added in the order in which they are written.
  const toption* takeadded(const toption& option) {
    std::deque<const toption*>& same = fadded[nameof(option)];
    if (option.defined() == 0 || same.empty()) return nullptr;
    const toption* first = same.front();
    same.pop_front();
    return first;
  }

  static std::string nameof(const toption& option) { return folded(option.name()); }

  void option(std::int32_t index) {
    const toption& option = fwritten.definition().option(index);
    if (isdotoption(option)) return;  // its values are written as dot lines
    const tremarks remarks = take(linesof(option));
    const toption* twin = twinof(index);
    const std::size_t before = fdifferences.size();
    compare(index + 1, option, twin);
    if (fdifferences.size() == before) return explainnothing(remarks);
    const tremark* reason = firsterror(remarks);
    if (reason == nullptr && !remarks.empty() && (twin == nullptr || twin->defined() == 0))
      reason = &remarks[0];
    if (reason == nullptr) return;
    fdifferences.resize(before);
    add(index + 1, subjectof(option), *reason);
  }

  void compare(std::int32_t number, const toption& option, const toption* twin) {
    if (const auto* list = ifis<tstrlistoption>(&option))
      comparelists(number, *list, ifis<tstrlistoption>(twin));
    else
      comparevalues(number, option, twin);
  }

  void comparevalues(std::int32_t number, const toption& option, const toption* twin) {
    comparevalue(number, option, twin, twhich::first);
    if (option.subtype() == tsubtype::twovalues) comparevalue(number, option, twin, twhich::second);
    const bool isnamed = !fdifferences.empty() && fdifferences.back().option == number;
    const bool ismarked = option.outofbounds() != 0;
    if (isnamed || twin == nullptr || ismarked == (twin->outofbounds() != 0)) return;
    add(number, subjectof(option) + (ismarked ? " counts as out of bounds, but not when it is read back"
                                              : " counts as out of bounds when it is read back"));
  }

  void comparevalue(std::int32_t number, const toption& option, const toption* twin, twhich which) {
    const bool here = option.isdefined(valuebit(which));
    const bool there = twin != nullptr && twin->isdefined(valuebit(which));
    if (here && !there)
      add(number, isset(subjectof(option, which), valuetext(option, which)) + notset);
    else if (!here && there &&
             !samevalue(option, *twin, which))  // a single one of two is written with the other
      add(number, subjectof(option, which) + " is not set, but is " + isreadback(valuetext(*twin, which)));
    else if (here && !samevalue(option, *twin, which))
      add(number,
          isset(subjectof(option, which), valuetext(option, which)) + isreadback(valuetext(*twin, which)));
  }

  // Reports the first text that differs or that only one of the lists has.
  void comparelists(std::int32_t number, const tstrlistoption& list, const tstrlistoption* twin) {
    const std::int32_t count = list.itemcount(), twincount = twin != nullptr ? twin->itemcount() : 0;
    std::int32_t same = 0;
    while (same < count && same < twincount && list.item(same) == twin->item(same)) ++same;
    if (same == count && same == twincount) return;
    const std::string text = "text " + std::to_string(same + 1) + " of " + subjectof(list);
    if (same == count)
      add(number, text + " is not set, but is " + isreadback(shown(twin->item(same)).text));
    else if (same == twincount)
      add(number, isset(text, shown(list.item(same)).text) + notset);
    else
      add(number, isset(text, shown(list.item(same)).text) + isreadback(shown(twin->item(same)).text));
  }

  // Reports an option that reading the file added, unless the written store has it, too.
  void added(const toption& option) {
    if (fwritten.definition().exactoption(option.name()) == nullptr)
      add(0, subjectof(option) + " is not set, but is " + isreadback(valuetext(option, twhich::first)));
  }

  // ---- dot lines and indicators: each is written on a line of its own

  template <class tlines>
  void entries(const tlines& lines, const tlines& freshlines) {
    std::int32_t next = 0;
    for (std::int32_t i = 0; i < lines.count(); ++i) {
      const tremarks remarks = take(1);
      const auto* twin = next < freshlines.count() ? &freshlines.get(next) : nullptr;
      if (twin != nullptr && lines.same(lines.get(i), *twin)) {
        explainnothing(remarks);
        ++next;
        continue;
      }
      // The library dropped this line, so the next fresh entry belongs to a later one.
      if (std::ranges::any_of(remarks, &tremark::counts)) twin = nullptr;
      if (twin != nullptr) ++next;
      fentryoptions.insert(lines.option(lines.get(i)));
      const std::string subject = lines.kind + (" " + shortened(lines.key(lines.get(i))));
      if (const tremark* reason = firsterror(remarks))
        add(0, subject, *reason);
      else if (twin == nullptr)
        add(0, subject + " is not read back");
      else if (lines.samekey(lines.get(i), *twin))
        add(0, isset(subject, lines.value(lines.get(i))) + isreadback(lines.value(*twin)));
      else
        add(0, subject + " is " + isreadback(shortened(freshlines.key(*twin))));
    }
    for (; next < freshlines.count(); ++next)
      add(0, lines.kind + (" " + shortened(freshlines.key(freshlines.get(next)))) +
                 " is not set, but is read back");
  }

  // Compares the values of the dot options whose dot lines are all read back. Such a value differs from that
  // of the last dot line if it is a text, or if a macro set it.
  void dotoptions() {
    for (std::int32_t i = 0; i < fwritten.getcount(); ++i)
      if (isdotoption(fwritten.definition().option(i)) && !fentryoptions.contains(i))
        compare(i + 1, fwritten.definition().option(i), twinof(i));
  }

  const tvksoptions& fwritten;
  const tvksoptions& ffresh;
  std::int32_t fdefined;
  std::map<std::string, std::deque<const toption*>> fadded;  // by reading the file, and not compared yet
  tremarks fremarks;                                         // about lines that have not been compared yet
  std::int32_t fline = 1;
  std::set<std::string> ftexts;          // of errors that explainnothing has reported
  std::set<std::int32_t> fentryoptions;  // indices of dot options with a dot line that was reported
  std::vector<tdifference> fdifferences;
};

}  // namespace

treadback::treadback(tvksoptions& fresh) : ffresh(fresh), fdefined(fresh.getcount()) {
  fresh.setobserver(this);
}

std::vector<tdifference> treadback::differences(const tvksoptions& written) const {
  return tcomparison(written, ffresh, fdefined, fremarks).run();
}

// A warning about a value out of bounds is no remark, because the value is accepted.
void treadback::filed(const tmessage& message) {
  if (message.explains) {
    if (fremarked) fremarks.back().details.emplace_back(trim(message.text));
    return;
  }
  switch (message.kind) {
    case tmsgkind::deprecated:
    case tmsgkind::defineerror:
    case tmsgkind::valueerror:
    case tmsgkind::usererror: fremarked = true; break;
    default: fremarked = false; return;
  }
  std::int32_t line = message.line;
  for (const tlinesource* source = message.source; source != nullptr; source = source->includer())
    line = source->linenr();
  const bool iserror = message.kind != tmsgkind::deprecated;
  fremarks.push_back({line, iserror, iserror && !ffresh.messages().full(), std::string(message.text), {}});
}

}  // namespace tool

// What an option file cannot express, decided setting by setting.
#include "tools/inexpressible.h"

#include <algorithm>
#include <string_view>

#include "base/numtext.h"
#include "base/textcase.h"

namespace tool {

namespace {

using namespace optcore;

using treason = const char*;  // null: there is none, all is well

constexpr std::size_t longestname = 250;   // with dashes and signs around it a name still fits a text
constexpr std::size_t longestline = 1020;  // what follows in a line is not read

std::string_view firstword(std::string_view text) { return text.substr(0, text.find(' ')); }

bool isquoted(std::string_view text) { return text.empty() || text.find_first_of(" \t,") != text.npos; }

// The first option that switches the checking of bounds, which the writer names; null without one.
const toption* boundsswitch(tvksoptions& store) {
  for (std::int32_t i = 0; i < store.getcount(); ++i) {
    const auto* immediate = ifis<timmediateoption>(store.definition().getobjects(i));
    if (immediate != nullptr && immediate->immkind() == timmkind::nobounds) return immediate;
  }
  return nullptr;
}

class tjudge {
 public:
  tjudge(tvksoptions& store, bool eolonly) : fstore(store), feolonly(eolonly) {
    const toption* bounds = boundsswitch(store);
    fhasbrackets = bounds != nullptr && found(bounds->name()) == bounds;
  }

  treason ofoption(toption& option) {
    const auto* list = ifis<tstrlistoption>(&option);
    if (option.opttype() == topttype::multilist || option.opttype() == topttype::macro ||
        option.opttype() == topttype::immediate || (list != nullptr && list->itemcount() == 0))
      return nullptr;  // not written
    if (treason reason = ofname(option, list != nullptr ? option.name() : option.getname().view()))
      return reason;
    return list != nullptr ? oflist(*list) : ofvalues(option);
  }

  treason ofcomments() const {
    return hascomment("=(),$*") ? "a comment character is one that lines are made of" : nullptr;
  }

  treason ofdotentry(const tdotobj& entry, std::string_view name) const {
    const toption& option = *fstore.definition().getobjects(entry.optionindex());
    if (option.subtype() == tsubtype::novalue ||
        !(option.getasinteger() || option.opttype() == topttype::dbl))
      return "a dot line holds nothing but a number";
    if (option.name().size() > longestname || fstore.optlookup(option.name()) != entry.optionindex())
      return "the name of the dot option stands for another one";
    const tnumbertext text = dbltostr(entry.value());
    bool islegal = false;
    if (treason reason = ofvalue(option, text, false, islegal)) return reason;
    if (!islegal) return "the value is out of bounds";
    return ofelements(entry.indices(), name.size() + option.name().size() + text.view().size() + 10);
  }

  treason ofindicator(const tindicatoritem& indicator) const {
    const auto& equation = indicator.equation();
    const auto& variable = indicator.variable();
    const std::size_t length =
        fstore.definition().dotname().size() + equation.name().size() + variable.name().size() + 10;
    const treason reason = ofelements(equation.elements(), length);
    return reason != nullptr ? reason
                             : ofelements(variable.elements(), length + lengthof(equation.elements()));
  }

 private:
  // ---- names

  treason ofname(const toption& option, std::string_view key) {
    if (found(key) != &option) return "its name is not read as its own";
    // one that was set through its synonym, a macro or the client
    if (option.hasdeprecation(tdeprecation::obsolete) && !option.name().starts_with("--"))
      return "its name is obsolete";
    return nullptr;
  }

  // The option that a reader finds for a key.
  toption* found(std::string_view key) {
    if (key.size() > longestname) return nullptr;
    const bool isminos = fstore.definition().lookupmode() == tlookupmode::minos;
    // in that mode keys with underscores are unknown, and names of lists are written so
    if (isminos && key.find('_') != key.npos) return nullptr;
    if (!fstore.definition().dotname().empty() && struequal(firstword(key), fstore.definition().dotname()))
      return nullptr;
    return isminos && !key.starts_with("--") ? foundinwords(key) : fstore.optionasobj(key);
  }

  // Up to four words, each beginning with a letter; the first words that name an option are taken for the
  // key.
  toption* foundinwords(std::string_view key) {
    std::string name;
    for (int words = 0; words < 4; ++words) {
      const std::string_view word = firstword(key);
      if (word.empty() || !isletter(word[0])) return nullptr;
      name.append(words == 0 ? "" : "_").append(word);
      toption* option = fstore.optionasobj(name);
      if (word.size() == key.size()) return option;
      if (option != nullptr) return nullptr;
      key.remove_prefix(word.size() + 1);
    }
    return nullptr;
  }

  // ---- values

  treason oflist(const tstrlistoption& list) const {
    for (std::int32_t i = 0; i < list.itemcount(); ++i) {
      if (treason reason = oftext(list.item(i), feolonly)) return reason;
      if (feolonly && list.name().starts_with("--") && isquoted(list.item(i)))
        return "such a list takes no text in quotes";
    }
    return nullptr;
  }

  // Values that were taken out of bounds stand between brackets that allow them, and reading must set the
  // same mark.
  treason ofvalues(const toption& option) const {
    const bool ismarked = option.outofbounds() != 0, hastwo = option.subtype() == tsubtype::twovalues;
    if (ismarked && !fhasbrackets) return "no option allows it to be out of bounds";
    bool islegal = true;
    for (const bool second : {false, true}) {
      if (option.subtype() == tsubtype::novalue || (second && !hastwo)) continue;
      const tvaluetext text = second ? option.getasstring2() : option.getasstring();
      // of two values only the second is read to the end of the line
      if (treason reason = ofvalue(option, text, feolonly && second == hastwo, islegal)) return reason;
      if (hastwo && text.view() == "*") return "\"*\" leaves a value as it is";
      if (!islegal && !ismarked) return "its default is out of bounds";
    }
    return ismarked == islegal ? "it counts as out of bounds, but its value is not" : nullptr;
  }

  // Whether the option takes the text again as the same value; if so, `islegal` says whether it is within the
  // bounds.
  treason ofvalue(const toption& option, std::string_view text, bool toend, bool& islegal) const {
    std::int32_t integer = 0;
    double dbl = 0.0;
    if (const auto* bounds = ifis<tintoption>(&option)) {
      islegal = strasintex(text, integer) && bounds->lo() <= integer && integer <= bounds->hi();
      return nullptr;
    }
    if (const auto* bounds = ifis<tdbloption>(&option)) {
      // infinity, what is no number, and the largest numbers, which 15 digits round to infinity
      if (!strasdoubleex(text, dbl)) return "its number has no text";
      islegal = bounds->lo() <= dbl && dbl <= bounds->hi();
      return nullptr;
    }
    if (const auto* items = ifis<tenumintoption>(&option)) {
      islegal = strasintex(text, integer) && items->hasitem(integer);
      return nullptr;
    }
    if (const auto* enumstr = ifis<tenumstroption>(&option)) {
      // a default may be none of the values, or be spelled in another way; out of bounds the text is empty
      const std::int32_t item = enumstr->items().indexof(text);
      islegal = item >= 0;
      if (text != (islegal ? enumstr->items().getname(item) : std::string_view()))
        return "its text is none of its values";
      return oftext(text, toend);
    }
    islegal = true;
    if (option.opttype() == topttype::boolean)
      return text == "0" || text == "1" ? nullptr : "its number is neither 0 nor 1";
    return oftext(text, toend);
  }

  // ---- texts

  bool hascomment(std::string_view text) const {
    return std::ranges::any_of(text,
                               [&](char each) { return inset(fstore.definition().eolcommset(), each); });
  }

  treason oftext(std::string_view text, bool toend) const {
    if (text.find('"') != text.npos) return "its text has a double quote";
    if (text.find_first_of("\n\x1a") != text.npos) return "its text has a character that ends a line";
    if (isquoted(text)) {
      if (text.size() == shortstring::capacity) return "its text leaves no room for the closing quote";
      if (toend && trim(text).size() != text.size()) return "its text begins or ends with a blank";
      return nullptr;
    }
    if (hascomment(toend ? text : text.substr(0, 1))) return "its text has a comment character";
    return text.back() == '\r' ? "its text ends like a line" : nullptr;
  }

  // ---- elements of dot lines and indicators

  template <class tlist>
  static std::size_t lengthof(const tlist& elements) {
    std::size_t length = 0;
    for (std::int32_t i = 0; i < elements.count(); ++i) length += elements.get(i).size() + 1;
    return length;
  }

  template <class tlist>
  static treason ofelements(const tlist& elements, std::size_t length) {
    for (std::int32_t i = 0; i < elements.count(); ++i) {
      const std::string_view element = elements.get(i);
      const bool needsquote = element[0] == '\'' || element[0] == '"';
      if (needsquote && (element.size() < 2 || element.back() != element[0]))
        return "an element was cut, and its quote is missing";
    }
    return length + lengthof(elements) > longestline ? "the line is longer than what is read of it" : nullptr;
  }

  tvksoptions& fstore;
  bool feolonly, fhasbrackets;
};

}  // namespace

std::vector<tinexpressible> inexpressible(tvksoptions& store, bool eolonly) {
  std::vector<tinexpressible> all;
  const auto add = [&all](std::int32_t option, const std::string& what, treason reason) {
    if (reason != nullptr) all.push_back({option, what + " is not read back as it is: " + reason});
  };
  tjudge judge(store, eolonly);
  for (std::int32_t i = 0; i < store.getcount(); ++i) {
    toption& option = *store.definition().getobjects(i);
    if (option.defined() != 0 && !option.name().starts_with('.'))
      add(i + 1, "option \"" + std::string(option.getname().view()) + '"', judge.ofoption(option));
  }
  add(0, "what was written", judge.ofcomments());
  const auto& entries = store.dotoptions();
  for (std::int32_t i = 0; i < entries.count(); ++i)
    add(0, "a dot line of \"" + std::string(entries.getname(i)) + '"',
        judge.ofdotentry(*entries.getobject(i), entries.getname(i)));
  const auto* indicators = store.indicators();
  for (std::int32_t i = 0; indicators != nullptr && i < indicators->count(); ++i)
    add(0, "an indicator of \"" + std::string(indicators->get(i)->equation().name()) + '"',
        judge.ofindicator(*indicators->get(i)));
  return all;
}

}  // namespace tool

// The round trip of a parameter file, and the settings that the format cannot express.
#include <algorithm>

#include "api/handle.h"
#include "base/numtext.h"
#include "fuzz/support/target.h"

namespace fuzzing {

namespace {

using namespace wexcorin;

constexpr std::size_t longestname = 250;   // with dashes and signs around it a name still fits a text
constexpr std::size_t longestline = 1020;  // what follows in a line is not read

std::string_view firstword(std::string_view text) { return text.substr(0, text.find(' ')); }

class tjudge {
 public:
  tjudge(wexcorin::tvksoptions& store, bool eolonly) : fstore(store), feolonly(eolonly) {}

  // Resets the options whose values do not survive.
  void resetlost(tpair& pair) {
    for (std::int32_t i = 0; i < fstore.getcount(); ++i) {
      toption& option = *fstore.getobjects(i);
      if (option.defined() != 0 && !option.name().starts_with('.') && !survives(option))
        pair.one(optresetnr, i + 1);
    }
  }
  // Whether everything else does. Exception: the definition makes a comment character of one that the format
  // itself needs.
  bool restsurvives() { return !hascomment("=(),$*") && dotentriessurvive() && indicatorssurvive(); }

 private:
  // ---- names: the option that a reader finds for a key

  toption* found(std::string_view key) {
    if (key.size() > longestname) return nullptr;
    const bool isminos = fstore.lookupmode() == tlookupmode::minos;
    // Exception: in lookup mode Minos keys with underscores are unknown, and names of lists are written so.
    if (isminos && key.find('_') != key.npos) return nullptr;
    // Exception: an option that bears the name of the indicator keyword.
    if (!fstore.dotname().empty() && struequal(firstword(key), fstore.dotname())) return nullptr;
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

  // ---- options

  bool survives(toption& option) {
    const auto* list = ifis<tstrlistoption>(&option);
    if (option.opttype() == topttype::multilist || option.opttype() == topttype::macro ||
        option.opttype() == topttype::immediate || (list != nullptr && list->itemcount() == 0))
      return true;  // not written
    // Exception: names that stand for another option, as after a duplicate or where only parts of words
    // count.
    if (found(list != nullptr ? option.name() : option.getname().view()) != &option) return false;
    const bool isdashed = option.name().starts_with("--");
    // Exception: an obsolete option, set through its synonym, a macro or the client, is written under its own
    // name.
    if (option.hasdeprecation(tdeprecation::obsolete) && !isdashed) return false;
    if (list == nullptr) return valuessurvive(option);
    // Exception: to the end of the line, the texts of such lists are taken as they stand, quotes included.
    for (std::int32_t i = 0; i < list->itemcount(); ++i)
      if (!textsurvives(list->item(i), feolonly) || (isdashed && feolonly && isquoted(list->item(i))))
        return false;
    return true;
  }

  // Values that were taken out of bounds stand between brackets that allow them. Exceptions: a definition
  // without an option for these brackets; marks that reading the line would set in another way, as after one
  // of two values was replaced by a good one, or the default taken over a bad one; a default that is not
  // within the bounds.
  bool valuessurvive(toption& option) {
    const bool isbracketed = option.outofbounds() != 0, hastwo = option.subtype() == tsubtype::twovalues;
    if (isbracketed && !hasbrackets()) return false;
    bool islegal = true;
    for (const bool second : {false, true}) {
      if (option.subtype() == tsubtype::novalue || (second && !hastwo)) continue;
      const tvaluetext text = second ? option.getasstring2() : option.getasstring();
      // of two values only the second is read to the end of the line
      if (!valuesurvives(option, text, feolonly && second == hastwo, islegal)) return false;
      if (hastwo && text.view() == "*") return false;  // Exception: it leaves the value as it is.
      if (!islegal && !isbracketed) return false;
    }
    return isbracketed != islegal;
  }

  bool hasbrackets() {
    const auto allows = [](const toption* option) {
      const auto* immediate = ifis<timmediateoption>(option);
      return immediate != nullptr && immediate->immkind() == timmkind::nobounds;
    };
    for (std::int32_t i = 0; i < fstore.getcount(); ++i)
      if (allows(fstore.getobjects(i))) return allows(found(fstore.getobjects(i)->name()));
    return false;
  }

  // Whether the option takes the text again as the same value; if so, `islegal` says whether it is within the
  // bounds.
  bool valuesurvives(const toption& option, std::string_view text, bool toend, bool& islegal) const {
    std::int32_t integer = 0;
    double dbl = 0.0;
    if (const auto* bounds = ifis<tintoption>(&option)) {
      islegal = strasintex(text, integer) && bounds->lo() <= integer && integer <= bounds->hi();
      return true;
    }
    if (const auto* bounds = ifis<tdbloption>(&option)) {
      // Exceptions: infinity, what is none, and the largest numbers, which 15 digits round to infinity.
      if (!strasdoubleex(text, dbl)) return false;
      islegal = bounds->lo() <= dbl && dbl <= bounds->hi();
      return true;
    }
    if (const auto* items = ifis<tenumintoption>(&option)) {
      islegal = strasintex(text, integer) && items->hasitem(integer);
      return true;
    }
    if (const auto* enumstr = ifis<tenumstroption>(&option)) {
      // Exceptions: a default that is none of the values or spelled in another way; a value that is none of
      // them is kept as the empty text.
      const std::int32_t item = enumstr->items().indexof(text);
      islegal = item >= 0;
      return textsurvives(text, toend) &&
             text == (islegal ? enumstr->items().getname(item) : std::string_view());
    }
    islegal = true;
    if (option.opttype() == topttype::boolean)
      return text == "0" || text == "1";  // Exception: other integers.
    return option.opttype() == topttype::string && textsurvives(text, toend);
  }

  // ---- texts

  static bool isquoted(std::string_view text) {
    return text.empty() || text.find_first_of(" \t,") != text.npos;
  }

  bool hascomment(std::string_view text) const {
    return std::ranges::any_of(text, [&](char each) { return inset(fstore.eolcommset(), each); });
  }

  bool textsurvives(std::string_view text, bool toend) const {
    // Exceptions: double quotes, and characters that end a line or the input.
    if (text.find_first_of("\"\n\x1a") != text.npos) return false;
    // Exceptions: a text of 255 characters has no room for the closing quote; to the end of the line, blanks
    // at either end are lost.
    if (isquoted(text))
      return text.size() < shortstring::capacity && (!toend || trim(text).size() == text.size());
    // Exceptions: a comment character at the beginning of a word or, to the end of the line, anywhere in it;
    // a carriage return belongs to the end of the line.
    return !hascomment(toend ? text : text.substr(0, 1)) && text.back() != '\r';
  }

  // ---- dot entries and indicators

  // Exceptions: lines that became longer than what is read of a line, and elements cut so that the quote is
  // missing.
  template <class tlist>
  static bool elementssurvive(const tlist& elements, std::size_t& length) {
    for (std::int32_t i = 0; i < elements.count(); ++i) {
      const std::string_view element = elements.get(i);
      length += element.size() + 1;
      const bool needsquote = element[0] == '\'' || element[0] == '"';
      if (needsquote && (element.size() < 2 || element.back() != element[0])) return false;
    }
    return length <= longestline;
  }

  bool dotentriessurvive() {
    const auto& entries = fstore.dotoptions();
    for (std::int32_t i = 0; i < entries.count(); ++i) {
      const auto& entry = *entries.getobject(i);
      const toption& option = *fstore.getobjects(entry.optionindex());
      const tnumbertext text = dbltostr(entry.value());
      std::size_t length = entries.getname(i).size() + option.name().size() + text.view().size() + 10;
      bool islegal = false;
      // Exceptions: options that are no numbers, whose values the entry does not hold, or that take no value;
      // values out of bounds.
      if (option.name().size() > longestname || option.subtype() == tsubtype::novalue ||
          !(option.holdsinteger() || option.opttype() == topttype::dbl) ||
          fstore.optlookup(option.name()) != entry.optionindex() ||
          !valuesurvives(option, text, false, islegal) || !islegal ||
          !elementssurvive(entry.indices(), length))
        return false;
    }
    return true;
  }

  bool indicatorssurvive() const {
    const auto* items = fstore.indicators();
    for (std::int32_t i = 0; items != nullptr && i < items->count(); ++i) {
      const auto& equation = items->get(i)->equation();
      const auto& variable = items->get(i)->variable();
      std::size_t length = fstore.dotname().size() + equation.name().size() + variable.name().size() + 10;
      if (!elementssurvive(equation.elements(), length) || !elementssurvive(variable.elements(), length))
        return false;
    }
    return true;
  }

  wexcorin::tvksoptions& fstore;
  bool feolonly;
};

// The file that both handles write, which says nothing else about it.
std::string written(tpair& pair, const std::string& filename) {
  const std::int32_t before = pair.one(optmessagecount);
  std::array<std::string, 2> bytes;
  const auto writtenby = [&](std::size_t form, auto write) {
    writefile(filename, "what was there before");
    const std::int32_t code = write();
    bytes[form] = readfile(filename);
    return code;
  };
  ttext name(filename);
  name.prepare(true);
  const auto first = [&] {
    return optwriteparameterfile(pair.handle(0), name.pass<const optshortstring*>(0));
  };
  const auto second = [&] { return coptwriteparameterfile(pair.handle(1), filename.c_str()); };
  HOLDS(agreed([&] { return writtenby(0, first); }, [&] { return writtenby(1, second); }) == 0, "written");
  HOLDS(bytes[0] == bytes[1], bytes[0], bytes[1]);
  HOLDS(pair.one(optmessagecount) == before, "a message about writing");
  return bytes[0];
}

}  // namespace

void checkroundtrip(tpair& pair, bool eolonly) {
  written(pair, "out1");
  tjudge judge(*pair.handle(0), eolonly);
  judge.resetlost(pair);
  const std::string first = written(pair, "out1");
  if (pair.definition() == nullptr) return;
  tpair again;
  writefile("round.def", *pair.definition());
  HOLDS(again.readdefinition("round.def") == 0, "definition");
  again.clearmessages();
  again.one(opteolonlyset, eolonly ? 1 : 0);
  HOLDS(again.call(BOTH(readparameterfile), ttext("out1")) == 0, "what was written");
  const std::string second = written(again, "out2");
  if (pair.wasfull() || !judge.restsurvives()) return;
  std::int32_t errors{}, warnings{};
  again.one(opterrorcount, errors, warnings);
  HOLDS(errors == 0, first, messages(again));
  HOLDS(first == second, first, second);
}

}  // namespace fuzzing

// The round trip of a parameter file, and the settings that the format cannot express.
#include "fuzz/support/roundtrip.h"

#include <vector>

#include "api/handle.h"
#include "base/numtext.h"
#include "fuzz/support/state.h"

namespace fuzzing {

namespace {

using wexcorin::toption;
using wexcorin::topttype;
using wexcorin::tsubtype;

constexpr std::size_t longestname = 250;   // with dashes and signs around it a name still fits a text
constexpr std::size_t longestline = 1020;  // what follows in a line is not read

std::string_view upto(std::string_view text, char character) { return text.substr(0, text.find(character)); }

class tjudge {
 public:
  tjudge(wexcorin::tvksoptions& store, bool eolonly) : fstore(store), feolonly(eolonly) {}

  // The numbers of the options whose values do not survive.
  std::vector<std::int32_t> lostoptions() {
    std::vector<std::int32_t> lost;
    for (std::int32_t i = 0; i < fstore.getcount(); ++i) {
      toption& option = *fstore.getobjects(i);
      if (option.defined() != 0 && option.name().substr(0, 1) != "." && !survives(option))
        lost.push_back(i + 1);
    }
    return lost;
  }
  // Whether everything else does.
  bool restsurvives() { return !commentsbreakformat() && dotentriessurvive() && indicatorssurvive(); }

 private:
  // Exception: the definition makes a comment character of one that the format itself needs.
  bool commentsbreakformat() const {
    for (const char needed : std::string_view("=(),$*"))
      if (wexcorin::inset(fstore.eolcommset(), needed)) return true;
    return false;
  }

  // ---- names: the option that a reader finds for a key

  toption* found(std::string_view key) {
    if (key.size() > longestname) return nullptr;
    const bool isminos = fstore.lookupmode() == wexcorin::tlookupmode::minos;
    // Exception: in lookup mode Minos keys with underscores are unknown, and names of lists are written so.
    if (isminos && key.find('_') != std::string_view::npos) return nullptr;
    // Exception: an option that bears the name of the indicator keyword.
    const std::string_view first = upto(key, ' ');
    if (!fstore.dotname().empty() && wexcorin::struequal(first, fstore.dotname())) return nullptr;
    return isminos && key.substr(0, 2) != "--" ? foundinwords(key) : fstore.optionasobj(key);
  }

  // Up to four words, each beginning with a letter; the first words that name an option are taken for the
  // key.
  toption* foundinwords(std::string_view key) {
    std::string name;
    for (int words = 0; words < 4; ++words) {
      const std::string_view word = upto(key, ' ');
      if (word.empty() || !wexcorin::isletter(word[0])) return nullptr;
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
    const bool islist = option.opttype() == topttype::strlist;
    if (option.opttype() == topttype::multilist || option.opttype() == topttype::macro ||
        option.opttype() == topttype::immediate)
      return true;  // not written
    if (islist && wexcorin::as<wexcorin::tstrlistoption>(option).itemcount() == 0) return true;
    // Exception: names that stand for another option, as after a duplicate or where only parts of words
    // count.
    if (found(islist ? option.name() : option.getname().view()) != &option) return false;
    const bool isdashed = option.name().substr(0, 2) == "--";
    // Exception: an obsolete option, set through its synonym, a macro or the client, is written under its own
    // name.
    if (option.hasdeprecation(wexcorin::tdeprecation::obsolete) && !isdashed) return false;
    return islist ? listsurvives(wexcorin::as<wexcorin::tstrlistoption>(option), isdashed)
                  : valuessurvive(option);
  }

  bool listsurvives(const wexcorin::tstrlistoption& list, bool isdashed) const {
    for (std::int32_t i = 0; i < list.itemcount(); ++i) {
      if (!textsurvives(list.item(i), feolonly)) return false;
      // Exception: to the end of the line, the texts of such lists are taken as they stand, quotes included.
      if (isdashed && feolonly && isquoted(list.item(i))) return false;
    }
    return true;
  }

  // Values that were taken out of bounds stand between brackets that allow them. Exceptions: a definition
  // without an option for these brackets; marks that reading the line would set in another way, as after one
  // of two values was replaced by a good one, or the default taken over a bad one; a default that is not
  // within the bounds.
  bool valuessurvive(toption& option) {
    const bool isbracketed = option.outofbounds() != 0;
    if (isbracketed && !hasbrackets()) return false;
    bool isreadbracketed = false;
    if (option.subtype() != tsubtype::novalue) {
      const bool hastwo = option.subtype() == tsubtype::twovalues;
      for (const bool second : {false, true}) {
        if (second && !hastwo) break;
        const wexcorin::tvaluetext text = second ? option.getasstring2() : option.getasstring();
        bool islegal = false;
        // of two values only the second is read to the end of the line
        if (!valuesurvives(option, text, feolonly && second == hastwo, islegal)) return false;
        if (hastwo && text.view() == "*") return false;  // Exception: it leaves the value as it is.
        if (!islegal && !isbracketed) return false;
        isreadbracketed = !islegal;
      }
    }
    return isbracketed == isreadbracketed;
  }

  bool hasbrackets() {
    for (std::int32_t i = 0; i < fstore.getcount(); ++i) {
      const auto* immediate = wexcorin::ifis<wexcorin::timmediateoption>(fstore.getobjects(i));
      if (immediate == nullptr || immediate->immkind() != wexcorin::timmkind::nobounds) continue;
      const auto* reached = wexcorin::ifis<wexcorin::timmediateoption>(found(immediate->name()));
      return reached != nullptr && reached->immkind() == wexcorin::timmkind::nobounds;
    }
    return false;
  }

  // Whether the option takes the text again as the same value; if so, `islegal` says whether it is within the
  // bounds.
  bool valuesurvives(const toption& option, std::string_view text, bool toend, bool& islegal) const {
    switch (option.opttype()) {
      case topttype::integer: {
        const auto& integer = wexcorin::as<wexcorin::tintoption>(option);
        std::int32_t value = 0;
        islegal = wexcorin::strasintex(text, value) && integer.lo() <= value && value <= integer.hi();
        return true;
      }
      case topttype::dbl: {
        // Exceptions: infinity, what is none, and the largest numbers, which 15 digits round to infinity.
        const auto& dbl = wexcorin::as<wexcorin::tdbloption>(option);
        double value = 0.0;
        if (!wexcorin::strasdoubleex(text, value)) return false;
        islegal = dbl.lo() <= value && value <= dbl.hi();
        return true;
      }
      case topttype::boolean:
        islegal = true;
        return text == "0" || text == "1";  // Exception: other integers.
      case topttype::enumint: {
        std::int32_t value = 0;
        islegal = wexcorin::strasintex(text, value) &&
                  wexcorin::as<wexcorin::tenumintoption>(option).hasitem(value);
        return true;
      }
      case topttype::enumstr: {
        // Exceptions: a default that is none of the values or spelled in another way; a value that is none of
        // them is kept as the empty text.
        const auto& items = wexcorin::as<wexcorin::tenumstroption>(option).items();
        const std::int32_t item = items.indexof(text);
        islegal = item >= 0;
        return textsurvives(text, toend) && text == (islegal ? items.getname(item) : std::string_view());
      }
      case topttype::string: islegal = true; return textsurvives(text, toend);
      case topttype::multilist:
      case topttype::strlist:
      case topttype::macro:
      case topttype::immediate: break;
    }
    return false;
  }

  // ---- texts

  static bool isquoted(std::string_view text) {
    return text.empty() || text.find_first_of(" \t,") != std::string_view::npos;
  }

  bool hascomment(std::string_view text) const {
    for (const char character : text)
      if (wexcorin::inset(fstore.eolcommset(), character)) return true;
    return false;
  }

  bool textsurvives(std::string_view text, bool toend) const {
    // Exceptions: double quotes, and characters that end a line or the input.
    if (text.find_first_of("\"\n\x1a") != std::string_view::npos) return false;
    if (isquoted(text)) {
      // Exception: a text of 255 characters has no room for the closing quote.
      if (text.size() >= wexcorin::shortstring::capacity) return false;
      // Exception: to the end of the line, blanks at either end are lost.
      return !toend || wexcorin::trim(text).size() == text.size();
    }
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
    return true;
  }

  bool dotentriessurvive() {
    const auto& entries = fstore.dotoptions();
    for (std::int32_t i = 0; i < entries.count(); ++i) {
      const auto& entry = *entries.getobject(i);
      const toption& option = *fstore.getobjects(entry.optionindex());
      const wexcorin::tnumbertext text = wexcorin::dbltostr(entry.value());
      std::size_t length = entries.getname(i).size() + option.name().size() + text.view().size() + 10;
      bool islegal = false;
      // Exceptions: options that are no numbers, whose values the entry does not hold, or that take no value;
      // values out of bounds.
      if (option.name().size() > longestname || option.subtype() == tsubtype::novalue) return false;
      if (!option.holdsinteger() && option.opttype() != topttype::dbl) return false;
      if (fstore.optlookup(option.name()) != entry.optionindex()) return false;
      if (!valuesurvives(option, text, false, islegal) || !islegal) return false;
      if (!elementssurvive(entry.indices(), length) || length > longestline) return false;
    }
    return true;
  }

  bool indicatorssurvive() const {
    const auto* items = fstore.indicators();
    for (std::int32_t i = 0; items != nullptr && i < items->count(); ++i) {
      const auto& item = *items->get(i);
      std::size_t length =
          fstore.dotname().size() + item.equation().name().size() + item.variable().name().size() + 10;
      if (!elementssurvive(item.equation().elements(), length)) return false;
      if (!elementssurvive(item.variable().elements(), length) || length > longestline) return false;
    }
    return true;
  }

  wexcorin::tvksoptions& fstore;
  bool feolonly;
};

std::string written(tpair& pair, std::string_view filename) {
  const std::int32_t before = pair.callone(optmessagecount);
  std::array<std::string, 2> bytes;
  const ttextin name(filename);
  tfiles& files = tfiles::get();
  const auto writtenby = [&](int form) {
    files.write(filename, "what was there before");
    const std::int32_t code = form == 0 ? optwriteparameterfile(pair.handle(0), name.asshort(0))
                                        : coptwriteparameterfile(pair.handle(1), name.aszero());
    bytes[static_cast<std::size_t>(form)] = files.read(filename);
    return code;
  };
  FUZZ_CHECK(agreed([&] { return writtenby(0); }, [&] { return writtenby(1); }) == 0, "written");
  FUZZ_CHECK(bytes[0] == bytes[1], bytes[0] + "\n" + bytes[1]);
  FUZZ_CHECK(pair.callone(optmessagecount) == before, "a message about writing");
  return bytes[0];
}

std::int32_t errors(tpair& pair) {
  tintresult errorcount, warnings;
  pair.callone(opterrorcount, errorcount, warnings);
  return errorcount.value();
}

}  // namespace

void checkroundtrip(tpair& pair, bool eolonly) {
  written(pair, "out1");
  tjudge judge(*pair.handle(0), eolonly);
  for (const std::int32_t number : judge.lostoptions()) pair.callone(optresetnr, number);
  const std::string first = written(pair, "out1");
  if (pair.definition() == nullptr) return;
  tpair again;
  tfiles::get().write("round.def", *pair.definition());
  FUZZ_CHECK(again.readdefinition("round.def") == 0, "definition");
  again.clearmessages();
  again.callone(opteolonlyset, eolonly ? 1 : 0);
  FUZZ_CHECK(again.readparameters("out1") == 0, "what was written");
  const std::string second = written(again, "out2");
  if (pair.wasfull() || !judge.restsurvives()) return;
  FUZZ_CHECK(errors(again) == 0, first + "\n" + messages(again));
  FUZZ_CHECK(first == second, first + "\nand then\n" + second);
}

}  // namespace fuzzing

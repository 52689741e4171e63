// elements.hpp: what queries of the class options return, and how each is read. Part of wexcorin.hpp.
#ifndef WEXCORIN_ELEMENTS_HPP
#define WEXCORIN_ELEMENTS_HPP

#include <cstdint>
#include <string>

#include "wexcorin/text.hpp"
#include "wexcorin/wexcorin.h"

namespace wexcorin {

// A message as optgetmessage returns it.
struct message {
  std::int32_t kind;  // optMsgInputEcho ...
  std::string text;
};

// What optgetinfonr, optgethelpnr and optgetopthelpnr return for an option.
struct option {
  std::int32_t number;
  std::string name;       // as in the definition file: it can be looked up in every lookup mode
  std::int32_t datatype;  // optDataInteger ...
  std::int32_t type;      // optTypeInteger ...
  std::int32_t subtype;   // optsubRequired ...
  std::int32_t group;     // group number, see findgroup
  std::int32_t refnr;     // reference number
  std::int32_t helpflag;  // above 0: listed in the help
  std::int32_t defined;   // 1: the first value was set, 2: the second, 3: both
  std::int32_t recent;    // the same since the recent bits were cleared
  std::string help;
};

// An item of an enumstr or enumint option.
struct enumvalue {
  std::int32_t integer;  // 0 for enumstr
  std::string text;
  std::int32_t helpflag;
  std::string help;
};

// A text taken from a list, and the name of the strlist option that held it.
struct listtext {
  std::string option;
  std::string text;
};

// A synonym and the name of its option.
struct synonym {
  std::string name;
  std::string option;  // empty when the definition names an unknown option
};

// A group of options.
struct group {
  std::string name;
  std::int32_t number;
  std::int32_t helpflag;
  std::string help;
};

// A dot entry; its index elements are in options::indices.
struct dotentry {
  std::int32_t number;
  std::string symbol;
  std::int32_t option;      // number of the dot option
  std::int32_t dimensions;  // number of index elements
  double value;
};

// An indicator; its index elements are in options::equationelements and variableelements.
struct indicator {
  std::int32_t number;
  std::string equation;
  std::string variable;
  std::int32_t equationdimensions;
  std::int32_t variabledimensions;
  bool value;
};

// The inclusive bounds and the default of an integer or double option.
template <class tvalue>
struct bounds {
  tvalue low;
  tvalue high;
  tvalue defaultvalue;
};

// How many messages are errors and warnings, see opterrorcount.
struct counts {
  std::int32_t errors;
  std::int32_t warnings;
};

namespace detail {

// ---- elements of ranges: `outer` is the number of what contains the element, or 0

inline message readmessage(tvksoptions* handle, std::int32_t, std::int32_t number) {
  textout text;
  message result{};
  optgetmessage(handle, number, text, &result.kind);
  result.text = text.str();
  return result;
}

inline synonym readsynonym(tvksoptions* handle, std::int32_t, std::int32_t number) {
  textout name;
  textout target;
  optgetsynonym(handle, number, name, target);
  return synonym{name.str(), target.str()};
}

inline option readoption(tvksoptions* handle, std::int32_t, std::int32_t number) {
  option result{};
  textout name;
  textout blankname;  // not used: in lookup mode Minos it cannot be looked up
  textout help;
  optgetinfonr(handle, number, &result.defined, &result.recent, &result.refnr, &result.datatype, &result.type,
               &result.subtype);
  optgethelpnr(handle, number, name, help);
  optgetopthelpnr(handle, number, blankname, &result.helpflag, &result.group);
  result.number = number;
  result.name = name.str();
  result.help = help.str();
  return result;
}

inline enumvalue readenumvalue(tvksoptions* handle, std::int32_t outer, std::int32_t item) {
  textout text;
  textout help;
  enumvalue result{};
  optgetenumvalue(handle, outer, item, &result.integer, text);
  optgetenumhelp(handle, outer, item, &result.helpflag, help);
  result.text = text.str();
  result.help = help.str();
  return result;
}

inline group readgroup(tvksoptions* handle, std::int32_t, std::int32_t position) {
  textout name;
  textout help;
  group result{};
  optgetgroupnr(handle, position, name, &result.number, &result.helpflag, help);
  result.name = name.str();
  result.help = help.str();
  return result;
}

inline dotentry readdotentry(tvksoptions* handle, std::int32_t, std::int32_t number) {
  textout symbol;
  dotentry result{};
  optgetdotoptnr(handle, number, symbol, &result.option, &result.dimensions, &result.value);
  result.number = number;
  result.symbol = symbol.str();
  return result;
}

inline indicator readindicator(tvksoptions* handle, std::int32_t, std::int32_t number) {
  textout equation;
  textout variable;
  indicator result{};
  std::int32_t value = 0;
  optgetindicatornr(handle, number, equation, variable, &result.equationdimensions,
                    &result.variabledimensions, &value);
  result.number = number;
  result.equation = equation.str();
  result.variable = variable.str();
  result.value = value != 0;
  return result;
}

template <std::int32_t (*getter)(tvksoptions*, std::int32_t, std::int32_t, optshortstring*)>
std::string readtext(tvksoptions* handle, std::int32_t outer, std::int32_t number) {
  textout text;
  getter(handle, outer, number, text);
  return text.str();
}

}  // namespace detail

}  // namespace wexcorin

#endif

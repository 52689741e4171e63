// The part of the parameter reader for dot lines and indicator lines. A line with an error adds no dot entry
// and no indicator to the store.
#include "input/parameterreader.h"
#include "options/checkboolean.h"

namespace optcore {

// ---- elements = "(" element { "," element } ")" , or in [] or {} .

// Skips an opening bracket, if one comes next, and sets `closer` to the bracket that closes it.
bool tparameterreader::opensbracket(char& closer) {
  static const tcharset openers = tcharset().set('(').set('[').set('{');
  char opener = '\0';
  if (!fscanner.skiptochars(openers, opener)) return false;
  closer = opener == '(' ? ')' : opener == '[' ? ']' : '}';
  return true;
}

// Skips the comma or the closing bracket after an element; `more` is true after a comma. Returns false if
// neither comes next.
bool tparameterreader::nextelement(char closer, bool& more) {
  more = fscanner.skiptochar(',');
  return more || fscanner.skiptochar(closer);
}

// ---- dotline = "." identifier [ elements ] [ "=" | ":=" ] value .

void tparameterreader::dotline() {
  fscanner.nextch();
  std::string_view identifier;
  messages().tellstep(tstep::tkind::dotline, fkey);
  if (!fscanner.nextident(identifier)) {
    error(concat(".suffix expected for key ", quoted(fkey)), {fkey});
    return;
  }
  const shortstring suffix = concat(".", identifier);
  const std::int32_t index = definition().optlookup(suffix.view());
  if (index < 0) {
    error(concat("unknown .suffix ", quoted(suffix), " for key ", quoted(fkey)),
          {.name = suffix, .problem = tsubject::tproblem::unknowndotoption});
    return;
  }
  const toption& option = definition().option(index);
  messages().tellstep(tstep::tkind::dotline, fkey, &option);
  const std::int32_t errorsbefore = messages().errorcount();
  dotentry(index);
  if (messages().errorcount() > errorsbefore) {
    fstore.dotoptions().rejectentry();
    return;
  }
  fstore.dotoptions().keepentry();
  messages().tellstep(tstep::tkind::keptentry, fkey, &option);
}

void tparameterreader::dotentry(std::int32_t optionindex) {
  fstore.dotoptions().addentry(fkey, optionindex);
  if (!dotelements()) return;
  fscanner.skipbecomes();
  std::string_view text;
  if (fscanner.nexttoken(text))
    fstore.dotoptions().setvalue(text);
  else
    error(concat("Value expected for .option ", quoted(fkey)), {fkey});
}

// Returns false when an error ends the dot line here.
bool tparameterreader::dotelements() {
  char closer = '\0';
  bool more = opensbracket(closer);
  while (more) {
    shortstring element;
    if (!fscanner.nextindex(element)) {
      error(concat("Element expected for .option ", quoted(fkey)), {fkey});
      return false;
    }
    const char first = element.view()[0];
    if (first != '*' && first != '\'' && first != '"') {
      error(concat("Set name not allowed .option ", quoted(fkey)), {fkey});
      return false;
    }
    if (!fstore.dotoptions().addindex(element))
      error(concat("Too many dimensions for .option ", quoted(fkey)), {fkey});
    if (!nextelement(closer, more))
      error(concat("Closing bracket ", quoted({&closer, 1}), " expected for .option ", quoted(fkey)), {fkey});
  }
  return true;
}

// ---- indicatorline = identifier [ elements ] "$" identifier [ elements ] [ "=" | ":=" ] boolean .

void tparameterreader::indicatorline() {
  tindicatorlist& items = fstore.indicators();
  messages().tellstep(tstep::tkind::indicator, fkey);
  const std::int32_t errorsbefore = messages().errorcount();
  items.dropitem();
  if (!indicatoritem()) fscanner.skiptolineend();
  if (messages().errorcount() > errorsbefore)
    items.rejectitem();
  else if (items.keepitem())
    messages().tellstep(tstep::tkind::keptentry, fkey);
}

// Returns false when the rest of the line is to be discarded.
bool tparameterreader::indicatoritem() {
  if (!equation()) return false;
  if (!fscanner.skiptochar('$')) {
    error(concat("$ expected after equation identifier ", quoted(fstore.indicators().equation())),
          {fstore.indicators().equation()});
    return false;
  }
  return variable() && indicatorvalue();
}

bool tparameterreader::equation() {
  std::string_view name;
  fscanner.skipbl();
  if (!fscanner.nextident(name)) {
    error("Equation ID expected for indicator");
    return false;
  }
  tindicatorlist& items = fstore.indicators();
  items.addentry(name);
  indicatorelements(name, [&](std::string_view element) { items.addequdim(element); });
  return true;
}

// The message about a missing variable is the same as the one about a missing equation.
bool tparameterreader::variable() {
  std::string_view name;
  fscanner.skipbl();
  if (!fscanner.nextident(name)) {
    error("Equation ID expected for indicator");
    return false;
  }
  if (name.size() > maxidentifier)
    error(concat("Variable ", quoted(name), " is not a good identifier"), {name});
  tindicatorlist& items = fstore.indicators();
  items.setvariable(name);
  indicatorelements(name, [&](std::string_view element) { items.addvardim(element); });
  return true;
}

// The elements of the identifier end at the first error.
template <class taddelement>
void tparameterreader::indicatorelements(std::string_view name, taddelement addelement) {
  char closer = '\0';
  bool more = opensbracket(closer);
  while (more) {
    shortstring element;
    if (!fscanner.nextindex(element))
      return error(concat("Unique element expected for indicator id ", quoted(name)), {name});
    if (element.view() == "*")
      return error(concat("Universe not allowed for indicator id ", quoted(name)), {name});
    addelement(element.view());
    if (!nextelement(closer, more))
      error(concat("Closing bracket ", quoted({&closer, 1}), " expected for id ", quoted(name)), {name});
  }
}

bool tparameterreader::indicatorvalue() {
  tindicatorlist& items = fstore.indicators();
  const std::string_view equation = items.equation();
  fscanner.skipbecomes();
  std::string_view text;
  if (!fscanner.nexttoken(text)) {
    error(concat("Boolean value expected for equation indicator ", quoted(equation)), {equation});
    return false;
  }
  const tbooleanword word = checkboolean(text);
  if (word == tbooleanword::neither) {
    error(concat("Boolean value expected for equation indicator ", quoted(equation), ", Saw ", quoted(text)),
          {.name = equation, .value = text});
    return false;
  }
  items.setvalue(word == tbooleanword::yes);
  return true;
}

}  // namespace optcore

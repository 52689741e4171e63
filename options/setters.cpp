// The setters of the option types. A value is checked against the bounds or the legal values, stored, and
// marked as set; problems are filed as messages. With bound checking off, an illegal value is stored
// nevertheless, and the same messages are warnings. Multilists and macros are in spread.cpp.

#include "base/textblocks.h"
#include "options/checkboolean.h"
#include "options/toption.h"
#include "options/vksoptions.h"

namespace optcore {

void toption::setdefined(std::int32_t bits) {
  if (bits == 0) {
    fdefined = 0;
    fdefinedr = 0;
    return;
  }
  addbits(fdefined, bits);
  if (fowner->optrecentenabled()) addbits(fdefinedr, bits);
  fowner->notifyassigned(*this, bits);
}

namespace {

// ---- what the setters share

// The name that messages quote: as the caller wrote it, or else the option's own.
std::string_view quotedname(const toption& option) {
  const std::string_view written = option.owner().messages().curoptname();
  return written.empty() ? option.name() : written;
}

// The text of the first message about a refused value.
shortstring refusal(const toption& option, std::string_view head, std::string_view saw) {
  return concat(head, quoted(quotedname(option)), " saw ", quoted(saw));
}

void fileparseerror(const toption& option, std::string_view head, std::string_view saw) {
  tmessagelist& messages = option.owner().messages();
  if (messages.ignores(tmsgkind::valueerror)) return;
  messages.addmessage(tmsgkind::valueerror, refusal(option, head, saw), {quotedname(option), &option, saw});
}

// Files the two messages about an illegal value: `saw` returns the value as text, `legal` the text of the
// second message. Returns true if the value is to be stored nevertheless.
template <class tsaw, class tlegal>
bool reportillegal(const toption& option, std::string_view head, tsaw saw, tlegal legal) {
  const bool nobounds = option.owner().nobounds();
  tmessagelist& messages = option.owner().messages();
  const tmsgkind kind = nobounds ? tmsgkind::valuewarning : tmsgkind::valueerror;
  if (!messages.ignores(kind)) {
    const auto value = saw();
    messages.addmessage(kind, refusal(option, head, value),
                        {quotedname(option), &option, value, tsubject::tproblem::illegalvalue});
    messages.addexplanation(kind, legal());
  }
  return nobounds;
}

// The second message for an option with bounds; `bound` returns a bound as text.
template <class tvalue, class tbound>
shortstring validrange(tvalue lo, tvalue hi, tbound bound) {
  return concat("   Valid range is ", bound(lo).view(), " to ", bound(hi).view());
}

// Marks a value that was just stored as set, and an illegal one as out of bounds. A legal value clears the
// out-of-bounds marks of both values.
void markstored(toption& option, twhich which, bool legal) {
  if (legal)
    option.clearoutofbounds();
  else
    option.addoutofbounds(valuebit(which));
  option.setdefined(valuebit(which));
}

// Two blanks come before the first value.
shortstring possiblevalues(const txstringlistobj<toptionx>& items) {
  shortstring text = concat("   Possible values are ");
  for (std::int32_t i = 0; i < items.count() && !text.full(); ++i) text.append(" ").append(items.getname(i));
  return text;
}

shortstring possiblevalues(const txlistobj<tlistoptionx>& items) {
  shortstring text = concat("   Possible values are ");
  for (std::int32_t i = 0; i < items.count() && !text.full(); ++i)
    text.append(" ").append(inttostr(items.get(i)->enumvalue()));
  return text;
}

}  // namespace

// ---- integer

void tintoption::setasinteger12(twhich which, std::int32_t value) {
  const bool legal = flo <= value && value <= fhi;
  if (!legal && !reportillegal(
                    *this, "Integer range error for option ", [&] { return inttostr(value); },
                    [&] { return validrange(flo, fhi, inttostrex); }))
    return;
  fvalues.store(which, value);
  markstored(*this, which, legal);
}

void tintoption::setasstring12(twhich which, std::string_view text) {
  std::int32_t value = 0;
  if (strasintex2(text, value))
    setasinteger12(which, value);
  else
    fileparseerror(*this, "Integer expected, for option ", text);
}

// ---- double

void tdbloption::setasdouble12(twhich which, double value) {
  const bool legal = flo <= value && value <= fhi;
  if (!legal && !reportillegal(
                    *this, "Double out of range for option ", [&] { return dbltostr(value); },
                    [&] { return validrange(flo, fhi, dbltostrex); }))
    return;
  fvalues.store(which, value);
  markstored(*this, which, legal);
}

void tdbloption::setasstring12(twhich which, std::string_view text) {
  double value = 0.0;
  if (strasdoubleex(text, value))
    setasdouble12(which, value);
  else
    fileparseerror(*this, "Double expected for option ", text);
}

// ---- string

void tstringoption::setasstring12(twhich which, std::string_view text) {
  fvalues.store(which, text);
  setdefined(valuebit(which));
}

// ---- boolean

void tbooleanoption::setasinteger12(twhich which, std::int32_t value) {
  const bool legal = value == 0 || value == 1;
  if (!legal && !reportillegal(
                    *this, "Boolean out of range for option ", [&] { return inttostr(value); },
                    [] { return "   Valid values are 0 or 1"; }))
    return;
  fvalues.store(which, value);
  markstored(*this, which, legal);
}

void tbooleanoption::setasstring12(twhich which, std::string_view text) {
  switch (checkboolean(text)) {
    case tbooleanword::yes: setasinteger12(which, 1); break;
    case tbooleanword::no: setasinteger12(which, 0); break;
    case tbooleanword::neither: fileparseerror(*this, "Boolean value expected for option ", text); break;
  }
}

// ---- enumstr

void tenumstroption::setasstring12(twhich which, std::string_view text) {
  const std::int32_t item = fitems.indexof(text);
  const bool legal = item >= 0;
  if (!legal &&
      !reportillegal(
          *this, "Unknown value for option ", [&] { return text; }, [&] { return possiblevalues(fitems); }))
    return;
  // stored as the definition spells it; an unknown value is stored as the empty text
  fvalues.store(which, legal ? fitems.storedtext(item) : tstoredtext());
  markstored(*this, which, legal);
}

// ---- enumint

void tenumintoption::setasinteger12(twhich which, std::int32_t value) {
  const bool legal = hasitem(value);
  if (!legal && !reportillegal(
                    *this, "Unknown value for option ", [&] { return inttostr(value); },
                    [&] { return possiblevalues(fitems); }))
    return;
  fvalues.store(which, value);
  markstored(*this, which, legal);
}

void tenumintoption::setasstring12(twhich which, std::string_view text) {
  std::int32_t value = 0;
  if (strasintex(text, value))
    setasinteger12(which, value);
  else
    fileparseerror(*this, "Integer expected, for option ", text);
}

// ---- any type

void toption::setvaluefromtext(twhich which, std::string_view text) {
  switch (fopttype) {
    case topttype::integer: as<tintoption>(*this).setasstring12(which, text); break;
    case topttype::dbl: as<tdbloption>(*this).setasstring12(which, text); break;
    case topttype::string: as<tstringoption>(*this).setasstring12(which, text); break;
    case topttype::boolean: as<tbooleanoption>(*this).setasstring12(which, text); break;
    case topttype::enumstr: as<tenumstroption>(*this).setasstring12(which, text); break;
    case topttype::enumint: as<tenumintoption>(*this).setasstring12(which, text); break;
    case topttype::strlist: as<tstrlistoption>(*this).setasstring(text); break;
    case topttype::multilist: as<tmultilistoption>(*this).setasstring(text); break;
    case topttype::macro: as<tmacrooption>(*this).setasstring(text); break;
    case topttype::immediate: break;
  }
}

namespace {

bool hasdoublequote(std::string_view text) { return contains(text, '"'); }

[[gnu::noinline]] void refusedoublequote(const toption& option, std::string_view text) {
  tmessagelist& messages = option.owner().messages();
  messages.addmessage(tmsgkind::valueerror, "Bad double-quote in value", {quotedname(option), &option, text});
}

}  // namespace

void toption::setasstring(std::string_view text) {
  if (fsubtype == tsubtype::novalue)
    setdefined(firstvaluebit);
  else if (hasdoublequote(text))
    refusedoublequote(*this, text);
  else
    setvaluefromtext(twhich::first, text);
}

void toption::setasstring2(std::string_view text) {
  if (hasdoublequote(text))
    refusedoublequote(*this, text);
  else
    setvaluefromtext(twhich::second, text);
}

void tstrlistoption::setasstring(std::string_view text) {
  fitems.startsmall(3);
  fitems.add(text);
  owner().definition().listfilled();
  setdefined(firstvaluebit);
}

}  // namespace optcore

// The help text of a definition: the summary, the alphabetical listing and the description of an option.
#include "output/helplisting.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iterator>
#include <string>
#include <utility>

#include "base/heldsignals.h"
#include "base/systemerror.h"
#include "options/vksoptions.h"

namespace optcore {

namespace {

constexpr std::int32_t indentwidth = 24;
constexpr std::int32_t namewidth = 22;

bool belongsinlisting(const toption& option) { return option.islisted() && option.groupnr() > 0; }

// Parses the whole text as a number of 32 bits. Words for numbers, such as maxint, are names here.
bool asnumber(std::string_view text, std::int32_t& number) {
  return !text.empty() && !isletter(text[0]) && strasintex(text, number);
}

// Writes to standard output, after what the program itself has printed. Nothing of the text stays in the
// buffer of the stream: if it cannot be written now, the program must not stumble over it when it ends.
// Returns 0 or the system's error code.
int print(std::string_view text) noexcept {
  const theldsignals held;
  if (std::fflush(stdout) == 0) {
    const int descriptor = ::fileno(stdout);
    if (descriptor >= 0) return writeall(descriptor, text, nullptr);
    // a stream in memory, which the host put in its place
    if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0) return 0;
  }
  const int error = errno;
  held.take(error);
  return error;
}

}  // namespace

std::int64_t tvksoptions::optshowhelp(std::string_view hlpmsg) {
  thelplisting listing(fdefinition, fmessages);
  listing.show(hlpmsg);
  return listing.cost();
}

std::int32_t tmysortstringlist::compare(std::int32_t i, std::int32_t j) const {
  return strucmpnum(getname(i), getname(j));
}

void thelplisting::show(std::string_view request) {
  const shortstring name = replacechar(' ', '_', request);
  std::int32_t level = 0;
  if (!asnumber(name, level)) {
    if (showoption(request, name)) return;
    level = summarybit;
  }
  if (level < 1) level = defaultlevel;
  const std::int32_t shown = isfull() ? standardoutputbit : summarybit | alphabeticalbit | standardoutputbit;
  if ((level & shown) == 0) return;
  collectnames();
  if ((level & summarybit) != 0) summary((level & marksbit) != 0);
  if ((level & alphabeticalbit) != 0) alphabetical();
  if ((level & standardoutputbit) != 0) tostandardoutput();
}

bool thelplisting::showoption(std::string_view request, std::string_view name) {
  const toption* option = fdefinition.optionasobj(name);
  if (option == nullptr) return false;
  if (isfull()) return true;
  if (!struequal(request, option->getname()))
    addline(request, " is a synonym for ", option->getname().view());
  describe(*option);
  return true;
}

void thelplisting::collectnames() {
  flookedat += fdefinition.getcount() + fdefinition.synonyms().count() + fdefinition.groups().count();
  for (std::int32_t i = 0; i < fdefinition.getcount(); ++i) {
    const toption* option = fdefinition.getobjects(i);
    if (belongsinlisting(*option)) fnames.addobject(option->name(), {option, false});
  }
  for (std::int32_t i = 0; i < fdefinition.synonyms().count(); ++i) {
    const toption* option = fdefinition.synonymtarget(i);
    if (option != nullptr && belongsinlisting(*option))
      fnames.addobject(fdefinition.synonyms().getname(i), {option, true});
  }
  fnames.sortn(fnames.count());
  for (std::int32_t i = 0; i < fnames.count(); ++i) fsorted += std::ssize(fnames.getname(i));
}

// ---- the line buffer

// Appends a piece to the line. An empty piece ends the line, which is filed unless it is empty.
void thelplisting::addbuf(std::string_view piece) {
  if (!piece.empty()) {
    fbuffer.append(piece);
  } else if (!fbuffer.empty()) {
    fmessages.addmessage(tmsgkind::help, fbuffer);
    fputout += std::ssize(fbuffer.view());
    fbuffer.clear();
  }
}

void thelplisting::blankline() {
  endline();
  fmessages.addmessage(tmsgkind::help, {});
}

// ---- summary by group

// The title stays in the line buffer. It is filed by what ends the line next, a group or the alphabetical
// listing; if neither follows, it is never filed.
void thelplisting::summary(bool withmarks) {
  blankline();
  addbuf("Options summary by group");
  collectgroups();
  for (std::int32_t i = 0; i < fdefinition.groups().count() && !isfull(); ++i)
    if (fdefinition.groups().getobject(i)->islisted())
      summarygroup(*fdefinition.groups().getobject(i), withmarks);
}

// Not a hash table: the numbers come from a file, and could be chosen so that their hashes are the same.
void thelplisting::collectgroups() {
  fgroupnames.reserve(static_cast<std::size_t>(fnames.count()));
  for (std::int32_t i = 0; i < fnames.count(); ++i)
    fgroupnames.push_back({fnames.getobject(i).option->groupnr(), i});
  std::ranges::sort(fgroupnames, {}, [](tgroupname name) { return std::pair(name.groupnumber, name.index); });
}

// Groups of the same number all have the same options.
void thelplisting::summarygroup(const tgroupobj& group, bool withmarks) {
  blankline();
  addline(group.helptext());
  const std::int32_t number = group.groupnumber();
  for (auto name = std::ranges::lower_bound(fgroupnames, number, {}, &tgroupname::groupnumber);
       name != fgroupnames.end() && name->groupnumber == number && !isfull(); ++name)
    summaryline(name->index, withmarks);
}

void thelplisting::summaryline(std::int32_t index, bool withmarks) {
  const auto [option, issynonym] = fnames.getobject(index);
  shortstring text = fdefinition.nounderscore(fnames.getname(index));
  if (issynonym) text.append(" (Synonym for ").append(option->getname()).append(")");
  if (withmarks && option->hasdeprecation()) {
    const bool isdeprecated = option->hasdeprecation(tdeprecation::deprecated) ||
                              option->hasdeprecation(tdeprecation::deprecatedsynonym);
    text.append(isdeprecated ? " (Deprecated)" : " (Obsolete)");
  }
  addbuf(text);
  if (text.size() > namewidth) {
    endline();
    addbuf(blankstr(namewidth));
  } else if (text.size() < namewidth) {
    addbuf(blankstr(namewidth - static_cast<std::int32_t>(text.size())));
  }
  addline(": ", option->helptext());
}

// ---- alphabetical listing

void thelplisting::alphabetical() {
  blankline();
  addbuf("Options in alphabetical order");
  blankline();
  for (std::int32_t i = 0; i < fnames.count() && !isfull(); ++i)
    if (!fnames.getobject(i).issynonym) describe(*fnames.getobject(i).option);
}

// ---- the description of one option

void thelplisting::describe(const toption& option) {
  addline(option.getname().view(), ": ", option.helptext());
  addbuf(blankstr(indentwidth));
  addbuf(opttypenames[ordinal(option.opttype())]);
  addbuf(", ");
  addtypeline(option);
}

// Completes the line that begins with the type, and adds the lines that explain the option's values.
void thelplisting::addtypeline(const toption& option) {
  switch (option.opttype()) {
    case topttype::integer: {
      const auto& integer = as<tintoption>(option);
      addline(" range: ", inttostrex(integer.lo()).view(), " to ", inttostrex(integer.hi()).view(),
              " default: ", inttostrex(integer.defaultvalue()).view());
      addbigtext(option);
      break;
    }
    case topttype::dbl: {
      const auto& dbl = as<tdbloption>(option);
      addline(" range: ", dbltostrex(dbl.lo()).view(), " to ", dbltostrex(dbl.hi()).view(),
              " default: ", dbltostrex(dbl.defaultvalue()).view());
      addbigtext(option);
      break;
    }
    case topttype::boolean:
      addline(" default: ", inttostr(as<tbooleanoption>(option).defaultvalue()).view());
      addbigtext(option);
      break;
    case topttype::string: addline(" default: ", quoted(as<tstringoption>(option).defaultvalue())); break;
    case topttype::enumstr:
      addline(" default: ", quoted(as<tenumstroption>(option).defaultvalue()));
      additems(as<tenumstroption>(option));
      break;
    case topttype::enumint:
      addline(" default: ", inttostrex(as<tenumintoption>(option).defaultvalue()).view());
      additems(as<tenumintoption>(option));
      break;
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: endline(); break;
  }
}

void thelplisting::additems(const tenumstroption& option) {
  const auto& items = option.items();
  std::size_t longest = 0;
  for (std::int32_t i = 0; i < items.count(); ++i) longest = std::max(longest, items.getname(i).size());
  for (std::int32_t i = 0; i < items.count(); ++i)
    addline(blankstr(indentwidth).view(), "   ",
            padright(items.getname(i), static_cast<std::int32_t>(longest) + 1).view(), " ",
            items.getobject(i)->helptext());
}

void thelplisting::additems(const tenumintoption& option) {
  const auto& items = option.items();
  std::int32_t largest = minint;
  for (std::int32_t i = 0; i < items.count(); ++i) largest = std::max(largest, items.get(i)->enumvalue());
  const std::int32_t width = largest <= 99 ? 2 : 3;
  for (std::int32_t i = 0; i < items.count(); ++i)
    addline(blankstr(indentwidth).view(), "   ", " ",
            padleft(inttostr(items.get(i)->enumvalue()), width).view(), " ", items.get(i)->helptext());
}

void thelplisting::addbigtext(const toption& option) {
  const txstrings* lines = option.bigtext();
  for (std::int32_t i = 0; lines != nullptr && i < lines->count(); ++i)
    addline(blankstr(indentwidth).view(), lines->get(i));
}

// ---- debugging

// The only output of the library to the standard output of the process, unless an observer takes it, and only
// on request.
void thelplisting::tostandardoutput() {
  std::string text = "\n";
  for (std::int32_t i = 0; i < fnames.count(); ++i) {
    text.append(fnames.getname(i)).append(" ");
    if (fnames.getobject(i).issynonym) text.append("*****Nil = Syn");
    text.append("\n");
  }
  fputout += std::ssize(text);
  if (tstoreobserver* observer = fmessages.observer(); observer != nullptr) return observer->listed(text);
  if (const int error = print(text); error != 0) {
    fmessages.addmessage(tmsgkind::usererror, "Cannot write help to standard output");
    fmessages.addexplanation(tmsgkind::usererror, concat("   ", errorcodetext(error).view()));
  }
}

}  // namespace optcore

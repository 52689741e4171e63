// Writes the settings of a store as a parameter file.
#include "output/parameterwriter.h"

#include <algorithm>

#include "base/systemerror.h"

namespace optcore {

std::int32_t tvksoptions::optwriteparameterfile(std::string_view filename) {
  return writeparameters(*this, filename, dbltostr);
}

std::int32_t writeparameters(tvksoptions& store, std::string_view filename, tdoubletext doubletext) {
  const auto fileproblem = [&messages = store.messages(), filename](std::int32_t code) {
    messages.addmessage(tmsgkind::usererror, concat("Cannot write parameter file ", quoted(filename)),
                        {.name = filename, .problem = tsubject::tproblem::unusablefile});
    messages.addexplanation(tmsgkind::usererror, concat("   ", errorcodetext(code).view()));
  };
  ttextfile file;
  if (const std::int32_t code = file.open(filename); code != 0) {
    fileproblem(code);
    return code;
  }
  tparameterwriter(store.definition(), store.dotoptions(), store.indicators(), file, doubletext).write();
  if (const std::int32_t code = file.close(); code != 0) fileproblem(code);
  return 0;
}

std::string strexternal(std::string_view text) {
  const auto separates = [](char character) { return isblank(character) || character == ','; };
  if (!text.empty() && std::none_of(text.begin(), text.end(), separates)) return std::string(text);
  std::string value(1, '"');
  return value.append(text).append(1, '"');
}

void tparameterwriter::write() {
  fboundsswitch = boundsswitchname();
  for (std::int32_t i = 0; i < fdefinition.getcount(); ++i) {
    const toption& option = *fdefinition.getobjects(i);
    // the values of dot options are written with the dot entries
    if (option.defined() != 0 && option.name().substr(0, 1) != ".") writeoption(option);
  }
  writedotentries();
  writeindicators();
}

// The name of the option that switches bound checking in parameter text; empty if the definition has none.
std::string_view tparameterwriter::boundsswitchname() const {
  for (std::int32_t i = 0; i < fdefinition.getcount(); ++i) {
    const auto* immediate = ifis<timmediateoption>(fdefinition.getobjects(i));
    if (immediate != nullptr && immediate->immkind() == timmkind::nobounds) return immediate->name();
  }
  return {};
}

void tparameterwriter::writeoption(const toption& option) {
  if (option.outofbounds() != 0) ffile.writeline(fboundsswitch, " 1");
  switch (option.opttype()) {
    case topttype::integer:
    case topttype::dbl:
    case topttype::string:
    case topttype::boolean:
    case topttype::enumstr:
    case topttype::enumint: writevalue(option); break;
    case topttype::strlist: writelist(as<tstrlistoption>(option)); break;
    case topttype::multilist:
    case topttype::macro:
    case topttype::immediate: break;  // have no value of their own
  }
  if (option.outofbounds() != 0) ffile.writeline(fboundsswitch, " 0");
}

void tparameterwriter::writevalue(const toption& option) {
  const bool isminos = fdefinition.lookupmode() == tlookupmode::minos;
  const std::string_view name = isminos ? fname.assign(option.getname()).view() : option.name();
  switch (option.subtype()) {
    case tsubtype::required:
    case tsubtype::optional: ffile.writeline(name, "=", valuetext(option, twhich::first)); break;
    case tsubtype::twovalues:
      ffile.writeline(name, "=", valuetext(option, twhich::first), " ", valuetext(option, twhich::second));
      break;
    case tsubtype::novalue: ffile.writeline(name); break;
  }
}

std::string tparameterwriter::valuetext(const toption& option, twhich which) const {
  if (const auto* dbl = ifis<tdbloption>(&option)) return std::string(fdoubletext(dbl->value(which)));
  return strexternal(option.getasstring12(which).view());
}

void tparameterwriter::writelist(const tstrlistoption& list) {
  for (std::int32_t i = 0; i < list.itemcount(); ++i)
    ffile.writeline(list.name(), "=", strexternal(list.item(i)));
}

template <class tlist>
void tparameterwriter::writeelements(const tlist& elements) {
  for (std::int32_t i = 0; i < elements.count(); ++i) ffile.write(i == 0 ? "(" : ",", elements.get(i));
  if (elements.count() > 0) ffile.write(")");
}

void tparameterwriter::writedotentries() {
  for (std::int32_t i = 0; i < fdotoptions.count(); ++i) {
    const tdotobj& entry = *fdotoptions.getobject(i);
    ffile.write(entry.name(), fdefinition.getstrings(entry.optionindex()));
    writeelements(entry.indices());
    ffile.writeline(" = ", fdoubletext(entry.value()));
  }
}

void tparameterwriter::writeindicators() {
  for (std::int32_t i = 0; i < findicators.count(); ++i) {
    const tindicatoritem& item = *findicators.get(i);
    ffile.write(fdefinition.dotname(), " ", item.equation().name());
    writeelements(item.equation().elements());
    ffile.write("$", item.variable().name());
    writeelements(item.variable().elements());
    ffile.writeline("=", inttostr(item.value()));
  }
}

}  // namespace optcore

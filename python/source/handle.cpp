#include "handle.h"

#include <utility>

#include "texts.h"
#include "unlocked.h"

namespace binding {

thandle::tcall::tcall(thandle& handle) : fhandle(handle) {
  if (handle.fbusy)
    throw std::runtime_error(
        "The Options object is in use, by another thread or by the call that runs this one: use it in one "
        "thread at "
        "a time.");
  if (handle.closed()) throw py::value_error("The Options object is closed.");
  handle.fbusy = true;
}

void thandle::close() {
  if (closed()) return;
  const tcall call(*this);
  foptions.reset();
  fknown.clear();
}

// ---- reading and writing

std::int32_t thandle::readdefinition(const std::string& path) {
  const tcall call(*this);
  const std::int32_t code = unlocked([&] { return foptions->readdefinition(path); });
  learn();
  return code;
}

std::int32_t thandle::readfile(const std::string& path) {
  const tcall call(*this);
  return unlocked([&] { return foptions->readparameterfile(path); });
}

std::int32_t thandle::readtext(const std::string& text) {
  const tcall call(*this);
  return unlocked([&] {
    const bool before = foptions->seteolonly(false);
    foptions->read(text);
    foptions->seteolonly(before);
    return 0;
  });
}

std::int32_t thandle::write(const std::string& path) {
  const tcall call(*this);
  return unlocked([&] { return foptions->writeparameterfile(path); });
}

// ---- messages

void thandle::showhelp(const py::str& request) {
  const tcall call(*this);
  foptions->showhelp(encoded(request).bytes());
}

py::tuple thandle::takemessages() {
  const tcall call(*this);
  py::list messages;
  py::list problems;
  if (optmessagecount(raw()) > 0) {
    for (const wexcorin::message& each : foptions->messages())
      messages.append(py::make_tuple(each.kind, decoded(each.text)));
    for (const wexcorin::problem& each : foptions->problems()) {
      py::list details;
      for (const std::string& detail : each.details) details.append(decoded(detail));
      problems.append(py::make_tuple(decoded(each.file), each.line,
                                     each.severity == wexcorin::severity::error, decoded(each.text),
                                     py::tuple(details)));
    }
    foptions->clearmessages();
  }
  return py::make_tuple(messages, problems);
}

// ---- options and their values

// The option is not set yet: its value is the default.
toption thandle::learnt(std::int32_t number) const {
  toption option;
  std::int32_t defined = 0;
  std::int32_t recent = 0;
  std::int32_t refnr = 0;
  optgetinfonr(raw(), number, &defined, &recent, &refnr, &option.datatype, &option.type, &option.subtype);
  if (option.type == optTypeBoolean || option.type == optTypeEnumInt || option.type == optTypeEnumStr)
    option.defaultvalue = single(number, option, false);
  return option;
}

void thandle::learn() {
  const auto size = static_cast<std::size_t>(optcount(raw()));
  fknown.reserve(size);
  while (fknown.size() < size) fknown.push_back(learnt(static_cast<std::int32_t>(fknown.size()) + 1));
}

std::string thandle::nameof(std::int32_t number) const {
  wexcorin::detail::textout name;
  wexcorin::detail::textout help;
  optgethelpnr(raw(), number, name, help);
  return name.str();
}

// An option whose name finds another one is no key, nor is a dot option: its values are those of symbols.
void thandle::learnnames() {
  learn();
  for (; fnamed < fknown.size(); ++fnamed) {
    const auto number = static_cast<std::int32_t>(fnamed) + 1;
    const std::string name = nameof(number);
    toption& option = fknown[fnamed];
    option.iskey = option.hasvalue() && name.substr(0, 1) != "." && foptions->find(name) == number;
    option.name = decoded(name);
  }
}

const toption* thandle::known(std::int32_t number) {
  if (number > static_cast<std::int32_t>(fknown.size())) learn();
  return number > 0 && number <= static_cast<std::int32_t>(fknown.size())
             ? &fknown[static_cast<std::size_t>(number) - 1]
             : nullptr;
}

std::int32_t thandle::count() {
  const tcall call(*this);
  return optcount(raw());
}

// A name that no file can hold, because it is too long or no text, finds nothing.
std::int32_t thandle::lookup(const py::object& name) const {
  if (!PyUnicode_Check(name.ptr())) return 0;
  std::int32_t number = 0;
  std::int32_t refnr = 0;
  try {
    const encoded text(py::reinterpret_borrow<py::str>(name));
    const wexcorin::detail::textin key(text.bytes());
    return optfindstr(raw(), key, &number, &refnr) != 0 ? number : 0;
  } catch (const py::error_already_set&) {
    return 0;
  } catch (const std::length_error&) {
    return 0;
  }
}

std::int32_t thandle::find(const py::object& name) {
  const tcall call(*this);
  return lookup(name);
}

py::list thandle::keys() {
  const tcall call(*this);
  learnnames();
  py::list result;
  for (std::size_t index = 0; index < fnamed; ++index)
    if (fknown[index].iskey) result.append(fknown[index].name);
  return result;
}

py::object thandle::single(std::int32_t number, const toption& option, bool second) const {
  if (option.datatype == optDataDouble) {
    double value = 0;
    (second ? optgetdbl2nr : optgetdblnr)(raw(), number, &value);
    return py::float_(value);
  }
  if (option.datatype == optDataInteger) {
    std::int32_t value = 0;
    (second ? optgetint2nr : optgetintnr)(raw(), number, &value);
    if (option.type == optTypeBoolean) return py::bool_(value != 0);
    return py::int_(value);
  }
  wexcorin::detail::textout value;
  (second ? optgetstr2nr : optgetstrnr)(raw(), number, value);
  return decoded(value.str());
}

py::list thandle::listof(std::int32_t number) const {
  py::list result;
  for (const std::string& text : foptions->list(nameof(number))) result.append(decoded(text));
  return result;
}

py::object thandle::valueof(std::int32_t number, const toption& option) const {
  if (!option.hasvalue()) return py::none();
  if (option.datatype == optDataStrList) return listof(number);
  if (option.hastwovalues())
    return py::make_tuple(single(number, option, false), single(number, option, true));
  return single(number, option, false);
}

py::object thandle::value(std::int32_t number) {
  const tcall call(*this);
  const toption* option = known(number);
  return option != nullptr ? valueof(number, *option) : py::none();
}

py::object thandle::get(const py::object& name) {
  const tcall call(*this);
  const std::int32_t number = lookup(name);
  if (number == 0 || PyUnicode_ReadChar(name.ptr(), 0) == '.') return py::none();
  return valueof(number, *known(number));
}

py::object thandle::text(std::int32_t number, bool second) {
  const tcall call(*this);
  const toption* option = known(number);
  if (option == nullptr || !option->hasvalue() || option->datatype == optDataStrList ||
      (second && !option->hastwovalues()))
    return py::none();
  wexcorin::detail::textout value;
  (second ? optgetstr2nr : optgetstrnr)(raw(), number, value);
  return decoded(value.str());
}

std::int32_t thandle::defined(std::int32_t number) {
  const tcall call(*this);
  std::int32_t bits = 0;
  optgetdefinednr(raw(), number, &bits);
  return bits;
}

py::dict thandle::values(bool changed) {
  const tcall call(*this);
  learnnames();
  py::dict result;
  for (std::size_t index = 0; index < fnamed; ++index) {
    const toption& option = fknown[index];
    const auto number = static_cast<std::int32_t>(index) + 1;
    std::int32_t bits = 1;
    if (changed) optgetdefinednr(raw(), number, &bits);
    if (!option.iskey || bits == 0) continue;
    if (PyDict_SetItem(result.ptr(), option.name.ptr(), valueof(number, option).ptr()) != 0)
      throw py::error_already_set();
  }
  return result;
}

// ---- setting

template <class tvalue>
bool thandle::set(std::int32_t number, bool second, tvalue value) {
  try {
    return second ? foptions->set2(number, value) : foptions->set(number, value);
  } catch (
      const std::logic_error& refused) {  // a number that the option cannot hold, or a text that is too long
    throw py::value_error(refused.what());
  }
}

bool thandle::setinteger(std::int32_t number, bool second, std::int64_t value) {
  const tcall call(*this);
  return set(number, second, value);
}

bool thandle::setreal(std::int32_t number, bool second, double value) {
  const tcall call(*this);
  return set(number, second, value);
}

bool thandle::settext(std::int32_t number, bool second, const py::str& value) {
  const tcall call(*this);
  return set(number, second, encoded(value).bytes());
}

void thandle::reset(std::int32_t number) {
  const tcall call(*this);
  static_cast<void>(foptions->reset(number));
}

void thandle::resetall() {
  const tcall call(*this);
  foptions->resetall();
}

void thandle::setnobounds(bool on) {
  const tcall call(*this);
  foptions->setnobounds(on);
}

// ---- what the definition says

// Of a string, or of an option with bounds; the others are known.
py::object thandle::defaultof(std::int32_t number, const toption& option) const {
  if (option.type == optTypeInteger) return py::int_(foptions->integerbounds(number)->defaultvalue);
  if (option.type == optTypeDouble) return py::float_(foptions->realbounds(number)->defaultvalue);
  if (option.type == optTypeString) return decoded(foptions->defaulttext(number).value());
  if (option.type == optTypeStrList) return py::list();
  return option.hasvalue() ? option.defaultvalue : py::none();
}

py::list thandle::itemsof(std::int32_t number, const toption& option) const {
  py::list result;
  if (option.type != optTypeEnumStr && option.type != optTypeEnumInt) return result;
  for (const wexcorin::enumvalue& item : foptions->enumvalues(number)) {
    const py::object value =
        option.type == optTypeEnumInt ? py::object(py::int_(item.integer)) : decoded(item.text);
    result.append(py::make_tuple(value, decoded(item.help)));
  }
  return result;
}

py::tuple thandle::describe(std::int32_t number) {
  const tcall call(*this);
  const toption* entry = known(number);
  if (entry == nullptr) throw py::index_error("There is no option of that number.");
  const toption option = *entry;
  const wexcorin::option all = wexcorin::detail::readoption(raw(), 0, number);
  py::object range = py::none();
  if (option.type == optTypeInteger) {
    const auto bounds = foptions->integerbounds(number);
    range = py::make_tuple(bounds->low, bounds->high);
  } else if (option.type == optTypeDouble) {
    const auto bounds = foptions->realbounds(number);
    range = py::make_tuple(bounds->low, bounds->high);
  }
  return py::make_tuple(decoded(all.name), foptions->typekeyword(all.type).value_or(""), all.subtype,
                        defaultof(number, option), range, itemsof(number, option), decoded(all.help),
                        all.group, all.refnr, all.helpflag <= 0);
}

py::list thandle::groups() {
  const tcall call(*this);
  py::list result;
  for (const wexcorin::group& each : foptions->groups())
    result.append(py::make_tuple(decoded(each.name), each.number, decoded(each.help), each.helpflag <= 0));
  return result;
}

py::list thandle::synonyms() {
  const tcall call(*this);
  py::list result;
  for (const wexcorin::synonym& each : foptions->synonyms())
    result.append(py::make_tuple(decoded(each.name), decoded(each.option)));
  return result;
}

// ---- dot entries and indicators

static py::tuple elements(const wexcorin::range<std::string>& texts) {
  py::list result;
  for (const std::string& text : texts) result.append(decoded(text));
  return py::tuple(result);
}

py::list thandle::dotentries() {
  const tcall call(*this);
  py::list result;
  for (const wexcorin::dotentry& each : foptions->dotentries())
    result.append(
        py::make_tuple(decoded(each.symbol), each.option, elements(foptions->indices(each)), each.value));
  return result;
}

py::list thandle::indicators() {
  const tcall call(*this);
  py::list result;
  for (const wexcorin::indicator& each : foptions->indicators())
    result.append(py::make_tuple(decoded(each.equation), elements(foptions->equationelements(each)),
                                 decoded(each.variable), elements(foptions->variableelements(each)),
                                 each.value));
  return result;
}

}  // namespace binding

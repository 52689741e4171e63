// Keeps the settings of each value and says where they come from.
#include "tools/tracing/origins.h"

#include <algorithm>

#include "tools/jsontext.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;
using nlohmann::ordered_json;

// ---- what is kept

void torigins::assigned(const toption& option, std::int32_t bits) {
  if (!issource()) return;
  if ((bits & firstvaluebit) != 0) add(option, twhich::first);
  if ((bits & secondvaluebit) != 0) add(option, twhich::second);
}

void torigins::stepped(const tstep& step) {
  ttracer::stepped(step);
  if (step.kind != tstep::tkind::keptentry) return;
  (step.option != nullptr ? fdotentries : findicators)
      .push_back({.before = 0, .source = currentsource(), .links = 0, .line = currentline(), .text = 0});
}

void torigins::add(const toption& option, twhich which) {
  std::uint32_t& last = flast[option][ordinal(which)];
  tsetting setting{
      .before = last, .source = currentsource(), .links = currentlinks(), .line = currentline(), .text = 0};
  keepvalue(option, which, setting);
  fsettings.push_back(setting);
  last = static_cast<std::uint32_t>(fsettings.size());
}

void torigins::keepvalue(const toption& option, twhich which, tsetting& setting) {
  if (const auto integer = option.getasinteger12(which)) {
    setting.integer = *integer;
  } else if (const auto* dbl = ifis<tdbloption>(&option)) {
    setting.number = dbl->value(which);
  } else if (option.opttype() == topttype::string || option.opttype() == topttype::enumstr) {
    const tvaluetext value = option.getasstring12(which);
    setting.text = ftexts.size();
    ftexts.append(1, static_cast<char>(value.view().size())).append(value.view());
  }
}

const torigins::tsetting* torigins::last(const toption& option, twhich which) const {
  const std::array<std::uint32_t, 2>* positions = flast.at(option);
  const std::uint32_t position = positions != nullptr ? (*positions)[ordinal(which)] : 0;
  return position != 0 ? &fsettings[position - 1] : nullptr;
}

std::vector<const torigins::tsetting*> torigins::settings(const toption& option, twhich which) const {
  std::vector<const tsetting*> result;
  const tsetting* next = last(option, which);
  while (next != nullptr) {
    result.push_back(next);
    next = next->before != 0 ? &fsettings[next->before - 1] : nullptr;
  }
  std::ranges::reverse(result);
  return result;
}

// As JSON.
std::string torigins::valueof(const toption& option, const tsetting& setting) const {
  switch (option.opttype()) {
    case topttype::integer:
    case topttype::enumint: return std::to_string(setting.integer);
    case topttype::boolean: return setting.integer != 0 ? "true" : "false";
    case topttype::dbl: return ordered_json(setting.number).dump();
    case topttype::string:
    case topttype::enumstr: {
      const auto length = static_cast<unsigned char>(ftexts[setting.text]);
      const std::string_view text = std::string_view(ftexts).substr(setting.text + 1, length);
      return printablejson(jsontext(text).dump());
    }
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return "null";
}

// ---- as text

std::string placetext(const ttracer& tracer, std::uint32_t source, std::int32_t line) {
  const tsource& read = tracer.source(source);
  std::string result = read.istext ? utf8(read.name) : utf8(tool::placetext({read.name, line}));
  for (const tsource* next = &read; next->includer >= 0;) {
    const tsource& includer = tracer.source(static_cast<std::uint32_t>(next->includer));
    const std::string place = includer.istext ? includer.name : tool::placetext({includer.name, next->line});
    result.insert(0, utf8(place).append(" > "));
    next = &includer;
  }
  return result;
}

namespace {

constexpr auto linknames =
    std::to_array<const char*>({"macro", "multilist", "synonym", "short form", "name alone"});

}  // namespace

std::string linkstext(const std::vector<tlink>& links) {
  std::string result;
  for (const tlink& link : links)
    result.append(result.empty() ? " (" : ", ")
        .append(linknames[static_cast<std::size_t>(link.kind)])
        .append(link.name.empty() ? "" : " ")
        .append(utf8(link.name));
  return result.empty() ? result : result + ")";
}

std::string torigins::text(const toption& option, twhich which) const {
  const tsetting* inforce = last(option, which);
  if (inforce == nullptr) return "default";
  if (option.opttype() != topttype::strlist) return text(*inforce);
  std::string result;
  for (const tsetting* setting : settings(option, which))
    result += (result.empty() ? "" : "; ") + text(*setting);
  return result;
}

// ---- for programs

ordered_json torigins::origin(const tsetting& setting) const {
  const tsource& read = source(setting.source);
  ordered_json through = ordered_json::array();
  for (const tsource* next = &read; next->includer >= 0;) {
    const tsource& includer = source(static_cast<std::uint32_t>(next->includer));
    const std::int32_t line = includer.istext ? includer.textnumber : next->line;
    const ordered_json step = {{"kind", "include"}, {"source", jsontext(includer.name)}, {"line", line}};
    through.insert(through.begin(), step);
    next = &includer;
  }
  for (const tlink& link : links(setting.links)) {
    ordered_json step = {{"kind", linknames[static_cast<std::size_t>(link.kind)]}};
    if (!link.name.empty()) step["name"] = jsontext(link.name);
    through.push_back(std::move(step));
  }
  return {{"source", jsontext(read.name)}, {"line", setting.line}, {"through", std::move(through)}};
}

const std::vector<std::string>& torigins::sourcenames() const {
  while (fsourcenames.size() < sourcecount())
    fsourcenames.push_back(
        printablejson(jsontext(source(static_cast<std::uint32_t>(fsourcenames.size())).name).dump()));
  return fsourcenames;
}

// Written without the help of the JSON library, which would take several times as long: there may be very
// many.
std::string torigins::overridden(const toption& option, const std::vector<const tsetting*>& all,
                                 std::size_t depth) const {
  const std::vector<std::string>& names = sourcenames();
  tjsonpieces result('[', depth);
  for (const tsetting* setting : all) {
    if (setting == all.back()) break;
    tjsonpieces entry('{', depth + 1);
    entry.add(names[setting->source], "source");
    entry.add(std::to_string(setting->line), "line");
    entry.add(valueof(option, *setting), "value");
    result.add(entry.finish('}'));
  }
  return result.finish(']');
}

std::string torigins::json(const toption& option, twhich which, std::size_t depth) const {
  const std::vector<const tsetting*> all = settings(option, which);
  if (option.opttype() == topttype::strlist) {
    tjsonpieces result('[', depth);
    for (const tsetting* setting : all) result.add(jsonlines(origin(*setting), depth + 1));
    return result.finish(']');
  }
  if (all.empty()) return "null";
  tjsonpieces result('{', depth);
  const ordered_json last = origin(*all.back());
  for (const auto& [key, value] : last.items()) result.add(jsonlines(value, depth + 1), key);
  // what dot lines set belongs to different symbols
  const bool overrides = !option.name().starts_with('.');
  result.add(overrides ? overridden(option, all, depth + 1) : "[]", "overrode");
  return result.finish('}');
}

}  // namespace tool

// Keeps the settings of each value and says where they come from.
#include "tools/tracing/origins.h"

#include <algorithm>

#include "tools/jsontext.h"

namespace tool {

using namespace optcore;
using nlohmann::ordered_json;

// ---- what is kept

void torigins::assigned(const toption& option, std::int32_t bits) {
  if (!issource()) return;
  if ((bits & firstvaluebit) != 0) add(option, twhich::first);
  if ((bits & secondvaluebit) != 0) add(option, twhich::second);
}

void torigins::add(const toption& option, twhich which) {
  std::uint32_t& last = flast[&option][ordinal(which)];
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

std::vector<const torigins::tsetting*> torigins::settings(const toption& option, twhich which) const {
  std::vector<const tsetting*> result;
  const auto found = flast.find(&option);
  if (found == flast.end()) return result;
  for (std::uint32_t next = found->second[ordinal(which)]; next != 0; next = result.back()->before)
    result.push_back(&fsettings[next - 1]);
  std::ranges::reverse(result);
  return result;
}

tshownvalue torigins::valueof(const toption& option, const tsetting& setting) const {
  switch (option.opttype()) {
    case topttype::integer: return shown(setting.integer);
    case topttype::boolean: return shownboolean(setting.integer);
    case topttype::enumint: return shownnumber(setting.integer);
    case topttype::dbl: return shown(setting.number);
    case topttype::string:
    case topttype::enumstr: {
      const auto length = static_cast<unsigned char>(ftexts[setting.text]);
      return shown(std::string_view(ftexts).substr(setting.text + 1, length));
    }
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return {};
}

// ---- as text

std::string placetext(const ttracer& tracer, std::uint32_t source, std::int32_t line) {
  const tsource& read = tracer.source(source);
  std::string result = read.istext ? utf8(read.name) : utf8(tool::placetext({read.name, line}));
  for (const tsource* next = &read; next->includer >= 0;) {
    const tsource& includer = tracer.source(static_cast<std::uint32_t>(next->includer));
    const std::string place = includer.istext ? includer.name : tool::placetext({includer.name, next->line});
    result = utf8(place) + " > " + result;
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
  const std::vector<const tsetting*> all = settings(option, which);
  if (all.empty()) return "default";
  const auto textof = [&](const tsetting& setting) {
    return placetext(*this, setting.source, setting.line) + linkstext(links(setting.links));
  };
  if (option.opttype() != topttype::strlist) return textof(*all.back());
  std::string result;
  for (const tsetting* setting : all) result += (result.empty() ? "" : "; ") + textof(*setting);
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

ordered_json torigins::json(const toption& option, twhich which) const {
  const std::vector<const tsetting*> all = settings(option, which);
  if (option.opttype() == topttype::strlist) {
    ordered_json result = ordered_json::array();
    for (const tsetting* setting : all) result.push_back(origin(*setting));
    return result;
  }
  if (all.empty()) return nullptr;
  ordered_json result = origin(*all.back());
  // what dot lines set belongs to different symbols
  ordered_json& overrode = result["overrode"] = ordered_json::array();
  for (std::size_t i = 0; i + 1 < all.size() && !option.name().starts_with('.'); ++i)
    overrode.push_back({{"source", jsontext(source(all[i]->source).name)},
                        {"line", all[i]->line},
                        {"value", valueof(option, *all[i]).json}});
  return result;
}

}  // namespace tool

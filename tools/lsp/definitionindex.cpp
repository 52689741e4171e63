// Finds names as the library does: the first option that stands above and fits.
#include "tools/lsp/definitionindex.h"

#include <algorithm>

#include "base/numtext.h"
#include "base/textcase.h"
#include "options/lookup.h"

namespace tool::lsp {

using namespace optcore;

void walkdefinition(const ttext& text, const std::function<void(const tdefinitionline&)>& each) {
  tdefinitionwalk walk;
  tdefinitionline line;
  for (line.number = 1; line.number <= text.linecount(); ++line.number) {
    line.span = text.line(line.number);
    line.text = readpart(text.part(line.span));
    line.parts = walk.next(line.text);
    each(line);
  }
}

// An entry decides what the lines below it mean, so the walk begins there. Whether the definition has ended
// above, it cannot tell.
tdefinitionline definitionlineat(const ttext& text, std::size_t offset) {
  const std::int32_t number = text.lineat(offset);
  const auto isentry = [&](std::int32_t each) {
    const std::string_view line = readpart(text.part(text.line(each)));
    return !line.empty() && line.front() != ' ' && line.front() != '*';
  };
  tdefinitionwalk walk;
  tdefinitionline result;
  result.number = number;
  while (result.number > 1 && !isentry(result.number)) --result.number;
  for (;; ++result.number) {
    result.span = text.line(result.number);
    result.text = readpart(text.part(result.span));
    result.parts = walk.next(result.text);
    if (result.number >= number) return result;
  }
}

bool issamename(tlookupmode mode, std::string_view a, std::string_view b) {
  if (mode == tlookupmode::normal) return struequal(a, b);
  const tsignificantkey key(mode, a);
  return key.matchable() && key == tsignificantkey(mode, b);
}

tdefinitionindex::tdefinitionindex(const ttext& text) {
  walkdefinition(text, [this](const tdefinitionline& line) { add(line); });
}

void tdefinitionindex::add(const tdefinitionline& line) {
  using enum tdefinitionspans::tkind;
  const tdefinitionspans& parts = line.parts;
  if (parts.kind == entry)
    addentry(line);
  else if (parts.kind != nothing && parts.kind != unread && !fentries.empty() &&
           fentries.back().keyword == parts.keyword)  // not the lines of a mark
    fentries.back().lastline = line.number;
  for (const tspan& each : parts.references)
    freferences.push_back({each.of(line.text), line.intext(each), line.number, parts.keyword, fmode});
}

void tdefinitionindex::addentry(const tdefinitionline& line) {
  const tdefinitionspans& parts = line.parts;
  const std::string_view name = parts.name.of(line.text);
  if (parts.keyword == "lookup")
    for (std::size_t mode = 0; mode < lookupmodenames.size(); ++mode)
      if (struequal(name, lookupmodenames[mode])) fmode = static_cast<tlookupmode>(mode);
  std::int32_t number = 0;
  for (const tfieldspan& each : parts.fields) {
    const bool isgroup = each.field->form == tform::groupnumber;
    if (!isgroup && (parts.keyword != "group" || &each != &parts.fields.front())) continue;
    strasintex(each.span.of(line.text), number);
    if (isgroup && number > 0) fgroupfields.push_back({number, line.intext(each.span), line.number});
  }
  const bool isoption = !parts.fields.empty() && parts.keyword != "group";
  const tkind kind = isoption ? tkind::option : parts.keyword == "group" ? tkind::group : tkind::synonym;
  if (isoption || kind == tkind::group || parts.keyword == "synonym")
    fentries.push_back({kind, parts.keyword, name, line.intext(parts.name), line.number, line.number, number,
                        parts.text.of(line.text)});
}

const tdefinitionindex::tentry* tdefinitionindex::option(std::string_view name, tlookupmode mode,
                                                         std::int32_t line) const {
  const auto hashof = [mode](std::string_view each) {
    return mode == tlookupmode::normal ? struhash(each) : tsignificantkey(mode, each).hash();
  };
  auto& byname = fbyname[ordinal(mode)];
  if (byname.empty())
    for (std::size_t i = 0; i < fentries.size(); ++i)
      if (fentries[i].kind == tkind::option) byname.emplace(hashof(fentries[i].name), i);
  const tentry* result = nullptr;
  const auto [begin, end] = byname.equal_range(hashof(name));
  for (auto each = begin; each != end; ++each) {
    const tentry& entry = fentries[each->second];
    if (entry.line < line && (result == nullptr || entry.line < result->line) &&
        issamename(mode, name, entry.name))
      result = &entry;
  }
  return result;
}

// The members of a macro are named in full, and only marks may name synonyms.
const tdefinitionindex::tentry* tdefinitionindex::target(const treference& reference) const {
  const tlookupmode mode = reference.keyword == "macro" ? tlookupmode::normal : reference.mode;
  if (const tentry* found = option(reference.name, mode, reference.line)) return found;
  if (reference.keyword != "deprecated" && reference.keyword != "obsolete") return nullptr;
  const tentry* found = find(tkind::synonym, reference.name);
  return found != nullptr && found->line < reference.line ? found : nullptr;
}

const tdefinitionindex::tentry* tdefinitionindex::find(tkind kind, std::string_view name) const {
  const auto found = std::ranges::find_if(
      fentries, [&](const tentry& each) { return each.kind == kind && struequal(each.name, name); });
  return found == fentries.end() ? nullptr : &*found;
}

const tdefinitionindex::tentry* tdefinitionindex::group(std::int32_t number) const {
  const auto found = std::ranges::find_if(
      fentries, [&](const tentry& each) { return each.kind == tkind::group && each.number == number; });
  return found == fentries.end() ? nullptr : &*found;
}

std::optional<tdefinitionindex::tplaced> tdefinitionindex::at(std::size_t offset) const {
  const auto isthere = [offset](const auto& each) {
    return each.span.begin <= offset && offset <= each.span.end && !each.span.empty();
  };
  if (const auto found = std::ranges::find_if(fentries, isthere); found != fentries.end())
    return tplaced{&*found, found->span};
  const auto found = std::ranges::find_if(freferences, isthere);
  if (found == freferences.end()) return std::nullopt;
  const tentry* entry = target(*found);
  return entry == nullptr ? std::nullopt : std::optional(tplaced{entry, found->span});
}

std::vector<const tdefinitionindex::treference*> tdefinitionindex::referencesto(const tentry& entry) const {
  std::vector<const treference*> result;
  for (const treference& each : freferences) {
    const bool mayfit = struequal(each.name, entry.name) || issamename(each.mode, each.name, entry.name);
    if (mayfit && target(each) == &entry) result.push_back(&each);
  }
  return result;
}

}  // namespace tool::lsp

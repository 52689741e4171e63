// Compares by position, because a new name moves nothing.
#include "tools/lsp/samemeaning.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/textcase.h"
#include "tools/lsp/optionlines.h"

namespace tool::lsp {

namespace {

using namespace optcore;

using tnames = std::vector<std::string_view>;

tnames membersof(const tdefinition& definition, const toption& option) {
  tnames result;
  if (const auto* list = ifis<tmultilistoption>(&option))
    for (std::int32_t i = 0; i < list->items().count(); ++i)
      result.push_back(definition.getstrings(list->items().get(i)));
  if (const auto* macro = ifis<tmacrooption>(&option))
    for (std::int32_t i = 0; i < macro->items().count(); ++i) result.push_back(macro->items().get(i)->name());
  return result;
}

std::int32_t errorsof(const tvksoptions& store) {
  std::int32_t errors = 0, warnings = 0;
  store.opterrorcount(errors, warnings);
  return errors;
}

bool sameoptions(const tdefinition& before, const tdefinition& after, const auto& isnamed) {
  for (std::int32_t i = 0; i < before.getcount(); ++i) {
    const toption &old = before.option(i), &other = after.option(i);
    if (!isnamed(old.name(), other.name()) || old.opttype() != other.opttype() ||
        old.helptext() != other.helptext() || old.deprecatedmsg() != other.deprecatedmsg() ||
        old.deprecatedmsg2() != other.deprecatedmsg2() ||
        !std::ranges::equal(membersof(before, old), membersof(after, other), isnamed))
      return false;
  }
  return true;
}

// The names of the options that each line sets; empty for an unknown one.
std::vector<tnames> optionsset(const tvksoptions& store, const ttext& text) {
  std::vector<tnames> result;
  result.reserve(static_cast<std::size_t>(text.linecount()));
  walklines(store, text, [&](const toptionline& line) {
    tnames names;
    for (const tstatementspans& each : line.parts.statements)
      names.push_back(each.option == nullptr ? std::string_view() : each.option->name());
    result.push_back(std::move(names));
    return true;
  });
  return result;
}

// The rest of a long line is not read.
bool iscut(const ttext& text, std::int32_t line) {
  const std::string_view whole = text.part(text.line(line));
  return readpart(whole).size() < whole.size();
}

}  // namespace

bool tnewname::samedefinition(const tvksoptions& beforestore, const tvksoptions& afterstore) const {
  const tdefinition &before = beforestore.definition(), &after = afterstore.definition();
  const auto isnamed = [this](std::string_view a, std::string_view b) { return becomes(a, b); };
  const auto &synonyms = before.synonyms(), &newsynonyms = after.synonyms();
  if (before.getcount() != after.getcount() || synonyms.count() != newsynonyms.count() ||
      before.groups().count() != after.groups().count() || errorsof(beforestore) != errorsof(afterstore))
    return false;
  for (std::int32_t i = 0; i < synonyms.count(); ++i)
    if (!becomes(synonyms.getname(i), newsynonyms.getname(i)) ||
        synonyms.getobject(i) != newsynonyms.getobject(i))
      return false;
  return sameoptions(before, after, isnamed);
}

bool tnewname::becomes(std::string_view before, std::string_view after) const {
  return before == after || (struequal(before, name) && after == newname);
}

std::int32_t tnewname::firstother(const tvksoptions& before, const ttext& text, const tvksoptions& after,
                                  const ttext& newtext) const {
  const auto lines = optionsset(before, text), newlines = optionsset(after, newtext);
  for (std::size_t i = 0; i < std::min(lines.size(), newlines.size()); ++i) {
    const auto number = static_cast<std::int32_t>(i) + 1;
    const bool same = std::ranges::equal(
        lines[i], newlines[i], [this](std::string_view a, std::string_view b) { return becomes(a, b); });
    if (!same || (iscut(newtext, number) && !iscut(text, number))) return number;
  }
  return 0;
}

}  // namespace tool::lsp

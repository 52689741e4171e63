// Looks at the line up to the cursor as if it ended there.
#include "tools/lsp/optiontyped.h"

#include <algorithm>
#include "tools/reading/characters.h"

namespace tool::lsp {

namespace {

using namespace optcore;
using ttypedkind = ttyped::tkind;

class tlookup {
 public:
  tlookup(const toptionline& line, std::size_t column)
      : fline(line),
        ftext(line.text.substr(0, column)),
        fparts(spansof(line.store->definition(), ftext, line.eolonly)) {}

  ttyped run() const {
    if (ftext.starts_with('*') || !fparts.comment.empty()) return {};
    if (fparts.statements.empty()) return name(ftext.size());
    const tstatementspans& last = fparts.statements.back();
    if (last.kind == tstatementspans::tkind::list) return {};
    if (last.kind == tstatementspans::tkind::dotline) return indotline(last);
    if (isinname(last)) return name(last.name.begin);
    return last.option == nullptr ? ttyped{} : invalue(last);
  }

 private:
  bool minos() const { return fline.store->definition().lookupmode() == tlookupmode::minos; }
  bool isblankfrom(std::size_t begin) const { return std::ranges::all_of(ftext.substr(begin), isblank); }

  // In lookup mode Minos, another word of the name may follow.
  bool isinname(const tstatementspans& statement) const {
    return statement.name.end == ftext.size() ||
           (minos() && statement.option == nullptr && isblankfrom(statement.name.end));
  }

  ttyped name(std::size_t begin, ttypedkind kind = ttypedkind::name) const {
    std::size_t end = ftext.size();
    while (end < fline.text.size() && isnamecharacter(fline.text[end])) ++end;
    return {kind, nullptr, std::string(ftext.substr(begin)), {begin, end}};
  }
  // A quoted text reaches to its second double quote, if it has one.
  ttyped value(const toption& option, std::size_t begin) const {
    ttyped result = {ttypedkind::value, &option, std::string(ftext.substr(begin)), {begin, endofword()}};
    if (!result.beginning.starts_with('"') || std::ranges::count(result.beginning, '"') % 2 == 0)
      return result;
    const std::size_t quote = fline.text.find('"', ftext.size());
    result.isclosed = quote != std::string_view::npos;
    if (result.isclosed) result.span.end = quote + 1;
    return result;
  }
  std::size_t endofword() const {
    const tcharset& comments = fline.store->definition().eolcommset();
    const auto belongs = [&](char character) {
      return !isblank(character) && character != ',' && character != ':' &&
             !comments.test(static_cast<unsigned char>(character));
    };
    std::size_t end = ftext.size();
    while (end < fline.text.size() && belongs(fline.text[end])) ++end;
    return end;
  }

  ttyped invalue(const tstatementspans& statement) const {
    const toption& option = *statement.option;
    const bool maymore = !fline.eolonly;  // further statements may follow
    if (option.subtype() == tsubtype::novalue) return maymore ? name(ftext.size()) : ttyped{};
    for (const tspan each : {statement.second, statement.value})
      if (!each.empty() && each.end == ftext.size()) return value(option, each.begin);
    const bool two = option.subtype() == tsubtype::twovalues && statement.second.empty();
    if (statement.value.empty() || two) return value(option, ftext.size());
    return maymore ? name(ftext.size()) : ttyped{};
  }

  ttyped indotline(const tstatementspans& statement) const {
    if (statement.name.end == ftext.size()) return name(statement.name.begin, ttypedkind::dotname);
    if (statement.option == nullptr) return {};
    if (!statement.value.empty())
      return statement.value.end == ftext.size() ? value(*statement.option, statement.value.begin) : ttyped{};
    const auto count = [&](std::string_view signs) {
      return std::ranges::count_if(ftext.substr(statement.name.end),
                                   [&](char each) { return signs.find(each) != std::string_view::npos; });
    };
    const bool isopen = count("([{") != count(")]}");
    return isopen ? ttyped{} : value(*statement.option, ftext.size());
  }

  const toptionline& fline;
  const std::string_view ftext;
  const tlinespans fparts;
};

}  // namespace

ttyped typedat(const toptionline& line, std::size_t column) {
  if (column > line.text.size()) return {};
  return tlookup(line, column).run();
}

}  // namespace tool::lsp

// Finds what names the option, and reads all files with the new name to be sure that nothing else changes.
#include "tools/lsp/renaming.h"

#include <algorithm>
#include <utility>

#include "base/textcase.h"
#include "tools/lsp/optionlines.h"
#include "tools/lsp/samemeaning.h"
#include "tools/lsp/uri.h"
#include "tools/lsp/uses.h"
#include "tools/reading/temporaryfile.h"

namespace tool::lsp {

namespace {

using namespace optcore;
using tentrykind = tdefinitionindex::tkind;

constexpr std::size_t longestname = 63;

tspan withoutperiod(const ttext& text, tspan span) {
  return text.part(span).starts_with('.') ? tspan{span.begin + 1, span.end} : span;
}

// The name as it was typed, with the period of a dot option, and underscores for blanks.
std::string typedname(const toptionline& line, const tstatementspans& statement) {
  std::string result = statement.kind == tstatementspans::tkind::dotline ? "." : "";
  for (const char character : statement.name.of(line.text)) {
    const bool isblank = character == ' ' || character == '\t';
    if (!isblank || result.back() != '_') result.push_back(isblank ? '_' : character);
  }
  return result;
}

// The option or synonym of the definition that a name of an option file finds.
const tdefinitionindex::tentry* found(const tdefinitionindex& index, const tdefinition& definition,
                                      const std::string& name) {
  const std::int32_t option = definition.optlookup(name);
  if (option >= 0) return index.find(tentrykind::option, definition.getstrings(option));
  return index.find(tentrykind::synonym, name);
}

// Its entry is still to be found. Without a text if the definition cannot be read.
trenamed renamedof(const std::string& key, const tworkspace& workspace) {
  if (const tdocument* document = workspace.documents.withkey(key))
    return {key, document->text(), document->index(), nullptr, {}};
  const auto text = loadtext(key);
  return {
      key, text, text == nullptr ? nullptr : std::make_shared<const tdefinitionindex>(*text), nullptr, {}};
}

std::optional<trenamed> inoptions(const trequest& request) {
  const tdocument& document = *request.document();
  const std::optional<toptionline> line = optionlineat(document, request.offset());
  if (!line) return std::nullopt;
  const std::string& key = document.snapshot()->definition->key;
  trenamed result = renamedof(key, request.workspace);
  if (result.definition == nullptr) return std::nullopt;
  for (const tstatementspans& each : line->parts.statements) {
    const tspan name = line->intext(each.name);
    if (each.option == nullptr || request.offset() < name.begin || request.offset() > name.end) continue;
    result.entry = found(*result.index, line->store->definition(), typedname(*line, each));
    result.span = name;
    if (result.entry != nullptr) return result;
  }
  return std::nullopt;
}

// The places of a file that name the entry, and what is to stand there.
class tplaces {
 public:
  tplaces(const trenamed& renamed, const tvksoptions& store, std::string_view name)
      : frenamed(renamed), fstore(store), fname(name.substr(name.starts_with('.') ? 1 : 0)) {
    if (store.definition().lookupmode() == tlookupmode::minos)
      std::ranges::replace(fshownname = fname, '_', ' ');
    else
      fshownname = fname;
  }

  tfileedits indefinition() const {
    const ttext& text = *frenamed.definition;
    tfileedits result(frenamed.definition);
    result.add(withoutperiod(text, frenamed.entry->span), fname);
    for (const tdefinitionindex::treference* each : frenamed.index->referencesto(*frenamed.entry))
      result.add(withoutperiod(text, each->span), fname);
    return result;
  }

  tfileedits inoptionfile(const std::shared_ptr<const ttext>& text) const {
    tfileedits result(text);
    walklines(fstore, *text, [&](const toptionline& line) {
      for (const tstatementspans& each : line.parts.statements) addplaces(line, each, result);
      return true;
    });
    return result;
  }

 private:
  // The value of an option that asks for help is a name, too.
  void addplaces(const toptionline& line, const tstatementspans& statement, tfileedits& edits) const {
    if (names(typedname(line, statement))) edits.add(line.intext(statement.name), fshownname);
    const auto* immediate = ifis<timmediateoption>(statement.option);
    if (immediate == nullptr || immediate->immkind() != timmkind::help) return;
    const tspan value = withoutquotes(line.text, statement.value);
    if (const std::string_view name = value.of(line.text); isletter(name.empty() ? ' ' : name.front()))
      if (names(std::string(name))) edits.add(line.intext(value), fname);
  }
  bool names(const std::string& name) const {
    return found(*frenamed.index, fstore.definition(), name) == frenamed.entry;
  }

  const trenamed& frenamed;
  const tvksoptions& fstore;
  std::string fname;
  std::string fshownname;  // in option files
};

void read(tvksoptions& store, std::string_view text) {
  ttemporaryfile file;
  file.write(text);
  store.optreaddefinition(file.path());
}

terror othermeaning(const trequest& request, const std::string& key, std::int32_t line) {
  const tdocument* document = request.workspace.documents.withkey(key);
  return {tcode::requestfailed, "With this name, line " + std::to_string(line) + " of " +
                                    (document != nullptr ? document->name() : key) +
                                    " would mean something else"};
}

}  // namespace

std::optional<trenamed> renamedat(const trequest& request) {
  const tdocument& document = *request.document();
  if (document.kind() == tdocumentkind::options) return inoptions(request);
  trenamed result = renamedof(document.key(), request.workspace);
  const auto place = result.index->at(request.offset());
  if (!place) return std::nullopt;
  result.entry = place->entry;
  result.span = withoutperiod(*document.text(), place->span);
  return result;
}

std::string problemofname(const trenamed& renamed, std::string_view name) {
  const tlookupmode mode = renamed.index->mode();
  const bool isgroup = renamed.entry->kind == tentrykind::group;
  const std::string_view word = name.substr(name.starts_with('.') ? 1 : 0);
  const auto isother = [](char c) { return !isletter(c) && !isdigit(c) && c != '_'; };
  if (word.empty() || !isletter(word.front()) || std::ranges::any_of(word, isother) ||
      name.starts_with('.') != renamed.entry->name.starts_with('.'))
    return inquotes(name) + " is no name: a name is a letter, followed by letters, digits and underscores";
  if (word.size() > longestname) return "A name has at most 63 characters";
  if (!isgroup && renamed.entry->kind == tentrykind::option && !issamename(mode, name, name))
    return "In the lookup mode Path, a word of fewer than three characters is never found";
  if (!isgroup && mode == tlookupmode::minos && std::ranges::count(word, '_') > 3)
    return "In the lookup mode Minos, a name has at most four words";
  if (!isgroup && struequal(name, "Help")) return "Every definition has an option \"Help\"";
  for (const tdefinitionindex::tentry& each : renamed.index->entries()) {
    if (&each == renamed.entry || (each.kind == tentrykind::group) != isgroup) continue;
    const bool istaken = struequal(each.name, name) || (!isgroup && issamename(mode, each.name, name));
    if (!istaken) continue;
    const std::string_view what = each.kind == tentrykind::option    ? "an option"
                                  : each.kind == tentrykind::synonym ? "a synonym"
                                                                     : "a group";
    return "The name " + inquotes(name) + " is taken: line " + std::to_string(each.line) + " defines " +
           std::string(what) + " " + inquotes(each.name);
  }
  return {};
}

trenaming renaming(const trequest& request, const trenamed& renamed, const std::string& name) {
  tvksoptions before, after;
  read(before, renamed.definition->bytes());
  const tplaces places(renamed, before, name);
  tworkspaceedits edits;
  const auto& own = edits.emplace(renamed.definitionkey, places.indefinition()).first->second;
  read(after, own.result());
  const tnewname newname = {renamed.entry->name, name};
  if (!newname.samedefinition(before, after))
    return othermeaning(request, renamed.definitionkey, renamed.entry->line);
  const tfolderfiles files = findfiles(request.workspace.folders, request.iscancelled);
  for (const toptionfile& file : optionfilesof(request, renamed.definitionkey, before, files)) {
    tfileedits changes = places.inoptionfile(file.text);
    const ttext changed(changes.result());
    if (const std::int32_t line = newname.firstother(before, *file.text, after, changed); line != 0)
      return othermeaning(request, file.key, line);
    edits.emplace(file.key, std::move(changes));
  }
  return edits;
}

}  // namespace tool::lsp

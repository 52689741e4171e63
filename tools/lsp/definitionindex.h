// The entries of a definition and the places where lines name other ones, found in the text as the client has
// it now.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "options/codes.h"
#include "tools/lsp/texts.h"
#include "tools/reading/definitionspans.h"

namespace tool::lsp {

struct tdefinitionline {
  std::int32_t number = 0;  // from 1
  tspan span;               // of the line in the text
  std::string_view text;    // the part that is read
  tdefinitionspans parts;   // from the beginning of the line

  // A part of the line as one of the text.
  tspan intext(tspan part) const { return {span.begin + part.begin, span.begin + part.end}; }
};

// Goes through the lines.
void walkdefinition(const ttext& text, const std::function<void(const tdefinitionline&)>& each);
// The line that has this place. Found from the lines next to it, so it is quick in a long text.
tdefinitionline definitionlineat(const ttext& text, std::size_t offset);

class tdefinitionindex {
 public:
  enum class tkind : std::uint8_t { option, synonym, group };
  struct tentry {
    tkind kind;
    std::string_view keyword;
    std::string_view name;
    tspan span;  // of the name in the text
    std::int32_t line;
    std::int32_t lastline;  // that belongs to it
    std::int32_t number;    // of a group, or of the group of an option; 0 for none
    std::string_view text;  // help
  };
  struct treference {
    std::string_view name;
    tspan span;  // without double quotes
    std::int32_t line;
    std::string_view keyword;  // of the entry to which the line belongs
    optcore::tlookupmode mode;
  };
  // The field of an option with the number of its group.
  struct tgroupfield {
    std::int32_t number;
    tspan span;
    std::int32_t line;
  };

  // The text must outlive the index.
  explicit tdefinitionindex(const ttext& text);

  const std::vector<tentry>& entries() const { return fentries; }
  const std::vector<treference>& references() const { return freferences; }
  const std::vector<tgroupfield>& groupfields() const { return fgroupfields; }
  // At the end of the text.
  optcore::tlookupmode mode() const { return fmode; }

  // The option or synonym that the place names; null if there is none.
  const tentry* target(const treference& reference) const;
  // The first entry of the kind that has exactly this name.
  const tentry* find(tkind kind, std::string_view name) const;
  const tentry* group(std::int32_t number) const;
  // The entry whose name or number stands at this place, or the name of which does; the span of that.
  struct tplaced {
    const tentry* entry;
    tspan span;
  };
  std::optional<tplaced> at(std::size_t offset) const;
  // All places that name the entry, but its own line.
  std::vector<const treference*> referencesto(const tentry& entry) const;

 private:
  void add(const tdefinitionline& line);
  void addentry(const tdefinitionline& line);
  const tentry* option(std::string_view name, optcore::tlookupmode mode, std::int32_t line) const;

  std::vector<tentry> fentries;
  std::vector<treference> freferences;
  std::vector<tgroupfield> fgroupfields;
  optcore::tlookupmode fmode = optcore::tlookupmode::normal;
  // For each lookup mode, once it is needed: the options by the hash codes of their names.
  mutable std::array<std::unordered_multimap<std::uint32_t, std::size_t>, 3> fbyname;
};

// Whether one name finds the other one in the lookup mode.
bool issamename(optcore::tlookupmode mode, std::string_view a, std::string_view b);

}  // namespace tool::lsp

// What the client can do, and what its user has set.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/lsp/json.h"
#include "tools/lsp/texts.h"
#include "tools/reading/findings.h"

namespace tool::lsp {

struct tclient {
  json capabilities;  // as it gave them
  tencoding encoding = tencoding::utf16;

  // Whether it has this capability.
  template <class... tnames>
  bool can(tnames... names) const {
    return flagof(member(capabilities, names...));
  }
  // Whether the texts of hovers, or the documentation of completions, may be Markdown.
  bool hovermarkdown() const {
    return has(member(capabilities, "textDocument", "hover", "contentFormat"), "markdown");
  }
  bool completionmarkdown() const {
    return has(member(capabilities, "textDocument", "completion", "completionItem", "documentationFormat"),
               "markdown");
  }
  bool snippets() const { return can("textDocument", "completion", "completionItem", "snippetSupport"); }
  // The kind of an item or symbol, or the other one if the client does not know it.
  int completionkind(int kind, int otherwise) const;
  int symbolkind(int kind) const;
};

tclient clientof(const json& initialize);

// The members of the client's settings "wexcorin".
struct tsettings {
  std::string definition;          // of option files for which none is found
  std::vector<std::string> allow;  // the rules whose warnings are left out
  std::size_t limit = tfindinglist::usuallimit;
  bool inlayhints = false;
};

// What is missing, or is of another type, stays as it is usually. An array has one item, as the client answers
// it; an object may have the settings in its member "wexcorin".
tsettings settingsfrom(const json& value);

}  // namespace tool::lsp

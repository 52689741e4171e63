// Changes to texts, as the client is to make them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tools/lsp/workspace.h"

namespace tool::lsp {

struct ttextedit {
  tspan span;
  std::string text;  // in its place
};

json editjson(const ttext& text, const ttextedit& edit, tencoding encoding);

// The changes of one file. They must not overlap.
class tfileedits {
 public:
  explicit tfileedits(std::shared_ptr<const ttext> text) : ftext(std::move(text)) {}
  // What is added twice counts once.
  void add(tspan span, const std::string& text) { fedits[span.begin] = {span, text}; }
  bool empty() const { return fedits.empty(); }
  std::string result() const;
  json edits(tencoding encoding) const;
  std::string writtenedits(tencoding encoding) const;

 private:
  std::shared_ptr<const ttext> ftext;
  std::map<std::size_t, ttextedit> fedits;  // by their places
};

// By the keys of the files.
using tworkspaceedits = std::map<std::string, tfileedits>;

// The kind of all code actions.
inline constexpr std::string_view quickfix = "quickfix";
// Whether the client takes code actions as such, and asks for quick fixes or for all.
bool wantsquickfixes(const trequest& request);

// With the versions of open documents, if the client takes them.
json workspaceeditjson(const tworkspaceedits& edits, const tworkspace& workspace);

}  // namespace tool::lsp

// All that requests are answered from.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tools/lsp/client.h"
#include "tools/lsp/documents.h"
#include "tools/lsp/message.h"

namespace tool::lsp {

// The option files and definitions in the folders of the client, as paths, sorted.
struct tfolderfiles {
  std::vector<std::string> optionfiles;
  std::vector<std::string> definitions;
};

struct tworkspace {
  tclient client;
  std::shared_ptr<const tsettings> settings = std::make_shared<const tsettings>();
  std::vector<std::string> folders;  // paths
  std::shared_ptr<const tfolderfiles> files = std::make_shared<const tfolderfiles>();
  tdocuments documents;
};

struct trequest {
  const json& params;
  const tworkspace& workspace;
  // To be asked now and then by what takes long; the answer is then thrown away.
  std::function<bool()> iscancelled;

  // The open document that the request is about. Never null in an answer to a textDocument request.
  const tdocument* document() const {
    return workspace.documents.find(textof(member(params, "textDocument", "uri")));
  }
  tencoding encoding() const { return workspace.client.encoding; }
  // The place in the document's text that the request is about, in bytes.
  std::size_t offset() const {
    return document()->text()->offsetat(positionfrom(member(params, "position")), encoding());
  }
};

// Looks for the files. Ends early when `iscancelled` says so.
tfolderfiles findfiles(const std::vector<std::string>& folders, const std::function<bool()>& iscancelled);

}  // namespace tool::lsp

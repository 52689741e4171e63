// The documents that are open in the editor, and what is known of each.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/lsp/analysis.h"
#include "tools/lsp/definitionindex.h"

namespace tool::lsp {

// Lines that a change has replaced; of the text before it, from 1.
struct tedit {
  std::uint64_t serial;  // of the text after it
  std::int32_t first;
  std::int32_t removed;
  std::int32_t added;
};

class tdocument {
 public:
  tdocument(std::string uri, std::string_view language, std::string text, std::int64_t version);

  const std::string& uri() const { return furi; }
  const std::string& name() const { return fname; }  // as findings have it
  const std::string& key() const { return fkey; }
  tdocumentkind kind() const { return fkind; }
  std::int64_t version() const { return fversion; }
  std::uint64_t serial() const { return fserial; }
  // As the client has it now. Never null.
  const std::shared_ptr<const ttext>& text() const { return ftext; }
  // Of the last text that was analysed, which may be an older one. Null before the first analysis.
  const std::shared_ptr<const tsnapshot>& snapshot() const { return fsnapshot; }
  // With the definition of the last analysis; null if there is none.
  const optcore::tvksoptions* store() const { return fsnapshot == nullptr ? nullptr : fsnapshot->store(); }
  bool iscurrent() const { return fsnapshot != nullptr && fsnapshot->serial == fserial; }

  // The entries of a definition, as the client has it now. Only the thread of the server asks.
  const std::shared_ptr<const tdefinitionindex>& index() const;

  // Where a line of the analysed text is now; 0 if it has been replaced.
  std::int32_t linenow(std::int32_t analysed) const;

  // The changes of one notification. Returns false if they make no sense; then nothing changes.
  bool change(const json& changes, std::int64_t version, tencoding encoding);
  // Returns false if it is older than the one that is known.
  bool take(std::shared_ptr<const tsnapshot> snapshot);

 private:
  std::string furi, fname, fkey;
  tdocumentkind fkind;
  std::int64_t fversion;
  std::uint64_t ffirstserial;
  std::uint64_t fserial;  // of the text
  std::shared_ptr<const ttext> ftext;
  std::shared_ptr<const tsnapshot> fsnapshot;
  std::vector<tedit> fedits;                               // since the snapshot
  mutable std::shared_ptr<const tdefinitionindex> findex;  // of the text; null until it is needed
};

class tdocuments {
 public:
  tdocument& open(tdocument document);
  void close(const std::string& uri);
  // Null if it is not open.
  tdocument* find(std::string_view uri);
  const tdocument* find(std::string_view uri) const;
  // The one whose file has this key; null if it is not open.
  const tdocument* withkey(std::string_view key) const;

  std::map<std::string, tdocument, std::less<>>& all() { return fdocuments; }
  const std::map<std::string, tdocument, std::less<>>& all() const { return fdocuments; }
  // The texts of all. The result stays as it is when documents change.
  std::shared_ptr<const ttexts> texts() const;

  // What the client calls the file.
  std::string uriof(const std::string& key) const;

 private:
  std::map<std::string, tdocument, std::less<>> fdocuments;  // by their URIs
};

// The languages of the editors' extensions.
inline constexpr std::string_view definitionlanguage = "wexcorin-definition";
inline constexpr std::string_view optionslanguage = "wexcorin-options";

}  // namespace tool::lsp

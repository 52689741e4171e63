// What is known of a document: made by reading it just as check does, and never changed afterwards. The thread
// of the analysis makes it, that of the server uses it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tools/lsp/client.h"
#include "tools/lsp/definitionindex.h"
#include "tools/lsp/nametable.h"
#include "tools/lsp/sources.h"
#include "tools/reading/finddefinition.h"
#include "tools/reading/reading.h"

namespace tool::lsp {

enum class tdocumentkind { definition, options };

// A definition that was read. Option files that have it share it.
struct tdefinitionstate {
  explicit tdefinitionstate(std::shared_ptr<const ttexts> open) : sources(std::move(open)) {}

  std::string name;  // as findings have it
  std::string key;
  std::shared_ptr<const ttext> text;  // null if it cannot be read
  bool isopened = false;              // as the library sees it
  tsources sources;
  treading reading;
  // The line of each entry. Only the thread of the server asks.
  tdefinitionlines& lines() const { return flines; }
  void takelines() { flines = reading.definitionlines(); }
  const optcore::tvksoptions& store() const { return reading.store(); }
  // Collects the names, which takes a while if there are very many. The thread of the analysis does it before it
  // passes the state on, because the store makes its indexes at the first search.
  void collectnames();
  const tnametable& names() const { return *fnames; }
  // The entries in the text, which must be there. Only the thread of the server asks.
  const std::shared_ptr<const tdefinitionindex>& index() const;
  // The names that may be meant by one that no option has. Only the thread of the server asks.
  std::vector<std::string> namesnear(const std::string& typed, bool dotted) const;

 private:
  mutable tdefinitionlines flines;
  mutable std::shared_ptr<const tdefinitionindex> findex;  // null until it is needed
  std::unique_ptr<const tnametable> fnames;
  mutable tsuggester fsuggester{reading.store()};
};

struct tsnapshot {
  tdocumentkind kind = tdocumentkind::options;
  std::uint64_t serial = 0;           // of the document's text
  std::shared_ptr<const ttext> text;  // that was read
  // Of an option file, null if none is found or it cannot be read. Of a definition, its own.
  std::shared_ptr<const tdefinitionstate> definition;
  std::unique_ptr<treading> reading;  // of the option file, on top of its definition; null if there is none
  tfindings findings;                 // all of check, those of the definition among them
  std::string problem;                // why the analysis failed; empty if it did not
  ttexts texts;                       // all files that were asked for, by their keys

  const optcore::tvksoptions* store() const {
    return reading != nullptr ? &reading->store() : definition != nullptr ? &definition->store() : nullptr;
  }
};

// What is to be analysed.
struct tdocumentstate {
  std::string name;  // of the file
  tdocumentkind kind = tdocumentkind::options;
  std::uint64_t serial = 0;
  std::shared_ptr<const ttext> text;
  std::shared_ptr<const ttexts> open;  // all open documents
  std::shared_ptr<const tsettings> settings;
};

// The definition by the rules of check; if they find none, that of the client's settings.
tfounddefinition definitionof(const std::string& optionfile, const tsettings& settings, ttextsource& source);

// Keeps the definitions that were read, and reads one again when it has changed.
class tanalysis {
 public:
  // Never null.
  std::shared_ptr<const tsnapshot> run(const tdocumentstate& document);

 private:
  struct tkept {
    std::shared_ptr<const tdefinitionstate> state;
    std::shared_ptr<const ttext> open;  // the text of the client, if it had it open
    std::string stamp;                  // of the file on the disk otherwise
  };

  void read(const tdocumentstate& document, tsnapshot& result);
  std::shared_ptr<const tdefinitionstate> definition(const std::string& name, const tdocumentstate& document);
  void forgetothers();

  std::shared_ptr<const tsettings> fsettings;  // those with which the definitions were read
  std::map<std::string, tkept> fdefinitions;
};

}  // namespace tool::lsp

// The texts that one analysis reads: of open documents as the client has them, of other files as they are on
// the disk. Each is taken once, so that all of the analysis sees the same text.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>

#include "tools/lsp/texts.h"
#include "tools/reading/temporaryfile.h"
#include "tools/reading/textsource.h"

namespace tool::lsp {

// By their keys.
using ttexts = std::map<std::string, std::shared_ptr<const ttext>, std::less<>>;

class tsources final : public ttextsource {
 public:
  // `open` are the open documents.
  explicit tsources(std::shared_ptr<const ttexts> open) : fopen(std::move(open)) {}

  std::string pathof(const std::string& filename) override;
  // All that was asked for; null for what is no regular file.
  const ttexts& texts() const { return ftexts; }
  // The text of this name; null if there is none.
  std::shared_ptr<const ttext> textof(const std::string& filename);
  // Lets go of the documents that were not read.
  void close() { fopen.reset(); }

 private:
  std::shared_ptr<const ttext> load(const std::string& key) const;
  std::string makepath(const std::string& filename, const std::string& key);

  std::shared_ptr<const ttexts> fopen;
  ttexts ftexts;
  std::map<std::string, std::string> fpaths, fbykey;  // of the names that were asked for, and of their keys
  std::deque<ttemporaryfile> ffiles;
};

// The text of a regular file; null if it is none, or has more than 64 MiB.
std::shared_ptr<const ttext> loadtext(const std::string& path);

}  // namespace tool::lsp

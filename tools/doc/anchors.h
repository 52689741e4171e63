// The anchors of a document that is read in a browser: one for each option, each synonym and each chapter.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tools/doc/reference.h"

namespace tool {

// A line of the index of names.
struct tindexentry {
  std::string name;
  std::string anchor;
  const toptionreference* option;
  bool synonym;
};

// Anchors are made from names, so that they stay when options are added. Options get theirs first, then
// synonyms, then chapters: none of them can take the anchor of an option.
class tanchors {
 public:
  explicit tanchors(const std::vector<tchapter>& chapters);

  const std::string& of(const toptionreference& option) const { return foptions.at(&option); }
  const std::string& ofsynonym(const toptionreference& option, std::size_t index) const;
  const std::string& ofchapter(std::size_t index) const { return fchapters.at(index); }
  const std::string& ofindex() const { return findex; }

  // The option of the document with this name or synonym; null if there is none. Upper and lower case are the
  // same, and so are blank and underscore.
  const toptionreference* find(std::string_view name) const;

  // All names and synonyms in alphabetical order.
  std::vector<tindexentry> index() const;

 private:
  std::string unused(const std::string& form);

  std::set<std::string> ftaken;
  std::map<std::string, std::size_t> fuses;  // saves equal names from trying all numbers again
  std::map<const toptionreference*, std::string> foptions;
  std::map<const toptionreference*, std::vector<std::string>> fsynonyms;
  std::vector<std::string> fchapters;
  std::string findex;
  std::map<std::string, const toptionreference*> fnames;  // by folded name
};

}  // namespace tool

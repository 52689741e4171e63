// Finds the names of a list whose words were typed: in another order, abbreviated, between others, or joined.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tool {

class tnamewords {
 public:
  explicit tnamewords(const std::vector<std::string>& names);

  // The names of which each word is among those typed, at most three. Two words are the same if one begins
  // with the other and the shorter one has at least three letters, as in tol and tolerances. Names that leave
  // the fewest words over come first, then those with the words in the same order. With `leaveover`, words
  // that belong to no name may be left over, such as the name of a section.
  std::vector<std::string> matching(std::string_view typed, bool leaveover) const;

  // The names that the typed word abbreviates, at most three: it is made of the beginnings of at least two of
  // their words, in order and written together, as feastol for feasibility_tolerance. Names of which fewer
  // words are missing come first.
  std::vector<std::string> abbreviated(std::string_view typed) const;

 private:
  using tpositions = std::vector<std::size_t>;

  // Looking at the names that share one rare word with what was typed is quicker than looking at all.
  std::unordered_map<std::string, tpositions> fbeginnings;
  // The names by the beginnings of two of their words that have at most one other between them.
  std::unordered_map<std::string, tpositions> fbeginningpairs;
  std::vector<std::string> fnames;
  std::vector<std::vector<std::string>> fwords;  // of each name, folded
};

}  // namespace tool

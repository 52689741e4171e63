// Suggestions for an unknown name: the known names that are spelled most like it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "options/vksoptions.h"

namespace tool {

// The number of insertions, deletions, replacements and swaps of neighbouring characters that turn a into b.
// Upper and lower case of A to Z are the same, and so are blank and underscore.
std::size_t editdistance(std::string_view a, std::string_view b);

enum class tmatch {
  near,         // spelled almost alike
  nearorlonger  // or beginning with what was typed
};

// Returns at most three candidates that `typed` may stand for, nearest first; equally near ones keep their
// order.
std::vector<std::string> nearest(std::string_view typed, const std::vector<std::string>& candidates,
                                 tmatch match);

// The names and synonyms that are suggested for a key: without dot options and names that begin with "--".
std::vector<std::string> keynames(const optcore::tvksoptions& store);

// Makes suggestions for the subject of a message: an unknown option or dot option, or a word that an option
// does not permit.
class tsuggester {
 public:
  // The store must outlive this object, and have read its definition before the first unknown option is
  // looked up: the names are collected then.
  explicit tsuggester(const optcore::tvksoptions& store) : fstore(store) {}
  std::vector<std::string> suggestionsfor(const optcore::tsubject& subject);

 private:
  // The suggestions for each word are cached. After this number of comparisons there are none for new words:
  // a file with so many unknown words is not mistyped, but a file of another kind.
  static constexpr std::size_t mostcomparisons = 10'000'000;
  using tword = std::tuple<optcore::tsubject::tproblem, const optcore::toption*, std::string>;

  std::vector<std::string> found(const optcore::tsubject& subject);
  std::vector<std::string> compared(std::string_view word, const std::vector<std::string>& names,
                                    tmatch match);
  std::vector<std::string> likekey(const std::string& key);

  const optcore::tvksoptions& fstore;
  std::optional<std::vector<std::string>> fkeys, fdots;
  std::size_t fcomparisons = 0;
  std::map<tword, std::vector<std::string>> fanswers;
};

}  // namespace tool

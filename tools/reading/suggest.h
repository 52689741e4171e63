// "Did you mean": for an unknown name, the known ones that are written most like it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "options/vksoptions.h"

namespace tool {

// The number of insertions, deletions, replacements and swaps of neighbours that lead from a to b; the
// letters A to Z are equal in both cases.
std::size_t editdistance(std::string_view a, std::string_view b);

enum class tmatch {
  near,         // written almost alike
  nearorlonger  // or beginning with what was typed
};

// At most three candidates that may be meant by `typed`, nearest first, otherwise in the given order.
std::vector<std::string> nearest(std::string_view typed, const std::vector<std::string>& candidates,
                                 tmatch match);

// The names and synonyms that can be typed as a key.
std::vector<std::string> keynames(const optcore::tvksoptions& store);

// Makes suggestions for what messages are about: an unknown option or dot option, or a word that an option
// does not permit.
class tsuggester {
 public:
  // The store has read its definition when the first suggestion is asked for.
  explicit tsuggester(const optcore::tvksoptions& store) : fstore(store) {}
  std::vector<std::string> suggestionsfor(const optcore::tsubject& subject);

 private:
  // A word that comes again is answered from memory. After so many comparisons there are no further
  // suggestions: a file with so many unknown words has not been mistyped, but is of another kind.
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

// Suggestions for a name or word that the library does not know: what may have been meant.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "options/vksoptions.h"
#include "tools/reading/namewords.h"
#include "tools/reading/nearnames.h"

namespace tool {

// The names and synonyms that are suggested for a key: without dot options and names that begin with "--".
std::vector<std::string> keynames(const optcore::tvksoptions& store);
// The names of the dot options, with their dots.
std::vector<std::string> dotnames(const optcore::tvksoptions& store);

// Makes suggestions for the subject of a message: an unknown option or dot option, a name with signs of
// another format or its value in it, or a word that an option does not permit.
class tsuggester {
 public:
  // The store must outlive this object, and have read its definition before the first unknown option is
  // looked up: the names are collected then.
  explicit tsuggester(const optcore::tvksoptions& store) : fstore(store) {}

  // At most three names, the most likely one first. `line` is the line that the subject stands on.
  std::vector<std::string> suggestionsfor(const optcore::tsubject& subject, std::string_view line);
  // The same while the definition is read, for the only one of these names that no option has so far.
  std::vector<std::string> definedlike(const std::vector<std::string>& names);

 private:
  // After so many words there are no suggestions for others: a file with so many unknown words is not
  // mistyped, but a file of another kind.
  static constexpr std::size_t mostwords = 20'000;
  using tword = std::tuple<optcore::tsubject::tproblem, const optcore::toption*, std::string>;

  std::vector<std::string> found(const optcore::tsubject& subject, const std::string& typed);
  std::vector<std::string> permittedlike(const optcore::tenumstroption& option, std::string_view word);
  std::vector<std::string> likekey(std::string_view key, std::string_view typed);
  std::vector<std::string> likedot(std::string_view dotname, std::string_view word);
  std::vector<std::string> samewords(std::string_view word, bool leaveover);
  std::vector<std::string> likelastpart(std::string_view word);
  std::vector<std::string> withoutlastwords(std::string_view key);
  std::vector<std::string> knownpart(std::string_view key) const;
  std::string joinedtovalue(const optcore::tsubject& subject) const;
  std::vector<std::string> endingwith(std::string_view key);
  std::string writtenotherwise(std::string_view typed) const;
  std::string gluedtovalue(std::string_view typed) const;
  std::string known(std::string_view name) const;
  std::vector<std::string> dotname(std::string_view key, bool near);
  std::vector<std::string> inforce(const std::vector<std::string>& names) const;
  const tnearnames& keys();
  const tnearnames& dots();

  const optcore::tvksoptions& fstore;
  std::optional<tnearnames> fkeys, fdots;
  std::optional<tnamewords> fkeywords;
  std::map<const optcore::toption*, tnearnames> fwords;  // the values of enumerations
  std::map<tword, std::vector<std::string>> fanswers;
  std::int32_t flooked = 0;  // how often names were looked up while the definition was read
};

}  // namespace tool

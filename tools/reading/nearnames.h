// Finds the names of a list that are spelled most like a word.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tool {

enum class tmatch {
  near,         // spelled almost alike
  nearorlonger  // or beginning with what was typed
};

// The text in the form in which names are compared: in upper case and with underscores for blanks.
std::string folded(std::string_view text);

class tnearnames {
 public:
  explicit tnearnames(std::vector<std::string> names);

  // Returns at most three names that `typed` may stand for, nearest first; equally near ones keep their
  // order. `typed` itself is not among them.
  //
  // The distance of two names is the number of insertions, deletions, replacements and swaps of neighbouring
  // characters that turn one into the other. A name is near if its distance is at most a third of the length
  // that was typed, between 1 and 4, and at most one more than that of the nearest name.
  std::vector<std::string> nearest(std::string_view typed, tmatch match) const;

  // The first three names that end like this.
  std::vector<std::string> endingwith(std::string_view ending) const;

  // How often each letter, digit and other character occurs in a folded name.
  using tcounts = std::array<std::uint8_t, 48>;

 private:
  using thit = std::pair<std::size_t, std::size_t>;  // the distance of a name, and its position

  using tpositions = std::vector<std::uint32_t>;

  // The names whose length differs from that of the key by at most so much, as a part of fbylength.
  std::span<const std::uint32_t> ofsimilarlength(std::size_t length, std::size_t difference) const;
  void addnear(std::string_view key, std::string_view typed, std::vector<thit>& hits) const;
  void addlonger(std::string_view key, std::vector<thit>& hits) const;
  std::vector<std::string> best(std::vector<thit> hits, std::string_view typed) const;

  std::vector<std::string> fnames;
  std::vector<std::string> fkeys;  // the same, folded
  tpositions fbylength;  // the positions of the names, shortest first, those of a length by their keys
  std::vector<tcounts> fcounts;        // in the order of fbylength
  tpositions fbybeginning, fbyending;  // sorted by their keys, and by their keys read backwards
};

}  // namespace tool

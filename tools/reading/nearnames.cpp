// Every name is looked at, but the distance is computed only for names that have about the same characters as
// the word: this is what makes tens of thousands of names quick to search.
#include "tools/reading/nearnames.h"

#include <emmintrin.h>

#include <algorithm>

#include "base/textcase.h"

namespace tool {

namespace {

using tcounts = tnearnames::tcounts;

constexpr std::size_t maxsuggestions = 3;

// The number of typing mistakes in a word of this length. A word with more mistakes is another word.
constexpr std::size_t mosttolerated = 4;
std::size_t tolerated(std::size_t length) { return std::clamp<std::size_t>(length / 3, 1, mosttolerated); }

tcounts countsof(std::string_view key) {
  tcounts counts{};
  for (const char c : key.substr(0, 255)) {
    const bool usual = c >= '0' && c <= '_';  // digits, capital letters and the underscore
    ++counts[usual ? static_cast<std::size_t>(c - '0') : counts.size() - 1];
  }
  return counts;
}

// By how much the counts in a exceed those in b, 16 counts at a time.
std::size_t excess(const tcounts& a, const tcounts& b) {
  __m128i sums = _mm_setzero_si128();
  for (std::size_t i = 0; i < a.size(); i += 16) {
    const __m128i more = _mm_subs_epu8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(&a[i])),
                                       _mm_loadu_si128(reinterpret_cast<const __m128i*>(&b[i])));
    sums = _mm_add_epi64(sums, _mm_sad_epu8(more, _mm_setzero_si128()));
  }
  return static_cast<std::size_t>(_mm_cvtsi128_si64(sums) + _mm_cvtsi128_si64(_mm_srli_si128(sums, 8)));
}

// The smallest distance that names with these characters can have: a change makes up for at most one
// character that occurs too often and one that occurs too rarely.
std::size_t leastdistance(const tcounts& a, const tcounts& b) { return std::max(excess(a, b), excess(b, a)); }

// Computes the distance of a word to many names, a column of the table of distances at a time. Each bit of a
// number stands for a cell: whether it is one more, or one less, than its neighbour (H. Hyyrö, "A bit-vector
// algorithm for computing Levenshtein and Damerau edit distances", 2003).
class tdistance {
 public:
  static constexpr std::size_t longest = 64;

  // The word has between 1 and `longest` characters.
  explicit tdistance(std::string_view word) : flength(word.size()) {
    for (std::size_t i = 0; i < word.size(); ++i) fplaces[place(word[i])] |= std::uint64_t{1} << i;
  }

  std::size_t to(std::string_view name) const {
    const std::uint64_t lastbit = std::uint64_t{1} << (flength - 1);
    std::uint64_t vertical1 = ~std::uint64_t{0};  // one more than the cell above
    std::uint64_t vertical0 = 0;                  // one less
    std::uint64_t diagonal = 0, equalbefore = 0;
    std::size_t distance = flength;
    for (const char c : name) {
      const std::uint64_t equal = fplaces[place(c)];
      const std::uint64_t swapped = ((~diagonal & equal) << 1) & equalbefore;
      diagonal = (((equal & vertical1) + vertical1) ^ vertical1) | equal | vertical0 | swapped;
      const std::uint64_t horizontal1 = vertical0 | ~(diagonal | vertical1);
      const std::uint64_t horizontal0 = diagonal & vertical1;
      if ((horizontal1 & lastbit) != 0) ++distance;
      if ((horizontal0 & lastbit) != 0) --distance;
      const std::uint64_t shifted = (horizontal1 << 1) | 1;
      vertical1 = (horizontal0 << 1) | ~(diagonal | shifted);
      vertical0 = diagonal & shifted;
      equalbefore = equal;
    }
    return distance;
  }

 private:
  static std::size_t place(char c) { return static_cast<unsigned char>(c); }

  std::size_t flength;
  std::array<std::uint64_t, 256> fplaces{};  // where each character stands in the word
};

}  // namespace

std::string folded(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = c == ' ' ? '_' : optcore::upchar(c);
  return result;
}

tnearnames::tnearnames(std::vector<std::string> names) : fnames(std::move(names)) {
  fkeys.reserve(fnames.size());
  fcounts.reserve(fnames.size());
  for (const std::string& name : fnames) fcounts.push_back(countsof(fkeys.emplace_back(folded(name))));
}

// Computes the distance of the names that may be near, those that may be nearest first, and stops when no
// other can be near enough.
void tnearnames::addnear(std::string_view key, std::string_view typed, std::vector<thit>& hits) const {
  const tcounts counts = countsof(key);
  std::array<std::vector<std::size_t>, mosttolerated + 1> candidates;  // by the smallest possible distance
  for (std::size_t i = 0; i < fkeys.size(); ++i)
    if (const std::size_t least = leastdistance(counts, fcounts[i]); least < candidates.size())
      candidates[least].push_back(i);
  const tdistance distance(key);
  std::size_t enough = tolerated(key.size());
  for (std::size_t least = 0; least <= enough; ++least)
    for (const std::size_t i : candidates[least]) {
      const std::size_t found = distance.to(fkeys[i]);
      const bool shares = found < std::max(key.size(), fkeys[i].size());  // at least one character
      if (found > enough || !shares || optcore::struequal(typed, fnames[i])) continue;
      hits.push_back({found, i});
      enough = std::min(enough, found + 1);
    }
  std::erase_if(hits, [enough](const thit& hit) { return hit.distance > enough; });
}

void tnearnames::addlonger(std::string_view key, std::vector<thit>& hits) const {
  for (std::size_t i = 0; i < fkeys.size(); ++i)
    if (fkeys[i].starts_with(key)) hits.push_back({fkeys[i].size() - key.size(), i});
}

std::vector<std::string> tnearnames::best(std::vector<thit> hits, std::string_view typed) const {
  std::ranges::sort(hits);
  std::vector<std::string> result;
  for (const thit& hit : hits) {
    const std::string& name = fnames[hit.position];
    // the name that was typed is no suggestion, even if the lookup mode does not match it
    if (optcore::struequal(typed, name) || std::ranges::find(result, name) != result.end()) continue;
    result.push_back(name);
    if (result.size() == maxsuggestions) break;
  }
  return result;
}

std::vector<std::string> tnearnames::nearest(std::string_view typed, tmatch match) const {
  const std::string key = folded(typed);
  if (key.empty() || key.size() > tdistance::longest) return {};
  std::vector<thit> hits;
  addnear(key, typed, hits);
  if (match == tmatch::nearorlonger && key.size() >= 3) addlonger(key, hits);
  return best(std::move(hits), typed);
}

std::vector<std::string> tnearnames::endingwith(std::string_view ending) const {
  const std::string key = folded(ending);
  std::vector<std::string> result;
  for (std::size_t i = 0; i < fkeys.size() && result.size() < maxsuggestions; ++i)
    if (fkeys[i].ends_with(key)) result.push_back(fnames[i]);
  return result;
}

}  // namespace tool

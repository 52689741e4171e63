// The distance is computed only for names that have about the same length and the same characters as the word:
// this is what makes tens of thousands of names quick to search.
#include "tools/reading/nearnames.h"

#include <emmintrin.h>

#include <algorithm>
#include <numeric>

#include "base/textcase.h"

namespace tool {

namespace {

using tcounts = tnearnames::tcounts;

constexpr std::size_t maxsuggestions = 3;

// The number of typing mistakes in a word of this length. A word with more mistakes is another word.
constexpr std::size_t mosttolerated = 4;
std::size_t tolerated(std::size_t length) { return std::clamp<std::size_t>(length / 3, 1, mosttolerated); }

// The counts of names that are too long to be compared may overflow.
tcounts countsof(std::string_view key) {
  tcounts counts{};
  for (const char c : key) {
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

// Computes the distance of a word to many names, a column of the table of distances for each character of the
// name. Each bit of a number stands for a cell: whether it is one more, or one less, than its neighbour
// (H. Hyyrö, "A bit-vector algorithm for computing Levenshtein and Damerau edit distances", 2003). A name that
// begins like the one before it has the same first columns.
class tdistance {
 public:
  static constexpr std::size_t longest = 64;

  // The word has between 1 and `longest` characters.
  explicit tdistance(std::string_view word) : flastbit(std::uint64_t{1} << (word.size() - 1)) {
    for (std::size_t i = 0; i < word.size(); ++i) fplaces[place(word[i])] |= std::uint64_t{1} << i;
    fcolumns[0].distance = word.size();
  }

  // The distance of the name, or any number above `most` if it is above. The name may be longer than the word
  // by `mosttolerated` characters.
  std::size_t to(std::string_view name, std::size_t most) {
    const auto common = std::ranges::mismatch(name, fname).in1 - name.begin();
    fcount = std::min(fcount, static_cast<std::size_t>(common));
    fname = name;
    // each character that is left makes the distance smaller by one at most
    while (fcount < name.size() && fcolumns[fcount].distance <= most + name.size() - fcount) {
      fcolumns[fcount + 1] = next(fcolumns[fcount], name[fcount]);
      ++fcount;
    }
    return fcount == name.size() ? fcolumns[fcount].distance : most + 1;
  }

 private:
  struct tcolumn {
    std::uint64_t vertical1 = ~std::uint64_t{0};  // one more than the cell above
    std::uint64_t vertical0 = 0;                  // one less
    std::uint64_t diagonal = 0, equal = 0;
    std::size_t distance = 0;  // of the name up to here
  };

  static std::size_t place(char c) { return static_cast<unsigned char>(c); }

  tcolumn next(const tcolumn& before, char c) const {
    tcolumn column;
    column.equal = fplaces[place(c)];
    const std::uint64_t swapped = ((~before.diagonal & column.equal) << 1) & before.equal;
    column.diagonal = (((column.equal & before.vertical1) + before.vertical1) ^ before.vertical1) |
                      column.equal | before.vertical0 | swapped;
    const std::uint64_t horizontal1 = before.vertical0 | ~(column.diagonal | before.vertical1);
    const std::uint64_t horizontal0 = column.diagonal & before.vertical1;
    column.distance =
        before.distance + ((horizontal1 & flastbit) != 0 ? 1 : 0) - ((horizontal0 & flastbit) != 0 ? 1 : 0);
    const std::uint64_t shifted = (horizontal1 << 1) | 1;
    column.vertical1 = (horizontal0 << 1) | ~(column.diagonal | shifted);
    column.vertical0 = column.diagonal & shifted;
    return column;
  }

  std::uint64_t flastbit;
  std::array<std::uint64_t, 256> fplaces{};  // where each character stands in the word
  std::string_view fname;                    // the name of the columns
  std::size_t fcount = 0;                    // of its characters that have a column
  std::array<tcolumn, longest + mosttolerated + 1> fcolumns{};
};

bool isbeforebackwards(const std::string& a, const std::string& b) {
  return std::lexicographical_compare(a.rbegin(), a.rend(), b.rbegin(), b.rend());
}

}  // namespace

std::string folded(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = c == ' ' ? '_' : optcore::upchar(c);
  return result;
}

tnearnames::tnearnames(std::vector<std::string> names) : fnames(std::move(names)) {
  fkeys.reserve(fnames.size());
  for (const std::string& name : fnames) fkeys.push_back(folded(name));
  tpositions positions(fnames.size());
  std::iota(positions.begin(), positions.end(), 0U);
  fbylength = fbybeginning = fbyending = positions;
  std::ranges::sort(fbylength, {}, [this](std::uint32_t i) {
    return std::pair<std::size_t, std::string_view>(fkeys[i].size(), fkeys[i]);
  });
  fcounts.reserve(fkeys.size());
  for (const std::uint32_t i : fbylength) fcounts.push_back(countsof(fkeys[i]));
  std::ranges::sort(fbybeginning, {}, [this](std::uint32_t i) -> const std::string& { return fkeys[i]; });
  std::ranges::sort(fbyending, isbeforebackwards,
                    [this](std::uint32_t i) -> const std::string& { return fkeys[i]; });
}

std::span<const std::uint32_t> tnearnames::ofsimilarlength(std::size_t length, std::size_t difference) const {
  const auto size = [this](std::uint32_t i) { return fkeys[i].size(); };
  const auto first = std::ranges::lower_bound(fbylength, length - std::min(length, difference), {}, size);
  return {first, std::ranges::upper_bound(fbylength, length + difference, {}, size)};
}

// Computes the distance of the names that may be near, those that may be nearest first, and stops when no
// other can be near enough.
void tnearnames::addnear(std::string_view key, std::string_view typed, std::vector<thit>& hits) const {
  const tcounts counts = countsof(key);
  std::size_t enough = tolerated(key.size());
  std::array<tpositions, mosttolerated + 1> candidates;  // by the smallest possible distance
  const std::span<const std::uint32_t> similar = ofsimilarlength(key.size(), enough);
  const tcounts* others = fcounts.data() + (similar.data() - fbylength.data());
  for (const std::uint32_t i : similar)
    if (const std::size_t least = leastdistance(counts, *others++); least <= enough)
      candidates[least].push_back(i);
  tdistance distance(key);
  for (std::size_t least = 0; least <= enough; ++least)
    for (const std::uint32_t i : candidates[least]) {
      const std::size_t found = distance.to(fkeys[i], enough);
      const bool shares = found < std::max(key.size(), fkeys[i].size());  // at least one character
      if (found > enough || !shares || optcore::struequal(typed, fnames[i])) continue;
      hits.push_back({found, i});
      enough = std::min(enough, found + 1);
    }
  std::erase_if(hits, [enough](const thit& hit) { return hit.first > enough; });
}

void tnearnames::addlonger(std::string_view key, std::vector<thit>& hits) const {
  const auto beginning = [&](std::uint32_t i) { return std::string_view(fkeys[i]).substr(0, key.size()); };
  const auto first = std::ranges::lower_bound(fbybeginning, key, {}, beginning);
  const auto last = std::ranges::upper_bound(fbybeginning, key, {}, beginning);
  for (const std::uint32_t i : std::span(first, last)) hits.push_back({fkeys[i].size() - key.size(), i});
}

std::vector<std::string> tnearnames::best(std::vector<thit> hits, std::string_view typed) const {
  std::ranges::sort(hits);
  std::vector<std::string> result;
  for (const thit& hit : hits) {
    const std::string& name = fnames[hit.second];
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
  const auto same = [&](std::uint32_t i) { return fkeys[i].ends_with(key); };
  const auto before = [&](std::uint32_t i) { return isbeforebackwards(fkeys[i], key); };
  const auto first = std::partition_point(fbyending.begin(), fbyending.end(), before);
  tpositions found(first, std::find_if_not(first, fbyending.end(), same));
  std::ranges::sort(found);
  std::vector<std::string> result;
  for (const std::uint32_t i : found)
    if (result.size() < maxsuggestions) result.push_back(fnames[i]);
  return result;
}

}  // namespace tool

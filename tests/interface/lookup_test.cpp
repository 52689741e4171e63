// Finding an option by name in the three lookup modes. The walks of the modes "Path" and "Minos" stand here a
// second time, step by step over 1-based positions, and are compared with the library on many generated
// names.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/handle.h"

namespace testsupport {
namespace {

struct trow {
  int where;
  const char* mode;
  std::vector<const char*> names;  // of options 2 and on
  const char* query;
  int position;  // 0-based, Help is 0
};

TEST(lookup, bymode) {
  const std::vector<trow> rows = {
      {__LINE__, "Normal", {"alpha", "Beta", "beta"}, "BETA", 2},
      {__LINE__, "Path", {"convergence_tolerance"}, "con_tol", 1},
      {__LINE__, "path", {"convergence_tolerance"}, "co_tol", -1},
      {__LINE__, "Path", {"convergence"}, "con_tol", -1},
      {__LINE__, "Path", {"xy", "abc"}, "xy", -1},  // words of fewer than three characters never match
      {__LINE__, "Minos", {"major_iterations_limit"}, "majxxx_iter_limi", 1},
      {__LINE__, "Minos", {"major_iterations_limit"}, "major_iterations", -1},
      {__LINE__, "Minos", {"major_iterations_limit"}, "maj_ite_limi", -1},
      {__LINE__, "minos", {"ma_x"}, "ma_x", 1},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    std::string text;
    for (const char* name : row.names) text += name + std::string(" integer 1 1 0 9 1 1\n");
    h.definition(text + row.mode + " lookup\n");  // at the end, so that it plays no part in reading the names
    EXPECT_EQ(h.lookup(row.query), row.position) << row.query;
    EXPECT_EQ(h.number(row.query), row.position < 0 ? -1 : row.position + 1) << row.query;
  });
}

// Where names consist of words, they are handed out with blanks; help and writing by the raw name keep
// underscores.
TEST(lookup, namesofmodeminoshaveblanks) {
  inbothforms([](thandle& h) {
    h.definition("major_iterations_limit integer 1 1 0 9 1 1\nMinos lookup\n");
    std::string name, other, third, raw, text;
    std::int32_t i = 0, j = 0;
    double d = 0;
    h.getnamenr(2, name);
    h.getopthelpnr(2, other, i, j);
    h.getvaluesnr(2, third, i, d, text);
    EXPECT_EQ((tlines{name, other, third}), tlines(3, "major iterations limit"));
    h.gethelpnr(2, raw, text);
    EXPECT_EQ(raw, "major_iterations_limit");
    EXPECT_EQ(h.number("major iterations limit"), -1);
  });
}

char up(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// q and n are read at 1-based positions i and j; m counts the characters that agreed in the current word.
bool pathmatches(const std::string& q, const std::string& n) {
  const std::size_t lengthq = q.size(), lengthn = n.size();
  std::size_t i = 0, j = 0;
  int m = 0;
  const auto towordend = [&] {
    while (i < lengthq && q[i - 1] != '_') ++i;
    while (j < lengthn && n[j - 1] != '_') ++j;
  };
  while (i < lengthq && j < lengthn) {
    ++i;
    ++j;
    if (q[i - 1] == '_' || n[j - 1] == '_') {
      if (m <= 2) return false;
      towordend();
      m = 0;
    } else if (up(q[i - 1]) == up(n[j - 1])) {
      ++m;
    } else if (m <= 2) {
      return false;
    }
  }
  if (m <= 2) return false;
  towordend();
  return q[i - 1] != '_' && n[j - 1] != '_';
}

bool equal(const std::string& a, const std::string& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return up(x) == up(y); });
}

bool minosmatches(const std::string& q, const std::string& n) {
  if (!equal(q.substr(0, 3), n.substr(0, 3))) return false;
  std::size_t i = q.find('_');
  std::size_t j = n.find('_');
  while (i != std::string::npos && j != std::string::npos) {
    const auto piece = [](const std::string& s, std::size_t underscore) {
      const std::string four = s.substr(underscore + 1, 4);
      return four.substr(0, four.find('_'));
    };
    if (!equal(piece(q, i), piece(n, j))) return false;
    i = q.find('_', i + 1);
    j = n.find('_', j + 1);
  }
  return i == j;
}

class tnames {
 public:
  // Words of few different letters and lengths around the significant ones, so that near misses are frequent.
  std::string name() {
    std::string result(1, letter());
    for (int words = pick(3); words >= 0; --words) {
      for (int length = pick(6); length > 0; --length) result += letter();
      if (words > 0) result += '_';
    }
    return result;
  }
  std::string variationof(std::string name) {
    for (int change = pick(3); change > 0; --change) {
      const auto at = static_cast<std::size_t>(pick(static_cast<int>(name.size())));
      switch (pick(3)) {
        case 0: name.replace(at, 1, 1, "aAbB_"[pick(4)]); break;
        case 1: name.erase(at, 1); break;
        case 2: name.insert(at, 1, letter()); break;
        default: name.resize(at); break;
      }
    }
    return name;
  }
  int pick(int highest) { return std::uniform_int_distribution<int>(0, highest)(fgenerator); }

 private:
  char letter() { return "aaaAAbB"[pick(6)]; }
  std::mt19937 fgenerator{20240607};
};

bool matches(const std::string& mode, const std::string& query, const std::string& name) {
  if (mode == "Normal") return equal(query, name);
  return mode == "Path" ? pathmatches(query, name) : minosmatches(query, name);
}

// The position of the first name that answers, -1 for none.
int firstof(const tlines& names, const std::string& mode, const std::string& query) {
  const auto match =
      std::find_if(names.begin(), names.end(), [&](const auto& name) { return matches(mode, query, name); });
  return match == names.end() ? -1 : static_cast<int>(match - names.begin());
}

// Short and long lists of options, many of them alike, with as many synonyms.
TEST(lookup, generatednames) {
  for (const std::string mode : {"Normal", "Path", "Minos"}) {
    SCOPED_TRACE(mode);
    tnames names;
    int found = 0, missed = 0;
    for (int round = 0; round < 40; ++round) {
      tlines options = {"Help"}, synonyms;
      std::string text;
      for (int count = round % 4 == 0 ? 300 : 12; count > 0; --count) {
        options.push_back(names.name());
        synonyms.push_back(names.name());
        text +=
            options.back() + " integer 1 1 0 9 1 1\n" + synonyms.back() + " synonym " + options.back() + '\n';
      }
      thandle h(round % 2 == 0 ? tform::shortstring : tform::zeroterminated);
      h.definition(text + mode + " lookup\n");
      ASSERT_EQ(static_cast<std::size_t>(optcount(h.get())), options.size());
      for (int query = 0; query < 80; ++query) {
        const tlines& list = names.pick(4) == 0 ? synonyms : options;
        const std::string asked = names.variationof(
            list.at(static_cast<std::size_t>(names.pick(static_cast<int>(list.size()) - 1))));
        const int option = firstof(options, mode, asked);
        ASSERT_EQ(h.lookup(asked), option) << '"' << asked << "\" in\n" << text;
        const int synonym = firstof(synonyms, "Normal", asked);
        // A synonym stands for the option of its line, found by its whole name when the line was read.
        const int target =
            option >= 0 || synonym < 0
                ? option
                : firstof(options, "Normal", options.at(static_cast<std::size_t>(synonym) + 1));
        ASSERT_EQ(h.number(asked), target < 0 ? -1 : target + 1) << '"' << asked << "\" in\n" << text;
        ++(option >= 0 ? found : missed);
      }
    }
    EXPECT_GT(found, 300);  // both outcomes are well represented
    EXPECT_GT(missed, 300);
  }
}

}  // namespace
}  // namespace testsupport

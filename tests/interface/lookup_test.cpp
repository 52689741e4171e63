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
  const char* names;  // of options 2 and on, separated by blanks
  const char* query;
  int position;  // 0-based, Help is 0
};

std::string definitionof(std::string_view names, std::string_view mode) {
  std::string text;
  int refnr = 0;
  for (std::size_t at = 0; at < names.size();) {
    const std::size_t end = std::min(names.find(' ', at), names.size());
    text.append(names.substr(at, end - at))
        .append(" integer ")
        .append(std::to_string(++refnr))
        .append(" 1 0 9 1 1\n");
    at = end + 1;
  }
  return text.append(mode).append(" lookup\n");  // at the end, so that it plays no part in reading the names
}

TEST(lookup, bymode) {
  const std::vector<trow> rows = {
      {__LINE__, "Normal", "alpha Beta beta", "BETA", 2},
      {__LINE__, "Normal", "alpha Beta", "", -1},
      {__LINE__, "Normal", "alpha", "hElP", 0},
      {__LINE__, "Path", "convergence_tolerance", "con_tol", 1},
      {__LINE__, "path", "convergence_tolerance", "co_tol", -1},
      {__LINE__, "Path", "convergence_tolerance", "conXXX_tol", 1},
      {__LINE__, "Path", "convergence_tolerance", "conXXX_toXance", -1},
      {__LINE__, "Path", "convergence_tolerance", "con", -1},
      {__LINE__, "Path", "convergence", "con_tol", -1},
      {__LINE__, "Path", "convergence", "conxxxxxxxxxxxxxxxxxxxx", 1},
      {__LINE__, "Path", "con_tol_x contact constant", "const", 2},
      {__LINE__, "Path", "xy abc", "xy", -1},  // words of fewer than three characters never match
      {__LINE__, "Path", "abc_x", "abc_x", -1},
      {__LINE__, "Path", "abc", "", -1},
      {__LINE__, "Minos", "major_iterations_limit", "maj_iter_lim", -1},
      {__LINE__, "Minos", "major_iterations_limit", "majxxx_iter_limi", 1},
      {__LINE__, "Minos", "major_iterations_limit", "MAJOR_ITERXXX_LIMIXXX", 1},
      {__LINE__, "Minos", "major_iterations_limit", "major_iterations", -1},
      {__LINE__, "Minos", "major_iterations_limit", "maj_ite_limi", -1},
      {__LINE__, "Minos", "major_iterations", "major_iterations_limit", -1},
      {__LINE__, "minos", "ma_x", "ma_x", 1},
      {__LINE__, "Minos", "ma", "maj", -1},
      {__LINE__, "Minos", "maj", "ma", -1},
      {__LINE__, "Minos", "print_a_level", "pri_ab_level", -1},
      {__LINE__, "Minos", "print__level", "print__leve", 1},
      {__LINE__, "Minos", "a_b_limit", "a_b_limi", 1},  // an underscore counts among the first three as well
      {__LINE__, "Minos", "major minor majority", "majority", 1},
      {__LINE__, "Minos", "abc", "", -1},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    h.definition(definitionof(row.names, row.mode));
    EXPECT_EQ(h.lookup(row.query), row.position) << row.query;
    EXPECT_EQ(h.number(row.query), row.position < 0 ? -1 : row.position + 1) << row.query;
  });
}

// Synonyms are compared as they are in every mode, and only where no option answers to the name.
TEST(lookup, synonymscomesecond) {
  inbothforms([](thandle& h) {
    h.definition(
        "print_level integer 1 1 0 9 1 1\nmajor_limit integer 2 1 0 9 1 1\n"
        "verbosity synonym print_level\nPrintlevel synonym major_limit\nMinos lookup\n");
    EXPECT_EQ(h.lookup("verbosity"), -1);
    EXPECT_EQ(h.number("VERBOSITY"), 2);
    EXPECT_EQ(h.number("verb"), -1);
    EXPECT_EQ(h.number("printlevel"), 3);
    EXPECT_EQ(h.number("pri_leve"), 2);
  });
}

// Where names consist of words, they are handed out with blanks; help and writing by the raw name keep
// underscores.
TEST(lookup, namesofmodeminoshaveblanks) {
  inbothforms([](thandle& h) {
    h.definition("major_iterations_limit integer 1 1 0 9 1 1\nMinos lookup\n");
    std::string name;
    std::string text;
    std::int32_t i = 0;
    std::int32_t j = 0;
    double d = 0;
    h.getnamenr(2, name);
    EXPECT_EQ(name, "major iterations limit");
    h.getopthelpnr(2, name, i, j);
    EXPECT_EQ(name, "major iterations limit");
    h.getvaluesnr(2, name, i, d, text);
    EXPECT_EQ(name, "major iterations limit");
    h.gethelpnr(2, name, text);
    EXPECT_EQ(name, "major_iterations_limit");
    EXPECT_EQ(h.number("major iterations limit"), -1);
  });
}

char up(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// q and n are read at 1-based positions i and j; m counts the characters that agreed in the current word.
bool pathmatches(const std::string& q, const std::string& n) {
  const auto lengthq = static_cast<int>(q.size());
  const auto lengthn = static_cast<int>(n.size());
  const auto at = [](const std::string& s, int position) {
    return s[static_cast<std::size_t>(position - 1)];
  };
  int i = 0;
  int j = 0;
  int m = 0;
  const auto towordend = [&] {
    while (i < lengthq && at(q, i) != '_') ++i;
    while (j < lengthn && at(n, j) != '_') ++j;
  };
  while (i < lengthq && j < lengthn) {
    ++i;
    ++j;
    if (at(q, i) == '_' || at(n, j) == '_') {
      if (m <= 2) return false;
      towordend();
      m = 0;
    } else if (up(at(q, i)) == up(at(n, j))) {
      ++m;
    } else if (m <= 2) {
      return false;
    }
  }
  if (m <= 2) return false;
  towordend();
  return at(q, i) != '_' && at(n, j) != '_';
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
    const int words = pick(3);
    for (int word = 0; word <= words; ++word) {
      if (word > 0) result += '_';
      for (int length = pick(6); length > 0; --length) result += letter();
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

template <class Matches>
int firstof(const tlines& names, Matches matching) {
  const auto match = std::find_if(names.begin(), names.end(), matching);
  return match == names.end() ? -1 : static_cast<int>(match - names.begin());
}

// Short and long lists of options, many of them alike, with as many synonyms.
TEST(lookup, generatednames) {
  for (const std::string mode : {"Normal", "Path", "Minos"}) {
    SCOPED_TRACE(mode);
    tnames names;
    int found = 0;
    int missed = 0;
    for (int round = 0; round < 40; ++round) {
      tlines options = {"Help"};
      tlines synonyms;
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
      ASSERT_EQ(static_cast<std::size_t>(optsynonymcount(h.get())), synonyms.size());
      for (int query = 0; query < 80; ++query) {
        const tlines& list = names.pick(4) == 0 ? synonyms : options;
        const std::string asked = names.variationof(
            list.at(static_cast<std::size_t>(names.pick(static_cast<int>(list.size()) - 1))));
        const int option =
            firstof(options, [&](const std::string& name) { return matches(mode, asked, name); });
        ASSERT_EQ(h.lookup(asked), option) << '"' << asked << "\" in\n" << text;
        const int synonym = firstof(synonyms, [&](const std::string& name) { return equal(asked, name); });
        // A synonym stands for the option of its line, found by its whole name when the line was read.
        const int target =
            option >= 0 || synonym < 0 ? option : firstof(options, [&](const std::string& name) {
              return equal(options.at(static_cast<std::size_t>(synonym) + 1), name);
            });
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

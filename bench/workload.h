// The workloads of the benchmarks: a definition file of N typed options and parameter files for it, the same
// in every run. Of ten options four are integers, three doubles, and one each boolean, string and enumstr
// with four values; names have four words that stay apart in all three lookup modes.
//
// A workload also knows what every option holds after its assignments were read, and an order to ask in.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace bench {

// How the definition has names looked up, or that each option has a synonym too and every second line uses
// it.
enum class tnaming : std::uint8_t { normal, path, minos, synonyms };

struct tshape {
  std::int64_t options;
  std::int64_t assignments;
  tnaming naming = tnaming::normal;
  bool operator<(const tshape& other) const {
    return std::tie(options, assignments, naming) < std::tie(other.options, other.assignments, other.naming);
  }
};

struct tsample {
  char type = 'i';  // i d b s e
  std::string name, low, high, defaulttext, helptext;
  std::vector<std::string> items;  // of an enumstr
  std::string finaltext;           // the value after the last assignment, as it was written

  std::size_t textsize() const;  // the characters that anyone who keeps the option has to keep
};

struct tworkload {
  std::vector<tsample> options;
  std::vector<std::int32_t> queryorder;  // positions in options
  std::string definitionfile;            // paths
  std::string parameterfile;

  // Option and handle numbers: the reader of definitions puts an option of its own first.
  static std::int32_t number(std::int32_t position) { return position + 2; }
  // The name as a modeller types it.
  std::string typedname(std::int32_t position) const;
  tnaming naming = tnaming::normal;
};

// The workload of a shape; made and written on first use, kept until the program ends.
const tworkload& workload(const tshape& shape);

// Parameter files of so many lines; the result is the path. They are for the definition file
// entrydefinition(), which is that of workload({500, 500}) with the dot option "prior" and the indicator
// keyword "indic" at its end.
enum class tlines : std::uint8_t {
  dot,        // two elements each
  indicator,  // one element on either side
  unknown,    // names of no option
  refused     // values that their options refuse
};
std::string entrydefinition();
std::string linesfile(tlines kind, std::int64_t lines);
// Characters of the symbols and elements in the dot lines of such a file.
std::size_t dottextsize(std::int64_t lines);

// A file in the folder of this run, which is removed when the program ends. Returns its path.
std::string pathof(std::string_view name);
std::string writefile(std::string_view name, std::string_view text);

}  // namespace bench

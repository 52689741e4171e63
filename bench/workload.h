// The workloads of the benchmarks: a definition file of N typed options and option files for it, the same in
// every run. Of ten options four are integers, three are doubles, and one each is a boolean, a string and an
// enumstr with four values. Names have four words that are distinct in all three lookup modes.
//
// A workload also has the value of every option after its assignments were read, and an order of queries.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace bench {

// The lookup mode of the definition; or `Normal` with a synonym for each option, which every second line
// uses.
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

  std::size_t textsize() const;  // the characters that every implementation must store for the option
};

struct tworkload {
  std::vector<tsample> options;
  std::vector<std::int32_t> queryorder;  // positions in options
  std::string definitionfile;            // paths
  std::string parameterfile;

  // The number of an option in a handle, where the predefined option is the first.
  static std::int32_t number(std::int32_t position) { return position + 2; }
  // The name as a modeller types it.
  std::string typedname(std::int32_t position) const;
  tnaming naming = tnaming::normal;
};

// Returns the workload of a shape. It is made and written on first use, and kept until the program ends.
const tworkload& workload(const tshape& shape);

// Writes an option file of so many lines and returns its path. It is for the definition file
// entrydefinition(), which is that of workload({500, 500}) with the dot option "prior" and the indicator
// keyword "indic" at its end.
enum class tlines : std::uint8_t {
  dot,        // two elements each
  indicator,  // one element on each side
  unknown,    // names that are not those of an option
  refused     // values that the options refuse
};
std::string entrydefinition();
std::string linesfile(tlines kind, std::int64_t lines);
// The number of characters of the symbols and elements in the dot lines of such a file.
std::size_t dottextsize(std::int64_t lines);

// Returns the path of a file in the folder of this run, which is removed when the program ends.
std::string pathof(std::string_view name);
std::string writefile(std::string_view name, std::string_view text);

}  // namespace bench

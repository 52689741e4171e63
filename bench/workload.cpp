// Makes the workloads: options, assignments, and the files that hold them.
#include "workload.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

namespace bench {

namespace {

// A generator of our own (splitmix64): the distributions of the standard library differ between systems.
class trandom {
 public:
  explicit trandom(std::uint64_t seed) : fstate(seed) {}
  std::uint64_t next() {
    std::uint64_t z = (fstate += 0x9E3779B97F4A7C15ULL);
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31U);
  }
  std::uint64_t below(std::uint64_t limit) { return next() % limit; }
  double unit() { return static_cast<double>(next() >> 11U) * 0x1p-53; }
  template <class titems>
  const auto& choice(const titems& items) {
    return items[below(items.size())];
  }
  template <class titems>
  void shuffle(titems& items) {
    for (std::size_t i = items.size(); i > 1; --i) std::swap(items[i - 1], items[below(i)]);
  }

 private:
  std::uint64_t fstate;
};

using tbounds = std::array<std::string_view, 2>;

constexpr std::array<std::string_view, 8> firstwords = {"mip",  "lin",     "nlp",     "presolve",
                                                        "heur", "simplex", "barrier", "log"};
constexpr std::array<std::string_view, 10> lastwords = {"level", "limit",  "tol",   "freq",   "mode",
                                                        "rule",  "weight", "depth", "factor", "count"};
constexpr std::array<std::string_view, 12> enumwords = {"off",  "conservative", "automatic",   "aggressive",
                                                        "fast", "thorough",     "depth_first", "best_bound",
                                                        "race", "dual",         "hybrid",      "crossover"};
constexpr std::array<std::string_view, 12> helpwords = {"sets",   "upper",  "limit",   "on",
                                                        "number", "of",     "passes",  "made",
                                                        "before", "method", "changes", "strategy"};
constexpr std::array<tbounds, 8> integerbounds = {{{"0", "1"},
                                                   {"-1", "3"},
                                                   {"0", "10"},
                                                   {"1", "100"},
                                                   {"0", "10000"},
                                                   {"-100", "100"},
                                                   {"0", "1000000"},
                                                   {"0", "2147483647"}}};
constexpr std::array<tbounds, 7> doublebounds = {{{"0.0", "1.0"},
                                                  {"0.0", "1e+20"},
                                                  {"1e-09", "0.1"},
                                                  {"-1000.0", "1000.0"},
                                                  {"0.0", "100.0"},
                                                  {"1e-12", "1e-02"},
                                                  {"-1e+06", "1e+06"}}};

template <class tvalue>
tvalue number(std::string_view text) {
  tvalue value{};
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// Rounds to at most six significant digits. The result may be out of the bounds.
std::string realtext(trandom& random, const tsample& option) {
  const double low = number<double>(option.low);
  const double high = number<double>(option.high);
  const double value = low + (high - low) * random.unit() * random.unit();
  std::array<char, 32> buffer{};
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 6);
  const std::string text(buffer.data(), result.ptr);
  const double written = number<double>(text);
  return low <= written && written <= high ? text : option.low;
}

std::string randomvalue(trandom& random, const tsample& option) {
  switch (option.type) {
    case 'i': {
      const auto low = number<std::int64_t>(option.low);
      const auto range = static_cast<std::uint64_t>(number<std::int64_t>(option.high) - low);
      return std::to_string(low + static_cast<std::int64_t>(random.below(range + 1)));
    }
    case 'd': return realtext(random, option);
    case 'b': return random.below(2) == 0 ? "0" : "1";
    case 's':
      return "out/run_" + std::to_string(10000 + random.below(90000)) + "_" +
             std::string(random.choice(lastwords)) + ".txt";
    default: return random.choice(option.items);
  }
}

// Returns two words of three letters that are different for each position.
std::string codewords(std::int64_t position) {
  constexpr std::uint64_t words = 26ULL * 26 * 26 * 26 * 26 * 26;
  std::uint64_t code =
      static_cast<std::uint64_t>(position) * 123456789ULL % words;  // a factor prime to words
  std::string text(7, '_');
  for (const std::size_t i : {0U, 1U, 2U, 4U, 5U, 6U}) {
    text[i] = static_cast<char>('a' + code % 26);
    code /= 26;
  }
  return text;
}

std::string helptext(trandom& random) {
  std::string text;
  while (text.size() < 60) text.append(random.choice(helpwords)).append(" ");
  text.resize(59);
  return text + "x";
}

tsample makeoption(trandom& random, char type, std::int64_t position) {
  tsample option;
  option.type = type;
  option.name = std::string(random.choice(firstwords)) + "_" + codewords(position) + "_" +
                std::string(random.choice(lastwords));
  if (type == 'i' || type == 'd') {
    const tbounds& bounds = type == 'i' ? random.choice(integerbounds) : random.choice(doublebounds);
    option.low = bounds[0];
    option.high = bounds[1];
  } else if (type == 'e') {
    auto words = enumwords;
    random.shuffle(words);
    option.items.assign(words.begin(), words.begin() + 4);
  }
  option.defaulttext = option.finaltext = randomvalue(random, option);
  option.helptext = helptext(random);
  return option;
}

std::vector<tsample> makeoptions(trandom& random, std::int64_t count) {
  std::string types;
  for (std::int64_t i = 0; i < count; ++i) types += "iiiidddbse"[i % 10];
  random.shuffle(types);
  std::vector<tsample> options;
  options.reserve(types.size());
  for (const char type : types) options.push_back(makeoption(random, type, std::ssize(options)));
  return options;
}

std::string_view keyword(char type) {
  switch (type) {
    case 'i': return "integer";
    case 'd': return "double";
    case 'b': return "boolean";
    case 's': return "string";
    default: return "enumstr";
  }
}

std::string definitionline(const tsample& option, std::size_t number) {
  std::string line =
      option.name + " " + std::string(keyword(option.type)) + " " + std::to_string(number) + " ";
  line += option.type == 's' ? "\"" + option.defaulttext + "\"" : option.defaulttext;
  if (!option.low.empty()) line += " " + option.low + " " + option.high;
  line += " 1 1 " + option.helptext + "\n";
  for (const std::string& item : option.items) line += " " + item + " 1 " + option.helptext + "\n";
  return line;
}

std::string definitiontext(const std::vector<tsample>& options, tnaming naming) {
  std::string text;
  if (naming == tnaming::path) text += "Path lookup\n";
  if (naming == tnaming::minos) text += "Minos lookup\n";
  text += "general group 1 1 General options\n";
  for (std::size_t i = 0; i < options.size(); ++i) {
    text += definitionline(options[i], i + 1);
    if (naming == tnaming::synonyms) text += "x" + options[i].name + " synonym " + options[i].name + "\n";
  }
  return text;
}

std::string parametertext(trandom& random, tworkload& made, std::int64_t assignments) {
  std::vector<std::int32_t> order(static_cast<std::size_t>(assignments));
  for (std::size_t i = 0; i < order.size(); ++i)
    order[i] = static_cast<std::int32_t>(i % made.options.size());
  random.shuffle(order);
  std::string text;
  for (std::size_t i = 0; i < order.size(); ++i) {
    tsample& option = made.options[static_cast<std::size_t>(order[i])];
    option.finaltext = randomvalue(random, option);
    if (made.naming == tnaming::synonyms && i % 2 == 1) text += "x";
    text +=
        made.typedname(order[i]) + (made.naming == tnaming::minos ? " = " : " ") + option.finaltext + "\n";
  }
  return text;
}

tworkload makeworkload(const tshape& shape) {
  trandom random(static_cast<std::uint64_t>(shape.options * 31 + shape.assignments));
  tworkload made;
  made.naming = shape.naming;
  made.options = makeoptions(random, shape.options);
  const std::string stem = std::to_string(shape.options) + "_" + std::to_string(shape.assignments) + "_" +
                           std::to_string(static_cast<int>(shape.naming));
  made.definitionfile = writefile(stem + ".def", definitiontext(made.options, shape.naming));
  made.parameterfile = writefile(stem + ".opt", parametertext(random, made, shape.assignments));
  made.queryorder.resize(made.options.size());
  for (std::size_t i = 0; i < made.queryorder.size(); ++i) made.queryorder[i] = static_cast<std::int32_t>(i);
  random.shuffle(made.queryorder);
  return made;
}

struct tfolder {
  tfolder() {
    std::string name = (std::filesystem::temp_directory_path() / "bench_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path = name;
  }
  ~tfolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  tfolder(const tfolder&) = delete;
  tfolder& operator=(const tfolder&) = delete;
  std::filesystem::path path;
};

std::string dotline(std::int64_t i) {
  return "flow.prior('i" + std::to_string(i) + "','j" + std::to_string(i * 7919 % 100000) + "') " +
         std::to_string(i % 1000) + "\n";
}

std::string indicatorline(std::int64_t i) {
  const std::string element = "('i" + std::to_string(i) + "')";
  return "indic demand" + element + "$open" + element + " " + std::to_string(i % 2) + "\n";
}

std::string refusedline(const tsample& option) {
  switch (option.type) {
    case 'i': return option.name + " -12345678\n";
    case 'd': return option.name + " 1e+30\n";
    case 's': return option.name + " a\"b\n";
    default: return option.name + " nothing_like_this\n";
  }
}

}  // namespace

std::size_t tsample::textsize() const {
  std::size_t size = name.size() + helptext.size();
  if (type == 's' || type == 'e') size += defaulttext.size();
  for (const std::string& item : items) size += item.size() + helptext.size();
  return size;
}

std::string tworkload::typedname(std::int32_t position) const {
  std::string text = options[static_cast<std::size_t>(position)].name;
  if (naming == tnaming::minos) std::replace(text.begin(), text.end(), '_', ' ');
  return text;
}

const tworkload& workload(const tshape& shape) {
  static std::map<tshape, tworkload> kept;
  const auto found = kept.find(shape);
  return found != kept.end() ? found->second : kept.emplace(shape, makeworkload(shape)).first->second;
}

std::string entrydefinition() {
  constexpr std::string_view entries = ".prior double 501 1 0 1000 1 1 Branching priority\nindic indicator\n";
  std::ifstream file(workload({500, 500}).definitionfile, std::ios::binary);
  return writefile("entries.def", std::string(std::istreambuf_iterator<char>(file), {}).append(entries));
}

std::string linesfile(tlines kind, std::int64_t lines) {
  const std::string name = "lines_" + std::to_string(static_cast<int>(kind)) + "_" + std::to_string(lines);
  if (std::filesystem::exists(pathof(name))) return pathof(name);
  const std::vector<tsample>& options = workload({500, 500}).options;
  std::string text;
  for (std::int64_t i = 0; i < lines; ++i) {
    const tsample& option = options[static_cast<std::size_t>(i) % options.size()];
    switch (kind) {
      case tlines::dot: text += dotline(i); break;
      case tlines::indicator: text += indicatorline(i); break;
      case tlines::unknown: text += option.name + "x " + option.finaltext + "\n"; break;
      case tlines::refused: text += refusedline(option); break;
    }
  }
  return writefile(name, text);
}

std::size_t dottextsize(std::int64_t lines) {
  std::size_t size = 0;
  for (std::int64_t i = 0; i < lines; ++i) {
    const std::string line = dotline(i);
    size += line.find(')') - std::string_view(".prior('',''").size();
  }
  return size;
}

std::string pathof(std::string_view name) {
  static const tfolder folder;
  return (folder.path / name).string();
}

std::string writefile(std::string_view name, std::string_view text) {
  std::string path = pathof(name);
  std::ofstream file(path, std::ios::binary);
  file << text;
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
  return path;
}

}  // namespace bench

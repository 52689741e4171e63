// Well-known option libraries doing the same work as the floor and this library: reading N assignments from a
// file and getting every value by name. Each library reads the file in its own syntax and is used as its
// manual says. What it does not check itself is checked by hand.
//
//   boost  Boost.Program_options, bounds and items checked in notifiers
//   hand   a reader written by hand and a std::unordered_map, everything checked by hand
//   inih   the inih reader with the same map
//   toml   toml++, which keeps a tree of values, looked up and checked by hand
//
// A client knows the type of an option that it asks for. This library has a getter for each type; the others
// know the type themselves.
//
// Only this library reads a definition file, so there is no row for that. Boost searches all options for each
// line and is measured at the smallest size only.
#include <ini.h>
#include <toml++/toml.h>

#include <algorithm>
#include <boost/program_options.hpp>
#include <fstream>
#include <memory>
#include <unordered_map>

#include "floor.h"
#include "support.h"

namespace bench {

namespace {

// ---- what they check by hand

struct tchecked {
  const tsample* sample = nullptr;
  double low = 0;
  double high = 0;
  double number = 0;
  std::string text;

  bool takes(double value) const { return low <= value && value <= high; }
  bool takes(const std::string& value) const {
    return sample->type == 's' ||
           std::find(sample->items.begin(), sample->items.end(), value) != sample->items.end();
  }
  bool hastext() const { return sample->type == 's' || sample->type == 'e'; }
  bool set(double value) {
    number = value;
    return takes(value);
  }
  bool set(const std::string& value) {
    text = value;
    return takes(value);
  }
};

using ttable = std::unordered_map<std::string, tchecked>;

ttable checkedtable(const tworkload& work) {
  ttable table;
  table.reserve(work.options.size());
  for (const tsample& option : work.options) {
    const double high = option.type == 'b' ? 1 : asdouble(option.high);
    table.emplace(option.name, tchecked{&option, asdouble(option.low), high, asdouble(option.defaulttext),
                                        option.defaulttext});
  }
  return table;
}

double valueof(const ttable& table, const std::string& name) {
  const tchecked& found = table.find(name)->second;
  return found.hastext() ? static_cast<double>(found.text.size()) : found.number;
}

// Writes the file of assignments with a given sign between name and value, with or without quotes around
// texts.
std::string assignmentfile(const tworkload& work, bool quoted) {
  std::string text;
  for (const std::int32_t position : work.queryorder) {
    const tsample& option = work.options[static_cast<std::size_t>(position)];
    const bool quotes = quoted && (option.type == 's' || option.type == 'e');
    std::string value = option.finaltext;
    // toml reads a number as a real only if it has a point or an exponent
    if (quoted && option.type == 'd' && value.find_first_of(".e") == std::string::npos) value += ".0";
    text += option.name + " = " + (quotes ? "\"" + value + "\"" : value) + "\n";
  }
  return writefile(quoted ? "quoted.cfg" : "plain.cfg", text);
}

// ---- the libraries: each class is made from a workload, reads a file and returns values

class thandsystem {
 public:
  static std::string file(const tworkload& work) { return assignmentfile(work, false); }
  explicit thandsystem(const tworkload& work) : ftable(checkedtable(work)) {}
  bool read(const std::string& path) {
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      const std::size_t sign = line.find(" = ");
      if (sign == std::string::npos || !take(line.substr(0, sign), line.substr(sign + 3))) return false;
    }
    return true;
  }
  double value(const std::string& name, char /*type*/) const { return valueof(ftable, name); }

 protected:
  bool take(const std::string& name, const std::string& value) {
    const auto found = ftable.find(name);
    if (found == ftable.end()) return false;
    return found->second.hastext() ? found->second.set(value) : found->second.set(asdouble(value));
  }

 private:
  ttable ftable;
};

class tinihsystem : public thandsystem {
 public:
  using thandsystem::thandsystem;
  bool read(const std::string& path) { return ini_parse(path.c_str(), take, this) == 0; }

 private:
  static int take(void* self, const char*, const char* name, const char* value) {
    return static_cast<tinihsystem*>(self)->thandsystem::take(name, value) ? 1 : 0;
  }
};

class ttomlsystem {
 public:
  static std::string file(const tworkload& work) { return assignmentfile(work, true); }
  explicit ttomlsystem(const tworkload& work) : fdefined(checkedtable(work)) {}
  bool read(const std::string& path) {
    fvalues = toml::parse_file(path);
    for (const auto& [key, node] : fvalues) {
      const auto found = fdefined.find(std::string(key.str()));
      if (found == fdefined.end()) return false;
      const tchecked& option = found->second;
      const auto text = node.value<std::string>();
      if (option.hastext() ? !text || !option.takes(*text) : !option.takes(node.value_or(1e300)))
        return false;
    }
    return true;
  }
  double value(const std::string& name, char /*type*/) const {
    const auto* node = fvalues.get(name);
    if (const auto text = node->value<std::string_view>()) return static_cast<double>(text->size());
    return node->value_or(0.0);
  }

 private:
  ttable fdefined;
  toml::table fvalues;
};

class tboostsystem {
 public:
  static std::string file(const tworkload& work) { return assignmentfile(work, false); }
  explicit tboostsystem(const tworkload& work) : fchecked(checkedtable(work)) {
    namespace po = boost::program_options;
    auto adder = foptions.add_options();
    for (const tsample& option : work.options) {
      tchecked& checked = fchecked.find(option.name)->second;
      if (checked.hastext())
        adder(option.name.c_str(),
              po::value<std::string>()->notifier([&](const std::string& value) { note(checked.set(value)); }),
              option.helptext.c_str());
      else
        adder(option.name.c_str(),
              po::value<double>()->notifier([&](double value) { note(checked.set(value)); }),
              option.helptext.c_str());
    }
  }
  tboostsystem(const tboostsystem&) = delete;
  tboostsystem& operator=(const tboostsystem&) = delete;
  bool read(const std::string& path) {
    namespace po = boost::program_options;
    po::store(po::parse_config_file(path.c_str(), foptions), fvalues);
    po::notify(fvalues);
    return fgood;
  }
  double value(const std::string& name, char /*type*/) const {
    const auto& any = fvalues[name].value();
    if (const auto* text = boost::any_cast<std::string>(&any)) return static_cast<double>(text->size());
    return boost::any_cast<double>(any);
  }

 private:
  void note(bool good) { fgood = fgood && good; }
  ttable fchecked;
  boost::program_options::options_description foptions;
  boost::program_options::variables_map fvalues;
  bool fgood = true;
};

class tfloorsystem {
 public:
  static std::string file(const tworkload& work) { return work.parameterfile; }
  explicit tfloorsystem(const tworkload& work) { ffloor.define(work.options); }
  bool read(const std::string& path) { return ffloor.readparameters(path) == 0; }
  double value(const std::string& name, char /*type*/) const {
    const tfloor::toption& option = *ffloor.find(name);
    if (option.type == 'd') return option.value.real;
    return option.type == 'i' || option.type == 'b' ? static_cast<double>(option.value.integer)
                                                    : static_cast<double>(option.text.size);
  }

 private:
  tfloor ffloor;
};

class tlibrarysystem {
 public:
  static std::string file(const tworkload& work) { return work.parameterfile; }
  explicit tlibrarysystem(const tworkload& work) : fhandle(work.definitionfile) {}
  bool read(const std::string& path) {
    return coptreadparameterfile(fhandle, path.c_str()) == 0 && errors(fhandle) == 0;
  }
  double value(const std::string& name, char type) const {
    std::int32_t number = 0;
    std::int32_t refnr = 0;
    coptfindstr(fhandle, name.c_str(), &number, &refnr);
    std::int32_t integer = 0;
    double real = 0;
    optshortstring text;
    switch (type) {
      case 'i':
      case 'b': optgetintnr(fhandle, number, &integer); return integer;
      case 'd': optgetdblnr(fhandle, number, &real); return real;
      default: optgetstrnr(fhandle, number, &text); return text.length;
    }
  }

 private:
  tdefined fhandle;
};

// ---- rows

template <class tsystem>
bool holds(const tsystem& system, const tworkload& work) {
  return std::all_of(work.options.begin(), work.options.end(), [&](const tsample& option) {
    const bool istext = option.type == 's' || option.type == 'e';
    return system.value(option.name, option.type) ==
           (istext ? static_cast<double>(option.finaltext.size()) : asdouble(option.finaltext));
  });
}

template <class tsystem>
void read(benchmark::State& state, std::int64_t size) {
  const tworkload& work = workload({size, size});
  const std::string file = tsystem::file(work);
  bool good = false;
  timed(
      state, size, [&] { return std::make_unique<tsystem>(work); },
      [&](const std::unique_ptr<tsystem>& system) { good = system->read(file); },
      [&](const std::unique_ptr<tsystem>& system) { return good && holds(*system, work); });
}

template <class tsystem>
void query(benchmark::State& state, std::int64_t size) {
  const tworkload& work = workload({size, size});
  tsystem system(work);
  const bool good = system.read(tsystem::file(work)) && holds(system, work);
  std::vector<std::string> names;
  std::string types;
  for (const std::int32_t position : work.queryorder) {
    names.push_back(work.options[static_cast<std::size_t>(position)].name);
    types += work.options[static_cast<std::size_t>(position)].type;
  }
  timed(
      state, size,
      [&] {
        double sum = 0;
        for (std::size_t i = 0; i < names.size(); ++i) sum += system.value(names[i], types[i]);
        benchmark::DoNotOptimize(sum);
      },
      [&] { return good; });
}

template <class tsystem>
void addsystem(const char* who, std::int64_t size) {
  add("peer_read", who, size, read<tsystem>);
  add("peer_query", who, size, query<tsystem>);
}

}  // namespace

void addpeers() {
  for (const std::int64_t size : {500, 10000}) {
    addsystem<tlibrarysystem>("wexcorin", size);
    addsystem<thandsystem>("hand", size);
    addsystem<tinihsystem>("inih", size);
    addsystem<ttomlsystem>("toml", size);
    if (size == 500) addsystem<tboostsystem>("boost", size);
    addsystem<tfloorsystem>("floor", size);
  }
}

}  // namespace bench

int main(int count, char** arguments) { return bench::run(count, arguments, {bench::addpeers}); }

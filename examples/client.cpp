// client.cpp: the same client in C++17 on the C interface, wexcorin.h, without the classes of wexcorin.hpp,
// which client_classes.cpp uses. The handle is freed automatically. Both text forms are used: short strings
// for names and values, zero-terminated texts for files and messages. It prints what client.c prints.
//
//   client examples/solver.def examples/solver.opt

#include <cstdint>
#include <iostream>
#include <memory>
#include <new>
#include <string_view>

#include <wexcorin/wexcorin.h>

namespace {

// A short string that reads as a view.
struct shorttext : optshortstring {
  std::string_view view() const { return {text, length}; }
};

struct freehandle {
  void operator()(tvksoptions* handle) const { xfree(&handle); }
};

class toptions {
 public:
  toptions() {
    tvksoptions* created = nullptr;
    fhandle.reset(xcreate(&created));
    if (!fhandle) throw std::bad_alloc();
  }
  bool readdefinition(const char* file) { return coptreaddefinition(handle(), file) == 0; }
  void readparameterfile(const char* file) { coptreadparameterfile(handle(), file); }

  void printoption(std::int32_t number) const;
  void printdotentry(std::int32_t number) const;
  void printindicator(std::int32_t number) const;
  bool printall() const;

 private:
  tvksoptions* handle() const { return fhandle.get(); }
  std::unique_ptr<tvksoptions, freehandle> fhandle;
};

void toptions::printoption(std::int32_t number) const {
  std::int32_t defined, recent, refnr, datatype, opttype, subtype;
  shorttext name, value, second;
  optgetinfonr(handle(), number, &defined, &recent, &refnr, &datatype, &opttype, &subtype);
  optgethelpnr(handle(), number, &name, &value);           // the name as the definition file has it
  if (defined == 0 || name.view().front() == '.') return;  // not set, or printed with the dot entries
  if (datatype == optDataStrList) {
    for (std::int32_t index = 1; optreadfromliststr(handle(), &name, index, &value) == 1; ++index)
      std::cout << name.view() << " [" << index << "] = " << value.view() << '\n';
  } else {
    optgetvalstr(handle(), &name, &value);
    std::cout << name.view() << " = " << value.view();
    if (optgetval2str(handle(), &name, &second)) std::cout << ", " << second.view();
    std::cout << '\n';
  }
}

void toptions::printdotentry(std::int32_t number) const {
  std::int32_t option, dimensions;
  double value;
  shorttext symbol, suffix, element;
  optgetdotoptnr(handle(), number, &symbol, &option, &dimensions, &value);
  optgetnamenr(handle(), option, &suffix);
  std::cout << symbol.view() << suffix.view();
  for (std::int32_t index = 1; optgetdotoptuel(handle(), number, index, &element); ++index)
    std::cout << " [" << element.view() << ']';
  std::cout << " = " << value << '\n';
}

void toptions::printindicator(std::int32_t number) const {
  std::int32_t equationdims, variabledims, value;
  shorttext equation, variable;
  optgetindicatornr(handle(), number, &equation, &variable, &equationdims, &variabledims, &value);
  std::cout << equation.view() << " (" << equationdims << ") holds when " << variable.view() << " ("
            << variabledims << ") is " << value << '\n';
}

// Returns true when there was no error and no warning.
bool toptions::printall() const {
  std::int32_t rejected, errors, warnings;
  for (std::int32_t number = 1; number <= optcount(handle()); ++number) printoption(number);
  for (std::int32_t number = 1; number <= optdotoptcount(handle(), &rejected); ++number)
    printdotentry(number);
  for (std::int32_t number = 1; number <= optindicatorcount(handle(), &rejected); ++number)
    printindicator(number);
  for (std::int32_t number = 1; number <= optmessagecount(handle()); ++number) {
    char text[WEXCORIN_TEXT_SIZE];
    std::int32_t kind;
    coptgetmessage(handle(), number, text, &kind);
    std::cout << text << '\n';
  }
  opterrorcount(handle(), &errors, &warnings);
  std::cout << errors << " errors, " << warnings << " warnings\n";
  return errors == 0 && warnings == 0;
}

}  // namespace

int main(int count, char** files) {
  if (count < 2) {
    std::cerr << "usage: client definition-file [option-file ...]\n";
    return 2;
  }
  toptions options;
  if (options.readdefinition(files[1]))
    for (int index = 2; index < count; ++index) options.readparameterfile(files[index]);
  return options.printall() ? 0 : 1;
}

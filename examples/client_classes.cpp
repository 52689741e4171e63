// client_classes.cpp: the same client in C++17 with the classes of wexcorin.hpp. It prints what client.c prints.
//
//   client examples/solver.def examples/solver.opt

#include <iostream>

#include <wexcorin/wexcorin.hpp>

namespace {

void printoption(const wexcorin::options& options, const wexcorin::option& option) {
  if (option.defined == 0 || option.name[0] == '.') return;  // not set, or printed with the dot entries
  if (option.datatype == optDataStrList) {
    int index = 0;
    for (const std::string& text : options.list(option.name))
      std::cout << option.name << " [" << ++index << "] = " << text << '\n';
  } else {
    std::cout << option.name << " = " << options.text(option.number).value();
    if (option.subtype == optsub2Values) std::cout << ", " << options.text2(option.number).value();
    std::cout << '\n';
  }
}

void printdotentry(const wexcorin::options& options, const wexcorin::dotentry& entry) {
  std::cout << entry.symbol << options.describe(entry.option)->name;
  for (const std::string& element : options.indices(entry)) std::cout << " [" << element << ']';
  std::cout << " = " << entry.value << '\n';
}

void printindicator(const wexcorin::indicator& indicator) {
  std::cout << indicator.equation << " (" << indicator.equationdimensions << ") holds when "
            << indicator.variable << " (" << indicator.variabledimensions << ") is " << indicator.value
            << '\n';
}

// Returns true when there was no error and no warning.
bool run(int count, char** files) {
  wexcorin::options options;
  if (options.readdefinition(files[1]) == 0)
    for (int index = 2; index < count; ++index) options.readparameterfile(files[index]);

  for (const wexcorin::option& option : options.all()) printoption(options, option);
  for (const wexcorin::dotentry& entry : options.dotentries()) printdotentry(options, entry);
  for (const wexcorin::indicator& indicator : options.indicators()) printindicator(indicator);
  for (const wexcorin::message& message : options.messages()) std::cout << message.text << '\n';
  const auto [errors, warnings] = options.errorcount();
  std::cout << errors << " errors, " << warnings << " warnings\n";
  return errors == 0 && warnings == 0;
}

}  // namespace

int main(int count, char** files) {
  if (count < 2) {
    std::cerr << "usage: client definition-file [option-file ...]\n";
    return 2;
  }
  try {
    return run(count, files) ? 0 : 1;
  } catch (const std::exception& problem) {  // the library does not suit the header, or there is no memory
    std::cerr << problem.what() << '\n';
    return 2;
  }
}

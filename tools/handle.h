// Owns one handle of the option library and speaks std::string: the functions of the C interface that the
// tool needs, under their own names without the prefix. Options, messages and items are numbered from 1 as
// there.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "wexcorin/wexcorin.h"

namespace tool {

struct tmessage {
  std::string text;
  std::int32_t kind;
};

struct tinfo {
  std::int32_t defined, type, subtype;
};

template <class T>
struct tbounds {
  T low, high;
};

class thandle {
 public:
  thandle();
  ~thandle();
  thandle(const thandle&) = delete;
  thandle& operator=(const thandle&) = delete;
  tvksoptions* get() const { return fhandle; }

  // The results are 0 or the operating system's error code for a file that cannot be opened.
  std::int32_t readdefinition(const std::string& filename) const;
  std::int32_t readparameterfile(const std::string& filename) const;
  std::int32_t writeparameterfile(const std::string& filename) const;
  void readtext(const std::string& text) const;
  void showhelp(const std::string& request) const;

  std::int32_t messagecount() const;
  tmessage message(std::int32_t number) const;
  void clearmessages() const;

  std::int32_t count() const;
  std::int32_t find(const std::string& name) const;  // by name or synonym; 0 when there is none
  tinfo info(std::int32_t number) const;
  std::string name(std::int32_t number) const;        // as it is typed: in lookup mode Minos with blanks
  std::string storedname(std::int32_t number) const;  // as the definition has it
  std::string value(std::int32_t number) const;
  std::string value2(std::int32_t number) const;
  std::int32_t intvalue(std::int32_t number, bool second) const;
  double doublevalue(std::int32_t number, bool second) const;
  tbounds<std::int32_t> intbounds(std::int32_t number) const;
  tbounds<double> doublebounds(std::int32_t number) const;
  std::vector<std::string> enumvalues(std::int32_t number) const;
  std::vector<std::string> liststrings(std::int32_t number) const;  // what a strlist has collected

  std::vector<std::string> synonyms() const;
  std::string nameoftype(std::int32_t type) const;
  std::string version() const;

 private:
  tvksoptions* fhandle = nullptr;
};

}  // namespace tool

// handle.h: the class Handle of the module _core, on top of wexcorin::options. Each member is one call from
// Python; what Python programs see is made of them in the package.
#pragma once

#include <pybind11/pybind11.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>
#include <wexcorin/wexcorin.hpp>

namespace binding {

namespace py = pybind11;

// What is known of an option without asking the library again.
struct toption {
  std::int32_t datatype = -1;
  std::int32_t type = -1;
  std::int32_t subtype = -1;
  py::object defaultvalue{};  // of the types for which the library does not tell it once the option is set
  py::object name{};          // null until it is needed
  bool iskey = false;         // whether the mapping has this name

  bool hasvalue() const { return datatype > optDataNone; }
  bool hastwovalues() const { return subtype == optsub2Values; }
};

// Numbers are those of options, from 1. A number that is none has no value, and setting it does nothing.
// Throws ValueError when the handle was closed, and RuntimeError when another thread is in a call of it.
class thandle {
 public:
  void close();
  bool closed() const { return !foptions; }

  // Reading and writing, without the interpreter lock; the result is 0 or the error code of the operating
  // system.
  std::int32_t readdefinition(const std::string& path);
  std::int32_t readfile(const std::string& path);
  std::int32_t readtext(const std::string& text);  // each line may hold several statements
  std::int32_t write(const std::string& path);

  void showhelp(const py::str& request);
  py::tuple takemessages();  // removes them: (messages, problems), both as lists of tuples

  std::int32_t count();
  std::int32_t find(const py::object& name);  // 0 when there is none
  py::list keys();
  py::object get(const py::object& name);  // None when there is no such value
  py::object value(std::int32_t number);
  py::object text(std::int32_t number, bool second);
  std::int32_t defined(std::int32_t number);
  py::dict values(bool changed);

  // Whether the value was stored.
  bool setinteger(std::int32_t number, bool second, std::int64_t value);
  bool setreal(std::int32_t number, bool second, double value);
  bool settext(std::int32_t number, bool second, const py::str& value);
  void reset(std::int32_t number);
  void resetall();
  void setnobounds(bool on);

  py::tuple describe(std::int32_t number);
  py::list groups();
  py::list synonyms();
  py::list dotentries();
  py::list indicators();

 private:
  // A call in progress. Python code may run whenever an object is made, and other threads while files are
  // read.
  class tcall {
   public:
    explicit tcall(thandle& handle);
    ~tcall() { fhandle.fbusy = false; }
    tcall(const tcall&) = delete;
    tcall& operator=(const tcall&) = delete;

   private:
    thandle& fhandle;
  };

  tvksoptions* raw() const { return foptions->get(); }
  std::int32_t lookup(const py::object& name) const;
  void learn();  // options that were added since
  void learnnames();
  toption learnt(std::int32_t number) const;
  const toption* known(std::int32_t number);
  py::object defaultof(std::int32_t number, const toption& option) const;
  py::object single(std::int32_t number, const toption& option, bool second) const;
  py::object valueof(std::int32_t number, const toption& option) const;
  std::string nameof(std::int32_t number) const;
  py::list listof(std::int32_t number) const;
  py::list itemsof(std::int32_t number, const toption& option) const;
  template <class tvalue>
  bool set(std::int32_t number, bool second, tvalue value);

  std::optional<wexcorin::options> foptions{std::in_place};
  std::vector<toption> fknown{};  // by number - 1
  std::size_t fnamed = 0;         // how many of them have their names
  bool fbusy = false;
};

}  // namespace binding

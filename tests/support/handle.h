// What the tests of the exported functions stand on: a handle whose text functions take and return
// std::string in either of the two string forms, and a temporary directory. Every output buffer lies between guard bytes; a write past byte 256 fails the running test.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "support/table.h"
#include "wexcorin/wexcorin.h"

namespace testsupport {

enum class tform { shortstring, zeroterminated };

using tlines = std::vector<std::string>;

// Options of every type; two that switch the checking of bounds, dot options and a keyword of indicators.
extern const char* const everytype;

// The lines as one text, one line each; gtest shows two such texts that differ as a line by line difference.
std::string joined(const tlines& lines);

std::string readfile(const std::filesystem::path& path);

// A directory of its own under TMPDIR, removed with everything in it.
class ttempdir {
 public:
  ttempdir();
  ~ttempdir();
  ttempdir(const ttempdir&) = delete;
  ttempdir& operator=(const ttempdir&) = delete;
  std::string path(std::string_view name) const;
  std::string write(std::string_view name, std::string_view bytes) const;  // returns the file's path

 private:
  std::filesystem::path fpath;
};

// What a function of either form takes for an argument, by the parameter's type: numbers and handles as they
// are, an output by its address.
template <class tparameter>
class targument {
 public:
  explicit targument(tparameter value) : fvalue(value) {}
  explicit targument(std::remove_pointer_t<tparameter>& output) requires std::is_pointer_v<tparameter>
      : fvalue(&output) {}
  tparameter pass() { return fvalue; }

 private:
  tparameter fvalue;
};

// A text, or null.
template <>
class targument<const char*> {
 public:
  explicit targument(std::string_view text) : ftext(text) {}
  explicit targument(std::nullptr_t) {}
  const char* pass() { return ftext.has_value() ? ftext->c_str() : nullptr; }

 private:
  std::optional<std::string> ftext;
};
template <>
class targument<const optshortstring*> {
 public:
  explicit targument(std::string_view text);
  explicit targument(std::nullptr_t) {}
  const optshortstring* pass() { return ftext.has_value() ? &*ftext : nullptr; }

 private:
  std::optional<optshortstring> ftext;
};

// A text output: the 256-byte buffer starts with the caller's text, and the caller's text is replaced at the
// end.
class ttextout {
 public:
  ttextout(std::string& text, tform form);
  ttextout(const ttextout&) = delete;
  ttextout& operator=(const ttextout&) = delete;
  ~ttextout();

 protected:
  static constexpr std::size_t guardsize = 64;
  unsigned char* buffer() { return fbuffer.data() + guardsize; }

 private:
  std::string& ftext;
  tform fform;
  std::array<unsigned char, guardsize + 256 + guardsize> fbuffer{};
};
template <>
class targument<char*> : ttextout {
 public:
  explicit targument(std::string& text) : ttextout(text, tform::zeroterminated) {}
  char* pass() { return reinterpret_cast<char*>(buffer()); }
};
template <>
class targument<optshortstring*> : ttextout {
 public:
  explicit targument(std::string& text) : ttextout(text, tform::shortstring) {}
  optshortstring* pass() { return reinterpret_cast<optshortstring*>(buffer()); }
};

template <class tresult, class... tparameters, class... targuments>
tresult call(tresult (*function)(tparameters...), targuments&... arguments) {
  std::tuple<targument<tparameters>...> passed(arguments...);
  return std::apply([&](auto&... each) { return function(each.pass()...); }, passed);
}

// Calls the function in that form and hands the outputs back.
template <class tshortform, class tcharform, class... targuments>
auto invoke(tform form, tshortform shortform, tcharform charform, targuments&&... arguments) {
  return form == tform::shortstring ? call(shortform, arguments...) : call(charform, arguments...);
}

#define BOTH(name) opt##name, copt##name

// Owns one store. A text output that a function leaves untouched keeps what the caller's string held before,
// in the short-string form; the zero-terminated form empties it.
class thandle {
 public:
  explicit thandle(tform form = tform::shortstring);
  ~thandle();
  thandle(const thandle&) = delete;
  thandle& operator=(const thandle&) = delete;
  tvksoptions* get() const { return fhandle; }
  tform form() const { return fform; }
  const ttempdir& directory() const { return fdirectory; }

  // "%DIR%/" in a text becomes the path of the handle's temporary directory, or goes.
  std::string expanded(std::string_view text) const;
  std::string shortened(std::string_view text) const;

  // Reading from expanded texts. The results are those of the functions behind them.
  int definition(std::string_view text);                    // the file DEF
  int parameters(std::string_view text);                    // the file OPT
  void string(std::string_view text);                       // optReadFromStr
  void file(std::string_view name, std::string_view text);  // only writes the file

  tlines messages();      // as optGetMessage gives them; names of the temporary directory without it
  tlines takemessages();  // the same, and clears them
  tlines help(const std::string& request);     // what one request adds to the messages
  std::string written();                       // the bytes that optWriteParameterFile writes
  int number(const std::string& name);         // through optFindStr, -1 for an unknown name
  std::string value(const std::string& name);  // "?" for an unknown name, "first|second" of two values

  // handle.call(BOTH(getnamenr), 2, name): the exported function of the handle's form.
  template <class tshortform, class tcharform, class... targuments>
  auto call(tshortform shortform, tcharform charform, targuments&&... arguments) const {
    return invoke(fform, shortform, charform, fhandle, arguments...);
  }

 private:
  tvksoptions* fhandle = nullptr;
  tform fform;
  ttempdir fdirectory;
};

}  // namespace testsupport

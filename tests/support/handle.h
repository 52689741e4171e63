// What the tests of the exported functions stand on: a handle whose text functions take and return
// std::string in either of the two string forms, a temporary directory, and the loop that runs a table in
// both forms. Every output buffer lies between guard bytes; a write past byte 256 fails the running test.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "wexcorin/wexcorin.h"

namespace testsupport {

enum class tform { shortstring, zeroterminated };
inline constexpr std::array bothforms = {tform::shortstring, tform::zeroterminated};

using tlines = std::vector<std::string>;

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

// Switches the process to a locale with a decimal comma: an installed one, else one made here.
bool setcommalocale();

// A text argument in both forms.
class tin {
 public:
  explicit tin(std::string_view text);
  const optshortstring* asshort() const { return &fshort; }
  const char* aschars() const { return fchars.c_str(); }

 private:
  optshortstring fshort{};
  std::string fchars;
};

// A text output: the 256-byte buffer starts with the caller's text, the caller's text is replaced after the
// call.
class tout {
 public:
  explicit tout(std::string& text) : ftext(text) {}
  optshortstring* asshort();
  char* aschars();
  void finish(tform form);

 private:
  static constexpr std::size_t guardsize = 64;
  void fill();
  std::string& ftext;
  std::array<unsigned char, guardsize + 256 + guardsize> fbuffer{};
};

// Owns one store. The methods bear the names of the exported functions without "opt" and take their arguments
// in the same order. A text output that a function leaves untouched keeps what the caller's string held
// before, in the short-string form; the zero-terminated form empties it.
class thandle {
 public:
  explicit thandle(tform form = tform::shortstring);
  ~thandle();
  thandle(const thandle&) = delete;
  thandle& operator=(const thandle&) = delete;
  tvksoptions* get() const { return fhandle; }
  tform form() const { return fform; }
  const ttempdir& directory() const { return fdirectory; }

  // Reading from texts. "%DIR%" in a text becomes the path of the handle's temporary directory. The results
  // are those of the functions behind them.
  int definition(std::string_view text);                    // the file DEF
  int parameters(std::string_view text);                    // the file OPT
  void string(std::string_view text);                       // optReadFromStr
  void pchar(const std::string& text);                      // optReadFromPChar
  void file(std::string_view name, std::string_view text);  // only writes the file

  tlines messages();      // as optGetMessage gives them; names of the temporary directory without it
  tlines takemessages();  // the same, and clears them
  tlines help(const std::string& request);  // what one request adds to the messages
  std::string written();                    // the bytes that optWriteParameterFile writes
  // One line per option, "number name type.modifier = value value set bits": a modifier and the second value
  // only where there is one, strings in double quotes, "set" only where a value was set, followed by " recent
  // bits" only where these differ. Lists show all their strings; types without a value end after the type.
  std::string dump();
  int number(const std::string& name);          // through optFindStr, -1 for an unknown name
  std::string value(const std::string& name);   // optGetValStr, "?" for an unknown name
  std::string value2(const std::string& name);  // optGetVal2Str, "?" where there is none

  int readdefinition(const std::string& filename);
  int readparameterfile(const std::string& filename);
  int readfromliststr(const std::string& name, int index, std::string& text);
  int writeparameterfile(const std::string& filename);
  void showhelp(const std::string& request);
  void addmessage(const std::string& text);
  void getmessage(int nr, std::string& text, std::int32_t& kind);
  int findstr(const std::string& name, std::int32_t& nr, std::int32_t& refnr);
  int lookup(const std::string& name);
  int getvaluesnr(int nr, std::string& name, std::int32_t& i, double& d, std::string& s);
  int setvaluesnr(int nr, std::int32_t i, double d, const std::string& s);
  int setvalues2nr(int nr, std::int32_t i, double d, const std::string& s);
  int getstrnr(int nr, std::string& s);
  int getstr2nr(int nr, std::string& s);
  int setstrnr(int nr, const std::string& s);
  int setstr2nr(int nr, const std::string& s);
  int getvalstr(const std::string& name, std::string& s);
  int getval2str(const std::string& name, std::string& s);
  int getnamenr(int nr, std::string& name);
  int gethelpnr(int nr, std::string& name, std::string& help);
  int getopthelpnr(int nr, std::string& name, std::int32_t& helpflag, std::int32_t& group);
  int getdefaultstr(int nr, std::string& s);
  int getenumhelp(int nr, int item, std::int32_t& helpflag, std::string& help);
  int getenumvalue(int nr, int item, std::int32_t& i, std::string& s);
  int getenumstrnr(int nr, std::string& s, std::int32_t& item);
  int getsynonym(int nr, std::string& synonym, std::string& name);
  int getgroupnr(int nr, std::string& name, std::int32_t& group, std::int32_t& helpflag, std::string& help);
  int getconstname(int group, int index, std::string& name);
  int gettypename(int code, std::string& name);
  std::string definitionfile();
  std::string version();
  int listcountstr(const std::string& name);
  int getfromliststr(const std::string& name, std::string& s);
  int getfromanystrlist(int flag, std::string& name, std::string& s);
  int getdotoptnr(int nr, std::string& name, std::int32_t& optnr, std::int32_t& dimensions, double& value);
  int getdotoptuel(int nr, int dim, std::string& uel);
  int getindicatornr(int nr, std::string& equ, std::string& var, std::int32_t& equdims, std::int32_t& vardims,
                     std::int32_t& value);
  int getequindicatornr(int nr, int dim, std::string& element);
  int getvarindicatornr(int nr, int dim, std::string& element);
  int setrefnrstr(const std::string& name, int refnr);

 private:
  std::string expanded(std::string_view text) const;
  std::string shortened(std::string text) const;
  std::string dumpvalues(int nr, const std::string& rawname, int opttype, int subtype);

  tvksoptions* fhandle = nullptr;
  tform fform;
  ttempdir fdirectory;
};

inline const char* formname(tform form) {
  return form == tform::shortstring ? "short strings" : "zero-terminated strings";
}

// check(handle) with a fresh handle of each form.
template <class Check>
void inbothforms(Check check) {
  for (const tform form : bothforms) {
    SCOPED_TRACE(formname(form));
    thandle handle(form);
    check(handle);
  }
}

// check(handle, row) for each row, with a fresh handle of each form. Rows have a field `where`, filled by
// __LINE__, so that a failure names the row's own source line; `file` is __FILE__.
template <class Rows, class Check>
void foreachrow(const char* file, const Rows& rows, Check check) {
  for (const tform form : bothforms)
    for (const auto& row : rows) {
      const testing::ScopedTrace trace(file, row.where, formname(form));
      thandle handle(form);
      check(handle, row);
    }
}

}  // namespace testsupport

// What the fuzz targets share: assertions, files in memory, handles in both text forms, the parts of inputs,
// and the checks of all that the interface answers.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "tests/support/bothforms.h"

// The fuzzer calls this for each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace fuzzing {

using namespace bothforms;

// What a target does with an input; each target has one. A condition that does not hold ends the process, so
// that the fuzzer keeps the input.
void run(std::string_view input);

// ---- files: bytes in memory under names that the target chooses. The library's calls of the system's open
// end there (the linker redirects them), so that no input reaches the file system, whatever names it makes
// up.
//
// Besides the files there is "/", the directory that no read gets anything from, and "full", which takes no
// byte. Files can be created under names that begin with "out". Any other name does not exist. A call opens
// 48 files, then there are "too many open files": files that include themselves take a bounded time.

void writefile(std::string_view name, std::string_view bytes);
std::string readfile(std::string_view name);  // empty for a file that does not exist

// Two handles, and what the round trip has to know of their past.
class tpair : public thandles {
 public:
  std::int32_t readdefinition(std::string_view filename);
  void clearmessages();
  // The bytes of the one definition file that was read when there was no option yet; null when it was none or
  // not the only one.
  const std::string* definition() const { return fdefinitions == 1 ? &fdefinition : nullptr; }
  // When the list of messages is full, entries that have errors can no longer be told from good ones.
  bool wasfull() const;

 private:
  std::string fdefinition;
  int fdefinitions = 0;
  bool fwasfull = false;
};

// ---- the parts of inputs

// A definition with every type and sub-type, lists, macros, synonyms, groups, marks, dot options, immediate
// options of each kind, an indicator keyword and comment characters, for lookup mode `mode` (0, 1, 2).
std::string richdefinition(int mode);

// The bits of one or two bytes; a printable byte serves, so that inputs can be written by hand.
class tswitches {
 public:
  explicit tswitches(std::string_view& input);  // takes them from its front
  int lookupmode() const { return static_cast<int>(fbits % 4 % 3); }
  bool writeeolonly() const { return (fmore & 4) == 0; }
  // Sets the pair's flags and reads the text: as a file, as one text, or line by line as texts of up to 255
  // characters.
  void read(tpair& pair, std::string_view text) const;

 private:
  unsigned fbits, fmore;
};

// What stands before and behind the first line "%%"; all of it stands before where there is none.
std::pair<std::string_view, std::string_view> split(std::string_view text);
// The next line, without its end.
std::string_view nextline(std::string_view& text);

// ---- checks: counts must fit what can be fetched, names numbers, and values values

// The first messages, for what an assertion has to say.
std::string messages(tpair& pair);
void checkmessages(tpair& pair);
// All of it; of options that hold nothing of their own only where the definition is part of the input.
enum class tscope { everything, whatisset };
void checkstate(tpair& pair, tscope scope);

// What was set is written as a parameter file and read into a fresh store of the same definition, to the end of
// the line or word by word. Either the tool finds no difference: then nothing was refused, all options hold the
// same, and what is written again is the same byte for byte. Or each option that it names holds something else;
// these are reset, and the rest is tried again.
void checkroundtrip(tpair& pair, bool eolonly);

}  // namespace fuzzing

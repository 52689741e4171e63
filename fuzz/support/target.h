// What the fuzz targets share: files in memory, handles in both text forms, the parts of inputs, and the
// checks of everything that the interface returns. Assertions and calls in both forms are in
// tests/support/bothforms.h.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "tests/support/bothforms.h"

// The fuzzer calls this for each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace fuzzing {

using namespace bothforms;

// Each target defines this function, which processes one input. A condition that does not hold ends the
// process, so that the fuzzer keeps the input.
void run(std::string_view input);

// ---- files: bytes in memory under names that the target chooses. The linker redirects the library's calls
// of the system's open to them, so no input reaches the file system, whatever names it contains.
//
// In addition there are "/", a directory, and "full", to which nothing can be written. The library can create
// files under names that begin with "out". Other names do not exist. A call can open 48 files, then opening
// fails with "too many open files"; so files that include themselves take a bounded time.

// From now on, paths of open descriptors are opened, too, as often as wanted: the tool keeps texts there.
void opendescriptors();

void writefile(std::string_view name, std::string_view bytes);
std::string readfile(std::string_view name);  // empty for a file that does not exist
int filedescriptor(std::string_view name);    // of the file, which is made if it does not exist

// Two handles, and what the round trip must know about their past.
class tpair : public thandles {
 public:
  std::int32_t readdefinition(std::string_view filename);
  void clearmessages();
  // The bytes of the definition file that was read. Null if none was read, if there was more than one, or if
  // there were options before it.
  const std::string* definition() const { return fdefinitions == 1 ? &fdefinition : nullptr; }
  // Whether a list of messages was ever full. A full list no longer counts errors, so the store keeps entries
  // that have errors.
  bool wasfull() const;

 private:
  std::string fdefinition;
  int fdefinitions = 0;
  bool fwasfull = false;
};

// ---- the parts of inputs

// Every type, sub-types, lists of lists, synonyms, groups, marks, immediate options of each kind and comment
// characters, for lookup mode `mode` (0, 1, 2).
std::string richdefinition(int mode);

// Switches, which are bits of two bytes. Printable bytes are sufficient, so that inputs can be written by
// hand.
class tswitches {
 public:
  explicit tswitches(std::string_view& input);  // removes the bytes from the front
  int lookupmode() const { return static_cast<int>(fbits % 4 % 3); }
  bool writeeolonly() const { return (fmore & 4) == 0; }
  // Sets the pair's flags and reads the text: as a file, as one text, or line by line as texts of up to 255
  // characters.
  void read(tpair& pair, std::string_view text) const;

 private:
  unsigned fbits, fmore;
};

// The text before and after the first line "%%". If there is none, the second part is empty.
std::pair<std::string_view, std::string_view> split(std::string_view text);
// The next line, without its end.
std::string_view nextline(std::string_view& text);

// ---- checks: counts must match what can be queried, and queries by name those by number

// The first messages, for the output of a failed assertion.
std::string messages(tpair& pair);
void checkmessages(tpair& pair);
// Checks the whole state. The scope `whatisset` leaves out options that are not set; it is for targets whose
// input does not contain the definition.
enum class tscope { everything, whatisset };
void checkstate(tpair& pair, tscope scope);

// Writes the settings as a parameter file and reads it into a new store with the same definition, in
// end-of-line mode or in normal mode. If the tool finds no difference between the stores, reading must have
// refused nothing, all options must hold the same, and writing again must give the same bytes. Otherwise each
// option that the tool names must really differ; the named options are reset, and the check is repeated.
void checkroundtrip(tpair& pair, bool eolonly);

}  // namespace fuzzing

// Follows the reading of option files under the older definition and rewrites each line for the newer one.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/migrating/migratedfile.h"
#include "tools/migrating/rewriter.h"
#include "tools/reading/reading.h"

namespace tool {

// Both definitions, and stores in which lines are tried.
class tdefinitions {
 public:
  explicit tdefinitions(bool clamps) : fclamps(clamps) {}

  // Returns false if one of them cannot be used; what is wrong with them is among the findings of the readings.
  // Without a name, there is no older definition.
  bool read(const std::string& olderfile, const std::string& newerfile);
  // To be called before each file: the lists of its own that a file makes are not known to the next one.
  bool forgetlists();

  treading older, newer;
  // Byte for byte.
  bool areequal() const { return fareequal; }
  bool clamps() const { return fclamps; }
  trewriter& rewriter() { return *frewriter; }
  const tsuccessors& successors() const { return *fsuccessors; }
  ttrial& oldtrial() { return *foldertrial; }
  ttrial& newtrial() { return *fnewertrial; }
  const optcore::tdefinition& newdefinition() const { return fnewerstore->definition(); }

 private:
  bool readnewer(const std::string& filename);
  bool preparenewer();
  bool prepareolder();  // and what compares it with the newer one

  std::optional<optcore::tvksoptions> folderstore, fnewerstore;
  std::optional<tpositions> folderpositions, fnewerpositions;
  std::optional<tsuccessors> fsuccessors;
  std::optional<ttrial> foldertrial, fnewertrial;
  std::optional<trewriter> frewriter;
  bool fareequal = false;
  bool fclamps;
};

// Returns the contents of a regular file; nothing for another one or if it cannot be read.
using tfilecontents = std::function<std::optional<std::string>(const std::string& path)>;
std::optional<std::string> contentsof(const std::string& path);

class tmigration final : optcore::tstoreobserver {
 public:
  tmigration(tdefinitions& definitions, bool pins, tfilecontents contents)
      : fdefinitions(definitions), fpins(pins), fcontents(std::move(contents)) {}

  // Migrates the file and those that it includes. Returns false if it cannot be read.
  bool run(const std::string& filename);
  // Adds the pins. To be called when all files have been migrated.
  void finish();

  // In the order in which their reading began.
  std::deque<tmigratedfile> takefiles() { return std::move(ffiles); }

 private:
  // A file that is being read.
  struct topen {
    tmigratedfile* file;
    tmigratedfile result{};    // of this reading
    std::size_t at = 0;        // of the next line in the contents
    std::int32_t line = 0;     // the number of lines before it
    std::int32_t current = 0;  // the line whose meaning is being collected
    tmeaning meaning;
    bool eolonly = true, neweolonly = true;
    bool againeolonly = true;  // when the result is read under the older definition
    bool isskipped = false;
  };

  // What is to be added at the end of a file.
  struct tpins {
    std::vector<std::string> lines;
    std::vector<tnote> notes;
  };

  void filed(const optcore::tmessage& message) override;
  void assigned(const optcore::toption& option, std::int32_t bits) override;
  void stepped(const optcore::tstep& step) override;

  void enter(const optcore::tlinesource& source);
  void leave(std::int32_t lines);
  static void finish(topen& open);
  void begin(std::int32_t line);
  void flush(topen& open);
  void plainlines(topen& open, std::int32_t upto);
  void line(topen& open, const tmeaning& meaning);
  static void add(topen& open, const tnewline& lines, std::string_view text, std::string_view lineend);
  static void checkrefused(topen& open, const tmeaning& meaning);
  void pin(const tmigratedfile& file);
  std::vector<optcore::twhich> unsetvalues(std::int32_t position, const optcore::toption& newer) const;
  void pinoption(tpins& pins, const optcore::toption& older, const optcore::toption& newer,
                 const std::vector<optcore::twhich>& values);
  tmigratedfile& fileof(const std::string& name);
  static std::string_view nextline(topen& open, std::string_view& lineend);
  void markset(const toldline& line, const std::optional<tnewline>& lines, tlinestate newstate);
  tlinestate again(const toldline& line, const std::optional<tnewline>& lines);
  void markolder(const std::vector<teffect>& effects, const tpositions& positions);
  void mark(const optcore::toption* newer, std::int32_t bits);

  tdefinitions& fdefinitions;
  const bool fpins;
  const tfilecontents fcontents;
  std::deque<tmigratedfile> ffiles;
  std::map<const tmigratedfile*, tpins> fpinned;
  std::map<std::string, tmigratedfile*> findex;  // by their paths without links
  std::vector<std::unique_ptr<topen>> fopen;     // the included ones last
  std::optional<treading> freading;
  const optcore::tvksoptions* fstore = nullptr;  // that reads the files
  std::optional<tpositions> fpositions;
  bool fnewnobounds = false, fagainnobounds = false;      // as reading has left them
  bool flastagaineolonly = true, flastneweolonly = true;  // at the end of the file on the command line
  std::string froot;
  // The values that the lines of the result set under each definition, as bits for each of its options.
  std::vector<std::uint8_t> foldset, fset;
};

}  // namespace tool

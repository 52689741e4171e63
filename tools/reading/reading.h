// Reads the definition, the option files and the texts of one command into a store and collects the findings.
// The commands print them.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "options/observer.h"
#include "options/vksoptions.h"
#include "tools/arguments.h"
#include "tools/reading/assignments.h"
#include "tools/reading/definitionlines.h"
#include "tools/reading/fieldnotes.h"
#include "tools/reading/findings.h"
#include "tools/reading/settingwarnings.h"
#include "tools/reading/suggest.h"
#include "tools/reading/temporaryfile.h"
#include "tools/reading/textsource.h"
#include "tools/writing/filemarks.h"

namespace tool {

// Observes the store: each message that is filed becomes a finding. The message list of the store is not
// used, because it has a limit.
class treading final : optcore::tstoreobserver {
 public:
  treading() { fstore.setobserver(this); }
  ~treading() override { fstore.setobserver(nullptr); }
  treading(const treading&) = delete;
  treading& operator=(const treading&) = delete;

  const optcore::tvksoptions& store() const { return fstore; }

  // Return false, with a finding, if a file on the command line cannot be opened. The other option files and
  // the texts are still read.
  bool readdefinition(const std::string& filename);
  bool readoptions(const tinputs& inputs);
  // Reads the definition that the other one has read, without findings. The other one must outlive this one.
  void readdefinitionof(const treading& other);

  // Must be called before readdefinition if the definition is to be read again: a definition that can be read
  // only once, such as a pipe, is then copied.
  void keepdefinition() { fkeepsdefinition = true; }
  // The path under which the definition can be read again.
  const std::string& definitionpath() const { return fdefinitionpath; }
  // Reads the definition into another store. Returns false if it can no longer be opened.
  bool readdefinitionagain(optcore::tvksoptions& other) const;

  // Must be called before readdefinition. From now on, what the library accepts but is likely to be a mistake
  // is a finding. Files that can be read only once are copied.
  void watch() { fwatches = fkeepsdefinition = true; }
  // Adds what is likely to be a mistake in the definition, which must have been read.
  void checkdefinition();
  // Adds what is likely to be a mistake in the lines of the option files, which must have been read.
  void checklines();

  // From now on, an option that is set twice with different values is a finding.
  void watchassignments() {
    if (!ffindings.allows(replacedrule)) fassignments.emplace();
  }

  // From now on, files are read where this source has their texts. It must outlive the reading.
  void readfrom(ttextsource& source) { ftextsource = &source; }

  // From now on, whatever the store reports is passed on to the follower; null ends it. It is not owned.
  void follow(optcore::tstoreobserver* follower) { ffollower = follower; }
  // The name of a source in findings. A source on the command line keeps the name that it has there.
  std::string_view nameof(const optcore::tlinesource* source) const;

  // Adds the lines of help as plain findings.
  void showhelp(const std::string& request);
  // Writes the settings to the file `path`, which findings call `name`; with `exact`, numbers have all their
  // digits. Returns false, with a finding, if it cannot be written.
  bool write(const std::string& name, const std::string& path, bool exact);

  // Adds a finding of the tool. While something is being read, it must not be called between a
  // message and what explains it.
  void add(tfinding finding) {
    ffindings.begin(std::move(finding));
    ffindings.end();
  }

  // All files that were read so far, those that were included among them.
  const tfilemarks& filesread() const { return ffilesread; }
  // The name of the definition file in findings.
  const std::string& definition() const { return fdefinition; }
  // The lines of the definition's entries. Only of a definition that was read with readdefinition.
  tdefinitionlines& definitionlines() { return flines; }
  // All findings so far.
  const tfindinglist& findings() const { return ffindings; }
  // Of each kind of finding, at most so many are kept.
  void setlimit(std::size_t limit) { ffindings.setlimit(limit); }
  // Findings get no suggestions, which take a while to find in a large definition. For who does not show them.
  void suggestnothing() { fsuggests = false; }
  // Warnings of this rule are left out.
  void allow(const std::string& rule) { ffindings.allow(rule); }

 private:
  void filed(const optcore::tmessage& message) override;
  void assigned(const optcore::toption& option, std::int32_t bits) override;
  void begun(const optcore::tentry& entry) override;
  void stepped(const optcore::tstep& step) override {
    if (ffollower != nullptr) ffollower->stepped(step);
  }
  void shortened(std::size_t length) override;
  void listed(std::string_view names) override;
  std::string_view pathtoopen(std::string_view filename) override;

  // Runs the action; findings call its source `name`. The action returns 0, or the operating system's error
  // code for a file that cannot be opened, and collect then returns false.
  bool collect(const std::string& name, const std::function<std::int32_t()>& action);
  std::size_t errors() const { return ffindings.count(tseverity::error); }
  tplace placeof(const optcore::tlinesource* source, std::int32_t line) const;
  void addearlyend();
  void addutf16(const tplace& place, const std::string& path);
  void advise(const optcore::tmessage& message);
  void watchsetting(const optcore::toption& option);
  void adviseoninclude(const optcore::tmessage& message);
  tplace placeof(const optcore::tmessage& message) const;
  void explainduplicate(const optcore::tmessage& message);
  std::string pathof(const std::string& filename, bool readagain);
  std::string sourcepath(const std::string& filename) const {
    return ftextsource == nullptr ? filename : ftextsource->pathof(filename);
  }

  optcore::tvksoptions fstore;
  optcore::tstoreobserver* ffollower = nullptr;
  ttextsource* ftextsource = nullptr;
  std::string fpath;  // the last one that pathtoopen gave
  tsuggester fsuggester{fstore};
  bool fsuggests = true;
  tdefinitionlines flines;
  tfieldnotes ffieldnotes;
  std::string fadvice;  // the last note, and the line of its message
  std::int32_t fadviceline = 0;
  bool fwatches = false;
  std::optional<tplace> fshortenedat;  // the last place where a text was shortened
  // The option files, under the names that findings have for them, with their paths.
  std::map<std::string, std::string> foptionfiles;
  tsettingwarnings fsettingwarnings{fstore};
  std::set<std::int32_t> fduplicates;  // the lines of the definition whose names are reported as duplicates
  std::optional<tassignments> fassignments;
  bool flistreplaced = true;  // findings about values that are set again are still listed
  bool fwriting = false;
  tfindinglist ffindings;
  std::string fdefinition;
  std::string fdefinitionpath;
  std::string fsource;  // the name of the current source in findings
  bool fkeepsdefinition = false;
  tfilemarks ffilesread;
  std::deque<ttemporaryfile> fcopies;  // a deque, because they cannot be moved
};

// The name of the file in findings.
std::string displayname(const std::string& filename);

int exitcode(const tfindings& findings, bool warningsaserrors);

// Prints the findings on standard error and returns the exit code. For commands whose result is not the list
// of findings.
int reportproblems(const tfindings& findings, std::size_t unlisted);
int reportproblems(const tfindinglist& findings);

}  // namespace tool

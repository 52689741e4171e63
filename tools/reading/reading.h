// One store and what is read into it: a definition, option files and texts, with the findings of each.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "options/observer.h"
#include "options/vksoptions.h"
#include "tools/arguments.h"
#include "tools/reading/assignments.h"
#include "tools/reading/findings.h"
#include "tools/reading/suggest.h"
#include "tools/reading/temporaryfile.h"

namespace tool {

// The findings are what the store reports while it reads. Its message list is not looked at: it ends at a
// limit.
class treading final : optcore::tstoreobserver {
 public:
  treading() { fstore.setobserver(this); }
  ~treading() override { fstore.setobserver(nullptr); }
  treading(const treading&) = delete;
  treading& operator=(const treading&) = delete;

  const optcore::tvksoptions& store() const { return fstore; }

  // False when a file of the command line cannot be opened; there is a finding then. Further option files and
  // the texts are read all the same.
  bool readdefinition(const std::string& filename);
  bool readoptions(const tinputs& inputs);

  // The definition is going to be read a second time: what can be read only once is copied. To be said before
  // it is read.
  void keepdefinition() { fkeepsdefinition = true; }
  // Reads the definition into another store. False when it cannot be opened any more.
  bool readdefinitionagain(optcore::tvksoptions& other) const;

  // From now on an option that is set twice with different values is a finding.
  void watchassignments() { fassignments.emplace(); }

  // The lines of help are plain findings.
  void showhelp(const std::string& request);
  // `name` is what findings call the file. False when it could not be written; there is a finding then.
  bool write(const std::string& name, const std::string& path);

  // A finding of the tool's own, when nothing is being read.
  void add(tfinding finding) { ffindings.push_back(std::move(finding)); }

  // The definition file as findings name it.
  const std::string& definition() const { return fdefinition; }
  const tfindings& findings();

 private:
  // Findings that are kept; any more are only counted.
  static constexpr std::size_t mostfindings = 1'000'000;

  void filed(const optcore::tmessage& message) override;
  void assigned(const optcore::toption& option, std::int32_t bits) override;

  // Runs the action, which answers 0 or the operating system's code for a file that cannot be opened; the
  // result is then false.
  bool collect(const std::string& name, const std::function<std::int32_t()>& action);
  void keep(tfinding finding);
  void droprepetition();
  tplace placeof(const optcore::tlinesource* source, std::int32_t line) const;
  const std::string& pathof(const std::string& filename, bool readagain);

  optcore::tvksoptions fstore;
  tsuggester fsuggester{fstore};
  std::optional<tassignments> fassignments;
  tfindings ffindings;
  std::size_t ffirst = 0;    // the first finding of what is being read
  std::size_t fdropped = 0;  // findings that were not kept
  std::string fdefinition;
  std::string fdefinitionpath;
  std::string fsource;  // what is being read, as findings name it
  bool fkeepsdefinition = false;
  std::deque<ttemporaryfile> fcopies;
};

int exitcode(const tfindings& findings, bool warningsaserrors);

// For commands whose result is something else: the findings go to standard error.
int reportproblems(const tfindings& findings);

}  // namespace tool

// One handle and what is read into it: a definition, option files and texts, with the findings of each.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/arguments.h"
#include "tools/findings.h"
#include "tools/handle.h"
#include "tools/temporaryfile.h"

namespace tool {

class treading {
 public:
  const thandle& handle() const { return fhandle; }

  // False when a file of the command line cannot be opened; there is a finding then. Further option files and
  // the texts are read all the same.
  bool readdefinition(const std::string& filename);
  bool readoptions(const tinputs& inputs);

  // The lines of help are plain findings.
  void showhelp(const std::string& request);
  // `name` is what findings call the file.
  void write(const std::string& name, const std::string& path);

  // Files a finding of the tool's own, while a source is read at the point that the reading has reached.
  void add(tfinding finding);

  // The definition file as findings name it.
  const std::string& definition() const { return fdefinition; }
  // The source that is being read, as findings name it.
  const std::string& source() const { return fsource; }
  // A file as findings name it, by the name that the library knows.
  std::string filename(std::string_view name) const;

  // All findings, with suggestions where a name is unknown.
  const tfindings& finish();

 private:
  // Runs `action` and collects the findings that it leaves. The action answers 0, or the operating system's
  // code for a file that cannot be opened: the result is then false.
  bool collect(const std::string& name, bool numbered, const std::function<std::int32_t()>& action);
  const std::string& pathof(const std::string& filename);

  thandle fhandle;
  tfindings ffindings;
  std::vector<tinsertion> finsertions;
  std::string fdefinition;
  std::string fsource;
  std::optional<ttemporaryfile> fstandardinput;
};

int exitcode(const tfindings& findings, bool warningsaserrors);

// For commands whose result is something else: the findings go to standard error.
int reportproblems(const tfindings& findings);

}  // namespace tool

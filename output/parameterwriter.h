// Writes the settings of a store as a parameter file, which the parameter reader can read back: the values
// that were set, in definition order, then the dot entries and the indicators. Files and their errors are
// left to ttextfile.
#pragma once

#include <string>
#include <string_view>

#include "base/numtext.h"
#include "options/vksoptions.h"
#include "output/textfile.h"

namespace optcore {

// A value as it is written in a definition or parameter file: in double quotes if it is empty or contains a
// blank, tab or comma. Nothing inside is escaped.
std::string strexternal(std::string_view text);

// How the numbers of options of type double and of dot lines are written: dbltostr or dbltostrexact.
using tdoubletext = tnumbertext (*)(double) noexcept;

// Returns 0, or the system's error code if the file cannot be opened. All errors are filed as messages; an
// error in writing does not change the result.
std::int32_t writeparameters(tvksoptions& store, std::string_view filename, tdoubletext doubletext);

class tparameterwriter {
 public:
  // All must outlive the writer. The file must be open.
  tparameterwriter(const tdefinition& definition, const tdotobjlist& dotoptions,
                   const tindicatorlist& indicators, ttextfile& file, tdoubletext doubletext)
      : fdefinition(definition),
        fdotoptions(dotoptions),
        findicators(indicators),
        ffile(file),
        fdoubletext(doubletext) {}

  void write();

 private:
  void writeoption(const toption& option);
  void writevalue(const toption& option);
  std::string valuetext(const toption& option, twhich which) const;
  void writelist(const tstrlistoption& list);
  void writedotentries();
  void writeindicators();
  template <class tlist>
  void writeelements(const tlist& elements);
  std::string_view boundsswitchname() const;

  const tdefinition& fdefinition;
  const tdotobjlist& fdotoptions;
  const tindicatorlist& findicators;
  ttextfile& ffile;
  tdoubletext fdoubletext;
  std::string_view fboundsswitch;
  shortstring fname;  // buffer for a name that is not written as it is stored
};

}  // namespace optcore

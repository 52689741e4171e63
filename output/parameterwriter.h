// Writes the settings of a store as a parameter file that the parameter reader takes back: a line for every
// value that was set, in definition order, then the dot entries and indicators.
#pragma once

#include <string>
#include <string_view>

#include "options/vksoptions.h"
#include "output/textfile.h"

namespace optcore {

// A value as it stands on a line of a definition or parameter file: in double quotes if it is empty or holds
// a blank, tab or comma. Nothing inside is escaped.
std::string strexternal(std::string_view text);

// Returns 0, or the system's code of a file that cannot be opened; what goes wrong is filed as messages.
std::int32_t writeparameters(tvksoptions& store, std::string_view filename);

class tparameterwriter {
 public:
  // Both must outlive the writer; the file is open.
  tparameterwriter(const tvksoptions& store, ttextfile& file)
      : fstore(store), fdefinition(store.definition()), ffile(file) {}

  void write();

 private:
  void writeoption(const toption& option);
  void writevalue(const toption& option);
  void writelist(const tstrlistoption& list);
  void writedotentries();
  void writeindicators();
  template <class tlist>
  void writeelements(const tlist& elements);
  std::string_view boundsswitchname() const;

  const tvksoptions& fstore;
  const tdefinition& fdefinition;
  ttextfile& ffile;
  std::string_view fboundsswitch;
  shortstring fname;  // where it is not written as it is held
};

}  // namespace optcore

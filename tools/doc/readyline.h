// Lines of an option file that users can copy.
#pragma once

#include <map>
#include <string>

#include "tools/doc/reference.h"

namespace tool {

class treadylines {
 public:
  // The reference must outlive this object.
  explicit treadylines(const treference& reference);

  // The line that sets an option to a value; without a value, the key alone. A dot option is set for the
  // symbol "symbol".
  std::string lineof(const toptionreference& option, const std::string& value) const;

  // The line that sets an option to its default. Empty if there is no such line that is read without a
  // message: for names that are deprecated or obsolete or cannot be typed, and where the members of a macro
  // have different defaults.
  std::string readyline(const toptionreference& option) const;

 private:
  std::string readyvalue(const toptionreference& option) const;
  std::string defaultof(const std::string& name) const;
  std::string membervalues(const toptionreference& option) const;
  std::string commonvalue(const toptionreference& option) const;
  std::string withoutcomment(const std::string& value) const;
  bool istyped(const std::string& name) const;

  const treference& freference;
  std::map<std::string, std::string> fdefaults;  // by name
};

}  // namespace tool

// What happens in a store, reported while it happens: every message that is filed, as a record, and every
// value that is stored. The message list is for clients; it decorates texts, cuts them and ends at its limit.
// A record says the same in parts, so that nobody has to take a text apart.
#pragma once

#include <cstdint>
#include <string_view>

#include "options/codes.h"
#include "options/linesource.h"

namespace optcore {

class toption;

// The name, option or value that a message is about. All are optional.
struct tsubject {
  // Problems whose subject can be compared with what would have been right.
  enum class tproblem : std::uint8_t {
    other,
    unknownoption,     // no option or synonym has the name
    unknowndotoption,  // the name begins with a period, and no dot option has it
    illegalvalue       // the value is none of those that the option permits
  };

  std::string_view name{};  // as it was written
  const toption* option = nullptr;
  std::string_view value{};
  tproblem problem = tproblem::other;
};

struct tmessage {
  tmsgkind kind;
  std::string_view text;  // without the prefix of its kind and without the line number
  bool explains = false;  // adds to the message before it
  tsubject subject{};
  const tlinesource* source = nullptr;  // what was being read; null for nothing
  // In that source, from 1; 0 before its first line and for a source without lines.
  std::int32_t line = 0;
};

class tstoreobserver {
 public:
  virtual ~tstoreobserver() = default;
  // Called before the message enters the list, and also when the list is full and drops it. The record and
  // its texts are valid during the call.
  virtual void filed(const tmessage& message) = 0;
  // Called after a value of the option was stored or marked as set; the bits say which values.
  virtual void assigned(const toption& option, std::int32_t bits) = 0;
};

}  // namespace optcore

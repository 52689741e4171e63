// The observer of a store, which is notified of every message that is filed, of every value that is stored,
// of every entry of a definition, and of the steps in reading option text. A message is passed as a record of
// its parts, so that an observer need not parse texts. The message list is for clients: it decorates texts,
// cuts them, and has a limit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "options/codes.h"
#include "options/linesource.h"

namespace optcore {

class toption;

// The name, option or value that a message is about. All are optional.
struct tsubject {
  // The kind of problem. Those about a name or value are such that it can be compared with the legal ones.
  enum class tproblem : std::uint8_t {
    other,
    unknownoption,     // no option or synonym has the name
    unknowndotoption,  // the name begins with a period, and no dot option has it
    badseparator,      // what follows the name can neither belong to it nor separate it from a value
    illegalvalue,      // the value is out of the bounds, or none of the legal values
    unusablefile,      // the file of the name cannot be opened, read or written
    duplicatename,     // an option or synonym that stands earlier in the definition has the name
    undefineddefault,  // the default of the option is none of its values; known only after its last value
    unknowntype        // the value is not the keyword of a definition
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
  const tlinesource* source = nullptr;  // the source that is being read; null for none
  // The line in that source, from 1; 0 before its first line and for a source without lines.
  std::int32_t line = 0;
};

// What begins on a line of a definition.
struct tentry {
  enum class tkind : std::uint8_t { option, synonym, group, value };
  tkind kind;
  std::string_view name;  // empty for a value
  std::int32_t line;
};

// A step in the reading of option text, from which an observer knows how a value came to be set.
struct tstep {
  enum class tkind : std::uint8_t {
    statement,     // a statement begins; what is not a key ends the one before
    dotline,       // the same for a dot line; the key is its symbol
    indicator,     // the same for an indicator line; the key is the keyword
    spreads,       // a macro or multilist begins to pass its text on to its members
    hasspread,     // it ends, unless the statement ends first
    takesdefault,  // the option is named without a value and will be assigned its default
    keptentry      // the dot entry or indicator of the statement entered its list
  };
  tkind kind;
  std::string_view key{};  // of the statement; empty if there is none
  const toption* option = nullptr;
};

class tstoreobserver {
 public:
  virtual ~tstoreobserver() = default;
  // Called before the message enters the list, also when the list is full and drops it. The record and its
  // texts are valid only during the call.
  virtual void filed(const tmessage& message) = 0;
  // Called after a value of the option was stored or marked as set. `bits` has firstvaluebit, secondvaluebit
  // or both.
  virtual void assigned(const toption& option, std::int32_t bits) = 0;
  // Called before the entry is added to the definition. The options of unknown kinds are never added.
  virtual void begun(const tentry& /*entry*/) {}
  // Called at each step of reading option text. The key is valid until the next statement begins.
  virtual void stepped(const tstep& /*step*/) {}
  // Called when a text of the source that is being read is shortened to 255 characters.
  virtual void shortened(std::size_t /*length*/) {}
  // Takes the list of names that help prints on request, which goes to standard output without an observer.
  virtual void listed(std::string_view /*names*/) {}
  // The path under which a file of this name is opened: an editor, say, may hold a newer text of the file
  // elsewhere. Messages name the file as it is named. The result is valid until the next call.
  virtual std::string_view pathtoopen(std::string_view filename) { return filename; }
};

}  // namespace optcore

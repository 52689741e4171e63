// A definition as plain values: all that its documents say about each option. The tool's own documents and
// the output of `show` are made from these values. All texts are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "options/codes.h"
#include "options/vksoptions.h"
#include "tools/doc/shownvalue.h"

namespace tool {

enum class tstanding { current, deprecated, obsolete };

// Whether a name is deprecated or obsolete, and the reason that the definition gives.
struct tnamestanding {
  tstanding standing = tstanding::current;
  std::string reason;
};

struct tvaluereference {
  tshownvalue value;
  std::string help;
  bool listed;
};

struct toptionreference {
  std::int32_t number;  // from 1
  std::int32_t refnr;   // chosen by the client; -1 for macros, 0 for immediate options
  std::string name;
  optcore::topttype type;
  optcore::tsubtype subtype;
  std::int32_t group;  // 0 or less for none
  bool listed;         // in help; users are not shown other options, but can name them
  std::string help;
  std::vector<std::string> details;  // further help, line by line
  tnamestanding standing;
  std::vector<std::string> synonyms;
  tnamestanding synonymstanding;  // of all its synonyms

  // Empty for types that do not have them.
  tshownvalue defaultvalue;
  tshownvalue low, high;
  std::vector<tvaluereference> values;
  std::vector<std::string> members;  // the options that a macro or multilist stands for
  std::string immediatekind;         // what an immediate option does
};

struct tgroupreference {
  std::int32_t number;
  std::string name;
  std::string title;
  bool listed;
};

struct treference {
  std::string definition;  // the name of its file, as the command line has it
  std::string title;       // of the document; empty for a title of the tool
  std::string release;     // the version of the solver and its date; may be empty
  optcore::tlookupmode lookupmode;
  std::string commentcharacters;  // each begins a comment at the end of a line of an option file
  std::string indicatorkeyword;   // empty where there are no indicators
  std::vector<tgroupreference> groups;
  std::vector<toptionreference> options;
};

// Describes the option at this index, from 0, without its synonyms.
toptionreference describeoption(const optcore::tvksoptions& store, std::int32_t index);
// The synonyms of the option at this index.
std::vector<std::string> synonymsof(const optcore::tvksoptions& store, std::int32_t index);
// Describes the whole definition. `definition` is the name of its file.
treference describe(const optcore::tvksoptions& store, const std::string& definition);

// The listed options of a group. The chapters are in the order of the groups; options whose group no line
// declares come last, in a chapter with a title of the tool. Empty chapters are left out.
struct tchapter {
  std::string group;  // its name; empty for options of a group that is not declared
  std::string title;
  std::vector<const toptionreference*> options;
};
std::vector<tchapter> chapters(const treference& reference);

// The name of the definition file without its folder, so that a document does not depend on where it was
// made. Empty for standard input.
std::string filename(const treference& reference);
// The title of a document.
std::string titleof(const treference& reference);

// The type and what may follow the key, for example "integer, two values" or "text, takes no value".
std::string typephrase(const toptionreference& option);
// The word of definition files and of the help, for example "double".
std::string_view typeword(const toptionreference& option);
// For example "0 to 1024"; empty if the type has no bounds.
std::string rangephrase(const toptionreference& option);

}  // namespace tool

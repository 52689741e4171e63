// A definition as its documents describe it: for every option all that a reader or a program could want to
// know, in plain values. The forms of `doc` that are the tool's own are written from this. All texts are
// UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "options/codes.h"
#include "options/vksoptions.h"
#include "tools/doc/shownvalue.h"

namespace tool {

enum class tstanding { current, deprecated, obsolete };

// Whether a name is on its way out, and what the definition says about it.
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
  std::int32_t number;  // from 1, as everywhere at the interface
  std::int32_t refnr;   // the client's own; macros have -1 and immediate options 0
  std::string name;
  optcore::topttype type;
  optcore::tsubtype subtype;
  std::int32_t group;  // 0 or less for none
  bool listed;         // in help; what is not listed is for the makers of the solver
  std::string help;
  std::vector<std::string> details;  // further help, line by line
  tnamestanding standing;
  std::vector<std::string> synonyms;
  tnamestanding synonymstanding;  // of all its synonyms

  // What the type adds; empty where it does not.
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
  std::string definition;  // the file, as the command line named it
  optcore::tlookupmode lookupmode;
  std::string commentcharacters;  // that begin a comment at the end of a line of an option file
  std::string indicatorkeyword;   // empty where there are no indicators
  std::vector<tgroupreference> groups;
  std::vector<toptionreference> options;
};

// The option at this position, from 0; its synonyms are left out.
toptionreference describeoption(const optcore::tvksoptions& store, std::int32_t index);
treference describe(const optcore::tvksoptions& store, const std::string& definition);

// The listed options by group, in the order of the groups; options without a listed group come last, under a
// title of the tool's.
struct tchapter {
  std::string title;
  std::vector<const toptionreference*> options;
};
std::vector<tchapter> chapters(const treference& reference);

// "integer", "two doubles", "string, no value": the type with what must follow the key.
std::string typephrase(const toptionreference& option);
// "0 to 1024"; empty where the type has no bounds.
std::string rangephrase(const toptionreference& option);

}  // namespace tool

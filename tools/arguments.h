// The parsed command line: for each command, a structure with its arguments. Parsing checks the usage; the
// commands open the files.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tools/reading/findings.h"

namespace tool {

// What a command reads, in this order: the definition, the option files, the texts of --set.
struct tinputs {
  std::string definition;
  std::vector<std::string> optionfiles;
  std::vector<std::string> texts;
};

enum class tcheckformat { text, json, sarif, github };

struct tcheckarguments {
  std::string firstfile;  // the definition, or an option file
  tinputs inputs;         // with both; without a definition if it is to be found
  tcheckformat format = tcheckformat::text;
  bool separately = false;
  bool warningsaserrors = false;
  std::vector<std::string> allowed;  // the rules whose warnings are left out
  bool pager = true;
  std::size_t limit = tfindinglist::usuallimit;  // of the findings of one kind
};

// The columns of `show`, as the command line names them.
inline constexpr auto showcolumns =
    std::to_array<std::string_view>({"number", "name", "type", "set", "value", "origin", "default", "range"});

inline constexpr std::string_view origincolumn = "origin";

struct tshowarguments {
  tinputs inputs;
  std::vector<std::string> columns;  // all if empty
  bool wide = false;
  bool pager = true;
  bool changedonly = false;
  bool json = false;
  bool origin = false;
  bool fingerprint = false;
};

struct thelparguments {
  std::string definition;
  std::string request;
  bool pager = true;
};

struct tgetarguments {
  std::string name;
  tinputs inputs;
  bool wantsdefault = false;
};

struct texplainarguments {
  std::string name;
  tinputs inputs;
};

struct tfindarguments {
  std::string definition;
  std::vector<std::string> words;
  bool pager = true;
};

// For the completions of the shells.
struct tcompletearguments {
  std::string definition;
  std::string name;     // of the option whose values are wanted; empty for the names of all options
  bool groups = false;  // the names of the groups are wanted
};

struct ttemplatearguments {
  std::string definition;
  std::vector<std::string> groups;  // all if empty
  std::string output = "-";
};

struct twritearguments {
  tinputs inputs;
  std::string output;
  bool exact = false;
  bool force = false;
};

// Which changes between definitions count for the exit code.
enum class tfailon { any, silent, breaking };

struct tdiffarguments {
  std::vector<std::string> files;  // definitions, or option files
  std::string definition;          // of the option files; empty to compare definitions
  bool defaults = false;           // compare one option file with the defaults
  bool matrix = false;             // compare any number of option files
  bool json = false;
  bool markdown = false;
  tfailon failon = tfailon::any;
  bool pager = true;
};

enum class toptionsyntax { wexcorin, assignments };

struct tmigratearguments {
  std::string from, to;  // definitions
  std::vector<std::string> files;
  std::string output;  // a folder
  bool inplace = false;
  bool nobackup = false;
  bool dryrun = false;
  bool clamp = false;
  bool pin = false;
  bool json = false;
  toptionsyntax syntax = toptionsyntax::wexcorin;
};

enum class tdocform { definition, pascal, html, c, markdown, page, json };

struct tdocarguments {
  tdocform form = tdocform::definition;
  std::string definition;
  std::string output;
  std::string title;
  std::string release;
  bool force = false;
};

// The language server, which has no arguments.
struct tlsparguments {};

// The arguments of one command, or an exit code if there is nothing left to do: the help, the version or an
// error message has been printed.
using targuments =
    std::variant<int, tcheckarguments, tshowarguments, tgetarguments, texplainarguments, tfindarguments,
                 thelparguments, tcompletearguments, ttemplatearguments, twritearguments, tdiffarguments,
                 tmigratearguments, tdocarguments, tlsparguments>;

targuments parsearguments(int argc, char** argv);

}  // namespace tool

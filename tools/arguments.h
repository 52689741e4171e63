// The command line, understood.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace tool {

// What is read before a command does its work: a definition, option files, texts of --set, in this order.
struct tinputs {
  std::string definition;
  std::vector<std::string> optionfiles;
  std::vector<std::string> texts;
};

struct tcheckarguments {
  tinputs inputs;
  bool json = false;
  bool warningsaserrors = false;
};

struct tshowarguments {
  tinputs inputs;
  bool changedonly = false;
  bool json = false;
};

struct thelparguments {
  std::string definition;
  std::string request;
};

struct twritearguments {
  tinputs inputs;
  std::string output;
};

enum class tdocform { definition, pascal, html, c, markdown, page, json };

struct tdocarguments {
  tdocform form = tdocform::definition;
  std::string definition;
  std::string output;
};

// An exit code: everything has been said, there is nothing left to do.
using targuments =
    std::variant<int, tcheckarguments, tshowarguments, thelparguments, twritearguments, tdocarguments>;

targuments parsearguments(int argc, char** argv);

}  // namespace tool

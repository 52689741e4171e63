// How a line of an option file can be changed so that a finding about it goes away.
#pragma once

#include <string>
#include <vector>

#include "tools/lsp/edits.h"
#include "tools/lsp/optionlines.h"
#include "tools/lsp/trial.h"

namespace tool::lsp {

struct trepair {
  std::string title;
  ttextedit edit;
  bool preferred = false;  // nobody would choose another one
};

// The finding is about this line of the text. `related` are the lines that it names beside that, as far as they
// are of the same text.
std::vector<trepair> repairsof(const tfinding& finding, const toptionline& line,
                               const std::vector<toptionline>& related, const ttext& text, ttrial& trial);

}  // namespace tool::lsp

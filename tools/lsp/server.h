// The language server: its life from initialize to exit, and who gets what the client sends.
#pragma once

#include <chrono>

namespace tool::lsp {

struct tserving {
  int in;
  int out;
  std::chrono::milliseconds quiet{150};  // without a change before a document is analysed
  bool enters = true;                    // the client's folder, from which relative paths count
  bool watches = true;                   // whether the client still runs
  bool finishes = false;                 // what was asked for before the input ended, for tests
};

// Serves until the client ends it. Returns the exit code: 0 after a shutdown, otherwise 1.
int serve(const tserving& serving);

}  // namespace tool::lsp

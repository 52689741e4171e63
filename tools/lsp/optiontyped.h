// What is being typed at a place of an option file.
#pragma once

#include <cstddef>
#include <string>

#include "tools/lsp/optionlines.h"

namespace tool::lsp {

struct ttyped {
  enum class tkind {
    nothing,  // that could be completed
    name,     // of an option, or the keyword of indicators
    dotname,  // of a dot option, behind the period
    value
  };
  tkind kind = tkind::nothing;
  const optcore::toption* option = nullptr;  // whose value it is
  std::string beginning{};                   // what stands before the cursor
  tspan span{};                              // of the line: that, and the rest of the word or quoted text
  bool isclosed = false;                     // whether the span ends with the double quote that ends the text
};

// `column` is a place in the line, in bytes.
ttyped typedat(const toptionline& line, std::size_t column);

}  // namespace tool::lsp

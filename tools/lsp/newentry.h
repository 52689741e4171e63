// The line of a new entry of a definition, with something legal in each field.
#pragma once

#include <string>
#include <string_view>

namespace tool::lsp {

struct tnewentry {
  std::string_view keyword;
  std::string group;  // the number of its group
  bool assnippet;     // with places to which editors move the cursor

  // With its name, and with the first line below it if it needs one.
  std::string line() const;
  // What follows the name.
  std::string afternames() const { return parts(1); }

 private:
  std::string parts(int firstplace) const;
  std::string place(int& number, std::string_view text) const;
};

}  // namespace tool::lsp

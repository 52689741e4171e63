// Whether texts mean the same after an option, a synonym or a group got another name.
#pragma once

#include <cstdint>
#include <string_view>

#include "options/vksoptions.h"
#include "tools/lsp/texts.h"

namespace tool::lsp {

struct tnewname {
  std::string_view name, newname;

  // Whether the definitions are the same but for the names before and after.
  bool samedefinition(const optcore::tvksoptions& before, const optcore::tvksoptions& after) const;
  // The first line of an option file that sets other options when it and its definition have the new name, or
  // that is then too long to be read; 0 if there is none.
  std::int32_t firstother(const optcore::tvksoptions& before, const ttext& text,
                          const optcore::tvksoptions& after, const ttext& newtext) const;

 private:
  bool becomes(std::string_view before, std::string_view after) const;
};

}  // namespace tool::lsp

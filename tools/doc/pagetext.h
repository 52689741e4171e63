// Texts of the definition as HTML: escaped, as code, and with links to the options that they name.
#pragma once

#include <string>
#include <string_view>

#include "tools/doc/anchors.h"

namespace tool {

// Escapes a text for elements and for attributes in quotes.
std::string escaped(std::string_view text);
std::string code(std::string_view text);
// The name as code, as a link if the page has an option with this name.
std::string namelink(const std::string& name, const tanchors& anchors);

// Which words of a text can be names of options. Options are called "search" and "scaling", too: in
// sentences, such a word is taken for a name only if it looks like one, for example in quotes.
enum class tnaming { marked, everyword };

// The escaped text, with links where it names an option other than `self`.
std::string linkedtext(std::string_view text, const tanchors& anchors, const toptionreference& self,
                       tnaming naming = tnaming::marked);

}  // namespace tool

// Texts in Markdown.
#pragma once

#include <string>
#include <string_view>

namespace tool {

// Escapes what would be markup: some characters everywhere, some only at the beginning of a line.
std::string markdownprose(std::string_view text);

// The text between backticks, of which there are more than the text has in a row. A bar would end a table cell
// even there, so a text with a bar is escaped as plain text instead.
std::string markdowncode(std::string_view text);

}  // namespace tool

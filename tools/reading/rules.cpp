// The table of rules. docs/check.md and the manual page repeat it, and docs/check.schema.json has the names.
#include "tools/reading/rules.h"

#include <algorithm>
#include <array>

namespace tool {

namespace {

using enum tfiledby;

constexpr auto rules = std::to_array<trule>({
    {"definition", library, "A line of the definition is wrong."},
    {"option-file", library, "A line of an option file is wrong."},
    {"unknown-option", library, "No option has the name."},
    {"bad-separator", library, "What follows a name cannot separate it from its value."},
    {"value", library, "A value is not of the option's type."},
    {"illegal-value", library, "A value is out of the range, or none of the permitted ones."},
    {"unusable-file", library, "A file cannot be opened or read."},
    {"no-definition", mistake, "The definition of an option file is not found."},
    {"deprecated", warning, "A name is deprecated or obsolete."},
    {"early-end", tool, "The definition ends before the last line of its file."},
    {"utf-16", tool, "A file is saved as UTF-16."},
    {"byte-order-mark", tool, "A file begins with a byte order mark."},
    {"return-alone", tool, "A line has a carriage return before its end."},
    {"zero-byte", tool, "A file holds a zero byte, so it is hardly a text."},
    {"ctrl-z", tool, "The byte 26 (Ctrl-Z) ends a line before its end."},
    {"line-cut", tool, "A line has more than 1,020 characters."},
    {"text-cut", tool, "A text has more than 255 characters."},
    {"long-name", tool, "A name has more than 63 characters."},
    {"indented", tool, "A line that continues a definition looks like the beginning of one."},
    {"no-options", tool, "A definition has no options."},
    {"group-undeclared", tool, "An option is in a group that no group line declares."},
    {"group-empty", tool, "A group has no options."},
    {"reference-twice", tool, "Two options have the same reference number, other than 0."},
    {"no-members", tool, "A multilist or macro has no members."},
    {"boolean-default", tool, "The default of a boolean is neither 0 nor 1."},
    {"no-help", tool, "Help lists an option that has no help text."},
    {"no-value-text", tool, "A listed value of an option has no text."},
    {"name-not-found", tool, "A name of the definition finds another option, or none, in the lookup mode."},
    {"dashed-list", tool, "A list of its own has a name like that of an option."},
    {"comment-cut", tool, "A text without quotes ends at a comment character."},
    {"set-again", tool, "A file sets an option twice, with different values."},
});

}  // namespace

std::span<const trule> checkrules() { return rules; }

const trule* findrule(std::string_view name) {
  const auto* const found = std::ranges::find(rules, name, &trule::name);
  return found == rules.end() ? nullptr : found;
}

}  // namespace tool

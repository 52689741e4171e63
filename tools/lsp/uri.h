// Names of files in the protocol.
#pragma once

#include <string>
#include <string_view>

namespace tool::lsp {

// The path of a file, as in "file:///home/a%20b/main.opt"; empty for another kind of document.
std::string pathofuri(std::string_view uri);
std::string uriofpath(std::string_view path);

// Two names of one file have the same key: its path, with links resolved as far as it exists.
std::string keyof(const std::string& filename);

}  // namespace tool::lsp

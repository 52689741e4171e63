// Writes a regular file so that it is never seen half written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tool {

// Writes all bytes to the descriptor. Returns 0 or the system's error code.
std::int32_t writeall(int descriptor, std::string_view contents);

// Makes the file of the path, or replaces it with its permissions kept. Whatever ends the program, the path
// has its old contents or the new ones, whole. Returns 0 or the system's error code; the path then has its
// old contents.
//
// A new file gets its name when it is complete. There is no system call that replaces a file by one without
// a name, so an existing file is replaced by one that has a name beside it for two system calls:
// .NAME.wexcorin-0. Only a kill that no program can catch leaves that name there, with the new contents; the
// next replacement of the file removes it. On file systems that cannot make files without a name, the file
// has this name while it is written.
//
// With a model, another file, the path gets the permissions of that file instead of its own.
std::int32_t replacefile(const std::string& path, std::string_view contents, const std::string& model = {});

}  // namespace tool

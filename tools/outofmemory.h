// Says in the tool's own words, and with the name of the file, that there is not enough memory.
#pragma once

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

namespace tool {

inline constexpr const char* outofmemory = "Not enough memory";

// What an exception says to people.
inline std::string problemtext(const std::exception& error) {
  return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ? outofmemory : error.what();
}

// Does what the action does. If there is not enough memory, the exception names the file.
template <class taction>
auto namingfile(const std::string& name, const taction& action) {
  try {
    return action();
  } catch (const std::bad_alloc&) {
    throw std::runtime_error(name + ": " + outofmemory);
  }
}

}  // namespace tool

// Entry points of the interface check. They compare the interface version and the function declarations of a
// client with those of this library, and use no handle. The signatures are in signatures.cpp.
#include <algorithm>

#include "api/conversion.h"
#include "api/signatures.h"

using optcore::concat;
using optcore::in;
using optcore::inttostr;
using optcore::out;
using optcore::shortstring;
using optcore::tsignature;
using optcore::ttextout;

namespace {

// The compatibility codes: how the client's interface version compares with the library's.
constexpr std::int32_t incompatible = 0;
constexpr std::int32_t sameversion = 1;
constexpr std::int32_t olderclient = 2;
constexpr std::int32_t newerclient = 3;

bool checkversion(std::int32_t version, ttextout message, std::int32_t& compat) {
  if (version == WEXCORIN_INTERFACE_VERSION) {
    compat = sameversion;
    message.set("API version and library version are the same.");
  } else if (version > WEXCORIN_INTERFACE_VERSION) {
    compat = newerclient;
    message.set("API version is newer than this library.");
  } else if (version >= 1) {
    compat = olderclient;
    message.set("Client version is compatible to this version of the library.");
  } else {
    compat = incompatible;
    message.set(concat("The API is too old for the used library, API version: ", inttostr(version).view(),
                       ", library version: ", inttostr(WEXCORIN_INTERFACE_VERSION).view()));
  }
  return compat != incompatible;
}

// The message lists the numbers of all arguments that differ: 0 is the result, 1 the first argument after the
// handle.
bool checkcodes(const tsignature& signature, const std::int32_t* codes, ttextout& message) {
  shortstring text;
  for (std::size_t i = 0; i < signature.codes().size(); ++i) {
    if (codes[i] == signature.codes()[i]) continue;
    const auto number = inttostr(static_cast<std::int32_t>(i));
    if (text.empty())
      text = concat(signature.name(), " has wrong argument type for argument ", number.view());
    else
      text.append(",").append(number);
  }
  message.set(text);
  return text.empty();
}

bool checkfunction(std::string_view name, std::int32_t count, const std::int32_t* codes, ttextout message) {
  const auto signatures = optcore::signatures();
  const auto found = std::find_if(signatures.begin(), signatures.end(),
                                  [name](const tsignature& signature) { return signature.name() == name; });
  if (found == signatures.end()) {
    message.set(concat(name, " cannot be found in wexcorin."));
    return false;
  }
  if (count != found->count()) {
    message.set(concat(name, " has wrong number of arguments, the API expects ",
                       inttostr(found->count()).view(), " but it has ", inttostr(count).view(),
                       " in the library."));
    return false;
  }
  return checkcodes(*found, codes, message);
}

}  // namespace

int32_t xapiversion(int32_t version, optshortstring* message, int32_t* compat) {
  return checkversion(version, out(message), *compat) ? 1 : 0;
}
int32_t cxapiversion(int32_t version, char* message, int32_t* compat) {
  return checkversion(version, out(message), *compat) ? 1 : 0;
}

int32_t xcheck(const optshortstring* name, int32_t count, const int32_t* signature, optshortstring* message) {
  return checkfunction(in(name), count, signature, out(message)) ? 1 : 0;
}
int32_t cxcheck(const char* name, int32_t count, const int32_t* signature, char* message) {
  return checkfunction(in(name), count, signature, out(message)) ? 1 : 0;
}

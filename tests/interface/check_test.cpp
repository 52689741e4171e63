// The check of interface version and function signatures.
#include <iterator>
#include <sstream>

#include "support/handle.h"

namespace testsupport {
namespace {

// The client's version, the result, the kind of agreement, and the message.
TEST(versioncheck, compares_the_client_s_version_with_the_library_s) {
  constexpr const char* rows = R"(
    2 => 1 1 => API version and library version are the same.
    3 => 1 3 => API version is newer than this library.
    2147483647 => 1 3 => API version is newer than this library.
    1 => 1 2 => Client version is compatible to this version of the library.
    0 => 0 0 => The API is too old for the used library, API version: 0, library version: 2
    -1 => 0 0 => The API is too old for the used library, API version: -1, library version: 2
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    std::string message = "old";
    std::int32_t compat = -1;
    const int result = invoke(h.form(), xapiversion, cxapiversion, std::stoi(row[0]), message, compat);
    EXPECT_EQ(std::to_string(result) + ' ' + std::to_string(compat), row[1]);
    EXPECT_EQ(message, row[2]);
  });
}

// The function as a client declares it: its name, the result's code, then those of the arguments after the
// handle.
int check(tform form, const std::string& declared, std::string& message) {
  std::istringstream words(declared.substr(declared.find(' ')));
  const std::vector<std::int32_t> codes{std::istream_iterator<std::int32_t>(words), {}};
  const int count = static_cast<int>(codes.size()) - 1;
  return invoke(form, xcheck, cxcheck, declared.substr(0, declared.find(' ')), count, codes.data(), message);
}

// One function for each code; the compiler takes the codes from the functions' types.
TEST(signaturecheck, functions_are_as_clients_declare_them) {
  for (const char* function :
       {"optReadFromPChar 0 10", "optFindStr 3 11 4 4", "optSetValuesNr 3 3 3 13 11", "optCount 3",
        "optGetValuesNr 3 3 12 4 14 12", "optGetInfoNr 3 3 4 4 4 4 4 4", "optResetAll 0"})
    for (const tform form : bothforms) {
      std::string message = "old";
      EXPECT_EQ(check(form, function, message), 1) << function;
      EXPECT_EQ(message, "");
    }
}

TEST(signaturecheck, tells_what_differs) {
  constexpr const char* rows = R"(
    optreaddefinition 3 11 => optreaddefinition cannot be found in wexcorin.
    \e 3 => \x20cannot be found in wexcorin.
    xCreate 3 => xCreate cannot be found in wexcorin.
    <254x> 3 => <254x>\x20
    optCount 3 3 => optCount has wrong number of arguments, the API expects 0 but it has 1 in the library.
    optGetValuesNr 3 3 12 4 13 12 => optGetValuesNr has wrong argument type for argument 4
    optFindStr 0 11 3 4 => optFindStr has wrong argument type for argument 0,2
    optFindStr 0 0 0 0 => optFindStr has wrong argument type for argument 0,1,2,3
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    std::string message = "old";
    EXPECT_EQ(check(h.form(), row[0], message), 0);
    EXPECT_EQ(message, row[1]);
  });
}

}  // namespace
}  // namespace testsupport

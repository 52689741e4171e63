// The check of interface version and function signatures.
#include <iterator>
#include <sstream>

#include "support/handle.h"

namespace testsupport {
namespace {

// The client's version, the result, the kind of agreement, and the message.
TEST(versioncheck, compares_the_client_s_version_with_the_library_s) {
  foreachrow(R"(
    2 => 1 1 => API version and library version are the same.
    3 => 1 3 => API version is newer than this library.
    2147483647 => 1 3 => API version is newer than this library.
    1 => 1 2 => Client version is compatible to this version of the library.
    0 => 0 0 => The API is too old for the used library, API version: 0, library version: 2
    -1 => 0 0 => The API is too old for the used library, API version: -1, library version: 2
  )",
             [](thandle& h, const tcolumns& row) {
               std::string message = "old";
               std::int32_t compat = -1;
               const int result =
                   invoke(h.form(), xapiversion, cxapiversion, std::stoi(row[0]), message, compat);
               EXPECT_EQ(std::to_string(result) + ' ' + std::to_string(compat), row[1]);
               EXPECT_EQ(message, row[2]);
             });
}

// The function as a client declares it: its name, the result's code, then those of the arguments after the handle.
int check(tform form, const std::string& declared, std::string& message) {
  std::istringstream words(declared.substr(declared.find(' ')));
  const std::vector<std::int32_t> codes{std::istream_iterator<std::int32_t>(words), {}};
  const int count = static_cast<int>(codes.size()) - 1;
  return invoke(form, xcheck, cxcheck, declared.substr(0, declared.find(' ')), count, codes.data(), message);
}

// What clients declare. A change breaks every client that was built before; add a function under a new name instead.
constexpr const char* declared =
    "optReadDefinition 3 11; optReadParameterFile 3 11; optReadFromStr 0 11; optWriteParameterFile 3 11; "
    "optClearMessages 0; optAddMessage 0 11; optGetMessage 0 3 12 4; optResetAll 0; optResetAllRecent 0; "
    "optResetRecentChanges 0; optShowHelp 0 11; optResetNr 3 3; optFindStr 3 11 4 4; "
    "optGetInfoNr 3 3 4 4 4 4 4 4; optGetValuesNr 3 3 12 4 14 12; optSetValuesNr 3 3 3 13 11; "
    "optSetValues2Nr 3 3 3 13 11; optVersion 0 12; optDefinitionFile 0 12; "
    "optGetFromAnyStrList 3 3 12 12; optGetFromListStr 3 11 12; optListCountStr 3 11; "
    "optReadFromListStr 3 11 3 12; optSynonymCount 3; optGetSynonym 3 3 12 12; optEchoSet 0 3; "
    "optEOLOnlySet 3 3; optNoBoundsSet 0 3; optErrorCount 0 4 4; optGetBoundsInt 3 3 4 4 4; "
    "optGetBoundsDbl 3 3 14 14 14; optGetDefaultStr 3 3 12; optGetIntNr 3 3 4; optGetInt2Nr 3 3 4; "
    "optSetIntNr 3 3 3; optSetInt2Nr 3 3 3; optGetStrNr 3 3 12; optGetOptHelpNr 3 3 12 4 4; "
    "optGetEnumHelp 3 3 3 4 12; optGetEnumStrNr 3 3 12 4; optGetEnumCount 3 3 4; "
    "optGetEnumValue 3 3 3 4 12; optGetStr2Nr 3 3 12; optSetStrNr 3 3 11; optSetStr2Nr 3 3 11; "
    "optGetDblNr 3 3 14; optGetDbl2Nr 3 3 14; optSetDblNr 3 3 13; optSetDbl2Nr 3 3 13; "
    "optGetValStr 3 11 12; optGetVal2Str 3 11 12; optGetNameNr 3 3 12; optGetDefinedNr 3 3 4; "
    "optGetHelpNr 3 3 12 12; optGetGroupNr 3 3 12 4 4 12; optGetGroupGrpNr 3 3; optGetOptGroupNr 3 3; "
    "optGetDotOptNr 3 3 12 4 4 14; optGetDotOptUel 3 3 3 12; optGetIndicatorNr 3 3 12 12 4 4 4; "
    "optGetEquIndicatorNr 3 3 3 12; optGetVarIndicatorNr 3 3 3 12; optIndicatorCount 3 4; "
    "optDotOptCount 3 4; optSetRefNr 3 3 3; optSetRefNrStr 3 11 3; optGetConstName 3 3 3 12; "
    "optGetTypeName 3 3 12; optLookUp 3 11; optReadFromPChar 0 10; optCount 3; optMessageCount 3; "
    "optGroupCount 3; optRecentEnabled 3; optRecentEnabledSet 0 3;";

TEST(signaturecheck, every_function_is_as_clients_declare_it) {
  std::istringstream functions(declared);
  int count = 0;
  for (std::string function; std::getline(functions >> std::ws, function, ';'); ++count)
    for (const tform form : bothforms) {
      std::string message = "old";
      EXPECT_EQ(check(form, function, message), 1) << function;
      EXPECT_EQ(message, "");
    }
  EXPECT_EQ(count, 75);
}

TEST(signaturecheck, tells_what_differs) {
  foreachrow(R"(
    optreaddefinition 3 11 => optreaddefinition cannot be found in wexcorin.
    \e 3 => \x20cannot be found in wexcorin.
    xCreate 3 => xCreate cannot be found in wexcorin.
    <254x> 3 => <254x>\x20
    optCount 3 3 => optCount has wrong number of arguments, the API expects 0 but it has 1 in the library.
    optGetValuesNr 3 3 12 4 13 12 => optGetValuesNr has wrong argument type for argument 4
    optFindStr 0 11 3 4 => optFindStr has wrong argument type for argument 0,2
    optFindStr 0 0 0 0 => optFindStr has wrong argument type for argument 0,1,2,3
  )",
             [](thandle& h, const tcolumns& row) {
               std::string message = "old";
               EXPECT_EQ(check(h.form(), row[0], message), 0);
               EXPECT_EQ(message, row[1]);
             });
}

}  // namespace
}  // namespace testsupport

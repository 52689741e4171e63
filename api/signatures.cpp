// The table of the signatures that a client can check. Each row has the name in mixed case and the
// short-string form of the function; the codes come from the function's type, see signatures.h.
#include "api/signatures.h"

namespace optcore {

namespace {

// A function, and its name as text, with which the name in mixed case is compared.
#define SYMBOL(function) #function, function

constexpr tsignature table[] = {
    {"optReadDefinition", SYMBOL(optreaddefinition)},
    {"optReadParameterFile", SYMBOL(optreadparameterfile)},
    {"optReadFromStr", SYMBOL(optreadfromstr)},
    {"optWriteParameterFile", SYMBOL(optwriteparameterfile)},
    {"optClearMessages", SYMBOL(optclearmessages)},
    {"optAddMessage", SYMBOL(optaddmessage)},
    {"optGetMessage", SYMBOL(optgetmessage)},
    {"optResetAll", SYMBOL(optresetall)},
    {"optResetAllRecent", SYMBOL(optresetallrecent)},
    {"optResetRecentChanges", SYMBOL(optresetrecentchanges)},
    {"optShowHelp", SYMBOL(optshowhelp)},
    {"optResetNr", SYMBOL(optresetnr)},
    {"optFindStr", SYMBOL(optfindstr)},
    {"optGetInfoNr", SYMBOL(optgetinfonr)},
    {"optGetValuesNr", SYMBOL(optgetvaluesnr)},
    {"optSetValuesNr", SYMBOL(optsetvaluesnr)},
    {"optSetValues2Nr", SYMBOL(optsetvalues2nr)},
    {"optVersion", SYMBOL(optversion)},
    {"optDefinitionFile", SYMBOL(optdefinitionfile)},
    {"optGetFromAnyStrList", SYMBOL(optgetfromanystrlist)},
    {"optGetFromListStr", SYMBOL(optgetfromliststr)},
    {"optListCountStr", SYMBOL(optlistcountstr)},
    {"optReadFromListStr", SYMBOL(optreadfromliststr)},
    {"optSynonymCount", SYMBOL(optsynonymcount)},
    {"optGetSynonym", SYMBOL(optgetsynonym)},
    {"optEchoSet", SYMBOL(optechoset)},
    {"optEOLOnlySet", SYMBOL(opteolonlyset)},
    {"optNoBoundsSet", SYMBOL(optnoboundsset)},
    {"optErrorCount", SYMBOL(opterrorcount)},
    {"optGetBoundsInt", SYMBOL(optgetboundsint)},
    {"optGetBoundsDbl", SYMBOL(optgetboundsdbl)},
    {"optGetDefaultStr", SYMBOL(optgetdefaultstr)},
    {"optGetIntNr", SYMBOL(optgetintnr)},
    {"optGetInt2Nr", SYMBOL(optgetint2nr)},
    {"optSetIntNr", SYMBOL(optsetintnr)},
    {"optSetInt2Nr", SYMBOL(optsetint2nr)},
    {"optGetStrNr", SYMBOL(optgetstrnr)},
    {"optGetOptHelpNr", SYMBOL(optgetopthelpnr)},
    {"optGetEnumHelp", SYMBOL(optgetenumhelp)},
    {"optGetEnumStrNr", SYMBOL(optgetenumstrnr)},
    {"optGetEnumCount", SYMBOL(optgetenumcount)},
    {"optGetEnumValue", SYMBOL(optgetenumvalue)},
    {"optGetStr2Nr", SYMBOL(optgetstr2nr)},
    {"optSetStrNr", SYMBOL(optsetstrnr)},
    {"optSetStr2Nr", SYMBOL(optsetstr2nr)},
    {"optGetDblNr", SYMBOL(optgetdblnr)},
    {"optGetDbl2Nr", SYMBOL(optgetdbl2nr)},
    {"optSetDblNr", SYMBOL(optsetdblnr)},
    {"optSetDbl2Nr", SYMBOL(optsetdbl2nr)},
    {"optGetValStr", SYMBOL(optgetvalstr)},
    {"optGetVal2Str", SYMBOL(optgetval2str)},
    {"optGetNameNr", SYMBOL(optgetnamenr)},
    {"optGetDefinedNr", SYMBOL(optgetdefinednr)},
    {"optGetHelpNr", SYMBOL(optgethelpnr)},
    {"optGetGroupNr", SYMBOL(optgetgroupnr)},
    {"optGetGroupGrpNr", SYMBOL(optgetgroupgrpnr)},
    {"optGetOptGroupNr", SYMBOL(optgetoptgroupnr)},
    {"optGetDotOptNr", SYMBOL(optgetdotoptnr)},
    {"optGetDotOptUel", SYMBOL(optgetdotoptuel)},
    {"optGetIndicatorNr", SYMBOL(optgetindicatornr)},
    {"optGetEquIndicatorNr", SYMBOL(optgetequindicatornr)},
    {"optGetVarIndicatorNr", SYMBOL(optgetvarindicatornr)},
    {"optIndicatorCount", SYMBOL(optindicatorcount)},
    {"optDotOptCount", SYMBOL(optdotoptcount)},
    {"optSetRefNr", SYMBOL(optsetrefnr)},
    {"optSetRefNrStr", SYMBOL(optsetrefnrstr)},
    {"optGetConstName", SYMBOL(optgetconstname)},
    {"optGetTypeName", SYMBOL(optgettypename)},
    {"optLookUp", SYMBOL(optlookup)},
    {"optReadFromPChar", SYMBOL(optreadfrompchar)},
    {"optCount", SYMBOL(optcount)},
    {"optMessageCount", SYMBOL(optmessagecount)},
    {"optGroupCount", SYMBOL(optgroupcount)},
    {"optRecentEnabled", SYMBOL(optrecentenabled)},
    {"optRecentEnabledSet", SYMBOL(optrecentenabledset)},
};

}  // namespace

std::span<const tsignature> signatures() noexcept { return table; }

}  // namespace optcore

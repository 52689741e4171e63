// The queries by number and by name: their results for a valid number, and their outputs when they fail,
// which are cleared, set to -1 or left unchanged; and finding an option by name in the three lookup modes.
#include "interface/script.h"

namespace testsupport::queriestest {

// Options 2 to 14; Help is option 1.
constexpr const char* options =
    "g1 group 10 1 General\ng2 group 20 0\nmaxit integer 101 5 -1 10 1 10 Iteration limit\n"
    "gap double 102 0.5 0 1 2 20 Gap\nnote string 103 \"a b\" 1 10 Note\nflag boolean 104 1 1 10\n"
    "method enumstr 105 auto 1 20 Method\n auto 1 Automatic\n Primal 0\nlevel enumint 106 1 1 20\n"
    " 0 1 Nothing\n 1 -1\nwords multilist 107 1 10\n maxit\nnames strlist 108 1 10\nall macro 1 10\n"
    " maxit\nsay immediate Message 1 10\npair integer.two 109 1 0 10 1 10\n"
    "off_grid double.two 110 1 0 10 1 10\npairstr enumstr.two 112 x 1 10\n x 1\n y 1\n"
    "iterations synonym maxit\nghost synonym nosuch\nmethodx enumstr 113 other 1 10\n auto 1\n"
    ".off double 114 1 0 10 1 10\nind indicator\n";

// The query, the option or other number, its further arguments, and the answer; then an option for which the
// query fails, which is answered like a number out of range.
const ttable queries = {__LINE__, R"(
    // an option has flags, a reference number, a data type, a type and a sub-type
    getinfonr => 2 => => 1|1|1|101|1|0|0 => 17 => 0|0|0|0|-1|-1|-1
    getdefinednr => pair => => 1|2 => 17 => 0|0

    // the outputs for names and help texts are cleared if there are none
    getnamenr => 2 => => 1|maxit => 17 => 0|
    gethelpnr => maxit => => 1|maxit|Iteration limit => 17 => 0||
    getopthelpnr => gap => => 1|gap|2|20 => 17 => 0||-1|-1

    // groups and synonyms have numbers of their own
    getoptgroupnr => gap => => 20 => 17 => -1
    getgroupnr => 1 => => 1|g1|10|1|General => 3 => 0||0|0|
    getgroupgrpnr => 20 => => 2 => 2 => -1
    getsynonym => 1 => => 1|iterations|maxit => 3 => 0||
    getsynonym => 2 => => 1|ghost| => 3 => 0||

    // only a string option has a query for its default alone
    getdefaultstr => note => => 1|a b => method => 0|

    // for an option of another type the outputs for bounds are left unchanged
    getboundsint => maxit => => 1|-1|10|5 => gap => 0|-7|-7|-7
    getboundsdbl => gap => => 1|0|1|0.5 => maxit => 0|-7.5|-7.5|-7.5

    // the items of an enumeration are numbered from 1
    getenumcount => method => => 1|2 => flag => 0|-1
    getenumvalue => method => 2 => 1|0|Primal => flag => 0|-1|
    getenumvalue => method => 0 => 0|-1| => flag => 0|-1|
    getenumvalue => level => 2 => 1|1|1 => maxit => 0|-1|
    getenumhelp => method => 1 => 1|1|Automatic => flag => 0|-1|
    getenumhelp => level => 2 => 1|-1| => flag => 0|-1|
    getenumhelp => level => 3 => 0|-1| => flag => 0|-1|

    // the item of a value is 0 for a default that is not among the items
    getenumstrnr => pairstr => => 1|y|2 => level => 0||-1
    getenumstrnr => methodx => => 1|other|0 => level => 0||-1

    // for an option of another type the output for a number is left unchanged
    getintnr => maxit => => 1|3 => gap => 0|-7
    getint2nr => pair => => 1|4 => maxit => 0|-7
    getint2nr => pair => => 1|4 => off_grid => 0|-7
    getdblnr => gap => => 1|0.5 => maxit => 0|-7.5
    getdbl2nr => off_grid => => 1|2.5 => gap => 0|-7.5

    // a value of any type can be queried as a text, which is empty for a list
    getstrnr => maxit => => 1|3 => 17 => 0|
    getstrnr => names => => 1| => 17 => 0|
    getstr2nr => off_grid => => 1|2.5 => maxit => 0|

    // of three outputs the one for the type of the option is filled
    getvaluesnr => maxit => => 1|maxit|3|0|3 => 17 => 0||0|0|
    getvaluesnr => gap => => 1|gap|0|0.5|0.5 => 17 => 0||0|0|
    getvaluesnr => method => => 1|method|0|0|auto => 17 => 0||0|0|
    getvaluesnr => note => => 1|note|0|0|a b => 17 => 0||0|0|
    getvaluesnr => level => => 1|level|1|0|1 => 17 => 0||0|0|
    getvaluesnr => flag => => 1|flag|1|0|1 => 17 => 0||0|0|

    // an option without a single value gives its name and no value
    getvaluesnr => say => => 0|say|0|0| => 17 => 0||0|0|
    getvaluesnr => words => => 0|words|0|0| => 17 => 0||0|0|
    getvaluesnr => all => => 0|all|0|0| => 17 => 0||0|0|
    getvaluesnr => names => => 0|names|0|0| => 17 => 0||0|0|

    // a reset and a new reference number need an option
    resetnr => maxit => => 1 => 17 => 0
    setrefnr => say => 77 => 1 => 17 => 0

    // dot entries and indicators have numbers of their own
    getdotoptnr => 1 => => 1|x|16|1|3 => 2 => 0||0|0|0
    getdotoptuel => 1 => 1 => 1|u => 2 => 0|
    getindicatornr => 1 => => 1|e|v|1|0|1 => 2 => 0|||0|0|0
    getequindicatornr => 1 => 1 => 1|'i' => 2 => 0|
    getvarindicatornr => 1 => 1 => 0| => 2 => 0|
)"};

const trules bynumber(
    "queries", options,
    "readfromstr maxit 3 ; setint2nr pair 4 ; setdbl2nr off_grid 2.5 ; setstrnr pairstr Y"
    " ; readfromstr x.off('u') 3 ind e('i')$v 1"
    " ; $1 $2 $3 => $4 ; $1 $5 $3 => $6 ; $1 0 $3 => $6 ; $1 -2147483648 $3 => $6 ; $1 2147483647 $3 => $6"
    " ; messages =>",
    queries);
const trules ofnothing("queries_without_definition", "", "$1 1 $3 => $6 ; messages =>", queries);

const trules scenes("queries", options, {__LINE__, R"(
    // constants have names, except the tenth kind of message
    each getconstname 1 => optDataNone | optDataInteger | optDataDouble | optDataString | optDataStrList
    each getconstname 2 => optTypeInteger | optTypeDouble | optTypeString | optTypeBoolean | optTypeEnumStr
      | optTypeEnumInt | optTypeMultiList | optTypeStrList | optTypeMacro | optTypeImmediate
    each getconstname 3 => optsubRequired | optsubNoValue | optsubOptional | optsub2Values
    each getconstname 4 => optMsgInputEcho | optMsgHelp | optMsgDefineError | optMsgValueError
      | optMsgValueWarning | optMsgDeprecated | optMsgFileEnter | optMsgFileLeave | optMsgTooManyMsgs
    each getconstname -1 => ; each getconstname 0 => ; each getconstname 5 => ; getconstname 1 -1 => 0|

    // the types have the names that definitions use
    each gettypename => integer | double | string | boolean | enumstr | enumint | multilist | strlist | macro
      | immediate
    gettypename -1 => 0|

    // each option has its data type and type and sub-type
    each getinfonr => 0|0|0|0|9|2 | 0|0|101|1|0|0 | 0|0|102|2|1|0 | 0|0|103|3|2|0 | 0|0|104|1|3|0
      | 0|0|105|3|4|0 | 0|0|106|1|5|0 | 0|0|107|0|6|0 | 0|0|108|4|7|0 | 0|0|-1|0|8|0 | 0|0|-1|0|9|0
      | 0|0|109|1|0|3 | 0|0|110|2|1|3 | 0|0|112|3|4|3 | 0|0|113|3|4|0 | 0|0|114|2|1|0
    // counts are the numbers of what is defined
    count => 16 ; synonymcount => 2 ; groupcount => 2 ; definitionfile => DEF

    // a value is found by the name of its option or a synonym
    value MAXIT => 5 ; value iterations => 5 ; value names => ; value pair => 1|1
    getvalstr nosuch => 0| ; getval2str nosuch => 0| ; getval2str maxit => 0| ; getval2str ghost => 0|

    // an option is found by its name or a synonym that leads to one
    findstr Iterations => 1|2|101 ; findstr ghost => 0|-1|-1
    setrefnrstr iterations -5 => 1 ; setrefnrstr nosuch -5 => 0 ; findstr maxit => 1|2|-5

    // elements of entries are numbered from 1
    readfromstr x.off('u') 3 ind e('i')$v 1 ; getdotoptuel 1 0 => 0| ; getdotoptuel 1 -1 => 0|
    getdotoptuel 1 2 => 0| ; getequindicatornr 1 0 => 0| ; getequindicatornr 1 2 => 0|
    // the count is below 0 if the option is no list
    listcountstr nosuch => -2 ; listcountstr maxit => -1 ; listcountstr names => 0

    // reading texts by their numbers leaves them in the list
    readfromstr names one ; readfromstr names two ; listcountstr NAMES => 2 ; readfromliststr names 2 => 1|two
    readfromliststr names 3 => 0| ; readfromliststr names 0 => 0| ; listcountstr names => 2
    readfromliststr maxit 1 => -1| ; readfromliststr nosuch 1 => -2|

    // texts are taken out in their order
    readfromstr names one ; readfromstr names two ; getfromliststr names => 1|one ; getfromliststr names => 1|two
    getfromliststr names => 0| ; getfromliststr maxit => -1| ; getfromliststr nosuch => -2|

    // a list that is reset begins anew
    readfromstr names one ; readfromstr names two ; readfromstr names three ; getfromliststr names => 1|one
    resetall ; readfromstr names four ; getfromliststr names => 1|four

    // texts are taken either from the lists that keys created or from the others
    readfromstr names one ; readfromstr --extra three ; readfromstr --more four ; findstr --more => 1|18|0
    getfromanystrlist 1 => 1|--extra|three ; getfromanystrlist -1 => 1|--more|four
    getfromanystrlist 0 => 1|names|one

    // when no list has a text, the name is that of the last list and the text is left unchanged
    readfromstr names one ; readfromstr --extra three ; getfromanystrlist 0 => 1|names|one
    getfromanystrlist 0 => 0|--extra|old ; getfromanystrlist 1 => 1|--extra|three
    getfromanystrlist 0 => 0|old|old ; messages =>

    // after both kinds had no text, each finds what is set then
    getfromanystrlist 0 => 0|old|old ; getfromanystrlist 1 => 0|old|old
    readfromstr --extra three ; getfromanystrlist 1 => 1|--extra|three
    readfromstr names one ; getfromanystrlist 0 => 1|names|one
)"});

// The mode, the names of the options from 2 on, the name that is looked up, the name and the number that are
// found.
const trules modes("lookup", "", "integers $2 ; definition $1 lookup ; gethelpnr $3 => $4| ; lookup $3 => $5",
                   {__LINE__, R"(
    // in mode normal a name must be complete, in upper or lower case
    Normal => alpha Beta beta => BETA => 1|Beta => 2
    Normal => alpha => alph => 0| => -1
    unknown => alpha_beta => alp_bet => 0| => -1

    // in mode path only the first three characters of each word are compared
    Path => convergence_tolerance => con_tol => 1|convergence_tolerance => 1
    path => convergence_tolerance => CONxx_tolyyyyyyyyyy => 1|convergence_tolerance => 1
    Path => convergence_tolerance => co_tol => 0| => -1
    Path => convergence_tolerance => con_to => 0| => -1
    Path => convergence_tolerance => coxv_tol => 0| => -1
    Path => convergence_tolerance => con_txlerance => 0| => -1

    // in mode path the number of words must be the same
    Path => convergence_tolerance => con => 0| => -1
    Path => convergence => con_tol => 0| => -1
    Path => con_tol => convergence_tol_x => 0| => -1
    Path => con_tolerance_of => con_tol_off => 0| => -1
    Path => con_tolerance_off => con_tol_offer => 1|con_tolerance_off => 1

    // in mode path a word of fewer than three characters is never found
    Path => xy abc => xy => 0| => -1
    Path => con_t => con_t => 0| => -1

    // in mode minos three characters of the first word are compared and four of each other word
    Minos => major_iterations_limit => MAJ_ITERx_limiyy => 1|major_iterations_limit => 1
    Minos => major_iterations_limit => maj_ite_limi => 0| => -1
    Minos => major_iterations_limit => maj_iterations_lim => 0| => -1
    Minos => major_ite => maj_iter => 0| => -1

    // in mode minos the number of words must be the same
    Minos => major_iterations_limit => major_iterations => 0| => -1
    Minos => major_iter => majx_iter_limi => 0| => -1
    Minos => maj_i_ter => maj_iter => 0| => -1

    // in mode minos a shorter word must be complete
    minos => ma_x => ma_x => 1|ma_x => 1
    Minos => ma_x => mx_x => 0| => -1
)"});

const trules namesofminos("lookup", "major_iterations_limit integer 1 1 0 9 1 1\nMinos lookup\n",
                          {__LINE__, R"(
    // in mode minos queries return names with blanks, except the query for help texts
    getnamenr 2 => 1|major iterations limit ; getopthelpnr 2 => 1|major iterations limit|1|1
    getvaluesnr 2 => 1|major iterations limit|1|0|1 ; gethelpnr 2 => 1|major_iterations_limit|
    lookup major iterations limit => -1
)"});

const trules ofmany(
    "lookup", "",
    "integers covert_tolerance# conv_totals# con_to# $2 conv# ; definition $1 lookup ; lookup $3 => 601",
    {__LINE__, R"(
    // the first of many options that match is found after many that do not
    Normal => convergence_tolerance => CONVERGENCE_tolerance
    Path => convergence_tolerance# => con_tol
    Minos => convergence_tole# => conv_tole
)"});

}  // namespace testsupport::queriestest

// The records of messages that the observer of a store receives.
#include <gtest/gtest.h>

#include <regex>

#include "options/vksoptions.h"
#include "support/handle.h"

namespace optcore::observertest {

constexpr const char* options =
    "i integer 1 1 0 9 1 1 Help\nd double 2 1 0 9 1 1\nb boolean 3 0 1 1\ns string 4 t 1 1\n"
    "e enumstr 5 x 1 1\n x 1\n y 1\nn enumint 6 1 1 1\n 1 1\n 2 1\nm multilist 7 1 1\n i d\n"
    ".dot double 8 0 0 9 1 1\nold synonym i\nnames deprecated\n old use i\nsay immediate Message 1 1\n"
    "read immediate ReadFile 1 1\nbounds immediate NoBounds 1 1\nind indicator\n"
    "opt integer.OPT 9 1 0 9 1 1\nall macro 1 1\n d\n m\n";

// The records as text: the kind, the source and the sources that included it with their lines, the text,
// whether it explains the message before, and in brackets its name, option, value and problem.
struct trecords : tstoreobserver {
  static std::string place(const tlinesource& source, std::int32_t line) {
    const bool isfile = source.sourcekind() == tsourcekind::file;
    const tlinesource* from = source.includer();
    return std::string(source.sourcename()) + (isfile ? ':' + std::to_string(line) : "") +
           (from != nullptr ? '<' + place(*from, from->linenr()) : "");
  }
  void filed(const tmessage& message) override {
    constexpr const char* kinds[] = {"Echo",       "Help",  "Definition", "Value", "Warning",
                                     "Deprecated", "Enter", "Leave",      "Limit", "User"};
    constexpr const char* problems[] = {"",
                                        " unknown option",
                                        " unknown dot option",
                                        " bad separator",
                                        " illegal value",
                                        " unusable file",
                                        " duplicate name",
                                        " undefined default",
                                        " unknown type",
                                        " bad reference",
                                        " bad help flag"};
    const bool isnote = message.kind == tmsgkind::fileenter || message.kind == tmsgkind::fileleave;
    if (isnote && !showsnotes) return;
    text += std::string(text.empty() ? "" : " | ") + kinds[ordinal(message.kind)] + ' ';
    if (message.source != nullptr) text += place(*message.source, message.line) + ' ';
    text.append("'").append(message.text).append(message.explains ? "' explains" : "'");
    const auto& [name, option, value, problem] = message.subject;
    if (name.empty() && option == nullptr && value.empty()) return;
    text.append(" [").append(name).append(",").append(option != nullptr ? option->name() : "");
    text.append(",").append(value).append("]").append(problems[ordinal(problem)]);
  }
  void assigned(const toption&, std::int32_t) override {
    if (echoing != nullptr) echoing->optechoset(true);
  }
  void begun(const tentry& entry) override {
    constexpr const char* kinds[] = {"option ", "synonym ", "group ", "value"};
    if (showsentries)
      text.append(text.empty() ? "" : " | ")
          .append(std::to_string(entry.line))
          .append(" ")
          .append(kinds[ordinal(entry.kind)])
          .append(entry.name);
  }
  void stepped(const tstep& step) override {
    constexpr const char* kinds[] = {"statement",  "dot line",      "indicator", "spreads",
                                     "has spread", "takes default", "kept"};
    if (!showssteps) return;
    text.append(text.empty() ? "" : " | ").append(kinds[ordinal(step.kind)]);
    if (!step.key.empty()) text.append(" ").append(step.key);
    if (step.option != nullptr) text.append(" of ").append(step.option->name());
  }
  // A file NAME is read from NAMEnewer.
  std::string_view pathtoopen(std::string_view filename) override {
    if (!opensnewer) return filename;
    opened.assign(filename).append("newer");
    return opened;
  }
  bool opensnewer = false;
  std::string opened;
  tvksoptions* echoing = nullptr;  // a store whose echo is switched on when a value is set
  std::string text;
  bool showsnotes = false;  // notes on entering and leaving a source
  bool showsentries = false;
  bool showssteps = false;
};

struct tobserved {
  tobserved() {
    store.optreaddefinition(directory.write("DEF", options));
    store.setobserver(&records);
  }
  // Does what the word says with the text; "%DIR%/" is the temporary directory.
  void take(const std::string& word, const std::string& text) {
    const std::string expanded = std::regex_replace(text, std::regex("%DIR%/"), directory.path(""));
    if (word == "file") store.optreadparameterfile(directory.write("OPT", expanded));
    if (word.starts_with("inner") || word == "OPTnewer") directory.write(word, expanded);
    if (word == "newer") records.opensnewer = true;
    if (word == "definition") store.optreaddefinition(directory.write("DEF", expanded));
    if (word == "string") store.optreadfromstr(expanded);
    if (word == "buffer") store.optreadfrompchar(expanded.c_str());
    if (word == "echo") store.optechoset(true);
    if (word == "echolater") records.echoing = &store;
    if (word == "help") store.optshowhelp(expanded);
    if (word == "boolean") store.optsetintnr(4, std::stoi(expanded));
    if (word == "entries") records.showsentries = true;
    if (word == "steps") records.showssteps = true;
    if (word == "notes") records.showsnotes = true;
  }
  std::string seen() const { return std::regex_replace(records.text, std::regex(directory.path("")), ""); }

  testsupport::ttempdir directory;
  trecords records;
  tvksoptions store;
};

void check(const testsupport::ttable& rows) {
  testsupport::eachrow(rows, [](const testsupport::tcolumns& columns) {
    tobserved observed;
    static const std::regex step("([^ ;]+) ?([^;]*?)(?: ; |$)");
    for (std::sregex_iterator at(columns[0].begin(), columns[0].end(), step), end; at != end; ++at)
      observed.take((*at)[1], (*at)[2]);
    EXPECT_EQ(observed.seen(), columns[1]) << columns[0];
  });
}

const testsupport::ttests records("records", {__LINE__, R"~(
    // a mistake in a definition is about the name that its line defines
    definition x widget\ny integer 1 q 0 9 1 1 => Definition DEF:1 'Bad usermap value for option "x"' [x,,] bad reference
      | Definition DEF:1 'Unknown option type "widget" for option "x"' [x,,widget] unknown type
      | Definition DEF:2 'Bad default value for option "y"' [y,,]

    // the entries of a definition are told with their lines; a duplicate is told, too
    entries ; definition x enumstr 1 a 1 1\n\n a 1\nx synonym i\ny group 1 1\nx macro 1 1\n i => 1 option x | 3 value
      | 4 synonym x | 5 group y | Definition DEF:6 'Duplicate option for option "x"' [x,,] duplicate name
      | 6 option x

    // a default that is none of the values
    definition x enumint 1 2 1 1 => Definition DEF:1 'Default is undefined for option "x"' [x,,] undefined default

    // an unknown option is a problem with the name that was typed
    file nosuch 1\n\n-NoSuch 2 => User OPT:1 'Unknown option "nosuch"' [nosuch,,] unknown option
      | User OPT:3 'Unknown option "NoSuch"' [NoSuch,,] unknown option

    // an unknown dot option is a problem with its own name
    file x.none 1 => User OPT:1 'unknown .suffix ".none" for key "x"' [.none,,] unknown dot option
      | User OPT:1 'Option keyword expected, saw "1"'

    // what can neither be part of a name nor separate it from a value is a problem with the name
    file i\x80 1 => User OPT:1 'Bad separator after key "i"' [i,,] bad separator

    // an illegal value is a problem of the option, explained by what is legal
    file old 10\nd 10 => Deprecated OPT:1 'deprecated synonym "old"; use i' [old,i,]
      | Value OPT:1 'Integer range error for option "old" saw "10"' [old,i,10] illegal value
      | Value OPT:1 '   Valid range is 0 to 9' explains
      | Value OPT:2 'Double out of range for option "d" saw "10"' [d,d,10] illegal value
      | Value OPT:2 '   Valid range is 0 to 9' explains
    file e z\nn 3 => Value OPT:1 'Unknown value for option "e" saw "z"' [e,e,z] illegal value
      | Value OPT:1 '   Possible values are  x y' explains
      | Value OPT:2 'Unknown value for option "n" saw "3"' [n,n,3] illegal value
      | Value OPT:2 '   Possible values are  1 2' explains
    boolean 2 => Value 'Boolean out of range for option "b" saw "2"' [b,b,2] illegal value
      | Value '   Valid values are 0 or 1' explains

    // an illegal value that is stored is the same problem
    file bounds 1\ni 10 => Warning OPT:2 'Integer range error for option "i" saw "10"' [i,i,10] illegal value
      | Warning OPT:2 '   Valid range is 0 to 9' explains

    // a text that cannot be a value is not that problem
    file i x\nd x\nb x\ns " => Value OPT:1 'Integer expected, for option "i" saw "x"' [i,i,x]
      | Value OPT:2 'Double expected for option "d" saw "x"' [d,d,x]
      | Value OPT:3 'Boolean value expected for option "b" saw "x"' [b,b,x]
      | Value OPT:4 'Bad double-quote in value' [s,s,"]

    // a word of a multilist is about the member
    file m 1:x => Value OPT:1 'Double expected for option "m" saw "x"' [m,d,x]

    // a step tells the key of a statement with its option, and the options between them
    steps ; file -all 2 => statement all of all | spreads all of all | spreads all of m | has spread all of m
      | has spread all of all
    steps ; file opt\nopt 1\n? => statement opt of opt | takes default opt of opt | statement opt of opt | statement
      | User OPT:3 'Option keyword expected, saw "?"'

    // a dot entry or indicator that is kept is told, one with an error is not
    steps ; file x.dot 1\nx.dot ? => dot line x | dot line x of .dot | kept x of .dot | dot line x
      | dot line x of .dot | Value OPT:2 'Double expected for option ".dot" saw "?"' [.dot,.dot,?]
    steps ; file ind e$v 1\nind e$v => indicator ind | kept ind | indicator ind
      | User OPT:2 'Boolean value expected for equation indicator "e"' [e,,]

    // a mistake in a dot line or an indicator is about its name
    file x.dot('a' 1 => User OPT:1 'Closing bracket ")" expected for .option "x"' [x,,]
    file ind e(*$v 1\nind e$v z => User OPT:1 'Universe not allowed for indicator id "e"' [e,,]
      | User OPT:2 'Boolean value expected for equation indicator "e", Saw "z"' [e,,z]

    // a file that is read by another is reported with the lines that led there
    notes ; inner \ni x ; file \nread %DIR%/inner\ni x => Enter OPT:0 'OPT' | Enter inner:0<OPT:2 'inner'
      | Value inner:2<OPT:2 'Integer expected, for option "i" saw "x"' [i,i,x] | Leave inner:2<OPT:2 'inner'
      | Value OPT:3 'Integer expected, for option "i" saw "x"' [i,i,x] | Leave OPT:3 'OPT'
    inner read none ; string read %DIR%/inner => User inner:1<string 'Cannot open parameter file "none"' [none,,] unusable file
      | User inner:1<string 'Error code = 2; No such file or directory' explains

    // a file that the observer has elsewhere is read there, and is named as before
    newer ; OPTnewer i 1\nread %DIR%/inner ; innernewer \ni x ; inner i 1 ; file i y
      => Value inner:2<OPT:2 'Integer expected, for option "i" saw "x"' [i,i,x]

    // a string and a buffer have no line numbers
    notes ; string i x => Enter string 'string'
      | Value string 'Integer expected, for option "i" saw "x"' [i,i,x] | Leave string 'string'
    buffer i x => Value pchar 'Integer expected, for option "i" saw "x"' [i,i,x]

    // an echoed line has its source as well
    echo ; inner i 2 ; file * c\nread %DIR%/inner
      => Echo OPT:1 ' * c' | Echo OPT:2 ' read inner' | Echo inner:1<OPT:2 ' i 2'
    echolater ; file i 1\ni 2 => Echo OPT:2 ' i 2'

    // help and a message that a line requests have that line
    help i => Help 'i: Help' | Help '<24 >integer,  range: 0 to 9 default: 1'
    file \nhelp b => Help OPT:2 'b: ' | Help OPT:2 '<24 >boolean,  default: 0'
    file say hello => User OPT:1 'hello' [say,say,hello]
)~"},
                                  check);

}  // namespace optcore::observertest

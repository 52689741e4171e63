// Reads a definition file into a store. Problems are filed as messages, and reading continues. Only a line
// with which no definition can begin ends the reading.
//
//   definitionfile = { definition } .
//   definition     = [ "." ] name type [ "." modifier ] rest .
//   rest           = option | synonym | group | marks | indicator | lookup | eolcomm .
//   option         = fields text { continuation } .
//
// Definitions begin in the first column; continuation lines begin with a blank. The scanner (miniparser.h)
// reads lines and tokens; it skips empty lines and lines that begin with "*".
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "input/miniparser.h"
#include "options/vksoptions.h"

namespace optcore {

// Returns 0, or the system's error code if the file cannot be opened; messages are filed then. If it cannot be
// read to its end, messages are filed as well, and the code is returned only when the list has no room for them.
std::int32_t readdefinition(tvksoptions& store, std::string_view filename);

class tdefinitionreader {
 public:
  // All must outlive the reader. The scanner must have its file open. A definition that declares an indicator
  // keyword starts with an empty list of indicators.
  tdefinitionreader(tdefinition& definition, tindicatorlist& indicators, tmessagelist& messages,
                    tminiparser& scanner)
      : fdefinition(definition), findicators(indicators), fmessages(messages), fscanner(scanner) {}

  void read();

 private:
  // The keywords that may follow a name. The option types come first and have the codes of topttype.
  enum class tkeyword : std::int32_t {
    unknown = -1,
    integer,
    dbl,
    string,
    boolean,
    enumstr,
    enumint,
    multilist,
    strlist,
    macro,
    immediate,
    synonym,
    group,
    deprecated,
    obsolete,
    indicator,
    lookup,
    eolcomm
  };
  static tkeyword findkeyword(std::string_view word);
  // The option type of a keyword; none for the other keywords.
  static std::optional<topttype> optiontype(tkeyword keyword);

  // ---- lines
  bool nextline() { return fmore = fscanner.nextline(); }
  // Moves to the next line. Returns whether it continues the definition.
  bool nextcontinuation() { return nextline() && fscanner.ch() == ' '; }
  void endearly();

  // ---- the grammar, top down
  void addhelpoption();
  void definition();
  bool name();
  tkeyword type();
  void modifier(std::string_view word);
  void usermap(std::optional<topttype> type);
  void rest(tkeyword keyword);

  void tell(tkeyword keyword);
  void tell(tentry::tkind kind, std::string_view entryname) {
    if (tstoreobserver* observer = fmessages.observer())
      observer->begun({kind, entryname, fscanner.linenr()});
  }

  void integeroption();
  void dbloption();
  void stringoption();
  void booleanoption();
  void enumstroption();
  void enumintoption();
  void multilistoption();
  void strlistoption();
  void macrooption();
  void immediateoption();
  void helplines(toption& option);
  void enumstrvalues(tenumstroption& option);
  void enumintvalues(tenumintoption& option);
  void multilistmembers(tmultilistoption& option);
  void macromembers(tmacrooption& option);

  void synonym();
  void group();
  void marks(tdeprecation ownname, tdeprecation itssynonym);
  void indicator();
  void lookup();
  void eolcomm();

  // ---- fields
  void integerfield(std::int32_t& field, std::string_view problem) {
    if (!fscanner.nextinteger(field)) error(problem);
  }
  void doublefield(double& field, std::string_view problem) {
    if (!fscanner.nextdouble(field)) error(problem);
  }
  void hcandgroup(std::string_view hcproblem);
  toptionhead head();
  template <class tclass, class... targuments>
  std::unique_ptr<tclass> make(const targuments&... arguments);
  toption& add(std::unique_ptr<toption> option) {
    return fdefinition.addoption(std::move(option), fsoughtname);
  }

  // Files a definition error; its text ends with the name of the definition.
  void error(std::string_view problem, tsubject::tproblem kind = tsubject::tproblem::other,
             std::string_view value = {});

  tdefinition& fdefinition;
  tindicatorlist& findicators;
  tmessagelist& fmessages;
  tminiparser& fscanner;
  bool fmore = false;  // the scanner is at a line that is still to be read

  // The fields that were read last. They keep their values from line to line: where a token is missing, the
  // value of an earlier line is used.
  shortstring fname;
  tsoughtname fsoughtname{std::string_view()};  // views fname; set for options only
  tsubtype fmodifier = tsubtype::required;
  std::int32_t fusermap = 0;
  std::int32_t fdefault = 0;
  std::int32_t flow = 0;
  std::int32_t fhigh = 0;
  double fdbldefault = 0.0;
  double fdbllow = 0.0;
  double fdblhigh = 0.0;
  std::int32_t fhc = 0;
  std::int32_t fgroup = 0;
  std::int32_t fenumvalue = 0;
};

}  // namespace optcore

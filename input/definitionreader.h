// Reads a definition file into a store. Every problem is a message; none ends the reading but a line that no
// definition can begin with.
//
//   definitionfile = { definition } .
//   definition     = [ "." ] name type [ "." modifier ] rest .
//   rest           = option | synonym | group | marks | indicator | lookup | eolcomm .
//   option         = fields text { continuation } .
//
// Definitions begin in the first column; continuation lines begin with a blank. Empty lines and lines that
// begin with "*" are passed over by the scanner.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "input/miniparser.h"
#include "options/vksoptions.h"

namespace optcore {

// Returns 0, or the system's code of a file that cannot be opened; there are messages then.
std::int32_t readdefinition(tvksoptions& store, std::string_view filename);

class tdefinitionreader {
 public:
  // Both must outlive the reader; the scanner has its file open.
  tdefinitionreader(tvksoptions& store, tminiparser& scanner)
      : fstore(store), fdefinition(store.definition()), fscanner(scanner) {}

  void read();

 private:
  // The words after a name, in the order of their codes: the option types first.
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
  // The type of a keyword that is one of an option type.
  static std::optional<topttype> optiontype(tkeyword keyword);

  // ---- lines
  bool nextline() { return fmore = fscanner.nextline(); }
  // Moves to the next line; true if it continues the definition.
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

  // Files a definition error with the name of the definition at its end.
  void error(std::string_view problem);

  tvksoptions& fstore;
  tdefinition& fdefinition;
  tminiparser& fscanner;
  bool fmore = false;  // the scanner stands on a line that is still to be read

  // What was read last. Lines leave these fields as they are where a token is missing, so that the value of
  // an earlier line stands.
  shortstring fname;
  tsoughtname fsoughtname{{}};  // views fname, of an option
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

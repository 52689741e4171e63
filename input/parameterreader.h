// Reads parameter text into a store: a parameter file (which users call an option file), a short string or a
// zero-terminated text. Problems are filed as messages, and reading continues with the next statement or
// line.
//
//   parametertext = { line } .
//   line          = { statement } .
//   statement     = [ "," ] key ( dotline | indicatorline | listvalue | immediate | ordinary ) .
//   key           = { "-" | "/" } identifier .
//   listvalue     = [ "=" | ":=" ] value .
//   immediate     = [ "=" | ":=" ] [ value ] .
//   ordinary      = [ [ "=" | ":=" ] value [ value ] ] .
//   dotline       = "." identifier [ elements ] [ "=" | ":=" ] value .
//   indicatorline = identifier [ elements ] "$" identifier [ elements ] [ "=" | ":=" ] boolean .
//   elements      = "(" element { "," element } ")" , or in [] or {} .
//
// In normal mode a value is one token and statements follow each other on a line; in end-of-line mode a value
// is the rest of the line.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "input/bytesread.h"
#include "input/miniparser.h"
#include "options/vksoptions.h"

namespace optcore {

// One call that reads parameter text: a file or a text, and all files that it includes. It limits how deep
// they nest, how many are read, how much is read again, how long they are waited for, and how much help they
// ask for.
class tparameterreading {
 public:
  // The store must outlive the reading.
  explicit tparameterreading(tvksoptions& store) : fstore(store) {}
  tparameterreading(const tparameterreading&) = delete;
  tparameterreading& operator=(const tparameterreading&) = delete;

  // Returns 0, or the system's error code if the file cannot be opened; messages are filed then.
  std::int32_t readfile(std::string_view filename);
  // Reads at most 255 characters.
  void readstring(std::string_view text);
  void readpchar(const char* text);
  // Answers a request for help in the text that is read.
  void showhelp(std::string_view request);

  // The system's error code of the first file that could be opened but not read to its end, and for whose
  // messages the list had no room; 0 if there is none.
  std::int32_t unreported() const noexcept { return funreported; }

 private:
  // Once help has cost more than this, further requests are refused.
  static constexpr std::int64_t mosthelp = 1024 * 1024;

  std::int32_t refuse(std::string_view filename);
  void ignorefile(tminiparser& scanner);
  void keepunreported(std::int32_t code) noexcept;
  void readtext(tminiparser& scanner);
  void parsefile(tminiparser& scanner);
  void parse(tminiparser& scanner);
  void fileproblem(std::string_view problem, std::string_view filename, std::int32_t code);

  tvksoptions& fstore;
  twaiting fwaiting;
  tbytesread fbytes;
  std::int64_t fhelp = 0;       // what help has cost, see thelplisting::cost
  std::int32_t fnestlevel = 0;  // how deep the open files nest
  std::int32_t ffilesread = 0;  // how many files this call has read or ignored
  std::int32_t funreported = 0;
};

class tparameterreader {
 public:
  // All three must outlive the reader.
  tparameterreader(tvksoptions& store, tminiparser& scanner, tparameterreading& reading)
      : fstore(store), fscanner(scanner), freading(reading), feolonly(store.eolonly()) {}

  void parse();

 private:
  // A value that may be missing. A missing value is not the same as an empty one.
  using tvalue = std::optional<std::string_view>;

  // ---- the grammar: a function returns whether reading continues on the same line
  bool statement();
  bool dispatch(std::int32_t dashes);
  void dotline();
  void indicatorline();
  void listvalue(toption& option);
  void immediate(const timmediateoption& option);
  bool ordinary(toption& option);
  bool unknownkey();

  void tokenasvalue(toption& option);
  void restasvalue(toption& option);
  void twovalues(toption& option);

  bool nokey();
  bool badseparator(std::string_view key);
  void novalue(const toption& option);
  void ignoredrest(const toption& option);
  void setkey(std::string_view identifier, std::int32_t dashes);
  bool isindicatorkeyword() const {
    return !definition().dotname().empty() && struequal(fkey, definition().dotname());
  }
  toption* findoption();
  toption* findjoined();
  toption& addlist();
  // Files a warning if the key is the option's own name and that is marked as deprecated or obsolete, or if
  // the key is a synonym and the synonyms are. Returns false for the mark obsolete: the value is not stored
  // then.
  bool checkdeprecation(const toption& option) {
    return !option.hasdeprecation() || reportdeprecation(option);
  }
  bool reportdeprecation(const toption& option);
  tvalue token();
  std::string_view restvalue();
  std::string_view quotedrest();

  // ---- dot lines and indicator lines (symbollines.cpp)
  void dotentry(std::int32_t optionindex);
  bool dotelements();
  bool indicatoritem();
  bool equation();
  bool variable();
  bool indicatorvalue();
  bool opensbracket(char& closer);
  bool nextelement(char closer, bool& more);
  template <class taddelement>
  void indicatorelements(std::string_view name, taddelement addelement);

  tdefinition& definition() const noexcept { return fstore.definition(); }
  tmessagelist& messages() const noexcept { return fstore.messages(); }
  void error(std::string_view text) { messages().addmessage(tmsgkind::usererror, text); }
  void error(std::string_view text, const tsubject& subject) {
    messages().addmessage(tmsgkind::usererror, text, subject);
  }

  tvksoptions& fstore;
  tminiparser& fscanner;
  tparameterreading& freading;
  bool feolonly;          // the current mode; an immediate option may change it
  std::string_view fkey;  // the key of the statement, without signs or with exactly two dashes
  // Buffers for a key and a value that are not contained in the line as they are.
  shortstring fkeytext;
  shortstring fresttext;
};

}  // namespace optcore

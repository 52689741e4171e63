// The doc command: writes a definition in another form. The writers of the library make some forms
// (definition, pascal, html); the functions in doc/ make the others.
#include <iostream>

#include "base/systemerror.h"
#include "output/textfile.h"
#include "output/vksoptionwriter.h"
#include "tools/commands.h"
#include "tools/doc/documents.h"
#include "tools/reading/reading.h"
#include "tools/text.h"

namespace tool {

namespace {

std::int32_t writetext(const std::string& path, const std::string& text) {
  optcore::ttextfile file;
  file.open(path);
  file.write(text);
  return file.close();
}

treference described(const treading& reading, const tdocarguments& arguments) {
  treference result = describe(reading.store(), reading.definition());
  result.title = utf8(arguments.title);
  result.release = utf8(arguments.release);
  return result;
}

// Returns 0, or the operating system's error code if the file cannot be written.
std::int32_t write(const treading& reading, const tdocarguments& arguments, const std::string& path) {
  const optcore::tvksoptionwriter writer(reading.store().definition());
  switch (arguments.form) {
    case tdocform::definition: return writer.writedefinition(path);
    case tdocform::pascal: return writer.writedelphiinc(path);
    case tdocform::html: return writer.writeashtml(path);
    case tdocform::c: return writetext(path, cdocument(described(reading, arguments)));
    case tdocform::markdown: return writetext(path, markdowndocument(described(reading, arguments)));
    case tdocform::json: return writetext(path, jsondocument(described(reading, arguments)));
    case tdocform::page: return writetext(path, pagedocument(described(reading, arguments)));
  }
  return 0;
}

// Prints an error and returns false if the file cannot be written.
bool writeoutput(const treading& reading, const tdocarguments& arguments) {
  std::int32_t code = 0;
  if (arguments.output == "-") {
    const ttemporaryfile file;
    code = write(reading, arguments, file.path());
    if (code == 0) std::cout << file.contents();
  } else {
    code = write(reading, arguments, arguments.output);
  }
  if (code != 0)
    std::cerr << printable(arguments.output)
              << ": error: cannot write the file: " << optcore::systemerrortext(code) << '\n';
  return code == 0;
}

// Whether the file would compile, or is to be written all the same. What is wrong with it becomes findings.
bool compiles(treading& reading, const tdocarguments& arguments) {
  std::vector<std::string> problems;
  if (arguments.form == tdocform::c) problems = cproblems(described(reading, arguments));
  if (arguments.form == tdocform::pascal) problems = pascalproblems(reading.store().definition());
  for (const std::string& problem : problems)
    reading.add({{reading.definition()}, arguments.force ? tseverity::warning : tseverity::error, problem});
  return problems.empty() || arguments.force;
}

// Returns false only if the file cannot be written.
bool document(treading& reading, const tdocarguments& arguments) {
  return !compiles(reading, arguments) || writeoutput(reading, arguments);
}

}  // namespace

int run(const tdocarguments& arguments) {
  treading reading;
  const bool written = !reading.readdefinition(arguments.definition) || document(reading, arguments);
  const int code = reportproblems(reading.findings());
  return written ? code : exitunusable;
}

}  // namespace tool

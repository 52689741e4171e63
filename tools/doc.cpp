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

// Returns 0, or the operating system's error code if the file cannot be written.
std::int32_t write(const treading& reading, tdocform form, const std::string& path) {
  const optcore::tvksoptions& store = reading.store();
  const optcore::tvksoptionwriter writer(store.definition());
  switch (form) {
    case tdocform::definition: return writer.writedefinition(path);
    case tdocform::pascal: return writer.writedelphiinc(path);
    case tdocform::html: return writer.writeashtml(path);
    case tdocform::c: return writetext(path, cdocument(describe(store, reading.definition())));
    case tdocform::markdown: return writetext(path, markdowndocument(describe(store, reading.definition())));
    case tdocform::json: return writetext(path, jsondocument(describe(store, reading.definition())));
    case tdocform::page: return writetext(path, pagedocument(describe(store, reading.definition())));
  }
  return 0;
}

// Prints an error and returns false if the file cannot be written.
bool writeoutput(const treading& reading, const tdocarguments& arguments) {
  std::int32_t code = 0;
  if (arguments.output == "-") {
    const ttemporaryfile file;
    code = write(reading, arguments.form, file.path());
    if (code == 0) std::cout << file.contents();
  } else {
    code = write(reading, arguments.form, arguments.output);
  }
  if (code != 0)
    std::cerr << printable(arguments.output)
              << ": error: cannot write the file: " << optcore::systemerrortext(code) << '\n';
  return code == 0;
}

// Returns false only if the file cannot be written. The reasons for a refused document become findings.
bool document(treading& reading, const tdocarguments& arguments) {
  try {
    return writeoutput(reading, arguments);
  } catch (const trefuseddocument& refused) {
    for (const std::string& reason : refused.reasons())
      reading.add({.place = {reading.definition()},
                   .severity = tseverity::error,
                   .rule = "document",
                   .text = reason});
    return true;
  }
}

}  // namespace

int run(const tdocarguments& arguments) {
  treading reading;
  const bool written = !reading.readdefinition(arguments.definition) || document(reading, arguments);
  const int code = reportproblems(reading.findings());
  return written ? code : exitunusable;
}

}  // namespace tool

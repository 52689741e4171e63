// The doc command: writes a definition in another form. The writers of the library make some forms
// (definition, pascal, html); the functions in doc/ make the others.
#include <functional>
#include <system_error>

#include "output/vksoptionwriter.h"
#include "tools/commands.h"
#include "tools/doc/documents.h"
#include "tools/reading/reading.h"
#include "tools/writing/deliver.h"

namespace tool {

namespace {

// Returns what a writer of the library writes.
std::string writtenby(const std::function<std::int32_t(const std::string& path)>& writer) {
  const ttemporaryfile file;
  if (const std::int32_t code = writer(file.path()); code != 0)
    throw std::system_error(code, std::generic_category(), "cannot write a temporary file");
  return file.contents();
}

std::string document(const treading& reading, tdocform form) {
  const optcore::tvksoptions& store = reading.store();
  const optcore::tvksoptionwriter writer(store.definition());
  switch (form) {
    case tdocform::definition:
      return writtenby([&](const auto& path) { return writer.writedefinition(path); });
    case tdocform::pascal: return writtenby([&](const auto& path) { return writer.writedelphiinc(path); });
    case tdocform::html: return writtenby([&](const auto& path) { return writer.writeashtml(path); });
    case tdocform::c: return cdocument(describe(store, reading.definition()));
    case tdocform::markdown: return markdowndocument(describe(store, reading.definition()));
    case tdocform::json: return jsondocument(describe(store, reading.definition()));
    case tdocform::page: return pagedocument(describe(store, reading.definition()));
  }
  return {};
}

// The reasons for a refused document become findings.
void write(treading& reading, tdocform form, const toutputfile& output) {
  try {
    deliver(output, document(reading, form), reading);
  } catch (const trefuseddocument& refused) {
    for (const std::string& reason : refused.reasons())
      reading.add({.place = {reading.definition()},
                   .severity = tseverity::error,
                   .rule = "document",
                   .text = reason});
  }
}

}  // namespace

int run(const tdocarguments& arguments) {
  const toutputfile output(arguments.output);
  treading reading;
  if (sparesfiles(output, filesof({arguments.definition, {}, {}}), reading) &&
      reading.readdefinition(arguments.definition))
    write(reading, arguments.form, output);
  return reportproblems(reading.findings());
}

}  // namespace tool

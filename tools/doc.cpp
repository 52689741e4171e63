// The doc command: writes a definition in another form. The writers of the library make some forms
// (definition, pascal, html); the functions in doc/ make the others.
#include <functional>
#include <system_error>

#include "output/vksoptionwriter.h"
#include "tools/commands.h"
#include "tools/doc/documents.h"
#include "tools/groups.h"
#include "tools/text.h"
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

treference described(const treading& reading, const tdocarguments& arguments) {
  treference result = describe(reading.store(), reading.definition());
  result.title = utf8(arguments.title);
  result.release = utf8(arguments.release);
  return result;
}

// For the documents that have the listed options alone.
treference describedlisted(treading& reading, const tdocarguments& arguments) {
  treference result = described(reading, arguments);
  warnifnoneislisted(result, reading);
  return result;
}

std::string document(treading& reading, const tdocarguments& arguments) {
  const optcore::tvksoptionwriter writer(reading.store().definition());
  switch (arguments.form) {
    case tdocform::definition:
      return writtenby([&](const auto& path) { return writer.writedefinition(path); });
    case tdocform::pascal: return writtenby([&](const auto& path) { return writer.writedelphiinc(path); });
    case tdocform::html: return writtenby([&](const auto& path) { return writer.writeashtml(path); });
    case tdocform::c: return cdocument(described(reading, arguments));
    case tdocform::markdown: return markdowndocument(describedlisted(reading, arguments));
    case tdocform::json: return jsondocument(described(reading, arguments));
    case tdocform::page: return pagedocument(describedlisted(reading, arguments));
  }
  return {};
}

// Whether the file would compile, or is to be written all the same. What is wrong with it becomes findings.
bool compiles(treading& reading, const tdocarguments& arguments) {
  std::vector<std::string> problems;
  if (arguments.form == tdocform::c) problems = cproblems(described(reading, arguments));
  if (arguments.form == tdocform::pascal) problems = pascalproblems(reading.store().definition());
  for (const std::string& problem : problems)
    reading.add({.place = {reading.definition()},
                 .severity = arguments.force ? tseverity::warning : tseverity::error,
                 .rule = "document",
                 .text = problem});
  return problems.empty() || arguments.force;
}

}  // namespace

int run(const tdocarguments& arguments) {
  const toutputfile output(arguments.output);
  treading reading;
  if (sparesfiles(output, filesof({arguments.definition, {}, {}}), reading) &&
      reading.readdefinition(arguments.definition) && compiles(reading, arguments))
    deliver(output, document(reading, arguments), reading);
  return reportproblems(reading.findings());
}

}  // namespace tool

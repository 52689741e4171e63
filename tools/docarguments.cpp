// The command line of doc.
#include "tools/commandline.h"
#include "tools/swapped.h"

namespace tool {

namespace {

const std::map<std::string, tdocform>& docforms() {
  static const std::map<std::string, tdocform> forms = {
      {"definition", tdocform::definition},
      {"pascal", tdocform::pascal},
      {"html", tdocform::html},
      {"c", tdocform::c},
      {"markdown", tdocform::markdown},
      {"page", tdocform::page},
      {"json", tdocform::json},
  };
  return forms;
}

}  // namespace

const CLI::App& adddoc(CLI::App& app, tdocarguments& arguments) {
  CLI::App& command = addcommand(app, "doc", "Write a definition in another form");
  command
      .add_option_function<std::string>(
          "FORM", [&arguments](const std::string& form) { arguments.form = docforms().at(form); },
          "definition (a definition file), pascal (an include file with the option numbers),\n"
          "html (a table), c (a header with the numbers of options and values), markdown (a reference),\n"
          "page (the reference as one HTML page that can be searched)\n"
          "or json (the whole definition, for programs)")
      ->required()
      ->type_name("")
      ->check([](const std::string& form) {
        const std::string problem = checkword(form, keysof(docforms()));
        return problem.empty() ? problem : problem + swappedform(form);
      });
  adddefinition(command, arguments.definition);
  addoutput(command, arguments.output);
  command.add_option("--title", arguments.title, "Title of the document (markdown and page only)")
      ->type_name("TEXT");
  command
      .add_option(
          "--release", arguments.release,
          "Version and date of the solver, as in --release \"4.2, May 2026\"\n(markdown and page only)")
      ->type_name("TEXT");
  command.add_flag("--force", arguments.force,
                   "Write a file that does not compile, with warnings (pascal and c only)");
  return command;
}

std::string strayflag(const tdocarguments& arguments) {
  const bool titled = arguments.form == tdocform::markdown || arguments.form == tdocform::page;
  const bool compiled = arguments.form == tdocform::pascal || arguments.form == tdocform::c;
  if (!titled && !arguments.title.empty()) return "--title";
  if (!titled && !arguments.release.empty()) return "--release";
  return !compiled && arguments.force ? "--force" : "";
}

}  // namespace tool

// doc: a definition in a form for those who maintain or program against it.
#include <iostream>

#include "api/handle.h"
#include "base/systemerror.h"
#include "output/vksoptionwriter.h"
#include "tools/commands.h"
#include "tools/reading.h"
#include "tools/text.h"

namespace tool {

namespace {

std::int32_t write(const wexcorin::tvksoptionwriter& writer, tdocform form, const std::string& path) {
  switch (form) {
    case tdocform::definition: return writer.writedefinition(path);
    case tdocform::pascal: return writer.writedelphiinc(path);
    case tdocform::html: return writer.writeashtml(path);
  }
  return 0;
}

// False when the file cannot be written; that has been said then.
bool document(const treading& reading, const tdocarguments& arguments) {
  const wexcorin::tvksoptionwriter writer(*reading.handle().get());
  std::int32_t code = 0;
  if (arguments.output == "-") {
    const ttemporaryfile file;
    code = write(writer, arguments.form, file.path());
    if (code == 0) std::cout << file.contents();
  } else {
    code = write(writer, arguments.form, arguments.output);
  }
  if (code != 0)
    std::cerr << printable(arguments.output)
              << ": error: cannot write the file: " << wexcorin::systemerrortext(code) << '\n';
  return code == 0;
}

}  // namespace

int run(const tdocarguments& arguments) {
  treading reading;
  const bool written = !reading.readdefinition(arguments.definition) || document(reading, arguments);
  const int code = reportproblems(reading.finish());
  return written ? code : exitunusable;
}

}  // namespace tool

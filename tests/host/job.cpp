// The work of a client: calls of every family, numbers and texts of all kinds, every mistake in the examples.
#include "host/job.h"

#include <cmath>
#include <fstream>
#include <sstream>

namespace host {
namespace {

constexpr double numbers[] = {
    0.1,       -0.0, 333333333333333.31, 0.66666666666666663, 1e-320, 1.7976931348623157e308,
    123456.75, 1e22, HUGE_VAL,           -HUGE_VAL,           NAN};
constexpr const char* texts =
    "0.1 1e400 -1e400 1e-400 0.30000000000000004 2.5d-7 123456789012345678901234567890 1,5 nan inf -0 "
    "9007199254740993 4.9e-324 maxdouble 1e-05 1. .5 +3 2147483648 -2147483649";

std::string takemessages(wexcorin::options& options) {
  std::string result;
  for (const auto& message : options.messages()) result += message.text + '\n';
  options.clearmessages();
  return result;
}

std::string written(wexcorin::options& options, const std::string& name) {
  const std::int32_t code = options.writeparameterfile(name);
  std::ostringstream text;
  text << code << '\n' << std::ifstream(name, std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace

wexcorin::options begin() {
  wexcorin::options options("examples/solver.def");
  options.readparameterfile("examples/solver.opt");
  return options;
}

std::string finish(wexcorin::options& options, const std::string& name) {
  for (const std::string file : {"solver_mistakes.opt", "solver_loop.opt", "none.opt"})
    options.readparameterfile("examples/" + file);
  std::string log = takemessages(options);
  // Every number and every text is set to every seventh option, whether it takes them or not.
  for (std::int32_t option = 1; option <= static_cast<std::int32_t>(options.all().size()); option += 7) {
    const wexcorin::option described = options.describe(option).value();
    if (described.type == optTypeImmediate) continue;
    for (const double value : numbers) {
      log += std::to_string(options.set(option, value)) + '\n';
      if (described.type <= optTypeEnumInt) log += options.text(option).value() + '\n';
    }
    std::istringstream words(texts);
    for (std::string word; words >> word;) log += std::to_string(options.set(option, word)) + '\n';
    if (described.subtype == optsub2Values)
      log += std::to_string(options.set2(option, -1)) + ' ' + options.text2(option).value() + '\n';
    log += takemessages(options);
  }
  for (const char* request : {"11", "gap_window"}) options.showhelp(request);
  log += takemessages(options) + written(options, name);
  options.resetall();
  log += std::to_string(options.readparameterfile(name)) + '\n' + written(options, name);
  return log + std::to_string(options.messages().size());
}

std::string dojob(const std::string& written) {
  wexcorin::options options = begin();
  return finish(options, written);
}

}  // namespace host

// The entry point of the job as a shared library, like a solver that a modelling system loads. It does the
// job, copies the result to `text`, as far as there is room, and returns the number of bytes. If `written` is
// null, it only creates a handle and frees it.
extern "C" __attribute__((visibility("default"))) std::size_t runclient(const char* written, char* text,
                                                                        std::size_t size) {
  if (written != nullptr) return ::host::dojob(written).copy(text, size);
  wexcorin::options().read("help 3 --list x");
  return 0;
}

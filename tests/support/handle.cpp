// Temporary files of the tests, and queries of handles.
#include "support/handle.h"

#include <stdlib.h>

#include <fstream>
#include <iterator>

namespace testsupport {
namespace {

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

}  // namespace

std::string joined(const tlines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

std::string readfile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

ttempdir::ttempdir() {
  std::string name = (std::filesystem::temp_directory_path() / "wexcorin-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::filesystem::filesystem_error("mkdtemp", name, {});
  fpath = name;
}

ttempdir::~ttempdir() {
  std::error_code ignored;
  std::filesystem::remove_all(fpath, ignored);
}

// Paths of the system's library would compute, which a test of what the host traps cannot have.
std::string ttempdir::path(std::string_view name) const { return fpath.native() + '/' + std::string(name); }

std::string ttempdir::write(std::string_view name, std::string_view bytes) const {
  std::ofstream(path(name), std::ios::binary) << bytes;
  return path(name);
}

std::string thandle::expanded(std::string_view text) const {
  return replaced(std::string(text), "%DIR%/", fdirectory.path(""));
}
std::string thandle::shortened(std::string_view text) const {
  return replaced(std::string(text), fdirectory.path(""), "");
}

int thandle::definition(std::string_view text) {
  return call(BOTH(readdefinition), fdirectory.write("DEF", expanded(text)));
}
int thandle::parameters(std::string_view text) {
  return call(BOTH(readparameterfile), fdirectory.write("OPT", expanded(text)));
}
void thandle::string(std::string_view text) { call(BOTH(readfromstr), expanded(text)); }

tlines thandle::messages() {
  tlines result;
  for (std::int32_t nr = 1; nr <= one(optmessagecount); ++nr) {
    std::string text;
    std::int32_t kind = -1;
    call(BOTH(getmessage), nr, text, kind);
    result.push_back(shortened(text));
  }
  return result;
}

tlines thandle::help(const std::string& request) {
  const std::ptrdiff_t before = one(optmessagecount);
  call(BOTH(showhelp), request);
  const tlines all = messages();
  return {all.begin() + before, all.end()};
}

std::string thandle::written() {
  const std::string path = fdirectory.path("WRITTEN");
  EXPECT_EQ(coptwriteparameterfile(handle(0), path.c_str()), 0);
  const std::string first = readfile(path);
  EXPECT_EQ(call(BOTH(writeparameterfile), path), 0);
  EXPECT_EQ(readfile(path), first);
  return first;
}

int thandle::number(const std::string& name) {
  std::int32_t nr = 0, refnr = 0;
  call(BOTH(findstr), name, nr, refnr);
  return nr;
}

std::string thandle::value(const std::string& name) {
  std::string text, second;
  if (call(BOTH(getvalstr), name, text) == 0) return "?";
  return call(BOTH(getval2str), name, second) != 0 ? text + '|' + second : text;
}

}  // namespace testsupport

void bothforms::fail(const char* file, int line, const char* condition, std::initializer_list<tseen> seen) {
  std::string all;
  for (const tseen& each : seen) all += each.text + '\n';
  ADD_FAILURE_AT(file, line) << "does not hold: " << condition << '\n' << all;
}
void bothforms::beforecall() {}

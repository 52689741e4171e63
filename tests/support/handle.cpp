// Text conversion, guarded buffers and temporary files of the tests, and what a handle can be asked.
#include "support/handle.h"

#include <stdlib.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

#include "support/bothforms.h"

namespace testsupport {
namespace {

constexpr unsigned char guardbyte = 0xA5;

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

}  // namespace

const char* const everytype =
    "maxit integer 1 5 0 10 1 1\nbig_step double 2 0.5 0 1e20 1 1\nnote string 3 none 1 1\n"
    "flag boolean 4 0 1 1\nmethod enumstr 5 auto 1 1\n auto 1\n Primal 1\n \"two words\" 1\n"
    "level enumint 6 1 1 1\n 1 1\n 2 1\nquiet integer.nv 7 1 0 1 1 1\ntrace integer.opt 8 4 0 9 1 1\n"
    "pair integer.two 9 1 0 10 1 1\nspan double.two 10 0 mindouble maxdouble 1 1\n"
    "both enumstr.two 11 a 1 1\n a 1\n \"b c\" 1\nstring_list strlist 12 1 1\nwords multilist 13 1 1\n"
    " maxit note\nall macro 1 1\n maxit\n flag\nlimits immediate NoBounds 1 1\n"
    "free immediate NoBounds 1 1\n.prior double 14 1 0 100 1 1\n.mark integer 15 1 0 9 1 1\n"
    "indic indicator\n";

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

std::string ttempdir::path(std::string_view name) const { return (fpath / name).string(); }

std::string ttempdir::write(std::string_view name, std::string_view bytes) const {
  std::ofstream(path(name), std::ios::binary) << bytes;
  return path(name);
}

targument<const optshortstring*>::targument(std::string_view text) {
  ftext.emplace();
  ftext->length = static_cast<unsigned char>(text.copy(ftext->text, sizeof ftext->text));
}

ttextout::ttextout(std::string& text, tform form) : ftext(text), fform(form) {
  fbuffer.fill(guardbyte);
  ftext.resize(std::min<std::size_t>(ftext.size(), 255));
  const std::string before =
      fform == tform::shortstring ? static_cast<char>(ftext.size()) + ftext : ftext + '\0';
  std::copy(before.begin(), before.end(), buffer());
}

ttextout::~ttextout() {
  const auto isguard = [](unsigned char byte) { return byte == guardbyte; };
  EXPECT_TRUE(std::all_of(fbuffer.begin(), fbuffer.begin() + guardsize, isguard))
      << "written before the buffer";
  EXPECT_TRUE(std::all_of(fbuffer.end() - guardsize, fbuffer.end(), isguard)) << "written past byte 256";
  const char* const start = reinterpret_cast<const char*>(buffer());
  const std::size_t length = strnlen(start, 256);
  EXPECT_TRUE(fform == tform::shortstring || length < 256) << "no terminator";
  ftext = fform == tform::shortstring ? std::string(start + 1, *buffer()) : std::string(start, length);
}

thandle::thandle(tform form) : fform(form) { EXPECT_EQ(xcreate(&fhandle), fhandle); }

thandle::~thandle() {
  xfree(&fhandle);
  EXPECT_EQ(fhandle, nullptr);
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
void thandle::file(std::string_view name, std::string_view text) { fdirectory.write(name, expanded(text)); }

tlines thandle::messages() {
  tlines result;
  for (std::int32_t nr = 1; nr <= optmessagecount(fhandle); ++nr) {
    std::string text;
    std::int32_t kind = -1;
    call(BOTH(getmessage), nr, text, kind);
    result.push_back(shortened(text));
  }
  return result;
}

tlines thandle::takemessages() {
  tlines result = messages();
  optclearmessages(fhandle);
  return result;
}

tlines thandle::help(const std::string& request) {
  const std::ptrdiff_t before = optmessagecount(fhandle);
  call(BOTH(showhelp), request);
  const tlines all = messages();
  return {all.begin() + before, all.end()};
}

std::string thandle::written() {
  const std::string path = fdirectory.path("WRITTEN");
  EXPECT_EQ(call(BOTH(writeparameterfile), path), 0);
  return readfile(path);
}

int thandle::number(const std::string& name) {
  std::int32_t nr = 0;
  std::int32_t refnr = 0;
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

// Text conversion, guarded buffers and temporary files of the tests, and what a handle can be asked.
#include "support/handle.h"

#include <stdlib.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

namespace testsupport {
namespace {

constexpr unsigned char guardbyte = 0xA5;

void replaceall(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
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

std::string ttempdir::path(std::string_view name) const { return (fpath / name).string(); }

std::string ttempdir::write(std::string_view name, std::string_view bytes) const {
  std::ofstream(path(name), std::ios::binary) << bytes;
  return path(name);
}

bool setcommalocale() {
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "nl_NL.UTF-8"})
    if (std::setlocale(LC_ALL, name) != nullptr) return true;
  const ttempdir directory;
  directory.write("source",
                  "comment_char %\nescape_char /\nLC_NUMERIC\ndecimal_point \",\"\n"
                  "thousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n");
  const std::string command = "cd '" + directory.path("") +
                              "' && localedef -c --no-archive -f ANSI_X3.4-1968 -i source ./comma >out 2>&1";
  if (std::system(command.c_str()) == -1) return false;
  setenv("LOCPATH", directory.path("").c_str(), 1);
  std::setlocale(LC_NUMERIC, "comma");
  unsetenv("LOCPATH");
  return *std::localeconv()->decimal_point == ',';
}

targument<const optshortstring*>::targument(std::string_view text) {
  ftext.length = static_cast<unsigned char>(std::min<std::size_t>(text.size(), sizeof ftext.text));
  std::copy_n(text.begin(), ftext.length, ftext.text);
}

ttextout::ttextout(std::string& text, tform form) : ftext(text), fform(form) {
  fbuffer.fill(guardbyte);
  if (ftext.size() > 255) ftext.resize(255);
  const bool isshort = form == tform::shortstring;
  if (isshort) *buffer() = static_cast<unsigned char>(ftext.size());
  std::copy(ftext.begin(), ftext.end(), buffer() + (isshort ? 1 : 0));
  if (!isshort) buffer()[ftext.size()] = 0;
}

ttextout::~ttextout() {
  const auto isguard = [](unsigned char byte) { return byte == guardbyte; };
  EXPECT_TRUE(std::all_of(fbuffer.begin(), fbuffer.begin() + guardsize, isguard))
      << "written before the buffer";
  EXPECT_TRUE(std::all_of(fbuffer.end() - guardsize, fbuffer.end(), isguard)) << "written past byte 256";
  const char* const start = reinterpret_cast<const char*>(buffer());
  const std::size_t length = strnlen(start, 256);
  EXPECT_TRUE(fform == tform::shortstring || length < 256) << "no terminator";
  if (fform == tform::shortstring)
    ftext.assign(start + 1, *buffer());
  else
    ftext.assign(start, length);
}

thandle::thandle(tform form) : fform(form) {
  tvksoptions* const created = xcreate(&fhandle);
  EXPECT_NE(created, nullptr);
  EXPECT_EQ(created, fhandle);
}

thandle::~thandle() {
  xfree(&fhandle);
  EXPECT_EQ(fhandle, nullptr);
}

std::string thandle::expanded(std::string_view text) const {
  std::string result(text);
  replaceall(result, "%DIR%", fdirectory.path("").substr(0, fdirectory.path("").size() - 1));
  return result;
}

std::string thandle::shortened(std::string text) const {
  replaceall(text, fdirectory.path(""), "");
  return text;
}

int thandle::definition(std::string_view text) {
  return readdefinition(fdirectory.write("DEF", expanded(text)));
}
int thandle::parameters(std::string_view text) {
  return readparameterfile(fdirectory.write("OPT", expanded(text)));
}
void thandle::string(std::string_view text) {
  invoke(fform, optreadfromstr, coptreadfromstr, fhandle, expanded(text));
}
void thandle::pchar(const std::string& text) { optreadfrompchar(fhandle, expanded(text).c_str()); }
void thandle::file(std::string_view name, std::string_view text) { fdirectory.write(name, expanded(text)); }

tlines thandle::messages() {
  tlines result;
  for (std::int32_t nr = 1; nr <= optmessagecount(fhandle); ++nr) {
    std::string text;
    std::int32_t kind = -1;
    getmessage(nr, text, kind);
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
  showhelp(request);
  const tlines all = messages();
  return {all.begin() + before, all.end()};
}

std::string thandle::written() {
  const std::string path = fdirectory.path("WRITTEN");
  EXPECT_EQ(writeparameterfile(path), 0);
  return readfile(path);
}

int thandle::number(const std::string& name) {
  std::int32_t nr = 0;
  std::int32_t refnr = 0;
  findstr(name, nr, refnr);
  return nr;
}

std::string thandle::value(const std::string& name) {
  std::string text;
  return getvalstr(name, text) != 0 ? text : "?";
}

std::string thandle::value2(const std::string& name) {
  std::string text;
  return getval2str(name, text) != 0 ? text : "?";
}

std::string thandle::definitionfile() const {
  std::string text;
  invoke(fform, optdefinitionfile, coptdefinitionfile, fhandle, text);
  return text;
}
std::string thandle::version() const {
  std::string text;
  invoke(fform, optversion, coptversion, fhandle, text);
  return text;
}

}  // namespace testsupport

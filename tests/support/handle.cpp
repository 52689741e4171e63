// Text conversion, guarded buffers and temporary files of the interface tests, and one method per exported
// function that takes or returns text: each names its two forms side by side.
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
constexpr std::array modifiernames = {"", ".NV", ".OPT", ".TWO"};

void replaceall(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
}

// Arguments as the two forms want them; numbers and pointers to numbers pass through.
const optshortstring* forshort(const tin& text) { return text.asshort(); }
optshortstring* forshort(tout& text) { return text.asshort(); }
template <class T>
T forshort(const T& plain) {
  return plain;
}
const char* forchars(const tin& text) { return text.aschars(); }
char* forchars(tout& text) { return text.aschars(); }
template <class T>
T forchars(const T& plain) {
  return plain;
}

void finish(tout& text, tform form) { text.finish(form); }
template <class T>
void finish(const T&, tform) {}

// Calls the form that the handle uses and hands the text outputs back.
template <class R, class... S, class... C, class... A>
R invoke(const thandle& h, R (*shortform)(tvksoptions*, S...), R (*charform)(tvksoptions*, C...),
         A&&... args) {
  static_assert(sizeof...(S) == sizeof...(A) && sizeof...(C) == sizeof...(A));
  if constexpr (std::is_void_v<R>) {
    if (h.form() == tform::shortstring)
      shortform(h.get(), forshort(args)...);
    else
      charform(h.get(), forchars(args)...);
    (finish(args, h.form()), ...);
  } else {
    const R result = h.form() == tform::shortstring ? shortform(h.get(), forshort(args)...)
                                                    : charform(h.get(), forchars(args)...);
    (finish(args, h.form()), ...);
    return result;
  }
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

tin::tin(std::string_view text) : fchars(text) {
  fshort.length = static_cast<unsigned char>(std::min<std::size_t>(text.size(), sizeof fshort.text));
  std::copy_n(text.begin(), fshort.length, fshort.text);
}

void tout::fill() {
  fbuffer.fill(guardbyte);
  if (ftext.size() > 255) ftext.resize(255);
}

optshortstring* tout::asshort() {
  fill();
  fbuffer[guardsize] = static_cast<unsigned char>(ftext.size());
  std::copy(ftext.begin(), ftext.end(), fbuffer.begin() + guardsize + 1);
  return reinterpret_cast<optshortstring*>(fbuffer.data() + guardsize);
}

char* tout::aschars() {
  fill();
  std::copy(ftext.begin(), ftext.end(), fbuffer.begin() + guardsize);
  fbuffer[guardsize + ftext.size()] = 0;
  return reinterpret_cast<char*>(fbuffer.data() + guardsize);
}

void tout::finish(tform form) {
  const auto isguard = [](unsigned char byte) { return byte == guardbyte; };
  EXPECT_TRUE(std::all_of(fbuffer.begin(), fbuffer.begin() + guardsize, isguard))
      << "written before the buffer";
  EXPECT_TRUE(std::all_of(fbuffer.end() - guardsize, fbuffer.end(), isguard)) << "written past byte 256";
  const char* const start = reinterpret_cast<const char*>(fbuffer.data() + guardsize);
  if (form == tform::shortstring) {
    ftext.assign(start + 1, fbuffer[guardsize]);
  } else {
    const std::size_t length = strnlen(start, 256);
    EXPECT_LT(length, 256u) << "no terminator";
    ftext.assign(start, length);
  }
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
  invoke(*this, optreadfromstr, coptreadfromstr, tin(expanded(text)));
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

std::string thandle::dumpvalues(int nr, const std::string& rawname, int opttype, int subtype) {
  const bool quoted = opttype == 2 || opttype == 4 || opttype == 7;
  const auto shown = [quoted](const std::string& s) { return quoted ? " \"" + s + '"' : ' ' + s; };
  std::string text;
  std::string result = " =";
  if (opttype <= 5) {
    getstrnr(nr, text);
    result += shown(text);
    if (getstr2nr(nr, text) != 0) result += shown(text);
    EXPECT_EQ(subtype == 3, getstr2nr(nr, text) != 0) << "option " << nr;
    return result;
  }
  if (opttype != 7) return "";
  for (int index = 1; readfromliststr(rawname, index, text) == 1; ++index) result += shown(text);
  return result;
}

std::string thandle::dump() {
  std::string result;
  for (std::int32_t nr = 1; nr <= optcount(fhandle); ++nr) {
    std::int32_t defined = 0;
    std::int32_t recent = 0;
    std::int32_t refnr = 0;
    std::int32_t datatype = 0;
    std::int32_t opttype = 0;
    std::int32_t subtype = 0;
    EXPECT_EQ(optgetinfonr(fhandle, nr, &defined, &recent, &refnr, &datatype, &opttype, &subtype), 1);
    std::string name;
    std::string helptext;
    std::string type;
    gethelpnr(nr, name, helptext);
    gettypename(opttype, type);
    result += std::to_string(nr) + ' ' + name + ' ' + type +
              modifiernames.at(static_cast<std::size_t>(subtype)) + dumpvalues(nr, name, opttype, subtype);
    if (defined != 0) result += " set " + std::to_string(defined);
    if (recent != defined) result += " recent " + std::to_string(recent);
    result += '\n';
  }
  return result;
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

int thandle::readdefinition(const std::string& filename) {
  return invoke(*this, optreaddefinition, coptreaddefinition, tin(filename));
}
int thandle::readparameterfile(const std::string& filename) {
  return invoke(*this, optreadparameterfile, coptreadparameterfile, tin(filename));
}
int thandle::readfromliststr(const std::string& name, int index, std::string& text) {
  return invoke(*this, optreadfromliststr, coptreadfromliststr, tin(name), index, tout(text));
}
int thandle::writeparameterfile(const std::string& filename) {
  return invoke(*this, optwriteparameterfile, coptwriteparameterfile, tin(filename));
}
void thandle::showhelp(const std::string& request) { invoke(*this, optshowhelp, coptshowhelp, tin(request)); }
void thandle::addmessage(const std::string& text) { invoke(*this, optaddmessage, coptaddmessage, tin(text)); }
void thandle::getmessage(int nr, std::string& text, std::int32_t& kind) {
  invoke(*this, optgetmessage, coptgetmessage, nr, tout(text), &kind);
}
int thandle::findstr(const std::string& name, std::int32_t& nr, std::int32_t& refnr) {
  return invoke(*this, optfindstr, coptfindstr, tin(name), &nr, &refnr);
}
int thandle::lookup(const std::string& name) { return invoke(*this, optlookup, coptlookup, tin(name)); }
int thandle::getvaluesnr(int nr, std::string& name, std::int32_t& i, double& d, std::string& s) {
  return invoke(*this, optgetvaluesnr, coptgetvaluesnr, nr, tout(name), &i, &d, tout(s));
}
int thandle::setvaluesnr(int nr, std::int32_t i, double d, const std::string& s) {
  return invoke(*this, optsetvaluesnr, coptsetvaluesnr, nr, i, d, tin(s));
}
int thandle::setvalues2nr(int nr, std::int32_t i, double d, const std::string& s) {
  return invoke(*this, optsetvalues2nr, coptsetvalues2nr, nr, i, d, tin(s));
}
int thandle::getstrnr(int nr, std::string& s) {
  return invoke(*this, optgetstrnr, coptgetstrnr, nr, tout(s));
}
int thandle::getstr2nr(int nr, std::string& s) {
  return invoke(*this, optgetstr2nr, coptgetstr2nr, nr, tout(s));
}
int thandle::setstrnr(int nr, const std::string& s) {
  return invoke(*this, optsetstrnr, coptsetstrnr, nr, tin(s));
}
int thandle::setstr2nr(int nr, const std::string& s) {
  return invoke(*this, optsetstr2nr, coptsetstr2nr, nr, tin(s));
}
int thandle::getvalstr(const std::string& name, std::string& s) {
  return invoke(*this, optgetvalstr, coptgetvalstr, tin(name), tout(s));
}
int thandle::getval2str(const std::string& name, std::string& s) {
  return invoke(*this, optgetval2str, coptgetval2str, tin(name), tout(s));
}
int thandle::getnamenr(int nr, std::string& name) {
  return invoke(*this, optgetnamenr, coptgetnamenr, nr, tout(name));
}
int thandle::gethelpnr(int nr, std::string& name, std::string& help) {
  return invoke(*this, optgethelpnr, coptgethelpnr, nr, tout(name), tout(help));
}
int thandle::getopthelpnr(int nr, std::string& name, std::int32_t& helpflag, std::int32_t& group) {
  return invoke(*this, optgetopthelpnr, coptgetopthelpnr, nr, tout(name), &helpflag, &group);
}
int thandle::getdefaultstr(int nr, std::string& s) {
  return invoke(*this, optgetdefaultstr, coptgetdefaultstr, nr, tout(s));
}
int thandle::getenumhelp(int nr, int item, std::int32_t& helpflag, std::string& help) {
  return invoke(*this, optgetenumhelp, coptgetenumhelp, nr, item, &helpflag, tout(help));
}
int thandle::getenumvalue(int nr, int item, std::int32_t& i, std::string& s) {
  return invoke(*this, optgetenumvalue, coptgetenumvalue, nr, item, &i, tout(s));
}
int thandle::getenumstrnr(int nr, std::string& s, std::int32_t& item) {
  return invoke(*this, optgetenumstrnr, coptgetenumstrnr, nr, tout(s), &item);
}
int thandle::getsynonym(int nr, std::string& synonym, std::string& name) {
  return invoke(*this, optgetsynonym, coptgetsynonym, nr, tout(synonym), tout(name));
}
int thandle::getgroupnr(int nr, std::string& name, std::int32_t& group, std::int32_t& helpflag,
                        std::string& help) {
  return invoke(*this, optgetgroupnr, coptgetgroupnr, nr, tout(name), &group, &helpflag, tout(help));
}
int thandle::getconstname(int group, int index, std::string& name) {
  return invoke(*this, optgetconstname, coptgetconstname, group, index, tout(name));
}
int thandle::gettypename(int code, std::string& name) {
  return invoke(*this, optgettypename, coptgettypename, code, tout(name));
}
std::string thandle::definitionfile() {
  std::string text;
  invoke(*this, optdefinitionfile, coptdefinitionfile, tout(text));
  return text;
}
std::string thandle::version() {
  std::string text;
  invoke(*this, optversion, coptversion, tout(text));
  return text;
}
int thandle::listcountstr(const std::string& name) {
  return invoke(*this, optlistcountstr, coptlistcountstr, tin(name));
}
int thandle::getfromliststr(const std::string& name, std::string& s) {
  return invoke(*this, optgetfromliststr, coptgetfromliststr, tin(name), tout(s));
}
int thandle::getfromanystrlist(int flag, std::string& name, std::string& s) {
  return invoke(*this, optgetfromanystrlist, coptgetfromanystrlist, flag, tout(name), tout(s));
}
int thandle::getdotoptnr(int nr, std::string& name, std::int32_t& optnr, std::int32_t& dimensions,
                         double& value) {
  return invoke(*this, optgetdotoptnr, coptgetdotoptnr, nr, tout(name), &optnr, &dimensions, &value);
}
int thandle::getdotoptuel(int nr, int dim, std::string& uel) {
  return invoke(*this, optgetdotoptuel, coptgetdotoptuel, nr, dim, tout(uel));
}
int thandle::getindicatornr(int nr, std::string& equ, std::string& var, std::int32_t& equdims,
                            std::int32_t& vardims, std::int32_t& value) {
  return invoke(*this, optgetindicatornr, coptgetindicatornr, nr, tout(equ), tout(var), &equdims, &vardims,
                &value);
}
int thandle::getequindicatornr(int nr, int dim, std::string& element) {
  return invoke(*this, optgetequindicatornr, coptgetequindicatornr, nr, dim, tout(element));
}
int thandle::getvarindicatornr(int nr, int dim, std::string& element) {
  return invoke(*this, optgetvarindicatornr, coptgetvarindicatornr, nr, dim, tout(element));
}
int thandle::setrefnrstr(const std::string& name, int refnr) {
  return invoke(*this, optsetrefnrstr, coptsetrefnrstr, tin(name), refnr);
}

}  // namespace testsupport

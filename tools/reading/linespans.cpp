// Walks over a line in the same steps as the library's reader of option text.
#include "tools/reading/linespans.h"

#include <algorithm>
#include <string>

#include "base/strutilx.h"
#include "base/textcase.h"
#include "input/linereader.h"
#include "options/checkboolean.h"
#include "tools/reading/characters.h"

namespace tool {

using namespace optcore;

namespace {

using tstatementkind = tstatementspans::tkind;

class tlinewalk {
 public:
  tlinewalk(const tdefinition& definition, std::string_view line, bool eolonly)
      : fdefinition(definition), fline(line.substr(0, line.find('\x1a'))) {
    fresult.eolonly = eolonly;
  }

  tlinespans run() {
    if (fline.starts_with('*'))
      fresult.comment = {0, fline.size()};
    else
      while (statement()) continue;
    return std::move(fresult);
  }

 private:
  bool eolonly() const { return fresult.eolonly; }
  bool atend() const { return fat == fline.size(); }
  char ch() const { return atend() ? '\n' : fline[fat]; }
  bool iscomment(char character) const {
    return fdefinition.eolcommset().test(static_cast<unsigned char>(character));
  }
  tstatementspans& current() { return fresult.statements.back(); }

  // ---- what the scanner of the library does

  void toend() { fat = fline.size(); }
  void tocomment() {
    fresult.comment = {fat, fline.size()};
    toend();
  }
  // Returns false at the end of the line.
  bool skipblanks() {
    while (isblank(ch())) ++fat;
    if (!atend() && iscomment(ch())) tocomment();
    return !atend();
  }
  bool skipbecomes() {
    if (!skipblanks()) return false;
    if (ch() == '=')
      ++fat;
    else if (ch() != ':')
      return true;
    else if (fline.substr(fat).starts_with(":="))
      fat += 2;
    else
      return false;
    return skipblanks();
  }
  bool skipto(char character) {
    skipblanks();
    if (ch() != character) return false;
    ++fat;
    return true;
  }
  tspan identifier() {
    const std::size_t begin = fat;
    if (isletter(ch()))
      while (isnamecharacter(ch())) ++fat;
    return {begin, fat};
  }
  // A double quote ends a text only if their number is even then, and if something follows that separates.
  tspan quotedtoken() {
    const std::size_t begin = fat++;
    bool odd = false, afterquote = false;
    for (; !atend(); ++fat) {
      if (afterquote && odd && (isblank(ch()) || ch() == ',')) break;
      afterquote = ch() == '"';
      odd ^= afterquote;
    }
    return {begin, fat};
  }
  tspan token() {
    if (!skipblanks()) return {};
    if (ch() == '"') return quotedtoken();
    const std::size_t begin = fat;
    while (!atend() && !isblank(ch()) && ch() != ',') ++fat;
    return {begin, fat};
  }
  tspan trimmed(std::size_t begin) const {
    std::size_t end = fat;
    while (end > begin && isblank(fline[end - 1])) --end;
    return {begin, end};
  }
  // The value that ends with the line or where a comment begins.
  tspan rest() {
    const std::size_t begin = fat;
    const bool quoted = ch() == '"';
    if (quoted) ++fat;
    for (bool mayend = !quoted; !atend() && !(mayend && iscomment(ch())); ++fat)
      if (quoted && ch() == '"') mayend = !mayend;
    const tspan result = trimmed(begin);
    if (!atend()) tocomment();
    return result;
  }

  // ---- statements: a function returns whether another statement may follow

  bool statement() {
    if (!skipblanks()) return false;
    if (ch() == ',') {
      ++fat;
      if (!skipblanks()) return false;
    }
    fresult.statements.push_back({});
    current().whole = {fat, fat};
    const bool goeson = afterstart();
    current().whole.end =
        std::max({current().name.end, current().value.end, current().second.end, fsymbolend});
    if (fresult.comment.begin < current().whole.end) fresult.comment = {};  // it is in what is not read
    return goeson;
  }

  bool afterstart() {
    const std::size_t begin = fat;
    fsymbolend = 0;
    while (ch() == '-' || ch() == '/') ++fat;
    const std::size_t dashes = fat - begin;
    current().name = identifier();
    const bool separates = atend() || isblank(ch()) || ch() == '.' || ch() == '=';
    if (current().name.empty() || !separates) {
      fsymbolend = fline.size();
      return false;
    }
    const std::string_view key = current().name.of(fline);
    if (dashes == 0 && ch() == '.') return dotline();
    if (dashes == 0 && struequal(key, fdefinition.dotname())) return indicator();
    current().option = findoption(dashes >= 2 ? "--" + std::string(key) : std::string(key));
    if (dashes >= 2) return list();
    if (current().option == nullptr) return unknown();
    if (const auto* option = ifis<timmediateoption>(current().option)) return immediate(*option);
    current().kind = tstatementkind::setting;
    return setting(current().option->subtype());
  }

  // In lookup mode Minos, up to four words of the line may be a name.
  const toption* findoption(std::string key) {
    if (fdefinition.lookupmode() != tlookupmode::minos) return fdefinition.optionasobj(key);
    if (key.find('_') != std::string::npos) return nullptr;
    const toption* option = fdefinition.optionasobj(key);
    for (int words = 0; words < 3 && option == nullptr; ++words) {
      if (!skipblanks() || !isletter(ch())) break;
      const std::size_t begin = fat;
      while (isletter(ch()) || isdigit(ch())) ++fat;
      current().name.end = fat;
      key.append("_").append(fline.substr(begin, fat - begin));
      option = fdefinition.optionasobj(key);
    }
    return option;
  }

  bool list() {
    current().kind = tstatementkind::list;
    skipbecomes();
    if (!eolonly()) {
      current().value = token();
      return true;
    }
    if (!skipblanks()) return true;
    const std::size_t begin = fat;
    toend();  // comment characters belong to the text
    current().value = trimmed(begin);
    return true;
  }

  bool unknown() {
    if (!eolonly()) {
      current().value = token();
      return true;
    }
    fsymbolend = fline.size();
    return false;
  }

  bool immediate(const timmediateoption& option) {
    current().kind = tstatementkind::immediate;
    skipbecomes();
    current().value = token();
    if (option.immkind() == timmkind::eolflag && !current().value.empty())
      fresult.eolonly = checkboolean(unquoted(current().value)) != tbooleanword::no;
    return true;
  }
  std::string_view unquoted(tspan span) const {
    const std::string_view text = span.of(fline);
    return text.size() > 1 && text.starts_with('"') ? text.substr(1, text.size() - 2) : text;
  }

  bool setting(tsubtype subtype) {
    if (subtype == tsubtype::novalue || (subtype == tsubtype::optional && !skipblanks())) return more();
    if (!skipbecomes()) return more();
    if (subtype == tsubtype::twovalues) {
      current().value = token();
      if (!eolonly())
        current().second = token();
      else if (skipblanks())
        current().second = rest();
      return more();
    }
    current().value = eolonly() ? rest() : token();
    return !eolonly();
  }
  // In end-of-line mode, what is left of the line is not read.
  bool more() {
    if (eolonly() && skipblanks()) fsymbolend = fline.size();
    return !eolonly();
  }

  bool dotline() {
    current().kind = tstatementkind::dotline;
    current().symbol = current().name;
    ++fat;
    current().name = identifier();
    if (current().name.empty()) return true;
    current().option =
        fdefinition.getobjects(fdefinition.optlookup("." + std::string(current().name.of(fline))));
    if (current().option == nullptr) return true;
    if (elements()) {
      skipbecomes();
      current().value = token();
    }
    fsymbolend = std::max(fsymbolend, current().value.end);
    return true;
  }

  // An error ends the line, except one in the elements.
  bool indicator() {
    current().kind = tstatementkind::indicator;
    skipblanks();
    if (equationandvariable()) {
      skipbecomes();
      current().value = token();
    }
    if (current().value.empty()) {
      fsymbolend = fline.size();
      toend();
    }
    return true;
  }
  bool equationandvariable() {
    if (identifier().empty()) return false;
    elements();
    if (!skipto('$') || !skipblanks() || identifier().empty()) return false;
    elements();
    return true;
  }

  // Returns false at an element that is missing or that such a line cannot have; it ends the elements.
  bool elements() {
    skipblanks();
    const std::size_t bracket = std::string_view("([{").find(ch());
    if (bracket == std::string_view::npos) return true;
    const char closer = std::string_view(")]}")[bracket];
    ++fat;
    do {
      if (!element()) {
        fsymbolend = fat;
        return false;
      }
    } while (skipto(','));
    skipto(closer);
    fsymbolend = fat;
    return true;
  }
  // Dot lines cannot have sets, and indicators cannot have the universe.
  bool element() {
    const bool indicator = current().kind == tstatementkind::indicator;
    if (!skipblanks()) return false;
    if (!identifier().empty()) return indicator;
    const char first = ch();
    if (first != '*' && first != '\'' && first != '"') return false;
    ++fat;
    if (first == '*') return !indicator;
    while (!atend() && ch() != first) ++fat;
    if (!atend()) ++fat;
    return true;
  }

  const tdefinition& fdefinition;
  const std::string_view fline;
  std::size_t fat = 0;
  std::size_t fsymbolend = 0;  // where the statement ends, if not with its name or value
  tlinespans fresult;
};

}  // namespace

std::string_view readpart(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line.substr(0, tlinereader::maxline);
}

tlinespans spansof(const tdefinition& definition, std::string_view line, bool eolonly) {
  return tlinewalk(definition, line, eolonly).run();
}

}  // namespace tool

// doc c: a header for C and C++ with enumerators for the numbers, the reference numbers and the permitted
// values of all options. A name of the definition keeps its letters and digits; all other characters between
// two of them become one underscore. If two names become one, the header does not compile.
#include <algorithm>
#include <map>

#include "base/numtext.h"
#include "base/textcase.h"
#include "tools/doc/documents.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

// The prefix "dot" distinguishes a dot option from an option with the same name without the dot.
std::string identifier(std::string_view name) {
  std::string result = name.starts_with('.') ? "dot" : "";
  bool between = !result.empty();
  for (const char c : name) {
    const bool belongs = isdigit(c) || isletter(c);
    if (belongs && between && !result.empty()) result.push_back('_');
    if (belongs) result.push_back(c);
    between = !belongs;
  }
  return result;
}

// The value may be a negative number.
std::string valueidentifier(const std::string& text) {
  return text.starts_with('-') ? "minus_" + identifier(text) : identifier(text);
}

// The name of the definition file without folder and extension: "solver" for solver.def.
std::string prefixof(const std::string& definition) {
  const std::string name = definition.substr(definition.find_last_of('/') + 1);
  const std::string prefix = identifier(name.substr(0, name.find_last_of('.')));
  return prefix.empty() || isdigit(prefix.front()) ? "options_" + prefix : prefix;
}

// INT32_MIN has no literal in C.
std::string literal(std::int32_t value) {
  return value == minint ? "-2147483647 - 1" : std::to_string(value);
}

// Keeps printable ASCII, with blanks where it would begin or end a comment or form a trigraph. All other
// bytes are written in the form \x1b: some characters change how editors show a line, and compilers warn
// about them.
std::string commenttext(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    const char before = result.empty() ? ' ' : result.back();
    if ((before == '*' && c == '/') || (before == '/' && c == '*') || (before == '?' && c == '?'))
      result.push_back(' ');
    if (code >= 0x20 && code < 0x7F)
      result.push_back(c);
    else
      result.append("\\x").append(hexdigits(c));
  }
  if (result.ends_with('*') || result.ends_with('\\')) result.push_back(' ');
  return result;
}

class theaderwriter {
 public:
  explicit theaderwriter(const treference& reference)
      : freference(reference), fprefix(prefixof(reference.definition)) {}

  std::string write() {
    std::string guard = fprefix + "_options_h";
    std::ranges::transform(guard, guard.begin(), upchar);
    line("/* " + commenttext(titleof(freference)) + ", written by \"wexcorin doc c\". */");
    line("#ifndef " + guard);
    line("#define " + guard);
    numbers();
    referencenumbers();
    for (const toptionreference& option : freference.options) values(option);
    line("");
    line("#endif");
    return ftext;
  }

  const std::vector<std::string>& collisions() const { return fcollisions; }

 private:
  void numbers() {
    line("");
    line(
        "/* Numbers, as functions whose names end in nr take them. They hold for this definition file only. "
        "*/");
    line("enum {");
    for (const toptionreference& option : freference.options)
      enumerator(claimed("nr_" + identifier(option.name), nameof(option)), option.number, option.help);
    line("};");
  }

  void referencenumbers() {
    line("");
    line("/* Reference numbers, which the definition file gives to its options. */");
    line("enum {");
    for (const toptionreference& option : freference.options)
      enumerator("ref_" + identifier(option.name), option.refnr, {});
    line("};");
  }

  // A word stands for its item number, which optgetenumstrnr returns; a number stands for itself.
  void values(const toptionreference& option) {
    if (option.values.empty()) return;
    const bool words = option.type == topttype::enumstr;
    line("");
    line("/* " + commenttext(option.name) +
         (words ? ": items, as optgetenumstrnr gives them */" : ": values */"));
    line("enum {");
    std::int32_t item = 0;
    for (const tvaluereference& value : option.values) {
      ++item;
      const std::string name = "value_" + identifier(option.name) + "_" + valueidentifier(value.value.text);
      enumerator(claimed(name, "value " + value.value.text + " of " + nameof(option)),
                 words ? item : value.value.json.get<std::int32_t>(), value.help);
    }
    line("};");
  }

  void enumerator(const std::string& name, std::int32_t value, std::string_view help) {
    line("  " + fprefix + "_" + name + " = " + literal(value) + "," +
         (help.empty() ? "" : " /* " + commenttext(help) + " */"));
  }

  // Returns the name, and records a collision if it already stands for something else.
  const std::string& claimed(const std::string& name, const std::string& origin) {
    const auto [place, added] = forigins.try_emplace(name, origin);
    if (!added)
      fcollisions.push_back(place->second + " and " + origin + " would both be called " +
                            inquotes(fprefix + "_" + name) + " in C; rename one of them");
    return place->first;
  }

  static std::string nameof(const toptionreference& option) { return "option " + inquotes(option.name); }
  void line(const std::string& text) { ftext.append(text).append("\n"); }

  const treference& freference;
  std::string fprefix;
  std::string ftext;
  std::map<std::string, std::string> forigins;  // what each enumerator stands for
  std::vector<std::string> fcollisions;
};

}  // namespace

std::string cdocument(const treference& reference) { return theaderwriter(reference).write(); }

std::vector<std::string> cproblems(const treference& reference) {
  theaderwriter writer(reference);
  writer.write();
  return writer.collisions();
}

}  // namespace tool

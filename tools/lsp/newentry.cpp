// Makes snippets, or plain lines for editors without them.
#include "tools/lsp/newentry.h"

#include "tools/reading/definitionfields.h"

namespace tool::lsp {

namespace {

std::string_view valueof(const tfield& field) {
  const bool isnumber = field.form == tform::number;
  switch (field.form) {
    case tform::word: return "\"\"";
    case tform::helpflag: return "1";
    case tform::immediatekind: return "Message";
    default: break;
  }
  if (field.name == "lowest value") return isnumber ? "mindouble" : "minint";
  if (field.name == "highest value") return isnumber ? "maxdouble" : "maxint";
  return field.name == "number" ? "1" : "0";
}

}  // namespace

std::string tnewentry::place(int& number, std::string_view text) const {
  if (!assnippet) return std::string(text);
  return "${" + std::to_string(number++) + ":" + std::string(text) + "}";
}

std::string tnewentry::line() const {
  int number = 1;
  const std::string_view name = keyword == "lookup" ? "Path" : "name";
  std::string result = place(number, name) + " ";
  return result += parts(number);
}

std::string tnewentry::parts(int firstplace) const {
  int number = firstplace;
  std::string result(keyword);
  const bool isenum = keyword == "enumstr" || keyword == "enumint";
  const std::string_view firstvalue = keyword == "enumstr" ? "value" : "0";
  for (const tfield& field : fieldsbetween(keyword)) {
    const bool isdefault = isenum && field.name == "default";
    const std::string text(isdefault                          ? firstvalue
                           : field.form == tform::groupnumber ? std::string_view(group)
                                                              : valueof(field));
    result += " " + place(number, text);
  }
  if (keyword == "synonym") result += " " + place(number, "option");
  if (keyword == "eolcomm") result += " " + place(number, "#");
  if (!fieldsbetween(keyword).empty()) result += " " + place(number, "Help text");
  if (isenum) {
    result += "\n " + place(number, firstvalue);
    result += " 1 " + place(number, "Help text");
  }
  const bool hasmembers = keyword == "multilist" || keyword == "macro";
  if (hasmembers && assnippet) result += "\n " + place(number, "option");
  if (keyword == "deprecated" || keyword == "obsolete") {
    result += "\n " + place(number, "option");
    result += " " + place(number, "What to do instead");
  }
  return result;
}

}  // namespace tool::lsp

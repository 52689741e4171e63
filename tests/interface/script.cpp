// Plays scenes, and defines the steps that are not just one call: reading texts as files, and getting the
// state that tests compare.
#include "interface/script.h"

#include <map>

namespace testsupport {

std::string brief(const std::string& message) {
  static const std::regex head(
      R"(\*\*\* (?:(E)rror|(V)alue Error|(W)arning|(D)efinition Error) (?:line (\d+): )?)");
  static const std::regex enter(R"~(Reading parameter\(s\) from "([^"]*)"$)~");
  static const std::regex leave(R"~(Finished reading from "([^"]*)"$)~");
  const auto replaced = [](const std::string& text, const std::regex& form, const char* by) {
    return std::regex_replace(text, form, by, std::regex_constants::match_continuous);
  };
  return replaced(replaced(replaced(message, head, "$1$2$3$4$5 "), enter, "+$1"), leave, "-$1");
}

std::string told(thandle& handle, bool notes) {
  std::string result, before;
  for (const std::string& message : handle.messages()) {
    const std::string text = brief(message);
    if (!notes && (text[0] == '+' || text[0] == '-')) continue;
    const std::string tail = text.substr(std::min(text.find(' '), text.size()));
    if (!tail.empty() && tail == before)
      result.insert(result.size() - tail.size(), ' ' + text.substr(0, text.size() - tail.size()));
    else
      result += (result.empty() ? "" : " | ") + text;
    before = tail;
  }
  return result;
}

std::string settings(thandle& handle) {
  std::string result;
  for (std::int32_t nr = 1; nr <= handle.one(optcount); ++nr) {
    std::int32_t defined = 0, recent = 0, refnr = 0, datatype = 0, opttype = 0, subtype = 0;
    handle.one(optgetinfonr, nr, defined, recent, refnr, datatype, opttype, subtype);
    if (defined == 0) continue;
    std::string name, text;
    handle.call(BOTH(gethelpnr), nr, name, text);
    result += (result.empty() ? "" : " ") + name + '=';
    if (opttype == optTypeStrList) {
      result += '[';
      for (int index = 1; handle.call(BOTH(readfromliststr), name, index, text) == 1; ++index)
        result += (index > 1 ? "|" : "") + text;
      result += ']';
      continue;
    }
    handle.call(BOTH(getstrnr), nr, text);
    result += (defined & 1) != 0 ? text : "-";
    if (subtype != optsub2Values) continue;
    handle.call(BOTH(getstr2nr), nr, text);
    result += ',' + ((defined & 2) != 0 ? text : "-");
  }
  return result;
}

namespace {

template <class tparameter>
constexpr bool isoutput =
    std::is_pointer_v<tparameter> && !std::is_const_v<std::remove_pointer_t<tparameter>>;

// Makes the argument for a parameter. Inputs are taken from the front of the words.
template <bool isnull, class tparameter>
auto passed(thandle& h, std::string_view& words, int& inputs) {
  using tvalue = std::remove_cv_t<std::remove_pointer_t<tparameter>>;
  if constexpr (isoutput<tparameter>) {
    if constexpr (sizeof(tvalue) == 4 || sizeof(tvalue) == 8)
      return tvalue(sizeof(tvalue) == 4 ? -7 : -7.5);
    else
      return std::string("old");
  } else {
    const bool takesall = --inputs == 0 && std::is_pointer_v<tparameter>;
    const std::string word(words.substr(0, takesall ? words.npos : words.find(' ')));
    words.remove_prefix(std::min(word.size() + 1, words.size()));
    if constexpr (std::is_pointer_v<tparameter>) {
      if constexpr (isnull)
        return nullptr;
      else
        return word;
    } else {
      char* end = nullptr;
      const double number = std::strtod(word.c_str(), &end);
      return static_cast<tvalue>(*end == '\0' ? number : h.number(word));
    }
  }
}

template <bool isnull, class tsecond, class tresult, class... tparameters>
std::string answer(tresult (*first)(tvksoptions*, tparameters...), tsecond second, thandle& h,
                   const std::string& arguments) {
  std::string_view words = arguments;
  int inputs = (0 + ... + (isoutput<tparameters> ? 0 : 1));
  std::tuple<decltype(passed<isnull, tparameters>(h, words, inputs))...> values{
      passed<isnull, tparameters>(h, words, inputs)...};
  std::ostringstream text;
  const auto show = [&text](bool isshown, const auto& value) {
    if (isshown) text << (text.tellp() == 0 && std::is_void_v<tresult> ? "" : "|") << value;
  };
  std::apply(
      [&](auto&... each) {
        const std::int32_t result = h.call(first, second, each...);
        if constexpr (!std::is_void_v<tresult>) text << result;
        (show(isoutput<tparameters>, each), ...);
      },
      values);
  return text.str();
}

std::map<std::string, tstep>& steps() {
  static std::map<std::string, tstep> all;
  return all;
}

// Every exported function that takes a handle is a step. With "(null)" after its name, texts are null.
template <class tsecond, class tresult, class... tparameters>
void add(const std::string& name, tresult (*first)(tvksoptions*, tparameters...), tsecond second) {
  steps()[name.substr(3)] = [=](thandle& h, const std::string& words) {
    return answer<false>(first, second, h, words);
  };
  steps()[name.substr(3) + "(null)"] = [=](thandle& h, const std::string& words) {
    return answer<true>(first, second, h, words);
  };
}
void add(const std::string&, ...) {}
#define WEXCORIN_BOTH(first, second) add(#first, first, second);
const bool added = [] {
#include "abi_both.inc"
  return true;
}();

std::string answered(thandle& h, const std::string& call) {
  const std::string name = call.substr(0, call.find(' '));
  const std::string arguments = call.substr(std::min(name.size() + 1, call.size()));
  const auto step = steps().find(name);
  if (step == steps().end()) throw std::invalid_argument("no step has the name " + name);
  return step->second(h, arguments);
}

const taddedstep basicsteps[] = {
    // a text is read as the file DEF or OPT; "name text" makes a file
    {"definition", [](auto& h, auto& text) { return std::to_string(h.definition(text)); }},
    {"parameters", [](auto& h, auto& text) { return std::to_string(h.parameters(text)); }},
    {"file",
     [](auto& h, auto& argument) {
       const std::size_t end = argument.find(' ');
       return h.directory().write(argument.substr(0, end), argument.substr(end + 1));
     }},
    // fills the list of messages up to that length
    {"fill",
     [](auto& h, auto& count) {
       while (h.one(optmessagecount) < std::stoi(count)) h.call(BOTH(addmessage), "filler");
       return count;
     }},
    // the state; messages are removed when they are shown, and the name of the option is then "@"
    {"messages", [](auto& h, auto&) { return joined(h.messages()); }},
    {"told",
     [](auto& h, auto& option) {
       return std::regex_replace(told(h), std::regex("option \"" + option + '"'), "@");
     }},
    {"problems", [](auto& h, auto&) { return told(h, false); }},
    {"settings", [](auto& h, auto&) { return settings(h); }},
    {"value", [](auto& h, auto& name) { return h.value(name); }},
    {"written", [](auto& h, auto&) { return h.written(); }},
};

// Options of type integer with these names; a name with "#" stands for 200.
const taddedstep integers("integers", [](auto& h, auto& names) {
  std::istringstream words(names);
  std::string lines;
  for (std::string name; words >> name;)
    for (int nr = name.back() == '#' ? 100 : 299; nr < 300; ++nr)
      lines += std::regex_replace(name, std::regex("#"), std::to_string(nr)) + " integer 1 1 0 9 1 1\n";
  return std::to_string(h.definition(lines));
});

// The messages that a request for help adds. ">" stands for the 24 blanks at the beginning of the lines of a
// description, "<" for the 22 blanks before a text that has no room beside its name.
const taddedstep help("help", [](auto& h, auto& request) {
  const std::string text = "\n" + joined(h.help(request));
  const std::string indented = std::regex_replace(text, std::regex("\n {24}"), "\n>");
  return std::regex_replace(indented, std::regex("\n {22}:"), "\n<:").substr(1);
});

// Repeats a step with the numbers from 0 on, up to the first number above 0 for which it fails.
const taddedstep each("each", [](auto& h, auto& call) {
  std::string result;
  for (int nr = 0;; ++nr) {
    const std::string answer = answered(h, call + ' ' + std::to_string(nr));
    if (answer.starts_with("1|"))
      result += (result.empty() ? "" : " | ") + answer.substr(2);
    else if (nr > 0)
      return result;
  }
});

// Replaces "$1" and so on by the columns.
std::string filled(std::string text, const tcolumns& columns) {
  for (std::size_t at = text.find('$'); at != std::string::npos; at = text.find('$', at)) {
    const std::size_t column = static_cast<std::size_t>(text[at + 1] - '0');
    if (column < columns.size()) text.replace(at, 2, columns[column]);
    at += column < columns.size() ? columns[column].size() : 1;
  }
  return text;
}

// A step with another answer is reported at its line.
void take(thandle& h, const std::string& text, const tcolumns& columns, const ttable& place) {
  const std::size_t arrow = text.find("=>");
  const tcolumns part = columnsof(text);
  const std::string call = h.expanded(filled(part[0], columns));
  const std::string answer = h.shortened(answered(h, call));
  static const std::regex taking("messages|problems|told.*");
  if (std::regex_match(part[0], taking)) h.one(optclearmessages);
  if (arrow == std::string::npos) return;
  const std::string expected = filled(part[1], columns);
  if (answer != expected)
    ADD_FAILURE_AT(place.file, place.line)
        << h.shortened(call) << "\n   answers: " << answer << "\n  expected: " << expected;
}

void playscene(const std::string& definition, const ttable& steps, const tcolumns& columns,
               const ttable* row) {
  static const std::regex separator(" ; ");
  thandle h;
  EXPECT_EQ(definition.empty() ? 0 : h.definition(definition), 0);
  h.one(optclearmessages);
  for (const ttable& line : rowsof(steps)) {
    const ttable& place = row != nullptr ? *row : line;
    const testing::ScopedTrace trace(place.file, place.line, place.text);
    for (std::sregex_token_iterator step(line.text.begin(), line.text.end(), separator, -1), end; step != end;
         ++step)
      take(h, *step, columns, place);
  }
}

}  // namespace

taddedstep::taddedstep(const char* name, tstep step) { steps()[name] = std::move(step); }

void play(const std::string& definition, const ttable& steps) { playscene(definition, steps, {}, nullptr); }

void play(const std::string& definition, const ttable& steps, const ttable& rows) {
  for (const ttable& row : rowsof(rows)) {
    tcolumns columns = columnsof(row.text);
    std::rotate(columns.begin(), columns.end() - 1, columns.end());
    playscene(definition, steps, columns, &row);
  }
}

trules::trules(const char* suite, const std::string& definition, const ttable& table)
    : ttests(suite, table, [=](const ttable& scene) { play(definition, scene); }) {}
trules::trules(const char* suite, const std::string& definition, const ttable& steps, const ttable& table)
    : ttests(suite, table, [=](const ttable& rows) { play(definition, steps, rows); }) {}

}  // namespace testsupport

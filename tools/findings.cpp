// The walk through the messages, and how a finding is written.
#include "tools/findings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <ostream>
#include <utility>

namespace tool {

namespace {

// What the library puts in front of a message, by its kind.
constexpr std::array<std::string_view, 10> decorations = {">> ",
                                                          "",
                                                          "*** Definition Error ",
                                                          "*** Value Error ",
                                                          "*** Warning ",
                                                          "*** Warning ",
                                                          "Reading parameter(s) from \"",
                                                          "Finished reading from \"",
                                                          "",
                                                          "*** Error "};

// How messages begin that only add to the one before them.
constexpr std::array<std::string_view, 5> detailheads = {"   Valid range is ", "   Valid values are ",
                                                         "   Possible values are ",
                                                         "   Error code = ", "Error code = "};

std::string_view undecorated(const tmessage& message) {
  std::string_view text = message.text;
  const std::string_view decoration = decorations[static_cast<std::size_t>(message.kind)];
  if (text.starts_with(decoration)) text.remove_prefix(decoration.size());
  return text;
}

bool isdetail(std::string_view text) {
  return std::ranges::any_of(detailheads, [text](std::string_view head) { return text.starts_with(head); });
}

std::string trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return std::string(text);
}

// Takes "line 12: " off the front of text.
std::int32_t takeline(std::string_view& text) {
  constexpr std::string_view head = "line ";
  constexpr std::string_view tail = ": ";
  if (!text.starts_with(head)) return 0;
  const char* end = text.data() + text.size();
  std::int32_t line = 0;
  const auto [rest, error] = std::from_chars(text.data() + head.size(), end, line);
  const std::string_view remainder(rest, static_cast<std::size_t>(end - rest));
  if (error != std::errc() || !remainder.starts_with(tail)) return 0;
  text = remainder.substr(tail.size());
  return line;
}

// Follows the notes of entering and leaving files.
class tmessagewalk {
 public:
  tmessagewalk(const std::string& source, bool numbered) { fsources.push_back({source, numbered}); }

  void add(const tmessage& message, tfindings& findings) {
    std::string_view text = undecorated(message);
    switch (message.kind) {
      case optMsgInputEcho:
      case optMsgHelp: return findings.push_back({here(0), tseverity::plain, std::string(text)});
      case optMsgFileEnter: return enter(text.substr(0, text.rfind('"')));
      case optMsgFileLeave:
        if (fsources.size() > 1) fsources.pop_back();
        return;
      default: break;
    }
    const std::int32_t line = fsources.back().numbered ? takeline(text) : 0;
    if (isdetail(text) && !findings.empty() && findings.back().place == here(line))
      return findings.back().details.push_back(trimmed(text));
    const bool warning = message.kind == optMsgValueWarning || message.kind == optMsgDeprecated;
    findings.push_back({here(line), warning ? tseverity::warning : tseverity::error, std::string(text)});
  }

 private:
  struct tsource {
    std::string name;
    bool numbered;
  };

  tplace here(std::int32_t line) const { return {fsources.back().name, line}; }

  // The first note names what the caller is reading, by the name that the library was given for it.
  void enter(std::string_view name) {
    if (fsources.size() == 1)
      fsources.push_back(fsources.front());
    else
      fsources.push_back({std::string(name), true});
  }

  std::vector<tsource> fsources;
};

struct tlabel {
  std::string_view word;
  tcolour colour;
};

// A macro files the same message for each of its members.
bool issame(const tfinding& a, const tfinding& b) {
  return a.severity != tseverity::plain && a.severity == b.severity && a.place == b.place &&
         a.text == b.text && a.details == b.details;
}

tlabel labelof(tseverity severity) {
  return severity == tseverity::error ? tlabel{"error", tcolour::red} : tlabel{"warning", tcolour::yellow};
}

void writeline(std::ostream& stream, const tpalette& palette, const tplace& place, tlabel label,
               std::string_view text) {
  stream << palette.paint(tcolour::bold, printable(placetext(place)) + ":") << ' '
         << palette.paint(label.colour, std::string(label.word) + ":") << ' ' << printable(text) << '\n';
}

}  // namespace

std::string placetext(const tplace& place) {
  return place.line == 0 ? place.file : place.file + ":" + std::to_string(place.line);
}

tfindings collectfindings(const thandle& handle, const std::string& source, bool numbered,
                          const std::vector<tinsertion>& insertions) {
  tfindings result;
  tmessagewalk walk(source, numbered);
  auto insertion = insertions.begin();
  const std::int32_t count = handle.messagecount();
  for (std::int32_t number = 1; number <= count; ++number) {
    for (; insertion != insertions.end() && insertion->before <= number; ++insertion)
      result.push_back(insertion->finding);
    walk.add(handle.message(number), result);
  }
  for (; insertion != insertions.end(); ++insertion) result.push_back(insertion->finding);
  result.erase(std::unique(result.begin(), result.end(), issame), result.end());
  return result;
}

std::size_t countof(const tfindings& findings, tseverity severity) {
  return static_cast<std::size_t>(std::ranges::count(findings, severity, &tfinding::severity));
}

void writefinding(std::ostream& stream, const tfinding& finding, const tpalette& palette) {
  if (finding.severity == tseverity::plain) {
    stream << printable(finding.text) << '\n';
    return;
  }
  const std::string suggestion = suggestiontext(finding.suggestions);
  writeline(stream, palette, finding.place, labelof(finding.severity),
            finding.text + (suggestion.empty() ? "" : "; " + suggestion));
  for (const std::string& detail : finding.details)
    writeline(stream, palette, finding.place, {"note", tcolour::cyan}, detail);
}

std::string suggestiontext(const std::vector<std::string>& suggestions) {
  std::string result;
  for (std::size_t i = 0; i < suggestions.size(); ++i) {
    const bool last = i + 1 == suggestions.size();
    result += (i == 0 ? "" : last ? " or " : ", ") + inquotes(suggestions[i]);
  }
  return result.empty() ? result : "did you mean " + result + "?";
}

}  // namespace tool

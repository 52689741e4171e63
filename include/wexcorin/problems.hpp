// problems.hpp: makes records of the errors and warnings among the messages. Part of wexcorin.hpp. The only
// place that takes the texts of messages apart.
#ifndef WEXCORIN_PROBLEMS_HPP
#define WEXCORIN_PROBLEMS_HPP

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "wexcorin/elements.hpp"
#include "wexcorin/wexcorin.h"

namespace wexcorin {

enum class severity { error, warning };

// An error or a warning.
struct problem {
  std::string file;   // "pchar" for a text that was passed to read(), empty for a call that reads nothing
  std::int32_t line;  // from 1; 0 for no particular line
  wexcorin::severity severity;
  std::string text;                  // without what the library puts before it
  std::vector<std::string> details;  // lines that explain the text, such as the valid range
};

inline bool operator==(const problem& a, const problem& b) {
  return a.file == b.file && a.line == b.line && a.severity == b.severity && a.text == b.text &&
         a.details == b.details;
}
inline bool operator!=(const problem& a, const problem& b) { return !(a == b); }

namespace detail {

// A call that filed messages. The library names the file of a message only while an option file is read.
struct reading {
  std::int32_t before;  // messages before the call
  std::int32_t after;
  std::string file;
  std::int32_t line;  // of a text with several lines, each of which is a call; 0 for a file
};

class readings {
 public:
  void add(reading added) {
    if (added.before >= added.after) return;
    // The list was cleared through the C interface.
    while (!freadings.empty() && freadings.back().after > added.before) freadings.pop_back();
    freadings.push_back(std::move(added));
  }
  void clear() { freadings.clear(); }

  // The call that filed the message of this number, or null; for numbers that rise.
  const reading* of(std::int32_t number, std::size_t& position) const {
    while (position < freadings.size() && freadings[position].after < number) ++position;
    return position < freadings.size() && freadings[position].before < number ? &freadings[position]
                                                                              : nullptr;
  }

 private:
  std::vector<reading> freadings{};
};

inline bool takeprefix(std::string_view& text, std::string_view prefix) {
  if (text.substr(0, prefix.size()) != prefix) return false;
  text.remove_prefix(prefix.size());
  return true;
}

// Removes "line N: " and returns N, or 0 when the text does not begin so.
inline std::int32_t takeline(std::string_view& text) {
  std::string_view rest = text;
  if (!takeprefix(rest, "line ")) return 0;
  std::int64_t line = 0;
  while (!rest.empty() && rest[0] >= '0' && rest[0] <= '9' &&
         line <= std::numeric_limits<std::int32_t>::max()) {
    line = 10 * line + (rest[0] - '0');
    rest.remove_prefix(1);
  }
  if (line > std::numeric_limits<std::int32_t>::max() || !takeprefix(rest, ": ")) return 0;
  text = rest;
  return static_cast<std::int32_t>(line);
}

// A line that explains the problem before it begins in one of these ways.
inline bool explains(std::string_view text) {
  return takeprefix(text, "   ") || takeprefix(text, "Error code = ");
}

// Gets all messages, in their order.
class problemlist {
 public:
  explicit problemlist(const readings& calls) : fcalls(calls) {}
  problemlist(const problemlist&) = delete;
  problemlist& operator=(const problemlist&) = delete;

  void add(std::int32_t number, const message& added) {
    const reading* call = fcalls.of(number, fposition);
    if (call != fcall) begin(call);
    std::string_view text = added.text;
    switch (added.kind) {
      case optMsgInputEcho:
      case optMsgHelp: fcomparable = fproblems.size(); return;
      case optMsgFileEnter: enter(text); return;
      case optMsgFileLeave:
        if (!ffiles.empty()) ffiles.pop_back();
        return;
      case optMsgDefineError: takeprefix(text, "*** Definition Error "); break;
      case optMsgValueError: takeprefix(text, "*** Value Error "); break;
      case optMsgValueWarning:
      case optMsgDeprecated: takeprefix(text, "*** Warning "); break;
      case optMsgUserError: takeprefix(text, "*** Error "); break;
      default: break;
    }
    addproblem(added.kind, text);
  }

  std::vector<problem> problems() && {
    droprepetition();
    return std::move(fproblems);
  }

 private:
  void begin(const reading* call) {
    droprepetition();
    fcall = call;
    ffiles.clear();
    fcomparable = fproblems.size();
  }

  void enter(std::string_view text) {
    takeprefix(text, "Reading parameter(s) from ");
    const bool named =
        ffiles.empty() && fcall != nullptr && fcall->line == 0;  // the note may have cut the name
    ffiles.push_back(named ? fcall->file
                           : std::string(text.substr(1, text.size() - 2)));  // without the quotes
  }

  void addproblem(std::int32_t kind, std::string_view text) {
    const bool warning = kind == optMsgValueWarning || kind == optMsgDeprecated;
    problem added{ffiles.empty() ? (fcall != nullptr ? fcall->file : std::string()) : ffiles.back(),
                  lineof(kind, text),
                  warning ? severity::warning : severity::error,
                  std::string(),
                  {}};
    if (!fproblems.empty() && explains(text) && isaboutlast(added)) {
      fproblems.back().details.emplace_back(text.substr(std::min(text.find_first_not_of(' '), text.size())));
      return;
    }
    droprepetition();
    added.text = text;
    fproblems.push_back(std::move(added));
  }

  // The library numbers the lines of files only. A text that a client files may begin with "line 1: ", too.
  std::int32_t lineof(std::int32_t kind, std::string_view& text) const {
    if (fcall != nullptr && fcall->line != 0 && ffiles.size() < 2) return fcall->line;
    return kind == optMsgDefineError || !ffiles.empty() ? takeline(text) : 0;
  }

  bool isaboutlast(const problem& added) const {
    const problem& last = fproblems.back();
    return fproblems.size() > fcomparable && last.file == added.file && last.line == added.line &&
           last.severity == added.severity;
  }

  // A macro files the same message for each of its members: such a problem is kept once.
  void droprepetition() {
    const std::size_t count = fproblems.size();
    if (count >= fcomparable + 2 && fproblems[count - 1] == fproblems[count - 2]) fproblems.pop_back();
  }

  const readings& fcalls;
  std::size_t fposition = 0;  // in fcalls
  const reading* fcall = nullptr;
  std::vector<std::string> ffiles{};  // those that are open, the innermost last
  std::vector<problem> fproblems{};
  std::size_t fcomparable = 0;  // problems before this one belong to another call, or lines stand between
};

}  // namespace detail

}  // namespace wexcorin

#endif

// The input is a definition, an option file and the messages of an editor, one on each line, with a line "%%"
// between these parts. The server runs in this process. Whatever it is sent, it must end, what it says must be
// well formed, and each request must get one answer.
//
// The first character of a line is the kind of message, the next ones are numbers: printable characters from
// "0" on.
//   o   opens the option file, with the rest of the line behind it     d   the same for the definition
//   x   closes the option file                                         y   closes the definition
//   c   changes the option file: line, character, line, character, text; "|" is the end of a line
//   e   the same for the definition
//   r   a request: number of the feature, line, character, document (even: the option file), text
//   k   cancels the last request
//   j   a message as it is, with its header                            b   bytes as they are
#include <map>
#include <nlohmann/json.hpp>

#include "fuzz/support/target.h"
#include "tools/lsp/features.h"
#include "tools/lsp/frames.h"
#include "tools/lsp/server.h"

namespace fuzzing {
namespace {

using nlohmann::json;

constexpr const char* optionsuri = "file:///none/main.opt";
constexpr const char* definitionuri = "file:///none/main.def";
constexpr std::int64_t firstid = 1'000'000'001;  // which no message of the input is likely to have

// ---- what is sent

class teditor {
 public:
  teditor(std::string_view definition, std::string_view options)
      : fdefinition(definition), foptions("* definition: main.def\n" + std::string(options)) {
    ask("initialize", {{"capabilities",
                        {{"textDocument",
                          {{"publishDiagnostics", {{"relatedInformation", true}}},
                           {"codeAction", {{"codeActionLiteralSupport", json::object()}}},
                           {"documentSymbol", {{"hierarchicalDocumentSymbolSupport", true}}},
                           {"hover", {{"contentFormat", {"markdown"}}}},
                           {"completion", {{"completionItem", {{"snippetSupport", true}}}}}}}}},
                       {"initializationOptions", {{"definition", "/none/main.def"}, {"inlayHints", true}}}});
    tell("initialized", json::object());
    open(definitionuri, "wexcorin-definition", fdefinition);
    open(optionsuri, "wexcorin-options", foptions);
  }

  void line(std::string_view line);
  const std::string& sent() const { return fsent; }
  // The requests that must be answered: those before anything that may break the session.
  std::int64_t certain() const { return fcertain < 0 ? flast : fcertain; }

 private:
  void send(const json& message) {
    fsent += tool::lsp::framed(message.dump(-1, ' ', false, json::error_handler_t::replace));
  }
  void tell(const char* method, json params) {
    send({{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}});
  }
  void ask(std::string_view method, json params) {
    send({{"jsonrpc", "2.0"}, {"id", ++flast}, {"method", method}, {"params", std::move(params)}});
  }
  void open(const char* uri, const char* language, const std::string& text) {
    tell("textDocument/didOpen",
         {{"textDocument", {{"uri", uri}, {"languageId", language}, {"version", 1}, {"text", text}}}});
  }
  void change(const char* uri, std::string_view line);
  void request(std::string_view line);

  const std::string fdefinition, foptions;
  std::string fsent;
  std::int64_t flast = firstid - 1;
  std::int64_t fcertain = -1;
};

int takenumber(std::string_view& line) {
  if (line.empty()) return 0;
  const int result = static_cast<unsigned char>(line.front()) - '0';
  line.remove_prefix(1);
  return result;
}

json takeposition(std::string_view& line) {
  const int number = takenumber(line);
  return {{"line", number}, {"character", takenumber(line)}};
}

std::string withlineends(std::string_view text) {
  std::string result(text);
  std::ranges::replace(result, '|', '\n');
  return result;
}

void teditor::change(const char* uri, std::string_view line) {
  const json start = takeposition(line);
  const json end = takeposition(line);
  tell("textDocument/didChange",
       {{"textDocument", {{"uri", uri}, {"version", 2}}},
        {"contentChanges", {{{"range", {{"start", start}, {"end", end}}}, {"text", withlineends(line)}}}}});
}

// The parameters of all requests at once.
void teditor::request(std::string_view line) {
  const auto features = tool::lsp::features();
  const auto number = static_cast<std::size_t>(takenumber(line) & 0xFF) % features.size();
  const json position = takeposition(line);
  const char* const uri = takenumber(line) % 2 == 0 ? optionsuri : definitionuri;
  const json range = {{"start", position}, {"end", {{"line", 99}, {"character", 0}}}};
  ask(features[number].method, {{"textDocument", {{"uri", uri}}},
                                {"position", position},
                                {"range", range},
                                {"context", {{"diagnostics", json::array()}, {"includeDeclaration", true}}},
                                {"options", {{"tabSize", 2}, {"insertSpaces", true}}},
                                {"newName", line},
                                {"query", line}});
}

void teditor::line(std::string_view line) {
  if (line.empty()) return;
  const char kind = line.front();
  line.remove_prefix(1);
  switch (kind) {
    case 'o': return open(optionsuri, "wexcorin-options", foptions + withlineends(line));
    case 'd': return open(definitionuri, "wexcorin-definition", fdefinition + withlineends(line));
    case 'x': return tell("textDocument/didClose", {{"textDocument", {{"uri", optionsuri}}}});
    case 'y': return tell("textDocument/didClose", {{"textDocument", {{"uri", definitionuri}}}});
    case 'c': return change(optionsuri, line);
    case 'e': return change(definitionuri, line);
    case 'r': return request(line);
    case 'k': return tell("$/cancelRequest", {{"id", flast}});
    default: break;
  }
  if (fcertain < 0) fcertain = flast;
  fsent += kind == 'j' ? tool::lsp::framed(line) : std::string(line);
}

// ---- what is answered

void checkrange(const json& range) {
  const json &start = range["start"], &end = range["end"];
  const auto place = [](const json& position) {
    return std::pair(position["line"].get<std::int64_t>(), position["character"].get<std::int64_t>());
  };
  HOLDS(place(start) <= place(end) && start["line"] >= 0 && start["character"] >= 0, range.dump());
}

void check(const teditor& editor, std::string_view said) {
  tool::lsp::tframes frames;
  frames.append(said);
  std::map<std::int64_t, int> answers;
  for (tool::lsp::tframe frame = frames.next(); frame.kind != tool::lsp::tframe::tkind::incomplete;
       frame = frames.next()) {
    HOLDS(frame.kind == tool::lsp::tframe::tkind::message, said.substr(0, 200));
    const json message = json::parse(frame.text, nullptr, false);
    HOLDS(message.is_object() && message["jsonrpc"] == "2.0", frame.text);
    if (message.contains("method")) {
      if (message["method"] == "textDocument/publishDiagnostics")
        for (const json& each : message["params"]["diagnostics"]) checkrange(each["range"]);
      continue;
    }
    HOLDS(message.contains("result") != message.contains("error"), frame.text);
    if (message["id"].is_number_integer()) ++answers[message["id"].get<std::int64_t>()];
  }
  for (std::int64_t id = firstid; id <= editor.certain(); ++id) HOLDS(answers[id] == 1, id, answers[id]);
}

}  // namespace

void run(std::string_view input) {
  opendescriptors();
  const auto [definition, rest] = split(input);
  const auto [options, session] = split(rest);
  teditor editor(definition, options);
  for (std::string_view lines = session; !lines.empty();) editor.line(nextline(lines));
  writefile("sent", editor.sent());
  using namespace std::chrono_literals;
  tool::lsp::serve({.in = filedescriptor("sent"),
                    .out = filedescriptor("said"),
                    .quiet = 0ms,
                    .enters = false,
                    .watches = false,
                    .finishes = true});
  check(editor, readfile("said"));
}

}  // namespace fuzzing

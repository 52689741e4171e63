"""The diagnostics of the language server are the findings of check, and follow the texts in the editor.
usage: diagnostics.py TOOL"""
import json, subprocess

from client import TOOL, Client, expect, finish, folder, path, short, uri, write
from optiontext import MAIN, TEXT

SETTINGS = {"definition": "examples/solver.def"}


# What check finds, by file: the lines, rules and first lines of the messages.
def checked(*arguments):
    out = subprocess.run([TOOL, "check", "--json", *arguments], stdout=subprocess.PIPE).stdout
    found = {}
    for each in json.loads(out)["findings"]:
        suggestions = [f'"{name}"' for name in each["suggestions"]]
        text = each["text"]
        if suggestions:
            words = ", ".join(suggestions[:-1]) + " or " + suggestions[-1] if suggestions[1:] else suggestions[0]
            text += f"; did you mean {words}?"
        message = "\n".join([text, *each["details"], *each["advice"]])
        found.setdefault(each["file"], []).append(
            ((each["line"] or 1) - 1, each["severity"] == "error", each["rule"], message))
    return found


def served(diagnostics):
    return [(each["range"]["start"]["line"], each["severity"] == 1, each["code"], each["message"])
            for each in diagnostics]


client = Client(".", initializationOptions=SETTINGS)
for file, arguments in (
        ("examples/solver_mistakes.opt", ("examples/solver.def", "examples/solver_mistakes.opt")),
        ("examples/solver.def", ("examples/solver.def",)), ("examples/first.opt", ("examples/first.opt",)),
        ("examples/solver.opt", ("examples/solver.def", "examples/solver.opt"))):
    client.open(file)
    expect(f"findings in {file}", served(client.diagnostics(file)), checked(*arguments).get(file, []))
    client.close(file)
expect("the exit code", client.quit(), 0)

# ---- what people see has escapes where check has them; what is inserted is as it stands in the file

client = Client(folder, {"textDocument": {"documentSymbol": {"hierarchicalDocumentSymbolSupport": True},
                                          "codeAction": {"codeActionLiteralSupport": {}}}})
RAW, ESCAPED = "a\x1b\u202e\u200b\ufe0fb", r"a\x1b\u202e\u200b\ufe0fb"
NOT_SHOWN = "newText", "filterText", "uri", "placeholder"


def shown(value):
    if isinstance(value, str):
        return [value]
    parts = value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else ()
    return [text for key, part in parts if key not in NOT_SHOWN for text in shown(part)]


odd, options = path("odd/odd.def"), path("odd/odd.opt")
write("odd/odd.def", f'cuts group 1 1 {RAW}\nmode enumstr 4 "{RAW}" 1 1 Mode {RAW}\n "{RAW}" 1 {RAW}\n slow 1 Two\n'
                     "size integer 5 1 0 9 1 1 Size\nnames deprecated\n mo use it\n")
client.open(odd)
client.diagnostics(odd)
client.open(options, f"* definition: odd.def\nmode slo{RAW[1:-1]}w\n{RAW} 3\nmo 1\nmode \n")
document = {"textDocument": {"uri": uri(options)}}
found = client.diagnostics(options)
names, values = client.at("completion", options, 3, 2), client.at("completion", options, 4, 5)
for what, answer in (
        ("diagnostics", found), ("a name", names), ("values", values),
        ("hover", client.at("hover", options, 1, 1)), ("symbols", client.at("documentSymbol", options, 0, 0)),
        ("symbols of the definition", client.at("documentSymbol", odd, 0, 0)),
        ("symbols of the folder", client.request("workspace/symbol", {"query": "mode"})),
        ("names in the definition", client.at("completion", odd, 6, 3)), ("repairs", client.request("textDocument/codeAction", {
            **document, "context": {"diagnostics": []}, "range": {"start": {"line": 1, "character": 0},
                                                                  "end": {"line": 3, "character": 0}}}))):
    seen = "\n".join(shown(answer))
    expect(f"{what}: raw characters", [c for c in seen if c in "\x1b\u202e\u200b\ufe0f"], [])
    expect(f"{what}: there is a text", seen != "", True)
value = values["items"][0]
expect("a value", (value["label"], value["textEdit"]["newText"], value.get("filterText")),
       (ESCAPED, RAW, RAW))
client.close(options)
client.close(odd)

# ---- a change renews what depends on it

codes = lambda name: [each["code"] for each in client.diagnostics(path(name))]
solver, another = path("solver.def"), TEXT + "thread integer 40 1 1 9 1 1 Another\n"
write("part.opt", "threads 2\n")
client.open(MAIN, "include part.opt\nthread 1\n")
expect("an included file without mistakes", codes("main.opt"), ["unknown-option"])
client.open(path("part.opt"), "threads none\n")
expect("an included file in the editor: the findings there", codes("part.opt"), ["value"])
client.close(path("part.opt"))
expect("and as it is on the disk", codes("part.opt"), [])
client.open(solver, another)
expect("the definition in the editor", codes("main.opt"), [])
with client.together():
    client.change(solver, TEXT)
    client.change(solver, another.replace("1 1 9", "5 5 9"))
expect("changes of it one after the other: the findings with the last one", codes("main.opt"), ["illegal-value"])
client.change(solver, TEXT)
expect("a change of it", codes("main.opt"), ["unknown-option"])
write("solver.def", another)
client.close(solver)
expect("and as it is on the disk", codes("main.opt"), [])
write("solver.def", TEXT)
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(solver), "type": 2}]})
expect("a change on the disk", codes("main.opt"), ["unknown-option"])
write("other.def", "thread integer 1 1 1 9 1 1 Other\n")
client.change(MAIN, "* definition: other.def\nthread 1\n")
expect("a definition that the text names", codes("main.opt"), [])
client.change(MAIN, "threads 1\n")
expect("no findings", codes("main.opt"), [])
seen = len(client.notes)
with client.together():
    for number in range(5):
        client.change(MAIN, f"threads {number}{'x' * number}\n")
expect("changes one after the other: the findings of the last one",
       [short(each["range"]) for each in client.diagnostics(MAIN)], ["0:8-0:13"])
versions = [each["params"]["version"] for each in client.notes[seen:] if each["params"]["uri"] == uri(MAIN)]
expect("and only these", versions, [client.versions[MAIN]])
late = path("late.opt")
with client.together():
    client.open(late, "threads 1\n")
    client.change(late, "threads none\n")
expect("a text that changes while it is analysed: only the findings of the new one", codes("late.opt"), ["value"])
expect("the exit code", client.quit(), 0)

finish()

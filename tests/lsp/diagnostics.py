"""The diagnostics of the language server are the findings of check, and follow the texts in the editor.
usage: diagnostics.py TOOL"""
import json, os, subprocess, tempfile

from client import TOOL, Client, expect, finish, uri

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

# ---- the part of the line that is meant, and lines that have to do with it

work = tempfile.TemporaryDirectory()
RELATED = {"textDocument": {"publishDiagnostics": {"relatedInformation": True},
                            "documentSymbol": {"hierarchicalDocumentSymbolSupport": True},
                            "codeAction": {"codeActionLiteralSupport": {}}}}
DEFINITION = """eol eolcomm !
general group 1 1 General
threads integer 1 1 1 64 1 1 Threads to use
ratio double 2 1 0 1 1 1 A ratio
name string 3 "" 1 1 Name of the run
mode enumstr 4 auto 1 1 How
 auto 1 Itself
 slow 1 All
quiet boolean.NV 7 1 1 1 Quiet
old integer 5 1 0 9 1 1 Old
all macro 1 1 All
 threads
set deprecated
 old use threads
read immediate ReadFile 1 1 Read another file
"""


def write(name, text):
    with open(os.path.join(work.name, name), "w", encoding="utf-8", newline="") as file:
        file.write(text)
    return os.path.join(work.name, name)


# For each finding what is marked, its tags, and the lines that have to do with it.
def marked(text, diagnostics):
    lines, result = text.split("\n"), []
    for each in diagnostics:
        start, end = each["range"]["start"], each["range"]["end"]
        related = [f'{other["message"]} {other["location"]["range"]["start"]["line"]}'
                   for other in each.get("relatedInformation", [])]
        words = [lines[start["line"]][start["character"]:end["character"]]] + related
        result.append(" ".join([*words, *map(str, each.get("tags", []))]))
    return result


solver, main = write("solver.def", DEFINITION), write("main.opt", "")
client = Client(work.name, RELATED)
client.open(main)
client.diagnostics(main)
for what, text, wanted in (
        ("an unknown name", "name x\n  thread 4", ["thread"]),
        ("a value, even if it is like the name", "threads threads", ["threads"]),
        ("a value that is reported in another form", "ratio = 2.50", ["2.50"]),
        ("a value behind characters of two units", 'name "😀" ! x\nmode fast', ["fast"]),
        ("a name that is deprecated", "old 3", ["old 2"]),
        ("a value that is set again", "threads 2\nthreads 3", ["threads was set here 0"]),
        ("a file that is not there", "read none.opt", ["none.opt"]),
        ("what is left of the line", "quiet  more words ! x\nthreads : 3", ["more words ! x", ": 3", ": 3"])):
    client.change(main, text)
    expect(what, marked(text, client.diagnostics(main)), wanted)
client.open(solver)
expect("a definition", marked(DEFINITION, client.diagnostics(solver)), [])
for what, line, wanted in (
        ("a field that is wrong", "size integer 6 x 1 9 1 1 Size", ["x", "size"]),
        ("a type that is unknown", "size integr 6 1 1 9 1 1 Size", ["integr"]),
        ("a name that is there", "ratio integer 6 1 1 9 1 1 Size", ["ratio is defined here 3"]),
        ("a group that is not declared", "size integer 6 7 1 9 1 7 Size", ["7"]),
        ("what has no use", "empty group 6 1 None", ["empty 1"]),
        ("a number that is there", "size integer 3 3 3 3 1 1 Size", ["3 is defined here 4"])):
    text = DEFINITION + line + "\n"
    client.change(solver, text)
    expect(what, marked(text, client.diagnostics(solver)), wanted)
client.close(solver)

# ---- what people see has escapes where check has them; what is inserted is as it stands in the file

RAW, ESCAPED = "a\x1b\u202e\u200b\ufe0fb", r"a\x1b\u202e\u200b\ufe0fb"
NOT_SHOWN = "newText", "filterText", "uri", "placeholder"


def shown(value):
    if isinstance(value, str):
        return [value]
    parts = value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else ()
    return [text for key, part in parts if key not in NOT_SHOWN for text in shown(part)]


os.mkdir(os.path.join(work.name, "odd"))
odd = write("odd/odd.def", f'cuts group 1 1 {RAW}\nmode enumstr 4 "{RAW}" 1 1 Mode {RAW}\n "{RAW}" 1 {RAW}\n slow 1 Two\n'
                           "size integer 5 1 0 9 1 1 Size\nnames deprecated\n mo use it\n")
client.open(odd)
client.diagnostics(odd)
options = write("odd/odd.opt", "")
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

codes = lambda path: [each["code"] for each in client.diagnostics(path)]
part = write("part.opt", "threads 2\n")
client.change(main, "read part.opt\nthread 1\n")
expect("an included file without mistakes", codes(main), ["unknown-option"])
client.open(part, "threads none\n")
expect("an included file in the editor: the findings there", codes(part), ["value"])
client.change(part, "thread 3")
expect("a change of it", codes(part), ["unknown-option"])
client.close(part)
expect("and as it is on the disk", codes(part), [])
client.open(solver, DEFINITION + "thread integer 9 1 1 9 1 1 Another\n")
expect("the definition in the editor", codes(main), [])
client.change(solver, DEFINITION)
expect("a change of it", codes(main), ["unknown-option"])
write("solver.def", DEFINITION + "thread integer 9 1 1 9 1 1 Another\n")
client.close(solver)
expect("and as it is on the disk", codes(main), [])
write("solver.def", DEFINITION)
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(solver), "type": 2}]})
expect("a change on the disk", codes(main), ["unknown-option"])
other = write("other.def", "thread integer 1 1 1 9 1 1 Other\n")
client.change(main, "* definition: other.def\nthread 1\n")
expect("a definition that the text names", codes(main), [])

os.remove(other)
client.change(main, "threads 1\n")
expect("no findings", codes(main), [])
seen = len(client.notes)
with client.together():
    for number in range(5):
        client.change(main, f"threads {number}x\n")
expect("changes one after the other: the findings of the last one", marked("threads 4x", client.diagnostics(main)), ["4x"])
versions = [each["params"]["version"] for each in client.notes[seen:] if each["params"]["uri"] == uri(main)]
expect("and only these", versions, [client.versions[main]])

# ---- settings

client.change(main, "threads 1\nthreads 2\n")
expect("a warning", codes(main), ["set-again"])
client.notify("workspace/didChangeConfiguration", {"settings": {"wexcorin": {"allow": ["set-again"]}}})
expect("a warning that is left out", codes(main), [])
expect("the exit code", client.quit(), 0)

finish()

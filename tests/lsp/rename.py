"""Renaming an option, synonym or group through the definition and the option files of the workspace.
usage: rename.py TOOL"""
import os, tempfile

from client import Client, applied, expect, finish, uri

work = tempfile.TemporaryDirectory()
path = lambda name: os.path.join(work.name, name)
DOCUMENTS = {"workspace": {"workspaceEdit": {"documentChanges": True}},
             "textDocument": {"rename": {"prepareSupport": True}}}


def write(name, text):
    os.makedirs(os.path.dirname(path(name)), exist_ok=True)
    with open(path(name), "w", encoding="utf-8", newline="") as file:
        file.write(text)


# What the files are afterwards, those that change, or the error.
def renamed(client, file, line, character, name):
    result = client.at("rename", path(file), line, character, newName=name)
    if "code" in result:
        return result["message"]
    changes = result.get("changes") or {
        each["textDocument"]["uri"]: each["edits"] for each in result["documentChanges"]}
    after = {}
    for file, text in FILES.items():
        if uri(path(file)) in changes:
            after[file] = applied(text, changes.pop(uri(path(file))))
    expect("changes of other files", list(changes), [])
    return after


# ---- every place that names the option, and no other one

FILES = {"solver.def": """\
gap_tol double 1 0.1 0 1 1 1 gap_tol is the gap
threads integer 2 1 1 64 1 1 Threads, see gap_tol
 gap_tol in a long help
word enumstr 3 gap_tol 1 1 A word
 gap_tol 1 The word gap_tol
.prior double 4 1 0 9 1 1 Priority
both multilist 5 1 1 Both
 threads gap_tol
all macro 1 1 All
 GAP_TOL
include immediate ReadFile 1 1 Include
describe immediate Help 1 1 Describe
name string 6 "" 1 1 A name
line immediate EolFlag 1 1 Lines
gaptol synonym gap_tol
general group 1 1 gap_tol
old deprecated
 gap_tol use another gap_tol
 gaptol  use gap_tol
c eolcomm #
""", "main.opt": """\
* gap_tol
gap_tol 0.5 # gap_tol
Gap_Tol=0.5
gaptol 0.5
name ä😀 gap_tol
word gap_tol
describe gap_tol
include part.inc
line no
name "gap_tol 😀" gap_tol 0.1 threads 3
x.prior 3
""", "part.inc": "gap_tol 1\n", "sub/other.def": "gap_tol double 1 0.1 0 1 1 1 Other\n",
         "sub/other.opt": "gap_tol 1\n"}
OPTION = {"solver.def": FILES["solver.def"].replace("gap_tol double", "gap double").replace(
              " threads gap_tol", " threads gap").replace(" GAP_TOL", " gap").replace(
              "synonym gap_tol", "synonym gap").replace(" gap_tol use another", " gap use another"),
          "main.opt": """\
* gap_tol
gap 0.5 # gap_tol
gap=0.5
gaptol 0.5
name ä😀 gap_tol
word gap_tol
describe gap
include part.inc
line no
name "gap_tol 😀" gap 0.1 threads 3
x.prior 3
""", "part.inc": "gap 1\n"}
SYNONYM = {"solver.def": FILES["solver.def"].replace("gaptol syn", "limit syn").replace(" gaptol  use", " limit  use"),
           "main.opt": FILES["main.opt"].replace("gaptol", "limit")}
DOT = {"solver.def": FILES["solver.def"].replace(".prior", ".weight"),
       "main.opt": FILES["main.opt"].replace(".prior", ".weight")}
for name, text in FILES.items():
    write(name, text)
client = Client(work.name, DOCUMENTS)
expect("the server says that it renames", client.server["capabilities"]["renameProvider"], {"prepareProvider": True})
client.open(path("solver.def"))
client.open(path("main.opt"))
for what, place, name, wanted in (
        ("an option, at its line", ("solver.def", 0, 3), "gap", OPTION),
        ("an option, at a list's member", ("solver.def", 7, 10), "gap", OPTION),
        ("an option, at a synonym's target", ("solver.def", 14, 20), "gap", OPTION),
        ("an option, at a mark", ("solver.def", 17, 1), "gap", OPTION),
        ("an option, in an option file", ("main.opt", 1, 0), "gap", OPTION),
        ("an option, behind characters of two units", ("main.opt", 9, 20), "gap", OPTION),
        ("a synonym, at its line", ("solver.def", 14, 0), "limit", SYNONYM),
        ("a synonym, in an option file", ("main.opt", 3, 6), "limit", SYNONYM),
        ("a dot option, without its period", ("solver.def", 5, 2), "weight", DOT),
        ("a dot option, with its period", ("main.opt", 10, 3), ".weight", DOT),
        ("a group", ("solver.def", 15, 2), "common",
         {"solver.def": FILES["solver.def"].replace("general", "common")}),
        ("another case", ("solver.def", 1, 0), "Threads",
         {"solver.def": FILES["solver.def"].replace("threads", "Threads"),
          "main.opt": FILES["main.opt"].replace("threads", "Threads")}),
        # nothing is changed
        ("a name that is taken", ("solver.def", 0, 0), "Threads",
         'The name "Threads" is taken: line 2 defines an option "threads"'),
        ("the name of a synonym", ("solver.def", 1, 0), "gaptol",
         'The name "gaptol" is taken: line 15 defines a synonym "gaptol"'),
        ("the predefined name", ("solver.def", 0, 0), "help", 'Every definition has an option "Help"'),
        ("a name of two words", ("solver.def", 0, 0), "two words",
         '"two words" is no name: a name is a letter, followed by letters, digits and underscores'),
        ("no name at all", ("solver.def", 0, 0), "",
         '"" is no name: a name is a letter, followed by letters, digits and underscores'),
        ("a name that is too long", ("solver.def", 0, 0), "x" * 64, "A name has at most 63 characters"),
        ("a word of the help", ("solver.def", 0, 30), "gap", "There is no option, synonym or group here to rename"),
        ("the predefined option", ("main.opt", 0, 3), "gap", "There is no option, synonym or group here to rename")):
    expect(what, renamed(client, *place, name), wanted)
prepared = client.at("prepareRename", path("main.opt"), 10, 2)
expect("what is renamed: dot option", (prepared["placeholder"], prepared["range"]["start"]["character"]), ("prior", 2))
expect("what is renamed: a value", client.at("prepareRename", path("main.opt"), 5, 8), None)

client.change(path("main.opt"), "gap_tol 1\ngap 2\n")
expect("a name that a file uses, though it is unknown", renamed(client, "solver.def", 0, 0, "gap"),
       "With this name, line 2 of main.opt would mean something else")
client.change(path("solver.def"), "* new line\n" + FILES["solver.def"])
client.change(path("main.opt"), "gap_tol 1\n")
result = client.at("rename", path("solver.def"), 1, 0, newName="gap")
expect("the versions of the documents", sorted(
    (os.path.basename(each["textDocument"]["uri"]), each["textDocument"]["version"], each["edits"][0]["range"]["start"])
    for each in result["documentChanges"]),
    [("main.opt", 3, {"line": 0, "character": 0}), ("solver.def", 2, {"line": 1, "character": 0})])
expect("the exit code", client.quit(), 0)

# ---- short forms of names, and names of several words

for mode, text, options, wanted, refused in (
        ("Path", "conv_tolerance double 1 0.1 0 1 1 1 Tolerance\ncon_tol_all integer 2 1 1 9 1 1 Other\n",
         "con_tol 0.1\nconv_tolerance 0.2\nCON_TOL_ALL 3\n", "step_limit 0.1\nstep_limit 0.2\nCON_TOL_ALL 3\n",
         (("st_lim", "In the lookup mode Path, a word of fewer than three characters is never found"),
          ("cone_tole_alle",
           'The name "cone_tole_alle" is taken: line 3 defines an option "con_tol_all"'))),
        ("Minos", "major_print_level integer 1 1 0 9 1 1 Level\nmajor_damping double 2 1 0 9 1 1 Damping\n",
         "Major Print Level 2\nmaj  prin leve=3\nmajor damping 1\n", "step limit 2\nstep limit=3\nmajor damping 1\n",
         (("one two three four five", "In the lookup mode Minos, a name has at most four words"),
          ("majo damp", 'The name "majo_damp" is taken: line 3 defines an option "major_damping"')))):
    FILES = {"solver.def": mode + " lookup\n" + text + "all multilist 9 1 1 All\n " + text.split()[0] + "\n",
             "main.opt": options}
    for name in os.listdir(work.name):
        if name.endswith((".def", ".opt")):
            os.unlink(path(name))
    for name, content in FILES.items():
        write(name, content)
    client = Client(work.name)
    client.open(path("solver.def"))
    old = text.split()[0]
    expect(f"short forms in mode {mode}", renamed(client, "solver.def", 1, 0, "step_limit"),
           {"solver.def": FILES["solver.def"].replace(old, "step_limit"), "main.opt": wanted})
    for name, problem in refused:
        expect(f"{name} in mode {mode}", renamed(client, "solver.def", 1, 0, name), problem)
    expect("the exit code", client.quit(), 0)

finish()

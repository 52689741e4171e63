"""Renaming: the whole edits of small texts, and names that are refused.
usage: renamings.py TOOL"""
import os, tempfile

from client import Client, expect, finish, folder, path, short, uri, write

VERSIONS = {"workspace": {"workspaceEdit": {"documentChanges": True}}}
OPTION = "gap_tol strlist 1 1 1 Gap"
isopen = lambda file, text: file == "solver.def" or "|" in text


# The answer to a rename in a new folder with these files. The cursor is "|". Of the other files, only the definition
# is open. What is open is empty on the disk.
def renamed(name, definition, options="", more={}, capabilities=VERSIONS, method="rename"):
    with tempfile.TemporaryDirectory() as folder:
        folder = os.path.realpath(folder)
        client = Client(folder, capabilities)
        files = {"solver.def": definition, "main.opt": options, **more}
        for file, text in files.items():
            os.makedirs(os.path.dirname(os.path.join(folder, file)), exist_ok=True)
            with open(os.path.join(folder, file), "w", encoding="utf-8", newline="") as opened:
                opened.write("" if isopen(file, text) else text)
        for file, text in files.items():
            if isopen(file, text):
                client.open(os.path.join(folder, file), text.replace("|", ""))
                client.diagnostics(os.path.join(folder, file))
        [(file, before)] = [(file, text.partition("|")[0]) for file, text in files.items() if "|" in text]
        column = len(before.rpartition("\n")[2].encode("utf-16-le")) // 2
        answer = client.at(method, os.path.join(folder, file), before.count("\n"), column, newName=name)
        client.quit()
        if answer and "code" in answer:
            return answer["code"], answer["message"].replace(folder, "FOLDER")
        return answer and short(answer)


# Of each file its name, its version, and its edits.
def edited(*arguments):
    answer = renamed(*arguments)
    if not isinstance(answer, dict):
        return answer
    return [(each["textDocument"]["uri"], each["textDocument"]["version"],
             [(edit["range"], edit["newText"]) for edit in each["edits"]]) for each in answer["documentChanges"]]


DEFINITION = OPTION + "\n.prior double 4 1 0 9 1 1 Priority\ntol synonym gap_tol\ngeneral group 1 1 General\n" \
             "second group 2 1 Second\nhelp_on immediate Help 1 1 Help\nline immediate EolFlag 1 2 Lines\n" \
             "read immediate ReadFile 1 2 Read\nm macro 1 2 M\n gap_tol\nquiet boolean.NV 7 1 1 2 Quiet\n"
DEFINITIONS = {
    "Normal": DEFINITION,
    "Path": "Path lookup\nconv_tolerance strlist 1 1 1 A\nconv synonym conv_tolerance\ng group 1 1 G\n"
            "con_tol_all integer 2 1 1 9 1 1 B\n",
    "Minos": "Minos lookup\nmajor_print_level strlist 1 1 1 A\ng group 1 1 G\nmajor_damping double 2 1 0 9 1 1 B\n"}
at = lambda text, mode="Normal": DEFINITIONS[mode].replace(text.replace("|", ""), text, 1 if text else 0)


# The cursor is in this piece of the definition of the lookup mode, or else in the option file.
def given(name, mode, piece, options, more={}):
    return edited(name, at(piece, mode), options, more)


for name, mode, piece, options, wanted in (
        ("gap", "Normal", "gap|_tol", "",
         [("solver.def", 1, [("0:0-0:7", "gap"), ("2:12-2:19", "gap"), ("9:1-9:8", "gap")])]),
        ("gap", "Normal", "", "line no\nquiet gap_t|ol x tol y\n",
         [("main.opt", 1, [("1:6-1:13", "gap")]),
          ("solver.def", 1, [("0:0-0:7", "gap"), ("2:12-2:19", "gap"), ("9:1-9:8", "gap")])]),
        ("limit", "Normal", "", "line no\nquiet gap_tol x to|l y\ngap_tol 3",
         [("main.opt", 1, [("1:16-1:19", "limit")]), ("solver.def", 1, [("2:0-2:3", "limit")])]),
        ("gap", "Normal", "", 'help_on "gap_tol"\nhelp_on gap_tol\nhelp_on 7\nhelp_on ""\nhelp_on\ngap_to|l',
         [("main.opt", 1, [("0:9-0:16", "gap"), ("1:8-1:15", "gap"), ("5:0-5:7", "gap")]),
          ("solver.def", 1, [("0:0-0:7", "gap"), ("2:12-2:19", "gap"), ("9:1-9:8", "gap")])]),
        ("weight", "Normal", ".pri|or", "x.prior 3\n",
         [("main.opt", None, [("0:2-0:7", "weight")]), ("solver.def", 1, [("1:1-1:6", "weight")])]),
        (".weight", "Normal", "", "x.pri|or 3\n",
         [("main.opt", 1, [("0:2-0:7", "weight")]), ("solver.def", 1, [("1:1-1:6", "weight")])]),
        ("threads", "Normal", "gener|al", "", [("solver.def", 1, [("3:0-3:7", "threads")])]),
        ("Help", "Normal", "gener|al", "", [("solver.def", 1, [("3:0-3:7", "Help")])]),
        ("gap_tol", "Normal", "gener|al", "", [("solver.def", 1, [("3:0-3:7", "gap_tol")])]),
        ("x" * 63, "Normal", "to|l syn", "", [("solver.def", 1, [("2:0-2:3", "x" * 63)])]),
        (" gap ", "Normal", "gap_to|l", "",
         [("solver.def", 1, [("0:0-0:7", "gap"), ("2:12-2:19", "gap"), ("9:1-9:8", "gap")])]),
        ("GAP_TOL", "Normal", "gap_to|l", "gap_tol 1",
         [("main.opt", None, [("0:0-0:7", "GAP_TOL")]),
          ("solver.def", 1, [("0:0-0:7", "GAP_TOL"), ("2:12-2:19", "GAP_TOL"), ("9:1-9:8", "GAP_TOL")])]),
        ("ab", "Path", "con|v syn", "", [("solver.def", 1, [("2:0-2:4", "ab")])]),
        ("ab", "Path", "|g group", "", [("solver.def", 1, [("3:0-3:1", "ab")])]),
        ("ab_cde", "Path", "conv_|t", "",
         (-32602, "In the lookup mode Path, a word of fewer than three characters is never found")),
        ("abc", "Path", "conv_|t", "con_tol 1\ncon\ttol 2\nCON_TOL_ALL 3\n",
         [("main.opt", None, [("0:0-0:7", "abc")]),
          ("solver.def", 1, [("1:0-1:14", "abc"), ("2:13-2:27", "abc")])]),
        ("a_b_c_d", "Minos", "ma|jor", "", [("solver.def", 1, [("1:0-1:17", "a_b_c_d")])]),
        ("alpha beta", "Minos", "", "maj\tprin\tle|ve 2\nmaj  prin leve=3\nmajor damping 1\n",
         [("main.opt", 1, [("0:0-0:13", "alpha beta"), ("1:0-1:14", "alpha beta")]),
          ("solver.def", 1, [("1:0-1:17", "alpha_beta")])]),
        ("a_b_c_d_e", "Minos", "|g group", "", [("solver.def", 1, [("2:0-2:1", "a_b_c_d_e")])]),
        ("a_b_c_d_e", "Minos", "m|ajor", "", (-32602, "In the lookup mode Minos, a name has at most four words")),
        ("a b c d e", "Minos", "m|ajor", "", (-32602, "In the lookup mode Minos, a name has at most four words")),
        ("majo damp", "Minos", "major_|p", "",
         (-32602, 'The name "majo_damp" is taken: line 4 defines an option "major_damping"')),
        ("cone_tole_alle", "Path", "conv_|t", "",
         (-32602, 'The name "cone_tole_alle" is taken: line 5 defines an option "con_tol_all"'))):
    expect(f"{name!r} for {piece!r} and {options!r}", given(name, mode, piece, options), wanted)
expect("included files", given("gap", "Normal", "gap_to|l", "gap_tol 1\n",
                               {"other.opt": "GAP_TOL 2\nread part.inc", "part.inc": "gap_tol 3"}),
       [("main.opt", None, [("0:0-0:7", "gap")]), ("other.opt", None, [("0:0-0:7", "gap")]),
        ("part.inc", None, [("0:0-0:7", "gap")]),
        ("solver.def", 1, [("0:0-0:7", "gap"), ("2:12-2:19", "gap"), ("9:1-9:8", "gap")])])

refused = lambda name, cursor: edited(name, at(cursor))
for name, cursor, seen in (("1x", "gap_to|l", "1x"), ("_x", "gap_to|l", "_x"), ("a-b", "gap_to|l", "a-b"),
                           ("a b", "gap_to|l", "a b"), ("", "gap_to|l", ""), ("ä", "gap_to|l", "ä"),
                           (".gap", "gap_to|l", ".gap"), (".", ".pri|or", "."), ("", ".pri|or", "."),
                           ("..x", ".pri|or", "..x")):
    expect(f"{name!r} for {cursor!r}", refused(name, cursor),
           (-32602, f'"{seen}" is no name: a name is a letter, followed by letters, digits and underscores'))
for name, cursor, wanted in (
        ("x" * 64, ".pri|or", (-32602, "A name has at most 63 characters")),
        ("second", "gener|al", (-32602, 'The name "second" is taken: line 5 defines a group "second"')),
        ("SECOND", "gener|al", (-32602, 'The name "SECOND" is taken: line 5 defines a group "second"')),
        ("prior", "gap_to|l",
         [("solver.def", 1, [("0:0-0:7", "prior"), ("2:12-2:19", "prior"), ("9:1-9:8", "prior")])]),
        ("Tol", "gap_to|l", (-32602, 'The name "Tol" is taken: line 3 defines a synonym "tol"')),
        ("gap_tol", "to|l syn", (-32602, 'The name "gap_tol" is taken: line 1 defines an option "gap_tol"')),
        ("Quiet", "to|l syn", (-32602, 'The name "Quiet" is taken: line 11 defines an option "quiet"')),
        ("HELP", "to|l syn", (-32602, 'Every definition has an option "Help"')),
        ("help", ".pri|or", [("solver.def", 1, [("1:1-1:6", "help")])]),
        ("gap", "Gen|eral", (-32803, "There is no option, synonym or group here to rename")),
        ("x", "1 1 |General", (-32803, "There is no option, synonym or group here to rename"))):
    expect(f"{name!r} for {cursor!r}", refused(name, cursor), wanted)

# ---- every place that names the option, and no other one

SCENE = """\
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
"""
OPTIONS = """\
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
"""
OTHERS = {"part.inc": "gap_tol 1\n", "sub/other.def": "gap_tol double 1 0.1 0 1 1 1 Other\n",
          "sub/other.opt": "gap_tol 1\n"}
for name, definition, options, wanted in (
        ("gap", "", '" gap_|tol 0.1',
         [("main.opt", 1,
           [("1:0-1:7", "gap"), ("2:0-2:7", "gap"), ("6:9-6:16", "gap"), ("9:18-9:25", "gap")]),
          ("part.inc", None, [("0:0-0:7", "gap")]),
          ("solver.def", 1,
           [("0:0-0:7", "gap"), ("7:9-7:16", "gap"), ("9:1-9:8", "gap"), ("14:15-14:22", "gap"),
            ("17:1-17:8", "gap")])]),
        ("limit", " gap|tol  use", "",
         [("main.opt", None, [("3:0-3:6", "limit")]),
          ("solver.def", 1, [("14:0-14:6", "limit"), ("18:1-18:7", "limit")])]),
        ("Threads", " th|reads gap_tol", "",
         [("main.opt", None, [("9:30-9:37", "Threads")]),
          ("solver.def", 1, [("1:0-1:7", "Threads"), ("7:1-7:8", "Threads")])])):
    texts = [text.replace(piece.replace("|", ""), piece, bool(piece))
             for text, piece in ((SCENE, definition), (OPTIONS, options))]
    expect(f"every place of {definition or options!r}", edited(name, *texts, OTHERS), wanted)

# ---- a new name that would change what something else means

FULL = "gap_tol " + "x" * 1012  # as long as a line may be
LIST = OPTION + "\nword strlist 1 1 1 W\nlist multilist 2 1 1 L\n gap_tol" + " " * 1007 + "word\n"
for what, name, definition, options, wanted in (
        ("a name of the same length", "gap_tal", "|" + OPTION, FULL,
         [("main.opt", None, [("0:0-0:7", "gap_tal")]), ("solver.def", 1, [("0:0-0:7", "gap_tal")])]),
        ("a longer one, which pushes the end of the line out", "gap_tola", "|" + OPTION, FULL,
         (-32803, "With this name, line 1 of FOLDER/main.opt would mean something else")),
        ("a longer one in a line that is cut anyway", "gap_tola", "|" + OPTION, FULL + "x",
         [("main.opt", None, [("0:0-0:7", "gap_tola")]), ("solver.def", 1, [("0:0-0:7", "gap_tola")])]),
        ("a list whose last member is not cut", "gap_tola", "|" + LIST, "",
         [("solver.def", 1, [("0:0-0:7", "gap_tola"), ("3:1-3:8", "gap_tola")])]),
        ("a list whose last member is cut", "gap_tolabcde", "|" + LIST, "",
         (-32803, "With this name, line 1 of solver.def would mean something else")),
        ("a mark whose name is cut", "gap_tola", "|" + OPTION + "\nold deprecated\n" + " " * 1013 + "gap_tol", "",
         (-32803, "With this name, line 1 of solver.def would mean something else")),
        ("a synonym whose name is cut to that of another option", "gap_newer",
         "|" + OPTION + "\ngap_new strlist 2 1 1 N\ns synonym" + " " * 1004 + "gap_tol", "",
         (-32803, "With this name, line 1 of solver.def would mean something else")),
        ("a name that is there, in a file that is open", "gap", OPTION, "gap_to|l 1\n\ngap 2\n",
         (-32803, "With this name, line 3 of main.opt would mean something else")),
        ("a name that is there", "gap", "|" + OPTION, "gap_tol 1\n\ngap 2\n",
         (-32803, "With this name, line 3 of FOLDER/main.opt would mean something else"))):
    expect(what, edited(name, definition, options), wanted)

# ---- texts that have changed since they were analysed, and a definition that is not open


# The files that change, and where.
def changed(answer):
    return [(*short(each["textDocument"]).values(), *(edit["range"] for edit in short(each["edits"])))
            for each in answer["documentChanges"]]


DEFINED, options, new = path("solver.def"), path("main.opt"), path("new.opt")
write("solver.def", "")  # the editor has another text
client = Client(folder, VERSIONS)
with client.together():  # so that nothing is analysed in between
    client.open(DEFINED, OPTION)
    client.open(options, "")
client.diagnostics(DEFINED)
client.diagnostics(options)
client.change(DEFINED, "* new line\n" + OPTION)
client.change(options, "gap_tol 1\n")
with client.together():  # the analysis of this long text is not done when the request comes
    client.open(new, "\n" * 50000 + "gap_tol 2\n")
    asked = client.ask("textDocument/rename", {
        "textDocument": {"uri": uri(DEFINED)}, "position": {"line": 1, "character": 0}, "newName": "gap"})
expect("the places in the new texts", changed(client.result(asked)),
       [("main.opt", 2, "0:0-0:7"), ("new.opt", 1, "50000:0-50000:7"), ("solver.def", 2, "1:0-1:7")])
client.quit()
write("solver.def", OPTION)
client = Client(folder, VERSIONS)
client.open(options, "gap_tol 1\n")
expect("the places in the definition on the disk", changed(client.at("rename", options, 0, 0, newName="gap")),
       [("main.opt", 1, "0:0-0:7"), ("solver.def", None, "0:0-0:7")])
client.quit()

# ---- the form of the answer, and what is renamed

expect("without versions", renamed("gap", "|" + OPTION, "gap_tol 1", {}, {}),
       {"changes": {"main.opt": [{"newText": "gap", "range": "0:0-0:7"}],
         "solver.def": [{"newText": "gap", "range": "0:0-0:7"}]}})
prepared = lambda piece, options: renamed("", at(piece), options, {}, VERSIONS, "prepareRename")
for piece, options, wanted in (
        ("gap|_tol", "", {"placeholder": "gap_tol", "range": "0:0-0:7"}),
        ("synonym gap_|tol", "", {"placeholder": "gap_tol", "range": "2:12-2:19"}),
        (".pri|or", "", {"placeholder": "prior", "range": "1:1-1:6"}),
        ("|general", "", {"placeholder": "general", "range": "3:0-3:7"}),
        ("", "x.pri|or 3", {"placeholder": "prior", "range": "0:2-0:7"}),
        ("", "hel|p 3", None),
        ("", "to|l 3", {"placeholder": "tol", "range": "0:0-0:3"}),
        ("", "tol |3", None),
        ("", "| tol 3", None),
        ("", "tol| 3", {"placeholder": "tol", "range": "0:0-0:3"}),
        ("Pri|ority", "", None),
        ("double |4", "", None)):
    expect(f"what is renamed in {piece!r} and {options!r}", prepared(piece, options), wanted)

finish()

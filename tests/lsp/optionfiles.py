"""What the language server answers in option files. In a text, "|" is the cursor.
usage: optionfiles.py TOOL"""
import json, os, subprocess, tempfile

from client import TOOL, Client, applied, expect, finish, uri

DEFINITION = """comment eolcomm !
indic indicator
time_limit double 1 60 0 1000 1 1 Seconds to run
 A second line of help.
iteration_limit integer 2 maxint 0 maxint 1 1 Iterations
method enumstr 3 auto 1 1 Algorithm
 auto 1 The solver chooses
 dual 1 Dual simplex
threads integer.OPT 4 0 0 64 1 1 Threads
verbose boolean 5 0 1 1 Talk more
gap_window double.TWO 6 0 0 1 1 1 Two gaps
quiet boolean.NV 7 1 1 1 Say nothing
title string 8 "" 1 1 Headline
old_time double 9 60 0 1000 1 1 Former limit
note strlist 10 1 1 Notes
secret integer 11 1 0 9 0 1 Not in the help
.prior double 12 0 0 10 1 1 Priority
both multilist 13 1 1 Method and talk
 method verbose
include immediate ReadFile 1 1 Another file
eolonly immediate EolFlag 1 1 One setting on a line
cores synonym threads
max_time synonym time_limit
old deprecated
 old_time use time_limit
 cores use threads
general group 1 1 General
level enumint 14 2 1 1 Level
 1 1 Low
 2 1 High
"""
CAPABILITIES = {
    "textDocument": {
        "completion": {"completionItem": {"documentationFormat": ["markdown"], "tagSupport": {"valueSet": [1]}}},
        "documentSymbol": {"hierarchicalDocumentSymbolSupport": True},
        "codeAction": {"codeActionLiteralSupport": {}}, "hover": {"contentFormat": ["markdown"]}}}

work = tempfile.TemporaryDirectory()
folder = os.path.realpath(work.name)
path = lambda name: os.path.join(folder, name)


def write(name, text):
    with open(path(name), "w", encoding="utf-8", newline="") as file:
        file.write(text)


write("solver.def", DEFINITION)
write("other.opt", "TIME_LIMIT 5\nmax_time 6\n")
write("foreign.opt", "* definition: foreign.def\ntime_limit 5\n")
write("foreign.def", "time_limit integer 1 1 1 9 1 1 x\n")
write("part.opt", "")
os.mkdir(path("parts"))
write("parts/a.opt", "")
write("wexcorin.json", '{"definitions": [{"files": "*.opt", "definition": "solver.def"}]}')
MAIN = path("main.opt")
client = Client(folder, CAPABILITIES)


# Opens the document with this text, and returns the place of the cursor.
def type_in(text, file=MAIN):
    before, _, after = text.partition("|")
    client.open(file, before + after)
    return before.count("\n"), len(before.rpartition("\n")[2].encode("utf-16-le")) // 2


def ask(method, text, **more):
    answer = client.at(method, MAIN, *type_in(text), **more)
    client.close(MAIN)
    return answer


def apply(text, edits):
    lines = text.split("\n")
    for each in sorted(edits, key=lambda each: (each["range"]["start"]["line"], each["range"]["start"]["character"]),
                       reverse=True):
        begin, end = each["range"]["start"], each["range"]["end"]
        head = lines[begin["line"]][:begin["character"]]
        tail = lines[end["line"]][end["character"]:]
        lines[begin["line"]:end["line"] + 1] = (head + each["newText"] + tail).split("\n")
    return "\n".join(lines)


# ---- completion: the labels in their order; "..." stands for any further ones

for text, wanted in (
        ("|", ["time_limit", "iteration_limit", "method", "..."]), ("ti|", ["time_limit", "title", "..."]),
        ("it_l|", ["iteration_limit"]), ("tiem_limit|", ["time_limit"]), ("x = 1\nTHR|", ["threads"]),
        ("o|", ["old_time"]), ("cor|", ["cores"]), ("indi|", ["indic"]), ("secr|", []),
        ("method |", ["auto", "dual"]), ("method=d|", ["auto", "dual"]), ("verbose |", ["yes", "no"]),
        ("level |", ["1", "2"]), ("time_limit |", ["60", "0", "1000"]), ("gap_window 0.5 |", ["0", "1"]), ("quiet |", []),
        ("title |", []), ("* ti|", []), ("method dual ! ti|", []), ("--ti|", []), ("method du |", []),
        ("both dual:|", ["yes", "no"]), ("x.|", ["prior"]), ("x.pr|", ["prior"]), ("x.prior('a') |", ["0", "10"]),
        ("x.prior('a|", []), ("eolonly off\nquiet met|", ["method"]), ("eolonly |", ["yes", "no"]),
        ('method "au|', ['"auto"', '"dual"']), ('both "du|al":no', ['"auto"', '"dual"']),
        ("include |", ["foreign.opt", "..."]), ("include parts/|", ["a.opt"]), ('include "pa|', ["foreign.opt", "..."])):
    labels = [each["label"] for each in ask("completion", text)["items"]]
    if wanted[-1:] == ["..."]:
        labels, wanted = labels[:len(wanted) - 1], wanted[:-1]
    expect(f"completion of {text!r}", labels, wanted)

# What the first item makes of the line.
for text, wanted in (("meth|od dual", "method dual"), ("time_limit 1.|5e-5 ! x", "time_limit 60 ! x"),
                     ('method "du|al" ! x', 'method "auto" ! x'), ("both du|al:no", "both auto:no"),
                     ("include parts/b|-1.opt", "include parts/a.opt"), ('include "parts/b| 1.opt"', 'include "parts/a.opt"'),
                     ('title "😀" ! x\nthr|ead 5', 'title "😀" ! x\nthreads 5')):
    made = applied(text.replace("|", ""), [ask("completion", text)["items"][0]["textEdit"]])
    expect(f"the item taken in {text!r}", made, wanted)
items = {each["label"]: each for each in ask("completion", "max|")["items"]}
expect("a synonym", items["max_time"]["detail"], "synonym of time_limit: number, default 60: Seconds to run")
items = {each["label"]: each for each in ask("completion", "old|")["items"]}
expect("a deprecated name is struck", items["old_time"]["tags"], [1])
answer = ask("completion", "ä = 1\nmeth|od dual")
expect("the whole word is replaced", answer["items"][0]["textEdit"]["range"],
       {"start": {"line": 1, "character": 0}, "end": {"line": 1, "character": 6}})
client.at("hover", MAIN, *type_in("|"))
item = client.request("completionItem/resolve", items["old_time"])
client.close(MAIN)
expect("documentation comes later", "deprecated; use time" in item["documentation"]["value"], True)
near = ask("completion", "tiem_limit|")
expect("a near name fits what is typed", (near["items"][0]["filterText"], near["isIncomplete"]), ("tiem_limit", True))
expect("the texts of values, and the default", [each["detail"] for text in ("method |", "level |")
                                                for each in ask("completion", text)["items"]],
       ["The solver chooses (default)", "Dual simplex", "Low", "High (default)"])

# ---- hover

for text, wanted in (
        ("time_|limit 5\nmax_time = 7", ["**time\\_limit**: Seconds to run", "A second line", "range: 0 to 1000",
                                         "default: `60`", "synonyms: max\\_time", "stored 5; overridden later",
                                         "In force: 7, from main.opt:2"]),
        ("m|ethod", ["`auto`: The solver chooses", "refused"]), ("method du|al", ["`dual`: Dual simplex"]),
        ("x.pri|or 3", ["Priority", "entry kept with value 3"]), ("|x.prior 3", ["a symbol", "entry kept"]),
        ("unkn|own 3", []), ("* time|_limit", [])):
    answer = ask("hover", text)
    shown = answer["contents"]["value"] if answer else ""
    expect(f"hover over {text!r}", [each for each in wanted if each not in shown] or bool(shown), bool(wanted))

# ---- where things are defined and used

place = lambda each: (os.path.basename(each["uri"]), each["range"]["start"]["line"], each["range"]["start"]["character"])
for text, wanted in (("ma|x_time 5", ("solver.def", 2, 0)), ("method du|al", ("solver.def", 7, 1)),
                     ("x.pri|or 5", ("solver.def", 16, 0)), ("include part.op|t", ("part.opt", 0, 0))):
    expect(f"definition of {text!r}", place(ask("definition", text)), wanted)
for text in ("unkno|wn 1", "include none|.opt", "title so|me", "method none|"):
    expect(f"definition of {text!r}", ask("definition", text), None)
expect("references", [place(each) for each in
                      ask("references", "\nä.prior 1\ntime_l|imit 5", context={"includeDeclaration": True})],
       [("solver.def", 2, 0), ("solver.def", 22, 17), ("main.opt", 2, 0), ("other.opt", 0, 0), ("other.opt", 1, 0)])
expect("references: lists and marks", [place(each) for each in
                                       [*ask("references", "m|ethod dual", context={}), *ask("references", "old|_time 1", context={})]],
       [("solver.def", 18, 1), ("main.opt", 0, 0), ("solver.def", 24, 1), ("main.opt", 0, 0)])
client.open(path("new.opt"), "")
expect("an included file that is not saved", place(ask("definition", "include new.op|t")), ("new.opt", 0, 0))
client.close(path("new.opt"))
expect("highlights", [place({"uri": "", **each})[1:] for each in ask("documentHighlight", "max_time 1\ntime_l|imit 2")],
       [(0, 0), (1, 0)])
symbols = ask("documentSymbol", "|method=dual ! note\nx.prior('a') 3\n* time_limit 3\n--list a b\n8 bad\nnew 4")
expect("symbols", [(each["name"], each["detail"]) for each in symbols],
       [("method", "dual"), ("x.prior", "('a') 3"), ("--list", "a b"), ("new", "4")])

kinds = [each["kind"] for each in [*symbols, *ask("completion", "method |")["items"], *ask("completion", "include |")["items"]]]
expect("only kinds that each client knows, if this one names no other", max(kinds) <= 18, True)

# ---- code actions: the title of the preferred one, or of the only one, and the text that it makes

for number, (text, wanted, result) in enumerate((
        ("tiem_limit| 5", 'Replace "tiem_limit" by "time_limit"', "time_limit 5"),
        ("time lim|it 5", 'Replace "time limit" by "time_limit"', "time_limit 5"),
        ("method dua|", 'Replace "dua" by "dual"', "method dual"),
        ("cores |4", 'Replace "cores" by "threads"', "threads 4"),
        ("old_time |4", 'Replace "old_time" by "time_limit"', "time_limit 4"),
        ("threads 1\ntitle a\nthreads |2", "Remove line 1, which is overridden", "title a\nthreads 2"),
        ("blabla |4", "Make the line a comment", "* blabla 4"),
        ("eolonly off\nquiet blabla |4", "Make the rest of the line a comment", "eolonly off\nquiet ! blabla 4"),
        ("x.prio|r2 4", 'Replace ".prior2" by ".prior"', "x.prior 4"), ("gap_window 0.1 0.2\ngap_window |0.3", None, None),
        ("threads |4", None, None))):
    file = path(f"action{number}.opt")
    line, character = type_in(text, file)
    found = client.diagnostics(file)
    position = {"line": line, "character": character}
    params = {"textDocument": {"uri": uri(file)}, "range": {"start": position, "end": position},
              "context": {"diagnostics": [each for each in found if each["range"]["start"]["line"] == line]}}
    actions = client.request("textDocument/codeAction", params)
    chosen = [each for each in actions if each.get("isPreferred")] or actions[:1]
    expect(f"action for {text!r}", chosen[0]["title"] if chosen else None, wanted)
    if chosen:
        made = apply(text.replace("|", ""), chosen[0]["edit"]["changes"][uri(file)])
        expect(f"what the action makes of {text!r}", made, result)
        expect(f"the diagnostic of the action for {text!r}", len(chosen[0].get("diagnostics", [])), 1)
    params["context"]["only"] = ["refactor"]
    expect("other kinds of actions", client.request("textDocument/codeAction", params), [])

# ---- formatting and hints

FORMS = {"options": {"tabSize": 8, "insertSpaces": True}}
for text, wanted in (
        ("|  method=dual  \ntime_limit\t=  5! a\nthreads 3 ! b\n\nquiet ",
         "method     = dual\ntime_limit = 5  ! a\nthreads      3  ! b\n\nquiet"),
        ("| title   a  b \n  title \"  a ! b \"   !  c  ", "title a  b\ntitle \"  a ! b \"  !  c"),
        ("|* a  b  \n * c\nunknown   4 \n--list  a  \ntitle \"open  ", "* a  b\n * c\nunknown   4\n--list  a\ntitle \"open  "),
        ("|x.prior( 'a  b' )  3 \neolonly   off\nquiet,  threads 4 ", None)):
    plain = text.replace("|", "")
    made = apply(plain, ask("formatting", text, **FORMS))
    wanted = wanted or "x.prior( 'a  b' )  3\neolonly off\nquiet,  threads 4"
    expect(f"formatting of {text!r}", made, wanted)
    expect("formatting again", apply(made, ask("formatting", "|" + made, **FORMS)), made)
edits = ask("rangeFormatting", "|threads  1 \nthreads  2 ", **FORMS,
            range={"start": {"line": 1, "character": 0}, "end": {"line": 1, "character": 9}})
expect("formatting of one line", apply("threads  1 \nthreads  2 ", edits), "threads  1 \nthreads 2")
window = {"range": {"start": {"line": 1, "character": 0}, "end": {"line": 9, "character": 0}}}
expect("no hints at first", ask("inlayHint", "|threads 4", **window), None)
client.notify("workspace/didChangeConfiguration", {"settings": {"wexcorin": {"inlayHints": True}}})
expect("hints", [(each["label"], each["position"]) for each in ask("inlayHint", "|\ntime_limit 4 ! x\ntitle a", **window)],
       [("default 60", {"line": 1, "character": 12}), ('default ""', {"line": 2, "character": 7})])


# What formatting does not change: the values that are read and the messages about the lines.
def read(text, definition):
    write("formatted.opt", text)
    run = subprocess.run([TOOL, "show", "--json", definition, path("formatted.opt")], capture_output=True)
    return [(each["name"], each["value"]) for each in json.loads(run.stdout)["options"]], run.stderr


client.quit()
client = Client(".", CAPABILITIES)
for file, definition in (("solver.opt", "solver.def"), ("solver_mistakes.opt", "solver.def"),
                         ("solver_priorities.opt", "solver.def"), ("types.opt", "types.def"), ("first.opt", "first.def")):
    with open(f"examples/{file}", encoding="utf-8", newline="") as opened:
        before = opened.read()
    definition = os.path.abspath(f"examples/{definition}")
    text = f"* definition: {definition}\n" + before
    client.open(path(file), text)
    after = apply(text, client.at("formatting", path(file), 0, 0, **FORMS))
    expect(f"{file} is changed", text != after, file != "solver_priorities.opt")
    expect(f"what {file} holds", "".join(after.split()), "".join(text.split()))
    expect(f"what is read of {file}", read(after, definition), read(text, definition))

# ---- names that are typed with blanks

MINOS = "* definition: " + os.path.abspath("examples/types.def") + "\n"
for text, wanted in (("peak t|", ["peak temperature"]), ("pea|", ["peak temperature"]), ("peak temperature |",
                     ["1200", "minint", "maxint"])):
    line, character = type_in(MINOS + text)
    expect(f"completion of {text!r} in lookup mode Minos",
           [each["label"] for each in client.at("completion", MAIN, line, character)["items"]], wanted)
    client.close(MAIN)

# ---- short forms of names: each name that is offered finds its option

write("path.def", """Path lookup
conv_tolerance double 1 0.1 0 1 1 1 Tolerance
con_tol_all integer 2 1 1 9 1 1 Other
order_of_steps integer 3 1 1 9 1 1 Never found, because of its word of two characters
con_tolerant integer 4 1 1 9 1 1 Found as the first option
""")
for text, wanted in (("|", ["conv_tolerance", "con_tol_all"]), ("con_tol|", ["con_tol_all", "conv_tolerance"]),
                     ("convergence_tol|", ["conv_tolerance"]), ("con_tol |", ["0.1", "0", "1"])):
    line, character = type_in("* definition: path.def\n" + text)
    expect(f"completion of {text!r} in lookup mode Path",
           [each["label"] for each in client.at("completion", MAIN, line, character)["items"]], wanted)
    client.close(MAIN)
expect("the exit code", client.quit(), 0)

finish()

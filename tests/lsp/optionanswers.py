"""Hover, jumps, uses, highlights, symbols and hints in option files: whole answers, in the short form of
client.py.
usage: optionanswers.py TOOL"""
import os, tempfile

from client import expect, explained, finish, path, short, uri, write
from optiontext import MAIN, TEXT, asked, start

client = start(documentSymbol={"hierarchicalDocumentSymbolSupport": True, "symbolKind": {"valueSet": [7, 18, 24]}},
               hover={"contentFormat": ["plaintext", "markdown"]})
plain = start({"inlayHints": True})  # of a client that can do nothing

write("nested.inc", "threads 3\nmax_time 4\n")
write("other.opt", "TIME_LIMIT 5\nx.prior 2\nmax_time 6\ninclude nested.inc\ninclude none.inc\ninclude \"\"\n"
      "title title.inc\n")
write("title.inc", "time_limit 4\n")
write("foreign.opt", "* definition: foreign.def\ntime_limit 5\n")
write("foreign.def", "time_limit integer 1 1 1 9 1 1 x\ng group 1 1 G\n")

# ---- hover: the range, and the text
hovered = lambda text: explained(asked(client, "hover", text), "markdown")
for text, wanted in (
        ("time_|limit 5\nmax_time = 7",
         ("0:0-0:10",
          "**time\\_limit**: Seconds to run\n\nA second line of help.\n\n- type: number\n- range: 0 to "
          "1000\n- default: `60`\n- group: general: General\n- synonyms: max\\_time\n\n- main.opt:1 "
          "`time_limit 5` stored 5; overridden later\n- main.opt:2 `max_time = 7` stored 7 (synonym "
          "max\\_time)\n\nIn force: 7, from main.opt:2\n")),
        ("m|ethod dual",
         ("0:0-0:6",
          "**method**: Algorithm\n\n- type: choice\n- values:\n  - `auto`: The solver chooses\n  - `dual`: "
          "Dual simplex\n  - `hidden`: Not in the help\n  - `old`\n- default: `auto`\n- group: general: "
          "General\n\n- main.opt:1 `method dual` stored dual\n\nIn force: dual, from main.opt:1\n")),
        ("method du|al", ("0:7-0:11", "`dual`: Dual simplex\n")),
        ("method DU|AL ! x", ("0:7-0:11", "`dual`: Dual simplex\n")),
        ('method "du|al"', None),
        ("method o|ld", None),
        ("method xx|x", None),
        ("level |1", ("0:6-0:7", "`1`: Low\n")),
        ("level |2", None),
        ("verbose y|es", None),
        ("both du|al:no", None),
        ("x.pri|or 3",
         ("0:2-0:7",
          "**.prior**: Priority\n\n- type: number\n- range: 0 to 10\n- default: `0`\n- group: general: "
          "General\n\n- main.opt:1 `x.prior 3` entry kept with value 3\n\nIn force: 3, from main.opt:1\n")),
        ("|x.prior 3\nx.prefix 4\ny.prior 2",
         ("0:0-0:1",
          "`x`: a symbol\n\n- main.opt:1 `x.prior 3` entry kept with value 3\n- main.opt:2 `x.prefix 4` "
          "entry kept with value 4\n")),
        ("x('a').pr|ior 3", None),
        ("unkn|own 3", None),
        ("unknown thr|ee", None),
        ("* time|_limit", None),
        ("-in|dic e$v 1", None),
        ("indic x y\nindi|c\nhelp a",
         ("1:0-1:5",
          "`indic`: the keyword of indicators\n\n- main.opt:1 `indic x y` refused: \\$ expected after "
          'equation identifier "x"\n- main.opt:2 `indic` refused: Equation ID expected for indicator\n')),
        ("--li|st a b\n--other c",
         ("0:2-0:6", '`--list`\n\n- main.opt:1 `--list a b` stored "a b"\n\nIn force: "a b"\n')),
        ("gap_wi|ndow 0.1 0.2",
         ("0:0-0:10",
          "**gap\\_window**: Two gaps\n\n- type: number, two values\n- range: 0 to 1\n- default: `0`\n- "
          "group: general: General\n\n- main.opt:1 `gap_window 0.1 0.2` stored first value 0.1\n- "
          "main.opt:1 `gap_window 0.1 0.2` stored second value 0.2\n\nIn force: 0\\.1, from main.opt:1\n\n"
          "Second value: 0\\.2, from main.opt:1\n")),
        ("gap_window 0.1 |0.2", None),
        ("note a\nno|te b",
         ("1:0-1:4",
          "**note**: Notes\n\n- type: text, may be given repeatedly\n- group: general: General\n\n- "
          "main.opt:1 `note a` stored a\n- main.opt:2 `note b` stored b\n\nIn force: a, b\n")),
        ("method dual !| x", None),
        ("cor|es 2",
         ("0:0-0:5",
          "**threads**: Threads\n\n- type: integer, the value may be left out\n- range: 0 to 64\n- default: "
          "`0`\n- group: general: General\n- synonyms: cores\n- their state: deprecated; use threads\n\n- "
          'main.opt:1 `cores 2` reported (synonym cores): deprecated synonym "cores"; use threads\n- '
          "main.opt:1 `cores 2` stored 2 (synonym cores)\n\nIn force: 2, from main.opt:1\n")),
        ("all| 3",
         ("0:0-0:3",
          "**all**: All limits\n\n- type: sets several options\n- members: time\\_limit\n- group: general: "
          "General\n\n- main.opt:1 `all 3` passed its text on to its members (macro all)\n")),
        ("", None),
        ("title |x", None),
        ("say| x",
         ("0:0-0:3",
          "**say**: Say\n\n- type: acts when it is read\n- group: general: General\n\n- main.opt:1 `say x` "
          "acted\n- main.opt:1 `say x` refused: x\n")),
        ('eolonly "no"\nwrong 1 --list a fr|ee x',
         ("1:17-1:21",
          '**free**\n\n- type: text\n- default: `""`\n- group: general: General\n\n- main.opt:2 `wrong 1 '
          "--list a free x` stored x\n\nIn force: x, from main.opt:2\n")),
        ("include nested.inc\nth|reads 5",
         ("1:0-1:7",
          "**threads**: Threads\n\n- type: integer, the value may be left out\n- range: 0 to 64\n- default: "
          "`0`\n- group: general: General\n- synonyms: cores\n- their state: deprecated; use threads\n\n- "
          "main.opt:1 \\> nested.inc:1 `threads 3` stored 3; overridden later\n- main.opt:2 `threads 5` "
          "stored 5\n\nIn force: 5, from main.opt:2\n")),
        ("secret| 3",
         ("0:0-0:6",
          "**secret**: Not in the help\n\n- type: integer\n- range: 0 to 9\n- default: `1`\n- group: "
          "general: General\n- synonyms: hush\n\n- main.opt:1 `secret 3` stored 3\n\nIn force: 3, from "
          "main.opt:1\n")),
        ("--list a|", None),
        ("x.prior 3 ! thr|eads", None),
        ('name| "😀 b" ! x',
         ("0:0-0:4",
          '**name**\n\n- type: text\n- default: `"a b"`\n- group: general: General\n\n- main.opt:1 `name "😀 '
          'b" ! x` stored "😀 b"\n\nIn force: "😀 b", from main.opt:1\n'))):
    expect(f"hover over {text!r}", hovered(text), wanted)


def count(lines):
    text = hovered("threads 1\n" * lines + "|threads 2")[1]
    return [line for line in text.split("\n") if "earlier" in line], text.count("`threads 1`")


expect("hover: twenty lines at most", [count(19), count(20), count(22)],
       [([], 19), (["- 1 earlier line"], 19), (["- 3 earlier lines"], 19)])
hoveredplain = lambda text: explained(asked(plain, "hover", text), "plaintext")
for text, wanted in (
        ("time_|limit 5",
         ("0:0-0:10",
          "time_limit: Seconds to run\n\nA second line of help.\n\n- type: number\n- range: 0 to 1000\n- "
          "default: 60\n- group: general: General\n- synonyms: max_time\n\n- main.opt:1 time_limit 5 stored "
          "5\n\nIn force: 5, from main.opt:1\n")),
        ("m|ethod du",
         ("0:0-0:6",
          "method: Algorithm\n\n- type: choice\n- values:\n  - auto: The solver chooses\n  - dual: Dual "
          "simplex\n  - hidden: Not in the help\n  - old\n- default: auto\n- group: general: General\n\n- "
          'main.opt:1 method du refused: Unknown value for option "method" saw "du"; Possible values are  '
          "auto dual hidden old\n\nIn force: auto, the default\n")),
        ("|x.prior 3", ("0:0-0:1", "x: a symbol\n\n- main.opt:1 x.prior 3 entry kept with value 3\n")),
        ("indi|c a$b.c 1",
         ("0:0-0:5",
          "indic: the keyword of indicators\n\n- main.opt:1 indic a$b.c 1 refused: Boolean value expected "
          'for equation indicator "a", Saw ".c"\n')),
        ("--li|st a b", ("0:2-0:6", '--list\n\n- main.opt:1 --list a b stored "a b"\n\nIn force: "a b"\n')),
        ("method du|al", ("0:7-0:11", "dual: Dual simplex\n"))):
    expect(f"plain hover over {text!r}", hoveredplain(text), wanted)
client.open(MAIN, "")
client.diagnostics(MAIN)
expect("hover over a line that is not yet analysed", client.at("hover", MAIN, 0, 0, ["free x"])["contents"]["value"],
       '**free**\n\n- type: text\n- default: `""`\n- group: general: General\n\nNo line touched it.\n')
client.close(MAIN)
write("choices.def", "".join(f"c{count} enumint 1 1 1 1 Choice\n" + "".join(
    f" {number} 1 {'text' if number == 3 else ''}\n" for number in range(1, count + 1)) for count in (20, 21, 23)) +
    "none enumint 1 1 1 1 Without texts\n 1 1\n 2 1\ng group 1 1 G\n")


def choices(name):
    text = hovered(f"* definition: choices.def\n|{name} 1")[1]
    return text.partition("values: ")[2].partition("\n")[0] or [
        line for line in text.split("\n") if "more" in line or "text" in line or "`1`" in line]


for name, wanted in (
        ("c20", ["  - `1`", "  - `3`: text", "- default: `1`"]),
        ("c21", ["  - `1`", "  - `3`: text", "  - 1 more", "- default: `1`"]),
        ("c23", ["  - `1`", "  - `3`: text", "  - 3 more", "- default: `1`"]),
        ("none", "1, 2")):
    expect(f"hover: the values of {name}", choices(name), wanted)

# ---- jumps, uses and highlights: the file and the range

for each in ("other.opt", "foreign.opt"):
    for one in (client, plain):
        one.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(path(each)), "type": 1}]})


def places(method, text, client=client, **more):
    answer = short(asked(client, method, text, **more))
    answer = [answer] if isinstance(answer, dict) else answer
    return answer and [(each.get("uri", ""), each["range"]) for each in answer]


jumps = lambda text: places("definition", text)
for text, wanted in (
        ("ma|x_time 5", [("solver.def", "3:0-3:10")]),
        ("time|_limit 5", [("solver.def", "3:0-3:10")]),
        ("* definition: foreign.def\ntime|_limit 5", [("foreign.def", "0:0-0:10")]),
        ("method du|al", [("solver.def", "7:1-7:5")]),
        ("method |DUAL", [("solver.def", "7:1-7:5")]),
        ("method none|", None),
        ("level |1", [("solver.def", "28:1-28:2")]),
        ("level 2|", [("solver.def", "29:1-29:2")]),
        ("level |3", None),
        ("x.pri|or 5", [("solver.def", "19:0-19:6")]),
        ("|x.prior 5", None),
        ("include other.op|t", [("other.opt", "0:0-0:0")]),
        ('include "other.op|t"', [("other.opt", "0:0-0:0")]),
        ('include "other.op|t', [("other.opt", "0:0-0:0")]),
        ('include "|"', None),
        ("include none|.opt", None),
        ("include par|ts", None),
        ("describe met|hod", None),
        ("title so|me", None),
        ("unkno|wn 1", None),
        ("in|dic x", None),
        ("--li|st a", None),
        ("", None),
        ("wexc|orin", None),
        ("both d|ual:no", None),
        ("threads 1 ! th|reads", None)):
    expect(f"definition of {text!r}", jumps(text), wanted)
uses = lambda text, declared: places("references", text, context={"includeDeclaration": declared})
while len(uses("|time_limit", False)) < 6:  # until the folder has been looked through
    pass
for text, declared, wanted in (
        ("\nä.prior 1\ntime_l|imit 5", True,
         [("solver.def", "3:0-3:10"), ("solver.def", "26:1-26:11"), ("solver.def", "45:17-45:27"),
          ("main.opt", "2:0-2:10"), ("nested.inc", "1:0-1:8"), ("other.opt", "0:0-0:10"),
          ("other.opt", "2:0-2:8")]),
        ("\nmax_t|ime 5", False,
         [("solver.def", "26:1-26:11"), ("solver.def", "45:17-45:27"), ("main.opt", "1:0-1:8"),
          ("nested.inc", "1:0-1:8"), ("other.opt", "0:0-0:10"), ("other.opt", "2:0-2:8")]),
        ("ä.pri|or 1", True, None),
        ("meth|od dual", False, [("solver.def", "22:1-22:7"), ("main.opt", "0:0-0:6")]),
        ("method du|al", True, None),
        ("|x.prior 1", True, None),
        ("unkn|own 1", True, None),
        ("--li|st a", True, []),
        ("help| x", True, [("main.opt", "0:0-0:4")]),
        ("", True, None),
        ("old|_time 1", True,
         [("solver.def", "16:0-16:8"), ("solver.def", "47:1-47:9"), ("main.opt", "0:0-0:8")])):
    expect(f"uses of {text!r}", uses(text, declared), wanted)
client.open(path("solver.def"), "* new\n" + TEXT)
client.diagnostics(path("solver.def"))
expect("uses in a definition that is open", uses("old|_time 1", True),
       [("solver.def", "17:0-17:8"), ("solver.def", "48:1-48:9"), ("main.opt", "0:0-0:8")])
client.close(path("solver.def"))
marks = lambda text: places("documentHighlight", text)
for text, wanted in (
        ("max_time 1\ntime_l|imit 2\nthreads 3", [("", "0:0-0:8"), ("", "1:0-1:10")]),
        ("|x.prior 1\nX.prefix 2\ny.prior 3\nthreads 4", [("", "0:0-0:1"), ("", "1:0-1:1")]),
        ("x.pri|or 1\ny.prior 2", [("", "0:2-0:7"), ("", "1:2-1:7")]),
        ("--li|st a\n--list b", [("", "0:2-0:6"), ("", "1:2-1:6")]),
        ("unkn|own 1\nunknown 2", []),
        ('eolonly off\nname "a",thr|eads 1,threads 2', [("", "1:9-1:16"), ("", "1:19-1:26")]),
        ("method du|al", None),
        ("thr|eads 1 ! threads", [("", "0:0-0:7")]),
        ("* th|reads", None),
        ("", None)):
    expect(f"highlights of {text!r}", marks(text), wanted)

# ---- symbols

SETTINGS = "|method=dual ! note\nx.prior ('a', 'b') 3\n* time_limit 3\n--list=a b\n8 bad\nnew 4\ninclude x.inc\n" \
           "indic a b\nquiet\ny.prior('a', b) 2\nz.prior(3) 2"
expect("symbols", [tuple(short(each).values()) for each in asked(client, "documentSymbol", SETTINGS)],
       [("dual", 7, "method", "0:0-0:11", "0:0-0:6"), ("('a', 'b') 3", 7, "x.prior", "1:0-1:20", "1:0-1:7"),
        ("a b", 18, "--list", "3:0-3:10", "3:0-3:6"), ("4", 7, "new", "5:0-5:5", "5:0-5:3"),
        ("x.inc", 24, "include", "6:0-6:13", "6:0-6:7"), ("a b", 24, "indic", "7:0-7:9", "7:0-7:5"),
        ("", 7, "quiet", "8:0-8:5", "8:0-8:5"), ("('a', b", 7, "y.prior", "9:0-9:14", "9:0-9:7"),
        ("(", 7, "z.prior", "10:0-10:8", "10:0-10:7")])
expect("the fields of a symbol", list(asked(client, "documentSymbol", SETTINGS)[0]),
       ["detail", "kind", "name", "range", "selectionRange"])
expect("a list of symbols", short(asked(plain, "documentSymbol", SETTINGS)),
       [{"kind": 7, "location": {"range": "0:0-0:11", "uri": "main.opt"}, "name": "method"},
        {"kind": 7, "location": {"range": "1:0-1:20", "uri": "main.opt"}, "name": "x.prior"},
        {"kind": 18, "location": {"range": "3:0-3:10", "uri": "main.opt"}, "name": "--list"},
        {"kind": 7, "location": {"range": "5:0-5:5", "uri": "main.opt"}, "name": "new"},
        {"kind": 7, "location": {"range": "6:0-6:13", "uri": "main.opt"}, "name": "include"},
        {"kind": 7, "location": {"range": "7:0-7:9", "uri": "main.opt"}, "name": "indic"},
        {"kind": 7, "location": {"range": "8:0-8:5", "uri": "main.opt"}, "name": "quiet"},
        {"kind": 7, "location": {"range": "9:0-9:14", "uri": "main.opt"}, "name": "y.prior"},
        {"kind": 7, "location": {"range": "10:0-10:8", "uri": "main.opt"}, "name": "z.prior"}])

# ---- hints


def hints(text, first, last):
    lines = {"start": {"line": first, "character": 0}, "end": {"line": last, "character": 0}}
    answer = asked(plain, "inlayHint", "|" + text, range=lines)
    expect("a blank before each hint", {each["paddingLeft"] for each in answer} <= {True}, True)
    return [tuple(short({key: each[key] for key in sorted(each) if key != "paddingLeft"}).values()) for each in answer]


for text, first, last, wanted in (
        ("time_limit 4 ! x\ntitle a\nthreads 3", 0, 9,
         [("default 60", "0:12"), ('default ""', "1:7"), ("default 0", "2:9")]),
        ("time_limit 4 ! x\ntitle a\nthreads 3", 1, 1, [('default ""', "1:7")]),
        ("gap_window 0.1 0.2\nnote x\nquiet\nthreads\nunknown 3\nx.prior 2\nmethod none\n* threads 3", 0, 9,
         [("default 0", "0:18"), ("default 0", "5:9"), ("default auto", "6:11")]),
        ('eolonly "off"\nindic e$v yes note a threads 3 verbose yes name "a"b c', 0, 9,
         [("default 0", "1:30"), ("default 0", "1:42"), ('default "a b"', "1:54")])):
    expect(f"hints in {text!r}", hints(text, first, last), wanted)
ALL = {"start": {"line": 0, "character": 0}, "end": {"line": 9, "character": 0}}
expect("no hints unless they are wanted", asked(client, "inlayHint", "|threads 4", range=ALL), None)
client.notify("workspace/didChangeConfiguration", {"settings": {"wexcorin": {"inlayHints": True}}})
expect("hints when they are wanted", short(asked(client, "inlayHint", "|threads 4", range=ALL)),
       [{"label": "default 0", "paddingLeft": True, "position": "0:9"}])

# ---- a file for which there is no definition, and one whose definition is not there

lonely = tempfile.TemporaryDirectory()
ALONE, NONE = os.path.join(lonely.name, "alone.opt"), path("none.opt")
for file, text in ((ALONE, ""), (NONE, "* definition: none.def")):
    client.open(file, text + "\nthreads  3\n")
    client.diagnostics(file)


def unanswered(method):
    lines = {"start": {"line": 0, "character": 0}, "end": {"line": 1, "character": 0}}
    return short([client.at(method, file, 1, 2, range=lines, context={}, newName="x") for file in (ALONE, NONE)])


for method, wanted in (
        ("hover", [None, None]),
        ("definition", [None, None]),
        ("references", [None, None]),
        ("documentHighlight", [None, []]),
        ("documentSymbol",
         [[], [{"detail": "3", "kind": 7, "name": "threads", "range": "1:0-1:10", "selectionRange": "1:0-1:7"}]]),
        ("completion", [None, {"isIncomplete": True, "items": []}]),
        ("formatting", [None, []]),
        ("rangeFormatting", [None, []]),
        ("inlayHint", [None, []]),
        ("codeAction", [[], []]),
        ("prepareRename", [None, None]),
        ("rename",
         [{"code": -32803, "message": "There is no option, synonym or group here to rename"},
          {"code": -32803, "message": "There is no option, synonym or group here to rename"}]),
        ("signatureHelp", [None, None])):
    expect(f"{method} without a definition", unanswered(method), wanted)
client.quit()
plain.quit()

finish()

"""Completion in option files: whole answers.
usage: optiontyping.py TOOL"""
import os

from client import expect, finish, offered, path, uri, write
from optiontext import MAIN, asked, start

client = start(completion={"completionItem": {"documentationFormat": ["plaintext", "markdown"],
                                              "tagSupport": {"valueSet": [1]}}})
plain = start()  # of a client that can do nothing


def completed(text, client=client):
    answer = asked(client, "completion", text)
    return answer and offered(answer, "main.opt")


for text, wanted in (
        ("|",
         ["0:0-0:0", "time_limit [10] number, default 60: Seconds to run #1",
          "method [10] choice, default auto: Algorithm #2",
          "threads [10] integer, the value may be left out, default 0: Threads #3",
          "verbose [10] boolean, default 0: Talk more #4",
          "gap_window [10] number, two values, default 0: Two gaps #5",
          "quiet [10] boolean, takes no value, default 1: Say nothing #6",
          'title [10] text, default "": Headline #7', 'name [10] text, default "a b" #8',
          "note [10] text, may be given repeatedly: Notes #10",
          "both [10] list of values for several options: Method and talk #14",
          "pair [10] list of values for several options: Lists in lists #15",
          "all [10] sets several options: All limits #16", "level [10] choice of numbers, default 2: Level #17",
          "include [10] acts when it is read: Another file #18",
          "eolonly [10] acts when it is read: One setting on a line #19",
          "nobounds [10] acts when it is read: No bounds #20",
          "outer [10] sets several options: A macro of macros #21",
          "lists [10] sets several options: A macro of lists #22",
          "nothing [10] sets several options: No members #23", 'free [10] text, default "" #24',
          "describe [10] acts when it is read: Describe #25", "say [10] acts when it is read: Say #26",
          "deep1 [10] sets several options: Deep #29", "deep2 [10] sets several options: Deep #30",
          "deep3 [10] sets several options: Deep #31", "deep4 [10] sets several options: Deep #32",
          "deep5 [10] sets several options: Deep #33", "deep6 [10] sets several options: Deep #34",
          "deep7 [10] sets several options: Deep #35", "deep8 [10] sets several options: Deep #36",
          "deep9 [10] sets several options: Deep #37", "deep10 [10] sets several options: Deep #38",
          "max_time [18] synonym of time_limit: number, default 60: Seconds to run #1",
          "old_time [10] number, default 60: Former limit #9 tags=[1]",
          "spare [10] integer, default 1: Spare #27 tags=[1]",
          "two_old [10] integer, default 1: Old, too #28 tags=[1]",
          "cores [18] synonym of threads: integer, the value may be left out, default 0: Threads #3 tags=[1]",
          "indic [14] begins an indicator"]),
        ("t|",
         ["incomplete", "0:0-0:1", "threads [10] integer, the value may be left out, default 0: Threads #3",
          "time_limit [10] number, default 60: Seconds to run #1", 'title [10] text, default "": Headline #7',
          "two_old [10] integer, default 1: Old, too #28 tags=[1]",
          "max_time [18] synonym of time_limit: number, default 60: Seconds to run #1",
          "old_time [10] number, default 60: Former limit #9 tags=[1]"]),
        ("l|",
         ["incomplete", "0:0-0:1", "level [10] choice of numbers, default 2: Level #17",
          "lists [10] sets several options: A macro of lists #22",
          "time_limit [10] number, default 60: Seconds to run #1"]),
        ("TiEm_limit|",
         ["incomplete", "0:0-0:10",
          "time_limit [10] number, default 60: Seconds to run #1 filterText=TiEm_limit"]),
        ("THR|",
         ["incomplete", "0:0-0:3", "threads [10] integer, the value may be left out, default 0: Threads #3"]),
        ("o|",
         ["incomplete", "0:0-0:1", "outer [10] sets several options: A macro of macros #21",
          "old_time [10] number, default 60: Former limit #9 tags=[1]",
          "two_old [10] integer, default 1: Old, too #28 tags=[1]"]),
        ("cor|",
         ["incomplete", "0:0-0:3",
          "cores [18] synonym of threads: integer, the value may be left out, default 0: Threads #3 tags=[1]"]),
        ("ind|",
         ["incomplete", "0:0-0:3", "gap_window [10] number, two values, default 0: Two gaps #5",
          "indic [14] begins an indicator"]),
        ("secr|", ["incomplete"]),
        ("sya|", ["incomplete", "0:0-0:3", "say [10] acts when it is read: Say #26 filterText=sya"]),
        ("se_l|", ["incomplete"]),
        ("gap_w|", ["incomplete", "0:0-0:5", "gap_window [10] number, two values, default 0: Two gaps #5"]),
        ("g_w|", ["incomplete", "0:0-0:3", "gap_window [10] number, two values, default 0: Two gaps #5"]),
        ("g_w_w|", ["incomplete"]),
        ("_wi|", []),
        ("i|",
         ["incomplete", "0:0-0:1", "include [10] acts when it is read: Another file #18",
          "indic [14] begins an indicator"]),
        ("im|",
         ["incomplete", "0:0-0:2", "max_time [18] synonym of time_limit: number, default 60: Seconds to run #1",
          "time_limit [10] number, default 60: Seconds to run #1",
          "old_time [10] number, default 60: Former limit #9 tags=[1]"]),
        ("* ti|", []),
        ("eolonly off\nmethod dual ! ti|", []),
        ("--ti|", []),
        ("- -|", []),
        ("=|", []),
        ("ä 3|", []),
        ("old_time |", ["0:9-0:9", "60 [12] default", "0 [12] lowest", "1000 [12] highest"]),
        ("meth|od 3", ["incomplete", "0:0-0:6", "method [10] choice, default auto: Algorithm #2"]),
        ("meth|_od=3", ["incomplete", "0:0-0:7", "method [10] choice, default auto: Algorithm #2"]),
        ("hush|", ["incomplete"]),
        ("thr\x1a|", []),
        ("quiet|", ["incomplete", "0:0-0:5", "quiet [10] boolean, takes no value, default 1: Say nothing #6"])):
    expect(f"names for {text!r}", completed(text), wanted)
for text in ("-|", "/|", "eolonly off\nthreads 3 |quiet"):
    expect(f"all names for {text!r}", completed(text)[1:], completed("|")[1:])
expect("deprecated names of a client without tags", completed("old|", plain),
       ["incomplete", "0:0-0:3", "old_time [10] number, default 60: Former limit #9 deprecated=True",
        "two_old [10] integer, default 1: Old, too #28 deprecated=True"])

for text, wanted in (
        ("x.|",
         ["incomplete", "0:2-0:2", "prior [10] number, default 0: Priority #12",
          "prefix [10] number, default 0: Prefix #13"]),
        ("x.p|",
         ["incomplete", "0:2-0:3", "prefix [10] number, default 0: Prefix #13",
          "prior [10] number, default 0: Priority #12"]),
        ("x.prioor|", ["incomplete", "0:2-0:8", "prior [10] number, default 0: Priority #12 filterText=prioor"]),
        ("x.pr|x 3",
         ["incomplete", "0:2-0:5", "prefix [10] number, default 0: Prefix #13",
          "prior [10] number, default 0: Priority #12"]),
        ("x('a').pri|", []),
        ("x.prior |", ["0:8-0:8", "0 [12] default, lowest", "10 [12] highest"]),
        ("x.prior('a') |", ["0:13-0:13", "0 [12] default, lowest", "10 [12] highest"]),
        ("x.prior(|", []),
        ("x.prior('a|", []),
        ("x.prior[|", []),
        ("x.prior(*) 3|", ["0:11-0:12", "0 [12] default, lowest", "10 [12] highest"]),
        ("x.prior{*} |", ["0:11-0:11", "0 [12] default, lowest", "10 [12] highest"]),
        ("x.prior 3|", ["0:8-0:9", "0 [12] default, lowest", "10 [12] highest"]),
        ("x.prior 3 |", []),
        ("x.nothing |", []),
        ("x.prior  4| ! y", ["0:9-0:10", "0 [12] default, lowest", "10 [12] highest"])):
    expect(f"behind a symbol: {text!r}", completed(text), wanted)
METHOD = ["auto [12] The solver chooses (default)", "dual [12] Dual simplex", "old [12] -"]
QUOTED = ['"auto" [12] The solver chooses (default)', '"dual" [12] Dual simplex', '"old" [12] -']
for text, wanted in (
        ("method |", ["0:7-0:7", *METHOD]),
        ('method=d| ! "x"', ["0:7-0:8", *METHOD]),
        ("method dual |", []),
        ("verbose |", ["0:8-0:8", "yes [12] -", "no [12] default"]),
        ("all |", ["0:4-0:4", "60 [12] default", "0 [12] lowest", "1000 [12] highest"]),
        ("level 1|", ["0:6-0:7", "1 [12] Low", "2 [12] default"]),
        ("gap_window |", ["0:11-0:11", "0 [12] default, lowest", "1 [12] highest"]),
        ("gap_window 0.5 |", ["0:15-0:15", "0 [12] default, lowest", "1 [12] highest"]),
        ("gap_window 0.5 0|", ["0:15-0:16", "0 [12] default, lowest", "1 [12] highest"]),
        ("gap_window 0.5 0 |", []),
        ("quiet |", []),
        ("title |", []),
        ("name |", ["0:5-0:5", '"a b" [12] default']),
        ('name "|', ["0:5-0:6", '"a b" [12] default']),
        ("note |", []),
        ("describe |", []),
        ("say |", []),
        ("eolonly |", ["0:8-0:8", "yes [12] -", "no [12] -"]),
        ("nobounds |", ["0:9-0:9", "yes [12] -", "no [12] -"]),
        ("both |", ["0:5-0:5", *METHOD]),
        ("both dual:|", ["0:10-0:10", "yes [12] -", "no [12] default"]),
        ("both du|al:no", ["0:5-0:9", *METHOD]),
        ("both dual:no:|", []),
        ('both "dual":|', ["0:12-0:12", "yes [12] -", "no [12] default"]),
        ("pair |", []),
        ("pair x:|", ["0:7-0:7", "0 [12] default, lowest", "64 [12] highest"]),
        ("outer |", ["0:6-0:6", "60 [12] default", "0 [12] lowest", "1000 [12] highest"]),
        ("lists |", []),
        ("deep8 |", ["0:6-0:6", "0 [12] default, lowest", "64 [12] highest"]),
        ("deep9 |", []),
        ("nothing |", []),
        ("method x|y!z", ["0:7-0:9", *METHOD]),
        ("method x|y,z", ["0:7-0:9", *METHOD]),
        ("method x|y:z", ["0:7-0:9", *METHOD]),
        ('method "au|', ["0:7-0:10", *QUOTED]),
        ('method "au|to, b" ! x', ["0:7-0:16", *QUOTED]),
        ('method "auto"| ! "x', ["0:7-0:13", *QUOTED]),
        ('both "du|al":no', ["0:5-0:11", *QUOTED]),
        ("threads=|", ["0:8-0:8", "0 [12] default, lowest", "64 [12] highest"]),
        ("time_limit 1.|5e-5 ! x", ["0:11-0:17", "60 [12] default", "0 [12] lowest", "1000 [12] highest"]),
        ("cores |", ["0:6-0:6", "0 [12] default, lowest", "64 [12] highest"]),
        ("free |", []),
        ("method" + " " * 1014 + "|", ["0:1020-0:1020", *METHOD]),  # as much as is read of a line
        ("method" + " " * 1015 + "|", [])):
    expect(f"values for {text!r}", completed(text), wanted)
for text, wanted in (
        ("eolonly off\nquiet met|", ["incomplete", "1:6-1:9", "method [10] choice, default auto: Algorithm #2"]),
        ("eolonly off\nthreads 3 met|",
         ["incomplete", "1:10-1:13", "method [10] choice, default auto: Algorithm #2"]),
        ("eolonly off\nthreads 3|", ["1:8-1:9", "0 [12] default, lowest", "64 [12] highest"]),
        ("eolonly off\nquiet, met|", []),
        ("eolonly off\ngap_window 1 2 met|",
         ["incomplete", "1:15-1:18", "method [10] choice, default auto: Algorithm #2"])):
    expect(f"several settings in a line: {text!r}", completed(text), wanted)

minos = lambda text: completed("* definition: minos.def\n" + text)
write("minos.def", "Minos lookup\nmajor_print_level integer 1 1 0 9 1 1 Level\n"
      "major_damping double 2 1 0 9 1 1 Damping\nmpl synonym major_print_level\ng group 1 1 G\n"
      "one_two_six_ten integer 3 1 0 9 1 1 Four\nday_two_six_ten_one integer 4 1 0 9 1 1 Five\n")
for text, wanted in (
        ("maj p|", ["incomplete", "1:0-1:5", "major print level [10] integer, default 1: Level #1"]),
        ("major print|", ["incomplete", "1:0-1:11", "major print level [10] integer, default 1: Level #1"]),
        ("major print |", ["incomplete", "1:0-1:12", "major print level [10] integer, default 1: Level #1"]),
        ("major x |", ["incomplete"]),
        ("major print level |", ["1:18-1:18", "1 [12] default", "0 [12] lowest", "9 [12] highest"]),
        ("one two six ten |", ["1:16-1:16", "1 [12] default", "0 [12] lowest", "9 [12] highest"]),
        ("day two six ten one |", []),
        ("mpl |", ["1:4-1:4", "1 [12] default", "0 [12] lowest", "9 [12] highest"]),
        ("major  dam|ping 3", ["incomplete"]),
        ("m|",
         ["incomplete", "1:0-1:1", "major damping [10] number, default 1: Damping #2",
          "major print level [10] integer, default 1: Level #1",
          "mpl [18] synonym of major print level: integer, default 1: Level #1"])):
    expect(f"names with blanks for {text!r}", minos(text), wanted)

# ---- files: those that end in .opt come first

os.makedirs(path("parts/deep"))
os.makedirs(path("parts/.hidden"))
os.mkfifo(path("parts/pipe"))
for name in ("b.opt", "a.inc", "two words.opt", "com,ma.opt", 'quo"te.opt', "z.opt", ".dot.opt"):
    write("parts/" + name, "")
for text, wanted in (
        ("include |",
         ["0:8-0:8", "minos.def [17] -", "parts/ [17] -", "solver.def [17] -", "wexcorin.json [17] -"]),
        ("include parts/|", ["0:14-0:14", "b.opt [17] -", "z.opt [17] -", "a.inc [17] -", "deep/ [17] -"]),
        ("include parts/x|y.opt ! z",
         ["0:14-0:20", "b.opt [17] -", "z.opt [17] -", "a.inc [17] -", "deep/ [17] -"]),
        ('include "parts/|',
         ["0:15-0:15", "b.opt [17] -", "com,ma.opt [17] -", "two words.opt [17] -", "z.opt [17] -",
          "a.inc [17] -", "deep/ [17] -"]),
        ('include "pa|rts/x"',
         ["0:9-0:16", "minos.def [17] -", "parts/ [17] -", "solver.def [17] -", "wexcorin.json [17] -"]),
        ('include "parts/deep/|"', []),
        ("include nowhere/|", []),
        ("include parts/deep/../|",
         ["0:22-0:22", "b.opt [17] -", "z.opt [17] -", "a.inc [17] -", "deep/ [17] -"])):
    expect(f"files for {text!r}", completed(text), wanted)
kinds = start(completion={"completionItemKind": {"valueSet": [17, 19, 20]}})
expect("the kind of a folder for a client that knows it", completed("include pa|", kinds),
       ["0:8-0:10", "minos.def [17] -", "parts/ [19] -", "solver.def [17] -", "wexcorin.json [17] -"])

expect("and the kind of a value", completed("verbose |", kinds), ["0:8-0:8", "yes [20] -", "no [20] default"])
for number in range(1001):
    write(f"parts/deep/{number}.opt", "")
answer = asked(client, "completion", "include parts/deep/|")
expect("very many files", (len(answer["items"]), answer["isIncomplete"]), (1000, True))
for number in (0, 1):
    os.unlink(path(f"parts/deep/{number}.opt"))
answer = asked(client, "completion", "include parts/deep/|")
expect("not quite so many", (len(answer["items"]), answer["isIncomplete"]), (999, False))

# ---- documentation, which comes when an item is shown

client.open(MAIN, "")
client.diagnostics(MAIN)


def resolved(data, client=client):
    item = {"label": "x", "data": data}
    answer = client.request("completionItem/resolve", item)
    documentation = answer.pop("documentation", None)
    expect("what else the item has", answer, item)
    return documentation


HERE = uri(MAIN)
documented = lambda option: resolved({"uri": HERE, "option": option})
for option, wanted in (
        (1,
         {"kind": "markdown",
          "value": "**time\\_limit**: Seconds to run\n\nA second line of help.\n\n- type: number\n- range: "
                   "0 to 1000\n- default: `60`\n- group: general: General\n- synonyms: max\\_time\n"}),
        (2,
         {"kind": "markdown",
          "value": "**method**: Algorithm\n\n- type: choice\n- values:\n  - `auto`: The solver chooses\n  - "
                   "`dual`: Dual simplex\n  - `hidden`: Not in the help\n  - `old`\n- default: `auto`\n- "
                   "group: general: General\n"}),
        (3,
         {"kind": "markdown",
          "value": "**threads**: Threads\n\n- type: integer, the value may be left out\n- range: 0 to 64\n- "
                   "default: `0`\n- group: general: General\n- synonyms: cores\n- their state: deprecated; "
                   "use threads\n"}),
        (22,
         {"kind": "markdown",
          "value": "**lists**: A macro of lists\n\n- type: sets several options\n- members: both\n- group: "
                   "general: General\n"}),
        (0,
         {"kind": "markdown", "value": "**Help**\n\n- type: acts when it is read, the value may be left out\n"}),
        (24,
         {"kind": "markdown", "value": '**free**\n\n- type: text\n- default: `""`\n- group: general: General\n'}),
        (26,
         {"kind": "markdown",
          "value": "**say**: Say\n\n- type: acts when it is read\n- group: general: General\n"}),
        (27,
         {"kind": "markdown",
          "value": "**spare**: Spare\n\n- type: integer\n- range: 0 to 9\n- default: `1`\n- group: general: "
                   "General\n- name: deprecated; use threads or verbose\n"}),
        (-1, None),
        (None, None),
        ("1", None)):
    expect(f"the documentation of option {option}", documented(option), wanted)
expect("an item of a document that is not open", resolved({"uri": uri(path("other.opt")), "option": 1}), None)
expect("an item without an option", resolved({"uri": HERE}), None)
plain.open(MAIN, "")
plain.diagnostics(MAIN)
expect("documentation without Markdown", resolved({"uri": HERE, "option": 3}, plain),
       {"kind": "plaintext",
        "value": "threads: Threads\n\n- type: integer, the value may be left out\n- range: 0 to 64\n- "
                 "default: 0\n- group: general: General\n- synonyms: cores\n- their state: deprecated; use "
                 "threads\n"})
client.open(path("none.opt"), "* definition: none.def\n")
client.diagnostics(path("none.opt"))
expect("documentation without a definition", resolved({"uri": uri(path("none.opt")), "option": 0}), None)
expect("completion without a definition", client.at("completion", path("none.opt"), 1, 0),
       {"isIncomplete": True, "items": []})
client.close(MAIN)

# ---- the short forms of names that are offered find their options

write("path.def", """Path lookup
conv_tolerance double 1 0.1 0 1 1 1 Tolerance
con_tol_all integer 2 1 1 9 1 1 Other
order_of_steps integer 3 1 1 9 1 1 Never found, because of its word of two characters
con_tolerant integer 4 1 1 9 1 1 Found as the first option
.prior integer 5 1 1 9 1 1 Priority
.early synonym .prior
.conv_order integer 6 1 1 9 1 1 Order
tolerant macro 1 1 Of an option that another one hides
 con_tolerant
g group 1 1 G
""")
TOLERANCE, ALL = "conv_tolerance [10] number, default 0.1: Tolerance #1", "con_tol_all [10] integer, default 1: Other #2"
for text, wanted in (
        ("|", ["incomplete", "1:0-1:0", TOLERANCE, ALL,
               "tolerant [10] sets several options: Of an option that another one hides #7"]),
        ("tolerant |", ["1:9-1:9", "1 [12] default, lowest", "9 [12] highest"]),
        ("con_tol|", ["incomplete", "1:0-1:7", ALL, TOLERANCE]),
        ("x.|", ["incomplete", "1:2-1:2", "prior [10] integer, default 1: Priority #5", "conv_order [10] integer, default 1: Order #6"]),
        ("x.convergence_ord|", ["incomplete", "1:2-1:17", "conv_order [10] integer, default 1: Order #6 filterText=convergence_ord"]),
        ("convergence_tol|", ["incomplete", "1:0-1:15", TOLERANCE + " filterText=convergence_tol"]),
        ("con_tol |", ["1:8-1:8", "0.1 [12] default", "0 [12] lowest", "1 [12] highest"])):
    expect(f"names in lookup mode Path for {text!r}", completed("* definition: path.def\n" + text), wanted)

# ---- very many names: the best ones come first

write("many.def", "".join(f"name_{number:03} integer 1 1 1 9 1 1 x\n" for number in range(200)) + "nams boolean 1 1 1 1\ng group 1 1 G\n")


# How many names there are, and the first one.
def counted(text):
    answer = asked(client, "completion", "* definition: many.def\n" + text)
    return len(answer["items"]), answer["isIncomplete"], answer["items"][0]["label"] if answer["items"] else None


for text, wanted in (
        ("|", (200, True, "name_000")),
        ("name_|", (200, False, "name_000")),
        ("name_0|", (100, False, "name_000")),
        ("name_00|", (10, False, "name_000")),
        ("name_000|", (1, True, "name_000")),
        ("n|", (200, True, "name_000")),
        ("am|", (200, True, "name_000")),
        ("name_x0|", (3, True, "name_000"))):
    expect(f"very many names for {text!r}", counted(text), wanted)
expect("yes as the default", completed("* definition: many.def\nnams |"), ["1:5-1:5", "yes [12] default", "no [12] -"])
for each in (client, plain, kinds):
    each.quit()

finish()

"""Where values come from, what lines did, and what differs between option files: cases that are not in the session.
usage: tracing.py TOOL; run in the repository's root"""
import hashlib, json, re, sys
from support import expect, expect_part, failures, read, run, runs, write

# ---- origin: chains of files and of options that pass their text on

write("trace.def", """Path lookup
x eolcomm #
alpha integer 1 1 0 9 1 1
beta integer.OPT 2 1 0 9 1 1
quiet boolean.NV 3 0 1 1
inner macro 1 1
 alpha
outer macro 1 1
 inner
 beta
pair multilist 4 1 1
 alpha outer
name synonym alpha
read immediate readfile 1 1
window double.TWO 5 0 0 9 1 1
list strlist 6 1 1
words enumstr 7 Red 1 1
 red 1
 blue 1
.rank double 8 0 0 9 1 1
ind indicator
""")
write("deep.opt", "alp 5\n")
write("part.opt", "read deep.opt\nouter 3 # three\n")
write("main.opt", "name 2\nread part.opt\npair 4:6\nbeta\nquiet\n")


def origins(arguments):
    rows = json.loads(run(f"wexcorin show trace.def --json --origin {arguments}")[0])["options"]
    return {row["name"]: row["origin"] for row in rows}


def through(origin):
    return [" ".join(str(each[key]) for key in each) for each in origin["through"]]


seen = origins("main.opt --set 'alpha 7' --set 'beta 8'")
expect("what alpha overrode", seen["alpha"], {"source": "--set", "line": 1, "through": [], "overrode": [
    {"source": "main.opt", "line": 1, "value": 2}, {"source": "deep.opt", "line": 1, "value": 5},
    {"source": "part.opt", "line": 2, "value": 3}, {"source": "main.opt", "line": 3, "value": 4},
    {"source": "main.opt", "line": 3, "value": 6}]})
expect("the second text", (seen["beta"]["source"], seen["beta"]["line"]), ("--set", 2))
expect("never set", seen["words"], None)
seen = origins("main.opt")
expect("a value set by its name alone", through(seen["beta"]), ["name alone"])
write("two.opt", "read part.opt\n")
expect("through files and macros", through(origins("two.opt")["alpha"]),
       ["include two.opt 1", "macro outer", "macro inner"])
write("two.opt", "read deep.opt\n")
expect("through a short form", through(origins("two.opt")["alpha"]), ["include two.opt 1", "short form alp"])
expect("through a multilist", through(origins("--set 'pair 1:2'")["beta"]), ["multilist pair", "macro outer"])
expect("a dot line overrides no other", origins("--set 'x.rank 1' --set 'y.rank 2'")[".rank"]["overrode"], [])
expect("a refused value has no origin", origins("--set 'alpha 99'")["alpha"], None)
expect("the first of two values stays", [row[key] for row in json.loads(
    run("wexcorin show trace.def --json --origin --set 'window 1 2' --set 'window * 3'")[0])["options"]
    if row["name"] == "window" for key in ("origin", "origin2")],
    [{"source": "--set", "line": 1, "through": [], "overrode": []},
     {"source": "--set", "line": 2, "through": [], "overrode": [{"source": "--set", "line": 1, "value": 2.0}]}])

write("text.def", read("trace.def") + 'text string 9 "" 1 1\nflag boolean 10 0 1 1\n')
write("text.opt", "text \"two words\"\ntext ä\nwords blue\nwords \"red\"\nlist a\nread part.opt\nlist b\nflag 1\nflag 0\n")
out = run("wexcorin show text.def text.opt --json --origin --set 'alpha 4' --set 'read text.opt'")[0]
expect("the indentation", out, json.dumps(json.loads(out), indent=2, ensure_ascii=False) + "\n")
seen = {row["name"]: row for row in json.loads(out)["options"]}
INCLUDE = {"kind": "include", "source": "--set", "line": 2}
TWICE = [{"source": "text.opt", "line": line, "value": value} for line, value in ((1, "two words"), (2, "ä"), (1, "two words"))]
expect("texts", seen["text"]["origin"], {"source": "text.opt", "line": 2, "through": [INCLUDE], "overrode": TWICE})
expect("words", [each["value"] for each in seen["words"]["origin"]["overrode"]], ["blue", "red", "blue"])
expect("booleans", [each["value"] for each in seen["flag"]["origin"]["overrode"]], [True, False, True])
expect("a list", seen["list"]["origin"], [{"source": "text.opt", "line": line, "through": through} for line, through in
                                          ((5, []), (7, []), (5, [INCLUDE]), (7, [INCLUDE]))])
write("many.def", "".join(f"option{number} integer 1 0 0 99 1 1\n" for number in range(90)))
write("many.opt", "".join(f"option{number} 1\n" for number in range(90)))
seen = json.loads(run("wexcorin show many.def many.opt --json --origin")[0])["options"]
expect("many options", [row["origin"]["line"] for row in seen if row["origin"]], list(range(1, 91)))
expect_part("a file that --set includes", run("wexcorin show text.def --set 'alpha 4' --set 'read text.opt' --origin")[0],
            "--set > text.opt:6 > part.opt:2 (macro outer)")

# ---- explain: all that lines did

write("touch.def", """x eolcomm #
alpha integer 1 1 0 9 1 1
beta string.OPT 2 x 1 1
window double.TWO 3 0 0 9 1 1
list strlist 4 1 1
old integer 5 1 0 9 1 1
gone integer 6 1 0 9 1 1
pair multilist 7 1 1
 alpha beta
both macro 1 1
 alpha
 old
name synonym alpha
free immediate NoBounds 1 1
tell immediate Message 1 1
read immediate ReadFile 1 1
.rank double 8 0 0 9 1 1
.side boolean 9 0 1 1
side synonym .side
ind indicator
quiet boolean.NV 10 1 1 1
names deprecated
 old use alpha
names obsolete
 gone use alpha
""")
LINES = """alpha 2   # the first
name 3
alpha 10
free 1
alpha 10
window 11 12
window * 3
pair 4:b
pair 5:b:c
both 6
old 7
gone 7
list a
list "a"b
beta
--own t
--own u
tell hello
help alpha
x.rank(1,*) 2
x.rank 3
X.rank(" 1 ") 4
y.rank 10
x.rank(i) 5
x.side 1
side 0
x.none 1
ind E(1)$V yes
ind e$v no
ind e$ 1
ind f$v("1") maybe
ind f("2")$w yes
read none.opt
quiet
x 5"""
write("touch.opt", LINES + "\n")
ALPHA = 'Integer range error for option "alpha" saw "10"; Valid range is 0 to 9'
WINDOW = 'Double out of range for option "window" saw "{}"; Valid range is 0 to 9'
X = ["x.rank(1,*) 2: refused: Element expected for .option \"x\"", "x.rank 3: entry kept with value 3", 'X.rank(" 1 ") 4: entry kept with value 4',
     "x.rank(i) 5: refused: Set name not allowed .option \"x\""]
E = ["ind E(1)$V yes: refused: Unique element expected for indicator id \"E\"",
     "ind E(1)$V yes: refused: $ expected after equation identifier \"E\"", "ind e$v no: entry kept with value 0"]
F = ['ind f$v("1") maybe: refused: Boolean value expected for equation indicator "f", Saw "maybe"', 'ind f("2")$w yes: entry kept with value 1']
runs("wexcorin explain alpha touch.def touch.opt", f"""alpha
  type        integer
  range       0 to 9
  default     1
  synonyms    name

Where         Line                   What it did
touch.opt:1   alpha 2   # the first  stored 2; overridden later
touch.opt:2   name 3                 stored 3 (synonym name); overridden later
touch.opt:3   alpha 10               refused: {ALPHA}
touch.opt:5   alpha 10               accepted outside the bounds 10: {ALPHA}; overridden later
touch.opt:8   pair 4:b               stored 4 (multilist pair); overridden later
touch.opt:9   pair 5:b:c             stored 5 (multilist pair); overridden later
touch.opt:10  both 6                 stored 6 (macro both)

In force: 6, from touch.opt:10
""", None, 2)
# The lines with what they did, and the text behind the table, for each name or symbol.
for name, did, force in (
        ("beta", ["pair 4:b: stored b (multilist pair); overridden later", "pair 5:b:c: stored b (multilist pair)",
                  "beta: refused: Value expected for key \"beta\""], "In force: b, from touch.opt:9\n"),
        ("window", ["window 11 12: accepted outside the bounds first value 11: " + WINDOW.format(11),
                    f"window 11 12: accepted outside the bounds second value 12: {WINDOW.format(12)}; overridden later",
                    "window * 3: stored second value 3"], "In force: 11, from touch.opt:6\nSecond value: 3, from touch.opt:7\n"),
        ("list", ["list a: stored a", "list \"a\"b: refused: Bad double-quote in value"], "In force: a\n"),
        ("--OWN", ["--own t: stored t", "--own u: stored u"], "In force: t, u\n"),
        ("old", ["both 6: stored 6 (macro both); overridden later", "old 7: reported: deprecated option \"old\"; use alpha", "old 7: stored 7"],
         "In force: 7, from touch.opt:11\n"),
        ("gone", ["gone 7: reported: obsolete option \"gone\"; use alpha"], "In force: 1, the default\n"),
        ("quiet", ["quiet: stored 1 (name alone)"], "In force: 1, from touch.opt:34\n"),
        # what acts or passes its text on
        ("pair", ["pair 4:b: passed its text on to its members (multilist pair)", "pair 5:b:c: passed its text on to its members (multilist pair)",
                  "pair 5:b:c: refused (multilist pair): Too many items for multilist \"pair\""], ""),
        ("both", ["both 6: passed its text on to its members (macro both)"], ""),
        ("free", ["free 1: acted"], ""), ("tell", ["tell hello: acted", "tell hello: refused: hello"], ""), ("help", ["help alpha: acted"], ""),
        ("read", ["read none.opt: acted", 'read none.opt: refused: Cannot open parameter file "none.opt"; Error code = 2; No such file or directory'], ""),
        # dot options and symbols
        (".rank", [*X[:3], 'y.rank 10: reported: Double out of range for option ".rank" saw "10"; Valid range is 0 to 9',
                   "y.rank 10: entry kept with value 10", X[3]], "In force: 10, from touch.opt:23\n"),
        (".rank X", X, ""), ("x.rank(1)", [X[0], *X[2:]], ""), (".rank x(2)", [X[0], X[3]], ""),
        (".side", ["x.side 1: entry kept with value 1", "side 0: stored 0 (synonym side)"], "In force: 0, from touch.opt:26\n"),
        ("x", [*X, "x.side 1: entry kept with value 1"], ""), ("x(1)", [X[2]], ""),
        # indicators and their symbols
        ("IND", [*E, "ind e$ 1: refused: Equation ID expected for indicator", *F], ""),
        ("e", E, ""), ("v", [E[2]], ""), ("f", F, ""), ("f(2)", [F[1]], ""), ("w", [F[1]], "")):
    head, table, *rest = run(f"wexcorin explain -- '{name}' touch.def touch.opt")[0].split("\n\n")
    rows = [re.split(r" {2,}", row, 2) for row in table.split("\n")[1:] if row]
    expect(f"explain {name}", "\n".join(f"{line}: {what}" for _, line, what in rows), "\n".join(did))
    expect(f"explain {name}: lines", [LINES.split("\n")[int(where.split(":")[1]) - 1] for where, _, _ in rows], [line for _, line, _ in rows])
    expect(f"explain {name}: in force", "".join(rest), force)
for name, head in ("--own", "--own\n  type        text, may be given repeatedly"), ("IND", "IND: the keyword of indicators"), ("x(1)", "x(1): a symbol"):
    expect(f"explain {name}: head", run(f"wexcorin explain -- '{name}' touch.def touch.opt")[0].split("\n\n")[0], head)
expect_part("a short form of help", run("wexcorin explain help trace.def -", "hel\n")[0], "acted (short form hel)")
runs("wexcorin explain ind touch.def", "ind: the keyword of indicators\n\nNo line touched it.\n")
write("list.def", "alpha integer 1 1 0 9 1 1 The first\n and only\n")
runs("wexcorin explain alpha list.def", "alpha: The first\n  and only\n  type        integer\n  range       0 to 9\n  default     1\n"
     "\nNo line touched it.\n\nIn force: 1, the default\n")

# ---- values in force: what counts, and what does not

write("case.def", "note string 1 abc 1 1\nmode enumstr 2 fast 1 1\n fast 1\n")  # words are the same in capital letters
runs("wexcorin diff --definition case.def - --defaults", "Setting  -                defaults\nnote     ABC [<stdin>:1]  abc [default]\n",
     None, 1, "note ABC\nmode FAST\n")

write("a.opt", "alpha 3\nx.rank('1') 2\nind e$b 1\nwindow 1 1\nlist a\n--own t\nwords red\n")
write("b.opt", "# the same\n-ALPHA = 3\nx.rank( \"1\" )=2.0\nind e $ b yes\nwindow 1\nlist \"a\"\n--own t\nbeta 1\nwords RED\n")
runs("wexcorin diff --definition trace.def a.opt b.opt", "no differences\n")
same = run("wexcorin show trace.def a.opt --fingerprint")[0]
runs("wexcorin show trace.def b.opt --fingerprint", same)
runs("wexcorin show trace.def b.opt - --fingerprint", same, "<stdin>:1: error: Unknown option \"zzz\"\n", 1, "zzz 1\n")
expect("fingerprint in JSON", json.loads(run("wexcorin show trace.def a.opt --fingerprint --json")[0])["fingerprint"] + "\n", same)
for setting in ("alpha 4", "beta 2", "quiet", "x.rank 1", "ind e$c 1", "window * 2", "list b", "--own u", "--other t", "words blue",
                "list \"\"", "x.rank(\"1\") 2"):
    write("c.opt", read("a.opt") + setting + "\n")
    out, _, code = run("wexcorin diff --definition trace.def a.opt c.opt --json")
    expect(f"'{setting}' differs", (code, len(json.loads(out)["differences"])), (1, 1))
    expect(f"'{setting}' changes the fingerprint", run("wexcorin show trace.def c.opt --fingerprint")[0] == same, False)

write("c.opt", "list none\n--own none\n")
runs("wexcorin diff --definition trace.def c.opt --defaults --markdown", "| Setting | c.opt | defaults |\n| --- | --- | --- |\n"
     '| list | "none" \\[c.opt:1\\] | none \\[default\\] |\n| \\--own | "none" \\[c.opt:2\\] | none |\n', "", 1)

for length in 148, 149:  # longer texts are cut
    write("cut.opt", f"list {'a' * 150}\nlist {'b' * length}\n")
    expect_part(f"{length + 152} characters", run("wexcorin diff --definition touch.def cut.opt --defaults --markdown")[0],
                f"| {'a' * 150}, {'b' * 148}{'' if length == 148 else '...'} \\[")

# What docs/tracing.md says about its bytes.
write("bytes.def", "Zeta enumstr 1 Red 1 1\n red 1\nbeta double.TWO 2 0.1 0 1 1 1\nalpha boolean.NV 3 0 1 1\nmid string 4 \"a b\" 1 1\n"
      "list strlist 5 1 1\n.rank integer 6 0 0 9 1 1\nind indicator\n")
write("bytes.opt", "beta * .25\nlist é\nlist b\nx.rank('iron', *) 3\nind e(\"i\")$v yes\nalpha\n")
record = "".join(f"{line}\n" for line in (
    "wexcorin settings 1", "option 5:.rank,1:3,", "option 5:alpha,3:set,", "option 4:beta,3:0.1,4:0.25,",
    "option 4:list,2:é,1:b,", "option 3:mid,3:a b,", "option 4:zeta,3:red,", "dot 1:x,5:.rank,1:2,4:iron,1:*,1:3,",
    'indicator 1:e,1:1,3:"i",1:v,1:0,1:1,'))
runs("wexcorin show bytes.def bytes.opt --fingerprint", f"sha256:{hashlib.sha256(record.encode()).hexdigest()}\n")
write("a.opt", "x.rank(\"iron\", *) 1\ny.rank 1\n")
write("b.opt", "y.rank 1\nx.rank(\"iron\", *) 1\n")
for other, names in ("b.opt", ["order of dot lines"]), ("--defaults", ["x.rank('iron',*)", "y.rank"]):
    expect(f"dot lines and {other}", [each["name"] for each in json.loads(run(
        f"wexcorin diff --definition trace.def a.opt {other} --json")[0])["differences"]], names)

# ---- trouble, and faulty option files, which are compared by what was taken

write("faulty.def", "a integer 1 9 0 1 1 1\n")
runs("wexcorin diff trace.def faulty.def", "", 'faulty.def:1: error: Default not in range for option "a"\n', 2)
write("faulty.opt", "alpha x\nread none.opt\nbeta 2\n")
runs("wexcorin diff --defaults faulty.opt --definition - --markdown", "| Setting | faulty.opt | defaults |\n| --- | --- | --- |\n"
     "| beta | 2 \\[faulty.opt:3\\] | 1 \\[default\\] |\n", None, 1, read("trace.def"))
runs("wexcorin diff --matrix --definition trace.def a.opt", "no differences\n")
runs("wexcorin diff --defaults - --definition trace.def", None, None, 1, "alpha 3\n")
sys.exit("\n".join(failures) or 0)

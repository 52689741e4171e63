"""The tool as a process: what its commands print, also as JSON, which must fit the schemas in docs/, and how
they end. Run in the repository's root; exit code 77: all is well, but the schemas stay untried.
usage: tool.py TOOL"""
import copy, difflib, json, os, shlex, subprocess, sys, tempfile

TOOL, EXAMPLES, DOCS = (os.path.abspath(path) for path in (sys.argv[1], "examples", "docs"))
work = tempfile.TemporaryDirectory()
os.chdir(work.name)
os.symlink(EXAMPLES, "examples")
failures = []


# Bytes that are no UTF-8 are in texts as surrogates: \udce4 is the byte E4.
def write(name, text):
    with open(name, "w", encoding="utf-8", errors="surrogateescape", newline="") as file:
        file.write(text)


def read(name):
    with open(name, encoding="utf-8", errors="surrogateescape", newline="") as file:
        return file.read()


def run(command, stdin=""):
    result = subprocess.run([TOOL, *shlex.split(command)], input=stdin, capture_output=True, encoding="utf-8",
                            errors="surrogateescape")
    return result.stdout, result.stderr, result.returncode


def expect(what, seen, wanted):
    if seen != wanted:
        lines = [("\n".join(map(str, value)) if isinstance(value, tuple) else str(value)).split("\n")
                 for value in (wanted, seen)]
        failures.append("\n".join([f"{what}: (lines with - are right, those with + were seen)",
                                   *difflib.unified_diff(*lines, lineterm="")]))


def expect_part(what, text, part):
    if part not in text:
        failures.append(f"{what}: {part!r} is not in {text!r}")


# What a command prints and how it ends; nothing is checked of what is None.
def runs(command, out="", err="", code=0, stdin=""):
    for name, seen, wanted in zip(("output", "errors", "exit code"), run(command, stdin), (out, err, code)):
        if wanted is not None:
            expect(f"{command}: {name}", seen, wanted)


write("solver.def", """basic group 1 1 Basic options
iterlim integer 1 100 minint 1000 1 1 Iteration limit
logfreq integer 2 10 0 maxint 1 1 Log frequency
tol double 3 1e-6 0 maxdouble 1 1 Tolerance
log boolean 4 0 1 1 Log
method enumstr 5 primal 1 1 Method
 primal 1 Primal simplex
 dual 1 Dual simplex
level enumint 6 10 1 1 Level
 10 1 low
 20 1 high
range integer.TWO 7 1 0 9 1 1 Two numbers
title string 8 "no title" 1 1 Title
cuts strlist 9 1 1 Collected texts
.prior integer 10 0 0 100 1 1 Priority
fast macro 1 1 Preset
 iterlim
pair multilist 11 1 1 Both
 iterlim logfreq
readfile immediate ReadFile 0 0
iterations synonym iterlim
x deprecated
 logfreq use verbosity
""")

# ---- check: what it says of an option file main.opt, and of others that it reads; the library's messages
# are in the examples: one file is clean, in the other each planted mistake is reported at its line

runs("check examples/solver.def examples/solver.opt --warnings-as-errors", None)
mistakes = "examples/solver_mistakes"
runs(f"check examples/solver.def {mistakes}.opt", read(f"{mistakes}.expected"), code=1)
write("sub.opt", "\ntol x\n")
write("six.opt", "method dual\niterlim 6\n")
write("good.opt", "tol 1\n")
TWICE = 'Option "iterlim" is set to %d, but was set to %d at %s\n'
INTEGER = 'main.opt:%d: error: Integer expected, for option "iterlim" saw "x"\n'
for options, findings, code in (
        ("iterlim 5\ntol 0.5\n", "", 0),
        # nested files, also such as leave no notes
        ("readfile sub.opt\niterlim x\n", 'sub.opt:2: error: Double expected for option "tol" saw "x"\n' +
         INTEGER % 2, 1),
        ("readfile good.opt\nreadfile good.opt\niterlim x\n", INTEGER % 3, 1),
        # suggestions: options and synonyms, nearest first; dot options; enumerated values
        ("iterlmi 5\nITER 5\niterlim_max 5\nzzz 5\nx.piror\nmethod daul\n", """\
main.opt:1: error: Unknown option "iterlmi"; did you mean "iterlim"?
main.opt:2: error: Unknown option "ITER"; did you mean "iterlim" or "iterations"?
main.opt:3: error: Unknown option "iterlim_max"; did you mean "iterlim"?
main.opt:4: error: Unknown option "zzz"
main.opt:5: error: unknown .suffix ".piror" for key "x"; did you mean ".prior"?
main.opt:6: error: Unknown value for option "method" saw "daul"; did you mean "dual"?
main.opt:6: note: Possible values are  primal dual
""", 1),
        # set twice: only another value matters, by whatever name and through whatever file it comes
        ("iterlim 5\niterlim 5\ntol 1e-3\ntol 0.001\n", "", 0),
        ("iterlim 5\niterations 6\n", "main.opt:2: warning: " + TWICE % (6, 5, "main.opt:1"), 0),
        ("iterlim 5\niterlim x\nreadfile six.opt\ntol x\n", INTEGER % 2 + "six.opt:2: warning: " +
         TWICE % (6, 5, "main.opt:1") + 'main.opt:4: error: Double expected for option "tol" saw "x"\n', 1),
        ("range 1 2\nrange 3 4\nrange * 5\n",
         'main.opt:2: warning: First value of option "range" is set to 3, but was set to 1 at main.opt:1\n'
         'main.opt:3: warning: Second value of option "range" is set to 5, but was set to 4 at main.opt:2\n',
         0),
        ("cuts a\ncuts b\n--any a\n--any b\nx.prior 1\ny.prior 2\n", "", 0),
        ("fast 5\niterlim 6\n", "", 0),
        ("iterlim 6\nfast 5\n", "main.opt:2: warning: " + TWICE % (5, 6, "main.opt:1"), 0),
        ("iterlim 6\npair 5:6\n", "main.opt:2: warning: " + TWICE % (5, 6, "main.opt:1"), 0),
        # what a file asks to be shown is no finding
        ("help tol\n", "tol: Tolerance\n" + 24 * " " + "double,  range: 0 to maxdouble default: 1E-6\n", 0)):
    write("main.opt", options)
    out, err, ended = run("check solver.def main.opt")
    expect(f"check of {options!r}", (out[:out.rfind("\n", 0, -1) + 1], err, ended), (findings, "", code))

# the definition itself
for text, out, code in (
        ("a integer 1 5 0 9 1 1 A\n", "no problems; 2 options, 0 set\n", 0),
        ("a integer 1 15 0 9 1 1 A\n",
         '<stdin>:1: error: Default not in range for option "a"\n1 error, 0 warnings; 2 options, 0 set\n', 1),
        ("a integer 1 5 0 9 1 1 A\n\n1 stray\nb integer 1 5 0 9 1 1 B\n",
         "<stdin>:3: warning: The definition ends here, because no definition can begin like this line; "
         "this line and all that follow are not read\n0 errors, 1 warning; 2 options, 0 set\n", 0)):
    runs("check -", out, code=code, stdin=text)

# Names are suggested, nearest first, as the lookup mode wants them typed, and never the one that was typed.
write("minos.def", "Minos lookup\nmajor_iterations integer 1 5 0 9 1 1 A\nmethod string 1 a 1 1 A\n")
write("path.def", "Path lookup\n" + "".join(f"tol_{name} string 1 a 1 1 A\n" for name in ("x", "xyz", "xy")))
for definition, option, suggestion in (
        ("minos", "major_iterations 5", "major iterations"),
        ("minos", "major itrations 5", "major iterations"),
        ("minos", "mtehod slow", "method"), ("path", "tol_x 5", 'tol_xy" or "tol_xyz')):
    expect_part(option, run(f"check {definition}.def -", option)[0], f'; did you mean "{suggestion}"?\n')

# --set after the files; standard input; files that cannot be opened; warnings as errors; many messages
write("main.opt", "iterlim 5\n")
runs("check solver.def --set 'iterlim 6' --set='tol x' main.opt",
     "--set 'iterlim 6': warning: " + TWICE % (6, 5, "main.opt:1") +
     "--set 'tol x': error: Double expected for option \"tol\" saw \"x\"\n"
     "1 error, 1 warning; 14 options, 1 set\n", code=1)
runs("check solver.def -", "<stdin>:2: warning: " + TWICE % (6, 5, "<stdin>:1") +
     "0 errors, 1 warning; 14 options, 1 set\n", stdin="iterlim 5\niterlim 6\n")
runs("check - -", err=None, code=2)
runs("check solver.def none.opt -", "<stdin>:1: error: Integer expected, for option \"iterlim\" saw \"x\"\n"
     "2 errors, 0 warnings; 14 options, 0 set\n", 'none.opt: error: Cannot open parameter file "none.opt"\n'
     "none.opt: note: Error code = 2; No such file or directory\n", 2, "iterlim x\n")
runs("check none.def main.opt", None, None, 2)
runs("check solver.def - --warnings-as-errors", None, "", 1, "logfreq 5\n")
expect_part("message limit", run("check solver.def -", 6000 * "zzz 1\n")[0],
            '\n<stdin>:4999: error: Unknown option "zzz"\n<stdin>: error: Maximum of 5000 messages reached\n')

# JSON; a byte that is no UTF-8 stands for the character of ISO 8859-1
write("main.opt", "method \udce4ä\nmethdo 1\nhelp tol\n")
out, err, code = run("check solver.def main.opt --json")
expect("check --json", (json.loads(out), code), ({
    "findings": [
        {"file": "main.opt", "line": 1, "severity": "error", "suggestions": [],
         "text": 'Unknown value for option "method" saw "ää"',
         "details": ["Possible values are  primal dual"]},
        {"file": "main.opt", "line": 2, "severity": "error", "text": 'Unknown option "methdo"', "details": [],
         "suggestions": ["method"]}],
    "help": ["tol: Tolerance", 24 * " " + "double,  range: 0 to maxdouble default: 1E-6"],
    "summary": {"errors": 2, "warnings": 0, "options": 14, "set": 0}}, 1))

# ---- show, help, write

write("main.opt", "tol 2.5e-20\nlog yes\nrange 3 4\ntitle R\udce4tsel\ncuts a\ncuts b c\n")
runs("show solver.def main.opt", """Nr  Name      Type       Set  Value     Default     Range or values
 1  Help      immediate
 2  iterlim   integer         100       100         minint to 1000
 3  logfreq   integer         10        10          0 to maxint
 4  tol       double     yes  2.5E-20   1E-6        0 to maxdouble
 5  log       boolean    yes  1         0           0, 1
 6  method    enumstr         primal    primal      primal, dual
 7  level     enumint         10        10          10, 20
 8  range     integer    yes  3 4       1           0 to 9
 9  title     string     yes  Rätsel    "no title"
10  cuts      strlist    yes  a, "b c"
11  .prior    integer         0         0           0 to 100
12  fast      macro
13  pair      multilist
14  readfile  immediate
""")
runs("show solver.def --changed --set 'iterations 7'", """\
Nr  Name     Type     Set  Value  Default  Range or values
 2  iterlim  integer  yes  7      100      minint to 1000
""")
runs("show solver.def - --changed", "Nr  Name  Type  Set  Value  Default  Range or values\n",
     '<stdin>:1: error: Unknown option "iterlin"; did you mean "iterlim"?\n', 1, "iterlin 5\n")
runs("show solver.def none.opt", err=None, code=2)
shown = json.loads(run("show solver.def main.opt --json")[0])
expect("show --json", shown["definition"], "solver.def")
for number, name, kind, isset, value, default, more in (
        (1, "Help", "immediate", False, None, None, {}),
        (2, "iterlim", "integer", False, 100, 100, {"low": -2147483648, "high": 1000}),
        (4, "tol", "double", True, 2.5e-20, 1e-6, {"low": 0.0, "high": 1e299}),
        (5, "log", "boolean", True, True, False, {"values": [False, True]}),
        (6, "method", "enumstr", False, "primal", "primal", {"values": ["primal", "dual"]}),
        (7, "level", "enumint", False, 10, 10, {"values": [10, 20]}),
        (8, "range", "integer", True, 3, 1, {"value2": 4, "low": 0, "high": 9}),
        (9, "title", "string", True, "Rätsel", "no title", {}),
        (10, "cuts", "strlist", True, ["a", "b c"], [], {})):
    wanted = {"number": number, "name": name, "type": kind, "set": isset, "value": value, "default": default}
    expect("show --json", shown["options"][number - 1], {**wanted, **more})


runs("help solver.def iterations", "iterations is a synonym for iterlim\niterlim: Iteration limit\n" +
     24 * " " + "integer,  range: minint to 1000 default: 100\n")
summary, err, code = run("help solver.def")
expect("help", (summary[:41], err, code), ("\nOptions summary by group\n\nBasic options\n", "", 0))
expect_part("help 2", run("help solver.def 2")[0], "Options in alphabetical order\n")
runs("help solver.def iterlin", summary,
     'wexcorin: there is no option "iterlin"; did you mean "iterlim"?\n', 1)

written = 'iterlim=7\ntol=2.5E-20\nlog=1\nrange=3 4\ntitle=R\udce4tsel\ncuts=a\ncuts="b c"\n'
runs("write solver.def main.opt --set 'iterlim 7' -o new.opt")
expect("new.opt", read("new.opt"), written)
runs("write solver.def - -o -", written, stdin=written)
runs("write solver.def main.opt -o none/new.opt", "", 'none/new.opt: error: Cannot write parameter file '
     '"none/new.opt"\nnone/new.opt: note: Error code = 2; No such file or directory\n', 2)

# what reading it would not give back
write("lossy.def", """marks eolcomm !
title string 1 "" 1 1
trace integer.OPT 2 4 0 9 1 1
old integer 4 1 0 9 1 1
former synonym old
bounds immediate NoBounds 1 1
.note string 5 "" 1 1
gone obsolete
 old
""")
runs("write lossy.def - -o -", 'title=a!b\nbounds 1\ntrace=4\nbounds 0\nold=2\n--any="a, b"\nx.note = 0\n', """\
<stdin>:4: warning: Integer range error for option "trace" saw "12"
<stdin>:4: note: Valid range is 0 to 9
<stdout>: warning: option "title" is not read back as it is: its text has a comment character
<stdout>: warning: option "trace" is not read back as it is: it counts as out of bounds, but its value is not
<stdout>: warning: option "old" is not read back as it is: its name is obsolete
<stdout>: warning: option "--any" is not read back as it is: such a list takes no text in quotes
<stdout>: warning: a dot line of "x" is not read back as it is: a dot line holds nothing but a number
""", stdin='title "a!b"\n--any a, b\nbounds on\ntrace 12\ntrace\nformer 2\nx.note hi\n')

# ---- doc: every form goes to standard output or a file, and leaves what was there when it cannot be written

for form, part in {
        "definition": "\niterlim integer 1 100 minint 1000 1 1 Iteration limit\n",
        "pascal": "\n   Tpfrealkeys = (\n       pftol         );\n",
        "html": "<td> iterlim </td>\n<td> integer </td>\n",
        "c": "\n  solver_nr_iterlim = 2, /* Iteration limit */\n",
        "markdown": "\n### `iterlim`\n", "json": '\n      "name": "iterlim",\n'}.items():
    out = run(f"doc {form} solver.def -o -")[0]
    expect_part(form, out, part)
    runs(f"doc {form} solver.def -o new")
    for target, reason in ("/dev/full", "No space left on device"), (".", "Is a directory"):
        said = f"{target}: error: cannot write the file: {reason}\n"
        runs(f"doc {form} solver.def -o {target}", err=said, code=2)
    runs(f"doc {form} none.def -o new", err=None, code=2)
    expect(f"new, written as {form}", read("new"), out)

# Their exact text for a definition that tries to break it.
write("odd.def", """Minos lookup
a eolcomm #
one group 1 1 A *bold* <b>group</b>
.prior integer 5 1 minint maxint 1 1 # heading
pri_or double.TWO 6 1e-7 -3 maxdouble 1 1 */ ends /* and ??/
 1. no list
 + nor this
level enumint 7 -5 1 1 x|y `code`
 -5 1 minus
 6 0 hidden
word enumstr.OPT 8 "a b" 1 1 words
 "a b" 1 first
 `c` 1 third
old boolean.NV 9 1 1 7 R\udce4tsel
many multilist 10 1 1 several
 pri_or nowhere
 word
both macro 1 1
 word
quiet string 11 "" 0 1
old_one synonym old
b deprecated
 old use word
b obsolete
 old_one gone
""")
undefined = 'odd.def:16: error: MultiList option "nowhere" is undefined for option "many"\n'
runs("doc c odd.def -o -", r"""/* Options of odd.def, written by "wexcorin doc c". */
#ifndef ODD_OPTIONS_H
#define ODD_OPTIONS_H

/* Numbers, as functions whose names end in nr take them. They hold for this definition file only. */
enum {
  odd_nr_Help = 1,
  odd_nr_dot_prior = 2, /* # heading */
  odd_nr_pri_or = 3, /* * / ends / * and ? ?/ */
  odd_nr_level = 4, /* x|y `code` */
  odd_nr_word = 5, /* words */
  odd_nr_old = 6, /* R\xc3\xa4tsel */
  odd_nr_many = 7, /* several */
  odd_nr_both = 8,
  odd_nr_quiet = 9,
};

/* Reference numbers, which the definition file gives to its options. */
enum {
  odd_ref_Help = 0,
  odd_ref_dot_prior = 5,
  odd_ref_pri_or = 6,
  odd_ref_level = 7,
  odd_ref_word = 8,
  odd_ref_old = 9,
  odd_ref_many = 10,
  odd_ref_both = -1,
  odd_ref_quiet = 11,
};

/* level: values */
enum {
  odd_value_level_minus_5 = -5, /* minus */
  odd_value_level_6 = 6, /* hidden */
};

/* word: items, as optgetenumstrnr gives them */
enum {
  odd_value_word_a_b = 1, /* first */
  odd_value_word_c = 2, /* third */
};

#endif
""", undefined, 1)
runs("doc markdown odd.def -o -", r"""# Options of odd.def

Of a name, the first three characters of the first word and four of each later one count.

## A \*bold\* \<b\>group\</b\>

| Option | Default | |
|---|---|---|
| `.prior` | `1` | \# heading |
| `pri or` | `1E-7` | \*/ ends /\* and ??/ |
| `level` | `-5` | x\|y \`code\` |
| `word` | `"a b"` | words |
| `many` |  | several |
| `both` |  |  |

### `.prior`

\# heading

- Type: integer
- Range: minint to maxint
- Default: `1`

### `pri or`

\*/ ends /\* and ??/

- Type: number, two values
- Range: -3 to maxdouble
- Default: `1E-7`

1\. no list
\+ nor this

### `level`

x\|y \`code\`

- Type: choice of numbers
- Default: `-5`

| Value | |
|---|---|
| `-5` | minus |

### `word`

words

- Type: choice, the value may be left out
- Default: `"a b"`

| Value | |
|---|---|
| `"a b"` | first |
| `` `c` `` | third |

### `many`

several

- Type: list of values for several options
- Options: `pri or`, `word`

### `both`

- Type: sets several options
- Options: `word`

## Further options

| Option | Default | |
|---|---|---|
| `old` | `1` | Rätsel |

### `old`

Rätsel

- Type: boolean, takes no value
- Default: `1`
- Synonyms: `old one` (obsolete, not taken any more; gone)
- Standing: deprecated; use word

""", undefined, 1)
described = json.loads(run("doc json odd.def -o -")[0])
for key, value in {"lookup": "Minos", "comment_characters": "#", "indicator_keyword": None, "groups": [
        {"number": 1, "name": "one", "title": "A *bold* <b>group</b>", "listed": True}]}.items():
    expect("doc json", described[key], value)
usual = {"listed": True, "group": 1, "argument": "required", "details": [], "deprecation": None,
         "synonyms": [], "synonym_deprecation": None}
for option in (
        {"number": 3, "reference": 6, "name": "pri or", "type": "double", "argument": "two",
         "default": 1e-7, "low": -3.0, "high": 1e299, "help": "*/ ends /* and ??/",
         "details": ["1. no list", "+ nor this"]},
        {"number": 4, "reference": 7, "name": "level", "type": "enumint", "default": -5, "help": "x|y `code`",
         "values": [{"value": -5, "help": "minus", "listed": True},
                    {"value": 6, "help": "hidden", "listed": False}]},
        {"number": 6, "reference": 9, "name": "old", "type": "boolean", "argument": "none", "default": True,
         "group": 7, "help": "Rätsel", "deprecation": {"kind": "deprecated", "reason": "use word"},
         "synonyms": ["old one"], "synonym_deprecation": {"kind": "obsolete", "reason": "gone"}},
        {"number": 7, "reference": 10, "name": "many", "type": "multilist", "help": "several",
         "members": ["pri or", None, "word"]}):
    expect("doc json", described["options"][option["number"] - 1], {**usual, **option})

# names that collide in C are refused
write("1.def", """a_b integer 1 0 0 1 1 1
a__b integer 2 0 0 1 1 1
word enumstr 3 a-b 1 1
 a-b 1
 a+b 1
""")
write("out.h", "as it was")
runs("doc c 1.def -o out.h", "", '1.def: error: option "a_b" and option "a__b" would both be called '
     '"options_1_nr_a_b" in C; rename one of them\n1.def: error: value a-b of option "word" and value a+b of '
     'option "word" would both be called "options_1_value_word_a_b" in C; rename one of them\n', 1)
expect("out.h", read("out.h"), "as it was")

# ---- the command line

for command, said in (
        ("", "wexcorin: A subcommand is required\nTry 'wexcorin --help'.\n"),
        ("check", "wexcorin check: DEF is required\nTry 'wexcorin check --help'.\n"),
        ("show solver.def --all", "--all"), ("write solver.def -o new.opt", "OPTFILE"),
        ("doc pdf solver.def -o -", 'there is no form "pdf"'),
        ("check " + 255 * "x", "file names may have at most 254 characters")):
    out, err, code = run(command)
    expect_part(command, err, said)
    expect(command, (out, code), ("", 2))
expect("version", run("--version")[0][:9], "wexcorin ")

# ---- the schemas; each is also tried on documents that are broken in one place: one that takes everything
# would prove nothing

try:
    import jsonschema
except ImportError:
    print("python3-jsonschema is not installed: the schemas stay untried")
    sys.exit("\n".join(failures) or 77)


def problems(schema, document):
    validator = jsonschema.Draft202012Validator(json.loads(read(f"{DOCS}/{schema}.schema.json")))
    validator.check_schema(validator.schema)
    return [f"{list(error.path)}: {error.message}" for error in validator.iter_errors(document)]


documents = {"definition": json.loads(run("doc json examples/solver.def -o -")[0]),
             "settings": json.loads(run("show --json examples/solver.def examples/solver.opt")[0])}
for schema, document in documents.items():
    expect(f"docs/{schema}.schema.json: what it does not describe", problems(schema, document), [])
for schema, kind, key, value in (
        ("definition", "integer", "default", "7"), ("definition", "double", "high", None),
        ("definition", "string", "low", 0), ("definition", "macro", "members", [1]),
        ("definition", "boolean", "argument", "some"), ("definition", "enumint", "values", [{"value": 1}]),
        ("definition", "strlist", "unknown", 0), ("settings", "boolean", "value", 1),
        ("settings", "integer", "value", 2**31), ("settings", "strlist", "value", "a"),
        ("settings", "immediate", "value", 0)):
    broken = copy.deepcopy(documents[schema])
    next(each for each in broken["options"] if each["type"] == kind)[key] = value
    what = f"docs/{schema}.schema.json refuses {key} = {value!r} for {kind}"
    expect(what, len(problems(schema, broken)) > 0, True)
sys.exit("\n".join(failures) or 0)

"""Runs the tool as a process: the session in examples/ and the documents that are made from the examples, then
unusual cases.
usage: tool.py TOOL; run in the repository's root"""
import json, re, sys
from support import DOCS, expect, expect_part, failures, read, run, runs, transcript, write

# ---- the examples

transcript("examples/session.md")
for name, command in {
        "solver_mistakes.expected": "check examples/solver.def examples/solver_mistakes.opt",
        "types_settings.json": "show --json examples/types.def examples/types.opt",
        "types.h": "doc c examples/types.def -o -", "types.md": "doc markdown examples/types.def -o -",
        "types.json": "doc json examples/types.def -o -",
        "types.html": "doc page examples/types.def -o -",
        "solver.html": "doc html examples/solver.def -o -"}.items():
    seen, wanted = run(f"wexcorin {command}")[0], read(f"examples/{name}")
    expect(f"wexcorin {command} >examples/{name}", seen, wanted)

# ---- check, show, write: which stream gets what, and cases that are not in the session

runs("wexcorin show examples/first.def - --changed", "Nr  Name  Type  Set  Value  Default  Range or values\n",
     '<stdin>:1: error: Unknown option "maxitt"; did you mean "maxit"?\n', 1, "maxitt 5\n")
expect("more findings of one kind than are listed, and one of another",
       run("wexcorin check examples/first.def - --limit 5500", 6000 * "zzz 1\n" + "maxit x\n")[0].split("\n")[-4:],
       ['<stdin>:5500: error: Unknown option "zzz"', '<stdin>:6001: error: Integer expected, for option "maxit" saw "x"',
        "6001 errors, 0 warnings (500 of them not listed); 4 options, 0 set", ""])

write("read.def", "read immediate readfile 0 0\n")
out, err, code = run("wexcorin check read.def -", 6000 * "zzz 1\n" + "read /dev/zero\n")
expect("a file that is not read to its end, after more errors than the library keeps messages",
       (out.split("\n")[-4:-2], err, code),
       (['/dev/zero:1: error: Cannot read parameter file "/dev/zero"',
         "/dev/zero:1: note: Error code = 27; File too large"], "", 2))
expect("a failure to write, after more errors than the tool lists",
       run("wexcorin write read.def - --force -o /dev/full", "--any x\n" + 1500 * "z\n")[1].split("\n")[1000:],
       ["/dev/full: error: cannot write the file: No space left on device",
        "wexcorin: 500 further problems not listed", ""])

# template: it sets and reports nothing; nor is anything reported with any one of its lines uncommented, each in a file
# of its own. The options that have no line are those of which each use is reported.
write("quotes.def", 'x eolcomm #\na string 1 "b#c" 1 1\nb string 2 "" 1 1\nc enumstr 3 "d e" 1 1\n "d e" 1\n.d double 4 '
      "0.30000000000000004 0 1 1 1\nold integer 5 1 0 9 1 1\nstop multilist 6 1 1\n help a old\nx obsolete\n old\n")
for definition, unset in (("examples/solver.def", "basis_weight big_number describe remark"),
                          ("examples/types.def", "a_very_long_name_that_does_not_fit_on_any_telephone_and_even_less"
                           "_in_a_table damper explain glaze note"), ("quotes.def", "Help old")):
    template = run(f"wexcorin template {definition}")[0]
    lines = [line for line in template.split("\n") if re.match(r"\*\w", line)]
    write("all.opt", template)
    options = json.loads(run(f"wexcorin doc json {definition} -o -")[0])["options"]
    of_definition = "--allow long-name --allow group-undeclared --allow no-value-text --allow no-help"
    runs(f"wexcorin check {definition} all.opt {of_definition}", f"no problems; {len(options)} options, 0 set\n")
    for number, line in enumerate(lines):
        write(f"line{number}.opt", template.replace(f"\n{line}\n", f"\n{line[1:]}\n"))
    # the last ones first, because macros set options in front of them
    files = " ".join(f"line{number}.opt" for number in reversed(range(len(lines))))
    out, err, code = run(f"wexcorin show --json {definition} {files}")
    expect(f"template of {definition}: problems", (err, code), ("", 0))
    shown = {each["name"]: each for each in json.loads(out)["options"]}
    for each in options:
        line = re.search(rf"(?m)^\*(symbol)?{re.escape(each['name'])}( = .*)?$", template)
        expect(f"{each['name']} has a line", bool(line),
               each["listed"] and each["name"].replace(" ", "_") not in unset.split())
        row = shown[each["name"]]
        if line and row["value"] not in (None, ["text"]):
            expect(f"{line[0]}: is set", row["set"], True)
            if each["name"] not in ("atmosphere", "log_prefix"):  # other case; blank at the end
                expect(f"{line[0]}: value", row["value"], row["default"])
expect_part("a comment character in a member's default", template, '\n*stop = "1:b#c:1"\n')
only = run("wexcorin template --group FIRING examples/types.def")[0]
expect("template of a group", re.findall(r"(?m)^\*(\w+)", only), ["peak", "rate", "vents", "atmosphere"])
runs("wexcorin template examples/types.def --group firng -o group.opt", code=1,
     err='wexcorin: there is no group "firng"; did you mean "firing"?\n')
runs("cp quotes.def mine.def; wexcorin template mine.def -o ./mine.def", code=2,
     err="./mine.def: error: cannot write the file: it is one of the files that are read\n")
expect("template from a pipe", run("cat quotes.def | wexcorin template -")[0].split("\n")[1:],
       run("wexcorin template quotes.def")[0].split("\n")[1:])

written = 'vents=60\nglaze\ncone=a\ncone="b c"\nnote=R\udce4tsel\n'
runs("wexcorin write examples/types.def - -o -", written, None, stdin=written)
for form in "", "--json":
    expect_part(f"show {form}", run(f"wexcorin show examples/types.def - {form}", written)[0], "Rätsel")
runs("wexcorin write examples/types.def - -o none/new.opt", err=None, code=2)

# write reads back what it has written, and reports each setting that has changed, with the reason.
for definition, options, warnings in (
        ("tol double 1 0.5 0 0.66666666666666663 1 1", "tol 0.66666666666666663",
         ['warning: option "tol" is not read back as it was set: '
          'Double out of range for option "tol" saw "0.666666666666667"',
          "note: Valid range is 0 to 0.666666666666667"]),
        ("tol double.TWO 1 0 0 1 1 1", "tol * 0.5", []),  # the value in force is the same
        ("tol double.TWO 1 0.1234567890123456 0 1 1 1", "tol * 0.5",
         ['warning: first value of option "tol" is not set, but is read back as 0.123456789012346']),
        ("tol double.TWO 1 0 -1 1 1 1", "tol -0 0.1234567890123456",
         ['warning: first value of option "tol" is set to -0, but is read back as 0',
          'warning: second value of option "tol" is set to 0.1234567890123456, '
          "but is read back as 0.123456789012346"]),
        ("quiet boolean.NV 1 1 1 1\nmute macro 1 1\n quiet", "mute 0",  # a macro can set it to 0
         ['warning: option "quiet" is set to 0, but is read back as 1']),
        ("any immediate NoBounds 1 1\nsize integer.OPT 1 5 0 9 1 1", "any 1\nsize 10\nsize",
         ['warning: option "size" counts as out of bounds, but not when it is read back']),
        ("x eolcomm #\nword strlist 1 1 1", 'word a\nword "b#c"\nword d',
         ['warning: text 2 of option "word" is set to b#c, but is read back as b']),
        ("Minos lookup\nmy_list strlist 1 1 1", "my list a",
         ['warning: option "my list" is not read back as it was set: Unknown option "my_list"']),
        ("Minos lookup\nsize integer 1 5 0 9 1 1", "--my_list a\n--my_list b", []),  # two lists of one name
        # of a key of several words, the first words that name an option are the key
        ("Minos lookup\nab integer 1 5 0 9 1 1\nab_cde_fgh integer 1 5 0 9 1 1\nset macro 1 1\n ab_cde_fgh",
         "set 6", ['warning: option "ab cde fgh" is not read back as it was set: '
                   'Integer expected, for option "ab" saw "cde fgh=6"']),
        ("Minos lookup\nmajor_iterations integer 1 5 0 9 1 1", "major iterations 6", []),
        (255 * "n" + " integer 1 5 0 9 1 1", 255 * "n" + " 6", []),  # no name is too long
        ("end string 1 a 1 1\nstop synonym end\nx obsolete\n end Use stop.", "stop x",
         ['warning: option "end" is not read back as it was set: obsolete option "end"; Use stop.']),
        (".cost double 1 0 0 1 1 1", f"a.cost('{35 * 'i'}','{32 * 'j'}') 0.1234567890123456\nb.cost('i') 0.5",
         [f"""warning: dot line "a.cost('{35 * 'i'}','{32 * 'j'}')" is set to 0.1234567890123456, but is read back as """
          "0.123456789012346"]),
        (".note string 1 a 1 1\n.rank integer 1 0 0 9 1 1\nall macro 1 1\n .rank", "a.note x\nall 5",
         ['warning: option ".note" is set to x, but is read back as 0',
          'warning: option ".rank" is set to 5, but is not set when it is read back']),
        ("m indicator\nm integer 1 0 0 9 1 1\nn synonym m\nk integer 1 0 0 9 1 1", "n 5\nk 1",
         ['warning: option "m" is not read back as it was set: Equation ID expected for indicator'])):
    write("new.def", definition + "\n")
    write("new.opt", options + "\n")
    err = run("wexcorin write new.def new.opt -o back.opt")[1]
    seen = [line[10:] for line in err.splitlines() if line.startswith("back.opt: ")]
    expect(f"what is not read back of {options!r}", seen, warnings)

# A dot line may be longer than a line of a file can be. Only such lines are then lost.
write("new.def", ".rank integer 1 0 0 9 1 1\n")
elements = ",".join(f"'{number:060}'" for number in range(20))
runs(f"""wexcorin write new.def --set 'a.rank 1' --set "b.rank({elements}) 1" --set 'c.rank 1' \\
         --set "d.rank({elements}) 1" /dev/null -o new.opt""",
     err="".join(f"""new.opt: warning: dot line "{name}.rank({elements[:70]}..." is not read back as it was set: """
                 f'Closing bracket ")" expected for .option "{name}"\n' for name in "bd"))

# The definition may be a pipe. The output may be a pipe, too.
write("new.def", "tol double 1 0 0 1 1 1 \r\r\n")
write("new.opt", "tol 0.1234567890123456")
for command in ("wexcorin write - new.opt -o - <new.def",
                "cat new.def | wexcorin write /dev/stdin new.opt -o -",
                "wexcorin write new.def new.opt -o /dev/stdout | cat"):
    out, err, _ = run(command)
    expect(command, (out, err.partition(": ")[2]),
           ("tol=0.123456789012346\n", 'warning: option "tol" is set to 0.1234567890123456, '
                                       "but is read back as 0.123456789012346\n"))

# What the help does not list, by its own flag, its group or no group, is found by its name only. Groups have names and titles.
write("hidden.def", """makers group 2 0 Makers
cuts group 1 1 Cutting planes
shown integer 1 0 0 9 1 1 Word
macro_only macro 1 3 Word
flag_zero integer 2 0 0 9 0 1 Word
group_zero integer 3 0 0 9 1 0 Word
group_hidden integer 4 0 0 9 1 2 Word
short group 3 1 Shorthands
last group 5 1 Last
""")
names = "shown macro_only flag_zero group_zero group_hidden".split()
for command in "help {}", "help {} 8", "find {} word", "template {}", "doc markdown {} -o -", "doc page {} -o -":
    out = run(f"wexcorin {command.format('hidden.def')}")[0]
    expect(command, [name for name in names if re.search(rf"(?m)^\W*{name}\b|id=.{name}\b", out)], names[:2])
for name in names:
    expect(f"find {name}", run(f"wexcorin find hidden.def {name}")[0].count(name), 1)
    expect_part(f"help {name}", run(f"wexcorin help hidden.def {name}")[0], f"{name}: Word")
expect_part("no empty column", run("wexcorin doc markdown hidden.def -o -")[0],
            "## Shorthands\n\n| Option | Meaning |\n|---|---|\n| [`macro_only`](#macro_only) | Word |\n")
for request in "cuts", "CUTS", "cutting planes":
    runs(f"wexcorin help hidden.def {request}", "Cutting planes\nshown                 : Word\n")
runs("wexcorin help hidden.def 15", None)
runs("wexcorin help hidden.def help", f"Help: \n{24 * ' '}immediate, \n")
expect("blanks for underscores", run("wexcorin help hidden.def group zero")[0][:17], "group_zero: Word\n")
nearest, search = 'group "cust"; did you mean "cuts"?\n', "'wexcorin find' searches the texts of the options"
for request, said, code in (("99", "a sum of 1, 2 and 8\nwexcorin: the groups are cuts, short and last\n", 2), ("-1", "cuts, short and last\n", 2),
                            ("cust", nearest, 1), ("makers", f'"makers"; {search}\nwexcorin: the groups are cuts, short and last\n', 1)):
    out, err, seen = run(f"wexcorin help hidden.def {request}")
    expect(f"help {request}", (out, err.endswith(said), seen), ("", True, code))
for group, said in ("cust", 'did you mean "cuts"?\n'), ("zzz", "the groups are cuts, short and last\n"):
    runs(f"wexcorin template hidden.def --group {group}", "", f'wexcorin: there is no group "{group}"; {said}', 1)
write("none.opt", "a integer 1 0 0 9 1 0 A\n")
for command in "help {}", "template {}", "doc markdown {} -o -", "doc page {} -o -":
    expect_part(command, run(f"wexcorin {command.format('none.opt')}")[1], "none.opt: warning: No option is listed")

# Every command tells of a definition that ends before its last line.
write("short.def", "size integer 1 5 0 9 1 1 Size\n\tb integer 2 5 0 9 1 1\n")
expect_part("from a pipe", run("cat short.def | wexcorin show /dev/stdin")[1],
            "/dev/stdin:2: warning: The definition ends here, because no line of a definition can begin like this one")
for command in "show short.def", "help short.def", "write short.def /dev/null -o -", "doc c short.def -o -":
    expect_part(command, run(f"wexcorin {command}")[1], "short.def:2: warning: The definition ends here")

runs("wexcorin check examples/solver.def", "no problems; 155 options, 0 set\n")

# ---- doc: every form can be written to standard output or a file; on failure the old file stays

for form in "definition", "pascal", "html", "c", "markdown", "page", "json":
    out = run(f"wexcorin doc {form} examples/first.def -o -")[0]
    runs(f"wexcorin doc {form} examples/first.def -o new")
    runs(f"wexcorin doc {form} none.def -o new", err=None, code=2)
    expect(f"new, written as {form}", read("new"), out)
runs("wexcorin doc c - -o new", "", None, 1, "a_b integer 1 0 0 1 1 1\na__b integer 2 0 0 1 1 1\n")
expect("new, refused", read("new"), out)
for form, part in ("definition", "\ntol double 2 1E-6 "), ("pascal", "Tpfrealkeys"):
    expect_part(form, run(f"wexcorin doc {form} examples/first.def -o -")[0], part)

# Duplicate names, members that do not exist, and control characters.
write("wrong.def", """Minos lookup
word string 1 a 1 1 R\udce4tsel \x01\x1b[31m \x7f {{style}} nul:\0:end
main_limit multilist 2 1 1 = no title
 nowhere word
MAIN_LIMIT integer 3 5 0 9 1 1
upper synonym main_limit
upper synonym main_limit
""")
for form, part in (
        ("markdown", "\n- Options: `word`\n"), ("markdown", "\n\\= no title\n"),
        # an option without help
        ("markdown", "### `MAIN LIMIT`\n\n- Type: integer\n"),
        ("page", 'MAIN LIMIT</a></h3>\n</div>\n<div>\n<dl class="facts">'),
        ("json", '"members": [\n        null,\n        "word"\n      ],'),
        ("page", 'Stands for <a href="#word"><code>word</code></a></p>'), ("page", 'id="main_limit">\n'),
        ("page", 'id="MAIN_LIMIT">\n'),
        ("page", 'id="upper">upper</code>, <code id="upper-2">'),
        ("page", '"help find">Rätsel \\x01\\x1b[31m \\x7f {{style}} nul:\\x00:end</p>')):
    expect_part(form, run(f"wexcorin doc {form} wrong.def -o -")[0], part)


# ---- the rules: the documents repeat the table of the sources

table = re.findall(r'\{"([a-z0-9-]+)", (\w+),\s+"(.*?)"\}', read(f"{DOCS}/../tools/reading/rules.cpp"), re.S)
table = [(name, kind, re.sub(r'"\s+"', "", meaning)) for name, kind, meaning in table]
optional = [(name, meaning) for name, kind, meaning in table if kind in ("warning", "tool")]
expect("rules in docs/check.md", re.findall(r"^\| `(.*)` \| .* \| (.*) \|$", read(f"{DOCS}/check.md"), re.M),
       [(name, meaning) for name, _, meaning in table])
manual = read(f"{DOCS}/../man/wexcorin.1").partition("These rules can be left out:\n")[2].partition(".SS")[0]
expect("rules in the manual", re.findall(r"\.TP\n\.B (.*)\n(.*)\n", manual.replace("\\-", "-")), optional)
expect("rules in the schema", json.loads(read(f"{DOCS}/check.schema.json"))["$defs"]["rule"]["enum"],
       [name for name, _, _ in table])
driver = json.loads(run("wexcorin check examples/first.def --format sarif")[0])["runs"][0]["tool"]["driver"]
expect("the version in SARIF", driver["version"], run("wexcorin --version")[0].split()[1])
expect("rules in SARIF", (driver["name"], [(rule["id"], rule["defaultConfiguration"]["level"], rule["shortDescription"]["text"])
                                           for rule in driver["rules"]]),
       ("wexcorin", [(name, "warning" if (name, meaning) in optional else "error", meaning) for name, _, meaning in table]))

sys.exit("\n".join(failures) or 0)

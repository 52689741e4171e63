"""Runs `check`: how it finds the definition, arguments that look swapped, option files that are checked one by one, and
the formats of its findings.
usage: check.py TOOL; run in the repository's root"""
import json, os, re, sys
from support import DOCS, expect, expect_part, failures, read, run, runs, write

write("a.def", "main group 1 1 Main\nsize integer 1 5 0 9 1 1 Size\n")
write("bad.opt", "size x\n")
for folder in "one", "two", "above/deep/deeper", "none", "by name, 5% é":
    os.makedirs(folder)
for name in "one/solver.def", "two/x.def", "two/y.def", "above/solver.def", "by name, 5% é/main.def", "by name, 5% é/z.def":
    os.symlink(os.path.abspath("a.def"), name)
for name in "one/run.opt", "two/run.opt", "above/deep/deeper/run.prm", "none/run.opt", "by name, 5% é/main.opt":
    write(name, "* size 5\nsize 12 % {0}\n")

# ---- the definition

named = "size 7\n* Definition:  ../a.def \r\n"
config = '{"definitions": [\n {"files": "x*", "definition": "none.def"},\n {"definition": "%s", "files": "%s"}]}'
for name, text, configured, found in (
        ("one/run.opt", None, None, "one/solver.def (the only one beside one/run.opt)"),
        ("by name, 5% é/main.opt", None, None, "by name, 5% é/main.def (which has its name from main.opt)"),
        ("two/run.opt", named, config % ("one/solver.def", "*"), "two/../a.def (named in two/run.opt:2)"),
        ("two/run.opt", 9 * "*\n" + named[7:], None, "two/../a.def (named in two/run.opt:10)"),
        ("one/run.opt", 10 * "*\n" + named[7:], None, "one/solver.def (the only one beside one/run.opt)"),
        ("one/run.opt", None, config % ("a.def", "*.opt"), "a.def (named in wexcorin.json:3)"),
        ("one/run.opt", None, config % ("two/x.def", "one/r?n.*"), "two/x.def (named in wexcorin.json:3)"),
        ("one/run.opt", None, config % (os.path.abspath("a.def"), "*"), os.path.abspath("a.def") + " (named in "
         "wexcorin.json:3)"),
        ("one/run.opt", None, config % ("a.def", "two/*"), "one/solver.def (the only one beside one/run.opt)"),
        ("above/deep/deeper/run.prm", None, config % ("a.def", "above/*"), "a.def (named in wexcorin.json:3)")):
    if text:
        write("two/saved.opt", read(name))
        write(name, text)
    if configured:
        write("wexcorin.json", configured)
    out, _, code = run(f"wexcorin check '{name}'")
    expect(f"check {name}", (out.split("; definition ")[-1], code), (found + "\n", 0 if text else 1))
    runs(f"cd '{os.path.dirname(name)}' && wexcorin check {os.path.basename(name)}", None, "", 0 if text else 1)
    if text:
        os.rename("two/saved.opt", name)
    if configured:
        os.remove("wexcorin.json")

# The nearest wexcorin.json counts, and what is wrong in it is said with its line.
write("wexcorin.json", config % ("a.def", "*"))
expect_part("named from a folder below", run("cd above && wexcorin check deep/deeper/run.prm")[0],
            "definition ../a.def (named in ../wexcorin.json:3)")
for text, line, problem in (
        ("{}", 1, 'The file must be an object with the member "definitions"'), ("\n[]", 2, "The file must be an object"),
        ('{"definitions": [\n{"files": 5\n}]}', 2, '"files" must be a text'),
        ('{"definitions": [],\n\n}', 3, "This is not JSON: syntax error"), ("", 0, "The file cannot be read, or is empty")):
    write("above/wexcorin.json", text)
    out, err, code = run("wexcorin check above/deep/deeper/run.prm")
    place = f"above/wexcorin.json:{line}" if line else "above/wexcorin.json"
    expect(f"wexcorin.json {text!r}", ((err + out).startswith(f"{place}: error: {problem}"), code), (True, 2))
# Only a regular file of a sensible size is read.
for made, problem in (("mkfifo F", "The file cannot be read, or is no regular file"),
                      ("ln -s /dev/zero F", "The file cannot be read, or is no regular file"),
                      ("truncate -s 1048577 F", "The file has more than 1 MiB")):
    os.remove("above/wexcorin.json")
    run(made.replace("F", "above/wexcorin.json"))
    expect(f"wexcorin.json: {made}", run("timeout 10 wexcorin check above/deep/deeper/run.prm")[1].split("\n")[0],
           f"above/wexcorin.json: error: {problem}")
os.remove("wexcorin.json")
os.remove("above/wexcorin.json")

# Which file is the definition. A definition with mistakes stays one, whatever its name is.
write("broken", "size intger 1 5\nother integer 2 5 0 9 1 1 Other\n")
write("broken.def", "size intger 1 5\n")
for files, definitions in (("broken", "broken"), ("broken.def", "broken.def"), ("a.def one/run.opt", "a.def"),
                           ("one/run.opt two/run.opt", "one/solver.def"), ("/dev/null", "/dev/null"),
                           ("one/run.opt two/run.opt --definition a.def", "a.def"), ("--definition a.def --set 'size 1'", "a.def")):
    summary = json.loads(run(f"wexcorin check --json {files}")[0])["summary"]
    expect(f"check {files}: definitions", [each["path"] for each in summary["definitions"]], [definitions])

# ---- arguments that look swapped

swapped = '"bad.opt" looks like an option file and "a.def" like a definition; the definition comes first, as in '
for command, said in (
        ("check bad.opt a.def", swapped + "'wexcorin check a.def bad.opt'"), ("check --definition bad.opt a.def", swapped),
        ("show bad.opt one/run.opt a.def", swapped), ("write bad.opt a.def -o -", swapped), ("get x bad.opt a.def", swapped),
        ("show bad.opt", "\"bad.opt\" looks like an option file; the definition comes before it, as in 'wexcorin show DEF bad.opt'"),
        ("get x bad.opt", "'wexcorin get NAME DEF bad.opt'"), ("write bad.opt one/run.opt -o -", "'wexcorin write DEF bad.opt'"),
        ("get a.def size", "did you mean 'wexcorin get size a.def'?"), ("help size a.def", "did you mean 'wexcorin help a.def size'?"),
        ("diff bad.opt one/run.opt", "the files look like option files; their definition is missing"),
        ("find size a.def", "did you mean 'wexcorin find a.def size'?"),
        ("doc a.def page -o x", "; the form comes before the definition, as in 'wexcorin doc page a.def'")):
    out, err, code = run(f"wexcorin {command}")
    expect(command, (out, said in err, code), ("", True, 2))
for command in "get size a.def", "help a.def size", "show a.def", "check a.def":
    runs(f"wexcorin {command}", None, "", 0)

# ---- option files that are checked one by one

write("two/common.opt", "sise 1\n")
write("inc.def", read("a.def") + "include immediate readfile 1 1 Include\n")
write("c.opt", "size 3\ninclude two/common.opt\n")
write("d.opt", "size 4\ninclude two/common.opt\n")
common = 'two/common.opt:1: error: Unknown option "sise"; did you mean "size"?\n'
runs("wexcorin check inc.def c.opt d.opt --allow set-again", common + "1 error, 0 warnings; 3 options, 1 set\n", code=1)
runs("wexcorin check inc.def c.opt d.opt --separately", "".join(
    f'{common}two/common.opt:1: note: Found when "{file}" was checked\n' for file in ("c.opt", "d.opt")) +
    "2 errors, 0 warnings; 3 options, 2 set; 2 option files, each checked on its own\n", code=1)
for files, code in ("c.opt none.opt bad.opt", 2), ("one/run.opt", 1), ("--set 'size 5'", 0):
    expect(f"the worst exit code of {files}", run(f"wexcorin check --definition inc.def --separately {files}")[2], code)
out, err, code = run("wexcorin check --json --separately one/run.opt 'by name, 5% é/main.opt' two/run.opt")
report = json.loads(out)
expect("each with its own definition",
       ([(each["file"], each["rule"], each["optionfile"]) for each in report["findings"]][:2],
        [each["path"] for each in report["summary"]["definitions"]], report["summary"]["separate"], code),
       ([("one/run.opt", "value", "one/run.opt"), ("by name, 5% é/main.opt", "value", "by name, 5% é/main.opt")],
        ["one/solver.def", "by name, 5% é/main.def"], 3, 2))
expect("the limit counts for all files together",
       run("wexcorin check inc.def bad.opt c.opt d.opt --separately --limit 1")[0].count(": error: "), 2)

# ---- formats. All have the same findings, and the texts of files cannot change their form

write("by name, 5% é/main.opt", "size 12\nsize \x1b]x::%0A{0}\nsay ::error::no\nsize\nsize 2\nsize 3\nread none,1:2%.opt\n")
write("by name, 5% é/def.def", read("a.def") + "say immediate message 1 1 Say\nread immediate readfile 1 1 Read\n")
call = "wexcorin check --definition 'by name, 5% é/def.def' 'by name, 5% é/main.opt' --set 'zise 1' --format"
found = json.loads(run(f"{call} json")[0])["findings"]
expect("--json", run(f"{call} json"), run(call.replace("--format", "--json")))
text, _, code = run(f"{call} text")
places = [(each["file"], each["line"], each["severity"], each["rule"]) for each in found]
expect("rules of the findings", {rule for *_, rule in places},
       {"illegal-value", "value", "option-file", "set-again", "unusable-file", "unknown-option"})

document, err, seen = run(f"{call} sarif")
expect("sarif: exit code", (err, seen), ("", code))
expect("sarif: control characters", re.findall(r"[\x00-\x09\x0b-\x1f\x7f]", document), [])
document = json.loads(document)
expect("sarif: version and runs", (document["version"], len(document["runs"])), ("2.1.0", 1))
log = document["runs"][0]
rules = log["tool"]["driver"]["rules"]
expect("sarif: rules", [[each["id"] for each in rules], {each["defaultConfiguration"]["level"] for each in rules}],
       [json.loads(read(f"{DOCS}/check.schema.json"))["$defs"]["rule"]["enum"], {"error", "warning"}])
expect("sarif: the tool", (log["tool"]["driver"]["name"], log["invocations"][0]["executionSuccessful"]), ("wexcorin", False))
uri = "by%20name%2C%205%25%20%C3%A9/main.opt"
for result, finding, place in zip(log["results"], found, places, strict=True):
    expect("sarif: rule and level", (rules[result["ruleIndex"]]["id"], result["ruleId"], result["level"]),
           (place[3], place[3], place[2]))
    notes = finding["details"] + finding["advice"]
    lines = result["message"]["text"].replace("{{", "{").replace("}}", "}").split("\n")
    expect("sarif: text and notes", (finding["text"] in lines[0], lines[1:]), (True, notes))
    wanted = {"artifactLocation": {"uri": uri}, "region": {"startLine": place[1]}}
    expect("sarif: place", result.get("locations"),
           [{"physicalLocation": wanted}] if place[0].endswith("main.opt") else None)
    expect("sarif: text of what is in no file", lines[0].startswith("--set 'zise 1'"), "locations" not in result)
expect("sarif: braces", any("%0A{{0}}" in each["message"]["text"] for each in log["results"]), True)
expect("sarif: notes", [each["message"]["text"] for each in log["invocations"][0]["toolExecutionNotifications"]][-1],
       text.split("\n")[-2])
absolute = json.loads(run(f"wexcorin check {os.path.abspath('a.def')} ./bad.opt $PWD/bad.opt --format sarif")[0])
expect("sarif: uris", [each["locations"][0]["physicalLocation"]["artifactLocation"]["uri"]
                       for each in absolute["runs"][0]["results"]], ["bad.opt", f"file://{os.getcwd()}/bad.opt"])

lines, err, seen = run(f"{call} github")
expect("github: exit code", (err, seen), ("", code))
properties = "file=by name%2C 5%25 é/main.opt,line="
lines = lines.split("\n")[:-1]
expect("github: every line is a command", [line for line in lines if not re.match("::(error|warning|notice) ", line)], [])
expect("github: places and rules", [re.sub("::.*", "", line[2:]) for line in lines if not line.startswith("::notice")],
       [f"{severity} " + (f"{properties}{line}," if "main.opt" in file else "") + f"title={rule}"
        for file, line, severity, rule in places])
expect_part("github: escapes in a text", lines[1], r'saw "\x1b]x::%250A{0}"')
expect_part("github: notes", lines[0], "%0AValid range is 0 to 9")
expect_part("github: a message of the option file", lines[2], "title=option-file::::error::no")
expect_part("github: help", run(f"wexcorin check a.def --set 'help size' --format github")[0],
            "::notice title=wexcorin check::size: Size\n")
expect("github: the summary", lines[-1], "::notice title=wexcorin check::" + text.split("\n")[-2])
expect_part("two formats", run("wexcorin check a.def --json --format text")[1], "--json excludes --format")
expect_part("an unknown format", run("wexcorin check a.def --format sarf")[1], 'did you mean "sarif"?')
expect("rules separated by commas", [run(f"wexcorin check a.def --set 'size 1' --set 'size 2' --set '--size 1' --allow {rules}")[0][:9]
                                     for rules in ("set-again,dashed-list", "set-again --allow dashed-list", "set-again")],
       ["no proble", "no proble", "--set '--"])

sys.exit("\n".join(failures) or 0)

"""Runs `check`: which of the files is the definition, and option files that are checked one by one. How it finds the
definition and the formats of its findings are in transcripts/definitions.md and transcripts/findings.md.
usage: check.py TOOL; run in the repository's root"""
import json, os, sys
from support import expect, failures, read, run, runs, write

write("a.def", "main group 1 1 Main\nsize integer 1 5 0 9 1 1 Size\n")
write("bad.opt", "size x\n")
for name in "one/solver", "two/x", "two/y", "by name/main":
    os.makedirs(os.path.dirname(name), exist_ok=True)
    os.symlink(os.path.abspath("a.def"), f"{name}.def")
for name in "one/run.opt", "two/run.opt", "by name/main.opt":
    write(name, "* size 5\nsize 12 % {0}\n")

# ---- which file is the definition

# A definition with mistakes stays one, whatever its name is.
write("broken", "size intger 1 5\nother integer 2 5 0 9 1 1 Other\n")
write("broken.def", "size intger 1 5\n")
for files, definitions in (("broken", "broken"), ("broken.def", "broken.def"), ("a.def one/run.opt", "a.def"),
                           ("one/run.opt two/run.opt", "one/solver.def"), ("/dev/null", "/dev/null"),
                           ("one/run.opt two/run.opt --definition a.def", "a.def"), ("--definition a.def --set 'size 1'", "a.def")):
    summary = json.loads(run(f"wexcorin check --json {files}")[0])["summary"]
    expect(f"check {files}: definitions", [each["path"] for each in summary["definitions"]], [definitions])

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
out, err, code = run("wexcorin check --json --separately one/run.opt 'by name/main.opt' two/run.opt")
report = json.loads(out)
expect("each with its own definition",
       ([(each["file"], each["rule"], each["optionfile"]) for each in report["findings"]][:2],
        [each["path"] for each in report["summary"]["definitions"]], report["summary"]["separate"], code),
       ([("one/run.opt", "value", "one/run.opt"), ("by name/main.opt", "value", "by name/main.opt")],
        ["one/solver.def", "by name/main.def"], 3, 2))
expect("the limit counts for all files together",
       run("wexcorin check inc.def bad.opt c.opt d.opt --separately --limit 1")[0].count(": error: "), 2)

sys.exit("\n".join(failures) or 0)

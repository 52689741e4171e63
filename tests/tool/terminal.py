"""What the tool prints on a terminal: its width, its colours, and the pager.
usage: terminal.py TOOL; run in the repository's root"""
import os, re, sys
from support import expect, expect_part, failures, on_terminal, run, runs, write

NOPAGER = {"PAGER": ""}

# ---- the width: all that a wide table holds is still there, in rows that fit and do not begin with a comma

squeezed = re.compile(r"[\s]+|\x1b\[\d*m")
for width in 132, 80, 60, 20:
    for command in "show examples/solver.def", "show examples/types.def", "find examples/solver.def the":
        seen, code = on_terminal(f"wexcorin {command} --color=never", width, **NOPAGER)
        expect(f"{command}: exit code", code, 0)
        expect(f"{command}: lines beyond {width} columns", [line for line in seen.split("\n")
                                                            if len(line) > max(width, 60 if "show" in command else 40)], [])
        expect(f"{command}: commas at {width} columns", re.findall(r"(?m)^ *,.*", seen), [])
        wide = run(f"wexcorin {command}")[0]
        expect(f"{command}: what is left out at {width} columns",
               sorted(squeezed.sub("", seen)), sorted(squeezed.sub("", wide)))
wide = run("wexcorin show examples/solver.def")[0]
expect("--wide", on_terminal("wexcorin show examples/solver.def --wide --color never", 60, **NOPAGER)[0], wide)
write("long.def", 'word enumstr 1 "one of them" 1 1\n "one of them" 1\n "the second" 1\n "' +
      23 * "ä" + ',äää" 1\n')
expect("a row of several lines",
       on_terminal("wexcorin show long.def --columns name,range --color never", 30, **NOPAGER)[0],
       "Name  Range or values\nHelp\nword  \"one of them\", \"the\n      second\",\n      \"" + 22 * "ä" +
       '\n      ä,äää"\n')
# The last column is made as narrow as 20 columns before the widest one is made narrower, and none goes below 8.
write("names.def", f'{30 * "n"} string 1 "{"xx" + 36 * ","}" 1 1\n')
for width, rows in ((40, [18 * "n" + '  "x', 12 * "n" + "        x" + 19 * ",", 20 * " " + 17 * "," + '"']),
                    (10, ['nnnnnnnn  "x', "nnnnnnnn  x,,,,,,,", "nnnnnnnn  ,,,,,,,,", "nnnnnn    ,,,,,,,,",
                          "          ,,,,,,,,", '          ,,,,,"'])):
    expect(f"long words at {width} columns", on_terminal(
        "wexcorin show names.def --columns name,value --color never", width, **NOPAGER)[0].split("\n")[2:-1], rows)

# ---- columns

runs("wexcorin show examples/first.def --columns value,name --columns type",
     "Value  Name   Type\n       Help   immediate\n500    maxit  integer\n1E-6   tol    double\ncold   start  enumstr\n")

# ---- colours

runs("wexcorin show examples/first.def --columns number,name --color always",
     "\x1b[1mNr  Name\x1b[0m\n 1  Help\n 2  maxit\n 3  tol\n 4  start\n")
for arguments, environment, coloured in (
        ("", {}, True), ("--color auto", {}, True), ("--color never", {}, False), ("", {"NO_COLOR": "1"}, False),
        ("", {"TERM": "dumb"}, False), ("", {"NO_COLOR": ""}, True), ("--color=always", {"NO_COLOR": "1"}, True), ("| cat", {}, False),
        ("--color always | cat", {}, True)):
    seen = on_terminal(f"wexcorin show examples/first.def {arguments}", **{**NOPAGER, **environment})[0]
    expect(f"colours with {arguments} {environment}", "\x1b[1m" in seen, coloured)
expect("no colours on an unknown terminal",
       "\x1b[1m" in on_terminal("env -u TERM wexcorin show examples/first.def", **NOPAGER)[0], False)
write("set.opt", "maxit 1\nmaxit 2\nmaxit -1\n")
runs("wexcorin check examples/first.def set.opt --color always", code=1, out="""\
\x1b[1mset.opt:2:\x1b[0m \x1b[1;33mwarning:\x1b[0m Option "maxit" is set to 2, but was set to 1 at set.opt:1 [set-again]
\x1b[1mset.opt:3:\x1b[0m \x1b[1;31merror:\x1b[0m Integer range error for option "maxit" saw "-1"
\x1b[1mset.opt:3:\x1b[0m \x1b[1;36mnote:\x1b[0m Valid range is 0 to maxint
1 error, 1 warning; 4 options, 1 set
""")

# ---- the pager

plain = run("wexcorin help examples/first.def 1")[0]
for pager, wanted in (("sed s/^/P:/", "".join(f"P:{line}\n" for line in plain.split("\n")[:-1])), ("cat", plain),
                      ("", plain)):
    expect(f"PAGER={pager}", on_terminal("wexcorin help examples/first.def 1", PAGER=pager), (wanted, 0))
os.environ.pop("PAGER", None)
os.mkdir("nothing_else")
os.symlink("/bin/cat", "nothing_else/cat")
write("less", "sed \"s/^/$LESS:/\"\n")
os.chmod("less", 0o755)
for environment, wanted in ({}, "FRX:"), ({"LESS": "X"}, "X:"), ({"PATH": "nothing_else"}, ""):
    expect(f"without PAGER {environment}", on_terminal("./wexcorin help examples/first.def 1", **environment),
           ("".join(f"{wanted}{line}\n" for line in plain.split("\n")[:-1]), 0))
expect("an interrupt is for the pager", on_terminal(
    "wexcorin help examples/first.def 1", PAGER='read -r line; kill -INT $PPID; echo "$line"; cat'), (plain, 0))
mark = {"PAGER": "sed s/^/P:/"}
expect_part("a pager that does not exist", on_terminal("wexcorin help examples/first.def", PAGER="no-such-pager")[0], plain)
for command, code in (("show examples/first.def", 0), ("find examples/first.def it", 0), ("check examples/first.def", 0),
                      ("show examples/first.def --set x", 1), ("help examples/first.def none", 1)):
    for arguments, paged in ("", True), ("--no-pager", False), (">seen", False):
        seen, ended = on_terminal(f"wexcorin {command} {arguments}", **mark)
        expect(f"{command} {arguments}: exit code", ended, code)
        expect(f"{command} {arguments}: paged", bool(seen) and all(line[:2] == "P:" for line in seen.split("\n")[:-1]),
               paged)
expect("get has no pager", on_terminal("wexcorin get tol examples/first.def", **mark)[0], "1E-6\n")
expect_part("colours and width with a pager", on_terminal("wexcorin show examples/solver.def", 60, **mark)[0], "P:\x1b[1m")
sys.exit("\n".join(failures) or 0)

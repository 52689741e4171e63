"""How option files are laid out: the edits, which are as short as can be.
usage: optionlayout.py TOOL"""
import json, os, string, subprocess

from client import TOOL, Client, applied, expect, finish, path, short, write
from optiontext import asked, start

client = start()


def edits(text, lines=None):
    more = {}
    if lines:
        more["range"] = {"start": {"line": lines[0], "character": 0}, "end": {"line": lines[1], "character": 1}}
    answer = asked(client, "rangeFormatting" if lines else "formatting", "|" + text, **more)
    return [(short(each["range"]), each["newText"]) for each in answer]


for text, wanted in (
        ("method=dual  \ntime_limit\t=  5! a\nthreads 3 ! b\n\nquiet ",
         [("0:6-0:13", "     = dual"), ("1:10-1:15", " = 5  "), ("2:8-2:9", "     3 "), ("4:5-4:6", "")]),
        ("  threads   4", [("0:0-0:11", "threads")]),
        ("threads 4\nverbose   yes", [("1:8-1:10", "")]),
        ("threads 4\ntime_limit 5", [("0:8-0:8", "   ")]),
        ("threads 4\n \t \nverbose yes", [("1:0-1:3", "")]),
        ("a  b", []),
        (" a  b ", [("0:5-0:6", "")]),
        ("x.prior  3 ", [("0:10-0:11", "")]),
        ("--list  a ", [("0:9-0:10", "")]),
        (" * c ", [("0:4-0:5", "")]),
        ("threads  :  4", []),
        ('time_limit = 4 ! "x\nverbose   yes', [("1:8-1:10", "")]),
        ('name  "a  b"  c', [("0:5-0:6", "")]),
        ("name  a  b ! c\nthreads 1 ! d", [("0:6-0:10", "  a  b "), ("1:10-1:10", "    ")]),
        ('name  "a ! b"  ! c\nthreads 1 ! d', [("0:6-0:6", "  "), ("1:10-1:10", "       ")]),
        ("method ! x\nthreads 3 ! y\nquiet", [("0:7-0:7", "    "), ("1:10-1:10", " ")]),
        ("indic  a  b", []),
        ('name  "a! b"', [("0:5-0:6", "")]),
        ("name ä😀  ! x\ntitle y ! z", [("0:5-0:5", " "), ("1:8-1:8", "  ")]),
        ("gap_window  1   2", [("0:11-0:12", "")]),
        ("gap_window  1  2  3", [("0:11-0:12", "")]),
        ("eolonly off\n threads  3 verbose  yes\nthreads   3", [("1:0-1:1", ""), ("2:8-2:10", "")]),
        ("threads  3 \x1a threads", []),
        ("threads := 3\nverbose = no", [("1:10-1:10", " ")]),
        ("threads  :=3 ", [("0:8-0:13", ":= 3")]),
        ("threads  3\n\nverbose yes", [("0:8-0:9", "")]),
        ("name  " + string.ascii_letters, [("0:5-0:6", "")]),
        ("unknown   4 \nx.prior( 'a  b' )  3 \nquiet,  threads 4 \ntitle \"open  ",
         [("0:11-0:12", ""), ("1:20-1:21", ""), ("2:17-2:18", "")])):
    expect(f"formatting of {text[:80]!r}", edits(text), wanted)
# Of a line, 1,020 characters are read. What is cut stays as it is, and nothing may be pushed out of them.
for text, wanted in (("threads  3 ! " + "x" * 1007, [("0:8-0:10", "3 ")]), ("threads  3 ! " + "x" * 1008, []),
                     ("threads  3 ! " + "x" * 1007 + " ", []), ("* " + "x" * 1030 + " ", [("0:1032-0:1033", "")]),
                     ("threads 3!" + "x" * 1009, []), ("threads 3!" + "x" * 1008, [("0:9-0:9", "  ")])):
    expect(f"formatting of a line of {len(text)} characters", edits(text), wanted)
ranged = lambda *lines: edits("threads  1 \nthreads  2 \nthreads  3 \n", lines)
for first, last, wanted in (
        (1, 1, [("1:8-1:11", "2")]),
        (0, 1, [("0:8-0:11", "1"), ("1:8-1:11", "2")]),
        (2, 2, [("2:8-2:11", "3")]),
        (0, 9, [("0:8-0:11", "1"), ("1:8-1:11", "2"), ("2:8-2:11", "3")])):
    expect(f"formatting of the lines {first} to {last}", ranged(first, last), wanted)

client.quit()

# ---- what formatting does not change: the values that are read and the messages about the lines


def read(text, definition):
    write("formatted.opt", text)
    run = subprocess.run([TOOL, "show", "--json", definition, path("formatted.opt")], capture_output=True)
    return [(each["name"], each["value"]) for each in json.loads(run.stdout)["options"]], run.stderr


client = Client(".")
for file, definition in (("solver.opt", "solver.def"), ("solver_mistakes.opt", "solver.def"),
                         ("solver_priorities.opt", "solver.def"), ("types.opt", "types.def"), ("first.opt", "first.def")):
    with open(f"examples/{file}", encoding="utf-8", newline="") as opened:
        before = opened.read()
    definition = os.path.abspath(f"examples/{definition}")
    text = f"* definition: {definition}\n" + before
    client.open(path(file), text)
    after = applied(text, client.at("formatting", path(file), 0, 0))
    expect(f"{file} is changed", text != after, file != "solver_priorities.opt")
    expect(f"what {file} holds", "".join(after.split()), "".join(text.split()))
    expect(f"what is read of {file}", read(after, definition), read(text, definition))
    client.change(path(file), after)
    expect(f"{file} is formatted again", client.at("formatting", path(file), 0, 0), [])
expect("the exit code", client.quit(), 0)

finish()

"""The migrate command: what it writes where, what it reports, and lines that need care. The proof of what migrated files
mean is in migrations.py.
usage: migrate.py TOOL; run in the repository's root"""
import json, os, shutil, sys
from support import expect, expect_part, failures, on_terminal, read, run, runs, write

write("old.def", """x eolcomm #!
alpha integer 1 1 0 99 1 1
beta integer.OPT 2 3 0 9 1 1
text string 3 "" 1 1
old_limit double 4 5 0 9 1 1
legacy boolean 5 0 1 1
both macro 1 1
 alpha
 beta
read immediate readfile 1 1
limit synonym old_limit
""")
write("new.def", """x eolcomm !%
gamma integer 9 0 0 1 1 1
alpha integer 1 1 0 20 1 1
beta integer 2 4 0 9 1 1
text string 3 "" 1 1
new_limit double 4 5 0 9 1 1
both macro 1 1
 alpha
 beta
 gamma
read immediate readfile 1 1
limit synonym new_limit
old_limit synonym new_limit
names deprecated
 limit say "new_limit"
""")
MIGRATE = "wexcorin migrate --from old.def --to new.def"


# The file after it was migrated, and the actions of the notes. When it is migrated once more, nothing changes.
def migrated(text, flags="", code=None):
    write("file.opt", text)
    out, err, seen = run(f"{MIGRATE} file.opt -o out {flags} --json")
    expect(f"{text!r}: errors", err, "")
    if code is not None:
        expect(f"{text!r}: exit code", seen, code)
    run(f"{MIGRATE} out/file.opt -o twice {flags}")
    expect(f"{text!r}: migrated twice", read("twice/file.opt"), read("out/file.opt"))
    return read("out/file.opt"), [note["action"] for note in json.loads(out)["files"][0]["notes"] if note["line"]]


# ---- line ends, marks and long lines: before, after, actions, exit code

for before, after, actions, code in (
        ("\r\nold_limit 7\r\nbeta\r\nboth 5", "\r\nnew_limit 7\r\nbeta 3\r\nalpha 5\r\nbeta 5", ["renamed", "spelled", "spelled"], 0),
        ("old_limit 7\nboth 5\r\nlimit 1\n", "new_limit 7\nalpha 5\r\nbeta 5\r\nnew_limit 1\n", ["renamed", "spelled", "renamed"], 0),
        ("\ufeffold_limit 7\nlimit 8", "\ufeffold_limit 7\nnew_limit 8", ["refused", "renamed"], 1),
        ("text " + 1100 * "x" + "\nold_limit" + 1100 * " " + "7\n", None, ["refused"], 1), ("", "", [], 0)):
    seen, told = migrated(before, "", code)
    expect(f"{before!r}", seen, before if after is None else after)
    expect(f"{before!r}: actions", told, actions)
write("same.opt", "limit 7\nlegacy on\nnone 1\n")
runs("wexcorin migrate --from old.def --to old.def same.opt --dry-run --pin --clamp", "", None, 1)

# ---- included files: each is rewritten once, and the tree keeps its layout

os.makedirs("sub", exist_ok=True)
write("main.opt", "read sub/part.opt\nread sub/part.opt\nlimit 1\n")
write("sub/part.opt", "both 2\n")
write("other.opt", "read sub/part.opt\n")
runs(f"{MIGRATE} main.opt other.opt -o tree", None, "", 0)
expect("main file", read("tree/main.opt"), "read sub/part.opt\nread sub/part.opt\nnew_limit 1\n")
expect("included file", read("tree/sub/part.opt"), "alpha 2\nbeta 2\n")
write("loop.opt", "limit 1\nread loop.opt\n")
runs(f"{MIGRATE} loop.opt -o tree", None, "", 0)
expect("a file that includes itself", read("tree/loop.opt"), "new_limit 1\nread loop.opt\n")
write("pinned.opt", "alpha 1\n")
write("pins.opt", "beta 5\nread pinned.opt\n")
expect_part("pins of an included file", run(f"{MIGRATE} pinned.opt pins.opt -o tree --pin")[0], "decide: left beta: Not pinned, because another file includes this one")
expect("an included file is not pinned", read("tree/pinned.opt"), "alpha 1\n")
write("missing.opt", "read none.opt\n")
expect_part("a file that is missing", run(f"{MIGRATE} missing.opt -o tree")[0], "missing.opt:1: decide: refused read")

# ---- where files are written, and where not

write("outside.opt", "read ../outside.opt\n")
os.makedirs("inner", exist_ok=True)
shutil.copy("main.opt", "inner/main.opt")
for arguments, part in (("outside.opt -o .", "one of the files that are read"),
                        ("inner/main.opt -o tree", "inner/main.opt:1: sub/part.opt is outside of the folder of inner/main.opt; "
                                                   "use --in-place and name it"),
                        ("main.opt inner/main.opt -o tree", "two files would be written there"),
                        ("main.opt none.opt -o none", "none.opt"),
                        ("/dev/null --in-place", "/dev/null: error: it is no regular file"), ("old.def --in-place", "old.def: it is also one of the definitions"),
                        ("new.def --in-place", "new.def: it is also one of the definitions")):
    out, err, code = run(f"{MIGRATE} {arguments}")
    expect_part(arguments, err, part)
    expect_part(arguments, err, "nothing was written")
    expect(f"{arguments}: exit code", code, 2)
expect("nothing was written", os.path.exists("none"), False)
# A folder that somebody has sent leads to no file that is not in it.
os.makedirs("sent/deep")
os.mkdir("sent/new")
write("victim.opt", "limit 9\n")
for name, text in (("backup", ""), ("include", "read victim.opt\n"), ("deep/part", ""),
                   ("deeper", "read sent/deep/part.opt\n")):
    write(f"sent/{name}.opt", "limit 1\n" + text)
for link, target in (("backup.opt~", "../victim.opt"), ("new/backup.opt", "../../victim.opt"), ("new/deep", "../..")):
    os.symlink(target, f"sent/{link}")
os.mkdir("sent/deep/part.opt~")
for arguments, part in (
        ("sent/deep/part.opt --in-place", "sent/deep/part.opt~: it is no regular file, and would be replaced by the backup"),
        ("sent/backup.opt --in-place", "sent/backup.opt~: it is a symbolic link, and would be replaced by the backup"),
        ("sent/include.opt --in-place", "sent/include.opt:2: victim.opt is outside of the folder of sent/include.opt; "
                                        "it is changed only if it is named on the command line"),
        ("sent/backup.opt -o sent/new", "sent/new/backup.opt: it is a symbolic link"),
        ("sent/deeper.opt -o sent/new", "sent/new/deep/part.opt: a symbolic link leads outside of sent/new")):
    expect(f"{arguments}: problems", run(f"{MIGRATE} {arguments}")[1:],
           (f"{part}\nwexcorin migrate: nothing was written\n", 2))
    expect(f"{arguments}: other files", (read("victim.opt"), os.path.exists("part.opt")), ("limit 9\n", False))
runs(f"{MIGRATE} sent/include.opt victim.opt --in-place", None, "", 0)
expect("an included file that is named", (read("victim.opt"), read("victim.opt~")), ("new_limit 9\n", "limit 9\n"))
write("place.opt", "limit 1\n")
write("clean.opt", "alpha 1\n")
os.symlink("place.opt", "link.opt")
os.chmod("place.opt", 0o640)
runs(f"{MIGRATE} link.opt clean.opt --in-place", None, "", 0)
expect("in place", (read("place.opt"), read("link.opt~"), os.path.islink("link.opt"), os.stat("place.opt").st_mode & 0o777,
                    os.path.exists("clean.opt~")), ("new_limit 1\n", "limit 1\n", True, 0o640, False))
# A copy is for the same people as its file, a file that was there for the same as before.
write("own.opt", "limit 1\n")
os.chmod("own.opt", 0o600)
for kept, flags in ((0o600, "--in-place"), (0o600, "-o copies"), (0o640, "-o copies")):
    copy = "own.opt~" if "place" in flags else "copies/own.opt"
    if kept != 0o600:
        os.chmod(copy, kept)
    run(f"{MIGRATE} own.opt {flags}")
    expect(f"permissions with {flags}", os.stat(copy).st_mode & 0o777, kept)
runs(f"{MIGRATE} main.opt --in-place --no-backup", None, "", 0)
expect("no backup", (read("sub/part.opt"), os.path.exists("sub/part.opt~")), ("alpha 2\nbeta 2\n", False))
write("faulty.def", "a integer 1 9 0 1 1 1\n")
runs("wexcorin migrate --from old.def --to faulty.def file.opt -o none", "",
     'faulty.def:1: error: Default not in range for option "a"\n', 2)

# ---- definitions of a few lines: older, newer, flags, option file before and after

for older, newer, flags, before, after in (
        # a line that sets one of two values relies on the default of the other one
        ("window double.TWO 1 9 0 99 1 1", "window double.TWO 1 2 0 99 1 1", "--pin", "window * 5\n",
         "window * 5\n* Defaults that have changed\nwindow 9 *\n"),
        ("window double.TWO 1 9 0 99 1 1", "window double.TWO 1 2 0 99 1 1", "--pin", "window 5\n", "window 5\n"),
        ("window double 1 9 0 99 1 1", "window double.TWO 1 2 0 99 1 1", "--pin", "window * 5\n", "window * 5\n"),
        # the new keyword was an option, whose value would end at the "!" when the file is migrated again
        ("x eolcomm !\nind indicator\nword enumstr 1 a 1 1\n a 1", "x eolcomm !\nword indicator\nword enumstr 1 a 1 1\n a 1", "",
         "ind e('a!b')$v yes\nind e$v no\n", "ind e('a!b')$v yes\nword e$v no\n"),
        # words with blanks between them: only the first one may be the keyword
        ("my_word string 1 a 1 1", "Minos lookup\nmy_word indicator\nmy_word string 1 a 1 1", "", "my_word b\n", "my word b\n"),
        ("my_word string 1 a 1 1", "Minos lookup\nmy indicator\nmy_word string 1 a 1 1", "", "my_word b\n", "-my word b\n"),
        # the only name that finds the option in the newer definition, where "betray" finds beta, sets nothing
        ("beta integer 1 0 0 9 1 1\nbetray_size boolean.NV 2 0 1 1\ngam synonym betray_size\nx obsolete\n gam use it not",
         "Minos lookup\nbeta integer 1 0 0 9 1 1\nbetray_size boolean.NV 2 0 1 1\ngam synonym betray_size\nx obsolete\n gam use it not",
         "", "betray_size\n", "betray_size\n"),
        # the multilist marks beta as set, and its value would be that of a line before
        ("beta integer.OPT 1 2 0 9 1 1\nall multilist 2 1 1\n beta", "beta integer.NV 1 2 0 9 1 1\nall multilist 2 1 1\n beta", "",
         "all 2\nbeta\nall 2\n", "beta\nbeta\nbeta\n"),
        # a line that is refused now is left to a person, and no pin comes after it; for one that is a comment now it does
        ("word string 1 c 1 1", "kind enumstr 1 a 1 1\n a 1\n c 1\nword synonym kind", "--pin", "word b\n", "kind b\n"),
        ("window integer.TWO 1 9 0 99 1 1", "window string 1 a 1 1", "--pin", "window * 5\n",
         "* window is not taken in the same way\n* window * 5\n* Defaults that have changed\nwindow 9\n"),
        # "mode off" is gone, so that the next migration reads whole lines as values, to which "% b" would belong
        ("x eolcomm #\nmode immediate eolflag 1 1\ntext string 1 a 1 1", "x eolcomm %\ntext string 1 a 1 1", "",
         "mode off\ntext a # b\n", "* mode is gone\n* mode off\n* b\ntext a\n"),
        # a macro sets only the first of two values, where the one before stood for both
        ("window integer 1 9 0 99 1 1\nall macro 1 1\n window", "window integer.TWO 1 9 0 99 1 1\nall macro 1 1\n window", "",
         "all 5\n", "window 5\n"),
        # the bounds are switched off earlier on the line
        ("bounds immediate nobounds 1 1\nrank integer 1 2 0 9 1 1", "bounds immediate nobounds 1 1\nrank integer 1 3 0 9 1 1", "",
         "bounds 1, rank 12\n", "bounds 1, rank 12\n"),
        ("rank integer 1 2 0 9 1 1\nall string 1 a 1 1", "rank integer 1 2 0 9 1 1\nall string 1 b 1 1", "--pin", "rank 4\r\nrank 5\r",
         "rank 4\r\nrank 5\r\n* Defaults that have changed\r\nall a\r\n")):
    write("old.def", older + "\n")
    write("new.def", newer + "\n")
    expect(f"{before!r} under {newer!r}", migrated(before, flags)[0], after)

# one of two values was left alone, and the newer definition has only one: a person has to look
write("old.def", "window integer.TWO 1 9 0 99 1 1\nall macro 1 1\n window\n")
write("new.def", "window integer 1 9 0 99 1 1\nall macro 1 1\n window\n")
for line in "all 5\n", "window 5 *\n":
    expect(f"{line!r} and one value", migrated(line, "", 1), (line, ["left"]))

# ---- definitions for all that follows, and more notes than are kept. The forms of the report are in transcripts/reports.md

OLD = """x eolcomm #
e immediate EolFlag 1 1
n immediate NoBounds 1 1
read immediate ReadFile 1 1
a integer 1 2 0 9 1 1
limit integer 1 2 0 9 1 1
gone integer 1 2 0 9 1 1
"""
NEW = OLD.replace("a integer 1 2 0 9", "a integer 1 3 0 5").replace("gone integer 1 2 0 9 1 1", "limit synonym new_limit").replace("\nlimit", "\nnew_limit", 1)
write("old.def", OLD)
write("new.def", NEW)
write("d.opt", "limit 1 # \1\n")
expect_part("colours on a terminal", on_terminal(f"{MIGRATE} d.opt --dry-run")[0], "\x1b[1;31m-limit 1 # \\x01\x1b[0m\n")
write("many.opt", 1003 * "b 1\n" + "gone 1\na 1\n")  # of each kind of note, 1,000 are kept
out = run(f"{MIGRATE} many.opt -o out")[0].split("\n")
expect("many notes", (len(out), out[999:]), (1004, ['many.opt:1000: decide: refused b: Not taken before either: Unknown option "b"',
       "many.opt:1004: commented gone: gone", "many.opt: 3 further notes not listed", "1 file, 1 change, 1003 to decide", ""]))
expect("unlisted notes", json.loads(run(f"{MIGRATE} many.opt -o out --json")[0])["files"][0]["unlisted"], 3)

# ---- other diffs: a file and its hunks

for before, diff in (
        ("", "@@ -0,0 +1,2 @@\n+* Defaults that have changed\n+a 2\n"),
        ("limit 1", "@@ -1 +1,3 @@\n-limit 1\n\\ No newline at end of file\n+new_limit 1\n+* Defaults that have changed\n+a 2\n"),
        ("limit 1\nn 0\ne on", "@@ -1,3 +1,5 @@\n-limit 1\n+new_limit 1\n n 0\n-e on\n\\ No newline at end of file\n+e on\n+* Defaults that have changed\n+a 2\n"),
        ("e on\n", "@@ -1 +1,3 @@\n e on\n+* Defaults that have changed\n+a 2\n"),
        ("\n\na 1\nlimit 1", "@@ -1,4 +1,4 @@\n \n \n a 1\n-limit 1\n\\ No newline at end of file\n+new_limit 1\n\\ No newline at end of file\n"),
        ("\n\na 1\na 2\nlimit 1\n", "@@ -2,4 +2,4 @@\n \n a 1\n a 2\n-limit 1\n+new_limit 1\n"),
        ("a 1\na 2\na 3\na 4\nlimit 1\n\na 5", "@@ -2,6 +2,6 @@\n a 2\n a 3\n a 4\n-limit 1\n+new_limit 1\n \n a 5\n\\ No newline at end of file\n"),
        # six lines between two changes are in one hunk, seven are not
        ("limit 1\n" + 6 * "a 1\n" + "limit 2\n", "@@ -1,8 +1,8 @@\n-limit 1\n+new_limit 1\n" + 6 * " a 1\n" + "-limit 2\n+new_limit 2\n"),
        ("limit 1\n" + 7 * "a 1\n" + "limit 2\n", "@@ -1,4 +1,4 @@\n-limit 1\n+new_limit 1\n" + 3 * " a 1\n" + "@@ -6,4 +6,4 @@\n" + 3 * " a 1\n" + "-limit 2\n+new_limit 2\n"),
        (4 * "a 1\n" + "gone 1\n" + 7 * "a 1\n" + "gone 2\n", "@@ -2,7 +2,8 @@\n" + 3 * " a 1\n" + "-gone 1\n+* gone is gone\n+* gone 1\n" + 3 * " a 1\n" +
         "@@ -10,4 +11,5 @@\n" + 3 * " a 1\n" + "-gone 2\n+* gone is gone\n+* gone 2\n")):
    write("hunks.opt", before)
    runs(f"{MIGRATE} hunks.opt --dry-run --pin", f"--- hunks.opt\n+++ hunks.opt\n{diff}", None, 0)

# ---- files that are included: what a person has to know

write("part.opt", "a 7\n")
write("main.opt", "read part.opt\nn 1\nread part.opt\n")
runs(f"{MIGRATE} main.opt -o out --clamp", "part.opt:1: clamped a: a moved from 7 to the bound 5\n"
     "part.opt: decide: left: It is read more than once, and not always in the same way\n2 files, 1 change, 1 to decide\n", "", 1)
write("main.opt", "e off\nn 1 read part.opt\n")  # without bounds, 7 is taken
runs(f"{MIGRATE} main.opt -o out --clamp", "2 files, 0 changes, 0 to decide\n")
write("main.opt", "n 1\na 1\n")  # only for this file
runs(f"{MIGRATE} main.opt part.opt -o out --clamp", "part.opt:1: clamped a: a moved from 7 to the bound 5\n2 files, 1 change, 0 to decide\n", "", 0)
write("minos.def", "minos lookup\n")
write("newminos.def", "new group 1 1\nminos lookup\n")
for name in ("main.opt", "other.opt"):
    write(name, "--scenario dry\n--scenario 1976\n")  # the lists of one file are not known to the other
runs("wexcorin migrate --from minos.def --to newminos.def main.opt other.opt -o out", "2 files, 0 changes, 0 to decide\n")
write("main.opt", "read /dev/null\na 1\n")
runs(f"{MIGRATE} main.opt -o out", "/dev/null: decide: left: It could not be read to its end, so it is not migrated\n2 files, 0 changes, 1 to decide\n", "", 1)
write("sub/main.opt", "read sub/part.opt\n")
write("sub/part.opt", "a 1\n")
runs(f"{MIGRATE} sub/main.opt -o elsewhere", "sub/part.opt: decide: left: Lines that include it still read sub/part.opt; the migrated file is elsewhere/part.opt\n"
     "2 files, 0 changes, 1 to decide\n", "", 1)
write("absolute.opt", f"read {os.getcwd()}/part.opt\na 1\n")
expect_part("an absolute path", run(f"{MIGRATE} absolute.opt -o elsewhere")[0],
            f"{os.getcwd()}/part.opt: decide: left: Lines that include it still read {os.getcwd()}/part.opt; the migrated file is elsewhere/part.opt\n")
write("b.opt", "limit 1\n")
write("b.opt~", "limit 2\n")
runs(f"{MIGRATE} b.opt b.opt~ --in-place", "", "b.opt~: the backup would replace a file that is read\nwexcorin migrate: nothing was written\n", 2)
runs(f"{MIGRATE} b.opt b.opt~ --in-place --no-backup", None, "", 0)
expect("two files in place", (read("b.opt"), read("b.opt~")), ("new_limit 1\n", "new_limit 2\n"))
runs(f"{MIGRATE} b.opt ./b.opt b.opt --dry-run", "", "b.opt:1: taken new_limit: Only the newer definition takes this; it stays\n"
     "b.opt: new-default a: The default is now 3, was 2; --pin keeps the old one\n1 file, 0 changes, 0 to decide\n")
runs(f"{MIGRATE} b.opt -o /dev/null/x", None, "/dev/null/x/b.opt: error: cannot write the file: Not a directory\n", 2)

# ---- definitions from standard input, and faulty ones

runs("wexcorin migrate b.opt --from - --to new.def --dry-run", None, None, 0, OLD)
runs("wexcorin migrate b.opt --from old.def --to - --dry-run --syntax wexcorin", None, None, 0, NEW)
write("faulty.def", "a integer 1 9 0 1 1 1\n")
runs("wexcorin migrate b.opt --from faulty.def --to new.def --dry-run", "", 'faulty.def:1: error: Default not in range for option "a"\n', 2)
runs("wexcorin migrate b.opt --from none.def --to new.def --dry-run", "", None, 2)

sys.exit("\n".join(failures) or 0)

"""How definitions are laid out.
usage: definitionlayout.py TOOL"""
import glob, random, subprocess

from client import TOOL, applied, expect, finish, folder, write
from definitiontext import MAIN, start

client = start()


def laid(text):
    edits = client.at("formatting", MAIN, 0, 0, [text])
    expect("the edits are one for each line that changes", len(edits), sum(
        before != after for before, after in zip(text.split("\n"), applied(text, edits).split("\n"))))
    return applied(text, edits)


laidlines = lambda text: laid(text).split("\n")
for text, wanted in (
        ("a integer  1 2 0 9 1 1 A\nlonger   double.TWO 12 0.5 -10 maxdouble 1 12 B\nc strlist   3 1 1 C\nd "
         "immediate Message 1 1 D\ng group  1 1 Group\ns synonym  a\nlist multilist 5 1 1 L\n a   longer",
         ["a      integer          1 2   0   9         1  1  A",
          "longer double.TWO      12 0.5 -10 maxdouble 1 12  B",
          "c      strlist          3                   1  1  C",
          "d      immediate  Message                   1  1  D",
          "g      group            1                   1  Group", "s      synonym     a",
          "list   multilist        5                   1  1  L", " a   longer"]),
        ('w enumstr  1 one 1 1 W\n one  1 First\n "a long one" 0   Second\n b 1\nlonger strlist 1 1 1 L',
         ["w      enumstr 1 one 1 1  W", " one          1  First", ' "a long one" 0  Second', " b            1",
          "longer strlist 1     1 1  L"]),
        ('o obsolete\n a   use  b\n longer  use c\n "qr" use d\np obsolete\n a use  b',
         ["o obsolete", " a       use  b", " longer  use c", ' "qr" use d', "p obsolete", " a  use  b"]),
        ("a strlist  1 1 1 A\x10\x1f \n\nlonger strlist 2 1 1 B",
         ["a strlist 1 1 1  A\x10\x1f", "", "longer strlist 2 1 1  B"]),
        ("a strlist  1 1 1 A\n* c\nlonger strlist 2 1 1 B",
         ["a      strlist 1 1 1  A", "* c", "longer strlist 2 1 1  B"]),
        ("a integer  1 2 0\nb strlist  1", ["a integer  1 2 0", "b strlist  1"]),
        ("a  b\nX  lookup\n8  x\nn eolcomm  #", ["a  b", "X  lookup", "8  x", "n eolcomm  #"]),
        ("s synonym\nt  synonym  a", ["s synonym", "t synonym  a"]),
        ("a boolean  1 1 1 1\n help  text\nb boolean  2 1 1 1",
         ["a boolean 1 1 1 1", " help  text", "b boolean 2 1 1 1"]),
        # what stands behind the end of the definition stays
        ("a strlist  1 1 1\n b\nc strlist  2 1 1", ["a strlist 1 1 1", " b", "c strlist  2 1 1"]),
        ("o obsolete\n a  b\n \n c   d\ne strlist  2 1 1", ["o obsolete", " a  b", " ", " c   d", "e strlist  2 1 1"]),
        ('ä strlist  1 1 1\n😀\na string  1 "ä" 1 1 T', ["ä strlist  1 1 1", "😀", 'a string  1 "ä" 1 1 T']),
        ('a string  1 "abc" 1 1 T\nb string 1 "ä€" 1 1 T',
         ['a string 1 "abc" 1 1  T', 'b string 1 "ä€"  1 1  T']),
        ("long_name\tboolean 2 1 1 10 T\na integer  10 1 0 9 1 1  A\nx  synonym  a  b",
         ["long_name boolean  2 1     1 10  T", "a         integer 10 1 0 9 1  1  A", "x         synonym  a  b"]),
        ("d   double 4, 1 1 1 1 1 A comma", ["d   double 4, 1 1 1 1 1 A comma"])):
    expect(f"the layout of {text!r}", laidlines(text), wanted)
for width, wanted in ((40, 40), (41, 40)):
    seen = laidlines("a" * width + " strlist 1 1 1 A\nb  strlist  1 1 1 B")
    expect(f"beside a name of {width} characters", seen,
           ["a" * width + " strlist 1 1 1  A", "b" + " " * wanted + "strlist 1 1 1  B"])
for length, changes in ((1018, True), (1019, True), (1020, False), (1021, False)):
    line = "a  strlist 1 1 1  " + "x" * (length - 18)
    expect(f"a line of {length} characters", laid(line) != line, changes)
for length, changes in ((1018, True), (1019, False)):  # it would be longer than what is read
    line = "a strlist 1 1 1  " + "x" * (length - 17)
    expect(f"a line of {length} characters that gets longer", laidlines(line + "\nbcd strlist 1 1 1  B")[0] != line, changes)

# ---- what formatting does not change


def run(*arguments):
    done = subprocess.run([TOOL, *arguments], capture_output=True, cwd=folder)
    return done.returncode, done.stdout.decode(errors="replace")


# Formats the text, and returns what the commands say about it before and after.
def compared(text, *commands):
    after = laid(text)
    expect("formatting again", laid(after), after)
    if after == text:
        return None
    for name, content in (("before.txt", text), ("after.txt", after)):
        write(name, content)
    return [run(*command) for command in commands]


# Definitions of which each line is right have no difference in the columns of their fields.
random.seed(5)
blank = lambda: random.choice((" ", "  ", "\t", " \t ", " " * 30))
spread = lambda *words: blank().join(words)
kinds = (lambda i: spread(f"i{i}", "integer.OPT", str(i), "5", "-3", "maxint", "1", "2", "Some,  text " * random.randint(0, 9)),
         lambda i: spread(f"long_name_{i}", "double", str(i), "0.5d0", "-3", "maxdouble", "1", "0") + "\n " + blank() + "help",
         lambda i: spread(f".d{i}", "boolean", "-7", "1", "0", "2", "ä  text"),
         lambda i: spread(f"e{i}", "enumstr", "1", '"a  b"', "1", "2") + "\n " + spread('"a  b"', "1", "A") +
         "\n* comment\n " + spread("b" * 50, "0"),
         lambda i: spread(f"n{i}", "enumint", "1", "2", "1", "2", "N") + "\n " + spread("2", "1", "two words"),
         lambda i: "\n" + spread(f"m{i}", "macro", "1", "2", '"') + "\n first   is ignored",
         lambda i: spread(f"s{i}", "synonym", "first", "also   ignored"))
texts = [open(name, encoding="utf-8").read() for name in sorted(glob.glob("examples/*.def"))]
for _ in range(20):
    texts.append("first strlist 1 1 2\ng group 2 1 Group\n" +
                 "".join(random.choice(kinds)(i) + "\n" for i in range(30)) + "x deprecated\n  first   use  x\n")
for text in texts:
    seen = compared(text, ("diff", "before.txt", "after.txt"))
    if seen:
        expect("the difference after formatting", seen[0], (0, "no changes\n"))

# Whatever stands there, the findings stay the same.
WORDS = ("a", "b_c", "1", "-3", '"x y"', '""', "integer", "double.OPT", "enumstr", "enumint", "multilist", "macro", "group",
         "synonym", "deprecated", "boolean", "strlist", "lookup", ",", "Path", "x" * 1000, '"')
for _ in range(30):
    text = "".join(random.choice(("", " ", "n%d " % i, "m%d " % i, ".d ", "*", "\t")) +
                   blank().join(random.choices(WORDS, k=random.randint(0, 9))) + "\n" for i in range(25))
    seen = compared(text, ("check", "before.txt"), ("check", "after.txt"))
    if seen:
        expect("the findings after formatting", seen[1][1].replace("after.txt", "before.txt"), seen[0][1])

expect("the exit code", client.quit(), 0)

finish()

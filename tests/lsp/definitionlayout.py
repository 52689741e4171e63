"""How definitions are laid out.
usage: definitionlayout.py TOOL"""
from client import applied, expect, finish
from definitiontext import MAIN, start

client = start()


def laid(text):
    edits = client.at("formatting", MAIN, 0, 0, [text])
    expect("the edits are one for each line that changes", len(edits), sum(
        before != after for before, after in zip(text.split("\n"), applied(text, edits).split("\n"))))
    return applied(text, edits).split("\n")


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
        ('o obsolete\n a   use  b\n longer  use c\n "q" use d',
         ["o obsolete", " a       use  b", " longer  use c", ' "q" use d']),
        ("a strlist  1 1 1 A\n\nlonger strlist 2 1 1 B", ["a strlist 1 1 1  A", "", "longer strlist 2 1 1  B"]),
        ("a strlist  1 1 1 A\n* c\nlonger strlist 2 1 1 B",
         ["a      strlist 1 1 1  A", "* c", "longer strlist 2 1 1  B"]),
        ("a integer  1 2 0\nb strlist  1", ["a integer  1 2 0", "b strlist  1"]),
        ("a  b\nX  lookup\n8  x\nn eolcomm  #", ["a  b", "X  lookup", "8  x", "n eolcomm  #"]),
        ("s synonym\nt  synonym  a", ["s synonym", "t synonym  a"]),
        ('ä strlist  1 1 1\n😀\na string  1 "ä" 1 1 T', ["ä strlist  1 1 1", "😀", 'a string  1 "ä" 1 1 T']),
        ('a string  1 "abc" 1 1 T\nb string 1 "ä€" 1 1 T',
         ['a string 1 "abc" 1 1  T', 'b string 1 "ä€"  1 1  T'])):
    expect(f"the layout of {text!r}", laid(text), wanted)
for width, wanted in ((40, 40), (41, 40)):
    seen = laid("a" * width + " strlist 1 1 1 A\nb  strlist  1 1 1 B")
    expect(f"beside a name of {width} characters", seen,
           ["a" * width + " strlist 1 1 1  A", "b" + " " * wanted + "strlist 1 1 1  B"])
for length, changes in ((1018, True), (1019, True), (1020, False), (1021, False)):
    line = "a  strlist 1 1 1  " + "x" * (length - 18)
    expect(f"a line of {length} characters", laid(line) != [line], changes)
for length, changes in ((1018, True), (1019, False)):  # it would be longer than what is read
    line = "a strlist 1 1 1  " + "x" * (length - 17)
    expect(f"a line of {length} characters that gets longer", laid(line + "\nbcd strlist 1 1 1  B")[0] != line, changes)

client.quit()

finish()

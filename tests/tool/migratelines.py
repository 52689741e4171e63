"""The migrate command: what becomes of a line and what is said about it, kind by kind. See migrate.py for files and places.
usage: migratelines.py TOOL; run in the repository's root"""
import sys
from support import expect, failures, read, run, write


# A slash ends a line. In a definition, a name alone is an integer option with this name, 2 if not set, from 0 to 9.
def lines(text):
    return text.replace("/", "\n")


def definition(text):
    return "".join(f"{line} integer 1 2 0 9 1 1\n" if line and " " not in line else f"{line}\n" for line in text.split("/"))


# The older and newer definition, a file before and after (None if it stays) and the report, whose lines begin with the number of
# the line, or with nothing for the whole file. What was migrated stays the same when it is migrated once more.
def migrates(older, newer, before, after, report, flags=""):
    write("old.def", definition(older))
    write("new.def", definition(newer))
    write("f.opt", lines(before))
    what = f"{older} to {newer}: {before} {flags}"
    out, err, code = run(f"wexcorin migrate --from old.def --to new.def f.opt -o out {flags}")
    *told, summary = out.split("\n")[:-1]
    expect(what, read("out/f.opt"), lines(before if after is None else after))
    expect(f"{what}: report", "\n".join(told).replace("f.opt:", ""), "\n".join(report))
    run(f"wexcorin migrate --from old.def --to new.def out/f.opt -o twice {flags}")
    expect(f"{what}: migrated twice", read("twice/f.opt"), read("out/f.opt"))
    decisions = sum("decide: " in line for line in report)
    expect(f"{what}: errors, summary and exit code", (err, summary.endswith(f", {decisions} to decide"), code), ("", True, int(decisions > 0)))


EOL = "e immediate EolFlag 1 1"
BOUNDS = "n immediate NoBounds 1 1"
SMALL = "a integer 1 2 0 5 1 1"
FLAG = "a boolean.NV 1 1 1 1"
RANGE = 'Integer range error for option "a" saw "7"; Valid range is 0 to 5'
MACRO_RANGE = 'Integer range error for option "m" saw "7"; Valid range is 0 to 5'

for row in (
        # ---- names
        ("a", "b/a synonym b", "a 3/a = 3/ -A := 3", "b 3/b = 3/ -b := 3", [f"{n}: renamed a: It is now called b" for n in (1, 2, 3)]),
        ("a/s synonym a", "b/a synonym b/s synonym b", "s 3/a 4", "s 3/b 4", ["2: renamed a: It is now called b"]),
        ("a/s synonym a", "a/s synonym a/x deprecated/ s use a", "s 3", "a 3", ["1: spelled a: s is now written a"]),
        ("a/s synonym a", "a/s synonym a/x obsolete/ s use a", "s 3", "a 3", ["1: spelled a: s is now written a"]),
        ("a/s synonym a/b", "a/b/s synonym b", "s 3/b 4", "a 3/b 4", ["1: spelled a: s is now written a"]),
        ("a/x deprecated/ a use \"b\"", "b", "a 3", "b 3", ["1: renamed a: It is now called b"]),
        ("a", "a/b/x deprecated/ a use \"b\"", "a 3", "b 3", ["1: renamed a: It is now called b"]),
        ("a", "a/b/x deprecated/ a \"b\"", "a 3", "b 3", ["1: renamed a: It is now called b"]),
        ("a", "a/b/x obsolete/ a use \"b\"", "a 3", "b 3", ["1: renamed a: It is now called b"]),
        ("a/b", "a/b/x deprecated/ a use \"b\"", "a 3", None, ["1: deprecated a: It still works: use \"b\""]),  # b is another one
        ("a", "a/b double 1 2 0 9 1 1/x deprecated/ a use \"b\"", "a 3", None, ["1: deprecated a: It still works: use \"b\""]),
        ("a string 1 x 1 1", "a indicator/a string 1 x 1 1", "a b", "-a b", ["1: spelled a: a is now written -a"]),
        ("a", "a/x deprecated/ a", "a 3", None, ["1: deprecated a: It still works"]),
        ('a/c/x deprecated/ a use "b"', "b/c synonym b", "a 3", '* a is gone: use "b"/* a 3', ['1: commented a: gone: use "b"']),  # c is b now
        ("a", "b integer 1 2 0 5 1 1/a synonym b", "a 7", "b 7",
         ["1: renamed a: It is now called b", "1: decide: left a: " + RANGE.replace('"a"', '"b"')]),
        (FLAG, "b boolean.NV 1 1 1 1/a synonym b", "a", "b", ["1: renamed a: It is now called b"]),
        ("i indicator", "j indicator", "i e$v 1/i e$ 1/i e(1)$v 1", "j e$v 1/i e$ 1/i e(1)$v 1",
         ["1: spelled i: i is now written j", "2: decide: refused i: Not taken before either: Equation ID expected for indicator",
          '3: decide: refused i: Not taken before either: Unique element expected for indicator id "e"; '
          '$ expected after equation identifier "e"']),
        (f"{BOUNDS}/s synonym n", "m immediate NoBounds 1 1/n synonym m", "s 1/n 0", "m 1/n 0", ["1: renamed n: It is now called m"]),
        (f"{BOUNDS}/s synonym n", BOUNDS, "s 1", "n 1", ["1: spelled n: s is now written n"]),
        ("", "help indicator", "help a", "-Help a", ["1: spelled Help: help is now written -Help"]),
        # the new name would be that of another option when the file is migrated again
        ("a/d/b synonym d", "b integer 1 2 0 5 1 1/a synonym b/d", "a 3/a 7", None, ["2: decide: left a: " + RANGE.replace('"a"', '"b"')]),
        (f"{EOL}/{BOUNDS}/a/d/b synonym d", f"{EOL}/{BOUNDS}/b/a synonym b/d", "e off/n 1 a 12", None, []),
        (f"{BOUNDS}/s synonym n/d/m synonym d", "m immediate NoBounds 1 1/n synonym m/d", "s 1", None,
         ["1: decide: left: The line means something else now and cannot be rewritten"]),
        # names in other lookup modes
        ("Path lookup/alpine", "alpine", "alp 3/alpine 4", "alpine 3/alpine 4", ["1: spelled alpine: alp is now written alpine"]),
        ("Minos lookup/max_it", "max_it", "max it 3/max_it 3", "max_it 3/max_it 3",
         ["1: spelled max it: max it is now written max_it", "2: taken max_it: Only the newer definition takes this; it stays"]),
        ("max_it", "Minos lookup/max_it", "max_it 3", "max it 3", ["1: spelled max_it: max_it is now written max it"]),
        ("Minos lookup/a_b", "Minos lookup/c_d/a_b synonym c_d", "a b 3", "c d 3", ["1: renamed a b: It is now called c d"]),
        ("a_b string 1 x 1 1", "Minos lookup/a_b string 1 x 1 1/a indicator", "a_b q", "-a b q", ["1: spelled a_b: a_b is now written -a b"]),
        ("a_2", "Minos lookup/a_2/s synonym a_2", "a_2 3", "s 3", ["1: spelled a_2: a_2 is now written s"]),
        ("a_2", "Minos lookup/a_2/s synonym a_2/x obsolete/ s why", "a_2 3", None, ['1: decide: left a_2: Unknown option "a_2"']),
        ("a_b", "Minos lookup/a_b/a/q synonym a/p synonym a_b", "a_b 3", "p 3", ["1: spelled a_b: a_b is now written p"]),
        ("a_b_c_d", "Minos lookup/a_b_c_d", "a_b_c_d 3", "a b c d 3", ["1: spelled a_b_c_d: a_b_c_d is now written a b c d"]),
        ("a_b_c_d_e", "Minos lookup/a_b_c_d_e", "a_b_c_d_e 3", None, ['1: decide: left a_b_c_d_e: Unknown option "a_b_c_d_e"']),
        ("a_", "Minos lookup/a_", "a_ 3", None, ['1: decide: left a_: Unknown option "a_"']),
        ("a_b_c_d_e", "Minos lookup/a_b_c_d_e integer 1 2 0 5 1 1", "a_b_c_d_e 7", None, ['1: decide: left a_b_c_d_e: Unknown option "a_b_c_d_e"'], "--clamp"),
        # ---- what is gone or obsolete
        ("a", "b", "a 3/b 3", "* a is gone/* a 3/b 3", ["1: commented a: gone", "2: taken b: Only the newer definition takes this; it stays"]),
        ("a/x deprecated/ a why", "b", "a 3", "* a is gone: why/* a 3", ["1: commented a: gone: why"]),
        ("a/s synonym a/x deprecated/ s why", "b", "a 3", "* a is gone: why/* a 3", ["1: commented a: gone: why"]),
        ("a", "a/x obsolete/ a why", "a 3", "* a is obsolete: why/* a 3", ["1: commented a: obsolete: why"]),
        ("a", "a/x obsolete/ a", "a 3", "* a is obsolete/* a 3", ["1: commented a: obsolete"]),
        ("a/x obsolete/ a why", "a/x obsolete/ a why now", "a 3", "* a is obsolete: why now/* a 3", ["1: commented a: obsolete: why now"]),
        ("a/s synonym a/x obsolete/ s why", "a/s synonym a", "s 3", "* a is obsolete: why/* s 3", ["1: commented a: obsolete: why"]),
        ("a/s synonym a/x obsolete/ s why", "a/s synonym a/x obsolete/ s why now", "s 3", "* a is obsolete: why now/* s 3", ["1: commented a: obsolete: why now"]),
        ("i indicator", "", "i e$v 1", "* i is gone: there are no indicators/* i e$v 1", ["1: commented i: gone: there are no indicators"]),
        ("i indicator", "i string 1 x 1 1", "i e$v 1", "* i is gone: there are no indicators/* i e$v 1", ["1: commented i: gone: there are no indicators"]),
        ("a/b", "b/a synonym b", "a 3", "* a is gone/* a 3", ["1: commented a: gone"]),  # its name finds b, which was there before
        ("a", "a immediate NoBounds 1 1", "a 1", "* a is not taken in the same way/* a 1",
         ["1: decide: commented a: not taken in the same way", " new-default a: The default is now none, was 2; a line cannot set it"]),
        (".a/x deprecated/ .a why", ".b", "x.a 3", "* .a is gone: why/* x.a 3", ["1: commented .a: gone: why"]),
        (EOL, "m immediate EolFlag 1 1", "e on", "* e is gone/* e on", ["1: decide: commented e: gone"]),
        (f"{EOL}/s synonym e", EOL, "s off", "* e is gone/* s off", ["1: decide: commented e: gone"]),  # a name of a mode is kept
        (f"{BOUNDS}/a/x deprecated/ n why", SMALL, "n 1/a 7", "* n is gone: why/* n 1/a 7", ["1: decide: commented n: gone: why", f"2: decide: left a: {RANGE}"]),
        ("m immediate Message 1 1", "m immediate Help 1 1", "m hello", "* m is gone/* m hello", ["1: decide: commented m: gone"]),
        ("r immediate ReadFile 1 1/s synonym r", "r immediate ReadFile 1 1", "s no.opt", "r no.opt",
         ['1: decide: refused r: Cannot open parameter file "no.opt"; Error code = 2; No such file or directory', "1: spelled r: s is now written r"]),
        ("", "r immediate ReadFile 1 1", "r no.opt", None, ["1: taken r: Only the newer definition takes this; it stays"]),
        # ---- values of other types
        (FLAG, "a boolean 1 1 1 1", "a", "a 1", ["1: spelled a: To mean the same, it is now written: a 1"]),
        ("a boolean 1 1 1 1", FLAG, "a yes/a no", "a/* a is not taken in the same way: Remainder of line ignored/* a no",
         ["1: spelled a: To mean the same, it is now written: a", "2: decide: commented a: not taken in the same way: Remainder of line ignored"]),
        ("a integer.OPT 1 2 0 9 1 1", "a integer 1 4 0 9 1 1", "a/a 3", "a 2/a 3", ["1: spelled a: To mean the same, it is now written: a 2"]),
        ("a boolean 1 1 1 1", "b/a synonym b", "a yes/a 1", "b 1/b 1",
         ["1: renamed a: To mean the same, it is now written: b 1", "2: renamed a: It is now called b"]),
        ("a", "a string 1 x 1 1", "a 3/a 03/a \"3\"", "a 3/a 3/a \"3\"", ["2: spelled a: To mean the same, it is now written: a 3"]),
        ("a double 1 2 0 9 1 1", "a", "a 3.0/a -0/a 3.5", None, ['3: decide: left a: Integer expected, for option "a" saw "3.5"']),
        ("a enumstr 1 x 1 1/ x 1/ y 1", "a string 1 x 1 1", "a X", "a x", ["1: spelled a: To mean the same, it is now written: a x"]),
        ("a string 1 x 1 1", "a enumstr 1 x 1 1/ x 1", "a x/a X/a z", "a x/* a is not taken in the same way/* a X/a z",
         ["2: decide: commented a: not taken in the same way", '3: decide: left a: Unknown value for option "a" saw "z"; Possible values are  x']),
        ("a enumstr 1 x 1 1/ x 1/ y 1", "a enumstr 1 x 1 1/ x 1/ Y 1", "a X/a y", None, []),
        ("a string 1 x 1 1", "a enumstr.TWO 1 x 1 1/ x 1", "a *", None, ["1: decide: left a: The newer definition reads it in another way"]),
        ("b/m multilist 1 1 1/ b", "b integer.NV 1 2 0 9 1 1/m multilist 1 1 1/ b", "m 3", "* m is not taken in the same way/* m 3",
         ["1: decide: commented m: not taken in the same way"]),
        ("b integer.NV 1 2 0 9 1 1/m multilist 1 1 1/ b", "b/m multilist 1 1 1/ b", "m 3", "* m is not taken in the same way/* m 3",
         ["1: decide: commented m: not taken in the same way"]),
        (".a boolean.NV 1 1 1 1", ".a boolean 1 1 1 1", "x.a 1/x.a 0", "* .a is not taken in the same way/* x.a 1/x.a 0",
         ["1: decide: commented .a: not taken in the same way"]),
        (".a integer.TWO 1 2 0 9 1 1", ".a", "x.a 3", None, []),
        ("a integer.TWO 1 2 0 9 1 1", "a", "a 3 4/a 3 3/a 3 *", "a 3 4/a 3/a 3 *",
         ['1: decide: left a: Integer expected, for option "a" saw "3 4"', "2: spelled a: To mean the same, it is now written: a 3",
          '3: decide: left a: Integer expected, for option "a" saw "3 *"']),
        ("a", SMALL, "a% 2", None, ['1: decide: refused a: Not taken before either: Bad separator after key "a"']),
        # ---- values out of the bounds
        ("a", SMALL, "a 7/a 50", None, [f"1: decide: left a: {RANGE}",
                                        '2: decide: refused a: Not taken before either: Integer range error for option "a" saw "50"; Valid range is 0 to 9']),
        ("a", SMALL, "a 7/a=7/-A := 7", "a 5/a=5/-A := 5", [f"{n}: clamped a: a moved from 7 to the bound 5" for n in (1, 2, 3)], "--clamp"),
        ("a", "b integer 1 4 3 5 1 1/a synonym b", "a 7/a 1/a 4", "b 5/b 3/b 4",
         ["1: clamped a: b moved from 7 to the bound 5", "2: clamped a: b moved from 1 to the bound 3", "3: renamed a: It is now called b"], "--clamp"),
        ("a double 1 2 0 9 1 1", "a double 1 2 0.5 5.5 1 1", "a 7.25/a 0", "a 5.5/a 0.5",
         ["1: clamped a: a moved from 7.25 to the bound 5.5", "2: clamped a: a moved from 0 to the bound 0.5"], "--clamp"),
        ("a enumint 1 1 1 1/ 1 1/ 2 1", "a integer 1 1 0 1 1 1", "a 2/a 1", "a 1/a 1", ["1: clamped a: a moved from 2 to the bound 1"], "--clamp"),
        ("a double 1 2 0 9 1 1", "a", "a 3.5", None, ['1: decide: left a: Integer expected, for option "a" saw "3.5"'], "--clamp"),
        ("a", f"{SMALL}/d deprecated/ a use b", "a 7", "a 5",
         ["1: clamped a: a moved from 7 to the bound 5", "1: deprecated a: It still works: use b"], "--clamp"),
        ("a string 1 x 1 1", SMALL, "a 7", None, [f"1: decide: left a: {RANGE}"], "--clamp"),
        ("a/x deprecated/ a why", f"{SMALL}/x deprecated/ a why", "a 7", None, [f"1: decide: left a: {RANGE}"]),
        ("a integer.OPT 1 7 0 9 1 1", "a integer.OPT 1 2 0 5 1 1", "a", "a 5", ["1: clamped a: a moved from 7 to the bound 5"], "--clamp"),
        ("a integer.TWO 1 2 0 9 1 1", "a integer.TWO 1 2 0 5 1 1", "a 7 3/a 3 7/a * 7/a 7 */a 7", "a 5 3/a 3 5/a * 5/a 5 */a 5 5",
         [f"{n}: clamped a: a moved from 7 to the bound 5" for n in (1, 2, 3, 4, 5, 5)], "--clamp"),
        (".a", ".a integer 1 2 0 5 1 1", "x.a 7/x.a(\"1 2\") 7", "x.a 5/x.a(\"1 2\") 5",
         ["1: clamped .a: .a moved from 7 to the bound 5", "2: clamped .a: .a moved from 7 to the bound 5"], "--clamp"),
        ("a", "a integer.NV 1 5 0 5 1 1", "a 7", "* a is not taken in the same way: Remainder of line ignored/* a 7",
         ["1: decide: commented a: not taken in the same way: Remainder of line ignored"], "--clamp"),
        (f"a/{BOUNDS}", f"{SMALL}/{BOUNDS}", "n 1/a 7/a 17/n 0/a 7", "n 1/a 7/a 17/n 0/a 5", ["5: clamped a: a moved from 7 to the bound 5"], "--clamp"),
        ("a", f'{SMALL}/b integer 1 2 0 5 1 1/x deprecated/ a use "b"', "a 7", "b 7",
         ["1: renamed a: It is now called b", "1: decide: left a: " + RANGE.replace('"a"', '"b"')]),
        # ---- macros and multilists
        ("a/b/m macro 1 1/ a/ b", "a/b", "m 7", "a 7/b 7", ["1: spelled m: To mean the same, it is now written: a 7; b 7"]),
        ("a/b/m macro 1 1/ a/ b", "b/m macro 1 1/ b", "m 7", None, ["1: reduced m: Some of what it set is gone"]),
        ("a/b/m macro 1 1/ a/ b", "b", "m 7", "b 7", ["1: spelled m: To mean the same, it is now written: b 7", "1: reduced m: Some of what it set is gone"]),
        ("a/b/m macro 1 1/ a/ b/x deprecated/ m why", "c", "m 7", "* m is gone: why/* m 7", ["1: commented m: gone: why"]),
        ("a/b/m macro 1 1/ a/ b", f"{SMALL}/b/m macro 1 1/ a/ b", "m 7", None, [f"1: decide: left m: {MACRO_RANGE}"]),
        ("a/b/m macro 1 1/ a/ b", f"{SMALL}/b/m macro 1 1/ a/ b", "m 7", "a 5/b 7", ["1: clamped m: a moved from 7 to the bound 5"], "--clamp"),
        ("a/b/m multilist 1 1 1/ a b", "a/b/m multilist 1 1 1/ b a", "m 3:4", "a 3/b 4", ["1: spelled m: To mean the same, it is now written: a 3; b 4"]),
        ("b integer.NV 1 2 0 9 1 1/m macro 1 1/ b", "b string 1 x 1 1/m macro 1 1/ b", 'm ""', '* m is not taken in the same way/* m ""',
         ["1: decide: commented m: not taken in the same way"]),
        ("a/b/m macro 1 1/ a/ b", "a/b/k macro 1 1/ a/m synonym k", "m 7", "a 7/b 7", ["1: spelled m: To mean the same, it is now written: a 7; b 7"]),
        (f"{SMALL}/b/m macro 1 1/ a/ b", f"{SMALL}/b", "m 7", "b 7",
         ["1: spelled m: To mean the same, it is now written: b 7", f"1: decide: refused m: Not taken before either: {MACRO_RANGE}"]),
        ("a integer.TWO 1 2 0 9 1 1/b integer.TWO 1 2 0 9 1 1/m macro 1 1/ a/ b", "a integer.TWO 1 2 0 9 1 1/b integer.TWO 1 2 0 9 1 1", "m 7", "a 7 */b 7 *",
         ["1: spelled m: To mean the same, it is now written: a 7 *; b 7 *"]),
        *(("a string 1 x 1 1/m macro 1 1/ a", "a string 1 x 1 1", f"m {value}", f"a {value}", [f"1: spelled m: To mean the same, it is now written: a {shown}"])
          for value, shown in (('"p,q"', '"p,q"'), ('"p\tq"', '"p\\x09q"'), ('""', '""'), ('"p q"', '"p q"'), ("p", "p"))),
        # ---- lists of texts, which have no default
        ("a string 1 x 1 1", "a strlist 1 1 1", "a q", "* a is not taken in the same way/* a q",
         ["1: decide: commented a: not taken in the same way", " new-default a: The default is now none, was x; a line cannot set it"]),
        ("x eolcomm #", "x eolcomm !", "--own a!b # c", "--own a!b # c", []),
        ("", "a", "--Own a/--OWN b", None, []),
        ("", "Minos lookup", "--own_list a/--own list a", "--own_list a/--own = list a", ["2: spelled --own: To mean the same, it is now written: --own = list a"]),
        ("Minos lookup", "", "--own_list a/--own list a", "--own_list a/--own_list a", ["2: spelled --own list: own list is now written own_list"]),
        # ---- one of two values, under another name and with another default
        ("a integer.TWO 1 2 0 9 1 1", "b integer.TWO 1 3 0 9 1 1/a synonym b", "a 5 */", "b 5 */* Defaults that have changed/b * 2/",
         ["1: renamed a: It is now called b", " pinned a: The default of the second value is now 3, was 2; the old one was written"], "--pin"),
        # where lines end: what the changed line sets, and what the line behind it does not
        # An error in the elements ends a dot line there; an indicator goes on with what follows the elements.
        (f"{EOL}/.r/a", f"{EOL}/.r/b/a synonym b", "e off/x.r(k a 3", "e off/x.r(k b 3",
         ['2: decide: refused .r: Not taken before either: Set name not allowed .option "x"', "2: renamed a: It is now called b"]),
        (f"{EOL}/.r/a", f"{EOL}/.r/b/a synonym b", "e off/x.r = 1 a 3", "e off/x.r = 1 b 3", ["2: renamed a: It is now called b"]),
        (".r", "a", "x.r(1)", None, ['1: decide: refused .r: Not taken before either: Element expected for .option "x"',
                                     '1: decide: refused: Not taken before either: Option keyword expected, saw "1"']),
        (f"{EOL}/i indicator/a", f"{EOL}/i indicator/b/a synonym b", "e off/i e($v( 1 a 3", "e off/i e($v( 1 b 3",
         ['2: decide: refused i: Not taken before either: Unique element expected for indicator id "e"; Unique element expected for indicator id "v"',
          "2: renamed a: It is now called b"]),
        (f"{EOL}/i indicator/a", f"{EOL}/i indicator/b/a synonym b", "e off/i e(*)$v 1 a 3/i e v 1 a 3", None,
         ['2: decide: refused i: Not taken before either: Universe not allowed for indicator id "e"; $ expected after equation identifier "e"',
          '3: decide: refused i: Not taken before either: $ expected after equation identifier "e"']),
        (f"{EOL}/a/b", f"{EOL}/b/c integer 1 3 0 9 1 1/a synonym c", "e off/b 5 a 4 e on", "e off/b 5 c 4 e on", ["2: renamed a: It is now called c"], "--pin"),
        (f"{EOL}/a/b/s string 1 x 1 1/u synonym s", f"{EOL}/c/a synonym c/b integer 1 3 0 9 1 1/s string 1 x 1 1", "e off/a 4 e on/u x b 5",
         "e off/c 4 e on/s x b 5/* Defaults that have changed/b 2/", ["2: renamed a: It is now called c", "3: spelled s: u is now written s",
          " pinned b: The default is now 3, was 2; the old one was written"], "--pin"),
        # ---- comments
        ("x eolcomm #/a", "x eolcomm !/a", "a 3 # c/a 3#c/ # c/# c/a 3 #", "a 3 ! c/a 3!c/* # c/* c/a 3 !",
         ["1: remark: The comment is marked in another way", "2: remark: The comment is marked in another way", "3: remark: The comment begins with * now",
          "4: remark: The comment begins with * now", "5: remark: The comment is marked in another way"]),
        ("x eolcomm #%/a string 1 x 1 1", "x eolcomm !%/a string 1 x 1 1", "a b # c", "a b % c", ["1: remark: The comment is marked in another way"]),
        ("x eolcomm #/a string 1 x 1 1", "a string 1 x 1 1", "a b # c/a b #\tc ", "* c/a b/* c /a b", [f"{n}: remark: The comment is marked in another way" for n in (1, 2)]),
        ("a string 1 x 1 1", "x eolcomm #/a string 1 x 1 1", 'a b # c/a "b#"/-a := b#c', 'a "b # c"/a "b#"/-a := "b#c"',
         ['1: spelled a: To mean the same, it is now written: a "b # c"', '3: spelled a: To mean the same, it is now written: -a := "b#c"']),
        ("a string 1 x 1 1", "x eolcomm #/b string 1 x 1 1/a synonym b", "-a = p#q", '-b = "p#q"',
         ['1: renamed a: To mean the same, it is now written: -b = "p#q"']),
        ("x eolcomm #/a/b", "x eolcomm #/a/c", "b 3 # c/b 4", "* b is gone/* b 3 # c/* b is gone/* b 4", ["1: commented b: gone", "2: commented b: gone"]),
        # ---- several settings on a line
        (f"{EOL}/a/b/c", f"{EOL}/a/d/b synonym d", "e off/a 1 b 2 c 3/c 1 c 2/c 1,b 2 a 3", "e off/* c is gone/* c 3/a 1 d 2 /* c is gone/* c is gone/* c 1 c 2/"
         "* c is gone/* c 1/d 2 a 3", ["2: renamed b: It is now called d", "2: commented c: gone", "3: commented c: gone", "3: commented c: gone",
                                   "4: commented c: gone", "4: renamed b: It is now called d"]),
        (f"x eolcomm #/{EOL}/a/b/m macro 1 1/ a/ b", f"x eolcomm #/{EOL}/a/b", "e off/m 1 a 2 # c/a 2 m 1", "e off/a 1 a 2 # c/b 1/a 2 a 1/b 1",
         [f"{n}: spelled m: To mean the same, it is now written: a 1; b 1" for n in (2, 3)]),
        (f"x eolcomm #/{EOL}/a/b/z", "x eolcomm #/a/b", "e off/a 1 b 2 #c/a 1 z 4 b 2/a 1 # c/e on",
         "* e is gone/* e off/* c/a 1/b 2/a 1/* z is gone/* z 4/b 2/a 1 # c/* e is gone/* e on",
         ["1: decide: commented e: gone", "2: spelled: Each setting is on a line of its own now", "3: commented z: gone", "5: decide: commented e: gone"]),
        (f"x eolcomm #/{EOL}/s string 1 x 1 1", f"x eolcomm %/{EOL}/s string 1 x 1 1", "e off/s a # b", "e off/s a % b",
         ["2: remark: The comment is marked in another way"]),
        (f"{EOL}/s string 1 x 1 1/b", f"{EOL}/s string 1 x 1 1/c/b synonym c", 'e off/s "p q" b 2 e on b 2/b 3', 'e off/s "p q" c 2 e on c 2/c 3',
         ["2: renamed b: It is now called c", "2: renamed b: It is now called c", "3: renamed b: It is now called c"]),
        (f"{EOL}/r immediate ReadFile 1 1/a", f"{EOL}/r immediate ReadFile 1 1/b/a synonym b", "e off/a 3 r no.opt a 4", "e off/b 3 r no.opt b 4",
         ["2: renamed a: It is now called b", '2: decide: refused r: Cannot open parameter file "no.opt"; Error code = 2; No such file or directory',
          "2: renamed a: It is now called b"]),
        (f"a/{EOL}/{BOUNDS}", f"{SMALL}/{EOL}/{BOUNDS}", "e off/n 1 a 7/n 0 a 7", None, [f"3: decide: left a: {RANGE}"]),
        (f"{EOL}/.k/a/m multilist 1 1 1/ a", f"{EOL}/.k/a", 'e off/x.k 1 y.k 2 a 3 m ""', None,  # m set nothing, and is refused now
         ["2: decide: left: The line means something else now and cannot be rewritten"]),
        # the text behind the name was refused, and would be the value now
        (f"{EOL}/{FLAG}", f"{EOL}/a string.OPT 1 x 1 1", "e off/a y", "e off/* The line means something else now and cannot be rewritten/* a y",
         ["2: decide: commented: The line means something else now and cannot be rewritten"]),
        (f"x eolcomm !/{EOL}/b/a double.OPT 1 2 0 5 1 1", f"x eolcomm !/{EOL}/a double.OPT 1 2 0 5 1 1", "e off/a , ! w , *", None,
         ["2: decide: left: The line means something else now and cannot be rewritten"]),
        # ---- the byte 0
        ("a/b", "a/c/b synonym c", "a 3\0/b 4\0/* \0", None, [f"{n}: decide: left: The line contains the byte 0; it stays as it is" for n in (1, 2)]),
        (f"x eolcomm #/{EOL}", f"x eolcomm #/{EOL}/a", "e on\0/# c\0", None, ["1: decide: left: The line contains the byte 0; it stays as it is"]),
        # ---- the same definition: only what is refused is told
        ("a/m multilist 1 1 1/ a", "a/m multilist 1 1 1/ a", "m 1:2/b 3/a 4", None,
         ['1: decide: refused m: It is not taken: Too many items for multilist "m"', '2: decide: refused b: It is not taken: Unknown option "b"'], "--pin"),
        (f"{EOL}/{SMALL}/b", f"{EOL}/{SMALL}/b", "e off/a 7 b 50", None,
         [f"2: decide: refused a: It is not taken: {RANGE}",
          '2: decide: refused b: It is not taken: Integer range error for option "b" saw "50"; Valid range is 0 to 9']),
        (f"r immediate ReadFile 1 1/t immediate Message 1 1", f"r immediate ReadFile 1 1/t immediate Message 1 1", "r no.opt/t hello", None,
         ['1: decide: refused r: It is not taken: Cannot open parameter file "no.opt"; Error code = 2; No such file or directory'])):
    migrates(*row)

# ---- defaults that have changed: older and newer definition, file and what is added to it, report

OLDS = ('a/b double 1 2 0 9 1 1/c string 1 "p q" 1 1/d boolean 1 1 1 1/f enumstr 1 x 1 1/ x 1/ y 1/g enumint 1 1 1 1/ 1 1/ 2 1/h string 1 "" 1 1'
        '/i strlist 1 1 1/j boolean.NV 1 1 1 1/.k')
NEWS = ('a integer 1 3 0 9 1 1/b double 1 2.5 0 9 1 1/c string 1 x 1 1/d boolean 1 0 1 1/f enumstr 1 y 1 1/ x 1/ y 1/g enumint 1 2 1 1/ 1 1/ 2 1'
        '/h string 1 x 1 1/i strlist 1 1 1/j boolean.NV 1 0 1 1/.k integer 1 3 0 9 1 1')
DEFAULTS = [("a", "3", "2"), ("b", "2.5", "2"), ("c", "x", "p q"), ("d", "0", "1"), ("f", "y", "x"), ("g", "2", "1"), ("h", "x", "")]
PAIR = "a integer.TWO 1 2 0 9 1 1"
for older, newer, before, added, report, flags in (
        (OLDS, NEWS, "* nothing", 'a 2/b 2/c "p q"/d 1/f x/g 1/h ""', [f" pinned {name}: The default is now {now}, was {was}; the old one was written"
         for name, now, was in DEFAULTS] + [" decide: new-default .k: The default is now 3, was 2; a line cannot set it"], "--pin"),
        (OLDS, NEWS, "* nothing", "", [f" new-default {name}: The default is now {now}, was {was}; --pin keeps the old one"
         for name, now, was in DEFAULTS] + [" new-default .k: The default is now 3, was 2; a line cannot set it"], ""),
        ("a", "b integer 1 3 0 9 1 1/a synonym b", "", "b 2", [" pinned a: The default is now 3, was 2; the old one was written"], "--pin"),
        ("a", "a integer 1 4 3 9 1 1", "", "", [" decide: left a: The default is now 4, was 2; it can no longer be set"], "--pin"),
        ("a", "a integer 1 4 3 9 1 1", "", "a 3", [" clamped a: The default is now 4, was 2; 3, the bound, was written"], "--pin --clamp"),
        ("a", "a integer 1 3 0 9 1 1/x obsolete/ a why", "", "", [" decide: new-default a: The default is now 3, was 2; a line cannot set it"], "--pin"),
        ("a string 1 x 1 1", "a strlist 1 1 1", "", "", [" decide: new-default a: The default is now none, was x; a line cannot set it"], "--pin"),
        # one of two values, or both
        (PAIR, PAIR.replace("2", "3"), "", "a 2 2", [" pinned a: The default is now 3, was 2; the old one was written"], "--pin"),
        (PAIR, PAIR.replace("2", "3"), "a 5 *", "a * 2", [" pinned a: The default of the second value is now 3, was 2; the old one was written"], "--pin"),
        (PAIR, PAIR.replace("2", "3"), "a * 5", "", [" new-default a: The default of the first value is now 3, was 2; --pin keeps the old one"], ""),
        (PAIR, PAIR.replace("2", "3"), "a 5", "", [], "--pin"),
        (PAIR, "a integer 1 3 0 9 1 1", "", "a 2", [" pinned a: The default is now 3, was 2; the old one was written"], "--pin"),
        ("a", PAIR.replace("2", "3"), "", "a 2", [" pinned a: The default is now 3, was 2; the old one was written"], "--pin"),
        # what a line of the file tried to set is not pinned
        ("a", "a integer 1 3 0 9 1 1", "a 50", "",
         ['1: decide: refused a: Not taken before either: Integer range error for option "a" saw "50"; Valid range is 0 to 9'], "--pin"),
        ("a/s string 1 x 1 1", "a integer 1 3 0 9 1 1/s string 1 y 1 1", 'a 3\0/s "p\0q"', "",
         [f"{n}: decide: left: The line contains the byte 0; it stays as it is" for n in (1, 2)], "--pin"),
        # bounds that only the newer definition can switch off
        ("a integer 1 7 0 9 1 1", f"{SMALL}/{BOUNDS}", "n 1", "a 7", ["1: taken n: Only the newer definition takes this; it stays",
         " pinned a: The default is now 2, was 7; the old one was written"], "--pin"),
        ("a", "b integer 1 3 0 9 1 1/a synonym b", "b 4", "", ["1: taken b: Only the newer definition takes this; it stays"], "--pin")):
    before += "/" if before else ""
    migrates(older, newer, before, before + (f"* Defaults that have changed/{added}/" if added else ""), report, flags)

sys.exit("\n".join(failures) or 0)

"""What diff says about two definitions: each kind of change, what it means to option files. The forms of the report are in
transcripts/reports.md, the proof of the classes is in changes.py.
usage: definitionchanges.py TOOL; run in the repository's root"""
import json, sys
from support import expect, failures, run, write


# A line of its own for each part between slashes. A name alone is an integer option with this name.
def definition(text):
    return "".join(f"{line} integer 1 2 0 9 1 1\n" if line.strip() == line and " " not in line else f"{line}\n"
                   for line in text.split("/") if line)


# The changes, as in "breaking values a: x -> : The value x is gone".
def changes(older, newer):
    write("old.def", older)
    write("new.def", newer)
    out, err, _ = run("wexcorin diff old.def new.def --json")
    expect(f"{older!r} to {newer!r}: errors", err, "")
    return ["{class} {kind} {name}: {before} -> {after}: {text}".format(**each) for each in json.loads(out)["changes"]]


# ---- one option before and after, without its number, help flag and group: what an option file that sets it has to fear

def option(name, text):
    words, *values = text.split(" / ")
    kind, *fields = words.split(" ", 1)
    number = [] if kind == "immediate" else ["1"]
    return " ".join([name, kind, *number, *fields, "1 1\n"]) + "".join(f" {value} 1\n" for value in values)


ROWS = (
    # what was taken is taken by another type as well, or not
    ("integer 2 0 9", "double 2 0 9", "silent type"),
    ("integer 2 0 9", "double 2 0 8", "breaking type"),
    ("integer 2 0 9", "double 2 1 9", "breaking type"),
    ("integer 2 -2147483646 2147483646", "double 2 mindouble maxdouble", "silent type"),
    ("integer 2 minint 9", "double 2 mindouble 9", "breaking type"),  # the words for these two are no doubles
    ("integer 2 0 maxint", "double 2 0 maxdouble", "breaking type"),
    ("integer 2 0 9", "string 2", "silent type"),
    ("string 2", "integer 2 0 9", "breaking type"),
    ("double 2 0 9", "integer 2 0 9", "breaking type"),
    ("integer 2 0 9", "enumint 2 / 2 / 3", "breaking type"),
    ("enumint 1 / 1 / 5", "integer 1 1 5", "silent type"),
    ("enumint 1 / 1 / 5", "integer 1 0 4", "breaking type"),
    ("enumint 1 / 1 / 5", "double 1 0 5", "silent type"),
    ("enumint 2 / 2 / 5", "integer 3 3 5", "breaking type"),
    ("strlist", "string 2", "silent type"),
    ("string x", "strlist", "silent type"),
    ("integer.NV 2 0 9", "string 2", "breaking type"),
    ("integer.NV 2 0 9", "double.NV 2 0 9", "silent type"),
    ("integer.NV 2 0 9", "double.OPT 2 0 9", "silent type"),
    ("integer 2 0 9", "double.OPT 2 0 9", "silent type"),
    ("integer 2 0 9", "double.TWO 2 0 9", "silent type"),
    ("integer.OPT 2 0 9", "double.OPT 2 0 9", "silent type"),
    ("integer.OPT 2 0 9", "double 2 0 9", "breaking type"),
    ("integer.TWO 2 0 9", "double.OPT 2 0 9", "breaking type"),
    ("integer 2 0 9", "double.NV 2 0 9", "breaking type"),
    # modifiers
    ("integer 2 0 9", "integer.OPT 2 0 9", "compatible modifier"),
    ("integer 2 0 9", "integer.NV 2 0 9", "breaking modifier"),
    ("integer 2 0 9", "integer.TWO 2 0 9", "compatible modifier"),
    ("integer.OPT 2 0 9", "integer.TWO 2 0 9", "breaking modifier"),
    ("integer.TWO 2 0 9", "integer.OPT 2 0 9", "breaking modifier"),
    ("integer.NV 2 0 9", "integer.OPT 2 0 9", "compatible modifier"),
    ("integer.NV 2 0 9", "integer 2 0 9", "breaking modifier"),
    ("enumstr x / x / y", "enumstr.TWO x / x / y", "compatible modifier"),
    ('enumstr x / "y z" / x', 'enumstr.TWO x / "y z" / x', "breaking modifier"),
    ("enumstr x / x / *", "enumstr.TWO x / x / *", "breaking modifier"),
    # bounds, values and actions
    ("integer 2 0 9", "integer 2 0 8", "breaking bounds"),
    ("integer 2 0 9", "integer 2 1 9", "breaking bounds"),
    ("integer 2 0 9", "integer 2 0 10", "compatible bounds"),
    ("integer 2 0 9", "integer 2 -1 9", "compatible bounds"),
    ("integer.NV 2 0 9", "integer.NV 2 0 8", "compatible bounds"),
    ("double 2 0 9", "double 2 -1 8.5", "breaking bounds"),
    ("enumstr.NV x / x / y", "enumstr.NV x / x", "compatible values"),
    ("enumstr x / x / y", "enumstr x / y / x", ""),
    ("immediate Help", "immediate NoBounds", "breaking action"),
    ("immediate Message", "immediate ReadFile", "compatible action"))
DOTS = (  # dot options, which are named without their period if they have a synonym
    ("integer 2 0 9", "double 2 0 9", "silent type", False),
    ("integer 2 0 9", "double 2 1 9", "breaking type", False),
    ("integer.NV 2 0 9", "double.OPT 2 0 9", "breaking type", False),
    ("integer 2 0 9", "double.NV 2 0 9", "silent type", False),
    ("integer 2 0 9", "double.NV 2 0 9", "breaking type", True),
    ("integer 2 0 9", "integer.NV 2 0 9", "silent modifier", False),
    ("integer 2 0 9", "integer.NV 2 0 9", "breaking modifier", True),
    ("integer 2 0 9", "integer.OPT 2 0 9", "compatible modifier", False),
    ("integer.NV 2 0 9", "integer 2 0 9", "breaking modifier", False),
    ("integer.OPT 2 0 9", "integer 2 0 9", "compatible modifier", False),
    ("integer.OPT 2 0 9", "integer 2 0 9", "breaking modifier", True))


# The definitions with the options of all rows, and what is expected of them.
def joined(rows, period=""):
    texts, wanted = ["", ""], {}
    for number, (*both, change, synonym) in enumerate(rows):
        name = f"{period}o{number}"
        for i, text in enumerate(both):
            texts[i] += option(name, text)
            texts[i] += f"s{number} synonym {name}\n" if synonym else ""
        wanted[name] = " to ".join(both), change
    return *texts, wanted


for older, newer, wanted in joined([(*row, False) for row in ROWS]), joined(DOTS, "."):
    write("old.def", older)
    write("new.def", newer)
    seen = {}
    for each in json.loads(run("wexcorin diff old.def new.def --json")[0])["changes"]:
        if each["kind"] not in ("default", "spelling"):
            seen.setdefault(each["name"], []).append(f"{each['class']} {each['kind']}")
    for name, (row, change) in wanted.items():
        expect(f"{name}: {row}", seen.get(name, []), [change] if change else [])

# ---- whole definitions, and all that diff says about them

for older, newer, wanted in (
        # how names are found, comments, and the keyword of indicators
        ("Path lookup", "", ["breaking lookup : Path -> Normal: The lookup mode is now Normal, was Path; short forms of names may not be found"]),
        ("Minos lookup", "Path lookup", ["breaking lookup : Minos -> Path: The lookup mode is now Path, was Minos; short forms of names may not be found"]),
        ("max_iter/max/s_t synonym max", "Minos lookup/max_iter/max/s_t synonym max",
         ["silent lookup : Normal -> Minos: The lookup mode is now Minos, was Normal; lists of texts (--NAME) with similar names become one",
          "breaking name max_iter:  -> : The name no longer finds the option", "breaking synonym s_t: max -> : The synonym of max is gone"]),
        ("x eolcomm #!", "x eolcomm #", ["breaking comments : !# -> #: Comments at the end of a line now begin with #, did with !#"]),
        ("x eolcomm #", "x eolcomm !#", ["silent comments : # -> !#: Comments at the end of a line now begin with !#, did with #"]),
        ("x eolcomm #", "", ["breaking comments : # -> : Comments at the end of a line now begin with nothing, did with #"]),
        ("i indicator", "", ["breaking indicator : i -> : There is no keyword of indicators any more, was i"]),
        ("", "i indicator", ["compatible indicator :  -> i: There is a keyword of indicators, i"]),
        ("i indicator", "j indicator", ["breaking indicator : i -> j: The keyword of indicators is now j, was i"]),
        ("i indicator", "I indicator", []),
        # a new character may be in a part of a line that is refused without what follows it
        *((holder, f"{holder}/x eolcomm #", [f"{impact} comments :  -> #: Comments at the end of a line now begin with #, did with nothing"])
          for impact, holder in (("silent", "a"), ("breaking", "i indicator"), ("breaking", ".a"), ("breaking", "r immediate ReadFile 1 1"),
                                 ("silent", "e immediate EolFlag 1 1"), ("breaking", "a enumstr 1 x 1 1/ y#z 1/ x 1"), ("silent", "a enumstr 1 x 1 1/ x 1"))),
        ("a/i synonym a", "a/i indicator",
         ["compatible indicator :  -> i: There is a keyword of indicators, i", "breaking synonym i: a -> : The synonym of a is gone",
          "breaking name i: a -> : The name is now the keyword of indicators"]),
        # names of options
        ("a", "", ["breaking removed a:  -> : The option is gone"]),
        ("a", "b", ["breaking removed a:  -> : The option is gone", "compatible added b:  -> b: The option is new"]),
        ("a", "A", ["compatible spelling a: a -> A: It is now spelled A"]),
        ("a", "b/a synonym b", ["compatible renamed a: a -> b: It is now called b"]),
        ("a/b", "b/a synonym b", ["silent removed a:  -> b: The option is gone; its name now finds b"]),
        ("i indicator/i", "i indicator", ["breaking removed i:  -> : The option is gone, but its name did not find it"]),
        ("in indicator/in", "in indicator/In", ["compatible spelling in: in -> In: It is now spelled In"]),
        # the option that the reason of a deprecation names: one in quotes before others, and these only if they have underscores
        ("a/x deprecated/ a use \"b\"", "b", ["breaking removed a:  -> b: The option is gone; use b", "compatible added b:  -> b: The option is new"]),
        ("b/a/x deprecated/ a use b_1, or 'b_2'", "b/b_1/b_2",
         ["breaking removed a:  -> b_2: The option is gone; use b_2", "compatible added b_1:  -> b_1: The option is new",
          "compatible added b_2:  -> b_2: The option is new"]),
        ("b/a/x deprecated/ a use b and b_1", "b/b_1",
         ["breaking removed a:  -> b_1: The option is gone; use b_1", "compatible added b_1:  -> b_1: The option is new"]),
        ("b/a/x deprecated/ a not \"a\", but `b`", "b", ["breaking removed a:  -> b: The option is gone; use b"]),
        ("b/a/x deprecated/ a use 'help' or 'b'", "b", ["breaking removed a:  -> Help: The option is gone; use Help"]),
        ("b/a/x deprecated/ a as \"b'", "b", ["breaking removed a:  -> : The option is gone"]),
        # Help is the first option of each definition
        ("", "a/help synonym a", ["compatible added a:  -> a: The option is new"]),  # the synonym finds nothing
        ("a", "a synonym help", ["breaking removed a:  -> Help: The option is gone; its name now finds Help"]),
        ("a/s synonym a", "a/s synonym help", ["breaking synonym s: a -> Help: The synonym of a now finds Help"]),
        ("s synonym help/u synonym help", "t synonym help/u synonym help",
         ["breaking synonym s: Help -> : The synonym of Help is gone", "compatible synonym t:  -> Help: The synonym of Help is new"]),
        ("help indicator", "help indicator", []),
        ("a", "a/x deprecated/ a use \"help\"", ["compatible deprecated a:  -> Help: The name is now deprecated: use \"help\""]),
        # deprecated and obsolete names
        ("a", "a/x deprecated/ a why", ["compatible deprecated a:  -> : The name is now deprecated: why"]),
        ("a", "a/x deprecated/ a", ["compatible deprecated a:  -> : The name is now deprecated"]),
        ("a", "a/x obsolete/ a why", ["breaking obsolete a:  -> : The name is now obsolete: why"]),
        ("a/x deprecated/ a why", "a/x obsolete/ a why", ["breaking obsolete a:  -> : The name is now obsolete: why"]),
        ("a/x deprecated/ a why", "a", ["compatible current a:  -> : The name is now current"]),
        ("a/x obsolete/ a why", "a", ["breaking current a:  -> : The name is now current"]),
        ("a boolean.NV 1 1 1 1/x obsolete/ a why", "a boolean.NV 1 1 1 1", ["silent current a:  -> : The name is now current"]),
        ("a", "a/b/x deprecated/ a use \"b\"",
         ["compatible renamed a:  -> b: It gives way to b. The name is now deprecated: use \"b\"", "compatible added b:  -> b: The option is new"]),
        ("a/b", "a/b/x deprecated/ a not \"a\", but \"b\"", ["compatible deprecated a:  -> b: The name is now deprecated: not \"a\", but \"b\""]),
        ("a/s synonym a", "a/s synonym a/x obsolete/ s use \"a\"", ["breaking obsolete s:  -> a: The name is now obsolete: use \"a\""]),
        # synonyms
        ("a", "a/s synonym a", ["compatible synonym s:  -> a: The synonym of a is new"]),
        ("a/s synonym a", "a", ["breaking synonym s: a -> : The synonym of a is gone"]),
        ("a/s synonym a", "", ["breaking removed a:  -> : The option is gone", "breaking synonym s: a -> : The synonym of a is gone"]),
        ("s indicator/a/s synonym a", "s indicator/a", []),  # the keyword hides the synonym
        ("a/b/s synonym a", "a/b/s synonym b", ["silent synonym s: a -> b: The synonym of a now finds b"]),
        ("a/b/s synonym a/x obsolete/ s gone", "a/b/s synonym b", ["breaking synonym s: a -> b: The synonym of a now finds b"]),
        ("a/b/s synonym a", "a/b/s synonym b/x obsolete/ s gone", ["breaking synonym s: a -> b: The synonym of a now finds b"]),
        ("a boolean.NV 1 1 1 1/b boolean.NV 1 1 1 1/s synonym a/x obsolete/ s gone",
         "a boolean.NV 1 1 1 1/b boolean.NV 1 1 1 1/s synonym b", ["silent synonym s: a -> b: The synonym of a now finds b"]),
        # short forms in lookup mode Path
        ("Path lookup/alpine", "Path lookup/alpine/alp indicator",
         ["compatible indicator :  -> alp: There is a keyword of indicators, alp", "breaking name alp: alpine -> : The name is now the keyword of indicators"]),
        ("Path lookup/alpha", "Path lookup/beta/alpha synonym beta",
         ["compatible renamed alpha: alpha -> beta: It is now called beta",
          "breaking short forms alpha:  -> : Short forms of the name no longer find the option"]),
        ("Path lookup/alpha", "Path lookup/alpha/s synonym alpha/x deprecated/ s why",
         ["compatible deprecated alpha:  -> : Short forms of the name are now deprecated: why", "compatible synonym s:  -> alpha: The synonym of alpha is new"]),
        ("Path lookup/alpha indicator/alpha", "Path lookup/alpha indicator/other/alpha/s synonym alpha/x deprecated/ s why",  # "alph" finds the option
         ["compatible deprecated alpha:  -> : Short forms of the name are now deprecated: why",
          "compatible added other:  -> other: The option is new", "compatible synonym s:  -> alpha: The synonym of alpha is new"]),
        ("Path lookup/alpha/s synonym alpha", "Path lookup/other/alpha/s synonym alpha/x obsolete/ s why",
         ["breaking obsolete alpha:  -> : Short forms of the name are now obsolete: why", "breaking obsolete s:  -> : The name is now obsolete: why",
          "compatible added other:  -> other: The option is new"]),
        ("Path lookup/.alpha/s synonym .alpha", "Path lookup/.alpha/s synonym .alpha/x obsolete/ s why", ["breaking obsolete s:  -> : The name is now obsolete: why"]),
        ("Path lookup/.alpha", "Path lookup/.alpine",  # a dot line
         ["silent removed .alpha:  -> .alpine: The option is gone; its name now finds .alpine", "compatible added .alpine:  -> .alpine: The option is new"]),
        ("Path lookup/.alpha integer.NV 1 2 0 9 1 1", "Path lookup/.alpine",
         ["breaking removed .alpha:  -> .alpine: The option is gone; its name now finds .alpine", "compatible added .alpine:  -> .alpine: The option is new"]),
        # names of several words in lookup mode Minos, where the first words may be a name of their own
        ("Minos lookup/max_iter", "Minos lookup/max_iter/max",
         ["breaking name max_iter:  -> max: The name now finds max", "compatible added max:  -> max: The option is new"]),
        ("Minos lookup/max_iter boolean.NV 1 1 1 1", "Minos lookup/max_iter boolean.NV 1 1 1 1/max strlist 2 1 1",
         ["silent name max_iter:  -> max: The name now finds max", "compatible added max:  -> max: The option is new"]),
        ("Minos lookup/max_iter boolean.NV 1 1 1 1", "Minos lookup/max_iter boolean.NV 1 1 1 1/max boolean.NV 2 1 1 1",
         ["breaking name max_iter:  -> max: The name now finds max", "compatible added max:  -> max: The option is new"]),
        ("Minos lookup/max_iter", "Minos lookup/max_iter/max indicator",
         ["compatible indicator :  -> max: There is a keyword of indicators, max", "breaking name max_iter:  -> : The name no longer finds the option",
          "breaking short forms max_iter:  -> max: Short forms of the name that begin with max no longer find the option"]),
        ("Minos lookup/max_iter/other", "Minos lookup/max_iter/other/Maxi synonym other/mat synonym other",
         ["breaking short forms max_iter:  -> Maxi: Short forms of the name that begin with Maxi no longer find the option",
          "compatible synonym Maxi:  -> other: The synonym of other is new", "compatible synonym mat:  -> other: The synonym of other is new"]),
        ("Minos lookup/max_iteration_limit/other", "Minos lookup/max_iteration_limit/other/max_iter synonym other/max_pivots synonym other",
         ["breaking short forms max_iteration_limit:  -> max_iter: "
          "Short forms of the name that begin with max_iter no longer find the option", "compatible synonym max_iter:  -> other: The synonym of other is new",
          "compatible synonym max_pivots:  -> other: The synonym of other is new"]),
        ("Minos lookup/max_iter_total/other", "Minos lookup/max_iter_total/other/max_iter_first synonym other/max_item synonym other",
         ["compatible synonym max_iter_first:  -> other: The synonym of other is new", "compatible synonym max_item:  -> other: The synonym of other is new"]),
        ("Minos lookup/max_iter/maximal", "Minos lookup/max_iter/maximal/maxi synonym maximal",  # it found maximal before
         ["compatible synonym maxi:  -> maximal: The synonym of maximal is new"]),
        ("Minos lookup/help_two", "Minos lookup", ["compatible removed help_two:  -> : The option is gone, but its name did not find it"]),
        ("Minos lookup/a_b_c_d", "Minos lookup", ["breaking removed a_b_c_d:  -> : The option is gone"]),
        ("Minos lookup/a_b_c_d_e", "Minos lookup", ["breaking removed a_b_c_d_e:  -> : The option is gone, but its name did not find it"]),
        ("Minos lookup/a_2", "Minos lookup", ["breaking removed a_2:  -> : The option is gone, but its name did not find it"]),
        ("Minos lookup/a_", "Minos lookup", ["breaking removed a_:  -> : The option is gone, but its name did not find it"]),
        ("Minos lookup/a__b", "Minos lookup", ["breaking removed a__b:  -> : The option is gone, but its name did not find it"]),
        ("Minos lookup/max_iter/max_iter_2", "Minos lookup/max_iter", ["compatible removed max_iter_2:  -> : The option is gone, but its name did not find it"]),
        ("Minos lookup/max__b/max synonym max__b", "Minos lookup/max__b",  # only its first word found it
         ["breaking name max__b:  -> : The name no longer finds the option", "breaking synonym max: max__b -> : The synonym of max__b is gone"]),
        ("Minos lookup/.max/.max_iter", "Minos lookup/.max", ["breaking removed .max_iter:  -> : The option is gone"]),
        ("max_iter/other", "max_iter/other/max synonym other", ["compatible synonym max:  -> other: The synonym of other is new"]),
        ("Minos lookup/help_x", "Minos lookup/help_x/help indicator",
         ["compatible indicator :  -> help: There is a keyword of indicators, help", "breaking name Help:  -> : The name no longer finds the option",
          "breaking name help: Help -> : The name is now the keyword of indicators"]),
        ("Minos lookup/max_iter", "Minos lookup/max_iter/max synonym help",
         ["breaking name max_iter:  -> Help: The name now finds Help",
          "breaking short forms max_iter:  -> max: Short forms of the name that begin with max no longer find the option",
          "compatible synonym max:  -> Help: The synonym of Help is new"]),
        ("Minos lookup/max_iter", "Minos lookup/max_iter/max synonym max_iter",  # "max iter 5" sets it to "iter 5"
         ["breaking name max_iter:  -> max_iter: The name now finds max_iter",
          "breaking short forms max_iter:  -> max: Short forms of the name that begin with max no longer find the option",
          "compatible synonym max:  -> max_iter: The synonym of max_iter is new"]),
        ("Minos lookup/a/max_iter synonym a", "Minos lookup/a/max_iter synonym a/max synonym a",
         ["breaking synonym max_iter: a -> a: The synonym of a now finds a", "compatible synonym max:  -> a: The synonym of a is new"]),
        ("Minos lookup/max/max_iter synonym max", "Minos lookup/max", []),  # its first word found max
        ("Minos lookup/max_iter/other/maxi synonym other/max indicator", "Minos lookup/max_iter/other/maxi synonym other/max indicator", []),
        ("Minos lookup/max_iter/maxi indicator", "Minos lookup/max_iter",
         ["breaking indicator : maxi -> : There is no keyword of indicators any more, was maxi"]),
        ("Minos lookup/tolerance strlist 1 1 1/tole_alpine strlist 2 1 1",
         "Minos lookup/tolerance strlist 1 1 1/size strlist 2 1 1/tole_alpine synonym size",
         ["compatible renamed tole_alpine: tole_alpine -> size: It is now called size"]),
        ("Minos lookup/size string 2 a 1 1/beta_one synonym size", "Minos lookup/size string 2 a 1 1/beta_one synonym size/beta string 3 a 1 1",
         ["breaking synonym beta_one: size -> beta: The synonym of size now finds beta", "compatible added beta:  -> beta: The option is new"]),
        ("Minos lookup/tolerance strlist 1 1 1/all multilist 2 1 1/ tolerance/beta synonym all",
         "Minos lookup/tolerance strlist 1 1 1/all multilist 2 1 1/ tolerance/beta synonym tolerance",
         ["silent synonym beta: all -> tolerance: The synonym of all now finds tolerance"]),
        (".max_iter", "Minos lookup/.max_iter",
         ["silent lookup : Normal -> Minos: The lookup mode is now Minos, was Normal; lists of texts (--NAME) with similar names become one"]),
        # with several settings on a line, words behind the value would be the second value
        ("x immediate EolFlag 1 1/a", "x immediate EolFlag 1 1/a integer.TWO 1 2 0 9 1 1",
         ["breaking modifier a: integer -> integer.TWO: The type is now integer.TWO, was integer"]),
        ("x immediate EolFlag 1 1/a", "x immediate EolFlag 1 1/a double.TWO 1 2 0 9 1 1",
         ["breaking type a: integer -> double.TWO: The type is now double.TWO, was integer"]),
        # values and actions
        ("a", "a double 1 3 0 9 1 1", ["silent type a: integer -> double: The type is now double, was integer"]),
        ("a", "a integer 1 3 1 8 1 1", ["silent default a: 2 -> 3: The default is now 3, was 2",
                                        "breaking bounds a: 0 to 9 -> 1 to 8: The range is now 1 to 8, was 0 to 9 (narrower)"]),
        ("a double 1 2 0 9 1 1", "a double 1 2.5 0 9.5 1 1", ["silent default a: 2 -> 2.5: The default is now 2.5, was 2",
                                                            "compatible bounds a: 0 to 9 -> 0 to 9.5: The range is now 0 to 9.5, was 0 to 9 (wider)"]),
        ("a string 1 x 1 1", "a string 1 \"\" 1 1", ["silent default a: x -> \"\": The default is now \"\", was x"]),
        ("a boolean 1 1 1 1", "a boolean 1 0 1 1", ["silent default a: 1 -> 0: The default is now 0, was 1"]),
        ("a enumstr 1 x 1 1/ x 1/ y 1", "a enumstr 1 Y 1 1/ z 1/ Y 1",
         ["silent default a: x -> Y: The default is now Y, was x", "breaking values a: x -> : The value x is gone",
          "silent values a: y -> Y: The value y is now Y, was y", "compatible values a:  -> z: The value z is new"]),
        ("a enumstr 1 x 1 1/ x 1/ X 1", "a enumstr 1 x 1 1/ x 1/ X 1", []),  # the second one is never found
        ("a enumint 1 1 1 1/ 5 1/ 1 1", "a enumint 1 6 1 1/ 6 1/ 1 1",
         ["silent default a: 1 -> 6: The default is now 6, was 1", "breaking values a: 5 -> : The value 5 is gone",
          "compatible values a:  -> 6: The value 6 is new"]),
        ("a immediate EolFlag 1 1", "a immediate ReadFile 1 1", ["breaking action a: EolFlag -> ReadFile: What it does is now ReadFile, was EolFlag"]),
        # groups and texts
        ("g group 1 1 G/h group 2 1 H/a strlist 1 1 1 Help", "g group 1 1 G/h group 2 1 H/a strlist 2 1 2 Help!",
         ["compatible group of option a: g -> h: It is now in the group h, was in g", "compatible help a: Help -> Help!: The help is now: Help!",
          "compatible reference number a: 1 -> 2: The reference number is now 2, was 1"]),
        ("g group 1 1 G/a strlist 1 1 1", "g group 1 1 G/a strlist 1 0 1", ["compatible listing a:  -> : It is no longer listed in the help"]),
        ("g group 1 1 G/a strlist 1 0 1", "g group 1 1 G/a strlist 1 1 1", ["compatible listing a:  -> : It is now listed in the help"]),
        ("a/ more/ of it", "a/ less/ of it", ["compatible help a:  -> : The details of the help have changed"]),
        ("a/ more/ of it", "a/ moreof it", ["compatible help a:  -> : The details of the help have changed"]),
        ("g group 1 1 G/h group 2 1 H", "G group 1 1 New/i group 3 1 I",
         ["compatible group g: G -> New: The title is now \"New\", was \"G\"", "compatible group h: H -> : The group is gone",
          "compatible group i:  -> I: The group is new"])):
    expect(f"{older} to {newer}", "\n".join(changes(definition(older), definition(newer))), "\n".join(wanted))

# ---- members: "a b > a" stands for a list that loses its second member

MEMBERS = """a/wide double 2 2 0 19 1 1/real double 2 2 0 9 1 1/narrow integer 3 2 0 5 1 1/high integer 3 2 1 9 1 1/text string 4 x 1 1/flag boolean.NV 5 1 1 1
few enumstr 1 x 1 1/ x 1/ y 1/many enumstr 1 x 1 1/ z 1/ y 1/ x 1/more enumstr 1 x 1 1/ x 1/ y 1/ z 1/one enumint 1 1 1 1/ 1 1/two enumint 1 1 1 1/ 1 1/ 2 1/
inner macro 1 1/ a/ narrow/split multilist 6 1 1/ a narrow/nested macro 1 1/ split/""".replace("\n", "/")
for kind, rows in (
        # the words of the value belong to the members one by one
        ("multilist 7", (("a narrow > a narrow wide", "compatible"), ("a narrow > a", "breaking"), ("a narrow > narrow a", "breaking"),
                         ("narrow a > wide a", "silent"), ("a narrow > a wide narrow", "silent"), ("narrow a > a wide", "silent"),
                         ("a text > a flag", "silent"), ("a text > high text", "breaking"), ("high > a", "silent"), ("real > wide", "silent"), ("few > more", "silent"),
                         ("many > few", "breaking"), ("one > two", "silent"), ("two > one", "breaking"), ("inner a > nested a", "breaking"), ("Help a > text a", "breaking"),
                         ("flag a > text a", "breaking"), ("a text > a text", ""))),
        # the whole value is that of each member
        ("macro", (("a > a narrow", "breaking"), ("narrow > narrow a", "silent"), ("a narrow > a", "silent"), ("a wide > wide a", "compatible"),
                   ("a narrow > narrow text", "silent"), ("text > a", "breaking"), ("inner wide > a narrow wide", "compatible"),
                   ("inner wide > a wide", "silent"), ("split wide > a wide", "breaking"), ("a wide > split wide", "breaking"),
                   ("a nested wide > a wide", "breaking"), ("nested inner > inner", "breaking")))):
    for row, wanted in rows:
        older, newer = row.split(" > ")
        both = [definition(f"{MEMBERS}list {kind} 1 1/ {members.replace(' ', '/ ')}") for members in (older, newer)]
        expect(f"{kind} {row}", changes(*both),
               [f"{wanted} members list: {older} -> {newer}: The list of members is now {newer}, was {older}"] if wanted else [])
for kind in "macro", "multilist 7":  # types of members, of which other lists may consist as well
    for older, newer, wanted in (("integer.NV 1 1 0 9", "double.NV 1 1 0 9", "silent"), ("integer.NV 1 1 0 9", "double.OPT 1 1 0 9", "breaking"),
                                 ("integer.NV 1 1 0 9", "integer.OPT 1 1 0 9", "breaking"), ("integer 1 1 0 9", "double 1 1 0 9", "silent")):
        both = [definition(f"a {text} 1 1/list {kind} 1 1/ a") for text in (older, newer)]
        expect(f"member of a {kind}: {older} to {newer}", [each.split()[0] for each in changes(*both)], [wanted])
expect("members with other names", changes(definition("a/m macro 1 1/ a/l multilist 7 1 1/ a"), definition("b/a synonym b/m macro 1 1/ b/l multilist 7 1 1/ b")),
       ["compatible renamed a: a -> b: It is now called b"])

sys.exit("\n".join(failures) or 0)

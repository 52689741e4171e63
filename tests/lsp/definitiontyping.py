"""Completion and signature help in definitions: whole answers, in the short form of client.py.
usage: definitiontyping.py TOOL"""
import re

from client import expect, finish, items, offered
from definitiontext import MAIN, SNIPPETS, TEXT, asked, start

client = start(**SNIPPETS)
plain = start()  # of a client that can do nothing

# ---- completion

# Keyword, meaning, fields, and the new line that the completion makes as a snippet.
KEYWORDS = (
    ("integer", "An option whose value is an integer within its bounds.",
     "name, integer, reference number, default, lowest value, highest value, help flag, group, text",
     "${1:name} integer ${2:0} ${3:0} ${4:minint} ${5:maxint} ${6:1} ${7:7} ${8:Help text}"),
    ("double", "An option whose value is a number within its bounds.",
     "name, double, reference number, default, lowest value, highest value, help flag, group, text",
     "${1:name} double ${2:0} ${3:0} ${4:mindouble} ${5:maxdouble} ${6:1} ${7:7} ${8:Help text}"),
    ("string", "An option whose value is a text without double quotes.",
     "name, string, reference number, default, help flag, group, text",
     '${1:name} string ${2:0} ${3:""} ${4:1} ${5:7} ${6:Help text}'),
    ("boolean", "An option whose value is a yes or no word, kept as 1 or 0.",
     "name, boolean, reference number, default, help flag, group, text",
     "${1:name} boolean ${2:0} ${3:0} ${4:1} ${5:7} ${6:Help text}"),
    ("enumstr", "An option whose value is one of the texts on the lines below it.",
     "name, enumstr, reference number, default, help flag, group, text",
     "${1:name} enumstr ${2:0} ${3:value} ${4:1} ${5:7} ${6:Help text}\n ${7:value} 1 ${8:Help text}"),
    ("enumint", "An option whose value is one of the integers on the lines below it.",
     "name, enumint, reference number, default, help flag, group, text",
     "${1:name} enumint ${2:0} ${3:0} ${4:1} ${5:7} ${6:Help text}\n ${7:0} 1 ${8:Help text}"),
    ("multilist", "An option that sets each of its members to one word of its value.",
     "name, multilist, reference number, help flag, group, text",
     "${1:name} multilist ${2:0} ${3:1} ${4:7} ${5:Help text}\n ${6:option}"),
    ("strlist", "An option that collects texts: each use of its name adds one.",
     "name, strlist, reference number, help flag, group, text",
     "${1:name} strlist ${2:0} ${3:1} ${4:7} ${5:Help text}"),
    ("macro", "An option that sets all of its members to its value.", "name, macro, help flag, group, text",
     "${1:name} macro ${2:1} ${3:7} ${4:Help text}\n ${5:option}"),
    ("immediate", "An option that acts when it is read.", "name, immediate, kind, help flag, group, text",
     "${1:name} immediate ${2:Message} ${3:1} ${4:7} ${5:Help text}"),
    ("synonym", "Another name for an option that stands earlier in the file.", "",
     "${1:name} synonym ${2:option}"),
    ("group", "A group, which collects options in the help.", "name, group, number, help flag, text",
     "${1:name} group ${2:1} ${3:1} ${4:Help text}"),
    ("deprecated", "The names on the lines below still work, but their use is reported.", "",
     "${1:name} deprecated\n ${2:option} ${3:What to do instead}"),
    ("obsolete", "The names on the lines below no longer work; their use is reported.", "",
     "${1:name} obsolete\n ${2:option} ${3:What to do instead}"),
    ("indicator", "The name is the keyword with which indicator lines of option files begin.", "",
     "${1:name} indicator"),
    ("lookup", "The name says how names are found: Normal, Path or Minos.", "", "${1:Path} lookup"),
    ("eolcomm", "The characters that start a comment at the end of a line of an option file.", "",
     "${1:name} eolcomm ${2:#}"))
unmarked = lambda text: re.sub(r"\$\{\d:([^}]*)\}", r"\1", text)
wanted = [(f"new {word} [15] {meaning}", "15:0-15:0", line,
           {"documentation": fields and "The fields are: " + fields, "filterText": word, "insertTextFormat": 2})
          for word, meaning, fields, line in KEYWORDS]
expect("new lines as snippets", items(asked(client, "completion", "|")), wanted)
members = lambda word, text: text.partition("\n")[0] if word in ("multilist", "macro") else text
wanted = [(f"new {word} [15] {meaning}", "15:0-15:3", members(word, unmarked(line)),
           {"documentation": fields and "The fields are: " + fields, "filterText": word})
          for word, meaning, fields, line in KEYWORDS]
expect("new lines as plain texts", items(asked(plain, "completion", "ne|w")), wanted)
wanted = [(f"{word} [14] {meaning}", "15:2-15:5", word, {"documentation": fields and "The fields are: " + fields})
          for word, meaning, fields, line in KEYWORDS]
for line in ("n in|t 1", "n in|t.", "n st|r integer", "n in|t 1 1 0 9 1 1 N"):
    expect(f"keywords in {line}", items(asked(client, "completion", line)), wanted)
for line in ("n integer|,x", "n eolcomm|,#", "n synonym|,threads,x"):
    expect(f"keywords before a comma in {line}", [each[2] for each in items(asked(client, "completion", line))],
           [each[2] for each in wanted])
expect("keywords as plain texts", items(asked(plain, "completion", "n in|t")), wanted)
seen = items(asked(client, "completion", "n in|t"))
expect("the first keyword at the end of a line", seen[0],
       (wanted[0][0], "15:2-15:5", "integer ${1:0} ${2:0} ${3:minint} ${4:maxint} ${5:1} ${6:7} ${7:Help text}",
        {**wanted[0][3], "insertTextFormat": 2}))
expect("keywords at the end of a line", [unmarked("${1:name} " + each[2]) for each in seen],
       [unmarked(line) if fields else "name " + word for word, meaning, fields, line in KEYWORDS])


MODIFIERS = ["NV [14] The option takes no value: its name sets the default as the value.",
             "OPT [14] The value may be left out: the name alone sets the default.",
             "TWO [14] The option takes two values; a single one sets both."]
INTEGERS = ["maxint [12] 2147483647", "minint [12] -2147483648"]
OPTIONS = ["gap_tol [18] double: Gap #1", "time_limit [18] integer: Time #2", "word [18] enumstr: A word #3",
           "both [18] multilist: Both #4", "all [18] macro: All #5", "show [18] immediate: Show #6"]


# The items; those that are above only by what they are.
def completed(line):
    answer = asked(client, "completion", line)
    labels = [item["label"] for item in answer["items"]][:1]
    return {"new integer": "new lines", "integer": "keywords"}.get("".join(labels)) or offered(answer, "solver.def")


for line, wanted in (
        ("P| lookup", ["15:0-15:1", "Normal [14] -", "Path [14] -", "Minos [14] -"]),
        ("new integer.|N 1", ["15:12-15:13", *MODIFIERS]),
        ("new immediate K| 1 1",
         ["15:14-15:15", "EolFlag [14] -", "ReadFile [14] -", "Message [14] -", "NoBounds [14] -", "Help [14] -"]),
        ("new strlist 1 |", ["15:14-15:14", "1 [12] help lists it", "0 [12] help does not list it"]),
        ("new strlist 1 0 2|",
         ["15:16-15:17", "1 [18] General options", "2 [18] Limits",
          "0 [12] no group: help does not list the option"]),
        ("new boolean 1 |", ["15:14-15:14", "1 [12] yes", "0 [12] no"]),
        ("new double 1 |", ["15:13-15:13", "maxdouble [12] 1e299", "mindouble [12] -1e299", "eps [12] 1e-20"]),
        ("new integer 1 |", ["15:14-15:14", *INTEGERS]),
        ('new string 1 |"a"', []),
        ("new enumint 1 2 1 1\n 5 |", ["16:3-16:3", "1 [12] help lists it", "0 [12] help does not list it"]),
        ("new enumint 1 2 1 1\n |5", ["16:1-16:2", *INTEGERS]),
        ("new synonym |", ["15:12-15:12", *OPTIONS]),
        ("new synonym gap_tol |", []),
        ("new synonym LI|M", ["15:12-15:15", "time_limit [18] integer: Time #2"]),
        ("new multilist 1 1 1\n t|",
         ["16:1-16:2", "time_limit [18] integer: Time #2", "gap_tol [18] double: Gap #1", "both [18] multilist: Both #4"]),
        ("new multilist 1 1 1\n gap_tlo|",
         ["incomplete", "16:1-16:8", "gap_tol [18] double: Gap #1 filterText=gap_tlo"]),
        ("new multilist 1 1 1 ti|", []),
        ("new macro 1 1\n gap|_tol", ["16:1-16:8", "gap_tol [18] double: Gap #1"]),
        ("new macro 1 1\n gap_tol gap|", []),
        ("new macro 1 1\n |", ["16:1-16:1", *OPTIONS]),
        ("new obsolete\n ti|m use", ["16:1-16:4", "time_limit [18] integer: Time #2", "timlim [18] synonym #2"]),
        ("new deprecated\n lim|", ["16:1-16:4", "time_limit [18] integer: Time #2", "timlim [18] synonym #2"]),
        ("new obsolete\n time_limit ti|", []),
        ("new deprecated\n qqqqqq|", ["incomplete"]),
        (" gap_tol time_|limit", ["9:9-9:19", "time_limit [18] integer: Time #2"]),
        ("a| integer", []),
        ("a| ", "new lines"),
        ("|* x", []),
        ("* |x", []),
        (" x|", ["incomplete"]),
        ("x lookup|", "keywords"),
        ("new integer.OPT 1 2|", ["15:18-15:19", *INTEGERS]),
        ("word eolcomm |", []),
        ("later integer |1 1", ["15:14-15:15", *INTEGERS]),
        ("new multilist 1 1 1\n| ti", []),
        ("new strlist 1 1 1\n x\nafter in|", "keywords"),
        ("new |", "keywords"),
        ("new\tin|t", "keywords"),
        ("n in| ", "keywords"),
        ("timlim synonym |time_limit",
         ["5:15-5:25", "gap_tol [18] double: Gap #1", "time_limit [18] integer: Time #2"]),
        ("timlim synonym time_limit |x", []),
        ("allnew multilist 1 1 1\n AL|", ["16:1-16:3", "all [18] macro: All #5"]),
        ("later integer 5 1 1 9 1 1 L\nnew synonym la|", ["16:12-16:14", "later [18] integer: L"]),
        ("new integer.|", ["15:12-15:12", *MODIFIERS]),
        ("new strlist.|", []),
        ("new intger.|", []),
        ("new integer|.OPT 1", "keywords"),
        ("new integer.OPT| 1", ["15:12-15:15", *MODIFIERS]),
        ("new double.OPT| 1", ["15:11-15:14", *MODIFIERS]),
        ("new multilist 1 1 1\n\tgap|", []),
        ("new synonym\tgap|\tx", ["15:12-15:15", "gap_tol [18] double: Gap #1"]),
        ("new macro 1 1\n later|\nlater integer 5 1 1 9 1 1 L", ["incomplete"]),
        ("deprecated |deprecated", "keywords"),
        ("8size in|", [])):
    expect(f"completion of {line!r}", completed(line), wanted)


# The first item for the cursor in a text of its own.
def first(text):
    before = text.partition("|")[0]
    answer = client.at("completion", MAIN, before.count("\n"), len(before.rpartition("\n")[2]), [text.replace("|", "")])
    client.change(MAIN, TEXT)
    return items(answer)[0][2]


for text, group in (("|\na strlist 1 1 3 A\n", 0), ("a strlist 1 1 3 A\nsyn synonym a\n|\nb strlist 1 1 4 B\n", 3),
                    ("a strlist 1 1 3 A\ng group 5 1 G\n|", 5), ("a strlist 1 1 0 A\n* c\n|", 0)):
    expect(f"the group of a new line in {text!r}", first(text), KEYWORDS[0][3].replace("{7:7}", f"{{7:{group}}}"))
for count in (200, 201):
    text = "".join(f"name{number} strlist 1 1 1 x\n" for number in range(count)) + "all macro 1 1\n n"
    answer = client.at("completion", MAIN, count + 1, 2, [text])
    expect(f"{count} names", (len(answer["items"]), answer["isIncomplete"]), (200, count > 200))
client.change(MAIN, TEXT)

# ---- signature help: the fields with their meanings, and then which one the cursor is in


def fields(line, client=client):
    answer = asked(client, "signatureHelp", line)
    if answer is None:
        return None
    expect("one signature", (len(answer["signatures"]), answer["activeSignature"]), (1, 0))
    signature = answer["signatures"][0]
    return [signature["label"], *[(each["label"], each["documentation"]) for each in signature["parameters"]]]


NAME = ("<name>", "A letter, followed by letters, digits and underscores; a period before it for a dot option.")
HELPFLAG = ("<help flag>", "1 when help lists the option; 0 hides it from the help, but it can be used.")
GROUP = ("<group>",
         "The number of the group under which help lists the option; 0 for no group, which also hides it.")
LOOKUP = ["<name> lookup", NAME, ("lookup", "The name says how names are found: Normal, Path or Minos.")]
VALUE = ["<value> <help flag> <text>", ("<value>", "The value as option files have it."),
         ("<help flag>", "1 when help lists the value; 0 hides it."),
         ("<text>", "The help text of the value: the rest of the line.")]
for line, wanted in (
        ("time_limit |integer",
         ["<name> integer.OPT <reference number> <default> <lowest value> <highest value> <help flag> "
          "<group> <text>", NAME,
          ("integer.OPT", "An option whose value is an integer within its bounds."),
          ("<reference number>", "A number for the client's own use: the library stores it and returns it."),
          ("<default>", "The value that the option has until another one is set."),
          ("<lowest value>", "The lowest value that is permitted."),
          ("<highest value>", "The highest value that is permitted."),
          HELPFLAG, GROUP,
          ("<text>", "The help text: the rest of the line.")]),
        ("gen|eral group",
         ["<name> group <number> <help flag> <text>", NAME,
          ("group", "A group, which collects options in the help."),
          ("<number>", "The number by which options name the group."),
          ("<help flag>", "1 when help lists the group; 0 hides it with its options."),
          ("<text>", "The title of the group: the rest of the line.")]),
        ("timlim s|ynonym",
         ["<name> synonym <option>", NAME,
          ("synonym", "Another name for an option that stands earlier in the file."),
          ("<option>", "The name of an option that stands above.")]),
        ("show| imm",
         ["<name> immediate <kind> <help flag> <group> <text>", NAME,
          ("immediate", "An option that acts when it is read."),
          ("<kind>", "What the option does: EolFlag, ReadFile, Message, NoBounds or Help."),
          HELPFLAG, GROUP,
          ("<text>", "The help text: the rest of the line.")]),
        ("new |",
         ["<name> <type>", NAME,
          ("<type>", "What the line defines, such as integer, enumstr or group.")]),
        (" one 1 F|irst", VALUE),
        (" gap_tol time|_limit", ["<option>", ("<option>", "The name of an option that stands above.")]),
        ("gap_tol |use",
         ["<option> <text>", ("<option>", "The name of an option or synonym."),
          ("<text>", "What users should do instead: the rest of the line.")]),
        (" How |near", ["<text>", ("<text>", "A line of long help.")]),
        ("x eolcomm |",
         ["<name> eolcomm <text>", NAME,
          ("eolcomm", "The characters that start a comment at the end of a line of an option file."),
          ("<text>", "The characters, one after the other without blanks.")]),
        ("* c|", None),
        ("x lookup |", LOOKUP),
        ("later enumint 1 2 1 1\n* c\n |", VALUE),
        ("a lookup|", LOOKUP),
        *((line, ["<option>", ("<option>", "The name of an option that stands above.")])
          for line in ("new multilist 1 1 1\n |", "new macro 1 1\n gap|"))):
    expect(f"the fields in {line!r}", fields(line), wanted)
expect("the fields below the first line", client.at("signatureHelp", MAIN, 1, 1, changes=["m macro 1 1\n a"])["signatures"][0]["label"],
       "<option>")
client.change(MAIN, TEXT)


def active(line):
    answer = asked(client, "signatureHelp", line)
    return answer["signatures"][0]["parameters"][answer["activeParameter"]]["label"]


for line, wanted in (
        ("|time_limit integer", "<name>"),
        ("time_limit| integer", "<name>"),
        ("time_limit |integer", "integer.OPT"),
        ("integer|.OPT", "integer.OPT"),
        ("integer.OPT| 2", "integer.OPT"),
        ("integer.OPT |2", "<reference number>"),
        ("OPT 2| 10", "<reference number>"),
        ("OPT 2 |10 0 100", "<default>"),
        ("OPT 2 10 |0 100 1 2", "<lowest value>"),
        ("0 100| 1 2 Time", "<highest value>"),
        ("0 100 |1 2 Time", "<help flag>"),
        ("100 1 |2 Time", "<group>"),
        ("100 1 2 |Time", "<text>"),
        ("100 1 2 Time|", "<text>"),
        (" |one 1 First", "<value>"),
        (" one| 1 First", "<value>"),
        (" one 1| First", "<help flag>"),
        (" one 1 |First", "<text>"),
        ("| gap_tol use", "<option>"),
        (" gap_tol| use", "<option>"),
        (" gap_tol use| time", "<text>"),
        ("timlim synonym|", "synonym"),
        ("timlim synonym |time", "<option>"),
        ("new strlist 1 |", "<help flag>"),
        ("new strlist 1|", "<reference number>")):
    expect(f"the field in {line!r}", active(line), wanted)
offsets = start(signatureHelp={"signatureInformation": {"parameterInformation": {"labelOffsetSupport": True}}})
expect("fields as places in the label", [each[0] for each in fields("gen|eral group", offsets)[1:]],
       [[0, 6], [7, 12], [13, 21], [22, 33], [34, 40]])
offsets.quit()

client.quit()
plain.quit()

finish()

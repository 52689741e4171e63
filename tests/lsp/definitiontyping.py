"""Completion and signature help in definitions: whole answers, in the short form of client.py.
usage: definitiontyping.py TOOL"""
import re

from client import expect, finish, items
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
for line in ("n in|t 1", "n in|t.", "n st|r integer"):
    expect(f"keywords in {line}", items(asked(client, "completion", line)), wanted)
expect("keywords as plain texts", items(asked(plain, "completion", "n in|t")), wanted)
seen = items(asked(client, "completion", "n in|t"))
expect("the first keyword at the end of a line", seen[0],
       (wanted[0][0], "15:2-15:5", "integer ${1:0} ${2:0} ${3:minint} ${4:maxint} ${5:1} ${6:7} ${7:Help text}",
        {**wanted[0][3], "insertTextFormat": 2}))
expect("keywords at the end of a line", [unmarked("${1:name} " + each[2]) for each in seen],
       [unmarked(line) if fields else "name " + word for word, meaning, fields, line in KEYWORDS])


# The items; those that are above only by what they are.
def completed(line):
    answer = asked(client, "completion", line)
    found = items(answer)
    above = {"new integer": "new lines", "integer": "keywords"}.get(found[0][0].partition(" [")[0] if found else "")
    return above or ["incomplete"] * answer["isIncomplete"] + found


for line, wanted in (
        ("P| lookup",
         [("Normal [14] -", "15:0-15:1", "Normal"), ("Path [14] -", "15:0-15:1", "Path"),
          ("Minos [14] -", "15:0-15:1", "Minos")]),
        ("new integer.|N 1",
         [("NV [14] The option takes no value: its name sets the default as the value.", "15:12-15:13", "NV"),
          ("OPT [14] The value may be left out: the name alone sets the default.", "15:12-15:13", "OPT"),
          ("TWO [14] The option takes two values; a single one sets both.", "15:12-15:13", "TWO")]),
        ("new integer.N|",
         [("NV [14] The option takes no value: its name sets the default as the value.", "15:12-15:13", "NV"),
          ("OPT [14] The value may be left out: the name alone sets the default.", "15:12-15:13", "OPT"),
          ("TWO [14] The option takes two values; a single one sets both.", "15:12-15:13", "TWO")]),
        ("new immediate K| 1 1",
         [("EolFlag [14] -", "15:14-15:15", "EolFlag"), ("ReadFile [14] -", "15:14-15:15", "ReadFile"),
          ("Message [14] -", "15:14-15:15", "Message"), ("NoBounds [14] -", "15:14-15:15", "NoBounds"),
          ("Help [14] -", "15:14-15:15", "Help")]),
        ("new strlist 1 |",
         [("1 [12] help lists it", "15:14-15:14", "1"), ("0 [12] help does not list it", "15:14-15:14", "0")]),
        ("new strlist 1 0 2|",
         [("1 [18] General options", "15:16-15:17", "1"), ("2 [18] Limits", "15:16-15:17", "2"),
          ("0 [12] no group: help does not list the option", "15:16-15:17", "0")]),
        ("new boolean 1 |", [("1 [12] yes", "15:14-15:14", "1"), ("0 [12] no", "15:14-15:14", "0")]),
        ("new double 1 |",
         [("maxdouble [12] 1e299", "15:13-15:13", "maxdouble"),
          ("mindouble [12] -1e299", "15:13-15:13", "mindouble"), ("eps [12] 1e-20", "15:13-15:13", "eps")]),
        ("new integer 1 |",
         [("maxint [12] 2147483647", "15:14-15:14", "maxint"),
          ("minint [12] -2147483648", "15:14-15:14", "minint")]),
        ('new string 1 |"a"', []),
        ("new enumint 1 2 1 1\n 5 |",
         [("1 [12] help lists it", "16:3-16:3", "1"), ("0 [12] help does not list it", "16:3-16:3", "0")]),
        ("new enumint 1 2 1 1\n |5",
         [("maxint [12] 2147483647", "16:1-16:2", "maxint"), ("minint [12] -2147483648", "16:1-16:2", "minint")]),
        ("new synonym |",
         [("gap_tol [18] double: Gap", "15:12-15:12", "gap_tol", {"data": {"option": 1, "uri": "solver.def"}}),
          ("time_limit [18] integer: Time", "15:12-15:12", "time_limit",
           {"data": {"option": 2, "uri": "solver.def"}}),
          ("word [18] enumstr: A word", "15:12-15:12", "word", {"data": {"option": 3, "uri": "solver.def"}}),
          ("both [18] multilist: Both", "15:12-15:12", "both", {"data": {"option": 4, "uri": "solver.def"}}),
          ("all [18] macro: All", "15:12-15:12", "all", {"data": {"option": 5, "uri": "solver.def"}}),
          ("show [18] immediate: Show", "15:12-15:12", "show", {"data": {"option": 6, "uri": "solver.def"}})]),
        ("new synonym gap_tol |", []),
        ("new synonym LI|M",
         [("time_limit [18] integer: Time", "15:12-15:15", "time_limit",
           {"data": {"option": 2, "uri": "solver.def"}})]),
        ("new multilist 1 1 1\n ti|",
         [("time_limit [18] integer: Time", "16:1-16:3", "time_limit",
           {"data": {"option": 2, "uri": "solver.def"}})]),
        ("new multilist 1 1 1\n gap_tlo|",
         ["incomplete",
          ("gap_tol [18] double: Gap", "16:1-16:8", "gap_tol",
           {"data": {"option": 1, "uri": "solver.def"}, "filterText": "gap_tlo"})]),
        ("new multilist 1 1 1 ti|", []),
        ("new macro 1 1\n gap|_tol",
         [("gap_tol [18] double: Gap", "16:1-16:8", "gap_tol", {"data": {"option": 1, "uri": "solver.def"}})]),
        ("new macro 1 1\n gap_tol gap|", []),
        ("new obsolete\n ti|m use",
         [("time_limit [18] integer: Time", "16:1-16:4", "time_limit",
           {"data": {"option": 2, "uri": "solver.def"}}),
          ("timlim [18] synonym", "16:1-16:4", "timlim", {"data": {"option": 2, "uri": "solver.def"}})]),
        ("new obsolete\n sho|",
         [("show [18] immediate: Show", "16:1-16:4", "show", {"data": {"option": 6, "uri": "solver.def"}})]),
        ("new obsolete\n time_limit ti|", []),
        ("new deprecated\n qqqqqq|", ["incomplete"]),
        (" gap_tol| time_limit",
         [("gap_tol [18] double: Gap", "9:1-9:8", "gap_tol", {"data": {"option": 1, "uri": "solver.def"}})]),
        ("a| integer", []),
        ("a| ", "new lines"),
        ("|* x", []),
        ("* |x", []),
        (" x|", ["incomplete"]),
        ("x lookup|", "keywords"),
        ("new integer.OPT 1 2|",
         [("maxint [12] 2147483647", "15:18-15:19", "maxint"),
          ("minint [12] -2147483648", "15:18-15:19", "minint")]),
        ("word eolcomm |", []),
        ("later integer |1 1",
         [("maxint [12] 2147483647", "15:14-15:15", "maxint"),
          ("minint [12] -2147483648", "15:14-15:15", "minint")]),
        ("new multilist 1 1 1\n| ti", []),
        ("new strlist 1 1 1\n x\nafter in|", "keywords"),
        ("new |", "keywords"),
        ("new\tin|t", "keywords"),
        ("n in| ", "keywords"),
        ("timlim synonym |time_limit",
         [("gap_tol [18] double: Gap", "5:15-5:25", "gap_tol", {"data": {"option": 1, "uri": "solver.def"}}),
          ("time_limit [18] integer: Time", "5:15-5:25", "time_limit",
           {"data": {"option": 2, "uri": "solver.def"}})]),
        ("timlim synonym time_limit |x", []),
        ("new multilist 1 1 1\n AL|",
         [("all [18] macro: All", "16:1-16:3", "all", {"data": {"option": 5, "uri": "solver.def"}})]),
        ("later integer 5 1 1 9 1 1 L\nnew synonym la|", [("later [18] integer: L", "16:12-16:14", "later")]),
        ("new integer.|",
         [("NV [14] The option takes no value: its name sets the default as the value.", "15:12-15:12", "NV"),
          ("OPT [14] The value may be left out: the name alone sets the default.", "15:12-15:12", "OPT"),
          ("TWO [14] The option takes two values; a single one sets both.", "15:12-15:12", "TWO")]),
        ("new strlist.|", []),
        ("new intger.|", []),
        ("new integer.OPT| 1",
         [("NV [14] The option takes no value: its name sets the default as the value.", "15:12-15:15", "NV"),
          ("OPT [14] The value may be left out: the name alone sets the default.", "15:12-15:15", "OPT"),
          ("TWO [14] The option takes two values; a single one sets both.", "15:12-15:15", "TWO")]),
        ("new multilist 1 1 1\n\tgap|", []),
        ("new synonym\tgap|\tx",
         [("gap_tol [18] double: Gap", "15:12-15:15", "gap_tol", {"data": {"option": 1, "uri": "solver.def"}})]),
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


for line, wanted in (
        ("time_limit |integer",
         ["<name> integer.OPT <reference number> <default> <lowest value> <highest value> <help flag> "
          "<group> <text>",
          ("<name>",
           "A letter, followed by letters, digits and underscores; a period before it for a dot option."),
          ("integer.OPT", "An option whose value is an integer within its bounds."),
          ("<reference number>", "A number for the client's own use: the library stores it and returns it."),
          ("<default>", "The value that the option has until another one is set."),
          ("<lowest value>", "The lowest value that is permitted."),
          ("<highest value>", "The highest value that is permitted."),
          ("<help flag>", "1 when help lists the option; 0 hides it from the help, but it can be used."),
          ("<group>",
           "The number of the group under which help lists the option; 0 for no group, which also hides it."),
          ("<text>", "The help text: the rest of the line.")]),
        ("gen|eral group",
         ["<name> group <number> <help flag> <text>",
          ("<name>",
           "A letter, followed by letters, digits and underscores; a period before it for a dot option."),
          ("group", "A group, which collects options in the help."),
          ("<number>", "The number by which options name the group."),
          ("<help flag>", "1 when help lists the group; 0 hides it with its options."),
          ("<text>", "The title of the group: the rest of the line.")]),
        ("timlim s|ynonym",
         ["<name> synonym <option>",
          ("<name>",
           "A letter, followed by letters, digits and underscores; a period before it for a dot option."),
          ("synonym", "Another name for an option that stands earlier in the file."),
          ("<option>", "The name of an option that stands above.")]),
        ("show| imm",
         ["<name> immediate <kind> <help flag> <group> <text>",
          ("<name>",
           "A letter, followed by letters, digits and underscores; a period before it for a dot option."),
          ("immediate", "An option that acts when it is read."),
          ("<kind>", "What the option does: EolFlag, ReadFile, Message, NoBounds or Help."),
          ("<help flag>", "1 when help lists the option; 0 hides it from the help, but it can be used."),
          ("<group>",
           "The number of the group under which help lists the option; 0 for no group, which also hides it."),
          ("<text>", "The help text: the rest of the line.")]),
        ("new |",
         ["<name> <type>",
          ("<name>",
           "A letter, followed by letters, digits and underscores; a period before it for a dot option."),
          ("<type>", "What the line defines, such as integer, enumstr or group.")]),
        (" one 1 F|irst",
         ["<value> <help flag> <text>", ("<value>", "The value as option files have it."),
          ("<help flag>", "1 when help lists the value; 0 hides it."),
          ("<text>", "The help text of the value: the rest of the line.")]),
        (" gap_tol time|_limit", ["<option>", ("<option>", "The name of an option that stands above.")]),
        ("gap_tol |use",
         ["<option> <text>", ("<option>", "The name of an option or synonym."),
          ("<text>", "What users should do instead: the rest of the line.")]),
        (" How |near", ["<text>", ("<text>", "A line of long help.")]),
        ("x eolcomm |",
         ["<name> eolcomm <text>",
          ("<name>",
           "A letter, followed by letters, digits and underscores; a period before it for a dot option."),
          ("eolcomm", "The characters that start a comment at the end of a line of an option file."),
          ("<text>", "The characters, one after the other without blanks.")]),
        ("* c|", None),
        ("x lookup |",
         ["<name> lookup",
          ("<name>",
           "A letter, followed by letters, digits and underscores; a period before it for a dot option."),
          ("lookup", "The name says how names are found: Normal, Path or Minos.")]),
        ("later enumint 1 2 1 1\n |",
         ["<value> <help flag> <text>", ("<value>", "The value as option files have it."),
          ("<help flag>", "1 when help lists the value; 0 hides it."),
          ("<text>", "The help text of the value: the rest of the line.")]),
        ("a lookup|",
         ["<name> lookup",
          ("<name>",
           "A letter, followed by letters, digits and underscores; a period before it for a dot option."),
          ("lookup", "The name says how names are found: Normal, Path or Minos.")]),
        ("new multilist 1 1 1\n |", ["<option>", ("<option>", "The name of an option that stands above.")])):
    expect(f"the fields in {line!r}", fields(line), wanted)


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

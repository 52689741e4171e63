"""Hover, jumps, uses, highlights, outline and actions in definitions: whole answers, in the short form of client.py.
usage: definitionanswers.py TOOL"""
from client import expect, explained, finish, path, short, uri, write
from definitiontext import MAIN, TEXT, asked, start

# In lookup mode Minos, option files may have blanks in names, and no underscores.
write("minos/minos.def", "Minos lookup\nmajor_print_level strlist 1 1 1 A\nlevel_one synonym major_print_level\n")
write("minos/minos.opt", "* definition: minos.def\nlevel one a\nmajor print level b\nlevel_one c\n")
client = start(documentSymbol={"hierarchicalDocumentSymbolSupport": True},
               codeAction={"codeActionLiteralSupport": {}}, hover={"contentFormat": ["plaintext", "markdown"]})
plain = start()  # of a client that can do nothing

# ---- hover: the range, and the text
hovered = lambda line: explained(asked(client, "hover", line), "markdown")
INTEGER = ("4:11-4:18",
           "`integer`\n\nAn option whose value is an integer within its bounds.\n\nThe fields are: name, "
           "integer, reference number, default, lowest value, highest value, help flag, group, text.\n")
OPT = ("4:19-4:22", "`OPT`\n\nThe value may be left out: the name alone sets the default.\n")
GAP = "**gap\\_tol**: Gap\n\nHow near is near enough.\n\n- type: number\n- range: 0 to 1\n- default: `0.1`\n" \
      "- group: general: General options\n- name: deprecated; use time\\_limit\n"
for line, wanted in (
        ("ge|neral group", ("0:0-0:7", "`general`: General options\n\ngroup 1, 4 options\n")),
        ("gap|_tol double", ("2:0-2:7", GAP)),
        ("gap_tol tim|e_limit",
         ("9:9-9:19",
          "**time\\_limit**: Time\n\n- type: integer, the value may be left out\n- range: 0 to 100\n- "
          "default: `10`\n- group: limits: Limits\n- synonyms: timlim\n")),
        ("tim|lim synonym",
         ("5:0-5:6",
          "`timlim`: a synonym\n\n**time\\_limit**: Time\n\n- type: integer, the value may be left out\n- "
          "range: 0 to 100\n- default: `10`\n- group: limits: Limits\n- synonyms: timlim\n")),
        ("timlim syn|onym",
         ("5:7-5:14", "`synonym`\n\nAnother name for an option that stands earlier in the file.\n")),
        ("time_limit |integer.OPT", INTEGER),
        ("integer|.OPT", INTEGER),
        ("integer.|OPT", OPT),
        ("integer.OPT|", OPT),
        ("OPT 2| 10",
         ("4:23-4:24",
          "reference number\n\nA number for the client's own use: the library stores it and returns it.\n")),
        ("word enumstr 3 one |1",
         ("6:19-6:20",
          "help flag\n\n1 when help lists the option; 0 hides it from the help, but it can be used.\n")),
        ("0 1 1 |1 Gap",
         ("2:27-2:28",
          "group\n\nThe number of the group under which help lists the option; 0 for no group, which also "
          "hides it.\n\n`general`: General options\n\ngroup 1, 4 options\n")),
        ("Message 1 |7",
         ("12:25-12:26",
          "group\n\nThe number of the group under which help lists the option; 0 for no group, which also "
          "hides it.\n")),
        ("yes boolean 9 |1 1 1 Y", ("15:14-15:15", "default\n\n1 for yes or 0 for no.\n")),
        (" one |1 First", ("7:5-7:6", "help flag\n\n1 when help lists the value; 0 hides it.\n")),
        ("A w|ord", None),
        ("use |time", None),
        ("How |near", None),
        ("new integer.X| 1", None),
        ("x in|dicator",
         ("15:2-15:11",
          "`indicator`\n\nThe name is the keyword with which indicator lines of option files begin.\n")),
        ("newname| integer 9 1 1 9 1 1 New `one`", ("15:0-15:7", "`newname`: New \\`one\\`\n")),
        ("timlim synonym | t", None),
        ("n|o lookup", None),
        ("new intger|", None),
        ("gap_tol| use", ("14:1-14:8", GAP)),
        ("|* x", None),
        ("|", None),
        ("new lookup 1 |1", None)):
    expect(f"hover over {line!r}", hovered(line), wanted)
hoveredplain = lambda line: explained(asked(plain, "hover", line), "plaintext")
for line, wanted in (
        ("gap|_tol double",
         ("2:0-2:7",
          "gap_tol: Gap\n\nHow near is near enough.\n\n- type: number\n- range: 0 to 1\n- default: 0.1\n- "
          "group: general: General options\n- name: deprecated; use time_limit\n")),
        ("tim|lim syn",
         ("5:0-5:6",
          "timlim: a synonym\n\ntime_limit: Time\n\n- type: integer, the value may be left out\n- range: 0 "
          "to 100\n- default: 10\n- group: limits: Limits\n- synonyms: timlim\n")),
        ("ge|neral group", ("0:0-0:7", "general: General options\n\ngroup 1, 4 options\n")),
        ("integer|.OPT",
         ("4:11-4:18",
          "integer\n\nAn option whose value is an integer within its bounds.\n\nThe fields are: name, "
          "integer, reference number, default, lowest value, highest value, help flag, group, text.\n")),
        ("integer.OP|T", ("4:19-4:22", "OPT\n\nThe value may be left out: the name alone sets the default.\n")),
        ("new_name| integer 9 1 1 9 1 1 New `one`", ("15:0-15:8", "new_name: New `one`\n"))):
    expect(f"plain hover over {line!r}", hoveredplain(line), wanted)

# ---- jumps, uses and highlights


def jump(line):
    answer = short(asked(client, "definition", line))
    return answer and (answer["uri"], answer["range"])


def highlighted(line):
    kinds = {2: "read", 3: "written"}
    answer = short(asked(client, "documentHighlight", line))
    return answer and [(kinds[each["kind"]], each["range"]) for each in answer]


def used(line, declared):
    answer = short(asked(client, "references", line, context={"includeDeclaration": declared}))
    return answer and [(each["uri"], each["range"]) for each in answer]


for line, wanted in (
        ("ge|neral group", ("solver.def", "0:0-0:7")),
        (" gap_|tol time_limit", ("solver.def", "2:0-2:7")),
        ("time|_limit\nall", ("solver.def", "4:0-4:10")),
        ("synonym time|_limit", ("solver.def", "4:0-4:10")),
        ("0 1 1 |1 Gap", ("solver.def", "0:0-0:7")),
        ("0 1 1 1| Gap", ("solver.def", "0:0-0:7")),
        ("0 1 1| 1 Gap", None),
        ("Message 1 |7", None),
        ("use ti|me_limit", None),
        ("tim|lim s", ("solver.def", "5:0-5:6")),
        ("new deprecated\n |timlim x", ("solver.def", "5:0-5:6")),
        ("new deprecated\n |later x\nlater integer 5 1 1 1 1 1 A", None),
        ("new macro 1 1\n GAP_|TOL", ("solver.def", "2:0-2:7")),
        ("new macro 1 1\n |timlim", None),
        ('new obsolete\n "gap_to|l" x', ("solver.def", "2:0-2:7"))):
    expect(f"jump from {line!r}", jump(line), wanted)
for line, wanted in (
        ("ge|neral group",
         [("written", "0:0-0:7"), ("read", "2:27-2:28"), ("read", "6:21-6:22"), ("read", "8:19-8:20"),
          ("read", "10:12-10:13")]),
        ("gap|_tol double",
         [("written", "2:0-2:7"), ("read", "9:1-9:8"), ("read", "11:1-11:8"), ("read", "14:1-14:8")]),
        ("tim|lim syn", [("written", "5:0-5:6")]),
        ("100 1 2|", [("written", "1:0-1:6"), ("read", "4:36-4:37")]),
        ("new synonym later\nlat|er strlist 1 1 1 A", [("written", "16:0-16:5")]),
        ("Path lookup\nx synonym tim_l|im",
         [("written", "4:0-4:10"), ("read", "5:15-5:25"), ("read", "9:9-9:19"), ("read", "16:10-16:17")]),
        ("Path lookup\nab strlist 1 1 1 A\nnew macro 1 1\n a|b", [("written", "16:0-16:2"), ("read", "18:1-18:3")]),
        ("Message 1 |7", None),
        ("A |word", None)):
    expect(f"highlights of {line!r}", highlighted(line), wanted)
for line, declared, wanted in (
        ("ge|neral group", True,
         [("solver.def", "0:0-0:7"), ("solver.def", "2:27-2:28"), ("solver.def", "6:21-6:22"),
          ("solver.def", "8:19-8:20"), ("solver.def", "10:12-10:13")]),
        ("time|_limit integer", True,
         [("solver.def", "4:0-4:10"), ("solver.def", "5:15-5:25"), ("solver.def", "9:9-9:19"),
          ("main.opt", "1:0-1:6"), ("main.opt", "2:0-2:10")]),
        ("tim|lim syn", True, [("solver.def", "5:0-5:6"), ("main.opt", "1:0-1:6")]),
        ("gap|_tol double", False,
         [("solver.def", "9:1-9:8"), ("solver.def", "11:1-11:8"), ("solver.def", "14:1-14:8"),
          ("main.opt", "0:0-0:7")]),
        ("100 1 2|", False, [("solver.def", "4:36-4:37")]),
        ("gap|_tol group 9 1 Gap", True, [("solver.def", "15:0-15:7")]),
        ("A |word", True, None)):
    expect(f"uses of {line!r}", used(line, declared), wanted)
client.open(path("minos/minos.def"))
client.diagnostics(path("minos/minos.def"))
expect("uses of a synonym in lookup mode Minos",
       short(client.at("references", path("minos/minos.def"), 2, 0, context={})),
       [{"range": "1:0-1:9", "uri": "minos.opt"}])
client.close(path("minos/minos.def"))

# ---- the outline

expect("the outline", short(asked(client, "documentSymbol", "|")),
       [{"name": "general", "detail": "group: General options", "kind": 3, "range": "0:0-0:33",
         "selectionRange": "0:0-0:7",
         "children": [{"name": "gap_tol", "detail": "double: Gap", "kind": 7, "range": "2:0-3:25",
           "selectionRange": "2:0-2:7", "tags": [1]},
          {"name": "word", "detail": "enumstr: A word", "kind": 10, "range": "6:0-7:12",
           "selectionRange": "6:0-6:4"},
          {"name": "both", "detail": "multilist: Both", "kind": 18, "range": "8:0-9:19",
           "selectionRange": "8:0-8:4"},
          {"name": "all", "detail": "macro: All", "kind": 12, "range": "10:0-11:8",
           "selectionRange": "10:0-10:3"}]},
        {"name": "limits", "detail": "group: Limits", "kind": 3, "range": "1:0-1:23",
         "selectionRange": "1:0-1:6",
         "children": [{"name": "time_limit", "detail": "integer: Time", "kind": 7, "range": "4:0-4:42",
           "selectionRange": "4:0-4:10",
           "children": [{"name": "timlim", "detail": "synonym", "kind": 7, "range": "5:0-5:25",
             "selectionRange": "5:0-5:6"}]}]},
        {"name": "show", "detail": "immediate: Show", "kind": 7, "range": "12:0-12:31",
         "selectionRange": "12:0-12:4"}])
expect("a list of symbols", short(asked(plain, "documentSymbol", "|")),
       [{"kind": 3, "location": {"range": "0:0-0:33", "uri": "solver.def"}, "name": "general"},
        {"kind": 3, "location": {"range": "1:0-1:23", "uri": "solver.def"}, "name": "limits"},
        {"containerName": "general", "kind": 7, "location": {"range": "2:0-3:25", "uri": "solver.def"},
         "name": "gap_tol"},
        {"containerName": "limits", "kind": 7, "location": {"range": "4:0-4:42", "uri": "solver.def"},
         "name": "time_limit"},
        {"containerName": "time_limit", "kind": 7, "location": {"range": "5:0-5:25", "uri": "solver.def"},
         "name": "timlim"},
        {"containerName": "general", "kind": 10, "location": {"range": "6:0-7:12", "uri": "solver.def"},
         "name": "word"},
        {"containerName": "general", "kind": 18, "location": {"range": "8:0-9:19", "uri": "solver.def"},
         "name": "both"},
        {"containerName": "general", "kind": 12, "location": {"range": "10:0-11:8", "uri": "solver.def"},
         "name": "all"},
        {"kind": 7, "location": {"range": "12:0-12:31", "uri": "solver.def"}, "name": "show"}])


expect("the outline of odd texts", short(client.at("documentSymbol", MAIN, 0, 0, [
    'a double 1 1 1 1 1 0 "x" \\ \u00e4\ng group 3 1 Tab\there \x01\nb strlist 1 1 3 \U0001f600\n'
    "x deprecated\n a\ny obsolete\n b\nc synonym none C \nz group 0 1\n"])),
       [{"name": "a", "detail": 'double: "x" \\ ä', "kind": 7, "range": "0:0-0:28", "selectionRange": "0:0-0:1",
         "tags": [1]},
        {"name": "g", "detail": "group: Tab\\x09here \\x01", "kind": 3, "range": "1:0-1:22",
         "selectionRange": "1:0-1:1",
         "children": [{"name": "b", "detail": "strlist: 😀", "kind": 18, "range": "2:0-2:18",
           "selectionRange": "2:0-2:1", "tags": [1]}]},
        {"name": "c", "detail": "synonym: C", "kind": 7, "range": "7:0-7:17", "selectionRange": "7:0-7:1"},
        {"name": "z", "detail": "group", "kind": 3, "range": "8:0-8:11", "selectionRange": "8:0-8:1"}])


# ---- names in the lookup modes, and names that stand twice: where the one at the cursor is defined


def leads(text):
    before = text.partition("|")[0]
    answer = client.at("definition", MAIN, before.count("\n"), len(before.rpartition("\n")[2]), [text.replace("|", "")])
    return answer and short(answer)["range"]


PATH = "Path lookup\nconv_tolerance strlist 1 1 1 A\ncon_tol_all strlist 1 1 1 B\n"
for text, wanted in (
        (PATH + "x synonym con_t|ol", "1:0-1:14"),
        (PATH + "x synonym con|v_tol_al", None),
        (PATH + "x synonym co|n_tol_all", "2:0-2:11"),
        (PATH + "m macro 1 1\n con_t|ol", None),
        (PATH + "m multilist 1 1 1\n con_t|ol", "1:0-1:14"),
        (PATH + "d deprecated\n con_to|l use", "1:0-1:14"),
        (PATH + "x synonym co|", None),
        ("Path lookup\nnormal lookup\npath strlist 1 1 1 A\nconv_tolerance strlist 1 1 1 A\nx synonym con_t|ol", None),
        ("a strlist 1 1 1 A\na strlist 1 1 1 B\nx synonym a|", "0:0-0:1"),
        ("a strlist 1 1 1 A\nx synonym A|\na strlist 1 1 1 B", "0:0-0:1"),
        ("x synonym a|\na strlist 1 1 1 A", None),
        ("a strlist 1 1 1 A\ns synonym a\nd obsolete\n s| use", "1:0-1:1"),
        ("a strlist 1 1 1 A\ns synonym a\nt synonym s|", None),
        ("d deprecated\n s| use\na strlist 1 1 1 A\ns synonym a", None),
        ("a strlist 1 1 9 A\ng group 9 1 G\nh group 9 1 H\nb strlist 1 1 9| B", "1:0-1:1"),
        ("g group |9 1 G", None),
        ("x\na strlist 1 1 1 A\nb synonym a|", "1:0-1:1"),
        ("Minos lookup\nmajor_print_level strlist 1 1 1 A\nx synonym majo_prin_leve|", "1:0-1:17"),
        ("minos lookup\nmajor_print_level strlist 1 1 1 A\nx synonym majo_prin_leve|", "1:0-1:17")):
    expect(f"what {text!r} leads to", leads(text), wanted)
client.change(MAIN, TEXT)
client.diagnostics(MAIN)

# ---- symbols of the workspace: those of the open definition and of the files, the best first

write("other.def", "general group 3 1 Others\ntime integer 1 1 1 9 1 3 Time\nshow_limits boolean 2 1 1 0 Show\n")
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(path("other.def")), "type": 1}]})
while len(client.request("workspace/symbol", {"query": "show"})) < 2:
    pass


def found(query):
    kinds = {3: "group", 7: "option", 10: "choice", 12: "macro", 18: "list"}
    return [(each["name"], kinds[each["kind"]], *short(each["location"]).values(), each.get("containerName"))
            for each in client.request("workspace/symbol", {"query": query})]


for query, wanted in (
        ("show",
         [("show", "option", "12:0-12:4", "solver.def", None),
          ("show_limits", "option", "2:0-2:11", "other.def", None)]),
        ("TIME",
         [("time", "option", "1:0-1:4", "other.def", "Others"),
          ("time_limit", "option", "4:0-4:10", "solver.def", "Limits")]),
        ("time-lim", [("time_limit", "option", "4:0-4:10", "solver.def", "Limits")]),
        ("limit",
         [("limits", "group", "1:0-1:6", "solver.def", None),
          ("show_limits", "option", "2:0-2:11", "other.def", None),
          ("time_limit", "option", "4:0-4:10", "solver.def", "Limits")]),
        ("gap_tol", [("gap_tol", "option", "2:0-2:7", "solver.def", "General options")]),
        ("ot",  # within a name before within a text
         [("both", "list", "8:0-8:4", "solver.def", "General options"), ("general", "group", "0:0-0:7", "other.def", None)]),
        ("tiem_limit", [("time_limit", "option", "4:0-4:10", "solver.def", "Limits")]),
        ("qqqq", []),
        ("a word", [("word", "choice", "6:0-6:4", "solver.def", "General options")]),
        ("macro", []),
        ("all", [("all", "macro", "10:0-10:3", "solver.def", "General options")])):
    expect(f"the symbols of {query!r}", found(query), wanted)
client.change(MAIN, "* not saved\n" + TEXT)
expect("a symbol below a new line", found("gap_tol"), [("gap_tol", "option", "3:0-3:7", "solver.def", "General options")])
client.open(path("like.opt"), "like strlist 1 1 1 A definition would have such a line\n")
expect("all symbols", len(found("")), 14)
many = path("many.def")
client.open(many, "".join(f"name_{number} integer 1 1 1 9 1 1 x\n" for number in range(1001)))
expect("very many symbols", len(client.request("workspace/symbol", {"query": "name_"})), 1000)
client.close(many)

# ---- actions: the title, the range and the new text


def actions(lines, first=None, last=None, client=client, **context):
    client.close(MAIN)
    client.open(MAIN, TEXT + lines)  # which is analysed at once
    client.diagnostics(MAIN)
    first = TEXT.count("\n") if first is None else first
    answer = client.at("codeAction", MAIN, 0, 0, context={"diagnostics": [], **context}, range={
        "start": {"line": first, "character": 0},
        "end": {"line": first + lines.count("\n") - 1 if last is None else last, "character": 0}})
    result = []
    for each in answer:
        expect("the kind of the action", each["kind"], "quickfix")
        [edit] = each["edit"]["changes"][uri(MAIN)]
        result.append((each["title"], short(edit["range"]), edit["newText"], *short(each.get("diagnostics", []))))
    return result


GROUP9 = ("Add a line for the group 9", "1:23-1:23", "\ngroup9 group 9 1 Group 9")
for lines, wanted in (
        ("new intger 1 0 0 1 1 1 New\n", [('Change to "integer"', "15:4-15:10", "integer")]),
        ("new multilist 1 1 1 New\n gap_tlo time_limti\n",
         [('Change to "gap_tol"', "16:1-16:8", "gap_tol"),
          ('Change to "time_limit"', "16:9-16:19", "time_limit")]),
        ("new strlist 1 1 9 New\n", [GROUP9]),
        ("new strlist 1 1 9 New\nother strlist 1 1 9 O\n", [GROUP9]),
        ("group9 group 8 1 Eight\nnew strlist 1 1 9 New\n",
         [("Add a line for the group 9", "15:22-15:22", "\ngroup9_ group 9 1 Group 9")]),
        ("new strlist 1 1 2 New\n", []),
        ("new synonym time_limi\n", [('Change to "time_limit"', "15:12-15:21", "time_limit")]),
        ("new obsolete\n gap_tlo x\n", [('Change to "gap_tol"', "16:1-16:8", "gap_tol")]),
        ("new strlist 1 1 0 New\n", []),
        ("new xyz 1\nother\n", [])):
    expect(f"actions for {lines!r}", actions(lines), wanted)
LINES = "new strlist 1 1 9 New\nother intger 1 1 8 O\nmore synonym gap_tlo\n"
known = lambda line: {"range": {"start": {"line": line, "character": 0}, "end": {"line": line, "character": 3}}}


def chosen(what, arguments):
    first, last, lines = (*arguments, [])[:3]
    return actions(LINES, first, last, diagnostics=[known(line) for line in lines])


for what, arguments, wanted in (
        ("the first line", (15, 15), [GROUP9]),
        ("the second line", (16, 16), [('Change to "integer"', "16:6-16:12", "integer")]),
        ("a line before", (14, 14), []),
        ("all lines", (0, 99),
         [('Change to "gap_tol"', "17:13-17:20", "gap_tol"),
          ('Change to "integer"', "16:6-16:12", "integer"),
          ("Add a line for the group 7", "1:23-1:23", "\ngroup7 group 7 1 Group 7"),
          GROUP9]),
        ("the diagnostics of the client", (15, 15, [15, 16]),
         [("Add a line for the group 9", "1:23-1:23", "\ngroup9 group 9 1 Group 9", {"range": "15:0-15:3"})])):
    expect(f"actions for {what}", chosen(what, arguments), wanted)
for only, wanted in ((["quickfix"], 1), (["refactor"], 0), ([], 1), ([""], 1), (["refactor", "quickfix"], 1), (7, 1)):
    expect(f"actions of the kinds {only}", len(actions("new intger 1\n", only=only)), wanted)
expect("actions for a client that does not know them", actions("new intger 1\n", client=plain), [])


# The new line for a group that a text needs.
def groupline(text):
    client.change(MAIN, text)
    client.diagnostics(MAIN)
    line = {"line": text.count("\n") - 1, "character": 0}
    [action] = client.at("codeAction", MAIN, 0, 0, range={"start": line, "end": line}, context={})
    expect("an action without diagnostics", list(action), ["edit", "kind", "title"])
    return short(action["edit"]["changes"][uri(MAIN)])


for text, wanted in (
        ("\nnew strlist 1 1 9 New\n", [{"newText": "group9 group 9 1 Group 9\n", "range": "1:0-1:0"}]),
        ("g group 1 1 G\r\nnew strlist 1 1 9 New\r\n",
         [{"newText": "\r\ngroup9 group 9 1 Group 9", "range": "0:13-0:13"}])):
    expect(f"a group line for {text!r}", groupline(text), wanted)

# ---- the rest of the requests

expect("no formatting of a range", client.at("rangeFormatting", MAIN, 0, 0), None)
expect("no hints", client.at("inlayHint", MAIN, 0, 0), None)
client.quit()
plain.quit()

finish()

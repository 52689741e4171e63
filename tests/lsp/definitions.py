"""Requests in definitions: completion, signature help, hover, jumps, outline, actions, formatting.
usage: definitions.py TOOL"""
import glob, os, random, subprocess, tempfile

from client import TOOL, Client, applied, expect, finish, uri

work = tempfile.TemporaryDirectory()
path = lambda name: os.path.join(work.name, name)
TEXT = """\
general group 1 1 General options
limits group 2 1 Limits
gap_tol double 1 0.1 0 1 1 1 Gap
time_limit integer.OPT 2 10 0 100 1 2 Time
word enumstr 3 one 1 1 A word
 one 1 First
both multilist 4 1 1 Both
 gap_tol time_limit
all macro 1 1 All
 gap_tol
timlim synonym time_limit
show immediate Message 1 7 Show
names deprecated
 gap_tol use time_limit
"""
with open(path("solver.def"), "w", encoding="utf-8") as file:
    file.write(TEXT)
with open(path("main.opt"), "w", encoding="utf-8") as file:
    file.write("gap_tol 0.5\ntimlim 3\ntime_limit 4\n")
SNIPPETS = {"textDocument": {"completion": {"completionItem": {"snippetSupport": True}},
                             "codeAction": {"codeActionLiteralSupport": {}},
                             "documentSymbol": {"hierarchicalDocumentSymbolSupport": True}}}
client = Client(work.name, SNIPPETS)
main = path("solver.def")
client.open(main)
client.diagnostics(main)


# Asks in a text whose "|" is the cursor; the text of the file is restored afterwards.
def asked(method, line, **more):
    text = TEXT + line
    before = text[:text.index("|")]
    client.change(main, text.replace("|", "", 1))
    result = client.at(method, main, before.count("\n"), len(before) - before.rfind("\n") - 1, **more)
    client.change(main, TEXT)
    return result


# ---- completion

for what, line, wanted in (
        ("keywords", "new in|", ["integer", "double", "string"]), ("modifiers", "new integer.|", ["NV", "OPT", "TWO"]),
        ("no modifier of a list", "new strlist.|", []), ("help flags", "new strlist 1 |", ["1", "0"]),
        ("groups", "new strlist 1 1 |", ["1", "2", "0"]), ("numbers", "new double 1 |", ["maxdouble", "mindouble", "eps"]),
        ("kinds", "new immediate |", ["EolFlag", "ReadFile", "Message", "NoBounds", "Help"]),
        ("modes", "P| lookup", ["Normal", "Path", "Minos"]), ("no text", "new strlist 1 1 1 te|", []),
        ("an option that a synonym stands for", "new synonym ti|", ["time_limit"]),
        ("an option of a list", "new multilist 1 1 1 New\n word ga|", ["gap_tol"]),
        ("an option of a macro: near names", "new macro 1 1 New\n gap_tlo|", ["gap_tol"]),
        ("an option of a macro: all above", "new macro 1 1 New\n |", ["gap_tol", "time_limit", "word"]),
        ("marks also name synonyms", "new obsolete\n tim|", ["time_limit", "timlim"]),
        ("no names in the text of a mark", "new obsolete\n timlim ti|", []),
        ("a comment", "* comment in|", [])):
    labels = [each["label"] for each in asked("completion", line)["items"]]
    expect(f"completion of {what}", labels[:len(wanted)] if wanted else labels, wanted)
titles = {each["label"]: each.get("detail") for each in asked("completion", "new strlist 1 1 |")["items"]}
expect("groups have their titles", (titles["1"], titles["2"]), ("General options", "Limits"))
lines = {each["label"]: each["textEdit"]["newText"] for each in asked("completion", "|")["items"]}
expect("a snippet", lines["new strlist"], "${1:name} strlist ${2:0} ${3:1} ${4:7} ${5:Help text}")

# ---- signature help: each field in its turn

client.change(main, TEXT + "new integer.OPT 1 2 0 9 1 1 Some text\n 1 long help\n")
seen, at = [], TEXT.count("\n")
for column in (0, 6, 12, 16, 18, 20, 22, 24, 26, 30):
    found = client.at("signatureHelp", main, at, column)
    seen.append(found["signatures"][0]["parameters"][found["activeParameter"]]["label"])
expect("the fields of an option", seen, ["<name>", "integer.OPT", "integer.OPT", "<reference number>", "<default>",
                                        "<lowest value>", "<highest value>", "<help flag>", "<group>", "<text>"])
expect("a missing field", asked("signatureHelp", "new strlist 1 |")["activeParameter"], 3)
expect("no signature of a comment", asked("signatureHelp", "* |"), None)

# ---- hover

client.change(main, TEXT)
for what, line, column, wanted in (
        ("an option", 3, 2, "time_limit"), ("an option in a list", 7, 10, "time_limit"), ("a group", 1, 0, "group 2, 1 option"),
        ("a keyword", 4, 6, "one of the texts"), ("a modifier", 3, 21, "may be left out"),
        ("a lowest value", 2, 21, "lowest value that is permitted"), ("the number of a group", 2, 27, "General options")):
    found = client.at("hover", main, line, column)
    expect(f"hover: {what}", found and wanted in found["contents"]["value"] or found, True)
expect("hover: text", client.at("hover", main, 2, 30), None)

# ---- jumps and references

for what, line, column, wanted in (
        ("a list's member", 7, 3, 2), ("a macro's member", 9, 3, 2), ("a synonym's option", 10, 18, 3),
        ("a marked option", 13, 3, 2), ("the number of a group", 3, 36, 1)):
    found = client.at("definition", main, line, column)
    expect(f"jump from {what}", found and found["range"]["start"]["line"], wanted)
expect("no jump from a text", client.at("definition", main, 13, 12), None)
places = lambda found: [(os.path.basename(each["uri"]), each["range"]["start"]["line"]) for each in found]
context = {"includeDeclaration": True}
expect("references of an option", places(client.at("references", main, 3, 0, context=context)),
       [("solver.def", 3), ("solver.def", 7), ("solver.def", 10), ("main.opt", 1), ("main.opt", 2)])
expect("references of a synonym", places(client.at("references", main, 10, 0, context={})), [("main.opt", 1)])
expect("references of a group", places(client.at("references", main, 1, 0, context={})), [("solver.def", 3)])

# ---- symbols

tree = client.at("documentSymbol", main, 0, 0)
shape = lambda symbols: [(each["name"], shape(each["children"])) if "children" in each else each["name"] for each in symbols]
expect("the outline", shape(tree), [("general", ["gap_tol", "word", "both", "all"]),
                                   ("limits", [("time_limit", ["timlim"])]), "show"])
for query, wanted in (("tol", ["gap_tol"]), ("TIME-LIM", ["time_limit"]), ("tiem_limit", ["time_limit"]), ("qqqq", [])):
    expect(f"the symbols of {query}", [each["name"] for each in client.request("workspace/symbol", {"query": query})], wanted)


# ---- actions

# The actions for a line.
def actions(line, **context):
    at = {"line": line, "character": 0}
    return client.at("codeAction", main, 0, 0, range={"start": at, "end": at}, context={"diagnostics": [], **context})


# The titles of the actions for a line, and the text after the first one.
def acted(line):
    client.change(main, TEXT + line)
    client.diagnostics(main)
    found = actions(TEXT.count("\n") + line.count("\n") - 1)
    edits = found[0]["edit"]["changes"][uri(main)] if found else []
    return [each["title"] for each in found], applied(TEXT + line, edits)[len(TEXT):] if found else None


expect("an unknown type", acted("new intger 1 0 0 1 1 1 New\n"),
       (['Change to "integer"'], "new integer 1 0 0 1 1 1 New\n"))
titles, after = acted("new macro 1 1 New\n gap_tlo\n")
expect("an unknown member", (titles[:1], after), (['Change to "gap_tol"'], "new macro 1 1 New\n gap_tol\n"))
expect("a missing group", acted("new strlist 1 1 9 New\n")[0], ["Add a line for the group 9"])
for text in (TEXT, TEXT.replace("\n", "\r\n")):
    client.change(main, text)
    expect("the line of a missing group", applied(text, actions(11)[0]["edit"]["changes"][uri(main)]),
           text.replace("gap_tol double", "group7 group 7 1 Group 7" + text[text.index("Limits") + 6:text.index("gap_tol")] +
                        "gap_tol double"))
expect("actions of another kind", actions(11, only=["refactor"]), [])

# ---- formatting


def formatted(text):
    client.change(main, text)
    return applied(text, client.at("formatting", main, 0, 0, options={"tabSize": 2, "insertSpaces": True}))


expect("columns", formatted("""\
* one   comment
a integer  10 1 0 maxint 1 1   Some  text,  as it is
long_name\tboolean 2 1 1 10 Another
 long   help
c enumstr 3 "a b" 1 1 Word
 "a b"   1  First
 c 0 Second
x  synonym  a  b

d   double 4, 1 1 1 1 1 A comma
e strlist 5 1
"""), """\
* one   comment
a         integer 10 1     0 maxint 1  1  Some  text,  as it is
long_name boolean  2 1              1 10  Another
 long   help
c         enumstr  3 "a b"          1  1  Word
 "a b" 1  First
 c     0  Second
x         synonym  a  b

d   double 4, 1 1 1 1 1 A comma
e strlist 5 1
""")


def run(*arguments):
    done = subprocess.run([TOOL, *arguments], capture_output=True, cwd=work.name)
    return done.returncode, done.stdout.decode(errors="replace")


# Formats the text, and returns what the commands say about it before and after.
def compared(text, *commands):
    after = formatted(text)
    expect("formatting again", formatted(after), after)
    if after == text:
        return None
    for name, content in (("before.txt", text), ("after.txt", after)):
        with open(path(name), "w", encoding="utf-8") as file:
            file.write(content)
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

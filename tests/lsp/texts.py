"""Documents: of which kind each is, its names, how places are counted in its text, and what is published about it.
usage: texts.py TOOL"""
import os, tempfile

from client import Client, expect, finish, folder, path, short, uri, write

DEFINITION = "threads integer 1 1 1 64 1 1 Threads\nname string 2 \"\" 1 1 Name\ngeneral group 1 1 General\n" \
             "read immediate ReadFile 1 1 Read\n"
write("solver.def", DEFINITION)
MAIN = path("main.opt")
client = Client(folder)

# ---- the kind of a document

OPTIONS, UNKNOWN = "threads 4\n", "plaintext"
for name, language, text, wanted in (
        ("a.opt", UNKNOWN, DEFINITION, "options"), ("a.def", UNKNOWN, OPTIONS, "definition"),
        ("a.txt", UNKNOWN, OPTIONS, "options"), ("a.txt", UNKNOWN, DEFINITION, "definition"),
        ("a.txt", UNKNOWN, "t integer.TWO 1 1 0 9 1 1", "definition"),
        ("a.def", "wexcorin-options", DEFINITION, "options"), ("a.opt", "wexcorin-definition", OPTIONS, "definition"),
        ("a", "wexcorin-options", DEFINITION, "options"), ("a", "wexcorin-definition", OPTIONS, "definition")):
    client.open(path(name), text, language)
    help = client.at("signatureHelp", path(name), 0, 0)  # which only definitions have
    expect(f"the kind of {name} in the language {language}", "definition" if help else "options", wanted)
    client.close(path(name))

# ---- names

os.mkdir(path("sub"))
write("sub/solver.def", DEFINITION)
for name, named in ((uri(MAIN), MAIN), (uri(MAIN).replace("file", "FILE"), MAIN), ("file:" + MAIN, MAIN),
                    ("file://host" + MAIN, MAIN), (uri(path("sub/../main.opt")), MAIN),
                    (uri(path("%41 ä+.opt")), path("%41 ä+.opt")), (uri(MAIN).replace("main", "m%61%69n"), MAIN),
                    (uri(folder) + "/%4x%4", path("%4x%4")), (uri(folder) + "/%g1", path("%g1")),
                    (uri(folder) + "/%", path("%")), (uri(folder) + "/%41%", path("A%")),
                    ("file:main.opt", None), ("files://" + MAIN, None), ("file://host", None), ("fil", None),
                    (uri(MAIN) + "%00", None)):
    client.versions[name] = 1
    client.notify("textDocument/didOpen", {"textDocument": {
        "uri": name, "languageId": "wexcorin-options", "version": 1, "text": "threads 0\n"}})
    message = client.until(lambda each: "diagnostics" in each.get("params", {}) and each["params"].get("version") == 1)
    expect(f"the name of {name}", message["params"]["uri"], name)
    # A line that includes the file leads to the document.
    client.open(path("other.opt"), f'read "{named or MAIN}"\n')
    client.diagnostics(path("other.opt"))
    answer = client.at("definition", path("other.opt"), 0, 8)
    expect(f"the file of {name}", answer and answer["uri"], named and name)
    client.close(path("other.opt"))
    client.notify("textDocument/didClose", {"textDocument": {"uri": name}})
outside = tempfile.TemporaryDirectory()
for file, wanted in ((MAIN, "main.opt"), (path("sub/x.opt"), "sub/x.opt"), (path("-"), path("-")), (folder, folder),
                     (outside.name + "/solver.opt", outside.name + "/solver.opt"), (path("...opt"), "...opt"),
                     ("untitled:x", "untitled:x")):
    client.open(file, "* definition: " + path("solver.def") + "\nthreads 2\n", "wexcorin-options")
    text = client.at("hover", file, 1, 0)["contents"]["value"]
    expect(f"the name of {file} in texts", f"- {wanted}:2 threads 2 stored 2\n" in text or text, True)
    client.close(file)
write("odd ä%[x]~-._.inc", "threads 0\n")
client.open(MAIN, 'read "odd ä%[x]~-._.inc"\n')
name = f"file://{folder}/odd%20%C3%A4%25%5Bx%5D~-._.inc"
expect("findings under the URI of a file", len(client.diagnostics(name)), 1)

# ---- places: a finding marks the value of "threads"; a return alone ends a line for the client, but not in the file


def marked(text, file=MAIN):
    client.close(MAIN)
    client.open(MAIN, text)
    return [short(each["range"]) for each in client.diagnostics(file)]



for text, wanted in (
        ("threads x\n", ["0:8-0:9"]), ("\r\nthreads x\r\n", ["1:8-1:9"]), ("\n\nthreads x", ["2:8-2:9"]),
        ("\rthreads x\r", ["0:0-1:9", "0:0-1:9"]), ("* a\r* b\r\nthreads x", ["2:8-2:9", "0:0-1:3"]),
        ("\r\n* a\rb\rc\nthreads x\r\n", ["4:8-4:9", "1:0-3:1"]), ("* a\nthreads x\r", ["1:8-1:9"]),
        ("* a\n\r\nthreads x", ["2:8-2:9"]),
        ("* a\r\n\r\nthreads x", ["2:8-2:9"]),
        ("name \u00e4\u20ac\U0001f600 \nthreads x", ["1:8-1:9"]), ("threads \u00e4", ["0:8-0:9"]),
        ("threads \u20ac", ["0:8-0:9"]), ("threads \U0001f600", ["0:8-0:10"]), ("threads \x7f\x80", ["0:8-0:10"])):
    expect(f"the place in {text!r}", marked(text), wanted)
for text, change, wanted in (
        ("* \u00e4\u20ac\nthreads 1", (0, 3, 1, 0, "\n"), "* \u00e4\nthreads 1"),
        ("a\r\nb", (0, 5, 1, 0, "-"), "a-b"), ("a\rb", (0, 9, 0, 9, "-"), "a-\rb"),
        ("a\rb\nc", (1, 0, 2, 0, ""), "a\rc"),
        ("ab", (0, 1, 7, 0, ""), "a"), ("ab", (-1, 0, 0, 1, ""), "b"), ("a\n", (1, 0, 1, 0, "b"), "a\nb"),
        ("\U0001f600b", (0, 1, 0, 2, ""), "b"), ("\U0001f600b", (0, 2, 0, 3, ""), "\U0001f600")):
    marked(text)
    symbols = client.at("documentSymbol", MAIN, 0, 0, [change])
    marked(wanted)
    expect(f"{text!r} after {change}", symbols, client.at("documentSymbol", MAIN, 0, 0))
marked("name " + "\u00e4" * 508)
expect("a line that is cut inside a character", short(client.at("documentSymbol", MAIN, 0, 0)[0]["location"]["range"]),
       "0:0-0:512")
# A byte that belongs to no character counts as one.
for data, units in ((b"\xff", 1), (b"\xc3", 1), (b"\xc3\xa4", 1), (b"\xc2\x80", 1), (b"\xc1\x81", 2), (b"\xe2\x82", 2),
                    (b"\xe0\xa4\x85", 1), (b"\xdf\xbf", 1), (b"\xef\xbf\xbd", 1), (b"\xf0\x9f\x98", 3),
                    (b"\xf0\x9f\x98\x80", 2), (b"\xf4\x80\x80\x80", 2), (b"\xf5\x80\x80\x80", 4), (b"\xe2(\xa1", 3),
                    (b"\xc3(", 2), (b"\xc3\xff", 2)):
    name = path(data.hex() + ".inc")
    write(name, b"threads " + data)
    expect(f"the place of {data}", marked(f'read "{name}"\n', name), [f"0:8-0:{8 + units}"])

# ---- a file that names definitions changes

THIRD = path("third.opt")
write("other.txt", DEFINITION.replace("threads", "cores"))
client.open(THIRD, "cores 3\n")
expect("the definition beside the file", len(client.diagnostics(THIRD)), 1)
write("wexcorin.json", '{"definitions": [{"files": "*.opt", "definition": "other.txt"}]}')
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(path("wexcorin.json")), "type": 2}]})
expect("the one that is named now", client.diagnostics(THIRD), [])
expect("the exit code", client.quit(), 0)

finish()

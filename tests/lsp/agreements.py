"""What client and server tell each other: capabilities, settings, folders, progress, and messages that are wrong. Whole
messages are compared.
usage: agreements.py TOOL"""
import os, re, subprocess, tempfile

from client import TOOL, Client, expect, finish, path, short, uri, write

write("one/solver.def", "threads integer 1 1 1 64 1 1 Threads\nname string 2 \"\" 1 1 Name\n"
      "general group 1 1 General\nread immediate ReadFile 1 1 Read\n")
write("two/other.def", "other integer 1 1 1 9 1 1 Other\nothers group 1 1 Others\n")
MAIN = path("one/main.opt")

# ---- capabilities

client = Client(path("one"))
expect("what the server can do", client.server, {
    "capabilities": {
        "codeActionProvider": {"codeActionKinds": ["quickfix"]},
        "completionProvider": {"resolveProvider": True, "triggerCharacters": [".", "=", " ", ":", "/", '"']},
        "definitionProvider": True, "documentFormattingProvider": True, "documentHighlightProvider": True,
        "documentRangeFormattingProvider": True, "documentSymbolProvider": True, "hoverProvider": True,
        "inlayHintProvider": True, "positionEncoding": "utf-16", "referencesProvider": True, "renameProvider": True,
        "signatureHelpProvider": {"triggerCharacters": [" "]},
        "textDocumentSync": {"change": 2, "openClose": True},
        "workspace": {"workspaceFolders": {"changeNotifications": True, "supported": True}},
        "workspaceSymbolProvider": True},
    "serverInfo": {
        "name": "wexcorin",
        "version": subprocess.run([TOOL, "--version"], capture_output=True).stdout.decode().split()[1]}})
client.quit()
client = Client(path("one"), {"general": {"positionEncodings": ["utf-16", "utf-8"]},
                              "textDocument": {"rename": {"prepareSupport": True}}})
expect("what else it can do", [client.server["capabilities"][each] for each in ("positionEncoding", "renameProvider")],
       ["utf-8", {"prepareProvider": True}])
client.quit()

# ---- messages that are wrong: the answer

client = Client(path("one"))
message = lambda body: b"Content-Length: %d\r\n\r\n%s" % (len(body), body)


# What the server says before it answers the next request.
def said(data):
    client.send_bytes(data)
    probe, messages = client.ask("probe", {}), []
    while not messages or messages[-1]["id"] != probe:
        messages.append(client.until(lambda each: "method" not in each))
        client.answers.pop(messages[-1]["id"])
    expect("the answer to an unknown request", messages.pop(),
           {"jsonrpc": "2.0", "id": probe, "error": {"code": -32601, "message": 'There is no request "probe"'}})
    return [(each["id"], each["error"]["code"], each["error"]["message"]) for each in messages]


BROKEN = [(None, -32700, "This is no header of a message; the next one is looked for")]
for data in (b"hello\r\n\r\n", b"hello", b"Content-Type: x\r\n\r\n",
             b"Content-Length: 1x\r\n\r\n", b"Content-Length: -1\r\n\r\n", b"Content-Length:\r\n\r\n",
             b"Content-Length: 99999999999999999999\r\n\r\n", b"Content-Length: 1073741825\r\n\r\n",
             b"Content-Length: 2\r\nno colon\r\n\r\n{}"):
    expect(f"{data}", said(data), BROKEN)
for body, id, code, text in (
        (b"7", None, -32600, "The message is no object"),
        (b"{", None, -32700, "The message is not JSON"),
        (b" " * 10, None, -32700, "The message is not JSON"),
        (b'{"id":1,"method":"\xff"}', None, -32700, "The message is not JSON"),
        (b"[" * 128 + b"]" * 128, None, -32600, "The message is no object"),
        (b"[" * 129 + b"]" * 129, None, -32700, "The message is nested too deep"),
        (b"{\"a\":" * 129 + b"1" + b"}" * 129, None, -32700, "The message is nested too deep"),
        (b"[" + b"[],{}," * 200 + b"1]", None, -32600, "The message is no object"),
        (b'["' + b"[" * 200 + b'\\"' + b"{" * 200 + b'"]', None, -32600, "The message is no object"),
        (b"]" * 3 + b"[" * 128, None, -32700, "The message is not JSON"),
        (b'{"id":true,"method":"x"}', None, -32600, "The id must be a number or a text"),
        (b'{"id":1.5,"method":"x"}', None, -32600, "The id must be a number or a text"),
        (b'{"id":94,"method":7}', 94, -32600, "The method must be a text"),
        (b'{"id":{},"method":7}', None, -32600, "The method must be a text"),
        (b'{"id":95}', 95, -32600, "The message is neither a request nor a response"),
        (b'{"id":[]}', None, -32600, "The message is neither a request nor a response"),
        (b'{"result":5}', None, -32600, "The message is neither a request nor a response"),
        (b'{"id":96,"method":"x","params":3}', 96, -32602, "The parameters must be an object or an array"),
        (b'{"id":97,"method":"x","params":[]}', 97, -32601, 'There is no request "x"'),
        (b'{"id":-9,"method":"\xc3\xa4"}', -9, -32601, 'There is no request "\u00e4"'),
        (b'{"id":"a\\"b","method":"x"}', 'a"b', -32601, 'There is no request "x"')):
    expect(f"{body[:50]}", said(message(body)), [(id, code, text)])
expect("another order and case of the header",
       said(b"Other: 2\r\ncontent-LENGTH:  1 \r\n\r\n7"), [(None, -32600, "The message is no object")])
padded = lambda length: b"Pad: " + b"x" * (length - 28) + b"\r\nContent-Length: 1\r\n\r\n7"
NOOBJECT = [(None, -32600, "The message is no object")]
expect("a header of 4 KiB", said(padded(4096)), NOOBJECT)
expect("a longer header", said(padded(4097)), BROKEN + NOOBJECT)
for begin, rest in (b"Conte", b"nt-Length: 1\r\n\r\n7"), (b"Content-Lengt", b"h: 1\r\n\r\n7"):
    client.send_bytes(b"hello\r\n\r\n" + begin)
    expect("the beginning of the next header: so far", client.receive()["error"]["message"], BROKEN[0][2])
    expect(f"the beginning of the next header, {begin}", said(rest), NOOBJECT)
for body in (b'{"method":"x","params":3}', b'{"id":77,"result":3}', b'{"id":77,"error":{}}', b'{"id":null,"result":1}'):
    expect(f"no answer to {body}", said(message(body)), [])
HOVER, OPEN = {"textDocument": {"uri": uri(MAIN)}}, {"uri": uri(MAIN), "languageId": "x", "version": 1, "text": ""}
for what, method, params, code, text in (
        ("a document that is not open", "textDocument/hover", HOVER, -32602, "The document is not open"),
        ("a second initialize", "initialize", {}, -32600, "The server is initialized")):
    expect(what, client.request(method, params), {"code": code, "message": text})
for wrong in ({"uri": 7}, {"text": None}):
    client.notify("textDocument/didOpen", {"textDocument": {**OPEN, **wrong}})
expect("a document without a text or a name is not opened", client.request("textDocument/hover", HOVER)["code"], -32602)
client.notify("textDocument/didChange", {"textDocument": {"uri": uri(MAIN), "version": 2}, "contentChanges": []})
client.notify("textDocument/didClose", {"textDocument": {"uri": uri(MAIN)}})
client.notify("$/cancelRequest", {"id": None})
TOOLONG = [(None, -32600, "The message is longer than 64 MiB")]
expect("a message that is too long", said(message(b" " * (64 * 1024 * 1024 + 1))), TOOLONG)
client.request("shutdown", None)
expect("a request after shutdown", client.request("textDocument/hover", HOVER),
       {"code": -32600, "message": "The server has been shut down"})
client.send_bytes(b"Content-Length: 1073741824\r\n\r\n")
expect("the longest length", short(client.receive()["error"]["message"]), TOOLONG[0][2])
client.end()
client = Client(path("one"), start=False)
expect("a request before initialize", client.request("textDocument/hover", HOVER),
       {"code": -32002, "message": "The first request must be initialize"})
client.send_bytes(b"Content-Length: 67108864\r\n\r\n")
client.process.stdin.close()
expect("a length that is not too long is waited for", client.receive(), None)
# ---- what the server asks of a client, and its progress

CAPABLE = {"workspace": {"configuration": True, "didChangeWatchedFiles": {"dynamicRegistration": True},
                         "didChangeConfiguration": {"dynamicRegistration": True}},
           "window": {"workDoneProgress": True}}
client = Client(path("one"), CAPABLE)
progress = lambda: [each["params"] for each in client.notes if each["method"] == "$/progress"]
scanned = lambda: [each for each in progress() if each["value"] == {"kind": "end"}]


# Waits until the folders have been looked through so often.
def scans(count):
    while len(scanned()) < count:
        client.until(lambda each: True)


symbols = lambda query: [each["name"] for each in client.request("workspace/symbol", {"query": query})]
scans(1)
expect("what it asks", [(each["method"], each["params"]) for each in client.asked], [
    ("client/registerCapability", {"registrations": [
        {"id": "files", "method": "workspace/didChangeWatchedFiles", "registerOptions": {"watchers": [
            {"globPattern": "**/*.opt"}, {"globPattern": "**/*.def"}, {"globPattern": "**/wexcorin.json"}]}},
        {"id": "settings", "method": "workspace/didChangeConfiguration",
         "registerOptions": {"section": "wexcorin"}}]}),
    ("workspace/configuration", {"items": [{"section": "wexcorin"}]}),
    ("window/workDoneProgress/create", {"token": "folders-1"})])
expect("its requests have numbers", [each["id"] for each in client.asked], [1, 2, 3])
expect("its progress", progress(), [
    {"token": "folders-1", "value": {"kind": "begin", "title": "Looking for option files", "cancellable": True}},
    {"token": "folders-1", "value": {"kind": "end"}}])
expect("symbols", (symbols("thre"), symbols("other")), (["threads"], []))

# ---- folders come and go

change = lambda added, removed: client.notify("workspace/didChangeWorkspaceFolders", {"event": {
    "added": [{"uri": uri(path(each)) + "/", "name": each} for each in added],
    "removed": [{"uri": uri(path(each)), "name": each} for each in removed]}})
change(["two"], [])
scans(2)
expect("two folders", (symbols("thre"), symbols("other")), (["threads"], ["other", "others"]))
change([], ["one"])
scans(3)
expect("the other folder", (symbols("threads"), symbols("other")), ([], ["other", "others"]))


# Changes the folders; the client cancels the progress before the server begins.
def cancelled(token, change):
    number = len(client.asked)
    change()
    while len(client.asked) == number:
        message = client.receive()
        if message.get("method") == "window/workDoneProgress/create":
            client.notify("window/workDoneProgress/cancel", {"token": token})
            client.asked.append(message)
            client.send({"jsonrpc": "2.0", "id": message["id"], "result": None})


cancelled("folders-4", lambda: change(["one"], []))
scans(4)
expect("a search that was cancelled", (symbols("threads"), symbols("other")), ([], ["other", "others"]))
cancelled("folders-4", lambda: change([], []))
scans(5)
expect("another one, with the number of the earlier one", (symbols("thre"), symbols("other")),
       (["threads"], ["other", "others"]))
write("two/more.def", "more integer 1 1 1 9 1 1 More\n")
for hidden in (".git", "node_modules", "__pycache__", "packages", "/".join("abcdefghijklmnopqrstuvwx"),
               "/".join("abcdefghijklmnopqrstuvwxy")):  # 24 folders, and 25
    write(f"two/{hidden}/x.def", f"found_{len(hidden)} integer 1 1 1 9 1 1 X\n")
for number in range(300):
    write(f"two/many/{number}.def", f"many_{number} integer 1 1 1 9 1 1 X\n")
os.mkdir(path("two/folder.def"))
changed = lambda name, kind: client.notify("workspace/didChangeWatchedFiles", {
    "changes": [{"uri": uri(path(name)), "type": kind}]})
changed("two/more.def", 2)
expect("a file that changes is no new one", symbols("more"), [])
changed("two/more.def", 1)
scans(6)
expect("a new file", symbols("more"), ["more"])
expect("a folder of many files", len(symbols("many_")), 300)
expect("folders that are left out", symbols("found_"), ["found_47", "found_8"])
os.remove(path("two/more.def"))
expect("a file that is just gone", symbols("more"), [])
changed("two/more.def", 3)
scans(7)
expect("a file that is gone", symbols("more"), [])
change([], ["one", "two"])
client.notify("workspace/didChangeWorkspaceFolders", {"event": {"added": [{"uri": "untitled:x"}], "removed": []}})
expect("no folder", (symbols("threads"), symbols("other")), ([], []))
expect("all searches ended", len(scanned()), 7)
client.refused = ["window/workDoneProgress/create"]
change(["two"], [])
while not symbols("other"):
    pass
expect("no progress if the client refuses it", len(progress()), 14)
client.quit()
for what, parameters, wanted in (
        ("the root as a URI", {"rootUri": uri(path("one")), "rootPath": path("two")}, "threads"),
        ("the root as a path", {"rootPath": path("two")}, "other"),
        ("folders before the root",
         {"workspaceFolders": [{"uri": uri(path("one")) + "//"}], "rootUri": uri(path("two"))}, "threads")):
    client = Client(path("one"), **{"workspaceFolders": None, **parameters})
    while not symbols(""):
        pass
    expect(what, [each for each in ("threads", "other") if symbols(each)], [wanted])
    client.quit()

# ---- what the server tells of failures, and its traces

client = Client(path("none"), trace="verbose")
tells = lambda: (lambda note: (note["method"], note["params"]))(client.until(lambda each: "id" not in each))
write("one/main.opt", "threads 1\nthreads 2\n")
expect("a folder that is not there", client.notes[:1], [
    {"jsonrpc": "2.0", "method": "window/logMessage",
     "params": {"type": 1, "message": "Cannot enter the folder " + path("none")}}])
client.request("textDocument/hover", HOVER)
timed = lambda: re.sub(r"\d+", "5", client.until(lambda each: each.get("method") == "$/logTrace")["params"]["message"])
expect("a trace", timed(), "textDocument/hover: 5 microseconds")
for value, traced in (("off", 0), ("messages", 1), ("nonsense", 0), ("verbose", 1)):
    client.notify("$/setTrace", {"value": value})
    seen = len(client.notes)
    client.request("textDocument/hover", HOVER)
    client.request("textDocument/hover", HOVER)  # the trace of the first one comes before this answer
    expect(f"traces if {value}", len(client.notes) - seen, traced)
    if traced:
        timed()
client.notify("$/setTrace", {"value": "off"})
client.open(MAIN, "threads 1\n")
client.diagnostics(MAIN)
for what, changes in (("an end before its beginning", (0, 5, 0, 2, "x")), ("no text", (0, 0, 0, 0, None))):
    client.change(MAIN, changes)
    expect(f"a change with {what}", client.until(lambda each: "id" not in each)["params"],
           {"type": 1, "message": f"A change of {uri(MAIN)} makes no sense"})
client.change(MAIN, (0, 0, 0, 7, "unknown"))
expect("the text is as it was", short(client.diagnostics(MAIN)[0]["range"]), "0:0-0:7")
client.quit()

# ---- settings: the lines with findings

LINES = "threads 1\nthreads 2\nthreads 3\nunknown 1\nunknown 2\nunknown 3\n"
write("three.def", "unknown integer 1 1 1 9 1 1 Known here\ng group 1 1 G\n")
ALL, NOWHERE = [1, 2, 3, 4, 5], tempfile.TemporaryDirectory()
client = Client(path("one"))
client.open(MAIN, LINES)
lines = lambda file=MAIN: [each["range"]["start"]["line"] for each in client.diagnostics(file)]
expect("all findings", lines(), ALL)
for settings, wanted in (
        ({"allow": ["set-again"]}, [3, 4, 5]), ({"wexcorin": {"allow": ["set-again"]}}, [3, 4, 5]),
        ([{"allow": ["set-again"]}], [3, 4, 5]), ([], [3, 4, 5]), (None, [3, 4, 5]), ([None], [3, 4, 5]), ({}, ALL),
        ({"allow": ["unknown-option", "nonsense", 7]}, ALL), ({"limit": 2}, [1, 2, 3, 4]), ({"limit": 0}, ALL),
        ({"limit": 1}, [1, 3]), ({"limit": -1}, ALL), ({"limit": 1, "allow": ["set-again"]}, [3]),
        ({"limit": "1"}, ALL), ({"allow": "set-again"}, ALL), ({"limit": 2}, [1, 2, 3, 4]), ([7], ALL)):
    client.notify("workspace/didChangeConfiguration", {"settings": settings})
    client.close(MAIN)
    client.open(MAIN, LINES)  # which is analysed at once
    expect(f"findings with the settings {settings}", lines(), wanted)
client.quit()
alone = os.path.join(NOWHERE.name, "alone.opt")
client = Client(NOWHERE.name, initializationOptions={"definition": path("three.def")})
client.open(alone, "unknown 1\n")
expect("the definition of the settings", client.diagnostics(alone), [])
client.notify("workspace/didChangeConfiguration", {"settings": {}})
expect("without it", [(each["code"], short(each["range"])) for each in client.diagnostics(alone)],
       [("no-definition", "0:0-0:9")])
client.open(alone, "* definition: " + path("one/solver.def") + "\nunknown 1\n")
expect("a definition that the file names comes first", [each["code"] for each in client.diagnostics(alone)],
       ["unknown-option"])
client.quit()
client = Client(path("one"), CAPABLE, {"allow": ["set-again"]})
client.open(MAIN, LINES)
while lines() != [3, 4, 5]:
    pass
client.refused = ["workspace/configuration"]
client.notify("workspace/didChangeConfiguration", {"settings": {"allow": []}})
client.until(lambda each: each.get("method") == "workspace/configuration")
client.change(MAIN, LINES)
expect("settings that the client refuses to give", lines(), [3, 4, 5])

# ---- included files are watched by their names

for name in ("a*?[]{},!\\b.inc", "c.opt", "sub/d.def", "e.inc"):
    write("one/" + name, "name x\n")
watched = lambda: [each["params"]["registrations"] for each in client.asked
                   if each["method"] == "client/registerCapability"][1:]
client.change(MAIN, "read \"a*?[]{},!\\b.inc\"\nread c.opt\nread sub/d.def\nread none.inc\n")
client.diagnostics(MAIN)
patterns = lambda *names: {"watchers": [{"globPattern": "**/" + each} for each in names]}
registered = lambda number, *names: [{"id": f"files included {number}", "method": "workspace/didChangeWatchedFiles",
                                      "registerOptions": patterns(*names)}]
expect("included files", watched(), [registered(2, "a?????????b.inc", "none.inc")])
client.change(MAIN, "read none.inc\nread e.inc\n")
client.diagnostics(MAIN)
expect("further ones", watched()[1:], [registered(3, "e.inc")])
write("one/f.inc", "")
client.open(path("one/main.txt"), "read f.inc\n", "wexcorin-options")
client.diagnostics(path("one/main.txt"))
expect("not the file itself", watched()[2:], [registered(4, "f.inc")])
client.quit()

# ---- the client's process

for process in (0, -1, 2147483648, 2**64 - 1, "1", None, 1.5):
    client = Client(path("one"), start=False)
    client.request("initialize", {"processId": process, "capabilities": {}})
    expect(f"a client with the number {process}", client.quit(), 0)
ended = subprocess.Popen(["true"])
ended.wait()
client = Client(path("one"), start=False)
client.ask("initialize", {"processId": ended.pid, "capabilities": {}})
expect("a client that is gone already", client.process.wait(10), 1)

finish()

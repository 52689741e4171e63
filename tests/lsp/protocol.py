"""The language server as such: its life, its messages, documents and their positions.
usage: protocol.py TOOL"""
import os, subprocess, tempfile

from client import Client, expect, finish, uri

work = tempfile.TemporaryDirectory()
DEFINITION = "threads integer 1 1 1 64 1 1 Threads to use\nname string 2 \"\" 1 1 Name of the run\n" \
             "read immediate ReadFile 1 1 Read another file\ngeneral group 1 1 General\n"


def write(name, text):
    path = os.path.join(work.name, name)
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(text)
    return path


# ---- the life of the server

write("solver.def", DEFINITION)
main = write("main.opt", "threads 4\n")
client = Client(work.name, start=False)
code = lambda method, params=None: client.request(method, params).get("code")
expect("a request before initialize", code("textDocument/hover", {}), -32002)
client.notify("textDocument/didOpen", {"nonsense": True})
client.send({"jsonrpc": "2.0", "id": "words", "method": "initialize", "params": {"capabilities": {}}})
expect("an id may be a text", "capabilities" in client.answer("words")["result"], True)
expect("a second initialize", code("initialize", {}), -32600)
expect("an unknown request", code("textDocument/unknown", {}), -32601)
expect("a document that is not open", code("textDocument/hover", {"textDocument": {"uri": "file:///x"}}), -32602)
expect("shutdown", client.request("shutdown", None), None)
expect("a request after shutdown", code("textDocument/hover", {}), -32600)
client.notify("exit", None)
expect("the exit code after shutdown", client.end(), 0)

client = Client(work.name)
client.notify("exit", None)
expect("the exit code without shutdown", client.end(), 1)
client = Client(work.name)
expect("the exit code at the end of input", client.end(), 1)

# ---- messages that are none

client = Client(work.name)
for what, data in (
        ("no header", b"hello\r\n\r\n"), ("no length", b"Content-Type: x\r\n\r\n"),
        ("a length that is none", b"Content-Length: ten\r\n\r\n"), ("a header without end", b"x" * 5000),
        ("words before the next header", b"hello")):
    client.send_bytes(data)
    unknown = client.ask("unknown", {})
    expect(f"{what}: answer", client.answer(None)["error"]["code"], -32700)
    expect(f"the request behind {what}", client.answer(unknown)["error"]["code"], -32601)
for what, body, wanted in (
        ("no JSON", b"{", -32700), ("bytes that are not UTF-8", b'{"jsonrpc":"2.0","id":1,"method":"\xff"}', -32700),
        ("deep JSON", b"[" * 1000 + b"]" * 1000, -32700), ("a batch", b"[]", -32600), ("a number", b"7", -32600),
        ("no method", b'{"jsonrpc":"2.0","id":8}', -32600), ("an id of a wrong type", b'{"id":{},"method":"x"}', -32600),
        ("parameters of a wrong type", b'{"id":9,"method":"x","params":3}', -32602)):
    client.send_bytes(b"Content-Length: %d\r\n\r\n%s" % (len(body), body))
    answer = client.until(lambda each: "method" not in each)
    expect(what, (answer["error"]["code"], answer["id"]), (wanted, {"no method": 8}.get(what, 9 if wanted == -32602 else None)))
client.send_bytes(b"content-length: 10\r\nContent-Type: text\r\n\r\n" + b" " * 10)
client.answer(None)

# ---- documents: what the client sees after changes is what the server has

client.open(main)
expect("no findings", client.diagnostics(main), [])


# The line and the columns of the only finding.
def only():
    found = client.diagnostics(main)
    if len(found) != 1:
        return f"{len(found)} findings"
    span = found[0]["range"]
    return span["start"]["line"], span["start"]["character"], span["end"]["character"]


for what, changes, wanted in (
        ("a whole text", ("thread 4\n",), (0, 0, 6)),
        ("a line before it", ((0, 0, 0, 0, "* comment\n"),), (1, 0, 6)),
        ("two changes, the second on top of the first", ((0, 0, 1, 0, ""), (0, 0, 0, 0, "name x\n\n")), (2, 0, 6)),
        ("lines that end in CR LF", ("name x\r\nthread 4\r\n",), (1, 0, 6)),
        ("a text behind the end of the line and of the text", ((0, 99, 0, 99, "y"), (9, 9, 9, 9, "* z")), (1, 0, 6)),
        ("a place inside a character is its beginning", ("* 😀thread 4", (0, 0, 0, 3, "* ")), "0 findings"),
        ("characters of one and two units", ("* ä😀thread 4", (0, 0, 0, 5, "")), (0, 0, 6))):
    client.change(main, *changes)
    expect(what, only(), wanted)
client.close(main)
os.symlink(work.name, work.name + "/link")
for name in (main, "untitled:Untitled-1", "file:" + main, "file://localhost" + main, work.name + "/link/main.opt",
             work.name + "/ä %20.opt"):
    client.open(name, "thread 4", "wexcorin-options")
    expect(f"findings in {name}", len(client.diagnostics(name)), 1)
    client.close(name)
    expect(f"{name} is closed and has no findings", client.diagnostics(name), [])
expect("the exit code", client.quit(), 0)

# ---- what client and server agree on

client = Client(work.name, {"general": {"positionEncodings": ["utf-8", "utf-16"]}})
expect("positions in UTF-8", client.server["capabilities"]["positionEncoding"], "utf-8")
client.open(main, "* ä😀\n")
client.diagnostics(main)
client.change(main, (0, 0, 0, 8, "thread 4"))
expect("a change in UTF-8", only(), (0, 0, 6))
client.quit()

CAPABLE = {"workspace": {"configuration": True, "didChangeWatchedFiles": {"dynamicRegistration": True},
                         "didChangeConfiguration": {"dynamicRegistration": True}, "inlayHint": {"refreshSupport": True}},
           "window": {"workDoneProgress": True}}
client = Client(work.name, CAPABLE, {"allow": ["set-again"]}, trace="messages")
client.open(main, "threads 1\nthreads 2\n")
while client.diagnostics(main):
    pass
steps = lambda: [each["params"]["value"]["kind"] for each in client.notes if each["method"] == "$/progress"]
while "end" not in steps():
    client.until(lambda each: True)
expect("what the server asks", sorted(each["method"] for each in client.asked),
       ["client/registerCapability", "window/workDoneProgress/create", "workspace/configuration"])
expect("its progress", steps(), ["begin", "end"])
client.settings = {}
client.notify("workspace/didChangeConfiguration", {"settings": None})
expect("the settings are asked for again", len(client.diagnostics(main)), 1)
refreshed = lambda: [each["method"] for each in client.asked].count("workspace/inlayHint/refresh")
expect("other settings leave the hints", refreshed(), 0)
client.settings = {"inlayHints": True}
client.notify("workspace/didChangeConfiguration", {"settings": None})
client.until(lambda each: each.get("method") == "workspace/inlayHint/refresh")
write("solver.def", DEFINITION.replace("integer 1 1", "integer 1 2"))
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(work.name + "/solver.def"), "type": 2}]})
client.until(lambda each: each.get("method") == "workspace/inlayHint/refresh")
expect("the client shows hints again: for the setting, and for another default", refreshed(), 2)
client.request("textDocument/unknown", {})
client.until(lambda each: each.get("method") == "$/logTrace")
part = write("part[1].inc", "threads 3\n")
client.change(main, "read part[1].inc\n")
registered = client.until(lambda each: each.get("method") == "client/registerCapability")["params"]["registrations"]
expect("an included file with another ending is watched",
       [each["registerOptions"]["watchers"] for each in registered], [[{"globPattern": "**/part?1?.inc"}]])
client.change(main, "read part[1].inc\nthreads 4\n")
client.diagnostics(main)
write("part[1].inc", "threads none\n")
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(part), "type": 2}]})
expect("its findings", [each["code"] for each in client.diagnostics(part)], ["value"])
expect("it is watched once", len([each for each in client.asked if each["method"] == "client/registerCapability"]), 2)
client.quit()

# ---- requests that are cancelled, and several at once

client = Client(work.name)
client.open(main, "thread 1\n" * 10000)
place = {"textDocument": {"uri": uri(main)}, "position": {"line": 0, "character": 1}}
kept, cancelled = client.ask("textDocument/hover", place), client.ask("textDocument/hover", place)
client.notify("$/cancelRequest", {"id": cancelled})
client.notify("$/cancelRequest", {"id": 999})
expect("a request that is not cancelled waits for the first analysis", "result" in client.answer(kept), True)
expect("a request that is cancelled", client.answer(cancelled)["error"]["code"], -32800)
client.close(main)
client.open(main, "thread 1\n" * 10000)
late = client.ask("textDocument/hover", place)
client.close(main)
expect("a request on a document that is closed meanwhile", "id" in client.answer(late), True)
client.notify("$/cancelRequest", {"id": late})
client.open(main, "thread 1\n" * 10000)
waiting = client.ask("textDocument/hover", place)
expect("shutdown while a request waits", client.request("shutdown", None), None)
expect("the request that waited", client.answer(waiting)["error"]["code"], -32600)
expect("nothing is said after shutdown", client.receive(0.3), None)
client.notify("exit", None)
expect("the exit code", client.end(), 0)

# ---- many edits

if not {"ASAN_OPTIONS", "TSAN_OPTIONS"} & set(os.environ):  # sanitizers keep memory that was freed
    client = Client(work.name)
    client.open(main, "thread 1\n" * 100)


    # The memory of the server in KiB, after 5,000 edits.
    def edited():
        for number in range(5000):
            client.change(main, (number % 100, 0, number % 100, 6 + number // 100 % 2, "threads"[:7 - number // 100 % 2]))
        client.request("textDocument/hover", place)
        with open(f"/proc/{client.process.pid}/status") as status:
            return int(status.read().split("VmRSS:")[1].split()[0])


    before = edited()
    expect("another 5,000 edits take 4 MiB at most", edited() - before < 4096, True)
    client.quit()

# ---- files that an option file must not read, and a client that is gone

os.mkfifo(os.path.join(work.name, "pipe"))
write("solver.def", DEFINITION + "include immediate ReadFile 1 1 Read\n")
client = Client(work.name)
client.open(main, "include /dev/stdin\ninclude pipe\n")
expect("a device and a pipe are not read", [each["code"] for each in client.diagnostics(main)],
       ["unusable-file"] * 2)
client.quit()

editor = subprocess.Popen(["sleep", "60"])
client = Client(work.name, start=False)
client.request("initialize", {"processId": editor.pid, "capabilities": {}})
editor.kill()
editor.wait()
expect("the exit code when the client is gone", client.process.wait(10), 1)
client = Client(work.name, start=False)
client.process.stdout.close()
client.ask("textDocument/hover", {})
expect("the exit code when nobody reads", client.process.wait(10), 1)

finish()

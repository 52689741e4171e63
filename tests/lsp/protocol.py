"""The language server as such: its life, its settings, requests that are cancelled, and many edits.
usage: protocol.py TOOL"""
import os, subprocess

from client import Client, expect, finish, folder, path, short, uri, write

DEFINITION = "threads integer 1 1 1 64 1 1 Threads to use\nname string 2 \"\" 1 1 Name of the run\n" \
             "read immediate ReadFile 1 1 Read another file\ngeneral group 1 1 General\n"

# ---- the life of the server

write("solver.def", DEFINITION)
write("main.opt", "threads 4\n")
main = path("main.opt")
client = Client(folder, start=False)
client.open(main)
client.send({"jsonrpc": "2.0", "id": "words", "method": "initialize", "params": {"capabilities": {}}})
expect("an id may be a text", "capabilities" in client.answer("words")["result"], True)
place = {"textDocument": {"uri": uri(main)}, "position": {"line": 0, "character": 1}}
expect("what comes before initialize is left out", client.request("textDocument/hover", place)["code"], -32602)
expect("shutdown", client.request("shutdown", None), None)
client.notify("exit", None)
expect("the exit code after shutdown", client.end(), 0)

client = Client(folder)
client.notify("exit", None)
expect("the exit code without shutdown", client.end(), 1)
client = Client(folder)
expect("the exit code at the end of input", client.end(), 1)

# ---- a request that waits for an analysis has an answer before the server ends

LONG = "thread 1\n" * 50000  # which takes a while
client = Client(folder)
with client.together():
    client.open(main, LONG)
    waiting = client.ask("textDocument/hover", place)
client.end()
expect("a request that waits at the end of input", client.answer(waiting).get("result", "none"), None)
client = Client(folder)
with client.together():
    client.open(main, LONG)
    waiting, shutdown = client.ask("textDocument/hover", place), client.ask("shutdown", None)
    client.notify("exit", None)
expect("a request that waits at the exit", client.answer(waiting)["error"]["code"], -32600)
client.end()

# ---- positions in UTF-8

client = Client(folder, {"general": {"positionEncodings": ["utf-8", "utf-16"]}})
client.open(main, "* ä😀\n")
client.diagnostics(main)
client.change(main, (0, 0, 0, 8, "ä = 3"))
expect("a finding behind a change", short([each["range"] for each in client.diagnostics(main)]), ["0:0-0:6"])
client.quit()

# ---- settings that the server asks for, and hints that the client shows again

client = Client(folder)
client.notify("workspace/didChangeConfiguration", {"settings": {"wexcorin": {"inlayHints": True}}})
client.open(main, "threads 1\n")
client.diagnostics(main)
expect("a client that cannot show hints again is not asked to", [each["method"] for each in client.asked], [])
client.quit()

CAPABLE = {"workspace": {"configuration": True, "didChangeWatchedFiles": {"dynamicRegistration": True},
                         "inlayHint": {"refreshSupport": True}}}
client = Client(folder, CAPABLE, {"allow": ["set-again"]})
client.open(main, "threads 1\nthreads 2\n")
while client.diagnostics(main):
    pass
client.settings = {}
client.notify("workspace/didChangeConfiguration", {"settings": None})
expect("the settings are asked for again", len(client.diagnostics(main)), 1)
refreshed = lambda: [each["method"] for each in client.asked].count("workspace/inlayHint/refresh")
expect("other settings leave the hints", refreshed(), 0)
client.settings = {"inlayHints": True}
client.notify("workspace/didChangeConfiguration", {"settings": None})
refresh = lambda: client.until(lambda each: each.get("method") == "workspace/inlayHint/refresh")
refresh()  # for the setting
refresh()  # for the definition, which is read again
write("solver.def", DEFINITION.replace("integer 1 1", "integer 1 2"))
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(path("solver.def")), "type": 2}]})
refresh()
client.settings = {}
client.notify("workspace/didChangeConfiguration", {"settings": None})
refresh()
expect("the client shows hints again: for each setting, and for another default", refreshed(), 4)
write("part.inc", "threads 3\n")
client.change(main, "read part.inc\n")
client.diagnostics(main)
write("part.inc", "threads none\n")
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(path("part.inc")), "type": 2}]})
expect("the findings in an included file that changes", [each["code"] for each in client.diagnostics(path("part.inc"))],
       ["value"])
os.mkdir(path("later"))
client.open(path("later/a.opt"), "threads none\n")
client.diagnostics(path("later/a.opt"))
write("later/a.def", DEFINITION)
client.notify("workspace/didChangeWatchedFiles", {"changes": [{"uri": uri(path("later/a.def")), "type": 1}]})
expect("the findings after the definition came into being",
       [each["code"] for each in client.diagnostics(path("later/a.opt"))], ["value"])
client.quit()

# ---- requests that are cancelled, and several at once

client = Client(folder, trace="messages")
with client.together():
    client.open(main, LONG)
    kept, cancelled = client.ask("textDocument/hover", place), client.ask("textDocument/hover", place)
    client.notify("$/cancelRequest", {"id": cancelled})
    client.notify("$/cancelRequest", {"id": 999})
expect("a request that is not cancelled waits for the first analysis", "result" in client.answer(kept), True)
expect("a request that is cancelled", client.answer(cancelled)["error"],
       {"code": -32800, "message": "The request was cancelled"})
client.close(main)
with client.together():
    client.open(main, LONG)
    late = client.ask("textDocument/hover", place)
    client.close(main)
expect("a request on a document that is closed meanwhile", "id" in client.answer(late), True)
client.open(path("next.opt"), "")
expect("the next one, after the analysis of what is closed", client.diagnostics(path("next.opt")), [])
client.notify("$/cancelRequest", {"id": late})
with client.together():
    client.open(main, LONG)
    waiting, shutdown = client.ask("textDocument/hover", place), client.ask("shutdown", None)
expect("shutdown while a request waits", client.result(shutdown), None)
expect("the request that waited", client.answer(waiting)["error"]["code"], -32600)
expect("nothing is said after shutdown", client.receive(0.3), None)
client.notify("exit", None)
expect("the exit code", client.end(), 0)

# ---- many edits

if not {"ASAN_OPTIONS", "TSAN_OPTIONS"} & set(os.environ):  # sanitizers keep memory that was freed
    client = Client(folder)
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

os.mkfifo(path("pipe"))
write("solver.def", DEFINITION + "include immediate ReadFile 1 1 Read\n")
client = Client(folder)
client.open(main, "include /dev/stdin\ninclude pipe\n")
expect("a device and a pipe are not read", [each["code"] for each in client.diagnostics(main)],
       ["unusable-file"] * 2)
client.quit()

editor = subprocess.Popen(["sleep", "60"])
client = Client(folder, start=False)
client.request("initialize", {"processId": editor.pid, "capabilities": {}})
client.open(main, "threads 1\n" * 10000)
client.ask("textDocument/documentSymbol", {"textDocument": {"uri": uri(main)}})
os.read(client.process.stdout.fileno(), 1)  # of a long answer, which nobody reads
editor.kill()
editor.wait()
expect("the exit code when the client is gone", client.process.wait(10), 1)
client = Client(folder, start=False)
client.process.stdout.close()
client.ask("textDocument/hover", {})
expect("the exit code when nobody reads", client.process.wait(10), 1)

finish()

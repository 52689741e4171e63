"""A client of the language server for tests: it starts `wexcorin lsp`, sends messages and reads answers. One server
serves many cases. The program is the first argument of the test, which is run in the repository's root. A test may
write files into a folder of its own."""
import contextlib, json, os, select, subprocess, sys, tempfile, time
from urllib.parse import quote, unquote

TOOL = os.path.abspath(sys.argv[1])
failures = []
work = tempfile.TemporaryDirectory()
folder = os.path.realpath(work.name)
path = lambda name: os.path.join(folder, name)


def write(name, text):
    os.makedirs(os.path.dirname(path(name)), exist_ok=True)
    with open(path(name), "wb") as file:
        file.write(text if isinstance(text, bytes) else text.encode())


# Of a path; a URI stays as it is.
def uri(path):
    return path if ":" in path.partition("/")[0] else "file://" + quote(os.path.abspath(path))


def expect(what, seen, wanted):
    if seen != wanted:
        failures.append(f"{what}:\n  seen   {seen!r}\n  wanted {wanted!r}")


class Client:
    # `capabilities` are those of the client, `settings` what it answers when it is asked for its settings.
    def __init__(self, root, capabilities=None, settings=None, start=True, **parameters):
        self.process = subprocess.Popen([TOOL, "lsp"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.buffer, self.last, self.notes, self.asked, self.settings = b"", 0, [], [], settings
        self.answers, self.versions = {}, {}
        self.refused = []  # methods of the server's requests that get an error
        if start:
            folders = [{"uri": uri(root), "name": "root"}]
            self.server = self.request("initialize", {
                "processId": os.getpid(), "capabilities": capabilities or {}, "workspaceFolders": folders,
                **parameters})
            self.notify("initialized", {})

    # ---- messages

    def send_bytes(self, data):
        self.process.stdin.write(data)
        self.process.stdin.flush()

    # What is sent inside arrives at once, so that the server does not begin anything in between.
    @contextlib.contextmanager
    def together(self):
        pieces = []
        self.send_bytes = pieces.append
        yield
        del self.send_bytes
        self.send_bytes(b"".join(pieces))

    def send(self, message):
        body = json.dumps(message).encode()
        self.send_bytes(b"Content-Length: %d\r\n\r\n%s" % (len(body), body))

    def notify(self, method, params):
        self.send({"jsonrpc": "2.0", "method": method, "params": params})

    # Sends a request and returns its id.
    def ask(self, method, params):
        self.last += 1
        self.send({"jsonrpc": "2.0", "id": self.last, "method": method, "params": params})
        return self.last

    # The next message of the server; None at the end or if none comes in time.
    def receive(self, seconds=10):
        until = time.monotonic() + seconds
        while True:
            head, found, rest = self.buffer.partition(b"\r\n\r\n")
            if found:
                length = int(head.split(b":")[1])
                if len(rest) >= length:
                    self.buffer = rest[length:]
                    return json.loads(rest[:length])
            if not select.select([self.process.stdout], [], [], max(0, until - time.monotonic()))[0]:
                return None
            data = os.read(self.process.stdout.fileno(), 1 << 20)
            if not data:
                return None
            self.buffer += data

    # Receives messages until one fits, and returns it. Requests of the server are answered.
    def until(self, fits, seconds=10):
        while True:
            message = self.receive(seconds)
            if message is None:
                sys.exit(f"{sys.argv[0]}: the server does not say what is waited for\n" + "\n".join(failures))
            if "method" in message and "id" in message:
                self.asked.append(message)
                asks = message["method"] == "workspace/configuration"
                answer = {"result": [self.settings] if asks else None}
                if message["method"] in self.refused:
                    answer = {"error": {"code": -32603, "message": "No"}}
                self.send({"jsonrpc": "2.0", "id": message["id"], **answer})
            elif "method" in message:
                self.notes.append(message)
            else:
                self.answers[message["id"]] = message
            if fits(message):
                return message

    def answer(self, id):
        return self.answers.pop(id, None) or self.until(lambda each: "method" not in each and each["id"] == id) \
            and self.answers.pop(id)

    # The result of a request, or its error.
    def result(self, id):
        answer = self.answer(id)
        return answer["error"] if "error" in answer else answer["result"]

    def request(self, method, params):
        return self.result(self.ask(method, params))

    # ---- documents; they are named by their paths

    def open(self, path, text=None, language=None):
        if text is None:
            with open(path, encoding="utf-8", newline="") as file:
                text = file.read()
        language = language or ("wexcorin-definition" if path.endswith(".def") else "wexcorin-options")
        self.versions[path] = 1
        self.notify("textDocument/didOpen", {"textDocument": {
            "uri": uri(path), "languageId": language, "version": 1, "text": text}})

    # A change is a text, or (line, character, line, character, text).
    def change(self, path, *changes):
        self.versions[path] += 1
        position = lambda line, character: {"line": line, "character": character}
        self.notify("textDocument/didChange", {
            "textDocument": {"uri": uri(path), "version": self.versions[path]},
            "contentChanges": [
                {"text": each} if isinstance(each, str) else
                {"range": {"start": position(*each[:2]), "end": position(*each[2:4])}, "text": each[4]}
                for each in changes]})

    def close(self, path):
        del self.versions[path]
        self.notify("textDocument/didClose", {"textDocument": {"uri": uri(path)}})

    # A request about a place in a document, after changes of it.
    def at(self, method, path, line, character, changes=(), **more):
        with self.together():
            if changes:
                self.change(path, *changes)
            asked = self.ask("textDocument/" + method, {
                "textDocument": {"uri": uri(path)}, "position": {"line": line, "character": character}, **more})
        return self.result(asked)

    # The next diagnostics of the file; of a document, those of its last version.
    def diagnostics(self, path):
        fits = lambda each: each.get("method") == "textDocument/publishDiagnostics" and \
            each["params"]["uri"] == uri(path) and each["params"].get("version") == self.versions.get(path)
        return self.until(fits)["params"]["diagnostics"]

    # ---- the end

    # Ends the server as the protocol wants it. Returns the exit code.
    def quit(self):
        self.request("shutdown", None)
        self.notify("exit", None)
        return self.ended()

    # Ends the input.
    def end(self):
        self.process.stdin.close()
        return self.ended()

    def ended(self):
        try:
            return self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            return "does not end"


# An answer in short: a place as "line:column", a range as "place-place", a file by its name, and of the items of a
# completion those fields that not all of them have.
def short(value):
    if isinstance(value, list):
        return [short(each) for each in value]
    if isinstance(value, str):
        return unquote(value.rpartition("/")[2]) if value.startswith("file:") else value
    if not isinstance(value, dict):
        return value
    if value.keys() == {"line", "character"}:
        return f'{value["line"]}:{value["character"]}'
    if value.keys() == {"start", "end"}:
        return short(value["start"]) + "-" + short(value["end"])
    return {short(key): short(each) for key, each in value.items()}


# The range and the text of a hover; the text is of this kind.
def explained(answer, kind):
    if answer is None:
        return None
    expect("the kind of the text", answer["contents"]["kind"], kind)
    return short(answer["range"]), answer["contents"]["value"]


# Each item of a completion as "label [kind] detail", the range and its new text, and the further fields. The
# items must be numbered in their order.
def items(answer):
    result = []
    for number, item in enumerate(answer["items"]):
        item = short(item)
        expect(f'the place of the item {item["label"]}', item.pop("sortText"), f"{number:05}")
        edit = item.pop("textEdit")
        text = f'{item.pop("label")} [{item.pop("kind")}] {item.pop("detail", "-")}'
        result.append((text, edit["range"], edit["newText"], *([item] if item else [])))
    return result


# The items of a completion in a document: the range, and each item as "label [kind] detail", with the number of the
# option and the further fields. What an item inserts is its label.
def offered(answer, document):
    result = ["incomplete"] * answer["isIncomplete"]
    for item, span, inserted, *more in items(answer):
        more = more[0] if more else {}
        data = more.pop("data", None)
        expect(f"what is inserted for {item}", inserted, item.partition(" [")[0])
        result += [span] * (span not in result)
        if data:
            expect(f"the document of {item}", data["uri"], document)
            item += f' #{data["option"]}'
        result.append(" ".join([item, *(f"{key}={value}" for key, value in more.items())]))
    return result


# The text with the edits; columns are counted in UTF-16.
def applied(text, edits):
    lines = text.split("\n")
    for edit in sorted(edits, key=lambda each: [*each["range"]["start"].values()], reverse=True):
        start, end = edit["range"]["start"], edit["range"]["end"]
        assert start["line"] == end["line"]
        line = lines[start["line"]].encode("utf-16-le")
        line = line[:2 * start["character"]] + edit["newText"].encode("utf-16-le") + line[2 * end["character"]:]
        lines[start["line"]] = line.decode("utf-16-le")
    return "\n".join(lines)


# Ends the test.
def finish():
    sys.exit("\n".join(failures) or 0)

// Plays recorded sessions with the tool through a client that is made with vscode-languageserver-protocol, and compares
// what the server says with the recording.
// usage: node session.js [--record] TOOL WORK SESSION...; WORK has a copy of the examples. --record writes what the
// server says now into the sessions.
//
// A session has a step on each line. FILE is a path in WORK. PLACE is a text of the file as the server knows it, with a
// bar where the cursor is.
//   open FILE [TEXT]               opens a file, with its text on the disk or another one (a JSON string)
//   change FILE PLACE TEXT         inserts a text (a JSON string)
//   cut FILE PLACE LENGTH          removes characters behind the place
//   ask METHOD [FILE [PLACE]] [MORE]  sends a request about a file, and MORE parameters (a JSON object)
//   findings FILE                  waits for the diagnostics of the last state of a file
//   = ANSWER                       what the server said to the step before, as JSON; WORK stands for the folder's URI
"use strict";
const fs = require("fs");
const path = require("path");
const {spawn} = require("child_process");
const {pathToFileURL} = require("url");
const {createProtocolConnection, StreamMessageReader, StreamMessageWriter} =
  require("vscode-languageserver-protocol/node");
const {until} = require("./expected.js");

const record = process.argv[2] === "--record";
const [tool, work, ...sessions] = process.argv.slice(record ? 3 : 2);
const root = pathToFileURL(work).href;
const capabilities = JSON.parse(fs.readFileSync(path.join(__dirname, "sessions/capabilities.json"), "utf8"));

function position(text, offset) {
  const before = text.slice(0, offset).split("\n");
  return {line: before.length - 1, character: before.at(-1).length};
}

class Session {
  documents = new Map(); // of each file its text and version
  found = new Map(); // of each file the last diagnostics and their version

  async start() {
    this.server = spawn(tool, ["lsp"], {cwd: work, stdio: ["pipe", "pipe", "inherit"]});
    this.ended = new Promise((done) => this.server.on("exit", done));
    this.connection = createProtocolConnection(new StreamMessageReader(this.server.stdout),
      new StreamMessageWriter(this.server.stdin));
    this.connection.onNotification("textDocument/publishDiagnostics", ({uri, version, diagnostics}) => {
      this.found.set(uri, {version, diagnostics});
    });
    this.connection.onRequest("workspace/configuration", ({items}) => items.map(() => null));
    this.connection.onRequest("client/registerCapability", () => null);
    this.connection.onRequest("window/workDoneProgress/create", () => null);
    this.connection.onUnhandledNotification(() => {});
    this.connection.listen();
    await this.connection.sendRequest("initialize", {
      processId: process.pid, rootUri: root, capabilities, workspaceFolders: [{uri: root, name: "work"}],
      initializationOptions: {inlayHints: true},
    });
    await this.connection.sendNotification("initialized", {});
  }

  async stop() {
    await this.connection.sendRequest("shutdown");
    await this.connection.sendNotification("exit");
    return this.ended;
  }

  uri(file) {
    return `${root}/${file}`;
  }

  place(file, place) {
    const offset = this.documents.get(file).text.indexOf(place.replace("|", ""));
    if (offset < 0) throw new Error(`${place} is not in ${file}`);
    return offset + place.indexOf("|");
  }

  async edit(file, start, length, text) {
    const document = this.documents.get(file);
    const range = {start: position(document.text, start), end: position(document.text, start + length)};
    document.text = document.text.slice(0, start) + text + document.text.slice(start + length);
    document.version += 1;
    await this.connection.sendNotification("textDocument/didChange", {
      textDocument: {uri: this.uri(file), version: document.version}, contentChanges: [{range, text}],
    });
  }

  async open(file, text = fs.readFileSync(path.join(work, file), "utf8")) {
    this.documents.set(file, {text, version: 1});
    const languageId = file.endsWith(".def") ? "wexcorin-definition" : "wexcorin-options";
    await this.connection.sendNotification("textDocument/didOpen", {
      textDocument: {uri: this.uri(file), languageId, version: 1, text},
    });
  }

  change = (file, place, text) => this.edit(file, this.place(file, place), 0, text);
  cut = (file, place, length) => this.edit(file, this.place(file, place), length, "");

  ask(method, file, place, more) {
    const about = file && {textDocument: {uri: this.uri(file)}};
    const where = place && {position: position(this.documents.get(file).text, this.place(file, place))};
    return this.connection.sendRequest(method, {...about, ...where, ...more});
  }

  async findings(file) {
    const {version} = this.documents.get(file);
    await until(`the findings of ${file}`, () => this.found.get(this.uri(file))?.version === version);
    return this.found.get(this.uri(file)).diagnostics;
  }

  async step(line) {
    const [name, ...words] = line.match(/"(?:[^"\\]|\\.)*"|\{.*\}|\S+/g).map((word) =>
      /^["{\d]/.test(word) ? JSON.parse(word.replaceAll("WORK", root)) : word);
    const more = typeof words.at(-1) === "object" ? words.pop() : undefined;
    if (name === "ask") return this.ask(words[0], words[1], words[2], more);
    return this[name](...words);
  }
}

async function play(file) {
  const session = new Session();
  await session.start();
  const lines = fs.readFileSync(file, "utf8").trimEnd().split("\n");
  const played = [];
  for (const [i, line] of lines.entries()) {
    if (line.startsWith("= ")) continue; // written below
    played.push(line);
    if (line === "" || line.startsWith("#")) continue;
    const answer = await session.step(line).catch((error) => ({error: error.message}));
    if (answer === undefined && !line.startsWith("ask")) continue;
    const said = `= ${JSON.stringify(answer ?? null).replaceAll(root, "WORK")}`;
    played.push(said);
    if (!record && said !== lines[i + 1]) {
      throw new Error(`${file}:${i + 1}: ${line}\nrecorded: ${lines[i + 1]}\nsaid now: ${said}`);
    }
  }
  if (record) fs.writeFileSync(file, `${played.join("\n")}\n`);
  const code = await session.stop();
  if (code !== 0) throw new Error(`${file}: the server ended with exit code ${code}`);
}

Promise.all(sessions.map(play)).then(() => process.exit(0), (error) => {
  console.error(error.message);
  process.exit(1);
});

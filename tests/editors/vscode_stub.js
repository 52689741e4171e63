// Stands for the module `vscode`, which only the editor itself can give: documents in memory, diagnostics, providers,
// settings and commands, as far as the extension and vscode-languageclient use them. Anything else is an empty class.
"use strict";
const path = require("path");

class EventEmitter {
  listeners = new Set();
  event = (listener, self) => {
    const bound = self ? listener.bind(self) : listener;
    this.listeners.add(bound);
    return new Disposable(() => this.listeners.delete(bound));
  };
  async fire(value) {
    for (const listener of [...this.listeners]) await listener(value);
  }
  dispose() {}
}

class Disposable {
  constructor(dispose) {
    this.dispose = dispose;
  }
  static from(...all) {
    return new Disposable(() => all.forEach((each) => each.dispose()));
  }
}

class CancellationTokenSource {
  emitter = new EventEmitter();
  token = {isCancellationRequested: false, onCancellationRequested: this.emitter.event};
  cancel() {
    this.token.isCancellationRequested = true;
    void this.emitter.fire();
  }
  dispose() {}
}

class Uri {
  constructor(scheme, path) {
    Object.assign(this, {scheme, authority: "", path, query: "", fragment: "", fsPath: path});
  }
  static file(path) {
    return new Uri("file", path);
  }
  static parse(text) {
    const [, scheme, rest] = /^([a-z]+):(?:\/\/)?(.*)$/.exec(text);
    return new Uri(scheme, decodeURIComponent(rest));
  }
  toString() {
    return `${this.scheme}://${this.path.split("/").map(encodeURIComponent).join("/")}`;
  }
}

// A class that keeps its arguments under these names.
const record = (...names) => class {
  constructor(...given) {
    names.forEach((name, i) => (this[name] = given[i]));
  }
};
const Position = record("line", "character");
const Diagnostic = record("range", "message", "severity");
const CompletionItem = record("label", "kind");
const CompletionList = record("items", "isIncomplete");
const Location = record("uri", "range");

class Range {
  constructor(start, end, endLine, endCharacter) {
    const four = endLine !== undefined;
    this.start = four ? new Position(start, end) : start;
    this.end = four ? new Position(endLine, endCharacter) : end;
  }
}

class MarkdownString {
  constructor(value = "") {
    this.value = value;
  }
  appendMarkdown(text) {
    this.value += text;
    return this;
  }
  appendCodeblock(text) {
    return this.appendMarkdown(`\n${text}\n`);
  }
}

class Hover {
  constructor(contents, range) {
    Object.assign(this, {contents: [].concat(contents), range});
  }
}

// ---- documents

class TextDocument {
  version = 1;
  isClosed = false;
  isDirty = false;
  constructor(uri, languageId, text) {
    Object.assign(this, {uri, languageId, text, fileName: uri.fsPath});
  }
  getText() {
    return this.text;
  }
  get lineCount() {
    return this.text.split("\n").length;
  }
  positionAt(offset) {
    const before = this.text.slice(0, offset).split("\n");
    return new Position(before.length - 1, before.at(-1).length);
  }
  positionOf(text) { // of the first place of a text
    return this.positionAt(this.text.indexOf(text));
  }
}

const events = {};
const emitter = (name) => (events[name] ??= new EventEmitter());

function openDocument(file, languageId, text) {
  const document = new TextDocument(Uri.file(path.resolve(file)), languageId, text);
  workspace.textDocuments.push(document);
  return emitter("onDidOpenTextDocument").fire(document).then(() => document);
}

async function changeDocument(document, start, length, text) {
  const range = new Range(document.positionAt(start), document.positionAt(start + length));
  document.text = document.text.slice(0, start) + text + document.text.slice(start + length);
  document.version += 1;
  const change = {range, rangeOffset: start, rangeLength: length, text};
  await emitter("onDidChangeTextDocument").fire({document, contentChanges: [change]});
}

// ---- settings

const settings = {};
const at = (names) => names.split(".").filter(Boolean).reduce((value, name) => value?.[name], settings);

async function configure(name, value) {
  const names = name.split(".");
  const last = names.pop();
  names.reduce((object, each) => (object[each] ??= {}), settings)[last] = value;
  await emitter("onDidChangeConfiguration").fire({affectsConfiguration: (section) => name.startsWith(section)});
}

// ---- the namespaces

const known = {commands: new Map(), providers: new Map(), collections: [], messages: [], log: []};

const withEvents = (object) =>
  new Proxy(object, {get: (target, name) => (/^on[DW]/.test(name) ? emitter(name).event : target[name])});

const workspace = withEvents({
  textDocuments: [],
  notebookDocuments: [],
  workspaceFolders: [],
  getWorkspaceFolder: () => workspace.workspaceFolders[0],
  getConfiguration: (section = "") => ({
    get: (name, otherwise) => at(`${section}.${name}`) ?? otherwise,
  }),
  createFileSystemWatcher: () => ({
    onDidCreate: new EventEmitter().event,
    onDidChange: new EventEmitter().event,
    onDidDelete: new EventEmitter().event,
    dispose() {},
  }),
});

const window = withEvents({
  tabGroups: withEvents({all: []}),
  visibleTextEditors: [],
  createOutputChannel: (name) => ({
    name,
    append: (text) => known.log.push(text),
    appendLine: (text) => known.log.push(`${text}\n`),
    show() {},
    dispose() {},
  }),
  showErrorMessage: async (text) => void known.messages.push(text),
  showWarningMessage: async (text) => void known.messages.push(text),
  showInformationMessage: async (text) => void known.messages.push(text),
  withProgress: (_, task) => task({report() {}}, new CancellationTokenSource().token),
});

function matches(filter, document) {
  return [].concat(filter).some((each) => typeof each === "string" ? each === document.languageId
    : (!each.language || each.language === document.languageId) && (!each.scheme || each.scheme === document.uri.scheme));
}

const languages = new Proxy({
  match: (selector, document) => (matches(selector, document) ? 10 : 0),
  createDiagnosticCollection() {
    const files = new Map();
    const collection = {
      files,
      set: (uri, found) => files.set(uri.fsPath, found),
      delete: (uri) => files.delete(uri.fsPath),
      clear: () => files.clear(),
      dispose: () => files.clear(),
    };
    known.collections.push(collection);
    return collection;
  },
}, {
  get: (target, name) => target[name] ?? ((_, provider, ...rest) => { // registerXProvider
    known.providers.set(name.replace(/^register|Provider$/g, ""), provider ?? _, rest);
    return new Disposable(() => {});
  }),
});

const commands = {
  registerCommand(name, run) {
    known.commands.set(name, run);
    return new Disposable(() => known.commands.delete(name));
  },
  executeCommand: async (name, ...rest) => known.commands.get(name)?.(...rest),
};

const given = {
  version: "1.82.0", env: {language: "en", appName: "test"}, extensions: {}, workspace, window, languages, commands,
  EventEmitter, Disposable, CancellationTokenSource, Uri, Position, Range, Diagnostic, CompletionItem, CompletionList,
  Location, MarkdownString, Hover,
  DiagnosticSeverity: {Error: 0, Warning: 1, Information: 2, Hint: 3},
  CodeActionKind: {QuickFix: "quickfix"},
};
const others = {};
const vscode = new Proxy(given, {
  get: (target, name) => target[name] ?? (/^[A-Z]/.test(String(name)) ? (others[name] ??= record()) : undefined),
});

const load = require("module")._load;
require("module")._load = (name, ...rest) => (name === "vscode" ? vscode : load(name, ...rest));

module.exports = {vscode, known, openDocument, changeDocument, configure};

// Runs the extension's own client code, as compiled, against the tool. The editor itself is not to be had where this
// runs: vscode_stub.js stands for it.
// usage: node extension.js TOOL OUT WORK; WORK has a copy of the examples and a wexcorin.json
"use strict";
const assert = require("assert");
const fs = require("fs");
const path = require("path");
const {vscode, known, openDocument, changeDocument, configure} = require("./vscode_stub.js");

const [tool, out, work] = process.argv.slice(2);
process.chdir(work);
const {activate, deactivate} = require(path.join(out, "extension.js"));
const file = "examples/solver_mistakes.opt";
const token = new vscode.CancellationTokenSource().token;
const severities = ["error", "warning", "note", "note"];

function findings() {
  const found = known.collections.at(-1)?.files.get(path.resolve(file)) ?? [];
  return found.map((each) => `${each.range.start.line + 1}: ${severities[each.severity]}: ${each.message.split("\n")[0]}`);
}

// Those that check prints of the file itself.
function findingsOfCheck() {
  const printed = fs.readFileSync(file.replace(".opt", ".expected"), "utf8").split("\n");
  return printed.filter((line) => line.startsWith(`${file}:`) && !/^[^ ]+ note:/.test(line))
    .map((line) => line.slice(file.length + 1).replace(/ \[[a-z-]+\]$/, ""));
}

async function until(what, holds) {
  for (const end = Date.now() + 10000; !holds();) {
    if (Date.now() > end) throw new Error(`in vain waited for: ${what}`);
    await new Promise((done) => setTimeout(done, 20));
  }
}

const ask = (provider, method, ...rest) => known.providers.get(provider)[method](...rest, token);

(async () => {
  vscode.workspace.workspaceFolders.push({uri: vscode.Uri.file(work), name: "work", index: 0});
  const context = {subscriptions: []};

  await configure("wexcorin.path", "wexcorin-is-not-here");
  await activate(context);
  assert.match(known.messages.join(), /"wexcorin-is-not-here lsp" does not start/, "a tool that is not there is told");

  await configure("wexcorin.path", tool); // starts it
  const document = await openDocument(file, "wexcorin-options", fs.readFileSync(file, "utf8"));
  await until("the findings of check", () => findings().length > 0);
  assert.deepStrictEqual(findings(), findingsOfCheck());

  const start = document.text.indexOf("thread 4");
  await changeDocument(document, start, "thread 4".length, "threads 4");
  await until("the finding that was mended is gone", () => !findings()[0].startsWith("7:"));

  const overridden = () => findings().some((each) => each.startsWith("46:"));
  assert.ok(overridden());
  await configure("wexcorin.allow", ["set-again"]);
  await until("a rule that is allowed is left out", () => !overridden());

  await changeDocument(document, document.text.length, 0, "time_l");
  const end = new vscode.Position(document.lineCount - 1, 6);
  const completed = await ask("CompletionItem", "provideCompletionItems", document, end, token, {triggerKind: 0});
  const labels = completed.items.map((item) => item.label.label ?? item.label);
  assert.strictEqual(labels[0], "time_limit", "completion offers what begins like the word first");

  const hover = await ask("Hover", "provideHover", document, document.positionOf("node_limit"));
  assert.match(hover.contents[0].value, /Nodes of the tree/, "hover shows the help of the option");

  const [place] = [].concat(await ask("Definition", "provideDefinition", document, document.positionOf("node_limit")));
  const line = fs.readFileSync(place.uri.fsPath, "utf8").split("\n")[place.range.start.line];
  assert.match(line, /^node_limit +integer/, "an option's definition is found");

  await known.commands.get("wexcorin.restart")();
  await until("a server that was started again knows the open files", () => findings().length > 0);

  await deactivate();
  console.log("the extension's client talks with the tool");
})().then(() => process.exit(0), (error) => {
  console.error(error, known.messages, known.log.join(""));
  process.exit(1);
});

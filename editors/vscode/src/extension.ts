// Starts `wexcorin lsp` when a file of one of its two kinds is opened, and stops it with the editor.
import {execFile} from "node:child_process";
import {promisify} from "node:util";
import {commands, ExtensionContext, OutputChannel, window, workspace} from "vscode";
import {LanguageClient} from "vscode-languageclient/node";
import {clientOptions, section, serverOptions, toolPath} from "./client";

let client: LanguageClient | undefined;

async function start(channel: OutputChannel): Promise<void> {
  const path = toolPath();
  try {
    const version = await promisify(execFile)(path, ["--version"]); // fails where there is no such tool
    channel.appendLine(version.stdout.trim());
    client = new LanguageClient(section, "wexcorin", serverOptions(path), clientOptions(channel));
    await client.start();
  } catch (error) {
    channel.appendLine(`${path} lsp: ${error instanceof Error ? error.message : String(error)}`);
    void tellThatNotStarted(path);
  }
}

async function tellThatNotStarted(path: string): Promise<void> {
  const chosen = await window.showErrorMessage(
    `"${path} lsp" does not start, so files are coloured but not checked. Install the tool wexcorin, or set its path.`,
    "Open the settings",
    "Show the log",
  );
  if (chosen === "Open the settings") {
    await commands.executeCommand("workbench.action.openSettings", "wexcorin.path");
  } else if (chosen === "Show the log") {
    await commands.executeCommand("wexcorin.log");
  }
}

async function stop(): Promise<void> {
  const running = client;
  client = undefined;
  if (running?.isRunning()) {
    await running.stop();
  }
}

async function restart(channel: OutputChannel): Promise<void> {
  await stop();
  await start(channel);
}

export async function activate(context: ExtensionContext): Promise<void> {
  const channel = window.createOutputChannel("wexcorin");
  context.subscriptions.push(
    channel,
    commands.registerCommand("wexcorin.restart", () => restart(channel)),
    commands.registerCommand("wexcorin.log", () => {
      channel.show();
    }),
    workspace.onDidChangeConfiguration((event) => {
      if (event.affectsConfiguration("wexcorin.path")) {
        void restart(channel);
      }
    }),
  );
  await start(channel);
}

export async function deactivate(): Promise<void> {
  await stop();
}

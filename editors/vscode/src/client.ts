// What the extension tells the library's client: how the server is started, for which files, and with which settings.
import {OutputChannel, workspace} from "vscode";
import {LanguageClientOptions, ServerOptions} from "vscode-languageclient/node";

export const section = "wexcorin";
const languages = ["wexcorin-options", "wexcorin-definition"];

export function toolPath(): string {
  return workspace.getConfiguration(section).get("path", "wexcorin").trim() || "wexcorin";
}

export function serverOptions(path: string): ServerOptions {
  const cwd = workspace.workspaceFolders?.find((folder) => folder.uri.scheme === "file")?.uri.fsPath;
  return {command: path, args: ["lsp"], options: {cwd}};
}

export function clientOptions(outputChannel: OutputChannel): LanguageClientOptions {
  const settings = workspace.getConfiguration(section);
  return {
    documentSelector: languages.flatMap((language) => [
      {scheme: "file", language},
      {scheme: "untitled", language},
    ]),
    initializationOptions: {
      definition: settings.get("definition", ""),
      allow: settings.get<string[]>("allow", []),
      limit: settings.get("limit", 1000),
      inlayHints: settings.get("inlayHints", false),
    },
    synchronize: {configurationSection: section},
    outputChannel,
  };
}

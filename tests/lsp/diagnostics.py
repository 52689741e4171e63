"""The diagnostics of the language server are the findings of check, and follow the texts in the editor.
usage: diagnostics.py TOOL"""
import json, subprocess

from client import TOOL, Client, expect, finish

SETTINGS = {"definition": "examples/solver.def"}


# What check finds, by file: the lines, rules and first lines of the messages.
def checked(*arguments):
    out = subprocess.run([TOOL, "check", "--json", *arguments], stdout=subprocess.PIPE).stdout
    found = {}
    for each in json.loads(out)["findings"]:
        suggestions = [f'"{name}"' for name in each["suggestions"]]
        text = each["text"]
        if suggestions:
            words = ", ".join(suggestions[:-1]) + " or " + suggestions[-1] if suggestions[1:] else suggestions[0]
            text += f"; did you mean {words}?"
        message = "\n".join([text, *each["details"], *each["advice"]])
        found.setdefault(each["file"], []).append(
            ((each["line"] or 1) - 1, each["severity"] == "error", each["rule"], message))
    return found


def served(diagnostics):
    return [(each["range"]["start"]["line"], each["severity"] == 1, each["code"], each["message"])
            for each in diagnostics]


client = Client(".", initializationOptions=SETTINGS)
for file, arguments in (
        ("examples/solver_mistakes.opt", ("examples/solver.def", "examples/solver_mistakes.opt")),
        ("examples/solver.def", ("examples/solver.def",)), ("examples/first.opt", ("examples/first.opt",)),
        ("examples/solver.opt", ("examples/solver.def", "examples/solver.opt"))):
    client.open(file)
    expect(f"findings in {file}", served(client.diagnostics(file)), checked(*arguments).get(file, []))
    client.close(file)
expect("the exit code", client.quit(), 0)

finish()

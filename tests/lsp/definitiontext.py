"""A definition, and requests about it, for tests. The cursor is "|" in a piece of the definition, or in lines that are
added at its end."""
from client import Client, folder, path, write

TEXT = """\
general group 1 1 General options
limits group 2 1 Limits
gap_tol double 1 0.1 0 1 1 1 Gap
 How near is near enough.
time_limit integer.OPT 2 10 0 100 1 2 Time
timlim synonym time_limit
word enumstr 3 one 1 1 A word
 one 1 First
both multilist 4 1 1 Both
 gap_tol time_limit
all macro 1 1 All
 gap_tol
show immediate Message 1 7 Show
names deprecated
 gap_tol use time_limit
"""
MAIN = path("solver.def")
SNIPPETS = {"completion": {"completionItem": {"snippetSupport": True}}}


# A client with these capabilities, with the definition open.
def start(**textdocument):
    client = Client(folder, {"textDocument": textdocument})
    client.open(MAIN)
    client.diagnostics(MAIN)
    return client


# The answer to a request at the cursor. The text of the definition is as it was afterwards.
def asked(client, method, line, **more):
    plain = line.replace("|", "", 1)
    text = TEXT.replace(plain, line, 1) if plain and plain in TEXT else TEXT + line
    before = text[:text.index("|")]
    answer = client.at(method, MAIN, before.count("\n"), len(before) - before.rfind("\n") - 1,
                       changes=[text.replace("|", "", 1)], **more)
    client.change(MAIN, TEXT)
    return answer


write("solver.def", TEXT)
write("main.opt", "gap_tol 0.5\ntimlim 3\ntime_limit 4\n")

"""Code actions in option files: the title, the edit and the diagnostic of each, in the short form of client.py.
usage: optionactions.py TOOL"""
from client import Client, expect, finish, folder, path, short, uri, write
from optiontext import MAIN, TEXT

ACTIONS = {"codeAction": {"codeActionLiteralSupport": {}}}
client = Client(folder, {"textDocument": ACTIONS})
opened = 0


# The actions for the line of the cursor, or for the lines from "|" to "|", and for these diagnostics; all that the
# server has about the file unless others are given.
def actions(text, client=client, changes=(), diagnostics=None, **context):
    global opened
    opened += 1
    file = path(f"action{opened}.opt")  # no text is that of an earlier file
    before, _, rest = text.partition("|")
    between, _, after = rest.partition("|")
    client.open(file, before + between + after)
    found = client.diagnostics(file)
    place = lambda text: {"line": text.count("\n"), "character": len(text.rpartition("\n")[2])}
    lines = {"start": place(before), "end": place(before + between if _ else before)}
    answer = client.at("codeAction", file, 0, 0, changes, range=lines,
                       context={"diagnostics": found if diagnostics is None else diagnostics, **context})
    client.close(file)
    result = []
    for each in answer:
        expect("the kind of the action", each["kind"], "quickfix")
        [edit] = each["edit"]["changes"][uri(file)]
        about = " and ".join(f'{one["code"]} {short(one["range"])}' for one in each.get("diagnostics", ()))
        title = "! " * each.get("isPreferred", False) + each["title"]
        result.append((title, short(edit["range"]), edit["newText"], about))
    return result


write("wrong.inc", "blabla 4\n")
# "!" before a title is for the preferred action.
for text, wanted in (
        ("|time lim 5",
         [('Replace "time lim" by "time_limit"', "0:0-0:8", "time_limit", "unknown-option 0:0-0:4"),
          ('Replace "time" by "old_time"', "0:0-0:4", "old_time", "unknown-option 0:0-0:4"),
          ('Replace "time lim" by "max_time"', "0:0-0:8", "max_time", "unknown-option 0:0-0:4"),
          ("Make the line a comment", "0:0-0:0", "* ", "unknown-option 0:0-0:4")]),
        ("time limit five| 5",
         [('! Replace "time limit five" by "time_limit"', "0:0-0:15", "time_limit", "unknown-option 0:0-0:4"),
          ("Make the line a comment", "0:0-0:0", "* ", "unknown-option 0:0-0:4")]),
        ("method dua|", [('! Replace "dua" by "dual"', "0:7-0:10", "dual", "illegal-value 0:7-0:10")]),
        ("method d|", []),
        ('method "dua"|', [('! Replace "dua" by "dual"', "0:8-0:11", "dual", "illegal-value 0:8-0:11")]),
        ("both dua:no|", [('! Replace "dua" by "dual"', "0:5-0:8", "dual", "illegal-value 0:5-0:8")]),
        ("cores |4", [('! Replace "cores" by "threads"', "0:0-0:5", "threads", "deprecated 0:0-0:5")]),
        ("|old_time 4",
         [('! Replace "old_time" by "time_limit"', "0:0-0:8", "time_limit", "deprecated 0:0-0:8")]),
        ("threads 1\ntitle a\nthreads |2",
         [("! Remove line 1, which is overridden", "0:0-1:0", "", "set-again 2:0-2:7")]),
        ("blabla |4", [("Make the line a comment", "0:0-0:0", "* ", "unknown-option 0:0-0:6")]),
        ("eolonly off\nquiet blabla |4",
         [("Make the rest of the line a comment", "1:6-1:6", "! ", "unknown-option 1:6-1:12")]),
        ("eolonly off\nblabla 4 |quiet", []),
        ("eolonly off\nquiet method dua| threads 3",
         [('! Replace "dua" by "dual"', "1:13-1:16", "dual", "illegal-value 1:13-1:16")]),
        ("x.prior2('a')| 4", [('! Replace ".prior2" by ".prior"', "0:1-0:8", ".prior", "unknown-option 0:1-0:8")]),
        ("gap_window 0.1 0.2\ngap_window |0.3", []),
        ("all 5\ntime_limit |6", []),
        ("threads |4", []),
        ("threads 1\nthreads 2\nthreads |3",
         [("! Remove line 2, which is overridden", "1:0-2:0", "", "set-again 2:0-2:7")]),
        ("eolonly off\nthreads 1 verbose yes\nthreads |3", []),
        ("eolonly off\nthreads 1\nverbose yes threads |3",
         [("! Remove line 2, which is overridden", "1:0-2:0", "", "set-again 2:12-2:19")]),
        ("eolonly off\nthreads 1 threads |3", []),
        ("|tiem_limit 5\nverbose yes\n|metod dual",
         [('! Replace "tiem_limit" by "time_limit"', "0:0-0:10", "time_limit", "unknown-option 0:0-0:10"),
          ("Make the line a comment", "0:0-0:0", "* ", "unknown-option 0:0-0:10"),
          ('! Replace "metod" by "method"', "2:0-2:5", "method", "unknown-option 2:0-2:5"),
          ("Make the line a comment", "2:0-2:0", "* ", "unknown-option 2:0-2:5")]),
        ("tiem_limit 5\n|verbose yes\nmetod dual", []),
        ("|threads 1\nthreads 2|",
         [("! Remove line 1, which is overridden", "0:0-1:0", "", "set-again 1:0-1:7")]),
        ("threads : |3", []),
        ("time-limit| x",
         [('Replace "time-limit" by "time_limit"', "0:0-0:10", "time_limit", "bad-separator 0:0-0:4"),
          ("Make the line a comment", "0:0-0:0", "* ", "bad-separator 0:0-0:4")]),
        ("quiet  more|", []),
        ("verbose| maybe", []),
        ("level |3", []),
        ("nothing| 3", []),
        ("  tiem_limit|  5",
         [('! Replace "tiem_limit" by "time_limit"', "0:2-0:12", "time_limit", "unknown-option 0:2-0:12"),
          ("Make the line a comment", "0:0-0:0", "* ", "unknown-option 0:2-0:12")]),
        ("name a\r\nname b|\r\n", [("! Remove line 1, which is overridden", "0:0-1:0", "", "set-again 1:0-1:4")]),
        ("include nowhere.opt|", []),
        ("include wrong.inc|", []),
        ("spare |4", []),
        ("two_old |4", [('! Replace "two_old" by "threads"', "0:0-0:7", "threads", "deprecated 0:0-0:7")]),
        ("cores x|", [('Replace "cores" by "threads"', "0:0-0:5", "threads", "deprecated 0:0-0:5")]),
        ("old_time x|", [('Replace "old_time" by "time_limit"', "0:0-0:8", "time_limit", "deprecated 0:0-0:8")]),
        ("gap_window 0.1 5|", []),
        ("gap_window 5 5|", []),
        ("blabla 4, quiet|", [("Make the line a comment", "0:0-0:0", "* ", "unknown-option 0:0-0:6")])):
    expect(f"actions for {text!r}", actions(text), wanted)
# A name that is like another one; that one is preferred where it is the only one and takes the value.
for text, name, ispreferred in (
        ("tiem_limit| 5", "time_limit", True),
        ("time_lim = x|", "time_limit", False),
        ("verbos yess|", "verbose", False),
        ("say_| 3", "say", False),
        ("max_tiem| 3", "max_time", True),
        ("title_ x, y|", "title", True),
        ("includ solver.def|", "include", False),
        ("time_lim  = x|", "time_limit", False),
        ("time_lim|", "time_limit", False),
        ("time_lim 1 2 3 4 5 6 7|", "time_limit", False)):
    typed = text.replace("|", "").split()[0]
    about = f"unknown-option 0:0-0:{len(typed)}"
    expect(f"actions for {text!r}", actions(text),
           [("! " * ispreferred + f'Replace "{typed}" by "{name}"', f"0:0-0:{len(typed)}", name, about),
            ("Make the line a comment", "0:0-0:0", "* ", about)])


def changed(text, changes):
    return actions(text, changes=changes)


# The findings are those of the text before the change. What has changed since is left alone.
for text, changes, wanted in (
        ("|tiem_limit 5", [(0, 0, 0, 0, "* new\n")], []),
        ("x\n|tiem_limit 5", [(0, 0, 0, 0, "* new\n"), (1, 0, 2, 0, "")],
         [('! Replace "tiem_limit" by "time_limit"', "1:0-1:10", "time_limit", "unknown-option 1:0-1:10"),
          ("Make the line a comment", "1:0-1:0", "* ", "unknown-option 1:0-1:10")]),
        ("threads 1\n|threads 2", [(0, 0, 1, 0, "")], []),
        ("* old\n|metod dual", [(0, 0, 1, 0, "")],
         [('! Replace "metod" by "method"', "0:0-0:5", "method", "unknown-option 1:0-1:5"),
          ("Make the line a comment", "0:0-0:0", "* ", "unknown-option 1:0-1:5")]),
        ("|metod dual", [(0, 0, 0, 1, "M")], []),
        ("verbose yes\n|metod dual\n", [(2, 0, 2, 0, "x\n")],
         [('! Replace "metod" by "method"', "1:0-1:5", "method", "unknown-option 1:0-1:5"),
          ("Make the line a comment", "1:0-1:0", "* ", "unknown-option 1:0-1:5")]),
        ("* 1\n* 2\n|metod dual", [(0, 0, 1, 0, ""), (1, 0, 1, 0, "* 2\n")],
         [('! Replace "metod" by "method"', "2:0-2:5", "method", "unknown-option 2:0-2:5"),
          ("Make the line a comment", "2:0-2:0", "* ", "unknown-option 2:0-2:5")])):
    expect(f"actions for {text!r} after the changes {changes}", changed(text, changes), wanted)

file = path("next.opt")
client.open(file, "tiem_limit 5\n")
client.diagnostics(file)
client.change(file, (0, 0, 0, 0, "* new\n"))
client.diagnostics(file)
place = {"line": 1, "character": 0}
answer = client.at("codeAction", file, 0, 0, range={"start": place, "end": place}, context={})
expect("actions after the analysis of a change", [each["title"] for each in answer],
       ['Replace "tiem_limit" by "time_limit"', "Make the line a comment"])
file = path("late.opt")
client.open(file, "blabla 4\n" + "* long\n" * 50000)  # its analysis is not done when the change comes
answer = client.at("codeAction", file, 0, 0, [(0, 0, 0, 0, "\n")], range={"start": place, "end": place}, context={})
expect("actions for a text that changes before its first analysis is done", [
    short(each["edit"]["changes"][uri(file)][0]["range"]) for each in answer], ["1:0-1:0"])
client.close(file)

# ---- what the client has: findings, and kinds of actions

place = lambda line: {"range": {"start": {"line": line, "character": 0}, "end": {"line": line, "character": 3}}}


def about(known):
    diagnostics = [{**place(line), "code": code} for line, code in known]
    return actions("tiem_limit| 5\nverbose no", diagnostics=diagnostics)[0][3]


for known, wanted in (
        ([(0, "unknown-option")], "unknown-option 0:0-0:3"),
        ([(1, "unknown-option")], ""),
        ([(0, "value")], ""),
        ([(0, "unknown-option"), (0, "unknown-option"), (0, "x")],
         "unknown-option 0:0-0:3 and unknown-option 0:0-0:3")):
    expect(f"the findings of an action of {known}", about(known), wanted)
for only, wanted in ((["quickfix"], 2), (["refactor"], 0), ([], 2), ([""], 2), (["refactor", "quickfix"], 2), (7, 2)):
    expect(f"actions of the kinds {only}", len(actions("tiem_limit| 5", only=only)), wanted)
plain = Client(folder)
expect("actions of a client that takes none", actions("tiem_limit| 5", plain), [])
plain.quit()
write("bare.def", TEXT.replace("comment eolcomm !\n", "").replace("use time_limit", "time_limit is better"))
bare = lambda text: actions("* definition: bare.def\n" + text)
for text, wanted in (
        ("eolonly off\nquiet blabla |4", []),
        ("old_time |4", [('! Replace "old_time" by "time_limit"', "1:0-1:8", "time_limit", "deprecated 1:0-1:8")]),
        ("blabla |4", [("Make the line a comment", "1:0-1:0", "* ", "unknown-option 1:0-1:6")])):
    expect(f"actions for {text!r} without comments at the ends of lines", bare(text), wanted)
write("minos.def", "Minos lookup\nmajor_print_level integer 1 1 0 9 1 1 Level\nold_level integer 2 1 0 9 1 1 Old\n"
      "mpl synonym major_print_level\ngeneral group 1 1 G\nd deprecated\n mpl x\n old_level mpl\n")
minos = lambda text: actions("* definition: minos.def\n" + text)
for text, wanted in (
        ("mpl |3", [('! Replace "mpl" by "major print level"', "1:0-1:3", "major print level", "deprecated 1:0-1:3")]),
        ("old level |3", [])):
    expect(f"actions for {text!r} in lookup mode Minos", minos(text), wanted)
client.quit()

# ---- the edit of a client that takes versions

versions = Client(folder, {"textDocument": ACTIONS, "workspace": {"workspaceEdit": {"documentChanges": True}}})
versions.open(MAIN, "blabla 4\n")
[finding] = versions.diagnostics(MAIN)
[action] = versions.at("codeAction", MAIN, 0, 0, range=finding["range"], context={"diagnostics": [finding]})
expect("an action with the version of the document", short(action),
       {"diagnostics": [{"code": "unknown-option", "message": 'Unknown option "blabla"', "range": "0:0-0:6",
          "severity": 1, "source": "wexcorin"}],
        "edit": {"documentChanges": [{"edits": [{"newText": "* ", "range": "0:0-0:0"}],
           "textDocument": {"uri": "main.opt", "version": 1}}]},
        "kind": "quickfix", "title": "Make the line a comment"})
versions.quit()

finish()

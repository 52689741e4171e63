"""Proves what migrate promises: makes random definitions, changes of them and option files, and compares what the files
set under the older definition with what the migrated files set under the newer one.
usage: migrations.py TOOL [CASES [FIRST]]; see cases.py"""
import json
from cases import run_cases, two_definitions
from generated import candidates, text_of
from support import read, run, write

VALUELESS = ["macro", "multilist", "immediate"]
TRAILERS = ["", "", "", "  # why", " ! note", "\t"]
OTHERS = ["", "* a comment", "# a comment", "   ", "! x", "no such 5", "9", "alpha", "-beta 1", "*", "alpha 1, beta 2"]


# ---- what is in force: the options with their values, and the dot lines and indicators

def settings(definition, file):
    rows = json.loads(run(f"wexcorin show {definition} {file} --json --origin")[0])["options"]
    options = {}
    for row in rows:
        name = row["name"].lower().replace(" ", "_")
        if name in options:  # in lookup mode Minos, a list with underscores is made anew by each line
            row["value"] = options[name]["value"] + row["value"]
        options[name] = row
    out = run(f"wexcorin diff --defaults {file} --definition {definition} --json")[0]
    return options, [(each["name"].lower().split(" ", 1)[-1], each["values"][0]["value"])
                     for each in json.loads(out)["differences"] if each["kind"] in ("dot line", "indicator")]


def value_of(row):
    values = [row["value"], row.get("value2", row["value"])]
    if isinstance(values[0], list):
        return values[0]
    return [float(value) if isinstance(value, (int, float)) else str(value).lower() for value in values]


# An option without a value can tell only whether it was named. Of two values, one may be the default, which may change.
def same(before, after, pinned=False):
    if {before["name"].lower(), after["name"].lower()} & FLAGS:
        return before["set"] == after["set"]
    one, other = value_of(before), value_of(after)
    if isinstance(before["value"], list) or isinstance(after["value"], list):
        return one == other or list(map(text, one)) == list(map(text, other))
    origins = before["origin"], before.get("origin2", before["origin"])
    return all(a == b or text(a) == text(b) for a, b, origin in zip(one, other, origins) if origin or pinned)


def text(value):
    return f"{value:g}" if isinstance(value, float) else value


# Whether the newer definition takes the value on a line that stays when it is migrated.
def allowed(name, before, after):
    if after["name"].lower() in FLAGS:
        return False
    values = value_of(before) if "value2" in before else value_of(before)[:1]
    line = f"{name} " + " ".join(f'"{text(value)}"' for value in values)
    write("one.opt", line.replace("_", " ") + "\n" if MINOS else line + "\n")
    row = settings("new.def", "one.opt")[0].get(name, after)
    migrate("one.opt", "again", "")
    return row["set"] and same(before, row, True) and read("again/one.opt") == read("one.opt")


def obsolete(name, notes):
    return any(note["name"].lower().replace(" ", "_") == name and note["text"].startswith(("obsolete", "gone"))
               for note in notes)


def option_file(old, new, choice):
    lines = choice.sample(lines := candidates(old, new, choice), min(len(lines), choice.choice([5, 20, 60])))
    lines = [line + choice.choice(TRAILERS) for line in lines]
    for each in choice.sample(OTHERS, 4):
        lines.insert(choice.randrange(len(lines) + 1), each)
    end = choice.choice(["\n", "\n", "\r\n"])
    return choice.choice(["", "", "", "\ufeff"]) + end.join(lines) + choice.choice([end, end, ""])


# Without the lines that the older definition refuses.
def clean(text):
    lines = text.split("\n")
    while True:
        write("case.opt", "\n".join(lines))
        found = json.loads(run("wexcorin check old.def case.opt --json --limit 99999")[0])["findings"]
        bad = {each["line"] for each in found if each["severity"] == "error"}
        if not bad:
            return
        lines = [line for number, line in enumerate(lines, 1) if number not in bad]


def migrate(file, folder, flags, newer="new.def"):
    out, err, code = run(f"wexcorin migrate --from old.def --to {newer} {file} -o {folder} --json {flags}")
    if code not in (0, 1):
        raise RuntimeError(f"exit code {code}: {err}")
    return json.loads(out)


def case(choice):
    global MINOS, FLAGS
    made = two_definitions(choice, [1, 1, 2, 3, 5])
    if not made:
        return None
    old, new, _ = made
    MINOS = new["mode"] == "Minos"
    FLAGS = {option["name"].lower() for each in (old, new) for option in each["options"] if option["modifier"] == ".NV"}
    FLAGS |= {name.replace("_", " ") for name in FLAGS}
    olders = {option["name"].lower() for option in old["options"]}
    newers = {option["name"].lower() for option in new["options"]}
    renames = {name.lower(): target.lower() for name, target in new["synonyms"]
               if name.lower() in olders - newers and target.lower() not in olders}
    isclean = choice.random() < 0.7
    write("case.opt", option_file(old, new, choice))
    if isclean:
        clean(read("case.opt"))
    flags = choice.choice(["", "--pin", "--clamp", "--pin --clamp"])
    report = migrate("case.opt", "out", flags)
    migrate("out/case.opt", "twice", flags)
    if read("out/case.opt") != read("twice/case.opt"):
        return "migrating twice changes something"
    if report["changes"] == 0 and read("out/case.opt") != read("case.opt"):
        return "the file differs, but nothing was reported"
    if not old["deprecated"] and not old["obsolete"]:
        write("help.def", text_of(old) + "* the same\n")
        migrate("case.opt", "help", "--pin --clamp", "help.def")
        if read("help/case.opt") != read("case.opt"):
            return "the definition is the same, but the file was changed"
    spreads = {option["name"].lower() for option in old["options"] if option["type"] in ("macro", "multilist")}
    never = {name.lower() for name in old["obsolete"]}
    return compare(renames, report, flags, spreads, never) if isclean else ""


# `never` are the options that a line of the older definition cannot set by their names.
def compare(renames, report, flags, spreads, never):
    notes = report["files"][0]["notes"]
    before, entries_before = settings("old.def", "case.opt")
    after, entries_after = settings("new.def", "out/case.opt")
    told = {note["name"].lower().replace(" ", "_") for note in notes
            if note["decide"] or note["action"] in ("clamped", "commented")}
    expected, problems = set(), {}
    for name, row in before.items():
        now = after.get(renames.get(name, name))
        if now is None:
            continue
        expected.add(now["name"])
        problem = ""
        if not row["set"] and "--pin" not in flags:
            if now["set"]:
                problem = f"{now['name']} is set, but was not"
        elif not name.startswith(".") and row["type"] not in VALUELESS and not same(row, now, "--pin" in flags):
            if not told & (spreads | {name, ""}):
                problem = f"{name} was {row['value']}, is {now['value']}, and nothing is left to decide"
            elif name in told and name not in never and allowed(renames.get(name, name), row, now) and not obsolete(name, notes):
                problem = f"{name} was {row['value']}, is {now['value']}, but could be the same"
        problems.setdefault(now["name"], []).append(problem)
    for each in problems.values():  # several options may have become one, which continues one of them
        if all(each):
            return each[0]
    for name, row in after.items():
        if row["set"] and row["name"] not in expected:
            return f"{name} is set, but was not there"
    if not told and not any(note["action"] in ("commented", "reduced") for note in notes) and \
            sorted(entries_before) != sorted(entries_after):  # their order follows the spelling of names
        return f"dot lines and indicators were {entries_before}, are {entries_after}"
    return ""


run_cases(case, 40)

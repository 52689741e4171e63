"""Proves the classes that diff gives to changes of a definition: makes random definitions, random changes of them and
option files with every kind of line, reads the files under both definitions, and compares what happened with the class.
usage: changes.py TOOL [CASES [FIRST]]; see cases.py"""
import json, re
from cases import run_cases, two_definitions
from generated import acting, candidates, names, switches
from support import run, write


def findings(definition, text):
    write("case.opt", text)
    return json.loads(run(f"wexcorin check {definition} case.opt --json --limit 99999")[0])["findings"]


# What dot lines and indicators set. Keyword and order of indicators do not count.
def entries(definition):
    out = run(f"wexcorin diff --defaults case.opt --definition {definition} --json")[0]
    for each in json.loads(out)["differences"]:
        if each["kind"] in ("dot line", "indicator"):
            name = each["name"].lower().split(" ", 1)[-1]
            lines = re.findall(r":(\d+)", each["values"][0]["origin"])
            yield from ((int(line), name, value) for line, value in zip(lines, each["values"][0]["value"]))


# What each line sets, by the traces of values: its number, then an option, dot line or indicator and the value.
def settings(definition):
    result = {}
    out = run(f"wexcorin show {definition} case.opt --json --origin")[0]
    for row in json.loads(out)["options"]:
        for origin, value in ("origin", "value"), ("origin2", "value2"):
            found = row.get(origin)
            if row["name"].startswith(".") or not found:
                continue
            pairs = list(zip(found, row["value"])) if isinstance(found, list) else \
                [(each, each["value"]) for each in found["overrode"]] + [(found, row[value])]
            for place, seen in pairs:
                result.setdefault(place["line"], []).append((row["name"].lower(), origin, seen))
    for line, name, value in entries(definition):
        result.setdefault(line, []).append((name, "entry", value))
    return result, {row["name"].lower(): row["default"] for row in json.loads(out)["options"]}


# Whether a line that was clean is refused, and whether a clean one, or a default, means something else.
def compare(lines, renames):
    bad = {each["line"] for each in findings("new.def", lines) if each["severity"] == "error"}
    old, old_defaults = settings("old.def")
    new, new_defaults = settings("new.def")
    refused = silent = None
    for number, line in enumerate(lines.split("\n"), 1):
        before = sorted((renames.get(name, name), which, repr(value)) for name, which, value in old.get(number, []))
        after = sorted((name, which, repr(value)) for name, which, value in new.get(number, []))
        second = {each for each in after if each[1] == "origin2" and not any(other[:2] == each[:2] for other in before)}
        if number in bad or (before and not after):
            refused = refused or line
        elif before != [each for each in after if each not in second]:
            silent = silent or line
    for name, value in old_defaults.items():
        now = new_defaults.get(renames.get(name, name), value)
        if repr(now) != repr(value):
            silent = silent or f"default of {name}"
    return refused, silent


def case(choice):
    made = two_definitions(choice, [1, 1, 1, 2, 3])
    if not made:
        return None
    old, new, changes = made
    renames = {each["before"].replace("_", " ").lower() if old["mode"] == "Minos" else each["before"].lower():
               each["after"].replace("_", " ").lower() if new["mode"] == "Minos" else each["after"].lower()
               for each in changes if each["kind"] == "renamed" and each["before"]}
    if old["mode"] != new["mode"]:
        renames |= {(name.replace("_", " ") if old["mode"] == "Minos" else name).lower():
                    (name.replace("_", " ") if new["mode"] == "Minos" else name).lower() for name in names(old)}
    lines = candidates(old, new, choice)
    dirty = {each["line"] for each in findings("old.def", "\n".join(lines)) if each["severity"] == "error"}
    choice.shuffle(clean := [line for number, line in enumerate(lines, 1) if number not in dirty])
    text = "\n".join(line for line in clean if not switches(line, old))
    while worse := {each["line"] for each in findings("old.def", text)
                    if each["severity"] == "error" or each["rule"] == "illegal-value"}:
        text = "\n".join(line for number, line in enumerate(text.split("\n"), 1) if number not in worse)
    refused, silent = compare(text, renames)
    classes = {each["class"] for each in changes}
    if refused and "breaking" not in classes:
        return f"'{refused}' is refused, but nothing is breaking"
    if silent and not classes & {"breaking", "silent"}:
        return f"'{silent}' means something else, but all is compatible"
    certain = {"bounds", "values", "default", "removed", "synonym"}
    if len(changes) != 1 or changes[0]["kind"] not in certain or old["mode"] != "Normal" or old["deprecated"] or old["obsolete"]:
        return ""
    kind, name, before, after = (changes[0][key] for key in ("kind", "name", "before", "after"))
    lists = {option["name"] for each in (old, new) for option in each["options"] if option["type"] in ("macro", "multilist")}
    # which texts all members of a list take is not looked at; some lists take no text at all
    if {name, before} & acting(old) or (kind == "synonym" and after in lists):
        return ""
    named = not {name, before} & lists or any(name.lower() in line.lower() for line in clean)
    if changes[0]["class"] == "breaking" and named and not refused:
        return f"no line is refused, but this is breaking: {changes[0]}"
    if changes[0]["class"] == "silent" and not silent:
        return f"no line means something else, but this is silent: {changes[0]}"
    return ""


run_cases(case, 120)

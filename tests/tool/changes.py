"""Proves the classes that diff gives to changes of a definition: makes random definitions, random changes of them and
option files with every kind of line, reads the files under both definitions, and compares what happened with the class.
usage: changes.py TOOL [CASES [FIRST]]; run in the repository's root; FIRST is the number of the first case"""
import copy, json, random, re, sys
from support import failures, run, write

CASES, FIRST = (int(argument) for argument in (sys.argv[2:] + ["120", "1"][len(sys.argv) - 2:]))
WORDS = "alpha alpine beta betray gamma gam tole tolerance max maxi size".split()
TEXTS = ["red", "blue", "green", "Red", '"two words"', "1", "yes"]
MODIFIED = "integer double boolean enumstr enumint".split()


# ---- definitions. An option is a dictionary; `values` are those of an enumeration, or the members

def new_name(definition, choice):
    while True:
        name = "_".join(choice.choices(WORDS, k=choice.choice([1, 1, 2, 2, 3])))
        if name not in names(definition):
            return name


def new_option(definition, choice, kind=None):
    others = ["macro", "multilist", "immediate"] if len(definition["options"]) > 2 else []
    kind = kind or choice.choice(MODIFIED + ["string", "strlist"] + others)
    option = {"name": new_name(definition, choice), "type": kind, "modifier": "", "group": 1, "help": "Help",
              "number": choice.randrange(99)}
    if kind in MODIFIED:
        option["modifier"] = choice.choice(["", "", ".NV", ".OPT", ".TWO"])
    if kind in ("integer", "double"):
        option["low"], option["default"], option["high"] = sorted(choice.sample([-3, 0, 1, 2, 5, 9, 10, 100], 3))
    elif kind == "boolean":
        option["default"] = choice.randrange(2)
    elif kind == "string":
        option["default"] = choice.choice(TEXTS)
    elif kind == "enumstr":
        option["values"] = choice.sample(["red", "blue", "green", '"two words"'], choice.choice([1, 2, 3]))
    elif kind == "enumint":
        option["values"] = choice.sample([0, 1, 2, 5, 10], choice.choice([1, 2, 3]))
    elif kind in ("macro", "multilist"):
        others = [each["name"] for each in definition["options"] if each["type"] != "immediate"]
        option["values"] = choice.sample(others, min(len(others), choice.choice([1, 2, 3])))
    elif kind == "immediate":
        option["default"] = choice.choice(["nobounds", "help", "eolflag", "readfile"])
    if kind in ("enumstr", "enumint"):
        option["default"] = choice.choice(option["values"])
    if kind in MODIFIED and choice.random() < 0.1:
        option["name"] = "." + option["name"]
    return option


def new_definition(choice):
    definition = {"mode": choice.choice(["Normal", "Normal", "Path", "Minos"]), "keyword": choice.choice(["", "ind"]),
                  "comments": choice.choice(["", "#", "!#"]), "options": [], "synonyms": [], "deprecated": [],
                  "obsolete": []}
    for _ in range(choice.choice([3, 5, 7])):
        definition["options"].append(new_option(definition, choice))
    for _ in range(choice.choice([0, 1, 2])):
        definition["synonyms"].append((new_name(definition, choice), choice.choice(definition["options"])["name"]))
    for block in "deprecated", "obsolete":
        if choice.random() < 0.3:
            definition[block] = [choice.choice(names(definition))]
    return definition


def names(definition):
    return [option["name"] for option in definition["options"]] + [name for name, _ in definition["synonyms"]]


def text_of(definition):
    lines = [f"{definition['mode']} lookup", f"x eolcomm {definition['comments']}", "main group 1 1 Main",
             "other group 2 1 Other"]
    if definition["keyword"]:
        lines.append(f"{definition['keyword']} indicator")
    for option in definition["options"]:
        fields = [] if option["type"] in ("macro", "immediate") else [option["number"]]
        fields += [option[field] for field in ("default", "low", "high") if field in option]
        fields = [option["name"], option["type"] + option["modifier"], *fields, 1, option["group"], option["help"]]
        lines.append(" ".join(map(str, fields)))
        is_list = option["type"] in ("macro", "multilist")
        lines += [f" {value}" + ("" if is_list else " 1") for value in option.get("values", [])]
    # the traces of dot options are left out, so they have no synonyms
    definition["synonyms"] = [pair for pair in definition["synonyms"] if not pair[1].startswith(".")]
    lines += [f"{name} synonym {target}" for name, target in definition["synonyms"]]
    for block in "deprecated", "obsolete":
        if definition[block]:
            lines += [f"x {block}"] + [f" {name} for a reason" for name in definition[block]]
    return "\n".join(lines) + "\n"


# ---- changes: each changes the definition and returns what it is, or None if it does not apply

def renamed(definition, choice, with_synonym):
    option = choice.choice(definition["options"])
    if option["name"].startswith("."):
        return None
    old, option["name"] = option["name"], new_name(definition, choice)
    for each in definition["options"]:
        if each["type"] in ("macro", "multilist"):
            each["values"] = [option["name"] if value == old else value for value in each["values"]]
    definition["synonyms"] = [(name, option["name"] if target == old else target)
                              for name, target in definition["synonyms"]]
    for block in "deprecated", "obsolete":
        definition[block] = [option["name"] if name == old else name for name in definition[block]]
    if with_synonym:
        definition["synonyms"].append((old, option["name"]))
    return "rename"


def change(definition, choice):
    options = definition["options"]
    option = choice.choice(options)
    what = choice.choice("remove add rename synonym-rename type modifier bounds default values members synonym synonym- "
                         "retarget deprecated obsolete current mode comments keyword action help group number order "
                         "spelling".split())
    if what == "remove":
        options.remove(option)
        for each in options:
            if each["type"] in ("macro", "multilist"):
                each["values"] = [value for value in each["values"] if value != option["name"]]
        definition["synonyms"] = [pair for pair in definition["synonyms"] if pair[1] != option["name"]]
    elif what == "add":
        options.insert(choice.randrange(len(options) + 1), new_option(definition, choice, choice.choice(MODIFIED)))
    elif what in ("rename", "synonym-rename"):
        return renamed(definition, choice, what == "synonym-rename")
    elif what == "type":
        new = new_option(definition, choice, choice.choice(MODIFIED + ["string", "strlist"]))
        modifier = option["modifier"] if new["type"] in MODIFIED else ""
        new |= {"name": option["name"], "modifier": choice.choice([modifier, new["modifier"]])}
        options[options.index(option)] = new
    elif what == "modifier" and option["type"] in MODIFIED:
        option["modifier"] = choice.choice(["", ".NV", ".OPT", ".TWO"])
    elif what == "bounds" and "low" in option:
        option["low"] += choice.choice([-2, 0, 1])
        option["high"] += choice.choice([-1, 0, 3])
        option["default"] = min(max(option["default"], option["low"]), option["high"])
    elif what == "default" and "default" in option:
        option["default"] = new_option(definition, choice, option["type"])["default"]
    elif what == "values" and option["type"] in ("enumstr", "enumint"):
        option["values"] = new_option(definition, choice, option["type"])["values"]
        if option["default"] not in option["values"]:
            option["values"].append(option["default"])
    elif what == "members" and option["type"] in ("macro", "multilist"):
        before = {**definition, "options": options[:options.index(option)]}
        option["values"] = new_option(before, choice, option["type"])["values"]
    elif what == "synonym":
        definition["synonyms"].append((new_name(definition, choice), option["name"]))
    elif what == "synonym-" and definition["synonyms"]:
        definition["synonyms"].pop()
    elif what == "retarget" and definition["synonyms"]:
        definition["synonyms"][0] = (definition["synonyms"][0][0], option["name"])
    elif what in ("deprecated", "obsolete"):
        definition[what] = definition[what] + [choice.choice(names(definition))]
    elif what == "current":
        definition["deprecated"], definition["obsolete"] = [], []
    elif what == "mode":
        definition["mode"] = choice.choice(["Normal", "Path", "Minos"])
    elif what == "comments":
        definition["comments"] = choice.choice(["", "#", "!#", "%"])
    elif what == "keyword":
        definition["keyword"] = choice.choice(["", "ind", choice.choice(names(definition)).strip(".")])
    elif what == "action" and option["type"] == "immediate":
        option["default"] = choice.choice(["nobounds", "help", "eolflag", "readfile"])
    elif what in ("help", "group", "number"):
        option[what] = {"help": "Other", "group": 2, "number": 100}[what]
    elif what == "order":
        choice.shuffle(options)
    elif what == "spelling":
        option["name"] = option["name"].upper()
    else:
        return None
    return what


# ---- option files

# The ways in which a name may be typed.
def spellings(name, mode, choice):
    words = name.split("_")
    if mode == "Normal":
        return [name, name.upper()]
    parts = [word[:3 if mode == "Path" or i == 0 else 4] for i, word in enumerate(words)]
    longer = [part + choice.choice(["", "xyz"]) if len(part) > 2 else part for part in parts]
    return [("_" if mode == "Path" else " ").join(each) for each in (words, parts, longer)]


def candidates(definition, other, choice):
    numbers = {value for each in (definition, other) for option in each["options"] for value in
               [option.get(field) for field in ("default", "low", "high")] + option.get("values", [])
               if isinstance(value, int)}
    values = TEXTS + "2.5;no;zzz;a#b;a!b%c;1 2;* 5;\"1\" 5;1:2:0;red:1".split(";")
    values += sorted(map(str, {n + d for n in numbers for d in (-1, 0, 1)}))
    lines = [f"--{word} {value}" for word in ("alpha", "alpine", "own_list", "own") for value in ("a", "b c")]
    lines += ["ind e$v 1", "ind e('a#b')$v no"]
    for name in names(definition):
        for typed in spellings(name, definition["mode"], choice):
            key = f"sym{typed}" if name.startswith(".") else typed
            lines += [key] + [f"{key} {value}" for value in values]
            if name.startswith("."):
                lines += [f"sym{typed}('a#b') {value}" for value in ("1", "red")]
    return lines


def findings(definition, text):
    write("case.opt", text)
    return json.loads(run(f"wexcorin check {definition} case.opt --json --limit 99999")[0])["findings"]


# What each line sets, by the traces of values: its number, then pairs of an option and a value. Dot lines are left out.
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


def case(seed):
    choice = random.Random(seed)
    old = new_definition(choice)
    new = copy.deepcopy(old)
    made = [change(new, choice) for _ in range(choice.choice([1, 1, 1, 2, 3]))]
    write("old.def", text_of(old))
    write("new.def", text_of(new))
    out, _, code = run("wexcorin diff old.def new.def --json")
    if code == 2 or not any(made):
        return None
    changes = json.loads(out)["changes"]
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
    acts = len(changes) == 1 and not {changes[0]["name"], changes[0]["before"]}.isdisjoint(acting(old))
    plain = old["mode"] == "Normal" and not (acts or old["deprecated"] or old["obsolete"])
    if len(changes) == 1 and changes[0]["kind"] in certain and plain:
        if changes[0]["class"] == "breaking" and not refused:
            return f"no line is refused, but this is breaking: {changes[0]}"
        if changes[0]["class"] == "silent" and not silent:
            return f"no line means something else, but this is silent: {changes[0]}"
    return ""


# The names of immediate options. Their lines act on those behind them and would hide what these do.
def acting(definition):
    result = {option["name"] for option in definition["options"] if option["type"] == "immediate"}
    return result | {name for name, target in definition["synonyms"] if target in result} | {"Help"}


def switches(line, definition):
    if definition["mode"] == "Normal":
        return line.split()[0].lower() in {name.lower() for name in acting(definition)}
    return any(line.lower().startswith(name[:3].lower()) for name in acting(definition))


done = 0
for seed in range(FIRST, FIRST + CASES):
    problem = case(seed)
    done += problem is not None
    if problem:
        failures.append(f"case {seed}: {problem}")
if done < CASES / 3:
    failures.append(f"only {done} of {CASES} cases compare definitions without errors")
sys.exit("\n".join(failures) or 0)

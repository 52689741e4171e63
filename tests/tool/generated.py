"""Definitions, changes of definitions and lines of option files, made at random."""

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
    # two values that are taken, of which the first is in quotes
    values += ['"{0}" "{0}"'.format(str(option["default"]).strip('"')) for option in definition["options"]
               if option["modifier"] == ".TWO"]
    lines = [f"--{word} {value}" for word in ("alpha", "alpine", "own_list", "own") for value in ("a", "b c")]
    lines += ["ind e$v 1", "ind e('a#b')$v no"]
    for name in names(definition):
        for typed in spellings(name, definition["mode"], choice):
            key = f"sym{typed}" if name.startswith(".") else typed
            lines += [key] + [f"{key} {value}" for value in values]
            if name.startswith("."):
                lines += [f"sym{typed}('a#b') {value}" for value in ("1", "red")]
    return lines


# The names of immediate options. Their lines act on those behind them and would hide what these do.
def acting(definition):
    result = {option["name"] for option in definition["options"] if option["type"] == "immediate"}
    return result | {name for name, target in definition["synonyms"] if target in result} | {"Help"}


def switches(line, definition):
    if definition["mode"] == "Normal":
        return line.split()[0].lower() in {name.lower() for name in acting(definition)}
    return any(line.lower().startswith(name[:3].lower()) for name in acting(definition))

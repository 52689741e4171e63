"""Compares pascal/wexcorin.pas with the library: every short-string function and nothing else, each declared
as the library's own signature says, and the constants. What is compared is read from the unit's text and
becomes statements of unit.pas; so do the options in the maps of an include file that `doc pascal` wrote.
usage: unit.py LIBRARY_DIRECTORY [TOOL]; run in the repository's root; exit code 77: fpc is missing"""
import re, shutil, subprocess, sys, tempfile

UNIT, DIRECTORY = "pascal/wexcorin.pas", tempfile.TemporaryDirectory()
CODES = {"LongInt": 3, "PAnsiChar": 10, "Double": 13, "var LongInt": 4, "constref ShortString": 11,
         "var ShortString": 12, "var Double": 14}
GROUPS = {"optData": 1, "optType": 2, "optsub": 3, "optMsg": 4}
# These take no handle, and the library does not list them.
UNLISTED = "optGetLoadPath optSetLoadPath xAPIVersion xCheck xCreate xFree".split()


def write(name, lines):
    with open(f"{DIRECTORY.name}/{name}", "w", encoding="latin-1") as file:
        file.write("\n".join(lines) + "\n")


# The codes that a declaration means; of "var number, refnr: LongInt" one for each name.
def codes(result, arguments):
    handle, *parameters = arguments.split("; ")
    if handle != "handle: tvksoptions" or result not in ("", "LongInt"):
        sys.exit(f"{UNIT}: not understood: ({arguments}): {result}")
    yield CODES[result] if result else 0
    for parameter in parameters:
        form = re.fullmatch(r"((?:var|const|constref|out) )?(.*): (\w+)", parameter)
        modifier, names, kind = form.groups("")
        if modifier + kind not in CODES:
            sys.exit(f"{UNIT}: no code for the parameter {parameter}")
        yield from [CODES[modifier + kind]] * (names.count(",") + 1)


if not shutil.which("fpc"):
    print("fpc is not installed: the Pascal unit stays untried")
    sys.exit(77)
library, *tool = sys.argv[1:]
with open(UNIT, encoding="latin-1") as file:
    text = " ".join(re.sub(r"\{[^}]*\}", " ", file.read()).split())
statements, symbols = [], set()
for kind, name, arguments, result, linked in re.findall(
        r"(function|procedure) (\w+)(?:\(([^)]*)\))?(?:: (\w+))?;([a-z ;]* external [^;]*)", text):
    if linked != f" cdecl; external wexcorinlibrary name '{name.lower()}'":
        sys.exit(f"{UNIT}: {name} is no function of the library, or not the symbol of that name: {linked}")
    symbols.add(name.lower())
    if name not in UNLISTED:
        statements.append(f"signature('{name}', [{', '.join(map(str, codes(result, arguments)))}]);")
for group, name, value in re.findall(r"\b(opt(?:Data|Type|sub|Msg))(\w+) = (\d+)", text):
    if name != "UserError":
        statements.append(f"constant({GROUPS[group]}, {value}, '{group}{name}');")
with open("api/exports.txt", encoding="ascii") as file:
    exported = {name for name in file.read().split() if not name.startswith("c")}
if symbols != exported:
    sys.exit(f"{UNIT}: declare {exported - symbols}, take out {symbols - exported}")

maps = []
if tool:
    with open("examples/solver.def", encoding="latin-1") as file:  # but its dot options: no names of Pascal
        write("solver.def", [re.sub(r"(?m)^\..*\n( .*\n)*", "", file.read())])
    made = subprocess.run([*tool, "doc", "pascal", f"{DIRECTORY.name}/solver.def", "-o", "-"], check=True,
                          stdout=subprocess.PIPE, encoding="latin-1")
    maps = made.stdout.split("\n")
    for kind, names in re.findall(r"Tpf(\w*)keys = \(([^)]*)\)", "\n".join(maps)):
        statements += [f"mapped('{name[2:]}', pf{kind}map[{name}]);" for name in re.findall(r"\w+", names)]
write("solver.inc", maps)
write("statements.inc", statements)
for command in (["sh", "tests/pascal/compile.sh", library, "tests/pascal/unit.pas", DIRECTORY.name],
                [f"{DIRECTORY.name}/unit", f"{DIRECTORY.name}/solver.def"]):
    if subprocess.run(command).returncode != 0:
        sys.exit(1)
print(f"{len(symbols)} functions, declared as the library has them, {len(statements)} statements")

"""Compares pascal/wexcorin.pas with the binary interface in api/abi.txt: every short-string function with its
types, every constant, and nothing else. Then runs unit.pas with an include file that `doc pascal` wrote: each
name must have the number that the option has in the library.
usage: unit.py LIBRARY_DIRECTORY TOOL; run in the repository's root; exit code 77: fpc is missing"""
import difflib, re, shutil, subprocess, sys, tempfile

library, tool = sys.argv[1:]
TYPES = {"": "void", "LongInt": "int", "var LongInt": "int*", "Double": "double", "var Double": "double*",
         "constref ShortString": "optshortstring const*", "var ShortString": "optshortstring*",
         "PAnsiChar": "char const*", "PLongInt": "int const*", "tvksoptions": "tvksoptions*",
         "var tvksoptions": "tvksoptions**"}


def read(name):
    with open(name, encoding="latin-1") as file:
        return file.read()


# The types in C, one for each name in "var number, refnr: LongInt". An unknown type stays unchanged.
def types(parameters):
    for parameter in parameters.split("; "):
        form = re.fullmatch(r"((?:var|const|constref|out) )?(.*): (\w+)", parameter)
        modifier, names, kind = form.groups("")
        yield from [TYPES.get(modifier + kind, modifier + kind)] * (names.count(",") + 1)


text = " ".join(re.sub(r"\{[^}]*\}", " ", read("pascal/wexcorin.pas")).split())
declared = [constant.replace("optInterfaceVersion", "WEXCORIN_INTERFACE_VERSION")
            for constant in re.findall(r"\b(opt(?!Code)\w+ = \d+);", text)]
for name, parameters, result, linked in re.findall(
        r"(?:function|procedure) (\w+)(?:\(([^)]*)\))?(?:: (\w+))?;([a-z ;]* external [^;]*)", text):
    if linked != f" cdecl; external wexcorinlibrary name '{name.lower()}'":
        sys.exit(f"pascal/wexcorin.pas: {name} has another symbol or another calling convention than in C: {linked}")
    declared.append(f"{name.lower()}: {TYPES.get(result, result)} ({', '.join(types(parameters))})")
wanted = [line for line in read("api/abi.txt").splitlines() if line[0] in "oxW" and "TEXT_SIZE" not in line]
if sorted(declared) != sorted(wanted):
    sys.exit("\n".join(["pascal/wexcorin.pas (lines with +) differs from api/abi.txt (lines with -):",
                        *difflib.unified_diff(sorted(wanted), sorted(declared), lineterm="", n=0)]))

if not shutil.which("fpc"):
    print("fpc is not installed: the output of `doc pascal` is not compiled")
    sys.exit(77)
with tempfile.TemporaryDirectory() as work:
    # names of dot options are no identifiers in Pascal
    with open(f"{work}/solver.def", "w", encoding="latin-1") as file:
        file.write(re.sub(r"(?m)^\..*\n( .*\n)*", "", read("examples/solver.def")))
    subprocess.run([tool, "doc", "pascal", f"{work}/solver.def", "-o", f"{work}/solver.inc"], check=True)
    with open(f"{work}/statements.inc", "w", encoding="latin-1") as file:
        for kind, names in re.findall(r"Tpf(\w*)keys = \(([^)]*)\)", read(f"{work}/solver.inc")):
            for name in re.findall(r"\w+", names):
                file.write(f"mapped('{name[2:]}', pf{kind}map[{name}]);\n")
    for command in (["sh", "tests/pascal/compile.sh", library, "tests/pascal/unit.pas", work],
                    [f"{work}/unit", f"{work}/solver.def"]):
        if subprocess.run(command).returncode != 0:
            sys.exit(1)

"""Builds the programs in docs/client-guide.md and README.md. The two reports of the guide must list the same problems
as `wexcorin check --json`, each with its file, line, severity, text and details.
usage: guide.py LIBRARY_DIRECTORY TOOL C_COMPILER CXX_COMPILER; run in the repository's root"""
import json, os, re, subprocess, sys, tempfile

LIBRARY, TOOL, CC, CXX = sys.argv[1:]
work = tempfile.TemporaryDirectory()
failures = []


def output(*command):
    return subprocess.run(command, capture_output=True, encoding="utf-8", errors="surrogateescape").stdout


# Builds the program that stands in a document between ```LANGUAGE and ```, the first one with that word in it.
def build(document, language, word):
    with open(document, encoding="utf-8") as file:
        code = next(code for code in re.findall(rf"(?ms)^```{language}\n(.*?)^```$", file.read()) if word in code)
    program = f"{work.name}/{language}_{re.sub('[^a-z]', '', word)}"
    compiler, kind, standard = (CC, "c", "c99") if language == "c" else (CXX, "c++", "c++17")
    subprocess.run([compiler, "-x", kind, f"-std={standard}", "-Wall", "-Wextra", "-Werror", "-Iinclude", "-", "-o",
                    program, f"-L{LIBRARY}", f"-Wl,-rpath,{LIBRARY}", "-lwexcorin"],
                   input=code, encoding="utf-8", check=True)
    return program


# Each problem as a list of lines, the first of them "file:line: severity: text", the others its details.
def problems(printed):
    result = []
    for line in printed.splitlines():
        if ": note: " in line:
            result[-1].append(line.split(": note: ", 1)[1])
        else:
            result.append([line])
    return result


with open("docs/check.md", encoding="utf-8") as file:
    TOOLRULES = set(re.findall(r"^\| `(.*)` \| warning of the tool", file.read(), re.M))


# The findings of `check` that are messages of the library: the tool's own have rules of their own.
# It may add lines of its own to the details.
def findings(*files):
    for each in json.loads(output(TOOL, "check", "--json", *files))["findings"]:
        if each["rule"] not in TOOLRULES:
            place = each["file"] + (f":{each['line']}" if each["line"] else "")
            yield [f"{place}: {each['severity']}: {each['text']}", *each["details"]]


def compare(*files):
    wanted = list(findings(*files))
    if not wanted:
        failures.append(f"{files}: no problem, so nothing is compared")
    for program, once in (cpp, True), (c, False):
        seen = problems(output(program, *files))
        if not once:  # a macro files the same message for each member
            seen = [each for before, each in zip([None, *seen], seen) if each != before]
        shortened = [each[:len(same)] for each, same in zip(wanted, seen)] + wanted[len(seen):]
        failures.extend(f"{os.path.basename(program)} {files}: {same} is not {each} of check"
                        for each, same in zip(shortened + [None] * len(seen), seen) if each != same)
        failures.extend(f"{os.path.basename(program)} {files}: {each} is missing" for each in wanted[len(seen):])


c, cpp = build("docs/client-guide.md", "c", "report.c"), build("docs/client-guide.md", "cpp", "report.cpp")
bad = f"{work.name}/bad.def"
with open(bad, "w", encoding="utf-8") as file:
    file.write("a strange 1\nb integer 1 20 0 10 1 1\nc integer 1 2 3\nread immediate ReadFile 1 1\n")
part, top = f"{work.name}/part.opt", f"{work.name}/top.opt"
with open(part, "w", encoding="utf-8") as file:
    file.write('\nnone 1\nb "line 3: x"\n')
with open(top, "w", encoding="utf-8") as file:
    file.write(f"b x\nread {part}\nb 11\nread {work.name}/missing.opt\n")
compare("examples/solver.def", "examples/solver_mistakes.opt")
compare("examples/solver.def", "examples/solver_mistakes.opt", f"{work.name}/no.opt", "examples/solver_loop.opt")
compare(bad, top, part)
compare(f"{work.name}/no.def")

with open("docs/client-guide.md", encoding="utf-8") as file:
    printed = re.search(r"(?ms)^It prints:\n\n```\n(.*?)^```$", file.read())[1]
for document, language, word, wanted in (("docs/client-guide.md", "cpp", "values.cpp", printed),
                                         ("README.md", "c", "main", "at most 2000 iterations\n")):
    seen = output(build(document, language, word))
    if seen != wanted:
        failures.append(f"{word} of {document} prints {seen!r}, but the document says {wanted!r}")
if failures:
    sys.exit("\n".join(failures))
print("the programs of the documents do what the documents say")

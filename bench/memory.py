"""Measures how much memory the library takes for each byte that it reads, for each kind of input.

    memory.py LIBRARY [--bytes N] [--filter REGEX]

Each kind has its shortest lines, because a line costs most in relation to its bytes when it is short. Many of
these lines also have mistakes, which do not keep the library from storing something for them: an option whose
name is taken, for example, is reported and kept. A list of values has just grown when it has 9. Each file is
read by a process of its own. "Peak" is the most memory that was resident at any time during the reading, and
"kept" is what is resident afterwards. The exit code is 1 if a peak is above the limit that
docs/reliability.md promises.
"""

import argparse
import ctypes
import itertools
import os
import re
import sys
import tempfile

LIMIT = 30
LETTERS = "abcdefghijklmnopqrstuvwxyz"


def names():
    """Names of four characters, and then of five, all different regardless of case."""
    for length in 3, 4:
        for characters in itertools.product(LETTERS, *length * [LETTERS + "0123456789_"]):
            yield "".join(characters)


def numbers():
    return map(str, itertools.count(1000000))


# A kind of input: the definition, and the line that is repeated; "#" stands for a name and "@" for a number,
# other ones on each line. Of the first kinds the definition itself is what is measured.
DEFINITIONS = {
    "integers": ("", "# integer\n"),
    "doubles": ("", "# double\n"),
    "doubles of the same name": ("", "a double\n"),
    "strings": ("", "# string\n"),
    "strings of the same name": ("", "a string\n"),
    "strings with a default": ("", "# string x\n"),
    "booleans": ("", "# boolean\n"),
    "enumerated strings, one value each": ("", "# enumstr\n x\n"),
    "enumerated strings, 9 values each": ("", "# enumstr\n" + 9 * " x\n"),
    "enumerated strings of the same name, one value each": ("", "a enumstr\n x\n"),
    "enumerated strings of the same name, 9 values each": ("", "a enumstr\n" + 9 * " x\n"),
    "enumerated strings, all values of one": ("a enumstr\n", " #\n"),
    "enumerated strings, the same value again": ("a enumstr\n", " x\n"),
    "enumerated integers, one value each": ("", "# enumint\n \n"),
    "enumerated integers, 9 values each": ("", "# enumint\n" + 9 * " \n"),
    "enumerated integers of the same name, one value each": ("", "a enumint\n \n"),
    "enumerated integers of the same name, 9 values each": ("", "a enumint\n" + 9 * " \n"),
    "enumerated integers, all values of one": ("a enumint\n", " @\n"),
    "enumerated integers, empty values": ("a enumint\n", " \n"),
    "multilists, one member each": ("x integer\n", "# multilist\n x\n"),
    "multilists, all members of one": ("x integer\na multilist\n", " x\n"),
    "macros, one member each": ("x integer\n", "# macro\n x\n"),
    "macros of the same name": ("", "a macro\n"),
    "macros, all members of one": ("x integer\na macro\n", " x\n"),
    "string lists": ("", "# strlist\n"),
    "string lists of the same name": ("", "a strlist\n"),
    "immediate options": ("", "# immediate help\n"),
    "synonyms": ("x integer\n", "# synonym x\n"),
    "groups": ("", "# group @\n"),
    "groups of the same number": ("", "# group\n"),
    "help text of a line": ("", "# integer 0 0 0 0 0 0 x\n"),
    "help lines, one each": ("", "# integer\n \n"),
    "help lines, one each, for options of the same name": ("", "a double\n x\n"),
    "help lines, 4 each, for options of the same name": ("", "a double\n" + 4 * " x\n"),
    "help lines, all of one": ("a integer\n", " x\n"),
    "deprecation marks": ("x integer\na deprecated\n", " x x\n"),
}
BASE = "a integer 1 0 0 9\ns string\nl strlist 1\n.p integer 1 0 0 9\ni indicator\n"
PARAMETERS = {
    "values": (BASE, "a 1\n"),
    "strings": (BASE, "s #\n"),
    "lists of their own": (BASE, "--#\n"),
    "lists of their own, one text each": (BASE, "--# x\n"),
    "lists that no name finds": ("path lookup\n", "--a_\n"),
    "texts of one list": (BASE, "l x\n"),
    "empty texts of one list": (BASE, "--l\n"),
    "dot options": (BASE, "x.p 1\n"),
    "dot options with an element": (BASE, "x.p('a')1\n"),
    "dot options with elements": (BASE, "x.p(*,*,*,*,*,*,*,*,*,*,*,*,*,*,*,*,*,*,*,*)1\n"),
    "indicators": (BASE, "i e$v 1\n"),
    "indicators with elements": (BASE, "i e(a,a,a,a,a,a)$v(a,a,a,a,a,a)1\n"),
    "unknown names": (BASE, "# 1\n"),
    "echo": (BASE, "x\n"),
    "echo of empty lines": (BASE, "\n"),
}


def text(line, size):
    """The line again and again, with its names and numbers, up to so many bytes."""
    if "#" not in line and "@" not in line:
        return line * (size // len(line))
    lines, length = [], 0
    for name, number in zip(names(), numbers()):
        lines.append(line.replace("#", name).replace("@", number))
        length += len(lines[-1])
        if length >= size:
            return "".join(lines)
    raise ValueError("too few names")


def resident(field):
    with open("/proc/self/status", encoding="ascii") as status:
        return next(1024 * int(line.split()[1]) for line in status if line.startswith(field + ":"))


def measure(library, definition, parameters, echo):
    """Reads one file and returns the peak and what is kept, in bytes. For use in a process of its own."""
    calls = ctypes.CDLL(library)
    libc = ctypes.CDLL(None)
    handle = ctypes.c_void_p()
    calls.xcreate(ctypes.byref(handle))
    if parameters is not None:
        calls.coptreaddefinition(handle, definition)
        calls.optechoset(handle, int(echo))
    libc.malloc_trim(0)
    with open("/proc/self/clear_refs", "w", encoding="ascii") as reset:
        reset.write("5")
    before = resident("VmRSS")
    if parameters is None:
        code = calls.coptreaddefinition(handle, definition)
    else:
        code = calls.coptreadparameterfile(handle, parameters)
    if code != 0:
        raise OSError(code, os.strerror(code))
    peak = resident("VmHWM") - before
    libc.malloc_trim(0)
    return peak, resident("VmRSS") - before


def measured(*arguments):
    """The same in a process of its own."""
    reading, writing = os.pipe()
    child = os.fork()
    if child == 0:
        try:
            os.write(writing, " ".join(map(str, measure(*arguments))).encode())
            os._exit(0)
        except BaseException as problem:  # the parent must not continue here
            print(problem, file=sys.stderr)
            os._exit(1)
    os.close(writing)
    with os.fdopen(reading) as pipe:
        result = [int(word) for word in pipe.read().split()]
    if os.waitpid(child, 0)[1] != 0:
        raise RuntimeError("a reading failed")
    return result


def shown(line):
    """The line as it stands in the table; a part that comes again and again stands there once."""
    line = line.replace("#", "NAME").replace("@", "NUMBER").replace("\n", "\\n")
    again = re.search(r"( x?\\n)\1+$", line)
    if not again:
        return f"`{line}`"
    part, times = again[1], len(again[0]) // len(again[1])
    return f"`{line[:again.start()]}{part}` ({times} times `{part}`)"


def row(library, folder, kind, definition, line, size, isdefinition):
    files = {name: os.path.join(folder, name).encode() for name in ("definition", "parameters")}
    repeated = text(line, size)
    with open(files["definition"], "w", encoding="ascii") as file:
        file.write(definition + repeated if isdefinition else definition)
    if not isdefinition:
        with open(files["parameters"], "w", encoding="ascii") as file:
            file.write(repeated)
    parameters = None if isdefinition else files["parameters"]
    peak, kept = measured(library, files["definition"], parameters, kind.startswith("echo"))
    length = len(repeated)
    print(f"| {kind} | {shown(line)} | {peak / length:.1f} | {kept / length:.1f} |", flush=True)
    return peak / length


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("library", type=os.path.abspath)
    parser.add_argument("--bytes", type=int, default=10_000_000)
    parser.add_argument("--filter", type=re.compile, default=re.compile(""))
    arguments = parser.parse_args()
    peaks = []
    print("| What the file holds | line | peak | kept |\n|---|---|--:|--:|")
    with tempfile.TemporaryDirectory() as folder:
        for kinds in DEFINITIONS, PARAMETERS:
            for kind, (definition, line) in kinds.items():
                if arguments.filter.search(kind):
                    peaks.append(row(arguments.library, folder, kind, definition, line, arguments.bytes,
                                     kinds is DEFINITIONS))
    if max(peaks, default=0) > LIMIT:
        sys.exit(f"A kind of input takes more than {LIMIT} bytes for each byte.")


main()

"""What the tests of the tool share: a folder of their own, in which `wexcorin` and the examples are, and how commands
are run and compared. The test is run in the repository's root, with the tool as its first argument."""
import difflib, fcntl, os, pty, struct, subprocess, sys, tempfile, termios

ROOT = os.getcwd()
TOOL, EXAMPLES, DOCS = (os.path.abspath(path) for path in (sys.argv[1], "examples", "docs"))
work = tempfile.TemporaryDirectory()
os.chdir(work.name)
os.symlink(EXAMPLES, "examples")
os.symlink(TOOL, "wexcorin")
os.environ["PATH"] = f"{work.name}:{os.environ['PATH']}"
failures = []


# In texts, a surrogate stands for a byte that is not UTF-8: \udce4 is the byte E4.
def write(name, text):
    with open(name, "w", encoding="utf-8", errors="surrogateescape", newline="") as file:
        file.write(text)


def read(name):
    with open(name, encoding="utf-8", errors="surrogateescape", newline="") as file:
        return file.read()


def run(command, stdin="", errors=subprocess.PIPE):
    result = subprocess.run(command, shell=True, input=stdin, stdout=subprocess.PIPE, stderr=errors,
                            encoding="utf-8", errors="surrogateescape")
    return result.stdout, result.stderr, result.returncode


def expect(what, seen, wanted):
    if seen != wanted:
        lines = [str(value).split("\n") for value in (wanted, seen)]
        failures.append("\n".join([f"{what}: (lines with - are right, those with + were seen)",
                                   *difflib.unified_diff(*lines, lineterm="")]))


def expect_part(what, text, part):
    if part not in text:
        failures.append(f"{what}: {part!r} is not in {text!r}")


# Compares the output, the errors and the exit code of a command with what is wanted; None means that anything goes.
def runs(command, out="", err="", code=0, stdin=""):
    for name, seen, wanted in zip(("output", "errors", "exit code"), run(command, stdin), (out, err, code)):
        if wanted is not None:
            expect(f"{command}: {name}", seen, wanted)


# Runs the commands of a file and compares what each prints with what stands there. The lines of a command begin with
# four blanks, then $ and >; its output with the errors, and an exit code other than 0 in brackets, follow. Returns the
# text of the file with what was printed now.
def transcript(path):
    lines, at, result = read(path).split("\n"), 0, []
    isindented = lambda line: line[:4].strip() == ""

    def take(condition):
        nonlocal at
        begin = at
        while at < len(lines) and condition(lines[at]):
            at += 1
        return [line[4:] for line in lines[begin:at]]

    while at < len(lines):
        result += [lines[at]]
        at += 1
        if not result[-1].startswith("    $ "):
            continue
        command = [result[-1][6:], *(line[1:].removeprefix(" ") for line in take(lambda line: line.startswith("    >")))]
        result += [f"    > {line}".rstrip() for line in command[1:]]
        wanted = take(lambda line: isindented(line) and not line.startswith("    $ "))
        while wanted and not wanted[-1]:  # the empty lines between the command and the text
            wanted.pop()
            at -= 1
        out, _, code = run("\n".join(command), errors=subprocess.STDOUT)
        seen = [line for line in out.rstrip("\n").split("\n") if out] + [f"[{code}]"] * (code != 0)
        expect(f"{os.path.relpath(path, work.name)}: {command[0]}", "\n".join(seen), "\n".join(wanted))
        result += [f"    {line}".rstrip() if not line.strip() else f"    {line}" for line in seen]
    return "\n".join(result)


# What the command prints on a terminal of so many columns, and its exit code.
def on_terminal(command, width=80, **environment):
    parent, child = pty.openpty()
    fcntl.ioctl(child, termios.TIOCSWINSZ, struct.pack("HHHH", 24, width, 0, 0))
    process = subprocess.Popen(command, shell=True, stdin=child, stdout=child, stderr=child,
                               env={**os.environ, "TERM": "xterm", **environment})
    os.close(child)
    seen = b""
    try:
        while part := os.read(parent, 65536):
            seen += part
    except OSError:  # the end of a terminal
        pass
    os.close(parent)
    return seen.decode("utf-8", "surrogateescape").replace("\r\n", "\n"), process.wait()

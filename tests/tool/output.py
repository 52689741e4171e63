"""What the tool writes, and when it does not: files are replaced as a whole or left alone, whatever ends the program,
and nothing else is left in their folder. Exit codes, and what a person sees of a hostile file. Run in the repository's
root; exit code 77: all is well, but strace is missing, so that the program was not interrupted.
usage: output.py TOOL [checked]
`checked` is for a tool with sanitizers: it is not killed, since it could report nothing then."""
import codecs, collections, fcntl, itertools, json, os, pty, re, shutil, subprocess, sys, time
from support import expect, failures, read, run, runs, write

DEFINITION = "tol double 1 0 0 1 1 0\nsize integer 2 5 0 9 1 0\nread immediate ReadFile 1 0\n"
write("a.def", DEFINITION)
write("a.opt", "tol 0.5\n")
write("bad.opt", "size x\ntol 0.25\n")
write("outer.opt", "read a.opt\n")
FORMS = "definition", "pascal", "html", "c", "markdown", "page", "json"


# ---- a FIFO that nobody reads is waited for, but not for ever; meanwhile its name is not that of another file suddenly


class Waiting:
    def __init__(self, fifo):
        os.mkfifo(fifo)
        self.process = subprocess.Popen([os.path.abspath("wexcorin"), "write", "a.def", "a.opt", "-o", fifo],
                                        stderr=subprocess.PIPE, encoding="utf-8")

    def sleeps(self):
        return read(f"/proc/{self.process.pid}/stat").rpartition(") ")[2].startswith("S")

    def expect_error(self, fifo, reason):
        try:
            seen = self.process.communicate(timeout=20)[1], self.process.returncode
        except subprocess.TimeoutExpired:
            self.process.kill()
            seen = "it waits for ever", None
        expect(fifo, seen, (f"{fifo}: error: cannot write the file: {reason}\n", 2))


write("victim", "as it was\n")
unread = Waiting("unread")  # what becomes of it is seen further below, because it takes its time
for fifo, becomes, reason in (("link", os.symlink, "Too many levels of symbolic links"),
                              ("file", os.link, "Device or resource busy")):
    waiting = Waiting(fifo)
    while not waiting.sleeps():
        time.sleep(0.01)
    os.remove(fifo)
    becomes("victim", fifo)
    waiting.expect_error(fifo, reason)
expect("the other file", read("victim"), "as it was\n")

# ---- a file that is read is not written over, whatever its path

os.symlink("a.opt", "link.opt")
os.link("a.opt", "hard.opt")
os.mkdir("folder")
refused = "error: cannot write the file: it is one of the files that are read\n"
for command, name in (
        ("write a.def a.opt -o a.opt", "a.opt"), ("write a.def a.opt -o ./folder/../a.opt", "./folder/../a.opt"),
        ("write a.def link.opt -o hard.opt", "hard.opt"), ("write a.def a.opt -o link.opt", "link.opt"),
        ("write a.def a.opt --force -o a.def", "a.def"), ("write a.def outer.opt -o a.opt", "a.opt"),
        ("write a.def - -o a.opt <a.opt", "a.opt"), ("write a.def a.opt -o - >>a.opt", "<stdout>"),
        ("write a.def a.opt -o /dev/stdout >>a.opt", "/dev/stdout"),
        *((f"doc {form} a.def -o a.def", "a.def") for form in FORMS)):
    runs(f"wexcorin {command}", err=f"{name}: {refused}", code=2)
    expect(f"the files behind {command}", (read("a.def"), read("a.opt")), (DEFINITION, "tol 0.5\n"))
runs("wexcorin write a.def a.opt -o a.opt; wexcorin write none.def a.opt -o a.opt", code=2,
     err=f"a.opt: {refused}" * 2)  # nothing is opened first
runs("wexcorin write a.def /dev/null -o /dev/null")  # no file that could be spoilt

# ---- where the contents go, and what becomes of permissions and links

runs("wexcorin write a.def a.opt -o new.opt")
expect("new file", (read("new.opt"), os.stat("new.opt").st_mode & 0o777), ("tol=0.5\n", 0o666 & ~os.umask(0o22)))
owner = (1, 2) if os.geteuid() == 0 else (os.geteuid(), os.getegid())
for mode in 0o600, 0o640, 0o4755:
    write("old.opt", "x" * 99)
    os.chown("old.opt", *owner)
    os.chmod("old.opt", mode)
    runs("wexcorin write a.def a.opt -o old.opt")
    old = os.stat("old.opt")
    expect("old file", (read("old.opt"), old.st_mode & 0o7777, (old.st_uid, old.st_gid)), ("tol=0.5\n", mode, owner))
# Where owner and group cannot be kept, the group gets what everybody has. Not permitted everywhere.
if os.geteuid() == 0 and run("unshare -r true")[2] == 0:
    for group, permissions in ("another", 0o666), ("the same", 0o676):
        os.chown("old.opt", 1, 0 if group == "the same" else 2)
        os.chmod("old.opt", 0o4676)
        runs("unshare -r wexcorin doc c a.def -o old.opt")
        expect(f"the permissions for another owner and {group} group", os.stat("old.opt").st_mode & 0o7777, permissions)
    os.chown("old.opt", *owner)
# The list gives one more user access; for the file itself its group would have it.
access = b"\2\0\0\0" + b"".join(tag + b"\0" + right + b"\0" + name for tag, right, name in (
    (b"\1", b"\6", b"\xff" * 4), (b"\2", b"\6", b"\1\0\0\0"), (b"\4", b"\0", b"\xff" * 4),
    (b"\x10", b"\6", b"\xff" * 4), (b"\x20", b"\0", b"\xff" * 4)))
try:
    os.setxattr("old.opt", "system.posix_acl_access", access)
except OSError as problem:
    print(f"access lists stay untried: {problem}")
else:
    runs("wexcorin doc c a.def -o old.opt")
    expect("access lists", "system.posix_acl_access" in os.listxattr("old.opt") and
           os.getxattr("old.opt", "system.posix_acl_access"), access)
    # The list that a folder gives new files is not for one that is replaced.
    os.mkdir("lists")
    write("lists/old.opt", "x")
    os.chmod("lists/old.opt", 0o640)
    write("lists/listed.opt", "x")
    os.setxattr("lists/listed.opt", "system.posix_acl_access", access)
    os.setxattr("lists", "system.posix_acl_default", access.replace(b"\1\0\0\0", b"\3\0\0\0"))
    runs("wexcorin doc c a.def -o lists/old.opt && wexcorin doc c a.def -o lists/listed.opt")
    expect("no access list", (os.listxattr("lists/old.opt"), os.stat("lists/old.opt").st_mode & 0o777), ([], 0o640))
    expect("its own access list", os.getxattr("lists/listed.opt", "system.posix_acl_access"), access)
os.symlink("../old.opt", "folder/to_old")
os.symlink("../later.opt", "folder/to_nothing")
os.symlink("circle", "circle")
for link, target in ("folder/to_old", "old.opt"), ("folder/to_nothing", "later.opt"):
    runs(f"wexcorin doc c a.def -o {link}")
    expect(link, (os.path.islink(link), read(target)[:2]), (True, "/*"))
os.mkfifo("fifo")
runs("cp examples/first.def copy")
for command in (  # the definition is read twice
        "template %s", "write %s /dev/null -o -", "check %s examples/first.opt", "diff %s a.def",
        "migrate --from %s --to a.def examples/first.opt --dry-run",
        "migrate --from a.def --to %s examples/first.opt --dry-run"):
    out = run(f"timeout 20 cat copy >fifo & timeout 20 wexcorin {command % 'fifo'}")[0]
    runs(f"wexcorin {command % 'copy'}", out.replace("fifo", "copy"), None, None)
for command, out in (
        ("write a.def a.opt -o fifo & cat fifo", "tol=0.5\n"), ("write a.def a.opt -o /dev/stdout", "tol=0.5\n"),
        # what is open already is written where it stands
        ("write a.def a.opt -o /dev/stdout >both; echo end >>both; cat both", "tol=0.5\nend\n"),
        ("write a.def a.opt -o /dev/fd/3 3>both; cat both", "tol=0.5\n")):
    runs(f"wexcorin {command}", out)

# A pipe that is full is waited for, even if the program that made it did not want to wait.
reader, writer = os.pipe()
os.set_blocking(writer, False)
process = subprocess.Popen("exec wexcorin doc page examples/solver.def -o -", shell=True, stdout=writer)
os.close(writer)
time.sleep(0.2)
with open(reader, encoding="utf-8") as file:
    expect("what arrives through the pipe", file.read(), run("wexcorin doc page examples/solver.def -o -")[0])
expect("the exit code", process.wait(), 0)

# ---- errors: 1 in what was read, 2 where a file cannot be used; then nothing is written

# what cannot be finished before it goes out
for command, error in (
        ("write a.def a.opt", '<stdout>: error: Cannot write parameter file "/proc/self/fd/3"\n'
                              "<stdout>: note: Error code = 27; File too large\n"),
        ("doc pascal a.def", "wexcorin: cannot write a temporary file: File too large\n")):
    runs(f"prlimit --fsize=4 wexcorin {command} -o -", err=error, code=2)
# Not permitted everywhere, and sanitizers need /proc.
if os.geteuid() == 0 and run("unshare -m umount -l /proc")[2] == 0 and "checked" not in sys.argv:
    runs("unshare -m sh -c 'umount -l /proc && exec wexcorin show a.def -'", code=2, err="wexcorin: cannot use a "
         "temporary file without /proc, which has to be mounted: No such file or directory\n")
full = "No space left on device"
for target, reason in (("/dev/full", full), (".", "Is a directory"), ("none/1", "No such file or directory"),
                       ("a.opt/x", "Not a directory"), ("circle", "Too many levels of symbolic links"),
                       ("- >/dev/full", full), ("- >&-", "Bad file descriptor")):
    name = "<stdout>" if target[0] == "-" else target
    for command in "write a.def a.opt", *(f"doc {form} examples/first.def" for form in FORMS):
        runs(f"wexcorin {command} -o {target}", err=f"{name}: error: cannot write the file: {reason}\n", code=2)
runs("ulimit -f 0; wexcorin doc c a.def -o old.opt", code=2,
     err="old.opt: error: cannot write the file: File too large\n")
write("missing.opt", "tol 0.5\nread none.opt\n")
os.mkdir("directory.opt")
big = "/proc/self/mem"  # opens, but cannot be read from its beginning
for arguments in ("a.def none.opt", "a.def missing.opt", "a.def directory.opt", "none.def", f"a.def {big}",
                  f"{big}", f"a.def --set 'read {big}'", "a.def --set 'read none.opt'"):
    for command in "check", "check --json", "show", *(("help",) if " " not in arguments else ()):
        runs(f"wexcorin {command} {arguments}", None, None, 2)
runs("wexcorin show a.def none.opt", "", None, 2)
runs(f"wexcorin migrate --to a.def --syntax assignments {big} --dry-run", None, None, 2)
runs("wexcorin check a.def missing.opt", err="", code=2, out="""missing.opt:2: error: Cannot open parameter file \
"none.opt"\nmissing.opt:2: note: Error code = 2; No such file or directory\n1 error, 0 warnings; 4 options, 1 set\n""")
for command in "show a.def", "check a.def", "help a.def":
    runs(f"wexcorin {command} >/dev/full", err=None, code=2)

# What never ends is not read for ever, and where memory ends, the file is named. Sanitizers need more memory.
runs("timeout 20 wexcorin check a.def - </dev/zero", err="wexcorin: cannot read standard input: File too large\n", code=2)
write("large.def", "".join(f"name{number} integer 0 5 0 9 1 1\n" for number in range(500_000)))
with open("large.opt", "wb") as file:
    file.truncate(1 << 30)
for command, name in (("show large.def", "large.def"),
                      ("migrate --to a.def --syntax assignments large.opt --dry-run", "large.opt")):
    _, err, code = run(f"ulimit -v 60000; wexcorin {command}")
    if "checked" not in sys.argv:
        expect(f"{command} with little memory", (err, code), (f"wexcorin: {name}: Not enough memory\n", 2))

# ---- numbers with all their digits

exact = ("0.1234567890123456", "1E-310", "5E-324", "0.30000000000000004", "-0", "-9.87E-5",
         "123456789012345.67", "9.876543210987654E298")
write("wide.def", "tol double.TWO 1 0 mindouble maxdouble 1 1\n.cost double 1 0 mindouble maxdouble 1 1\nn immediate "
      "NoBounds 1 1\n")
for number in exact:
    text = f"n 1\ntol {number} {number}\nn 0\nx.cost('i') {number}\n"
    out, err, code = run("wexcorin write wide.def - -o - --exact", text)
    expect(f"exactly {number}", (out.count(f"{number} {number}\n"), out.count(f" = {number}\n"), err.count("read back")),
           (1, 1, 0))
expect("warned of", run("wexcorin write wide.def - -o - | cat", f"tol {exact[0]} 0.5\n")[1],
       f'<stdout>: warning: first value of option "tol" is set to {exact[0]}, but is read back as '
       "0.123456789012346\n")

# Not permitted everywhere. The sanitizers do not work without /proc and say so.
hidden = "unshare -rm sh -c 'mount -t tmpfs none /proc && {}'"
if run(hidden.format("true"))[2] == 0:
    _, err, code = run(hidden.format("wexcorin doc html a.def -o -"))
    if "Sanitizer" not in err and "ASan" not in err:
        expect("without /proc", (err, code), ("wexcorin: cannot use a temporary file without /proc, which has to be "
                                              "mounted: No such file or directory\n", 2))

# ---- what a person sees: characters that deceive are escapes; JSON keeps them, and files their bytes

raw = "\x1b[31m\x1f \x7f \u0085 \udc9b \u202e\u2066\u200b\u200f\u2028\ufeff\u2060\U000e0041 ä"
escaped = (r"\x1b[31m\x1f \x7f \x85 \x9b \u202e\u2066\u200b\u200f\u2028\ufeff\u2060\U000e0041 ä")
value = raw.replace("\udc9b", "\x9b")
write("mean.def", f'word string 1 "{raw}" 1 1 {raw}\nlist immediate Help 1 1\n')
write("mean.opt", f'word "{raw}!"\n{raw} 1\nlist word\nlist 4\n')
unsafe = re.compile(r"[\x00-\x09\x0b-\x1f\x7f-\x9f\xad\u200b-\u200f\u2028-\u202e\u2060-\u206f\ufeff\udc80-\udcff]")
for command in ("check", "show", "check --json", "show --json", "write -o missing/"):
    out, err, _ = run(f"wexcorin {command} mean.def mean.opt{' -o none/x' if command == 'write' else ''}")
    expect(f"{command}: what deceives", unsafe.findall(out + err), [])
for command in "help mean.def", "help mean.def word", "help mean.def 4", "doc markdown mean.def -o -", \
        "doc page mean.def -o -", "doc json mean.def -o -", "doc c mean.def -o -", f"help mean.def '{raw[:8]}'":
    out, err, _ = run(f"wexcorin {command}")
    expect(f"{command}: what deceives", unsafe.findall(out + err), [])
expect("check", run("wexcorin check mean.def mean.opt")[0].count(escaped) > 1, True)
expect("JSON", json.loads(run("wexcorin show mean.def --json")[0])["options"][1]["value"], value)
expect("names of help 4 in JSON", "word " in json.loads(run("wexcorin check mean.def mean.opt --json")[0])["help"], True)
for command in "write mean.def --force mean.opt", "doc definition mean.def", "doc html mean.def":
    begin = 7 if "html" in command else len(raw)  # the rest is entities there
    expect(f"{command}: bytes", raw[:begin] in run(f"wexcorin {command} -o - 2>/dev/null")[0], True)
    parent, child = pty.openpty()
    with open(child, "wb") as terminal:
        subprocess.run(f"wexcorin {command} -o -", shell=True, stdout=terminal, stderr=subprocess.DEVNULL)
    seen = os.read(parent, 65536).decode("utf-8", "surrogateescape").replace("\r\n", "\n")
    os.close(parent)
    expect(f"{command} on a terminal", (unsafe.findall(seen), escaped[:begin + 3] in seen), ([], True))

# The characters that deceive are these, not those before and behind each range.
deceiving = [(int(first, 16), int(last or first, 16)) for first, _, last in (word.partition("-") for word in (
    "80-9f ad 34f 61c 115f-1160 17b4-17b5 180b-180f 200b-200f 2028-202e 2060-206f 3164 fe00-fe0f feff ffa0 fff0-fffb "
    "1bca0-1bca3 1d173-1d17a e0000-e0fff").split())]
codes = {code for first, last in deceiving for code in (first - 1, first, last, last + 1)} - {0x7F}
write("codes.def", "".join(f'w{code} string 1 "a{chr(code)}b" 1 1\n' for code in codes))
out = run("wexcorin show codes.def")[0]
expect("which characters are shown", {code for code in codes if f"a{chr(code)}b" in out},
       {code for code in codes if not any(first <= code <= last for first, last in deceiving)})

# Each byte that is not part of valid UTF-8 is shown as the Latin-1 character that it stands for.
codecs.register_error("latin", lambda error: (chr(error.object[error.start]), error.start + 1))
texts = [bytes(text) for text in itertools.product(b"\x7f\x80\xc1\xc2\xdf\xe0\xe1\xec\xed\xef\xf0\xf1\xf4\xf5",
                                                   b"\x7f\x80\x8f\x90\x9f\xa0\xbf\xc0", b"\x80\xc0", b"\xbf\x7f")]
write("bytes.def", "".join(f'w{number} string 1 "{text.decode("utf-8", "surrogateescape")}" 1 1\n'
                           for number, text in enumerate(texts)))
expect("bytes as characters",
       [option["value"] for option in json.loads(run("wexcorin show bytes.def --json")[0])["options"][1:]],
       [text.decode("utf-8", "latin") for text in texts])

unread.expect_error("unread", "No program reads from it")

# ---- interrupted: at every system call of the writing the path has its old contents or the new ones

if not shutil.which("strace"):
    print("strace is not installed: the program is not interrupted")
    sys.exit("\n".join(failures) or 77)
os.mkdir("place")
write("calls", "")
CONTENTS = {"write": "tol=0.5\n", "doc c": run("wexcorin doc c a.def -o -")[0]}


def prepare(old):
    shutil.rmtree("place")
    os.mkdir("place")
    if old:
        write("place/out", old)
        os.chmod("place/out", 0o600)


# What the last run called: how often each name before the call that opens the folder, where the writing begins; the
# calls from there on, each with its number among those of its name; and the one that makes the file without a name.
def calls():
    before, writing, steps, nameless = collections.Counter(), collections.Counter(), [], None
    for line in read("calls").split("\n"):
        name = re.match(r"(\w+)\(", line)
        if not name:
            continue
        begun = steps or "O_PATH" in line and "place" in line
        counts = writing if begun else before
        counts[name[1]] += 1
        if begun and name[1] != "exit_group":
            steps.append((name[1], counts[name[1]]))
        if "O_TMPFILE" in line:
            nameless = steps[-1]
    return before, steps, nameless


# Runs the command, with faults at calls of the writing: (name, number, what happens). Returns the exit code, or None
# if the last fault did not happen at its call. What is called before the writing begins is not the same in each run,
# least of all with a sanitizer. So a run in which it was not the same as in the run before is repeated.
def strace(command, old, *faults):
    for _ in range(50):
        prepare(old)
        last = calls()[0]
        rules = " ".join(f"-e inject={name}:{what}:when={last[name] + number}" for name, number, what in faults)
        # the leak checker does not work in a program that is traced
        code = run(f"ASAN_OPTIONS=detect_leaks=0 strace -q -o calls {rules} wexcorin {command} -o place/out")[2]
        before, steps, _ = calls()
        if all(before[name] == last[name] for name, *_ in faults) and (not faults or faults[-1][:2] in steps):
            return code
    return None


# Where a file system refuses a file without a name, it is written with a temporary one. A write that was interrupted is
# repeated, and one that would have to wait.
for number, error, wanted in (
        (None, "EISDIR", "tol=0.5\n"), (None, "EINVAL", "tol=0.5\n"), (None, "EACCES", "old\n"),
        (1, "EINTR", "tol=0.5\n"), (1, "EAGAIN", "tol=0.5\n"), (1, "ENOSPC", "old\n")):
    strace("write a.def a.opt", "old\n")
    call = calls()[2] if number is None else ("write", number)
    code = strace("write a.def a.opt", "old\n", (*call, f"error={error}"))
    expect(f"{error} at {call}", (code, read("place/out"), os.listdir("place")), (0 if wanted != "old\n" else 2, wanted, ["out"]))

# What fails while files are read, with the name of what could not be read.
os.mkfifo("once")
for command, path, fault, wanted in (
        ("check a.def - <a.opt", "", "memfd_create:error=ENFILE", "wexcorin: cannot create a temporary file: Too many open files in system"),
        ("check a.def - <a.opt", "a.opt", "read:error=EIO", "wexcorin: cannot read standard input: Input/output error"),
        ("show a.def - <a.opt --changed", "a.opt", "read:error=EINTR:when=1", ""),
        ("check once a.opt", "once", "read:error=EIO:when=2", "wexcorin: cannot read once: Input/output error"),
        ("write a.def a.opt -o -", "", "lseek:error=EIO", "wexcorin: cannot read a temporary file: Input/output error")):
    feed = "timeout 20 sh -c 'cat a.def >once' & " if path == "once" else ""
    watch = f"-P {path}" if path else ""
    _, err, code = run(f"{feed}ASAN_OPTIONS=detect_leaks=0 strace -q -o calls {watch} -e inject={fault} wexcorin {command}")
    lines = [line for line in err.split("\n") if line and not line.startswith("strace: Requested path")]
    expect(f"{command} with {fault}", (lines, code), ([wanted], 2) if wanted else ([], 0))

TEMPORARY = ".out.wexcorin-0"
for command, old, unnamed, kill in (
        ("write a.def a.opt", "old\n", True, "KILL"), ("write a.def a.opt", "", True, "KILL"),
        ("doc c a.def", "old\n", True, "KILL"), ("write a.def a.opt", "old\n", False, "KILL"),
        ("write a.def a.opt", "old\n", True, "TERM"), ("write a.def a.opt", "old\n", False, "TERM")):
    if kill == "KILL" and "checked" in sys.argv:
        continue
    new = CONTENTS["doc c" if command[0] == "d" else "write"]
    expect(command, strace(command, old), 0)
    _, steps, nameless = calls()
    faults = ()
    if not unnamed:
        faults = ((*nameless, "error=EOPNOTSUPP"),)  # as on a file system that has no files without a name
        expect(f"{command}, with a temporary name", strace(command, old, *faults), 0)
        steps = [step for step in calls()[1] if step[0] != "openat"]  # which has its rule already
    outcomes, left = collections.Counter(), collections.Counter()
    for name, number in steps:
        what = f"{command} over {old!r}, SIG{kill} at {name} {number}{'' if unnamed else ', with a temporary name'}"
        code = strace(command, old, *faults, (name, number, f"signal={kill}"))
        expect(f"{what}: is interrupted", code not in (None, 0), True)
        content = read("place/out") if os.path.exists("place/out") else ""
        outcomes[content == new] += 1
        expect(f"{what}: contents", content if content not in (old, new) else "", "")
        others = set(os.listdir("place")) - {"out"}
        if others == {TEMPORARY} and kill == "KILL":
            left[name] += 1
            expect(f"{what}: contents of what is left", read(f"place/{TEMPORARY}") in (new, "", new[:1]), True)
            expect(f"{what}: permissions of what is left", os.stat(f"place/{TEMPORARY}").st_mode & 0o777, 0o600)
            runs("wexcorin " + command + " -o place/out")
            others = set(os.listdir("place")) - {"out"}
        expect(f"{what}: left in the folder", others, set())
    # a signal that can be held back ends the program when the new contents are in place
    expect(f"{command}: its outcomes", set(outcomes), {False, True} if kill == "KILL" else {True})
    code = strace(command, old, *faults, ("fsync", 1, "error=EIO"))
    expect(f"{command}: a disk that fails", (code, [read(f"place/{name}") for name in os.listdir("place")]),
           (2, [old] if old else []))
    if unnamed:  # only between the two calls that name the new file and that put it in place
        expect(f"{command}: calls at which a name was left", dict(left), {"renameat": 1} if kill == "KILL" and old else {})

# The temporary name of a program that still runs is not taken from it, and no file but its own is ever removed.
prepare("old\n")
write(f"place/{TEMPORARY}", "of another")
os.mkfifo(f"place/{TEMPORARY[:-1]}1")
run(f"flock place/{TEMPORARY} wexcorin write a.def a.opt -o place/out")
expect("beside another program", (read("place/out"), sorted(os.listdir("place"))),
       ("tol=0.5\n", [TEMPORARY, f"{TEMPORARY[:-1]}1", "out"]))
# There are ten such names, so beside ten other programs a file is not replaced.
for others, wanted in (9, ("tol=0.5\n", 0)), (10, ("old\n", 2)):
    prepare("old\n")
    running = [open(f"place/{TEMPORARY[:-1]}{number}", "w") for number in range(others)]
    for file in running:
        fcntl.flock(file, fcntl.LOCK_EX)
    code = run("wexcorin write a.def a.opt -o place/out")[2]
    expect(f"beside {others} other programs", (read("place/out"), code), wanted)
sys.exit("\n".join(failures) or 0)

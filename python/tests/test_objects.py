"""Life and death of objects: threads, interpreter exit, memory, closed handles, the library at import."""

import doctest
import gc
import importlib
import os
import pathlib
import shutil
import subprocess
import sys
import threading
import time
import tracemalloc

import pytest
import wexcorin

HANDLES = int(os.environ.get("WEXCORIN_HANDLES", "3000"))
NAMES = "_assign _definition _entries _errors _options _space _table".split()


def test_docstrings():
    modules = [wexcorin, *(importlib.import_module(f"wexcorin.{name}") for name in NAMES)]
    results = [doctest.testmod(module, extraglobs={"Options": wexcorin.Options}) for module in modules]
    assert sum(result.failed for result in results) == 0 and sum(result.attempted for result in results) > 20


@pytest.mark.parametrize("file", ["README.md", "docs/python.md"])
def test_guides(file, tmp_path, monkeypatch):
    guide = pathlib.Path(file).read_text().replace("```", "")
    (tmp_path / "examples").symlink_to(os.path.abspath("examples"))
    monkeypatch.chdir(tmp_path)
    test = doctest.DocTestParser().get_doctest(guide, {}, file, None, 0)
    assert len(test.examples) > 5 and doctest.DocTestRunner().run(test).failed == 0


def python(code, **environment):
    command = [sys.executable, "-B", "-X", "faulthandler", "-c", code]
    environment = {**os.environ, "PYTHONPATH": os.path.dirname(wexcorin.__path__[0]), **environment}
    return subprocess.run(command, env=environment, capture_output=True, text=True, timeout=60)


def waitingread(folder):
    """Return the path of a FIFO without a writer: a call that reads it waits for some seconds."""
    path = folder / "pipe"
    os.mkfifo(path)
    return path


def test_other_threads_run_while_a_file_is_read(options, definition, tmp_path):
    pipe = waitingread(tmp_path)
    reader = threading.Thread(target=options.read, args=[pipe])
    reader.start()
    with pytest.raises(RuntimeError, match="in use"):
        while reader.is_alive():
            options["count"]
    with pytest.raises(RuntimeError, match="in use"):
        options.close()
    assert wexcorin.Options(definition)["count"] == 5
    pipe.write_text("count 7\n")
    reader.join()
    assert options["count"] == 7


def test_threads_with_objects_of_their_own(definition):
    def work():
        mine = wexcorin.Options(definition)
        for number in range(200):
            mine.set(f"count {number % 100}")
            results.append(mine["count"] == number % 100)

    results = []
    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert results == [True] * 800


def test_exit_of_the_interpreter(definition, tmp_path):
    """Daemon threads are in calls, some of which return while the interpreter ends. Nothing crashes or
    hangs."""
    long = tmp_path / "long.opt"
    long.write_text("count 7\n" * 3000)
    code = f"""
import atexit, threading, time, wexcorin
class late:
    def __init__(self): self.options = wexcorin.Options({str(definition)!r})
    def __del__(self): self.options.read({str(long)!r})
def work():
    options = wexcorin.Options({str(definition)!r})
    while True: options.read({str(long)!r})
keep = late()
waiting = wexcorin.Options({str(definition)!r})
threading.Thread(target=waiting.read, args=[{str(waitingread(tmp_path))!r}], daemon=True).start()
for _ in range(4): threading.Thread(target=work, daemon=True).start()
time.sleep(0.05)
"""
    for _ in range(3):
        result = python(code)
        assert (result.returncode, result.stderr) == (0, "")


def test_closed_objects(definition):
    with wexcorin.Options(definition) as options:
        description = options.definition
        count = description["count"]
    assert options.closed and "closed" in repr(options) and count.default == 5
    options.close()
    for call in (
        lambda: options["count"],
        lambda: options.set("count 1"),
        lambda: options.to_dict(),
        lambda: list(description),
        lambda: options.copy(),
        lambda: options._repr_html_(),
    ):
        with pytest.raises(ValueError, match="closed"):
            call()


def test_calls_while_another_is_at_work(definition):
    """The collector runs Python code in the midst of a call. That code calls the same object."""
    caught = []

    class meddler:
        def __del__(self):
            try:
                options.close()
            except RuntimeError as refused:
                caught.append(refused)

    before = gc.get_threshold()
    for threshold in range(1, 30):  # one of them makes it run during the call
        options = wexcorin.Options(definition)
        options._core.keys()
        cycle = [meddler()]
        cycle.append(cycle)
        gc.set_threshold(threshold)
        del cycle
        try:
            options._core.values(False)
        except ValueError:
            assert options.closed
        gc.set_threshold(*before)
        gc.collect()
    assert caught


def resident():
    with open("/proc/self/statm") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGESIZE")


def test_nothing_leaks(definition):
    def work(count):
        for number in range(count):
            options = wexcorin.Options(definition)
            keep = options.definition if number % 2 else options
            options.set("count 101 --extra x names a", strict=False)
            options.to_dict(), list(options.definition), options._repr_html_() if number % 10 == 0 else None
            with pytest.raises(KeyError):
                options["nothing"]
            if number % 3:
                del options
            else:
                del keep

    work(500)
    gc.collect()
    tracemalloc.start()
    before, traced = resident(), tracemalloc.get_traced_memory()[0]
    work(HANDLES)
    gc.collect()
    grown = tracemalloc.get_traced_memory()[0] - traced
    tracemalloc.stop()
    assert grown < 100_000 and resident() - before < 3_000_000


def test_another_library_with_the_same_names():
    """Python's own module readline loads a library that has a function xfree, too."""
    result = python(
        "import readline, wexcorin; wexcorin.Options('examples/first.def').close(); print('good')"
    )
    assert result.stdout == "good\n"


def test_missing_library(tmp_path):
    (tmp_path / "libwexcorin.so.2").write_text("no library")
    result = python("import wexcorin", LD_LIBRARY_PATH=str(tmp_path))
    assert (
        "ImportError: wexcorin cannot use its shared library libwexcorin.so.2"
        in result.stderr.splitlines()[-1]
    )


@pytest.mark.skipif(shutil.which("cc") is None, reason="no C compiler for a library of another version")
def test_library_of_another_version(tmp_path):
    other = tmp_path / "other.so"
    source = (
        "int xapiversion(int v, char* text, int* ok) { *ok = 3; text[0] = 1; text[1] = 'S'; return v > 0; }"
    )
    subprocess.run(["cc", "-shared", "-fPIC", "-xc", "-", "-o", other], input=source, text=True, check=True)
    result = python("import wexcorin", LD_PRELOAD=str(other))
    assert "The program needs interface version 2" in result.stderr.splitlines()[-1]


def test_examples(tmp_path):
    run = lambda *words: subprocess.run(
        [sys.executable, "-B", *words], capture_output=True, text=True, env=environment
    )
    environment = {**os.environ, "PYTHONPATH": os.path.dirname(wexcorin.__path__[0])}
    tuned = run("examples/tune.py", "examples/solver.def", tmp_path / "tuned.opt")
    assert tuned.returncode == 0 and tuned.stdout.startswith("defaults: 25.9 s\ntrial 10: ")
    assert wexcorin.Options("examples/solver.def").read(tmp_path / "tuned.opt") == []

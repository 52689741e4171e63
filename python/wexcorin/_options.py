"""The class Options."""

from __future__ import annotations

import contextlib
import errno
import os
from collections.abc import Iterable, Iterator, Mapping
from typing import Any, Union

from . import _assign, _core, _entries, _space, _table
from ._assign import Assignable
from ._definition import Definition
from ._entries import DotEntry, Indicator
from ._errors import KINDS, DefinitionError, Message, Problem, SettingsError

Path = Union[str, bytes, "os.PathLike[str]", "os.PathLike[bytes]"]
"""A path, wherever one is taken."""

LONGEST = 255  # bytes of a path


def encoded(path: Path) -> bytes:
    result = os.fsencode(path)
    if b"\0" in result:
        raise ValueError("embedded null byte")
    if len(result) > LONGEST:
        raise OSError(errno.ENAMETOOLONG, os.strerror(errno.ENAMETOOLONG), os.fsdecode(result))
    return result


def failure(code: int, path: Path) -> OSError:
    return OSError(code, os.strerror(code), os.fsdecode(path))


class Documentation:
    """The docstring of a class; that of an object, which ``help(object)`` prints, is its own help."""

    def __init__(self, text: str) -> None:
        self._text = text

    def __get__(self, instance: Options | None, owner: type) -> str:
        return self._text if instance is None or instance.closed else instance.help()


class Options(Mapping[str, Any]):
    __doc__ = Documentation(  # type: ignore[assignment]
        """The options of a solver with their values: a mapping from names to values.

    A name is looked up by the rules of the definition: in any case, by synonym, and abbreviated where its
    lookup mode allows that. Values are int, float, bool or str, a list of str for a strlist option, and a
    tuple for an option with two values. Macros, multilists and immediate options have no value and are no
    keys; macros and multilists can be assigned to.

    >>> options = Options("examples/first.def")
    >>> options["tol"], options["MAXIT"], options["limit"]
    (1e-06, 500, 500)
    >>> options["tol"] = 1e-8
    >>> options.changed()
    {'tol': 1e-08}
    >>> options["tols"]
    Traceback (most recent call last):
      ...
    wexcorin.UnknownOptionError: Unknown option "tols"; did you mean "tol"?
    >>> options["tol"] = "small"
    Traceback (most recent call last):
      ...
    TypeError: Option "tol" (double) takes a number, not str.
    >>> options["tol"] = 5
    Traceback (most recent call last):
      ...
    wexcorin.SettingsError: Double out of range for option "tol" saw "5" (Valid range is 1E-20 to 0.1)

    An object is used in one thread at a time, different ones in parallel: the interpreter lock is released
    while files are read. A call while another thread is in one raises RuntimeError, a call after ``close``
    ValueError."""
    )
    __slots__ = ("_core", "_definition", "_file", "_messages", "_problems", "__weakref__")

    def __init__(self, definition: Path, *, strict: bool = True) -> None:
        """Read a definition file.

        Raises DefinitionError when it has mistakes, unless ``strict`` is False: ``problems`` has them then,
        too. Raises OSError, such as FileNotFoundError, when it cannot be read.
        """
        path = encoded(definition)
        self._core = _core.Handle()
        self._file = os.path.abspath(path)
        self._messages: list[tuple[int, str]] = []
        self._problems: list[Problem] = []
        self._definition = Definition(self._core, os.fsdecode(path))
        code = self._core.readdefinition(path)
        problems = self._take()
        if code:
            raise failure(code, definition)
        if strict and problems:
            raise DefinitionError(problems)

    # ---- reading and writing

    def read(self, *files: Path, strict: bool = True) -> list[Problem]:
        """Read option files, later ones over earlier ones, and return what is wrong with them.

        Raises SettingsError after the last one when any has errors, unless ``strict`` is False. What is right
        takes effect in any case. Raises OSError when a file cannot be read.

        >>> options = Options("examples/first.def")
        >>> options.read("examples/first.opt")
        []
        >>> options.changed()
        {'maxit': 2000, 'tol': 1e-09, 'start': 'warm'}
        """
        found: list[Problem] = []
        for file in files:
            code = self._core.readfile(encoded(file))
            found += self._take()
            if code:
                raise failure(code, file)
        return self._judged(found, strict)

    def set(self, text: str, *, strict: bool = True) -> list[Problem]:
        """Read settings from a text, as ``read`` does from a file. A line may hold several settings, so a
        value with blanks stands in double quotes.

        >>> options = Options("examples/first.def")
        >>> options.set("maxit 800 start warm")
        []
        >>> options.set("maxit many", strict=False)[0].text
        'Integer expected, for option "maxit" saw "many"'
        """
        if not isinstance(text, str):
            raise TypeError(f"set() takes a text, not {type(text).__name__}.")
        if "\0" in text:
            raise ValueError("embedded null character")
        self._core.readtext(text.encode("utf-8", "surrogateescape"))
        found = self._take(text="<text>")
        return self._judged(found, strict)

    def write(self, file: Path) -> None:
        """Write the settings as an option file that can be read again. Numbers have 15 digits.

        Raises OSError when the file cannot be written to its end.
        """
        code = self._core.write(encoded(file))
        self._take()
        if code:
            raise failure(code, file)

    # ---- values

    def __getitem__(self, name: str) -> Any:
        value = self._core.get(name)
        if value is None:
            raise self._definition.unknown(name)
        return value

    def __setitem__(self, name: str, value: Assignable) -> None:
        """Set an option. A value that is refused leaves the old one.

        Raises UnknownOptionError, a KeyError, for an unknown name; TypeError for a value of the wrong type;
        SettingsError, a ValueError, for one that the library refuses, such as one out of bounds.
        """
        option = self._definition.named(name)
        if not option.has_value:
            _assign.assign(self._core, option, value)
            self._judged(self._take(), True)
            return
        before = self._core.defined(option.number), self._core.value(option.number)
        try:
            _assign.assign(self._core, option, value)
            self._judged(self._take(), True)
        except (TypeError, ValueError):
            self._take()  # of the texts of a list before one that is too long
            self._restore(option.name, *before)
            raise

    def __iter__(self) -> Iterator[str]:
        return iter(self._core.keys())

    def __len__(self) -> int:
        return len(self._core.keys())

    def __contains__(self, name: object) -> bool:
        return self._core.get(name) is not None

    def get(self, name: str, default: Any = None) -> Any:
        """Return the value of an option, or ``default`` when there is none of that name."""
        value = self._core.get(name)
        return default if value is None else value

    def to_dict(self) -> dict[str, Any]:
        """Return all values."""
        return self._core.values(False)

    def changed(self) -> dict[str, Any]:
        """Return the values of the options that were set."""
        return self._core.values(True)

    def text(self, name: str) -> str:
        """Return the value as the library writes it, with up to 15 digits; several values are separated by a
        comma and a blank. Raises UnknownOptionError.

        >>> options = Options("examples/first.def")
        >>> options.text("tol")
        '1E-6'
        """
        value = self[name]
        number = self._definition.named(name).number
        if isinstance(value, list):
            return ", ".join(value)
        texts = [self._core.text(number, False), self._core.text(number, True)]
        return ", ".join(text for text in texts if text is not None)

    def is_set(self, name: str) -> bool:
        """Return whether the option was set, be it to its default. Raises UnknownOptionError."""
        return self._core.defined(self._definition.named(name).number) > 0

    def reset(self, *names: str) -> None:
        """Take the values of these options away, or of all, so that they have their defaults again. Dot
        entries, indicators and problems stay."""
        numbers = [self._definition.named(name).number for name in names]
        if not names:
            self._core.resetall()
        for number in numbers:
            self._core.reset(number)

    def update(
        self, other: Mapping[str, Assignable] | Iterable[tuple[str, Assignable]] = (), /, **values: Assignable
    ) -> None:
        """Set options from a mapping, from pairs or from keywords, one after the other."""
        for name, value in {**dict(other), **values}.items():
            if isinstance(other, Options) and name not in values and not other.is_set(name):
                self.reset(name)
                if self[name] == value:
                    continue
            self[name] = value

    def __or__(self, other: Mapping[str, Assignable]) -> Options:
        if not isinstance(other, Mapping):
            return NotImplemented
        result = self.copy()
        result.update(other)
        return result

    def __ror__(self, other: Mapping[str, Any]) -> dict[str, Any]:
        return {**other, **self.to_dict()} if isinstance(other, Mapping) else NotImplemented

    def __ior__(self, other: Mapping[str, Assignable] | Iterable[tuple[str, Assignable]]) -> Options:
        self.update(other)
        return self

    # ---- what there is to know

    @property
    def definition(self) -> Definition:
        """The descriptions of the options."""
        return self._definition

    @property
    def problems(self) -> list[Problem]:
        """The errors and warnings of what was read or assigned since the last ``clear_messages``."""
        return list(self._problems)

    @property
    def messages(self) -> list[Message]:
        """All messages, which also hold help that option files ask for."""
        return [Message(KINDS[kind], text) for kind, text in self._messages]

    def clear_messages(self) -> None:
        """Forget the messages and problems so far. They take memory until then."""
        self._messages, self._problems = [], []

    @property
    def dot_entries(self) -> list[DotEntry]:
        """The values for single symbols of the model, in the order in which they were read.

        >>> options = Options("examples/solver.def")
        >>> options.set("flow.prior('north', *) 2")
        []
        >>> options.dot_entries
        [DotEntry(symbol='flow', option='.prior', elements=('north', '*'), value=2.0)]
        """
        return _entries.dotentries(self._core, self._definition)

    @property
    def indicators(self) -> list[Indicator]:
        """The equations that hold only when a binary variable has a value."""
        return [Indicator(*each) for each in self._core.indicators()]

    def help(self, name: str = "") -> str:
        """Return the help of an option, or the list of all by group.

        >>> print(Options("examples/first.def").help("start"))
        start: Where to begin
                                enumstr,  default: cold
                             cold From nothing
                             warm From the last solution
        """
        if name:
            name = self._definition.named(name).name
        self._core.showhelp(name or "1")
        messages, _ = self._core.takemessages()
        return "\n".join(text for _, text in messages).strip("\n")

    def parameters(self, *names: str) -> list[dict[str, Any]]:
        """Return the space to search: a dictionary for each of these options, or for all that the help lists.

        Each has ``name``, ``kind``, ``default`` and ``count``, the number of values that the option takes.
        The kinds ``integer`` and ``real`` have ``low`` and ``high``, None where there is no limit, and
        ``log``, which is True for positive bounds that span decades. ``boolean`` and ``choice`` have
        ``values``. Texts, lists and options that take no value are left out.

        >>> options = Options("examples/first.def")
        >>> options.parameters("tol")
        [{'name': 'tol', 'kind': 'real', 'default': 1e-06, 'count': 1, 'low': 1e-20, 'high': 0.1, 'log': True}]
        >>> [parameter["name"] for parameter in options.parameters()]
        ['maxit', 'tol', 'start']
        """
        if names:
            chosen = [self._definition.named(name) for name in names]
        else:
            keys = set(self)
            chosen = [option for option in self._definition if option.name in keys and not option.hidden]
        return [parameter for parameter in map(_space.parameter, chosen) if parameter]

    # ---- the object

    def copy(self) -> Options:
        """Return an object with the same settings and no messages. The definition file is read again: raises
        OSError when it is gone, and RuntimeError when it has changed so that the settings no longer fit."""
        return rebuilt(self._file, self._state())

    __copy__ = copy

    def __deepcopy__(self, memo: object) -> Options:
        return self.copy()

    def __reduce__(self) -> tuple[Any, ...]:
        return rebuilt, (self._file, self._state())

    def close(self) -> None:
        """Free the memory at once. Every other call raises ValueError then. Closing twice does nothing."""
        self._core.close()

    @property
    def closed(self) -> bool:
        """Whether ``close`` was called."""
        return self._core.closed

    def __enter__(self) -> Options:
        return self

    def __exit__(self, *exception: object) -> None:
        self.close()

    def __repr__(self) -> str:
        file = self._definition.file
        state = "closed" if self.closed else f"{len(self)} options, {len(self.changed())} set"
        return f"<wexcorin.Options {file!r}: {state}>"

    def _repr_html_(self) -> str:
        return _table.table(self._core, self._definition)

    # ---- inside

    def _take(self, text: str = "") -> list[Problem]:
        """Move the messages of the library to this object and return the problems among them."""
        messages, records = self._core.takemessages()
        self._messages += messages
        found = []
        for file, line, iserror, what, details in records:
            file = text if text and file == "pchar" else file
            found.append(Problem(file, line or None, "error" if iserror else "warning", what, details))
        self._problems += found
        return found

    @staticmethod
    def _judged(problems: list[Problem], strict: bool) -> list[Problem]:
        if strict and any(problem.severity == "error" for problem in problems):
            raise SettingsError(problems)
        return problems

    def _restore(self, name: str, bits: int, value: Any) -> None:
        """Go back to the value before, unless it is there still: a refused value changes at most a list or
        one of two values."""
        option = self._definition.named(name)
        if (self._core.defined(option.number), self._core.value(option.number)) == (bits, value):
            return
        _assign.restore(self._core, option, bits, value)
        if self._core.takemessages()[1]:  # the value was out of bounds
            self._core.setnobounds(True)
            _assign.restore(self._core, option, bits, value)
            self._core.setnobounds(False)
            self._core.takemessages()

    def _state(self) -> dict[str, Any]:
        """Return all that distinguishes the object from a new one, as plain values."""
        bits = {name: self._core.defined(self._definition.named(name).number) for name in self.changed()}
        lists = [name for name in self if name.startswith("--")]
        return {
            "values": self.changed(),
            "bits": bits,
            "lists": lists,
            "dots": self.dot_entries,
            "indicators": self.indicators,
            "lines": self._indicator_lines(),
        }

    def _indicator_lines(self) -> list[str]:
        """Return the indicators as they are written: the last lines of the file."""
        count = len(self._core.indicators())
        if count == 0:
            return []
        file = os.memfd_create("wexcorin")
        try:
            self.write(f"/proc/self/fd/{file}")
            written = os.pread(file, os.fstat(file).st_size, 0)
        finally:
            os.close(file)
        return written.decode("utf-8", "surrogateescape").rstrip("\n").split("\n")[-count:]


def rebuilt(file: bytes, state: dict[str, Any]) -> Options:
    """Return an object with a state that ``_state`` has returned."""
    result = Options(file, strict=False)
    core = result._core
    texts = [f"{name} x" for name in state["lists"]]
    texts += [_entries.line(entry) for entry in state["dots"]] + state["lines"]
    core.setnobounds(True)
    core.readtext("\n".join(texts).encode("utf-8", "surrogateescape"))
    core.resetall()
    with contextlib.suppress(KeyError, TypeError, ValueError):  # then the states differ
        for name, value in state["values"].items():
            _assign.restore(core, result.definition.named(name), state["bits"][name], value)
    core.setnobounds(False)
    core.takemessages()
    result.clear_messages()
    if result._state() != state:
        raise RuntimeError(f"{os.fsdecode(file)} is not what it was: the settings cannot be copied.")
    return result

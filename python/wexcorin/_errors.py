"""Messages, problems and exceptions."""

from __future__ import annotations

import difflib
import re
from collections.abc import Iterable
from typing import Literal, NamedTuple

Severity = Literal["error", "warning"]

# The kinds of messages, by their codes.
KINDS = (
    "echo",
    "help",
    "definition error",
    "value error",
    "value warning",
    "deprecated",
    "enter",
    "leave",
    "too many",
    "error",
)


# Letters and marks that are not seen, which Python counts as printable: fillers and variation selectors.
_UNSEEN = re.compile(
    "[\u034f\u115f\u1160\u17b4\u17b5\u180b-\u180f\u3164\ufe00-\ufe0f\uffa0\U000e0100-\U000e01ef]"
)


def printable(text: str) -> str:
    """Return the text with escapes for control characters, invisible ones and bytes that are no UTF-8.

    >>> printable("a\\tb\\u202e")
    'a\\\\tb\\\\u202e'
    >>> printable("a\\ufe0f")
    'a\\\\ufe0f'
    """
    if text.isprintable() and not _UNSEEN.search(text):
        return text
    return "".join(c if c.isprintable() and not _UNSEEN.match(c) else ascii(c)[1:-1] for c in text)


class Message(NamedTuple):
    """A message of the library, as it stands: ``kind`` is one of ``echo``, ``help``, ``definition error``,
    ``value error``, ``value warning``, ``deprecated``, ``enter`` and ``leave`` (of a file), ``too many`` and
    ``error``."""

    kind: str
    text: str


class Problem(NamedTuple):
    """An error or a warning, with the place that it is about.

    >>> str(Problem("tuned.opt", 7, "error", 'Unknown option "thread"'))
    'tuned.opt:7: error: Unknown option "thread"'
    """

    file: str
    """The path of the file, ``"<text>"`` for what ``set`` has read, empty for an assignment."""
    line: int | None
    """From 1; None for no particular line."""
    severity: Severity
    text: str
    details: tuple[str, ...] = ()
    """What explains the text, such as the valid range."""

    def __str__(self) -> str:
        place = self.file + (f":{self.line}" if self.line else "")
        text = self.text + (f" ({'; '.join(self.details)})" if self.details else "")
        return printable(f"{place}: {self.severity}: {text}" if place else text)


class Error(Exception):
    """The base of the exceptions that carry problems."""

    def __init__(self, problems: Iterable[Problem]) -> None:
        self.problems = list(problems)
        super().__init__(self.problems)

    def __str__(self) -> str:
        return "\n".join(map(str, self.problems))


class DefinitionError(Error, ValueError):
    """The definition file has mistakes: see ``problems``."""


class SettingsError(Error, ValueError):
    """An option file, a text or a value was refused: see ``problems``."""


class UnknownOptionError(KeyError):
    """There is no option of that name, or it has no value.

    ``suggestions`` are the names that are most like it.
    """

    def __init__(self, name: object, names: Iterable[str] = (), reason: str = "") -> None:
        super().__init__(name)
        self.name = name
        self._names = tuple(names)
        self._reason = reason

    @property
    def suggestions(self) -> list[str]:
        """At most three names, the nearest first."""
        originals = {name.lower(): name for name in self._names}
        near = difflib.get_close_matches(str(self.name).lower().replace("-", "_"), originals, 3, 0.6)
        return [originals[name] for name in near]

    def __str__(self) -> str:
        if self._reason:
            return self._reason
        suggestions = " or ".join(f'"{name}"' for name in self.suggestions)
        return printable(
            f'Unknown option "{self.name}"' + (f"; did you mean {suggestions}?" if suggestions else "")
        )

"""What the definition file says: options, groups, synonyms."""

from __future__ import annotations

import math
from collections.abc import Iterator
from typing import Any, Literal, NamedTuple, Union

from . import _core
from ._errors import UnknownOptionError

Type = Literal[
    "integer",
    "double",
    "string",
    "boolean",
    "enumstr",
    "enumint",
    "multilist",
    "strlist",
    "macro",
    "immediate",
]
Takes = Literal["one value", "no value", "an optional value", "two values"]
TAKES: tuple[Takes, ...] = ("one value", "no value", "an optional value", "two values")

LIMITS = {2**31 - 1: "maxint", -(2**31): "minint", 1e299: "maxdouble", -1e299: "mindouble"}


def decimal(value: float) -> str:
    """Return a number as the library writes it: with up to 15 digits.

    >>> decimal(1e-07), decimal(600.0), decimal(1e299)
    ('1E-7', '600', '1E299')
    """
    if isinstance(value, int):
        return str(int(value))
    if not math.isfinite(value):
        return str(value)
    digits, _, exponent = f"{value:.15G}".partition("E")
    return f"{digits}E{int(exponent)}" if exponent else digits


def bound(value: float) -> str:
    """Return a bound as a definition file writes it: ``maxint`` for the largest integer.

    >>> bound(2**31 - 1), bound(-1e299), bound(0.5)
    ('maxint', 'mindouble', '0.5')
    """
    return LIMITS.get(value) or decimal(value)


class Option(NamedTuple):
    """The description of an option."""

    number: int
    """From 1, in the order of the definition file. The predefined option Help is number 1."""
    name: str
    """As in the definition file. That of a dot option begins with a period."""
    type: Type
    """The keyword of the definition file."""
    takes: Takes
    """What follows the name in an option file."""
    default: Any
    """The value of the option while it is not set; None where the option has no value of its own. Of an
    option with two values it is the default of each."""
    range: Union[tuple[int, int], tuple[float, float], None]
    """The inclusive bounds of an integer or double option. The help says what their unit is."""
    values: dict[Any, str]
    """The permitted values of an enumstr or enumint option, each with its help; empty for other types."""
    help: str
    """The help text of one line; ``Options.help(name)`` has all of it."""
    group: int
    """The number of its group."""
    reference: int
    """The reference number, for the solver's own use."""
    hidden: bool
    """Whether the help leaves it out."""

    @property
    def has_value(self) -> bool:
        """Whether the option has a value of its own: not so macros, multilists and immediate options."""
        return self.type not in ("multilist", "macro", "immediate")

    @property
    def allowed(self) -> str:
        """The bounds or the permitted values as text."""
        if self.range:
            return f"{bound(self.range[0])} to {bound(self.range[1])}"
        return ", ".join(map(str, self.values)) or ("0, 1" if self.type == "boolean" else "")


class Group(NamedTuple):
    """A group of options, as the help lists them."""

    name: str
    number: int
    title: str
    hidden: bool


class Definition:
    """The options of a definition file, in its order: iterate over it, or ask for one by name or by position.

    >>> options = Options("examples/first.def")
    >>> [option.name for option in options.definition]
    ['Help', 'maxit', 'tol', 'start']
    >>> options.definition["tol"].range
    (1e-20, 0.1)
    >>> options.definition["start"].values
    {'cold': 'From nothing', 'warm': 'From the last solution'}
    >>> options.definition.synonyms
    {'limit': 'maxit'}
    """

    def __init__(self, core: _core.Handle, file: str) -> None:
        self._core = core
        self._options: list[Option] = []
        self.file = file
        """The path that the definition was read from."""

    def __len__(self) -> int:
        return self._core.count()

    def __iter__(self) -> Iterator[Option]:
        return map(self._describe, range(1, len(self) + 1))

    def __contains__(self, name: object) -> bool:
        return self._core.find(name) > 0

    def __getitem__(self, which: str | int) -> Option:
        """Return the option of a name or synonym, or at a position from 0. Raises ``UnknownOptionError``,
        which is a ``KeyError``, or ``IndexError``."""
        if isinstance(which, int):
            return self._describe(range(1, len(self) + 1)[which])
        return self.named(which)

    def named(self, name: str) -> Option:
        """Return the option of a name or synonym. Raises ``UnknownOptionError``."""
        number = self._core.find(name)
        if number == 0:
            raise self.unknown(name)
        return self._describe(number)

    def __repr__(self) -> str:
        return f"<wexcorin.Definition {self.file!r}: {len(self)} options>"

    @property
    def groups(self) -> list[Group]:
        """The groups, in the order of the file."""
        return [Group(*group) for group in self._core.groups()]

    @property
    def synonyms(self) -> dict[str, str]:
        """The synonyms, each with the name of its option."""
        return dict(self._core.synonyms())

    def unknown(self, name: object) -> UnknownOptionError:
        """Return the exception for a name that is no option, or an option without a value."""
        number = self._core.find(name)
        if number:
            option = self._describe(number)
            what = "belongs to symbols: see dot_entries" if option.has_value else "has no value of its own"
            return UnknownOptionError(name, (), f'Option "{option.name}" ({option.type}) {what}.')
        return UnknownOptionError(name, [*(option.name for option in self), *self.synonyms])

    def _describe(self, number: int) -> Option:
        # An option in text that begins with two dashes may have been added since.
        while len(self._options) < number:
            new = len(self._options) + 1
            name, kind, takes, default, limits, values, *rest = self._core.describe(new)
            self._options.append(Option(new, name, kind, TAKES[takes], default, limits, dict(values), *rest))
        option = self._options[number - 1]
        return option._replace(default=[]) if option.type == "strlist" else option

"""Dot entries and indicators, which say something about single symbols of a model."""

from __future__ import annotations

from typing import NamedTuple, Union

from . import _core
from ._definition import Definition, decimal


class DotEntry(NamedTuple):
    """A value for a symbol of the model, as ``flow.prior('north') 2`` gives it."""

    symbol: str
    option: str
    """The name of the dot option, with its period."""
    elements: tuple[str, ...]
    """The index elements; ``"*"`` stands for all."""
    value: Union[int, float]
    """An int unless the option is a double."""


class Indicator(NamedTuple):
    """The equation holds when the binary variable has this value."""

    equation: str
    equation_elements: tuple[str, ...]
    variable: str
    variable_elements: tuple[str, ...]
    value: bool


def dotentries(core: _core.Handle, definition: Definition) -> list[DotEntry]:
    result = []
    for symbol, number, elements, value in core.dotentries():
        option = definition[number - 1]
        result.append(
            DotEntry(symbol, option.name, elements, value if option.type == "double" else int(value))
        )
    return result


def quoted(element: str) -> str:
    if element == "*":
        return element
    return f'"{element}"' if "'" in element else f"'{element}'"


def line(entry: DotEntry) -> str:
    """Return the entry as a line of an option file, with all digits.

    >>> line(DotEntry("flow", ".prior", ("north", "*"), 2.5))
    "flow.prior('north',*) 2.5"
    """
    elements = f"({','.join(map(quoted, entry.elements))})" if entry.elements else ""
    value = repr(entry.value) if isinstance(entry.value, float) else decimal(entry.value)
    return f"{entry.symbol}{entry.option}{elements} {value}"

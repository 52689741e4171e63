"""Values of Python programs for options: which types fit, and how they reach the library."""

from __future__ import annotations

import operator
import os
from collections.abc import Iterable, Sequence
from typing import Any, SupportsFloat, SupportsIndex, Union

from . import _core
from ._definition import Option

Number = Union[SupportsIndex, SupportsFloat]
"""An int, a float, a bool, or what converts to one, such as the numbers of numpy."""
Single = Union[Number, str, "os.PathLike[str]"]
Assignable = Union[Single, Sequence[Single], Iterable[str]]


def misfit(option: Option, value: object, wanted: str) -> TypeError:
    return TypeError(f'Option "{option.name}" ({option.type}) takes {wanted}, not {type(value).__name__}.')


def outside(option: Option, value: object, wanted: str) -> ValueError:
    return ValueError(f'Option "{option.name}" ({option.type}) takes {wanted}, not {value!r}.')


def truth(option: Option, value: object) -> int:
    """Return 1 or 0 for a bool, for one of numpy, or for 1 or 0."""
    if getattr(getattr(value, "dtype", None), "kind", "") == "b":
        return int(bool(value))
    try:
        number = operator.index(value)  # type: ignore[arg-type]
    except TypeError:
        raise misfit(option, value, "True or False") from None
    if number not in (0, 1):
        raise outside(option, value, "True or False")
    return number


def number(option: Option, value: object) -> int | float:
    try:
        return operator.index(value)  # type: ignore[arg-type]
    except TypeError:
        if isinstance(value, (str, bytes)) or not hasattr(value, "__float__"):
            raise misfit(option, value, "a number") from None
        return float(value)


def text(option: Option, value: object) -> str:
    if not isinstance(value, (str, os.PathLike)):
        raise misfit(option, value, "a text")
    result = os.fspath(value)
    if not isinstance(result, str):
        raise misfit(option, value, "a text")
    return result


def word(option: Option, value: object) -> str:
    """Return one value for a macro or a multilist as it would be written: its options have their own
    types."""
    if isinstance(value, (str, os.PathLike)):
        return text(option, value)
    if isinstance(value, bool):
        return str(int(value))
    result = number(option, value)
    return repr(result)


def converted(option: Option, value: object) -> int | float | str:
    """Return the value as one of those that the library takes for the option."""
    if option.type in ("string", "enumstr"):
        return text(option, value)
    result = truth(option, value) if option.type == "boolean" else number(option, value)
    if isinstance(result, float) or -(2**63) <= result < 2**63:
        return result
    if option.type == "double" and abs(result) < 10**300 and result == int(float(result)):
        return float(result)
    raise outside(option, value, "a smaller number")


def send(core: _core.Handle, option: Option, value: int | float | str, second: bool) -> None:
    """Pass one value to the option. Whether it was refused, the messages tell."""
    if isinstance(value, str):
        core.settext(option.number, second, value)
    elif isinstance(value, float):
        core.setreal(option.number, second, value)
    else:
        core.setinteger(option.number, second, value)


def several(option: Option, value: object) -> list[object]:
    if isinstance(value, (str, bytes)) or not isinstance(value, Iterable):
        raise misfit(option, value, "a list of texts")
    return list(value)


def pair(option: Option, value: object) -> tuple[object, object]:
    """Return both values of an option with two: a single one counts for both."""
    if isinstance(value, str) or not isinstance(value, Iterable):
        return value, value
    values = list(value)
    if len(values) != 2:
        raise outside(option, value, "one value or two")
    return values[0], values[1]


def assign(core: _core.Handle, option: Option, value: object) -> None:
    """Pass the value to the option. Raises TypeError for a value of the wrong type, and ValueError for a
    number that the option cannot hold; a value that the library refuses becomes a message."""
    if option.type == "immediate":
        raise TypeError(
            f'Option "{option.name}" (immediate) has no value: it acts when a text names it, see set().'
        )
    if option.type == "macro":
        core.settext(option.number, False, word(option, value))
    elif option.type == "multilist":
        words: list[object] = [value] if isinstance(value, str) else several(option, value)
        core.settext(option.number, False, ":".join(word(option, part) for part in words))
    elif option.type == "strlist":
        texts = [text(option, each) for each in several(option, value)]
        core.reset(option.number)
        for line in texts:
            core.settext(option.number, False, line)
    elif option.takes == "no value" and converted(option, value) != option.default:
        raise outside(option, value, f"nothing but {option.default!r}, which reset() takes back")
    elif option.takes == "two values":
        values = [converted(option, each) for each in pair(option, value)]  # both fit, or none is passed
        for second, each in enumerate(values):
            send(core, option, each, bool(second))
    else:
        send(core, option, converted(option, value), False)


def restore(core: _core.Handle, option: Option, bits: int, value: Any) -> None:
    """Give the option back a value that it had. ``bits`` say which of its values were set."""
    core.reset(option.number)
    if option.takes == "two values":
        for second in (False, True):
            if bits & (2 if second else 1):
                send(core, option, converted(option, value[second]), second)
    elif bits:
        assign(core, option, value)

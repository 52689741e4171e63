"""The settings as a table in HTML, with the columns of ``wexcorin show``."""

from __future__ import annotations

import html
from collections.abc import Iterable

from . import _core
from ._definition import Definition, Option, decimal
from ._errors import printable

COLUMNS = ("Nr", "Name", "Type", "Set", "Value", "Default", "Range or values")


def quoted(text: str) -> str:
    return f'"{text}"' if not text or " " in text or "," in text else text


def shown(option: Option, value: object) -> str:
    if isinstance(value, bool) or not isinstance(value, (int, float)):
        return str(int(value)) if isinstance(value, bool) else quoted(str(value))
    return decimal(value)


def current(core: _core.Handle, option: Option) -> str:
    value = core.value(option.number)
    values = value if isinstance(value, (list, tuple)) else [] if value is None else [value]
    return ", ".join(shown(option, each) for each in values)


def default(option: Option) -> str:
    return shown(option, option.default) if option.has_value and option.type != "strlist" else ""


def cells(tag: str, texts: Iterable[str]) -> str:
    return "".join(f"<{tag}>{html.escape(printable(text))}</{tag}>" for text in texts)


def table(core: _core.Handle, definition: Definition) -> str:
    """Return the table. Options that are set stand out."""
    rows = []
    for option in definition:
        isset = core.defined(option.number) > 0
        values = (current(core, option), default(option), option.allowed)
        row = cells("td", (str(option.number), option.name, option.type, "yes" if isset else "", *values))
        rows.append(
            f'<tr title="{html.escape(printable(option.help))}"{" style=font-weight:bold" * isset}>{row}</tr>'
        )
    return f"<table><thead><tr>{cells('th', COLUMNS)}</tr></thead><tbody>{''.join(rows)}</tbody></table>"

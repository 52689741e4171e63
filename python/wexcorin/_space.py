"""The space that a search over the options has to explore."""

from __future__ import annotations

from typing import Any

from ._definition import LIMITS, Option

KINDS = {
    "integer": "integer",
    "double": "real",
    "boolean": "boolean",
    "enumstr": "choice",
    "enumint": "choice",
}
DECADES = 100  # bounds that are further apart than by this factor are searched by their logarithm


def limit(value: float) -> float | None:
    return None if value in LIMITS else value


def parameter(option: Option) -> dict[str, Any] | None:
    """Return the description of one option; None for an option that no search can vary."""
    if option.type not in KINDS or option.takes == "no value":
        return None
    result = {"name": option.name, "kind": KINDS[option.type], "default": option.default}
    result["count"] = 2 if option.takes == "two values" else 1
    if option.range:
        low, high = result["low"], result["high"] = limit(option.range[0]), limit(option.range[1])
        result["log"] = low is not None and low > 0 and (high is None or high / low >= DECADES)
    else:
        result["values"] = list(option.values) or [False, True]
    return result

"""client.py: the same client in Python. It prints what client.c prints.

    python3 examples/client.py examples/solver.def examples/solver.opt
"""

from __future__ import annotations

import sys

import wexcorin

ERRORS = ("definition error", "value error", "too many", "error")
WARNINGS = ("value warning", "deprecated")


def print_option(options: wexcorin.Options, name: str) -> None:
    value = options[name]
    if isinstance(value, list):
        for number, text in enumerate(value, 1):
            print(f"{name} [{number}] = {text}")
    else:
        print(f"{name} = {options.text(name)}")


def print_dot_entry(entry: wexcorin.DotEntry) -> None:
    elements = "".join(f" [{element}]" for element in entry.elements)
    print(f"{entry.symbol}{entry.option}{elements} = {entry.value:g}")


def print_indicator(indicator: wexcorin.Indicator) -> None:
    equation = f"{indicator.equation} ({len(indicator.equation_elements)})"
    variable = f"{indicator.variable} ({len(indicator.variable_elements)})"
    print(f"{equation} holds when {variable} is {indicator.value:d}")


def run(definition: str, files: list[str]) -> bool:
    """Return True when there was no error and no warning."""
    options = wexcorin.Options(definition, strict=False)
    options.read(*files, strict=False)

    for name in options.changed():
        print_option(options, name)
    for entry in options.dot_entries:
        print_dot_entry(entry)
    for indicator in options.indicators:
        print_indicator(indicator)
    for message in options.messages:
        print(message.text)
    errors = sum(message.kind in ERRORS for message in options.messages)
    warnings = sum(message.kind in WARNINGS for message in options.messages)
    print(f"{errors} errors, {warnings} warnings")
    return errors == warnings == 0


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit("usage: client.py definition-file [option-file ...]")
    sys.exit(0 if run(sys.argv[1], sys.argv[2:]) else 1)

"""Options of a solver: read a definition file and option files, check and change values, write them back.

>>> import wexcorin
>>> options = wexcorin.Options("examples/first.def")
>>> options.read("examples/first.opt")
[]
>>> options["maxit"] = 800
>>> options.to_dict()
{'maxit': 800, 'tol': 1e-09, 'start': 'warm'}

The library reports mistakes as problems with file and line, which the exceptions DefinitionError and
SettingsError carry. Texts are str: bytes of a file that are no UTF-8 stand in them as surrogates, as in file
names.
"""

from __future__ import annotations

try:
    from . import _core
except ImportError as reason:
    _reason = str(reason).removeprefix("wexcorin: ").rstrip(".")
    raise ImportError(
        f"wexcorin cannot use its shared library libwexcorin.so.2: {_reason}. On Debian, install the package "
        "libwexcorin2; for a library elsewhere, set LD_LIBRARY_PATH to its folder.",
        name="wexcorin",
    ) from None
from ._definition import Definition, Group, Option
from ._entries import DotEntry, Indicator
from ._errors import DefinitionError, Error, Message, Problem, SettingsError, UnknownOptionError, printable
from ._options import Options

__version__ = "2.0.0"

library_version = " ".join(_core.library.split())
"""The version line of the shared library."""

__all__ = [
    "Definition",
    "DefinitionError",
    "DotEntry",
    "Error",
    "Group",
    "Indicator",
    "Message",
    "Option",
    "Options",
    "Problem",
    "SettingsError",
    "UnknownOptionError",
    "library_version",
    "printable",
]
for _public in (
    Definition,
    DefinitionError,
    DotEntry,
    Error,
    Group,
    Indicator,
    Message,
    Option,
    Options,
    Problem,
    SettingsError,
    UnknownOptionError,
):
    _public.__module__ = __name__

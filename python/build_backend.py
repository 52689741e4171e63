"""Builds the wheel for pip. The extension module is compiled against the library of the prefix that
WEXCORIN_PREFIX names, or else the one in ../build/release, or else the installed one. CXX and CXXFLAGS have
their usual meaning."""

from __future__ import annotations

import base64
import hashlib
import os
import re
import shlex
import subprocess
import sys
import sysconfig
import tarfile
import tempfile
import tomllib
import zipfile
from pathlib import Path
from typing import Any

HERE = Path(__file__).resolve().parent
TAG = f"cp{sys.version_info.major}{sys.version_info.minor}"
PLATFORM = re.sub("[-.]", "_", sysconfig.get_platform())

with open(HERE / "pyproject.toml", "rb") as _file:
    PROJECT = tomllib.load(_file)["project"]
VERSION = re.findall(r'(?m)^__version__ = "(.*)"', (HERE / "wexcorin/__init__.py").read_text())[0]
NAME = f"{PROJECT['name']}-{VERSION}"


def library() -> list[str]:
    """Return the flags that the library needs."""
    prefix, build = os.environ.get("WEXCORIN_PREFIX"), HERE.parent / "build/release/lib"
    if prefix:
        found = sorted(Path(prefix).resolve().glob("lib*/**/libwexcorin.so"))
        if not found:
            sys.exit(f"WEXCORIN_PREFIX: there is no libwexcorin.so below {prefix}/lib")
        include, folder = Path(prefix).resolve() / "include", found[0].parent
    elif (build / "libwexcorin.so").exists():
        include, folder = HERE.parent / "include", build
    else:
        return ["-lwexcorin"]
    return [f"-I{include}", f"-L{folder}", f"-Wl,-rpath,{folder}", "-lwexcorin"]


def compile_extension(target: Path) -> None:
    """Compile the extension module."""
    command = (
        shlex.split(os.environ.get("CXX", "c++")) + "-O2 -std=c++17 -fPIC -shared -fvisibility=hidden".split()
    )
    command += shlex.split(os.environ.get("CXXFLAGS", "")) + ["-I" + sysconfig.get_path("include")]
    command += [*map(str, sorted(HERE.glob("source/*.cpp"))), *library(), "-o", str(target)]
    print(shlex.join(command), flush=True)
    if subprocess.run(command, check=False).returncode:
        sys.exit(
            "The extension module of wexcorin does not compile, see above. It needs a C++ compiler, the headers\n"
            "of Python and pybind11 (on Debian: g++ python3-dev pybind11-dev), and libwexcorin with its headers."
        )


def metadata() -> str:
    return (
        f"Metadata-Version: 2.1\nName: {PROJECT['name']}\nVersion: {VERSION}\n"
        f"Summary: {PROJECT['description']}\nRequires-Python: {PROJECT['requires-python']}\n"
    )


def build_wheel(
    wheel_directory: str, config_settings: dict[str, Any] | None = None, metadata_directory: str | None = None
) -> str:
    """Write the wheel and return its name."""
    files = {f"wexcorin/{path.name}": path.read_bytes() for path in sorted(HERE.glob("wexcorin/*.py*"))}
    files["wexcorin/py.typed"] = b""
    with tempfile.TemporaryDirectory() as work:
        extension = Path(work) / ("_core" + sysconfig.get_config_var("EXT_SUFFIX"))
        compile_extension(extension)
        files[f"wexcorin/{extension.name}"] = extension.read_bytes()
    info = f"{NAME}.dist-info"
    files[f"{info}/METADATA"] = metadata().encode()
    wheel = f"Wheel-Version: 1.0\nGenerator: wexcorin\nRoot-Is-Purelib: false\nTag: {TAG}-{TAG}-{PLATFORM}\n"
    files[f"{info}/WHEEL"] = wheel.encode()
    record = ""
    for name, content in files.items():
        digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
        record += f"{name},sha256={digest},{len(content)}\n"
    files[f"{info}/RECORD"] = f"{record}{info}/RECORD,,\n".encode()
    name = f"{NAME}-{TAG}-{TAG}-{PLATFORM}.whl"
    with zipfile.ZipFile(Path(wheel_directory) / name, "w", zipfile.ZIP_DEFLATED) as archive:
        for path, content in files.items():
            archive.writestr(path, content)
    return name


def build_sdist(sdist_directory: str, config_settings: dict[str, Any] | None = None) -> str:
    """Write the sources and return the name of the archive."""
    name = f"{NAME}.tar.gz"
    with tarfile.open(Path(sdist_directory) / name, "w:gz") as archive:
        for pattern in ("*.py", "*.toml", "*.md", "source/*", "wexcorin/*.py*", "wexcorin/py.typed"):
            for path in sorted(HERE.glob(pattern)):
                archive.add(path, f"{NAME}/{path.relative_to(HERE)}")
    return name

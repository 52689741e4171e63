"""What the tests share. They run in the root of the repository, where the examples are."""

import os
import pathlib

import pytest
import wexcorin

ROOT = pathlib.Path(__file__).parents[2]

# An option of each kind.
DEFINITION = """\
general group 1 1 General
count integer 1 5 0 100 1 1 A number of things
share double.OPT 2 0.5 0 1 1 1 A part of all
flag boolean 3 0 1 1 Whether or not
word enumstr 4 cold 1 1 Where to begin
 cold 1 From nothing
 warm 1 From the last solution
level enumint 5 1 1 1 How much
 1 1 Some
 3 1 Much
title string 6 "no title" 1 1 Any text
names strlist 7 1 1 Any texts
ends double.TWO 8 0 0 1 1 1 Two ends
only boolean.NV 9 1 1 1 Takes no value
both macro 1 1 Sets the flag and the number
 flag
 count
list multilist 10 1 1 Sets two numbers
 count level
.weight integer 11 1 0 9 1 1 For symbols
number synonym count
indic indicator
nobounds immediate NoBounds 1 1 Switches bounds
"""


@pytest.fixture(autouse=True)
def root(monkeypatch):
    monkeypatch.chdir(ROOT)


@pytest.fixture(scope="session")
def definition(tmp_path_factory):
    path = tmp_path_factory.mktemp("definition") / "kinds.def"
    path.write_text(DEFINITION)
    return path


@pytest.fixture
def options(definition):
    return wexcorin.Options(definition)

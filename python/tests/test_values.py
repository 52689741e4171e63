"""Values, names, files and problems: what goes in, what comes out, and what is refused how."""

import collections
import copy
import json
import os
import pathlib
import pickle
import pydoc

import numpy
import pytest
import wexcorin

# option, assigned, value afterwards (or the exception and a part of its text)
ASSIGNMENTS = [
    ("count", 7, 7),
    ("COUNT", 7.0, 7),
    ("number", numpy.int64(7), 7),
    ("count", numpy.float32(8), 8),
    ("count", True, 1),
    ("count", 2.5, (ValueError, 'Integer expected, for option "count" saw "2.5"')),
    ("count", 101, (wexcorin.SettingsError, "Valid range is 0 to 100")),
    ("count", 10**30, (ValueError, "smaller number")),
    ("count", "7", (TypeError, "takes a number, not str")),
    ("count", None, (TypeError, "not NoneType")),
    ("count", numpy.array([1, 2]), (TypeError, "")),
    ("share", 1, 1.0),
    ("share", numpy.float64(0.1), 0.1),
    ("share", float("nan"), (wexcorin.SettingsError, "out of range")),
    ("share", -(10**400), (ValueError, "smaller number")),
    ("flag", True, True),
    ("flag", numpy.bool_(True), True),
    ("flag", 1, True),
    ("flag", 2, (ValueError, "True or False")),
    ("flag", "yes", (TypeError, "True or False")),
    ("word", "warm", "warm"),
    ("word", "hot", (wexcorin.SettingsError, "Possible values are")),
    ("word", 1, (TypeError, "takes a text")),
    ("level", 3, 3),
    ("level", 2, (wexcorin.SettingsError, "Possible values are")),
    ("title", "größer", "größer"),
    ("title", "\udcff", "\udcff"),
    ("title", pathlib.Path("a/b"), "a/b"),
    ("title", 'a"b', (wexcorin.SettingsError, "double-quote")),
    ("title", "x" * 256, (ValueError, "255 characters")),
    ("title", b"bytes", (TypeError, "takes a text")),
    ("names", ["a", "b c"], ["a", "b c"]),
    ("names", (), []),
    ("names", "abc", (TypeError, "list of texts")),
    ("names", ["a", 'b"'], (ValueError, "double-quote")),
    ("names", ["a", 1], (TypeError, "takes a text")),
    ("ends", (0.25, 1), (0.25, 1.0)),
    ("ends", 0.5, (0.5, 0.5)),
    ("ends", numpy.array([0.25, 0.5]), (0.25, 0.5)),
    ("ends", (0.5, 2), (wexcorin.SettingsError, "out of range")),
    ("ends", (0.5, "x"), (TypeError, "takes a number")),
    ("ends", (1, 1, 1), (ValueError, "one value or two")),
    ("only", True, True),
    ("only", False, (ValueError, "nothing but True")),
    ("nobounds", True, (TypeError, "has no value")),
    (2, 1, (KeyError, "Unknown option")),
    ("cuont", 1, (KeyError, 'did you mean "count"?')),
]


@pytest.mark.parametrize("name, value, expected", ASSIGNMENTS)
def test_assignment(options, name, value, expected):
    if isinstance(expected, tuple) and isinstance(expected[0], type):
        before = options.changed()
        with pytest.raises(expected[0]) as caught:
            options[name] = value
        assert expected[1] in str(caught.value)
        assert options.changed() == before == {}
    else:
        options[name] = value
        assert options[name] == expected and type(options[name]) is type(expected)
        assert options.is_set(name) is (expected != [])


def test_refused_values_leave_the_old_ones(options):
    options.set('names a names "b c" ends 0.25 0.5')
    options.set("nobounds on count 500 ends 3 * nobounds off")
    before = options.changed()
    for name, value in ("names", ["d", '"']), ("ends", (0.5, 7)), ("ends", (0.5, "x")), ("count", 101):
        with pytest.raises((ValueError, TypeError)):
            options[name] = value
        assert options.changed() == before
    assert before == {"count": 500, "names": ["a", "b c"], "ends": (3.0, 0.5)}


@pytest.mark.parametrize("name, value", [("ends", (-1, "cold")), ("names", ['"', "x" * 256])])
def test_a_value_refused_in_two_ways_has_no_effect_on_the_next(options, name, value):
    with pytest.raises((TypeError, ValueError)):
        options[name] = value
    options["word"] = "warm"
    assert options.changed() == {"word": "warm"}


def test_macros_and_multilists_set_other_options(options):
    options["both"] = True
    assert options.changed() == {"count": 1, "flag": True}
    options["list"] = [42, 3]
    options["both"] = "0"
    options["list"] = "7"
    assert options.changed() == {"count": 7, "flag": False, "level": 3}
    with pytest.raises(KeyError, match="has no value of its own"):
        options["both"]


def test_mapping(options):
    names = ["count", "share", "flag", "word", "level", "title", "names", "ends", "only"]
    assert list(options) == names == list(options.to_dict()) and len(options) == 9
    assert isinstance(options, collections.abc.Mapping)
    assert "Number" in options and "both" not in options and ".weight" not in options and 3 not in options
    assert "\ud800" not in options and "x" * 300 not in options and "" not in options
    assert options.get("number") == 5 and options.get("both", 7) == 7
    assert options == dict(options.items()) == options.copy()
    options.update({"count": 1}, share=0.25)
    options |= [("flag", True)]
    assert options.changed() == {"count": 1, "share": 0.25, "flag": True}
    assert (options | {"count": 2})["count"] == 2 and options["count"] == 1
    assert {"count": 0, "x": 1} | options == {**options.to_dict(), "x": 1}
    other = wexcorin.Options(options.definition.file)
    assert (options | other).changed() == {} and (other | options).changed() == options.changed()
    assert json.loads(json.dumps(options.to_dict()))["ends"] == [0, 0]
    options.reset("number", "flag")
    assert options.changed() == {"share": 0.25}
    options.reset()
    assert options.changed() == {}


def test_definition(options):
    definition = options.definition
    assert [option.type for option in definition][-3:] == ["multilist", "integer", "immediate"]
    for name, default in options.items():
        options[name] = {"count": 6, "flag": True, "word": "warm", "level": 3, "names": ["x"]}.get(
            name, default
        )
        assert definition[name].default == (0 if name == "ends" else default)
    count = definition["number"]
    assert count[:3] == (2, "count", "integer") and count.takes == "one value" and count.range == (0, 100)
    assert (count.help, count.group, count.reference, count.hidden) == ("A number of things", 1, 1, False)
    assert definition["level"].values == {1: "Some", 3: "Much"} and definition[-2].name == ".weight"
    assert definition.groups == [("general", 1, "General", False)] and definition.synonyms == {
        "number": "count"
    }
    options.set("--new a")
    assert definition[len(definition) - 1].name == "--new" and options["--new"] == ["a"]
    with pytest.raises(IndexError):
        definition[99]


def test_parameters(options):
    found = {parameter["name"]: parameter for parameter in options.parameters()}
    assert list(found) == ["count", "share", "flag", "word", "level", "ends"]
    assert found["level"]["values"] == [1, 3] and found["flag"]["values"] == [False, True]
    assert found["ends"]["count"] == 2 and found["count"]["kind"] == "integer"
    solver = wexcorin.Options("examples/solver.def").parameters("feasibility_tol", "time_limit", "threads")
    assert [(each["low"], each["high"], each["log"]) for each in solver] == [
        (1e-10, 1e-3, True),
        (0, None, False),
        (0, 1024, False),
    ]
    json.dumps(solver)


def test_problems_have_file_and_line(options, tmp_path):
    inner, outer = tmp_path / "inner.opt", tmp_path / "outer.opt"
    outer.write_bytes(b"count 7\ncount 101\nword h\xff\n")
    inner.write_text("share 0.25\n")
    with pytest.raises(wexcorin.SettingsError) as caught:
        options.read(outer, bytes(inner), strict=True)
    value, name = caught.value.problems
    assert value == (
        str(outer),
        2,
        "error",
        'Integer range error for option "count" saw "101"',
        ("Valid range is 0 to 100",),
    )
    assert name.line == 3 and name.text.endswith('saw "h\udcff"') and "h\\udcff" in str(name)
    assert options.changed() == {"count": 7, "share": 0.25} and options.problems == caught.value.problems
    assert pickle.loads(pickle.dumps(caught.value)).problems == options.problems
    options.clear_messages()
    assert [(each.file, each.line) for each in options.set("count 1\ncount x", strict=False)] == [
        ("<text>", 2)
    ]
    warning = options.set("nobounds on count 300")[0]
    assert warning.severity == "warning" and len(options.problems) == 2 and options["count"] == 300


@pytest.mark.parametrize(
    "call",
    [
        lambda options: options.read("missing.opt", strict=False),
        lambda options: wexcorin.Options("missing.def", strict=False),
        lambda options: options.write("missing/file.opt"),
    ],
)
def test_missing_files(options, call):
    with pytest.raises(FileNotFoundError, match="missing"):
        call(options)


def test_paths_that_cannot_be(options):
    with pytest.raises(OSError, match="too long"):
        options.read("x" * 256)
    with pytest.raises(ValueError, match="null"):
        options.set("count 1\0")
    with pytest.raises(ValueError, match="null"):
        options.write("a\0b")
    with pytest.raises(OSError, match="No space left|Input/output"):
        options.set("count 1")
        options.write("/dev/full")


def test_mistakes_in_the_definition(tmp_path):
    file = tmp_path / "bad.def"
    file.write_text("count integer 1 5 0 3 1 0 Text\nword enumx 1\n")
    with pytest.raises(wexcorin.DefinitionError) as caught:
        wexcorin.Options(file)
    assert [problem.line for problem in caught.value.problems] == [1, 2]
    assert wexcorin.Options(file, strict=False).problems == caught.value.problems


@pytest.mark.parametrize(
    "again", [copy.copy, copy.deepcopy, lambda options: pickle.loads(pickle.dumps(options))]
)
def test_copies_hold_all(monkeypatch, again):
    options = wexcorin.Options("examples/solver.def")
    options.read("examples/solver.opt")
    options.set("nobounds on threads 5000 nobounds off build.prior('x y', *) 0.12345678901234567")
    options.update(time_limit=0.1 + 0.2, quiet=True, gap_window=(0.3, 1 / 3))
    options.reset("--scenario")
    monkeypatch.chdir("/")
    other = again(options)
    assert other == options and other.changed() == options.changed() and other.problems == []
    assert other.dot_entries == options.dot_entries and other.indicators == options.indicators
    other["threads"] = 1
    assert options["threads"] == 5000


def test_a_copy_needs_its_definition(definition, tmp_path):
    file = tmp_path / "changed.def"
    file.write_text(definition.read_text())
    options = wexcorin.Options(file)
    options["count"] = 7
    for now in ("other", "integer"), ("count", "string"):
        file.write_text(definition.read_text().replace("count integer", " ".join(now)))
        with pytest.raises(RuntimeError, match="is not what it was"):
            options.copy()


def test_written_files_read_back(options, definition, tmp_path):
    options.set('title "a b" names x names y ends 0.25 1 only build.weight("x") 3')
    options.write(tmp_path / "written.opt")
    again = wexcorin.Options(definition)
    assert again.read(tmp_path / "written.opt") == []
    assert again.changed() == options.changed() and again.dot_entries == options.dot_entries
    assert again.dot_entries == [("build", ".weight", ("x",), 3)]


def test_texts_for_people(options):
    options["title"] = "<b>\x1b"
    table = options._repr_html_()
    assert (
        "&lt;b&gt;\\x1b" in table
        and "<td>0 to 100</td>" in table
        and table.count("<tr") == len(options.definition) + 1
    )
    assert options.help("number").startswith("count: A number of things") and "General" in options.help()
    assert wexcorin.Options.__doc__.startswith("The options of a solver")
    assert "Where to begin" in pydoc.render_doc(options)
    assert repr(options).endswith("kinds.def': 9 options, 1 set>")
    assert options.text("share") == "0.5" and options.text("ends") == "0, 0"

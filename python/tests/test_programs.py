"""Random programs of calls, compared with a model in ten lines."""

import pickle

import hypothesis
import wexcorin
from hypothesis import strategies as st

texts = st.sampled_from(["cold", "warm", "hot", "", "a b", '"', "\udc80", "é" * 128, "5"]) | st.text(
    "a ü\t!", max_size=5
)
numbers = st.integers(-2, 102) | st.integers() | st.floats() | st.sampled_from([0.5, 7.0, True, False])
values = texts | numbers | st.lists(texts | numbers, max_size=3) | st.tuples(numbers, numbers) | st.none()
names = st.sampled_from(["count", "share", "flag", "word", "title", "names", "ends", "only", "nothing"])
steps = st.tuples(st.sampled_from(["assign"] * 5 + ["reset", "copy", "pickle", "close"]), names, values)


def isnumber(value, low, high):
    return isinstance(value, (int, float)) and low <= value <= high


def istext(value):
    return isinstance(value, str) and '"' not in value and len(value.encode(errors="surrogateescape")) <= 255


# For each option, the value that it has after an assignment; None where the assignment is refused.
MODEL = {
    "count": lambda v: int(v) if isnumber(v, 0, 100) and v == int(v) else None,
    "share": lambda v: float(v) if isnumber(v, 0, 1) else None,
    "flag": lambda v: bool(v) if isinstance(v, int) and v in (0, 1) else None,
    "word": lambda v: v if v in ("cold", "warm") else None,
    "title": lambda v: v if istext(v) else None,
    "names": lambda v: list(v) if isinstance(v, (list, tuple)) and all(map(istext, v)) else None,
    "ends": lambda v: pair(v if isinstance(v, (list, tuple)) else (v, v)),
    "only": lambda v: True if isinstance(v, int) and v == 1 else None,
    "nothing": lambda v: None,
}


def pair(value):
    return (
        tuple(map(float, value)) if len(value) == 2 and all(isnumber(each, 0, 1) for each in value) else None
    )


@hypothesis.settings(
    max_examples=300,
    deadline=None,
    database=None,
    suppress_health_check=[  # a busy machine is no failure
        hypothesis.HealthCheck.function_scoped_fixture,
        hypothesis.HealthCheck.too_slow,
    ],
)
@hypothesis.given(program=st.lists(steps, max_size=12))
def test_programs(definition, program):
    options, model = wexcorin.Options(definition), {}
    for step, name, value in program:
        try:
            if step == "assign":
                expected = MODEL[name](value)
                options[name] = value
                assert expected is not None
                model[name] = expected
                if expected == []:
                    del model[name]
            elif step == "reset":
                options.reset(name)
                model.pop(name, None)
            elif step == "close":
                options.close()
            else:
                options = options.copy() if step == "copy" else pickle.loads(pickle.dumps(options))
        except (KeyError, TypeError, ValueError) as refused:
            assert options.closed or name == "nothing" or step == "assign" and expected is None, refused
        if not options.closed:
            assert options.changed() == model

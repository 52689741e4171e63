"""tune.py: looks for good settings of a solver by random search, and writes the best ones as an option file.

    python3 examples/tune.py examples/solver.def tuned.opt

The runs of the solver are invented: seconds() computes how long one would take. A real script starts the
solver with the option file that Options.write makes, and measures.
"""

from __future__ import annotations

import math
import random
import sys
from typing import Any

import wexcorin

TRIALS = 300
CHOSEN = (
    "method",
    "threads",
    "feasibility_tol",
    "refactor_frequency",
    "cut_level",
    "perturbation",
    "gap_window",
)


def draw(parameter: dict[str, Any], source: random.Random) -> Any:
    """Return a random value of one parameter, a pair for an option with two values."""
    if parameter["count"] == 2:
        return draw({**parameter, "count": 1}, source), draw({**parameter, "count": 1}, source)
    if "values" in parameter:
        return source.choice(parameter["values"])
    low, high = parameter["low"], parameter["high"]
    if low is None or high is None:  # no limit: stay near the default
        low, high = sorted((parameter["default"] / 10, parameter["default"] * 10))
    if parameter["log"]:
        value = math.exp(source.uniform(math.log(low), math.log(high)))
    else:
        value = source.uniform(low, high)
    if parameter["kind"] == "integer":
        value = round(value)
    return min(max(value, low), high)


def seconds(options: wexcorin.Options) -> float:
    """Return how long a run would take: the invented objective."""
    time = {"primal": 90.0, "dual": 40.0, "interior": 55.0}.get(options["method"], 60.0)
    threads = options["threads"] or 4
    time *= 0.2 + 0.8 / threads + threads / 400
    time *= 1 + 0.05 * (math.log10(options["feasibility_tol"]) + 6) ** 2
    time *= 1 + 0.1 * math.log10(options["refactor_frequency"] / 150) ** 2
    time *= (1.3, 1.0, 1.1)[options["cut_level"]] * (1.0 if options["perturbation"] else 1.2)
    begin, end = options["gap_window"]
    result: float = time * (1 + abs(begin - end))
    return result


def main(definition: str, file: str) -> None:
    options = wexcorin.Options(definition)
    space = options.parameters(*CHOSEN)
    source = random.Random(1977)  # the same numbers in every run
    best, fastest = options.copy(), seconds(options)
    print(f"defaults: {fastest:.1f} s")
    for trial in range(1, TRIALS + 1):
        options.reset()
        options.update((parameter["name"], draw(parameter, source)) for parameter in space)
        time = seconds(options)
        if time < fastest:
            best, fastest = options.copy(), time
            print(f"trial {trial}: {time:.1f} s")
    best.write(file)
    for name in best.changed():
        print(f"{name} = {best.text(name)}")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit("usage: tune.py definition-file file-to-write")
    main(*sys.argv[1:])

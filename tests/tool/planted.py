"""Plants one mistake at a time into a copy of an example and runs `check`: the first thing that it finds must be the
mistake, at its line, with the suggestion where there is one.
usage: planted.py TOOL; run in the repository's root"""
import json, re, sys
from support import expect, expect_part, failures, read, run, write

# Below each kind of mistake: what stands in the example, what is put in its place, what is found (its rule, or words
# of its texts), and the name or word that is suggested first. ~ is a tab, \0 and \z are the bytes 0 and 26, [255] is
# a word of 255 letters.
OPTIONS = r"""
== a name written with the signs of another format
iteration_limit 50000    | iteration/limit 50000          | bad-separator  | iteration_limit
iteration_limit 50000    | iteration.limit 50000          | unknown-option | iteration_limit
iteration_limit 50000    | iteration-limit 50000          | bad-separator  | iteration_limit
iteration_limit 50000    | iteration:limit 50000          | bad-separator  | iteration_limit
iteration_limit 50000    | IterationLimit 50000           | unknown-option | iteration_limit
iteration_limit 50000    | iteration limit 50000          | unknown-option | iteration_limit
crossover_rounds * 3     | crossover-rounds * 3           | bad-separator  | crossover_rounds
== a name in a section
time_limit := 1.5e3      | limits/time 1.5e3              | bad-separator  | time_limit
time_limit := 1.5e3      | limits/time_limit 1.5e3        | bad-separator  | time_limit
time_limit := 1.5e3      | orrery.limits.time_limit 2     | unknown-option | time_limit
time_limit := 1.5e3      | orrery-time-limit 2            | bad-separator  | time_limit
gap 1e-3                 | mip/tolerances/gap 1e-6        | bad-separator  | gap_relative
cut_rounds 12            | separating.cut.rounds = 12     | unknown-option | cut_rounds
stall_limit 800          | tree/memory/limit 800          | bad-separator  | tree_memory_limit
stall_limit 800          | heuristics.share 0.1           | unknown-option | heuristic_share
stall_limit 800          | debug\seed 1                   | bad-separator  | debug_seed
== a name behind a word of another language
THREADS = 8              | set threads 8                  | unknown-option | threads
THREADS = 8              | option threads := 8            | unknown-option | threads
THREADS = 8              | let threads 8                  | unknown-option | threads
-seed 20260              | set log/level 2                | unknown-option | log_level
-seed 20260              | set mip tolerances gap 2       | unknown-option | gap_relative
-seed 20260              | param log.level = 2            | unknown-option | log_level
crossover off            | set crossovr off               | unknown-option | crossover
== an abbreviation written together
gap 1e-3                 | feastol 1e-6                   | unknown-option | feasibility_tol
gap 1e-3                 | gaprel 0.1                     | unknown-option | gap_relative
== a sign before the name
THREADS = 8              | $threads 8                     | keyword        | threads
THREADS = 8              | "thraeds" 8                    | keyword        | threads
== a value glued to the name
gap 1e-3                 | gap0.1                         | .suffix        | gap_relative
gap 1e-3                 | gap.1                          | .suffix        | gap_relative
gap 1e-3                 | gap1e-3                        | bad-separator  | gap_relative
THREADS = 8              | threads8                       | unknown-option | threads
method dual              | methoddual                     | unknown-option | method
stall_limit 800          | stall-limit800                 | bad-separator  | stall_limit
stall_limit 800          | stall_limit.8                  | .suffix        | stall_limit
== words before or after the name, or in another order
time_limit := 1.5e3      | orrery_time_limit 1.5e3        | unknown-option | time_limit
time_limit := 1.5e3      | time_limit_seconds 1.5e3       | unknown-option | time_limit
time_limit := 1.5e3      | limit_time 1.5e3               | unknown-option | time_limit
gap 1e-3                 | relative_gap 1e-3              | unknown-option | gap_relative
gap 1e-3                 | gap absolute 1e-3              | value          | gap_absolute
method dual              | nl/method barrier              | bad-separator  | nl_method
method dual              | mip/sed 5                      | bad-separator  | seed
== a part of the name
gap 1e-3                 | feasibility 1e-6               | unknown-option | feasibility_tol
stall_limit 800          | refactor_freq 80               | unknown-option | refactor_frequency
stall_limit 800          | stall 800                      | unknown-option | stall_limit
describe sifting         | priority 5                     | unknown-option | .prior
== a name near one that is no longer used
stall_limit 800          | presolve off                   | unknown-option | reduce
describe sifting         | prior 5                        | unknown-option | .prior
== a letter too many, too few or wrong
THREADS = 8              | thraeds 8                      | unknown-option | threads
iteration_limit 50000    | iteraton_limit 50000           | unknown-option | iteration_limit
describe sifting         | flow.prio('north') 5           | unknown-option | .prior
method dual              | method duel                    | illegal-value  | dual
method dual              | method deepest                 | illegal-value  |
== a list in place of an option
THREADS = 8              | --threads 8                    | "--threads"    | threads
THREADS = 8              | //thread 8                     | "//thread"     | threads
== a colon after the name
THREADS = 8              | threads : 8                    | not a colon    |
== a number that is none, or none of the option
THREADS = 8              | threads 2000                   | illegal-value          |
profile 10               | profile 4                      | illegal-value          |
== a word that is not yes or no
crossover off            | crossover ture                 | t, true and 0  | true
== a value too many, or none
statistics               | statistics on                  | takes no value |
THREADS = 8              | gap_window                     | option-file    |
== a text that is cut
title = Water supply     | title = Water # supply         | nothing        |
log_prefix "run #7"      | log_prefix run#7               | comment-cut    |
log_prefix "run #7"      | log_prefix [255]               | nothing        |
log_prefix "run #7"      | log_prefix [256]               | has 256 characters; only the first 254 and the last |
log_prefix "run #7"      | log_prefix "[254]"             | nothing        |
log_prefix "run #7"      | log_prefix "[255]"             | has 255 characters; only the first 254 of |
title = Water supply     | title = Water\zsupply          | ctrl-z         |
log_prefix "run #7"      | log_prefix r\0                 | zero-byte      |
crossover off            | crossover off # [1004]         | nothing        |
crossover off            | crossover off # [1005]         | line-cut       |
== the same option twice
work_limit maxdouble     | time_limit 1500.00000000001    | set-again      |
== a file that is not there
solver_priorities.opt    | solver_priorites.opt           | unusable-file  |
"""

DEFINITION = r"""
== a word that is no type
seed integer 104         | seed int 104                   | default, lowest value, highest value, help flag, | integer
effort double 107        | effort real 107                | name, double, reference number, default, lowest  | double
repeatable boolean 105   | repeatable bool 105            | name, boolean, reference number, default, help   | boolean
cut_all macro            | cut_all marco                  | name, macro, help flag, group, text               | macro
cut_all macro 1          | cut_all macro.NV 1             | The types with modifiers are                      |
== a field that is left out
seed integer 104 1977    | seed integer 1977              | or a field before it was left out                 |
title string 111         | title string                   | The reference number must be an integer, but "Orrery run" |
pricing enumstr 401      | pricing enumstr                | The reference number must be an integer, but "edge" |
cuts group 8 1           | cuts group 8                   | The help flag must be an integer                  |
 dual 1 Dual simplex     | ~dual 1 Dual simplex           | begins with a tab                                 |
 dual 1 Dual simplex     |  dual Dual simplex             | The fields of a value are: value, help flag, text |
 2 1 A proof             |  two 1 A proof                 | in its place; perhaps it was left out.            |
 2 1 A proof             |  99999999999 1 A proof         | "99999999999" has more than 32 bits               |
== a field that is wrong
1977 0 maxint            | 1977 0 99999999999             | the highest value is between minint               |
1977 0 maxint            | 1977.5 0 maxint                | The default must be an integer                    |
1977 0 maxint            | 1977, 0, maxint                | fields are separated by blanks                    |
107 1 0 10 1             | 107 1 0 inf 1                  | the largest number is maxdouble                   |
105 1 1 1                | 105 yes 1 1                    | but "yes" is in its place. The                    |
105 1 1 1                | 105 2 1 1                      | boolean-default                                   |
105 1 1 1                | 105 99999999999 1 1            | must be 0 or 1, but "99999999999"                 |
105 1 1 1                | 105 1 1 General                | The group must be an integer, but "General"       |
1977 0 maxint            | 1977 2000 maxint               | definition                                        |
include immediate ReadFile | include immediate File       | The kinds are EolFlag, ReadFile,                  |
Normal lookup            | Exact lookup                   | The modes are Normal, Path and Minos              |
== names and numbers that are used twice, or not declared
seed integer 104         | threads integer 104            | The name finds option "threads"                   |
worklim synonym          | nodelim synonym                | definition                                        |
104 1977                 | 103 1977                       | reference-twice                                   |
cuts group 8             | cuts group 7                   | definition                                        |
== a line at which the definition ends
seed integer 104         | 8seed integer 104              | but a name begins with a letter                      |
effort double            | ~effort double                 | begins with a tab                                 |
platform_hint string     |  platform_hint string          | looks like the beginning                          |
title string 111         |  title string 111              | option "platform_hint" of type string takes no   |
"""


def planted(text, before, after):
    expect(f"{before!r} stands once in the example", text.count(before), 1)
    after = re.sub(r"\[(\d+)\]", lambda length: "x" * int(length[1]), after)
    for sign, byte in ("~", "\t"), (r"\0", "\0"), (r"\z", "\x1a"):
        after = after.replace(sign, byte)
    at = text.index(before)
    return text[:at] + after + text[at + len(before):], text.count("\n", 0, at) + 1


def check(example, table, command):
    # blanks are collapsed, so that the table need not align as the example does
    text = re.sub(r"(?m)(?<=\S) +(?=\S)", " ", read(f"examples/{example}"))
    for row in table.strip().split("\n"):
        if row.startswith("== "):
            counts["kinds"] += 1
            continue
        before, after, wanted, suggestion = (re.match(" ?(.*?) *$", part)[1] for part in f" {row}".split("|"))
        copy, line = planted(text, before, after)
        write(f"planted_{example}", copy)
        found = json.loads(run(f"wexcorin check --json {command}")[0])["findings"]
        what = f"{example}:{line}: {after}"
        if wanted == "nothing" or not found:
            expect(what, found[:1] or "nothing", wanted)
            continue
        counts["mistakes"] += 1
        expect(f"{what}: the place", f"{found[0]['file']}:{found[0]['line']}", f"planted_{example}:{line}")
        expect_part(what, " ".join([found[0]["rule"], found[0]["text"], *found[0]["advice"]]), wanted)
        expect(f"{what}: the suggestion", "".join(found[0]["suggestions"][:1]), suggestion)


counts = {"kinds": 0, "mistakes": 0}
check("solver.opt", OPTIONS, "examples/solver.def planted_solver.opt")
check("solver.def", DEFINITION, "planted_solver.def")
expect(f"{counts}: at least 20 kinds and 60 mistakes", counts["kinds"] >= 20 and counts["mistakes"] >= 60, True)
sys.exit("\n".join(failures) or 0)

"""An option file and its definition, and requests about it, for tests. The cursor is "|" in the text."""
from client import Client, folder, path, write

TEXT = """\
comment eolcomm !
indic indicator
general group 1 1 General
time_limit double 1 60 0 1000 1 1 Seconds to run
 A second line of help.
method enumstr 3 auto 1 1 Algorithm
 auto 1 The solver chooses
 dual 1 Dual simplex
 hidden 0 Not in the help
 old 1
threads integer.OPT 4 0 0 64 1 1 Threads
verbose boolean 5 0 1 1 Talk more
gap_window double.TWO 6 0 0 1 1 1 Two gaps
quiet boolean.NV 7 1 1 1 Say nothing
title string 8 "" 1 1 Headline
name string 15 "a b" 1 1
old_time double 9 60 0 1000 1 1 Former limit
note strlist 10 1 1 Notes
secret integer 11 1 0 9 0 1 Not in the help
.prior double 12 0 0 10 1 1 Priority
.prefix double 16 0 0 10 1 1 Prefix
both multilist 13 1 1 Method and talk
 method verbose
pair multilist 17 1 1 Lists in lists
 both threads
all macro 1 1 All limits
 time_limit old_time
level enumint 14 2 1 1 Level
 1 1 Low
 2 1
include immediate ReadFile 1 1 Another file
eolonly immediate EolFlag 1 1 One setting on a line
nobounds immediate NoBounds 1 1 No bounds
outer macro 1 1 A macro of macros
 all
lists macro 1 1 A macro of lists
 both
nothing macro 1 1 No members
free string 18 "" 1 1
describe immediate Help 1 1 Describe
say immediate Message 1 1 Say
spare integer 19 1 0 9 1 1 Spare
hush synonym secret
two_old integer 20 1 0 9 1 1 Old, too
cores synonym threads
max_time synonym time_limit
old deprecated
 old_time use time_limit
 cores use threads
 spare use threads or verbose
 two_old use old_time, then threads
"""
MAIN = path("main.opt")


def start(settings=None, **textdocument):
    return Client(folder, {"textDocument": textdocument}, initializationOptions=settings)


# The answer to a request at the cursor of an option file with this text, which is closed again.
def asked(client, method, text, **more):
    before, _, after = text.partition("|")
    client.open(MAIN, before + after)
    column = len(before.rpartition("\n")[2].encode("utf-16-le")) // 2
    answer = client.at(method, MAIN, before.count("\n"), column, **more)
    client.close(MAIN)
    return answer


# Macros of macros: of the eighth one, the values are known.
TEXT += "deep1 macro 1 1 Deep\n threads\n" + "".join(
    f"deep{number} macro 1 1 Deep\n deep{number - 1}\n" for number in range(2, 11))

write("solver.def", TEXT)
write("wexcorin.json", '{"definitions": [{"files": "*.opt", "definition": "solver.def"}]}')

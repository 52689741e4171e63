"""The migrate command with --syntax assignments: files of "name = value  # comment" become option files.
usage: assignments.py TOOL; run in the repository's root"""
import json, sys
from support import expect, failures, read, run, runs, write

write("new.def", """x eolcomm !
alpha integer 1 2 0 9 1 1
beta integer.OPT 1 2 0 9 1 1
real double 1 2 0 9 1 1
text string 1 x 1 1
list strlist 1 1 1
word enumstr 1 x 1 1
 x 1
 "y z" 1
flag boolean.NV 1 1 1 1
net_limit integer 1 2 0 9 1 1
limit integer 1 2 0 9 1 1
two integer.TWO 1 2 0 9 1 1
read immediate ReadFile 1 1
both macro 1 1
 alpha
 beta
short synonym alpha
.rank integer 1 1 0 9 1 1
""")
write("set.ini", """
* a comment
; another
  # indented
alpha=3
alpha = '4' # four
Alpha = 12
alpha = abc
[net]
limit = 5
alpha = 6
other = 1
[]
net.limit = 7
net-limit: = 8
net limit	=	9
flag = true
flag = "yes" # why
flag = no
text = "a ! b"
text = a!b # c
text = ''
text = 'it"s'
text = "a
list = "x"
word = 'y z'
word = X
two = 3 4
read = none.opt
both = 5
real = 12.5
real = 99 # x
alpa = 3
= 3
alpha =
# a = b
x # y = 3
alpha 4
beta
just words
short = 3
[ net
limit=2
[ net ]
limit = 1
alpha = 3.5
alpha = 9.5
text = '
""")
AFTER = """
* a comment
* another
* indented
alpha=3
* four
alpha = 4
Alpha = 12
alpha = abc
* [net]
net_limit = 5
alpha = 6
* There is no option net_other
* other = 1
* []
net_limit = 7
* There is no option net_limit_; did you mean "net_limit"?
* net-limit: = 8
net_limit	=	9
flag
* why
flag
* flag takes no value
* flag = no
text = "a ! b"
* c
text = "a!b"
text = ""
text = 'it"s'
text = "a
list = "x"
word = "y z"
word = X
two = 3 4
* read acts on the reading of option files
* read = none.opt
both = 5
real = 12.5
* x
real = 99
* There is no option alpa; did you mean "alpha"?
* alpa = 3
* This is no assignment
* = 3
* This is no assignment
* alpha =
* a = b
* This is no assignment
* x # y = 3
alpha 4
beta
* This is no assignment
* just words
short = 3
* [ net
net_limit=2
* [ net ]
net_limit = 1
alpha = 3.5
alpha = 9.5
text = '
"""
REPORT = """set.ini:7: decide: left Alpha: Integer range error for option "Alpha" saw "12"; Valid range is 0 to 9
set.ini:8: decide: left alpha: Integer expected, for option "alpha" saw "abc"
set.ini:9: remark: Names get the section before them: net
set.ini:10: renamed limit: It is called net_limit
set.ini:12: decide: commented net_other: There is no option net_other
set.ini:13: remark: The section ends
set.ini:14: renamed net.limit: It is called net_limit
set.ini:15: decide: commented net_limit_: There is no option net_limit_; did you mean "net_limit"?
set.ini:16: renamed net limit: It is called net_limit
set.ini:17: spelled flag: It takes no value
set.ini:18: spelled flag: It takes no value
set.ini:19: decide: commented flag: flag takes no value
set.ini:23: decide: left text: Bad double-quote in value
set.ini:24: decide: left text: Bad double-quote in value
set.ini:29: decide: commented read: read acts on the reading of option files
set.ini:31: decide: left real: Double out of range for option "real" saw "12.5"; Valid range is 0 to 9
set.ini:32: decide: left real: Double out of range for option "real" saw "99"; Valid range is 0 to 9
set.ini:33: decide: commented alpa: There is no option alpa; did you mean "alpha"?
set.ini:34: decide: commented: This is no assignment
set.ini:35: decide: commented: This is no assignment
set.ini:37: decide: commented: This is no assignment
set.ini:40: decide: commented: This is no assignment
set.ini:42: remark: Names get the section before them: net
set.ini:43: renamed limit: It is called net_limit
set.ini:44: remark: Names get the section before them: net
set.ini:45: renamed limit: It is called net_limit
set.ini:46: decide: left alpha: Integer expected, for option "alpha" saw "3.5"
set.ini:47: decide: left alpha: Integer expected, for option "alpha" saw "9.5"
1 file, 28 changes, 17 to decide
"""
MIGRATE = "wexcorin migrate --to new.def --syntax assignments"
runs(f"{MIGRATE} set.ini -o out", REPORT, "", 1)
expect("the file", read("out/set.ini"), AFTER)
run(f"{MIGRATE} out/set.ini -o twice")
expect("migrated twice", read("twice/set.ini"), AFTER)

# ---- with --clamp, numbers out of the bounds are moved

for before, left, after, clamped in (
        ("Alpha = 12", 'left Alpha: Integer range error for option "Alpha" saw "12"; Valid range is 0 to 9', "Alpha = 9", "clamped Alpha: alpha moved from 12 to the bound 9"),
        ("real = 12.5", 'left real: Double out of range for option "real" saw "12.5"; Valid range is 0 to 9', "real = 9", "clamped real: real moved from 12.5 to the bound 9"),
        ("real = 99", 'left real: Double out of range for option "real" saw "99"; Valid range is 0 to 9', "real = 9", "clamped real: real moved from 99 to the bound 9"),
        ("alpha = 9.5", 'left alpha: Integer expected, for option "alpha" saw "9.5"', "alpha = 9", "clamped alpha: alpha moved from 9.5 to the bound 9")):
    AFTER = AFTER.replace(f"{before}\n", f"{after}\n")
    REPORT = REPORT.replace(f"decide: {left}", clamped)
runs(f"{MIGRATE} set.ini -o out --clamp", REPORT.replace("28 changes, 17 to", "31 changes, 13 to"), "", 1)
expect("the file with --clamp", read("out/set.ini"), AFTER)

# ---- line ends, and the byte 0

for before, after, code in (
        ("alpha = 3 # d\r\nother = 3", "* d\r\nalpha = 3\r\n* There is no option other\r\n* other = 3", 1),
        ("other = 3", "* There is no option other\n* other = 3", 1), ("alpha = 3 # d", "* d\nalpha = 3", 0), ("; d", "* d", 0), ("", "", 0),
        ("alpha = 3\r\nother = 3\nalpha = 4", "alpha = 3\r\n* There is no option other\n* other = 3\nalpha = 4", 1),
        ("alpha = 3\0\r\n", "* it contains the byte 0\r\n* alpha = 3\0\r\n", 1), ("* \0\n", "* \0\n", 0)):
    write("ends.ini", before)
    runs(f"{MIGRATE} ends.ini -o out", None, "", code)
    expect(f"{before!r}", read("out/ends.ini"), after)

# ---- where "#" begins comments in option files, they stay

write("hash.def", read("new.def").replace("eolcomm !", "eolcomm #"))
write("hash.ini", "# all\n; d\nalpha = 3  # why\ntext = 'a#b' # c\nother = 3 # c\n")
runs("wexcorin migrate --to hash.def --syntax assignments hash.ini -o out", "hash.ini:5: decide: commented other: There is no option other\n"
     "1 file, 3 changes, 1 to decide\n", "", 1)
expect("comments", read("out/hash.ini"), '# all\n* d\nalpha = 3  # why\ntext = "a#b" # c\n* There is no option other\n* other = 3 # c\n')

# ---- deprecated and obsolete names, a text that is too long, lines of option files

write("names.def", read("new.def") + "names obsolete\n real use alpha\nnames deprecated\n beta use alpha\n")
LONG = "x" * 300
write("names.ini", f"real = 3\nbeta = 3\ntext = {LONG}\n! a remark\nalpha 3\nalpha 3 3\n'alpha' = 3\n")
runs("wexcorin migrate --to names.def --syntax assignments names.ini -o out", """names.ini:1: decide: left real: The value would not be the same
names.ini:3: decide: left text: The value would not be the same
names.ini:4: decide: commented: This is no assignment
names.ini:6: decide: commented: This is no assignment
names.ini:7: decide: commented 'alpha': There is no option 'alpha'; did you mean "alpha"?
1 file, 3 changes, 5 to decide
""", "", 1)
expect("names", read("out/names.ini"), f"real = 3\nbeta = 3\ntext = {LONG}\n* This is no assignment\n* ! a remark\nalpha 3\n* This is no assignment\n* alpha 3 3\n"
       "* There is no option 'alpha'; did you mean \"alpha\"?\n* 'alpha' = 3\n")

# ---- reports

write("one.ini", "other = 3\n")
expect("JSON", json.loads(run(f"{MIGRATE} one.ini --dry-run --json")[0]), {
    "from": "", "to": "new.def", "changes": 1, "decisions": 1, "files": [{
        "file": "one.ini", "changes": 1, "decisions": 1, "unlisted": 0, "notes": [
            {"line": 1, "action": "commented", "name": "other", "text": "There is no option other", "decide": True}],
        "diff": "--- one.ini\n+++ one.ini\n@@ -1 +1,2 @@\n-other = 3\n+* There is no option other\n+* other = 3\n"}]})
runs(f"{MIGRATE} one.ini none.ini -o none", "", "none.ini: error: cannot read the file\nwexcorin migrate: nothing was written\n", 2)
write("real.ini", "real = 3\n")
runs("wexcorin migrate --to - --syntax assignments real.ini -o out", "1 file, 0 changes, 0 to decide\n", stdin=read("new.def"))
write("faulty.def", "a integer 1 9 0 1 1 1\n")
runs("wexcorin migrate --to faulty.def --syntax assignments one.ini -o none", "", 'faulty.def:1: error: Default not in range for option "a"\n', 2)
runs("wexcorin migrate --to none.def --syntax assignments one.ini -o none", "", None, 2)
sys.exit("\n".join(failures) or 0)

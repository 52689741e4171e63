"""Findings about option files and definitions: whole diagnostics, in the short form of client.py.
usage: markings.py TOOL"""
import os

from client import Client, expect, finish, folder, path, short, uri, write
from optiontext import MAIN

RELATED = {"textDocument": {"publishDiagnostics": {"relatedInformation": True}}}
client, plain = Client(folder, RELATED), Client(folder)


# The findings in a file when it has this text: "range code: message", "!" before an error, and the further fields.
def findings(text, name="main.opt", client=client):
    client.open(path(name), text)
    found = client.diagnostics(path(name))
    client.close(path(name))
    result = []
    for each in found:
        each = short(each)
        expect("where a finding comes from", each.pop("source"), "wexcorin")
        error = {1: "! ", 2: ""}[each.pop("severity")]
        line = f'{error}{each.pop("range")} {each.pop("code")}: {each.pop("message")}'
        for other in each.pop("relatedInformation") if each.get("relatedInformation") else ():
            line += f' | {other["message"]}: {other["location"]["uri"]} {other["location"]["range"]}'
        result.append(line + (f" {each}" if each else ""))
    return result


for text, wanted in (
        ("thread 4\n", ['! 0:0-0:6 unknown-option: Unknown option "thread"; did you mean "threads"?']),
        ("  name x y\n\tthreads\t x  ", ['! 1:10-1:11 value: Integer expected, for option "threads" saw "x"']),
        ("threads threads", ['! 0:8-0:15 value: Integer expected, for option "threads" saw "threads"']),
        ("time_limit = 2.50.1 ! x", ['! 0:13-0:19 value: Double expected for option "time_limit" saw "2.50.1"']),
        ("time_limit = 1001 ! 1001",
         ['! 0:13-0:17 illegal-value: Double out of range for option "time_limit" saw "1001"\nValid range '
          "is 0 to 1000"]),
        ("time_limit 1500.50",
         ['! 0:11-0:18 illegal-value: Double out of range for option "time_limit" saw "1500.5"\nValid range '
          "is 0 to 1000"]),
        ("xthreads 3", ['! 0:0-0:8 unknown-option: Unknown option "xthreads"; did you mean "threads"?']),
        ('name "😀" ! x\nmethod fast',
         ['! 1:7-1:11 illegal-value: Unknown value for option "method" saw "fast"\nPossible values are  '
          "auto dual hidden old"]),
        ("old_time 3", ['0:0-0:8 deprecated: deprecated option "old_time"; use time_limit {\'tags\': [2]}']),
        ("cores 3", ['0:0-0:5 deprecated: deprecated synonym "cores"; use threads {\'tags\': [2]}']),
        ("eolonly off\nthreads 2\nname threads threads 3",
         ['2:13-2:20 set-again: Option "threads" is set to 3, but was set to 2 at main.opt:2 | was set here: '
          "main.opt 1:0-1:7"]),
        ("include none.opt",
         ['! 0:8-0:16 unusable-file: Cannot open parameter file "none.opt"\nError code = 2; No such file or '
          "directory"]),
        ("quiet  more words ! x ",
         ["! 0:7-0:21 option-file: Remainder of line ignored\nThe option takes no value; its name alone "
          "sets it"]),
        ("threads : 3",
         ['! 0:8-0:11 option-file: Value expected for key "threads"\nA blank, "=" or ":=" must follow the '
          "name, not a colon",
          "! 0:8-0:11 option-file: Remainder of line ignored"]),
        ("gap_window 0.1 7",
         ['! 0:15-0:16 illegal-value: Double out of range for option "gap_window" saw "7"\nValid range is 0 '
          "to 1"]),
        ("gap_window 7 0.1",
         ['! 0:11-0:12 illegal-value: Double out of range for option "gap_window" saw "7"\nValid range is 0 '
          "to 1"]),
        ("eolonly off\nname 5000 time_limit 4 time_limit 5000 time_limit 4 verbose x",
         ['! 1:34-1:38 illegal-value: Double out of range for option "time_limit" saw "5000"\nValid range '
          "is 0 to 1000",
          '! 1:60-1:61 value: Boolean value expected for option "verbose" saw "x"\nThe words are 1, y, yes, '
          "on, t, true and 0, n, no, off, f, false"]),
        ("both dual", []),
        ("both x:no",
         ['! 0:5-0:6 illegal-value: Unknown value for option "both" saw "x"\nPossible values are  auto dual '
          "hidden old"]),
        ("x.prior 11",
         ['! 0:8-0:10 illegal-value: Double out of range for option ".prior" saw "11"\nValid range is 0 to 10']),
        ("x.nothing 1",
         ['! 0:1-0:9 unknown-option: unknown .suffix ".nothing" for key "x"; did you mean "nothing"?',
          '! 0:0-0:11 option-file: Option keyword expected, saw "1"']),
        ("x.prior(", ['! 0:0-0:1 option-file: Element expected for .option "x"']),
        ("level 7",
         ['! 0:6-0:7 illegal-value: Unknown value for option "level" saw "7"\nPossible values are  1 2']),
        ("all 5000",
         ['! 0:4-0:8 illegal-value: Double out of range for option "all" saw "5000"\nValid range is 0 to 1000']),
        ("all x", ['! 0:4-0:5 value: Double expected for option "all" saw "x"']),
        ("verbose 2 2",
         ['! 0:8-0:11 value: Boolean value expected for option "verbose" saw "2 2"\nThe words are 1, y, '
          "yes, on, t, true and 0, n, no, off, f, false"]),
        ("verbose 2",
         ['! 0:8-0:9 value: Boolean value expected for option "verbose" saw "2"\nThe words are 1, y, yes, '
          "on, t, true and 0, n, no, off, f, false"]),
        ("threads 3x", ['! 0:8-0:10 value: Integer expected, for option "threads" saw "3x"']),
        ("threads -1 1", ['! 0:8-0:12 value: Integer expected, for option "threads" saw "-1 1"']),
        ("threads 3 ! 1\nthreads 99 x 99",
         ['! 1:8-1:15 value: Integer expected, for option "threads" saw "99 x 99"']),
        ("note", ['! 0:0-0:4 option-file: Value expected for key "note"']),
        ('"x" 3', ['! 0:0-0:5 option-file: Option keyword expected, saw """']),
        ("threads\n\n=3", ['! 2:0-2:2 option-file: Option keyword expected, saw "="']),
        ("* definition: none.def\nthreads 3",
         ['! 0:0-0:0 unusable-file: Cannot open option file "none.def"\nError code = 2; No such file or '
          'directory\n"none.def" is named as the definition file']),
        ("say hello", ["! 0:4-0:9 option-file: hello"]),
        ("describe none", []),
        ("help none", []),
        ("method duals auto",
         ['! 0:7-0:17 illegal-value: Unknown value for option "method" saw "duals auto"\nPossible values '
          "are  auto dual hidden old"]),
        ("method_x dual", ['! 0:0-0:8 unknown-option: Unknown option "method_x"; did you mean "method"?']),
        ("method x_dual dual_x",
         ['! 0:7-0:20 illegal-value: Unknown value for option "method" saw "x_dual dual_x"\nPossible values '
          "are  auto dual hidden old"]),
        ("secret a_b b", ['! 0:7-0:12 value: Integer expected, for option "secret" saw "a_b b"']),
        ("threads 64.5", ['! 0:8-0:12 value: Integer expected, for option "threads" saw "64.5"']),
        ("time_limit 1e999",
         ['! 0:11-0:16 value: Double expected for option "time_limit" saw "1e999"\nThe largest number is '
          "maxdouble, which is 1E299, and the smallest one mindouble, which is -1E299"]),
        ("indic x", ['! 0:6-0:7 option-file: $ expected after equation identifier "x"']),
        ("--list",
         ['0:0-0:6 dashed-list: "--list" adds a text to a list of its own and sets no option; did you mean '
          '"lists"?'])):
    expect(f"findings in {text[:60]!r}", findings(text), wanted)
expect("findings in a long line", findings("name " + "x" * 1020),
       ["0:0-0:1020 text-cut: A text has 1015 characters; only the first 254 and the last one are used",
        "0:0-0:1020 line-cut: The line has 1025 characters; only the first 1020 are read"])
expect("without related lines, for a client that does not know them", findings("eolonly off\nthreads 2 threads 3", client=plain),
       ['1:10-1:17 set-again: Option "threads" is set to 3, but was set to 2 at main.opt:2'])
BASE = "general group 1 1 General\nthreads integer 1 1 1 64 1 1 Threads\nratio double 2 1 0 1 1 1 Ratio\n"
defined = lambda lines: findings(BASE + lines, "new.def")
for lines, wanted in (
        ("", []),
        ("size integer 6 x 1 9 1 1 Size\n",
         ['! 3:15-3:16 definition: Bad default value for option "size"\nThe default must be an integer, but '
          '"x" is in its place; perhaps it or a field before it was left out. The fields are: name, '
          "integer, reference number, default, lowest value, highest value, help flag, group, text",
          '! 3:0-3:4 definition: Default not in range for option "size"']),
        ("integr_xintegr integr 6 1 1 9 1 1 Size\n",
         ['! 3:15-3:21 definition: Unknown option type "integr" for option "integr_xintegr"; did you mean "integer"?\n'
          "The fields are: name, integer, reference number, default, lowest value, highest value, help "
          "flag, group, text"]),
        ("size integer 6 1 9 1 1 1 Size\n", ['! 3:0-3:4 definition: Default not in range for option "size"']),
        ("help integer 6 1 1 9 1 1 Size\n",
         ['! 3:0-3:4 definition: Duplicate option for option "help"\nThe name finds option "Help", which every '
          "definition has"]),
        ("ratio integer 6 1 1 9 1 1 Size\n",
         ['! 3:0-3:5 definition: Duplicate option for option "ratio"\nThe name finds option "ratio" at line '
          "3 | is defined here: new.def 2:0-2:5"]),
        ("size integer 6 7 1 9 1 7 Size\n",
         ['3:23-3:24 group-undeclared: No group line declares the group 7 of option "size"; the summary of '
          "the help does not list it"]),
        ("empty group 6 1 None\n", ['3:0-3:5 group-empty: Group "empty" has no options {\'tags\': [1]}']),
        ("size integer 2 3 3 3 1 1 Size\n",
         ['3:13-3:14 reference-twice: Option "size" has the reference number 2 of option "ratio" at line 3 '
          "| is defined here: new.def 2:0-2:5"]),
        ("size integer\n",
         ['! 3:0-3:4 definition: Bad usermap value for option "size"\nThe line ends before the reference '
          "number. The fields are: name, integer, reference number, default, lowest value, highest value, "
          "help flag, group, text",
          '! 3:0-3:4 definition: Bad default value for option "size"',
          '! 3:0-3:4 definition: Bad low value for option "size"',
          '! 3:0-3:4 definition: Bad high value for option "size"',
          '! 3:0-3:4 definition: Bad HC value for option "size"',
          '! 3:0-3:4 definition: Bad Group value for option "size"',
          '3:0-3:4 reference-twice: Option "size" has the reference number 2 of option "ratio" at line 3 | '
          "is defined here: new.def 2:0-2:5",
          '3:0-3:4 no-help: Help lists option "size", but it has no help text']),
        ("all macro 1 1 All\n",
         ['3:0-3:3 no-members: Option "all" has no members, so it sets nothing {\'tags\': [1]}']),
        ("list multilist 5 1 1 L\n threads thread x \n",
         ['! 4:1-4:17 definition: MultiList option "thread" is undefined for option "list"; did you mean '
          '"threads"?',
          '! 4:1-4:17 definition: MultiList option "x" is undefined for option "list"',
          '! 4:1-4:17 definition: Duplicate option used for option "list"']),
        ("s synonym thread\n", ['! 3:0-3:1 definition: Unknown option for synonym"s"; did you mean "threads"?']),
        ("d deprecated\n thread use threads\n",
         ['! 4:1-4:19 definition: Deprecated option "thread" is undefined for option "d"; did you mean '
          '"threads"?']),
        ("word enumstr 3 none 1 1 Word\n one 1 One\n one 1 Again\n",
         ['! 3:0-3:4 definition: Default is undefined for option "word"']),
        ("num enumint 3 9 1 1 Num\n 1 1 One\n x 1 X\n",
         ['! 5:1-5:6 definition: Bad integer enum for option "num"\nThe value must be an integer, but "x" '
          "is in its place; perhaps it was left out. The fields of a value are: value, help flag, text",
          '! 3:0-3:3 definition: Default is undefined for option "num"']),
        ("m macro 1 1 M\n threads\n thread\n",
         ['! 5:1-5:7 definition: Unknown option "thread" for macro "m" for option "m"; did you mean "threads"?']),
        ("size integer.XX 7 1 1 9 1 1 S\n",
         ['! 3:5-3:15 definition: Unknown type modifier = XX for option "size"\nThe modifiers are NV for no '
          "value, OPT for a value that may be left out, and TWO for two values"]),
        ("size integer.OPT 7 x 1 9 1 1 S\n",
         ['! 3:19-3:20 definition: Bad default value for option "size"\nThe default must be an integer, but "x" '
          "is in its place; perhaps it or a field before it was left out. The fields are: name, integer, "
          "reference number, default, lowest value, highest value, help flag, group, text",
          '! 3:0-3:4 definition: Default not in range for option "size"']),
        ("size strlist 7 2 1 S\n", []),
        ('size strlist 7 1 "\n',
         ['! 3:17-3:18 definition: Bad Group value for option "size"\nThe group must be an integer, but """ '
          "is in its place; perhaps it or a field before it was left out. The fields are: name, strlist, "
          "reference number, help flag, group, text",
          '3:0-3:4 no-help: Help lists option "size", but it has no help text']),
        ("8size integer 7 1 1 9 1 1 S\n",
         ['3:0-3:27 early-end: The definition ends here, because the line begins with "8", but a name '
          "begins with a letter; this line and all that follow are not read"]),
        (" stray line\n", []),
        ("a_long_name_a_long_name_a_long_name_a_long_name_a_long_name_a_long integer 7 1 1 9 1 1 S\n",
         ["3:0-3:66 long-name: The name "
          '"a_long_name_a_long_name_a_long_name_a_long_name_a_long_name_a_long" has 66 characters; use at '
          "most 63"]),
        ("c eolcomm\n", []),
        ("X lookup\n",
         ['! 3:0-3:1 definition: Unknown lookup code "X" for option "X"\nThe modes are Normal, Path and Minos']),
        ("imm immediate Nothing 1 1 I\n",
         ['! 3:14-3:21 definition: Unknown immediate option for option "imm"\nThe kinds are EolFlag, '
          "ReadFile, Message, NoBounds and Help. The fields are: name, immediate, kind, help flag, group, "
          "text"]),
        ("size integer 7 1 1 9 1 1\n", ['3:0-3:4 no-help: Help lists option "size", but it has no help text']),
        ('word string 7 "a"b c"d", 1 1 W\n',
         ['! 3:0-3:4 definition: Bad HC for option "word"\nA comma stands before the help flag, but fields are separated '
          "by blanks. The fields are: name, string, reference number, default, help flag, group, text",
          '! 3:0-3:4 definition: Bad Group value for option "word"']),
        ("general group 2 1 Twice\n",
         ['! 3:0-3:7 definition: Duplicate group for option "general"',
          '3:0-3:7 group-empty: Group "general" has no options {\'tags\': [1]}']),
        ("other group 1 1 Twice\nsize integer 7 1 1 9 1 1 S\n",
         ['! 3:0-3:5 definition: Group number not unique for option "other"']),
        ("n1 double 7 0 x1 x 1 1 S\n",
         ['! 3:14-3:16 definition: Bad low value for option "n1"\nThe lowest value must be a number, but '
          '"x1" is in its place; the largest number is maxdouble. The fields are: name, double, reference '
          "number, default, lowest value, highest value, help flag, group, text",
          '! 3:0-3:2 definition: Bad high value for option "n1"']),
        ("d deprecated\n threads\nd2 deprecated\n threads\n", [])):
    expect(f"findings in the lines {lines!r}", defined(lines), wanted)
expect("the place of an option in the first line",
       findings("".join(f"size integer {number} 1 1 9 1 0 Size\n" for number in (1, 2)), "new.def"),
       ['! 1:0-1:4 definition: Duplicate option for option "size"\nThe name finds option "size" at line 1 '
        "| is defined here: new.def 0:0-0:4"])

# ---- findings in an included file, and in files that are open

write("part.inc", "* part\nthread 3\n")
part = path("part.inc")
client.open(MAIN, "include part.inc\nthread 4\n")
expect("findings in the file", [short(each["range"]) for each in client.diagnostics(MAIN)], ["1:0-1:6"])
expect("and in what it includes", [short(each["range"]) for each in client.diagnostics(part)], ["1:0-1:6"])
client.open(path("second.opt"), "include part.inc\ninclude part.inc\n")
expect("a second file that includes it", client.diagnostics(path("second.opt")), [])
seen = len(client.notes)
client.close(MAIN)
expect("the findings of a closed file are withdrawn", client.diagnostics(MAIN), [])
client.request("workspace/symbol", {"query": "qqqq"})
expect("and no other ones", [short(each["params"]["uri"]) for each in client.notes[seen:]], ["main.opt"])
client.close(path("second.opt"))
expect("nothing includes it any more", client.diagnostics(part), [])
client.open(MAIN, "include part.inc\n")
expect("findings with a version", client.until(lambda each: "version" in each.get("params", {}))["params"],
       {"uri": uri(MAIN), "version": 1, "diagnostics": []})
expect("findings without one", short({**client.until(lambda each: True)["params"], "diagnostics": 1}),
       {"uri": "part.inc", "diagnostics": 1})
client.open(part, "threads 3\n", "wexcorin-options")
expect("the text of the editor", client.diagnostics(part), [])
client.close(part)
expect("the text on the disk", len(client.diagnostics(part)), 1)
os.symlink(folder, folder + "/link")
client.open(path("link/part.inc"), "thread 5\n", "wexcorin-options")
expect("a client that cannot register anything is asked for nothing", client.asked, [])
expect("under another name: the old one has nothing more", client.diagnostics(part), [])
expect("and the new one its own", len(client.diagnostics(path("link/part.inc"))), 1)
client.quit()
plain.quit()

finish()

"""What the scripts share that prove something by cases made at random. Such a script is run in the repository's root:
SCRIPT TOOL [CASES [FIRST]]; FIRST is the number of the first case. The case with a number is always the same, so that one
that failed can be run by itself: SCRIPT TOOL 1 NUMBER. With KEEP=FOLDER, FOLDER/NUMBER gets the files of a case that failed."""
import copy, json, os, random, shutil, sys
from generated import change, new_definition, text_of
from support import run, write


# Writes two definitions, old.def and new.def. Returns them and the changes that diff reports; None if they are the same or one
# of them has errors.
def two_definitions(choice, counts):
    old = new_definition(choice)
    new = copy.deepcopy(old)
    made = [change(new, choice) for _ in range(choice.choice(counts))]
    write("old.def", text_of(old))
    write("new.def", text_of(new))
    out, _, code = run("wexcorin diff old.def new.def --json")
    return (old, new, json.loads(out)["changes"]) if any(made) and code != 2 else None


# Runs the cases and ends the script. `case` gets random choices, and returns what is wrong, "" if nothing is, and None if the
# case says nothing. What is wrong is printed at once, for long runs.
def run_cases(case, usual):
    count, first = (int(argument) for argument in sys.argv[2:] + [usual, 1][len(sys.argv) - 2:])
    done = faults = 0
    for number in range(first, first + count):
        try:
            problem = case(random.Random(number))
        except RuntimeError as error:
            problem = str(error)
        done += problem is not None
        if problem:
            faults += 1
            print(f"case {number}: {problem}", flush=True)
            if "KEEP" in os.environ:
                shutil.copytree(".", f"{os.environ['KEEP']}/{number}", symlinks=True, dirs_exist_ok=True)
    if done < count / 3:
        sys.exit(f"only {done} of {count} cases say something")
    sys.exit(faults > 0)

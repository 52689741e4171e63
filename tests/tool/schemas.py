"""What the tool prints as JSON matches the schemas in docs/, which refuse a document with one mistake.
usage: schemas.py TOOL; run in the repository's root; exit code 77: the schemas were not tested"""
import copy, json, sys
from support import DOCS, expect, failures, read, run, write

try:
    import jsonschema
except ImportError:
    print("python3-jsonschema is not installed: the schemas are not tested")
    sys.exit(77)


def problems(schema, document):
    validator = jsonschema.Draft202012Validator(json.loads(read(f"{DOCS}/{schema}.schema.json")))
    validator.check_schema(validator.schema)
    return [f"{list(error.path)}: {error.message}" for error in validator.iter_errors(document)]


# A member that does not exist; lists and symbols, values from several files, and one that is out of the newer bounds.
write("wrong.def", "word string 1 a 1 1\nboth multilist 2 1 1\n nowhere word\n")
write("old.def", "size integer 3 2 0 9 1 1\n.rank integer 4 1 0 9 1 1\nlist strlist 5 1 1\nread immediate readfile 1 1\n")
write("new.def", "size integer 3 2 0 5 1 1\n")
write("part.opt", "size 7\nlist a\nx.rank 3\nnone 1\n")
write("main.opt", "size 1\nread part.opt\n")
MIGRATE = "migrate --from old.def --to new.def part.opt"
documents = {}
for schema, command in (("definition", "doc json examples/types.def -o -"), ("definition", "doc json wrong.def -o -"),
                        ("settings", "show examples/types.def examples/types.opt --json"),
                        ("settings", "show old.def main.opt --set 'list a' --origin --fingerprint --json"),
                        ("check", "check --json examples/solver.def none.opt examples/solver_mistakes.opt"),
                        ("changes", "diff examples/solver.def examples/solver-2.def --json"),
                        ("differences", "diff --definition old.def main.opt part.opt --json"),
                        ("differences", "diff --matrix old.def main.opt part.opt --json"),
                        ("migration", f"{MIGRATE} --dry-run --json"), ("migration", f"{MIGRATE} --in-place --pin --json")):
    document = json.loads(run(f"wexcorin {command}")[0])
    expect(f"{command}: what does not match docs/{schema}.schema.json", problems(schema, document), [])
    documents.setdefault(schema, document)
for schema, kind, key, value in (
        ("definition", "integer", "default", "7"), ("definition", "double", "high", None),
        ("definition", "string", "low", 0), ("definition", "macro", "members", [1]),
        ("definition", "boolean", "argument", "some"), ("definition", "enumint", "values", [{"value": 1}]),
        ("definition", "strlist", "unknown", 0), ("settings", "boolean", "value", 1),
        ("settings", "integer", "value", 2**31), ("settings", "strlist", "value", "a"),
        ("settings", "immediate", "value", 0)):
    broken = copy.deepcopy(documents[schema])
    next(each for each in broken["options"] if each["type"] == kind)[key] = value
    what = f"docs/{schema}.schema.json refuses {key} = {value!r} for {kind}"
    expect(what, len(problems(schema, broken)) > 0, True)
for key, value in ("line", 0), ("line", "5"), ("severity", "note"), ("rule", "set-agian"), ("details", [1]):
    broken = copy.deepcopy(documents["check"])
    broken["findings"][0][key] = value
    expect(f"docs/check.schema.json refuses {key} = {value!r}", len(problems("check", broken)) > 0, True)
sys.exit("\n".join(failures) or 0)

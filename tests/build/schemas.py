"""Validates what the tool prints as JSON against the schemas in docs/, and tries each schema on documents that are
broken in one place: a schema that takes everything would prove nothing.
usage: schemas.py TOOL DOCS DEFINITION [OPTFILE]...; exit code 77: the validator is not installed"""
import copy
import json
import subprocess
import sys

try:
    import jsonschema
except ImportError:
    print("python3-jsonschema is not installed: the schemas stay untried")
    sys.exit(77)

tool, docs, *files = sys.argv[1:]


def printed(*arguments):
    return json.loads(subprocess.run([tool, *arguments], check=True, stdout=subprocess.PIPE).stdout)


def problems(schema, document):
    with open(f"{docs}/{schema}", encoding="utf-8") as file:
        validator = jsonschema.Draft202012Validator(json.load(file))
    validator.check_schema(validator.schema)
    return [f"{list(error.path)}: {error.message}" for error in validator.iter_errors(document)]


def option(document, kind):
    return next(each for each in document["options"] if each["type"] == kind)


def broken(document, kind, key, value):
    result = copy.deepcopy(document)
    option(result, kind)[key] = value
    return result


definition = printed("doc", "json", files[0], "-o", "-")
settings = printed("show", "--json", *files)
status = 0
for schema, document in (("definition.schema.json", definition), ("settings.schema.json", settings)):
    for problem in problems(schema, document):
        print(f"docs/{schema} does not describe what the tool prints: {problem}")
        status = 1

for schema, document, kind, key, value in (
    ("definition.schema.json", definition, "integer", "default", "7"),
    ("definition.schema.json", definition, "double", "high", None),
    ("definition.schema.json", definition, "string", "low", 0),
    ("definition.schema.json", definition, "macro", "members", [1]),
    ("definition.schema.json", definition, "boolean", "argument", "some"),
    ("definition.schema.json", definition, "enumint", "values", [{"value": 1}]),
    ("definition.schema.json", definition, "strlist", "unknown", 0),
    ("settings.schema.json", settings, "boolean", "value", 1),
    ("settings.schema.json", settings, "integer", "value", 2**31),
    ("settings.schema.json", settings, "strlist", "value", "a"),
    ("settings.schema.json", settings, "immediate", "value", 0),
):
    if not problems(schema, broken(document, kind, key, value)):
        print(f"docs/{schema} takes {key} = {value!r} for an option of type {kind}")
        status = 1
sys.exit(status)

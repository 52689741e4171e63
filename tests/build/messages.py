"""Checks that no source of the tool contains a message of the library or a part of one. The tool receives messages
as records, so that rewording one breaks nothing. Run in the repository's root.
usage: messages.py"""
import glob, json, re, sys

SHORTEST = 12  # characters; shorter texts and single words may occur by chance
# Matches comments, includes and literals: raw strings, strings, characters.
TOKEN = re.compile(r"""//[^\n]*|\#include[^\n]*|R"(\w*)\(.*?\)\1" |
                       "((?:[^"\\\n]|\\.)*)" | '(?:[^'\\\n]|\\.)+'""", re.S | re.X)


# The values of the string literals of a source. Adjacent literals are one text.
def literals(source):
    joined = re.sub(r'(?<!\\)"\s*\n\s*"', "", source)
    return [re.sub(r"\\(.)", r"\1", token[2]) for token in TOKEN.finditer(joined) if token[2] is not None]


def telling(text):
    return len(text) >= SHORTEST and " " in text


# The messages of the library, or parts of them, that a source of the tool contains.
def held(source, messages):
    texts = [text.strip() for text in literals(source)]
    return sorted({message for text in texts for message in messages
                   if message in text or (telling(text) and text in message)})


def sources(*folders):
    for name in sorted(name for folder in folders for name in glob.glob(f"{folder}/**/*.*", recursive=True)):
        if name.endswith((".cpp", ".h")):
            with open(name, encoding="utf-8") as file:
                yield name, file.read()


messages = {text.strip() for _, source in sources("api", "base", "input", "options", "output")
            for text in literals(source) if telling(text.strip())}

# A test of the test. It must find a whole message, one inside a longer text, one in two pieces, and a part of one, but
# none in a comment.
text, quoted = max(messages, key=len), json.dumps
for source, found in ((quoted(text), True), (quoted(f"line 1: {text}!"), True), ("// " + quoted(text), False),
                      (quoted(text[:5]) + "\n" + quoted(text[5:]), True), (quoted(text[1:-1]), True)):
    if (text in held(source, messages)) != found:
        sys.exit(f"the search itself is wrong about {source!r}")

problems = [f"{name} holds {text!r}, which is a text of the library"
            for name, source in sources("tools") for text in held(source, messages)]
sys.exit("\n".join(problems) or 0)

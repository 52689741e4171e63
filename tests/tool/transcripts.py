"""Runs the commands of tests/tool/transcripts/*.md and compares all that they print with what stands there. Lines of
four blanks hold a command after $ and >, then its output and errors, then the exit code in brackets if it is not 0.
usage: transcripts.py TOOL [--update]; run in the repository's root; --update writes what is printed into the files"""
import glob, sys
from support import ROOT, failures, transcript, write

for path in sorted(glob.glob(f"{ROOT}/tests/tool/transcripts/*.md")):
    text = transcript(path)
    if sys.argv[2:] == ["--update"]:
        write(path, text)
sys.exit(0 if sys.argv[2:] else "\n".join(failures) or 0)

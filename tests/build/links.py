"""Installs each component of a build alone, as its package holds it, and follows every relative link of the Markdown
and HTML documents that were installed: the file must be there, and so must the heading or element that it names.
usage: links.py CMAKE BUILD_DIRECTORY"""
import html.parser
import os
import re
import subprocess
import sys
import tempfile
import urllib.parse

COMPONENTS = ("library", "development", "tool")


class Page(html.parser.HTMLParser):
    """The links of an HTML page and the places in it that links may name."""

    def __init__(self, text):
        super().__init__()
        self.links, self.places = [], set()
        self.feed(text)

    def handle_starttag(self, _, attributes):
        for name, value in attributes:
            if name in ("href", "src"):
                self.links.append(value)
            elif name == "id":
                self.places.add(value)


class Markdown:
    """The same of a Markdown file. Headings are named as the usual viewers do: small letters, and a dash for each
    blank."""

    def __init__(self, text):
        text = re.sub(r"(?ms)^```.*?^```$", "", text)
        prose = re.sub(r"`[^`\n]*`", "", text)
        self.links = re.findall(r"\]\(([^()\s]*)\)", prose)
        headings = re.findall(r"(?m)^#+ (.*)$", text)
        self.places = {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings}


def document(path):
    with open(path, encoding="utf-8") as file:
        return (Markdown if path.endswith(".md") else Page)(file.read())


def isdocument(path):
    return path.endswith((".md", ".html"))


def fault(path, link):
    """What is wrong with a link in the document at that path; nothing when it leads somewhere."""
    url = urllib.parse.urlsplit(link)
    if url.scheme or url.netloc:
        return None
    target = os.path.normpath(os.path.join(os.path.dirname(path), urllib.parse.unquote(url.path))) if url.path else path
    if not os.path.exists(target):
        return "there is no such file"
    place = urllib.parse.unquote(url.fragment)
    if place and isdocument(target) and place not in document(target).places:
        return "the file has no such heading or element"
    return None


def main(cmake, build):
    faults = []
    followed = 0
    for component in COMPONENTS:
        with tempfile.TemporaryDirectory() as prefix:
            subprocess.run([cmake, "--install", build, "--component", component, "--prefix", prefix], check=True,
                           stdout=subprocess.DEVNULL)
            for folder, _, names in sorted(os.walk(prefix)):
                for path in (os.path.join(folder, name) for name in sorted(names) if isdocument(name)):
                    for link in document(path).links:
                        followed += 1
                        problem = fault(path, link)
                        if problem:
                            faults.append(f"{component}: {os.path.relpath(path, prefix)}: {link}: {problem}")
    if faults:
        sys.exit("\n".join(faults + ["These links lead nowhere when the component is installed alone. What is "
                                     "installed is in cmake/package.cmake and cmake/debian.cmake."]))
    if not followed:
        sys.exit("No document with a link was installed: what this test looks for has moved.")
    print(f"{followed} links followed")


main(*sys.argv[1:])

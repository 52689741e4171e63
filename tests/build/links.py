"""Installs each component of a build into a folder of its own, as in its package, and follows every relative link of
the installed Markdown and HTML documents. The file of a link must exist, and so must the heading or element.
usage: links.py CMAKE BUILD_DIRECTORY"""
import html.parser, os, re, subprocess, sys, tempfile, urllib.parse

cmake, build = sys.argv[1:]


class Page(html.parser.HTMLParser):  # the links of an HTML page, and its anchors
    def __init__(self, text):
        super().__init__()
        self.links, self.places = [], set()
        self.feed(text)

    def handle_starttag(self, _, attributes):
        self.links += [value for name, value in attributes if name in ("href", "src")]
        self.places |= {value for name, value in attributes if name == "id"}


# The same for a Markdown file. The anchor of a heading is its text in lower case, with a dash for each blank. There are
# also anchors of their own.
class Markdown:
    def __init__(self, text):
        text = re.sub(r"(?ms)^```.*?^```$", "", text)
        self.links = re.findall(r"\]\(([^()\s]*)\)", re.sub(r"`[^`\n]*`", "", text))
        self.places = {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")
                       for heading in re.findall(r"(?m)^#+ (.*)$", text)}
        self.places |= {*re.findall('(?m)^<a id="([^"]*)"></a>$', text)}


def isdocument(path):
    return path.endswith((".md", ".html"))


def document(path):
    with open(path, encoding="utf-8") as file:
        return (Markdown if path.endswith(".md") else Page)(file.read())


# Returns what is wrong with a link in the document at that path, or nothing when its target exists.
def fault(path, link):
    url = urllib.parse.urlsplit(link)
    if url.scheme or url.netloc:
        return None
    target = os.path.join(os.path.dirname(path), urllib.parse.unquote(url.path)) if url.path else path
    if not os.path.exists(target):
        return "there is no such file"
    place = urllib.parse.unquote(url.fragment)
    if place and isdocument(target) and place not in document(target).places:
        return "the file has no such heading or element"
    return None


followed, faults = 0, []
for component in "library", "development", "tool", "editors":
    with tempfile.TemporaryDirectory() as prefix:
        subprocess.run([cmake, "--install", build, "--component", component, "--prefix", prefix], check=True,
                       stdout=subprocess.DEVNULL)
        paths = [os.path.join(folder, name) for folder, _, names in os.walk(prefix) for name in names]
        links = [(path, link) for path in sorted(filter(isdocument, paths)) for link in document(path).links]
        faults += [f"{component}: {os.path.relpath(path, prefix)}: {link}: {fault(path, link)}"
                   for path, link in links if fault(path, link)]
        followed += len(links)
if faults:
    sys.exit("\n".join(faults) + "\nThese links lead nowhere when the component is installed alone. What is "
             "installed is in cmake/package.cmake and cmake/debian.cmake.")
if followed == 0:
    sys.exit("No document with a link was installed: what this test looks for has moved.")
print(f"{followed} links followed")

"""The page of `doc page`: what a definition says stands in it as text, and names become anchors; then, in
Chromium, through its DevTools protocol over a pair of pipes: the search, anchors, print, phones, no scripts.
usage: page.py TOOL; run in the repository's root; exit code 77: the browser is missing"""
import json, os, select, shutil, signal, subprocess, sys, tempfile

work = tempfile.TemporaryDirectory()
PAGE = f"{work.name}/page.html"
# Its texts try to break out of whatever form they are written in.
HOSTILE = rb"""Normal lookup
comment eolcomm !<
basic group 1 1 A & B <b>"bold"</b>
other group 2 1 ]]> --> </script><script>pwned = 1</script>
gap integer 1 5 0 9 1 1 <script>pwned = 2</script> & "quoted" 'single' &amp;
 </p></article><img src=x onerror="pwned = 3">
 """ + b"R\xE4tsel \x01\x1b[31m \x7f {{style}} nul:\0:end" + rb"""
.gap double 2 1 0 2 1 1 A dot option
where string 4 "</style><script>pwned = 4</script>" 1 2 javascript:pwned=5
kind enumstr 5 "<A b>" 1 2 Kind
 "<a b>" 1 <i>first</i>
 a_value_with_a_very_long_name_that_does_not_fit_beside_its_help_on_the_screen_of_any_phone 1 Long
a_name_that_is_much_too_long_to_fit_on_the_screen_of_any_phone_that_is_around_these_days string 6 "" 1 2 Long
old integer 7 1 0 1 1 2 Old
gone integer 8 1 0 1 1 2 Gone
search integer 9 1 0 1 1 2 The name of an element
all macro 1 2 Several
 gap
 search
former synonym gap
names deprecated
 old <b>use</b> "gap"
 former & so on
names obsolete
 gone </article>use gap
"""
# Names that are used twice are errors of the definition, and still have anchors of their own.
TWICE = b"""Minos lookup
main_limit integer 1 5 0 9 1 0 Limit
MAIN_LIMIT integer 2 5 0 9 1 0 Limit
upper synonym main_limit
upper synonym main_limit
"""
FRAGMENTS = {
    "a&b.def": """<title>Options: a&amp;b.def</title>
<p class="about">a&amp;b.def<br>9 options in 2 groups</p>
from one of the characters <code>!&lt;</code>.
>A &amp; B &lt;b&gt;&quot;bold&quot;&lt;/b&gt;</h2>
>]]&gt; --&gt; &lt;/script&gt;&lt;script&gt;pwned = 1&lt;/script&gt;</h2>
>&lt;script&gt;pwned = 2&lt;/script&gt; &amp; &quot;quoted&quot; &#39;single&#39; &amp;amp;</p>
>&lt;/p&gt;&lt;/article&gt;&lt;img src=x onerror=&quot;pwned = 3&quot;&gt;
Rätsel \\x01\\x1b[31m \\x7f {{style}} nul:\\x00:end</p>
<dd><code>&quot;&lt;/style&gt;&lt;script&gt;pwned = 4&lt;/script&gt;&quot;</code></dd>
>javascript:pwned=5</p>
<dt class="find"><code>&quot;&lt;a b&gt;&quot;</code></dt><dd class="find">&lt;i&gt;first&lt;/i&gt;</dd>
<strong>deprecated</strong>: &lt;b&gt;use&lt;/b&gt; &quot;gap&quot;</span>
<strong>deprecated</strong>: &amp; so on</span>
<strong>obsolete</strong>: &lt;/article&gt;use gap</span>
<article class="option" id=".gap">
<code class="find" id="former">former</code>
Stands for <a href="#gap"><code>gap</code></a>, <a href="#search"><code>search</code></a></p>""",
    "twice.def": 'id="main_limit">\nid="MAIN_LIMIT">\nid="upper">\nid="upper-2">\n>main limit</a></h3>',
}
failures = []


def expect(what, seen, wanted):
    if seen != wanted:
        failures.append(f"{what}: {seen!r}, right is {wanted!r}")


def page(definition, text=None, code=0):
    path = definition
    if text:
        path = f"{work.name}/{definition}"
        with open(path, "wb") as file:
            file.write(text)
    made = subprocess.run([sys.argv[1], "doc", "page", path, "-o", PAGE], stderr=subprocess.PIPE)
    expect(f"exit code for {definition}", made.returncode, code)
    with open(PAGE, encoding="utf-8", newline="") as file:
        return file.read()


for name, text, code in ("a&b.def", HOSTILE, 0), ("twice.def", TWICE, 1):
    made = page(name, text, code)
    for fragment in FRAGMENTS[name].split("\n"):
        expect(f"{fragment} is in the page of {name}", fragment in made, True)
    for raw in "pwned = 1</", "<img", "<i>", "\x1b":
        expect(f"{raw} is in the page of {name}", raw in made, False)


class Browser:
    def __init__(self):
        incoming, self.commands = os.pipe()
        self.replies, outgoing = os.pipe()
        words = f"""chromium --headless --no-sandbox --disable-gpu --disable-quic --disable-dev-shm-usage
            --no-first-run --disable-background-networking --disable-component-update --disable-sync
            --remote-debugging-pipe --user-data-dir={work.name}/profile"""
        script = f'exec "$@" 3<&{incoming} 4>&{outgoing}'  # the browser reads commands from 3, replies on 4
        self.process = subprocess.Popen(
            ["sh", "-c", script, "sh", *words.split()], pass_fds=(incoming, outgoing), start_new_session=True,
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env={**os.environ, "HOME": work.name})
        os.close(incoming), os.close(outgoing)
        self.received, self.number, self.session, self.complaints, self.requests = b"", 0, {}, [], set()
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)
        for domain in "Page", "Runtime", "Log", "Network":
            self.call(domain + ".enable")

    # What it still has open is not waited for.
    def stop(self):
        os.killpg(self.process.pid, signal.SIGTERM)
        self.process.wait()
        os.killpg(self.process.pid, signal.SIGKILL)

    def message(self):
        while b"\0" not in self.received:
            read = select.select([self.replies], [], [], 60)[0] and os.read(self.replies, 65536)
            if not read:
                raise RuntimeError("the browser does not answer")
            self.received += read
        text, self.received = self.received.split(b"\0", 1)
        message = json.loads(text)
        method, parameters = message.get("method"), message.get("params", {})
        if method == "Network.requestWillBeSent":
            self.requests.add(parameters["request"]["url"].split("#")[0])
        elif method in ("Log.entryAdded", "Runtime.consoleAPICalled", "Runtime.exceptionThrown"):
            self.complaints.append(parameters)
        return message

    def call(self, method, **parameters):
        self.number += 1
        command = {"id": self.number, "method": method, "params": parameters, **self.session}
        os.write(self.commands, json.dumps(command).encode() + b"\0")
        reply = self.message()
        while reply.get("id") != self.number:
            reply = self.message()
        return reply["result"]

    def open(self, definition, text=None, anchor=""):
        page(definition, text)
        self.call("Page.navigate", url="about:blank")
        self.call("Page.navigate", url=f"file://{PAGE}{anchor}")
        while self.value("document.readyState + location.protocol") != "completefile:":
            pass

    def value(self, script):
        reply = self.call("Runtime.evaluate", expression=script, returnByValue=True, awaitPromise=True)
        return reply["result"].get("value", reply["result"].get("description"))

    def press(self, key, code, **text):
        for kind in {"type": "keyDown", **text}, {"type": "keyUp"}:
            self.call("Input.dispatchKeyEvent", key=key, windowsVirtualKeyCode=code, **kind)

    def search(self, text):
        for _ in range(2):
            self.press("Escape", 27)  # clears the search, then leaves it
        self.press("/", 191, text="/")
        self.call("Input.insertText", text=text)

    def shown(self):
        return self.value("[...document.querySelectorAll('.option')].filter((each) => each.checkVisibility())"
                          ".map((each) => each.querySelector('h3').textContent)")


def searching(browser):
    browser.open("examples/solver.def")
    count = len(browser.shown())
    expect("the example has many options", count > 100, True)
    for text, names in {
            "node_l": ["node_limit"],
            "ITERLIM": ["iteration_limit"],  # a synonym
            "steepest lite": ["pricing"],  # a value and its help
            "machine  cores": ["threads"],  # words of the further help and a synonym
            "relative gap stops": ["gap_relative"],  # words in any order, names and help
            "no such option": []}.items():
        browser.search(text)
        expect(f"found for {text}", browser.shown(), names)
        expect(f"status, contents and note for {text}", browser.value(
            "[document.getElementById('~status').textContent,"
            " [...document.querySelectorAll('nav li')].filter((i) => i.checkVisibility()).length,"
            " document.getElementById('~none').checkVisibility()]"),
               [f"{len(names)} of {count}", len(names), not names])
    browser.search("node_l")
    browser.press("Enter", 13, text="\r")
    expect("where Enter leads", browser.value("location.hash"), "#node_limit")
    browser.press("Escape", 27)
    expect("shown after Escape", len(browser.shown()), count)


def anchors(browser):
    highlighted = """(() => {
        const plain = getComputedStyle(document.querySelector('.option')).backgroundColor;
        return [...document.querySelectorAll('.option')].filter((each) => {
          const top = each.getBoundingClientRect().top;
          return getComputedStyle(each).backgroundColor !== plain && top >= 0 && top < innerHeight - 50;
        }).map((each) => each.id); })()"""
    browser.open("examples/solver.def", anchor="#probing")
    expect("highlighted", browser.value(highlighted), ["probing"])
    browser.search("threads")
    # the browser tells the page of the new address in an event
    browser.value("new Promise((done) => { addEventListener('hashchange', () => requestAnimationFrame(done));"
                  " location.hash = 'iterlim'; })")
    expect("highlighted", browser.value(highlighted), ["iteration_limit"])
    expect("search behind an anchor", browser.value("document.getElementById('~search').value"), "")


# Opened without scripts, printed after a search, and on a phone, the page shows everything and is no wider.
def readable(browser):
    for definition, text in ("examples/solver.def", None), ("hostile.def", HOSTILE):
        form = "document.getElementById('~form').checkVisibility()"
        shown = lambda: [len(browser.shown()), browser.value(form)]
        browser.call("Emulation.setScriptExecutionDisabled", value=True)
        browser.open(definition, text)
        count = browser.value("document.querySelectorAll('.option').length")
        expect(f"without scripts, {definition}", shown(), [count, False])
        browser.call("Emulation.setScriptExecutionDisabled", value=False)
        browser.open(definition, text)
        browser.search("gap")
        expect(f"fewer shown after a search, {definition}", [shown()[0] < count, shown()[1]], [True, True])
        browser.call("Emulation.setEmulatedMedia", media="print")
        expect(f"in print, {definition}", shown(), [count, False])
        browser.call("Emulation.setEmulatedMedia", media="")
        browser.call("Emulation.setDeviceMetricsOverride", width=360, height=740, deviceScaleFactor=1,
                     mobile=True)
        expect(f"width, {definition}", browser.value("document.documentElement.scrollWidth"), 360)
        browser.call("Emulation.clearDeviceMetricsOverride")


def hostile(browser):
    browser.open("hostile.def", HOSTILE)
    expect("pwned, scripts, elements that a text has made", browser.value(
        "[typeof pwned, document.querySelectorAll('script').length,"
        " document.querySelectorAll('img, i, b, body > :not(a, div, main, script)').length]"),
           ["undefined", 1, 0])
    expect("first help", browser.value("document.querySelector('.help').textContent"),
           """<script>pwned = 2</script> & "quoted" 'single' &amp;""")
    expect("ids that are there twice, links that lead nowhere", browser.value("""(() => {
        const ids = [...document.querySelectorAll('[id]')].map((element) => element.id);
        const links = [...document.querySelectorAll('a')].map((a) => a.hash.slice(1));
        return [ids.length - new Set(ids).size, links.filter((id) => !ids.includes(id))]; })()"""), [0, []])
    # If a text did come through as markup, the page's policy would still refuse it.
    browser.value("""document.body.append(
          Object.assign(document.createElement('script'), {textContent: 'pwned = 6'}));
        document.body.insertAdjacentHTML('beforeend', '<p style="color: red" onclick="pwned = 7">');
        document.body.lastChild.click()""")
    expect("refused", (browser.value("typeof pwned"), len(browser.complaints)), ("undefined", 3))
    browser.complaints.clear()


if not failures and not shutil.which("chromium"):
    print("chromium is not installed: the page is not tried in a browser")
    sys.exit(77)
browser = Browser()
try:
    for test in searching, anchors, readable, hostile:
        test(browser)
        expect(f"complaints of the browser when {test.__name__}", browser.complaints, [])
    expect("files asked for", browser.requests - {"about:blank"}, {f"file://{PAGE}"})
finally:
    browser.stop()
sys.exit("\n".join(failures) or 0)

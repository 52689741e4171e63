"""Tests the page of `doc page` in Chromium with Selenium: the search, anchors, print, phones, the page without
scripts, and texts that try to become markup. tool.py compares its bytes.
usage: page.py TOOL; run in the repository's root; exit code 77: the browser or its driver is missing"""
import json, os, shutil, subprocess, sys, tempfile

try:
    from selenium.webdriver import ActionChains, Chrome, ChromeOptions, Keys
    from selenium.webdriver.chrome.service import Service
    from selenium.webdriver.common import utils
    if not shutil.which("chromedriver"):
        raise ImportError
except ImportError:
    print("python3-selenium or chromium-driver is not installed: the page is not tried in a browser")
    sys.exit(77)


class Driver(Service):  # by its address: on a bare system the name localhost is unknown
    service_url = property(lambda self: f"http://127.0.0.1:{self.port}")

    def is_connectable(self):
        return utils.is_connectable(self.port, "127.0.0.1")


work = tempfile.TemporaryDirectory()
os.environ["HOME"] = work.name
PAGE = f"{work.name}/page.html"
options = ChromeOptions()
for option in ("headless", "no-sandbox", "disable-dev-shm-usage", "disable-background-networking",
               "remote-debugging-pipe"):
    options.add_argument(f"--{option}")
options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
browser = Chrome(service=Driver(shutil.which("chromedriver")), options=options)
failures = []


def expect(what, seen, wanted):
    if seen != wanted:
        failures.append(f"{what}: {seen!r}, right is {wanted!r}")


def visit(definition, anchor=""):
    subprocess.run([sys.argv[1], "doc", "page", definition, "-o", PAGE], check=True)
    for address in "about:blank", f"file://{PAGE}{anchor}":
        browser.get(address)


def value(expression):
    return browser.execute_script(f"return {expression}")


def emulate(method, **parameters):
    browser.execute_cdp_cmd(f"Emulation.{method}", parameters)


def press(*keys):
    ActionChains(browser).send_keys(*keys).perform()


def search(text):
    press(Keys.ESCAPE, Keys.ESCAPE, "/", text)  # clears the last search, leaves the field, enters it again


def shown():
    return value("[...document.querySelectorAll('.option')].filter((each) => each.checkVisibility())"
                 ".map((each) => each.querySelector('h3').textContent)")


def searching():
    visit("examples/solver.def")
    count = len(shown())
    expect("the example has many options", count > 100, True)
    for text, names in {
            "node_l": ["node_limit"],
            "ITERLIM": ["iteration_limit"],  # a synonym
            "steepest lite": ["pricing"],  # a value and its help
            "machine  cores": ["threads"],  # words of the further help and a synonym
            "relative gap stops": ["gap_relative"],  # words in any order, names and help
            "no such option": []}.items():
        search(text)
        expect(f"found for {text}", shown(), names)
        expect(f"status, contents and note for {text}", value(
            "[document.getElementById('~status').textContent,"
            " [...document.querySelectorAll('nav li')].filter((i) => i.checkVisibility()).length,"
            " document.getElementById('~none').checkVisibility()]"),
               [f"{len(names)} of {count}", len(names), not names])
    search("node_l")
    press(Keys.ENTER)
    expect("where Enter leads", value("location.hash"), "#node_limit")
    press(Keys.ESCAPE)
    expect("shown after Escape", len(shown()), count)


def anchors():
    highlighted = """(() => {
        const plain = getComputedStyle(document.querySelector('.option')).backgroundColor;
        return [...document.querySelectorAll('.option')].filter((each) => {
          const top = each.getBoundingClientRect().top;
          return getComputedStyle(each).backgroundColor !== plain && top >= 0 && top < innerHeight - 50;
        }).map((each) => each.id); })()"""
    visit("examples/solver.def", "#probing")
    expect("highlighted", value(highlighted), ["probing"])
    search("threads")
    # an event notifies the page of the new address
    value("new Promise((done) => { addEventListener('hashchange', () => requestAnimationFrame(done));"
          " location.hash = 'iterlim'; })")
    expect("highlighted", value(highlighted), ["iteration_limit"])
    expect("search after an anchor", value("document.getElementById('~search').value"), "")


# The page shows everything without scripts, and in print also after a search. On a phone it is no wider than
# the screen.
def readable():
    state = lambda: [len(shown()), value("document.getElementById('~form').checkVisibility()")]
    for definition in "examples/solver.def", "examples/types.def":
        emulate("setScriptExecutionDisabled", value=True)
        visit(definition)
        count = value("document.querySelectorAll('.option').length")
        expect(f"without scripts, {definition}", state(), [count, False])
        emulate("setScriptExecutionDisabled", value=False)
        visit(definition)
        emulate("setDeviceMetricsOverride", width=360, height=740, deviceScaleFactor=1, mobile=True)
        expect(f"width, {definition}", value("document.documentElement.scrollWidth"), 360)
        emulate("clearDeviceMetricsOverride")
        search("search")
        expect(f"fewer shown after a search, {definition}", [state()[0] < count, state()[1]], [True, True])
        emulate("setEmulatedMedia", media="print")
        expect(f"in print, {definition}", state(), [count, False])
        emulate("setEmulatedMedia", media="")


def hostile():
    visit("examples/types.def")
    expect("pwned, scripts, elements that come from texts", value(
        "[typeof pwned, document.querySelectorAll('script').length,"
        " document.querySelectorAll('img, i, b, body > :not(a, div, main, script)').length]"),
           ["undefined", 1, 0])
    expect("help", value("document.querySelector('#atmosphere .help').textContent"),
           """<script>pwned = 3</script> & "quoted" 'single' &amp;""")
    expect("duplicate ids, links without a target", value("""(() => {
        const ids = [...document.querySelectorAll('[id]')].map((element) => element.id);
        const links = [...document.querySelectorAll('a')].map((a) => a.hash.slice(1));
        return [ids.length - new Set(ids).size, links.filter((id) => !ids.includes(id))]; })()"""), [0, []])
    # If a text did come through as markup, the page's policy would still refuse it.
    browser.execute_script("""document.body.append(
          Object.assign(document.createElement('script'), {textContent: 'pwned = 6'}));
        document.body.insertAdjacentHTML('beforeend', '<p style="color: red" onclick="pwned = 7">');
        document.body.lastChild.click()""")
    expect("refused", [value("typeof pwned"), len(browser.get_log("browser"))], ["undefined", 3])


try:
    for test in searching, anchors, readable, hostile:
        test()
        expect(f"errors that the browser reports when {test.__name__}", browser.get_log("browser"), [])
    events = [json.loads(entry["message"])["message"] for entry in browser.get_log("performance")]
    requests = [event["params"] for event in events if event["method"] == "Network.requestWillBeSent"]
    expect("files requested", {request["request"]["url"] for request in requests}, {f"file://{PAGE}"})
finally:
    browser.quit()
sys.exit("\n".join(failures) or 0)

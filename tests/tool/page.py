"""Tests the page of `doc page` in Chromium with Selenium: the search, addresses, buttons, print, phones, the page
without scripts, and texts that try to become markup. tool.py compares its bytes.
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


def go(address):
    for place in "about:blank", f"file://{PAGE}{address}":
        browser.get(place)


def visit(definition):
    subprocess.run([sys.argv[1], "doc", "page", definition, "-o", PAGE], check=True)
    go("")


def value(expression):
    return browser.execute_script(f"return {expression}")


def settled(expression):  # the page keeps a search in its address after a moment
    return value(f"new Promise((done) => setTimeout(done, 500)).then(() => {expression})")


def emulate(method, **parameters):
    browser.execute_cdp_cmd(f"Emulation.{method}", parameters)


def press(*keys):
    ActionChains(browser).send_keys(*keys).perform()


def search(text):
    press(Keys.ESCAPE, Keys.ESCAPE, "/", text)  # clears the last search, leaves the field, enters it again


def shown():
    return value("[...document.querySelectorAll('.option')].filter((each) => each.checkVisibility())"
                 ".map((each) => each.querySelector('h3').textContent)")


HIGHLIGHTED = """(() => {
    const plain = getComputedStyle(document.querySelector('.option')).backgroundColor;
    return [...document.querySelectorAll('.option')].filter((each) => {
      const top = each.getBoundingClientRect().top;
      return getComputedStyle(each).backgroundColor !== plain && top >= 0 && top < innerHeight - 50;
    }).map((each) => each.id); })()"""
STATUS = "document.getElementById('~status').textContent"
LISTED = "[...document.querySelectorAll('nav li')].filter((i) => i.checkVisibility()).length"
NOTE = "document.getElementById('~none')"


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
            "Node-Limit": ["node_limit"],
            "orrery run": ["title"],  # a default
            "choice_of numbers slacks": ["crash"],  # a type
            "deprecated": ["threads"],  # a deprecated synonym
            "no such option": []}.items():
        search(text)
        expect(f"found for {text}", shown(), names)
        expect(f"status, contents and note for {text}", value(f"[{STATUS}, {LISTED}, {NOTE}.checkVisibility()]"),
               [f"{len(names)} of {count}", len(names), not names])
    for text, names in {"sxd": [], "saed": ["seed"], "time limt": ["time_limit"],
                        "interation-limit": ["iteration_limit"]}.items():
        search(text)
        expect(f"similar to {text}", [shown(), value(f"[{STATUS}, {NOTE}.textContent]")],
               [names, [f"0 of {count}", "No option matches." + (" Similar names:" if names else "")]])
    search("node_l")
    press(Keys.ENTER)
    expect("where Enter leads", value("location.hash"), "#node_limit")
    press(Keys.ESCAPE)
    expect("shown after Escape", len(shown()), count)


# The address names an option, a synonym or a group in any case, or holds a search.
def addresses():
    state = f"[{HIGHLIGHTED}.join(), document.querySelector('[aria-current]')?.textContent, " \
            "document.getElementById('~search').value, location.search + location.hash]"
    visit("examples/solver.def")
    for address, wanted in {
            "#probing": ["probing", "Presolve and scaling 13", "", "#probing"],
            "#IterLim": ["iteration_limit", "Limits 12", "", "#iterlim"],
            "#time-limit": ["time_limit", "Limits 12", "", "#time_limit"],
            "#cuts": ["", "Cutting planes 12", "", "#group-cuts"],
            "#group-symbols": ["", "Settings for single variables and equations 5", "", "#group-symbols"],
            "#index-of-names": ["", "Index of names", "", "#index-of-names"],
            "#time_limt": ["", "Limits 1", "time_limt", "?q=time_limt"],
            "?q=gap+Stops": ["", "Tolerances 2", "gap Stops", "?q=gap+Stops"],
            "?q=probing#crash": ["crash", "Simplex methods 12", "", "#crash"]}.items():
        go(address)
        expect(f"address {address}", settled(state), wanted)
    search("thread num")
    expect("address after a search", settled("location.search"), "?q=thread+num")
    # an event notifies the page of the new address
    value("new Promise((done) => { addEventListener('hashchange', () => requestAnimationFrame(done));"
          " location.hash = 'iterlim'; })")
    expect("after another address", settled(state), ["iteration_limit", "Limits 12", "", "#iterlim"])
    for group in value("[...document.querySelectorAll('.group')].map((group) => group.id)"):
        value(f"document.getElementById('{group}').querySelector('.option').scrollIntoView()")
        expect(f"mark in {group}", settled("document.querySelector('[aria-current]')?.hash"), f"#{group}")


# The buttons copy lines: over the clipboard, and where the page may not use it.
def copying():
    visit("examples/solver.def")
    browser.execute_cdp_cmd("Browser.grantPermissions", {
        "permissions": ["clipboardReadWrite", "clipboardSanitizedWrite"]})
    for selector, line in {"#threads button": "threads 0", "#method .default + div button": "method primal"}.items():
        for forbidden in False, True:
            if forbidden:
                browser.execute_script("Object.defineProperty(navigator, 'clipboard', {value: undefined})")
            element = browser.find_element("css selector", selector)
            browser.execute_script("arguments[0].scrollIntoView({block: 'center'})", element)
            element.click()
            expect(f"button of {line}", settled(f"document.querySelector('{selector}').textContent"), "Copied")
            search("")
            ActionChains(browser).key_down(Keys.CONTROL).send_keys("v").key_up(Keys.CONTROL).perform()
            expect(f"copied, forbidden: {forbidden}", value("document.getElementById('~search').value"), line)
        visit("examples/solver.def")
    element = browser.find_element("css selector", "#threads .ready span")
    browser.execute_script("arguments[0].scrollIntoView({block: 'center'})", element)
    element.click()
    press(Keys.END, Keys.BACKSPACE, "8/", Keys.BACKSPACE, Keys.ENTER)
    expect("button of a changed line", settled("document.querySelector('#threads button').textContent"), "Copied")
    search("")
    ActionChains(browser).key_down(Keys.CONTROL).send_keys("v").key_up(Keys.CONTROL).perform()
    expect("copied with another value", value("document.getElementById('~search').value"), "threads 8")


# The page shows everything without scripts, and in print also after a search. On a phone it is no wider than
# the screen, and the counts of the groups stay on one line.
def readable():
    state = lambda: [len(shown()), value("document.getElementById('~form').checkVisibility()")]
    for definition in "examples/solver.def", "examples/types.def":
        emulate("setScriptExecutionDisabled", value=True)
        visit(definition)
        count = value("document.querySelectorAll('.option').length")
        expect(f"without scripts, {definition}", state(), [count, False])
        emulate("setScriptExecutionDisabled", value=False)
        visit(definition)
        for width in 360, 420, 540, 640, 768, 896:
            emulate("setDeviceMetricsOverride", width=width, height=740, deviceScaleFactor=1, mobile=True)
            expect(f"width, counts of more than one line, {definition}", value(
                """[document.documentElement.scrollWidth, [...document.querySelectorAll('nav span')].filter((span) => {
                     const text = document.createRange();
                     text.selectNodeContents(span);
                     return text.getClientRects().length > 1; }).length]"""), [width, 0])
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
    for test in searching, addresses, copying, readable, hostile:
        test()
        expect(f"errors that the browser reports when {test.__name__}", browser.get_log("browser"), [])
    events = [json.loads(entry["message"])["message"] for entry in browser.get_log("performance")]
    requests = [event["params"] for event in events if event["method"] == "Network.requestWillBeSent"]
    expect("files requested", {request["request"]["url"].split("?")[0] for request in requests}, {f"file://{PAGE}"})
finally:
    browser.quit()
sys.exit("\n".join(failures) or 0)

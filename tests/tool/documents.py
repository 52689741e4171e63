"""Runs `doc` as a process: titles, links and lines of the page and the Markdown file.
page.py tries the page in a browser.
usage: documents.py TOOL; run in the repository's root"""
import html, re, sys
from support import expect, expect_part, failures, read, run, runs, write

# A definition file in another folder gives the same document.
for form, name in ("c", "types.h"), ("markdown", "types.md"), ("page", "types.html"):
    runs(f"cd examples && wexcorin doc {form} ./types.def -o -", read(f"examples/{name}"))

# The line that the page has for each option and each of its values is read without a message.
page = run('wexcorin doc page examples/solver.def --title "Orrery <1>" --release "4.2, May 2026" -o -')[0]
lines = [html.unescape(re.sub("</?span>", "", "".join(found)))
         for found in re.findall('class="ready">(.*?)</code>|data-line="(.*?)"', page)]
expect("lines of the page", (len(lines) > 200, {"threads 0", "method dual", "quiet", "symbol.stage 2"} - {*lines}),
       (True, set()))
messages = run("wexcorin check examples/solver.def -", "\n".join(lines))[0]
expect("messages about the lines of the page",
       [line for line in messages.split("\n") if re.search("(error|warning): ", line) and "but was set to" not in line],
       [])

# Titles, and links to the options that help names: in quotes, by their look or after "option", but not in plain words.
write("named.def", """comment eolcomm #
main group 1 1 Main
time integer 1 maxint 0 maxint 1 1 Like "TEMPO", but not time_limit.; see option pace, options pace, parameter pace or "no time"
time_limit double 2 mindouble mindouble 9 1 1 No tempo, no pace: time_limit and 'time_limit'
 further time_limit or .rank
pace boolean 3 0 1 1 'time' and maxTime-, but MAXTIME
kind enumstr 4 a#b 1 1
 a#b 1 Not pace
 c 1
.rank double.TWO 5 maxdouble mindouble maxdouble 1 1
least integer 6 minint minint maxint 1 1
word string 7 maxint 1 1
maxTime macro 1 1
 pace
tempo synonym pace
t synonym time_limit
x deprecated
 t so
 time Use pace or t.
""")
for form, parts in {
        "page": (
            "<title>Orrery &lt;1&gt;, May &amp; more</title>", "<h1>Orrery &lt;1&gt;</h1>",
            '<p class="about">May &amp; more<br>named.def<br>8 options in 1 group</p>',
            'Like &quot;<a href="#pace">TEMPO</a>&quot;, but not <a href="#time_limit">time_limit</a>.; see option '
            '<a href="#pace">pace</a>, options <a href="#pace">pace</a>, parameter <a href="#pace">pace</a> or &quot;no time&quot;</p>',
            '"help find">No tempo, no pace: time_limit and &#39;time_limit&#39;</p>',
            '>further time_limit or <a href="#.rank">.rank</a></p>',
            '&#39;<a href="#time">time</a>&#39; and <a href="#maxTime">maxTime</a>-, but MAXTIME</p>',
            '<strong>deprecated</strong>: Use <a href="#pace">pace</a> or <a href="#time_limit">t</a>.</p>',
            '<article class="option" id="time_limit">',
            '<p class="also find">deprecated synonym <code id="t">t</code> (so)</p>',
            "<code>maxint</code> (the largest integer, 2147483647)", "<code>0</code> or more", "<code>9</code> or less",
            "<code>minint</code> (the smallest integer, -2147483648)", "<code>maxdouble</code> (the largest number, 1E299)",
            "<code>mindouble</code> (the smallest number, -1E299)", "<dt>Default</dt><dd class=\"find\"><code>maxint</code></dd>", "any number", "any integer", "<code>0</code> (no)", "Yes can be written as", '<dd class="find">Not pace</dd>',
            '<section class="group" id="group-main"', '<li><a href="#tempo"><code>tempo</code></a> for pace</li>',
            '"ready">symbol.rank <span>maxdouble maxdouble</span></code>', '"ready">maxTime <span>0</span></code>',
            '"ready">kind <span>&quot;a#b&quot;</span></code>', 'data-line="kind c"'),
        "markdown": ("# Orrery \\<1\\>\n\nMay \\& more\n",
                     "\n- [Main](#group-main)\n", '\n<a id="group-main"></a>\n\n## Main\n', "\n| [`pace`](#pace) | ",
                     "\n- `tempo`: see [`pace`](#pace)\n- [`time`](#time)\n")}.items():
    out = run(f"wexcorin doc {form} --title 'Orrery <1>' --release 'May & more' named.def -o -")[0]
    for part in parts:
        expect_part(form, out, part)
    expect(f"{form}: column heads without a text", re.findall(r"(?m)^\|.*\| *\|\n\|---", out), [])

# A plain word is no name, and a quotation mark that is not closed quotes nothing.
write("plain.def", "about integer 1 1 0 9 1 1 It stops the solver's p2. Limit the \"top\"\n" +
      "".join(f"{name} integer {number} 1 0 9 1 1\n" for number, name in enumerate(("top", "Limit", "p2", "s"), 2)))
expect_part("plain words", run("wexcorin doc page plain.def -o -")[0],
            'It stops the solver&#39;s <a href="#p2">p2</a>. Limit the &quot;<a href="#top">top</a>&quot;</p>')

sys.exit("\n".join(failures) or 0)

#!/usr/bin/env python3
"""Draws how the work grows, as SVG, from the rows "growth" of a file of figures.

    plot.py RESULTS.json FOLDER

Each kind of work has one file, growth-KIND.svg. The x axis is the number of options or lines, the y axis the time
for each of them, both on logarithmic scales. A horizontal line means linear growth. The colours suit a light and a
dark page. The program also prints, for each line, the largest factor by which the whole time grows from one size to
the next.
"""
import json
import math
import os
import sys

WIDTH, HEIGHT = 720, 400
LEFT, RIGHT, TOP, BOTTOM = 64, 150, 46, 52
COLOURS = ["#2f7fd6", "#d6663a", "#3a9a5b", "#9a62c9", "#b8902a", "#cc4f7c"]
TITLES = {"definition": ("Reading a definition of N options", "options", "ns an option"),
          "parameters": ("Reading N assignments to N options", "assignments", "ns a line"),
          "queries": ("Finding N options by name", "options", "ns a query"),
          "lines": ("Reading N lines for 500 options", "lines", "ns a line")}


def series(figures):
    """kind -> variant -> [(size, nanoseconds for each)], by size."""
    found = {}
    for name, entry in figures.items():
        row, who, size = name.split("/")
        if row == "growth":
            kind, variant = who.split("_", 1)
            points = found.setdefault(kind, {}).setdefault(variant, [])
            points.append((int(size), entry["ns"] / entry["items"]))
    for variants in found.values():
        for points in variants.values():
            points.sort()
    return found


class Axes:
    """Converts sizes and times to positions in the picture."""

    def __init__(self, variants):
        points = [point for line in variants.values() for point in line]
        self.low, self.high = (limit(size for size, _ in points) for limit in (min, max))
        times = [time for _, time in points]
        self.bottom = math.floor(math.log2(min(times)))
        self.top = max(self.bottom + 3, math.ceil(math.log2(max(times))))

    def x(self, size):
        share = math.log2(size / self.low) / max(1, math.log2(self.high / self.low))
        return LEFT + share * (WIDTH - LEFT - RIGHT)

    def y(self, time):
        share = (math.log2(time) - self.bottom) / (self.top - self.bottom)
        return HEIGHT - BOTTOM - share * (HEIGHT - TOP - BOTTOM)


def grid(axes, sizes):
    for power in range(axes.bottom, axes.top + 1):
        y = axes.y(2 ** power)
        label = f"{2 ** power:,}" if power >= 0 else f"{2.0 ** power:g}"
        yield f'<line class="grid" x1="{LEFT}" y1="{y:.1f}" x2="{WIDTH - RIGHT}" y2="{y:.1f}"/>'
        yield f'<text class="note" x="{LEFT - 8}" y="{y + 4:.1f}" text-anchor="end">{label}</text>'
    for size in sizes[::2]:
        x = axes.x(size)
        yield f'<line class="grid" x1="{x:.1f}" y1="{TOP}" x2="{x:.1f}" y2="{HEIGHT - BOTTOM}"/>'
        yield (f'<text class="note" x="{x:.1f}" y="{HEIGHT - BOTTOM + 18}" text-anchor="middle">'
               f'{size // 1000}k</text>')


def lines(axes, variants):
    places = []  # of the names at the right end, which must not overlap
    for (variant, points), colour in zip(variants.items(), COLOURS):
        path = " ".join(f"{axes.x(size):.1f},{axes.y(time):.1f}" for size, time in points)
        yield f'<polyline fill="none" stroke="{colour}" stroke-width="2" points="{path}"/>'
        for size, time in points:
            yield f'<circle fill="{colour}" cx="{axes.x(size):.1f}" cy="{axes.y(time):.1f}" r="2.5"/>'
        places.append([axes.y(points[-1][1]), variant, colour])
    places.sort()
    for above, below in zip(places, places[1:]):
        below[0] = max(below[0], above[0] + 15)
    for y, variant, colour in places:
        yield f'<text fill="{colour}" x="{WIDTH - RIGHT + 8}" y="{y + 4:.1f}">{variant}</text>'


def picture(kind, variants):
    axes = Axes(variants)
    title, across, up = TITLES[kind]
    sizes = sorted({size for points in variants.values() for size, _ in points})
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" '
           f'height="{HEIGHT}" font-family="sans-serif" font-size="13">')
    yield ("<style>.ink{fill:#24292f}.note{fill:#57606a}.grid{stroke:#8c959f;stroke-opacity:.3}"
           "@media(prefers-color-scheme:dark){.ink{fill:#e6edf3}.note{fill:#9da7b3}}</style>")
    yield f"<title>{title}</title>"
    yield f'<text class="ink" x="{LEFT}" y="20" font-size="15">{title}</text>'
    yield f'<text class="note" x="{LEFT}" y="37">{up}</text>'
    yield f'<text class="note" x="{WIDTH - RIGHT}" y="{HEIGHT - 12}" text-anchor="end">{across}</text>'
    yield from grid(axes, sizes)
    yield from lines(axes, variants)
    yield "</svg>"


def print_doublings(found):
    print("| work | variant | worst doubling | at | over all |\n|---|---|--:|--:|--:|")
    for kind, variants in found.items():
        for variant, points in variants.items():
            steps = [(size * time / (before * earlier), size)
                     for (before, earlier), (size, time) in zip(points, points[1:])]
            worst, at = max(steps, default=(0, 0))
            (first, start), (last, end) = points[0], points[-1]
            mean = 2 * (end / start) ** (1 / max(1, math.log2(last / first)))
            print(f"| {kind} | {variant} | {worst:.2f} | {at:,} | {mean:.2f} |")


def main():
    with open(sys.argv[1]) as f:
        found = series(json.load(f)["benchmarks"])
    os.makedirs(sys.argv[2], exist_ok=True)
    for kind, variants in found.items():
        with open(os.path.join(sys.argv[2], f"growth-{kind}.svg"), "w") as out:
            out.write("\n".join(picture(kind, variants)) + "\n")
    print_doublings(found)


if __name__ == "__main__":
    main()

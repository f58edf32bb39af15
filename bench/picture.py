#!/usr/bin/env python3
"""Draws the figures of a run of the benchmarks as one picture.

    picture.py FIGURES.json PICTURE.svg

FIGURES.json is what run.py --json has written. Each figure is a bar from the least to the greatest
ratio to its reference, with a stroke at the median, beside the line at which the ratio is meant to
stay. The scale is logarithmic.
"""

import json
import math
import sys
from html import escape
from pathlib import Path

ROW, TOP, BOTTOM = 22, 64, 34
NAMES, CHART, VALUES = 330, 380, 290
MARGIN = 16
TICKS = [0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 20]
GOOD, BAD, PLAIN = "#2e7d32", "#c62828", "#5f6b7a"


class Scale:
    def __init__(self, figures: list[dict]):
        shown = [value for figure in figures for value in [*figure["ratio"], figure["aim"] or 1]
                 if value > 0]
        self.least = min([0.5, *shown]) * 0.95
        self.most = max([2.0, *shown]) * 1.05

    def x(self, ratio: float) -> float:
        ratio = min(max(ratio, self.least), self.most)
        part = math.log(ratio / self.least) / math.log(self.most / self.least)
        return MARGIN + NAMES + part * CHART


def text(x: float, y: float, content: str, *, anchor="start", size=12, colour="#1f2933") -> str:
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}"'
            f' fill="{colour}">{escape(content)}</text>')


def line(x: float, top: float, bottom: float, colour: str, extra="") -> str:
    return f'<path d="M{x:.1f} {top:.1f}V{bottom:.1f}" stroke="{colour}" {extra}/>'


def row(figure: dict, y: float, scale: Scale) -> list[str]:
    least, median, most = figure["ratio"]
    aim = figure["aim"]
    colour = PLAIN if aim is None else GOOD if median <= aim else BAD
    left, width = scale.x(least), max(scale.x(most) - scale.x(least), 2)
    drawn = [text(MARGIN, y + 15, figure["name"]),
             f'<rect x="{left:.1f}" y="{y + 6}" width="{width:.1f}" height="10" rx="2"'
             f' fill="{colour}" fill-opacity="0.35"/>',
             line(scale.x(median), y + 3, y + 19, colour, 'stroke-width="3"')]
    if aim is not None:
        drawn.append(line(scale.x(aim), y + 2, y + 20, "#1f2933", 'stroke-dasharray="3 2"'))
    values = f'{median:.2f}{"" if aim is None else f" (aim {aim:.2f})"}'
    x = MARGIN + NAMES + CHART + MARGIN
    drawn.append(text(x, y + 15, values, colour=colour))
    drawn.append(text(x + VALUES, y + 15, f'{figure["measured"]} / {figure["reference"]}',
                      anchor="end", colour=PLAIN))
    return drawn


def picture(taken: dict) -> str:
    figures = taken["figures"]
    scale = Scale(figures)
    width = 3 * MARGIN + NAMES + CHART + VALUES
    end = TOP + ROW * len(figures)
    drawn = [text(MARGIN, 24, "Each figure as a ratio to its reference, measured in turns with it",
                  size=15),
             text(MARGIN, 44, f'{taken["date"]}, {taken["processors"]} processors; bar: least to'
                  " greatest, stroke: median, dashes: aim", colour=PLAIN)]
    for tick in TICKS:
        if scale.least <= tick <= scale.most:
            drawn.append(line(scale.x(tick), TOP - 4, end, "#9aa5b1" if tick == 1 else "#e4e7eb"))
            drawn.append(text(scale.x(tick), end + 18, f"{tick:g}", anchor="middle", colour=PLAIN))
    for number, figure in enumerate(figures):
        drawn += row(figure, TOP + ROW * number, scale)
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{end + BOTTOM}"'
        f' viewBox="0 0 {width} {end + BOTTOM}" font-family="sans-serif">',
        '<rect width="100%" height="100%" fill="#fff"/>', *drawn, "</svg>", ""])


def main() -> int:
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    taken = json.loads(Path(sys.argv[1]).read_text(encoding="utf-8"))
    Path(sys.argv[2]).write_text(picture(taken), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())

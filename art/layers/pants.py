"""The line over the two on the sofa: pants.png.

It waves about the lower third, where the trousers would be.  The wave makes heights up to twice and down to two thirds
of what they are here, about row 1080: what lies between rows 600 and 1350 stays in the picture, and all below must be
empty, for it comes round to the picture's upper edge.
"""

from kit import poster
from layers import lettering_kit as lettering
from layers.lettering_kit import Line

WIDTH, HEIGHT = 3840, 2160
GRAIN_SEED = 2000

FONT = "League Spartan Black"
FONTS = {FONT: "fonts-league-spartan"}

PLUM, WINE = "#2b0f22", "#6d2433"
LINES = [(Line("NO PANTS", FONT, air=104, least=84), ("#fff6dc", "#fff0cf", "#ffe2a0")),
         (Line("AFTER EIGHT", FONT, air=104, least=84), ("#ffdc7c", "#f5b74a", "#e58a35"))]

MEASURE = 2840   # width of both lines
WIDEN = 1.36     # the wave makes letters taller than set, on the average
TOP, GAP = 726, 60
ROUNDING = 6    # takes the edge off corners
DEPTH = 24       # how thick the letters are, seen from the left
RIM = 20         # dark, around it all


def boxes():
    """Each line's box, one below the other."""
    y = TOP
    for line, _ in LINES:
        height = line.height(MEASURE) / WIDEN
        yield (WIDTH - MEASURE - DEPTH) / 2, y, MEASURE, height
        y += height + GAP


def letters_path(c, line, box, dx=0):
    """Make the line's outlines the current path, moved by dx."""
    x, *rest = box
    c.new_path()
    lettering.add_line(c, line, (x + dx, *rest))


def paint():
    """Both lines: first all rims, so that none lies on a neighbour's face."""
    surface, c = lettering.empty(WIDTH, HEIGHT)
    steps = range(DEPTH, -1, -2)
    for (line, _), box in zip(LINES, boxes()):
        poster.set_paint(c, PLUM)
        for dx in steps:
            letters_path(c, line, box, dx)
            lettering.swell(c, ROUNDING + RIM)
    for (line, face), box in zip(LINES, boxes()):
        for dx in steps:
            letters_path(c, line, box, dx)
            poster.set_paint(c, WINE if dx else face)
            lettering.swell(c, ROUNDING)
    return lettering.coloured(surface, GRAIN_SEED)


if __name__ == "__main__":
    poster.main(FONTS, paint)

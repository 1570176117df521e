"""The band that runs through the ring of bottles, for ever: unlimited.png.

Drawn in pixels of a 1920 x 1080 screen, which the square texture spans once in either direction.  It tiles left to
right.  Half the screen's height lies on the texture's upper edge, so the band is drawn in the middle of the
picture and then rolled up to there.
"""

import numpy as np

from kit import poster
from kit.poster import draw, placed
from layers import lettering_kit as lettering
from layers.lettering_kit import Line

SIZE = 2048
SCREEN = (1920, 1080)
MIDDLE = 0.05    # where in the texture the middle of the screen lies, from its upper edge
GRAIN_SEED = 2001

FONT = "League Spartan Black"
FONTS = {FONT: "fonts-league-spartan"}

PLUM, WINE = "#2b0f22", "#6d2433"
CREAM, MUSTARD, BRICK = "#fff0cf", "#f0b548", "#c2502f"
FACE = ("#fff6dc", "#ffeab8", "#f7bd57")
WORD = Line("UNLIMITED", FONT, air=108, least=88)

MEASURE = 1560
HEIGHT = 216     # of the capitals
ROUNDING = 5     # takes the edge off corners
DEPTH = 14       # how thick the letters are, seen from the left
RIM = 11         # dark, around it all

# A bottle, 250 high, its base in the middle of the lower edge.
GLASS = ("poly", (0, "#3f8a55", "#24513f", "#173a31"), 26, (-46, 0), (46, 0), (46, -136), (20, -186), (20, -250),
         (-20, -250), (-20, -186), (-46, -136))
CAP = ("box", MUSTARD, -25, -254, 50, 34, 10)
BOTTLE = [("within", GLASS, [("box", CREAM, -60, -118, 120, 80), ("box", BRICK, -60, -118, 120, 12),
                             ("box", BRICK, -60, -50, 120, 12), ("star", BRICK, 0, -78, 26, 6),
                             ("box", "#ffffff@0.28", -32, -128, 12, 120, 6)]),
          CAP]


def word(c, x, y):
    """The word with its left edge at x, its middle at y: rim, depth, face."""
    steps = range(DEPTH, -1, -1)
    for radius, paints in ((ROUNDING + RIM, [PLUM] * len(steps)), (ROUNDING, [WINE] * DEPTH + [FACE])):
        for dx, paint in zip(steps, paints):
            c.new_path()
            lettering.add_line(c, WORD, (x + dx, y - HEIGHT / 2, MEASURE, HEIGHT))
            poster.set_paint(c, paint)
            lettering.swell(c, radius)


def bottle(c, x, y):
    """A bottle about the place, leaning like everything after the third."""
    with placed(c, x, y, 0.98, turn=14):
        c.translate(0, 127)
        for kind, _, *numbers in (GLASS, CAP):
            poster.SHAPES[kind](c, *numbers)
        poster.set_paint(c, PLUM)
        lettering.swell(c, RIM)
        draw(c, BOTTLE)


def paint():
    """Word and bottle share the screen's width, with the same air on both sides of the bottle."""
    surface, c = lettering.empty(SIZE, SIZE)
    width, height = SCREEN
    c.scale(SIZE / width, SIZE / height)
    left = (width - MEASURE - DEPTH) / 2
    word(c, left, height / 2)
    for x in (0, width):
        bottle(c, x, height / 2)
    return np.roll(lettering.coloured(surface, GRAIN_SEED), int((MIDDLE - 0.5) * SIZE), axis=0)


if __name__ == "__main__":
    poster.main(FONTS, paint)

"""The lid of the box of Stack & Co.: burgerbox_top.png. A burger that is made of its maker's name, in two colours on
cream card; the lining, teal behind the burger, has the small print in large letters.
"""

import math

import numpy as np

from kit import burgerbox as box, png, poster
from kit.poster import draw, placed, write
from models import burgerbox_top as lid
from textures import print_kit as kit

SEED = 34

NAME_FONT, SCRIPT_FONT, SMALL_FONT = "League Spartan Black", "Leckerli One", "Yanone Kaffeesatz Bold"
FONTS = {NAME_FONT: "fonts-league-spartan", SCRIPT_FONT: "fonts-leckerli-one", SMALL_FONT: "fonts-yanone-kaffeesatz"}

CARD = "#fff4e4"  # as near to the lower half, which has no picture
BRICK, TEAL, CREAM = "#c4492b", "#23696d", "#fff0cf"

VALLEY = (0.785, 0.945)  # round the panel, filled with colour: its outer and inner inset from the rim

# The sign on the panel, in texels from the panel's middle: dome, patty and bottom.
NOTHING = "#000000@0"
DOME = [("within", ("box", NOTHING, -420, -410, 840, 310), [("poly", BRICK, 200, (-420, -410), (420, -410), (420, 200),
                                                            (-420, 200))]),
        ("box", BRICK, -420, -200, 840, 138, 40)]
SEEDS = ((-196, -330, -26), (-70, -356, 16), (58, -334, -12), (190, -338, 28))
PATTY = [("box", TEAL, -446, -40, 892, 216, 90)]
BOTTOM = [("box", BRICK, -420, 198, 840, 130, 30),
          ("within", ("box", NOTHING, -420, 250, 840, 160), [("poly", BRICK, 120, (-420, 100), (420, 100), (420, 404),
                                                             (-420, 404))])]


def seed(c, x, y, turn):
    with placed(c, x, y, turn=turn):
        draw(c, [("blob", CREAM, (-34, 0), (-12, -15), (18, -13), (30, 0), (18, 13), (-12, 15))])


def sign(c):
    """Dome, patty and bottom are one line of type each."""
    draw(c, DOME)
    for at in SEEDS:
        seed(c, *at)
    write(c, "STACK", NAME_FONT, 240, 0, -92, CREAM, track=16)
    draw(c, PATTY)
    write(c, "& Co.", SCRIPT_FONT, 206, 0, 138, CREAM)
    draw(c, BOTTOM)
    write(c, "TOO TALL ON PURPOSE", SMALL_FONT, 112, 0, 340, CREAM, track=18)


def panel(c):
    left, top, width, height = lid.PRINT
    draw(c, [("box", CARD, left - 12, top - 12, width + 24, height + 24)])
    texels = width / (2 * lid.PANEL_REACH)
    with placed(c, left + width / 2, top + height / 2):
        for inset, colour in zip(VALLEY, (BRICK, CARD)):
            across, deep = ((half - inset) * texels for half in (box.HALF_WIDTH, box.HALF_DEPTH))
            draw(c, [("box", colour, -across, -deep, 2 * across, 2 * deep, box.corner(inset) * texels)])
    with placed(c, left + width / 2, top + height / 2, 1.02):
        sign(c)


def lining(c):
    """Upright when the lid stands open; the burger hides the lower half."""
    left, top, width, height = lid.LINING
    draw(c, [("box", TEAL, left - 12, 0, kit.SIZE, lid.TONGUE_PRINT[1] - 16)])
    with placed(c, left + width / 2, top + height / 2):
        write(c, "GRAVITY", NAME_FONT, 128, 0, -136, CREAM, track=16)
        write(c, "SOLD SEPARATELY", SMALL_FONT, 111, 0, -28, CREAM, track=24)


# --- the walls, each as a strip that stands on its rim ---

OUTER = lid.PROFILE[len(lid.LINING_PANEL) + len(lid.LINING_WALL) - 1:]
LINES = {"front": "STACK & CO.", "back": "COMES WITHOUT SIDES", "left": "THIS WAY UP, MOSTLY",
         "right": "THIS WAY UP, MOSTLY"}


def row_of(island, height):
    """The texel row at which a wall is that high."""
    lengths = np.cumsum([0.0] + [math.dist(*pair) for pair in zip(OUTER, OUTER[1:])])
    wall = next(k for k, point in enumerate(OUTER) if point[1] > 0.02)  # above the rim's lower edge
    up = np.interp(height, [y for _, y in OUTER[wall:]], lengths[wall:])
    return island[1] + island[3] - up * island[2] / (2 * lid.WALL_REACH)


def wall(c, name):
    left, top, width, height = island = lid.SIDES[name]
    draw(c, [("box", CARD, left - 12, top - 8, width + 24, height + 16)])
    low, high = row_of(island, 0.17), row_of(island, 0.60)
    draw(c, [("box", BRICK, left - 12, high, width + 24, low - high)])
    middle = (row_of(island, 0.74) + row_of(island, 1.46)) / 2
    with placed(c, left + width / 2, middle):
        if name == "front":
            write(c, LINES[name], NAME_FONT, 104, 0, 37, TEAL, track=30)
        else:
            write(c, LINES[name], SMALL_FONT, 92, 0, 32, TEAL, track=24)


def tongue(c):
    left, top, width, height = lid.TONGUE_PRINT
    draw(c, [("box", TEAL, left - 8, top - 8, width + 16, height + 16)])
    write(c, "LIFT", NAME_FONT, 78, left + width / 2, top + height / 2 + 28, CREAM, track=60)
    left, top, width, height = lid.KNUCKLE_PRINT
    draw(c, [("box", CARD, left - 8, top - 8, width + 16, height + 16)])


def paint():
    surface, c = kit.paper()
    draw(c, [("box", CARD, 0, 0, kit.SIZE, kit.SIZE)])
    panel(c)
    lining(c)
    for name in lid.SIDES:
        wall(c, name)
    tongue(c)
    return surface


if __name__ == "__main__":
    poster.require_fonts(FONTS)
    seen = kit.openness(lid.build, "burgerbox_top", 1.0)
    kit.save(kit.shaded(paint(), seen, depth=0.8), png.beside(__file__), SEED)

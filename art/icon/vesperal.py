"""The program's icon: vesperal.png.

The doll's house of the poster seen by its gable, with the evening star over it: two on a sofa under one lamp, the
first with the hat, the second with the glasses.  All places are pixels of the 256 x 256 picture.  Straight edges stand
on multiples of eight wherever they can, so that they are still sharp at 32 x 32; eyes, smiles and
buttons are for those who look closer.
"""
import numpy as np

from kit import poster
from kit.poster import draw, glow, placed

SIZE = 256

MIDNIGHT, TEAL = "#101733", "#2f7478"
BOTTLE, BOTTLE_DEEP, LEAF = "#24513f", "#173a31", "#2f6b45"
CREAM, PAPER, MUSTARD, BRICK, WINE = "#fff0cf", "#f3d9a8", "#e9ae3c", "#b9482f", "#5d2030"
WOOD_DEEP, CLAY, CLAY_LIT, CLAY_DEEP = "#4a2820", "#b97f58", "#e8b482", "#7d4a3c"

# ---------------------------------------------------------------- outdoors

TILE = ("box", ("#5f7cc4", "#4c579a", "#6d4a72", "#2b4a48"), 8, 8, 240, 240, 54)  # its rim shows on dark backgrounds
DUSK = ("box", (MIDNIGHT, "#1c2a5a", "#3a3f7c", "#8f4a5c", "#e08a4a"), 12, 12, 232, 232, 50)
STAR = [("star", CREAM, 211, 50, 25, 5)]
LAWN = [("box", ("#3f7a52", BOTTLE, BOTTLE_DEEP), 8, 220, 240, 28)]

# ---------------------------------------------------------------- the house

CHIMNEY = [("box", (0, "#c9573a", BRICK, "#7d2f2c"), 48, 36, 24, 60), ("box", (CREAM, PAPER), 44, 32, 32, 12, 4)]
WALLS = [("poly", ("#fff6dc", PAPER, "#e9bd80"), 4, (128, 20), (232, 106), (232, 232), (24, 232), (24, 106))]
ROOM = ("poly", ("#c96f35", "#e08a3c", "#c4652f", "#9c4a2c"), 4, (128, 34), (216, 108), (216, 224), (40, 224),
        (40, 108))
ROOF_SHADE = [("line", "#5d2030@0.45", 24, (8, 124), (128, 30), (248, 124))]
ROOF = [("line", WINE, 24, (14, 114), (128, 22), (242, 114)), ("line", BRICK, 18, (14, 111), (128, 19), (242, 111)),
        ("line", "#e88a50", 6, (13, 105), (128, 13), (243, 105))]

LAMP = [("line", WOOD_DEEP, 6, (128, 30), (128, 64)), ("oval", "#fffdf0", 128, 90, 13),
        ("poly", (TEAL, "#235a66", "#173f4d"), 8, (116, 58), (140, 58), (160, 90), (96, 90))]

SOFA_BACK = [("box", ("#6fae6c", LEAF, BOTTLE), 54, 144, 148, 84, 22)]
SOFA_SEAT = [("box", (LEAF, BOTTLE_DEEP), 56, 208, 144, 24, 8)]
SOFA_ARMS = [row for x in (40, 192) for row in (
    ("box", ("#6fae6c", LEAF, BOTTLE, BOTTLE_DEEP), x, 176, 24, 56, 12), ("oval", MUSTARD, x + 12, 190, 5))]

# ---------------------------------------------------------------- the two on the sofa

HEAD = [("oval", ("#f2c392", CLAY_LIT, CLAY), 0, 0, 30),
        ("limb", CLAY_DEEP, 4, (-13, 14), (-6, 19), (6, 19), (13, 14)), ("oval", ("#f3b98a", "#c27a55"), 0, 7, 9)]
HAT = [*(("limb", WOOD_DEEP, 4, (x - 7, -3), (x - 4, 0), (x, 1), (x + 4, 0), (x + 7, -3)) for x in (-13, 13)),
       ("blob", ("#e0703f", BRICK), (-25, -12), (-25, -36), (-13, -47), (0, -42), (13, -47), (25, -36), (25, -12)),
       ("poly", MIDNIGHT, 3, (-26, -28), (26, -28), (28, -16), (-28, -16)),
       ("box", ("#d5603a", "#8f3630"), -42, -19, 84, 13, 6)]
GLASSES = [("blob", WOOD_DEEP, (-31, -4), (-26, -24), (0, -34), (26, -24), (31, -4), (0, -16)),
           ("oval", WOOD_DEEP, 0, -34, 9),
           ("line", MIDNIGHT, 5, (-28, -4), (28, -4)), ("oval", MIDNIGHT, -13, -3, 12), ("oval", MIDNIGHT, 13, -3, 12),
           ("line", "#8fb0e8", 4, (-18, -6), (-13, -10)), ("line", "#8fb0e8", 4, (8, -6), (13, -10))]
# for each of the two: where the head is and how it leans, the jumper, the trousers, what is upon the head
FRIENDS = [(91, -5, ("#f6c65c", "#d08f2f"), "#7d2f2c", HAT), (165, 6, ("#4fa09c", "#235a66"), "#2a3a72", GLASSES)]


def friend(c, x, lean, jumper, trousers, upon):
    """One of the two, facing us."""
    with placed(c, x, 152):
        draw(c, [("blob", jumper, (-29, 60), (-33, 44), (-18, 26), (18, 26), (33, 44), (29, 60)),
                 ("line", trousers, 22, (-14, 64), (-15, 84)), ("line", trousers, 22, (14, 64), (15, 84))])
        with placed(c, 0, 0, turn=lean):
            draw(c, HEAD + upon)


# ---------------------------------------------------------------- the picture

def within(c, row, paint):
    """Paint clipped to the shape of the row: light must not fall on what is transparent."""
    kind, _, *numbers = row
    c.save()
    poster.SHAPES[kind](c, *numbers)
    c.clip()
    paint(c)
    c.restore()


def outdoors(c):
    """Dusk, the evening star in it, and the light that falls from the house on the lawn."""
    draw(c, [DUSK])
    glow(c, 211, 50, 60, "#9fb8e0", 0.45)
    draw(c, LAWN + STAR)
    glow(c, 128, 232, 120, "#ffb54a", 0.6, squash=0.3)


def room(c):
    """Back to front; the light is on the wall before anyone sits down in it."""
    glow(c, 128, 96, 130, "#ffd070", 1.0)
    draw(c, SOFA_BACK + SOFA_SEAT)
    for one in FRIENDS:
        friend(c, *one)
    draw(c, SOFA_ARMS + LAMP)


def straight(surface):
    """The surface as a height x width x 4 array of 8-bit colours with their opacity, not multiplied by it."""
    surface.flush()
    pixels = np.frombuffer(surface.get_data(), np.uint8).reshape(SIZE, SIZE, 4).astype(np.float64)
    opacity = pixels[..., 3:]
    colours = np.divide(pixels[..., 2::-1] * 255, opacity, out=np.zeros((SIZE, SIZE, 3)), where=opacity > 0)
    return np.concatenate([colours, opacity], axis=2).round().clip(0, 255).astype(np.uint8)


def paint():
    """The whole icon, as an array of pixels."""
    surface, c = poster.canvas(SIZE, SIZE, opaque=False)
    draw(c, [TILE])
    within(c, DUSK, outdoors)
    draw(c, CHIMNEY + WALLS + [ROOM])
    within(c, ROOM, lambda c: (room(c), draw(c, ROOF_SHADE)))
    draw(c, ROOF)
    return straight(surface)


if __name__ == "__main__":
    poster.main({}, paint)

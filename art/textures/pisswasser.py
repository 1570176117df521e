"""The bottle of Vesperal Pils: pisswasser.png. Green glass with beer in it, the label, a band round the neck, the cap.

The islands are those of the model; all of them go half round the bottle, so the left edge of each meets the right one.
"""

import numpy as np

from kit import png, poster
from kit.poster import draw, placed, write
from models import beer
from textures import print_kit as kit

SEED = 33

BRAND_FONT, KIND_FONT, SMALL_FONT = "League Spartan Black", "Leckerli One", "Yanone Kaffeesatz Bold"
FONTS = {BRAND_FONT: "fonts-league-spartan", KIND_FONT: "fonts-leckerli-one", SMALL_FONT: "fonts-yanone-kaffeesatz"}

NIGHT, PLUM, BRICK = "#1d2a55", "#6b3358", "#c04a2c"
MUSTARD, HONEY, CREAM, PAPER = "#eeb13f", "#f9d27a", "#fff0cf", "#f6dfae"

# --- glass ---

# Over the height of the bottle: beer glows through below its level, above it the glass is empty and darker.
LEVEL = 5.62
GLASS = kit.across((0.0, 0.25, 0.9, 4.1, 5.0, LEVEL - 0.06, LEVEL - 0.02, LEVEL + 0.02, LEVEL + 0.08, 6.6, 7.3),
                   ("#1f5a41", "#2f7a50", "#39874f", "#3d8c50", "#46944f", "#519a4c", "#a9c566", "#a9c566", "#2c6f50",
                    "#256449", "#2f7454"))
# Over the angle, -90..90 degrees from the front: the soft mirror image of two windows.
GLEAM = ((-90, 0.0), (-62, 0.0), (-47, 0.16), (-38, 0.20), (-28, 0.05), (-10, 0.0), (30, 0.0), (48, 0.07), (60, 0.09),
         (74, 0.0), (90, 0.0))
GLEAM_COLOUR = np.array((214, 240, 190))


def glass(surface, island, line):
    """Paints an island that goes half round, and a little beyond its edges, from the heights along its outline."""
    left, top, width, height = island
    bleed = 16
    along = np.array(beer.lengths(line))
    rows = np.clip(1 - (np.arange(-bleed, height + bleed) + 0.5) / height, 0, 1)
    heights = np.interp(rows * along[-1], along, [y for _, y in line])
    columns = (np.arange(-bleed, width + bleed) + 0.5) / width % 1
    gleam = np.interp(columns * 180 - 90, *zip(*GLEAM))[None, :, None]
    fade = np.interp(heights, (0.15, 0.6, 6.2, 7.0), (0, 1, 1, 0.3))[:, None, None]
    plain = np.repeat(GLASS(heights)[:, None], len(columns), axis=1)
    kit.lay(surface, left - bleed, top - bleed, plain + (GLEAM_COLOUR - plain) * gleam * fade)


def row_of(island, line, height):
    """The texel row at which the glass is that high."""
    along = np.array(beer.lengths(line))
    return island[1] + island[3] * (1 - np.interp(height, [y for _, y in line], along) / along[-1])


# --- the label, in texels from the upper left corner of the paper; it ends where it begins ---

WIDTH, HEIGHT = beer.BODY_WIDTH, 1112
MIDDLE = WIDTH / 2
STRIPES = [("box", BRICK, -20, 0, WIDTH + 40, 62), ("box", MUSTARD, -20, 78, WIDTH + 40, 20),
           ("box", BRICK, -20, HEIGHT - 62, WIDTH + 40, 62), ("box", MUSTARD, -20, HEIGHT - 98, WIDTH + 40, 20)]
BAND = [("box", MUSTARD, -20, 596, WIDTH + 40, 250), ("box", NIGHT, -20, 616, WIDTH + 40, 210)]

# Dusk over the roof, in a round window; its middle is the origin.
RADIUS = 296
SKY = ("oval", (NIGHT, "#33336a", PLUM, "#b04f4a", "#e07a3a", HONEY), 0, 0, RADIUS)
RAYS = 9
HILLS = [("blob", "#5b2c52", (-420, 190), (-300, 108), (-170, 132), (-40, 96), (110, 128), (260, 92), (420, 150),
          (420, 400), (-420, 400)),
         ("blob", "#2f2450", (-420, 280), (-280, 176), (-120, 214), (60, 190), (240, 220), (420, 180), (420, 460),
          (-420, 460))]
HOUSE = [("box", NIGHT, 58, -58, 46, 120, 6),
         ("poly", NIGHT, 10, (-186, 74), (0, -84), (186, 74)),
         ("box", NIGHT, -146, 60, 292, 260),
         ("box", HONEY, -98, 96, 78, 96, 8), ("box", HONEY, 20, 96, 78, 96, 8),
         ("box", NIGHT, -66, 90, 14, 108), ("box", NIGHT, 52, 90, 14, 108)]
SMOKE = [("oval", CREAM + "@0.85", 96, -104, 26), ("oval", CREAM + "@0.85", 130, -152, 34)]
STARS = [("star", CREAM, -150, -150, 66, 14), ("star", CREAM, -40, -236, 30, 7)]


def sun(c):
    """Half down behind the roof, with blunt rays."""
    for ray in range(RAYS):
        with placed(c, 0, 40, turn=-90 + 180 * (ray + 0.5) / RAYS):
            draw(c, [("poly", "#d2693c@0.8", 6, (-20, -214), (20, -214), (34, -330), (-34, -330))])
    draw(c, [("oval", ("#ffe9a8", "#fbc65a"), 0, 40, 190)])


def emblem(c):
    """Its frame stands out over the upper stripes and down into the band."""
    draw(c, [("oval", BRICK, 0, 0, RADIUS + 54), ("oval", CREAM, 0, 0, RADIUS + 34),
             ("oval", NIGHT, 0, 0, RADIUS + 16), SKY])
    c.save()
    poster.oval(c, 0, 0, RADIUS)
    c.clip()
    sun(c)
    draw(c, HILLS + SMOKE + HOUSE + STARS)
    c.restore()


def fine_print(c):
    """At the sides, where both labels meet."""
    write(c, "BEST BEFORE", SMALL_FONT, 136, 0, 282, BRICK, track=20)
    write(c, "BEDTIME", SMALL_FONT, 222, 0, 464, NIGHT, track=16)
    draw(c, [("star", MUSTARD, 0, 546, 38, 9)])
    draw(c, [("star", MUSTARD, 0, 721, 76, 17)])
    write(c, "0.5 L OF EVENING", SMALL_FONT, 118, 0, 968, BRICK, track=12)


def label(c):
    draw(c, [("box", (CREAM, PAPER, "#efd3a0"), -20, 0, WIDTH + 40, HEIGHT)])
    draw(c, STRIPES)
    draw(c, BAND)
    for seam in (0, WIDTH):
        with placed(c, seam, 0):
            fine_print(c)
    with placed(c, MIDDLE, 330):
        emblem(c)
    draw(c, [("box", MUSTARD, MIDDLE - 506, 580, 1012, 282, 46), ("box", BRICK, MIDDLE - 486, 600, 972, 242, 34)])
    brand(c)


def brand(c):
    with placed(c, MIDDLE, 0):
        write(c, "VESPERAL", BRAND_FONT, 190, 0, 790, CREAM, track=20)
        write(c, "Pils", KIND_FONT, 200, 0, 1008, NIGHT)


# --- the band round the neck, the cap ---

NECK_LOW, NECK_HIGH = 5.86, 6.80
CAP, CAP_SHADE = "#edb03e", "#d0902c"


def neck_band(c):
    left, _, width, _ = beer.NECK_ISLAND
    top, low = (row_of(beer.NECK_ISLAND, beer.UPPER, height) for height in (NECK_HIGH, NECK_LOW))
    tall = low - top
    draw(c, [("box", CREAM, left - 16, top, width + 32, tall), ("box", BRICK, left - 16, top, width + 32, 24),
             ("box", BRICK, left - 16, low - 24, width + 32, 24), ("box", NIGHT, left - 16, top + 64, width + 32,
                                                                  tall - 128)])
    for at, size in ((0.5, 66), (0.0, 36), (1.0, 36)):
        with placed(c, left + at * width, (top + low) / 2):
            c.scale(1.06, 1.0)  # the neck's texels are not quite square
            draw(c, [("star", MUSTARD, 0, 0, size, size * 0.22)])


def cap(c):
    left, top, width, height = beer.SKIRT_ISLAND
    draw(c, [("box", (CAP, CAP, CAP_SHADE), left - 16, top - 16, width + 32, height + 32)])
    left, top, size, _ = beer.TOP_ISLAND
    draw(c, [("box", CAP, left - 16, top - 16, size + 32, size + 32)])
    with placed(c, left + size / 2, top + size / 2):
        draw(c, [("oval", BRICK, 0, 0, 168), ("oval", CREAM, 0, 0, 142), ("oval", BRICK, 0, 0, 126),
                 ("star", CREAM, 0, 0, 112, 25)])
    left, top, size, _ = beer.UNDER_ISLAND
    draw(c, [("box", CAP_SHADE, left - 16, top - 16, size + 32, size + 32)])


def paint():
    surface, c = kit.paper()
    draw(c, [("box", "#2f7a50", 0, 0, kit.SIZE, kit.SIZE)])
    glass(surface, beer.NECK_ISLAND, beer.UPPER)
    glass(surface, beer.BODY_ISLAND, beer.BODY)
    cap(c)
    neck_band(c)
    top = row_of(beer.BODY_ISLAND, beer.BODY, beer.LABEL[1] - 0.055)
    c.rectangle(0, 0, beer.BODY_ISLAND[0] + WIDTH + 16, kit.SIZE)
    c.clip()
    with placed(c, beer.BODY_ISLAND[0], top):
        label(c)
    return surface


if __name__ == "__main__":
    poster.require_fonts(FONTS)
    seen = kit.openness(beer.build, "beer", 1.2)
    kit.save(kit.shaded(paint(), seen), png.beside(__file__), SEED)

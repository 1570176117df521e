"""The picture on the television: tv_emit.png. A test card at sunset, in bold bands that look good torn sideways.

Only the rectangle that the glass covers is lit; the rest is exactly black, because the shader tears what is not.
"""

import cairo
import numpy as np

from kit import bake, png, poster
from kit.poster import draw, glow, placed, write
from models.tv import LIT, SCREEN_SIZE

SIZE = 2048
BLEED = 3  # texels beyond the glass, so that no black is filtered in at its rim
HEIGHT = 1000
WIDTH = HEIGHT * SCREEN_SIZE[0] / SCREEN_SIZE[1]
MIDDLE = WIDTH / 2

STATION_FONT, SIGN_FONT, NEWS_FONT = "Leckerli One", "League Spartan Black", "Yanone Kaffeesatz Bold"
FONTS = {SIGN_FONT: "fonts-league-spartan", STATION_FONT: "fonts-leckerli-one", NEWS_FONT: "fonts-yanone-kaffeesatz"}

NIGHT, CREAM, MUSTARD, BRICK, TEAL, WINE = "#131a3a", "#fff0cf", "#f2b33c", "#d1502f", "#2f8a8c", "#6a2440"
BANDS = ["#16204a", "#223065", "#453a75", "#7c4072", "#b54a58", "#dd6440", "#ee8a3c", "#f6b04c"]  # the sky, downwards
HORIZON = 660
SUN = (MIDDLE, 640, 300)
SLITS = [(468, 6), (512, 9), (556, 12), (601, 15)]  # y and half height
HILLS = [("blob", "#3a2a5c", (-60, 760), (150, 590), (420, 655), (MIDDLE, 640), (870, 655), (1090, 580), (1320, 760),
          (MIDDLE, 900)),
         ("blob", "#241f4a", (-60, 800), (200, 660), (520, 690), (820, 688), (1080, 650), (1330, 800), (MIDDLE, 940))]
STARS = [("star", CREAM, 1010, 110, 52, 8), ("star", CREAM + "@0.85", 1130, 235, 26, 5),
         ("star", CREAM + "@0.8", 140, 250, 26, 5),
         ("star", CREAM + "@0.75", 860, 70, 20, 4)]

# The house stands in a frame of its own, y 0 at its foot.
HOUSE = [("poly", NIGHT, 6, (-150, 0), (-150, -170), (150, -170), (150, 0)),
         ("poly", NIGHT, 12, (-190, -160), (0, -290), (190, -160)),
         ("box", NIGHT, 70, -290, 44, 110, 4), ("box", "#1c244c", -150, -96, 300, 8),
         ("box", MUSTARD, -118, -150, 92, 46, 6), ("box", MUSTARD, 26, -150, 92, 46, 6),
         ("box", "#f7cf74", -118, -74, 138, 56, 6),
         ("box", BRICK, 52, -80, 56, 80, 6), ("oval", MUSTARD, 98, -38, 5), ("box", NIGHT, -76, -150, 8, 46),
         ("box", NIGHT, 68, -150, 8, 46),
         # two heads before the window, watching
         ("oval", NIGHT, -76, -34, 15), ("oval", NIGHT, -26, -34, 15), ("box", NIGHT, -102, -26, 106, 14, 6),
         ("box", NIGHT, -96, -50, 40, 7, 3)]
BARS = [CREAM, MUSTARD, TEAL, "#4e9a5a", "#c85a86", BRICK, "#3a4f9c"]


def sky(c):
    step = HORIZON / len(BANDS)
    draw(c, [("box", colour, -10, k * step, WIDTH + 20, HEIGHT) for k, colour in enumerate(BANDS)])


def sun(c):
    x, y, radius = SUN
    glow(c, x, y, radius * 2.0, MUSTARD, 0.5)
    c.save()
    draw(c, [("within", ("oval", ("#fff3c0", "#ffe07a", "#e8503a", "#b83040", "#b83040"), x, y, radius),
              [("box", BANDS[min(len(BANDS) - 1, int(level / HORIZON * len(BANDS)))], x - radius, level - half,
                2 * radius, 2 * half)
               for level, half in SLITS])])
    c.restore()


def lower_third(c):
    """Colour bars, the sign, and the news under it."""
    top = 752
    each = (WIDTH + 20) / len(BARS)
    draw(c, [("box", colour, -10 + k * each, top, each + 1, 62) for k, colour in enumerate(BARS)])
    draw(c, [("box", ("#1b1236", "#241646"), -10, top + 62, WIDTH + 20, 300),
             ("box", CREAM, -10, top - 8, WIDTH + 20, 8),
             ("box", MUSTARD, -10, top + 176, WIDTH + 20, 90)])
    write(c, "PLEASE STAND BY", SIGN_FONT, 104, MIDDLE, top + 157, CREAM, track=6)
    write(c, "20:00  TROUSERS ARE NOW OPTIONAL", NEWS_FONT, 58, MIDDLE, top + 226, "#241030", track=18)


def station(c):
    write(c, "Vesperal TV", STATION_FONT, 84, 96, 142, CREAM, align=0, contour=(7, "#16204a"))


def vignette(c):
    """A tube is dimmer towards its rim."""
    fill = cairo.RadialGradient(MIDDLE, HEIGHT / 2, HEIGHT * 0.45, MIDDLE, HEIGHT / 2, HEIGHT * 0.86)
    fill.add_color_stop_rgba(0, 0.03, 0.03, 0.1, 0)
    fill.add_color_stop_rgba(1, 0.03, 0.03, 0.1, 0.62)
    c.set_source(fill)
    c.paint()


def picture(texels):
    """The test card, square as the texture stretches it."""
    surface, c = poster.canvas(texels, texels)
    c.scale(texels / WIDTH, texels / HEIGHT)
    sky(c)
    draw(c, STARS)
    sun(c)
    draw(c, HILLS)
    with placed(c, MIDDLE - 250, 752, 1.0):
        draw(c, HOUSE)
    lower_third(c)
    station(c)
    vignette(c)
    return poster.picture(surface)


def main():
    poster.require_fonts(FONTS)
    first, last = (round(edge * SIZE) + over for edge, over in zip(LIT, (-BLEED, BLEED)))
    canvas = np.zeros((SIZE, SIZE, 3), np.uint8)
    card = bake.coarse(poster.add_grain(picture(last - first), 1, cell=poster.FINE))
    canvas[SIZE - last:SIZE - first, first:last] = card
    png.save(canvas, png.beside(__file__))
    print(f"tv_emit: {card.mean():.0f} of 255 on average")


if __name__ == "__main__":
    main()

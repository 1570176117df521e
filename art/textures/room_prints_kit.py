"""What is printed, painted or woven in the room: posters, signs, dial, wallpaper, rug, and the evening in the window.

Each function draws on a surface as wide as 1000, whatever its height, and gives rows from above, 0..255.
"""

import math

from kit import poster
from kit.poster import draw, glow, write

POSTER_FONT, SIGN_FONT = "League Spartan Black", "League Spartan Bold"
FONTS = {POSTER_FONT: "fonts-league-spartan", SIGN_FONT: "fonts-league-spartan"}

CREAM, PAPER, MUSTARD, BRICK, WINE = "#fff0cf", "#f6dfb4", "#efb23e", "#d4512f", "#6e2536"
TEAL, DEEP_TEAL, MIDNIGHT, LEAF, ROSE = "#36888c", "#1f5a68", "#17244a", "#4f8f55", "#d98a7c"


def sheet(height, texels=1000):
    surface, c = poster.canvas(texels, round(texels * height / 1000))
    c.scale(texels / 1000, texels / 1000)
    return surface, c


def arcs(x, y, radii, colours):
    """Discs one on another, the largest first."""
    return [("oval", colour, x, y, radius) for radius, colour in zip(radii, colours)]


def moon():
    """A moon over folded hills."""
    surface, c = sheet(1300)
    draw(c, [("box", PAPER, 0, 0, 1000, 1300),
             ("within", ("box", (MIDNIGHT, "#2a4070", TEAL), 90, 90, 820, 1120, 410),
              [("oval", CREAM, 640, 420, 150), ("oval", "#243c6a", 575, 385, 132),
               ("star", CREAM, 300, 380, 60, 10), ("star", CREAM, 420, 250, 36, 7), ("star", CREAM, 770, 690, 36, 7),
               ("blob", BRICK, (-100, 1500), (60, 850), (330, 720), (600, 850), (1100, 830), (1100, 1500)),
               ("blob", MUSTARD, (-100, 1500), (-50, 1010), (300, 960), (640, 880), (900, 930), (1100, 1500)),
               ("blob", DEEP_TEAL, (-100, 1500), (0, 1080), (420, 1130), (760, 1010), (1100, 1060), (1100, 1500))])])
    return poster.picture(surface)


def burger():
    """A still life, in discs and bars."""
    surface, c = sheet(760)
    draw(c, [("box", DEEP_TEAL, 0, 0, 1000, 760), ("oval", MUSTARD, 500, 390, 330), ("box", WINE, 0, 640, 1000, 120),
             ("within", ("box", BRICK, 230, 180, 540, 400, 0), [("oval", "#e08a3a", 500, 400, 270, 215)]),
             ("box", DEEP_TEAL, 220, 370, 560, 240), ("box", LEAF, 205, 380, 590, 52, 26),
             ("box", "#7a3420", 225, 442, 550, 74, 37),
             ("poly", CREAM, 8, (230, 440), (770, 440), (640, 452), (560, 500), (480, 452)),
             ("box", BRICK, 235, 526, 530, 44, 22), ("box", "#e08a3a", 235, 580, 530, 74, 30)])
    draw(c, [("oval", CREAM, x, y, 20, 11, tilt) for x, y, tilt in ((380, 270, -25), (470, 230, -8), (570, 240, 12),
                                                                    (650, 290, 28), (520, 300, 4), (330, 330, -30))])
    draw(c, [("box", DEEP_TEAL, 806, 250, 58, 392, 20), ("box", LEAF, 790, 380, 90, 262, 22),
             ("box", CREAM, 790, 450, 90, 100, 4),
             ("box", MUSTARD, 806, 238, 58, 30, 8)])
    return poster.picture(surface)


TROUSERS = ("poly", MIDNIGHT, 26, (300, 330), (700, 330), (760, 900), (560, 900), (500, 560), (440, 900), (240, 900))


def trousers():
    """The house's only rule."""
    surface, c = sheet(1300)
    draw(c, [("box", MUSTARD, 0, 0, 1000, 1300), ("oval", CREAM, 500, 600, 400), TROUSERS,
             ("box", "#26356a", 300, 330, 400, 56, 16),
             ("oval", MUSTARD, 500, 358, 16)])
    c.set_line_width(74)
    c.new_path()
    c.arc(500, 600, 400, 0, 2 * math.pi)
    poster.set_paint(c, BRICK)
    c.stroke()
    draw(c, [("line", BRICK, 74, (225, 325), (775, 875))])
    write(c, "AFTER EIGHT", POSTER_FONT, 142, 500, 1200, MIDNIGHT)
    return poster.picture(surface)


def duck():
    """A portrait of the one on the television."""
    surface, c = sheet(1000)
    draw(c, [("box", WINE, 0, 0, 1000, 1000), ("oval", ("#2f6f78", MIDNIGHT), 500, 500, 400, 440),
             ("blob", MUSTARD, (250, 640), (330, 560), (480, 560), (600, 610), (740, 520), (800, 560), (740, 760),
              (520, 840), (330, 800)),
             ("oval", "#f7c64e", 420, 420, 170), ("blob", BRICK, (130, 440), (260, 400), (330, 450), (270, 510),
                                                  (160, 500)),
             ("oval", MIDNIGHT, 370, 380, 26), ("oval", CREAM, 362, 372, 9),
             ("limb", "#d99428", 26, (470, 680), (580, 740), (690, 650))])
    draw(c, [("oval", CREAM, 330 + 34 * k, 575 + 14 * math.sin(k * 1.3), 42, 30) for k in range(9)])
    return poster.picture(surface)


def wc():
    surface, c = sheet(540)
    draw(c, [("box", MIDNIGHT, 0, 0, 1000, 540), ("box", CREAM, 40, 40, 920, 460, 80),
             ("box", MIDNIGHT, 66, 66, 868, 408, 60)])
    write(c, "WC", POSTER_FONT, 360, 500, 400, CREAM, track=30)
    return poster.picture(surface)


def occupied():
    surface, c = sheet(1000)
    draw(c, [("box", CREAM, 0, 0, 1000, 1000), ("oval", BRICK, 500, 500, 430), ("box", CREAM, 250, 440, 500, 120, 20)])
    return poster.picture(surface)


def number():
    surface, c = sheet(654)
    draw(c, [("box", CREAM, 0, 0, 1000, 654)])
    write(c, "TAKE A", SIGN_FONT, 210, 500, 265, MIDNIGHT)
    write(c, "NUMBER", SIGN_FONT, 210, 500, 515, BRICK)
    return poster.picture(surface)


def nameplate():
    surface, c = sheet(128)
    draw(c, [("box", ("#f0cf7a", "#c8963c"), 0, 0, 1000, 128)])
    write(c, "VESPERAL  HOUSE", SIGN_FONT, 84, 500, 94, "#4a2a14", track=160)
    return poster.picture(surface)


def dial():
    """Eight is the hour that counts."""
    surface, c = sheet(1000)
    draw(c, [("box", CREAM, 0, 0, 1000, 1000), ("oval", PAPER, 500, 500, 470), ("oval", CREAM, 500, 500, 300)])
    for hour in range(12):
        angle = math.radians(30 * hour)
        x, y = 500 + 395 * math.sin(angle), 500 - 395 * math.cos(angle)
        if hour == 8:
            draw(c, [("oval", BRICK, x, y, 74)])
            write(c, "8", POSTER_FONT, 110, x, y + 40, CREAM)
        elif hour % 3 == 0:
            write(c, str(hour or 12), POSTER_FONT, 120, x, y + 43, MIDNIGHT)
        else:
            draw(c, [("oval", MIDNIGHT, x, y, 22)])
    return poster.picture(surface)


# The window's evening: y of the roofs' ridges, from left to right, as (x, y, width, height, colour).
ROOFS = [(-40, 520, 240, 300, "#2b3a6c"), (170, 560, 200, 300, "#33406f"), (350, 500, 190, 300, "#26345f"),
         (560, 570, 240, 300, "#303c6c"),
         (780, 530, 270, 300, "#28365f")]
LIT_WINDOWS = [(40, 600), (100, 600), (420, 590), (640, 630), (700, 630), (860, 600), (930, 600)]


def dusk():
    """The evening outside: what the whole show is named after."""
    surface, c = sheet(672)
    draw(c, [("box", ("#2b3d8c", "#3f58a8", "#7d74b4", "#d98a94", "#ffb066", "#ffd48a"), 0, 0, 1000, 640)])
    glow(c, 300, 520, 340, "#ffe6a8", 0.8)
    draw(c, [("star", CREAM, 720, 130, 54, 9), ("star", CREAM, 560, 70, 24, 5), ("star", CREAM, 880, 240, 24, 5),
             ("star", CREAM, 180, 110, 24, 5)])
    for x, y, width, height, colour in ROOFS:
        draw(c, [("box", colour, x + width * 0.62, y - 56, 26, 80, 3),
                 ("poly", colour, 6, (x - 14, y + 60), (x + width / 2, y - 40), (x + width + 14, y + 60)),
                 ("box", colour, x, y + 56, width, height)])
    draw(c, [("box", "#ffcf70", x, y + 16, 26, 32, 3) for x, y in LIT_WINDOWS])
    return poster.picture(surface)


def wallpaper():
    """A tile that repeats: fans in rows, each row half a fan aside, in tones of one colour."""
    surface, c = sheet(1000, 512)
    light, dark = "#6fb0aa", "#559a98"
    for row in range(-1, 6):
        for column in range(-1, 3):
            x, y = 500 * column + 250 * (row % 2), 250 * row + 250
            draw(c, arcs(x, y, (252, 214, 150, 112, 54), (dark, light, dark, light, dark)))
    return poster.picture(surface)


def rug(width, depth):
    """Half a sun sets at each end; a border of three lines. `width` by `depth` in model units, width first."""
    tall = 1000 * depth / width
    surface, c = sheet(tall)
    draw(c, [("box", "#d4522f", 0, 0, 1000, tall), ("box", CREAM, 46, 46, 908, tall - 92, 110),
             ("box", "#26407a", 76, 76, 848, tall - 152, 90)])
    inner = ("box", "#2f7f86", 108, 108, 784, tall - 216, 70)
    suns = []
    for y in (108, tall - 108):
        suns += arcs(500, y, (392, 330, 272, 214, 156, 98), ("#1f5f6c", CREAM, MUSTARD, "#dc5a36", "#8e3040", MUSTARD))
    draw(c, [("within", inner, suns + arcs(500, tall / 2, (150, 118, 78), ("#1f5f6c", MUSTARD, "#dc5a36")))])
    draw(c, [("star", CREAM, x, tall / 2 + y, 52, 12) for x in (230, 770) for y in (-70, 70)])
    return poster.picture(surface)


PRINTS = {"poster_moon": moon, "poster_burger": burger, "poster_trousers": trousers, "poster_duck": duck, "sign_wc": wc,
          "occupied": occupied,
          "sign_number": number, "nameplate": nameplate, "dial": dial}

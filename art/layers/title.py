"""The poster of the show, shown still for its last bars: title.png.

A doll's house cut open at dusk.  The name stands on its roof like a sign; inside, two friends raise a bottle in
front of a television whose sunset has come apart; next door three wait for the toilet.  All places are pixels of the
3840 x 2160 picture; figures and bottles have frames of their own, with the origin between the feet or at the base.
"""

from kit import poster
from kit.poster import draw, glow, placed, write

WIDTH, HEIGHT = 3840, 2160
GRAIN_SEED = 1999

TITLE_FONT = "League Spartan Black"
SCRIPT_FONT = "Leckerli One"
CREDIT_FONT = "League Spartan Bold"
LABEL_FONT = "Yanone Kaffeesatz Bold"
FONTS = {TITLE_FONT: "fonts-league-spartan", CREDIT_FONT: "fonts-league-spartan",
         SCRIPT_FONT: "fonts-leckerli-one", LABEL_FONT: "fonts-yanone-kaffeesatz"}

MIDNIGHT, NIGHT, TEAL = "#101733", "#18264d", "#2f7478"
BOTTLE, BOTTLE_DEEP, LEAF, LEAF_LIT = "#24513f", "#173a31", "#2f6b45", "#5f9448"
CREAM, PAPER, MUSTARD, BRICK, WINE = "#fff0cf", "#f3d9a8", "#e9ae3c", "#b9482f", "#5d2030"
WOOD, WOOD_LIT, WOOD_DEEP = "#8a4f2b", "#c07c40", "#4a2820"
CLAY, CLAY_LIT, CLAY_DEEP = "#b97f58", "#e8b482", "#7d4a3c"

ROOF, CEILING, SKIRTING, FLOOR, GROUND = 640, 735, 1770, 1805, 1980
LEFT, PARTITION, HALL, RIGHT = 250, 2680, 2735, 3590
MIDDLE = 1470  # of the sofa, the television and the toast


# ---------------------------------------------------------------- outdoors

SKY = [("box", (MIDNIGHT, "#172650", "#3a3f6e", "#8f4a5c", "#cf6a44", "#eda350", "#f6c873", "#f6c873", "#f6c873"),
        0, 0, WIDTH, HEIGHT + 300)]

STARS = [("star", CREAM, 3632, 236, 98, 15),
         ("star", PAPER + "@0.9", 132, 350, 48, 9), ("star", PAPER + "@0.8", 3752, 430, 32, 7),
         ("star", PAPER + "@0.7", 84, 170, 30, 7), ("star", PAPER + "@0.7", 222, 520, 28, 7)]

TREES = [("oval", "#7c3f4c", 40, 1790, 260, 210), ("oval", "#7c3f4c", 3830, 1740, 270, 260),
         ("oval", "#3d2c4c", 150, 1900, 190, 170), ("oval", "#3d2c4c", 3700, 1900, 150, 190),
         ("oval", "#26254a", -10, 1960, 170, 240), ("oval", "#26254a", 3860, 1990, 190, 260)]

# ---------------------------------------------------------------- the house

HOUSE = [("box", (PAPER, "#d89a5c"), 200, 690, 3440, 1320, 18),
         ("box", ("#3a6472", "#2e5a6b", "#3f7370"), LEFT, CEILING, PARTITION - LEFT, SKIRTING - CEILING),
         ("box", ("#a44a35", "#b55a3c", "#a8543b"), HALL, CEILING, RIGHT - HALL, SKIRTING - CEILING)]

FLOORS = [("box", ("#6f3f29", "#9a5b32"), LEFT, FLOOR, PARTITION - LEFT, GROUND - FLOOR),
          ("box", ("#5b3a3c", "#7d4a3c"), HALL, FLOOR, RIGHT - HALL, GROUND - FLOOR),
          ("box", ("#efcf96", "#b98552"), LEFT, SKIRTING, PARTITION - LEFT, FLOOR - SKIRTING),
          ("box", ("#d9a06c", "#9a6243"), HALL, SKIRTING, RIGHT - HALL, FLOOR - SKIRTING)]

PLINTH = [("box", (BOTTLE, "#14302f", "#0f2230"), -20, GROUND, WIDTH + 40, 220),
          ("box", "#3f7a52", -20, GROUND, WIDTH + 40, 14),
          ("box", MIDNIGHT, -20, 2112, WIDTH + 40, 60)]

ROOF_SLAB = [("box", WINE, 130, ROOF + 14, 3580, 106, 26),
             ("box", (WOOD_LIT, WOOD), 130, ROOF, 3580, 92, 26),
             ("box", "#e3a865", 150, ROOF + 8, 3540, 14, 7)]


def wallpaper(c):
    """Broad stripes left, rows of half moons right: quiet enough to stay behind everything."""
    draw(c, [("box", "#ffffff@0.045", x, CEILING, 70, SKIRTING - CEILING) for x in range(LEFT + 40, PARTITION, 140)])
    c.save()
    poster.box(c, HALL, CEILING, RIGHT - HALL, SKIRTING - CEILING)
    c.clip()
    for row, y in enumerate(range(CEILING + 60, SKIRTING + 100, 120)):
        for x in range(HALL + 10 + 70 * (row % 2), RIGHT + 70, 140):
            draw(c, [("within", ("box", "#000000@0", x - 70, y - 70, 140, 70), [("oval", "#ffd59a@0.10", x, y, 52)])])
    c.restore()


def floor_boards(c):
    """Board seams running to one point behind the television, so that the narrow floor has depth."""
    for x in range(-600, 4600, 210):
        near = MIDDLE + (x - MIDDLE) * 1.22
        if LEFT <= x < PARTITION and LEFT < near < PARTITION:
            draw(c, [("line", WOOD_DEEP + "@0.45", 8, (x, FLOOR + 4), (near, GROUND))])


# ---------------------------------------------------------------- window, lamp, plant

WINDOW = [("box", WOOD_DEEP + "@0.5", 2118, 908, 484, 560, 30),
          ("box", (PAPER, "#d2a56c"), 2110, 890, 484, 560, 30),
          ("within", ("box", (NIGHT, "#3a3f6e", "#b9584c", "#f0a552"), 2144, 924, 416, 492, 12),
           [("oval", CREAM, 2424, 1040, 50), ("oval", "#242f60", 2402, 1028, 46),
            ("star", CREAM, 2262, 1024, 44, 8),
            ("blob", "#4d2f52", (2100, 1440), (2140, 1330), (2230, 1290), (2330, 1350), (2440, 1320), (2580, 1370),
             (2600, 1460)),
            ("poly", "#26254a", 8, (2208, 1430), (2208, 1330), (2264, 1276), (2320, 1330), (2320, 1430)),
            ("box", "#ffc65c", 2246, 1340, 36, 44, 6)]),
          ("box", (PAPER, "#d2a56c"), 2340, 924, 24, 492), ("box", "#e5bd84", 2144, 1150, 416, 24),
          ("box", WOOD_DEEP + "@0.4", 2086, 1456, 532, 40, 16), ("box", CREAM, 2080, 1440, 544, 40, 16)]

CURTAIN = [("poly", ("#f0bd55", "#c9822f"), 30, (-30, 0), (150, 0), (140, 260), (88, 420), (120, 660), (-30, 660)),
           ("poly", "#a9622b@0.6", 20, (40, 30), (66, 30), (62, 330), (50, 410), (42, 330)),
           ("poly", "#a9622b@0.6", 20, (96, 30), (120, 30), (112, 250), (76, 410), (90, 250)),
           ("poly", "#a9622b@0.5", 16, (30, 440), (52, 440), (64, 640), (22, 640)),
           ("box", BRICK, -24, 404, 118, 34, 17)]
CURTAIN_ROD = [("line", WOOD_DEEP, 26, (2040, 858), (2650, 858)), ("line", WOOD_LIT, 14, (2040, 853), (2650, 853)),
               ("oval", MUSTARD, 2036, 857, 24), ("oval", MUSTARD, 2654, 857, 24)]


def window(c):
    """The dusk once more, small, between mustard curtains; hung low enough to clear the script."""
    with placed(c, -6, 66):
        draw(c, WINDOW)
        with placed(c, 2070, 860):
            draw(c, CURTAIN)
        with placed(c, 2634, 860, mirror=True):
            draw(c, CURTAIN)
        draw(c, CURTAIN_ROD)


LAMP = [("line", WOOD_DEEP, 22, (770, 1150), (770, 1890)), ("box", WOOD_DEEP, 680, 1870, 180, 44, 22),
        ("oval", CREAM, 770, 1158, 150, 24),
        ("poly", ("#fff3c4", "#ffd778", "#f4a83f"), 30, (676, 900), (864, 900), (936, 1160), (604, 1160)),
        ("poly", "#ffffff@0.25", 14, (700, 918), (752, 918), (716, 1142), (640, 1142)),
        ("box", BRICK, 598, 1136, 344, 30, 15), ("box", BRICK, 668, 890, 204, 24, 12)]

POT = [("oval", "#000000@0.28", 450, 1944, 190, 22),
       ("within", ("poly", (0, "#d86b3c", BRICK, "#7d2f2c"), 30, (300, 1640), (590, 1640), (552, 1945), (338, 1945)),
        [("box", PAPER, 280, 1764, 340, 30), ("box", MUSTARD, 280, 1812, 340, 18)]),
       ("box", (0, "#e88a50", "#c4552f", "#8b3830"), 280, 1600, 330, 84, 26), ("oval", WOOD_DEEP, 445, 1604, 140, 16)]

# one leaf a row: length, width, degrees from upright, where it leaves the soil, colour, colour of the lit half
LEAVES = [(700, 150, -24, 430, BOTTLE, LEAF), (780, 160, 3, 445, BOTTLE, LEAF),
          (560, 150, 33, 455, BOTTLE_DEEP, LEAF),
          (480, 140, -47, 425, BOTTLE_DEEP, BOTTLE), (600, 160, -9, 440, LEAF, LEAF_LIT),
          (520, 160, 21, 450, LEAF, LEAF_LIT), (380, 140, 48, 460, BOTTLE, LEAF),
          (350, 130, -30, 430, LEAF, LEAF_LIT)]


def plant(c):
    """Big rubber-plant leaves, each in a dark and a lit half along its rib."""
    for length, width, turn, x, dark, lit in LEAVES:
        with placed(c, x, 1620, turn=turn):
            tip = (0, -length)
            outline = ("blob", dark, (0, -40), (-width * .5, -length * .5), (-width * .42, -length * .75), tip,
                       (width * .42, -length * .75), (width * .5, -length * .5))
            draw(c, [("line", BOTTLE_DEEP, 22, (0, 0), (0, -length * .4)),
                     ("within", outline, [("box", lit, 0, -length - 40, width, length + 40)]),
                     ("line", BOTTLE_DEEP + "@0.7", 9, (0, -40), (0, -length * .9))])
    draw(c, POT)


# ---------------------------------------------------------------- television

SIDEBOARD = [("box", ("#a9683a", "#6f3f29"), 930, 1490, 1080, 210, 26), ("box", WOOD_LIT, 930, 1490, 1080, 26, 13)]

TELEVISION = [("line", WOOD_DEEP, 16, (1450, 880), (1270, 770)),
              ("line", WOOD_DEEP, 16, (1490, 880), (1524, 796), (1552, 850)),
              ("oval", MUSTARD, 1270, 770, 22), ("oval", MUSTARD, 1552, 850, 22),
              ("oval", WOOD_DEEP, MIDDLE, 884, 90, 44),
              ("box", WOOD_DEEP, 1004, 872, 932, 630, 86),
              ("box", (WOOD_LIT, "#a4612f", WOOD), 1014, 872, 912, 606, 80),
              ("box", "#2b1b2a", 1070, 922, 800, 456, 96),
              ("oval", MUSTARD, 1150, 1428, 30), ("oval", MUSTARD, 1240, 1428, 30),
              ("box", WOOD_DEEP, 1640, 1408, 210, 12, 6),
              ("box", WOOD_DEEP, 1640, 1434, 210, 12, 6)]

SCREEN = ("box", ("#bfe6cf", "#fff3cf", "#ffd489"), 1094, 944, 752, 412, 80)
SUNSET = [("oval", ("#ffc648", "#f2742f", "#d23c34"), MIDDLE, 1150, 186),
          ("box", TEAL, 1000, 1262, 940, 120), ("box", "#ffe2a0", 1380, 1286, 180, 14, 7),
          ("box", "#ffe2a0", 1410, 1318, 120, 14, 7)]

# the tearing: strips of the screen from y, so high, moved so far aside
TEARS = [(944, 70, 0), (1014, 42, -96), (1056, 52, 22), (1108, 30, 132), (1138, 60, -20), (1198, 36, -128),
         (1234, 28, 64), (1262, 44, 0), (1306, 50, -50)]


def screen(c):
    """A sunset with its strips out of step: the set is broken, and still the best window in the house."""
    draw(c, [SCREEN])
    c.save()
    poster.box(c, *SCREEN[2:])
    c.clip()
    for y, height, shift in TEARS:
        c.save()
        poster.box(c, 1000, y, 940, height)
        c.clip()
        for colour_shift, alpha in ((1.35, 0.45), (1.0, 1.0)):
            c.push_group()
            with placed(c, shift * colour_shift, 0):
                draw(c, SUNSET)
            c.pop_group_to_source()
            c.paint_with_alpha(alpha)
        c.restore()
    draw(c, [("box", "#fff8e0@0.55", 1080, y - 4, 800, 8) for y, _, shift in TEARS if shift])
    c.restore()


# ---------------------------------------------------------------- beer and burgers

BEER = [("blob", (0, "#7a3f1d", "#b96a22", "#5f2d1a"), (-44, 0), (-46, -60), (-46, -150), (-40, -186), (-20, -226),
         (-17, -300), (-15, -318),
         (15, -318), (17, -300), (20, -226), (40, -186), (46, -150), (46, -60), (44, 0), (0, 4)),
        ("box", MUSTARD, -21, -326, 42, 34, 8), ("box", "#ffd089@0.55", -36, -170, 12, 60, 6),
        ("box", CREAM, -46, -144, 92, 96, 8), ("box", BRICK, -46, -124, 92, 36), ("star", MUSTARD, 0, -72, 22, 5)]

CRATE = [("box", "#000000@0.3", 2362, 1936, 310, 34, 17),
         ("box", WOOD_DEEP, 2374, 1740, 284, 60),
         ("box", ("#c9573a", BRICK, "#7d2f2c"), 2362, 1760, 308, 192, 20), ("box", "#e27a4c", 2362, 1760, 308, 18, 9)]


def crate(c):
    """Unlimited supply, with the brand on its side."""
    for x in (2424, 2516, 2608):
        with placed(c, x, 1880):
            draw(c, BEER)
    draw(c, CRATE)
    write(c, "VESPERAL", LABEL_FONT, 86, 2516, 1858, CREAM, track=20)
    write(c, "PILS", LABEL_FONT, 82, 2516, 1932, MUSTARD, track=130)


BURGER_BOX = [("poly", (CREAM, "#e8c38c"), 16, (-150, -70), (150, -70), (128, 0), (-128, 0)),
              ("poly", ("#fff8e2", PAPER), 24, (-118, -142), (118, -142), (152, -62), (-152, -62)),
              ("box", BRICK, -154, -76, 308, 18, 9)]


def burgers(c):
    """A short tower of boxes on the arm of the sofa; the upper one not quite straight."""
    for x, y, turn in ((716, 1700, 0), (700, 1560, -4)):
        with placed(c, x, y, turn=turn):
            draw(c, BURGER_BOX)
            write(c, "STACK & CO.", LABEL_FONT, 62, 0, -84, BRICK, track=10)


# ---------------------------------------------------------------- the two on the sofa

SOFA = [("poly", WOOD_DEEP, 8, (700, 1900), (760, 1900), (744, 1985), (716, 1985)),
        ("poly", WOOD_DEEP, 8, (2180, 1900), (2240, 1900), (2224, 1985), (2196, 1985)),
        ("box", (LEAF, BOTTLE, BOTTLE_DEEP), 700, 1640, 1540, 292, 60), ("box", "#6fae6c", 760, 1640, 1424, 22, 11),
        *(("box", BOTTLE_DEEP + "@0.6", x, 1686, 236, 254, 84) for x in (598, 2106)),
        *(("box", ("#57935c", LEAF, BOTTLE, BOTTLE_DEEP), x, 1690, 216, 250, 80) for x in (600, 2124)),
        *(("oval", BOTTLE_DEEP + "@0.45", x, 1800, 58) for x in (708, 2232)),
        *(("oval", MUSTARD, x, 1800, 17) for x in (708, 2232)),
        ("line", BOTTLE_DEEP, 12, (MIDDLE, 1668), (MIDDLE, 1926))]
BLANKET = [("poly", BOTTLE_DEEP + "@0.6", 16, (1694, 1640), (1934, 1640), (1956, 1850), (1714, 1866)),
           ("within", ("poly", ("#d8623c", BRICK, "#8f3630"), 16, (1690, 1620), (1926, 1620), (1944, 1838),
                       (1704, 1852)),
            [("box", CREAM, 1660, 1700, 320, 26), ("box", MUSTARD, 1660, 1740, 320, 40),
             ("box", CREAM, 1660, 1794, 320, 16)]),
           *(("line", CREAM, 15, (1722 + 41 * i, 1846 - 2 * i), (1720 + 42 * i, 1876 - 2 * i)) for i in range(6))]
TUFTS = [("oval", BOTTLE_DEEP, x, y, 17)
         for x, y in ((985, 1740), (1310, 1740), (1147, 1840), (1590, 1740), (2030, 1740))]

# Both sit with their backs to us and turn their heads to each other; drawn facing right, origin on the sofa's edge.
BACK = ((-235, 60), (-230, -50), (-176, -128), (-70, -158), (70, -158), (165, -132), (215, -50), (230, 60), (0, 90))
HEAD = [("blob", (0, CLAY_DEEP, CLAY, CLAY_LIT), (-128, -326), (-100, -426), (0, -466), (98, -436), (128, -356),
         (176, -308), (134, -288), (124, -236), (60, -196), (-50, -206), (-112, -252)),
        ("limb", CLAY_DEEP, 12, (116, -252), (96, -247), (72, -266))]
EAR = [("oval", CLAY_LIT, -22, -316, 30, 40), ("oval", CLAY_DEEP, -18, -314, 17, 25)]
HAT = [("blob", WOOD_DEEP, (-134, -400), (-134, -310), (-104, -240), (-66, -232), (-60, -300), (-40, -370),
        (0, -400)), *EAR,
       ("blob", (0, WINE, BRICK, "#d5603a"), (-134, -416), (-126, -526), (-70, -586), (0, -566), (60, -592),
        (124, -526), (134, -422), (0, -398)),
       ("poly", MIDNIGHT, 10, (-136, -466), (134, -472), (138, -412), (-138, -406)),
       ("blob", (0, WINE, BRICK, "#e0703f"), (-232, -398), (-150, -430), (0, -424), (150, -434), (244, -418),
        (150, -376), (0, -372), (-150, -370))]
HAIR = [*EAR, ("blob", (0, MIDNIGHT, "#2a2348", "#4a3150"), (-146, -316), (-152, -416), (-90, -494), (20, -510),
               (112, -466),
               (128, -404), (60, -404), (0, -384), (-40, -366), (-62, -310), (-66, -240), (-100, -226), (-134, -256)),
        ("oval", (0, MIDNIGHT, "#2a2348", "#4a3150"), -96, -520, 74, 68),
        ("line", MUSTARD, 14, (-108, -464), (-46, -490))]
FAR_LENS = [("oval", CREAM, 168, -342, 30, 46), ("oval", "#ffc766", 172, -342, 15, 29)]
GLASSES = [("line", CREAM, 16, (-14, -346), (60, -342)), ("oval", CREAM, 96, -340, 50, 52),
           ("oval", (0, "#f7a94a", "#ffd98a"), 96, -340, 34, 36), ("line", CREAM, 14, (140, -352), (158, -352))]
FINGERS = [("line", CLAY_LIT, 36, (362, -122 - 33 * i), (424, -138 - 33 * i)) for i in range(3)]

CLINK = [("star", "#ffffff", MIDDLE, 1206, 96, 16)]

# for each of the two: the jumper, its shade, its arm; what lies behind the head and what upon it
FRIENDS = (((0, "#7f4a2b", "#c98a2f", MUSTARD), "#a8692a", (0, "#d2962f", MUSTARD, MUSTARD), [], HAT),
           ((0, "#12303f", "#235a66", "#3f8b88"), "#1d4a58", (0, "#2d7079", "#3f8b88", "#3f8b88"), FAR_LENS,
            HAIR + GLASSES))


def friend(c, which):
    """0 is the one with the hat, 1 the one with the glasses: the same pose, mirrored."""
    jumper, shade, sleeve, behind, upon = FRIENDS[which]
    x = MIDDLE + (470 if which else -470)
    with placed(c, x, 1640, mirror=bool(which)):
        draw(c, [("limb", CLAY_DEEP, 112, (0, -110), (4, -240)), ("blob", jumper, *BACK),
                 ("limb", shade, 36, (-68, -150), (0, -132), (68, -150)), *behind, *HEAD, *upon])
        with placed(c, 392, -90, 0.98, turn=14):
            draw(c, BEER)
        draw(c, [("limb", sleeve, 104, (172, -40), (290, -16), (364, -110)),
                 ("limb", shade, 11, (226, 10), (196, -34), (150, -62)),
                 ("line", shade, 30, (330, -138), (410, -96)), *FINGERS])


# ---------------------------------------------------------------- the queue

DOOR = [("box", WOOD_DEEP, 3226, 1000, 338, 830, 24), ("box", (PAPER, "#cf9a62"), 3234, 1008, 322, 820, 20),
        ("box", ("#2f7478", "#205260"), 3266, 1042, 258, 770, 10),
        ("box", "#1b4655", 3304, 1420, 182, 320, 18),
        ("oval", "#ffd778", 3358, 1180, 46), ("oval", "#ffd778", 3432, 1180, 46),
        ("poly", "#ffd778", 12, (3317, 1200), (3395, 1160), (3473, 1200), (3395, 1300)),
        ("oval", MUSTARD, 3494, 1380, 24), ("box", WOOD_DEEP, 3210, 1800, 364, 34, 10)]
SIGN = [("box", WOOD_DEEP, 3290, 836, 212, 128, 30), ("box", ("#ffe08a", "#f3b347"), 3298, 842, 196, 112, 26)]

RAYS = ((0, -128), (90, -90), (128, 0), (90, 90), (0, 128), (-90, 90), (-128, 0), (-90, -90))
CLOCK = [("line", MUSTARD, 18, (3084, 1008), (3084 + dx, 1008 + dy)) for dx, dy in RAYS] + [
         ("oval", WOOD_DEEP, 3084, 1008, 92), ("oval", CREAM, 3084, 1008, 76),
         ("line", WOOD_DEEP, 14, (3084, 1008), (3087, 956)), ("line", BRICK, 16, (3084, 1008), (3052, 1029)),
         ("oval", WOOD_DEEP, 3084, 1008, 14)]

# Someone in the queue, 760 high, looking right: one of LEGS, TORSO, one of HAIRS, one of ARMS.  A name in braces
# is a colour that QUEUE gives to each of them.
LEGS = {"crossed": [("limb", CLAY_DEEP, 62, (-34, -300), (6, -180), (44, -30)),
                    ("limb", CLAY, 62, (36, -300), (14, -180), (-34, -30)),
                    ("box", "{shoe}", -78, -34, 94, 36, 18), ("box", "{shoe}", 26, -34, 94, 36, 18)],
        "knees": [("limb", CLAY_DEEP, 62, (-40, -300), (2, -160), (-50, -30)),
                  ("limb", CLAY, 62, (40, -300), (22, -160), (44, -30)),
                  ("box", "{shoe}", -88, -34, 94, 36, 18), ("box", "{shoe}", 14, -34, 94, 36, 18)],
        "tiptoe": [("limb", CLAY_DEEP, 62, (-36, -300), (-40, -170), (-44, -44)),
                   ("limb", CLAY, 62, (36, -300), (52, -170), (36, -44)),
                   ("poly", "{shoe}", 14, (-80, -60), (-20, -50), (36, -14), (28, 2), (-20, 0)),
                   ("poly", "{shoe}", 14, (0, -60), (60, -50), (116, -14), (108, 2), (60, 0))]}

PANTS = ("poly", "{pants}", 26, (-86, -390), (86, -390), (94, -250), (8, -240), (0, -270), (-8, -240), (-94, -250))
DOTS = [("oval", "{dots}", x, y, 12)
        for x, y in ((-62, -330), (-24, -290), (14, -330), (52, -290), (80, -336), (-72, -268))]
TORSO = [("within", PANTS, DOTS),
         ("blob", "{top}", (-96, -370), (-98, -480), (-66, -560), (0, -580), (66, -560), (98, -480), (96, -370),
          (0, -352)),
         ("limb", CLAY_DEEP, 56, (0, -560), (4, -610)),
         ("blob", (0, CLAY, CLAY_LIT), (-84, -650), (-66, -722), (0, -752), (64, -728), (84, -680), (116, -648),
          (88, -632), (80, -598), (36, -572), (-40, -580), (-76, -606)),
         ("oval", CLAY_LIT, -16, -656, 21, 28), ("oval", CLAY_DEEP, -13, -655, 11, 17),
         ("limb", CLAY_DEEP, 9, (82, -604), (66, -608), (52, -602))]
HAIRS = {"cap": [("blob", "{hair}", (-92, -672), (-84, -744), (0, -786), (80, -746), (92, -690), (140, -684),
                  (134, -666), (0, -680))],
         "bob": [("blob", "{hair}", (-106, -600), (-108, -700), (-50, -778), (40, -782), (90, -726), (40, -706),
                  (6, -680), (-20, -640), (-30, -580), (-70, -560))],
         "tuft": [("blob", "{hair}", (-92, -640), (-92, -720), (-40, -772), (0, -764), (40, -800), (60, -750),
                   (84, -722), (20, -706), (-30, -690), (-50, -640))]}
ARMS = {"hold": [("limb", "{sleeve}", 58, (-50, -510), (-60, -420), (30, -390)), ("oval", CLAY_LIT, 44, -388, 32)],
        "hip": [("limb", "{sleeve}", 58, (-40, -510), (-120, -440), (-60, -372)), ("oval", CLAY_LIT, -52, -368, 30)],
        "knock": [("limb", "{sleeve}", 58, (20, -510), (90, -440), (150, -510)), ("oval", CLAY_LIT, 160, -536, 32)]}
# where, how tall, what of each kind, and the colours
QUEUE = [(2884, 1945, 0.98, "knees", "tuft", "hip",
          {"top": ("#3f8b88", "#235a66"), "sleeve": "#2f7478", "pants": CREAM, "dots": BRICK,
           "hair": WOOD_DEEP, "shoe": MIDNIGHT}),
         (3036, 1962, 0.84, "crossed", "bob", "hold",
          {"top": ("#f6c65c", "#d08f2f"), "sleeve": MUSTARD, "pants": "#d9e6d0", "dots": "#d9e6d0",
           "hair": MIDNIGHT, "shoe": BRICK}),
         (3222, 1950, 1.0, "tiptoe", "cap", "knock",
          {"top": ("#f3e2bd", "#cfa878"), "sleeve": PAPER, "pants": "#3f7fa0", "dots": CREAM,
           "hair": BOTTLE, "shoe": MIDNIGHT})]


def dressed(rows, clothes):
    """The rows with the names in braces replaced by this figure's colours."""
    def dress(part):
        if isinstance(part, str) and part.startswith("{"):
            return clothes[part[1:-1]]
        if isinstance(part, tuple):
            return tuple(dress(inner) for inner in part)
        return dressed(part, clothes) if isinstance(part, list) else part
    return [dress(row) for row in rows]


def queue(c):
    """Three in their underwear, in order of urgency."""
    draw(c, [("oval", "#000000@0.28", x, y, 120 * size, 20) for x, y, size, *_ in QUEUE])
    for x, y, size, legs, hair, arm, clothes in QUEUE:
        with placed(c, x, y, size):
            draw(c, dressed(LEGS[legs] + TORSO + HAIRS[hair] + ARMS[arm], clothes))


def hall(c):
    """The door, the sign over it and the clock, which says eight."""
    draw(c, CLOCK + DOOR + SIGN)
    write(c, "WC", TITLE_FONT, 88, 3396, 930, WINE)


# ---------------------------------------------------------------- type

TITLE_SIZE = 736
CAPS = 0.7      # height of the title's capitals in its size
DEPTH = 34      # how thick the letters are, seen from the left
ROUNDING = 20   # width of the rim that takes the edge off their corners


def name_sign(c):
    """The name in thick letters on the edge of the roof, lit from below by the house."""
    letters, width = poster.optical_line("VESPERAL", TITLE_FONT, TITLE_SIZE, CAPS * TITLE_SIZE, air=88, least=62)
    c.save()
    c.translate((WIDTH - width - DEPTH) / 2, ROOF - ROUNDING / 2)
    c.set_line_width(ROUNDING)
    sides = [(dx, WINE) for dx in range(DEPTH, 0, -2)]
    for dx, paint in sides + [(0, ("#fff6dc", "#ffe9b4", "#f7bd57"))]:
        letters_path(c, letters, dx)
        poster.set_paint(c, paint)
        c.fill_preserve()
        c.stroke()
    c.restore()


def letters_path(c, letters, dx):
    """Make the letters' outlines the current path, moved by dx."""
    c.new_path()
    for path, x in letters:
        c.save()
        c.translate(x + dx, 0)
        c.append_path(path)
        c.restore()


def lines(c):
    """The script hangs from the roof; the credit is cut into the plinth."""
    with placed(c, 2520, 832, turn=-4):
        write(c, "an evening in", SCRIPT_FONT, 310, 0, 0, ("#ffe07a", "#fbbb45", "#ee8d2e"),
              word_gap=-120, contour=(32, MIDNIGHT))
    write(c, "MUSIC, CODE AND GRAPHICS: VESPERAL", CREDIT_FONT, 84, WIDTH / 2, 2073, PAPER, track=150)


# ---------------------------------------------------------------- the picture

def outdoors(c):
    """The evening star keeps to the empty corner over the foot of the L."""
    draw(c, SKY)
    glow(c, 3632, 236, 300, "#9fb8e0", 0.35)
    draw(c, STARS)
    draw(c, TREES)


def living_room(c):
    """Back to front; the light of lamp and screen goes on the wall before anyone stands in it."""
    window(c)
    glow(c, 770, 1040, 900, "#ffb54a", 0.85)
    draw(c, LAMP)
    glow(c, MIDDLE, 1160, 1000, "#9fe0cf", 0.5)
    draw(c, SIDEBOARD + TELEVISION)
    screen(c)
    plant(c)
    draw(c, [("oval", "#000000@0.35", MIDDLE, 1966, 900, 26)])
    for which in (0, 1):
        friend(c, which)
    draw(c, SOFA + TUFTS + BLANKET)
    burgers(c)
    crate(c)


def light(c):
    """What is in the air: haze round the lamp and the screen, and the spark of the toast."""
    glow(c, 770, 1040, 620, "#ff9f3a", 0.30)
    glow(c, MIDDLE, 1150, 620, "#ffd9a0", 0.28)
    glow(c, MIDDLE, 1206, 170, "#fff3d0", 0.45)
    glow(c, 3395, 1210, 420, "#ffb84f", 0.5)
    draw(c, CLINK)


def inside(c, x0, x1, paint):
    """Paint with everything clipped to one room."""
    c.save()
    poster.box(c, x0, CEILING, x1 - x0, GROUND - CEILING)
    c.clip()
    paint(c)
    c.restore()


def paint():
    """The whole picture, as an array of pixels."""
    surface, c = poster.canvas(WIDTH, HEIGHT)
    outdoors(c)
    draw(c, HOUSE)
    wallpaper(c)
    draw(c, FLOORS)
    floor_boards(c)
    inside(c, LEFT, PARTITION, living_room)
    inside(c, HALL, RIGHT, lambda c: (hall(c), queue(c)))
    inside(c, LEFT, RIGHT, light)
    draw(c, PLINTH)
    draw(c, ROOF_SLAB)
    name_sign(c)
    lines(c)
    return poster.add_grain(poster.picture(surface), GRAIN_SEED)


if __name__ == "__main__":
    poster.main(FONTS, paint)

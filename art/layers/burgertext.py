"""The three lines beside the burger, a mask: burgertext.png.

The burger keeps the middle.  STACK IT stands on its left; on its right the letters of HIGHER climb.  The whole
sways by 108 rows: what lies between rows 410 and 1740 stays in the picture.
"""

from kit import poster
from layers import lettering_kit as lettering
from layers.lettering_kit import Line

WIDTH, HEIGHT = 3840, 2160

FONT = "Bebas Neue Bold"
FONTS = {FONT: "fonts-bebas-neue"}

STACK, IT, HIGHER = (Line(text, FONT, air=104, least=92) for text in ("STACK", "IT", "HIGHER"))

TOP, BOTTOM = 430, 1722   # of the letters, without the rounding
LEFT, RIGHT = 130, 3710
MEASURE, CLIMB = 1290, 1410  # widths of the columns
GAP = 84
ROUNDING = 12             # takes the edge off corners, and makes the letters fatter


def letters_path(c):
    """Make the outlines of all three lines the current path."""
    stack = STACK.height(MEASURE)
    lettering.add_line(c, STACK, (LEFT, TOP, MEASURE, stack))
    it = BOTTOM - TOP - stack - GAP
    lettering.add_line(c, IT, (LEFT, BOTTOM - it, it * IT.width / IT.cap, it))
    higher = HIGHER.height(CLIMB)
    step = (BOTTOM - TOP - higher) / (len(HIGHER.letters) - 1)
    lettering.add_line(c, HIGHER, (RIGHT - CLIMB, BOTTOM - higher, CLIMB, higher), rise=step)


def paint():
    """White letters on black."""
    return lettering.white_letters(WIDTH, HEIGHT, letters_path, ROUNDING)


if __name__ == "__main__":
    poster.main(FONTS, paint)

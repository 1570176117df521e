"""The line for the toilet, a mask: queue_main.png.

It hangs left and right of the bowl like the sign of an office, with an arrow that leaves no doubt.  The wobble
stretches all places from the upper left corner by up to a twenty-fifth: what lies between rows 310 and 1770 and between
columns 165 and 3620 stays in the picture, and does not come round to its right edge.
"""

from kit import poster
from layers import lettering_kit as lettering
from layers.lettering_kit import Line

WIDTH, HEIGHT = 3840, 2160

FONT = "Bebas Neue Bold"
FONTS = {FONT: "fonts-bebas-neue"}

THE, QUEUE, STARTS, HERE = (Line(text, FONT, air=104, least=92) for text in ("THE", "QUEUE", "STARTS", "HERE"))

TOP, BOTTOM = 356, 1710   # of the letters, without the rounding
LEFT, LEFT_MEASURE = 184, 1120
RIGHT, RIGHT_MEASURE = 2490, 1120
GAP = 84
ROUNDING = 12             # takes the edge off corners, and makes the letters fatter
SHAFT, BARB = 100, 300    # of the arrow: thickness of its shaft, length of its head


def column(c, lines, x, measure, stretch=1.0):
    """Add lines of one measure, one below the other, and a little taller; returns where the next would start."""
    y = TOP
    for line in lines:
        height = line.height(measure) * stretch
        lettering.add_line(c, line, (x, y, measure, height))
        y += height + GAP
    return y


def stretch_to_fill(lines, measure):
    """How much taller such a column must be to reach from top to bottom."""
    return (BOTTOM - TOP - GAP * (len(lines) - 1)) / sum(line.height(measure) for line in lines)


def arrow(c, x, y, width, height):
    """Add an arrow to the left that fills the box."""
    middle, half = y + height / 2, SHAFT / 2
    points = ((x, middle), (x + BARB, y), (x + BARB, middle - half), (x + width, middle - half),
              (x + width, middle + half), (x + BARB, middle + half), (x + BARB, y + height))
    for point in points:
        c.line_to(*point)
    c.close_path()


def letters_path(c):
    """Make all outlines the current path."""
    left = (THE, QUEUE)
    column(c, left, LEFT, LEFT_MEASURE, stretch_to_fill(left, LEFT_MEASURE))
    below = column(c, (STARTS, HERE), RIGHT, RIGHT_MEASURE)
    c.new_sub_path()
    arrow(c, RIGHT, below, RIGHT_MEASURE, BOTTOM - below)


def paint():
    """White letters on black."""
    return lettering.white_letters(WIDTH, HEIGHT, letters_path, ROUNDING)


if __name__ == "__main__":
    poster.main(FONTS, paint)

"""The outline of queue_main, a mask that fits around it: queue_border.png."""

import cairo

from kit import poster
from layers import lettering_kit as lettering
from layers.queue_main import FONTS, HEIGHT, ROUNDING, WIDTH, letters_path

BORDER = 16  # its width


def paint():
    """The letters grown by the border, with the letters themselves taken out."""
    surface, c = lettering.empty(WIDTH, HEIGHT)
    for operator, radius in ((cairo.OPERATOR_OVER, ROUNDING + BORDER), (cairo.OPERATOR_CLEAR, ROUNDING)):
        c.set_operator(operator)
        letters_path(c)
        lettering.swell(c, radius)
    return lettering.mask(surface)


if __name__ == "__main__":
    poster.main(FONTS, paint)

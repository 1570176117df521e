"""What the layers of text share: lines set to a measure, faces with depth, and hard edges on pure black.

Pure black is what a scene's shader leaves out, and it tests the filtered texture.  So a texel is either exactly
black or a colour well above it: edges are cut at half coverage and keep their full colour.
"""
from dataclasses import dataclass, field

import cairo
import numpy as np

from kit import poster

FLOOR = (8, 4, 8)  # the darkest a texel may be that is not empty; below it the compressed texture may turn black


# ---------------------------------------------------------------- lines

@dataclass
class Line:
    """Capitals on one baseline: words are spaced by eye, then apart by a gap.

    air, least and word_gap are in thousandths of the size, as in poster.optical_line.
    """
    text: str
    font: str
    air: float = 70
    least: float = 40
    word_gap: float = 300
    letters: list = field(init=False, default_factory=list)
    width: float = field(init=False, default=0)
    cap: float = field(init=False)

    SIZE = 1000

    def __post_init__(self):
        self.cap = cap_height(self.font, self.SIZE)
        for word in self.text.split():
            if self.letters:
                self.width += self.word_gap * self.SIZE / 1000
            letters, width = poster.optical_line(word, self.font, self.SIZE, self.cap, self.air, self.least)
            self.letters += [(path, self.width + x) for path, x in letters]
            self.width += width

    def height(self, width):
        """How high the capitals are when the line is as wide as this."""
        return width * self.cap / self.width


def cap_height(font, size):
    """The height of a flat capital."""
    path, _ = poster.text_path("H", font, size)
    c = cairo.Context(cairo.RecordingSurface(cairo.CONTENT_ALPHA, None))
    c.append_path(path)
    return -c.path_extents()[1]


def add_line(c, line, box, rise=0):
    """Add the line's outlines to the current path, filling the box (x, y, width, height) from baseline to cap height.

    Round letters stand out above and below by their overshoot.  Each letter sits `rise` higher than the one before;
    the box is that of the first.
    """
    x, y, width, height = box
    for i, (path, offset) in enumerate(line.letters):
        c.save()
        c.translate(x, y + height - i * rise)
        c.scale(width / line.width, height / line.cap)
        c.translate(offset, 0)
        c.append_path(path)
        c.restore()


def swell(c, radius):
    """Fill the current path in the current colour with its corners rounded, grown by the radius."""
    c.set_line_width(2 * radius)
    c.fill_preserve()
    c.stroke()


# ---------------------------------------------------------------- canvas and finish

def empty(width, height):
    """A surface on which nothing is painted, and a context on it that joins lines roundly."""
    surface, c = poster.canvas(width, height, opaque=False)
    c.set_source_rgb(1, 1, 1)
    return surface, c


def painted(surface):
    """The surface's colours, as if each painted pixel were covered wholly, and where at least half of it is."""
    surface.flush()
    height, width = surface.get_height(), surface.get_width()
    pixels = np.frombuffer(surface.get_data(), np.uint8).reshape(height, surface.get_stride() // 4, 4)[:, :width]
    alpha = pixels[..., 3:].astype(np.float32)
    colours = pixels[..., 2::-1] * (255 / np.maximum(alpha, 1))
    return colours.clip(0, 255).astype(np.uint8), alpha[..., 0] >= 128


def mask(surface):
    """White where the surface is painted, for shaders that have colours of their own."""
    _, ink = painted(surface)
    return np.repeat((ink * np.uint8(255))[..., None], 3, axis=2)


def white_letters(width, height, letters_path, rounding):
    """A mask of the letters whose outlines `letters_path(c)` makes the current path, grown by the rounding."""
    surface, c = empty(width, height)
    letters_path(c)
    swell(c, rounding)
    return mask(surface)


def coloured(surface, grain_seed):
    """The surface's own colours on black, with grain against bands in gradients."""
    colours, ink = painted(surface)
    grainy = np.maximum(poster.add_grain(colours, grain_seed), np.uint8(FLOOR))
    return grainy * ink[..., None]

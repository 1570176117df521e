"""A small drawing kit for the show's posters: shapes as data, type as outlines, light, grain.

A poster is drawn from tables.  One row is one shape: (kind, paint, numbers...), see SHAPES below.
A paint is '#rrggbb', or '#rrggbb@0.4' with an opacity, or a tuple of those: a gradient from the top
of the shape to its bottom (or along an angle in degrees, if the first entry is a number).
"""
import math
import os
import sys
from contextlib import contextmanager

try:
    import cairo
    import gi
    import numpy as np

    from kit import png

    gi.require_version("Pango", "1.0")
    gi.require_version("PangoCairo", "1.0")
    from gi.repository import Pango, PangoCairo
except (ImportError, ValueError) as missing:
    sys.exit(f"{os.path.basename(sys.argv[0])}: a Python module that draws the poster is missing: {missing} "
             "(packages python3-gi, python3-gi-cairo, gir1.2-pango-1.0, python3-numpy, python3-pil)")


class PosterError(Exception):
    """Something outside the program is wrong; the text says what, in one sentence."""


# ---------------------------------------------------------------- paint

def rgba(text):
    """'#rrggbb' or '#rrggbb@opacity' as four numbers from 0 to 1."""
    code, _, opacity = text.partition("@")
    red, green, blue = (int(code[i:i + 2], 16) / 255 for i in (1, 3, 5))
    return red, green, blue, float(opacity or 1)


def gradient(paint, box):
    """A linear gradient over the box (x0, y0, x1, y1), evenly spaced stops, downwards unless an angle leads."""
    angle, stops = (paint[0], paint[1:]) if isinstance(paint[0], (int, float)) else (90, paint)
    x0, y0, x1, y1 = box
    dx, dy = math.cos(math.radians(angle)), math.sin(math.radians(angle))
    reach = (abs(dx) * (x1 - x0) + abs(dy) * (y1 - y0)) / 2
    cx, cy = (x0 + x1) / 2, (y0 + y1) / 2
    fill = cairo.LinearGradient(cx - dx * reach, cy - dy * reach, cx + dx * reach, cy + dy * reach)
    for i, stop in enumerate(stops):
        fill.add_color_stop_rgba(i / (len(stops) - 1), *rgba(stop))
    return fill


def set_paint(c, paint):
    """Make the paint current; a gradient spans the current path."""
    if isinstance(paint, str):
        c.set_source_rgba(*rgba(paint))
    else:
        c.set_source(gradient(paint, c.path_extents()))


def glow(c, x, y, radius, colour, strength, operator=cairo.OPERATOR_SCREEN, squash=1.0):
    """A pool of light: falls off as a bell, so that it has no visible rim.  squash < 1 flattens it."""
    red, green, blue, _ = rgba(colour)
    fill = cairo.RadialGradient(0, 0, 0, 0, 0, radius)
    for i in range(17):
        t = i / 16
        fill.add_color_stop_rgba(t, red, green, blue, strength * (1 - t * t) ** 2.5)
    c.save()
    c.translate(x, y)
    c.scale(1, squash)
    c.set_operator(operator)
    c.set_source(fill)
    c.paint()
    c.restore()


# ---------------------------------------------------------------- paths

def box(c, x, y, w, h, r=0):
    """A rectangle with round corners."""
    r = min(r, w / 2, h / 2)
    c.new_sub_path()
    for cx, cy, turn in ((x + w - r, y + r, -90), (x + w - r, y + h - r, 0), (x + r, y + h - r, 90),
                         (x + r, y + r, 180)):
        c.arc(cx, cy, r, math.radians(turn), math.radians(turn + 90))
    c.close_path()


def oval(c, cx, cy, rx, ry=None, tilt=0):
    """An ellipse, tilted by degrees; a circle if only one radius is given."""
    c.save()
    c.translate(cx, cy)
    c.rotate(math.radians(tilt))
    c.scale(rx, ry or rx)
    c.new_sub_path()
    c.arc(0, 0, 1, 0, 2 * math.pi)
    c.close_path()
    c.restore()


def poly(c, radius, *points):
    """A polygon with its corners rounded: the arc touches both edges, and shrinks where an edge is short."""
    n = len(points)
    for i, (x, y) in enumerate(points):
        before, after = points[i - 1], points[(i + 1) % n]
        to_before = math.hypot(before[0] - x, before[1] - y)
        to_after = math.hypot(after[0] - x, after[1] - y)
        cut = min(radius, to_before / 2, to_after / 2)
        enter = (x + (before[0] - x) * cut / to_before, y + (before[1] - y) * cut / to_before)
        leave = (x + (after[0] - x) * cut / to_after, y + (after[1] - y) * cut / to_after)
        (c.line_to if i else c.move_to)(*enter)
        c.curve_to(*((enter[k] + 2 * (x, y)[k]) / 3 for k in (0, 1)),
                   *((leave[k] + 2 * (x, y)[k]) / 3 for k in (0, 1)), *leave)
    c.close_path()


def spline(c, points, closed):
    """A smooth curve through the points (Catmull-Rom)."""
    n = len(points)
    at = (lambda i: points[i % n]) if closed else (lambda i: points[max(0, min(n - 1, i))])
    c.move_to(*points[0])
    for i in range(n if closed else n - 1):
        p, q, r, s = at(i - 1), at(i), at(i + 1), at(i + 2)
        c.curve_to(q[0] + (r[0] - p[0]) / 6, q[1] + (r[1] - p[1]) / 6,
                   r[0] - (s[0] - q[0]) / 6, r[1] - (s[1] - q[1]) / 6, *r)
    if closed:
        c.close_path()


def blob(c, *points):
    """A closed soft outline through the points."""
    spline(c, points, True)


def star(c, cx, cy, reach, waist):
    """A four-pointed star with hollow sides: the evening star."""
    for i in range(4):
        tip = math.radians(90 * i - 90)
        nook = tip + math.radians(45)
        (c.line_to if i else c.move_to)(cx + reach * math.cos(tip), cy + reach * math.sin(tip))
        dent = (cx + waist * math.cos(nook), cy + waist * math.sin(nook))
        end = tip + math.radians(90)
        c.curve_to(*dent, *dent, cx + reach * math.cos(end), cy + reach * math.sin(end))
    c.close_path()


SHAPES = {"box": box, "oval": oval, "poly": poly, "blob": blob, "star": star}


def draw(c, table):
    """Draw rows in order.  Besides the filled SHAPES there are three kinds with a meaning of their own:

    ("line", paint, width, (x, y), ...)    a round stroke, straight from point to point
    ("limb", paint, width, (x, y), ...)    the same along a smooth curve
    ("within", row, [rows])                a shape, and rows that may not leave it
    """
    for kind, paint, *numbers in table:
        c.new_path()
        if kind == "within":
            draw_within(c, paint, numbers[0])
        elif kind in ("line", "limb"):
            stroke(c, paint, numbers[0], numbers[1:], smooth=kind == "limb")
        else:
            SHAPES[kind](c, *numbers)
            set_paint(c, paint)
            c.fill()


def draw_within(c, outer, rows):
    """Draw the outer shape, then the rows clipped to it."""
    draw(c, [outer])
    kind, _, *numbers = outer
    c.save()
    SHAPES[kind](c, *numbers)
    c.clip()
    draw(c, rows)
    c.restore()


def stroke(c, paint, width, points, smooth=False):
    """A round line of the given width."""
    if smooth:
        spline(c, points, False)
    else:
        for point in points:
            c.line_to(*point)
    c.set_line_width(width)
    c.set_line_cap(cairo.LINE_CAP_ROUND)
    set_paint(c, paint)
    c.stroke()


@contextmanager
def placed(c, x, y, size=1.0, turn=0, mirror=False):
    """Draw inside with the origin moved to (x, y), scaled, turned by degrees and perhaps mirrored."""
    c.save()
    c.translate(x, y)
    c.rotate(math.radians(turn))
    c.scale(-size if mirror else size, size)
    yield c
    c.restore()


# ---------------------------------------------------------------- type

def require_fonts(fonts):
    """Refuse to start where a font is missing: Pango would quietly set the line in another one.

    fonts: {Pango font name: package that has it}.  Family and weight are both compared.
    """
    context = PangoCairo.FontMap.get_default().create_context()
    for name, package in fonts.items():
        wanted = Pango.FontDescription(name)
        loaded = context.load_font(wanted)
        got = loaded.describe() if loaded else None
        if got:
            got.unset_fields(Pango.FontMask.SIZE)
        if got is None or got.get_family() != wanted.get_family() or got.get_weight() != wanted.get_weight():
            instead = f"Pango would use {got.to_string()!r} instead" if got else "Pango finds none like it"
            raise PosterError(f"the font {name!r} is not installed (package {package}); {instead}")


def text_path(text, font, size, track=0, word_gap=0):
    """The outlines of a kerned line, ink starting at x = 0, baseline at y = 0.  Returns (path, ink width).

    size is in pixels; track is added after each letter and word_gap to each space, in thousandths of the size.
    The outlines come from a context of their own: Pango leaves out lines that the clip of the picture would hide.
    """
    c = cairo.Context(cairo.RecordingSurface(cairo.CONTENT_ALPHA, None))
    layout = PangoCairo.create_layout(c)
    description = Pango.FontDescription(font)
    description.set_absolute_size(size * Pango.SCALE)
    layout.set_font_description(description)
    layout.set_text(text, -1)
    layout.set_attributes(letter_spacing(text, size, track, word_gap))
    baseline = layout.get_baseline() / Pango.SCALE
    PangoCairo.layout_path(c, layout)
    left, _, right, _ = c.path_extents()
    c.new_path()
    c.move_to(-left, -baseline)
    PangoCairo.layout_path(c, layout)
    return c.copy_path(), right - left


def letter_spacing(text, size, track, word_gap):
    """Pango's attributes for text_path: one for the line, and one for each space in it."""
    attributes = Pango.AttrList()
    attributes.insert(Pango.attr_letter_spacing_new(int(track * size / 1000 * Pango.SCALE)))
    for i, letter in enumerate(text):
        if letter == " " and word_gap:
            wider = Pango.attr_letter_spacing_new(int((track + word_gap) * size / 1000 * Pango.SCALE))
            wider.start_index = len(text[:i].encode())
            wider.end_index = wider.start_index + 1
            attributes.change(wider)
    return attributes


def write(c, text, font, size, x, y, paint, track=0, word_gap=0, align=0.5, contour=None):
    """Set one line: align 0, 0.5 or 1 puts the left, the middle or the right of the ink at x.

    contour: (width, paint) of a rim around the letters.
    """
    path, width = text_path(text, font, size, track, word_gap)
    c.save()
    c.translate(x - align * width, y)
    c.new_path()
    c.append_path(path)
    if contour:
        set_paint(c, contour[1])
        c.set_line_width(2 * contour[0])
        c.stroke_preserve()
    set_paint(c, paint)
    c.fill()
    c.restore()
    return width


def side_profiles(path, width, height):
    """For each of 40 slices from baseline to height: the empty space left and right of the ink."""
    scale = 200 / height
    surface = cairo.ImageSurface(cairo.FORMAT_A8, math.ceil(width * scale) + 2, 200)
    c = cairo.Context(surface)
    c.translate(0, 200)
    c.scale(scale, scale)
    c.append_path(path)
    c.fill()
    ink = np.frombuffer(surface.get_data(), np.uint8).reshape(200, -1)[:, :math.ceil(width * scale)] > 127
    ink = ink.reshape(40, 5, -1).any(axis=1)
    empty = ~ink.any(axis=1)
    left = np.where(empty, np.inf, ink.argmax(axis=1)) / scale
    right = np.where(empty, np.inf, ink[:, ::-1].argmax(axis=1)) / scale
    return left, right


def optical_line(text, font, size, cap_height, air, least):
    """Set capitals so that the white between neighbours has the same area, as a signwriter does by eye.

    air is the mean gap over the height of the capitals and least the nearest two letters may come, both in
    thousandths of the size.  White deeper than a sixth of the size is not felt as a gap and does not count.
    Returns [(path, x), ...] and the width of the line.
    """
    deepest = size / 6
    letters, pen, before = [], 0.0, None
    for letter in text:
        path, width = text_path(letter, font, size)
        left, right = side_profiles(path, width, cap_height)
        if before is not None:
            white = np.minimum(before, deepest) + np.minimum(left, deepest)
            pen += max(air * size / 1000 - white.mean(), least * size / 1000 - (before + left).min())
        letters.append((path, pen))
        pen += width
        before = right
    return letters, pen


# ---------------------------------------------------------------- start and finish

def canvas(width, height, opaque=True):
    """A surface, black or else empty, and a context on it that joins lines roundly."""
    surface = cairo.ImageSurface(cairo.FORMAT_RGB24 if opaque else cairo.FORMAT_ARGB32, width, height)
    c = cairo.Context(surface)
    c.set_antialias(cairo.ANTIALIAS_BEST)
    c.set_line_join(cairo.LINE_JOIN_ROUND)
    return surface, c


def picture(surface):
    """The surface as a height x width x 3 array of 8-bit colours; it must be opaque."""
    height, width = surface.get_height(), surface.get_width()
    surface.flush()
    pixels = np.frombuffer(surface.get_data(), np.uint8).reshape(height, surface.get_stride() // 4, 4)
    return pixels[:, :width, 2::-1].copy()


FINE = 2  # side of a cell of grain on the textures of models; lettering and poster have coarser grain and smaller files


def add_grain(pixels, seed, step=3, cell=3):
    """Grain in brightness alone, against bands in gradients.

    Three levels (-step, 0, +step) in square cells: a deviation of 0.8 steps that survives 2:1 minification
    and still lets the file be compressed.
    """
    height, width = pixels.shape[:2]
    random = np.random.default_rng(seed)
    coarse = random.integers(-1, 2, (-(-height // cell), -(-width // cell)), np.int16) * step
    fine = coarse.repeat(cell, 0).repeat(cell, 1)[:height, :width]
    return (pixels + fine[..., None]).clip(0, 255).astype(np.uint8)


def main(fonts, paint):
    """The command line of a script that draws one picture: SCRIPT [OUT.png]; beside the script, if nothing is said."""
    script, *others = sys.argv
    name = os.path.basename(script)
    if len(others) > 1 or any(argument.startswith("-") for argument in others):
        print(f"usage: {name} [OUT.png]", file=sys.stderr)
        sys.exit(2)
    out = others[0] if others else png.beside(script)
    try:
        require_fonts(fonts)
        png.save(paint(), out)
    except PosterError as error:
        sys.exit(f"{name}: {error}")
    except OSError as error:
        sys.exit(f"{name}: cannot write {out}: {error.strerror or error}")

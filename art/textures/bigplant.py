"""The picture of the big plant's leaves and stems: bigplant.png. Pure black is cut out, so nothing else is black.

Painted texel by texel in numpy, each leaf in its own patch: veins, two tones between them, and the light that does not
reach the foot of the leaf.
"""

import numpy as np

from kit import bake, png
from kit.leaves import LEAVES, SIZE, STEM

DARKEST = 12  # of a leaf's texel, so that no encoder makes it black
GRAIN = 1.2

# Colours as on the screen, 0..255: (old leaf, young leaf).
DEEP = ((58, 116, 66), (104, 152, 64))
MIDDLE = ((98, 170, 82), (150, 194, 80))
BRIGHT = ((146, 210, 104), (196, 222, 108))
VEIN = ((190, 228, 144), (226, 236, 154))
RIM = ((80, 144, 72), (130, 174, 72))
STEM_COLOURS = ((80, 112, 56), (124, 160, 72), (166, 188, 94))


def blend(a, b, amount):
    return a + (b - a) * amount[..., None]


def step(low, high, values):
    """0 below, 1 above, smooth between."""
    t = np.clip((values - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def box_blur(values, radius, rounds=2):
    for _ in range(rounds):
        for axis in (0, 1):
            padded = np.pad(values, [(radius + 1, radius) if a == axis else (0, 0) for a in (0, 1)], mode="edge")
            total = np.cumsum(padded, axis=axis, dtype=np.float64)
            ahead = np.take(total, np.arange(2 * radius + 1, total.shape[axis]), axis=axis)
            behind = np.take(total, np.arange(0, total.shape[axis] - 2 * radius - 1), axis=axis)
            values = (ahead - behind) / (2 * radius + 1)
    return values


def clouds(shape, cell, generator):
    """Soft noise, about -1..1, in lumps of `cell` texels."""
    rows, columns = (length // cell + 3 for length in shape)
    coarse = generator.uniform(-1, 1, (rows, columns))
    y, x = (np.arange(length) / cell for length in shape)
    j, i = y.astype(int), x.astype(int)
    v, u = step(0, 1, y - j)[:, None], step(0, 1, x - i)[None]
    upper = coarse[j][:, i] * (1 - u) + coarse[j][:, i + 1] * u
    lower = coarse[j + 1][:, i] * (1 - u) + coarse[j + 1][:, i + 1] * u
    return upper * (1 - v) + lower * v


class Canvas:
    """One patch, and where in the leaf each of its texels lies: `s` -1..1 across, `t` 0..1 from foot to tip."""

    def __init__(self, patch):
        self.patch = patch
        y, x = np.mgrid[0:patch.height, 0:patch.width].astype(np.float32)
        self.s = (x + 0.5) / patch.width * 2 - 1
        self.t = 1 - (y + 0.5) / patch.height
        self.texel = 2 / patch.width  # in s
        self.shape = self.s.shape

    def place(self, picture, colours, inside):
        patch = self.patch
        view = picture[patch.top:patch.top + patch.height, patch.left:patch.left + patch.width]
        view[inside] = np.maximum(np.rint(colours[inside]), DARKEST)


def side_veins(canvas, leaf):
    """The running number of the side veins, which leave the middle rib and bend to the tip; and how many there are."""
    count = leaf.slits + 2 if leaf.slits else 8
    height = canvas.patch.height / canvas.patch.width
    run = canvas.t - (0.34 / height) * np.abs(canvas.s) ** 1.25 * (0.75 + 0.45 * canvas.t)
    ease = run + 0.10 * np.sin(np.pi * np.clip(run, 0, 1))  # closer together towards the tip
    return ease * count, count


def paint_leaf(picture, leaf, generator):
    canvas = Canvas(leaf.patch)
    s, t = canvas.s, canvas.t
    widths = np.interp(t[:, 0], *np.array([(k / 400, leaf.half_width(k / 400)) for k in range(401)]).T)[:, None]
    share = np.abs(s) / np.maximum(widths, 1e-3)  # 1 at the rim
    inside = (share < 1) & (widths > 0.035)
    if leaf.foot:  # the notch, its lobes round
        inside &= t > leaf.foot * 0.9 * np.sqrt(np.clip(1 - (s / 0.3) ** 2, 0, 1)) * (np.abs(s) > 0.03)

    number, count = side_veins(canvas, leaf)
    nearest = np.abs(number - np.rint(number))  # 0 on a vein, 0.5 half way between two
    if leaf.slits:
        inside &= ~slits(canvas, leaf, share, number, count)

    soft = box_blur(inside.astype(np.float64), max(4, canvas.patch.width // 70))
    rim = 1 - step(0.5, 0.98, soft)
    colour = {name: np.array(old) + (np.array(young) - np.array(old)) * leaf.light
              for name, (old, young) in {"deep": DEEP, "middle": MIDDLE, "bright": BRIGHT, "vein": VEIN,
                                         "rim": RIM}.items()}
    puff = step(0.04, 0.42, nearest)  # the flesh between two veins rises
    upper = step(-0.16, 0.16, number - np.rint(number)) * step(0.0, 0.1, nearest)  # towards the tip it is in light
    mottle = clouds(canvas.shape, 120, generator) * 0.6 + clouds(canvas.shape, 41, generator) * 0.4
    tone = 0.34 + 0.30 * upper * puff + 0.16 * (1 - share) + 0.14 * mottle
    flesh = blend(np.broadcast_to(colour["deep"], (*canvas.shape, 3)), colour["middle"], np.clip(2 * tone, 0, 1))
    flesh = blend(flesh, colour["bright"], np.clip(2 * tone - 1, 0, 1))
    flesh = blend(flesh, colour["rim"], 0.8 * rim)

    wide = 0.028 * (1.25 - 0.9 * t) * (556 / canvas.patch.width) ** 0.6
    rib = np.exp(-(s / wide) ** 2)
    groove = np.exp(-((np.abs(s) - 2.4 * wide) / (1.2 * wide)) ** 2)
    vein = np.exp(-(nearest / (0.05 * (1.3 - 0.7 * np.clip(share, 0, 1)))) ** 2) * (1 - 0.75 * np.clip(share, 0, 1))
    flesh = blend(flesh, colour["deep"], 0.35 * groove * (1 - rim))
    flesh = blend(flesh, colour["vein"], np.clip(0.62 * vein * step(0.03, 0.12, t) + 0.9 * rib, 0, 0.95))

    shade = 0.62 + 0.38 * step(-0.02, 0.30, t + 0.12 * share)  # the foot of the leaf lies in the shade of the others
    flesh = flesh * (shade * (0.97 + 0.03 * mottle))[..., None] + generator.normal(0, GRAIN, canvas.shape)[..., None]
    canvas.place(picture, flesh, inside)


def slits(canvas, leaf, share, number, count):
    """Cuts from the rim, half way between two veins, widening outwards, with round inner ends; and eyelets between."""
    cell = np.floor(number)
    between = number - cell - 0.5
    left = canvas.s < 0
    # No two of them reach equally deep.
    depth = leaf.depth + 0.16 * np.sin(cell * 2.3 + np.where(left, 1.0, 0.0)) * (1 - leaf.depth)
    reach = (share - depth) / (1 - depth)
    opening = 0.055 + 0.12 * np.clip(reach, 0, 1) ** 1.4 + 0.14 * np.clip((reach - 0.72) / 0.28, 0, 1) ** 3.5
    cut = (np.abs(between) < opening * np.sqrt(np.clip(reach * 9, 0, 1))) & (reach > 0)
    cut &= (cell >= 1) & (cell <= count - 2)
    holes = (between / 0.17) ** 2 + ((share - 0.5 * depth - 0.03) / 0.075) ** 2 < 1
    holes &= (cell >= 2) & (cell <= count - 3) & (np.mod(cell + left, 2) == 0)
    return cut | holes


def paint_stem(picture, generator):
    canvas = Canvas(STEM)
    dark, middle, light = (np.array(colour, float) for colour in STEM_COLOURS)
    round_about = canvas.s * np.pi / 2
    along = canvas.t + 0.02 * clouds(canvas.shape, 60, generator)
    flesh = blend(np.broadcast_to(dark, (*canvas.shape, 3)), middle, step(0.0, 0.5, along))
    flesh = blend(flesh, light, 0.7 * step(0.35, 1.0, along))
    stripes = clouds((1, canvas.shape[1]), 22, generator) * 0.10 + 0.05 * np.cos(2 * round_about)
    knots = np.exp(-(np.mod(canvas.t * 5 + 0.2, 1) - 0.5) ** 2 / 0.0018) * (1 - canvas.t)
    shade = (0.45 + 0.55 * step(0.0, 0.22, canvas.t)) * (1 + stripes) * (1 - 0.25 * knots)
    flesh = flesh * shade[..., None] + generator.normal(0, GRAIN, canvas.shape)[..., None]
    canvas.place(picture, flesh, np.ones(canvas.shape, bool))


def main():
    picture = np.zeros((SIZE, SIZE, 3), np.float64)
    generator = np.random.default_rng(7)
    for leaf in LEAVES.values():
        paint_leaf(picture, leaf, generator)
    paint_stem(picture, generator)
    coarse = np.rint(np.clip(picture, 0, 252) / bake.STEP) * bake.STEP  # the steps that the encoder keeps
    png.save(coarse.astype(np.uint8), png.beside(__file__))
    print(f"bigplant: {(picture.any(axis=-1)).mean():.0%} of the picture is leaf")


if __name__ == "__main__":
    main()

"""What printed things have in common: drawn from above in texels, then shaded by the light that their shape lets in."""

import bpy
import cairo
import numpy as np

from kit import bake, model, png, poster

SIZE = 2048
BAKED = SIZE // 4  # shade is smooth, and speckle costs time
WARMTH = np.array((0.92, 1.0, 1.06))  # shade keeps more red than blue


def paper():
    """An opaque surface as large as a texture, and a context on it."""
    return poster.canvas(SIZE, SIZE)


def openness(build, name, reach, samples=32):
    """How much of the sky each texel of a model sees, 0..1, rows from above; what is beyond `reach` hides nothing."""
    target = model.make(build, name)
    target.data.materials.append(bpy.data.materials.new("white"))
    bake.sky((1, 1, 1), 1.0)
    bpy.context.scene.world.light_settings.distance = reach
    seen = soften(bake.bake(target, "AO", BAKED, samples, margin=6)[::-1])
    return np.clip(bake.resize(seen, SIZE)[..., 0], 0, 1)


def soften(values):
    """Takes the speckle of few samples away: a bell over five texels each way."""
    bell = np.array((1, 4, 6, 4, 1)) / 16
    for axis in (0, 1):
        values = sum(weight * np.roll(values, shift - 2, axis) for shift, weight in enumerate(bell))
    return values


def shaded(surface, seen, depth=1.0, floor=0.12):
    """The drawing as 0..255, darkened where little of the sky is seen."""
    light = np.maximum(seen, floor)[..., None] ** (depth * WARMTH)
    return poster.picture(surface) * light


def across(line, colours):
    """Colours over positions: `line` are positions, `colours` as many rows of '#rrggbb'; gives a function."""
    table = np.array([poster.rgba(colour)[:3] for colour in colours]) * 255
    return lambda at: np.stack([np.interp(at, line, table[:, k]) for k in range(3)], -1)


def lay(surface, left, top, pixels):
    """Puts 8-bit colours, rows from above, onto a surface."""
    height, width = pixels.shape[:2]
    opaque = np.full((height, width, 4), 255, np.uint8)
    opaque[..., 2::-1] = np.clip(np.rint(pixels), 0, 255)
    image = cairo.ImageSurface.create_for_data(np.ascontiguousarray(opaque), cairo.FORMAT_RGB24, width, height)
    c = cairo.Context(surface)
    c.set_source_surface(image, left, top)
    c.paint()


def save(pixels, path, seed):
    """Writes the texture with grain, nothing black, crushed."""
    grained = poster.add_grain(np.clip(np.rint(pixels), 0, 255).astype(np.int16), seed, cell=poster.FINE)
    png.save(bake.coarse(grained), path)

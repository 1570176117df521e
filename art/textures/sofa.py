"""The sofa's cloth: sofa_diff.png and sofa_norm.png.

Brick red weave with cream piping, a mustard pillow with the evening star on it and a teal one with stripes, a patch of
gingham, and somebody's good trousers. The light of an open sky, and what the cloth throws on itself, are painted in.
"""

import bpy
import numpy as np

from kit import bake, model, parts, png, shapes, uv
from kit.paint import Paint, flat
from models import sofa

SIZE, LIGHT_SIZE, LIGHT_SAMPLES = 2048, 1024, 96
EXPOSURE, OPEN = 0.92, 75  # per cent of the texels that are darker than cloth in the open, whose light is 1
FLOOR = -0.2

# The weave is drawn straight into the texture, where all cloth lies upright. Its period is a multiple of the four
# texels of a compressed block: at half of it the compression makes blots of it.
PERIOD = 16
THREAD_HEIGHT = 0.009  # in model units
FOLD_HEIGHT = 0.08
THREAD_TONE, FADING = 0.10, 0.30

# part: (colour, how much of the weave it shows, how much of the folds)
CLOTH = {
    "frame": ("#a6442a", 1.0, 0.7),
    "seat": ("#b54f30", 1.0, 1.0),
    "back": ("#b54f30", 1.0, 1.0),
    "frame piping": ("#d8b384", 0.3, 0.0),
    "seat piping": ("#d8b384", 0.3, 0.0),
    "back piping": ("#d8b384", 0.3, 0.0),
    "mustard piping": ("#8a3a26", 0.3, 0.0),
    "teal piping": ("#d8b384", 0.3, 0.0),
    "mustard back": ("#c98f2c", 0.0, 0.0),
    "teal back": ("#2a7074", 0.0, 0.0),
    "lining": ("#202a45", 0.0, 0.0),
}
PLAIN = {"button": "#8f3f2a", "odd button": "#2f7f82", "thread": "#efdfbd"}


def weave():
    """(height, tone) of a plain weave, 0..1: threads go over and under each other, and no two are quite alike."""
    random = np.random.default_rng(7)
    at = np.arange(SIZE)
    number, along = at // PERIOD, (at % PERIOD + 0.5) / PERIOD
    round_, bow = np.sqrt(1 - 0.92 * (2 * along - 1) ** 2), np.cos((along - 0.5) * np.pi)
    upright = np.outer(0.35 + 0.65 * bow, round_)
    level = upright.T
    over = (number[:, None] + number[None, :]) % 2 == 0
    shades = random.normal(0, 1, (2, number[-1] + 1))
    shade = np.where(over, shades[0][number][None, :], shades[1][number][:, None])
    height = np.where(over, upright, level) * (1 + 0.05 * shade)
    return np.clip(height, 0, 1.2) / 1.2, np.clip(0.5 + 0.17 * shade, 0, 1)


def weave_image():
    height, tone = weave()
    image = bpy.data.images.new("weave", SIZE, SIZE, float_buffer=True)
    image.colorspace_settings.name = "Non-Color"
    pixels = np.stack([height, tone, height, np.ones_like(height)], -1).astype(np.float32)
    image.pixels.foreach_set(pixels.ravel())
    return image


def spread(made, value, amount):
    """A value of 0..1 as a factor around 1."""
    return made.math("ADD", made.math("MULTIPLY", value, amount), 1 - amount / 2)


def cloth(part, colour, threads, folds, picture=None):
    """`picture(made)` gives the colour where it is not the same everywhere."""
    made = Paint(part)
    woven = made.node("TexImage", image=bpy.data.images["weave"])
    height, tone = (made.node("SeparateXYZ", {0: woven}, output=axis) for axis in "XY")
    faded = made.noise(made.place(0.6, 0.6, 0.6), 1.0, 3.0)
    shade = made.math("MULTIPLY", spread(made, height, 1.6 * THREAD_TONE * threads), spread(made, faded, FADING))
    shade = made.math("MULTIPLY", shade, spread(made, tone, THREAD_TONE * threads))
    colour = made.mix(1.0, picture(made) if picture else colour, shade, "MULTIPLY")
    creases = made.noise(made.place(1.1, 1.1, 1.1), 1.0, 2.0, 0.45, 1.2)
    relief = made.math("ADD", made.math("MULTIPLY", height, THREAD_HEIGHT * threads),
                       made.math("MULTIPLY", creases, FOLD_HEIGHT * folds))
    made.finish(colour, relief, relief=1.0)


def panel(target, part):
    """(left, bottom, width, height) of a part in the texture."""
    layer = target.data.uv_layers[0].data
    faces = parts.faces_of(target, part)
    corners = np.array([layer[loop].uv for face in faces for loop in target.data.polygons[face].loop_indices])
    return *corners.min(axis=0), *(corners.max(axis=0) - corners.min(axis=0))


def on_panel(made, where):
    """(u, v) of -1..1 on a part that has the place `where` in the texture."""
    left, bottom, width, height = where
    flat_at = made.node("TexCoord", output="UV")
    middle = made.node("VectorMath", {0: flat_at, 1: (left + width / 2, bottom + height / 2, 0)}, operation="SUBTRACT")
    at = made.node("VectorMath", {0: middle, 1: (2 / width, 2 / height, 0)}, operation="MULTIPLY")
    return tuple(made.node("SeparateXYZ", {0: at}, output=axis) for axis in "XY")


def between(made, value, low, high, soft=0.012):
    """1 where a value is between two others."""
    up = made.node("MapRange", {"Value": value, "From Min": low - soft, "From Max": low + soft})
    down = made.node("MapRange", {"Value": value, "From Min": high - soft, "From Max": high + soft,
                                  "To Min": 1.0, "To Max": 0.0})
    return made.math("MULTIPLY", up, down)


def evening_star(where):
    """A star of eight rays, four of them long: sqrt(|u|) + sqrt(|v|) is constant on its outline."""
    def picture(made):
        u, v = on_panel(made, where)
        size_u, size_v = (made.math("ABSOLUTE", value) for value in (u, v))
        roots = made.math("ADD", made.math("SQRT", size_u), made.math("SQRT", size_v))
        long_rays = between(made, roots, -1.0, 0.84)
        turned = [made.math("ABSOLUTE", made.math(kind, u, v)) for kind in ("ADD", "SUBTRACT")]
        roots = made.math("ADD", made.math("SQRT", turned[0]), made.math("SQRT", turned[1]))
        short_rays = between(made, roots, -1.0, 0.82)
        star = made.math("MAXIMUM", long_rays, short_rays)
        edge = between(made, made.math("MAXIMUM", size_u, size_v), 0.78, 0.86)
        return made.mix(edge, made.mix(star, "#cf952f", "#f3e3bd"), "#a8462b")
    return picture


def stripes(where):
    def picture(made):
        u, _ = on_panel(made, where)
        wide = between(made, u, -0.14, 0.14)
        side = made.math("ABSOLUTE", u)
        return made.mix(made.math("MAXIMUM", wide, between(made, side, 0.26, 0.36)), "#2a7074", "#e9d6ab")
    return picture


def gingham(where, checks=4):
    def picture(made):
        bands = []
        for value in on_panel(made, where):
            phase = made.math("FRACT", made.math("MULTIPLY", made.math("ADD", value, 1.0), checks / 2))
            bands.append(between(made, phase, 0.25, 0.75, 0.05))
        share = made.math("MULTIPLY", made.math("ADD", *bands), 0.5)
        return made.ramp(share, (0.0, "#f0e2c2"), (0.5, "#7db0a6"), (1.0, "#2f7f82"))
    return picture


def trousers(where):
    """A leather belt at the waist, turn-ups at the hems, held by a seam."""
    def picture(made):
        _, v = on_panel(made, where)
        belt, turned_up = between(made, v, 0.9, 2.0), between(made, v, -2.0, -0.87)
        seams = made.math("ADD", between(made, v, -0.865, -0.85, 0.004), between(made, v, 0.86, 0.875, 0.004))
        cut = made.mix(turned_up, made.mix(belt, "#2c3a5c", "#7a4a2a"), "#445884")
        return made.mix(seams, cut, "#c9b48a")
    return picture


def paint_all(target):
    weave_image()
    for part, (colour, threads, folds) in CLOTH.items():
        cloth(part, colour, threads, folds)
    cloth("mustard", None, 1.0, 0.6, evening_star(panel(target, "mustard")))
    cloth("teal", None, 1.0, 0.6, stripes(panel(target, "teal")))
    cloth("trousers", None, 0.8, 1.2, trousers(panel(target, "trousers")))
    cloth("patch", None, 0.6, 0.0, gingham(panel(target, "patch")))
    for part, colour in PLAIN.items():
        flat(part, colour)


def light(target):
    """An open sky over a wooden floor, a little warmer from the front: what is deep in the cushions stays dark."""
    floor = shapes.plate(shapes.rectangle(80, 80), [(0, FLOOR - 0.1), (0, FLOOR)], name="floor")
    floor.data.materials.append(flat("floor", "#8a5f3c"))
    bake.sky((1.0, 0.97, 0.93), 1.0)
    bake.area_light((3, 11, 9), (0, 2, 0), (8, 8), (1.0, 0.86, 0.68), 1500)
    lit = bake.bake(target, "DIFFUSE", LIGHT_SIZE, LIGHT_SAMPLES, {"DIRECT", "INDIRECT"})
    return bake.denoise(lit, levels=3)


def main():
    target = model.make(sofa.build, "sofa")
    paint_all(target)
    bake.save_normals(png.beside(__file__, "norm"), bake.bake(target, "NORMAL", SIZE, 8))
    albedo = bake.bake(target, "DIFFUSE", SIZE, 8, {"COLOR"})
    lit = bake.levelled(bake.resize(light(target), SIZE), OPEN)
    bake.save(png.beside(__file__, "diff"), bake.to_screen(bake.shoulder(albedo * lit * EXPOSURE)))
    print("sofa: %.0f%% of the texture used, %.0f texels a unit" % (100 * uv.density(target)[0],
                                                                 SIZE * uv.density(target)[1]))


if __name__ == "__main__":
    main()

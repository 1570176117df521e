"""The television's table: plywood_diff.png and plywood_norm.png.

Pale birch whose cut edges show their layers, dark legs, a tambour door in walnut, records in the colours of the house,
and the shadows that all of it throws on itself and the set on its top.
"""

import numpy as np

from kit import bake, model, png, shapes
from kit.paint import flat
from models import tvtable
from textures import furniture_kit as furniture
from textures.wood_kit import wood

SIZE, LIGHT_SIZE, SAMPLES = 2048, 1024, 48
EXPOSURE = 1.25
OPEN = 85  # per cent of the texels that are darker than the open wood, whose light is 1

BIRCH = ((0.25, "#b98849"), (0.5, "#d3a563"), (0.78, "#e6c182"))
WALNUT = ((0.25, "#6b3a20"), (0.5, "#8d5430"), (0.78, "#a86b3e"))
LAYERS = 5  # of veneer in a board
COLOURS = {"inside": "#7a5230", "leg": "#5d3420", "brass": "#c9973f", "console": "#35303c", "cartridge": "#c8452f",
           "button": "#e2b048",
           "red": "#d23c2c", "cable": "#28242e", "record0": "#c8452f", "record1": "#e3a93c", "record2": "#2f7f82",
           "record3": "#efe0c0"}


def plywood():
    """Birch; on the front edge of the case, layers that run round with it."""
    made, colour, height = wood("plywood", BIRCH, "x")
    half_x, half_y = tvtable.WIDTH / 2 - tvtable.CORNER, (tvtable.TOP - tvtable.UNDERSIDE) / 2 - tvtable.CORNER
    x = made.math("MAXIMUM", made.math("SUBTRACT", made.math("ABSOLUTE", made.axis("X")), half_x), 0.0)
    y = made.math("SUBTRACT", made.axis("Y"), tvtable.CASE_Y)
    y = made.math("MAXIMUM", made.math("SUBTRACT", made.math("ABSOLUTE", y), half_y), 0.0)
    inset = made.math("SUBTRACT", tvtable.CORNER, made.math("SQRT", made.math("ADD", made.math("MULTIPLY", x, x),
                                                                              made.math("MULTIPLY", y, y))))
    layer = made.math("SINE", made.math("MULTIPLY", inset, LAYERS * 2 * np.pi / tvtable.BOARD))
    dark = made.node("MapRange", {"Value": layer, "From Min": -0.3, "From Max": 0.5})
    front = made.node("MapRange", {"Value": made.axis("Z"), "From Min": tvtable.DEPTH[1] - 0.035,
                                   "From Max": tvtable.DEPTH[1] - 0.02})
    return made.finish(made.mix(made.math("MULTIPLY", front, dark), colour, "#8a5a30"), height, 0.028)


def paint_all():
    plywood()
    made, colour, height = wood("tambour", WALNUT, "y")
    made.finish(colour, height, 0.02)
    for part, colour in COLOURS.items():
        flat(part, colour)


def light(target):
    """A soft sky with a warm side, the set on top, the floor below."""
    rows = [row for row in furniture.STANDING if row[0] == "tv"]
    furniture.set_up(rows, furniture.TV_TABLE)
    floor = shapes.plate(shapes.rectangle(60, 60), [(0, -0.05), (0, 0.0)], name="floor")
    floor.data.materials.append(flat("standing floor", "#8a5f3c"))
    bake.sky((0.86, 0.93, 1.0), 0.8)
    bake.area_light((-8, 9, 10), (0, 1, 0), (7, 7), (1.0, 0.83, 0.62), 2400)
    return bake.denoise(bake.bake(target, "DIFFUSE", LIGHT_SIZE, SAMPLES, {"DIRECT", "INDIRECT"}), levels=4)


def main():
    target = model.make(tvtable.build, "tvtable")
    paint_all()
    bake.save_normals(png.beside(__file__, "norm"), bake.bake(target, "NORMAL", SIZE, 8))
    albedo = bake.bake(target, "DIFFUSE", SIZE, 8, {"COLOR"})
    lit = bake.levelled(bake.resize(light(target), SIZE), OPEN)
    bake.save(png.beside(__file__, "diff"), bake.to_screen(bake.shoulder(albedo * lit * EXPOSURE)))


if __name__ == "__main__":
    main()

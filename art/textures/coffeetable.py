"""The coffee table's surface: coffeetable_diff.png and coffeetable_norm.png.

Teak in boards, brass shoes, a glazed bowl; rings where bottles stood beside the coasters; and the soft shadows of all
that stands on the table and that the table throws on itself.
"""

from kit import bake, model, png, poster, shapes
from kit.paint import Paint, flat
from kit.poster import draw, write
from models import coffeetable
from textures import furniture_kit as furniture
from textures.wood_kit import wood

SIZE, LIGHT_SIZE, SAMPLES = 2048, 1024, 48
BOARD = 1.12  # width of a board of the top
EXPOSURE = 1.5
OPEN = 80  # per cent of the texels that are darker than the open table top, whose light is 1

# Bottles that were put down wet: x, z, radius.
RINGS = [(-0.55, -0.75, 0.27), (-0.3, -0.98, 0.27), (1.15, -1.95, 0.27), (-2.65, -0.55, 0.26), (2.2, 0.05, 0.27),
         (0.62, 0.62, 0.27)]

TEAK = ((0.25, "#7c4323"), (0.5, "#a4622f"), (0.78, "#c58444"))
DARK_TEAK = ((0.25, "#6a381f"), (0.5, "#8f5329"), (0.78, "#ad703a"))


def ringed(made, colour):
    """Pale rings, a little darker at their rim, broken here and there."""
    where = made.node("TexCoord", output="Object")
    worn = made.noise(made.place(2.2, 2.2, 2.2), 1.0, 2.0)
    for x, z, radius in RINGS:
        away = made.node("VectorMath", {0: where, 1: (x, coffeetable.TOP, z)}, operation="DISTANCE", output="Value")
        off = made.math("ABSOLUTE", made.math("SUBTRACT", away, radius))
        mark = made.node("MapRange", {"Value": off, "From Min": 0.045, "From Max": 0.012},
                         interpolation_type="SMOOTHSTEP")
        part = made.node("MapRange", {"Value": worn, "From Min": 0.36, "From Max": 0.56})
        colour = made.mix(made.math("MULTIPLY", made.math("MULTIPLY", mark, part), 0.42), colour, "#4a2412")
    return colour


def paint_all():
    made, colour, height = wood("top", TEAK, "x", ("Z", BOARD))
    made.finish(ringed(made, colour), height, 0.02)
    made, colour, height = wood("wood", DARK_TEAK, "x")
    made.finish(colour, height, 0.015)
    flat("brass", "#c9973f")
    for part, colours in (("magazine", ("#c8452f", "#e6a83a", "#2f7f82", "#efe0c0")),
                          ("peanut", ("#c98f4a", "#dba85e", "#b87a3a", "#d29a55"))):
        many = Paint(part)
        many.finish(many.ramp(many.island(), *[(k / 4 + 0.12, colour) for k, colour in enumerate(colours)]))
    glaze = Paint("bowl")
    band = glaze.groove(glaze.math("ADD", glaze.axis("Y"), 0.17), 1.0, 0.2)
    glaze.finish(glaze.mix(band, "#efe2c2", "#2b7478"))
    flat("remote", "#3a3440")
    flat("button", "#d8cdb8")
    flat("power", "#d8452f")
    for part in ("ticket", "paper", "mat", "coaster"):
        flat(part, "#f4ead2")


def ticket():
    surface, c = poster.canvas(720, 400)
    draw(c, [("box", "#f6ecd6", 0, 0, 720, 400), ("box", "#c8452f", 0, 0, 720, 92),
             ("box", "#c8452f", 0, 384, 720, 16)])
    write(c, "THE QUEUE", "League Spartan Black", 66, 360, 70, "#fff3dc", track=60)
    write(c, "087", "League Spartan Black", 260, 360, 318, "#2a2030")
    return poster.picture(surface)


def mat():
    """For a beer; none stands on it."""
    surface, c = poster.canvas(400, 400)
    draw(c, [("box", "#c8452f", 0, 0, 400, 400), ("oval", "#f6ecd6", 200, 200, 176), ("oval", "#1f6a70", 200, 200, 156),
             ("star", "#f0b33e", 200, 200, 128, 26)])
    return poster.picture(surface)


def light(target):
    """A soft sky with a warm side; the floor below, bottles and boxes above."""
    furniture.set_up(furniture.ON_THE_TABLE, furniture.TABLE)
    floor = shapes.plate(shapes.rectangle(60, 60), [(0, coffeetable.FLOOR - 0.05), (0, coffeetable.FLOOR)],
                         name="floor")
    floor.data.materials.append(flat("standing floor", "#8a5f3c"))
    bake.sky((0.86, 0.93, 1.0), 0.75)
    bake.area_light((9, 12, -7), (0, 0, 0), (7, 7), (1.0, 0.83, 0.62), 2600)
    return bake.denoise(bake.bake(target, "DIFFUSE", LIGHT_SIZE, SAMPLES, {"DIRECT", "INDIRECT"}), levels=4)


def main():
    target = model.make(coffeetable.build, "coffeetable")
    paint_all()
    normals = bake.bake(target, "NORMAL", SIZE, 8)
    bake.save_normals(png.beside(__file__, "norm"), normals)
    albedo = bake.bake(target, "DIFFUSE", SIZE, 8, {"COLOR"})
    bake.paste(albedo, target, "ticket", ticket())
    bake.paste(albedo, target, "mat", mat())
    lit = bake.levelled(bake.resize(light(target), SIZE), OPEN)
    bake.save(png.beside(__file__, "diff"), bake.to_screen(bake.shoulder(albedo * lit * EXPOSURE)))


if __name__ == "__main__":
    main()

"""The room's surface: room_diff.png. Paper, boards and rug in their colours, times the light of one evening.

The scene has neither shadows nor bounced light, so this map brings both: a lamp in the corner, a window full of dusk,
the fairy lights, the glow of the screen, and beneath every piece of furniture its shadow. The scene's own lights are
weak, which is why the map is as bright as it can be.
"""

import os

import bpy
import numpy as np

from kit import bake, model, png, poster
from kit.paint import Paint, flat
from models import room
from textures import furniture_kit as furniture, room_prints_kit as prints

LEAVES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "bigplant.png")
SIZE, LIGHT_SIZE, SAMPLES = 2048, 2048, 28

EXPOSURE = 2.7  # of light times colour; a light of 1 is what 70 % of the texels do not reach
OPEN = 70
LEAST_LIGHT = 0.1  # no corner drowns
SELF_LIT = {"shade": 1.0, "bulb0": 1.0, "bulb1": 1.0, "bulb2": 1.0}

RAIL_Y = 2.3  # dado below, wallpaper above
PAPER_WIDTH = 2.0  # of a tile of the wallpaper

FLAT = {
    "cut": "#f2dcae", "outside": "#2c3b66", "underfloor": "#3a2418",
    "trim": "#f0dcb4", "sill": "#f4e2bc", "door": "#3f7f58", "frame": "#7a4526", "shelf": "#9a6236",
    "brass": "#e0ac4e", "iron": "#3c3440", "red": "#d84a30", "paper": "#fff0cf", "cord": "#a83c28",
    "book0": "#d4512f", "book1": "#efb23e", "book2": "#36888c", "book3": "#f2dcae", "book4": "#7a2c44",
    "bulb0": "#ffd98a", "bulb1": "#ff9a6a", "bulb2": "#9fd8c8",
    "rug": "#808080", "rug_rim": "#c9482c", "dusk": "#808080",  # rug and window are pictures, pasted later
}

# part: height of the belt, ribs along the wall, colours of the cloth
TROUSERS = {"denim": (4.98, 0.0, ("#2f4a7c", "#4c6da6", "#7f9cc4")),
            "cord_trousers": (4.98, 25.0, ("#8a5c2c", "#b57f42", "#cf9f5e"))}
HEM_Y = 2.62


def picture_node(paint, pixels, vector):
    """A picture that repeats, in Blender's own linear colours."""
    height, width = pixels.shape[:2]
    image = bpy.data.images.new("picture", width, height)
    values = np.ones((height, width, 4), np.float32)
    values[..., :3] = pixels[::-1] / 255
    image.pixels.foreach_set(values.ravel())
    return paint.node("TexImage", {"Vector": vector}, image=image)


def paint_walls():
    """Wallpaper above the rail, beaded boards below it. x + z runs along every wall, as the other one stands still."""
    wall = Paint("wall")
    along = wall.math("ADD", wall.axis("X"), wall.axis("Z"))
    where = wall.node("CombineXYZ", {"X": wall.math("DIVIDE", along, PAPER_WIDTH),
                                     "Y": wall.math("DIVIDE", wall.axis("Y"), PAPER_WIDTH)})
    paper = picture_node(wall, prints.wallpaper(), where)
    worn = wall.noise(wall.place(0.35, 0.35, 0.35), 1.0, 3.0)
    paper = wall.mix(0.35, paper, wall.ramp(worn, (0.3, "#549894"), (0.7, "#74b2aa")))
    bead = wall.groove(along, 0.62, 0.09)
    boards = wall.mix(bead, "#1d4a58", "#3f7f8a")
    wall.finish(wall.mix(wall.math("GREATER_THAN", wall.axis("Y"), RAIL_Y), boards, paper))


def paint_floor():
    """Each board of its own tone, with long soft grain."""
    plank = Paint("plank")
    shift = plank.math("MULTIPLY", plank.island(), 91.0)
    where = plank.node("VectorMath", {0: plank.place(3.2, 1.0, 0.22), 1: shift}, operation="ADD")
    grain = plank.noise(where, 1.0, 3.0, 0.5, 1.1)
    value = plank.math("ADD", plank.math("MULTIPLY", grain, 0.7), plank.math("MULTIPLY", plank.island(), 0.3))
    plank.finish(plank.ramp(value, (0.25, "#b56f3a"), (0.5, "#d8934f"), (0.75, "#f0b871")))
    plinth = Paint("plinth")
    grain = plinth.noise(plinth.place(0.3, 3.0, 0.3), 1.0, 3.0, 0.5, 0.8)
    plinth.finish(plinth.ramp(grain, (0.3, "#7a4424"), (0.7, "#a8683a")))


def paint_cloth():
    curtain = Paint("curtain")
    height = curtain.axis("Y")
    hem = curtain.node("MapRange", {"Value": curtain.math("PINGPONG", height, 0.75), "From Min": 0.62,
                                    "From Max": 0.66})
    low = curtain.math("LESS_THAN", height, 1.5)
    curtain.finish(curtain.mix(curtain.math("MULTIPLY", hem, low), "#eaae42", "#fff0cf"))
    shade = Paint("shade")
    shade.finish(shade.ramp(shade.node("MapRange", {"Value": shade.axis("Y"), "From Min": 4.75, "From Max": 6.6}),
                            (0.0, "#ffcb66"), (0.35, "#ffe39a"), (1.0, "#f0a043")), shine_through="#ffd9a0")
    cat = Paint("cat")
    stripes = cat.math("SINE", cat.math("MULTIPLY", cat.axis("X"), 17.0))
    stripes = cat.math("ADD", stripes, cat.math("MULTIPLY", cat.noise(cat.place(2, 2, 2), 1.0), 0.8))
    cat.finish(cat.ramp(cat.node("MapRange", {"Value": stripes, "From Min": 0.2, "From Max": 1.0}), (0.0, "#f0a050"),
                        (1.0, "#c86a2c")))


def paint_trousers():
    """Worn cloth, darker at belt and hem."""
    for part, (belt_y, ribs, colours) in TROUSERS.items():
        made = Paint(part)
        worn = made.noise(made.place(1.3, 0.7, 1.3), 1.0, 2.0)
        ribbed = made.math("MULTIPLY", made.math("SINE", made.math("MULTIPLY", made.axis("Z"), ribs)), 0.1)
        cloth = made.ramp(made.math("ADD", worn, ribbed), *zip((0.3, 0.52, 0.75), colours))
        from_hem = made.math("ABSOLUTE", made.math("SUBTRACT", made.axis("Y"), HEM_Y))
        sewn = made.math("MAXIMUM", made.math("LESS_THAN", from_hem, 0.05),
                         made.math("GREATER_THAN", made.axis("Y"), belt_y))
        made.finish(made.mix(sewn, cloth, colours[0]))


def paint_all():
    for part, colour in FLAT.items():
        flat(part, colour)
    for part in prints.PRINTS:
        flat(part, "#c8b890")
    paint_walls()
    paint_floor()
    paint_cloth()
    paint_trousers()


def paste_prints(albedo, target):
    for part, draw in prints.PRINTS.items():
        bake.paste(albedo, target, part, draw())
    bake.paste(albedo, target, "rug", prints.rug(*room.RUG[2:]))


def set_cool_lights():
    """The window, the screen, and what comes in where the house is open."""
    middle = room.WINDOW_WALL.at[0] - room.WINDOW[0]
    height = room.WINDOW[1] + room.WINDOW[3] / 2
    bake.area_light((middle, height, room.HIGH[1] - 0.05), (middle, height - 1.0, 0), (5.8, 3.8),
                    (0.42, 0.55, 1.0), 2600)
    bake.area_light((8.2, 2.4, -0.3), (0, 0.5, -0.3), (1.6, 1.3), (1.0, 0.62, 0.62), 800)
    bake.area_light((2.5, 13.0, -3.0), (2.5, 0, 1.0), (13, 13), (1.0, 0.84, 0.66), 950)
    bake.sky((0.55, 0.62, 0.95), 0.32)


def set_warm_lights():
    """The lamp and the fairy lights, which shine as one long lamp."""
    bake.point_light((-4.4, 5.3, -6.9), 0.45, (1.0, 0.5, 0.25), 9500)
    bake.area_light((room.LOW[0] + 0.35, 6.7, 0.0), (room.LOW[0] + 1.5, 0, 0), (0.2, 14.0), (1.0, 0.55, 0.3), 1000)
    bake.sky((0.0, 0.0, 0.0), 0.0)


def light(target):
    """Both kinds apart, as the lamp's is noisy and soft: fewer texels of it, more samples, smoothed more."""
    furniture.set_up(furniture.STANDING + furniture.ON_THE_TABLE, furniture.ROOM, LEAVES)
    set_cool_lights()
    cool = bake.bake(target, "DIFFUSE", LIGHT_SIZE, SAMPLES, {"DIRECT", "INDIRECT"})
    bake.lights_off()
    set_warm_lights()
    warm = bake.bake(target, "DIFFUSE", LIGHT_SIZE // 2, 2 * SAMPLES, {"DIRECT", "INDIRECT"})
    known = bake.reached(cool)
    warm = bake.denoise(warm.repeat(2, axis=0).repeat(2, axis=1), levels=5, edge=1.2, known=known)
    return bake.resize(bake.denoise(cool, known=known) + warm, SIZE)


def compose(target, albedo, lit):
    """Light times colour, bright, with what shines by itself put in afterwards."""
    level = lit.mean(axis=2)
    lit = lit / np.percentile(level[level > 0.02 * np.percentile(level, 95)], OPEN)
    lit = np.maximum(lit, LEAST_LIGHT)
    for part, strength in SELF_LIT.items():
        lit[bake.covered(target, part, SIZE)] = strength * 2.0 / EXPOSURE
    colours = bake.shoulder(albedo * lit * EXPOSURE)
    bake.paste(colours, target, "dusk", prints.dusk())
    return bake.to_screen(colours)


def main():
    poster.require_fonts(prints.FONTS)
    target = model.make(room.build, "room")
    paint_all()
    albedo = bake.bake(target, "DIFFUSE", SIZE, 8, {"COLOR"}, margin=4)
    paste_prints(albedo, target)
    bake.save(png.beside(__file__), compose(target, albedo, light(target)))


if __name__ == "__main__":
    main()

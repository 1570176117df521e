"""Baking in Cycles, and what makes its noisy light a picture.

Light and colour are baked apart: light is smooth and may be denoised, colour has no noise. Pictures here are arrays of
(rows, columns, channels), the lowest row first, as Blender keeps them.
"""

import bpy
import numpy as np
from mathutils import Vector
from PIL import Image, ImageDraw

from kit import mesh, parts, png

THREADS = 2
DARKEST = 8  # of a channel: pure black means empty in some textures, and the encoder keeps it only there
GRAIN = 1.6  # levels; hides the steps of 5:6:5 bits in smooth gradients
STEP = 4  # levels: finer ones than 6 bits the encoder would not keep, and without them the file is a third smaller


# --- Cycles -----------------------------------------------------------------------------------------------------------


def bake(target, kind, size, samples, passes=None, margin=8):
    """Bakes one object as Cycles calls it: "NORMAL", "AO", "DIFFUSE" with passes {"COLOR"} or {"DIRECT", "INDIRECT"}.
    Other objects of the scene cast shadows. Returns (size, size, 3), linear; for normals as they are stored."""
    scene = bpy.context.scene
    scene.render.engine = "CYCLES"
    scene.render.threads_mode, scene.render.threads = "FIXED", THREADS
    scene.cycles.device = "CPU"
    scene.cycles.samples = samples
    scene.cycles.use_adaptive_sampling = scene.cycles.use_denoising = False
    scene.cycles.max_bounces = scene.cycles.diffuse_bounces = 3
    scene.cycles.sample_clamp_indirect = 6.0
    image = bpy.data.images.new(kind, size, size, alpha=False, float_buffer=True)
    image.colorspace_settings.name = "Non-Color"
    for material in target.data.materials:
        if not material.use_nodes:
            material.use_nodes = True
        nodes = material.node_tree.nodes
        node = nodes.new("ShaderNodeTexImage")
        node.image = image
        for other in nodes:
            other.select = other is node
        nodes.active = node
    mesh.select(target)
    settings = {"pass_filter": passes} if passes else {}
    bpy.ops.object.bake(type=kind, margin=margin, use_clear=True, **settings)
    values = np.empty(size * size * 4, np.float32)
    image.pixels.foreach_get(values)
    bpy.data.images.remove(image)
    return values.reshape(size, size, 4)[..., :3].copy()


def area_light(at, towards, size, colour, strength):
    """A rectangle that shines. `size`: (width, height); `strength` in watts."""
    light = bpy.data.lights.new("area", "AREA")
    light.shape, light.size, light.size_y = "RECTANGLE", *size
    light.color, light.energy = colour, strength
    lamp = bpy.data.objects.new("area", light)
    bpy.context.collection.objects.link(lamp)
    lamp.location = at
    lamp.rotation_euler = (Vector(towards) - Vector(at)).to_track_quat("-Z", "Y").to_euler()
    return lamp


def point_light(at, radius, colour, strength):
    light = bpy.data.lights.new("point", "POINT")
    light.shadow_soft_size, light.color, light.energy = radius, colour, strength
    lamp = bpy.data.objects.new("point", light)
    bpy.context.collection.objects.link(lamp)
    lamp.location = at
    return lamp


def sky(colour, strength):
    """Light from everywhere."""
    world = bpy.data.worlds.new("sky")
    bpy.context.scene.world = world
    world.use_nodes = True
    background = world.node_tree.nodes["Background"]
    background.inputs["Color"].default_value = (*colour, 1.0)
    background.inputs["Strength"].default_value = strength


def lights_off():
    """Takes all lamps away; a sky is replaced by the next."""
    for lamp in [thing for thing in bpy.context.scene.objects if thing.type == "LIGHT"]:
        bpy.data.objects.remove(lamp)


# --- light ------------------------------------------------------------------------------------------------------------


def _around(values):
    """The array and its eight shifts by one texel."""
    return [np.roll(values, (i, j), (0, 1)) for i in (-1, 0, 1) for j in (-1, 0, 1)]


def fill(values, known, rounds):
    """Lets what is known grow into what is not, a texel each round."""
    values = values * known[..., None]
    known = known.astype(np.float32)
    for _ in range(rounds):
        weights = sum(_around(known))
        sums = sum(_around(values * known[..., None]))
        fresh = (known == 0) & (weights > 0)
        values = np.where(fresh[..., None], sums / np.maximum(weights, 1)[..., None], values)
        known = np.where(fresh, 1, known).astype(np.float32)
    return values


def reached(light, hidden=0.004):
    """True where light came at all: texels hidden behind others, or between the islands, got none."""
    level = light.mean(axis=2)
    return level > hidden * np.percentile(level, 90)


def denoise(light, levels=4, edge=0.35, known=None, rounds=24):
    """Smooth light: what is not `known` (by default, what no light reached) is filled from around, fireflies are
    clamped against the median around them, and the rest is smoothed in a pyramid of wavelets that stops at edges of the
    light itself: at differences in its logarithm of about `edge`."""
    light = fill(light, reached(light) if known is None else known, rounds)
    logs = np.log(light + 1e-3)
    median = np.median(np.stack(_around(logs)), axis=0)
    logs = np.where(np.abs(logs - median) > 0.5, median, logs)
    kernel = (1 / 16, 1 / 4, 3 / 8, 1 / 4, 1 / 16)
    for step in range(levels):
        centre = logs.mean(axis=2, keepdims=True)
        total, weights = np.zeros_like(logs), np.zeros_like(centre)
        for i, row in enumerate(kernel):
            for j, column in enumerate(kernel):
                other = np.roll(logs, ((i - 2) << step, (j - 2) << step), (0, 1))
                unlike = (other.mean(axis=2, keepdims=True) - centre) / edge
                weight = row * column * np.exp(-unlike * unlike)
                total += weight * other
                weights += weight
        logs = total / weights
        edge *= 0.6
    return np.exp(logs) - 1e-3


def resize(values, size):
    """Bicubic, channel by channel."""
    return np.stack([np.asarray(Image.fromarray(values[..., k]).resize((size, size), Image.BICUBIC))
                     for k in range(values.shape[2])], -1)


def levelled(light, share):
    """Scales light in place, so that `share` per cent of the texels that light reaches are darker than 1."""
    level = light.mean(axis=2)
    light /= np.percentile(level[level > 0.05 * level.max()], share)
    return light


def shoulder(values):
    """Bends bright colours towards 1, which none passes; the hue stays, dark values hardly change."""
    brightest = np.maximum(values.max(axis=2, keepdims=True), 1e-6)
    return values * ((1 - np.exp(-brightest)) / brightest)


# --- colour -----------------------------------------------------------------------------------------------------------


def to_screen(values):
    """Linear to what a screen shows, 0..1; the show decodes with a plain power of 2.2."""
    return np.clip(values, 0, 1) ** (1 / 2.2)


def to_linear(values):
    return np.clip(values, 0, 1) ** 2.2


def covered(target, part, size, grow=3):
    """(size, size): true where a part's faces lie in the texture, and a few texels around."""
    layer = target.data.uv_layers[0].data
    image = Image.new("1", (size, size))
    pen = ImageDraw.Draw(image)
    for face in parts.faces_of(target, part):
        pen.polygon([tuple(layer[loop].uv * size) for loop in target.data.polygons[face].loop_indices], fill=1)
    mask = np.array(image)
    for _ in range(grow):
        mask = np.any(_around(mask), axis=0)
    return mask


def paste(canvas, target, part, picture):
    """Lays a picture (rows from above, 0..255) over the rectangle of texture that each piece of a part covers."""
    size, layer = canvas.shape[0], target.data.uv_layers[0].data
    for faces in parts.pieces_of(target, part):
        corners = np.array([layer[loop].uv for face in faces for loop in target.data.polygons[face].loop_indices])
        (left, low), (right, high) = (np.round(edge * size).astype(int)
                                      for edge in (corners.min(axis=0), corners.max(axis=0)))
        scaled = Image.fromarray(picture).resize((right - left + 4, high - low + 4), Image.LANCZOS)
        canvas[low - 2:high + 2, left - 2:right + 2] = to_linear(np.asarray(scaled, np.float32) / 255)[::-1]
    return canvas


def coarse(levels, darkest=DARKEST):
    """Levels of 0..255 as 8-bit values in the steps that the encoder keeps, none below `darkest`."""
    return np.clip(levels / STEP + 0.5, darkest / STEP, 255 // STEP).astype(np.uint8) * STEP


def save(path, values, grain=GRAIN, darkest=DARKEST, seed=0):
    """Writes values of 0..1 as the screen shows them, with a little grain, crushed; whole, or not at all."""
    levels = values * 255 + np.random.default_rng(seed).normal(0, grain, values.shape[:2])[..., None]
    png.save(coarse(levels, darkest)[::-1], path)


def save_normals(path, values):
    """Writes a normal map: no grain, no floor."""
    save(path, values, grain=0.0, darkest=0)

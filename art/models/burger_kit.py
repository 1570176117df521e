"""What the layers of the burger have in common: their places in the stack, baked dough, and the patty's outline.

All layers share one origin, the middle of the closed box. The second patty and the second slice of cheese are the same
models half a unit higher, so everything from the first patty up to the middle slice is half a unit high.
"""

import math
import random

import numpy as np
from mathutils import Vector, noise

from kit import mesh, sdf, shapes

RADIUS = 2.1  # of the buns, at their widest

# (underside, upper side) of each layer; they sink into each other by a hair's breadth.
BOTTOM = (-1.40, -0.47)
STEAK = (-0.50, -0.24)
CHEESE = (-0.265, -0.185)
MIDDLE = (-0.20, 0.02)
TOP = (0.30, 1.41)

SEGMENTS = 112  # of the buns, once round


# --- buns ---------------------------------------------------------------------------------------------------------


def cut_face(radius, height, rings):
    """The profile of a flat cut, from the middle outwards; its rings are there to be dented by `crumb`."""
    return [(radius * ring / rings, height) for ring in range(rings)]


def crust(points, steps=5):
    """The profile of a crust, a soft curve through points. One that ends over the middle ends level there."""
    if points[-1][0] > 0:
        return shapes.smooth_profile(points, steps)
    across = (-points[-2][0], points[-2][1])
    curve = shapes.smooth_profile([*points, across], steps)[:-steps]
    return [*curve[:-1], (0.0, curve[-1][1])]


def bun(profile, name):
    return shapes.lathe(profile, SEGMENTS, name)


def wobble(target, lowest, highest, amount=0.07, seed=1):
    """Makes a turned bun a baked one: it is not quite round, and its crust swells and sinks a little.

    The cut faces, at `lowest` or `highest` (None where there is none), stay flat so that the stack stands.
    """
    offset = Vector((seed * 5.3, seed * 2.9, seed * 8.1))

    def fade(height, end):
        return 1.0 if end is None else min(1.0, abs(height - end) / 0.25)

    def bake(position):
        out = math.hypot(position.x, position.z)
        angle = math.atan2(position.x, position.z)
        lopsided = 0.018 * math.sin(2 * angle + seed) + 0.012 * math.sin(3 * angle + 2.1 * seed)
        swelling = noise.noise(position * 0.55 + offset) + 0.4 * noise.noise(position * 1.3 + offset)
        free = fade(position.y, lowest) * fade(position.y, highest)
        wide = 1 + lopsided + amount * 0.35 * swelling * min(1.0, out)
        return Vector((position.x * wide, position.y + amount * 0.6 * swelling * free, position.z * wide))

    return mesh.displace(target, bake)


def pores(radius, count, chance):
    """(x, z, radius) of dents that do not touch, spread over a disc."""
    found = []
    for _ in range(60 * count):
        out, angle = radius * math.sqrt(chance.random()) * 0.9, chance.uniform(0, 2 * math.pi)
        x, z, size = out * math.sin(angle), out * math.cos(angle), 0.12 + 0.11 * chance.random() ** 2
        if all(math.hypot(x - other[0], z - other[1]) > 1.15 * (size + other[2]) for other in found):
            found.append((x, z, size))
        if len(found) == count:
            break
    return np.asarray(found)


def crumb(target, height, radius, inwards, seed=1):
    """Gives the cut face at `height` the pores of the crumb; towards the crust it stands up a little, toasted.

    `inwards`: 1 if the bread is above the cut, -1 if it is below.
    """
    dents = pores(radius, 70, random.Random(seed))
    offset = Vector((0, 7.0 * seed, 0))

    def press(position):
        out = math.hypot(position.x, position.z)
        if abs(position.y - height) > 0.02 or out > radius:
            return position
        share = ((position.x - dents[:, 0]) ** 2 + (position.z - dents[:, 1]) ** 2) / dents[:, 2] ** 2
        dent = float((np.maximum(0.0, 1 - share) ** 2 * dents[:, 2] * 0.5).max())
        sunk = 0.022 * min(1.0, max(0.0, (radius - out) / 0.2)) ** 2
        position.y += inwards * (dent + sunk + 0.008 * noise.noise(position * 1.6 + offset))
        return position

    return mesh.displace(target, press)


# --- patty --------------------------------------------------------------------------------------------------------

PATTY_RADIUS = 2.12
RIM_WAVES = ((2, 0.035, 0.4), (3, 0.03, 1.9), (5, 0.035, 0.9), (8, 0.022, 3.0), (13, 0.016, 1.1))  # a turn, height, at


def patty(points, swollen=0.0):
    """The distance field of the patty before it is minced: a thick disc, its rim pressed by hand.

    `swollen` moves the surface outwards.
    """
    angle = np.arctan2(points[..., 0], points[..., 2])
    rim = PATTY_RADIUS + sum(height * np.sin(turns * angle + at) for turns, height, at in RIM_WAVES)
    half = (STEAK[1] - STEAK[0]) / 2
    edge = half * 0.92
    beyond = np.stack((np.hypot(points[..., 0], points[..., 2]) - (rim - edge),
                       np.abs(points[..., 1] - sum(STEAK) / 2) - (half - edge)), -1)
    return np.linalg.norm(np.maximum(beyond, 0), axis=-1) + np.minimum(beyond.max(-1), 0) - edge - swollen


def patty_mesh(cell, swollen=0.0, name="patty"):
    reach = PATTY_RADIUS + 0.3
    low, high = (-reach, STEAK[0] - 0.2, -reach), (reach, STEAK[1] + 0.2, reach)
    return sdf.to_mesh(lambda points: patty(points, swollen), low, high, cell, name)


def disc_uvs(target, middle, half_height):
    """Texture coordinates for a flat body: the upper and the lower half as a disc each, the rim folded outwards."""
    data = target.data
    if not data.uv_layers:
        data.uv_layers.new(name="UVMap")
    layer = data.uv_layers[0]
    size = 4 * (RADIUS + half_height + 0.3)
    for face in data.polygons:
        upper = face.center.y > middle
        for loop in face.loop_indices:
            x, y, z = data.vertices[data.loops[loop].vertex_index].co
            out = max(math.hypot(x, z), 1e-6)
            folded = 1 + (half_height - abs(y - middle)) * out / RADIUS ** 2
            layer.data[loop].uv = ((0.25 if upper else 0.75) + x * folded / size, 0.5 - z * folded / size)
    return target

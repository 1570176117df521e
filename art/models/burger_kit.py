"""What the layers of the burger have in common: their places in the stack, baked dough, and the patty's outline.

All layers share one origin, the middle of the closed box. The second patty and the second slice of cheese are the same
models half a unit higher. Together the layers of one step are thicker than that: bread and meat are thickest in their
middles and press into each other there, where nobody sees it; at the rims they only touch.
"""

import math

import numpy as np

from kit import sdf

RADIUS = 2.1  # of the buns, at their widest

# (underside, upper side) of each layer at its rim.
BOTTOM = (-1.40, -0.47)
STEAK = (-0.505, -0.195)
CHEESE = (-0.20, -0.12)
MIDDLE = (-0.13, 0.125)
TOP = (0.345, 1.43)

BREAD_CELL = 0.043


def waves(points, length, seed, terms=9):
    """Soft noise, about -1..1, that repeats nowhere near: waves of about that length from all sides."""
    chance = np.random.default_rng(seed)
    total = np.zeros(points.shape[:-1], np.float32)
    for _ in range(terms):
        way = chance.normal(size=3)
        way *= 2 * math.pi / (np.linalg.norm(way) * length * chance.uniform(0.7, 1.5))
        total += np.sin(points @ way.astype(np.float32) + chance.uniform(0, 2 * math.pi))
    return total / math.sqrt(terms)


def round_waves(angle, seed, turns):
    """Soft noise of an angle."""
    chance = np.random.default_rng(seed)
    return sum(np.sin(turn * angle + chance.uniform(0, 2 * math.pi)) for turn in turns) / math.sqrt(len(turns))


# --- buns ---------------------------------------------------------------------------------------------------------


def outline_distance(out, height, profile):
    """The signed distance in the plane to an outline that begins and ends on the axis, and is closed behind it."""
    line = np.asarray([(-0.8, profile[0][1]), *profile, (-0.8, profile[-1][1])], np.float32)
    nearest = np.full(out.shape, np.inf, np.float32)
    inside = np.zeros(out.shape, bool)
    for (ax, ay), (bx, by) in zip(line, np.roll(line, -1, axis=0)):
        run_x, run_y = bx - ax, by - ay
        share = np.clip(((out - ax) * run_x + (height - ay) * run_y) / (run_x ** 2 + run_y ** 2), 0, 1)
        nearest = np.minimum(nearest, np.hypot(out - ax - share * run_x, height - ay - share * run_y))
        if ay != by:
            crossed = (height < ay) != (height < by)
            inside ^= crossed & (out < ax + (height - ay) * run_x / run_y)
    return np.where(inside, -nearest, nearest)


def baked(points, profile, seed, uneven=0.03):
    """Distance to a bun with that outline: not quite round anywhere, as what rises in an oven."""
    angle = np.arctan2(points[..., 0], points[..., 2])
    wide = 1 + 0.02 * round_waves(angle, seed, (1, 2, 3)) + 0.016 * waves(points, 2.2, seed + 1)
    height = points[..., 1] - uneven * waves(points, 2.6, seed + 2)
    return outline_distance(np.hypot(points[..., 0], points[..., 2]) / wide, height, profile)


# (how many, smallest, largest radius) of the pores of the crumb.
PORES = ((10, 0.13, 0.19), (46, 0.075, 0.11), (150, 0.042, 0.06))


def pores(radius, seed):
    """(x, z, radius) of the pores of a cut face, thrown so that none touches another, in drifts."""
    chance = np.random.default_rng(seed)
    found = []
    for count, least, most in PORES:
        kept = 0
        for _ in range(120 * count):
            size = chance.uniform(least, most)
            out, angle = (radius - size) * math.sqrt(chance.random()), chance.uniform(0, 2 * math.pi)
            x, z = out * math.sin(angle), out * math.cos(angle)
            drift = waves(np.array([x, 0.0, z], np.float32), 1.3, seed + 50)
            if drift < chance.uniform(-1.4, 0.5):
                continue
            if all(math.hypot(x - other_x, z - other_z) > 1.12 * (size + other) + 0.015
                   for other_x, other_z, other in found):
                found.append((x, z, size))
                kept += 1
                if kept == count:
                    break
    return found


def pitted(points, bread, found, face):
    """A cut face with its pores: bubbles that the knife opened, each of two that had grown together. `face`: where the
    points belong to it. They follow the face, however it is warped."""
    distance = bread.copy()
    for number, (x, z, size) in enumerate(found):
        near = face & (np.abs(points[..., 0] - x) < 2.2 * size) & (np.abs(points[..., 2] - z) < 2.2 * size)
        near &= np.abs(bread) < 2 * size
        if near.any():
            seen = np.stack((points[near][:, 0] - x, bread[near] - 0.16 * size, points[near][:, 2] - z), -1)
            turn, long = 2.4 * number, 0.75 + 0.3 * math.sin(3.7 * number) ** 2
            along, away = np.array((math.sin(turn), 0.0, math.cos(turn))), 0.42 * size
            bubble = sdf.meet(sdf.ellipsoid(seen, along * away, (size * 0.72, size * 0.8 * long, size * 0.72)),
                              sdf.ellipsoid(seen, -along * away, (size * 0.55, size * 0.62 * long, size * 0.55)),
                              0.25 * size)
            distance[near] = sdf.cut(distance[near], bubble, 0.22 * size)
    return distance


def toasted(points, seed):
    """What the grill did to a cut face: fine unevenness, to be added to a distance."""
    return 0.008 * waves(points, 0.5, seed) + 0.004 * waves(points, 0.25, seed + 1)


def bread_mesh(field, low, high, vertices, name):
    """The mesh of a bun between two heights, finest where it has pores."""
    reach = RADIUS + 0.25
    made = sdf.to_mesh(field, (-reach, low - 0.15, -reach), (reach, high + 0.15, reach), BREAD_CELL, name)
    return sdf.thin_out(made, field, vertices, BREAD_CELL)


# --- patty --------------------------------------------------------------------------------------------------------

PATTY_RADIUS = 2.1
PATTY_CROWN = 0.03  # how much thicker than its rim it is in its middle, on either side
RIM_WAVES = ((1, 0.03, 2.2), (2, 0.035, 0.4), (3, 0.03, 1.9), (5, 0.035, 0.9), (8, 0.024, 3.0), (13, 0.018, 1.1),
             (21, 0.012, 0.2))  # a turn, height, at


def patty(points, swollen=0.0):
    """The distance field of the patty before it is minced: a thick disc, its rim pressed by hand.

    `swollen` moves the surface outwards.
    """
    angle = np.arctan2(points[..., 0], points[..., 2])
    rim = PATTY_RADIUS + sum(height * np.sin(turns * angle + at) for turns, height, at in RIM_WAVES)
    out = np.hypot(points[..., 0], points[..., 2])
    half = (STEAK[1] - STEAK[0]) / 2 + PATTY_CROWN * np.clip(1 - (out / PATTY_RADIUS) ** 2, 0, 1)
    half = half * (1 + 0.12 * round_waves(angle, 5, (1, 3, 4)) * np.clip(out / PATTY_RADIUS, 0, 1) ** 2)
    edge = half * 0.85
    beyond = np.stack((out - (rim - edge), np.abs(points[..., 1] - sum(STEAK) / 2) - (half - edge)), -1)
    return np.linalg.norm(np.maximum(beyond, 0), axis=-1) + np.minimum(beyond.max(-1), 0) - edge - swollen


def patty_mesh(field, cell, name="patty"):
    reach = PATTY_RADIUS + 0.35
    low, high = (-reach, STEAK[0] - 0.25, -reach), (reach, STEAK[1] + 0.25, reach)
    return sdf.to_mesh(field, low, high, cell, name)


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

"""The flower pot: thrown terracotta with a wide banded rim, a cord under it and petals pressed into
its belly, on a saucer. Earth up to 1.5; the
plant stands in that. Somebody has left the crown cap of a bottle in it."""

import math
import random

from mathutils import Vector, noise

from kit import mesh, model, shapes, uv

# (radius, height), as marked on the outside from the saucer up, each curve smooth in itself, over the rim and down to
# below the earth.
FOOT = [(0.0, 0.1), (0.74, 0.1), (0.82, 0.115), (0.865, 0.16)]
BELLY = [(0.865, 0.16), (0.92, 0.26), (1.075, 0.5), (1.195, 0.77), (1.28, 1.0), (1.3, 1.1)]
CORD = [(1.305, 1.105), (1.352, 1.118), (1.38, 1.165), (1.358, 1.212), (1.31, 1.225)]
RIM = [(1.315, 1.23), (1.41, 1.238), (1.485, 1.258), (1.525, 1.3), (1.535, 1.355), (1.53, 1.405), (1.51, 1.425)]
GROOVE = [(1.493, 1.434), (1.493, 1.454)]
LIP = [(1.515, 1.462), (1.565, 1.48), (1.592, 1.53), (1.6, 1.595), (1.59, 1.66), (1.556, 1.715), (1.5, 1.735),
       (1.445, 1.712), (1.415, 1.65), (1.4, 1.56), (1.39, 1.38)]
SAUCER = [(0.0, 0.015), (0.98, 0.0), (1.06, 0.02), (1.12, 0.07), (1.24, 0.19), (1.3, 0.24), (1.315, 0.28), (1.28, 0.31),
          (1.22, 0.29), (1.12, 0.2), (1.04, 0.14), (0.95, 0.125), (0.6, 0.125)]
ROUND = 64

PETALS, PETAL_SEGMENTS = 13, 8  # round the belly
PETAL_FOOT, PETAL_TOP, PETAL_RELIEF = 0.19, 1.07, 0.14
STRANDS, STRAND_TWIST, STRAND_RELIEF = 26, 22.0, 0.022  # of the cord

EARTH_RADIUS, EARTH_HEIGHT = 1.41, 1.5
EARTH_RINGS, EARTH_SPOKES = 16, 48
CLODS = 17
CLOD = [(0.0, -1.0), (0.62, -0.75), (0.98, -0.1), (0.86, 0.5), (0.45, 0.86), (0.0, 0.96)]

CAP = [(0.0, -0.06), (0.8, -0.06), (1.0, -0.05), (1.12, -0.02), (1.02, 0.22), (0.9, 0.34), (0.72, 0.4), (0.0, 0.42)]
CAP_AT, CAP_TEETH, CAP_RADIUS = (0.72, 1.57, 0.6), 14, 0.15


def pot():
    """The pot itself: petals swell out of its belly, pointed above, as if pressed with a thumb; the cord is twisted."""
    profile = FOOT + shapes.smooth_profile(BELLY, steps=4)[1:] + shapes.smooth_profile(CORD, steps=2)
    profile += shapes.smooth_profile(RIM, steps=2) + GROOVE + shapes.smooth_profile(LIP, steps=2)
    body = shapes.lathe(profile, segments=PETALS * PETAL_SEGMENTS)

    def press(position):
        radius, angle = math.hypot(position.x, position.z), math.atan2(position.x, position.z)
        if radius < 0.5:
            return position
        out = 0.0
        share = (position.y - PETAL_FOOT) / (PETAL_TOP - PETAL_FOOT)
        if radius > 0.78 and 0.0 < share < 1.0:
            from_middle = abs((angle * PETALS / (2 * math.pi) + 0.5) % 1.0 - 0.5) * 2
            half = math.sqrt(max(0.0, 1 - share ** 3.2)) * min(1.0, share / 0.08)  # of the petal's width there
            out = PETAL_RELIEF * (max(0.0, half ** 2 - from_middle ** 2) ** 0.5 - 0.5) * min(1.0, share / 0.08)
            out *= min(1.0, (1 - share) / 0.1)
        elif CORD[0][1] < position.y < CORD[-1][1] and radius > 1.31:
            out = STRAND_RELIEF * math.cos(STRANDS * angle + STRAND_TWIST * position.y)
        return Vector((position.x * (1 + out / radius), position.y, position.z * (1 + out / radius)))

    return mesh.displace(body, press)


def earth():
    """A round heap that noise has broken into lumps."""
    rings = [(0.0, EARTH_HEIGHT)] + [(EARTH_RADIUS * k / EARTH_RINGS, EARTH_HEIGHT)
                                     for k in range(1, EARTH_RINGS + 1)]
    heap = shapes.lathe(list(reversed(rings)), segments=EARTH_SPOKES)

    def crumble(position):
        share = math.hypot(position.x, position.z) / EARTH_RADIUS
        lumps = noise.noise(position * 4.2) * 0.05 + noise.noise(position * 9.0) * 0.03
        position.y += 0.1 * (1 - share * share) - 0.03 + lumps
        return position

    return mesh.displace(heap, crumble)


def clods():
    """Lumps and pebbles that lie about on the earth."""
    chance, made = random.Random(5), []
    for k in range(CLODS):
        angle, away = chance.uniform(0, 2 * math.pi), EARTH_RADIUS * (0.3 + 0.58 * math.sqrt(chance.random()))
        size = chance.uniform(0.045, 0.115)
        lump = shapes.lathe(CLOD, segments=11)
        mesh.roughen(lump, 0.22, 1.1, seed=k)
        mesh.scale(lump, size * 1.2, size * 0.8, size)
        mesh.turn(lump, "Y", chance.uniform(0, 360))
        height = EARTH_HEIGHT + 0.06 * (1 - away) + 0.03
        made.append(mesh.move(lump, away * math.sin(angle), height, away * math.cos(angle)))
    return made


def crown_cap():
    """Stuck in the earth at a slant."""
    cap = mesh.scale(shapes.lathe(CAP, segments=3 * CAP_TEETH), CAP_RADIUS)

    def crimp(position):
        radius = math.hypot(position.x, position.z)
        flare = max(0.0, radius / CAP_RADIUS - 0.92)
        wave = 1.0 + 0.55 * flare * math.cos(CAP_TEETH * math.atan2(position.x, position.z))
        return Vector((position.x * wave, position.y, position.z * wave))

    mesh.displace(cap, crimp)
    mesh.turn(mesh.turn(cap, "X", 38), "Y", 30)
    return mesh.move(cap, *CAP_AT)


def build():
    saucer = shapes.lathe(SAUCER, segments=ROUND)
    whole = mesh.join([pot(), saucer, earth(), crown_cap(), *clods()], "flowerpot")
    return uv.pack(mesh.smooth(whole, 65), even=True)


if __name__ == "__main__":
    model.main(build)

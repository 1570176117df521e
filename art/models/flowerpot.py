"""The flower pot: thrown terracotta with a thick rim and a ribbed belly, on a saucer. Earth up to 1.5; the
plant stands in that. Somebody has left the crown cap of a bottle in it."""

import math

from mathutils import Vector, noise

from kit import mesh, model, shapes, uv

# (radius, height), as marked on the outside from the saucer up, over the rim and down to below the earth.
POT = [(0.0, 0.1), (0.76, 0.1), (0.82, 0.13), (0.85, 0.2), (0.93, 0.56), (1.0, 0.84), (1.06, 1.06), (1.085, 1.13),
       (1.11, 1.15), (1.2, 1.16), (1.255, 1.19), (1.28, 1.26), (1.31, 1.5), (1.335, 1.58), (1.335, 1.65), (1.3, 1.72),
       (1.23, 1.74), (1.17, 1.71), (1.14, 1.63), (1.12, 1.38)]
SAUCER = [(0.0, 0.015), (0.98, 0.0), (1.06, 0.02), (1.12, 0.07), (1.24, 0.19), (1.3, 0.24), (1.315, 0.28), (1.28, 0.31),
          (1.22, 0.29), (1.12, 0.2), (1.04, 0.14), (0.95, 0.125), (0.6, 0.125)]
BELLY = slice(3, 7)  # of these points
ROUND = 52

RIBS, RIB_SEGMENTS = 14, 7  # round the belly
RIB_FOOT, RIB_TOP, RIB_RELIEF = 0.2, 1.02, 0.1

EARTH_RADIUS, EARTH_HEIGHT = 1.15, 1.5
EARTH_RINGS, EARTH_SPOKES = 13, 40
CLODS = 12
CLOD = [(0.0, -1.0), (0.62, -0.75), (0.98, -0.1), (0.86, 0.5), (0.45, 0.86), (0.0, 0.96)]

CAP = [(0.0, -0.06), (0.8, -0.06), (1.0, -0.05), (1.12, -0.02), (1.02, 0.22), (0.9, 0.34), (0.72, 0.4), (0.0, 0.42)]
CAP_AT, CAP_TEETH, CAP_RADIUS = (0.62, 1.57, 0.5), 14, 0.15


def pot():
    """The pot itself. Its belly swells between grooves, as if pressed with a thumb."""
    profile = POT[:3] + shapes.smooth_profile(POT[BELLY], steps=3) + POT[BELLY.stop:]
    body = shapes.lathe(profile, segments=RIBS * RIB_SEGMENTS)

    def press(position):
        radius = math.hypot(position.x, position.z)
        share = (position.y - RIB_FOOT) / (RIB_TOP - RIB_FOOT)
        if radius < 0.84 or not 0.0 < share < 1.0:
            return position
        around = math.atan2(position.x, position.z) * RIBS / 2
        out = 1.0 + RIB_RELIEF * (abs(math.cos(around)) - 0.3) * math.sqrt(math.sin(math.pi * share)) / radius
        return Vector((position.x * out, position.y, position.z * out))

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
    made = []
    for k in range(CLODS):
        angle, away = 2.399963 * k + 0.4, 0.45 + 0.52 * ((k * 0.618) % 1.0)
        size = 0.05 + 0.055 * ((k * 0.377) % 1.0)
        lump = shapes.lathe(CLOD, segments=9)
        mesh.roughen(lump, 0.22, 1.1, seed=k)
        mesh.scale(lump, size * 1.2, size * 0.8, size)
        mesh.turn(lump, "Y", 47.0 * k)
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

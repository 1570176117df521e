"""The lid of the toilet: soft as a pillow, with a thumb's grip in front, buffers underneath and two barrels that the
hinge's pin goes through. Its origin is the hinge; closed, it lies to the front; a negative turn about x opens it."""

import math

import numpy as np

from kit import mesh, model, shapes, uv
from models import toilet_kit as kit

ROUND = 96
GROWN = 0.02  # wider than the seat
UNDERSIDE, EDGE_RADIUS = 0.06, 0.105  # height over the hinge; of the rim
CROWN, HOLLOW = 0.17, 0.06  # how much the middle rises above the rim, outside and underneath
SHARES = [0.97, 0.92, 0.84, 0.74, 0.62, 0.5, 0.37, 0.24, 0.1]  # of the way from the middle to the rim
STEEPNESS = 2.2  # of the pillow: higher is flatter in the middle

BUFFERS = [(0.78, 2.6), (0.98, 1.1)]  # to both sides
BUFFER_FOOT = 0.012  # over the hinge: a hair over the seat
BARREL_AT, BARREL_HALF, BARREL_RADIUS = 0.4, 0.25, 0.15
ARM_SIZE, ARM_AT = (0.46, 0.17, 0.62), (0.4, 0.1, 0.24)
GRIP_RADII, GRIP_AT = (0.36, 0.088, 0.21), (0.0, UNDERSIDE + EDGE_RADIUS, 3.25)


def pillow():
    """Egg-shaped rings, from the middle of the underside round the rim to the middle of the upper side."""
    # The rim's arc ends where it is as steep as the pillow that goes on from there.
    low, high = (math.atan(STEEPNESS * rise / kit.HALF_WIDTH) for rise in (HOLLOW, CROWN))
    arc = [(EDGE_RADIUS * (1 - math.cos(angle)), UNDERSIDE + EDGE_RADIUS * (1 + math.sin(angle)))
           for angle in np.linspace(-math.pi / 2 - low, math.pi / 2 - high, 12)]

    def side(inset, height, rise):
        rows = []
        for share in SHARES:
            points = kit.egg_ring(ROUND, GROWN - inset) * share
            points[:, 1] = height + rise * (1 - share ** STEEPNESS)
            rows.append(points)
        return rows

    rings = side(*arc[0], HOLLOW)[::-1]
    rings += [kit.egg_ring(ROUND, GROWN - inset, height) for inset, height in arc]
    rings += side(*arc[-1], CROWN)
    return mesh.move(shapes.loft(rings, name="pillow"), z=-kit.HINGE[2])


def grip():
    """A lip for the thumb, half sunk into the rim."""
    ball = shapes.lathe([(math.cos(a), math.sin(a)) for a in np.linspace(-1.45, 1.45, 11)], segments=28)
    return mesh.move(mesh.scale(ball, *GRIP_RADII), *GRIP_AT)


def hinges():
    """Arms that come out of the rim, and the barrels at their ends."""
    profile = [(0.0, -BARREL_HALF), (0.75, -BARREL_HALF), (0.92, -BARREL_HALF + 0.015), (1.0, -BARREL_HALF + 0.05)]
    profile += [(radius, -height) for radius, height in reversed(profile)]
    for side in (-1, 1):
        barrel = shapes.lathe([(radius * BARREL_RADIUS, height) for radius, height in profile], segments=26)
        yield mesh.move(mesh.turn(barrel, "Z", 90), side * BARREL_AT)
        arm = shapes.box(ARM_SIZE, (side * ARM_AT[0], *ARM_AT[1:]), radius=0.08, segments=4)
        yield uv.unfold(mesh.weighted_normals(arm))


def buffers():
    """Rubber feet, which clap on the seat."""
    profile = shapes.smooth_profile([(0.09, BUFFER_FOOT), (0.115, BUFFER_FOOT + 0.015), (0.13, BUFFER_FOOT + 0.05),
                                     (0.15, 0.18)], steps=3)
    for x, z in BUFFERS:
        for side in (-1, 1):
            foot = shapes.lathe([(0.0, BUFFER_FOOT)] + profile, 20)
            yield mesh.move(foot, side * x, 0.0, z)


def build():
    parts = [mesh.freeze_normals(mesh.smooth(part, 50)) for part in (pillow(), grip(), *hinges(), *buffers())]
    return mesh.join(parts, "toilet_lid")


if __name__ == "__main__":
    model.main(build)

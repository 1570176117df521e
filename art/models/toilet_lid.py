"""The lid of the toilet: a soft board with a shallow recess above and a rim underneath, a lip for the thumb in front,
buffers and two barrels that the hinge's pin goes through. Its origin is the hinge; closed, it lies to the front; a
negative turn about x opens it."""

import math

import numpy as np

from kit import mesh, model, shapes, uv
from models import toilet_kit as kit

ROUND = 92
GROWN = 0.02  # wider than the seat
# (inset from the edge, height over the hinge), from the middle of the underside over its rim and round the edge, over
# the shoulder and down into the recess of the upper side.
UNDERSIDE = [(0.66, 0.142), (0.46, 0.138), (0.34, 0.13), (0.265, 0.112), (0.23, 0.075), (0.205, 0.045),
             (0.165, 0.031), (0.11, 0.028), (0.055, 0.036), (0.018, 0.062)]
UPPER_SIDE = [(0.0, 0.115), (0.012, 0.165), (0.05, 0.211), (0.12, 0.242), (0.21, 0.263), (0.3, 0.271), (0.36, 0.265),
              (0.405, 0.247), (0.445, 0.226), (0.49, 0.213), (0.56, 0.208), (0.66, 0.209)]
UNDER_CROWN, UPPER_CROWN = 0.012, 0.02  # how much the middles rise, so that the light runs over them
SHARES = [0.86, 0.7, 0.53, 0.35, 0.17]  # of the way from the middle to the last ring

BUFFERS = [(0.79, 2.6), (1.05, 1.1)]  # to both sides
BUFFER_FOOT = 0.0  # over the hinge: a hair over the seat
ARM_SIZE, ARM_AT = (0.34, 0.12, 0.4), (0.12, 0.17)
GRIP_HALF_WIDTH, GRIP_OUT, GRIP_UP = 0.5, 0.03, 0.04  # how far the edge comes out, and up, where the thumb lifts it


def board():
    """Egg-shaped rings, from the middle of the underside round the edge to the middle of the upper side."""

    def middle(inset, height, crown):
        for share in SHARES:
            points = kit.egg_ring(ROUND, GROWN - inset) * share
            points[:, 1] = height + crown * (1 - share * share)
            yield points

    rings = list(middle(*UNDERSIDE[0], UNDER_CROWN))[::-1]
    rings += [gripped(kit.egg_ring(ROUND, GROWN - inset, height), inset)
              for inset, height in shapes.smooth_profile(UNDERSIDE + UPPER_SIDE, steps=2)]
    rings += middle(*UPPER_SIDE[-1], UPPER_CROWN)
    return mesh.move(shapes.loft(rings, name="board"), z=-kit.HINGE[2])


def gripped(points, inset):
    """A ring with a lip for the thumb in front, which fades towards the middle."""
    bulge = np.exp(-(points[:, 0] / GRIP_HALF_WIDTH) ** 4) * (points[:, 2] > 0) * math.exp(-(inset / 0.13) ** 2)
    points[:, 2] += GRIP_OUT * bulge
    points[:, 1] += GRIP_UP * bulge
    return points


def hinges():
    """Arms that come out of the edge, and the barrels at their ends; stubs of the pin stand out of these."""
    half = kit.BARREL_HALF
    profile = [(0.0, -half - 0.035), (kit.PIN_RADIUS + 0.004, -half - 0.035), (kit.PIN_RADIUS + 0.004, -half),
               (0.82 * kit.BARREL_RADIUS, -half), (0.95 * kit.BARREL_RADIUS, -half + 0.014),
               (kit.BARREL_RADIUS, -half + 0.045)]
    profile += [(radius, -height) for radius, height in reversed(profile)]
    for side in (-1, 1):
        barrel = shapes.lathe(profile, segments=30)
        yield mesh.move(mesh.turn(barrel, "Z", 90), side * kit.BARREL_AT)
        arm = mesh.turn(shapes.box(ARM_SIZE, radius=0.05, segments=4), "X", 4)
        yield uv.unfold(mesh.weighted_normals(mesh.move(arm, side * kit.BARREL_AT, *ARM_AT)))


def buffers():
    """Rubber feet, which clap on the seat."""
    profile = shapes.smooth_profile([(0.075, BUFFER_FOOT), (0.096, BUFFER_FOOT + 0.012), (0.105, BUFFER_FOOT + 0.04),
                                     (0.1, 0.1)], steps=3)
    for x, z in BUFFERS:
        for side in (-1, 1):
            foot = shapes.lathe([(0.0, BUFFER_FOOT)] + profile + [(0.0, 0.1)], 20)
            yield mesh.move(foot, side * x, 0.0, z)


def build():
    parts = [mesh.freeze_normals(mesh.smooth(part, 50)) for part in (board(), *hinges(), *buffers())]
    return mesh.join(parts, "toilet_lid")


if __name__ == "__main__":
    model.main(build)

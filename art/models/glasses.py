"""The glasses: thick round frames with dark lenses, too big for anybody, worn indoors after dusk.

The origin lies in the middle of the wearer's head, between the ears; the lenses stand in front of the eyes.
"""

import math

from kit import mesh, model, shapes

REACH = 1.24  # from the origin to the frame's plane
LENS = (0.5, -0.12)  # middle of a lens: out, up
RADIUS = 0.345
RIM = 0.075

# (radius, height) of a lens, from the middle of its back to that of its front.
LENS_PROFILE = [(0.0, -0.02), (0.2, -0.02), (0.35, -0.015), (0.352, 0.0), (0.33, 0.02), (0.26, 0.045), (0.17, 0.062),
                (0.08, 0.07), (0.0, 0.072)]

# One temple: from the hinge back over the ear and down behind it; (place, radius).
TEMPLE = [((0.84, -0.02, REACH - 0.02), 0.07), ((0.99, 0.0, REACH - 0.06), 0.085), ((1.1, 0.0, REACH - 0.2), 0.085),
          ((1.2, 0.0, 0.75), 0.075), ((1.3, 0.0, 0.3), 0.065), ((1.33, 0.0, -0.05), 0.062),
          ((1.33, -0.09, -0.32), 0.062), ((1.29, -0.28, -0.47), 0.066), ((1.26, -0.42, -0.52), 0.04)]
BRIDGE = [((-0.2, 0.02, REACH), 0.05), ((-0.13, 0.09, REACH + 0.05), 0.062), ((0.0, 0.12, REACH + 0.07), 0.066),
          ((0.13, 0.09, REACH + 0.05), 0.062), ((0.2, 0.02, REACH), 0.05)]


def rim():
    path = []
    for step in range(44):
        angle = 2 * math.pi * step / 44
        squarer = 1 + 0.035 * math.cos(2 * angle) - 0.02 * math.sin(angle)
        path.append((RADIUS * squarer * math.cos(angle), RADIUS * squarer * math.sin(angle), 0.0))
    return shapes.tube(path, RIM, sides=12, closed=True)


def lens():
    return mesh.turn(shapes.lathe(LENS_PROFILE, segments=40), "X", 90)


def rod(stations, steps):
    """A rod of changing thickness along stations, each a place and a radius, its ends round."""
    points = shapes.smooth_profile([place for place, _ in stations], steps)
    radii = shapes.smooth_profile([(radius, 0.0) for _, radius in stations], steps)
    return shapes.tube(points, [float(radius) for radius, _ in radii], sides=12)


def build():
    parts = [rod(BRIDGE, 5)]
    for side in (-1, 1):
        for part in (rim(), lens()):
            parts.append(mesh.move(mesh.turn(part, "Y", side * 6), side * LENS[0], LENS[1], REACH))
        parts.append(mesh.scale(rod(TEMPLE, 5), side, 1, 1))
    return mesh.smooth(mesh.join(parts, "glasses"), 60)


if __name__ == "__main__":
    model.main(build)

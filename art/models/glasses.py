"""The glasses: slim round frames with dark domed lenses, too big for anybody, worn indoors after dusk.

The origin lies in the middle of the wearer's head, between the ears; the lenses stand in front of the eyes. The temples
pass between ears and hair, the pads lie on the sides of the nose.
"""

import math

from kit import mesh, model, shapes

REACH = 1.25  # from the origin to the frame's plane
LENS = (0.465, -0.07)  # middle of a lens: out, up
RADIUS = 0.335
RIM = 0.034

# (radius, height) of a lens, from the middle of its back to that of its front: a dome.
LENS_PROFILE = [(0.0, -0.016), (0.2, -0.016), (0.33, -0.014), (0.334, 0.0), (0.318, 0.012), (0.28, 0.034),
                (0.225, 0.066), (0.16, 0.096), (0.08, 0.114), (0.0, 0.12)]

# One temple: from the hinge back over the ear and down behind it; (place, radius).
TEMPLE = [((0.865, 0.04, REACH - 0.1), 0.036), ((0.95, 0.035, REACH - 0.22), 0.04), ((1.06, 0.02, 0.8), 0.036),
          ((1.14, 0.01, 0.45), 0.032), ((1.17, 0.01, 0.15), 0.032), ((1.16, 0.0, -0.1), 0.034),
          ((1.14, -0.08, -0.3), 0.044), ((1.12, -0.24, -0.43), 0.054), ((1.1, -0.42, -0.5), 0.05),
          ((1.09, -0.5, -0.51), 0.02)]
BRIDGE = [((-0.165, 0.06, REACH), 0.03), ((-0.12, 0.12, REACH + 0.03), 0.036), ((-0.05, 0.155, REACH + 0.05), 0.04),
          ((0.05, 0.155, REACH + 0.05), 0.04), ((0.12, 0.12, REACH + 0.03), 0.036), ((0.165, 0.06, REACH), 0.03)]
PAD_ARM = [((0.15, -0.1, REACH), 0.018), ((0.125, -0.1, REACH - 0.05), 0.017), ((0.13, -0.13, REACH - 0.09), 0.017),
           ((0.155, -0.15, REACH - 0.1), 0.014)]


def rim():
    path = []
    for step in range(56):
        angle = 2 * math.pi * step / 56
        squarer = 1 + 0.03 * math.cos(2 * angle) - 0.01 * math.sin(angle)
        path.append((RADIUS * squarer * math.cos(angle), RADIUS * squarer * math.sin(angle), 0.0))
    made = shapes.tube(path, RIM, sides=12, closed=True)
    return mesh.scale(made, 1, 1, 1.25)  # deeper than it is wide


def lens():
    return mesh.turn(shapes.lathe(LENS_PROFILE, segments=48), "X", 90)


def rod(stations, steps, sides=12):
    """A rod of changing thickness along stations, each a place and a radius, its ends round."""
    points = shapes.smooth_profile([place for place, _ in stations], steps)
    radii = shapes.smooth_profile([(radius, 0.0) for _, radius in stations], steps)
    return shapes.tube(points, [float(radius) for radius, _ in radii], sides=sides)


def pad():
    angles = [math.radians(15 * step) for step in range(1, 12)]
    profile = [(0.0, -1.0), *((math.sin(angle), -math.cos(angle)) for angle in angles), (0.0, 1.0)]
    bean = mesh.scale(shapes.lathe(profile, segments=16), 0.026, 0.085, 0.05)
    return mesh.move(mesh.turn(mesh.turn(bean, "Z", 16), "Y", 24), 0.145, -0.155, REACH - 0.11)


def hinge():
    """A lug on the rim, the barrel that the temple turns about, and its two rivets in front."""
    lug = mesh.bevel(shapes.box((0.15, 0.085, 0.062)), 0.022, 3)
    parts = [mesh.move(lug, 0.835, 0.045, REACH - 0.045)]
    parts.append(mesh.move(mesh.bevel(shapes.box((0.06, 0.075, 0.12)), 0.02, 3), 0.875, 0.04, REACH - 0.1))
    for height in (-0.026, 0.0, 0.026):
        knuckle = shapes.lathe([(0.0, -0.012), (0.02, -0.012), (0.025, -0.006), (0.025, 0.006), (0.02, 0.012),
                                (0.0, 0.012)], segments=14)
        parts.append(mesh.move(knuckle, 0.838, 0.04 + height, REACH - 0.105))
    for x in (-0.03, 0.03):
        rivet = shapes.lathe([(0.0, -0.004), (0.013, -0.002), (0.011, 0.006), (0.0, 0.009)], segments=10)
        parts.append(mesh.move(mesh.turn(rivet, "X", 90), 0.84 + x, 0.045, REACH - 0.013))
    return parts


def build():
    parts = [rod(BRIDGE, 5)]
    for side in (-1, 1):
        for part in (rim(), lens()):
            parts.append(mesh.move(mesh.turn(part, "Y", side * 7), side * LENS[0], LENS[1], REACH))
        for part in (rod(TEMPLE, 5), rod(PAD_ARM, 4, 8), pad(), *hinge()):
            parts.append(mesh.scale(part, side, 1, 1))
    return mesh.smooth(mesh.join(parts, "glasses"), 50)


if __name__ == "__main__":
    model.main(build)

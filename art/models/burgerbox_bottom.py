"""The lower half of the burger box: slanted foam walls with ribs, a rim, a lip under the lid, feet, the hinge, and the
maker's sign pressed into the front and, for those who look, into the base."""

import math

from kit import burgerbox as box, mesh, model, shapes, uv

# (inset from the rim, height), from the middle of the base up the outside, over rim and lip, down to the floor.
OUTSIDE = [(0.72, -1.64), (0.52, -1.64), (0.455, -1.63), (0.4, -1.605), (0.365, -1.565), (0.345, -1.51),
           (0.265, -0.93), (0.257, -0.895), (0.24, -0.87), (0.215, -0.855), (0.203, -0.84), (0.197, -0.81),
           (0.135, -0.17), (0.128, -0.14), (0.11, -0.118), (0.085, -0.11), (0.03, -0.11), (0.014, -0.106),
           (0.004, -0.095), (0.0, -0.08), (0.0, -0.03), (0.006, -0.014), (0.02, -box.GAP), (0.112, -box.GAP),
           (0.125, 0.005), (0.13, 0.05), (0.142, 0.066)]
INSIDE = [(0.16, 0.066), (0.172, 0.05), (0.185, -0.05), (0.232, -0.55), (0.275, -0.95), (0.31, -1.18), (0.36, -1.34),
          (0.43, -1.445), (0.53, -1.51), (0.66, -1.536), (0.8, -1.54)]
SOFTEST = 0.62  # radius of the corners inside

RIB_LOW, RIB_HIGH = (0.194, -0.775), (0.14, -0.225)
SIGN_HALF_WIDTH, SIGN_HEIGHT = 0.6, -0.49  # on the front, between the ribs
SIGN_EDGE = [(0.0, -0.02), (0.004, 0.02), (0.014, 0.042), (0.033, 0.056), (0.058, 0.06)]
BASE_SIGN_HALF_WIDTH = 1.1

FEET = ((-1.45, 1.1), (1.45, 1.1), (-1.45, 3.95), (1.45, 3.95))  # x, z
FOOT = [(0.0, -1.70), (0.2, -1.70), (0.245, -1.692), (0.275, -1.67), (0.29, -1.64), (0.32, -1.62)]

KNUCKLES = (-1.25, 1.25)  # of the hinge, along x; the lid has the one between them
KNUCKLE_LENGTH, KNUCKLE_RADIUS = 1.0, 0.075


def knuckle(middle, length=KNUCKLE_LENGTH):
    """A round of the hinge, on its axis."""
    half = length / 2
    profile = [(0.0, -half), (0.05, -half), (KNUCKLE_RADIUS, -half + 0.03), (KNUCKLE_RADIUS, half - 0.03),
               (0.05, half), (0.0, half)]
    return mesh.move(mesh.turn(shapes.lathe(profile, 14, "knuckle"), "Z", 90), x=middle)


def foot(x, z):
    return mesh.move(shapes.lathe(FOOT, 32, "foot"), x=x, z=z)


def tray():
    """The walls; inside, their corners are rounder than outside, so that nothing sticks in them."""
    rings = box.rims(OUTSIDE)
    for inset, height in INSIDE:
        rings.append(box.outline(box.HALF_WIDTH - inset, box.HALF_DEPTH - inset,
                                 max(box.CORNER - 0.6 * inset, SOFTEST), height))
    return box.skin(rings, "tray")


def signs():
    """On the front wall, upright and leaning as it does; and under the base, to be read from below."""
    unit = SIGN_HALF_WIDTH / box.SIGN[1][0]
    inset = (RIB_LOW[0] + RIB_HIGH[0]) / 2
    lean = math.degrees(math.atan2(RIB_LOW[0] - RIB_HIGH[0], RIB_HIGH[1] - RIB_LOW[1]))
    flat = (1.0, 1.0, 0.6)  # there is less room upwards than on the panel
    for part in box.sign(unit, SIGN_EDGE):
        mesh.turn(mesh.scale(part, *flat), "X", 90 + lean)
        yield mesh.move(part, 0.0, SIGN_HEIGHT, 2 * box.HALF_DEPTH - inset)
    for part in box.sign(BASE_SIGN_HALF_WIDTH / box.SIGN[1][0], SIGN_EDGE):
        yield mesh.move(mesh.turn(part, "Z", 180), 0.0, OUTSIDE[0][1], box.MIDDLE_Z)


def build():
    parts = [tray(), *(foot(*at) for at in FEET), *(knuckle(x) for x in KNUCKLES)]
    made = mesh.face_outwards(mesh.join(parts, "shell"))

    def at_sign(side, along):
        return side == "front" and abs(along) < SIGN_HALF_WIDTH + 0.1

    ribs = [part for _, part in box.ribs(RIB_LOW, RIB_HIGH, at_sign)]
    made = mesh.join([made, *ribs, *signs()], "burgerbox_bottom")
    mesh.weighted_normals(made)
    return uv.unfold(mesh.smooth(made, 60))


if __name__ == "__main__":
    model.main(build)

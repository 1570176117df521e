"""The lower half of the burger box: slanted foam walls with a rim, a lip under the lid, feet, and the hinge."""

from kit import burgerbox as box, mesh, model, shapes, uv

# (inset from the rim, height), from the middle of the base up the outside, over rim and lip, down to the floor.
WALL = [(0.72, -1.64), (0.50, -1.64), (0.42, -1.625), (0.365, -1.58), (0.345, -1.52),
        (0.265, -0.93), (0.25, -0.88), (0.215, -0.86), (0.20, -0.81),  # a ledge to stack them by
        (0.135, -0.17), (0.12, -0.125), (0.085, -0.11), (0.03, -0.11), (0.008, -0.10), (0.0, -0.08),
        (0.0, -0.03), (0.006, -0.014), (0.02, -box.GAP), (0.112, -box.GAP),
        (0.125, 0.005), (0.13, 0.05), (0.142, 0.066), (0.16, 0.066), (0.172, 0.05),
        (0.185, -0.05), (0.255, -0.80), (0.30, -0.87), (0.32, -0.93), (0.405, -1.42), (0.43, -1.49), (0.49, -1.53),
        (0.58, -1.54)]

FEET = ((-1.45, 1.1), (1.45, 1.1), (-1.45, 3.95), (1.45, 3.95))  # x, z
FOOT = [(0.0, -1.70), (0.20, -1.70), (0.25, -1.685), (0.28, -1.65), (0.29, -1.60), (0.0, -1.58)]

KNUCKLES = (-1.25, 1.25)  # of the hinge, along x; the lid has the one between them
KNUCKLE_LENGTH, KNUCKLE_RADIUS = 1.0, 0.075


def knuckle(middle, length=KNUCKLE_LENGTH):
    """A round of the hinge, on its axis."""
    half = length / 2
    profile = [(0.0, -half), (0.05, -half), (KNUCKLE_RADIUS, -half + 0.03), (KNUCKLE_RADIUS, half - 0.03),
               (0.05, half), (0.0, half)]
    return mesh.move(mesh.turn(shapes.lathe(profile, 14, "knuckle"), "Z", 90), x=middle)


def foot(x, z):
    return mesh.move(shapes.lathe(FOOT, 20, "foot"), x=x, z=z)


def build():
    parts = [box.skin(box.rims(WALL), "tray"), *(foot(*at) for at in FEET), *(knuckle(x) for x in KNUCKLES)]
    made = mesh.face_outwards(mesh.join(parts, "burgerbox_bottom"))
    mesh.weighted_normals(made)
    return uv.unfold(mesh.smooth(made, 60))


if __name__ == "__main__":
    model.main(build)

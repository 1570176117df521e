"""What the two halves of the burger box have in common: the outline of the clam shell, and how a wall follows it.

The box is pressed from foam: one wall, thick enough to show, goes from the panel over a rounded edge to the rim and
back inside. Both halves hinge on the x axis, at the back edge of the rim; the closed box meets at y = 0.
"""

import math

from kit import mesh

HALF_WIDTH, HALF_DEPTH = 2.6, 2.52  # of the rim; it begins at z = 0
CORNER = 1.0
CORNER_STEPS = 10  # even, so that the sides meet in the middle of a corner
MIDDLE_Z = HALF_DEPTH
GAP = 0.008  # each half's share of the gap between the rims


def outline(half_width, half_depth, corner, height, middle_z=MIDDLE_Z, steps=CORNER_STEPS):
    """A rectangle with round corners; seen from above it runs against the clock, from the front right corner."""
    points = []
    for x_side, z_side, begin in ((1, 1, 0), (1, -1, 90), (-1, -1, 180), (-1, 1, 270)):
        for step in range(steps + 1):
            angle = math.radians(begin + 90 * step / steps)
            points.append((x_side * (half_width - corner) + corner * math.sin(angle), height,
                           middle_z + z_side * (half_depth - corner) + corner * math.cos(angle)))
    return points


def corner(inset):
    """The radius of the corners that far inside the rim."""
    return max(CORNER - inset, 0.28)


def rims(profile):
    """The outlines of a wall. `profile`: (inset from the rim, height), from one panel's middle to the other's."""
    return [outline(HALF_WIDTH - inset, HALF_DEPTH - inset, corner(inset), height)
            for inset, height in profile]


def skin(rings, name):
    """A closed body over rings of equally many points, its ends closed flat.

    Texture coordinates are the place in the skin, to be laid out by the caller: (point + share, ring), (0, 0) at caps.
    """
    count = len(rings[0])
    vertices = [point for ring in rings for point in ring]
    faces, uvs = [list(range(count))[::-1]], [[(0.0, 0.0)] * count]
    for row in range(len(rings) - 1):
        for k in range(count):
            following = (k + 1) % count
            faces.append([row * count + k, row * count + following, (row + 1) * count + following,
                          (row + 1) * count + k])
            uvs.append([(k, row), (k + 1, row), (k + 1, row + 1), (k, row + 1)])
    last = (len(rings) - 1) * count
    faces.append(list(range(last, last + count)))
    uvs.append([(0.0, 0.0)] * count)
    return mesh.from_geometry(name, vertices, faces, uvs)


def plate(width, height, corner, thickness, edge, name="plate"):
    """An upright plate around the origin that faces +z, with round corners and rounded edges."""
    half = thickness / 2
    rings = [outline(width / 2 - inset, height / 2 - inset, corner - inset, level, 0.0, 5)
             for inset, level in ((edge, -half), (edge * 0.3, -half + edge * 0.3), (0.0, -half + edge),
                                  (0.0, half - edge), (edge * 0.3, half - edge * 0.3), (edge, half))]
    return mesh.turn(skin(rings, name), "X", 90)

"""What the two halves of the burger box have in common: the outline of the clam shell, and how a wall follows it.

The box is pressed from foam: one wall, thick enough to show, goes from the panel over a rounded edge to the rim and
back inside. Both halves hinge on the x axis, at the back edge of the rim; the closed box meets at y = 0.
"""

import math

from kit import mesh, shapes

HALF_WIDTH, HALF_DEPTH = 2.6, 2.52  # of the rim; it begins at z = 0
CORNER = 1.0
CORNER_STEPS = 12  # even, so that the sides meet in the middle of a corner
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


# --- relief on the walls and the panels ---

# The sides by name: which way a wall looks, and which way along it the outline runs.
SIDES = {"front": ((0.0, 1.0), (1.0, 0.0)), "right": ((1.0, 0.0), (0.0, -1.0)),
         "back": ((0.0, -1.0), (-1.0, 0.0)), "left": ((-1.0, 0.0), (0.0, 1.0))}
RIB_SPACING, RIBS = 0.305, 5  # and how many to either side of the middle one
RIB_HALF_WIDTH, RIB_HEIGHT, RIB_SUNK = 0.075, 0.042, 0.012
RIB_ACROSS, RIB_ALONG = 6, 7


def on_wall(side, along, inset, height):
    """A place on the wall of a side, `along` from its middle."""
    (out_x, out_z), (run_x, run_z) = SIDES[side]
    reach = (HALF_WIDTH if out_x else HALF_DEPTH) - inset
    return out_x * reach + run_x * along, height, MIDDLE_Z + out_z * reach + run_z * along


def rib(side, along, low, high):
    """A rib on a wall, tapered at both ends, from one place (inset, height) of the wall's section to another above it.
    Texture coordinates: (along the wall, up the wall) from the side's middle and from `low`, in model units."""
    (out_x, out_z), (run_x, run_z) = SIDES[side]
    climb_in, climb = high[0] - low[0], high[1] - low[1]
    length = math.hypot(climb_in, climb)
    lean_out, lean_up = climb / length, climb_in / length  # the wall's normal, outwards and upwards
    vertices, places = [], []
    for row in range(RIB_ALONG):
        share = 0.5 - 0.5 * math.cos(math.pi * row / (RIB_ALONG - 1))
        from_end = min(share, 1 - share) * length / RIB_HALF_WIDTH
        full = math.sqrt(max(0.0, 1 - max(0.0, 1 - from_end) ** 2)) * 0.96 + 0.04
        x, y, z = on_wall(side, along, low[0] + climb_in * share, low[1] + climb * share)
        for column in range(RIB_ACROSS + 1):
            angle = math.pi * column / RIB_ACROSS
            aside = -RIB_HALF_WIDTH * full * math.cos(angle)
            proud = (RIB_HEIGHT + RIB_SUNK) * full * math.sin(angle) - RIB_SUNK
            vertices.append((x + run_x * aside + out_x * proud * lean_out, y + proud * lean_up,
                             z + run_z * aside + out_z * proud * lean_out))
            places.append((along + aside, share * length))
    faces = []
    for row in range(RIB_ALONG - 1):
        for column in range(RIB_ACROSS):
            a = row * (RIB_ACROSS + 1) + column
            faces.append((a, a + 1, a + RIB_ACROSS + 2, a + RIB_ACROSS + 1))
    return mesh.from_geometry("rib", vertices, faces, [[places[number] for number in face] for face in faces])


def ribs(low, high, without=lambda side, along: False):
    """Ribs all round: (side, rib) each."""
    for side in SIDES:
        for number in range(-RIBS, RIBS + 1):
            along = number * RIB_SPACING
            if not without(side, along):
                yield side, rib(side, along, low, high)


# The maker's sign: dome, patty and bottom, as (half width, upper end, lower end, radius of the upper and of the lower
# corners) in the units of the print on the panel, from its middle.
SIGN = ((420, -410, -62, 200, 40), (446, -40, 176, 90, 90), (420, 198, 404, 30, 120))


def sign(unit, profile, inset=0.0):
    """The sign in relief: plates that lie, their upper ends towards -z. `unit`: model units for one of the print's;
    `profile`: (inset, height) of their edges."""
    sharpest = 1.1 * max(edge for edge, _ in profile)
    for half_width, upper, lower, upper_radius, lower_radius in SIGN:
        right, high, low = half_width * unit - inset, upper * unit + inset, lower * unit - inset
        points = []
        for side_x, z, side_z, size, begin in ((1, low, -1, lower_radius, 0), (1, high, 1, upper_radius, 90),
                                               (-1, high, 1, upper_radius, 180), (-1, low, -1, lower_radius, 270)):
            radius = max(size * unit - inset, sharpest)
            for step in range(9):
                angle = math.radians(begin + 90 * step / 8)
                points.append((side_x * (right - radius) + radius * math.sin(angle),
                               z + side_z * radius + radius * math.cos(angle)))
        yield shapes.plate(points, profile, bottom=False, name="sign")

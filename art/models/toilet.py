"""The toilet: one friendly lump of china with an open bowl, its seat, a cistern that leans back so that the lid can
lean on it, paper at hand, and a duck. Its origin is at the height of the rim; the floor is at -2.86. The open lid
touches the cistern at 0.6 of a half turn.
"""

import math

import numpy as np

from kit import mesh, model, sdf, shapes, uv
from models import toilet_kit as kit

FLOOR = -2.86
RIM = -0.14  # top of the china; buffers and seat lie on it
CELL = 0.096
DUCK_CELL, DUCK_VERTICES = 0.035, 800

# (height, radius where the egg's half width counts, how far it stands back)
OUTSIDE = [(FLOOR - 0.3, 0.98, -0.62), (FLOOR, 0.97, -0.62), (-2.68, 0.93, -0.62), (-2.4, 0.8, -0.62),
           (-2.05, 0.74, -0.58), (-1.7, 0.79, -0.46), (-1.3, 0.96, -0.26), (-0.9, 1.13, -0.08), (-0.5, 1.22, 0.0),
           (RIM, 1.23, 0.0), (0.4, 1.23, 0.0)]
INSIDE = [(-2.4, 0.05, -0.3), (-1.95, 0.3, -0.28), (-1.65, 0.5, -0.22), (-1.2, 0.74, -0.12), (-0.75, 0.93, -0.02),
          (-0.4, 1.0, 0.0), (RIM, 0.98, 0.0), (0.4, 0.98, 0.0)]
RIM_INSET, RIM_HALF_WIDTH, RIM_HALF_HEIGHT, RIM_SIDES = -0.015, 0.17, 0.18, 14
PLINTH = [(0.95, FLOOR), (1.01, FLOOR + 0.015), (1.06, FLOOR + 0.09), (1.02, FLOOR + 0.17), (0.93, FLOOR + 0.2)]
PLINTH_LONGER, PLINTH_SQUARENESS, PLINTH_BACK = 0.3, 2.15, -0.6
BOLT_AT = (0.84, FLOOR + 0.26, -0.6)
WATER = -1.02
RIPPLES, RIPPLE_HEIGHT = 3, 0.03

# The cistern: (height, how much smaller all round).
CISTERN = [(-0.22, 0.62), (-0.215, 0.4), (-0.18, 0.24), (-0.1, 0.12), (0.0, 0.05), (0.12, 0.01), (0.26, -0.01),
           (0.6, -0.04), (1.0, -0.06), (1.4, -0.06), (1.8, -0.045), (2.1, -0.02), (2.34, 0.0)]
CISTERN_LID = [(2.3, 0.12), (2.3, -0.02), (2.31, -0.06), (2.34, -0.09), (2.4, -0.105), (2.5, -0.105), (2.56, -0.085),
               (2.6, -0.04), (2.63, 0.04), (2.645, 0.16), (2.655, 0.34)]
CISTERN_SQUARENESS, CISTERN_ROUND = 3.3, 60

SEAT_MIDDLE, SEAT_HALF_WIDTH, SEAT_HALF_HEIGHT = -0.285, 0.285, 0.1  # its middle line inside the outline
SEAT_ROUND, SEAT_SIDES = 78, 14
BUFFERS = [(0.85, 0.95), (0.98, -0.7)]  # to both sides

PAPER_AT, PAPER_RADIUS, PAPER_HALF_WIDTH = (2.04, 1.25, -3.14), 0.44, 0.36
LEVER_AT = (-1.6, 1.85, -3.08)
LEVER_RADII = [0.11, 0.1, 0.1, 0.1, 0.1, 0.1, 0.11, 0.12, 0.13, 0.14, 0.15, 0.14, 0.1]
DUCK_AT = (-1.12, 2.63, -3.32)


def revolved(points, profile):
    """Distance to a body whose plan is the seat's egg and whose outline is the profile."""
    heights, radii, shifts = np.asarray(profile, np.float32).T
    at = np.clip(points[..., 1], heights[0], heights[-1])
    radius, shift = smooth_between(at, heights, radii), smooth_between(at, heights, shifts)
    slope = (smooth_between(at + 0.02, heights, radii) - smooth_between(at - 0.02, heights, radii)) / 0.04
    z = points[..., 2] - shift
    half = np.where(z > 0, kit.FRONT, -kit.BACK) / kit.HALF_WIDTH
    stretched = np.hypot(points[..., 0], z / half)
    steep = np.hypot(points[..., 0], z / half ** 2) / np.maximum(stretched, 1e-3)
    return (stretched - radius) / np.hypot(np.maximum(steep, 0.4), slope)


def smooth_between(at, knots, values):
    """A curve through the knots without corners (cubic, with the slopes of the neighbours)."""
    slopes = np.gradient(values, knots)
    i = np.clip(np.searchsorted(knots, at) - 1, 0, len(knots) - 2)
    width = knots[i + 1] - knots[i]
    t = np.clip((at - knots[i]) / width, 0, 1)
    return ((2 * t - 3) * t * t + 1) * values[i] + (3 - 2 * t) * t * t * values[i + 1] \
        + ((t - 2) * t + 1) * t * width * slopes[i] + (t - 1) * t * t * width * slopes[i + 1]


def china(points):
    """Foot, bowl and the shelf behind it, of one piece, as a field; without rim and plinth."""
    sides = sdf.mirrored(points)
    bowl = sdf.intersect(revolved(points, OUTSIDE), points[..., 1] - RIM + 0.1, 0.05)
    shelf = sdf.round_box(points, (0, -0.52, -2.25), (1.12, 0.33, 1.28), 0.22)
    neck = sdf.limb(points, (0, -0.7, -2.2), (0, -2.2, -1.25), 0.8, 0.6, (1.1, 1, 0.8))
    bend = sdf.chain(sides, [(0.56, -1.55, -0.2), (0.62, -1.0, -1.0), (0.58, -1.25, -1.7), (0.5, -2.1, -1.6),
                             (0.5, -2.8, -1.3)], [0.22, 0.26, 0.27, 0.27, 0.27], 0.12)
    lump = sdf.meet(sdf.union(0.4, bowl, shelf, neck), bend, 0.22)
    return sdf.cut(lump, revolved(points, INSIDE), 0.1)


def unseen(face):
    """Below the water, and in the plinth."""
    x, y, z = face.calc_center_median()
    if y < FLOOR + 0.08:
        return True
    return math.hypot(x, z + 0.2) < 0.75 and face.normal.y > 0 and -2.0 < y < WATER - 0.25


def cushion(sides):
    """The section of a swollen ring, -1..1 both ways: more than a circle, less than a square."""
    angles = np.linspace(0, -2 * np.pi, sides, endpoint=False)
    return [np.sign(share) * np.abs(share) ** 0.8 for share in (np.cos(angles), np.sin(angles))]


def rolls():
    """What catches the light, exactly round: the rolled rim, and the plinth under the foot."""
    rim = [kit.egg_ring(SEAT_ROUND, RIM_INSET + RIM_HALF_WIDTH * (x - 1), RIM + RIM_HALF_HEIGHT * (y - 1))
           for x, y in zip(*cushion(RIM_SIDES))]
    plinth = []
    for radius, height in shapes.smooth_profile(PLINTH, steps=3):
        at = (0, height, PLINTH_BACK)
        plinth.append(shapes.ring(radius, radius + PLINTH_LONGER, SEAT_ROUND, PLINTH_SQUARENESS, at))
    return [mesh.face_outwards(shapes.loft(rim, closed=True, name="rim")), shapes.loft(plinth, name="plinth")]


def foot_bolts():
    """Round caps over the screws that hold the foot."""
    cap = shapes.smooth_profile([(0.15, -0.12), (0.14, 0.0), (0.11, 0.09), (0.0, 0.13)], steps=3)
    parts = []
    for side in (-1, 1):
        part = mesh.turn(shapes.lathe([(0.0, -0.12)] + cap, 20), "Z", -22 * side)
        parts.append(mesh.move(part, BOLT_AT[0] * side, *BOLT_AT[1:]))
    return parts


def water():
    """Rings on it, as if something had just dropped in. Its edge is inside the china."""
    profile = [(r, WATER + RIPPLE_HEIGHT * math.cos(2 * math.pi * RIPPLES * r / 0.8) * (1 - r / 0.92))
               for r in np.linspace(0.88, 0.0, 21)]
    disc = shapes.lathe([(max(radius, 0.0), height) for radius, height in profile], segments=34)

    def as_egg(position):
        position.z *= (kit.FRONT if position.z > 0 else -kit.BACK) / kit.HALF_WIDTH
        return position

    return mesh.move(mesh.displace(disc, as_egg), z=-0.08)


def seat():
    """The ring one sits on, pillowed, on four buffers."""
    rings = [kit.egg_ring(SEAT_ROUND, SEAT_MIDDLE + SEAT_HALF_WIDTH * x, kit.SEAT_TOP + SEAT_HALF_HEIGHT * (y - 1))
             for x, y in zip(*cushion(SEAT_SIDES))]
    parts = [mesh.face_outwards(shapes.loft(rings, closed=True, name="seat"))]
    for x, z in BUFFERS:
        for side in (-1, 1):
            buffer = shapes.lathe([(0.0, -0.08), (0.12, -0.08), (0.13, 0.08), (0.0, 0.08)], 16)
            parts.append(mesh.move(buffer, x * side, RIM, z))
    return parts


def hinges():
    """Two posts on the shelf with a ball each; the lid's barrels sit between them. Arms hold the seat."""
    post = shapes.smooth_profile([(0.24, RIM - 0.1), (0.22, RIM + 0.02), (0.15, RIM + 0.08), (0.14, -0.02),
                                  (0.17, 0.06), (0.16, 0.16), (0.09, 0.23), (0.0, 0.245)], steps=2)
    parts = []
    for side in (-1, 1):
        parts.append(mesh.move(shapes.lathe([(0.0, RIM - 0.1)] + post, 18), 0.82 * side, 0, kit.HINGE[2]))
        arm = shapes.box((0.24, 0.14, 0.75), (0.82 * side, -0.01, -1.38), radius=0.06)
        parts.append(uv.unfold(arm))
    return parts


def cistern_ring(height, smaller):
    """A section: the front leans back, the sides lean out."""
    front, back, half_x = -2.33 - 0.25 * height, -3.58 - 0.06 * height, 1.4 + 0.1 * height
    return shapes.ring(half_x - smaller, (front - back) / 2 - smaller, CISTERN_ROUND, CISTERN_SQUARENESS,
                       (0, height, (front + back) / 2))


def cistern():
    tank = shapes.loft([cistern_ring(*row) for row in CISTERN], name="cistern")
    cover = shapes.loft([cistern_ring(*row) for row in CISTERN_LID], name="cover")
    return [tank, cover, *lever()]


def lever():
    """On the left side, worn round by all the thumbs."""
    x, y, z = LEVER_AT
    knob = shapes.lathe([(0.0, -0.1), (0.2, -0.1), (0.22, 0.02), (0.2, 0.08), (0.12, 0.13), (0.1, 0.3), (0.0, 0.31)],
                        segments=24)
    mesh.move(mesh.turn(knob, "Z", 90), x, y, z)
    side_view = shapes.smooth_profile([(z - 0.05, y), (z + 0.2, y - 0.01), (z + 0.5, y - 0.05), (z + 0.8, y - 0.11)], 4)
    handle = shapes.tube([(x - 0.25, height, depth) for depth, height in side_view], LEVER_RADII, sides=14)
    return [knob, handle]


def paper():
    """A roll on a peg at the right, its end hanging."""
    half, outer, inner = PAPER_HALF_WIDTH, PAPER_RADIUS, 0.12
    roll = shapes.lathe([(inner, -half), (outer - 0.06, -half), (outer - 0.02, -half + 0.015), (outer, -half + 0.05),
                         (outer, half - 0.05), (outer - 0.02, half - 0.015), (outer - 0.06, half), (inner, half)], 40)
    mesh.turn(roll, "Z", -90)
    mesh.move(roll, *PAPER_AT)
    peg = shapes.lathe([(0.0, -0.7), (0.3, -0.7)]
                       + shapes.smooth_profile([(0.31, -0.5), (0.27, -0.43), (0.14, -0.41)], steps=3)
                       + shapes.smooth_profile([(0.14, 0.4), (0.19, 0.42), (0.22, 0.5), (0.16, 0.58), (0.0, 0.6)],
                                               steps=3), 28)
    mesh.turn(peg, "Z", -90)
    mesh.move(peg, *PAPER_AT)
    return [roll, peg, sheet()]


def sheet():
    """The hanging end: from the top of the roll over its front, then down; it curls a little."""
    thick, half = 0.04, PAPER_HALF_WIDTH - 0.02
    radius = PAPER_RADIUS + 0.012
    path = [(radius * math.sin(a), radius * math.cos(a)) for a in np.linspace(-0.2, math.pi / 2, 10)]
    path += [(radius - 0.03 * math.sin(math.pi * d / 0.8), -d) for d in np.linspace(0.1, 0.8, 7)]
    curl = 0.2  # radius
    path += [(radius + curl * (1 - math.cos(a)), -0.8 - curl * math.sin(a)) for a in np.linspace(0.25, 1.5, 6)]
    path = np.asarray(path)
    along = np.gradient(path, axis=0)
    normal = np.stack((-along[:, 1], along[:, 0]), -1) / np.linalg.norm(along, axis=1, keepdims=True)
    outer, inner = path - normal * thick / 2, path + normal * thick / 2
    rings = []
    for a, b in zip(outer, inner):
        rings.append([(side, y, z) for side, (z, y) in ((-half, a), (half, a), (half, b), (-half, b))])
    made = mesh.face_outwards(shapes.loft(rings, name="sheet"))
    return mesh.smooth(mesh.move(made, *PAPER_AT), 40)


def duck(points):
    """It has seen everything. Looks a little to the side."""
    body = sdf.ellipsoid(points, (0, 0.17, 0), (0.25, 0.2, 0.31))
    tail = sdf.limb(points, (0, 0.22, -0.2), (0, 0.36, -0.37), 0.11, 0.03)
    body = sdf.meet(body, tail, 0.12)
    sides = sdf.mirrored(points)
    wing = sdf.ellipsoid(sides, (0.215, 0.2, -0.03), (0.07, 0.1, 0.18), sdf.rotation(x=18))
    head = sdf.ball(points, (0, 0.47, 0.13), 0.19)
    bill = sdf.ellipsoid(points, (0, 0.44, 0.34), (0.1, 0.038, 0.1), sdf.rotation(x=-8))
    eye = sdf.ball(sides, (0.1, 0.53, 0.275), 0.035)
    whole = sdf.meet(sdf.meet(body, wing, 0.03), head, 0.1)
    whole = sdf.union(0.02, whole, bill, eye)
    return np.maximum(whole, -0.02 - points[..., 1])


def build():
    lump = sdf.to_mesh(china, (-1.6, FLOOR - 0.3, -3.7), (1.6, 0.1, 2.0), CELL, "china")
    sdf.thin_out(lump, china, len(lump.data.vertices), CELL)  # keeps all, but shades them by the field
    mesh.delete_faces(lump, unseen)
    bird = sdf.to_mesh(duck, (-0.4, -0.1, -0.5), (0.4, 0.75, 0.55), DUCK_CELL, "duck")
    sdf.thin_out(bird, duck, DUCK_VERTICES, DUCK_CELL)
    mesh.move(mesh.turn(bird, "Y", -24), *DUCK_AT)
    parts = [uv.wrap(lump), uv.wrap(bird)]
    for part in [*rolls(), water(), *seat(), *hinges(), *foot_bolts(), *cistern(), *paper()]:
        parts.append(mesh.freeze_normals(mesh.smooth(part, 50)))
    return mesh.join(parts, "toilet")


if __name__ == "__main__":
    model.main(build)

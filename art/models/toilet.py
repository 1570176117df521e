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
CELL, CHINA_VERTICES = 0.056, 13200
SEAT_CELL, SEAT_VERTICES = 0.04, 3600
POST_CELL, POST_VERTICES = 0.028, 1100
DUCK_CELL, DUCK_VERTICES = 0.03, 1300

# (height, radius where the egg's half width counts, how far it stands back)
OUTSIDE = [(FLOOR - 0.3, 0.9, -0.62), (FLOOR, 0.88, -0.62), (-2.68, 0.86, -0.62), (-2.4, 0.79, -0.62),
           (-2.05, 0.76, -0.57), (-1.7, 0.83, -0.46), (-1.3, 0.98, -0.26), (-0.9, 1.12, -0.08), (-0.5, 1.2, 0.0),
           (RIM, 1.21, 0.0), (0.4, 1.21, 0.0)]
INSIDE = [(-2.6, -0.4, -0.3), (-1.95, 0.3, -0.28), (-1.65, 0.5, -0.22), (-1.2, 0.76, -0.12), (-0.75, 0.95, -0.02),
          (-0.4, 1.02, 0.0), (RIM, 1.0, 0.0), (0.4, 1.0, 0.0)]
RIM_MIDDLE, RIM_HALF_WIDTH, RIM_HALF_HEIGHT = -0.185, 0.185, 0.16
PLINTH_HALF, PLINTH_BACK, PLINTH_HEIGHT = (0.98, 1.36), -0.66, 0.2
BOLT_AT = (0.86, FLOOR + 0.275, -0.7)
# The way the water takes, on both sides: out of the bowl, over the weir, down to the floor.
TRAP = [(0.42, -1.55, 0.05), (0.5, -1.93, -0.36), (0.54, -1.86, -0.86), (0.6, -1.46, -1.18), (0.63, -1.34, -1.6),
        (0.6, -1.62, -1.93), (0.53, -2.2, -1.9), (0.48, -3.1, -1.85)]
TRAP_RADIUS = 0.295
WATER = -1.02
RIPPLES, RIPPLE_HEIGHT = 3, 0.03

# The cistern is one with the shelf up to its cover: the radius of its lower edge, and how it melts into the shelf.
CISTERN_FOOT, CISTERN_EDGE, CISTERN_MELT = -0.3, 0.55, 0.3
CISTERN_TOP = 2.36
# The cover: (height, how much smaller than the cistern all round).
COVER = [(2.32, 0.12), (2.32, 0.0), (2.31, -0.04), (2.315, -0.075), (2.345, -0.1), (2.4, -0.115), (2.48, -0.118),
         (2.55, -0.105), (2.6, -0.07), (2.632, -0.02), (2.648, 0.03), (2.652, 0.075), (2.643, 0.115), (2.638, 0.15),
         (2.643, 0.2), (2.65, 0.26), (2.654, 0.32)]
CISTERN_SQUARENESS, CISTERN_ROUND = 3.6, 84

SEAT_MIDDLE, SEAT_HALF_WIDTH, SEAT_HALF_HEIGHT = -0.285, 0.285, 0.085  # its middle line inside the outline
BUFFERS = [(0.79, 0.95), (0.97, -0.62)]  # to both sides
BUFFER = [(0.0, -0.06), (0.125, -0.06), (0.135, -0.01), (0.145, 0.03), (0.138, 0.075), (0.12, 0.11), (0.0, 0.11)]

PAPER_AT, PAPER_RADIUS, PAPER_HALF_WIDTH = (2.04, 1.25, -3.14), 0.44, 0.36
LEVER_AT = (-1.6, 1.85, -3.08)
LEVER_RADII = [0.11, 0.1, 0.1, 0.1, 0.1, 0.1, 0.11, 0.12, 0.13, 0.14, 0.15, 0.14, 0.1]
DUCK_AT = (-1.12, 2.63, -3.32)


def revolved(points, profile):
    """Distance to a body whose plan is the seat's egg, its halves joined more softly, and whose outline is the
    profile."""
    heights, radii, shifts = softened(profile)
    at = np.clip(points[..., 1], heights[0], heights[-1])
    radius, shift = smooth_between(at, heights, radii), smooth_between(at, heights, shifts)
    slope = (smooth_between(at + 0.02, heights, radii) - smooth_between(at - 0.02, heights, radii)) / 0.04
    z = points[..., 2] - shift
    half = (kit.FRONT - kit.BACK + (kit.FRONT + kit.BACK) * np.tanh(z / 0.6)) / (2 * kit.HALF_WIDTH)
    stretched = np.hypot(points[..., 0], z / half)
    steep = np.hypot(points[..., 0], z / half ** 2) / np.maximum(stretched, 1e-3)
    return (stretched - radius) / np.hypot(np.maximum(steep, 0.4), slope)


def softened(profile, width=0.13):
    """A profile with knots close together on an even curve through it: light shows every jump of its bend."""
    heights, *columns = np.asarray(profile, float).T
    fine = np.linspace(heights[0], heights[-1], 64)
    weights = np.exp(-((fine[:, None] - fine) / width) ** 2)
    weights /= weights.sum(axis=1, keepdims=True)
    return fine, *(weights @ smooth_between(fine, heights, column) for column in columns)


def smooth_between(at, knots, values):
    """A curve through the knots without corners (cubic, with the slopes of the neighbours)."""
    slopes = np.gradient(values, knots)
    i = np.clip(np.searchsorted(knots, at) - 1, 0, len(knots) - 2)
    width = knots[i + 1] - knots[i]
    t = np.clip((at - knots[i]) / width, 0, 1)
    return ((2 * t - 3) * t * t + 1) * values[i] + (3 - 2 * t) * t * t * values[i + 1] \
        + ((t - 2) * t + 1) * t * width * slopes[i] + (t - 1) * t * t * width * slopes[i + 1]


def roll(points, middle, half_width, half_height, height):
    """Distance to a swollen ring along the seat's outline: more than a circle in its section, less than a square."""
    half = np.where(points[..., 2] > 0, kit.FRONT, -kit.BACK) / kit.HALF_WIDTH
    z = points[..., 2] / half
    stretched = np.maximum(np.hypot(points[..., 0], z), 1e-3)
    steep = np.hypot(points[..., 0], z / half) / stretched
    out = (stretched - kit.HALF_WIDTH) / np.maximum(steep, 0.4)
    across, up = np.abs(out - middle) / half_width, np.abs(points[..., 1] - height) / half_height
    return ((across ** 2.6 + up ** 2.6) ** (1 / 2.6) - 1) * min(half_width, half_height)


def section(x, z, half_x, half_z, power):
    """Distance to an outline between an ellipse and a rectangle, to first order."""
    across, deep = np.abs(x) / half_x, np.abs(z) / half_z
    size = np.maximum((across ** power + deep ** power) ** (1 / power), 1e-4)
    steep = np.hypot((across / size) ** (power - 1) / half_x, (deep / size) ** (power - 1) / half_z)
    return (size - 1) / np.maximum(steep, 0.2)


def cistern(points):
    """Its front leans back, its sides lean out; its lower edge is as soft as a pillow's."""
    height = points[..., 1]
    half_x, middle, half_z = cistern_section(height)
    tank = section(points[..., 0], points[..., 2] - middle, half_x, half_z, CISTERN_SQUARENESS)
    tank = sdf.intersect(tank, CISTERN_FOOT - height, CISTERN_EDGE)
    return sdf.intersect(tank, height - CISTERN_TOP, 0.05)


def plinth(points):
    """What the foot flares to, with a rounded edge on the floor."""
    x, y, z = points[..., 0], points[..., 1], points[..., 2] - PLINTH_BACK
    side = section(x, z, *PLINTH_HALF, 2.4)
    return sdf.intersect(side, y - FLOOR - PLINTH_HEIGHT, 0.16)


def melt(a, b, blend):
    """Both together, as `sdf.meet` melts them, but more softly: glaze mirrors where a bend begins and ends."""
    overlap = np.maximum(1.5 * blend - np.abs(a - b), 0) / (1.5 * blend)
    return np.minimum(a, b) - overlap ** 3 * blend * 0.25


def china(points):
    """Foot, bowl, rim, shelf and cistern, of one piece, as a field."""
    bowl = sdf.intersect(revolved(points, OUTSIDE), points[..., 1] - RIM + 0.06, 0.05)
    shelf = sdf.round_box(points, (0, -0.5, -2.3), (1.16, 0.345, 1.24), 0.3)
    neck = sdf.limb(points, (0, -0.75, -2.2), (0, -2.2, -1.3), 0.86, 0.62, (1.08, 1, 0.8))
    way = shapes.smooth_profile(TRAP, steps=10)
    trap = np.minimum.reduce([sdf.limb(sdf.mirrored(points), a, b, TRAP_RADIUS, TRAP_RADIUS)
                              for a, b in zip(way, way[1:])])
    lump = melt(melt(bowl, shelf, 0.6), neck, 0.8)
    lump = melt(lump, trap, 0.24)
    lump = melt(lump, plinth(points), 0.36)
    lump = melt(lump, cistern(points), CISTERN_MELT)
    lump = sdf.cut(lump, revolved(points, INSIDE), 0.1)
    lump = melt(lump, roll(points, RIM_MIDDLE, RIM_HALF_WIDTH, RIM_HALF_HEIGHT, RIM - RIM_HALF_HEIGHT), 0.22)
    return sdf.intersect(lump, FLOOR - points[..., 1], 0.05)


def unseen(face):
    """Below the water."""
    x, y, z = face.calc_center_median()
    return math.hypot(x, z + 0.2) < 0.75 and face.normal.y > 0 and -2.0 < y < WATER - 0.25


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


def seat(points):
    """The ring one sits on, pillowed; two arms grow out of it, whose eyes hold the hinge's pin."""
    sides = sdf.mirrored(points)
    ring = roll(points, SEAT_MIDDLE, SEAT_HALF_WIDTH, SEAT_HALF_HEIGHT, kit.SEAT_TOP - SEAT_HALF_HEIGHT)
    x = kit.EYE_AT
    arm = sdf.limb(sides, (x, kit.SEAT_TOP - 0.1, -1.1), (x, kit.HINGE[1] - 0.03, kit.HINGE[2] + 0.04), 0.15, 0.11,
                   (1, 1.5, 1))
    eye = sdf.cylinder(sides, (x, *kit.HINGE[1:]), kit.EYE_RADIUS, kit.EYE_HALF, 0.03, sdf.rotation(z=90))
    return sdf.meet(sdf.meet(ring, arm, 0.16), eye, 0.05)


def buffers():
    """What the seat rests on, pressed between it and the rim."""
    for x, z in BUFFERS:
        for side in (-1, 1):
            profile = BUFFER[:1] + shapes.smooth_profile(BUFFER[1:-1], steps=2) + BUFFER[-1:]
            yield mesh.move(shapes.lathe(profile, 22), x * side, RIM, z)


def hinges():
    """The pin, round which the eyes of the seat and the barrels of the lid turn, and its heads."""
    _, height, depth = kit.HINGE
    for side in (-1, 1):
        head = [(0.0, -0.004)] + shapes.smooth_profile([(0.115, 0.0), (0.12, 0.02), (0.1, 0.055), (0.0, 0.07)], 3)
        yield mesh.move(mesh.turn(shapes.lathe(head, 24), "Z", -90 * side), side * (kit.PIN_HALF - 0.01), height, depth)
    pin = shapes.lathe([(kit.PIN_RADIUS, share * kit.PIN_HALF) for share in (-1, -0.33, 0.33, 1)], 20)
    yield mesh.move(mesh.turn(pin, "Z", 90), 0, height, depth)


def posts(points):
    """What holds the pin on the shelf: round above, wider towards its foot."""
    sides = sdf.local(sdf.mirrored(points), (kit.POST_AT, 0, kit.HINGE[2]))
    height = kit.HINGE[1]
    top = sdf.cylinder(sides, (0, height, 0), 0.15, kit.POST_HALF, 0.035, sdf.rotation(z=90))
    stem = sdf.round_box(sides, (0, (RIM + height) / 2 - 0.05, 0), (kit.POST_HALF, 0.19, 0.12), 0.035)
    foot = sdf.ellipsoid(sides, (0, RIM, 0), (0.19, 0.1, 0.2))
    return sdf.meet(sdf.meet(top, stem, 0.06), foot, 0.12)


def cistern_section(height):
    """(half width, depth of its middle, half depth) at a height."""
    front, back = -2.26 - 0.25 * height, -3.58 - 0.06 * height
    return 1.4 + 0.1 * height, (front + back) / 2, (front - back) / 2


def cover():
    """The cistern's own, its upper side a shallow tray."""
    rings = []
    for height, smaller in COVER:
        half_x, middle, half_z = cistern_section(height)
        rings.append(shapes.ring(half_x - smaller, half_z - smaller, CISTERN_ROUND, CISTERN_SQUARENESS,
                                 (0, height, middle)))
    return shapes.loft(rings, name="cover")


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


def melted(field, low, high, cell, vertices, name):
    """The mesh of a field, shaded by the field itself."""
    made = sdf.to_mesh(field, low, high, cell, name)
    return sdf.thin_out(made, field, vertices, cell)


def build():
    lump = melted(china, (-1.8, FLOOR - 0.1, -3.95), (1.8, 2.5, 1.9), CELL, CHINA_VERTICES, "china")
    mesh.delete_faces(lump, unseen)
    ring = melted(seat, (-1.5, -0.2, -2.0), (1.5, 0.4, 1.9), SEAT_CELL, SEAT_VERTICES, "seat")
    low, high = (-1.3, RIM - 0.2, kit.HINGE[2] - 0.3), (1.3, kit.HINGE[1] + 0.3, kit.HINGE[2] + 0.3)
    stand = melted(posts, low, high, POST_CELL, POST_VERTICES, "posts")
    bird = melted(duck, (-0.4, -0.1, -0.5), (0.4, 0.75, 0.55), DUCK_CELL, DUCK_VERTICES, "duck")
    mesh.move(mesh.turn(bird, "Y", -24), *DUCK_AT)
    parts = [uv.wrap(part) for part in (lump, ring, stand, bird)]
    for part in [water(), cover(), *buffers(), *hinges(), *foot_bolts(), *lever(), *paper()]:
        parts.append(mesh.freeze_normals(mesh.smooth(part, 50)))
    return mesh.join(parts, "toilet")


if __name__ == "__main__":
    model.main(build)

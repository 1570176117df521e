"""The coffee table: a long oval top on splayed legs, a slatted shelf with magazines under it, and on it what an evening
leaves behind: remote control, peanuts, a number for the queue, and coasters, which nobody uses.

The origin is one above the floor; the top is flat at 0.8 where bottles and boxes stand, x -2.5..2.5, z -2.5..-0.5.
"""

import math
import random

from mathutils import Vector

from kit import mesh, model, shapes, uv
from kit.parts import Parts, share_place, split

FLOOR = -1.0
TOP = 0.8
MIDDLE_Z = -0.6
SIZE = (7.6, 5.2)  # of the top
ROUNDNESS = 3.4  # exponent of its outline
THICKNESS = 0.3

LEGS = [(x, z) for x in (-2.55, 2.55) for z in (-1.45, 1.45)]  # where they meet the top, from the middle
SPLAY = 0.2  # of a leg, outwards, for each unit down
# (radius, height) of a leg and its brass shoe, upwards from the floor.
LEG = [(0.125, 0.42), (0.15, 0.7), (0.19, 1.1), (0.22, 1.55)]
SHOE = [(0.0, 0.0), (0.07, 0.0), (0.085, 0.012), (0.13, 0.40), (0.142, 0.425), (0.142, 0.465), (0.125, 0.485),
        (0.11, 0.485)]

SHELF_Y = -0.42
SLATS = 5
SLAT = (5.3, 0.11, 0.42)
CROSSBARS = (-2.3, 2.3)

# Closed magazines on the shelf: x, z, turn, size; each lies on the one before where they overlap.
MAGAZINES = [(-0.9, -0.15, 4, (1.15, 1.5), 0.00), (-0.8, -0.1, -9, (1.15, 1.5), 0.09),
             (-0.95, -0.2, 17, (1.0, 1.35), 0.18),
             (1.3, 0.1, -6, (1.3, 1.6), 0.0)]
MAGAZINE_THICKNESS = 0.085

COASTERS = [(2.75, 0.55, 0, 0.0), (2.79, 0.5, 40, 0.055), (2.72, 0.53, 75, 0.11),
            (-0.15, 0.55, 10, 0.0)]  # x, z, turn, y
REMOTE = (1.45, 0.75, -32.0)  # x, z, turn
BUTTONS = [(x, z) for z in (-0.42, -0.26, -0.1, 0.06) for x in (-0.1, 0.0, 0.1)]
BOWL = (-1.35, 0.75)
BOWL_PROFILE = [(0.0, 0.0), (0.3, 0.0), (0.33, 0.02), (0.36, 0.07), (0.5, 0.17), (0.62, 0.32), (0.66, 0.44),
                (0.64, 0.47),
                (0.6, 0.44), (0.55, 0.35), (0.4, 0.24), (0.0, 0.2)]
# Layers of the heap in the bowl, from below: how many nuts, within which radius, within which the next layer covers them
# so that they are left out, how high over the lowest.
HEAP = [(36, 0.53, 0.35, 0.0), (19, 0.37, 0.17, 0.06), (7, 0.2, 0.0, 0.112)]
PACKED = 26  # nuts that have a place of their own in the texture; the others share SHARED of these
SHARED = 14
TICKET = (0.45, 1.3, 21.0)


def top():
    """Thick in the middle, cut away below towards the edge, so that it looks thin."""
    outline = shapes.superellipse(*SIZE, ROUNDNESS, segments=104)
    rounded = shapes.rounded_edge(0.13, 5)
    profile = [(0.85, -THICKNESS), (0.75, -THICKNESS + 0.015), (0.12, -0.2), (0.045, -0.175), (0.008, -0.15)] + rounded
    made = shapes.plate(outline, profile, strips=5, name="top")
    mesh.weighted_normals(made)
    return mesh.move(made, y=TOP, z=MIDDLE_Z)


def splayed(part, x, z):
    """Leans a part that was turned about the y axis of the leg at x, z; level rings stay level, so its foot is flat."""
    reach = math.hypot(x, z)

    def lean(position):
        out = SPLAY * (TOP - THICKNESS - FLOOR - position.y) / reach
        return Vector((position.x + x * (1 + out), position.y + FLOOR, position.z + z * (1 + out) + MIDDLE_Z))

    return mesh.displace(part, lean)


def add_legs(parts):
    for x, z in LEGS:
        wood = shapes.lathe(shapes.smooth_profile(LEG, 3), segments=20)
        uv.scale(wood, (2 * math.pi * 0.18, 1.1))
        parts.add(mesh.smooth(splayed(wood, x, z), 60), "wood", 0.6)
        shoe = shapes.lathe(SHOE, segments=20)
        uv.scale(shoe, (2 * math.pi * 0.12, 0.7))
        parts.add(mesh.smooth(splayed(shoe, x, z), 50), "brass", 0.5)


def add_frame(parts):
    """Aprons under the top, and the shelf, whose crossbars run from leg to leg."""
    for z in (-1.25, 1.25):
        parts.add(mesh.weighted_normals(shapes.box((4.9, 0.24, 0.12), (0, 0.42, z + MIDDLE_Z), 0.04, 2)), "wood", 0.5)
    for x in (-2.4, 2.4):
        parts.add(mesh.weighted_normals(shapes.box((0.12, 0.24, 2.7), (x, 0.42, MIDDLE_Z), 0.04, 2)), "wood", 0.5)
    for x in CROSSBARS:
        bar = shapes.tube([(x * 1.2, SHELF_Y - 0.1, MIDDLE_Z + z) for z in (-1.68, -0.8, 0, 0.8, 1.68)], 0.075,
                          sides=12)
        parts.add(mesh.smooth(bar, 60), "wood", 0.4)
    for slat in range(SLATS):
        z = (slat - (SLATS - 1) / 2) * 0.56
        board = mesh.weighted_normals(shapes.box((SLAT[0] + 0.55, *SLAT[1:]), (0, 0, 0), 0.045, 3))
        parts.add(mesh.move(board, y=SHELF_Y, z=MIDDLE_Z + z), "wood", 0.6)


def add_magazines(parts):
    level = SHELF_Y + SLAT[1] / 2
    for x, z, angle, (width, height), lift in MAGAZINES:
        made = shapes.box((width, MAGAZINE_THICKNESS, height), radius=0.018, segments=2)
        mesh.weighted_normals(made)
        mesh.move(mesh.turn(made, "Y", angle), x, level + lift + MAGAZINE_THICKNESS / 2, MIDDLE_Z + z)
        parts.add(uv.planar_by_side(made), "magazine", 0.6)


def add_coasters(parts):
    outline = shapes.superellipse(0.92, 0.92, 2.0, 40)
    for x, z, angle, lift in COASTERS:
        made = shapes.plate(outline, [(0.02, 0.0)] + shapes.rounded_edge(0.02, 3, 0.06)[1:], name="coaster")
        split(mesh.weighted_normals(made), lambda face: ("mat", 1.4) if face.normal.y > 0.99 else ("coaster", 0.4))
        parts.add(mesh.move(mesh.turn(made, "Y", angle), x, TOP - 0.006 + lift, z), None)


def add_remote(parts):
    x, z, angle = REMOTE

    def place(part):
        return mesh.move(mesh.turn(part, "Y", angle), x, TOP - 0.01, z)

    body = shapes.plate(shapes.rounded_outline(0.46, 1.5, 0.15, 6), shapes.rounded_edge(0.07, 4, 0.17), bottom=False)
    parts.add(place(mesh.weighted_normals(body)), "remote", 1.0)
    for across, along in BUTTONS:
        button = shapes.plate(shapes.superellipse(0.085, 0.1, 3, 10), [(0, 0.15), (0.0, 0.185), (0.02, 0.2)],
                              bottom=False)
        parts.add(place(mesh.move(mesh.smooth(button, 60), across, 0, along)), "button", 1.0)
    power = shapes.plate(shapes.superellipse(0.15, 0.15, 2, 14), [(0, 0.15), (0, 0.19), (0.025, 0.205)], bottom=False)
    parts.add(place(mesh.move(mesh.smooth(power, 60), 0.08, 0, -0.6)), "power", 1.0)
    for across in (-0.1, 0.1):  # the rockers of volume and channel
        rocker = shapes.plate(shapes.superellipse(0.11, 0.32, 3, 14), [(0, 0.15), (0, 0.19), (0.03, 0.205)],
                              bottom=False)
        parts.add(place(mesh.move(mesh.smooth(rocker, 60), across, 0, 0.34)), "button", 1.0)


def peanut():
    """Two swellings with a waist between, lying along z."""
    profile = [(0.0, -0.115), (0.036, -0.105), (0.057, -0.07), (0.055, -0.035), (0.045, -0.004), (0.05, 0.03),
               (0.052, 0.06), (0.034, 0.094), (0.0, 0.105)]
    rounded = [profile[0], *shapes.smooth_profile(profile[1:-1], 2), profile[-1]]
    made = uv.scale(shapes.lathe(rounded, segments=12), (0.3, 0.25))
    return mesh.smooth(mesh.turn(made, "X", 90))


def add_bowl(parts):
    x, z = BOWL
    bowl = shapes.lathe(shapes.smooth_profile(BOWL_PROFILE[1:-1], 2), segments=44)
    uv.scale(bowl, (2 * math.pi * 0.6, 1.5))
    parts.add(mesh.move(mesh.smooth(bowl, 60), x, TOP - 0.005, z), "bowl", 0.7)
    heap = shapes.lathe([(0.56, 0.3), (0.5, 0.335), (0.3, 0.37), (0.0, 0.385)], segments=24)
    uv.scale(heap, (3.0, 0.6))
    parts.add(mesh.move(mesh.smooth(heap), x, TOP, z), "peanut", 0.4)
    for made in nuts()[:PACKED]:
        parts.add(made, "peanut", 0.7)


def nuts():
    """All of them: first the two that have jumped out, then from the top of the heap down, each layer in a spiral."""
    x, z = BOWL
    spin = random.Random(26)
    made = [mesh.move(mesh.turn(peanut(), "Y", turn), x + out, TOP + 0.05, z + along)
            for turn, out, along in ((40, 0.95, 0.35), (110, 0.8, -0.62))]
    for count, radius, covered, height in reversed(HEAP):
        for number in range(count):
            reach, angle = radius * math.sqrt((number + 0.5) / count), number * 2.399963 + height * 9
            tilt, turn = spin.uniform(-14, 14), spin.uniform(0, 360)
            if reach < covered:
                continue
            nut = mesh.turn(mesh.turn(peanut(), "X", tilt), "Y", turn)
            mesh.turn(nut, Vector((math.cos(angle), 0, -math.sin(angle))), (12 + 150 * height) * reach / 0.5)
            made.append(mesh.move(nut, x + reach * math.sin(angle), TOP + 0.415 - 0.22 * reach ** 2 + height,
                                  z + reach * math.cos(angle)))
    return made


def add_nuts(table):
    """The nuts of the heap that have no place of their own in the texture."""
    more = [share_place(table, "peanut", mesh.freeze_normals(made), number % SHARED)
            for number, made in enumerate(nuts()[PACKED:])]
    return mesh.join([table, *more], "coffeetable")


def add_ticket(parts):
    """A slip of paper with a number for the queue, one corner curling up."""
    x, z, angle = TICKET
    columns, rows = 10, 6
    points = [(0.9 * (i / columns - 0.5), 0.5 * (j / rows - 0.5)) for j in range(rows + 1) for i in range(columns + 1)]
    curl = [max(0.0, across + along - 0.25) ** 2 * 0.55 for across, along in points]
    vertices = [(across, lift, along) for (across, along), lift in zip(points, curl)]
    vertices += [(across, lift - 0.012, along) for (across, along), lift in zip(points, curl)]
    faces, below = [], len(points)
    for j in range(rows):
        for i in range(columns):
            a = j * (columns + 1) + i
            faces.append((a, a + columns + 1, a + columns + 2, a + 1))
            faces.append((below + a, below + a + 1, below + a + columns + 2, below + a + columns + 1))
    made = mesh.from_geometry("ticket", vertices, faces)
    uv.planar_by_side(made)
    mesh.move(mesh.turn(mesh.smooth(made), "Y", angle), x, TOP + 0.016, z)
    parts.add(split(made, lambda face: ("ticket", 1.8) if face.normal.y > 0 else ("paper", 0.3)), None)


def build():
    parts = Parts()
    parts.add(top(), "top", 1.0)
    add_legs(parts)
    add_frame(parts)
    add_magazines(parts)
    add_coasters(parts)
    add_remote(parts)
    add_bowl(parts)
    add_ticket(parts)
    return add_nuts(parts.join("coffeetable"))


if __name__ == "__main__":
    model.main(build, tangents=True)

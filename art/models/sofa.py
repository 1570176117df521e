"""The sofa: a plump two-seater, sewn of cloth and blown up, that has been loved for long enough to be mended.

Everything upholstered is a cover that is cut, sewn and inflated: cushions, arms, base and back. The texture
coordinates are the cut cloth, upright and evenly scaled, so that a weave can be drawn straight into the texture.
The parts have names, for the script of the texture: frame, seat, back, mustard, teal, trousers, button and so on.

The trousers over the arm belong to one of the two who sit here. It is after eight.
"""

import math
import os

import bpy
import numpy as np
from mathutils import Vector, bvhtree

from kit import cloth, mesh, model, shapes, uv
from kit.parts import named, share_place, split
from models import trousers_kit

# How much of the texture, along a side, cloth gets that nobody sees; that is behind; and the piping, of one colour.
HIDDEN, REAR, CORD = 0.3, 0.65, 0.5
CORD_PIECE = 4.0  # the length at which a cord starts a new strip in the texture

# What people sit on, and lean on: agreed with the figures.
SEAT_CROWN, SEAT_FRONT, ARM_INSIDE = 2.9, 1.2, 5.0
BACK_FRONT, LEAN = -1.6, 9.2  # at the height of the seat's crown; degrees
UNDERSIDE, TOP, BEHIND = 0.8, 6.1, -3.0

PIPING = 0.075
SEAT_SIZE, SEAT_CELLS = (4.98, 3.75, 1.36), (28, 22, 6)
BACK_SIZE, BACK_CELLS = (4.98, 3.4, 0.92), (30, 22, 5)
ARM_SIZE, ARM_CELLS = (1.1, 3.5, 4.15), (8, 22, 22)
FRAME_SIZE, FRAME_CELLS = (10.5, 4.9, 0.6), (34, 16, 4)
BASE_SIZE, BASE_CELLS = (10.3, 3.7, 1.0), (34, 10, 4)

# (part, side of the cut cloth, how much of it is left when it is filled, place, turns): one keeps the peace in the
# middle, one was pushed into the corner of back and arm.
PILLOWS = [
    ("mustard", 2.5, 0.76, (-0.12, 3.7, -1.5), (("Z", 3), ("X", 78))),
    ("teal", 2.6, 0.76, (4.1, 3.85, -1.42), (("Y", -27), ("Z", -5), ("X", 76))),
]
TUFTED = "teal"
PILLOW_CORD = {"mustard": 0.09, "teal": 0.1}  # of the texture, for each step of the cord
PILLOW_HEIGHT = 0.42  # of half a pillow, for each unit of its side
SITTING = (-2.5, 2.5)  # x of those who sit here
PILLOW_CELLS = 24
BUTTONS = [(-1.45, 0.45), (1.45, 0.45)]  # on a back cushion, from its middle
ARM_BUTTON = (5.74, 3.72)  # in the roll of an arm; the one on the right was lost, and came off a coat
PATCH = ((-5.46, 2.1), 0.54, 9.0)  # on the front of the left arm: its middle, its side, and how crooked it is


def fit(parts, low, high):
    """Stretches parts, as one, to fill a box."""
    together = np.concatenate([mesh.positions(part) for part in parts])
    for axis in range(3):
        least, most = together[:, axis].min(), together[:, axis].max()
        factor = (high[axis] - low[axis]) / (most - least)
        for part in parts:
            for vertex in part.data.vertices:
                vertex.co[axis] = low[axis] + (vertex.co[axis] - least) * factor
    return parts


def share_texture(target, cells, top, bottom, border):
    """Gives the panels of a cover, and the four sides of the border, from the front round by the right, their shares
    of the texture. Sides that follow one another and have the same share stay together."""
    across, deep, _ = cells
    layer = target.data.uv_layers[0].data
    sides = [side for side, count in enumerate((across, deep, across, deep)) for _ in range(count)]
    strips = [sum(border[k] != border[k - 1] for k in range(1, side + 1)) for side in range(4)]
    for face in target.data.polygons:
        panel = face.index // (across * deep)
        shift, share = 0, (top, bottom)[min(panel, 1)]
        if panel > 1:
            side = sides[(face.index - 2 * across * deep) % len(sides)]
            shift, share = -20 * strips[side], border[side]
        for loop in face.loop_indices:
            layer[loop].uv = (layer[loop].uv + Vector((0, shift))) * share


def even_rings(tube, sides, step):
    """Gives all rings of a tube the same distance in the texture. Their true one comes out of a simulation and is never
    quite the same twice; then islands of about one size would change places whenever the model is built."""
    layer = tube.data.uv_layers[0].data
    for face in tube.data.polygons:
        if len(face.vertices) == 4:
            for corner, loop in enumerate(face.loop_indices):
                layer[loop].uv.y = step * (face.index // sides + corner // 2)
    return tube


def cord(target, seam, radius, part, sides=7, out=0.0, step=None):
    """Piping, its texture cut into strips that are not longer than the other cloth; `step` of it for each ring, or as
    long as it is."""
    made = cloth.piping(target, seam, radius, sides, out)
    layer = made.data.uv_layers[0].data
    step = step or round(max(corner.uv.y for corner in layer) / len(seam), 2)
    even_rings(made, sides, step)
    for face in made.data.polygons:
        strip = int(step * (face.index // sides) / CORD_PIECE)
        for loop in face.loop_indices:
            at = layer[loop].uv
            layer[loop].uv = Vector((at.x + strip * 10 * radius, at.y - strip * CORD_PIECE)) * CORD
    return named(made, part + " piping")


def ease(target, seams, passes=6):
    """Pulls seams straight that the pressure has puckered."""
    vertices = target.data.vertices
    for seam in seams:
        for _ in range(passes):
            line = [vertices[number].co.copy() for number in seam]
            for before, number, at, after in zip(line[-1:] + line, seam, line, line[1:] + line[:1]):
                vertices[number].co = (before + 2 * at + after) / 4
    mesh.modify(target, "SMOOTH", factor=0.4, iterations=3)
    return mesh.apply_modifiers(target)


def cover(part, size, cells, corner, pressure, shares, bottom=0.2, piped=(0, 1), **settings):
    """A cover that is sewn and blown up, and the piping of its seams. It lies on its bottom, which bulges less.

    `shares` of the texture: of top, bottom and the sides of the border. `piped`: which of the seams, upper and lower.
    """
    made, seams = cloth.sew(*size, cells, corner, name=part)
    share_texture(made, cells, *shares)
    cloth.inflate(made, pressure, **settings)
    ease(made, seams)
    level = np.mean([made.data.vertices[number].co.y for number in seams[1]])
    for vertex in made.data.vertices:
        if vertex.co.y < level:
            vertex.co.y = level + (vertex.co.y - level) * bottom
    return [named(made, part), *(cord(made, seams[number], PIPING, part, out=PIPING / 2) for number in piped)]


def seat(side):
    parts = cover("seat", SEAT_SIZE, SEAT_CELLS, 0.45, 1.6, (1.0, HIDDEN, (1.0, HIDDEN, HIDDEN, HIDDEN)))
    width, depth, height = SEAT_SIZE
    fit(parts, (-width / 2, SEAT_CROWN - height, SEAT_FRONT - depth), (width / 2, SEAT_CROWN, SEAT_FRONT))
    return cloth.place(parts, x=side * 2.5)


def tuft(target, x, y):
    """Pulls a dimple into the front, which still lies flat and looks up, and with it four creases."""
    def pull(at):
        if at.y < -BACK_SIZE[2] / 2:
            return at
        across, along = at.x - x, -at.z - y
        away = math.hypot(across, along)
        crease = math.exp(-(min(abs(across - along), abs(across + along)) / 0.16) ** 2) * math.exp(-away / 0.4)
        at.y -= 0.3 * math.exp(-(away / 0.46) ** 1.7) + 0.06 * crease
        return at
    return mesh.displace(target, pull)


def button(at, turns=(), odd=False):
    """A covered button, which looks up; the odd one has a rim, and is sewn on with a cross of thread."""
    if not odd:
        dome = [(0.0, -0.05), (0.15, -0.04), (0.2, 0.01), (0.18, 0.045), (0.1, 0.07), (0.0, 0.08)]
        parts = [named(shapes.lathe(shapes.smooth_profile(dome[1:-1], 3) + [dome[-1]], 20), "button")]
    else:
        rim = [(0.2, -0.04), (0.26, 0.01), (0.25, 0.08), (0.2, 0.1), (0.16, 0.06), (0.02, 0.05)]
        parts = [named(shapes.lathe(shapes.smooth_profile(rim, 3) + [(0.0, 0.05)], 24), "odd button")]
        for turn in (45, 135):
            ends = [(-0.1, 0.03, 0), (-0.06, 0.085, 0), (0.06, 0.085, 0), (0.1, 0.03, 0)]
            parts.append(named(mesh.turn(shapes.tube(ends, 0.028, sides=6), "Y", turn), "thread"))
    for part in parts:
        uv.scale(part, 0.4)
    if not odd:  # its open edge goes deep into the dimple
        mesh.displace(parts[0], lambda place: place - Vector((0, 0.14 * (place.y < -0.038), 0)))
    return cloth.place(parts, *at, turns=turns)


def back(side):
    parts = cover("back", BACK_SIZE, BACK_CELLS, 0.5, 2.4, (1.0, HIDDEN, (HIDDEN, 1.0, 1.0, 1.0)), piped=(0,))
    width, height, thickness = BACK_SIZE
    fit(parts, (-width / 2, -thickness, -height / 2), (width / 2, 0.0, height / 2))
    for x, y in BUTTONS:
        tuft(parts[0], x, y)
        front = max((vertex.co for vertex in parts[0].data.vertices if vertex.co.y > -thickness / 2),
                    key=lambda co: -math.hypot(co.x - x, -co.z - y))
        parts += button((x, front.y + 0.08, -y))
    middle = (SEAT_CROWN + TOP) / 2 - 0.12
    lean = (middle - SEAT_CROWN) * math.tan(math.radians(LEAN))
    turns = (("Z", side * -0.7), ("X", 90 - LEAN))
    return cloth.place(parts, side * 2.49, middle, BACK_FRONT - lean, turns)


def arm(side):
    """A fat bolster whose upper end leans outwards, into a roll, and that stands flat on its lower end."""
    parts = cover("frame", ARM_SIZE, ARM_CELLS, 0.52, 0.22, (1.0, REAR, (HIDDEN, 1.0, 1.0, 1.0)), bottom=1.0,
                  bending=3.0)
    cloth.place(parts, turns=(("X", 90),))
    width, height, depth = ARM_SIZE
    fit(parts, (0.0, 0.0, -2.85), (width, 1.0, SEAT_FRONT + 0.08))

    def roll(at):
        across, up = at.x / width - 0.5, at.y
        up *= min(1.0, 0.35 + 0.65 * up / 0.16)  # the round lower corners become tight ones
        head = math.exp(-((up - 0.84) / 0.17) ** 2)
        waist = math.exp(-((up - 0.42) / 0.3) ** 2)
        at.x = ARM_INSIDE + width * (0.45 + across * (0.9 + 0.16 * head)) + 0.17 * head - 0.05 * waist
        at.y = UNDERSIDE + height * up
        return at

    for part in parts:
        mesh.displace(part, roll)
        if side < 0:
            mesh.scale(part, -1, 1, 1)
    return parts


def onto_front(target, x, y):
    """(place, normal) of what one hits who looks at the target from the front."""
    hit, at, normal, _ = target.ray_cast(Vector((x, y, 10)), Vector((0, 0, -1)))
    if not hit:
        raise model.ModelError(f"there is nothing at {x}, {y} to sew on")
    return at, normal


def arm_button(bolster, side):
    x, y = ARM_BUTTON
    at, normal = onto_front(bolster, side * x, y)
    turn = math.degrees(math.atan2(normal.x, normal.z))
    return button(at + normal * 0.02, (("Y", turn), ("X", 90)), odd=side > 0)


def patch(bolster, cells=8):
    """A patch, and the big stitches that hold it."""
    (middle_x, middle_y), size, crooked = PATCH
    tilt = math.radians(crooked)

    def on(u, v, height):
        x, y = u * size / 2, v * size / 2
        at, normal = onto_front(bolster, middle_x + x * math.cos(tilt) - y * math.sin(tilt),
                                middle_y + x * math.sin(tilt) + y * math.cos(tilt))
        return at + normal * height

    vertices, faces, uvs = [], [], []
    steps = [2 * step / cells - 1 for step in range(cells + 1)]
    steps[0], steps[1:1], steps[-1:-1], steps[-1] = -1.0, [-0.98, -0.92], [0.92, 0.98], 1.0
    heights = {1.0: -0.03, 0.98: 0.02, 0.92: 0.035}
    count = len(steps)
    for v in steps:
        for u in steps:
            vertices.append(on(u, v, heights.get(round(max(abs(u), abs(v)), 2), 0.04)))
    for j in range(count - 1):
        for i in range(count - 1):
            corners = [(i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1)]
            faces.append([a + b * count for a, b in corners])
            uvs.append([(steps[a] * size / 2, steps[b] * size / 2) for a, b in corners])
    parts = [named(mesh.from_geometry("patch", vertices, faces, uvs), "patch")]
    for along in (-0.7, -0.23, 0.23, 0.7):
        for line in ([(along, 0.78), (along + 0.06, 1.2)], [(along, -0.78), (along - 0.06, -1.2)],
                     [(0.78, along), (1.2, along - 0.06)], [(-0.78, along), (-1.2, along + 0.06)]):
            (u, v), (far_u, far_v) = line
            path = [on(u + (far_u - u) * t, v + (far_v - v) * t, height)
                    for t, height in ((0.0, 0.0), (0.15, 0.05), (0.5, 0.06), (0.85, 0.025), (1.0, -0.02))]
            parts.append(named(even_rings(shapes.tube(path, 0.026, sides=6, name="stitch"), 6, 0.06), "thread"))
    return parts


def frame_back():
    parts = cover("frame", FRAME_SIZE, FRAME_CELLS, 0.85, 0.35, (REAR, HIDDEN, (HIDDEN, REAR, REAR, REAR)),
                  piped=(0,))
    # It is looked at from behind: turned, so that the panel with the full texture is there.
    cloth.place(parts, turns=(("Y", 180), ("X", 90)))
    width, height, thickness = FRAME_SIZE
    lean = 0.45
    fit(parts, (-width / 2, UNDERSIDE, BEHIND + lean), (width / 2, UNDERSIDE + height, BEHIND + lean + thickness))

    def tilt(at):
        at.z -= lean * (at.y - UNDERSIDE) / height
        return at

    return [mesh.displace(part, tilt) for part in parts]


def base():
    parts = cover("frame", BASE_SIZE, BASE_CELLS, 0.3, 0.3, (HIDDEN, HIDDEN, (1.0, HIDDEN, REAR, HIDDEN)), piped=(1,))
    width, depth, height = BASE_SIZE
    fit(parts, (-width / 2, UNDERSIDE, SEAT_FRONT - 0.12 - depth), (width / 2, UNDERSIDE + height, SEAT_FRONT - 0.12))
    return parts


def plump(at, side, share, buttoned):
    """Where the flat cut of a pillow goes when it is filled: full in the middle, its sides drawn in between the
    corners, with creases that run out of these; a button pulls the middle in."""
    u, v = 2 * at.x / side, 2 * at.z / side
    half = side * share / 2
    full = max(0.0, (1 - u * u) * (1 - v * v))
    up = PILLOW_HEIGHT * half * full ** 0.42
    corner = math.hypot(1 - abs(u), 1 - abs(v))
    turn = math.atan2(1 - abs(v), 1 - abs(u)) - math.pi / 4
    up *= 1 + 0.16 * math.cos(9 * turn) * math.exp(-((corner - 0.45) / 0.3) ** 2)
    if buttoned:
        away = math.hypot(u, v)
        rays = 0.5 + 0.5 * math.cos(6 * math.atan2(v, u) + 0.5)
        up -= half * (0.2 * math.exp(-(away / 0.28) ** 2) + 0.05 * rays * math.exp(-away / 0.35) * min(1.0, away / 0.2))
    x, z = (half * a * (1 - 0.09 * (1 - b ** 4) * abs(a) ** 3) for a, b in ((u, v), (v, u)))
    return Vector((x, math.copysign(up, at.y), z))


def press(target, others, gap, rounds=14):
    """Dents a pillow where the others, closed bodies, press into it; the dents run out softly into the rest."""
    trees = [bvhtree.BVHTree.FromObject(other, bpy.context.evaluated_depsgraph_get()) for other in others]
    data = target.data
    rest = [vertex.co.copy() for vertex in data.vertices]
    neighbours = [[] for _ in rest]
    for edge in data.edges:
        first, second = edge.vertices
        neighbours[first].append(second)
        neighbours[second].append(first)
    moved = [Vector() for _ in rest]

    def out_of_all(place):
        for tree in trees:
            on, normal, _, _ = tree.find_nearest(place, 1.2)
            if on is not None and (place - on).dot(normal) < gap:
                place = on + normal * gap
        return place

    for turn in range(rounds):
        if turn:
            moved = [(sum((moved[other] for other in around), Vector()) / len(around) + way) / 2
                     for around, way in zip(neighbours, moved)]
        moved = [out_of_all(place + way) - place for place, way in zip(rest, moved)]
    for vertex, place, way in zip(data.vertices, rest, moved):
        vertex.co = place + way
    data.update()
    return target


def pillow(part, side, share, at, turns, others):
    """A pillow, dented by the others, and its cord."""
    made, seams = cloth.sew(side, side, 0.0, (PILLOW_CELLS, PILLOW_CELLS, 0), 0.02, name=part)
    mesh.displace(made, lambda place: plump(place, side, share, part == TUFTED))
    split(made, lambda face: (part, 1.0) if face.index < PILLOW_CELLS ** 2 else (part + " back", HIDDEN))
    cloth.place([made], *at, turns=turns)
    press(made, others, 0.015)
    return [made, cord(made, seams[0], 0.055, part, sides=6, step=PILLOW_CORD[part])]


def sitters():
    """Those who sit here, as they are without hat and glasses."""
    path = os.path.join(os.path.dirname(__file__), "../../assets/person.glb")
    return [mesh.move(mesh.merge(model.load(path)), x) for x in SITTING]


def tuft_button(pillow_cover):
    """A button in the middle of a pillow."""
    middle = pillow_cover.data.vertices[PILLOW_CELLS // 2 * (PILLOW_CELLS + 2)]
    x, y, z = middle.normal
    turns = ("Y", math.degrees(math.atan2(x, z))), ("X", math.degrees(math.acos(y)))
    return button(middle.co + middle.normal * 0.07, turns)[0]


def build():
    parts, seated = [*base(), *frame_back()], sitters()
    leant_on = list(seated)
    for side in (-1, 1):
        bolster, cushion, support = arm(side), seat(side), back(side)
        parts += [*bolster, *cushion, *support, *arm_button(bolster[0], side)]
        parts += patch(bolster[0]) if side < 0 else trousers_kit.trousers([bolster[0], cushion[0]])
        leant_on += [bolster[0], cushion[0], support[0]]
    covers = {}
    for row in PILLOWS:
        made = pillow(*row, leant_on)
        covers[row[0]] = made[0]
        parts += made
    for sitter in seated:
        bpy.data.objects.remove(sitter)
    sewn_on = mesh.smooth(tuft_button(covers[TUFTED]))
    sofa = uv.pack(mesh.smooth(mesh.join(parts, "sofa")), margin=0.003)
    return mesh.join([sofa, share_place(sofa, "button", sewn_on)], "sofa")


if __name__ == "__main__":
    model.main(build, tangents=True)

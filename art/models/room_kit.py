"""What hangs and stands in the room besides the furniture: window, curtains, door, pictures, shelf, clock, lamp, cat.

Everything that belongs to a wall is made in front of it: x to the right as seen from inside, y up from the floor, z
out of the wall. `Wall.hang` puts it there.
"""

import math
import random

import numpy as np

from kit import mesh, sdf, shapes, uv
from kit.parts import split

# --- small helpers --------------------------------------------------------------------------------------------------


class Wall:
    """A wall's inner side. `turn`: degrees about y that make its z look into the room; `at`: its foot, where x is 0."""

    def __init__(self, turn, at):
        self.turn, self.at = turn, at

    def hang(self, part, x=0.0, y=0.0, z=0.0):
        mesh.move(part, x, y, z)
        return mesh.move(mesh.turn(part, "Y", self.turn), self.at[0], 0.0, self.at[1])


def upright(part):
    """Stands what was made lying, its upper face now looking along z."""
    return mesh.turn(part, "X", 90)


def block(size, at, radius=0.05, segments=2):
    return mesh.weighted_normals(shapes.box(size, at, radius, segments))


def turned(profile, segments, steps=1):
    """A body of revolution whose texture coordinates are in model units, like those of all other parts."""
    outline = shapes.smooth_profile(profile, steps) if steps > 1 else profile
    length = sum(math.dist(a, b) for a, b in zip(outline, outline[1:]))
    widest = max(radius for radius, _ in outline)
    return uv.scale(shapes.lathe(outline, segments), (2 * math.pi * widest * 0.8, length))


def body(field, low, high, cell, name):
    """A soft body, unfolded, in model units."""
    made = mesh.smooth(sdf.to_mesh(field, low, high, cell, name=name))
    uv.unfold(made, margin=0.02)
    return uv.scale(made, 1 / uv.density(made)[1])


def ring(width, height, border, depth):
    """A mitred frame round an opening of this size: it rises from the wall to `depth` and falls in to the opening."""
    soft = min(0.06, border * 0.3)
    profile = [(border, -0.03), (border, depth - soft), (border - soft * 0.3, depth - soft * 0.3),
               (border - soft, depth),
               (border * 0.45, depth * 0.97), (border * 0.32, depth * 0.72), (border * 0.15, depth * 0.66),
               (0.0, depth * 0.5),
               (0.0, 0.0)]
    x, y = width / 2, height / 2
    path = [(-x, -y, 0), (-x, y, 0), (x, y, 0), (x, -y, 0)]
    return mesh.smooth(shapes.sweep(profile, path, up=(0, 0, 1), closed=True, name="frame"), 45)


def printed(part, rest, weight):
    """For `split`, while a part still lies: its flat upper face carries a picture, its edge does not."""
    return lambda face: (part, weight) if face.normal.y > 0.99 else (rest, 0.4)


def panel(width, height):
    """A flat picture, looking along z."""
    half_x, half_y = width / 2, height / 2
    return mesh.from_geometry("panel", [(-half_x, -half_y, 0), (half_x, -half_y, 0), (half_x, half_y, 0),
                                        (-half_x, half_y, 0)],
                              [(0, 1, 2, 3)])


# --- walls ----------------------------------------------------------------------------------------------------------


def add_picture(parts, wall, x, y, width, height, part, frame="frame", border=0.16, weight=2.4):
    parts.add(wall.hang(ring(width, height, border, 0.16), x, y), frame, 0.6)
    parts.add(wall.hang(panel(width, height), x, y, 0.05), part, weight)


def add_window(parts, wall, x, low, width, height, thickness):
    """Casing, sill, sashes and the pane, which is the evening itself."""
    middle = low + height / 2
    parts.add(wall.hang(ring(width, height, 0.38, 0.17), x, middle), "trim", 0.5)
    parts.add(wall.hang(block((width + 1.1, 0.2, thickness + 0.5), (0, 0, 0), 0.08, 3), x, low - 0.1,
                        0.5 - thickness / 2), "sill", 0.6)
    parts.add(wall.hang(block((width + 0.7, 0.22, 0.12), (0, 0, 0), 0.05), x, low - 0.3, 0.08), "trim", 0.5)
    glass = -thickness * 0.66
    parts.add(wall.hang(panel(width, height), x, middle, glass), "dusk", 1.1)
    depth, bar = 0.16, 0.2
    for side in (-1, 1):
        parts.add(wall.hang(block((bar, height, depth), (0, 0, 0)), x + side * (width - bar) / 2, middle, glass + 0.07),
                  "trim", 0.5)
        parts.add(wall.hang(block((width, bar, depth), (0, 0, 0)), x, middle + side * (height - bar) / 2, glass + 0.07),
                  "trim", 0.5)
    for share in (-1 / 6, 1 / 6):
        parts.add(wall.hang(block((0.13, height, 0.12), (0, 0, 0)), x + share * width, middle, glass + 0.05), "trim",
                  0.5)
    parts.add(wall.hang(block((width, 0.15, 0.12), (0, 0, 0)), x, middle + height * 0.12, glass + 0.05), "trim", 0.5)


def curtain(width, height, side, pleats=6.5, cells=(120, 30), thickness=0.07, cloth=0.03):
    """A pleated curtain, gathered at its tie towards `side`; its top is at y 0. No two pleats are alike. It is as thick
    as `thickness` in the texture, and as `cloth` to look at, or the pleats would cut each other where it is tied."""
    across, down = cells
    vertices, faces, uvs = [], [], []

    def fold(u, share):
        """(x, z) of the cloth's middle, `share` of the way down."""
        waist = math.exp(-((share - 0.6) / 0.17) ** 2)
        wander = 0.55 * math.sin(7.3 * u + 1.9 * side) + 0.35 * math.sin(15.1 * u + 0.8 + side)
        phase = 2 * math.pi * pleats * u + wander + 0.35 * math.sin(3 * share + side + 4 * u)
        deep = 0.75 + 0.3 * math.sin(11.7 * u + 2.2 * side) + 0.2 * math.sin(23.0 * u + 5 * share)
        depth = 0.18 * deep * (1 - 0.62 * waist) * (0.6 + 0.4 * share)
        flare = 0.1 * math.sin(2.5 * share + 7 * u) * share
        return (width * ((u - 0.5) * (1 - 0.5 * waist) + side * 0.25 * waist) + 0.02 * (1 - waist) * math.cos(phase),
                depth * (math.sin(phase) + 0.18 * math.sin(2 * phase + 1)) + flare + 0.05 * math.sin(phase * 0.5))

    for j in range(down + 1):
        share = j / down
        front, back = [], []
        for i in range(across + 1):
            (ax, az), (bx, bz) = fold((i - 0.3) / across, share), fold((i + 0.3) / across, share)
            x, z = fold(i / across, share)
            reach = cloth / 2 / math.hypot(bx - ax, bz - az)
            front.append((x - (bz - az) * reach, -height * share, z + (bx - ax) * reach))
            back.append((x + (bz - az) * reach, -height * share, z - (bx - ax) * reach))
        vertices += front + back[::-1]
    loop = 2 * (across + 1)
    step = 1.5 * width / across
    around = [k * step if k <= across else (k - 1) * step + thickness
              for k in range(loop)] + [(loop - 2) * step + 2 * thickness]
    for j in range(down):
        for k in range(loop):
            a, b = j * loop + k, j * loop + (k + 1) % loop
            faces.append((a, a + loop, b + loop, b))
            uvs.append([(around[n], -height * level / down) for n, level in ((k, j), (k, j + 1), (k + 1, j + 1),
                                                                             (k + 1, j))])
    for level, up in ((0, 1), (down, -1)):
        for i in range(across):
            four = [level * loop + i, level * loop + i + 1, level * loop + loop - 2 - i,
                    level * loop + loop - 1 - i][::up]
            strip = [(around[i], 0), (around[i + 1], 0), (around[i + 1], thickness), (around[i], thickness)][::up]
            faces.append(four)
            uvs.append([(u, v + up * 2 - height * (up < 0)) for u, v in strip])
    return mesh.smooth(mesh.from_geometry("curtain", vertices, faces, uvs), 100)


def add_curtains(parts, wall, x, low, width, top):
    """Two curtains on a pole with round ends, tied with cords."""
    reach = width / 2 + 1.75
    pole = uv.scale(mesh.turn(turned([(0.0, -0.01), (0.085, 0.0), (0.085, 2 * reach), (0.0, 2 * reach + 0.01)], 14),
                              "Z", -90), 1)
    parts.add(wall.hang(mesh.smooth(pole, 50), x - reach, top, 0.48), "brass", 0.4)
    for side in (-1, 1):
        knob = turned([(0.0, -0.02), (0.1, 0.0), (0.12, 0.05), (0.1, 0.1), (0.2, 0.2), (0.22, 0.32), (0.15, 0.45),
                       (0.0, 0.5)], 16, 2)
        parts.add(wall.hang(mesh.smooth(mesh.turn(knob, "Z", -90 * side)), x + side * reach, top, 0.48), "brass", 0.5)
        parts.add(wall.hang(block((0.12, 0.12, 0.5), (0, 0, 0), 0.04), x + side * (reach - 0.22), top, 0.25), "brass",
                  0.4)
        cloth = curtain(2.3, top - low, side)
        parts.add(wall.hang(cloth, x + side * (reach - 1.35), top + 0.06, 0.48), "curtain", 0.5)
        loops = [(0.62 * math.cos(a), 0.1 * math.sin(a) - 0.12 * math.cos(a) * side, 0.3 * math.sin(a)) for a in
                 [2 * math.pi * k / 28 for k in range(28)]]
        cord = shapes.tube(loops, 0.06, sides=8, closed=True)
        parts.add(wall.hang(mesh.smooth(cord), x + side * (reach - 1.35 + 0.57), top - 0.6 * (top - low), 0.48), "cord",
                  0.5)


# (inwards from the opening's border, out of the wall)
CASING = [(0.0, -0.02), (0.0, 0.19), (-0.06, 0.25), (-0.28, 0.26), (-0.34, 0.24), (-0.36, 0.19), (-0.36, -0.02)]


def add_door(parts, wall, x, width, height):
    """A panelled door that is taken, and what hangs on it and beside it."""
    parts.add(wall.hang(block((width, height, 0.12), (0, 0, 0), 0.03), x, height / 2 + 0.06, 0.04), "door", 0.8)
    for y, tall in ((height * 0.31, height * 0.42), (height * 0.76, height * 0.34)):
        for side in (-1, 1):
            field = shapes.plate(shapes.rectangle(width * 0.36, tall),
                                 [(0.0, 0.0), (0.02, 0.045), (0.05, 0.05), (0.09, 0.02), (0.13, 0.02), (0.22, 0.07)],
                                 bottom=False)
            parts.add(wall.hang(upright(mesh.smooth(field, 50)), x + side * width * 0.225, y, 0.095), "door", 0.7)
    right, left, top = x + width / 2, x - width / 2, height + 0.1
    path = [(right, 0.0, 0.0), (right, top, 0.0), (left, top, 0.0), (left, 0.0, 0.0)]
    casing = shapes.sweep(CASING, path, up=(0, 0, 1), name="casing")
    parts.add(wall.hang(mesh.smooth(casing, 45)), "trim", 0.5)
    knob = turned([(0.05, 0.0), (0.06, 0.1), (0.1, 0.14), (0.15, 0.2), (0.14, 0.28), (0.0, 0.32)], 18, 2)
    parts.add(wall.hang(mesh.smooth(upright(knob)), x - width * 0.4, height * 0.48, 0.1), "brass", 0.6)
    lock = shapes.plate(shapes.superellipse(0.3, 0.3, 2, 20), shapes.rounded_edge(0.03, 2, 0.06), bottom=False)
    split(mesh.weighted_normals(lock), printed("occupied", "brass", 1.6))
    parts.add(wall.hang(upright(lock), x - width * 0.4, height * 0.56, 0.1), None)
    sign = shapes.plate(shapes.rounded_outline(1.15, 0.62, 0.12, 4), shapes.rounded_edge(0.04, 2, 0.07), bottom=False)
    split(mesh.weighted_normals(sign), printed("sign_wc", "paper", 2.4))
    parts.add(wall.hang(upright(sign), x, height * 0.76, 0.14), None)


def add_ticket_machine(parts, wall, x, y):
    """Take a number."""
    shell = shapes.plate(shapes.superellipse(0.8, 1.0, 2.6, 28), shapes.rounded_edge(0.12, 4, 0.36), bottom=False)
    parts.add(wall.hang(upright(mesh.weighted_normals(shell)), x, y, -0.02), "red", 0.8)
    parts.add(wall.hang(block((0.5, 0.1, 0.2), (0, 0, 0), 0.04), x, y - 0.48, 0.2), "red", 0.6)
    label = panel(0.52, 0.34)
    parts.add(wall.hang(label, x, y + 0.08, 0.345), "sign_number", 2.6)
    slip = [(k * 0.07, -0.5 - 0.06 * k - 0.01 * k * k, 0.2 + 0.05 * math.sin(k * 0.9)) for k in range(6)]
    vertices = [(side * 0.17, y_slip, z_slip + thick) for thick in (0.0, -0.015) for _, y_slip, z_slip in slip
                for side in (-1, 1)]
    faces = []
    for k in range(len(slip) - 1):
        a, b = 2 * k, 2 * k + 2 * len(slip)
        faces += [(a, a + 2, a + 3, a + 1), (b, b + 1, b + 3, b + 2)]
    parts.add(wall.hang(mesh.smooth(mesh.from_geometry("slip", vertices, faces)), x, y), "paper", 0.8)


def add_clock(parts, wall, x, y, radius=0.95):
    """Eight o'clock: the hour after which nobody wears trousers."""
    rim = turned([(radius, 0.0), (radius, 0.14), (radius - 0.03, 0.2), (radius - 0.1, 0.22), (radius - 0.17, 0.19),
                  (radius - 0.2, 0.1), (radius - 0.2, 0.06)], 48)
    parts.add(wall.hang(mesh.smooth(upright(rim), 60), x, y, -0.01), "brass", 0.5)
    dial = shapes.plate(shapes.superellipse(2 * radius - 0.36, 2 * radius - 0.36, 2, 40), [(0.0, 0.0), (0.01, 0.09)],
                        bottom=False)
    split(mesh.smooth(dial, 30), printed("dial", "paper", 2.0))
    parts.add(wall.hang(upright(dial), x, y), None)
    for length, width, angle, z in ((radius * 0.44, 0.12, 240, 0.12), (radius * 0.66, 0.085, 0, 0.15)):
        hand = block((width, length + 0.14, 0.03), (0, length / 2 - 0.07, 0), 0.012, 1)
        parts.add(wall.hang(mesh.turn(hand, "Z", -angle), x, y, z), "iron", 0.5)
    hub = turned([(0.1, 0.0), (0.1, 0.03), (0.0, 0.06)], 16)
    parts.add(wall.hang(mesh.smooth(upright(hub), 50), x, y, 0.14), "iron", 0.5)


def add_shelf(parts, wall, x, y, width, seed=8):
    """Books, most of them upright, a cactus and a cup somebody won."""
    parts.add(wall.hang(block((width, 0.14, 0.78), (0, 0, 0), 0.05, 3), x, y, 0.39), "shelf", 0.7)
    for side in (-1, 1):
        bracket = shapes.sweep([(0.0, -0.05), (0.06, -0.04), (0.06, 0.04), (0.0, 0.05), (-0.06, 0.04), (-0.06, -0.04),
                                (0.0, -0.05)],
                               [(0, -0.62, 0.06), (0, -0.12, 0.1), (0, -0.04, 0.62)], up=(1, 0, 0), caps=False)
        parts.add(wall.hang(mesh.smooth(bracket, 40), x + side * width * 0.36, y), "iron", 0.4)
    dice = random.Random(seed)
    left = x - width / 2 + 0.12
    number = 0
    while left < x + width * 0.12:
        thick, tall = dice.uniform(0.13, 0.27), dice.uniform(0.72, 1.08)
        book = block((thick - 0.012, tall, 0.58), (0, tall / 2, 0), 0.025, 2)
        parts.add(wall.hang(book, left + thick / 2, y + 0.065, 0.36 + dice.uniform(-0.03, 0.05)), f"book{number % 5}",
                  0.7)
        left += thick
        number += 1
    leaning = mesh.turn(block((0.17, 0.95, 0.56), (0, 0.475, 0), 0.025, 2), "Z", 15)
    parts.add(wall.hang(leaning, left + 0.29, y + 0.045, 0.37), "book1", 0.7)
    for level, (size, angle) in enumerate((((0.85, 0.15, 0.6), 4), ((0.78, 0.12, 0.55), -7))):
        lying = mesh.turn(block(size, (0, 0, 0), 0.025, 2), "Y", angle)
        parts.add(wall.hang(lying, x + width * 0.34, y + 0.14 + level * 0.137, 0.38), f"book{2 - 2 * level}", 0.7)
    cup = turned([(0.0, 0.0), (0.16, 0.0), (0.16, 0.05), (0.06, 0.1), (0.05, 0.22), (0.1, 0.3), (0.22, 0.46),
                  (0.25, 0.66), (0.21, 0.66),
                  (0.0, 0.5)], 20)
    parts.add(wall.hang(mesh.smooth(cup, 50), x + width * 0.34, y + 0.33, 0.38), "brass", 0.8)
    for side in (-1, 1):
        ear = shapes.tube([(side * (0.2 + 0.13 * math.sin(math.pi * k / 6)), 0.62 - 0.28 * k / 6, 0) for k in range(7)],
                          0.028, sides=6)
        parts.add(wall.hang(mesh.smooth(ear), x + width * 0.34, y + 0.33, 0.38), "brass", 0.6)


def trousers_field(bend, splay):
    def field(points):
        flat = points.copy()
        flat[..., 2] *= 1.6
        waist = sdf.round_box(flat, (0, -0.42, 0), (0.5, 0.42, 0.17), 0.15)
        legs = [sdf.limb(flat, (side * 0.25, -0.75, 0), (side * (0.32 + splay), -2.75, bend * side), 0.3, 0.235)
                for side in (-1, 1)]
        shape = sdf.union(0.1, waist, *legs)
        belt = sdf.round_box(flat, (0, -0.1, 0), (0.535, 0.085, 0.225), 0.05)
        hems = [sdf.round_box(flat, (side * (0.315 + splay), -2.68, bend * side), (0.28, 0.11, 0.25), 0.06)
                for side in (-1, 1)]
        fly = sdf.limb(flat, (0, -0.22, 0.2), (0, -0.62, 0.2), 0.03, 0.03)
        whole = sdf.union(0.03, shape, belt, fly, *hems) / 1.3
        return sdf.intersect(whole, -points[..., 1] - 2.78, 0.06)

    return field


def trousers(bend, splay):
    """The plain shape that their texture is laid out on."""
    return body(trousers_field(bend, splay), (-1.0, -3.2, -0.5), (1.0, 0.3, 0.5), 0.1, "trousers")


def creased_trousers(bend, splay):
    """The same as cloth: with an open waist, pressed creases, and folds at hips, knees and hems."""
    plain = trousers_field(bend, splay)

    def field(points):
        x, y, z = (points[..., axis] for axis in range(3))
        side = np.where(x > 0, 1.0, -1.0)
        soft = np.tanh(x / 0.12)
        down = np.clip((-y - 0.75) / 2.0, 0, 1)
        leg = side * (0.25 + (0.07 + splay) * down)
        away = np.hypot(x, y + 0.78)
        turn = np.arctan2(-y - 0.5, np.abs(x) + 0.05)
        folds = 0.02 * np.exp(-((x - leg) / 0.1) ** 2) * np.clip(-y - 0.6, 0, 0.5) * 2
        fan = np.clip((away - 0.12) / 0.2, 0, 1) * np.exp(-(away / 0.42) ** 2)
        folds += (0.024 + 0.008 * soft) * np.sin(8 * turn + 1.3 * soft) * np.abs(soft) * fan
        slant = 7.5 * y + 3.4 * (x - leg) * side
        folds += 0.016 * np.sin(slant * 1.4 + side) * np.exp(-((y + 1.78 + 0.1 * side) / 0.24) ** 2)
        folds += 0.018 * np.sin(slant * 1.9 + 2 * side) * np.exp(-((y + 2.45) / 0.2) ** 2)
        folds += 0.012 * np.sin(7 * x + 1.3 * y + 1) * np.sin(2.1 * y + 5 * bend)
        folds *= np.clip((-y - 0.22) / 0.2, 0, 1) * np.clip((y + 2.62) / 0.1, 0, 1)
        hole = sdf.round_box(points, (0, 0.04, 0), (0.46, 0.13, 0.085), 0.05)
        gap = sdf.limb(points, (0, -1.02, 0), (0, -2.9, 0), 0.015, 0.03 + splay, (1, 1, 0.15))
        return sdf.cut(sdf.cut(plain(points) - 0.7 * folds, hole, 0.03), gap, 0.08)

    return mesh.smooth(sdf.to_mesh(field, (-1.0, -3.2, -0.5), (1.0, 0.3, 0.5), 0.05, name="trousers"))


PAIRS = [(0, "denim", -7, 0.05, 0.0), (2, "cord_trousers", 9, -0.08, 0.06)]  # peg, part, swing, bend, splay


def hang_pair(wall, x, y, pair, k, swing):
    """Hangs trousers by a loop of their waistband."""
    mesh.turn(mesh.move(pair, x=(0.32, -0.3)[k // 2]), "Z", swing)
    return wall.hang(pair, x - 1.35 + 0.9 * k, y + 0.02, 0.36)


def add_pegs(parts, wall, x, y):
    """It is past eight: two pairs of trousers hang here."""
    parts.add(wall.hang(block((3.7, 0.3, 0.12), (0, 0, 0), 0.05, 3), x, y, 0.05), "shelf", 0.6)
    for k in range(4):
        peg = turned([(0.05, 0.0), (0.05, 0.25), (0.1, 0.3), (0.1, 0.36), (0.0, 0.4)], 14, 2)
        parts.add(wall.hang(mesh.smooth(mesh.turn(upright(peg), "X", -14)), x - 1.35 + 0.9 * k, y, 0.08), "shelf", 0.5)
    for k, part, swing, bend, splay in PAIRS:
        parts.add(hang_pair(wall, x, y, trousers(bend, splay), k, swing), part, 0.8)


def add_cat(parts, wall, x, y, z):
    """Asleep on the sill, as a loaf, its tail hanging down in front."""
    def field(points):
        loaf = sdf.ellipsoid(points, (0, 0.34, 0), (0.72, 0.37, 0.36))
        rump = sdf.ellipsoid(points, (-0.38, 0.34, 0), (0.42, 0.4, 0.37))
        head = sdf.ellipsoid(points, (0.6, 0.52, 0.1), (0.3, 0.26, 0.27))
        muzzle = sdf.ellipsoid(points, (0.68, 0.45, 0.32), (0.12, 0.09, 0.09))
        ears = [sdf.limb(points, (0.6 + dx, 0.66, 0.06), (0.6 + dx * 1.35, 0.88, 0.05), 0.12, 0.025)
                for dx in (-0.17, 0.17)]
        paws = [sdf.ellipsoid(points, (0.42 + dx, 0.08, 0.33), (0.11, 0.09, 0.14)) for dx in (-0.12, 0.14)]
        tail = sdf.chain(points, [(-0.85, 0.25, 0.05), (-0.95, 0.14, 0.28), (-0.92, -0.2, 0.36), (-0.84, -0.62, 0.36),
                                  (-0.7, -0.85, 0.38)],
                         (0.13, 0.12, 0.115, 0.11, 0.09), 0.1)
        return sdf.union(0.05, sdf.union(0.2, loaf, rump), sdf.union(0.04, head, muzzle, *ears), *paws, tail)

    parts.add(wall.hang(body(field, (-1.3, -1.2, -0.6), (1.2, 1.2, 0.7), 0.075, "cat"), x, y, z), "cat", 1.2)


def fine_cat():
    """The cat itself: haunch, shoulder, a broad face with muzzle and closed eyes, ears, and a tail that hangs in a bow.
    `add_cat` makes the plain one that its texture is laid out on."""
    turned = sdf.rotation(6, -24, 5)

    def field(points):
        head_at = sdf.local(points, (0.6, 0.52, 0.1), turned)
        loaf = sdf.ellipsoid(points, (-0.02, 0.33, -0.02), (0.68, 0.34, 0.33))
        rump = sdf.ellipsoid(points, (-0.42, 0.34, -0.02), (0.4, 0.4, 0.36))
        haunch = sdf.ellipsoid(points, (-0.44, 0.25, 0.24), (0.31, 0.27, 0.15), sdf.rotation(0, 0, 24))
        hind = sdf.ellipsoid(points, (-0.2, 0.065, 0.33), (0.22, 0.075, 0.1))
        shoulder = sdf.ellipsoid(points, (0.27, 0.3, 0.22), (0.2, 0.25, 0.13), sdf.rotation(0, 0, -18))
        ruff = sdf.ellipsoid(points, (0.47, 0.34, 0.12), (0.24, 0.25, 0.24))
        skull = sdf.ellipsoid(head_at, (0, 0.02, 0), (0.27, 0.235, 0.235))
        cheeks = [sdf.ellipsoid(head_at, (side * 0.15, -0.07, 0.1), (0.14, 0.11, 0.13)) for side in (-1, 1)]
        puffs = [sdf.ellipsoid(head_at, (side * 0.06, -0.075, 0.225), (0.085, 0.066, 0.075)) for side in (-1, 1)]
        chin = sdf.ellipsoid(head_at, (0, -0.135, 0.19), (0.07, 0.05, 0.06))
        nose = sdf.ellipsoid(head_at, (0, -0.02, 0.275), (0.045, 0.03, 0.035))
        bridge = sdf.limb(head_at, (0, 0.1, 0.19), (0, 0.0, 0.25), 0.06, 0.04)
        ears = [sdf.cut(sdf.limb(head_at, (side * 0.15, 0.13, 0.0), (side * 0.22, 0.36, -0.01), 0.12, 0.022,
                                 (1, 1, 1.35)),
                        sdf.limb(head_at, (side * 0.16, 0.15, 0.11), (side * 0.215, 0.3, 0.06), 0.075, 0.02), 0.03)
                for side in (-1, 1)]
        eyes = [sdf.chain(head_at, [(side * (0.115 + dx), 0.045 - 6.6 * dx * dx, 0.262 - 0.9 * abs(side * dx + 0.03))
                                    for dx in (-0.06, -0.03, 0.0, 0.03, 0.06)], (0.021,) * 5, 0.01) for side in (-1, 1)]
        paws = [sdf.union(0.05, sdf.ellipsoid(points, (0.42 + dx, 0.075, 0.34), (0.105, 0.075, 0.15)),
                          *(sdf.ellipsoid(points, (0.42 + dx + toe, 0.06, 0.45), (0.036, 0.05, 0.06))
                            for toe in (-0.06, 0.0, 0.06))) for dx in (-0.13, 0.14)]
        tail = sdf.chain(points, [(-0.8, 0.24, 0.0), (-0.95, 0.14, 0.16), (-0.96, 0.1, 0.3), (-0.94, -0.08, 0.38),
                                  (-0.91, -0.35, 0.375), (-0.86, -0.6, 0.37), (-0.76, -0.8, 0.38),
                                  (-0.62, -0.86, 0.39)],
                         (0.14, 0.12, 0.115, 0.11, 0.105, 0.1, 0.095, 0.075), 0.08)
        trunk = sdf.union(0.12, sdf.union(0.2, loaf, rump), ruff)
        trunk = sdf.union(0.05, trunk, haunch, shoulder)
        face = sdf.union(0.05, sdf.union(0.08, skull, *cheeks), bridge, *puffs, chin)
        face = sdf.union(0.03, face, *ears, nose)
        face = sdf.cut(face, sdf.union(0.0, *eyes), 0.015)
        return sdf.union(0.05, sdf.union(0.07, trunk, face), hind, *paws, tail)

    made = sdf.to_mesh(field, (-1.3, -1.2, -0.6), (1.2, 1.2, 0.7), 0.037, name="cat")
    mesh.modify(made, "SMOOTH", factor=0.4, iterations=2)
    return mesh.smooth(mesh.apply_modifiers(made))


BULB = [(0.0, -0.36), (0.08, -0.33), (0.115, -0.24), (0.1, -0.16), (0.06, -0.07), (0.055, 0.0)]
BULB_SHARE = (2 * math.pi * 0.115 * 0.8, sum(math.dist(a, b) for a, b in zip(BULB, BULB[1:])))


def add_fairy_lights(parts, wall, nails, sag, bulbs):
    """A wire that hangs from nail to nail, (x, y), and bulbs along it."""
    count = 0
    for (ax, ay), (bx, by) in zip(nails, nails[1:]):
        path = []
        for k in range(15):
            share = k / 14
            path.append((ax + (bx - ax) * share, ay + (by - ay) * share - 4 * sag * share * (1 - share), 0.12))
        parts.add(wall.hang(mesh.smooth(shapes.tube(path, 0.032, sides=6), 80)), "iron", 0.25)
        for k in range(bulbs):
            point = path[round((k + 0.5) * 14 / bulbs)]
            bulb = uv.scale(shapes.lathe(shapes.smooth_profile(BULB, 2), 18), BULB_SHARE)
            parts.add(wall.hang(mesh.smooth(bulb), *point), f"bulb{count % 3}", 0.5)
            count += 1


# --- floor ----------------------------------------------------------------------------------------------------------


def add_lamp(parts, x, z):
    """A floor lamp: heavy foot, slim stem, a shade that tapers upwards, and a chain to pull."""
    foot = turned([(0.0, 0.0), (0.72, 0.0), (0.76, 0.04), (0.74, 0.1), (0.5, 0.17), (0.16, 0.22), (0.09, 0.3),
                   (0.065, 0.5), (0.065, 5.9), (0.0, 5.95)], 32)
    parts.add(mesh.move(mesh.smooth(foot, 40), x, -0.01, z), "brass", 0.4)
    low, high = 4.75, 6.6
    shade = [(1.22, low), (1.26, low + 0.02), (1.27, low + 0.06), (0.83, high - 0.06), (0.82, high - 0.02),
             (0.78, high), (0.74, high - 0.03),
             (0.76, high - 0.08), (1.19, low + 0.06), (1.19, low + 0.02), (1.22, low)]
    parts.add(mesh.move(mesh.smooth(turned(shade, 44), 60), x, 0, z), "shade", 0.9)
    bulb = turned([(0.0, 4.95), (0.2, 5.02), (0.3, 5.25), (0.26, 5.5), (0.1, 5.8), (0.07, 6.0)], 20)
    parts.add(mesh.move(mesh.smooth(bulb), x, 0, z), "bulb0", 0.4)
    for angle in (0, 120, 240):  # what carries the shade
        spoke = mesh.turn(block((0.76, 0.035, 0.035), (0.38, 6.35, 0), 0.012, 1), "Y", angle)
        parts.add(mesh.move(spoke, x, 0, z), "brass", 0.3)
    stem = turned([(0.0, 5.85), (0.045, 5.86), (0.045, 6.36), (0.0, 6.38)], 10)
    parts.add(mesh.move(mesh.smooth(stem, 50), x, 0, z), "brass", 0.3)
    for k in range(7):
        bead = turned([(0.0, -0.045), (0.045, 0.0), (0.0, 0.045)], 8, 2)
        parts.add(mesh.move(mesh.smooth(bead), x + 0.42, 4.75 - 0.1 * k, z + 0.42), "brass", 0.3)


def add_rug(parts, x, z, width, depth):
    """Low in the middle, where tables and feet stand, with a thick braided rim."""
    outline = shapes.rounded_outline(width, depth, 1.1, 10)
    profile = [(0.0, -0.02), (-0.03, 0.015), (-0.03, 0.055), (0.02, 0.088), (0.1, 0.09), (0.18, 0.065), (0.22, 0.045),
               (0.3, 0.04)]
    made = shapes.plate(outline, profile, bottom=False, strips=4, name="rug")
    mesh.move(mesh.smooth(made, 60), x, 0, z)
    parts.add(split(made, lambda face: ("rug", 1.5) if face.normal.y > 0.5 else ("rug_rim", 0.5)), None)


def add_planks(parts, low, high, rows, covered, seed=5):
    """Boards along z, each a little higher or lower, none quite straight. `low`, `high`: corners (x, z); boards that
    lie wholly within `covered`, another two corners, are left out."""
    dice = random.Random(seed)
    pitch = (high[0] - low[0]) / rows
    boards = []
    for row in range(rows):
        z = low[1] - dice.uniform(0.5, 4.0)
        while z < high[1]:
            length = dice.uniform(3.6, 7.2)
            begin, end = max(z, low[1]), min(z + length, high[1])
            if end - begin > 0.6:
                boards.append((row, begin, end))
            elif boards and boards[-1][0] == row:
                boards[-1] = (row, boards[-1][1], end)
            z += length
    for row, begin, end in boards:
        middle_x, middle_z = low[0] + pitch * (row + 0.5), (begin + end) / 2
        half_x, half_z = pitch / 2 - 0.012, (end - begin) / 2 - 0.012
        if all(a < middle - half and middle + half < b for middle, half, a, b in
               ((middle_x, half_x, covered[0][0], covered[1][0]), (middle_z, half_z, covered[0][1], covered[1][1]))):
            continue
        slant = dice.uniform(-0.008, 0.008)
        corners = [(half_x + slant, half_z), (half_x - slant, -half_z), (-half_x - slant, -half_z),
                   (-half_x + slant, half_z)]
        board = shapes.plate(corners, [(0.0, -0.06), (0.008, -0.03), (0.02, -0.01), (0.05, 0.0)], bottom=False,
                             name="plank")
        mesh.weighted_normals(uv.from_above(board))
        mesh.turn(board, "Z", dice.uniform(-0.25, 0.25))
        parts.add(mesh.move(board, middle_x, -0.004 - dice.uniform(0.0, 0.012), middle_z), "plank", 1.25)

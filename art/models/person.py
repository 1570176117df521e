"""The person on the sofa: a clay figure in a pyjama shirt, boxer shorts and rabbit slippers, in for the evening.

One colour is all it ever gets, so everything is told apart by relief. What belongs together is one distance field: the
skin from the head down to the chest, the shirt with its sleeves. What is sewn on (collar, placket, pocket, buttons,
hems) or combed (hair, moustache, brows) is made of rings and laid on those fields, so that it stays crisp. Two of them
sit side by side, so no side is like the other: one leg is crossed over the other, one hand lies on the belly, the other
on the thigh.

The origin is on the floor, below the front edge of the seat; it sits facing +z. Side +1 is that of +x, its left.
"""

from functools import lru_cache, partial

import numpy as np

from kit import mesh, model, sdf, shapes, uv
from models import head_kit
from models.head_kit import SIDES, curve, unit


def _point(values):
    return np.asarray(values, np.float32)


def _between(a, b, share):
    return _point(a) + (_point(b) - _point(a)) * share


def _facing(forward, up):
    """The rotation of a part whose z shall point forward and whose y about up."""
    across = unit(np.cross(_point(up), unit(forward)))
    return np.stack((across, np.cross(unit(forward), across), unit(forward)), axis=1).astype(np.float32)


# --- the skeleton -------------------------------------------------------------------------------------------------

BELLY = (0.0, 4.12, -0.76)
HEM = (0.0, 3.6, -0.6)
HEM_UP = unit((0.0, 0.94, -0.34))  # the hem climbs over the lap
SEAT = (0.0, 3.5, -0.98)

ARMS = {
    -1: {"shoulder": (-1.14, 4.92, -1.4), "elbow": (-1.98, 3.8, -0.95), "wrist": (-1.22, 4.34, 0.18)},
    +1: {"shoulder": (1.14, 4.92, -1.4), "elbow": (1.92, 3.74, -0.55), "wrist": (1.02, 4.5, 0.42)},
}
HANDS = {  # middle, where the fingers point, where the back of the hand looks
    -1: {"palm": (-0.79, 4.52, 0.3), "fingers": (1, 0.16, 0.12), "back": (-0.3, 0.35, 1)},
    +1: {"palm": (0.6, 4.55, 0.78), "fingers": (-0.62, -0.05, 0.75), "back": (0.1, 1, 0.1)},
}
LEGS = {
    -1: {"hip": (-0.6, 3.42, -0.85), "knee": (-0.9, 3.42, 1.6), "ankle": (-0.98, 0.86, 1.8)},
    +1: {"hip": (0.6, 3.52, -0.6), "knee": (-0.26, 4.38, 1.82), "ankle": (-1.28, 2.34, 2.66)},
}


def _foot(ankle, forward, up):
    """Where a slipper's origin is, on its sole, and how it is turned."""
    turned = _facing(forward, up)
    return _point(ankle) - 0.86 * turned[:, 1], turned


FEET = {
    -1: _foot(LEGS[-1]["ankle"], (-0.16, 0, 1), (0, 1, 0)),
    +1: _foot(LEGS[+1]["ankle"], (-0.34, -0.2, 0.9), (0.36, 0.88, 0.3)),
}

# --- rods and strips ----------------------------------------------------------------------------------------------


def shaded(part):
    """Fixes the smooth normals, one a vertex, so that they stay when the parts are joined."""
    mesh.smooth(part)
    part.data.use_auto_smooth = True
    part.data.normals_split_custom_set_from_vertices([vertex.normal for vertex in part.data.vertices])
    return part


def marble(at, size):
    angles = np.radians(np.linspace(180, 0, 11))[1:-1]
    profile = [(0.0, -size), *((size * np.sin(angle), size * np.cos(angle)) for angle in angles), (0.0, size)]
    return mesh.move(shapes.lathe(profile, segments=18), *at)


def strip(lefts, rights, left_normals, right_normals, section):
    """Cloth laid between two lines of points; `section` is (share of the way from left to right, height) all round."""
    shares, heights = (np.array(column, np.float32)[:, None] for column in zip(*section))
    rings = []
    for left, right, left_normal, right_normal in zip(lefts, rights, left_normals, right_normals):
        rings.append(left + (right - left) * shares + (left_normal + (right_normal - left_normal) * shares) * heights)
    return mesh.face_outwards(shapes.loft(rings))


def hem(at, axis, rows, count=44):
    """A ring of cloth round an axis; `rows` are (place along the axis, radius)."""
    rows = [(0.0, rows[-1][0]), *((radius, along) for along, radius in reversed(rows)), (0.0, rows[0][0])]
    turned = _facing(np.cross(axis, (0.3, 0.9, 0.3)), axis)
    return mesh.displace(shapes.lathe(rows, count), lambda place: _point(at) + turned @ np.asarray(place, np.float32))


def doubled(inner, outer, width):
    """Rows of a hem turned over once and sewn: its hollow, its lip, its outside with a seam along either edge."""
    return [(-0.08, 0.4 * inner), (-0.075, inner - 0.02), (-0.03, inner), (0.005, inner + 0.015),
            (0.02, (inner + outer) / 2), (0.01, outer - 0.012), (-0.02, outer), (-0.055, outer + 0.002),
            (-0.07, outer - 0.012), (-0.085, outer + 0.003), (0.5 * -width, outer + 0.012),
            (0.085 - width, outer + 0.006), (0.07 - width, outer - 0.008), (0.055 - width, outer + 0.004),
            (0.015 - width, outer - 0.002), (-width, outer - 0.025), (0.01 - width, outer - 0.07)]


# Sections of strips: a band with a seam along either edge, a collar that rolls over, and a patch.
FLAT = [(0.0, -0.06), (-0.01, 0.01), (0.06, 0.034), (0.2, 0.036), (0.28, 0.03), (0.36, 0.04), (0.64, 0.04),
        (0.72, 0.03), (0.8, 0.036), (0.94, 0.034), (1.01, 0.01), (1.0, -0.06)]
ROLLED = [(0.0, -0.12), (-0.04, -0.01), (0.0, 0.06), (0.1, 0.1), (0.3, 0.11), (0.6, 0.085), (0.84, 0.06), (0.88, 0.045),
          (0.92, 0.058), (0.98, 0.05), (1.01, 0.01), (0.98, -0.05)]
PLAIN = [(0.0, -0.06), (-0.005, 0.0), (0.03, 0.014), (0.09, 0.006), (0.16, 0.012), (0.5, 0.012), (0.84, 0.012),
         (0.91, 0.006), (0.97, 0.014), (1.005, 0.0), (1.0, -0.06)]


# --- shirt --------------------------------------------------------------------------------------------------------


def trunk(points):
    chest = sdf.ellipsoid(points, (0, 4.82, -1.3), (1.14, 0.82, 0.84))
    breast = sdf.ellipsoid(sdf.mirrored(points), (0.45, 4.86, -0.86), (0.45, 0.36, 0.4))
    shoulders = sdf.limb(points, (-0.84, 5.02, -1.45), (0.84, 5.02, -1.45), 0.42, 0.42)
    return sdf.union(0.4, sdf.union(0.5, sdf.ellipsoid(points, BELLY, (1.34, 1.0, 1.1)), chest), shoulders, breast)


def sleeve_end(side):
    """(place, direction) of where a sleeve stops."""
    arm = ARMS[side]
    return _between(arm["elbow"], arm["wrist"], 0.93), unit(_point(arm["wrist"]) - _point(arm["elbow"]))


def fore_sleeve(points, side):
    """Wide enough to hang down behind the elbow."""
    elbow, wrist = (_point(ARMS[side][joint]) for joint in ("elbow", "wrist"))
    end, along = sleeve_end(side)
    slack = sdf.limb(points, elbow + _point((-0.04 * side, -0.13, -0.08)),
                     _between(elbow, wrist, 0.62) - _point((0, 0.09, 0)), 0.36, 0.27)
    tube = sdf.limb(points, elbow, end + 0.2 * along, 0.41, 0.345)
    return sdf.intersect(sdf.meet(tube, slack, 0.15), (points - end) @ along + 0.1, 0.02)


def cuff(side):
    end, along = sleeve_end(side)
    return hem(end, along, doubled(0.268, 0.39, 0.36))


def shirt_ground(points):
    """Without folds."""
    body = sdf.intersect(trunk(points), (_point(HEM) - points) @ HEM_UP, 0.05)
    for side in SIDES:
        arm = ARMS[side]
        upper = sdf.limb(points, arm["shoulder"], arm["elbow"], 0.5, 0.4)
        slack = sdf.limb(points, _between(arm["shoulder"], arm["elbow"], 0.5) + _point((0.06 * side, -0.05, -0.06)),
                         arm["elbow"], 0.44, 0.4)
        body = sdf.meet(body, sdf.meet(upper, slack, 0.2), 0.3)
    for side in SIDES:
        body = sdf.meet(body, fore_sleeve(points, side), 0.04)
    folded = np.abs(points[..., 0])
    neckline = np.maximum((4.76 + 1.5 * folded - points[..., 1]) / 1.8, -1.4 - points[..., 2])
    neck = sdf.limb(points, *head_kit.THROAT, 0.66, 0.72)
    return sdf.cut(body, sdf.meet(neckline, neck, 0.1), 0.04)


def crook_folds(side):
    """Folds in the crook of an elbow, and what the sleeve has too much above the cuff."""
    arm = ARMS[side]
    shoulder, elbow, wrist = (_point(arm[joint]) for joint in ("shoulder", "elbow", "wrist"))
    up, down = unit(shoulder - elbow), unit(wrist - elbow)
    inside, square = unit(up + down), -side * unit(np.cross(up, down))  # the latter towards the body

    def around(at, begin, end, slant=0.0):
        turns = np.radians(np.linspace(begin, end, 5))
        return [at + 0.42 * (np.cos(turn) * inside + np.sin(turn) * square) + slant * turn * down for turn in turns]

    yield around(elbow + 0.1 * inside + 0.2 * up, -80, 40, 0.06), 0.1, 0.08
    yield around(elbow + 0.1 * inside + 0.24 * down, -75, 50, -0.06), 0.1, 0.08
    yield around(elbow + 0.46 * up, -60, 20, 0.12), 0.11, 0.06
    yield around(elbow + 0.52 * down, -140, -10, 0.12), 0.1, 0.065
    yield around(elbow + 0.76 * down, -60, 70, -0.06), 0.09, 0.065
    yield around(elbow + 0.82 * down, -170, -60, 0.05), 0.08, 0.04
    yield around(elbow + 0.6 * up, -170, -80, -0.16), 0.12, 0.06
    yield around(elbow + 0.9 * up, -100, -30, 0.2), 0.12, 0.06
    yield around(elbow + 0.34 * down, 95, 215, 0.1), 0.1, 0.06
    yield around(elbow + 0.62 * down, 110, 240, -0.08), 0.09, 0.05
    yield around(elbow + 0.24 * up, 140, 250, 0.1), 0.11, 0.05


SHIRT_FOLDS = [
    ([(-0.95, 4.7, -0.55), (-0.75, 4.62, -0.2), (-0.42, 4.5, 0.12)], 0.09, 0.07),
    ([(-1.05, 4.4, -0.5), (-1.0, 4.25, -0.2), (-0.85, 4.05, 0.1)], 0.1, 0.06),
    ([(0.95, 4.72, -0.55), (0.8, 4.52, -0.2), (0.55, 4.3, 0.15)], 0.1, 0.075),
    ([(1.08, 4.4, -0.5), (1.05, 4.2, -0.25), (0.8, 4.0, 0.1)], 0.1, 0.06),
    ([(0.9, 4.95, -0.75), (0.62, 4.78, -0.4), (0.3, 4.6, 0.05)], 0.08, 0.05),
    ([(-0.9, 4.98, -0.8), (-0.68, 4.9, -0.5), (-0.45, 4.85, -0.3)], 0.08, 0.05),
    ([(0.16, 4.3, 0.3), (0.45, 4.36, 0.25), (0.75, 4.5, 0.0)], 0.07, 0.045),
    ([(0.16, 4.26, 0.3), (0.5, 4.16, 0.25), (0.8, 4.15, 0.05)], 0.07, 0.045),
    ([(-1.0, 3.86, -0.1), (-0.55, 3.86, 0.2), (-0.1, 3.92, 0.33)], 0.09, 0.055),
    ([(1.1, 3.9, -0.2), (0.75, 3.98, 0.1), (0.25, 4.02, 0.33)], 0.08, 0.05),
    ([(-0.6, 5.3, -1.1), (-0.88, 5.1, -0.98), (-1.2, 4.78, -0.98)], 0.11, 0.06),
    ([(0.65, 5.28, -1.05), (0.95, 5.05, -1.0), (1.3, 4.7, -0.95)], 0.11, 0.06),
    ([(-1.25, 5.2, -1.3), (-1.45, 4.9, -1.15), (-1.55, 4.55, -0.95)], 0.1, 0.05),
    ([(1.3, 5.2, -1.35), (1.5, 4.85, -1.1), (1.55, 4.5, -0.85)], 0.1, 0.05),
]


@lru_cache
def shirt_folds():
    """The folds' paths, laid on the cloth."""
    wanted = SHIRT_FOLDS + [fold for side in SIDES for fold in crook_folds(side)]
    return [(sdf.settle(shirt_ground, curve(path, 3))[0], width, height) for path, width, height in wanted]


def shirt(points):
    return shirt_ground(points) - sum(sdf.fold(points, *row) for row in shirt_folds())


def button(at, normal, size=0.085):
    rim = [(0.0, -0.03), (0.9, -0.03), (1.0, 0.1), (1.0, 0.3), (0.9, 0.42), (0.74, 0.4), (0.62, 0.26), (0.3, 0.2),
           (0.0, 0.2)]
    parts = [shapes.lathe([(radius * size, height * size) for radius, height in rim], segments=22)]
    for turn in (45, 135):
        thread = [(-0.3 * size, 0.15 * size, 0), (-0.2 * size, 0.34 * size, 0), (0.2 * size, 0.34 * size, 0),
                  (0.3 * size, 0.15 * size, 0)]
        parts.append(mesh.turn(shapes.tube(thread, 0.09 * size, sides=6), "Y", turn))
    turned = _facing(np.cross(normal, (0.94, 0.34, 0)), normal)
    for part in parts:
        mesh.displace(part, lambda place: _point(at) + turned @ np.asarray(place, np.float32))
    return parts


PLACKET = [(0.05, 4.86, 0.0), (0.05, 4.6, 0.2), (0.05, 4.3, 0.33), (0.05, 4.0, 0.33), (0.05, 3.84, 0.28)]
BUTTONS = (4.66, 4.36, 4.06)


def placket():
    middle, normals = sdf.settle(shirt, curve(PLACKET, 5))
    lefts, _ = sdf.settle(shirt, middle - _point((0.11, 0, 0)))
    rights, _ = sdf.settle(shirt, middle + _point((0.11, 0, 0)))
    yield strip(lefts, rights, normals, normals, FLAT)
    for height in BUTTONS:
        nearest = np.abs(middle[:, 1] - height).argmin()
        yield from button(middle[nearest] + 0.035 * normals[nearest], normals[nearest])


COLLAR = [  # the roll from the front to the middle of the back; which way it falls, how wide, how high above the trunk
    ((0.04, 4.78, 0.1), (1, -0.1, 0), 0.1, 0.03), ((0.11, 4.9, -0.05), (1, -0.2, 0), 0.34, 0.05),
    ((0.2, 5.05, -0.3), (1, -0.2, 0), 0.5, 0.06), ((0.27, 5.16, -0.5), (1, -0.2, 0.1), 0.5, 0.06),
    ((0.31, 5.22, -0.62), (1, -0.2, 0.1), 0.36, 0.06), ((0.36, 5.3, -0.75), (1, -0.3, 0.3), 0.48, 0.07),
    ((0.5, 5.44, -1.1), (0.9, -0.4, 0.3), 0.42, 0.1), ((0.66, 5.55, -1.55), (0.8, -0.6, -0.1), 0.4, None),
    ((0.46, 5.66, -2.02), (0.5, -0.7, -0.5), 0.4, None), ((0.0, 5.7, -2.2), (0, -0.7, -0.7), 0.4, None)]


def collar():
    """From the front of one side round the neck to the other."""
    roll, falls = [], []
    for place, way, width, height in COLLAR:
        roll.append(_point(place) if height is None else sdf.settle(trunk, _point(place)[None], height)[0][0])
        falls.append(roll[-1] + width * unit(way))
    flip = _point((-1, 1, 1))
    roll = curve([place * flip for place in roll[:-1]] + roll[::-1], 5)
    falls = curve([place * flip for place in falls[:-1]] + falls[::-1], 5)
    falls, normals = sdf.settle(shirt_ground, falls, 0.03)
    outwards = unit(roll - _point((0, 4.7, -1.5)))
    return strip(roll, falls, unit(outwards + normals), normals, ROLLED)


POCKET = [  # down its middle: height, half its width, how high it stands; with a hem along the top
    (4.975, 0.195, -0.05), (4.972, 0.2, 0.015), (4.955, 0.2, 0.03), (4.87, 0.2, 0.03), (4.855, 0.2, 0.014),
    (4.7, 0.2, 0.014), (4.56, 0.2, 0.014), (4.5, 0.185, 0.014), (4.46, 0.15, 0.014), (4.445, 0.12, 0.01),
    (4.44, 0.11, -0.05)]


def pocket():
    edges = []
    for side in SIDES:
        places = [(0.6 + side * half, height + 0.02 * side, -0.2) for height, half, _ in POCKET]
        places, normals = sdf.settle(shirt_ground, places)
        edges.append((places + normals * (_point([lift for _, _, lift in POCKET])[:, None] + 0.012), normals))
    (lefts, left_normals), (rights, right_normals) = edges
    return strip(lefts, rights, left_normals, right_normals, PLAIN)


def chest(points):
    """What the open collar shows."""
    bones = sdf.limb(sdf.mirrored(points), (0.13, 5.12, -0.72), (0.8, 5.2, -1.2), 0.06, 0.06)
    x, y, z = np.moveaxis(points, -1, 0)
    shown = np.maximum(np.maximum(4.6 - y, np.abs(x) - 0.7), -1.4 - z)
    return sdf.intersect(sdf.union(0.1, trunk(points) + 0.05, bones), shown, 0.05)


def skin(points):
    return sdf.meet(head_kit.skin(points), chest(points), 0.14)


# --- hands --------------------------------------------------------------------------------------------------------

# Of each finger: across from the middle, towards the thumb; how long; how far ahead its knuckle is.
FINGERS = [(0.28, 0.93, 0.24), (0.095, 1.06, 0.28), (-0.09, 1.0, 0.26), (-0.265, 0.8, 0.2)]
BONES = (0.29, 0.2, 0.17)
FINGER_RADII = (0.105, 0.09, 0.083, 0.072)


def lap(points):
    """What the left hand lies on."""
    return sdf.union(0.05, shorts(points), bare_leg(points, +1), shirt_ground(points))


@lru_cache
def hand_bones(side):
    """(wrist, knuckles, fingers with a normal each): each finger a path from knuckle to tip, laid on what is below."""
    place, ground = HANDS[side], shirt_ground if side < 0 else lap
    forward, back = unit(place["fingers"]), unit(place["back"])
    aside = unit(np.cross(back, forward)) * -side
    forward = unit(np.cross(aside, back)) * -side
    palm = _point(place["palm"])
    fingers = []
    for across, long, ahead in FINGERS:
        way = unit(forward + 0.55 * across * aside)
        path = [palm + ahead * forward + across * aside]
        for bone in BONES:
            path.append(path[-1] + long * bone * way)
        heights = np.array((0.19, 0.17, 0.11, 0.07), np.float32)
        fingers.append(sdf.settle(ground, path, heights))
    thumb = [palm - 0.14 * forward + 0.2 * aside, palm + 0.08 * forward + 0.4 * aside,
             palm + 0.27 * forward + 0.47 * aside, palm + 0.42 * forward + 0.49 * aside]
    thumb = sdf.settle(ground, thumb, np.array((0.2, 0.15, 0.11, 0.085), np.float32))
    return _point(ARMS[side]["wrist"]), fingers, thumb


def digit(points, path, normals, radii):
    """A finger with creases over its joints and a nail."""
    def shaped(some):
        whole = sdf.chain(some, path, radii, 0.02)
        for joint in range(1, len(path) - 1):
            along = unit(path[joint + 1] - path[joint - 1])
            seen = some - path[joint]
            close = np.exp(-(seen * seen).sum(-1) / (1.6 * radii[joint]) ** 2)
            place = seen @ along
            above = np.clip(seen @ normals[joint] / radii[joint], 0, 1)
            whole = whole - 0.012 * close * above
            for crease in (-0.03, 0.03):
                whole = whole + 0.011 * above * np.exp(-((place - crease) / 0.018) ** 2)
        along = unit(path[-1] - path[-2])
        up = unit(normals[-1] + 0.15 * along)
        turned = _facing(along, up)
        thick = radii[-1]
        nail = sdf.ellipsoid(some, path[-1] + turned[:, 1] * thick * 0.6 + along * thick * 0.22,
                             (thick * 0.7, thick * 0.5, thick * 0.92), turned)
        return sdf.meet(whole, nail, 0.012)

    return sdf.near(points, path.min(axis=0) - 0.15, path.max(axis=0) + 0.15, shaped)


def hand(points, side):
    wrist, fingers, (thumb, thumb_normals) = hand_bones(side)
    back = unit(HANDS[side]["back"])
    knuckles = [path[0] for path, _ in fingers]
    palm = sdf.union(0.09, *(sdf.limb(points, _between(wrist, knuckle, 0.12), knuckle, 0.2, 0.125)
                             for knuckle in knuckles))
    ball = sdf.limb(points, _between(wrist, thumb[0], 0.4), thumb[1], 0.17, 0.13)
    arm = sdf.limb(points, _between(ARMS[side]["elbow"], wrist, 0.6), wrist, 0.28, 0.23)
    body = sdf.union(0.12, palm, ball, arm)
    for knuckle in knuckles:
        body = sdf.meet(body, sdf.ball(points, knuckle + 0.03 * back, 0.115), 0.05)
    digits = [digit(points, path, normals, FINGER_RADII) for path, normals in fingers]
    thumb = digit(points, thumb, thumb_normals, (0.15, 0.125, 0.112, 0.095))
    return sdf.union(0.05, body, sdf.union(0.03, *digits), thumb)


# --- below the shirt ----------------------------------------------------------------------------------------------

SHORTS_END = {-1: 0.7, +1: 0.52}  # of the thigh: where the cloth of one does not lie on that of the other


def shorts_end(side):
    """(place, direction) of where a leg of the shorts stops."""
    leg = LEGS[side]
    return _between(leg["hip"], leg["knee"], SHORTS_END[side]), unit(_point(leg["knee"]) - _point(leg["hip"]))


def shorts_leg(points, side):
    end, along = shorts_end(side)
    return sdf.intersect(sdf.limb(points, LEGS[side]["hip"], end, 0.68, 0.65), (points - end) @ along + 0.1, 0.02)


def shorts_hem(side):
    return hem(*shorts_end(side), doubled(0.585, 0.665, 0.34), 56)


def shorts_ground(points):
    legs = sdf.meet(shorts_leg(points, -1), shorts_leg(points, +1), 0.06)
    return sdf.meet(sdf.ellipsoid(points, SEAT, (1.3, 0.78, 1.0)), legs, 0.25)


SHORTS_FOLDS = [
    ([(-0.1, 3.85, 0.0), (-0.45, 4.05, 0.1), (-0.95, 4.0, -0.1)], 0.1, 0.05),
    ([(-0.1, 3.6, 0.25), (-0.5, 4.0, 0.35), (-1.1, 3.85, 0.2)], 0.09, 0.045),
    ([(0.0, 3.85, 0.1), (0.4, 4.3, 0.25), (0.95, 4.1, 0.0)], 0.1, 0.05),
    ([(0.95, 3.7, 0.6), (0.85, 4.1, 0.35), (0.5, 4.5, 0.55)], 0.09, 0.045),
    ([(-1.3, 3.4, -0.3), (-1.3, 3.6, 0.1), (-1.2, 3.8, 0.5)], 0.1, 0.04),
    ([(1.3, 3.4, -0.5), (1.2, 3.6, 0.0), (0.9, 3.9, 0.5)], 0.1, 0.05),
]


@lru_cache
def shorts_folds():
    return [(sdf.settle(shorts_ground, curve(path, 3))[0], width, height) for path, width, height in SHORTS_FOLDS]


def shorts(points):
    return shorts_ground(points) - sum(sdf.fold(points, *row) for row in shorts_folds())


def bare_leg(points, side):
    leg = LEGS[side]
    hip, knee, ankle = (_point(leg[joint]) for joint in ("hip", "knee", "ankle"))
    thigh_way, down = unit(knee - hip), unit(ankle - knee)
    front = unit(thigh_way - (thigh_way @ down) * down)
    across = np.cross(down, front)
    turned = np.stack((across, -down, front), axis=1).astype(np.float32)
    seen = (points - knee) @ turned  # y up along the shin, z to its front
    length = np.linalg.norm(ankle - knee)

    thigh = sdf.limb(points, _between(hip, knee, 0.45), knee - 0.05 * thigh_way, 0.565, 0.45)
    shin = sdf.limb(seen, (0, 0, 0), (0, -0.9 * length, 0), 0.4, 0.22)
    calf = sdf.ellipsoid(seen, (0.05, -0.34 * length, -0.2), (0.38, 0.72, 0.34), sdf.rotation(-4, 0, 0))
    inner_calf = sdf.ellipsoid(seen, (-0.14, -0.38 * length, -0.14), (0.26, 0.6, 0.28))
    ridge = sdf.limb(seen, (0, -0.2, 0.3), (0, -0.8 * length, 0.12), 0.1, 0.09)
    heel_cord = sdf.limb(seen, (0, -0.6 * length, -0.16), (0, -0.98 * length, -0.2), 0.12, 0.13)
    foot = sdf.limb(seen, (0, -length, 0), (0, -length - 0.25, 0.1), 0.25, 0.3)
    bones = sdf.ellipsoid(seen, (0.2, -length + 0.03, 0.02), (0.1, 0.13, 0.12))
    bones = np.minimum(bones, sdf.ellipsoid(seen, (-0.2, -length + 0.07, 0.05), (0.1, 0.13, 0.12)))
    body = sdf.union(0.2, sdf.meet(thigh, shin, 0.12), calf, inner_calf, heel_cord, foot)
    body = sdf.union(0.14, body, ridge, bones)

    cap = sdf.ellipsoid(seen, (0, 0.04, 0.34), (0.25, 0.25, 0.17), sdf.rotation(-32, 0, 0))
    tendon = sdf.limb(seen, (0, -0.2, 0.36), (0, -0.42, 0.31), 0.1, 0.11)
    muscles = sdf.ellipsoid(sdf.mirrored(seen), (0.25, 0.26, 0.02), (0.2, 0.22, 0.34))
    body = sdf.union(0.12, body, muscles, tendon)
    return sdf.meet(body, cap, 0.07)


# --- slippers, each in its own place: on the sole below the ankle, z to the toes ----------------------------------

PRICKED = [((0.2, 0.62, 0.7), 0.1), ((0.27, 0.86, 0.66), 0.13), ((0.34, 1.14, 0.56), 0.17), ((0.38, 1.36, 0.44), 0.16),
           ((0.4, 1.52, 0.34), 0.07)]
BENT = [((-0.2, 0.62, 0.7), 0.1), ((-0.27, 0.84, 0.69), 0.13), ((-0.38, 1.02, 0.7), 0.15), ((-0.58, 1.03, 0.76), 0.16),
        ((-0.76, 0.88, 0.84), 0.15), ((-0.82, 0.72, 0.88), 0.06)]
OPENING = ((0.0, 0.66, 0.0), 0.4, 0.46)  # middle, half its width, half its length


def slipper_ear(seen, stations):
    path = curve([place for place, _ in stations], 4)
    radii = np.maximum(0.03, curve([(radius, 0) for _, radius in stations], 4)[:, 0])
    along = unit(np.gradient(path, axis=0))
    inside = unit(np.cross(along, np.cross((0, 0.25, 1), along)))  # towards the toes
    shell = sdf.rope(seen, path, radii * 0.95)
    hollow = sdf.rope(seen, path[2:-3] + inside[2:-3] * radii[2:-3, None] * 1.05, radii[2:-3] * 0.72)
    return sdf.cut(shell, hollow, 0.05)


def slipper(points, side):
    """A rabbit lying on its stomach. The bent ear is on the right of both: the other foot has no room for a pricked one
    there."""
    at, turned = FEET[side]
    seen = sdf.local(points, at, turned)
    folded = sdf.mirrored(seen)
    toe = sdf.ellipsoid(seen, (0, 0.36, 0.7), (0.56, 0.42, 0.66))
    heel = sdf.ellipsoid(seen, (0, 0.36, -0.1), (0.5, 0.42, 0.5))
    cheeks = sdf.ellipsoid(folded, (0.32, 0.36, 1.05), (0.25, 0.22, 0.24))
    muzzle = sdf.ellipsoid(folded, (0.14, 0.34, 1.27), (0.18, 0.14, 0.13))
    chin = sdf.ellipsoid(seen, (0, 0.22, 1.25), (0.14, 0.1, 0.12))
    whole = sdf.union(0.1, sdf.meet(toe, heel, 0.2), cheeks)
    whole = sdf.union(0.04, whole, chin, muzzle)
    whole = sdf.meet(whole, np.minimum(slipper_ear(seen, PRICKED), slipper_ear(seen, BENT)), 0.07)
    place, half_width, half_length = OPENING
    hole = sdf.ellipsoid(seen, _point(place) + (0, 0.1, 0), (half_width, 0.45, half_length))
    whole = sdf.cut(sdf.cut(whole, hole, 0.05), seen[..., 1] - 0.12, 0.03)  # the sole hides the lower cut
    return sdf.union(0.05, whole, *fleece(seen))


def finer_ears(places, side):
    """They are thin, and seen against the light."""
    at, turned = FEET[side]
    return 0.6 * (sdf.local(places, at, turned)[:, 1] > 0.72)


def fleece(seen):
    """The lining rolled out round the opening, in tufts."""
    place, half_width, half_length = OPENING
    for number in range(17):
        turn = 2 * np.pi * number / 17
        out = 0.05 * np.sin(5 * turn + 1)
        at = _point(place) + (np.sin(turn) * half_width * 1.08, 0.03 * np.cos(3 * turn) - 0.04 * np.cos(turn),
                              np.cos(turn) * half_length * 1.08)
        yield sdf.near(seen, at - 0.2, at + 0.2, partial(sdf.ball, at=at, radius=0.125 + out * 0.25))


SOLE = [(0.88, 0.0), (0.96, 0.012), (1.0, 0.05), (1.0, 0.1), (0.975, 0.122), (0.985, 0.14), (0.985, 0.19),
        (0.95, 0.225), (0.8, 0.235)]
RABBIT_EYE = ((0.25, 0.6, 1.1), 0.085)
RABBIT_NOSE = ((0.0, 0.46, 1.38), 0.085)


def slipper_trimmings(side):
    sole = shapes.loft([shapes.ring(0.58 * share, 1.0 * share, 52, power=2.4, at=(0, height, 0.38))
                        for share, height in SOLE])
    nose = mesh.move(mesh.scale(marble((0, 0, 0), RABBIT_NOSE[1]), 1.25, 0.85, 0.8), *RABBIT_NOSE[0])
    teeth = [shapes.box((0.085, 0.13, 0.06), (x * 0.047, 0.235, 1.36), 0.02, 2) for x in SIDES]
    place, size = RABBIT_EYE
    parts = [sole, nose, *teeth, *(marble(place * _point((x, 1, 1)), size) for x in SIDES)]
    at, turned = FEET[side]
    for part in parts:
        mesh.displace(part, lambda corner: at + turned @ np.asarray(corner, np.float32))
    return parts


# --- all of it ----------------------------------------------------------------------------------------------------


def soft_parts():
    """(field, low corner, high corner, cell, vertices to keep, where to keep more of them)"""
    yield skin, (-1.6, 4.4, -3.3), (1.6, 8.0, 0.3), 0.026, 11850, head_kit.finer
    yield head_kit.hair_ground, *head_kit.HAIR_BOX, 0.06, 400, None
    yield shirt, (-2.6, 2.9, -2.5), (2.6, 5.9, 1.0), 0.036, 6700, None
    yield shorts, (-1.8, 2.5, -2.3), (1.9, 5.2, 1.6), 0.045, 1600, None
    for side in SIDES:
        bones = hand_bones(side)
        sleeve = _between(ARMS[side]["elbow"], ARMS[side]["wrist"], 0.6)
        reached = np.concatenate([sleeve[None], *(path for path, _ in bones[1]), bones[2][0]])
        yield partial(hand, side=side), reached.min(axis=0) - 0.4, reached.max(axis=0) + 0.4, 0.017, 3150, None
        joints = np.stack([_between(LEGS[side]["hip"], LEGS[side]["knee"], 0.45), LEGS[side]["knee"],
                           LEGS[side]["ankle"]])
        yield partial(bare_leg, side=side), joints.min(axis=0) - 0.9, joints.max(axis=0) + 0.9, 0.045, 1700, None
        at, turned = FEET[side]
        corners = np.array([(x, y, z) for x in (-1.1, 1.1) for y in (-0.1, 1.8) for z in (-0.8, 1.7)]) @ turned.T + at
        yield partial(slipper, side=side), corners.min(axis=0), corners.max(axis=0), 0.03, 2900, partial(finer_ears, side=side)


def laid_parts():
    for number in range(len(head_kit.LOCKS)):
        yield shapes.loft(head_kit.lock(number))
    for side in SIDES:
        path, radii = head_kit.lashes(side)
        yield shapes.tube(path, [float(radius) for radius in radii], sides=9)
    for rings in head_kit.growths():
        yield shapes.loft(rings)
    yield from placket()
    yield collar()
    yield pocket()
    for side in SIDES:
        yield cuff(side)
        yield shorts_hem(side)
        yield from slipper_trimmings(side)


def build():
    parts = [shaded(part) for part in laid_parts()]
    for field, low, high, cell, vertices, finer in soft_parts():
        part = mesh.largest_piece(sdf.to_mesh(field, low, high, cell, quick=True))
        parts.append(uv.wrap(sdf.thin_out(part, field, vertices, cell, finer), rounds=30))
    person = mesh.join(parts, "person")
    person.data.use_auto_smooth = True
    return person


if __name__ == "__main__":
    model.main(build)

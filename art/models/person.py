"""The person on the sofa: a clay figure in a jumper, boxer shorts, socks and rabbit slippers, in for the evening.

One colour is all it ever gets, so everything is told apart by relief. Each garment is a closed mesh of its own that
sinks into its neighbours: where two meet, the edge is as crisp as the picture is fine. Flesh is made of distance
fields; what is knitted, combed or sewn is made of rings, so that ribs and strands run straight.

The origin is on the floor, below the front edge of the seat; it sits facing +z. Side +1 is that of +x, its left.
"""

from functools import partial

import numpy as np

from kit import mesh, model, sdf, shapes, uv


def _point(values):
    return np.asarray(values, np.float32)


def _unit(values):
    return _point(values) / np.linalg.norm(values)


def _between(a, b, share):
    return _point(a) + (_point(b) - _point(a)) * share


def _facing(forward, up):
    """The rotation of a part whose z shall point forward and whose y about up."""
    across = _unit(np.cross(_point(up), _unit(forward)))
    return np.stack((across, np.cross(_unit(forward), across), _unit(forward)), axis=1)


# --- the skeleton -------------------------------------------------------------------------------------------------

HEAD = (0.0, 6.74, -1.95)
EYE = (0.43, 6.74, -1.13)
NECK = (0.0, 5.64, -1.6)
NECK_UP = _unit((0.0, 1.0, 0.16))
BELLY = (0.0, 4.3, -0.85)
HEM = (0.0, 3.72, -0.72)
HEM_UP = _unit((0.0, 0.94, -0.34))  # the hem climbs over the lap
SEAT = (0.0, 3.55, -1.05)

# Each side by its own numbers.
# One hand lies on the thigh, the other on the belly; one foot stands, the other rests on its heel.
SIDES = (-1, 1)
ARMS = {
    -1: {"shoulder": (-1.34, 4.9, -1.46), "elbow": (-2.2, 3.5, -1.3), "wrist": (-1.36, 4.36, 0.32)},
    +1: {"shoulder": (1.34, 4.9, -1.46), "elbow": (2.2, 3.46, -1.22), "wrist": (1.26, 4.5, 0.22)},
}
HANDS = {  # middle, and how it is turned: z to the finger tips, y to the back of the hand
    -1: ((-1.02, 4.3, 0.98), _facing((0.2, -0.12, 1), (0.05, 1, 0))),
    +1: ((0.66, 4.62, 0.5), _facing((-1, 0.12, 0.3), (0.3, 0.15, 1))),
}
LEGS = {
    -1: {"hip": (-0.66, 3.46, -0.8), "knee": (-0.98, 3.38, 1.74), "ankle": (-1.02, 0.72, 1.86)},
    +1: {"hip": (0.66, 3.46, -0.8), "knee": (1.0, 3.42, 1.78), "ankle": (1.2, 0.78, 2.5)},
}
FEET = {  # below the ankle on the sole, and how the foot is turned
    -1: ((-1.02, 0.0, 1.86), sdf.rotation(0, -10, 0)),
    +1: ((1.2, 0.27, 2.52), sdf.rotation(-27, 12, 0)),
}

# --- rings and rods -----------------------------------------------------------------------------------------------


def shaded(part):
    """Fixes the smooth normals, one a vertex, so that they stay when the parts are joined."""
    mesh.smooth(part)
    part.data.use_auto_smooth = True
    part.data.normals_split_custom_set_from_vertices([vertex.normal for vertex in part.data.vertices])
    return part


def round_about(axis, count, first=(1, 0, 0)):
    """Directions square to an axis, counter-clockwise, beginning with one that is square to `first` too."""
    side = _unit(np.cross(axis, first))
    angles = np.linspace(0, 2 * np.pi, count, endpoint=False)
    return np.cos(angles)[:, None] * side + np.sin(angles)[:, None] * np.cross(axis, side)


def ring_on(field, centre, axis, count, lift, rise=0.0):
    """A ring of points `lift` above a field's surface, seen from its axis upwards by `rise` degrees."""
    steep = np.radians(rise)
    points, normals = sdf.cast(field, centre, np.cos(steep) * round_about(axis, count) + np.sin(steep) * axis)
    return points + np.reshape(lift, (-1, 1)) * normals


def rod(stations, sides, steps=6):
    """A rod of changing thickness along stations, each a place and a radius."""
    points = shapes.smooth_profile([place for place, _ in stations], steps)
    radii = shapes.smooth_profile([(radius, 0.0) for _, radius in stations], steps)
    return shapes.tube(points, [max(0.01, float(radius)) for radius, _ in radii], sides=sides)


def marble(at, size):
    angles = np.radians(np.linspace(180, 0, 9))[1:-1]
    profile = [(0.0, -size), *((size * np.sin(angle), size * np.cos(angle)) for angle in angles), (0.0, size)]
    return mesh.move(shapes.lathe(profile, segments=14), *at)


def striped(count, lift):
    """(share of the way, lift) of the rows of `count` stripes; every other one is raised, flat, with soft edges."""
    rows = []
    for stripe in range(count):
        for place, height in ((0.0, 0.5), (0.07, 0.95), (0.16, 1.0), (0.5, 1.0), (0.84, 1.0), (0.93, 0.95)):
            rows.append(((stripe + place) / count, lift * (height if stripe % 2 else 1 - height)))
    return rows + [(1.0, 0.5 * lift)]


def banded(width, lift, depth=0.0):
    """(height, lift, depth of the ribs) of the rows of a band, rounded over at both edges."""
    rows = [(-0.49, -1.4, 0.0), (-0.5, 0.3, 0.4), (-0.45, 0.78, 0.85), (-0.33, 1.0, 1.0)]
    rows += [(-height, up, deep) for height, up, deep in reversed(rows)]
    return [(height * width, up * lift, deep * depth) for height, up, deep in rows]


RIB_POINTS = 4  # of one rib, all round


def band(a, b, radius, width, lift, ribs=0, depth=0.0):
    """A knitted cuff around the line from a towards b, beginning at a; without ribs a sewn one."""
    axis = _unit(_point(b) - _point(a))
    count = ribs * RIB_POINTS or 36
    wave = np.cos(2 * np.pi * ribs * np.arange(count) / count)
    return shapes.loft([_point(a) + (width / 2 + height) * axis
                        + (radius + up + deep * wave)[:, None] * round_about(axis, count)
                        for height, up, deep in banded(width, lift, depth)], closed=True)


# --- head ---------------------------------------------------------------------------------------------------------


def skull(points):
    """Wide at the cheeks; the rolled collar takes the chin."""
    return sdf.union(0.55, sdf.ellipsoid(points, HEAD, (1.17, 1.08, 1.07)),
                     sdf.ellipsoid(points, (0, 6.28, -1.86), (1.13, 0.72, 1.0)))


def ears(points):
    folded = sdf.mirrored(points)
    turned = sdf.rotation(0, -20, -8)
    shell = sdf.ellipsoid(folded, (1.2, 6.52, -1.98), (0.17, 0.33, 0.28), turned)
    return sdf.cut(shell, sdf.ellipsoid(folded, (1.36, 6.54, -1.9), (0.13, 0.21, 0.17), turned), 0.06)


def nose(points):
    ridge = sdf.limb(points, (0, 6.85, -0.98), (0, 6.4, -0.82), 0.13, 0.18)
    return sdf.union(0.18, sdf.ellipsoid(points, (0, 6.27, -0.66), (0.36, 0.3, 0.35)), ridge)


def face(points):
    folded = sdf.mirrored(points)
    head = sdf.meet(skull(points), nose(points), 0.14)
    head = sdf.meet(head, ears(points), 0.07)
    sockets = sdf.ellipsoid(folded, (0.44, 6.78, -0.72), (0.4, 0.3, 0.22))
    cheeks = sdf.ellipsoid(folded, (0.66, 6.32, -1.12), (0.36, 0.3, 0.26))
    chin = sdf.ellipsoid(points, (0, 5.72, -1.05), (0.34, 0.2, 0.24))
    return sdf.union(0.22, sdf.cut(head, sockets, 0.22), cheeks, chin)


def dome(radius):
    """A shell with a thick round rim at height 0."""
    angles = np.radians(np.linspace(80, 0, 7))
    arc = [(radius * np.sin(angle), radius * np.cos(angle)) for angle in angles[:-1]]
    rim = [(0.0, 0.02), (radius - 0.085, 0.0), (radius - 0.06, -0.03), (radius - 0.03, -0.032),
           (radius - 0.005, -0.005)]
    return shapes.lathe([*rim, *arc, (0.0, radius)], segments=26)


def eye(side):
    """All but shut: a heavy lid, a bag below it, and hardly anything of the ball between them."""
    lid = mesh.turn(mesh.turn(dome(0.335), "X", 12), "Z", -5 * side)
    bag = mesh.turn(mesh.turn(dome(0.315), "X", 180 + 30), "Z", 4 * side)
    return [mesh.move(part, side * EYE[0], *EYE[1:]) for part in (lid, bag, marble((0, 0, 0), 0.27))]


BROWS = {  # one of them raised
    -1: [((-0.16, 7.14, -0.96), 0.05), ((-0.3, 7.2, -0.95), 0.1), ((-0.5, 7.2, -1.0), 0.11),
         ((-0.68, 7.08, -1.1), 0.08), ((-0.8, 6.98, -1.19), 0.03)],
    +1: [((0.16, 7.2, -0.98), 0.05), ((0.3, 7.29, -0.98), 0.1), ((0.5, 7.32, -1.04), 0.11),
         ((0.7, 7.22, -1.15), 0.08), ((0.82, 7.1, -1.23), 0.03)],
}

# Strands of the moustache on the side of +x, from below the nose to the tip, turned up: they do the smiling.
MOUSTACHE = [
    [((0.0, 6.02, -0.8), 0.06), ((0.2, 6.04, -0.72), 0.12), ((0.46, 6.06, -0.77), 0.12), ((0.7, 6.14, -0.92), 0.08),
     ((0.9, 6.32, -1.06), 0.03)],
    [((0.0, 5.96, -0.78), 0.06), ((0.22, 5.93, -0.7), 0.13), ((0.5, 5.92, -0.76), 0.13), ((0.8, 6.02, -0.95), 0.09),
     ((1.02, 6.24, -1.1), 0.05), ((1.02, 6.38, -1.1), 0.02)],
    [((0.02, 5.9, -0.8), 0.06), ((0.2, 5.84, -0.74), 0.11), ((0.44, 5.8, -0.8), 0.12), ((0.7, 5.86, -0.96), 0.08),
     ((0.9, 6.02, -1.08), 0.03)],
]

CURL = [((0.0, 7.66, -2.0), 0.24), ((0.06, 7.9, -1.98), 0.19), ((0.12, 8.06, -1.88), 0.14), ((0.08, 8.14, -1.72), 0.11),
        ((-0.02, 8.1, -1.6), 0.08), ((-0.04, 8.0, -1.6), 0.03)]

WHORL = (190.0, 66.0)  # where all locks begin: yaw from the front towards +x, height above the middle, in degrees
LOCKS = [  # the same of their tips, and how far they swing out to their side
    (8, 44, 9), (-16, 38, 10), (-38, 34, 11), (-60, 22, 10), (-80, 4, 8), (-104, 8, 6), (-126, -14, 5), (-148, -22, 4),
    (30, 38, 6), (50, 30, 2), (70, 16, -4), (84, 3, -8), (104, 8, -6), (126, -14, -5), (148, -22, -4), (170, -26, 0),
    (192, -24, 0)]


def aimed(yaw, height):
    yaw, height = np.radians(yaw), np.radians(height)
    return np.stack((np.sin(yaw) * np.cos(height), np.sin(height), np.cos(yaw) * np.cos(height)), -1)


def lock(yaw, height, swing):
    """From the whorl over the skull to its tip, thickest before the end."""
    begin, end = aimed(*WHORL), aimed(yaw, height)
    way = np.sin(np.linspace(0, np.pi / 2, 13))  # closer to each other near the tip, which is round
    aside = _unit(np.cross(begin, end)) * np.radians(swing)
    directions = (1 - way)[:, None] * begin + way[:, None] * end + np.sin(np.pi * way)[:, None] * aside
    directions /= np.linalg.norm(directions, axis=1, keepdims=True)
    radii = (0.1 + 0.16 * np.sin(np.pi * way ** 1.5 * 0.9)) * np.sqrt(np.maximum(0.01, 1 - way ** 9))
    points, normals = sdf.cast(skull, HEAD, directions)
    return shapes.tube(points + (0.05 - 0.2 * radii)[:, None] * normals, [float(radius) for radius in radii], sides=8)


def hair_ground(points):
    """What shows between the locks."""
    x, y, z = np.moveaxis(points - _point(HEAD), -1, 0)
    return sdf.intersect(skull(points) - 0.06, np.maximum(0.46 - y + 0.68 * z, -0.35 - y), 0.08)


# --- jumper -------------------------------------------------------------------------------------------------------


def trunk(points):
    chest = sdf.ellipsoid(points, (0, 4.82, -1.4), (1.25, 0.85, 0.98))
    return sdf.union(0.6, sdf.ellipsoid(points, BELLY, (1.5, 1.2, 1.28)), chest,
                     sdf.limb(points, (-1.0, 4.94, -1.5), (1.0, 4.94, -1.5), 0.5, 0.5))


def jumper():
    """The trunk, ring by ring from the hem to the neck."""
    return shapes.loft([ring_on(trunk, _point(HEM) + 1.3 * share * HEM_UP, HEM_UP, 54, lift + 0.06, 62.0 * share ** 2)
                        for share, lift in striped(9, 0.055)])


def hem():
    ribs = 44
    wave = np.cos(2 * np.pi * np.arange(ribs * RIB_POINTS) / RIB_POINTS)
    return shapes.loft([ring_on(trunk, _point(HEM) + height * HEM_UP, HEM_UP, len(wave), lift + depth * wave)
                        for height, lift, depth in banded(0.34, 0.13, 0.022)], closed=True)


def collar():
    """Rolled over once."""
    ribs, sections = 30, 10
    wave = np.cos(2 * np.pi * np.arange(ribs * RIB_POINTS) / RIB_POINTS)
    rings = []
    for turn in np.linspace(0, 2 * np.pi, sections, endpoint=False):
        thick = 0.27 + 0.014 * wave
        rings.append(_point(NECK) + 1.15 * np.sin(turn) * thick[:, None] * NECK_UP
                     + (0.86 + np.cos(turn) * thick)[:, None] * round_about(NECK_UP, len(wave)))
    return shapes.loft(rings, closed=True)


def rounded_corner(before, corner, after, radius, count=24):
    """The way round a corner on an arc, so wide that a sleeve of that radius does not fold."""
    back, on = _unit(_point(before) - corner), _unit(_point(after) - corner)
    half = np.arccos(back @ on) / 2
    middle = corner + _unit(back + on) * radius / np.sin(half)
    begin, end = corner + back * radius / np.tan(half) - middle, corner + on * radius / np.tan(half) - middle
    turn = np.pi - 2 * half
    way = np.linspace(0, 1, count)[:, None]
    return middle + (np.sin((1 - way) * turn) * begin + np.sin(way * turn) * end) / np.sin(turn)


def sleeve(side):
    shoulder, elbow, wrist = (_point(ARMS[side][joint]) for joint in ("shoulder", "elbow", "wrist"))
    inside = shoulder * (0.2, 0.93, 1.0)
    path = np.concatenate((rounded_corner(inside, shoulder, elbow, 0.5), rounded_corner(shoulder, elbow, wrist, 0.68),
                           [wrist]))
    lengths = np.cumsum(np.linalg.norm(np.diff(path, axis=0, prepend=path[:1]), axis=1))
    bend = np.cross(shoulder - elbow, wrist - elbow)

    def at(length):
        return np.array([np.interp(length, lengths, axis) for axis in path.T])

    rings = []
    for share, lift in striped(8, 0.05):
        length = np.clip(share * lengths[-1], 0.05, lengths[-1] - 0.05)
        along = _unit(at(length + 0.05) - at(length - 0.05))
        radius = lift + np.interp(share, (0, 0.22, 0.35, 0.55, 0.78, 1), (0.42, 0.53, 0.53, 0.46, 0.42, 0.36))
        rings.append(at(share * lengths[-1]) + radius * round_about(along, 22, bend))
    return shapes.loft(rings)


FINGERS = ((-0.27, 0.0), (-0.09, 0.1), (0.09, 0.11), (0.27, 0.03))  # (across, longer by)


def hand(points, side):
    """Four stubby fingers, a thumb, and a wrist that goes up into the sleeve."""
    at, turned = HANDS[side]
    seen = sdf.local(points, at, turned)
    palm = sdf.ellipsoid(seen, (0, 0, -0.04), (0.37, 0.22, 0.4))
    fingers = sdf.union(0.02, *(sdf.limb(seen, (x * side, 0.03, 0.05), (x * 1.2 * side, -0.06, 0.33 + long), 0.1, 0.11)
                                for x, long in FINGERS))
    thumb = sdf.limb(seen, (-0.18 * side, 0.0, -0.2), (-0.43 * side, 0.02, 0.1), 0.15, 0.12)
    wrist = sdf.limb(points, _between(ARMS[side]["elbow"], ARMS[side]["wrist"], 0.9), at, 0.3, 0.22)
    return sdf.union(0.08, sdf.meet(palm, fingers, 0.1), thumb, wrist)


# --- below the jumper ---------------------------------------------------------------------------------------------

SHORTS_END = 0.72  # of the thigh


def shorts(points):
    legs = []
    for leg in LEGS.values():
        hip, knee = leg["hip"], leg["knee"]
        _, _, along = sdf.polar(points, _between(hip, knee, SHORTS_END), _point(knee) - _point(hip))
        legs.append(sdf.intersect(sdf.limb(points, hip, knee, 0.72, 0.68), along, 0.06))
    return sdf.meet(sdf.ellipsoid(points, SEAT, (1.42, 0.86, 1.12)), np.minimum(*legs), 0.3)


def bare_leg(points, side):
    leg = LEGS[side]
    thigh = sdf.limb(points, _between(leg["hip"], leg["knee"], 0.55), leg["knee"], 0.56, 0.53)
    shin = sdf.limb(points, leg["knee"], _between(leg["knee"], leg["ankle"], 0.7), 0.53, 0.4)
    calf_at = _between(leg["knee"], leg["ankle"], 0.34) + _point((0, 0, -0.12))
    calf = sdf.ellipsoid(points, calf_at, (0.48, 0.75, 0.46))
    cap = sdf.ellipsoid(points, _point(leg["knee"]) + _point((0, 0.14, 0.24)), (0.36, 0.4, 0.34))
    return sdf.union(0.25, sdf.meet(thigh, shin, 0.2), calf, cap)


def sock(side):
    """Fallen down: folds below a ribbed top."""
    top = _between(LEGS[side]["knee"], LEGS[side]["ankle"], 0.6)
    axis = _unit(_point(LEGS[side]["ankle"]) - top)
    rings = []
    for down in np.linspace(1.35, 0.0, 15):
        fold = 0.07 * np.cos((down - 0.48) * 12.5) * np.exp(-((down - 0.68) / 0.36) ** 2)
        rings.append(top + down * axis + (0.46 + fold) * round_about(-axis, 26))
    return shapes.loft(rings)


# --- slippers, each in its own place: on the sole below the ankle, z to the toes ----------------------------------


def upper(points, side):
    """A rabbit lying on its stomach."""
    seen = sdf.local(points, *FEET[side])
    toe = sdf.ellipsoid(seen, (0, 0.36, 0.66), (0.56, 0.44, 0.7))
    heel = sdf.ellipsoid(seen, (0, 0.34, -0.08), (0.52, 0.42, 0.52))
    muzzle = sdf.ellipsoid(sdf.mirrored(seen), (0.15, 0.35, 1.24), (0.21, 0.16, 0.15))
    whole = sdf.union(0.05, sdf.meet(toe, heel, 0.2), muzzle)
    return sdf.intersect(whole, 0.12 - seen[..., 1], 0.03)  # the sole hides the cut


SOLE = [(0.9, 0.0), (0.97, 0.015), (1.0, 0.06), (1.0, 0.16), (0.98, 0.21), (0.93, 0.235), (0.8, 0.24)]
RABBIT_EYE = ((0.25, 0.62, 1.13), 0.075)
RABBIT_NOSE = ((0.0, 0.48, 1.38), 0.11)
PRICKED = [((0.22, 0.6, 0.72), 0.13), ((0.32, 0.92, 0.68), 0.15), ((0.4, 1.2, 0.58), 0.17), ((0.42, 1.44, 0.46), 0.13),
           ((0.42, 1.56, 0.38), 0.04)]
BENT = [((-0.22, 0.6, 0.72), 0.13), ((-0.32, 0.88, 0.7), 0.15), ((-0.42, 1.06, 0.7), 0.14), ((-0.6, 1.07, 0.76), 0.15),
        ((-0.78, 0.9, 0.84), 0.14), ((-0.84, 0.76, 0.88), 0.04)]


def slipper(side):
    """All of it but the upper."""
    sole = shapes.loft([shapes.ring(0.6 * share, 1.0 * share, 40, power=2.3, at=(0, height, 0.38))
                        for share, height in SOLE])
    opening = shapes.tube([(0.44 * np.sin(turn), 0.64 - 0.06 * np.cos(turn), 0.02 + 0.44 * np.cos(turn))
                           for turn in np.linspace(0, 2 * np.pi, 24, endpoint=False)], 0.17, sides=10, closed=True)
    parts = [sole, opening, marble(*RABBIT_NOSE)]
    place, size = RABBIT_EYE
    parts += [marble(place * _point((x, 1, 1)), size) for x in SIDES]
    for ear in (PRICKED, BENT):
        parts.append(mesh.scale(rod(ear, 10, 4), side, 1, 1))
    at, turned = FEET[side]
    for part in parts:
        mesh.displace(part, lambda place: at + turned @ np.asarray(place))
    return parts


# --- all of it ----------------------------------------------------------------------------------------------------


def soft_parts():
    """(field, low corner, high corner, cell, vertices to keep)"""
    yield face, (-1.5, 5.5, -3.2), (1.5, 8.0, -0.2), 0.05, 3800
    yield hair_ground, (-1.5, 5.7, -3.3), (1.5, 8.1, -0.6), 0.07, 500
    yield shorts, (-1.8, 2.5, -2.4), (1.9, 4.5, 1.6), 0.06, 1100
    for side in SIDES:
        at = _point(HANDS[side][0])
        yield partial(hand, side=side), at - 1.1, at + 0.8, 0.045, 800
        knee, ankle = _point(LEGS[side]["knee"]), _point(LEGS[side]["ankle"])
        low, high = np.minimum(knee, ankle), np.maximum(knee, ankle)
        yield partial(bare_leg, side=side), low - (0.8, 0, 1.8), high + 0.8, 0.06, 650
        at = _point(FEET[side][0])
        yield partial(upper, side=side), at - (1.2, 0.5, 1.0), at + (1.2, 2.3, 2.0), 0.05, 900


def ringed_parts():
    yield from (jumper(), hem(), collar(), rod(CURL, 10, 5))
    yield from (lock(*tip) for tip in LOCKS)
    for side in SIDES:
        yield from eye(side)
        yield rod(BROWS[side], 9, 5)
        yield from (mesh.scale(rod(strand, 9, 5), side, 1, 1) for strand in MOUSTACHE)
        arm, leg = ARMS[side], LEGS[side]
        yield sleeve(side)
        yield band(_between(arm["wrist"], arm["elbow"], -0.06), arm["elbow"], 0.37, 0.46, 0.09, 18, 0.017)
        yield band(_between(leg["hip"], leg["knee"], SHORTS_END + 0.015), leg["hip"], 0.69, 0.3, 0.06)
        yield sock(side)
        yield band(_between(leg["knee"], leg["ankle"], 0.56), leg["ankle"], 0.46, 0.46, 0.09, 20, 0.02)
        yield from slipper(side)


def build():
    parts = [shaded(part) for part in ringed_parts()]
    for field, low, high, cell, vertices in soft_parts():
        part = sdf.to_mesh(field, low, high, cell)
        parts.append(uv.wrap(sdf.thin_out(part, field, vertices, cell)))
    person = mesh.join(parts, "person")
    person.data.use_auto_smooth = True
    return person


if __name__ == "__main__":
    model.main(build)

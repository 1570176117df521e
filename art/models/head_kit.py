"""The head of the person on the sofa: its skin, as a distance field, and the hair that grows on it, lock by lock, as
rings. Hat and glasses are made to sit on it.

Side +1 is that of +x, the person's left.
"""

import numpy as np

from kit import sdf, shapes

SIDES = (-1, 1)

MIDDLE = (0.0, 6.84, -1.98)
EYE = (0.4, 6.73, -1.115)
BALL, LID = 0.312, 0.335
THROAT = ((0.0, 6.05, -1.92), (0.0, 4.8, -1.45))


def unit(values):
    values = np.asarray(values, np.float32)
    return values / np.linalg.norm(values, axis=-1, keepdims=True)


def curve(points, steps=4):
    """A smooth path through some points."""
    return np.array(shapes.smooth_profile(points, steps), np.float32)


def lengthwise(values, count):
    """Values given at even steps along a path, at `count` points of it."""
    return np.interp(np.linspace(0, 1, count), np.linspace(0, 1, len(values)), values).astype(np.float32)


# --- the skin -----------------------------------------------------------------------------------------------------


def skull(points):
    """What hair lies on."""
    return sdf.union(0.5, sdf.ellipsoid(points, MIDDLE, (1.1, 0.96, 1.07)),
                     sdf.ellipsoid(points, (0, 6.2, -1.8), (0.99, 0.7, 0.9)))


def mask(points):
    """The skull and what lies under the skin in front: cheeks, jaw, brow."""
    folded = sdf.mirrored(points)
    cheeks = sdf.ellipsoid(folded, (0.56, 6.27, -1.2), (0.36, 0.31, 0.33))
    chin = sdf.ellipsoid(points, (0, 5.53, -1.0), (0.3, 0.19, 0.25))
    jowls = sdf.ellipsoid(folded, (0.62, 5.86, -1.38), (0.34, 0.26, 0.34))
    brow = sdf.limb(folded, (0.1, 7.06, -1.09), (0.62, 7.08, -1.21), 0.12, 0.14)
    return sdf.union(0.2, sdf.union(0.3, skull(points), cheeks, jowls), chin, brow)


def nose(points):
    folded = sdf.mirrored(points)
    bridge = sdf.limb(points, (0, 6.98, -0.98), (0, 6.42, -0.68), 0.13, 0.17, (1.1, 1, 1))
    ball = sdf.ellipsoid(points, (0, 6.285, -0.6), (0.29, 0.245, 0.29))
    wings = sdf.ellipsoid(folded, (0.25, 6.2, -0.8), (0.13, 0.13, 0.18))
    whole = sdf.union(0.12, sdf.meet(bridge, ball, 0.2), wings)
    nostrils = sdf.ellipsoid(folded, (0.125, 6.025, -0.6), (0.075, 0.075, 0.11), sdf.rotation(8, 0, -14))
    return sdf.cut(whole, nostrils, 0.06)


EAR = (1.1, 6.55, -1.97)
EAR_TURN = sdf.rotation(0, -30, -10)
HELIX = [(-0.01, 0.0, 0.18), (0.06, 0.14, 0.19), (0.12, 0.28, 0.12), (0.14, 0.35, -0.02), (0.14, 0.29, -0.18),
         (0.13, 0.12, -0.26), (0.1, -0.06, -0.24), (0.06, -0.2, -0.14), (0.04, -0.3, -0.02)]


def ear(seen):
    """Out of the head along x, seen from its own middle."""
    plate = sdf.ellipsoid(seen, (0.02, 0.03, -0.03), (0.1, 0.33, 0.24))
    bowl = sdf.ellipsoid(seen, (0.155, -0.01, 0.0), (0.115, 0.18, 0.125))
    rim = sdf.rope(seen, curve(HELIX, 3), lengthwise((0.055, 0.065, 0.065, 0.065, 0.06, 0.06, 0.055, 0.05, 0.04), 25))
    lobe = sdf.ellipsoid(seen, (0.04, -0.28, 0.03), (0.08, 0.12, 0.11))
    inner = sdf.limb(seen, (0.08, 0.2, 0.0), (0.08, -0.08, -0.13), 0.045, 0.04)
    flap = sdf.ellipsoid(seen, (0.035, -0.04, 0.18), (0.06, 0.1, 0.07))
    root = sdf.limb(seen, (-0.03, -0.15, 0.15), (0.03, 0.19, 0.13), 0.11, 0.1)
    shell = sdf.cut(sdf.union(0.07, plate, root, rim, inner), bowl, 0.07)
    return sdf.union(0.05, shell, lobe, flap)


def ears(points):
    def both(some):
        return ear(sdf.local(sdf.mirrored(some), EAR, EAR_TURN))

    return np.minimum(*(sdf.near(points, (side * 1.15 - 0.45, 6.05, -2.4), (side * 1.15 + 0.45, 7.05, -1.5), both, 0.12)
                        for side in SIDES))


# How far the upper lid of an eye reaches below its middle, in degrees, and how much its outer corner hangs. It is late:
# they are all but shut.
LIDS = {-1: (25.0, 0.09), 1: (22.0, 0.05)}


def below(seen, degrees, droop):
    """Distance above a plane through an eye's middle that looks down by so much."""
    steep = np.radians(degrees)
    normal = unit((droop, np.cos(steep), np.sin(steep)))
    return seen @ normal


def eye(points, side):
    """A lower lid all round the ball, and the upper one over it."""
    degrees, droop = LIDS[side]
    seen = sdf.local(points, (side * EYE[0], EYE[1], EYE[2])) * np.array((side, 1, 1), np.float32)
    lid = sdf.intersect(sdf.ellipsoid(seen, (0, 0, 0), (LID + 0.025, LID, LID)), -below(seen, degrees, droop), 0.05)
    return sdf.meet(sdf.ball(seen, (0, 0, 0), BALL), lid, 0.03)


def lashes(side):
    """(path, radii) along the edge of an upper lid."""
    degrees, droop = LIDS[side]
    turns = np.radians(np.linspace(-66, 66, 21))
    steep = np.radians(degrees) + 0.02
    edge = unit(np.stack((np.sin(turns), -np.sin(steep) * np.cos(turns) - droop * np.sin(turns),
                          np.cos(steep) * np.cos(turns)), -1))
    path = np.array(EYE) * (side, 1, 1) + (LID + 0.004) * edge * (side, 1, 1)
    return path, lengthwise((0.006, 0.019, 0.025, 0.027, 0.027, 0.023, 0.006), 21)


def bags(points):
    """Late nights."""
    folded = sdf.mirrored(points)
    path = curve([(0.16, 6.5, -0.98), (0.3, 6.43, -0.9), (0.48, 6.41, -0.91), (0.66, 6.47, -1.02)], 2)
    return sdf.rope(folded, path, lengthwise((0.03, 0.065, 0.065, 0.03), len(path)))


def mouth(points):
    """What of it the moustache leaves to be seen."""
    return sdf.limb(sdf.mirrored(points), (0.0, 5.765, -0.93), (0.19, 5.785, -0.985), 0.08, 0.058)


def skin(points):
    """Head and neck."""
    face = sdf.union(0.09, mask(points), nose(points))
    sockets = sdf.ellipsoid(sdf.mirrored(points), (0.435, 6.73, -0.75), (0.345, 0.29, 0.18))
    face = sdf.union(0.05, sdf.cut(face, sockets, 0.11), *(eye(points, side) for side in SIDES))
    face = sdf.meet(sdf.union(0.06, face, bags(points), ears(points)), mouth(points), 0.08)
    neck = sdf.limb(points, *THROAT, 0.55, 0.68)
    return sdf.union(0.16, face, neck, sdf.ball(points, (0, 5.36, -0.98), 0.1))


def finer(places):
    """Where the skin is looked at: eyes and mouth first, then the rest of the face and the ears."""
    x, y, z = places.T
    looks = np.exp(-((np.abs(x) - 0.4) / 0.3) ** 2 - ((y - 6.68) / 0.22) ** 2)
    looks += np.exp(-(x / 0.6) ** 2 - ((y - 5.9) / 0.2) ** 2)
    face = 0.35 * ((y > 5.4) & (y < 7.3) & ((z > -1.35) | (np.abs(x) > 1.02)))
    return np.clip(np.where(z > -1.4, 0.8 * looks, 0) + face + 0.1 * (y < 7.3), 0, 1)


# --- the hair -----------------------------------------------------------------------------------------------------

# Each lock: where it begins, passes and ends, as yaw from the front towards +x and height above the middle of the
# head in degrees; half its width; how far its tip stands off. They leave a parting on the left, one behind the other.
LOCKS = [
    ((36, 38), (8, 44), (-20, 27), 0.15, 0.05), ((36, 45), (-6, 53), (-41, 27), 0.18, 0.06),
    ((38, 52), (-22, 61), (-60, 24), 0.19, 0.05), ((41, 60), (-44, 67), (-77, 20), 0.2, 0.04),
    ((48, 68), (-72, 67), (-94, 8), 0.2, 0.04), ((66, 76), (-100, 61), (-111, -6), 0.21, 0.05),
    ((100, 80), (-128, 55), (-130, -20), 0.2, 0.06), ((140, 78), (-154, 51), (-150, -27), 0.2, 0.08),
    ((160, 74), (-176, 45), (-171, -31), 0.21, 0.07),
    ((24, 46), (44, 42), (59, 20), 0.13, 0.03), ((26, 54), (54, 47), (73, 13), 0.17, 0.04),
    ((29, 61), (72, 49), (91, 8), 0.2, 0.05), ((44, 67), (98, 48), (110, -6), 0.21, 0.05),
    ((80, 75), (122, 47), (130, -20), 0.21, 0.06), ((130, 74), (148, 42), (150, -27), 0.21, 0.08),
    ((-74, 24), (-81, 8), (-80, -10), 0.1, 0.02), ((72, 20), (80, 4), (79, -13), 0.1, 0.02),
    ((150, 76), (168, 46), (169, -30), 0.19, 0.08),
]


def aimed(yaw, height):
    yaw, height = np.radians(yaw), np.radians(height)
    return np.array((np.sin(yaw) * np.cos(height), np.sin(height), np.cos(yaw) * np.cos(height)), np.float32)


def furrowed(*furrows):
    """The section of a lock: (place across, height), over its back with furrows, and below."""
    places = {-1.0, -0.94, -0.8, 0.8, 0.94, 1.0}
    for furrow in furrows:
        places |= {furrow - 0.09, furrow, furrow + 0.09}
    places |= {round((a + b) / 2, 3) for a, b in zip(furrows, furrows[1:])}
    back = [(place, max(0.0, 1 - place * place) ** 0.55 - (0.16 if place in furrows else 0.0))
            for place in sorted(places)]
    return [*back, (0.6, -0.5), (-0.6, -0.5)]


def rings(points, across, normals, widths, thick, section):
    """Of a lock along points, for a loft."""
    return [point + np.array([place * half * side + height * high * normal for place, height in section])
            for point, side, normal, half, high in zip(points, across, normals, widths, thick)]


def lock(number, steps=15):
    """A tapered lock that dives into the hair at its root and stands off a little at its tip, as rings."""
    begin, middle, end, width, off = LOCKS[number]
    share = np.linspace(0, 1, steps, dtype=np.float32)
    share = share + 0.06 * np.sin(2 * np.pi * share)  # closer to each other at both ends
    begin, middle, end = aimed(*begin), aimed(*middle), aimed(*end)
    along = share[:, None]
    directions = unit((1 - along) ** 2 * begin + 2 * along * (1 - along) * middle + along ** 2 * end)
    points, normals = sdf.cast(skull, MIDDLE, directions)
    widths = width * np.interp(share, (0, 0.15, 0.45, 0.7, 0.88, 1), (0.75, 1.0, 1.2, 1.05, 0.62, 0.08))
    thick = np.interp(share, (0, 0.15, 0.5, 0.8, 1), (0.06, 0.1, 0.125, 0.1, 0.02)) * (0.7 + 1.5 * width)
    lift = np.interp(share, (0, 0.16, 0.5, 1), (-0.045, 0.0, 0.015, 0.0)) + off * share ** 3 + 0.012 * (number % 3)
    points = points + normals * lift[:, None].astype(np.float32)
    across = unit(np.cross(unit(np.gradient(points, axis=0)), normals))
    return rings(points, across, normals, widths, thick, furrowed(-0.33, 0.3))


# Of either side: path of its middle, as it lies on the face, and half its width.
MOUSTACHE = [((-0.03, 5.985, -0.72), 0.09), ((0.07, 5.985, -0.72), 0.14), ((0.22, 5.975, -0.72), 0.175),
             ((0.42, 5.93, -0.8), 0.18), ((0.62, 5.855, -0.9), 0.15), ((0.8, 5.82, -1.02), 0.11),
             ((0.95, 5.88, -1.12), 0.072), ((1.025, 5.99, -1.14), 0.048), ((1.02, 6.11, -1.13), 0.028),
             ((0.975, 6.18, -1.12), 0.004)]
BROWS = {  # one of them raised
    -1: [((-0.08, 7.0, -0.92), 0.004), ((-0.18, 7.04, -0.92), 0.07), ((-0.3, 7.08, -0.95), 0.1),
         ((-0.48, 7.1, -1.0), 0.1), ((-0.68, 7.03, -1.1), 0.07), ((-0.88, 6.88, -1.22), 0.004)],
    +1: [((0.08, 7.06, -0.92), 0.004), ((0.18, 7.12, -0.93), 0.07), ((0.3, 7.19, -0.95), 0.1),
         ((0.48, 7.24, -1.0), 0.105), ((0.69, 7.18, -1.1), 0.075), ((0.9, 7.01, -1.22), 0.004)],
}


def combed(stations, side, lift, high, section, steps):
    """What grows in a face: laid on it along stations (place, half its width), standing up to `high`; as rings."""
    path = curve([place for place, _ in stations], steps)
    widths = np.maximum(0.004, curve([(width, 0.0) for _, width in stations], steps)[:, 0])
    path, normals = sdf.settle(mask, path, lift)
    thick = high * (widths / widths.max()) ** 0.7
    across = side * unit(np.cross(unit(np.gradient(path, axis=0)), normals))
    return rings(path, across, normals, widths, thick, section)[::side]


def growths():
    """Moustache and brows, as rings for lofts each."""
    for side in SIDES:
        stations = [((side * x, y, z), width) for (x, y, z), width in MOUSTACHE]
        yield combed(stations, side, 0.02, 0.16, furrowed(-0.62, -0.24, 0.16, 0.56), 3)
        yield combed(BROWS[side], side, 0.005, 0.1, furrowed(-0.3, 0.25), 3)


def hair_ground(points):
    """What shows between the locks."""
    x, y, z = np.moveaxis(points - np.asarray(MIDDLE, np.float32), -1, 0)
    return sdf.intersect(skull(points) - 0.05, np.maximum(0.4 - y + 0.62 * z, -0.3 - y), 0.06)


HAIR_BOX = (-1.55, 6.0, -3.4), (1.55, 8.25, -0.6)

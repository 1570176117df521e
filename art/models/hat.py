"""The hat: a soft felt trilby with a dented crown, a waving brim, a pleated ribbon with a bow, and a feather.

The origin lies in the wearer's head, 0.3 above the brim. The hat is not hollow: its lining is a shallow dome that the
head dips into, so that no gap shows however it is tipped.
"""

import math

import numpy as np
from mathutils import Vector

from kit import mesh, model, sdf, shapes, uv

SEGMENTS = 92

# (radius, height) from the middle of the lining, out under the brim, round its lip, in again and up the crown.
LINING = [(0.0, -0.14), (0.45, -0.15), (0.85, -0.2), (1.06, -0.26), (1.13, -0.31), (1.165, -0.35)]
BRIM = [(1.19, -0.372), (1.24, -0.378), (1.36, -0.375), (1.5, -0.37), (1.64, -0.365), (1.76, -0.36), (1.85, -0.358),
        (1.9, -0.362), (1.93, -0.366), (1.955, -0.36), (1.972, -0.343), (1.976, -0.323), (1.968, -0.303),
        (1.95, -0.29), (1.925, -0.286), (1.9, -0.292), (1.885, -0.303), (1.85, -0.308), (1.76, -0.31), (1.64, -0.312),
        (1.5, -0.312), (1.4, -0.306), (1.34, -0.29), (1.305, -0.262)]
# Three pleats, each over the one below.
RIBBON = [(1.29, -0.24), (1.325, -0.236), (1.337, -0.225), (1.34, -0.2), (1.342, -0.13), (1.336, -0.112),
          (1.315, -0.106), (1.318, -0.1), (1.334, -0.09), (1.337, -0.07), (1.335, 0.0), (1.328, 0.018), (1.308, 0.024),
          (1.31, 0.03), (1.325, 0.04), (1.326, 0.06), (1.318, 0.13), (1.31, 0.147), (1.295, 0.155), (1.275, 0.155)]
CROWN = [(1.262, 0.162), (1.258, 0.19), (1.25, 0.28), (1.238, 0.4), (1.222, 0.52), (1.2, 0.64), (1.17, 0.75),
         (1.125, 0.85), (1.06, 0.935), (0.98, 0.995), (0.88, 1.035), (0.77, 1.055), (0.64, 1.06), (0.51, 1.06),
         (0.38, 1.06), (0.25, 1.06), (0.12, 1.06), (0.0, 1.06)]
FOOT = 1.25  # the crown's radius where it leaves the brim
RIM = 1.976

ROUND = 38.0  # degrees from the wearer's left towards the front, where bow and feather are
TILT = -5.0  # degrees; at rest it sits a little back on the head


def _bump(value, width):
    return math.exp(-(value / width) ** 2)


def wave(side, front):
    """How far the brim's edge swings up, by the way one looks: up at the sides, one more than the other, snapped down
    in front, and nowhere quite even."""
    around = math.atan2(side, front)
    swing = (0.4 + 0.07 * side) * side * side - (0.24 if front > 0 else -0.06) * front * front
    return swing + 0.05 * math.sin(3 * around + 0.9) + 0.032 * math.sin(5 * around - 0.6) + 0.014 * math.sin(9 * around)


def shape(position):
    """From a thing turned on a lathe to a felt hat: oval, brim swung, crown pinched in front and dented on top."""
    x, y, z = position
    radius = math.hypot(x, z)
    out = max(0.0, (radius - FOOT) / (RIM - FOOT))
    side, front = (x / radius, z / radius) if radius > 1e-6 else (0.0, 0.0)
    y += wave(side, front) * out ** 1.4
    up = min(1.0, max(0.0, (y - 0.2) / 0.75))
    up = up * up * (3 - 2 * up)
    if radius < 1.3:
        tear = 0.24 + 0.14 * _bump(z + 0.35, 0.5)  # wider at the back, like a drop
        y -= 0.36 * up * _bump(x - 0.02, tear) * _bump(z + 0.08, 0.72)
        y -= 0.15 * up * max(0.0, z) ** 2 / 1.2
        for sign, deep in ((1, 0.3), (-1, 0.25)):
            pinch = deep * up * _bump(z - 0.68, 0.3) * _bump(x - sign * 0.85, 0.42)
            x, z, y = x - sign * pinch, z - 0.25 * pinch, y - 0.12 * pinch
        x += 0.025 * up * math.sin(2.3 * z + 1.1)
    z *= 0.97 + 0.06 * out
    return Vector((x, y, z))


def felt():
    hat = shapes.lathe(LINING + BRIM + RIBBON + CROWN, segments=SEGMENTS)
    return mesh.displace(hat, shape)


# --- the bow, before it is moved round to the front: x is out of the hat, z along the ribbon ----------------------

KNOT = (1.375, -0.035, 0.1)


def loop(seen, long, high):
    """One loop from the knot along z, flat, pleated where it comes out of the knot, and open at its end."""
    x, y, z = np.moveaxis(seen, -1, 0)
    share = np.clip(z / long, 0, 1)
    half = high * (0.36 + 0.64 * np.sin(0.5 * np.pi * np.minimum(1, 1.5 * share)))
    pleats = 0.022 * np.cos(3.1 * np.pi * y / np.maximum(half, 0.05)) * (1 - share) * np.minimum(1, 4 * share + 0.4)
    shell = sdf.ellipsoid(seen, (0.015, 0, 0.52 * long), (0.1, 1.0, 0.6 * long)) - pleats
    body = sdf.intersect(shell, np.abs(y) - half, 0.05)
    mouth = sdf.ellipsoid(seen, (0.02, 0, 1.12 * long), (0.045, 0.8 * high, 0.4 * long))
    return sdf.cut(body, mouth, 0.03)


def bow(points):
    """Two loops and a knot."""
    seen = sdf.local(points, KNOT)
    back = seen * np.array((1, 1, -1), np.float32)
    loops = np.minimum(loop(sdf.local(seen, turned=sdf.rotation(7, -9, 0)), 0.44, 0.2),
                       loop(sdf.local(back, turned=sdf.rotation(-5, -14, 0)), 0.4, 0.185))
    x, y, z = np.moveaxis(seen, -1, 0)
    knot = sdf.round_box(seen, (0.035, 0, 0), (0.075, 0.125, 0.085), 0.06)
    knot = knot + 0.014 * np.cos(2 * np.pi * z / 0.062 + 3 * y) * np.clip(x / 0.05, 0, 1)
    return sdf.union(0.015, loops, knot)


TAILS = [  # (height, along the ribbon) down the middle of a tail, and half its width
    [((-0.08, 0.14), 0.05), ((-0.14, 0.24), 0.075), ((-0.19, 0.35), 0.095), ((-0.215, 0.47), 0.105)],
    [((-0.08, 0.06), 0.05), ((-0.15, -0.03), 0.075), ((-0.2, -0.13), 0.09), ((-0.225, -0.24), 0.1)],
]


def tail(stations):
    """A ribbon's end hanging from the knot over the band, cut in at its end like a swallow's tail."""
    path = shapes.smooth_profile([place for place, _ in stations], 4)
    widths = [width for width, _ in shapes.smooth_profile([(width, 0.0) for _, width in stations], 4)]
    rings, last = [], len(path) - 1
    section = [(-1.0, -0.02), (-1.0, 0.012), (-0.9, 0.02), (-0.5, 0.008), (0.0, 0.022), (0.5, 0.008), (0.9, 0.02),
               (1.0, 0.012), (1.0, -0.02)]
    for step, ((height, along), width) in enumerate(zip(path, widths)):
        before, after = path[max(0, step - 1)], path[min(last, step + 1)]
        length = math.dist(before, after)
        run = ((after[0] - before[0]) / length, (after[1] - before[1]) / length)
        notch = 0.1 * max(0.0, step / last - 0.72) / 0.28
        ring = []
        for share, lift in section:
            y = height - run[1] * width * share + run[0] * notch * (abs(share) - 1)
            z = along + run[0] * width * share + run[1] * notch * (abs(share) - 1)
            out = 1.352 + 0.02 * math.sin(9 * along) + lift + 0.1 * max(0.0, -0.17 - y)
            ring.append((math.sqrt(max(0.1, out * out - 0.45 * (z - 0.1) ** 2)), y, z))
        rings.append(ring)
    return mesh.smooth(mesh.face_outwards(shapes.loft(rings)), 50)


# --- the feather --------------------------------------------------------------------------------------------------

QUILL = [(1.345, -0.16, 0.06), (1.38, 0.12, 0.0), (1.43, 0.46, -0.14), (1.45, 0.82, -0.36), (1.42, 1.18, -0.66),
         (1.36, 1.42, -0.98)]
BARBS, BARB_POINTS = 19, 6
GAPS = {-1: (6, 13), 1: (9, 15)}  # where the barbs of a side have come apart


def barb(root, tip, bend, width, thick, across):
    """One barb: a flat blade from the quill to its tip, widest after a third."""
    rings = []
    way = (tip - root).normalized()
    flat = across.cross(way).normalized()  # in the vane's plane, square to the barb
    for step in range(BARB_POINTS):
        share = step / (BARB_POINTS - 1)
        at = root.lerp(tip, share) + bend * (share * share)
        half = width * (0.75 + 0.5 * math.sin(math.pi * min(1.0, share * 1.15))) * (1 - share ** 4) + 0.004
        rise = thick * (1 - 0.7 * share)
        rings.append([at + flat * half, at + across * rise, at - flat * half, at - across * rise])
    return mesh.face_outwards(shapes.loft(rings))


def feather():
    """Stuck behind the bow, leaning back; barb by barb."""
    path = [Vector(point) for point in shapes.smooth_profile(QUILL, 8)]
    radii = [0.034 - 0.026 * step / len(path) for step in range(len(path))]
    parts = [shapes.tube(path, radii, sides=10)]
    for number in range(BARBS):
        share = 0.2 + 0.79 * number / (BARBS - 1)
        place = share * (len(path) - 1)
        low = min(int(place), len(path) - 2)
        root = path[low].lerp(path[low + 1], place - low)
        along = (path[low + 1] - path[low]).normalized()
        out = Vector((1, 0, 0))
        across = (out - along * out.dot(along)).normalized()
        beside = along.cross(across).normalized()
        long = 0.36 * math.sin(math.pi * min(1.0, 0.12 + 0.86 * (1 - (1 - share) ** 1.3))) ** 0.65 + 0.05
        for side in (-1, 1):
            parted = sum((1 - abs(number - gap) / 1.6) * (1 if number >= gap else -1)
                         for gap in GAPS[side] if abs(number - gap) < 1.6)
            steep = math.radians(38 - 14 * share - 12 * parted + (6 if side > 0 else 0))
            way = along * math.cos(steep) + beside * (side * math.sin(steep))
            tip = root + way * long * (0.9 if side > 0 else 1.1)
            curl = along * (0.05 * long) - across * (0.16 * long)
            parts.append(barb(root - way * 0.01, tip, curl, 0.034, 0.016, across))
    return parts


def build():
    tied = uv.wrap(sdf.thin_out(sdf.to_mesh(bow, (1.1, -0.45, -0.6), (1.7, 0.4, 0.8), 0.02), bow, 1800, 0.02))
    parts = [mesh.smooth(felt())] + [mesh.smooth(part, 60) for part in feather()] + [tail(row) for row in TAILS]
    for part in parts:
        mesh.freeze_normals(part)
    trimmings = [mesh.turn(part, "Y", -ROUND) for part in (*parts[1:], tied)]
    hat = mesh.join([parts[0], *trimmings], "hat")
    hat.data.use_auto_smooth = True
    return mesh.turn(hat, "X", TILT)


if __name__ == "__main__":
    model.main(build)

"""The hat: a soft felt trilby with a dented crown, a ribbon with a bow, and a feather.

The origin lies in the wearer's head, 0.3 above the brim. The hat is not hollow: its lining is a shallow dome that the
head dips into, so that no gap shows however it is tipped.
"""

import math

from mathutils import Vector

from kit import mesh, model, sdf, shapes, uv

SEGMENTS = 84

# (radius, height) from the middle of the lining, out under the brim, round its lip, in again and up the crown.
LINING = [(0.0, -0.14), (0.45, -0.15), (0.85, -0.2), (1.06, -0.27), (1.13, -0.33), (1.16, -0.37)]
BRIM = [(1.2, -0.4), (1.32, -0.41), (1.5, -0.41), (1.68, -0.41), (1.8, -0.42), (1.86, -0.44), (1.91, -0.43),
        (1.95, -0.39), (1.96, -0.34), (1.94, -0.29), (1.89, -0.26), (1.83, -0.265), (1.76, -0.29), (1.64, -0.3),
        (1.5, -0.3), (1.4, -0.295), (1.345, -0.28)]
RIBBON = [(1.33, -0.26), (1.335, -0.24), (1.34, -0.2), (1.335, -0.02), (1.32, 0.1), (1.315, 0.13), (1.3, 0.15),
          (1.27, 0.155)]
CROWN = [(1.255, 0.17), (1.25, 0.2), (1.235, 0.36), (1.21, 0.54), (1.18, 0.7), (1.13, 0.84), (1.05, 0.94), (0.94, 1.0),
         (0.8, 1.03), (0.64, 1.04), (0.48, 1.04), (0.32, 1.04), (0.16, 1.04), (0.0, 1.04)]
FOOT = 1.25  # the crown's radius where it leaves the brim
RIM = 1.96

ROUND = 38.0  # degrees from the wearer's left towards the front, where bow and feather are
TILT = -5.0  # degrees; at rest it sits a little back on the head


def _bump(value, width):
    return math.exp(-(value / width) ** 2)


def shape(position):
    """From a thing turned on a lathe to a felt hat: oval, brim swung, crown pinched in front and dented on top."""
    x, y, z = position
    radius = math.hypot(x, z)
    out = max(0.0, (radius - FOOT) / (RIM - FOOT))
    side, front = (x / radius, z / radius) if radius > 1e-6 else (0.0, 0.0)
    swing = 0.34 * side * side - (0.2 if front > 0 else 0.02) * front * front
    y += swing * out ** 1.4
    up = min(1.0, max(0.0, (y - 0.2) / 0.7))
    if radius < 1.3:
        y -= 0.3 * up * _bump(x, 0.34) * _bump(z + 0.1, 0.75)
        y -= 0.12 * up * max(0.0, z) ** 2 / 1.2
        pinch = 0.2 * up * _bump(z - 0.72, 0.34) * _bump(abs(x) - 0.85, 0.5)
        x -= math.copysign(pinch, x)
    z *= 0.97 + 0.06 * out
    return Vector((x, y, z))


def felt():
    hat = shapes.lathe(LINING + BRIM + RIBBON + CROWN, segments=SEGMENTS)
    return mesh.displace(hat, shape)


def bow(points):
    """Two loops, two tails and a knot, before they are moved round to the front."""
    knot = (1.34, -0.05, 0.1)
    flat = (1.7, 1, 1)
    ends = [((1.37, -0.02, 0.42), 0.18), ((1.37, -0.02, -0.22), 0.18),
            ((1.36, -0.2, 0.3), 0.09), ((1.36, -0.2, -0.1), 0.09)]
    loops = [sdf.limb(points, knot, end, 0.04, size, flat) for end, size in ends]
    return sdf.meet(sdf.union(0.03, *loops), sdf.ellipsoid(points, knot, (0.14, 0.12, 0.08)), 0.02)


QUILL = [(1.31, -0.1, 0.1), (1.42, 0.35, -0.1), (1.45, 0.8, -0.38), (1.4, 1.25, -0.82)]


def feather():
    """Stuck behind the bow, leaning back; a vane and its quill."""
    vane = []
    path = shapes.smooth_profile(QUILL, 7)
    for step, (x, y, z) in enumerate(path):
        share = step / (len(path) - 1)
        width = 0.035 + 0.2 * math.sin(math.pi * min(1.0, share * 1.02) ** 0.8) ** 0.8 * min(1.0, 3 * share)
        ring = shapes.ring(0.035, width, 14, power=1.6)
        vane.append([(x + a, y + 0.55 * c, z + 0.8 * c) for a, _, c in ring])
    radii = [0.045 - 0.03 * step / len(path) for step in range(len(path))]
    quill = shapes.tube([(x + 0.035, y, z) for x, y, z in path], radii, sides=8)
    return [mesh.face_outwards(shapes.loft(vane)), quill]


def build():
    tied = uv.wrap(sdf.to_mesh(bow, (1.1, -0.5, -0.6), (1.7, 0.3, 0.8), 0.045))
    parts = [felt()] + [mesh.turn(part, "Y", -ROUND) for part in (tied, *feather())]
    hat = mesh.turn(mesh.join(parts, "hat"), "X", TILT)
    return mesh.smooth(hat)


if __name__ == "__main__":
    model.main(build)

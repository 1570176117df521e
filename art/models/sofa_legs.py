"""The legs of the sofa: turned of wood, splayed a little, on brass shoes. They share the sofa's place."""

import math

from kit import mesh, model, shapes, uv

FLOOR, UNDERSIDE, INTO_THE_BASE = -0.2, 0.8, 0.95
# (radius, height) from the floor up: a shoe, a ring where it ends, a taper, a collar below the sofa.
TURNED = [(0.0, FLOOR), (0.13, FLOOR), (0.165, -0.185), (0.175, -0.14), (0.19, 0.02), (0.197, 0.06), (0.185, 0.09),
          (0.165, 0.095), (0.165, 0.11), (0.2, 0.2), (0.265, 0.38), (0.32, 0.53), (0.335, 0.6), (0.315, 0.655),
          (0.285, 0.67), (0.285, 0.685), (0.335, 0.7), (0.363, 0.73), (0.37, 0.76), (0.363, 0.79),
          (0.335, 0.82), (0.3, 0.84), (0.3, INTO_THE_BASE)]
SPLAY = 7.0  # degrees
# Where they meet the underside: at the corners, under the arms, and one in the middle of the front and of the back.
CORNERS = [(side * 5.3, z) for side in (-1, 1) for z in (0.55, -2.1)]
MIDDLES = [(0.0, 0.4), (0.0, -1.9)]
SEGMENTS = 20


def leg(x, z):
    made = shapes.lathe(TURNED, segments=SEGMENTS)
    slope = math.tan(math.radians(SPLAY))

    def splay(at):
        out = (UNDERSIDE - at.y) * slope
        at.x += x + (math.copysign(out, x) if x else 0.0)
        at.z += z + math.copysign(out, z)
        return at

    return mesh.displace(made, splay)


def build():
    legs = mesh.join([leg(x, z) for x, z in CORNERS + MIDDLES], "legs")
    return uv.pack(mesh.smooth(legs, 50))


if __name__ == "__main__":
    model.main(build)

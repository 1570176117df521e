"""The legs of the sofa: turned of wood, splayed a little, on flared feet. They share the sofa's place."""

import math

from kit import mesh, model, shapes, uv

FLOOR, UNDERSIDE, INTO_THE_BASE = -0.2, 0.8, 0.95
# (radius, height) from the floor up, each curve smooth in itself: a flared foot, a ring, a vase, a ring between two
# grooves and a collar below the sofa.
FOOT = [(0.2, FLOOR), (0.235, -0.188), (0.25, -0.16), (0.245, -0.128), (0.205, -0.075), (0.165, -0.01), (0.148, 0.05)]
RING = [(0.15, 0.055), (0.182, 0.064), (0.196, 0.088), (0.182, 0.112), (0.15, 0.121)]
VASE = [(0.155, 0.126), (0.175, 0.19), (0.225, 0.32), (0.285, 0.45), (0.318, 0.54), (0.312, 0.595), (0.272, 0.625)]
NECK = [(0.258, 0.632), (0.312, 0.643), (0.336, 0.669), (0.312, 0.695), (0.262, 0.706)]
COLLAR = [(0.285, 0.718), (0.352, 0.73), (0.38, 0.76), (0.383, 0.79), (0.36, 0.82), (0.3, 0.84)]
TURNED = [(0.0, FLOOR)]
for curve, steps in ((FOOT, 2), (RING, 1), (VASE, 2), (NECK, 1), (COLLAR, 1)):
    TURNED += shapes.smooth_profile(curve, steps)
TURNED += [(0.3, INTO_THE_BASE), (0.0, INTO_THE_BASE)]
SPLAY = 7.0  # degrees
# Where they meet the underside: at the corners, under the arms, and one in the middle of the front and of the back.
CORNERS = [(side * 5.3, z) for side in (-1, 1) for z in (0.55, -2.1)]
MIDDLES = [(0.0, 0.4), (0.0, -1.9)]
SEGMENTS = 22


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

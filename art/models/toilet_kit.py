"""What toilet and lid agree on: the outline of the seat, and where the hinge is. In the toilet's place."""

import numpy as np

from kit import shapes

HINGE = (0.0, 0.1, -1.7)
HALF_WIDTH, FRONT, BACK = 1.3, 1.68, -1.5  # of the seat: an egg, whose halves meet at z 0
SEAT_TOP = 0.09

# Along the hinge's pin, from its middle to both sides: a barrel of the lid, an eye of the seat, a post.
PIN_RADIUS, PIN_HALF = 0.07, 1.09
BARREL_AT, BARREL_HALF, BARREL_RADIUS = 0.35, 0.21, 0.13
EYE_AT, EYE_HALF, EYE_RADIUS = 0.7, 0.1, 0.125
POST_AT, POST_HALF = 0.95, 0.12


def egg_ring(count, grown=0.0, height=0.0):
    """The outline, or one that much wider, as points for a loft. Those of different widths belong together."""
    points = shapes.ring(HALF_WIDTH, 1.0, count)
    long = np.where(points[:, 2] > 0, FRONT, -BACK)
    points[:, 2] *= long
    out = np.stack((points[:, 0] / HALF_WIDTH ** 2, np.zeros(count), points[:, 2] / long ** 2), -1)
    points += grown * out / np.linalg.norm(out, axis=1, keepdims=True)
    points[:, 1] = height
    return points

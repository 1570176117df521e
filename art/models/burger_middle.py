"""The slice of bun between the two patties: cut on both sides, toasted, with a soft crust for a rim, and thicker in its
middle, where the patties press into it."""

import numpy as np

from kit import model, shapes, uv
from models import burger_kit as burger

VERTICES = 8800
LOW, HIGH = burger.MIDDLE
CROWN = 0.05  # how much further than at the rim both faces come in the middle
PORES_WITHIN = 1.86
RIM = [(1.93, LOW - 0.01), (2.02, LOW), (2.09, LOW + 0.03), (2.135, LOW + 0.085), (2.145, (LOW + HIGH) / 2),
       (2.12, HIGH - 0.075), (2.06, HIGH - 0.02), (1.98, HIGH + 0.004), (1.88, HIGH + 0.008)]
PROFILE = ([(0.0, LOW - CROWN), (1.1, LOW - 0.9 * CROWN), (1.6, LOW - 0.5 * CROWN)] + shapes.smooth_profile(RIM, 7)
           + [(1.6, HIGH + 0.5 * CROWN), (1.1, HIGH + 0.9 * CROWN), (0.0, HIGH + CROWN)])


def build():
    lower, upper = (burger.pores(PORES_WITHIN, seed) for seed in (5, 6))
    middle = (LOW + HIGH) / 2

    def field(points):
        out = np.hypot(points[..., 0], points[..., 2])
        bread = burger.baked(points, PROFILE, seed=12, uneven=0.014)
        bread = bread + np.clip((2.05 - out) / 0.12, 0, 1) * burger.toasted(points, 37)
        bread = burger.pitted(points, bread, lower, points[..., 1] < middle)
        return burger.pitted(points, bread, upper, points[..., 1] > middle)

    return uv.wrap(burger.bread_mesh(field, LOW - CROWN, HIGH + CROWN, VERTICES, "slice"))


if __name__ == "__main__":
    model.main(build)

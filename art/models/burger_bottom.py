"""The bottom bun: baked flat on the tray, bulging sides, toasted where it was cut."""

import numpy as np

from kit import model, shapes, uv
from models import burger_kit as burger

VERTICES = 7800
LOW, HIGH = burger.BOTTOM
PORES_WITHIN = 1.84
# (radius, height) from the tray up over the side, over the toasted edge of the cut and down into its flat middle.
TRAY = [(0.0, LOW + 0.04), (1.2, LOW + 0.035), (1.55, LOW + 0.014)]
CRUST = [(1.66, LOW + 0.01), (1.8, LOW + 0.035), (1.95, LOW + 0.14), (2.065, LOW + 0.33), (2.105, LOW + 0.54),
         (2.08, LOW + 0.73), (2.035, HIGH - 0.085), (1.99, HIGH - 0.02), (1.93, HIGH + 0.004), (1.86, HIGH - 0.004)]
CUT = [(1.7, HIGH - 0.025), (1.3, HIGH - 0.045), (0.0, HIGH - 0.05)]
PROFILE = TRAY + shapes.smooth_profile(CRUST, 9) + CUT


def build():
    found = burger.pores(PORES_WITHIN, seed=2)

    def field(points):
        up = np.clip((points[..., 1] - HIGH + 0.13) / 0.1, 0, 1)
        bread = burger.baked(points, PROFILE, seed=2) + up * burger.toasted(points, 31)
        return burger.pitted(points, bread, found, points[..., 1] > HIGH - 0.35)

    return uv.wrap(burger.bread_mesh(field, LOW, HIGH, VERTICES, "bun"))


if __name__ == "__main__":
    model.main(build)

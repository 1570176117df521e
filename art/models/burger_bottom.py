"""The bottom bun: baked flat on the tray, bulging sides, toasted where it was cut."""

from kit import mesh, model
from models import burger_kit as burger

CUT_RADIUS = 1.97
LOW, HIGH = burger.BOTTOM
# (radius, height) of the crust, from the tray up over the side to the toasted edge.
CRUST = [(1.62, LOW), (1.78, LOW + 0.03), (1.93, LOW + 0.13), (2.05, LOW + 0.31), (2.10, LOW + 0.52),
         (2.09, LOW + 0.70), (2.06, HIGH - 0.09), (2.02, HIGH - 0.015), (CUT_RADIUS, HIGH)]


def build():
    cut = burger.cut_face(CUT_RADIUS, HIGH, 22)
    made = burger.bun(burger.cut_face(1.62, LOW, 6) + burger.crust(CRUST) + cut[::-1], "bun")
    made = burger.crumb(made, HIGH, CUT_RADIUS, -1, seed=2)
    made = burger.wobble(made, LOW, HIGH, amount=0.09, seed=2)
    return mesh.smooth(made)


if __name__ == "__main__":
    model.main(build)

"""The slice of bun between the two patties: cut on both sides, toasted, with a soft crust for a rim."""

from kit import mesh, model
from models import burger_kit as burger

CUT_RADIUS = 1.96
LOW, HIGH = burger.MIDDLE
# (radius, height) of the crust round the slice.
CRUST = [(CUT_RADIUS, LOW), (2.03, LOW + 0.012), (2.09, LOW + 0.055), (2.115, (LOW + HIGH) / 2),
         (2.09, HIGH - 0.055), (2.03, HIGH - 0.012), (CUT_RADIUS, HIGH)]


def build():
    cut = burger.cut_face(CUT_RADIUS, LOW, 22), burger.cut_face(CUT_RADIUS, HIGH, 22)
    made = burger.bun(cut[0] + burger.crust(CRUST) + cut[1][::-1], "slice")
    made = burger.crumb(made, LOW, CUT_RADIUS, 1, seed=5)
    made = burger.crumb(made, HIGH, CUT_RADIUS, -1, seed=6)
    made = burger.wobble(made, LOW, HIGH, amount=0.07, seed=3)
    return mesh.smooth(made)


if __name__ == "__main__":
    model.main(build)

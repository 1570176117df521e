"""The cheese: a thick slice that fell on the hot patty, its corners hanging over the rim."""

import bpy

from kit import cloth, mesh, model, uv
from models import burger_kit as burger

SIDE, CORNER = 3.84, 0.16
CELLS = 52
LOW, HIGH = burger.CHEESE
EDGE = 0.028  # of the slice, rounded
TURN = 5.0  # laid on by hand
LARGER = 2.2  # the cloth is simulated this much larger: its stiffness and gaps are meant for that size
GAP = 0.03  # between the patty and the middle of the slice, where it hangs


def patty():
    """What the slice falls on: the patty, without its mince."""
    support = burger.patty_mesh(0.16, GAP)
    return mesh.scale(support, LARGER)


def drape():
    slice_ = cloth.sheet(SIDE, SIDE, (CELLS, CELLS), CORNER, name="cheese")
    mesh.turn(slice_, "Y", TURN)
    mesh.scale(mesh.move(slice_, y=HIGH + 0.06), LARGER)
    support = patty()
    cloth.drape(slice_, [support], frames=30, bending=30.0)
    bpy.data.objects.remove(support)
    mesh.modify(slice_, "SMOOTH", factor=0.5, iterations=4)
    return mesh.scale(mesh.apply_modifiers(slice_), 1 / LARGER)


def lie_flat(slice_):
    """Lets the slice down until it lies on the patty; the middle of the sheet is the middle of the cheese."""
    heights = mesh.positions(slice_)[:, 1]
    top = sorted(heights)[-len(heights) // 4]
    return mesh.move(slice_, y=(LOW + HIGH) / 2 - top)


def build():
    slice_ = lie_flat(drape())
    mesh.modify(slice_, "SOLIDIFY", thickness=HIGH - LOW, offset=0.0, use_even_offset=True)
    mesh.bevel(mesh.apply_modifiers(slice_), EDGE, 3, 50)
    return uv.unfold(mesh.smooth(slice_))


if __name__ == "__main__":
    model.main(build)

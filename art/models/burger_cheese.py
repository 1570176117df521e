"""The cheese: a slice that was not cut square, fell askew on the hot patty and melted there. It sags between the
patty's lumps, its corners hang at four lengths, and what has run down gathers in a bead along the lower edge."""

import math

import bpy
import numpy as np

from kit import cloth, mesh, model, uv
from models import burger_kit as burger

# Corners of the slice, (x, z), before it falls: no two sides of one length.
CORNERS = ((-2.02, 2.1), (2.2, 2.13), (2.06, -2.08), (-2.2, -2.02))
CORNER_RADIUS = 0.34  # of those of the cloth, of two units
CELLS = 54
LOW, HIGH = burger.CHEESE
THICKNESS = 0.085
EDGE = 0.03  # of the slice, rounded
TURN = 4.0  # laid on by hand
LOWEST, OFF_THE_BREAD = -0.87, 2.21  # how far down the longest corner hangs, and how far out all of them
LARGER = 2.2  # the cloth is simulated this much larger: its stiffness and gaps are meant for that size
# How much further than the cloth the cheese has run down: (angle from +z to +x, half width, share).
RUNS = ((math.radians(44), 0.34, 0.32), (math.radians(-44), 0.3, 0.0), (math.radians(137), 0.3, 0.12),
        (math.radians(-136), 0.36, 0.5), (math.radians(8), 0.5, 0.3), (math.radians(-88), 0.4, 0.35))


def patty():
    """What the slice falls on: the patty with its lumps, but without its mince."""
    def lumpy(points):
        return burger.patty(points, 0.03 + 0.022 * burger.waves(points, 0.85, 3, terms=14))

    support = burger.patty_mesh(lumpy, 0.11)
    return mesh.scale(support, LARGER)


def cut_slice():
    """A sheet with the four corners, bilinear between them."""
    made = cloth.sheet(2, 2, (CELLS, CELLS), CORNER_RADIUS, name="cheese")
    (ax, az), (bx, bz), (cx, cz), (dx, dz) = CORNERS

    def place(position):
        right, front = (1 + position.x) / 2, (1 + position.z) / 2
        position.x = front * (ax + (bx - ax) * right) + (1 - front) * (dx + (cx - dx) * right)
        position.z = front * (az + (bz - az) * right) + (1 - front) * (dz + (cz - dz) * right)
        return position

    return mesh.turn(mesh.displace(made, place), "Y", TURN)


def drape():
    slice_ = cut_slice()
    mesh.scale(mesh.move(slice_, y=HIGH + 0.1), LARGER)
    support = patty()
    cloth.drape(slice_, [support], frames=42, stiffness=28.0, bending=9.0)
    bpy.data.objects.remove(support)
    mesh.modify(slice_, "SMOOTH", factor=0.5, iterations=3)
    return mesh.scale(mesh.apply_modifiers(slice_), 1 / LARGER)


def run_down(slice_):
    """Draws what hangs over the rim further down, here more and there less, and all of it to a lowest place; and off
    the crumbs of the patty and the bread below."""
    points = mesh.positions(slice_).astype(float)
    hangs = np.maximum(0.0, LOW - 0.06 - points[:, 1])
    angles = np.arctan2(points[:, 0], points[:, 2])
    shares = np.zeros(len(points))
    for at, half_width, amount in RUNS:
        away = (angles - at + math.pi) % (2 * math.pi) - math.pi
        shares += amount * np.exp(-(away / half_width) ** 2)
    drawn = hangs * (1 + shares)
    drawn *= (LOW - 0.06 - LOWEST) / drawn.max()
    points[:, 1] += hangs - drawn
    out = np.hypot(points[:, 0], points[:, 2])
    wanted = OFF_THE_BREAD - 0.09 * np.exp(-(drawn / 0.12) ** 2)
    wide = np.where(drawn > 0, np.maximum(out, wanted) / out, 1.0)
    points[:, (0, 2)] *= wide[:, None]
    slice_.data.vertices.foreach_set("co", points.astype(np.float32).ravel())
    slice_.data.update()
    mesh.modify(slice_, "SMOOTH", factor=0.5, iterations=3)
    return mesh.apply_modifiers(slice_)


def thicken(slice_):
    """Gives the sheet its body: thinnest over the rim of the patty, a bead along the edge."""
    cells = CELLS + 1
    across, deep = np.meshgrid(np.arange(cells), np.arange(cells))
    from_edge = np.minimum.reduce([across, deep, CELLS - across, CELLS - deep]).ravel()
    body = 0.62 + 0.38 * np.exp(-(from_edge / 2.6) ** 2)
    group = slice_.vertex_groups.new(name="body")
    for number, weight in enumerate(body):
        group.add([number], float(weight), "REPLACE")
    mesh.modify(slice_, "SOLIDIFY", thickness=THICKNESS, offset=0.0, use_even_offset=False, vertex_group="body")
    mesh.bevel(mesh.apply_modifiers(slice_), EDGE, 3, 50)
    mesh.modify(slice_, "SMOOTH", factor=0.4, iterations=2)
    return mesh.apply_modifiers(slice_)


def lie_flat(slice_):
    """Lets the slice down until it lies on the patty; the middle of the sheet is the middle of the cheese."""
    heights = mesh.positions(slice_)[:, 1]
    top = sorted(heights)[-len(heights) // 4]
    return mesh.move(slice_, y=(LOW + HIGH) / 2 + burger.PATTY_CROWN * 0.5 - top)


def build():
    slice_ = thicken(run_down(lie_flat(drape())))
    return uv.unfold(mesh.smooth(slice_))


if __name__ == "__main__":
    model.main(build)

"""The patty: coarse mince, pressed by hand so that its rim has cracked and crumbs stand out of it, with the bars of a
grill in both sides."""

import math
import random

import numpy as np
from mathutils import Vector, noise

from kit import mesh, model, parts, sdf
from models import burger_kit as burger

CELL = 0.0515
GRAINS = 760  # of mince
GRAIN_HEIGHT = 0.07
CRUMBS, CRACKS = 46, 15  # in the rim
BARS = (-1.42, -0.68, 0.05, 0.80, 1.50)  # of the grill, across
BAR_WIDTH, BAR_DEPTH, BAR_TURN = 0.11, 0.062, math.radians(24)
LOW, HIGH = burger.STEAK


def rim_place(angle, inside, height):
    out = burger.PATTY_RADIUS + sum(rise * math.sin(turns * angle + at) for turns, rise, at in burger.RIM_WAVES)
    return (out - inside) * math.sin(angle), height, (out - inside) * math.cos(angle)


def ragged(points):
    """The patty with its crumbs and cracks."""
    chance = random.Random(21)
    whole = burger.patty(points)
    for _ in range(CRUMBS):
        size = chance.uniform(0.07, 0.125)
        at = rim_place(chance.uniform(0, 2 * math.pi), size * chance.uniform(0.85, 1.4),
                       chance.uniform(LOW + 0.07, HIGH - 0.07))
        whole = sdf.meet(whole, sdf.ellipsoid(points, at, (size * 1.2, size * 0.8, size)), 0.05)
    for _ in range(CRACKS):
        angle = chance.uniform(0, 2 * math.pi)
        long = chance.uniform(0.08, 0.15)
        at = rim_place(angle, chance.uniform(-0.02, 0.06), chance.uniform(LOW + 0.05, HIGH - 0.05))
        turned = sdf.rotation(y=math.degrees(angle)) @ sdf.rotation(z=chance.uniform(-35, 35))
        crack = sdf.ellipsoid(points, at, (chance.uniform(0.042, 0.065), chance.uniform(0.13, 0.24), long), turned)
        whole = sdf.cut(whole, crack, 0.05)
    return whole


def grains():
    """The middles of the grains, all over the patty."""
    chance = random.Random(7)
    reach = burger.PATTY_RADIUS + 0.15
    return np.asarray([(chance.uniform(-reach, reach), chance.uniform(LOW - 0.03, HIGH + 0.03),
                        chance.uniform(-reach, reach)) for _ in range(GRAINS)])


def mince(positions):
    """How high the mince stands at each of the positions, 0..1: rounded grains with soft valleys between them."""
    middles, heights = grains(), []
    for chunk in np.array_split(positions, 20):
        distance = np.linalg.norm(chunk[:, None] - middles[None], axis=-1)
        nearest = np.sort(distance, axis=1)[:, :2]
        valley = np.clip((nearest[:, 1] - nearest[:, 0]) / 0.15, 0, 1)
        heights.append(valley * (2 - valley))
    return np.concatenate(heights)


def grill(position):
    """How deep the bars have pressed there."""
    across = position.x * math.cos(BAR_TURN) + position.z * math.sin(BAR_TURN)
    across += 0.03 * noise.noise(position * 1.3)
    nearest = min(abs(across - bar) for bar in BARS)
    return BAR_DEPTH * math.exp(-(nearest / BAR_WIDTH) ** 4)


def without_bubbles(made):
    """The largest piece alone: cracks may leave cavities."""
    pieces = parts.pieces_of(parts.named(made, "meat"), "meat")
    outside = set(max(pieces, key=len))
    return mesh.delete_faces(made, lambda face: face.index not in outside)


def build():
    made = without_bubbles(burger.patty_mesh(ragged, CELL))
    heights = mince(mesh.positions(made))
    normals = [vertex.normal.copy() for vertex in made.data.vertices]
    for vertex, normal, height in zip(made.data.vertices, normals, heights):
        lumps = noise.noise(vertex.co * 1.7 + Vector((3, 1, 8)))
        flat = abs(normal.y)
        raised = GRAIN_HEIGHT * (height - 0.7) * (1.1 - 0.35 * flat) + 0.03 * lumps * (1.4 - flat)
        vertex.co += normal * (raised - grill(vertex.co) * flat ** 4)
    return mesh.smooth(burger.disc_uvs(made, (LOW + HIGH) / 2, (HIGH - LOW) / 2))


if __name__ == "__main__":
    model.main(build)

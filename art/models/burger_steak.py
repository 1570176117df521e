"""The patty: coarse mince, pressed by hand, with the bars of a grill in both sides."""

import math
import random

import numpy as np
from mathutils import Vector, noise

from kit import mesh, model
from models import burger_kit as burger

CELL = 0.0555
GRAINS = 620  # of mince
GRAIN_HEIGHT = 0.062
BARS = (-1.35, -0.62, 0.08, 0.80, 1.48)  # of the grill, across
BAR_WIDTH, BAR_DEPTH, BAR_TURN = 0.12, 0.06, math.radians(24)


def grains():
    """The middles of the grains, all over the patty."""
    chance = random.Random(7)
    reach = burger.PATTY_RADIUS + 0.15
    low, high = burger.STEAK
    return np.asarray([(chance.uniform(-reach, reach), chance.uniform(low, high), chance.uniform(-reach, reach))
                       for _ in range(GRAINS)])


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
    nearest = min(abs(across - bar) for bar in BARS)
    return BAR_DEPTH * math.exp(-(nearest / BAR_WIDTH) ** 4)


def build():
    made = burger.patty_mesh(CELL)
    heights = mince(mesh.positions(made))
    normals = [vertex.normal.copy() for vertex in made.data.vertices]
    for vertex, normal, height in zip(made.data.vertices, normals, heights):
        lumps = noise.noise(vertex.co * 1.7 + Vector((3, 1, 8)))
        flat = abs(normal.y)
        raised = GRAIN_HEIGHT * (height - 0.7) * (1.3 - 0.5 * flat) + 0.03 * lumps * (1.4 - flat)
        vertex.co += normal * (raised - grill(vertex.co) * flat ** 4)
    low, high = burger.STEAK
    return mesh.smooth(burger.disc_uvs(made, (low + high) / 2, (high - low) / 2))


if __name__ == "__main__":
    model.main(build)

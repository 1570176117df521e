"""The top of the burger: a brioche dome that rose more on one side, its lip creased and tucked in over a toasted cut,
with sesame that fell in heaps."""

import math
import random

import numpy as np
from mathutils import Matrix, Vector
from mathutils.bvhtree import BVHTree

from kit import mesh, model, sdf, shapes, uv
from models import burger_kit as burger

VERTICES = 8300
LOW, HIGH = burger.TOP
PORES_WITHIN = 1.78
CUT = [(0.0, LOW + 0.05), (1.3, LOW + 0.045), (1.68, LOW + 0.025)]
# (radius, height) of the crust, from the toasted edge of the cut over the lip to the crown.
CRUST = [(1.8, LOW + 0.004), (1.89, LOW - 0.008), (1.97, LOW + 0.012), (2.045, LOW + 0.085), (2.095, LOW + 0.2),
         (2.1, LOW + 0.32), (2.05, LOW + 0.48), (1.9, LOW + 0.68), (1.64, LOW + 0.85), (1.28, LOW + 0.97),
         (0.85, LOW + 1.02), (0.4, LOW + 1.04), (0.0, LOW + 1.045)]
PROFILE = CUT + shapes.smooth_profile(CRUST, 9)
LEAN = (-0.21, 0.12)  # of the crown, sideways and to the front
HIGHER = 0.08  # its higher side
CREASES = 9
# A fold that runs round the lip, deeper here and shallower there: (radius, height, thickness) of its cord.
FOLD = (2.12, LOW + 0.135, 0.055)

SEEDS, HEAPS = 112, 10
SEED_LENGTH = (0.125, 0.16)  # half of it
SEED_SEGMENTS = 13
# (radius, height) of a seed over the ground, before it is drawn out to a drop.
SEED = [(0.0, -0.4), (0.85, -0.3), (1.0, 0.0), (0.93, 0.22), (0.68, 0.42), (0.36, 0.52), (0.0, 0.55)]


def creases():
    """(angle, half width, depth) of the dents that the lip got when the dough was tucked in."""
    chance = random.Random(3)
    angle = 0.3
    for _ in range(CREASES):
        yield angle, chance.uniform(0.035, 0.08), chance.uniform(0.03, 0.07)
        angle += chance.uniform(0.35, 1.05)


def risen(points):
    """The dome: its crown leans, one side stands higher, the lip has a fold and creases."""
    share = np.clip((points[..., 1] - LOW) / (HIGH - LOW), 0, 1)
    seen = points.copy()
    for axis, lean in zip((0, 2), LEAN):
        seen[..., axis] -= lean * share * share
    seen[..., 1] -= HIGHER * share * (seen[..., 0] * 0.8 - seen[..., 2] * 0.6) / burger.RADIUS
    bread = burger.baked(seen, PROFILE, seed=4, uneven=0.028)
    angle, out, height = np.arctan2(points[..., 0], points[..., 2]), np.hypot(points[..., 0], points[..., 2]), \
        points[..., 1]
    radius, level, thickness = FOLD
    level = level + 0.05 * burger.round_waves(angle, 8, (1, 3, 5))
    depth = thickness * np.clip(0.55 + 0.7 * burger.round_waves(angle, 9, (1, 2, 4)), 0, 1.1)
    bread = sdf.cut(bread, np.hypot(out - radius, height - level) - depth, 0.09)
    low = np.exp(-((height - LOW - 0.05) / 0.2) ** 2) * np.clip((out - 1.55) / 0.3, 0, 1)
    for at, half_width, deep in creases():
        away = (angle - at - 0.25 * (height - LOW) + math.pi) % (2 * math.pi) - math.pi
        bread = bread + deep * low * np.exp(-(away / half_width) ** 2)
    under = np.clip((LOW + 0.12 - height) / 0.08, 0, 1)
    return bread + burger.toasted(points, 41) * under + 0.006 * burger.waves(points, 0.9, 43)


def dome():
    found = burger.pores(PORES_WITHIN, seed=4)

    def field(points):
        return burger.pitted(points, risen(points), found, points[..., 1] < LOW + 0.3)

    return burger.bread_mesh(field, LOW, HIGH + 0.03, VERTICES, "dome")


def spots(ground, chance):
    """Where seeds fall: in heaps, nowhere into each other, and fewer towards the rim. Yields (place, normal)."""
    tree = BVHTree.FromPolygons([vertex.co for vertex in ground.data.vertices],
                                [face.vertices for face in ground.data.polygons])

    def spot(reach):
        out, angle = reach * math.sqrt(chance.random()), chance.uniform(0, 2 * math.pi)
        return out * math.sin(angle), out * math.cos(angle)

    heaps = [(*spot(1.8), chance.uniform(0.25, 0.5)) for _ in range(HEAPS)]
    taken = []
    for _ in range(40000):
        x, z = spot(2.02)
        heaped = max(math.exp(-((x - at) ** 2 + (z - deep) ** 2) / size ** 2) for at, deep, size in heaps)
        place, normal, _, _ = tree.ray_cast(Vector((x, 5, z)), Vector((0, -1, 0)))
        if place is None or normal.y < 0.3 or chance.random() > (0.006 + heaped ** 1.5) * normal.y:
            continue
        room = 0.21 + 0.07 * chance.random() + 0.15 * (1 - heaped)
        if all((place - other).length > room for other in taken):
            taken.append(place)
            yield place, normal
        if len(taken) == SEEDS:
            return


def seed(place, normal, chance):
    """A flattened drop that lies on the dome, a third of it baked in."""

    def draw_out(position):
        towards_tip = (position.x + 1) / 2
        position.z *= 0.66 * (1 - 0.5 * towards_tip ** 1.8)
        position.y *= 0.62 * (1 - 0.25 * towards_tip)
        return position

    made = mesh.displace(shapes.lathe(SEED, SEED_SEGMENTS, "seed"), draw_out)
    mesh.turn(made, "X", chance.uniform(-8, 8))
    mesh.turn(made, "Y", chance.uniform(0, 360))
    mesh.scale(made, chance.uniform(*SEED_LENGTH))
    upright = Vector((0, 1, 0)).rotation_difference(normal).to_matrix().to_4x4()
    made.data.transform(Matrix.Translation(place - normal * 0.006) @ upright)
    return made


def build():
    chance = random.Random(11)
    ground = dome()
    seeds = [seed(place, normal, chance) for place, normal in list(spots(ground, chance))]
    return mesh.join([uv.wrap(ground), *(mesh.freeze_normals(mesh.smooth(part, 75)) for part in seeds)], "burger_top")


if __name__ == "__main__":
    model.main(build)

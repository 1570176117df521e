"""The top of the burger: a brioche dome with sesame, its lip tucked in over a toasted cut."""

import math
import random

from mathutils import Matrix, Vector
from mathutils.bvhtree import BVHTree

from kit import mesh, model, shapes
from models import burger_kit as burger

CUT_RADIUS = 1.89
LOW, HIGH = burger.TOP
# (radius, height) of the crust, from the toasted edge of the cut over the lip to the crown.
CRUST = [(CUT_RADIUS, LOW), (1.95, LOW - 0.012), (2.02, LOW + 0.03), (2.075, LOW + 0.13), (2.095, LOW + 0.27),
         (2.06, LOW + 0.45), (1.92, LOW + 0.67), (1.66, LOW + 0.86), (1.29, LOW + 0.995), (0.85, LOW + 1.073),
         (0.40, HIGH - 0.008), (0.0, HIGH)]

SEEDS = 96
SEED_LENGTH = (0.135, 0.165)  # half of it
SEED_SEGMENTS = 14
# (radius, height) of a seed over the ground, before it is drawn out to a drop.
SEED = [(0.0, -0.4), (0.85, -0.3), (1.0, 0.0), (0.93, 0.22), (0.68, 0.42), (0.36, 0.52), (0.0, 0.55)]


def dome():
    profile = burger.cut_face(CUT_RADIUS, LOW, 14) + burger.crust(CRUST)
    made = burger.crumb(burger.bun(profile, "dome"), LOW, CUT_RADIUS, 1, seed=4)
    return burger.wobble(made, LOW, None, amount=0.1, seed=4)


def spots(ground, chance):
    """Where seeds fall: nowhere too close together, and fewer towards the rim. Yields (place, normal)."""
    tree = BVHTree.FromPolygons([vertex.co for vertex in ground.data.vertices],
                                [face.vertices for face in ground.data.polygons])
    taken = []
    for _ in range(20000):
        out, angle = 2.05 * math.sqrt(chance.random()), chance.uniform(0, 2 * math.pi)
        place, normal, _, _ = tree.ray_cast(Vector((out * math.sin(angle), 5, out * math.cos(angle))),
                                            Vector((0, -1, 0)))
        if place is None or normal.y < 0.3 or chance.random() > 0.2 + 0.8 * normal.y:
            continue
        room = 0.26 + 0.16 * chance.random() + 0.1 * (1 - normal.y)
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
    return mesh.smooth(mesh.join([ground, *seeds], "burger_top"), 75)


if __name__ == "__main__":
    model.main(build)

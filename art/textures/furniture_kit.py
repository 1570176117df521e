"""Where things stand in the room: what a bake needs to paint their shadows. The places are those of the show's scene."""

import os

import bpy
from mathutils import Matrix, Quaternion, Vector

from kit import model, paint
from kit.parts import named

ART = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ASSETS = os.path.join(os.path.dirname(ART), "assets")
LYING = Quaternion((0.6303642, 0.6298625, 0.320997, -0.3207415))

# model, place, turn (radians about y, or a rotation), scale
STANDING = [
    ("sofa", (0.0, -0.28, -0.5), 0.0, 0.1),
    ("sofa_legs", (0.0, -0.28, -0.5), 0.0, 0.1),
    ("sofa", (-1.1, -0.28, 0.5), 1.57, 0.1),
    ("sofa_legs", (-1.1, -0.28, 0.5), 1.57, 0.1),
    ("person", (-0.25, -0.3, -0.5), 0.0, 0.1),
    ("person", (0.25, -0.3, -0.5), 0.0, 0.1),
    ("hat", (-0.25, 0.45, -0.7), 0.0, 0.1),
    ("coffeetable", (0.0, -0.2, 0.7), 0.0, 0.1),
    ("tv", (0.0, 0.144, 1.8), 3.14, 0.1),
    ("tvtable", (0.0, -0.3, 1.8), 3.14, 0.1),
    ("bigplant", (0.9, -0.2, 1.5), 3.14, 0.3),
    ("flowerpot", (0.9, -0.3, 1.5), 3.14, 0.07),
    ("bigplant", (-1.8, -0.2, 1.5), 1.256, 0.3),
    ("flowerpot", (-1.8, -0.3, 1.5), 3.14, 0.07),
]
ON_THE_TABLE = [
    ("beer", (0.1, -0.12, 0.6), 0.314, 0.02),
    ("beer", (-0.2, -0.12, 0.54), 1.57, 0.02),
    ("beer", (-0.15, -0.095, 0.5), LYING, 0.02),
    ("burgerbox_bottom", (0.2, -0.095, 0.6), 1.884, 0.015),
    ("burgerbox_top", (0.2, -0.095, 0.6), 1.884, 0.015),
    ("burgerbox_bottom", (0.0, -0.095, 0.5), 4.082, 0.015),
    ("burgerbox_top", (0.0, -0.095, 0.5), 4.082, 0.015),
]
ROOM = ((0.0, -0.3, 0.0), -1.57, 0.2)
TABLE = ((0.0, -0.2, 0.7), 0.0, 0.1)
TV_TABLE = ((0.0, -0.3, 1.8), 3.14, 0.1)

# Roughly the colours of the show, for the light that they throw back.
COLOURS = {"sofa": "#b5502f", "person": "#c79f78", "hat": "#d8d8d8", "beer": "#1f4a33", "burgerbox_bottom": "#efe4d0",
           "burgerbox_top": "#c85a3a",
           "coffeetable": "#9a6236", "tv": "#20202a", "tvtable": "#b98a52", "bigplant": "#4c8a48",
           "flowerpot": "#9a4a2c"}


def transform(place, turn, scale):
    rotation = turn if isinstance(turn, Quaternion) else Quaternion((0.0, 1.0, 0.0), turn)
    return Matrix.Translation(Vector(place)) @ rotation.normalized().to_matrix().to_4x4() @ Matrix.Scale(scale, 4)


def load(name):
    loaded = model.load(os.path.join(ASSETS, name + ".glb"))
    part = "standing " + name
    paint.flat(part, COLOURS.get(name, "#333030"))
    return named(loaded, part)


def set_up(rows, seen_from, leaves=None):
    """Stands models around the one that is baked, which has the transform `seen_from` in the show. Those that are not
    made yet are left out. `leaves`: the picture that the plant's leaves are cut from."""
    inverse = transform(*seen_from).inverted()
    loaded = {}
    for name, *where in rows:
        if not os.path.exists(os.path.join(ASSETS, name + ".glb")):
            print(f"furniture: no {name} yet")
            continue
        if name in loaded:
            standing = loaded[name].copy()
            bpy.context.collection.objects.link(standing)
        else:
            standing = loaded[name] = load(name)
        standing.matrix_world = inverse @ transform(*where)
    if leaves and "bigplant" in loaded:
        cut_out("standing bigplant", leaves)


def cut_out(part, picture):
    """Lets light through where the picture is black, as the show does."""
    leaf = paint.Paint(part)
    texture = leaf.tree.nodes.new("ShaderNodeTexImage")
    texture.image = bpy.data.images.load(picture)
    seen = leaf.math("GREATER_THAN", texture.outputs["Color"], 0.005)
    surface = leaf.node("MixShader", {0: seen, 1: leaf.node("BsdfTransparent"),
                                      2: leaf.node("BsdfDiffuse", {"Color": texture.outputs["Color"]})})
    leaf.cover(surface)

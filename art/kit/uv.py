"""Texture coordinates: projections and packing."""

import math

import bpy
import numpy as np

from kit import mesh


def _edit(target):
    mesh.select(target)
    bpy.ops.object.mode_set(mode="EDIT")
    bpy.ops.mesh.select_all(action="SELECT")
    bpy.ops.uv.select_all(action="SELECT")


def _layer(target):
    if not target.data.uv_layers:
        target.data.uv_layers.new(name="UVMap")
    return target.data.uv_layers[0]


def planar_by_side(target, weight=1.0):
    """Each face onto the plane that it faces most, in model units times `weight`: straight, upright, unstretched on
    whatever is made of boxes. Faces of one side that touch stay together."""
    layer = _layer(target)
    for face in target.data.polygons:
        side = max(range(3), key=lambda axis: abs(face.normal[axis]))
        sign = 1 if face.normal[side] > 0 else -1
        for loop in face.loop_indices:
            x, y, z = target.data.vertices[target.data.loops[loop].vertex_index].co
            u, v = ((-z * sign, y), (x, -z * sign), (x * sign, y))[side]
            layer.data[loop].uv = (u * weight, v * weight)
    return target


def part_islands(target, chosen, shift=1000.0):
    """Makes the faces for which `chosen(face)` is true islands of their own, by moving them far aside."""
    layer = _layer(target)
    for face in target.data.polygons:
        if chosen(face):
            for loop in face.loop_indices:
                layer.data[loop].uv.x += shift
    return target


def from_above(target):
    """Everything onto the floor, as seen from above: for what is low and has no upright faces."""
    layer = _layer(target)
    for loop in target.data.loops:
        x, _, z = target.data.vertices[loop.vertex_index].co
        layer.data[loop.index].uv = (x, -z)
    return target


def unfold(target, angle=66.0, margin=0.005):
    """Cuts at edges sharper than `angle` and unfolds, packed: for models that carry no picture."""
    _layer(target)
    _edit(target)
    bpy.ops.uv.smart_project(angle_limit=math.radians(angle), island_margin=margin, area_weight=0.0)
    bpy.ops.object.mode_set(mode="OBJECT")
    return target


def _corners(target):
    """For each face corner the number of its face and that of its vertex."""
    sizes = mesh.read(target.data.polygons, "loop_total", kind=np.int32)
    return np.repeat(np.arange(len(sizes)), sizes), mesh.corner_vertices(target)


def _edge_neighbours(target):
    """Pairs of faces that share an edge, each pair in both orders: (first, second)."""
    edges = mesh.read(target.data.loops, "edge_index", kind=np.int32)
    order = np.argsort(edges, kind="stable")
    edges, faces = edges[order], _corners(target)[0][order]
    same = edges[:-1] == edges[1:]
    first, second = faces[:-1][same], faces[1:][same]
    return np.concatenate((first, second)), np.concatenate((second, first))


def wrap(target, reach=80.0, rounds=8):
    """Each face onto that of the six sides of a box which its surroundings face, if it is within `reach` degrees of
    that side: large islands even on a rough surface, so few vertices twice. The islands of one side may lie over each
    other: only for models that carry no picture and need tangents alone."""
    sides = np.array([[1, 0, 0], [-1, 0, 0], [0, 1, 0], [0, -1, 0], [0, 0, 1], [0, 0, -1]], np.float32)
    facing = mesh.read(target.data.polygons, "normal", 3) @ sides.T
    first, second = _edge_neighbours(target)
    around = facing.copy()
    for _ in range(rounds):
        np.add.at(around, first, around[second])
        around /= np.linalg.norm(around, axis=1, keepdims=True)
    chosen = np.where(facing > math.cos(math.radians(reach)), around, facing - 4).argmax(axis=1)
    faces, vertices = _corners(target)
    points, side = mesh.positions(target)[vertices], chosen[faces]
    points = (points - points.min()) / (points.max() - points.min())
    each, axis = np.arange(len(points)), side // 2
    u, v = points[each, (axis + 1) % 3], points[each, (axis + 2) % 3]
    u = (u + side) / len(sides)  # beside each other, so that no two sides share a corner
    _layer(target).data.foreach_set("uv", np.stack((u, v), axis=1).astype(np.float32).ravel())
    return target


def unwrap(target, seams=None, margin=0.005):
    """Opens along the edges marked as seams; `seams(edge, first, second)` marks them, from the edge and its ends."""
    _layer(target)
    if seams:
        ends = target.data.vertices
        for edge in target.data.edges:
            edge.use_seam = bool(seams(edge, ends[edge.vertices[0]].co, ends[edge.vertices[1]].co))
    _edit(target)
    bpy.ops.uv.unwrap(method="ANGLE_BASED", margin=margin)
    bpy.ops.object.mode_set(mode="OBJECT")
    return target


def scale(target, factor):
    """Gives a part more, or less, of the texture; before it is joined and packed."""
    layer = _layer(target)
    layer.data.foreach_set("uv", (mesh.uvs(target) * factor).ravel())
    return target


def pack(target, margin=0.004, even=False, turn=False):
    """Packs all islands into the texture. `even` gives all the same density first; else the weights that the parts were
    given stay. `turn` lets islands be turned: not where a weave or a grain runs through them."""
    _edit(target)
    if even:
        bpy.ops.uv.average_islands_scale()
    bpy.ops.uv.pack_islands(rotate=turn, margin=margin)
    bpy.ops.object.mode_set(mode="OBJECT")
    return target


def density(target):
    """(share of the texture that is used, textures a model unit)."""
    uvs = mesh.uvs(target)[mesh.triangle_loops(target)]
    first, second = uvs[:, 1] - uvs[:, 0], uvs[:, 2] - uvs[:, 0]
    used = float(np.abs(first[:, 0] * second[:, 1] - first[:, 1] * second[:, 0]).sum() / 2)
    corners = mesh.positions(target)[mesh.triangles(target)]
    surface = float(np.linalg.norm(np.cross(corners[:, 1] - corners[:, 0], corners[:, 2] - corners[:, 0]),
                                   axis=1).sum() / 2)
    return used, math.sqrt(used / surface)

"""Meshes: making, joining, changing, reading."""

import math
from contextlib import contextmanager

import bmesh
import bpy
import numpy as np
from mathutils import Matrix, Vector, noise

# --- making -------------------------------------------------------------------------------------------------------


def from_geometry(name, vertices, faces, uvs=None):
    """An object of these vertices and faces. `uvs`: for each face, a pair for each of its corners."""
    data = bpy.data.meshes.new(name)
    data.from_pydata([tuple(map(float, vertex)) for vertex in vertices], [],
                     [tuple(map(int, face)) for face in faces])
    data.update()
    if uvs is not None:
        layer = data.uv_layers.new(name="UVMap")
        layer.data.foreach_set("uv", np.asarray([c for face in uvs for corner in face for c in corner], np.float32))
    made = bpy.data.objects.new(name, data)
    bpy.context.collection.objects.link(made)
    return made


def from_curve(curve):
    """The mesh of a curve object, in its place; the curve is gone afterwards."""
    select(curve)
    bpy.ops.object.convert(target="MESH")
    return bpy.context.object


def copy(source):
    """A second object with a mesh of its own."""
    other = source.copy()
    other.data = source.data.copy()
    bpy.context.collection.objects.link(other)
    return other


def join(parts, name):
    """One object of many, at the origin. Parts without texture coordinates get some to be laid out later."""
    for part in parts:
        apply_modifiers(part)
        apply_transform(part)
        if not part.data.uv_layers:
            part.data.uv_layers.new(name="UVMap")
        part.data.uv_layers[0].name = "UVMap"
    select(*parts)
    bpy.ops.object.join()
    joined = bpy.context.object
    joined.name = joined.data.name = name
    return joined


# --- changing -----------------------------------------------------------------------------------------------------


def select(*objects):
    """Selects just these; the first becomes the active one."""
    bpy.ops.object.select_all(action="DESELECT")
    for chosen in objects:
        chosen.select_set(True)
    bpy.context.view_layer.objects.active = objects[0]


def modify(target, kind, **settings):
    """Adds a modifier: `modify(box, "BEVEL", width=0.1, segments=3)`. Returns it."""
    modifier = target.modifiers.new(kind, kind)
    for key, value in settings.items():
        setattr(modifier, key, value)
    return modifier


def apply_modifiers(target):
    """Makes what the modifiers show the mesh itself."""
    if not target.modifiers:
        return target
    graph = bpy.context.evaluated_depsgraph_get()
    graph.update()
    data = bpy.data.meshes.new_from_object(target.evaluated_get(graph), preserve_all_data_layers=True, depsgraph=graph)
    target.modifiers.clear()
    target.data = data
    return target


def apply_transform(target):
    """Moves the vertices to where the object's transform shows them, and makes that transform none."""
    bpy.context.view_layer.update()
    matrix = target.matrix_world.copy()
    target.data.transform(matrix)
    if matrix.determinant() < 0:
        target.data.flip_normals()
    target.matrix_world = Matrix()
    return target


def bevel(target, width, segments=3, angle=30.0):
    """Rounds the edges that are sharper than `angle` degrees."""
    modify(target, "BEVEL", width=width, segments=segments, limit_method="ANGLE", angle_limit=math.radians(angle),
           use_clamp_overlap=True)
    return apply_modifiers(target)


def subdivide(target, levels=1):
    """Catmull-Clark."""
    modify(target, "SUBSURF", levels=levels, render_levels=levels)
    return apply_modifiers(target)


def decimate(target, ratio, finer=None, how_much=1.5e-4):
    """Keeps about `ratio` of the triangles. `finer`: for each vertex from 0 to 1, where to keep more of them."""
    if finer is None:
        modify(target, "DECIMATE", ratio=ratio)
        return apply_modifiers(target)
    group = target.vertex_groups.new(name="coarser")
    for number, weight in enumerate(finer):
        group.add([number], float(1 - weight), "REPLACE")
    modify(target, "DECIMATE", ratio=ratio, vertex_group=group.name, vertex_group_factor=how_much)
    apply_modifiers(target)
    target.vertex_groups.clear()
    return target


def weighted_normals(target):
    """Leaves flat faces flat and shades only the bevels between them: for boxes with round edges."""
    smooth(target, 180.0)
    target.data.use_auto_smooth = True  # normals of one's own are only kept with it
    modify(target, "WEIGHTED_NORMAL", keep_sharp=True, weight=100)
    return apply_modifiers(target)


def move(target, x=0.0, y=0.0, z=0.0):
    target.data.transform(Matrix.Translation((x, y, z)))
    return target


def turn(target, axis, degrees):
    """About the origin; `axis` is "X", "Y" or "Z", or a vector."""
    target.data.transform(Matrix.Rotation(math.radians(degrees), 4, axis))
    return target


def scale(target, x, y=None, z=None):
    """About the origin; one number scales all axes. A mirrored mesh keeps its outside outside."""
    y, z = (x if y is None else y), (x if z is None else z)
    target.data.transform(Matrix.Diagonal((x, y, z, 1.0)))
    if x * y * z < 0:
        target.data.flip_normals()
    return target


def displace(target, function):
    """Moves every vertex to `function(position)`, a vector to a vector."""
    for vertex in target.data.vertices:
        vertex.co = function(vertex.co.copy())
    target.data.update()
    return target


def roughen(target, amplitude, frequency, seed=0):
    """Moves every vertex along its normal by a soft noise: nothing handmade is straight."""
    offset = Vector((seed * 13.1, seed * 7.7, seed * 3.3))
    heights = [noise.fractal((vertex.co + offset) * frequency, 0.7, 2.1, 3) for vertex in target.data.vertices]
    normals = [vertex.normal.copy() for vertex in target.data.vertices]
    for vertex, normal, height in zip(target.data.vertices, normals, heights):
        vertex.co += normal * (amplitude * height)
    target.data.update()
    return target


def smooth(target, angle=180.0):
    """Smooth normals, except over edges sharper than `angle` degrees, which cost their vertices twice."""
    for face in target.data.polygons:
        face.use_smooth = True
    target.data.use_auto_smooth = angle < 180.0
    target.data.auto_smooth_angle = math.radians(angle)
    return target


def corner_normals(target):
    """(face corners, 3): the normals as they will be exported."""
    target.data.calc_normals_split()
    return read(target.data.loops, "normal", 3)


def set_corner_normals(target, normals):
    """Gives every face corner a normal of its own, whatever the angle of its edges."""
    smooth(target, 180.0)
    target.data.use_auto_smooth = True
    target.data.normals_split_custom_set(normals.tolist())
    return target


def freeze_normals(target):
    """Writes the normals down as they are now: a part keeps them when it is joined to parts smoothed otherwise."""
    return set_corner_normals(target, corner_normals(target))


def lean_into_light(target, lights, least, most_lean=0.7, faces=None):
    """Leans the normals of corners that lights would leave dark towards them. For a scene without bounced light, whose
    map has the shadows already. `lights`: (place, strength) each; `least`: the sum of their strengths, weighed by the
    cosine of each, that a corner should get if it leans by no more than `most_lean`, where 1 ignores its shape.
    `faces`: only these.
    """
    normals = corner_normals(target)
    places = positions(target)[corner_vertices(target)]
    ways = np.stack([np.asarray(place, np.float32) - places for place, _ in lights])
    ways /= np.linalg.norm(ways, axis=2, keepdims=True)
    strengths = np.array([strength for _, strength in lights], np.float32)[:, None]
    mean_way = (ways * strengths[..., None]).sum(axis=0)
    mean_way /= np.linalg.norm(mean_way, axis=1, keepdims=True)
    may = np.full(len(normals), faces is None)
    for face in faces or ():
        may[target.data.polygons[face].loop_indices] = True
    shape, lean = normals.copy(), np.zeros(len(normals), np.float32)
    for _ in range(6):
        light = (np.maximum((ways * normals).sum(axis=2), 0) * strengths).sum(axis=0)
        lean = np.minimum(lean + 0.3 * np.clip(1 - light / least, 0, 1), most_lean) * may
        normals = shape * (1 - lean[:, None]) + mean_way * lean[:, None]
        normals /= np.linalg.norm(normals, axis=1, keepdims=True)
    return set_corner_normals(target, normals)


@contextmanager
def edited(target):
    """The faces, edges and corners of the mesh, to be changed inside."""
    work = bmesh.new()
    work.from_mesh(target.data)
    yield work
    work.to_mesh(target.data)
    work.free()


def merge(target, distance=1e-5):
    """Makes vertices that lie together one, and takes faces without area away."""
    with edited(target) as work:
        bmesh.ops.remove_doubles(work, verts=work.verts, dist=distance)
        bmesh.ops.dissolve_degenerate(work, edges=work.edges, dist=distance)
    return target


def drop_doubled_faces(target):
    """Takes away faces that lie exactly where another one lies: the two would flicker."""
    with edited(target) as work:
        seen, doubled = set(), []
        for face in work.faces:
            place = frozenset(tuple(round(value, 5) for value in corner.co) for corner in face.verts)
            if place in seen:
                doubled.append(face)
            seen.add(place)
        bmesh.ops.delete(work, geom=doubled, context="FACES")
    return target


def largest_piece(target):
    """Takes away all that does not hang together with the most: crumbs, and bubbles inside."""
    ends = read(target.data.edges, "vertices", 2, np.int32)
    piece = np.arange(len(target.data.vertices))
    while True:
        least = np.minimum(piece[ends[:, 0]], piece[ends[:, 1]])
        joined = piece.copy()
        np.minimum.at(joined, ends[:, 0], least)
        np.minimum.at(joined, ends[:, 1], least)
        joined = joined[joined]
        if (joined == piece).all():
            break
        piece = joined
    most = np.bincount(piece).argmax()
    with edited(target) as work:
        bmesh.ops.delete(work, geom=[vertex for vertex, own in zip(list(work.verts), piece) if own != most],
                         context="VERTS")
    return target


def face_outwards(target):
    """Turns all faces of closed shells so that their front is outside."""
    with edited(target) as work:
        bmesh.ops.recalc_face_normals(work, faces=work.faces)
    return target


def delete_faces(target, unwanted):
    """Deletes the faces for which `unwanted(face)` is true; `face.normal`, `face.calc_center_median()` help to say."""
    with edited(target) as work:
        work.normal_update()
        bmesh.ops.delete(work, geom=[face for face in work.faces if unwanted(face)], context="FACES")
    return target


def triangulate(target, above=3):
    """Cuts faces of more than `above` corners; normals of their own stay."""
    modify(target, "TRIANGULATE", min_vertices=above + 1, keep_custom_normals=True)
    return apply_modifiers(target)


# --- reading ------------------------------------------------------------------------------------------------------


def read(members, attribute, width=1, kind=np.float32):
    """An attribute of all members of a mesh's list: (members, width), or (members,) where it is one number each."""
    values = np.empty(len(members) * width, kind)
    members.foreach_get(attribute, values)
    return values.reshape(-1, width) if width > 1 else values


def positions(target):
    """(vertices, 3)"""
    return read(target.data.vertices, "co", 3)


def corner_vertices(target):
    """(face corners,): numbers of vertices."""
    return read(target.data.loops, "vertex_index", kind=np.int32)


def triangles(target):
    """(triangles, 3): numbers of vertices."""
    target.data.calc_loop_triangles()
    return read(target.data.loop_triangles, "vertices", 3, np.int32)


def triangle_loops(target):
    """(triangles, 3): numbers of face corners."""
    target.data.calc_loop_triangles()
    return read(target.data.loop_triangles, "loops", 3, np.int32)


def uvs(target):
    """(face corners, 2), of the first layer."""
    return read(target.data.uv_layers[0].data, "uv", 2)

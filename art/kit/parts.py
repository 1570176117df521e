"""A model of many parts: each has a name for the script of its texture, and its share of that texture."""

import bpy
from mathutils import bvhtree
from mathutils.geometry import barycentric_transform

from kit import mesh, uv


def named(target, part):
    """Marks all faces as belonging to `part`: a material of that name, which the exported file leaves out."""
    material = bpy.data.materials.get(part) or bpy.data.materials.new(part)
    target.data.materials.clear()
    target.data.materials.append(material)
    target.data.polygons.foreach_set("material_index", [0] * len(target.data.polygons))
    return target


def faces_of(target, *parts):
    """The numbers of the faces that belong to these parts."""
    wanted = {number for number, material in enumerate(target.data.materials) if material.name in parts}
    return [face.index for face in target.data.polygons if face.material_index in wanted]


def pieces_of(target, part):
    """The faces of a part, as one list for each piece that hangs together."""
    parent = {}

    def root(vertex):
        while parent.setdefault(vertex, vertex) != vertex:
            vertex = parent[vertex]
        return vertex

    faces = faces_of(target, part)
    for face in faces:
        first, *others = target.data.polygons[face].vertices
        for other in others:
            parent[root(other)] = root(first)
    pieces = {}
    for face in faces:
        pieces.setdefault(root(target.data.polygons[face].vertices[0]), []).append(face)
    return list(pieces.values())


def share_place(target, part, other, number=0):
    """Gives a part, made like pieces of `part` in the target, the place in the texture of one of these pieces, once
    they are packed: more of what there is many of needs no more texture."""
    pieces = [piece for piece in pieces_of(target, part) if len(piece) == len(other.data.polygons)]
    piece = pieces[number % len(pieces)]
    corners = [loop for face in piece for loop in target.data.polygons[face].loop_indices]
    layer, others = target.data.uv_layers[0].data, other.data.uv_layers[0].data
    for loop, corner in enumerate(corners):
        others[loop].uv = layer[corner].uv
    return named(other, part)


def _islands(target, faces):
    """These faces as one list for each island of the texture."""
    parent = {}

    def root(corner):
        while parent.setdefault(corner, corner) != corner:
            corner = parent[corner]
        return corner

    def corners(face):
        face = target.data.polygons[face]
        return [(vertex, round(layer[loop].uv.x, 6), round(layer[loop].uv.y, 6))
                for vertex, loop in zip(face.vertices, face.loop_indices)]

    layer = target.data.uv_layers[0].data
    for face in faces:
        first, *others = corners(face)
        for other in others:
            parent[root(other)] = root(first)
    islands = {}
    for face in faces:
        islands.setdefault(root(corners(face)[0]), []).append(face)
    return list(islands.values())


class _Island:
    """Part of a surface, to find places in the texture for points near it."""

    def __init__(self, target, faces):
        layer, data = target.data.uv_layers[0].data, target.data
        self.triangles = [([data.vertices[vertex].co.copy() for vertex in triangle.vertices],
                           [layer[loop].uv.to_3d() for loop in triangle.loops])
                          for triangle in data.loop_triangles if triangle.polygon_index in faces]
        points = [point for places, _ in self.triangles for point in places]
        self.tree = bvhtree.BVHTree.FromPolygons(points, [(k, k + 1, k + 2) for k in range(0, len(points), 3)])

    def distance(self, point, normal):
        _, facing, _, away = self.tree.find_nearest(point)
        return away + 0.05 * (1 - facing.dot(normal))

    def place(self, point, beyond=0.015):
        """Beyond the rim, but not far: what is there belongs to another island."""
        on, _, number, away = self.tree.find_nearest(point)
        places, flat = self.triangles[number]
        return barycentric_transform(on + (point - on) * min(1.0, beyond / max(away, beyond)), *places, *flat).to_2d()


def lay_over(target, part, finer):
    """Puts a finer body into the place of a part that is packed already, with the texture of that. Returns the target,
    joined anew."""
    target.data.calc_loop_triangles()
    faces = faces_of(target, part)
    islands = [_Island(target, set(island)) for island in _islands(target, faces)]
    layer = (finer.data.uv_layers or finer.data.uv_layers.new(name="UVMap") and finer.data.uv_layers)[0].data
    known = {}
    for face in finer.data.polygons:
        nearest = min(islands, key=lambda island: island.distance(face.center, face.normal))
        for vertex, loop in zip(face.vertices, face.loop_indices):
            key = vertex, id(nearest)
            if key not in known:
                known[key] = nearest.place(finer.data.vertices[vertex].co)
            layer[loop].uv = known[key]
    gone = set(faces)
    mesh.delete_faces(target, lambda face: face.index in gone)
    return mesh.join([target, named(mesh.freeze_normals(finer), part)], target.name)


def split(target, part_of):
    """Names faces one by one: `part_of(face)` gives (part, weight), the weight for their texture coordinates."""
    names, layer = [], target.data.uv_layers[0]
    target.data.materials.clear()
    for face in target.data.polygons:
        part, weight = part_of(face)
        if part not in names:
            names.append(part)
            target.data.materials.append(bpy.data.materials.get(part) or bpy.data.materials.new(part))
        face.material_index = names.index(part)
        for loop in face.loop_indices:
            layer.data[loop].uv = layer.data[loop].uv * weight
    return target


class Parts:
    """Collects parts and makes one object of them."""

    def __init__(self):
        self._made = []

    def add(self, target, part, weight=1.0):
        """Takes a part in, as it is shaded now. `weight`: how finely it is painted, against the others. Parts without
        texture coordinates get straight ones. Without a name it keeps what `split` gave it."""
        mesh.apply_modifiers(target)
        mesh.apply_transform(target)
        if not target.data.uv_layers:
            uv.planar_by_side(target)
        uv.scale(target, weight)
        mesh.freeze_normals(target)
        self._made.append(named(target, part) if part else target)
        return target

    def join(self, name, margin=0.003, pack=True):
        joined = mesh.join(self._made, name)
        mesh.smooth(joined, 180.0)
        joined.data.use_auto_smooth = True
        mesh.triangulate(joined, above=4)  # there are no tangents for faces of more corners
        return uv.pack(joined, margin) if pack else joined

"""Cloth that Blender simulates: cushions that are sewn and blown up, and sheets that fall."""

import math

import bpy
from mathutils import Matrix, Vector

from kit import mesh, shapes


def _rounded(u, v, width, depth, radius):
    """The square [-1, 1]^2 onto a rectangle with round corners; an even grid stays even."""
    most = max(abs(u), abs(v))
    if most < 1e-6:
        return 0.0, 0.0
    x, y = u / most * width / 2, v / most * depth / 2
    inner_x, inner_y = width / 2 - radius, depth / 2 - radius
    if abs(x) > inner_x and abs(y) > inner_y:
        out_x, out_y = abs(x) - inner_x, abs(y) - inner_y
        shrink = radius / math.hypot(out_x, out_y)
        x = math.copysign(inner_x + out_x * shrink, x)
        y = math.copysign(inner_y + out_y * shrink, y)
    return x * most, y * most


def sew(width, depth, height, cells, corner, name="cushion"):
    """A flat cushion cover: top and bottom panel in the xz plane, and between them a border of `height`; with height 0
    they are sewn edge to edge. `cells`: (across, deep, up). Texture coordinates are the cut cloth, in model units.

    Returns the object and its seams, each a closed list of vertex numbers, for the piping.
    """
    across, deep, up = cells
    vertices, faces, uvs = [], [], []
    border = ([(i, 0) for i in range(across)] + [(across, j) for j in range(deep)]
              + [(i, deep) for i in range(across, 0, -1)] + [(0, j) for j in range(deep, 0, -1)])

    def place(i, j):
        return _rounded(2 * i / across - 1, 2 * j / deep - 1, width, depth, corner)

    def panel(level, shared):
        numbers = {}
        for j in range(deep + 1):
            for i in range(across + 1):
                if (i, j) in shared:
                    numbers[i, j] = shared[i, j]
                    continue
                numbers[i, j] = len(vertices)
                x, z = place(i, j)
                vertices.append((x, level, -z))
        return numbers

    def fill(numbers, shift, turned):
        for j in range(deep):
            for i in range(across):
                corners = [(i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1)]
                if turned:
                    corners.reverse()
                faces.append([numbers[corner] for corner in corners])
                uvs.append([(shift + width * a / across, depth * b / deep) for a, b in corners])

    top = panel(height / 2 if height else 0.02, {})
    fill(top, 0.0, False)
    seams = [[top[at] for at in border]]
    shared = {} if height else {at: top[at] for at in border}
    bottom = panel(-height / 2 if height else -0.02, shared)
    fill(bottom, width + 1.0, True)
    if height:
        seams.append([bottom[at] for at in border])
        rows = [seams[0]]
        for row in range(1, up):
            level = height / 2 - height * row / up
            rows.append(range(len(vertices), len(vertices) + len(border)))
            vertices += [(vertices[k][0], level, vertices[k][2]) for k in seams[0]]
        rows.append(seams[1])
        lengths = [0.0]
        for a, b in zip(seams[0], seams[0][1:] + seams[0][:1]):
            lengths.append(lengths[-1] + math.dist(vertices[a], vertices[b]))
        for row in range(up):
            for k in range(len(border)):
                after = (k + 1) % len(border)
                faces.append((rows[row][after], rows[row][k], rows[row + 1][k], rows[row + 1][after]))
                upper, lower = -1 - height * row / up, -1 - height * (row + 1) / up
                uvs.append([(lengths[k + 1], upper), (lengths[k], upper), (lengths[k], lower), (lengths[k + 1], lower)])
    return mesh.from_geometry(name, vertices, faces, uvs), seams


def sheet(width, depth, cells, corner, name="sheet"):
    """A flat sheet in the xz plane, facing up, with round corners, for `drape`. `cells`: (across, deep)."""
    across, deep = cells
    vertices, faces, uvs = [], [], []
    for j in range(deep + 1):
        for i in range(across + 1):
            x, z = _rounded(2 * i / across - 1, 2 * j / deep - 1, width, depth, corner)
            vertices.append((x, 0.0, -z))
    for j in range(deep):
        for i in range(across):
            corners = [(i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1)]
            faces.append([a + b * (across + 1) for a, b in corners])
            uvs.append([(width * a / across, depth * b / deep) for a, b in corners])
    return mesh.from_geometry(name, vertices, faces, uvs)


def _settle(target, frames):
    for frame in range(1, frames + 1):
        bpy.context.scene.frame_set(frame)
    mesh.apply_modifiers(target)
    bpy.context.scene.frame_set(1)


def inflate(target, pressure, frames=32, tension=14.0, bending=0.6, shrink=-0.02):
    """Blows a cover up. About 1.25 makes a seat, 2.3 a back cushion, 5.5 a throw pillow with dog ears."""
    bpy.context.scene.use_gravity = False
    cloth = mesh.modify(target, "CLOTH")
    settings = cloth.settings
    settings.quality = 6
    settings.mass = 0.3
    settings.air_damping = 4
    settings.tension_stiffness = settings.compression_stiffness = tension
    settings.shear_stiffness = tension * 0.4
    settings.bending_stiffness = bending
    settings.use_pressure = True
    settings.uniform_pressure_force = pressure
    settings.shrink_min = settings.shrink_max = shrink
    cloth.collision_settings.use_collision = False
    _settle(target, frames)
    mesh.modify(target, "SMOOTH", factor=0.4, iterations=2)
    return mesh.apply_modifiers(target)


def drape(sheet, supports, frames=35, stiffness=40.0, bending=30.0, mass=0.6, friction=25.0, gap=0.06):
    """Lets a sheet fall onto the supports, along -y. Bending of 3 is a table cloth, 30 is cheese."""
    scene = bpy.context.scene
    scene.use_gravity = True
    scene.gravity = (0.0, -9.81, 0.0)
    for support in supports:
        mesh.modify(support, "COLLISION")
        support.collision.thickness_outer = gap
        support.collision.cloth_friction = friction
    cloth = mesh.modify(sheet, "CLOTH")
    settings = cloth.settings
    settings.quality = 10
    settings.mass = mass
    settings.air_damping = 3
    settings.tension_stiffness = settings.compression_stiffness = stiffness
    settings.shear_stiffness = stiffness * 0.6
    settings.bending_stiffness = bending
    cloth.collision_settings.collision_quality = 4
    cloth.collision_settings.distance_min = 0.05
    _settle(sheet, frames)
    return sheet


def piping(target, seam, radius, sides=8, out=0.0):
    """A round cord along a seam: the detail that makes it upholstery. `out` lifts it out of the cloth, along the
    normals."""
    target.data.update()
    points = [target.data.vertices[number].co + target.data.vertices[number].normal * out for number in seam]
    count = len(points)
    soft = [(points[k - 1] + 2 * points[k] + points[(k + 1) % count]) / 4 for k in range(count)]
    return shapes.tube(soft, radius, sides=sides, closed=True, name=target.name + " piping")


def place(parts, x=0.0, y=0.0, z=0.0, turns=()):
    """Moves parts to their place as one, after turns such as ("X", 74)."""
    matrix = Matrix.Translation(Vector((x, y, z)))
    for axis, degrees in turns:
        matrix = matrix @ Matrix.Rotation(math.radians(degrees), 4, axis)
    for part in parts:
        part.data.transform(matrix)
    return parts

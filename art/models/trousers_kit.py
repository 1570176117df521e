"""The trousers on the sofa: cut flat, dropped over the right arm, and then given the roundness of legs."""

import math

from mathutils import Vector

from kit import cloth, mesh
from kit.parts import split

LENGTH, RISE, WAIST, HEM, GAP = 5.0, 1.7, 2.1, 0.88, 0.14  # of one leg's hem; half the gap between the two
ROWS, COLUMNS = 26, 6  # the columns of each leg
CROTCH = round(ROWS * RISE / LENGTH)
WAIST_AT, MIDDLE_AT, ABOVE_THE_ARM = 3.45, -0.1, 4.5  # x, z and y, before they fall
FRAMES = 60  # of the fall; later they slip off
WALL, BAND, ROUND, LINING = 0.05, 0.08, 0.16, 0.02  # how thick: all of it, waistband and turn-ups, the legs; inside
RIM = 0.04  # the cloth of the edges, in the texture
LINING_SHARE = 0.3


def cut():
    """The flat sheet, from the waist at -x to the hems, and, for each vertex, its row and how far it is across its leg,
    from 0 inside to 1 outside."""
    numbers, vertices, places = {}, [], []
    for row in range(ROWS + 1):
        below = max(0.0, (row - CROTCH) / (ROWS - CROTCH))
        width = WAIST / 2 + (HEM - WAIST / 2) * below
        for leg in (-1, 1):
            for column in range(COLUMNS + 1):
                key = (row, 0 if column == 0 and row <= CROTCH else leg, column)
                if key not in numbers:
                    numbers[key] = len(vertices)
                    z = leg * (GAP * below + width * column / COLUMNS) + MIDDLE_AT
                    vertices.append((WAIST_AT + LENGTH * row / ROWS, ABOVE_THE_ARM, z))
                    places.append((row, column / COLUMNS))
    faces, uvs = [], []
    for row in range(ROWS):
        for leg in (-1, 1):
            for column in range(COLUMNS):
                corners = [(row, column), (row, column + 1), (row + 1, column + 1), (row + 1, column)][::leg]
                face = [numbers.get((a, leg, b), numbers.get((a, 0, b))) for a, b in corners]
                faces.append(face)
                uvs.append([(-vertices[number][2], -vertices[number][0]) for number in face])
    return mesh.from_geometry("trousers", vertices, faces, uvs), places


def thickness(row, across):
    """How far the outer side stands off: legs are round, a waistband and turn-ups are thick."""
    leg = math.sqrt(max(0.0, 1 - (2 * across - 1) ** 2)) * min(1.0, row / 6)
    return WALL + ROUND * leg + (BAND if row <= 1 or row >= ROWS - 2 else 0.0)


def rim_of(faces, uvs):
    """For each open edge: its two vertices, their places in the texture, and these moved outwards by the rim."""
    sides = {}
    for face, flat in zip(faces, uvs):
        for corner in range(len(face)):
            sides[face[corner - 1], face[corner]] = (Vector(flat[corner - 1]), Vector(flat[corner]))
    for (a, b), (at, to) in sides.items():
        if (b, a) not in sides:
            along = (to - at).normalized()
            out = Vector((along.y, -along.x)) * RIM
            yield (a, b), (at, to), (at + out, to + out)


def trousers(supports):
    """The trousers, lying on what supports them: a list of one part, of "trousers" and their "lining"."""
    sheet, places = cut()
    cloth.drape(sheet, supports, frames=FRAMES, stiffness=25, bending=1.2, mass=0.4)
    for support in supports:
        support.modifiers.clear()
    data, count = sheet.data, len(sheet.data.vertices)
    outer = [vertex.co + vertex.normal * thickness(*place) for vertex, place in zip(data.vertices, places)]
    inner = [vertex.co - vertex.normal * LINING for vertex in data.vertices]
    faces = [list(face.vertices) for face in data.polygons]
    uvs = [[tuple(data.uv_layers[0].data[loop].uv) for loop in face.loop_indices] for face in data.polygons]
    lining = [[number + count for number in reversed(face)] for face in faces]
    lining_uvs = [[((u + 10.0) * LINING_SHARE, v * LINING_SHARE) for u, v in reversed(flat)] for flat in uvs]
    for (a, b), (at, to), (far_at, far_to) in list(rim_of(faces, uvs)):
        faces.append([b, a, a + count, b + count])
        uvs.append([tuple(to), tuple(at), tuple(far_at), tuple(far_to)])
    made = mesh.from_geometry("trousers", outer + inner, faces + lining, uvs + lining_uvs)
    split(made, lambda face: ("trousers" if face.index < len(faces) else "lining", 1.0))
    mesh.modify(made, "SUBSURF", levels=1, render_levels=1, uv_smooth="NONE")  # or the rim's cloth comes off the rest
    return [mesh.apply_modifiers(made)]

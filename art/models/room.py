"""The room: a doll's house of three walls, open at the front and above, at dusk.

Floor top at y 0. The show turns the model by -90 degrees: model x is the way from the sofa's wall (-6.5) to the
television's (12), model z the way from the open front (-9) to the wall with the window (11.5). The furniture is not
part of it; `art/textures/room_diff.py` paints its shadows.
"""

import math

import numpy as np

from kit import mesh, model, parts, shapes, uv

import models.room_kit as room

LOW, HIGH = (-6.5, -9.0), (12.0, 11.5)  # x, z of the floor
HEIGHT = 8.5
THICKNESS = 0.5

# The lights of the show's scene, seen from the model: place, strength.
LIGHTS = [((2.0, 3.0, 7.5), 0.1), ((6.5, 3.0, 0.0), 0.1), ((2.0, 3.0, -7.5), 0.3), ((2.5, 2.5, 0.0), 0.3)]
LEAST_LIGHT = 0.36
SHINING = ("shade", "bulb0", "bulb1", "bulb2")  # these are to be the brightest

SOFA_WALL = room.Wall(90, (LOW[0], 0.0))  # x there: five times the world's x
TV_WALL = room.Wall(-90, (HIGH[0], 0.0))  # x: minus five times the world's x
WINDOW_WALL = room.Wall(180, (2.5, HIGH[1]))  # x: from the middle of the window, towards the sofa's wall
FRONT = room.Wall(180, (0.0, LOW[1]))

WINDOW = (0.0, 2.95, 6.4, 4.3)  # on its wall: x, sill, width, height
CAT = (1.5, WINDOW[1] - 0.02, 0.12)  # on the window's wall
PEGS = (5.6, 5.2)  # on the television's wall
DOOR = (-9.0, 2.7, 5.9)  # on the sofa's wall: x, width, height

RUG = (3.35, 0.0, 7.5, 9.2)  # middle x, z, size along x, z

SKIRTING = [(0.2, -0.05), (0.2, 0.62), (0.19, 0.66), (0.15, 0.69), (0.13, 0.74), (0.09, 0.82), (0.03, 0.86), (0.0, 0.9)]
RAIL = [(0.0, 2.12), (0.05, 2.14), (0.06, 2.2), (0.13, 2.24), (0.16, 2.31), (0.13, 2.38), (0.06, 2.42), (0.05, 2.46),
        (0.0, 2.48)]
CROWN = [(0.0, 7.72), (0.07, 7.74), (0.08, 7.82), (0.13, 7.86), (0.2, 8.0), (0.32, 8.12), (0.36, 8.14), (0.36, 8.24),
         (0.31, 8.29), (0.0, 8.3)]
PLINTH = [(0.35, -1.3), (0.05, -1.27), (0.0, -1.2), (0.0, -0.88), (0.05, -0.8), (0.2, -0.72), (0.24, -0.66),
          (0.26, -0.52), (0.34, -0.42),
          (0.3, -0.34), (0.22, -0.28), (0.22, -0.15), (0.26, -0.08), (0.34, -0.05)]

# Along the sofa's wall: x, y, width, height, picture.
PICTURES = [(-3.75, 4.85, 2.0, 2.6, "poster_moon"), (0.0, 5.1, 2.9, 2.2, "poster_burger"),
            (3.75, 4.85, 2.0, 2.6, "poster_trousers")]


def shell():
    """The three walls in one piece, with the hole for the window and soft edges wherever they were cut."""
    x, sill, width, tall = WINDOW
    middle = WINDOW_WALL.at[0] - x
    outer_low, outer_high = (LOW[0] - THICKNESS, LOW[1]), (HIGH[0] + THICKNESS, HIGH[1] + THICKNESS)
    levels = (-0.1, HEIGHT)
    vertices, faces, known = [], [], {}

    def vertex(*place):
        if place not in known:
            known[place] = len(vertices)
            vertices.append(place)
        return known[place]

    def face(*corners):
        faces.append([vertex(*corner) for corner in corners])

    def upright(a, b):
        face((a[0], levels[0], a[1]), (b[0], levels[0], b[1]), (b[0], levels[1], b[1]), (a[0], levels[1], a[1]))

    corners = [(LOW[0], LOW[1]), (LOW[0], HIGH[1]), (HIGH[0], HIGH[1]), (HIGH[0], LOW[1])]
    outside = [(outer_low[0], LOW[1]), (outer_low[0], outer_high[1]), (outer_high[0], outer_high[1]),
               (outer_high[0], LOW[1])]
    upright(corners[1], corners[0])
    upright(corners[3], corners[2])
    for a, b in ((0, 1), (2, 3)):
        upright(outside[a], outside[b])
    upright(corners[0], outside[0])
    upright(outside[3], corners[3])
    for a, b in ((0, 1), (1, 2), (2, 3)):
        top = [(*corners[a], 0), (*corners[b], 0), (*outside[b], 0), (*outside[a], 0)]
        face(*[(place[0], levels[1], place[1]) for place in top])
    hole_x, hole_y = (middle - width / 2, middle + width / 2), (sill, sill + tall)
    for z, ends, out in ((HIGH[1], (LOW[0], HIGH[0]), False), (outer_high[1], (outer_low[0], outer_high[0]), True)):
        xs, ys = (ends[0], *hole_x, ends[1]), (levels[0], *hole_y, levels[1])
        around = [(xs[0], ys[0]), (xs[3], ys[0]), (xs[3], ys[3]), (xs[0], ys[3])]
        hole = [(xs[1], ys[1]), (xs[2], ys[1]), (xs[2], ys[2]), (xs[1], ys[2])]
        for k in range(4):
            four = [around[k], around[(k + 1) % 4], hole[(k + 1) % 4], hole[k]]
            face(*[(px, py, z) for px, py in (four if out else reversed(four))])
    hole = [(hole_x[0], hole_y[0]), (hole_x[1], hole_y[0]), (hole_x[1], hole_y[1]), (hole_x[0], hole_y[1])]
    for (ax, ay), (bx, by) in zip(hole, hole[1:] + hole[:1]):
        face((ax, ay, HIGH[1]), (bx, by, HIGH[1]), (bx, by, outer_high[1]), (ax, ay, outer_high[1]))
    made = mesh.from_geometry("shell", vertices, faces)
    mesh.face_outwards(made)
    mesh.weighted_normals(mesh.bevel(made, 0.13, 4))
    uv.planar_by_side(made)
    uv.part_islands(made, lambda face: face.normal.y > 0.7 and face.center.z > HIGH[1])  # no island like a U
    return parts.split(made, side_of_wall)


def side_of_wall(face):
    """What of the walls is seen from inside, what is cut edge, and what only a passer-by sees."""
    x, y, z = face.center
    half = THICKNESS / 2
    if face.normal.y > 0.7 and y > HEIGHT - 0.3 or face.normal.z < -0.7 and z < LOW[1] + 0.2:
        return "cut", 0.5
    if x < LOW[0] - half or x > HIGH[0] + half or z > HIGH[1] + half:
        return "outside", 0.12
    return "wall", 0.75


def add_mouldings(made):
    """Each runs along all walls; the lower two stop at the door."""
    door_x, door_width, _ = DOOR
    near, far = -door_x - door_width / 2 - 0.3, -door_x + door_width / 2 + 0.3
    corners = [(LOW[0], 0.0, HIGH[1]), (HIGH[0], 0.0, HIGH[1]), (HIGH[0], 0.0, LOW[1] + 0.05)]
    start = (LOW[0], 0.0, LOW[1] + 0.05)
    broken = [[start, (LOW[0], 0.0, near)], [(LOW[0], 0.0, far), *corners]]
    for profile, paths, weight in ((SKIRTING, broken, 0.6), (RAIL, broken, 0.5), (CROWN, [[start, *corners]], 0.4)):
        for path in paths:
            made.add(mesh.smooth(shapes.sweep(profile, path, caps=True), 50), "trim", weight)


def add_plinth(made):
    """What the house stands on, with its name on the front."""
    width, depth = HIGH[0] - LOW[0] + 2 * THICKNESS + 0.9, HIGH[1] - LOW[1] + THICKNESS + 0.9
    at = ((LOW[0] + HIGH[0]) / 2, (LOW[1] + HIGH[1] + THICKNESS) / 2)
    base = shapes.plate(shapes.rounded_outline(width, depth, 0.5, 5), PLINTH, bottom=False, strips=8, ledge=False,
                        name="plinth")
    mesh.move(mesh.smooth(base, 60), at[0], 0, at[1])
    made.add(parts.split(base, lambda face: ("underfloor", 0.03) if face.normal.y > 0.95 else ("plinth", 0.35)), None)
    front = at[1] - depth / 2 - LOW[1]
    plate = shapes.plate(shapes.rounded_outline(3.9, 0.5, 0.14, 4), shapes.rounded_edge(0.05, 2, 0.1), bottom=False)
    parts.split(mesh.weighted_normals(plate), room.printed("nameplate", "brass", 1.6))
    made.add(FRONT.hang(room.upright(plate), -2.75, -1.03, -front - 0.04), None)


def refine(whole):
    """Puts what is looked at closely into the place of the plain bodies that the texture is laid out on."""
    x, y = PEGS
    for k, part, swing, bend, splay in room.PAIRS:
        whole = parts.lay_over(whole, part, room.hang_pair(TV_WALL, x, y, room.creased_trousers(bend, splay), k, swing))
    return parts.lay_over(whole, "cat", WINDOW_WALL.hang(room.fine_cat(), *CAT))


def plain_hems(whole, above=1.15, share=0.15):
    """Takes the lower ends of the curtains out of the cloth over their hem in the texture, which is pale."""
    layer, vertices = whole.data.uv_layers[0].data, whole.data.vertices
    for piece in parts.pieces_of(whole, "curtain"):
        for number in piece:
            face = whole.data.polygons[number]
            corners = [(vertices[vertex].co.y, loop) for vertex, loop in zip(face.vertices, face.loop_indices)]
            (low, low_loop), (high, high_loop) = min(corners), max(corners)
            if high - low < 0.1 or low > above:
                continue
            slope = (layer[high_loop].uv.y - layer[low_loop].uv.y) / (high - low)
            for height, loop in corners:
                layer[loop].uv.y += slope * (1 - share) * max(0.0, above - height)


def clean_rim(whole):
    """Gives the upper rim of the sign on the door, which got black texels, the texture of the lower one."""
    middle = DOOR[2] * 0.76
    layer, data = whole.data.uv_layers[0].data, whole.data
    rim = [face for face in (data.polygons[number] for number in parts.faces_of(whole, "paper"))
           if face.center.x < LOW[0] + 0.3 and abs(face.center.z + DOOR[0]) < 0.7 and abs(face.center.y - middle) < 0.4]

    def key(co, sign):
        return round(co.x, 3), round(sign * (co.y - middle), 3), round(co.z, 3)

    below = {key(face.center, 1): {key(data.vertices[vertex].co, 1): layer[loop].uv.copy() for vertex, loop in
                                   zip(face.vertices, face.loop_indices)}
             for face in rim if face.center.y < middle}
    for face in rim:
        other = below.get(key(face.center, -1))
        for vertex, loop in zip(face.vertices, face.loop_indices) if other else ():
            layer[loop].uv = other.get(key(data.vertices[vertex].co, -1), layer[loop].uv)


def set_flat(whole):
    """No light catches in the corners of the walls, nor on the edges of the boards."""
    normals, points = mesh.corner_normals(whole), mesh.positions(whole)[mesh.corner_vertices(whole)]
    for part, reach in (("wall", 0.2), ("plank", 0.0)):
        for number in parts.faces_of(whole, part):
            face = whole.data.polygons[number]
            loops = list(face.loop_indices)
            x, y, z = face.center
            if part == "plank":
                normals[loops] += (0, 3, 0)
            elif abs(z - HIGH[1]) < reach and min(abs(x - LOW[0]), abs(x - HIGH[0])) < reach and y < HEIGHT - 0.3:
                across = abs(face.normal.x) > abs(face.normal.z)
                normals[loops] = (math.copysign(1, face.normal.x), 0, 0) if across else (0, 0, -1)
    return mesh.set_corner_normals(whole, normals / np.linalg.norm(normals, axis=1, keepdims=True))


def build():
    made = parts.Parts()
    made.add(shell(), None)
    add_plinth(made)
    x, z, width, depth = RUG
    room.add_planks(made, LOW, HIGH, 15, [(x + side * (width / 2 - 0.6), z + side * (depth / 2 - 0.6))
                                          for side in (-1, 1)])
    add_mouldings(made)
    room.add_window(made, WINDOW_WALL, *WINDOW, THICKNESS)
    room.add_curtains(made, WINDOW_WALL, WINDOW[0], 0.12, WINDOW[2], 7.62)
    room.add_cat(made, WINDOW_WALL, *CAT)
    room.add_door(made, SOFA_WALL, *DOOR)
    room.add_ticket_machine(made, SOFA_WALL, -6.75, 3.9)
    for x, y, width, height, picture in PICTURES:
        room.add_picture(made, SOFA_WALL, x, y, width, height, picture)
    room.add_fairy_lights(made, SOFA_WALL, [(-6.9, 7.3), (-3.3, 7.35), (0.4, 7.3), (4.0, 7.35), (7.6, 7.3)], 0.55, 4)
    room.add_shelf(made, TV_WALL, -5.2, 4.4, 4.0)
    room.add_clock(made, TV_WALL, 0.3, 6.35)
    room.add_pegs(made, TV_WALL, *PEGS)
    room.add_picture(made, WINDOW_WALL, 7.0, 5.0, 1.6, 1.6, "poster_duck")
    room.add_lamp(made, -4.4, -6.9)
    room.add_rug(made, *RUG)
    whole = refine(mesh.drop_doubled_faces(made.join("room", margin=0.0028)))
    plain_hems(whole)
    clean_rim(whole)
    set_flat(whole)
    mesh.lean_into_light(whole, LIGHTS, LEAST_LIGHT)
    mesh.lean_into_light(whole, LIGHTS, 1.0, most_lean=0.85, faces=parts.faces_of(whole, "dusk"))
    return mesh.lean_into_light(whole, LIGHTS, 3.0, most_lean=0.8, faces=parts.faces_of(whole, *SHINING))


if __name__ == "__main__":
    model.main(build)

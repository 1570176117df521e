"""The lid of the burger box: a raised panel for the print, walls that flare to the rim, and a tongue at the front.

The texture has the panel as one large upright square, for a viewer in front of the box with the hinge at the back; a
second one for the inside, upright when the lid stands open; and the four walls as strips, upright too.
"""

import math

from kit import burgerbox as box, mesh, model
from models import burgerbox_bottom as bottom

# (inset from the rim, height), from the middle of the inside down to the rim and up to the middle of the panel.
LINING_PANEL = [(0.97, 1.50), (0.87, 1.494), (0.79, 1.477), (0.735, 1.45), (0.70, 1.42), (0.685, 1.39)]
LINING_WALL = [(0.19, 0.115), (0.18, 0.095), (0.125, 0.088), (0.112, 0.07), (0.105, 0.02)]
WALL = [(0.095, box.GAP), (0.02, box.GAP), (0.006, 0.014), (0.0, 0.03), (0.0, 0.08), (0.008, 0.10), (0.03, 0.11),
        (0.085, 0.11), (0.115, 0.125), (0.135, 0.17), (0.295, 0.60), (0.305, 0.64), (0.335, 0.67), (0.36, 0.71),
        (0.60, 1.42), (0.625, 1.49)]
PANEL = [(0.67, 1.545), (0.74, 1.575), (0.80, 1.58), (0.93, 1.58), (0.97, 1.59), (1.00, 1.63), (1.04, 1.665),
         (1.10, 1.675)]
PROFILE = LINING_PANEL + LINING_WALL + WALL + PANEL

RIB_LOW, RIB_HIGH = (0.1518, 0.215), (0.2777, 0.5535)  # in the coloured band
SIGN_INSET = 0.045  # of the raised sign in the printed one
SIGN_EDGE = [(0.0, -0.012), (0.012, 0.02), (0.03, 0.036), (0.06, 0.042)]

TONGUE = (1.25, 0.44, 0.2, 0.075, 0.03)  # width, height, corner, thickness, edge
TONGUE_AT = (0.0, -0.115, 2 * box.HALF_DEPTH + 0.03)
KNUCKLE_LENGTH = 1.4

# Where things lie in the texture, in texels from the upper left: (left, top, width, height). The texture's script
# paints by the same table.
TEXTURE = 2048
PRINT = (12, 12, 1180, 1180)
LINING = (1216, 12, 720, 720)
SIDES = {"front": (12, 1220, 1000, 400), "right": (1036, 1220, 1000, 400),
         "left": (12, 1636, 1000, 400), "back": (1036, 1636, 1000, 400)}
LINING_SIDES = {"front": (1216, 752, 400, 140), "right": (1636, 752, 400, 140),
                "left": (1216, 912, 400, 140), "back": (1636, 912, 400, 140)}
TONGUE_PRINT = (1216, 1076, 328, 124)
KNUCKLE_PRINT = (1600, 1076, 120, 120)

PANEL_REACH = 1.98  # model units from the middle of a panel to the edge of its square
WALL_REACH = 2.62  # from the middle of a wall to the end of its strip

CORNER_POINTS = box.CORNER_STEPS + 1
POINTS = 4 * CORNER_POINTS


def into(island, across, up):
    """Texture coordinates of a place in an island; both shares 0..1, `up` from its lower edge."""
    left, top, width, height = island
    return (left + across * width) / TEXTURE, 1 - (top + (1 - up) * height) / TEXTURE


def side_of(point):
    """The side of the box on which the piece of the outline after this point lies, and that side's first point."""
    quarter = (point - CORNER_POINTS + box.CORNER_STEPS // 2 + 1) // CORNER_POINTS % 4
    begin = (quarter * CORNER_POINTS + box.CORNER_STEPS // 2) % POINTS
    return ("right", "back", "left", "front")[quarter], begin


def along_side(ring):
    """For each piece of an outline, the places of its two ends along its side, measured from the side's middle."""
    lengths = [math.dist(ring[k], ring[(k + 1) % POINTS]) for k in range(POINTS)]
    places = []
    for k in range(POINTS):
        _, begin = side_of(k)
        whole = sum(lengths[(begin + i) % POINTS] for i in range(CORNER_POINTS))
        before = sum(lengths[(begin + i) % POINTS] for i in range((k - begin) % POINTS))
        places.append((before - whole / 2, before + lengths[k] - whole / 2))
    return places


def lay_strips(face, layer, islands, first, along):
    """Texture coordinates of a face of a wall, whose strip begins at the ring `first`."""
    corners = [layer[loop].uv.copy() for loop in face.loop_indices]
    left = int(min(corner.x for corner in corners))
    name, _ = side_of(left)
    island = islands[name]
    texels = island[2] / (2 * WALL_REACH)
    for loop, corner in zip(face.loop_indices, corners):
        row = int(corner.y)
        up = sum(math.dist(*pair) for pair in zip(PROFILE[first:row], PROFILE[first + 1:row + 1]))
        layer[loop].uv = into(island, 0.5 + along[row][int(corner.x) - left] / (2 * WALL_REACH),
                              up * texels / island[3])


def shell():
    rings = box.rims(PROFILE)
    made = box.skin(rings, "lid")
    layer = made.data.uv_layers[0].data
    wall = len(LINING_PANEL) + len(LINING_WALL)
    panel = wall + len(WALL)
    pieces = [along_side(ring) for ring in rings]  # by ring and piece; here turned to what a face of one piece needs
    for face in made.data.polygons:
        rows = [layer[loop].uv.y for loop in face.loop_indices]
        cap = max(rows) == min(rows)
        first = min(rows) if not cap else (0 if face.center.y < 1.6 else len(PROFILE))
        if first < len(LINING_PANEL) - 1 or first >= panel - 1:
            lay_panel(face, made, LINING if first < wall else PRINT)
            continue
        piece = int(min(layer[loop].uv.x for loop in face.loop_indices))
        along = [ring[piece] for ring in pieces]
        if first < wall - 1:
            lay_strips(face, layer, LINING_SIDES, len(LINING_PANEL) - 1, along)
        else:
            lay_strips(face, layer, SIDES, wall - 1, along)
    return made


def lay_panel(face, made, island):
    """From above for the print, from below for the lining: there the front edge is the upper one when it is open."""
    upwards = 1 if island is LINING else -1
    for loop in face.loop_indices:
        x, _, z = made.data.vertices[made.data.loops[loop].vertex_index].co
        made.data.uv_layers[0].data[loop].uv = into(
            island, 0.5 + x / (2 * PANEL_REACH), 0.5 + upwards * (z - box.MIDDLE_Z) / (2 * PANEL_REACH))


def ribs():
    """Ribs on the walls' lower half, coloured like what they stand on."""
    first = PROFILE.index(WALL[0]) - 1
    rim = next(row for row, place in enumerate(PROFILE) if place == (0.135, 0.17))
    below = sum(math.dist(*pair) for pair in zip(PROFILE[first:rim], PROFILE[first + 1:rim + 1]))
    below += math.dist(PROFILE[rim], RIB_LOW)
    for side, part in box.ribs(RIB_LOW, RIB_HIGH):
        island = SIDES[side]
        texels = island[2] / (2 * WALL_REACH)
        for corner in part.data.uv_layers[0].data:
            along, up = corner.uv
            corner.uv = into(island, 0.5 + along / (2 * WALL_REACH), (below + up) * texels / island[3])
        yield part


def sign():
    """The printed sign stands out of the panel a little."""
    for part in box.sign(1.02 * 2 * PANEL_REACH / PRINT[2], SIGN_EDGE, SIGN_INSET):
        mesh.move(part, 0.0, PANEL[-1][1], box.MIDDLE_Z)
        for face in part.data.polygons:
            lay_panel(face, part, PRINT)
        yield part


def tongue():
    """It closes over the rim of the lower half."""
    width, height, _, thickness, _ = TONGUE
    made = box.plate(*TONGUE, name="tongue")
    layer = made.data.uv_layers[0].data
    for loop in made.data.loops:
        x, y, z = made.data.vertices[loop.vertex_index].co
        wider = 0.96 - 0.1 * (z / thickness - 0.5)  # the edge folds outwards
        layer[loop.index].uv = into(TONGUE_PRINT, 0.5 + x / width * wider * 0.9, 0.5 + y / height * wider * 0.9)
    return mesh.move(made, *TONGUE_AT)


def knuckle():
    made = bottom.knuckle(0.0, KNUCKLE_LENGTH)
    for corner in made.data.uv_layers[0].data:
        corner.uv = into(KNUCKLE_PRINT, *corner.uv)
    return made


def build():
    made = mesh.face_outwards(mesh.join([shell(), tongue(), knuckle()], "shell"))
    made = mesh.join([made, *ribs(), *sign()], "burgerbox_top")
    mesh.weighted_normals(made)
    return mesh.smooth(made, 60)


if __name__ == "__main__":
    model.main(build)

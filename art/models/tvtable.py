"""The television's table: a bent plywood case on tapered legs. On the left a games console above a row of records, on
the right a tambour door that never shuts all the way; the joystick stands where somebody lost, on the floor in front.

The floor is y 0, the top y 2.6; the front looks along +z.
"""

import math

from kit import mesh, model, shapes, uv
from kit.parts import Parts

WIDTH, TOP, UNDERSIDE = 6.4, 2.6, 0.55
DEPTH = (-1.55, 1.6)  # back and front
BOARD = 0.16
CORNER = 0.5  # radius of the case's bent corners
CASE_Y = (TOP + UNDERSIDE) / 2
FLOOR_OF_CASE, CEILING_OF_CASE = UNDERSIDE + BOARD, TOP - BOARD

DIVIDER_X = 0.55
SHELF_Y = 1.86
BAY = (-WIDTH / 2 + BOARD, DIVIDER_X - 0.06)  # the open half

LEGS = [(x, z) for x in (-2.35, 2.35) for z in (-1.0, 1.0)]
LEG = [(0.1, 0.2), (0.13, 0.3), (0.17, 0.45), (0.2, 0.6)]
SHOE = [(0.0, 0.0), (0.055, 0.0), (0.07, 0.012), (0.1, 0.2), (0.112, 0.22), (0.112, 0.25), (0.095, 0.262),
        (0.08, 0.262)]
SPLAY = 0.35

RIBS = 15
RIB_RELIEF = 0.075
DOOR = (0.78, 3.06)  # from x to x: a hand's breadth is left open
DOOR_Z = 1.3

# Records, from the left: thickness, height, lean in degrees (those on the right have tipped over).
RECORDS = [(0.15, 1.02, 0), (0.09, 1.0, 0), (0.2, 1.04, 0), (0.08, 0.98, 0), (0.12, 1.02, 0), (0.17, 1.0, 0),
           (0.09, 1.03, 0),
           (0.13, 0.99, 0), (0.1, 1.02, 4), (0.16, 1.0, 9), (0.1, 0.98, 15), (0.14, 1.0, 22)]
RECORD_DEPTH = 1.5

# Console: parts as (width, height, depth), place, rounding, what it is.
CONSOLE = [((2.1, 0.16, 1.3), (-1.45, 1.99, 0.55), 0.05, "console"),
           ((1.9, 0.1, 0.85), (-1.45, 2.1, 0.4), 0.045, "console"),
           ((0.85, 0.26, 0.3), (-1.45, 2.22, 0.35), 0.03, "cartridge"), ((1.3, 0.04, 0.1), (-1.45, 2.075, 1.0), 0.015,
                                                                         "button"),
           ((0.12, 0.1, 0.12), (-2.2, 2.09, 1.0), 0.03, "red"), ((0.12, 0.1, 0.12), (-0.7, 2.09, 1.0), 0.03, "red")]

CABLE = [(-0.75, 1.96, 1.1), (-0.72, 1.95, 1.32), (-0.7, 1.88, 1.62), (-0.72, 1.55, 1.78), (-0.8, 0.9, 1.82),
         (-0.85, 0.35, 1.9),
         (-0.75, 0.06, 2.15), (-0.3, 0.04, 2.5), (0.2, 0.04, 2.42), (0.28, 0.04, 2.1), (-0.1, 0.05, 1.98),
         (-0.4, 0.09, 2.25),
         (-0.75, 0.05, 2.6), (-1.2, 0.05, 2.62), (-1.42, 0.1, 2.45), (-1.5, 0.12, 2.3)]
JOYSTICK = (-1.75, 1.95, 28.0)  # x, z, turn


def case():
    """One bent board all round, its front edge rounded, and a back."""
    outline = shapes.rounded_outline(WIDTH, TOP - UNDERSIDE, CORNER, 7)
    back, front = DEPTH
    profile = [(0.02, back), (0.0, back + 0.02), (0.0, front - 0.07), (0.012, front - 0.035), (0.035, front - 0.012),
               (0.06, front), (BOARD - 0.06, front), (BOARD - 0.03, front - 0.012), (BOARD - 0.008, front - 0.035),
               (BOARD, front - 0.06), (BOARD, back + 0.08)]
    made = shapes.plate(outline, profile, top=False, bottom=False, name="case")
    mesh.move(mesh.turn(made, "X", 90), y=CASE_Y)
    mesh.weighted_normals(made)
    return uv.planar_by_side(made)


def add_inside(parts):
    outline = shapes.rounded_outline(WIDTH - 0.06, TOP - UNDERSIDE - 0.06, CORNER - 0.03, 5)
    back = shapes.plate(outline, [(0.0, 0.0), (0.0, 0.1), (0.02, 0.12)], name="back")
    mesh.move(mesh.turn(back, "X", 90), y=CASE_Y, z=DEPTH[0] + 0.01)
    parts.add(mesh.weighted_normals(back), "inside", 0.35)
    divider = shapes.box((0.12, TOP - UNDERSIDE - 2 * BOARD + 0.06, 2.75), (DIVIDER_X, CASE_Y, 0.0), 0.03, 2)
    parts.add(mesh.weighted_normals(divider), "plywood", 0.6)
    shelf = shapes.box((BAY[1] - BAY[0] + 0.1, 0.1, 2.6), (sum(BAY) / 2, SHELF_Y, -0.05), 0.025, 2)
    parts.add(mesh.weighted_normals(shelf), "plywood", 0.6)


def add_legs(parts):
    for x, z in LEGS:
        reach = math.hypot(x, z)

        def lean(position, x=x, z=z, reach=reach):
            out = 1 + SPLAY * (0.6 - position.y) / reach
            position.x, position.z = position.x + x * out, position.z + z * out
            return position

        for profile, length, part, weight in ((shapes.smooth_profile(LEG, 3), 0.5, "leg", 0.6),
                                              (SHOE, 0.4, "brass", 0.5)):
            made = uv.scale(shapes.lathe(profile, segments=18), (2 * math.pi * 0.13, length))
            parts.add(mesh.smooth(mesh.displace(made, lean), 50), part, weight)


def add_door(parts):
    """Upright half-round slats, as one sheet, with a round pull."""
    left, right = DOOR
    steps = RIBS * 7
    low, high = FLOOR_OF_CASE - 0.05, CEILING_OF_CASE + 0.05
    vertices, faces = [], []
    for step in range(steps + 1):
        x = left + (right - left) * step / steps
        swing = math.sqrt(abs(math.sin(math.pi * RIBS * step / steps)))
        vertices += [(x, low, DOOR_Z + RIB_RELIEF * swing), (x, high, DOOR_Z + RIB_RELIEF * swing)]
        if step:
            a = 2 * step - 2
            faces.append((a, a + 2, a + 3, a + 1))
    edge = len(vertices)
    vertices += [(left, low, DOOR_Z), (left, high, DOOR_Z), (left, low, DOOR_Z - 0.12), (left, high, DOOR_Z - 0.12)]
    faces.append((edge, edge + 1, edge + 3, edge + 2))
    door = mesh.from_geometry("door", vertices, faces)
    parts.add(mesh.smooth(uv.planar_by_side(door), 60), "tambour", 1.0)
    pull = shapes.lathe(shapes.smooth_profile([(0.05, 0.0), (0.06, 0.1), (0.14, 0.16), (0.15, 0.21), (0.0, 0.25)], 3),
                        20)
    uv.scale(pull, (0.8, 0.4))
    parts.add(mesh.move(mesh.smooth(mesh.turn(pull, "X", 90), 70), left + 0.24, CASE_Y, DOOR_Z + 0.05), "brass", 0.7)


def add_records(parts):
    floor = FLOOR_OF_CASE
    x = BAY[0] + 0.06
    for number, (thickness, height, lean) in enumerate(RECORDS):
        made = shapes.box((thickness - 0.012, height, RECORD_DEPTH), (thickness / 2, height / 2, 0), 0.014, 2)
        mesh.delete_faces(mesh.weighted_normals(made), lambda face: face.normal.z < -0.5)
        if lean:
            mesh.turn(made, "Z", lean)
            mesh.move(made, x=math.sin(math.radians(lean)) * height * 0.55)
        parts.add(mesh.move(made, x, floor - 0.01, 0.6 + 0.05 * math.sin(number * 2.3)), f"record{number % 4}", 0.55)
        x += thickness + 0.008 + 0.014 * (lean > 0)


def add_console(parts):
    for size, at, radius, part in CONSOLE:
        parts.add(mesh.weighted_normals(shapes.box(size, at, radius, 2)), part, 0.8)
    for x in (-1.95, -0.95):  # two silver switches
        parts.add(mesh.weighted_normals(shapes.box((0.05, 0.14, 0.05), (x, 2.12, 1.0), 0.02, 2)), "brass", 0.6)
    path = shapes.smooth_profile(CABLE, 4)
    parts.add(mesh.smooth(shapes.tube(path, 0.035, sides=8), 70), "cable", 0.3)


def add_joystick(parts):
    x, z, angle = JOYSTICK

    def place(part):
        return mesh.move(mesh.turn(part, "Y", angle), x, 0.0, z)

    base = shapes.plate(shapes.rounded_outline(0.8, 0.8, 0.14, 5), [(0.0, 0.0), (0.03, 0.14)] + [
        (0.03 + inset, 0.22 + height) for inset, height in shapes.rounded_edge(0.07, 3)], bottom=False)
    parts.add(place(mesh.weighted_normals(base)), "console", 1.0)
    boot = shapes.lathe([(0.24, 0.21), (0.24, 0.235), (0.2, 0.26), (0.19, 0.29), (0.15, 0.3), (0.14, 0.33),
                         (0.09, 0.345), (0.07, 0.37)], 20)
    parts.add(place(mesh.smooth(uv.scale(boot, (1.2, 0.4)), 60)), "cable", 0.8)
    stick = shapes.lathe(shapes.smooth_profile([(0.05, 0.34), (0.055, 0.6), (0.075, 0.66), (0.12, 0.76), (0.1, 0.86),
                                                (0.0, 0.9)], 3), 18)
    mesh.turn(mesh.move(stick, y=-0.3), "Z", -9)
    parts.add(place(mesh.smooth(uv.scale(mesh.move(stick, y=0.3), (0.7, 0.8)))), "cable", 0.8)
    button = shapes.lathe([(0.075, 0.2), (0.075, 0.245), (0.06, 0.262), (0.0, 0.27)], 16)
    parts.add(place(mesh.move(mesh.smooth(uv.scale(button, (0.5, 0.2)), 60), -0.27, 0, -0.27)), "red", 0.8)


def build():
    parts = Parts()
    parts.add(case(), "plywood", 1.0)
    add_inside(parts)
    add_legs(parts)
    add_door(parts)
    add_records(parts)
    add_console(parts)
    add_joystick(parts)
    return parts.join("tvtable")


if __name__ == "__main__":
    model.main(build, tangents=True)

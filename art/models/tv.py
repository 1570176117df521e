"""The television: a tube set with a bulged screen, two dials, a loudspeaker behind slats, a bent aerial that has been
mended with foil, and a rubber duck that watches it all from the top.

Its underside is y -1.84; the front looks along +z. The map of the picture covers the screen and nothing else:
everything else shares a narrow strip at its right border, which has to be black.
"""

import math

import numpy as np

from kit import mesh, model, sdf, shapes, uv

UNDERSIDE = -1.84
CASE_SIZE, CASE_CORNER = (5.4, 3.76), 0.66
CASE_Y = 0.22  # its middle
CASE_BACK, CASE_FRONT = -0.62, 1.22
PANEL_Z = 1.02  # of the recessed front
BOW = 0.04  # how much the sides of the case swell

# From the middle of the back to the front, (inset, z): the hump that holds the neck of the tube, in two steps, and the
# case. Corners are as round as the inset leaves them.
HUMP_AT = (-0.25, 0.12)  # its middle, from the case's
HUMP = [((1.5, 1.3), 0.34, [(0.3, -1.4), (0.16, -1.395), (0.07, -1.36), (0.02, -1.29), (0.0, -1.2), (0.0, -0.95)]),
        ((2.9, 2.3), 0.5, [(0.5, -1.1), (0.2, -1.095), (0.09, -1.065), (0.025, -1.0), (0.0, -0.9), (0.0, -0.5)])]
CASE = [(0.5, CASE_BACK), (0.3, CASE_BACK + 0.008), (0.17, CASE_BACK + 0.05), (0.08, CASE_BACK + 0.13),
        (0.03, CASE_BACK + 0.24), (0.005, CASE_BACK + 0.38), (0.0, CASE_BACK + 0.55),
        (0.0, 0.42), (0.012, 0.46), (0.035, 0.478), (0.05, 0.5), (0.05, 0.53), (0.035, 0.552), (0.012, 0.57),
        (0.0, 0.61),  # where back and front are screwed together
        (0.0, CASE_FRONT - 0.34), (0.01, CASE_FRONT - 0.2), (0.033, CASE_FRONT - 0.11), (0.07, CASE_FRONT - 0.048),
        (0.115, CASE_FRONT - 0.012), (0.15, CASE_FRONT), (0.185, CASE_FRONT - 0.008), (0.21, CASE_FRONT - 0.035),
        (0.222, CASE_FRONT - 0.075), (0.228, PANEL_Z + 0.05), (0.245, PANEL_Z + 0.012), (0.275, PANEL_Z)]
VENTS = 11  # slats on both sides of the hump
CABLE = [(-0.62, -0.6, -1.15), (-0.62, -0.64, -1.36), (-0.62, -0.92, -1.5), (-0.66, -1.4, -1.46),
         (-0.82, -1.72, -1.36), (-1.15, -1.795, -1.2), (-1.6, -1.797, -1.14), (-1.95, -1.795, -1.24),
         (-2.05, -1.795, -1.4)]
CABLE_RADIUS = 0.045

SCREEN_AT = (-0.62, 0.24)
SCREEN_SIZE = (3.3, 2.66)
SCREEN_CORNER = 0.62
SCREEN_Z, BULGE = 0.98, 0.24
SCREEN_CELLS = (36, 30)
LIT = (0.02, 0.98)  # of the map, both ways
DARK = ((0.986, 0.997), (0.05, 0.95))  # where the rest of the set lies in the map: u, v

CONTROLS_X = 1.8
DIALS = [(1.42, 0.36), (0.52, 0.36)]  # y, radius
SMALL_KNOBS = [(-0.3, -0.06), (0.3, -0.06)]  # from the middle of the controls, y
SPEAKER = (-0.92, 0.74, 6)  # middle y, height, slats
FEET = [(x, z) for x in (-1.9, 1.9) for z in (-0.3, 0.75)]

AERIAL_BASE = (0.55, 2.06, -0.35)
# Both rods, from the base up; the right one has been sat on.
RODS = [[(-0.12, 0.12, 0), (-0.65, 1.05, -0.05), (-1.15, 2.0, -0.12), (-1.42, 2.55, -0.15)],
        [(0.12, 0.12, 0), (0.62, 0.95, 0.0), (0.86, 1.36, 0.02), (1.0, 1.5, 0.05), (1.3, 1.52, 0.08), (1.62, 1.8, 0.1),
         (1.75, 1.98, 0.1)]]
DUCK_AT = (-1.35, 2.0, 0.3)
DUCK_TURN = 28.0


def facing(part, x=0.0, y=0.0, z=0.0):
    """Turns what was made lying, its upper face up, to the front."""
    return mesh.move(mesh.turn(part, "X", 90), x, y, z)


def skin(width, height, corner, profile, bow=0.0, name="skin"):
    """A closed body that lies, over rounded rectangles (inset, level) from below to above, its corners always round."""
    rings = []
    for inset, level in profile:
        radius = max(corner - inset, 0.12)
        ring = []
        for x, z in in_rows(shapes.rounded_outline(width - 2 * inset, height - 2 * inset, radius, 10)):
            swell_x, swell_z = 1 - (2 * z / height) ** 2, 1 - (2 * x / width) ** 2
            ring.append((x + bow * swell_x * 2 * x / width, level, z + bow * swell_z * 2 * z / height))
        rings.append(ring)
    return mesh.smooth(shapes.loft(rings, name=name), 60)


def in_rows(ring, steps=7):
    """Points on the long sides of a rounded rectangle too, so that they can swell."""
    dense = []
    quarter = len(ring) // 4
    for number, (a, b) in enumerate(zip(ring, ring[1:] + ring[:1])):
        dense.append(a)
        if (number + 1) % quarter == 0:
            dense += [tuple(np.asarray(a) + (np.asarray(b) - a) * step / steps) for step in range(1, steps)]
    return dense


def case():
    """Like a loaf: swelling sides, a groove round it, a lip in front round a recessed panel; behind, a stepped hump."""
    made = [facing(skin(*CASE_SIZE, CASE_CORNER, CASE, BOW, "case"), y=CASE_Y)]
    for size, corner, profile in HUMP:
        made.append(facing(skin(*size, corner, profile, 0.03, "hump"), HUMP_AT[0], CASE_Y + HUMP_AT[1]))
    return made


def slats():
    """Over the vents on both sides of the hump, and on its end."""
    middle_x, middle_y = HUMP_AT[0], CASE_Y + HUMP_AT[1]
    rows = [((0.56, 0.085, 0.09), middle_x + side * 1.82, CASE_Y + 1.15 - 2.3 * slat / (VENTS - 1), CASE_BACK - 0.01)
            for side in (-1, 1) for slat in range(VENTS)]
    rows += [((0.9, 0.07, 0.08), middle_x, middle_y + 0.32 - 0.16 * slat, -1.4) for slat in range(5)]
    for size, *at in rows:
        bar = mesh.turn(shapes.box(size, radius=0.3 * min(size), segments=1), "X", 28)
        yield mesh.move(mesh.weighted_normals(bar), *at)


def from_behind(profile, segments):
    """A knob that looks to the back."""
    return mesh.turn(mesh.smooth(shapes.lathe([(0.0, 0.0)] + profile, segments), 60), "X", -90)


def screws():
    (width, height), _, _ = HUMP[1]
    profile = shapes.smooth_profile([(0.09, 0.0), (0.085, 0.03), (0.05, 0.05), (0.0, 0.055)], 2)
    for x, y in [(x, y) for x in (-0.38, 0.38) for y in (-0.37, 0.37)]:
        yield mesh.move(from_behind(profile, 16), HUMP_AT[0] + x * width, CASE_Y + HUMP_AT[1] + y * height, -1.085)


def cable():
    """To the socket in the table."""
    sleeve = shapes.smooth_profile([(0.13, 0.0), (0.125, 0.1), (0.09, 0.14), (0.075, 0.26), (0.06, 0.28), (0.0, 0.28)],
                                   2)
    yield mesh.move(from_behind(sleeve, 18), *CABLE[0][:2], -1.08)
    yield mesh.smooth(shapes.tube(shapes.smooth_profile(CABLE, 5), CABLE_RADIUS, sides=10), 80)
    plug = shapes.smooth_profile([(0.15, 0.0), (0.15, 0.06), (0.13, 0.12), (0.06, 0.19), (0.0, 0.2)], 3)
    yield mesh.move(mesh.smooth(shapes.lathe([(0.0, 0.0)] + plug, 20), 60), CABLE[-1][0], UNDERSIDE - 0.005,
                    CABLE[-1][2] + 0.02)


def frame_of_screen():
    """The thick rounded mask: it rises from the panel and falls in to the glass."""
    outline = shapes.rounded_outline(SCREEN_SIZE[0] + 0.44, SCREEN_SIZE[1] + 0.44, SCREEN_CORNER + 0.2, 9)
    profile = [(0.0, PANEL_Z - 0.02), (0.0, PANEL_Z + 0.06), (0.012, PANEL_Z + 0.11), (0.045, PANEL_Z + 0.15),
               (0.09, PANEL_Z + 0.168), (0.13, PANEL_Z + 0.165), (0.165, PANEL_Z + 0.142), (0.178, PANEL_Z + 0.125),
               (0.19, PANEL_Z + 0.115), (0.222, PANEL_Z + 0.075), (0.245, PANEL_Z + 0.01), (0.27, PANEL_Z - 0.08)]
    made = shapes.plate(outline, profile, top=False, bottom=False, name="mask")
    return facing(mesh.smooth(made, 80), *SCREEN_AT)


def screen():
    """The glass, an even grid pressed into a rounded rectangle. Its texture coordinates are simply where it lies."""
    across, up = SCREEN_CELLS
    width, height = SCREEN_SIZE
    vertices, faces, uvs = [], [], []
    low, high = LIT

    def place(i, j):
        u, v = 2 * i / across - 1, 2 * j / up - 1
        most = max(abs(u), abs(v))
        if most < 1e-6:
            return 0.0, 0.0
        x, y = u / most * width / 2, v / most * height / 2
        over_x, over_y = abs(x) - (width / 2 - SCREEN_CORNER), abs(y) - (height / 2 - SCREEN_CORNER)
        if over_x > 0 and over_y > 0:
            pull = 1 - SCREEN_CORNER / math.hypot(over_x, over_y)
            x -= math.copysign(over_x * pull, x)
            y -= math.copysign(over_y * pull, y)
        blend = most ** 2  # an even grid in the middle, the outline at the rim
        return (x * most * blend + u * width / 2 * (1 - blend)), (y * most * blend + v * height / 2 * (1 - blend))

    for j in range(up + 1):
        for i in range(across + 1):
            x, y = place(i, j)
            share_x, share_y = 2 * x / width, 2 * y / height
            dome = BULGE * (1 - 0.5 * share_x ** 2 - 0.5 * share_y ** 2)
            vertices.append((SCREEN_AT[0] + x, SCREEN_AT[1] + y, SCREEN_Z + dome))
    for j in range(up):
        for i in range(across):
            a = j * (across + 1) + i
            face = (a, a + 1, a + across + 2, a + across + 1)
            faces.append(face)
            places = [[(vertices[number][axis] - SCREEN_AT[axis]) / SCREEN_SIZE[axis] + 0.5 for axis in (0, 1)]
                      for number in face]
            uvs.append([(low + (high - low) * u, low + (high - low) * v) for u, v in places])
    return mesh.smooth(mesh.from_geometry("screen", vertices, faces, uvs))


def dial(radius, pointer):
    """A knob with a fluted rim and a ridge to turn it by, on a round plate."""
    base = shapes.plate(shapes.superellipse(2.5 * radius, 2.5 * radius, 2, 36), [(0, -0.02), (0, 0.02), (0.03, 0.045)],
                        bottom=False)
    fluted = []
    for k in range(60):
        angle = 2 * math.pi * k / 60
        reach = radius * (1 + 0.035 * math.cos(20 * angle))
        fluted.append((reach * math.sin(angle), reach * math.cos(angle)))
    knob = shapes.plate(fluted, [(0, 0.03), (0.01, 0.14), (0.025, 0.175), (0.05, 0.192), (0.075, 0.197), (0.11, 0.197)],
                        bottom=False)
    ridge = shapes.box((radius * 1.5, 0.16, 0.13), (0, 0.22, 0), 0.05, 3)
    mesh.turn(ridge, "Y", pointer)
    return [facing(mesh.weighted_normals(part)) for part in (base, knob, ridge)]


def controls():
    made = []
    back = shapes.plate(shapes.rounded_outline(1.06, 3.1, 0.2, 6), [(inset, height + 0.05) for inset, height in
                                                                  shapes.rounded_edge(0.05, 3)], bottom=False)
    made.append(facing(mesh.weighted_normals(back), CONTROLS_X, CASE_Y, PANEL_Z - 0.01))
    for number, (y, radius) in enumerate(DIALS):
        made += [mesh.move(part, CONTROLS_X, y, PANEL_Z + 0.04) for part in dial(radius, (35, -62)[number])]
    for x, y in SMALL_KNOBS:
        knob = shapes.lathe([(0.13, 0.0), (0.13, 0.12), (0.11, 0.15), (0.05, 0.16), (0.0, 0.15)], 20)
        made.append(facing(mesh.smooth(knob, 50), CONTROLS_X + x, y, PANEL_Z + 0.03))
    middle, height, slats = SPEAKER
    for slat in range(slats):
        y = middle + height * (slat / (slats - 1) - 0.5)
        bar = shapes.box((0.8, 0.085, 0.11), radius=0.035, segments=3)
        made.append(mesh.move(mesh.weighted_normals(bar), CONTROLS_X, y, PANEL_Z + 0.05))
    badge = shapes.plate(shapes.superellipse(0.9, 0.17, 3, 32), shapes.rounded_edge(0.03, 2, 0.06), bottom=False)
    made.append(facing(mesh.weighted_normals(badge), SCREEN_AT[0], SCREEN_AT[1] - 1.7, PANEL_Z - 0.01))
    return made


def feet():
    made = []
    for x, z in FEET:
        foot = shapes.lathe([(0.0, 0.0), (0.17, 0.0), (0.2, 0.02), (0.24, 0.12), (0.27, 0.3)], 20)
        made.append(mesh.move(mesh.smooth(foot, 50), x, UNDERSIDE - 0.01, z))
    return made


def aerial():
    base = shapes.lathe(shapes.smooth_profile([(0.42, -0.04), (0.42, 0.04), (0.34, 0.12), (0.2, 0.17), (0.12, 0.24),
                                               (0.0, 0.27)], 3), 28)
    made = [mesh.smooth(base, 60)]
    for rod in RODS:
        path = shapes.smooth_profile(rod, 6)
        sizes = [0.048 - 0.022 * k / (len(path) - 1) for k in range(len(path))]
        made.append(mesh.smooth(shapes.tube(path, sizes, sides=10), 70))
    tip = shapes.lathe(shapes.smooth_profile([(0.0, -0.09), (0.075, -0.04), (0.075, 0.04), (0.0, 0.09)], 3), 14)
    made.append(mesh.move(mesh.smooth(tip), *RODS[1][-1]))
    foil = mesh.subdivide(shapes.box((0.34, 0.3, 0.3), radius=0.08, segments=1), 2)
    made.append(mesh.move(mesh.smooth(mesh.roughen(foil, 0.09, 4.5, 3)), *RODS[0][-1]))
    return [mesh.move(part, *AERIAL_BASE) for part in made]


def duck():
    """Looks along +z before it is turned; stands on y 0."""
    def field(points):
        flat = sdf.mirrored(points)
        body = sdf.ellipsoid(points, (0, 0.33, -0.05), (0.36, 0.34, 0.48))
        tail = sdf.limb(points, (0, 0.42, -0.4), (0, 0.66, -0.6), 0.16, 0.035)
        head = sdf.ball(points, (0, 0.86, 0.2), 0.27)
        neck = sdf.limb(points, (0, 0.45, 0.12), (0, 0.75, 0.18), 0.2, 0.19)
        wing = sdf.ellipsoid(flat, (0.34, 0.38, -0.08), (0.09, 0.17, 0.28), sdf.rotation(x=-14))
        bill = sdf.ellipsoid(points, (0, 0.83, 0.5), (0.15, 0.045, 0.17), sdf.rotation(x=-10))
        eye = sdf.ball(flat, (0.12, 0.94, 0.4), 0.05)
        whole = sdf.union(0.12, body, tail, neck, head)
        whole = sdf.union(0.03, whole, wing, bill)
        whole = sdf.union(0.015, whole, eye)
        return sdf.intersect(whole, -points[..., 1], 0.04)

    made = sdf.to_mesh(field, (-0.6, -0.1, -0.8), (0.6, 1.3, 0.8), 0.042, name="duck")
    mesh.turn(mesh.smooth(made), "Y", DUCK_TURN)
    return mesh.move(made, *DUCK_AT)


def sticker():
    """On the lower left of the front, a little crooked; the shop's, never taken off."""
    made = shapes.plate(shapes.superellipse(0.5, 0.5, 2, 28), [(0, 0.0), (0.0, 0.012), (0.012, 0.018)], bottom=False)
    return facing(mesh.smooth(made, 50), -2.1, -1.25, PANEL_Z)


def into_the_dark(rest):
    """Unfolds all that is no screen into the black strip of the map."""
    uv.unfold(rest)
    (left, right), (low, high) = DARK
    placed = mesh.uvs(rest) * (right - left, high - low) + (left, low)
    rest.data.uv_layers[0].data.foreach_set("uv", np.ascontiguousarray(placed, np.float32).ravel())
    return rest


def build():
    rest = [*case(), *slats(), *screws(), *cable(), frame_of_screen(), *controls(), *feet(), *aerial(), duck(),
            sticker()]
    for part in rest:
        mesh.freeze_normals(part)
    rest = into_the_dark(mesh.join(rest, "set"))
    glass = mesh.freeze_normals(screen())
    joined = mesh.join([rest, glass], "tv")
    mesh.smooth(joined, 180.0)
    joined.data.use_auto_smooth = True
    return joined


if __name__ == "__main__":
    model.main(build)

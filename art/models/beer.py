"""The bottle of Vesperal Pils: stout, round-shouldered, with a crown cap of 21 teeth.

The texture runs round the bottle twice, so that a label looks out both at the front and at the back. Its islands are
plain rectangles, told below; the texture's script paints by the same table.
"""

import math

import numpy as np

from kit import mesh, model, shapes

SEGMENTS = 88
TEETH, TOOTH_SEGMENTS, TOOTH_DEPTH = 21, 6, 0.035

# (radius, height), from the middle of the base up: the punt, and the ring that the bottle stands on.
BASE = [(0.0, 0.36), (0.2, 0.345), (0.42, 0.285), (0.62, 0.175), (0.76, 0.085), (0.86, 0.03), (0.93, 0.006),
        (1.00, 0.0)]
LABEL, LABEL_RADIUS = (1.0, 3.9), 1.22  # between which heights the glass lies deeper; what the label is printed for

# The outline that the texture is laid out and painted by: heights in the picture follow it, whatever the glass does.
BODY = [(1.00, 0.0), (1.08, 0.012), (1.16, 0.06), (1.215, 0.14), (1.24, 0.25), (1.25, 0.40), (1.25, LABEL[0] - 0.10),
        (1.244, LABEL[0] - 0.06), (1.226, LABEL[0] - 0.02), (LABEL_RADIUS, LABEL[0] + 0.03),
        (LABEL_RADIUS, LABEL[1] - 0.03), (1.226, LABEL[1] + 0.02), (1.244, LABEL[1] + 0.06), (1.25, LABEL[1] + 0.10)]
SHOULDER = [(1.25, LABEL[1] + 0.10), (1.248, 4.15), (1.215, 4.45), (1.14, 4.72), (1.01, 4.99), (0.85, 5.22),
            (0.71, 5.42), (0.62, 5.65), (0.575, 5.9)]
NECK = [(0.575, 5.9), (0.545, 6.25), (0.52, 6.6), (0.505, 6.9), (0.50, 7.02), (0.512, 7.07), (0.555, 7.09),
        (0.585, 7.13), (0.59, 7.19), (0.575, 7.25), (0.53, 7.285), (0.505, 7.31), (0.50, 7.40), (0.50, 7.62)]
UPPER = shapes.smooth_profile(SHOULDER, 3) + shapes.smooth_profile(NECK, 2)[1:]

# The glass as it is: a heavy heel, a groove over it, the label standing 0.02 out of the glass it is glued to, and a
# shoulder that turns faster.
PAPER = (1.054, 3.847)  # from and to which height it is printed
HEEL = [(1.00, 0.0), (1.085, 0.012), (1.165, 0.058), (1.216, 0.13), (1.243, 0.23), (1.25, 0.36), (1.25, 0.5),
        (1.243, 0.56), (1.222, 0.595), (1.212, 0.625), (1.222, 0.655), (1.243, 0.69), (1.25, 0.75), (1.25, 0.87),
        (1.244, 0.925), (1.226, 0.965), (1.21, 0.995), (1.207, PAPER[0] - 0.012)]
WAIST = [(1.207, PAPER[0] - 0.004), (1.223, PAPER[0] - 0.002), (1.228, PAPER[0] + 0.005), (1.228, PAPER[1] - 0.005),
         (1.223, PAPER[1] + 0.002), (1.207, PAPER[1] + 0.004)]
OVER_LABEL = [(1.207, PAPER[1] + 0.012), (1.21, 3.9), (1.226, 3.93), (1.244, 3.97), (1.25, 4.0)]
TURN = [(1.25, 4.0), (1.25, 4.22), (1.235, 4.43), (1.18, 4.63), (1.065, 4.84), (0.905, 5.04), (0.765, 5.24),
        (0.662, 5.49), (0.602, 5.75), (0.575, 5.98)]
THROAT = [(0.575, 5.98), (0.548, 6.28), (0.522, 6.6), (0.507, 6.86), (0.502, 6.97), (0.512, 7.03), (0.552, 7.06),
          (0.588, 7.1), (0.595, 7.15), (0.58, 7.195), (0.548, 7.215), (0.548, 7.235), (0.572, 7.255), (0.57, 7.285),
          (0.535, 7.305), (0.507, 7.325), (0.50, 7.40), (0.50, 7.62)]
LOWER_GLASS = shapes.smooth_profile(HEEL, 2) + WAIST + shapes.smooth_profile(OVER_LABEL, 2)
UPPER_GLASS = shapes.smooth_profile(TURN, 3) + shapes.smooth_profile(THROAT, 2)[1:]
CLOSED = [(0.50, 7.62), (0.46, 7.68), (0.0, 7.68)]  # under the cap

# (radius, height) of the cap, from inside its skirt over the teeth to the middle of the top.
CAP_UNDER = [(0.0, 7.60), (0.49, 7.60), (0.53, 7.54), (0.60, 7.445), (0.635, 7.425)]
CAP_SKIRT = [(0.635, 7.425), (0.667, 7.43), (0.685, 7.455), (0.68, 7.50), (0.655, 7.60), (0.635, 7.70), (0.625, 7.80)]
CAP_TOP = [(0.625, 7.80), (0.61, 7.88), (0.575, 7.94), (0.52, 7.975), (0.44, 7.99), (0.25, 7.997), (0.0, 8.0)]


def lengths(profile):
    """How far along the profile each of its points is."""
    along = [0.0]
    for pair in zip(profile, profile[1:]):
        along.append(along[-1] + math.dist(*pair))
    return along


# Where things lie in the texture, in texels from the upper left: (left, top, width, height). The three that go round
# the bottle hold half of it. The body's is as high as leaves the label unstretched.
TEXTURE = 2048
BODY_WIDTH = 1528
LABEL_TEXELS = BODY_WIDTH / (math.pi * LABEL_RADIUS)  # per model unit
BODY_ISLAND = (16, 24, BODY_WIDTH, round(LABEL_TEXELS * lengths(BODY)[-1]))
NECK_ISLAND = (1576, 24, 448, 960)
SKIRT_ISLAND = (1576, 1008, 448, 150)
TOP_ISLAND = (1576, 1182, 448, 448)
BASE_ISLAND = (1576, 1654, 344, 344)
UNDER_ISLAND = (1936, 1654, 88, 88)


def into(island, across, up):
    """Texture coordinates of a place in an island; both shares 0..1, `up` from its lower edge."""
    left, top, width, height = island
    return (left + across * width) / TEXTURE, 1 - (top + (1 - up) * height) / TEXTURE


def lay_round(made, profile, bands):
    """Lays out a body of revolution. `bands`: (island, first, last point of the profile, and the outline whose heights
    the island follows, if not the profile itself); an island that goes round takes half of the body, and both halves
    share it. Flat islands, seen from above or below, are square."""
    along = lengths(profile)
    layer = made.data.uv_layers[0].data
    for face in made.data.polygons:
        corners = [layer[loop].uv.copy() for loop in face.loop_indices]
        height = sum(corner.y for corner in corners) / len(corners) * along[-1]
        island, first, last, *outline = next(band for band in bands if height <= along[band[2]])
        half = math.floor(2 * sum(corner.x for corner in corners) / len(corners))
        for loop, corner in zip(face.loop_indices, corners):
            x, y, z = made.data.vertices[made.data.loops[loop].vertex_index].co
            if island[2] == island[3]:
                reach = 2 * max(radius for radius, _ in profile[first:last + 1])
                upwards = -1 if face.normal.y > 0 else 1
                layer[loop].uv = into(island, 0.5 + x / reach, 0.5 + upwards * z / reach)
            elif outline:
                layer[loop].uv = into(island, 2 * corner.x - half, share_of_outline(outline[0], y))
            else:
                up = (corner.y * along[-1] - along[first]) / (along[last] - along[first])
                layer[loop].uv = into(island, 2 * corner.x - half, up)
    return made


def share_of_outline(outline, height):
    """How far along an outline that climbs a height is, 0..1."""
    along = lengths(outline)
    return float(np.interp(height, [y for _, y in outline], along)) / along[-1]


def glass():
    profile = BASE + LOWER_GLASS[1:] + UPPER_GLASS[1:] + CLOSED[1:]
    base, mouth = len(BASE) - 1, len(profile) - len(CLOSED)
    shoulder = base + len(LOWER_GLASS) - 1
    made = shapes.lathe(profile, SEGMENTS, "glass", seam_at=-math.pi / 2)
    return lay_round(made, profile, [(BASE_ISLAND, 0, base), (BODY_ISLAND, base, shoulder, BODY),
                                     (NECK_ISLAND, shoulder, mouth, UPPER),
                                     (UNDER_ISLAND, mouth, len(profile) - 1)])


def cap():
    skirt = shapes.smooth_profile(CAP_SKIRT, 2)
    profile = CAP_UNDER + skirt[1:] + shapes.smooth_profile(CAP_TOP, 2)[1:]
    made = shapes.lathe(profile, TEETH * TOOTH_SEGMENTS, "cap", seam_at=-math.pi / 2)
    made = lay_round(made, profile, [(UNDER_ISLAND, 0, len(CAP_UNDER) - 1),
                                     (SKIRT_ISLAND, len(CAP_UNDER) - 1, len(CAP_UNDER) + len(skirt) - 2),
                                     (TOP_ISLAND, len(CAP_UNDER) + len(skirt) - 2, len(profile) - 1)])

    def crimp(position):
        """Folds the skirt into teeth, deepest at its lower edge."""
        out = math.hypot(position.x, position.z)
        share = min(1.0, max(0.0, (7.80 - position.y) / 0.34))
        if out < 0.57 or not share:
            return position
        angle = math.atan2(position.x, position.z)
        wider = 1 + TOOTH_DEPTH * share * share * (3 - 2 * share) * math.cos(TEETH * angle) / out
        return type(position)((position.x * wider, position.y, position.z * wider))

    return mesh.displace(made, crimp)


def build():
    return mesh.smooth(mesh.join([glass(), cap()], "beer"), 75)


if __name__ == "__main__":
    model.main(build)

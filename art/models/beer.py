"""The bottle of Vesperal Pils: stout, round-shouldered, with a crown cap of 21 teeth.

The texture runs round the bottle twice, so that a label looks out both at the front and at the back. Its islands are
plain rectangles, told below; the texture's script paints by the same table.
"""

import math

from kit import mesh, model, shapes

SEGMENTS = 88
TEETH, TOOTH_SEGMENTS, TOOTH_DEPTH = 21, 6, 0.035

# (radius, height), from the middle of the base up.
BASE = [(0.0, 0.14), (0.30, 0.13), (0.62, 0.09), (0.84, 0.035), (0.93, 0.008), (1.00, 0.0)]
LABEL, LABEL_RADIUS = (1.0, 3.9), 1.22  # from and to which height the paper goes, where the glass lies a little deeper
BODY = [(1.00, 0.0), (1.08, 0.012), (1.16, 0.06), (1.215, 0.14), (1.24, 0.25), (1.25, 0.40), (1.25, LABEL[0] - 0.10),
        (1.244, LABEL[0] - 0.06), (1.226, LABEL[0] - 0.02), (LABEL_RADIUS, LABEL[0] + 0.03),
        (LABEL_RADIUS, LABEL[1] - 0.03), (1.226, LABEL[1] + 0.02), (1.244, LABEL[1] + 0.06), (1.25, LABEL[1] + 0.10)]
SHOULDER = [(1.25, LABEL[1] + 0.10), (1.248, 4.15), (1.215, 4.45), (1.14, 4.72), (1.01, 4.99), (0.85, 5.22),
            (0.71, 5.42), (0.62, 5.65), (0.575, 5.9)]
NECK = [(0.575, 5.9), (0.545, 6.25), (0.52, 6.6), (0.505, 6.9), (0.50, 7.02), (0.512, 7.07), (0.555, 7.09),
        (0.585, 7.13), (0.59, 7.19), (0.575, 7.25), (0.53, 7.285), (0.505, 7.31), (0.50, 7.40), (0.50, 7.62)]
UPPER = shapes.smooth_profile(SHOULDER, 3) + shapes.smooth_profile(NECK, 2)[1:]
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
    """Lays out a body of revolution. `bands`: (island, first, last point of the profile); an island that goes round
    takes half of the body, and both halves share it. Flat islands, seen from above or below, are square."""
    along = lengths(profile)
    layer = made.data.uv_layers[0].data
    for face in made.data.polygons:
        corners = [layer[loop].uv.copy() for loop in face.loop_indices]
        height = sum(corner.y for corner in corners) / len(corners) * along[-1]
        island, first, last = next(band for band in bands if height <= along[band[2]])
        half = math.floor(2 * sum(corner.x for corner in corners) / len(corners))
        for loop, corner in zip(face.loop_indices, corners):
            if island[2] == island[3]:
                x, _, z = made.data.vertices[made.data.loops[loop].vertex_index].co
                reach = 2 * max(radius for radius, _ in profile[first:last + 1])
                upwards = -1 if face.normal.y > 0 else 1
                layer[loop].uv = into(island, 0.5 + x / reach, 0.5 + upwards * z / reach)
            else:
                up = (corner.y * along[-1] - along[first]) / (along[last] - along[first])
                layer[loop].uv = into(island, 2 * corner.x - half, up)
    return made


def glass():
    profile = BASE + BODY[1:] + UPPER[1:] + CLOSED[1:]
    base, shoulder = profile.index(BASE[-1]), profile.index(BODY[-1])
    made = shapes.lathe(profile, SEGMENTS, "glass", seam_at=-math.pi / 2)
    return lay_round(made, profile, [(BASE_ISLAND, 0, base), (BODY_ISLAND, base, shoulder),
                                     (NECK_ISLAND, shoulder, len(profile) - 3),
                                     (UNDER_ISLAND, len(profile) - 3, len(profile) - 1)])


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

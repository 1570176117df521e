"""The big plant: arched stems out of one pot, with split leaves that hang outwards over them, whole ones between and
young ones still rolled. Its origin is where it comes out of the earth. The leaves are curved sheets without thickness;
their picture cuts them out."""

import math
import random

import numpy as np
from mathutils import Matrix, Vector

from kit import mesh, model, shapes
from kit.leaves import LEAVES, STEM

# Where the room's lamps are, about, in both places where the plant stands; the cameras are on the same side.
LAMPS = Vector((1.5, 1.7, 2.7))

# kind, azimuth in degrees (0 is +z, 90 is +x), height and reach of the stem's end, then of the leaf: length, width,
# pitch where it begins, how far it bends down to its tip, all three in degrees, and its roll.
PLANT = [
    ("split", 20, 1.62, 0.42, 0.98, 0.84, 18, 88, -8),
    ("split", 96, 1.50, 0.46, 0.94, 0.80, 12, 84, 10),
    ("split", 165, 1.66, 0.36, 0.90, 0.78, 28, 80, -6),
    ("split", 243, 1.58, 0.40, 0.92, 0.80, 24, 84, 8),
    ("split", 309, 1.46, 0.46, 0.94, 0.80, 14, 86, -10),
    ("split", 58, 1.06, 0.60, 0.86, 0.74, -8, 66, 12),
    ("split", 345, 1.02, 0.60, 0.84, 0.72, -10, 64, -10),
    ("split", 205, 1.10, 0.52, 0.80, 0.70, 0, 70, 8),
    ("split", 128, 1.00, 0.58, 0.80, 0.70, -6, 66, -8),
    ("split", 278, 0.98, 0.58, 0.82, 0.70, -8, 66, 8),
    ("whole", 40, 1.92, 0.22, 0.74, 0.36, 56, 62, 6),
    ("whole", 225, 1.96, 0.20, 0.72, 0.35, 62, 58, -6),
    ("small", 80, 0.62, 0.56, 0.56, 0.50, -4, 60, 8),
    ("small", 330, 0.58, 0.54, 0.54, 0.48, 0, 62, -8),
    ("heart", 12, 0.44, 0.50, 0.44, 0.44, 6, 58, 8),
    ("heart", 150, 0.50, 0.48, 0.46, 0.44, 4, 60, -8),
    ("heart", 262, 0.46, 0.48, 0.44, 0.44, 4, 60, 6),
    ("young", 300, 1.86, 0.10, 0.66, 0.26, 82, 14, 0),
    ("young", 130, 1.30, 0.14, 0.56, 0.22, 78, 18, 0),
]

ROOT_RADIUS, ROOT_DEPTH = 0.15, -0.06
STEM_RADIUS, STEM_TOP, STEM_SIDES, STEM_STEPS = 0.035, 0.016, 12, 16  # sides: even, see `stem`
ACROSS, ALONG = 18, 30  # faces of a big leaf; smaller ones have fewer
FOLD = {"split": 0.24, "small": 0.28, "heart": 0.22, "whole": 0.42, "young": 1.7}  # upwards from the middle rib
SAG = {"split": 0.30, "small": 0.25, "heart": 0.30, "whole": 0.25, "young": 0.2}  # of the rims again
LEAN, LEAST, MOST = 0.2, 0.4, 0.7  # of the normals to the lamps, LEAN and what a cosine lacks of LEAST, up to MOST


def outwards(azimuth):
    return Vector((math.sin(azimuth), 0.0, math.cos(azimuth)))


def stem_path(azimuth, height, reach, sway):
    """Straight up out of the earth, then over in an arch."""
    direction, across = outwards(azimuth), outwards(azimuth + math.pi / 2)
    points = []
    for k in range(STEM_STEPS + 1):
        t = k / STEM_STEPS
        out = ROOT_RADIUS * (0.55 + 0.45 * t) + (reach - ROOT_RADIUS) * t ** 2.1
        up = ROOT_DEPTH + (height - ROOT_DEPTH) * math.sin(t * math.pi / 2 * 0.94) / math.sin(math.pi / 2 * 0.94)
        points.append(direction * out + across * (sway * math.sin(t * math.pi)) + Vector((0, up, 0)))
    return points


def along_rib(rib, length, at):
    """(place, direction upwards from the blade) on a leaf's middle rib, `at` from where it begins."""
    points, directions = rib
    step = min(at / length * (len(points) - 1), len(points) - 1.001)
    before = int(step)
    direction = directions[before].lerp(directions[before + 1], step - before).normalized()
    across = Vector((direction.z, 0, -direction.x)).normalized()
    return points[before].lerp(points[before + 1], step - before), direction.cross(across)


def stem(path, rib, length, foot):
    """Goes over into the leaf's middle rib, from below, and stays under the blade until it is gone."""
    radii = [STEM_RADIUS + (STEM_TOP - STEM_RADIUS) * k / STEM_STEPS for k in range(STEM_STEPS + 1)]
    for further, thick in ((1.5, 0.85), (3.5, 0.65), (6.5, 0.4), (10, 0.12)):
        place, up = along_rib(rib, length, foot + further * STEM_TOP)
        path = [*path, place - up * (STEM_TOP * thick + 0.002)]
        radii.append(STEM_TOP * thick)
    made = shapes.tube(path, radii, sides=STEM_SIDES, caps=False, name="stem")
    layer = made.data.uv_layers[0]
    for face in made.data.polygons:
        row, side = divmod(face.index, STEM_SIDES)
        corners = (side, row), (side + 1, row), (side + 1, row + 1), (side, row + 1)
        for loop, (s, k) in zip(face.loop_indices, corners):
            turn = abs(2.0 * s / STEM_SIDES - 1.0)  # there and back, so that the stem has no seam
            layer.data[loop].uv = STEM.uv(1.9 * turn - 0.95, k / (len(path) - 1))
    return mesh.freeze_normals(mesh.smooth(made))


def middle_rib(start, azimuth, length, pitch, bend, steps):
    """Points along a leaf's middle, and the direction at each."""
    points, directions = [start], []
    for k in range(steps + 1):
        angle = pitch - bend * (k / steps) ** 1.25
        directions.append(outwards(azimuth) * math.cos(angle) + Vector((0, math.sin(angle), 0)))
        if k:
            points.append(points[-1] + (directions[-1] + directions[-2]) * (length / steps / 2))
    return points, directions


def blade(kind, start, azimuth, length, width, pitch, bend, roll, phase):
    """A sheet along its rib, as wide as the leaf is there, folded up beside the rib and sagging to its rims."""
    leaf = LEAVES[kind]
    share = max(0.5, min(1.0, length / 0.8))
    across, along = 2 * round(ACROSS * share / 2), round(ALONG * share)
    points, directions = middle_rib(start, azimuth, length, pitch, bend, along)
    side = outwards(azimuth - math.pi / 2)
    vertices, coordinates = [], []
    for j, (point, direction) in enumerate(zip(points, directions)):
        t = j / along
        half = max(leaf.half_width(t), 0.05)
        twist = Matrix.Rotation(roll * (0.4 + 0.6 * t), 3, direction)
        sideways, upwards = twist @ side, twist @ side.cross(direction)
        for i in range(across + 1):
            s = 2 * i / across - 1
            out = abs(s) * half * width / 2
            if kind == "young":  # still rolled up: an arc
                radius = half * width / 2 / FOLD[kind]
                out, lift = radius * math.sin(FOLD[kind] * abs(s)), radius * (1 - math.cos(FOLD[kind] * abs(s)))
            else:
                lift = FOLD[kind] * out - SAG[kind] * out * out / width * 3.2
                lift += 0.022 * length * abs(s) ** 1.5 * math.sin(9 * t + phase + (1.3 if s > 0 else 0.0))
            vertices.append(point + sideways * math.copysign(out, s) + upwards * lift)
            coordinates.append(leaf.patch.uv(s * half, t))
    faces = []
    for j in range(along):
        for i in range(across):
            first = j * (across + 1) + i
            faces.append((first, first + 1, first + across + 2, first + across + 1))
    made = mesh.from_geometry(kind, vertices, faces, [[coordinates[corner] for corner in face] for face in faces])
    return soften(mesh.smooth(face_room(made)))


def face_room(sheet):
    """Turns the lit side of a leaf to where light and cameras are, whichever way it hangs."""
    towards = sum((face.normal * face.area for face in sheet.data.polygons), Vector())
    middle = sum((vertex.co for vertex in sheet.data.vertices), Vector()) / len(sheet.data.vertices)
    if towards.dot(LAMPS - middle) < 0:
        sheet.data.flip_normals()
    return sheet


def unit(vectors):
    return vectors / np.linalg.norm(vectors, axis=-1, keepdims=True)


def soften(sheet):
    """Leans the normals a little outwards and to the lamps: leaves that the light only grazes, or that hang between
    camera and lamp, would be black; real ones let light through."""
    points = mesh.positions(sheet)[mesh.corner_vertices(sheet)]
    lean = unit(unit(points - (0, 0.9, 0)) * (0.6, 0.2, 0.6) + unit(np.asarray(LAMPS) - points))
    normals = mesh.corner_normals(sheet)
    cosine = (normals * lean).sum(axis=1, keepdims=True)
    return mesh.set_corner_normals(sheet, unit(normals + lean * (LEAN + np.clip(LEAST - cosine, 0, MOST))))


def build():
    parts = []
    for kind, azimuth, height, reach, length, width, pitch, bend, roll in PLANT:
        azimuth, pitch, bend, roll = (math.radians(angle) for angle in (azimuth, pitch, bend, roll))
        path = stem_path(azimuth, height, reach, random.uniform(-0.06, 0.06))
        foot = LEAVES[kind].foot * length + 0.02
        place, up = along_rib(middle_rib(Vector(), azimuth, length, pitch, bend, ALONG), length, foot)
        start = path[-1] - place + up * (STEM_TOP + 0.002)
        parts.append(stem(path, middle_rib(start, azimuth, length, pitch, bend, ALONG), length, foot))
        parts.append(blade(kind, start, azimuth, length, width, pitch, bend, roll, random.uniform(0, 6)))
    return mesh.join(parts, "bigplant")


if __name__ == "__main__":
    model.main(build)

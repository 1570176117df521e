"""Shapes to begin with: boxes with round edges, bodies of revolution, tubes and mouldings."""

import math

import bmesh
import bpy
import numpy as np
from mathutils import Matrix, Vector

from kit import mesh


def box(size, at=(0, 0, 0), radius=0.0, segments=3, name="box"):
    """A box around `at`, its edges rounded."""
    work = bmesh.new()
    bmesh.ops.create_cube(work, size=1.0, matrix=Matrix.Translation(at) @ Matrix.Diagonal((*size, 1.0)))
    data = bpy.data.meshes.new(name)
    work.to_mesh(data)
    work.free()
    made = bpy.data.objects.new(name, data)
    bpy.context.collection.objects.link(made)
    return mesh.bevel(made, radius, segments) if radius else made


def cushion_box(size, at=(0, 0, 0), radius=0.3, belly=0.1, cuts=8, name="cushion"):
    """A box with round edges whose sides swell by `belly` in their middle: upholstery, pillows, pads."""
    made = box(size, radius=radius, segments=4, name=name)
    with mesh.edited(made) as work:
        longest = [edge for edge in work.edges if edge.calc_length() > min(size) * 0.3]
        bmesh.ops.subdivide_edges(work, edges=longest, cuts=cuts, use_grid_fill=True)
    half = np.asarray(size) / 2

    def swell(position):
        share = [position[axis] / half[axis] for axis in range(3)]
        side = max(range(3), key=lambda axis: abs(share[axis]))
        amount = math.prod(max(0.0, 1 - abs(share[axis]) ** 2.5) for axis in range(3) if axis != side)
        position[side] += math.copysign(belly * amount, share[side])
        return position

    return mesh.move(mesh.displace(made, swell), *at)


def smooth_profile(points, steps=8):
    """A Catmull-Rom curve through points (x, y): a few points a potter would mark make a whole outline."""
    points = [np.asarray(point, float) for point in points]
    padded = [2 * points[0] - points[1], *points, 2 * points[-1] - points[-2]]
    curve = []
    for a, b, c, d in zip(padded, padded[1:], padded[2:], padded[3:]):
        for step in range(steps):
            t = step / steps
            curve.append(0.5 * (2 * b + (c - a) * t + (2 * a - 5 * b + 4 * c - d) * t * t
                                + (3 * b - a - 3 * c + d) * t * t * t))
    return [tuple(point) for point in curve] + [tuple(points[-1])]


def lathe(profile, segments=48, name="lathe", seam_at=math.pi):
    """A body of revolution about y. `profile`: (radius, height) from the lower end to the upper.

    Radius 0 at an end closes it with a fan. Texture: u once round from `seam_at` (0 is +z, pi the back), v along the
    profile by its length; one island.
    """
    lengths = np.concatenate(([0.0], np.cumsum(np.linalg.norm(np.diff(np.asarray(profile, float), axis=0), axis=1))))
    heights = lengths / lengths[-1]
    vertices, rings = [], []
    for radius, height in profile:
        if radius <= 1e-9:
            rings.append([len(vertices)] * segments)
            vertices.append((0.0, height, 0.0))
            continue
        rings.append(range(len(vertices), len(vertices) + segments))
        for segment in range(segments):
            angle = seam_at + 2 * math.pi * segment / segments
            vertices.append((radius * math.sin(angle), height, radius * math.cos(angle)))
    faces, uvs = [], []
    for row, (lower, upper) in enumerate(zip(rings, rings[1:])):
        for segment in range(segments):
            following = (segment + 1) % segments
            corners = [(lower[segment], segment, row), (lower[following], segment + 1, row),
                       (upper[following], segment + 1, row + 1), (upper[segment], segment, row + 1)]
            if lower[segment] == lower[following]:  # a pole: its corner lies in the middle of the segment
                corners = [(lower[segment], segment + 0.5, row), corners[2], corners[3]]
            elif upper[segment] == upper[following]:
                corners = [corners[0], corners[1], (upper[segment], segment + 0.5, row + 1)]
            faces.append([corner[0] for corner in corners])
            uvs.append([(u / segments, heights[v]) for _, u, v in corners])
    return mesh.from_geometry(name, vertices, faces, uvs)


def rectangle(width, depth):
    """A rectangle about the origin, as points (x, z) for `plate`."""
    return [(width / 2, depth / 2), (width / 2, -depth / 2), (-width / 2, -depth / 2), (-width / 2, depth / 2)]


def rounded_outline(width, depth, radius, steps=8):
    """A rectangle with round corners about the origin, as points (x, z) for `plate`."""
    corners = [(width / 2 - radius, depth / 2 - radius, 0), (width / 2 - radius, radius - depth / 2, 90),
               (radius - width / 2, radius - depth / 2, 180), (radius - width / 2, depth / 2 - radius, 270)]
    angles = [(x, z, math.radians(begin + 90 * step / steps)) for x, z, begin in corners for step in range(steps + 1)]
    return [(x + radius * math.sin(angle), z + radius * math.cos(angle)) for x, z, angle in angles]


def superellipse(width, depth, exponent=3.0, segments=96):
    """An outline between an ellipse (exponent 2) and a rectangle (a large one), as points (x, z) for `plate`."""
    points = []
    for segment in range(segments):
        angle = 2 * math.pi * segment / segments
        x, z = math.sin(angle), math.cos(angle)
        reach = (abs(x) ** exponent + abs(z) ** exponent) ** (-1 / exponent)
        points.append((x * reach * width / 2, z * reach * depth / 2))
    return points


def rounded_edge(radius, steps=4, thickness=None):
    """The profile of a plate's edge, (inset, height): rounded above by `radius`, and below too if it has a thickness
    (the lower face then lies at height 0); else from its upper face, at height 0, down by `radius`."""
    quarter = [(radius * (1 - math.sin(math.radians(90 * step / steps))),
                radius * (1 - math.cos(math.radians(90 * step / steps)))) for step in range(steps + 1)]
    if thickness is None:
        return [(inset, -down) for inset, down in reversed(quarter)]
    upper = quarter[:-1] if thickness <= 2 * radius else quarter
    return quarter + [(inset, thickness - down) for inset, down in reversed(upper)]


def plate(outline, profile, top=True, bottom=True, strips=1, ledge=True, name="plate"):
    """A flat body: table top, rug, dial. `outline`: points (x, z), from +z over +x; `profile`: (inset, height) from the
    lower end of its edge to the upper; `top` and `bottom` close it, for outlines that their middle sees all of.

    Texture: the upper face and (if `ledge`) what of the edge looks up lie in the xz plane as seen from above, the lower
    face as seen from below, and the rest of the edge is a strip, or several so that a long one can be packed; all in
    model units.
    """
    corners = np.asarray(outline, float)
    count = len(corners)
    runs = np.roll(corners, -1, axis=0) - corners
    runs /= np.linalg.norm(runs, axis=1, keepdims=True)
    outwards = np.stack((-runs[:, 1], runs[:, 0]), -1)
    mitres = outwards + np.roll(outwards, 1, axis=0)
    mitres /= np.maximum((mitres * outwards).sum(axis=1, keepdims=True), 0.3)
    vertices, rings = [], []
    for inset, height in profile:
        rings.append(range(len(vertices), len(vertices) + count))
        vertices += [(x, height, z) for x, z in corners - mitres * inset]
    around = np.concatenate(([0.0], np.cumsum(np.linalg.norm(np.roll(corners, -1, axis=0) - corners, axis=1))))
    along = np.concatenate(([0.0], np.cumsum(np.linalg.norm(np.diff(np.asarray(profile, float), axis=0), axis=1))))
    faces, uvs = [], []
    for row, (lower, upper) in enumerate(zip(rings, rings[1:])):
        (low_inset, low), (high_inset, high) = profile[row], profile[row + 1]
        looks_up = ledge and high_inset - low_inset > abs(high - low)
        for k in range(count):
            following = (k + 1) % count
            face = (lower[k], lower[following], upper[following], upper[k])
            faces.append(face)
            if looks_up:
                uvs.append([(vertices[number][0], -vertices[number][2]) for number in face])
            else:
                shift = 1000.0 * (k * strips // count)
                uvs.append([(shift + around[k], along[row]), (shift + around[k + 1], along[row]),
                            (shift + around[k + 1], along[row + 1]), (shift + around[k], along[row + 1])])
    for closed, ring, height, up in ((bottom, rings[0], profile[0][1], -1), (top, rings[-1], profile[-1][1], 1)):
        if closed:  # by a fan, because outlines with points nearly in line make slivers otherwise
            middle_x, middle_z = corners.mean(axis=0)
            vertices.append((middle_x, height, middle_z))
            for k in range(count):
                face = (ring[k], ring[(k + 1) % count], len(vertices) - 1)[::up]
                faces.append(face)
                uvs.append([(vertices[number][0], -up * vertices[number][2]) for number in face])
    return mesh.from_geometry(name, vertices, faces, uvs)


def tube(path, radius, sides=12, closed=False, caps=True, name="tube"):
    """A round tube along points; `radius` is a number or one for each point.

    Texture: u round the tube, v along it, both in model units.
    """
    points = [Vector(point) for point in path]
    count = len(points)
    radii = [radius] * count if np.isscalar(radius) else list(radius)

    def direction(i):
        before = points[i - 1] if i or closed else points[i]
        after = points[(i + 1) % count] if i + 1 < count or closed else points[i]
        return (after - before).normalized()

    directions = [direction(i) for i in range(count)]
    frames = [directions[0].orthogonal().normalized()]
    for before, after in zip(directions, directions[1:]):  # carried along, so that the tube does not twist
        frames.append((before.rotation_difference(after) @ frames[-1]).normalized())
    twist = 0.0
    if closed:  # what is left over after a full round is spread over all of it
        last = directions[-1].rotation_difference(directions[0]) @ frames[-1]
        twist = math.atan2(last.cross(frames[0]).dot(directions[0]), last.dot(frames[0]))
    vertices = []
    for i, (point, along, across) in enumerate(zip(points, directions, frames)):
        across = Matrix.Rotation(twist * i / count, 3, along) @ across
        other = along.cross(across)
        for side in range(sides):
            angle = 2 * math.pi * side / sides
            vertices.append(point + radii[i] * (across * math.cos(angle) + other * math.sin(angle)))
    lengths = [0.0]
    for i in range(count - (0 if closed else 1)):
        lengths.append(lengths[-1] + (points[(i + 1) % count] - points[i]).length)
    around = 2 * math.pi * max(radii) / sides
    faces, uvs = [], []
    for i in range(count if closed else count - 1):
        for side in range(sides):
            a, b = i * sides, (i + 1) % count * sides
            following = (side + 1) % sides
            faces.append((a + side, a + following, b + following, b + side))
            uvs.append([(around * s, lengths[k]) for s, k in
                        ((side, i), (side + 1, i), (side + 1, i + 1), (side, i + 1))])
    if caps and not closed:
        for ring, end, turned in ((0, points[0] - directions[0] * radii[0] * 0.4, True),
                                  ((count - 1) * sides, points[-1] + directions[-1] * radii[-1] * 0.4, False)):
            tip = len(vertices)
            vertices.append(end)
            for side in range(sides):
                face = [ring + side, ring + (side + 1) % sides, tip]
                angle = [2 * math.pi * s / sides for s in (side, side + 1)]
                flat = [(radii[0] * math.cos(a), -3 * max(radii) + radii[0] * math.sin(a)) for a in angle]
                flat.append((0.0, -3 * max(radii)))
                faces.append(face[::-1] if turned else face)
                uvs.append(flat[::-1] if turned else flat)
    return mesh.from_geometry(name, vertices, faces, uvs)


def sweep(profile, path, up=(0, 1, 0), closed=False, caps=False, name="sweep"):
    """A moulding: the profile, points (outwards, along `up`), led along a path with mitred corners.

    The path lies in a plane square to `up`; outwards is to its left; a profile that climbs on its outer side faces
    outwards; `caps` close the ends of an open path. Texture: one straight strip for each run, in model units, so that
    long L-shaped mouldings do not waste the texture.
    """
    up = Vector(up)
    points = [Vector(point) for point in path]
    count, width = len(points), len(profile)
    vertices = []
    for i, point in enumerate(points):
        before = (point - points[i - 1]).normalized() if i or closed else None
        after = (points[(i + 1) % count] - point).normalized() if i + 1 < count or closed else None
        normals = [up.cross(run) for run in (before, after) if run is not None]
        mitre = sum(normals, Vector((0, 0, 0))).normalized()
        stretch = 1 / max(0.3, mitre.dot(normals[0]))
        vertices += [point + mitre * (out * stretch) + up * height for out, height in profile]
    across = np.concatenate(([0.0], np.cumsum(np.linalg.norm(np.diff(np.asarray(profile, float), axis=0), axis=1))))
    faces, uvs = [], []
    for i in range(count if closed else count - 1):
        a, b = i * width, (i + 1) % count * width
        run = (points[(i + 1) % count] - points[i]).normalized()
        along = [(vertices[a + j] - points[i]).dot(run) for j in range(width)]
        far = [(vertices[b + j] - points[i]).dot(run) for j in range(width)]
        for j in range(width - 1):
            faces.append((b + j, a + j, a + j + 1, b + j + 1))
            shift = 1000.0 * i  # runs are islands of their own
            uvs.append([(shift + far[j], across[j]), (shift + along[j], across[j]),
                        (shift + along[j + 1], across[j + 1]), (shift + far[j + 1], across[j + 1])])
    if caps and not closed:
        for ring, side in ((range(width)[::-1], -1), (range((count - 1) * width, count * width), 1)):
            faces.append(tuple(ring))
            uvs.append([(1000.0 * (side - 3) + side * profile[number % width][0], profile[number % width][1])
                        for number in ring])
    return mesh.from_geometry(name, vertices, faces, uvs)


def ring(half_x, half_z, count, power=2.0, at=(0, 0, 0)):
    """Points of a closed outline in a plane across y, evenly spread: an ellipse, squarer with a higher power."""
    angles = np.linspace(0, 2 * math.pi, 40 * count, endpoint=False)
    sine, cosine = np.sin(angles), np.cos(angles)
    fine = np.stack((half_x * np.sign(sine) * np.abs(sine) ** (2 / power),
                     half_z * np.sign(cosine) * np.abs(cosine) ** (2 / power)), -1)
    lengths = np.concatenate(([0.0], np.cumsum(np.linalg.norm(np.diff(fine, axis=0, append=fine[:1]), axis=1))))
    wanted = np.arange(count) * lengths[-1] / count
    x, z = (np.interp(wanted, lengths, np.append(fine[:, axis], fine[0, axis])) for axis in (0, 1))
    return np.stack((x, np.zeros(count), z), -1) + np.asarray(at, float)


def loft(rings, closed=False, name="loft"):
    """A skin over rings of as many points each, from the lowest up, each counter-clockwise seen from above (as `ring`
    makes them). `closed` joins the last ring with the first; else a fan closes both ends.

    Texture: u round the ring, v from ring to ring, in model units; the fans are islands of their own.
    """
    rings = [np.asarray(points, float) for points in rings]
    count, rows = len(rings[0]), len(rings)
    vertices = [point for points in rings for point in points]
    around = max(np.linalg.norm(np.diff(points, axis=0, append=points[:1]), axis=1).sum() for points in rings) / count
    heights = [0.0]
    for lower, upper in zip(rings, rings[1:] + rings[:1]):
        heights.append(heights[-1] + max(1e-3, np.linalg.norm(upper - lower, axis=1).mean()))
    faces, uvs = [], []
    for row in range(rows if closed else rows - 1):
        lower, upper = row * count, (row + 1) % rows * count
        for i in range(count):
            following = (i + 1) % count
            faces.append((lower + i, lower + following, upper + following, upper + i))
            uvs.append([(around * u, heights[v]) for u, v in ((i, row), (i + 1, row), (i + 1, row + 1), (i, row + 1))])
    if not closed:
        for points, first, turned in ((rings[0], 0, True), (rings[-1], (rows - 1) * count, False)):
            middle = points.mean(axis=0)
            tip = len(vertices)
            vertices.append(middle)
            flat = (points - middle)[:, (0, 2)] - (3 * np.ptp(points[:, 0]), 0)
            for i in range(count):
                following = (i + 1) % count
                face = [first + i, first + following, tip]
                corners = [flat[i], flat[following], (-3 * np.ptp(points[:, 0]), 0.0)]
                faces.append(face[::-1] if turned else face)
                uvs.append(corners[::-1] if turned else corners)
    return mesh.from_geometry(name, vertices, faces, uvs)

"""Soft bodies as distance fields: primitives that melt into each other, turned into a mesh.

A field is a function of an array of points (..., 3) that gives the distance to the surface, negative inside. Blends
have a radius of their own at every joint: wide at a shoulder, narrow between cloth and skin, so that garment edges stay
crisp.
"""

import numpy as np
import pyopenvdb

from kit import mesh


def _vector(values):
    return np.asarray(values, np.float32)


def rotation(x=0.0, y=0.0, z=0.0):
    """Degrees about x, then y, then z; for `turned`."""
    ax, ay, az = np.radians((x, y, z))
    about_x = np.array([[1, 0, 0], [0, np.cos(ax), -np.sin(ax)], [0, np.sin(ax), np.cos(ax)]])
    about_y = np.array([[np.cos(ay), 0, np.sin(ay)], [0, 1, 0], [-np.sin(ay), 0, np.cos(ay)]])
    about_z = np.array([[np.cos(az), -np.sin(az), 0], [np.sin(az), np.cos(az), 0], [0, 0, 1]])
    return (about_z @ about_y @ about_x).astype(np.float32)


def local(points, at=(0, 0, 0), turned=None):
    """Points seen from a part that stands at `at`, turned by a rotation."""
    seen = points - _vector(at)
    return seen if turned is None else seen @ turned


def mirrored(points):
    """Points folded onto x >= 0: what is modelled on the right appears on both sides."""
    folded = points.copy()
    folded[..., 0] = np.abs(folded[..., 0])
    return folded


def ball(points, at, radius):
    return np.linalg.norm(points - _vector(at), axis=-1) - radius


def ellipsoid(points, at, radii, turned=None):
    """Distance to first order; good near the surface."""
    seen, radii = local(points, at, turned), _vector(radii)
    near = np.linalg.norm(seen / radii, axis=-1)
    slope = np.linalg.norm(seen / (radii * radii), axis=-1)
    return near * (near - 1) / np.maximum(slope, 1e-6)


def limb(points, a, b, radius_a, radius_b, flatten=(1, 1, 1)):
    """A capsule that tapers from a to b."""
    a, b = _vector(a), _vector(b)
    axis = b - a
    share = np.clip((points - a) @ axis / (axis @ axis), 0, 1)
    return np.linalg.norm((points - a - share[..., None] * axis) * _vector(flatten), axis=-1) \
        - (radius_a + (radius_b - radius_a) * share)


def chain(points, path, radii, blend=0.2):
    """Limbs from point to point."""
    return union(blend, *(limb(points, a, b, ra, rb)
                          for a, b, ra, rb in zip(path, path[1:], radii, radii[1:])))


def near(points, low, high, field, reach=0.2):
    """What a field gives within a box grown by `reach`, and `reach` farther away: for small parts of a large body,
    which then cost little. Blends have to be narrower than `reach`."""
    inside = ((points > _vector(low) - reach) & (points < _vector(high) + reach)).all(-1)
    distances = np.full(points.shape[:-1], reach, np.float32)
    if inside.any():
        distances[inside] = np.minimum(field(points[inside]), reach)
    return distances


def rope(points, path, radii, reach=0.2):
    """Limbs from point to point, without a blend: for paths of many points."""
    path, radii = _vector(path), _vector(radii)
    thick = radii.max()

    def limbs(some):
        nearest = limb(some, path[0], path[1], radii[0], radii[1])
        for i in range(1, len(path) - 1):
            nearest = np.minimum(nearest, limb(some, path[i], path[i + 1], radii[i], radii[i + 1]))
        return nearest

    return near(points, path.min(axis=0) - thick, path.max(axis=0) + thick, limbs, reach)


def fold(points, path, width, height):
    """How far a fold of cloth along a path stands out, for a field to be lowered by: a soft ridge between two shallow
    valleys, that runs out at both ends."""
    path = _vector(path)
    runs = np.diff(path, axis=0)
    lengths = np.concatenate(([0.0], np.cumsum(np.linalg.norm(runs, axis=1)))).astype(np.float32)
    reach = 2.6 * width
    raised = np.zeros(points.shape[:-1], np.float32)
    inside = ((points > path.min(axis=0) - reach) & (points < path.max(axis=0) + reach)).all(-1)
    if not inside.any():
        return raised
    some = points[inside]
    nearest, along = np.full(len(some), np.inf, np.float32), np.zeros(len(some), np.float32)
    for i, run in enumerate(runs):
        share = np.clip((some - path[i]) @ run / (run @ run), 0, 1)
        distance = np.linalg.norm(some - path[i] - share[:, None] * run, axis=1)
        along = np.where(distance < nearest, (lengths[i] + share * (lengths[i + 1] - lengths[i])) / lengths[-1], along)
        nearest = np.minimum(nearest, distance)
    across = (nearest / width) ** 2
    raised[inside] = height * np.sin(np.pi * np.clip(along, 0, 1)) * (1 - across) * np.exp(-0.8 * across)
    return raised


def round_box(points, at, half, radius, turned=None):
    beyond = np.abs(local(points, at, turned)) - (_vector(half) - radius)
    return np.linalg.norm(np.maximum(beyond, 0), axis=-1) + np.minimum(beyond.max(-1), 0) - radius


def cylinder(points, at, radius, half_height, edge=0.05, turned=None):
    """Along y, its rim rounded by `edge`."""
    seen = local(points, at, turned)
    beyond = np.stack((np.hypot(seen[..., 0], seen[..., 2]) - (radius - edge),
                       np.abs(seen[..., 1]) - (half_height - edge)), -1)
    return np.linalg.norm(np.maximum(beyond, 0), axis=-1) + np.minimum(beyond.max(-1), 0) - edge


def torus(points, at, axis, radius, thickness, squash=1.0):
    """A ring about `axis`; `squash` above 1 flattens it along the axis."""
    axis = _vector(axis) / np.linalg.norm(axis)
    seen = points - _vector(at)
    height = seen @ axis
    out = np.linalg.norm(seen - height[..., None] * axis, axis=-1) - radius
    return np.sqrt(out * out + (height * squash) ** 2) - thickness


def meet(a, b, blend):
    """Both together, melted over a width of `blend`."""
    if blend <= 0:
        return np.minimum(a, b)
    overlap = np.maximum(blend - np.abs(a - b), 0) / blend
    return np.minimum(a, b) - overlap * overlap * blend * 0.25


def union(blend, first, *others):
    for other in others:
        first = meet(first, other, blend)
    return first


def intersect(a, b, blend):
    """What is in both, the new edge rounded."""
    return -meet(-a, -b, blend)


def cut(a, b, blend):
    """The first without the second, the new edge rounded."""
    return intersect(a, -b, blend)


def polar(points, at, axis):
    """(angle, distance, height) of points about an axis through `at`; for ribs, bands and whatever goes round."""
    axis = _vector(axis) / np.linalg.norm(axis)
    side = np.cross(axis, (1, 0, 0) if abs(axis[0]) < 0.8 else (0, 0, 1))
    side = _vector(side / np.linalg.norm(side))
    seen = points - _vector(at)
    height = seen @ axis
    first, second = seen @ side, seen @ _vector(np.cross(axis, side))
    return np.arctan2(second, first), np.hypot(first, second), height


def _gradient(field, at, step):
    offsets = np.eye(3, dtype=np.float32) * step
    return np.stack([field(at + offset) - field(at - offset) for offset in offsets], -1) / (2 * step)


def _onto(field, points, cell, steps):
    """Moves points near the surface onto it by Newton steps."""
    for _ in range(steps):
        slope = _gradient(field, points, 0.25 * cell)
        move = (field(points) / np.maximum((slope * slope).sum(-1), 0.2))[:, None] * slope
        length = np.linalg.norm(move, axis=1, keepdims=True)
        points = (points - move * np.minimum(1, 0.6 * cell / np.maximum(length, 1e-9))).astype(np.float32)
    return points


def settle(field, points, height=0.0, steps=8):
    """(points, normals): the points moved along the field's slope to `height` above its surface."""
    points, height = _vector(points), np.asarray(height, np.float32)
    for _ in range(steps):
        slope = _gradient(field, points, 0.01)
        length = np.maximum((slope * slope).sum(-1), 0.2)
        points = (points - ((field(points) - height) / length)[..., None] * slope).astype(np.float32)
    slope = _gradient(field, points, 0.01)
    return points, slope / np.linalg.norm(slope, axis=-1, keepdims=True)


def _everywhere(field, axes):
    """The field on a grid."""
    distances = np.empty([len(axis) for axis in axes], np.float32)
    for begin in range(0, len(axes[0]), 16):  # slab by slab: the fields keep many arrays of this size
        slab = slice(begin, begin + 16)
        distances[slab] = field(np.stack(np.meshgrid(axes[0][slab], axes[1], axes[2], indexing="ij"), -1))
    return distances


BLOCK = 6  # cells along a side of what `_near_surface` looks at, or passes over, as one


def _near_surface(field, axes, cell):
    """The field on a grid, exact only near its surface: for fields that take long. Elsewhere it is what a coarse grid
    gives."""
    counts = [-(-len(axis) // BLOCK) for axis in axes]
    coarse_axes = [axis[0] + cell * BLOCK * np.arange(count + 1, dtype=np.float32) for axis, count in zip(axes, counts)]
    coarse = field(np.stack(np.meshgrid(*coarse_axes, indexing="ij"), -1))
    corners = np.stack([coarse[i:i + counts[0], j:j + counts[1], k:k + counts[2]]
                        for i in (0, 1) for j in (0, 1) for k in (0, 1)])
    distances = np.repeat(np.repeat(np.repeat(corners[0], BLOCK, 0), BLOCK, 1), BLOCK, 2)
    chosen = np.argwhere(np.abs(corners).min(axis=0) < 1.5 * BLOCK * cell)
    inner = np.arange(BLOCK)
    for begin in range(0, len(chosen), 600):
        some = chosen[begin:begin + 600] * BLOCK
        i, j, k = (some[:, axis, None] + inner for axis in range(3))
        place = i[:, :, None, None], j[:, None, :, None], k[:, None, None, :]
        points = np.stack(np.broadcast_arrays(*(axes[axis][0] + cell * place[axis] for axis in range(3))), -1)
        distances[place] = field(points.astype(np.float32))
    return np.ascontiguousarray(distances[:len(axes[0]), :len(axes[1]), :len(axes[2])])


def to_mesh(field, low, high, cell, name="body", newton=3, quick=False):
    """The surface of the field within the box, as quads about `cell` wide.

    After the meshing every vertex is moved onto the surface itself by a few Newton steps, which takes the stairs of the
    grid away. `quick` does not look at what is far from the surface.
    """
    low = _vector(low)
    counts = np.ceil((_vector(high) - low) / cell).astype(int) + 1
    axes = [low[i] + cell * np.arange(counts[i], dtype=np.float32) for i in range(3)]
    distances = _near_surface(field, axes, cell) if quick else _everywhere(field, axes)
    grid = pyopenvdb.FloatGrid(1.0)
    grid.copyFromArray(distances)
    points, quads = grid.convertToQuads(0.0)
    if newton and not len(points):
        raise ValueError(f"the field of '{name}' has no surface within the box")
    points = _onto(field, points.astype(np.float32) * cell + low, cell, newton)
    corners = points[quads]
    normals = np.cross(corners[:, 2] - corners[:, 0], corners[:, 3] - corners[:, 1])
    outwards = (normals * _gradient(field, corners.mean(axis=1), 0.25 * cell)).sum()
    return mesh.merge(mesh.from_geometry(name, points, quads if outwards > 0 else quads[:, ::-1]), cell * 0.01)


def cast(field, origins, directions, far=4.0, steps=40):
    """Where rays from `far` out towards their origins first meet the surface: (points, normals).

    Rings of such points make a mesh whose edges run where one wants them: stripes, ribs, hems.
    """
    origins, directions = _vector(origins), _vector(directions)
    reach = np.full(directions.shape[:-1], far, np.float32)
    for _ in range(steps):
        reach = np.maximum(reach - 0.9 * field(origins + reach[..., None] * directions), 0)
    points = origins + reach[..., None] * directions
    slope = _gradient(field, points, 0.01)
    return points, slope / np.linalg.norm(slope, axis=-1, keepdims=True)


def thin_out(target, field, vertices, cell, finer=None):
    """Keeps about as many vertices of a field's mesh as wanted, most of them where it is curved, puts them back onto
    the surface, and shades them by the field's own slope, so that the thinned mesh still looks smooth. `finer` says of
    points, from 0 to 1, where more vertices are wanted than that.

    The normals last as long as nothing smooths the mesh again.
    """
    if len(target.data.vertices) > vertices:
        weights = None if finer is None else finer(mesh.positions(target))
        mesh.decimate(target, vertices / len(target.data.vertices), weights)
    points = _onto(field, mesh.positions(target), cell, 2)
    target.data.vertices.foreach_set("co", points.ravel())
    target.data.update()
    mesh.smooth(target)
    target.data.use_auto_smooth = True  # without it Blender does not heed normals of one's own
    slope = _gradient(field, points, 0.25 * cell)
    target.data.normals_split_custom_set_from_vertices(slope / np.linalg.norm(slope, axis=1, keepdims=True))
    return target

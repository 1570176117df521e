"""A script of a model: `if __name__ == "__main__": model.main(build)`.

`build()` makes the model in an empty scene and returns the one object that it is.
"""

import argparse
import json
import math
import os
import random
import struct
import sys
import time

import bpy
import numpy as np

from kit import mesh

SMALLEST_AREA = 1e-10  # of a triangle, in model units squared
SMALLEST_UV_AREA = 1e-12  # of a triangle, in textures squared: below that its tangent is noise


GLB_MAGIC = 0x46546C67


class ModelError(Exception):
    """The model that came out can't be used; the text says why."""


def main(build, tangents=False):
    """Builds the model as the command line asks: `--output FILE.glb`, and `--blend FILE.blend` for makers.

    `tangents` stores Blender's own tangents in the file, for models whose normal map is baked in Blender. Without them
    the importer makes some.
    """
    parser = argparse.ArgumentParser(prog=os.path.basename(sys.argv[sys.argv.index("-P") + 1]))
    parser.add_argument("--output", help="the model, as binary glTF")
    parser.add_argument("--blend", help="the same for Blender's window, with its construction's materials")
    arguments = parser.parse_args(sys.argv[sys.argv.index("--") + 1:])

    started = time.monotonic()
    name = os.path.splitext(parser.prog)[0]
    try:
        finished = make(build, name)
        if arguments.blend:
            save_blend(finished, arguments.blend)
        if arguments.output:
            export(finished, arguments.output, tangents)
    except ModelError as error:
        sys.exit(f"{name}: {error}")
    print(f"{name}: {len(finished.data.vertices)} vertices, {len(finished.data.polygons)} faces, "
          f"{time.monotonic() - started:.1f} s", flush=True)


def make(build, name):
    """Runs `build` in an empty scene, with a fixed seed, and returns its object, checked and named."""
    bpy.ops.wm.read_factory_settings(use_empty=True)
    random.seed(name)
    np.random.seed(sum(name.encode()))
    finished = build()
    finished.name = finished.data.name = name
    finished.parent = None
    mesh.apply_modifiers(finished)
    mesh.apply_transform(finished)
    check(finished)
    return finished


def check(finished):
    """Refuses what would come out of the importer without a surface or without tangents."""
    layers = finished.data.uv_layers
    if not layers:
        raise ModelError("has no texture coordinates")
    finished.data.calc_loop_triangles()
    corners = mesh.positions(finished)[mesh.triangles(finished)]
    areas = np.linalg.norm(np.cross(corners[:, 1] - corners[:, 0], corners[:, 2] - corners[:, 0]), axis=1) / 2
    if (areas < SMALLEST_AREA).any():
        worst = corners[areas.argmin()].mean(axis=0)
        raise ModelError(f"{(areas < SMALLEST_AREA).sum()} triangles have no area, one near {worst.round(3)}")
    uv = mesh.uvs(finished)[mesh.triangle_loops(finished)]
    first, second = uv[:, 1] - uv[:, 0], uv[:, 2] - uv[:, 0]
    uv_areas = np.abs(first[:, 0] * second[:, 1] - first[:, 1] * second[:, 0]) / 2
    if (uv_areas < SMALLEST_UV_AREA).any():
        worst = corners[uv_areas.argmin()].mean(axis=0)
        raise ModelError(f"{(uv_areas < SMALLEST_UV_AREA).sum()} triangles have no area in the texture, "
                         f"one near {worst.round(3)}")


def export(finished, path, tangents=False):
    """Writes one node, one mesh, one primitive without material; whole, or not at all."""
    bare = finished.copy()
    bare.data = finished.data.copy()
    bpy.context.collection.objects.link(bare)
    bare.data.materials.clear()
    while len(bare.data.uv_layers) > 1:  # a second layer would make every corner a vertex of its own
        bare.data.uv_layers.remove(bare.data.uv_layers[-1])
    while bare.data.color_attributes:
        bare.data.color_attributes.remove(bare.data.color_attributes[0])
    finished.name, bare.name = finished.name + ".source", finished.name
    mesh.select(bare)
    aside = os.path.join(os.path.dirname(path) or ".", f".{os.getpid()}.{os.path.basename(path)}")
    bpy.ops.export_scene.gltf(
        filepath=aside, export_format="GLB", use_selection=True, export_yup=False, export_materials="NONE",
        export_colors=False, export_tangents=tangents, export_animations=False, export_skins=False,
        export_morph=False, export_cameras=False, export_lights=False, export_extras=False)
    os.replace(aside, path)
    bpy.data.objects.remove(bare)


def load(path):
    """An object of a file that `export` wrote, as it stands in the show. (Blender's own importer turns it, and the one of
    3.4 wants an older numpy.)"""
    with open(path, "rb") as file:
        magic, _, _, length, _ = struct.unpack("<5I", file.read(20))
        if magic != GLB_MAGIC:
            raise ModelError(f"{path} is not a binary glTF file")
        description = json.loads(file.read(length))
        file.read(8)
        data = file.read()

    def values(number, kind, width):
        accessor = description["accessors"][number]
        begin = description["bufferViews"][accessor["bufferView"]].get("byteOffset", 0) + accessor.get("byteOffset", 0)
        return np.frombuffer(data, kind, accessor["count"] * width, begin).reshape(-1, width)

    primitive = description["meshes"][0]["primitives"][0]
    index_type = {5123: np.uint16, 5125: np.uint32}[description["accessors"][primitive["indices"]]["componentType"]]
    faces = values(primitive["indices"], index_type, 1).reshape(-1, 3)
    uvs = values(primitive["attributes"]["TEXCOORD_0"], np.float32, 2) * (1, -1) + (0, 1)
    name = os.path.splitext(os.path.basename(path))[0]
    return mesh.from_geometry(name, values(primitive["attributes"]["POSITION"], np.float32, 3), faces, uvs[faces])


def save_blend(finished, path):
    """Saves the scene, the model turned upright for Blender, where z is up."""
    upright = finished.rotation_euler.copy()
    finished.rotation_euler.x = math.pi / 2
    aside = f"{path}.{os.getpid()}.blend"
    bpy.ops.wm.save_as_mainfile(filepath=os.path.abspath(aside), compress=True, copy=True)
    os.replace(aside, path)
    finished.rotation_euler = upright

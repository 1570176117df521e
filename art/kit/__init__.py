"""What the scripts of several folders have in common. A module that only one folder uses stands there, as NAME_kit.py.

Most of it runs in Blender's Python, without a window; only `catalogue`, `png`, `poster` and `sheet` do without.

All lengths and places are those of the show: x to the right, y up, z towards the viewer. Blender's own axes are other
ones, but nothing here depends on them: a mesh is built as the show wants it, and only a saved .blend file turns it, so
that it stands upright in Blender's window.
"""

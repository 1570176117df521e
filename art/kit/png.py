"""PNG files: where they land, and how they get as small as they go without loss."""

import os
import subprocess
import tempfile

from PIL import Image


def beside(script, part=None):
    """Where a script NAME.py puts its picture: NAME.png in its own folder, or NAME_PART.png where it makes several."""
    stem = os.path.splitext(os.path.abspath(script))[0]
    return f"{stem}_{part}.png" if part else f"{stem}.png"


def save(pixels, path):
    """Writes the picture, rows from above, of 8-bit colours; crushed; whole, or not at all."""
    handle, aside = tempfile.mkstemp(suffix=".png", prefix=".png-", dir=os.path.dirname(os.path.abspath(path)))
    os.close(handle)
    try:
        Image.fromarray(pixels).save(aside)
        _crush(aside)
        os.chmod(aside, 0o644)
        os.replace(aside, path)
    finally:
        if os.path.exists(aside):
            os.unlink(aside)


def _crush(path):
    """Compresses a PNG file as well as can be had in half a minute; it stays the same picture. Needs optipng and
    zopflipng."""
    subprocess.run(["optipng", "-quiet", "-o2", path], check=True)
    aside = path + ".crushed"
    try:
        subprocess.run(["zopflipng", "-y", "--iterations=1", "--filters=p", path, aside], check=True,
                       stdout=subprocess.DEVNULL)
        os.chmod(aside, 0o644)
        os.replace(aside, path)
    finally:
        if os.path.exists(aside):
            os.unlink(aside)

"""Sheets for docs/: pictures in rows, each with its name below."""
import os
import sys

from PIL import Image, ImageDraw, ImageFont

from kit.catalogue import PROJECT, CatalogueError

FONT = "/usr/share/fonts/opentype/league-spartan/LeagueSpartan-Bold.otf"  # package fonts-league-spartan
WIDTH, GAP, CAPTION, LETTERS = 2400, 24, 48, 24
NIGHT, CREAM = "#18264d", "#fff0cf"
LEAST_QUALITY, STEP = 63, 3


class SheetError(Exception):
    """A sheet cannot be drawn; the text says why."""


def page(rows):
    """All rows of (picture, caption), one below the other; the pictures of a row have one height."""
    height = GAP + sum(row[0][0].height + CAPTION + GAP for row in rows)
    whole, font = Image.new("RGB", (WIDTH, height), NIGHT), ImageFont.truetype(FONT, LETTERS)
    pen = ImageDraw.Draw(whole)
    y = GAP
    for row in rows:
        x = GAP
        for picture, caption in row:
            whole.paste(picture, (x, y))
            pen.text((x, y + picture.height + CAPTION / 2), caption, CREAM, font, anchor="lm")
            x += picture.width + GAP
        y += row[0][0].height + CAPTION + GAP
    return whole


def main(draw, file, best_quality, most_bytes):
    """The command line of a sheet: SHEET [OUT.jpg]; docs/FILE if nothing is said. `draw` gives the rows. The file has
    the best quality that keeps it small enough."""
    program, *words = sys.argv
    program = os.path.basename(program)
    if len(words) > 1 or any(word.startswith("-") for word in words):
        sys.exit(f"usage: {program} [OUT.jpg]")
    out = words[0] if words else os.path.join(PROJECT, "docs", file)
    try:
        whole = page(draw())
        for quality in range(best_quality, LEAST_QUALITY - 1, -STEP):
            whole.save(out, "JPEG", quality=quality, optimize=True, progressive=True)
            if os.path.getsize(out) <= most_bytes:
                break
    except (CatalogueError, OSError, SheetError) as error:
        sys.exit(f"{program}: {error}")
    print(f"{program}: {out}: {whole.width}x{whole.height}, {os.path.getsize(out) / 1e6:.2f} MB")

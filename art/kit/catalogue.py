"""Reads scenes/catalogue.def, the list of all that the show is made of. Without Blender."""

import csv
import os
import re
from dataclasses import dataclass
from functools import lru_cache

PROJECT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
CATALOGUE = os.path.join(PROJECT, "scenes", "catalogue.def")

PASSED_OVER = re.compile(r"(//.*|#.*)?")
ROW = re.compile(r"([A-Z]+)\((.*)\)")


class CatalogueError(Exception):
    """The catalogue cannot be read; the text says where and why."""


@dataclass(frozen=True)
class Model:
    name: str


@dataclass(frozen=True)
class Texture:
    name: str
    width: int  # in texels, as the height
    height: int
    kind: str
    folder: str  # below art/, of NAME.png

    @property
    def picture(self):
        """The path of its PNG file."""
        return os.path.join(PROJECT, "art", self.folder, self.name + ".png")


@dataclass(frozen=True)
class Track:
    name: str
    source: str
    what: str  # it moves


@dataclass(frozen=True)
class Scene:
    name: str
    number: int
    camera: str
    tracks: tuple  # their names


def _matching(pattern, kind):
    """A reader of columns that takes what matches."""
    def read_column(column):
        if not re.fullmatch(pattern, column):
            raise ValueError(f"'{column}' is no {kind}")
        return column
    return read_column


_name = _matching("[a-z][a-z0-9_]*", "name")
_constant = _matching("[A-Z][A-Za-z]*", "constant of scenes/catalogue.h")
_text = _matching(".+", "text")


def _number(column):
    return int(_matching("[0-9]+", "number")(column))


# For each kind of row what it becomes, how its columns are read, and how any further ones are, if there may be some.
KINDS = {
    "MODEL": (Model, (_name,), None),
    "TEXTURE": (Texture, (_name, _number, _number, _constant, _name), None),
    "TRACK": (Track, (_name, _constant, _text), None),
    "SCENE": (Scene, (_name, _number, _constant), _name),
}


def _row(line):
    """What a line holds, or None."""
    if PASSED_OVER.fullmatch(line):
        return None
    found = ROW.fullmatch(line)
    if not found or found[1] not in KINDS:
        raise ValueError(f"a row is one of {', '.join(KINDS)}, with its columns in brackets behind it")
    kind, readers, further = KINDS[found[1]]
    columns = [column.strip() for column in next(csv.reader([found[2]], skipinitialspace=True, strict=True))]
    others = columns[len(readers):]
    if len(columns) < len(readers) or others and not further:
        raise ValueError(f"it has {len(columns)} columns, {len(readers)}{' or more' if further else ''} were expected")
    values = [read_column(column) for read_column, column in zip(readers, columns)]
    if further:
        values.append(tuple(further(column) for column in others))
    return kind(*values)


@lru_cache
def read(path=CATALOGUE):
    """All rows in their order. A name stands once among the rows of its kind."""
    try:
        with open(path, encoding="utf-8", errors="replace") as file:
            lines = file.read().splitlines()
    except OSError as error:
        raise CatalogueError(f"{path}: {error.strerror}") from error
    rows = {}
    for number, line in enumerate(lines, 1):
        try:
            row = _row(line.strip())
            if row and rows.setdefault((type(row), row.name), row) is not row:
                raise ValueError(f"'{row.name}' stands here a second time")
        except (ValueError, csv.Error) as error:
            raise CatalogueError(f"{path}:{number}: {error}") from error
    return tuple(rows.values())


def _of(kind, path):
    return [row for row in read(path) if isinstance(row, kind)]


def models(path=CATALOGUE):
    return _of(Model, path)


def textures(path=CATALOGUE):
    return _of(Texture, path)


def tracks(path=CATALOGUE):
    return _of(Track, path)


def scenes(path=CATALOGUE):
    return _of(Scene, path)

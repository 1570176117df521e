#!/usr/bin/python3
"""art/kit/catalogue.py gives each row as it is written, and says where and why it cannot; the art's folders hold what
the show's own catalogue lists, and nothing else."""
import glob
import os
import struct
import sys
import tempfile
import unittest

PROJECT = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
ART = os.path.join(PROJECT, "art")
sys.dont_write_bytecode = True
sys.path.insert(0, ART)
from kit import catalogue  # noqa: E402

SMALL = """// What a small show is made of.
#define MODEL(...)

// Models.
MODEL(lamp)
MODEL(chair_2)
TEXTURE(lamp_diff,  64, 32, Color, textures)
TRACK(swing, Text, "swings the lamp, in turns (backwards)")
TRACK(scene, Shots, "which scene is drawn")
SCENE(attic,  1, Point, swing, scene)
  SCENE(cellar, 12, None)
#undef MODEL
"""

FAULTS = {  # row: what is said of it
    "LAMP(a)": "a row is one of MODEL, TEXTURE, TRACK, SCENE, with its columns in brackets behind it",
    "MODEL lamp": "a row is one of MODEL, TEXTURE, TRACK, SCENE, with its columns in brackets behind it",
    "MODEL(lamp": "a row is one of MODEL, TEXTURE, TRACK, SCENE, with its columns in brackets behind it",
    "MODEL()": "it has 0 columns, 1 were expected",
    "MODEL(lamp, 3)": "it has 2 columns, 1 were expected",
    "MODEL(Lamp)": "'Lamp' is no name",
    "MODEL(lamp 2)": "'lamp 2' is no name",
    "MODEL(once)": "'once' stands here a second time",
    "TEXTURE(lamp, 64, Color, textures)": "it has 4 columns, 5 were expected",
    "TEXTURE(lamp, 64, -32, Color, textures)": "'-32' is no number",
    "TEXTURE(lamp, , 32, Color, textures)": "'' is no number",
    "TEXTURE(lamp, 64, 32, color, textures)": "'color' is no constant of scenes/catalogue.h",
    "TRACK(swing, Text)": "it has 2 columns, 3 were expected",
    'TRACK(swing, Text, "")': "'' is no text",
    'TRACK(swing, Text, "cut off)': "unexpected end of data",
    "SCENE(attic, 1)": "it has 2 columns, 3 or more were expected",
    "SCENE(attic, one, Point)": "'one' is no number",
    "SCENE(attic, 1, Point, )": "'' is no name",
}


class Reading(unittest.TestCase):
    def setUp(self):
        handle, self.path = tempfile.mkstemp(suffix=".def")
        os.close(handle)
        self.addCleanup(os.unlink, self.path)
        catalogue.read.cache_clear()

    def write(self, text):
        with open(self.path, "w", encoding="utf-8") as file:
            file.write(text)

    def test_gives_each_kind_of_row_in_the_order_of_the_file(self):
        self.write(SMALL)
        self.assertEqual(catalogue.models(self.path), [catalogue.Model("lamp"), catalogue.Model("chair_2")])
        self.assertEqual(catalogue.textures(self.path),
                         [catalogue.Texture("lamp_diff", 64, 32, "Color", "textures")])
        self.assertEqual(catalogue.tracks(self.path),
                         [catalogue.Track("swing", "Text", "swings the lamp, in turns (backwards)"),
                          catalogue.Track("scene", "Shots", "which scene is drawn")])
        self.assertEqual(catalogue.scenes(self.path), [catalogue.Scene("attic", 1, "Point", ("swing", "scene")),
                                                       catalogue.Scene("cellar", 12, "None", ())])

    def test_says_file_line_and_reason_of_a_row_it_cannot_read(self):
        for row, reason in FAULTS.items():
            with self.subTest(row):
                catalogue.read.cache_clear()
                self.write(f"MODEL(once)\n\n{row}\n")
                with self.assertRaises(catalogue.CatalogueError) as raised:
                    catalogue.models(self.path)
                self.assertEqual(str(raised.exception), f"{self.path}:3: {reason}")

    def test_takes_a_name_once_for_each_kind_of_row(self):
        self.write("MODEL(room)\nSCENE(room, 1, Point)\n")
        self.assertEqual([row.name for row in catalogue.read(self.path)], ["room", "room"])

    def test_says_that_there_is_no_file(self):
        with self.assertRaises(catalogue.CatalogueError) as raised:
            catalogue.scenes("/nowhere/catalogue.def")
        self.assertEqual(str(raised.exception), "/nowhere/catalogue.def: No such file or directory")


def stems(*pattern):
    """The names of the files of art/ that are like this, without their ending; no kit's."""
    found = (os.path.splitext(os.path.basename(path))[0] for path in glob.glob(os.path.join(ART, *pattern)))
    return {stem for stem in found if not stem.endswith("_kit")}


class Folders(unittest.TestCase):
    """What art/build relies on: NAME.py makes what is called NAME."""

    def test_each_model_has_a_script_of_its_name_and_no_other_script_is_there(self):
        self.assertEqual({model.name for model in catalogue.models()}, stems("models", "*.py"))

    def test_each_picture_is_a_texture_and_each_texture_a_picture(self):
        for folder in {texture.folder for texture in catalogue.textures()}:
            with self.subTest(folder):
                self.assertEqual({texture.name for texture in catalogue.textures() if texture.folder == folder},
                                 stems(folder, "*.png"))

    def test_each_texture_has_a_script_called_as_it_or_as_what_it_begins_with(self):
        for texture in catalogue.textures():
            with self.subTest(texture.name):
                makers = [stem for stem in stems(texture.folder, "*.py")
                          if texture.name == stem or texture.name.startswith(stem + "_")]
                self.assertEqual(len(makers), 1)

    def test_each_script_of_a_texture_makes_one(self):
        for folder in {texture.folder for texture in catalogue.textures()}:
            for stem in stems(folder, "*.py"):
                with self.subTest(folder + "/" + stem):
                    self.assertTrue([texture for texture in catalogue.textures() if texture.folder == folder
                                     and (texture.name == stem or texture.name.startswith(stem + "_"))])

    def test_each_picture_is_as_large_as_its_texture(self):
        for texture in catalogue.textures():
            with self.subTest(texture.name), open(texture.picture, "rb") as picture:
                self.assertEqual(struct.unpack(">II", picture.read(24)[16:]), (texture.width, texture.height))

    def test_each_track_of_its_own_has_a_text_and_each_text_is_a_track(self):
        self.assertEqual({track.name for track in catalogue.tracks() if track.source == "Text"},
                         stems("timeline", "*.csv"))

    def test_each_track_that_a_scene_reads_is_there(self):
        there = {track.name for track in catalogue.tracks()}
        self.assertLessEqual({track for scene in catalogue.scenes() for track in scene.tracks}, there)


if __name__ == "__main__":
    unittest.main()

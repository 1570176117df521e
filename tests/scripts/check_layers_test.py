#!/usr/bin/python3
"""scripts/check_layers finds nothing in a small project whose folders are in order, and each violation put into it."""
import os
import subprocess
import sys
import tempfile
import unittest
from contextlib import contextmanager
from importlib.machinery import SourceFileLoader

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "check_layers")
sys.dont_write_bytecode = True
check_layers = SourceFileLoader("check_layers", SCRIPT).load_module()

# All lines that the cases change stand first in their files.
SOUND = {
    "README.md": """| folder | what it is | includes |
|---|---|---|
| `sync/` | tracks | nothing |
| `gl/` | OpenGL | nothing |
| `framework/` | the window | `gl/`, `sync/exception.h` |
| `engine/` | what scenes are made of | `gl/` |
| `tools/` | programs | all above |
| `tests/` | mirrors | all above |
""",
    "sync/CMakeLists.txt": "add_library(sync STATIC track.cpp)\n"
                           "target_sources(sync PUBLIC FILE_SET HEADERS FILES exception.h track.h)\n",
    "sync/exception.h": "",
    "sync/track.h": "",
    "sync/track.cpp": '#include "sync/track.h"\n#include <vector>\n',
    "gl/CMakeLists.txt": "add_library(gl INTERFACE) # no sources\ntarget_sources(gl INTERFACE FILE_SET HEADERS FILES renderer.h)\n",
    "gl/renderer.h": "",
    "framework/CMakeLists.txt": "add_library(framework STATIC mixer.cpp)\ntarget_link_libraries(framework PUBLIC gl PRIVATE sync)\n",
    "framework/mixer.cpp": '#include "sync/exception.h"\n#include "gl/renderer.h"\n',
    "engine/CMakeLists.txt": "add_library(engine STATIC scene.cpp)\n"
                             "target_link_libraries(engine PUBLIC gl)\n"
                             "target_sources(engine PUBLIC FILE_SET HEADERS FILES scene.h)\n"
                             "embed_shaders(engine engine/shaders lift.frag)\n",
    "engine/scene.h": '#include "gl/renderer.h"\n',
    "engine/scene.cpp": '#include "engine/scene.h"\n#include "engine/shaders/lift_frag.h"\n',
    "tools/CMakeLists.txt": "add_subdirectory(common)\nadd_subdirectory(picture)\nadd_subdirectory(capture)\nadd_subdirectory(packer)\n",
    "tools/common/CMakeLists.txt": "add_library(common INTERFACE)\ntarget_sources(common INTERFACE FILE_SET HEADERS FILES file.h)\n",
    "tools/common/file.h": "",
    "tools/picture/CMakeLists.txt": "add_library(picture STATIC png.cpp)\n"
                                    "target_link_libraries(picture PRIVATE common)\n"
                                    "target_sources(picture PUBLIC FILE_SET HEADERS FILES png.h)\n",
    "tools/picture/png.h": "",
    "tools/picture/png.cpp": '#include "tools/picture/png.h"\n#include "tools/common/file.h"\n',
    "tools/capture/CMakeLists.txt": "add_library(capture_lib INTERFACE)\n"
                                    "target_sources(capture_lib INTERFACE FILE_SET HEADERS FILES film.h)\n"
                                    "add_executable(capture main.cpp)\n"
                                    "target_link_libraries(capture PRIVATE capture_lib engine picture)\n",
    "tools/capture/film.h": "",
    "tools/capture/main.cpp": '#include "tools/capture/film.h"\n#include "tools/picture/png.h"\n'
                              '#include "engine/scene.h"\n#include "gl/renderer.h"\n',
    "tools/packer/CMakeLists.txt": "add_executable(packer main.cpp)\ntarget_link_libraries(packer PRIVATE picture)\n",
    "tools/packer/main.cpp": '#include "tools/picture/png.h"\n',
    "tests/CMakeLists.txt": "add_vesperal_test(engine_test SOURCES scene_test.cpp LINK engine LABEL show)\n",
    "tests/matrices.h": '#include "gl/renderer.h"\n',
    "tests/scene_test.cpp": '#include "engine/scene.h"\n#include "tests/matrices.h"\n',
}

# name, file, text put in place of which, sentences
CASES = (
    ("an include of a folder below",
     "engine/scene.cpp", '#include "tools/common/file.h"\n#include', "#include",
     ["engine/scene.cpp:1: includes tools/common/file.h, but engine stands above tools in README.md's table (line 6)",
      "engine/scene.cpp:1: includes tools/common/file.h of common, which engine does not link"]),
    ("an include of a folder above that the table leaves out",
     "engine/scene.cpp", '#include "sync/track.h"\n#include', "#include",
     ["engine/scene.cpp:1: includes sync/track.h, but engine includes only gl, as README.md:6 says",
      "engine/scene.cpp:1: includes sync/track.h of sync, which engine does not link"]),
    ("an include where the table says nothing",
     "gl/renderer.h", '# include <sync/track.h>', "",
     ["gl/renderer.h:1: includes sync/track.h, but gl includes nothing, as README.md:4 says",
      "gl/renderer.h:1: includes sync/track.h of sync, which gl does not link"]),
    ("another file than the one that the table names",
     "framework/mixer.cpp", "sync/track.h", "sync/exception.h",
     ["framework/mixer.cpp:1: includes sync/track.h, but framework includes only gl and sync/exception.h, as README.md:5 says"]),
    ("a link to a folder below",
     "engine/CMakeLists.txt", "PUBLIC gl PRIVATE picture)", "PUBLIC gl)",
     ["engine/CMakeLists.txt:2: engine links picture, and includes nothing of it",
      "engine/CMakeLists.txt:2: engine links picture, but engine stands above tools in README.md's table (line 6)"]),
    ("a link of which nothing is included",
     "tools/packer/CMakeLists.txt", "PRIVATE picture sync)", "PRIVATE picture)",
     ["tools/packer/CMakeLists.txt:2: packer links sync, and includes nothing of it"]),
    ("a folder that is not linked",
     "tools/packer/CMakeLists.txt", "PRIVATE zlib)", "PRIVATE picture)",
     ["tools/packer/main.cpp:1: includes tools/picture/png.h of picture, which packer does not link"]),
    ("a folder that a link keeps to itself",
     "tools/packer/main.cpp", '#include "tools/common/file.h"\n#include', "#include",
     ["tools/packer/main.cpp:1: includes tools/common/file.h of common, which packer does not link"]),
    ("a header that includes what is linked PRIVATE",
     "tools/picture/png.h", '#include "tools/common/file.h"', "",
     ["tools/picture/png.h:1: includes tools/common/file.h of common, which picture links PRIVATE, "
      "so that who includes this header may lack it"]),
    ("a room that includes one below",
     "tools/common/file.h", '#include "tools/picture/png.h"', "",
     ["tools/common/file.h:1: includes tools/picture/png.h, but common stands above picture in tools/CMakeLists.txt",
      "tools/common/file.h:1: includes tools/picture/png.h of picture, which common does not link"]),
    ("a program that includes another",
     "tools/packer/main.cpp", "tools/capture/film.h", "tools/picture/png.h",
     ["tools/packer/main.cpp:1: includes tools/capture/film.h, but capture is a program, and no room and no other program "
      "includes one",
      "tools/packer/main.cpp:1: includes tools/capture/film.h of capture_lib, which packer does not link",
      "tools/packer/CMakeLists.txt:2: packer links picture, and includes nothing of it"]),
    ("a program that links another",
     "tools/packer/CMakeLists.txt", "PRIVATE capture_lib picture)", "PRIVATE picture)",
     ["tools/packer/CMakeLists.txt:2: packer links capture_lib, and includes nothing of it",
      "tools/packer/CMakeLists.txt:2: packer links capture_lib, but capture is a program, and no room and no other program "
      "includes one"]),
    ("half a name",
     "sync/track.cpp", '"track.h"', '"sync/track.h"',
     ['sync/track.cpp:1: includes "track.h" by less than its whole name, "sync/track.h"']),
    ("a file that is nowhere",
     "sync/track.cpp", '"sync/tracks.h"', '"sync/track.h"',
     ['sync/track.cpp:1: includes "sync/tracks.h", which is no file of this project; <> is for those of others']),
    ("a source that is not built",
     "sync/CMakeLists.txt", "STATIC)", "STATIC track.cpp)",
     ["sync/track.cpp:1: no CMakeLists.txt lists this file"]),
    ("a table that names what is below",
     "README.md", "made of | `tools/` |", "made of | `gl/` |",
     ["README.md:6: engine is to include tools, which does not stand above it"]),
    ("a table that leaves a cell empty",
     "README.md", "made of | |", "made of | `gl/` |",
     ["README.md:6: '' names no folder; \"nothing\" and \"all above\" do without"]),
    ("no table",
     "README.md", "folders", SOUND["README.md"],
     ["README.md: there is no table of folders with what each includes"]),
)


@contextmanager
def project_of(files):
    with tempfile.TemporaryDirectory() as project:
        for path, text in files.items():
            os.makedirs(os.path.dirname(os.path.join(project, path)), exist_ok=True)
            with open(os.path.join(project, path), "w", encoding="utf-8") as file:
                file.write(text)
        yield project


def complaints(files):
    with project_of(files) as project:
        return check_layers.complaints(project)


class CheckLayers(unittest.TestCase):
    def test_finds_nothing_where_all_is_in_order(self):
        self.assertEqual(complaints(SOUND), [])

    def test_finds_each_violation(self):
        for name, path, put, place, sentences in CASES:
            with self.subTest(name):
                self.assertIn(place, SOUND[path])
                self.assertEqual(complaints(SOUND | {path: SOUND[path].replace(place, put, 1)}), sentences)

    def test_says_which_file_it_lacks(self):
        files = {path: text for path, text in SOUND.items() if path != "README.md"}
        self.assertEqual(complaints(files), ["README.md: No such file or directory"])

    def test_fails_if_it_finds_something(self):
        with project_of(SOUND | {"sync/track.h": '#include "gl/renderer.h"'}) as project:
            done = subprocess.run([SCRIPT, project], capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr.splitlines()[0]), (
            1, "", "check_layers: sync/track.h:1: includes gl/renderer.h, but sync stands above gl in README.md's table (line 3)"))

    def test_succeeds_in_silence_if_it_finds_nothing(self):
        with project_of(SOUND) as project:
            done = subprocess.run([SCRIPT, project], capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/python3
"""Each test that the documents name, as `Suite.Name`, is one of tests/: a reader who doubts a sentence finds what holds it."""
import glob
import os
import re
import unittest

PROJECT = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
NAMED = re.compile(r"`([A-Z]\w*\.[A-Z]\w*)`")
DEFINED = re.compile(r"^(?:TYPED_)?TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", re.MULTILINE)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def named_in(text):
    """The names in a document, each with its line."""
    return [(number, name) for number, line in enumerate(text.splitlines(), 1) for name in NAMED.findall(line)]


def defined_in(text):
    return {f"{suite}.{name}" for suite, name in DEFINED.findall(text)}


def faults(documents, sources):
    """A sentence for each name that no source defines. Both are texts, the documents by their paths."""
    defined = set().union(*map(defined_in, sources))
    return [f"{path}:{line}: there is no test {name}"
            for path, text in documents.items() for line, name in named_in(text) if name not in defined]


class NamedTests(unittest.TestCase):
    def test_are_all_defined(self):
        paths = ["README.md", "CONTRIBUTING.md", *sorted(glob.glob("docs/*.md", root_dir=PROJECT))]
        documents = {path: read(os.path.join(PROJECT, path)) for path in paths}
        sources = [read(path) for path in glob.glob(os.path.join(PROJECT, "tests", "**", "*.cpp"), recursive=True)]
        for path in ("README.md", "docs/oddities.md"):
            self.assertTrue(named_in(documents[path]), path)
        self.assertEqual(faults(documents, sources), [])

    def test_are_found_in_every_form_of_definition(self):
        sources = ["TEST(Lamp, Swings)\n", "TEST_F(Lamp,\n       Hangs)\n{\n", "TEST_P(Chairs, Stand)\n", "TYPED_TEST(Any, Is)"]
        document = "`Lamp.Swings`, `Lamp.Hangs`,\n  `Chairs.Stand` and `Any.Is`; not `lamp.cpp` or `README.txt`"
        self.assertEqual(faults({"a.md": document}, sources), [])

    def test_are_told_by_file_and_line_where_nothing_defines_them(self):
        document = "`Lamp.Swings`\n`Lamp.Swing`, `Chair.Swings`\n"
        source = "TEST(Lamp, Swings)\n// TEST(Chair, Swings)\n"
        self.assertEqual(faults({"a.md": document}, [source]),
                         ["a.md:2: there is no test Lamp.Swing", "a.md:2: there is no test Chair.Swings"])


if __name__ == "__main__":
    unittest.main()

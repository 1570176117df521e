#!/usr/bin/env python3
"""The texts of a release: their shape, and what dist/texts says of an info that does not fit."""
import importlib.machinery
import importlib.util
import os
import subprocess
import sys
import tempfile
import tomllib
import unittest

TEXTS = os.path.join(os.path.dirname(os.path.realpath(__file__)), "../../dist/texts")

sys.dont_write_bytecode = True
loader = importlib.machinery.SourceFileLoader("texts", TEXTS)
texts = importlib.util.module_from_spec(importlib.util.spec_from_loader("texts", loader))
loader.exec_module(texts)


def info():
    with open(texts.INFO, "rb") as file:
        return tomllib.load(file)


class TheTexts(unittest.TestCase):
    def setUp(self):
        self.made = texts.make(info(), "7.8", "2031-05", "2.99")

    def test_diz_is_ten_lines_of_45_columns(self):
        lines = self.made["file_id.diz"].splitlines()
        self.assertEqual([len(line) for line in lines], [45] * 10)

    def test_nfo_and_readme_fit_a_terminal(self):
        for name in ("vesperal.nfo", "README.txt"):
            self.assertLessEqual(max(len(line) for line in self.made[name].splitlines()), 78, name)

    def test_house_has_straight_walls(self):
        rows = [line for line in self.made["vesperal.nfo"].splitlines() if line.lstrip().startswith("|")]
        self.assertGreater(len(rows), 12)
        self.assertEqual({(row.index("|"), len(row), row[-1]) for row in rows}, {(16, 61, "|")})

    def test_version_and_date_are_filled_in(self):
        self.assertIn("vesperal 7.8\n", self.made["vesperal.nfo"])
        self.assertIn("vesperal 7.8: ", self.made["README.txt"])
        self.assertIn("2031-05", self.made["vesperal.nfo"])
        self.assertIn("2031-05", self.made["file_id.diz"])
        self.assertIn("glibc 2.99", self.made["vesperal.nfo"])
        self.assertIn("GLIBC_2.99", self.made["README.txt"])
        for name, text in self.made.items():
            self.assertNotIn("@", text, name)

    def test_all_three_tell_of_the_same_show(self):
        for need in info()["needs"]:
            for name in ("vesperal.nfo", "README.txt"):
                self.assertIn(need.replace("@GLIBC@", "2.99"), " ".join(self.made[name].split()), name)
        for line in info()["logo"].strip("\n").split("\n"):
            for name in ("vesperal.nfo", "file_id.diz"):
                self.assertIn(line, self.made[name], name)

    def test_last_lines_end(self):
        for name, text in self.made.items():
            self.assertTrue(text.endswith("\n") and not text.endswith("\n\n"), name)
            self.assertEqual([line for line in text.splitlines() if line != line.rstrip()], [], name)


class WhatDoesNotFit(unittest.TestCase):
    def refuse(self, key, value, sentence):
        changed = info()
        changed[key] = value
        with self.assertRaises(texts.Unfit) as caught:
            texts.make(changed, "1", "2031-05", "2.99")
        self.assertIn(sentence, str(caught.exception))

    def test_wide_logo(self):
        self.refuse("logo", "#" * 42, "'logo' has 42 columns, 41 is the most")

    def test_wide_line_of_the_diz(self):
        self.refuse("diz", ["x" * 42, "y"], "file_id.diz: a line has 46 columns, 45 is the most: | " + "x" * 42 + " |")

    def test_long_diz(self):
        self.refuse("diz", ["a", "b", "c"], "file_id.diz: it has 11 lines in place of 10")

    def test_letter_of_another_kind(self):
        self.refuse("credits", "Müsik", "only ASCII, which every terminal can show, and not ü")


class TheCommand(unittest.TestCase):
    def run_it(self, *arguments):
        return subprocess.run([TEXTS, *arguments], capture_output=True, text=True, check=False)

    def test_writes_three_files(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(self.run_it("1.0", "2031-05", "2.99", folder).returncode, 0)
            self.assertEqual(sorted(os.listdir(folder)), ["README.txt", "file_id.diz", "vesperal.nfo"])

    def test_says_which_folder_is_missing(self):
        result = self.run_it("1.0", "2031-05", "2.99", "/nowhere")
        self.assertEqual(result.returncode, 1)
        self.assertIn("/nowhere/vesperal.nfo", result.stderr)
        self.assertEqual(len(result.stderr.splitlines()), 1)

    def test_explains_itself(self):
        self.assertEqual(self.run_it("--help").returncode, 0)
        self.assertIn("dist/texts VERSION DATE GLIBC FOLDER", self.run_it("--help").stdout)
        self.assertEqual(self.run_it("1.0").returncode, 1)


if __name__ == "__main__":
    unittest.main()

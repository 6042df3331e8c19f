#!/usr/bin/env python3
"""files_test.py PRISMO2_SETTINGS: the program's desktop files are valid and correct."""

import configparser
import os
import pathlib
import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree

TREE = pathlib.Path(__file__).resolve().parents[3]
PACKAGING = TREE / "packaging"
NAME = "com.corvane.prismo2.settings"


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, timeout=30, check=False)


class Files(unittest.TestCase):
    program = None

    def entry(self):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(PACKAGING / f"{NAME}.desktop")
        return parser["Desktop Entry"]

    def metainfo(self):
        return xml.etree.ElementTree.parse(PACKAGING / f"{NAME}.metainfo.xml").getroot()

    def test_desktop_entry_is_valid(self):
        done = run("desktop-file-validate", PACKAGING / f"{NAME}.desktop")
        self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""))

    def test_metainfo_is_valid(self):
        done = run("appstreamcli", "validate", "--no-net", "--pedantic", PACKAGING / f"{NAME}.metainfo.xml")
        findings = re.findall(r"^[EW]: \S+ (\S+)$", done.stdout, re.MULTILINE)
        if done.returncode != 0:
            # Newer validators warn about the missing home page; older ones have no option to allow it.
            self.assertEqual(findings, ["url-homepage-missing"], done.stdout + done.stderr)

    def test_files_name_the_program_and_the_icon(self):
        program = pathlib.Path(self.program).name
        self.assertEqual((self.entry()["Exec"], self.entry()["TryExec"]), (program, program))
        self.assertEqual(self.metainfo().findtext("provides/binary"), program)
        self.assertEqual((self.entry()["Icon"], self.metainfo().findtext("icon")), (NAME, NAME))
        self.assertEqual(self.metainfo().findtext("launchable"), NAME + ".desktop")
        icon = xml.etree.ElementTree.parse(PACKAGING / f"{NAME}.svg").getroot()
        self.assertEqual(icon.tag, "{http://www.w3.org/2000/svg}svg")

    def test_release_matches_the_program_version(self):
        version = run(self.program, "--version").stdout.split()[1]
        self.assertEqual(self.metainfo().find("releases/release").get("version"), version)

    def test_man_page_renders_and_documents_all_options(self):
        page = run("groff", "-man", "-Tascii", "-P-cbou", "-ww", PACKAGING / "prismo2-settings.1")
        self.assertEqual((page.returncode, page.stderr), (0, ""))
        options = re.search(r"^OPTIONS\n(.*?)(?=^\S)", page.stdout, re.MULTILINE | re.DOTALL)[1]
        told = set(re.findall(r"--[a-z]+", options))
        self.assertEqual(told, set(re.findall(r"--[a-z]+", run(self.program, "--help").stdout)))


if __name__ == "__main__":
    Files.program = os.path.abspath(sys.argv.pop(1))
    unittest.main()

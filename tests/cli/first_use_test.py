#!/usr/bin/env python3
"""first_use_test.py PRISMO2: a person's first use of an empty device, compared line by line with a golden file.

With --write as the second argument the expected answers are written anew, to be read before they are kept.
"""

import json
import pathlib
import sys
import time

import device
from device import APP, World, main

GOLDEN = pathlib.Path(__file__).resolve().parent / "golden"
SCRIPT = GOLDEN / "first-use.drive"
EXPECTED = GOLDEN / "first-use.expected"
WRITE = "--write" in sys.argv


def readable(text):
    """The answers, each row on its own line, without this year's number in the footer."""
    lines = []
    for answer in map(json.loads, text.splitlines()):
        rows = answer.pop("rows", [])
        lines += [json.dumps(each, ensure_ascii=False) for each in [answer, *rows]]
    return "\n".join(lines).replace(f"2016 - {time.gmtime().tm_year}", "2016 - YEAR") + "\n"


class FirstUse(World):
    def setUp(self):
        super().setUp()
        self.install(APP, "Example", icon=60)

    def played(self, *options):
        done = self.run_command("drive", str(SCRIPT), "--virtual-time", *options)
        self.assertEqual((done.returncode, done.stderr), (3, ""), "the last tap on the banner finds none")
        return readable(done.stdout)

    def test_answers_match_the_golden_file(self):
        told = self.played()
        if WRITE:
            EXPECTED.write_text(told)
        self.assertEqual(told.splitlines(), EXPECTED.read_text().splitlines())

    def test_the_chosen_settings_are_in_the_file(self):
        self.played()
        self.assertEqual(self.settings(), {
            APP + "_scope_enabled": True, APP + "_keyboard_color_type": 2,
            APP + "_keyboard_color": "#3366ff:1.000000", "use_album_art": True})

    def test_a_dry_run_gives_the_same_answers_and_changes_nothing(self):
        before = device.snapshot(self.root)
        told = self.played("--dry-run")
        self.assertEqual(device.snapshot(self.root), before)
        # The device in memory knows nothing about the installed package.
        self.assertEqual(told.splitlines(),
                         EXPECTED.read_text().replace(f"Version: {device.VERSION}\\n", "").splitlines())


if __name__ == "__main__":
    if WRITE:
        sys.argv.remove("--write")
    main()

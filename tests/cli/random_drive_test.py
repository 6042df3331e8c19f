#!/usr/bin/env python3
"""random_drive_test.py PRISMO2: whatever is played, `drive` answers each line, ends, and leaves a whole file.

A failure names its seed and leaves nothing else to chance.
"""

import json
import os
import plistlib
import unittest

from device import APP, World, main, namespace, namespaces_work
from random_drive import Lines

LINES = 1000
TOOL = "/usr/bin/killall"


class RandomDrive(World):
    def setUp(self):
        super().setUp()
        self.install(APP, "Example")

    def played(self, seed, *options, prefix=()):
        lines = Lines(seed)
        script = [lines.line() for _ in range(LINES)]
        done = self.run_command("drive", "--virtual-time", *options, input="\n".join(script) + "\n", prefix=prefix)
        what = f"seed {seed} {options}"
        self.assertIn(done.returncode, (0, 2, 3), what)
        answers = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertTrue(all(isinstance(answer.get("ok"), bool) for answer in answers), what)
        self.assertTrue(all(set(answer) == {"ok", "error"} for answer in answers if not answer["ok"]), what)
        spoken = [line for line in script if self.speaks(line)]
        self.assertEqual(len(answers), len(spoken), what)
        self.assertEqual(done.returncode != 0, any(not answer["ok"] for answer in answers), what)
        # Many lines must do something, otherwise this tests nothing.
        self.assertGreater(sum(answer["ok"] for answer in answers), LINES / 5, what)
        self.assertEqual(done.stderr, "", what)

    @staticmethod
    def speaks(line):
        """Neither empty nor only a comment."""
        text = line.strip(" \t\r")
        return bool(text) and not text.startswith("#")

    def whole(self):
        if self.settings_path.exists():
            self.assertIsInstance(plistlib.loads(self.settings_path.read_bytes()), dict)

    def test_device_in_memory(self):
        for seed in range(5):
            self.played(seed, "--dry-run")
            self.assertFalse(self.settings_path.exists())

    @unittest.skipUnless(namespaces_work() and os.path.exists(TOOL), "no tool can be put in the place of killall")
    def test_real_root(self):
        # The banner restarts the interface, which must not be the one of this machine.
        started = self.home / "started"
        stub = self.tool("killall", f'#!/bin/sh\necho "$*" >> "{started}"\n')
        for seed in range(100, 105):
            self.played(seed, prefix=namespace(f'mount --bind "{stub}" {TOOL}'))
            self.whole()
        self.assertGreater(len(self.settings()), 5)
        self.assertIn("-9 backboardd\n", started.read_text())


if __name__ == "__main__":
    main()

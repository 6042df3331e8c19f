#!/usr/bin/env python3
"""base_layer_test.py PRISMO2: a base layer that cannot be read stops only the commands that read from it."""

import shutil
import subprocess

import device
from device import APP, World, main

# These open the page as a person does, and it loads an image from the base layer. The others only ask for its rows, or
# show no page at all.
NEEDING = {"type", "drive"}
# These would end or start programs of this machine, so they run dry only.
REACHING_OUT = {"respring", "package"}
# One call for each command that the help lists, which succeeds with an intact base layer.
CALLS = {
    "rows": [], "get": ["enabled"], "set": ["enabled", "off"], "type": ["nc"], "color": ["nc"], "apps": [],
    "clear-cache": [], "respring": [], "package": [], "watch": ["--timeout", "0.01"], "post": ["a.b"],
    "drive": ["/dev/null", "--virtual-time"], "store": ["com.example.x", "list"],
}


def commands():
    """The names in the help."""
    text = subprocess.run([device.BINARY, "--help"], capture_output=True, text=True, check=True).stdout
    return {line.split()[0] for line in text.partition("\nCommands:\n")[2].partition("\n\n")[0].splitlines()}


class BaseLayer(World):
    """The program in an installation of its own."""

    def setUp(self):
        super().setUp()
        self.install(APP, "Example")  # without one, the list of applications needs the desktop's library
        self.base = self.install_program() / "share/prismo2/base"

    def breaks(self):
        """Each way to break the base layer: does it, and gives the cause."""
        shutil.rmtree(self.base)
        self.base.write_text("not a directory")
        for mode in 0o644, 0o755:
            self.base.chmod(mode)
            yield "Not a directory"

    def run_each(self):
        for name, arguments in CALLS.items():
            yield name, self.run_command("--dry-run", name, *arguments)
            if name not in REACHING_OUT:
                yield name, self.run_command(name, *arguments)

    def test_every_command_is_called(self):
        self.assertEqual(set(CALLS), commands())

    def test_an_intact_base_layer_is_no_problem(self):
        for name, done in self.run_each():
            self.assertEqual((done.returncode, done.stderr), (0, ""), name)

    def test_commands_that_need_it_fail_with_one_line(self):
        for cause in self.breaks():
            for name, done in self.run_each():
                if name not in NEEDING: continue
                self.assertEqual(done.returncode, 1, name)
                self.assertEqual(self.complaint(done.stderr), f"{self.base}: {cause}", name)

    def test_other_commands_work(self):
        for _ in self.breaks():
            for name, done in self.run_each():
                if name in NEEDING: continue
                self.assertEqual((done.returncode, done.stderr), (0, ""), name)

    def test_without_a_base_layer_all_commands_work(self):
        shutil.rmtree(self.base)
        for name, done in self.run_each():
            self.assertEqual((done.returncode, done.stderr), (0, ""), name)


if __name__ == "__main__":
    main()

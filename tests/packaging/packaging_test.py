#!/usr/bin/env python3
"""packaging_test.py PRISMO2: the man page and the completions say what the program does.

The shells report what they offer, which is compared with the program's own rows.
"""

import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
PACKAGING = HERE.parents[1] / "packaging"
COMPLETIONS = PACKAGING / "completions"
MAN_PAGE = PACKAGING / "prismo2.1"
APPLICATION = "com.example.app"


def run(*argv, **options):
    return subprocess.run(argv, capture_output=True, text=True, timeout=30, stdin=subprocess.DEVNULL, check=False,
                          **options)


class World(unittest.TestCase):
    prismo2 = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.root = directory.name + "/root"
        os.mkdir(self.root)
        self.environment = dict(os.environ, PRISMO2_ROOT=self.root, HOME=directory.name, LC_ALL="C.UTF-8", TERM="dumb",
                                PATH=f"{pathlib.Path(self.prismo2).parent}:{os.environ['PATH']}")

    def ask(self, *arguments):
        done = run(self.prismo2, *arguments, env=self.environment)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def rows(self, *options):
        return json.loads(self.ask(*options, "rows", "--json"))["rows"]

    def keys(self):
        """The unscoped keys of all rows, including those of an application."""
        keys = set()
        for options in [], ["--app", APPLICATION]:
            for row in self.rows(*options):
                for name in "key", "prismo_key":
                    key = row["properties"].get(name)
                    if key:
                        keys.add(key.removeprefix(APPLICATION + "_"))
        return keys

    def elements(self):
        return {key.removesuffix("_color_type") for key in self.keys() if key.endswith("_color_type")}

    def commands(self):
        """As the help lists them."""
        listed = re.search(r"^Commands:\n((?:  .*\n)+)", self.ask("--help"), re.MULTILINE)[1]
        present = set(re.findall(r"^  ([a-z][a-z-]*) ", listed, re.MULTILINE))
        self.assertGreater(len(present), 5)
        return present

    def options(self, *commands):
        """The general options and those of these commands, from the help."""
        asked = [["--help"]] + [[command, "--help"] for command in commands]
        return set(re.findall(r"--[a-z][a-z-]*", "".join(self.ask(*words) for words in asked)))


class Completion:
    """Tests for every shell. `offers` returns the set of words offered at the end of a line, `completed` the line with
    the only offered word in it, as the shell types it.
    """

    def test_commands_match_the_program(self):
        self.assertEqual(self.offers("prismo2 "), self.commands())

    def test_a_prefix_narrows_the_offer(self):
        self.assertEqual(self.offers("prismo2 ge"), {"get"})

    def test_keys_match_the_rows(self):
        self.assertEqual(self.offers("prismo2 get "), self.keys())
        self.assertEqual(self.offers("prismo2 --json set "), self.keys())

    def test_elements_match_the_rows(self):
        self.assertEqual(self.offers("prismo2 type "), self.elements())
        self.assertEqual(self.offers("prismo2 color "), self.elements())

    def test_color_types_match_the_choosers(self):
        for row in self.rows():
            key = row["properties"].get("key", "")
            if key.endswith("_color_type"):
                titles = {choice["title"].lower() for choice in row["choices"]}
                self.assertEqual(self.offers(f"prismo2 set {key} "), titles)
                self.assertEqual(self.offers(f"prismo2 type {key.removesuffix('_color_type')} "), titles)

    def test_offered_switch_values_are_accepted(self):
        values = self.offers("prismo2 set enabled ")
        self.assertEqual(len(values), 6)
        for value in values:
            self.ask("set", "enabled", value)

    def test_options_match_the_program(self):
        for command in self.commands():
            self.assertEqual(self.offers(f"prismo2 {command} --"), self.options(command))

    def install(self, identifier):
        bundle = pathlib.Path(self.root, "Applications/Example.app")
        bundle.mkdir(parents=True)
        (bundle / "Info.plist").write_text(
            '<?xml version="1.0" encoding="UTF-8"?>\n<plist version="1.0"><dict>'
            f"<key>CFBundleIdentifier</key><string>{identifier}</string>"
            "<key>CFBundleDisplayName</key><string>Example</string>"
            "<key>CFBundleExecutable</key><string>Example</string></dict></plist>\n")

    def test_applications_come_from_the_device_root(self):
        self.install(APPLICATION)
        del self.environment["PRISMO2_ROOT"]
        self.assertIn(APPLICATION, self.offers(f"prismo2 --root {self.root} --app com.ex"))

    def test_an_identifier_is_one_word_and_runs_nothing(self):
        identifier = "x$(touch pwned);b `c` ~*'"
        self.install(identifier)
        completed = self.completed("prismo2 --app x").removeprefix("prismo2 ")
        done = run(self.shell, "-c", f"printf '<%s>' {completed}", cwd=self.root)
        self.assertEqual((done.stdout, done.stderr), (f"<--app><{identifier}>", ""))
        self.assertNotIn("pwned", os.listdir(self.root))

    def test_directories_are_offered_as_roots(self):
        os.makedirs(self.root + "/inside")
        offered = {word.rstrip("/") for word in self.offers(f"prismo2 --root {self.root}/ins")}
        self.assertTrue(offered in ({self.root + "/inside"}, {"inside"}), offered)


@unittest.skipUnless(shutil.which("bash"), "no bash")
class BashCompletion(Completion, World):
    shell = "bash"

    def typed(self, line):
        words = shlex.split(line) + ([""] if line.endswith(" ") else [])
        done = run("bash", HERE / "complete.bash", COMPLETIONS, *words, env=self.environment)
        self.assertEqual(done.stderr, "")
        return [word for word in done.stdout.splitlines() if word]

    def offers(self, line):
        return {word.replace("\\", "") for word in self.typed(line)}

    def completed(self, line):
        [word] = self.typed(line)
        return line[:line.rindex(" ") + 1] + word

    def test_the_shell_can_read_it(self):
        self.assertEqual(run("bash", "-n", COMPLETIONS / "prismo2.bash").stderr, "")


@unittest.skipUnless(shutil.which("zsh"), "no zsh")
class ZshCompletion(Completion, World):
    shell = "zsh"

    def printed(self, what, line):
        done = run("zsh", "-f", HERE / "complete.zsh", COMPLETIONS, line, env=self.environment)
        self.assertEqual(done.stderr, "")
        return [text.removeprefix(what) for text in done.stdout.splitlines() if text.startswith(what)]

    def offers(self, line):
        return {word.replace("\\", "") for word in self.printed("offer:", line)}

    def completed(self, line):
        return self.printed("line:", line)[0]

    def test_the_shell_can_read_it(self):
        self.assertEqual(run("zsh", "-n", COMPLETIONS / "_prismo2").stderr, "")


@unittest.skipUnless(shutil.which("fish"), "no fish")
class FishCompletion(Completion, World):
    shell = "fish"

    def printed(self, line, *options):
        script = f"source {COMPLETIONS / 'prismo2.fish'}; complete {' '.join(options)} -C {shlex.quote(line)}"
        done = run("fish", "--no-config", "-c", script, env=self.environment)
        self.assertEqual(done.stderr, "")
        return [word.split("\t")[0] for word in done.stdout.splitlines()]

    def offers(self, line):
        return set(self.printed(line))

    def completed(self, line):
        [word] = self.printed(line, "--escape")
        return line[:line.rindex(" ") + 1] + word

    def test_the_shell_can_read_it(self):
        self.assertEqual(run("fish", "-n", COMPLETIONS / "prismo2.fish").stderr, "")


class ManPage(World):
    def rendered(self):
        done = run("groff", "-man", "-Tascii", "-P-cbou", "-ww", "-rLL=200n", MAN_PAGE)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def section(self, name):
        return re.search(rf"^{name}\n(.*?)(?=^\S|\Z)", self.rendered(), re.MULTILINE | re.DOTALL)[1]

    def test_it_renders_without_a_warning(self):
        self.assertIn("PRISMO2(1)", self.rendered())

    def test_it_describes_the_commands_of_the_program(self):
        described = set(re.findall(r"^       ([a-z][a-z-]*)\b", self.section("COMMANDS"), re.MULTILINE))
        self.assertEqual(described, self.commands())

    def test_it_describes_the_options_of_the_program(self):
        described = set(re.findall(r"--[a-z][a-z-]*", self.section("OPTIONS") + self.section("COMMANDS")))
        self.assertEqual(described, self.options(*self.commands()))

    def test_it_names_the_elements(self):
        named = re.search(r"The elements are (.*?)\.", " ".join(self.section("KEYS AND ELEMENTS").split()))[1]
        self.assertEqual(set(re.split(r", | and ", named)), self.elements())


if __name__ == "__main__":
    World.prismo2 = os.path.abspath(sys.argv.pop(1))
    unittest.main()

#!/usr/bin/env python3
"""readme_test.py PRISMO2: what README.md says is true: its paths exist and its commands work.

Shell blocks (sh, bash, console) are run line by line, all on one new device root. In a console block a command stands
after "$ " and its output below it, where "…" alone on a line stands for any lines. A block that cannot be run here is
marked above it with <!-- not run: the reason -->; its make targets must still exist.
"""

import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]
FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
NOT_RUN = re.compile(r"<!--\s*not run:\s*(.*?)\s*-->\s*\Z", re.DOTALL)
LINK = re.compile(r"\]\(([^)\s]+)\)|<img[^>]*\bsrc=\"([^\"]+)\"")
CODE = re.compile(r"`([^`\n]+)`")
PATH = re.compile(r"[\w.-]+(?:/[\w.-]+)*/?")


class Readme:
    def __init__(self, text, prismo2, tree=TREE, deadline=30):
        self.text = text
        self.prismo2 = pathlib.Path(prismo2).resolve()
        self.tree = tree
        self.deadline = deadline
        self.commands = []

    def faults(self):
        return self.path_faults() + self.block_faults()

    # Paths

    def path_faults(self):
        prose = FENCE.sub("", self.text)
        shell = "\n".join(code for language, code in FENCE.findall(self.text))
        named = {link or image for link, image in LINK.findall(prose)}
        named = {target.split("#")[0] for target in named if "://" not in target and not target.startswith("#")}
        named |= {code for code in CODE.findall(prose) if "/" in code and PATH.fullmatch(code)}
        # Outside of code and links, a word is a path when it starts with what stands at the top of the tree.
        tops = {entry.name for entry in self.tree.iterdir()} | {"build"}
        words = re.findall(r"(?<![\w./:$~-])[\w.-]+/[\w./-]*[\w/]", prose + "\n" + shell)
        named |= {word for word in words if word.split("/")[0] in tops}
        return [f"there is no {path}" for path in sorted(named) if not self.exists(path)]

    def exists(self, path):
        built = re.fullmatch(r"build/([\w-]+)(?:/(.+))?", path)
        if not built:
            return (self.tree / path).exists()
        # Whatever the preset, it builds the same things as the one that is tested.
        presets = json.loads((self.tree / "CMakePresets.json").read_text())["configurePresets"]
        return (any(preset["name"] == built[1] and not preset.get("hidden") for preset in presets)
                and (self.prismo2.parent.parent / (built[2] or "")).exists())

    # Commands

    def block_faults(self):
        faults = []
        with tempfile.TemporaryDirectory() as home:
            for block in FENCE.finditer(self.text):
                language, code = block.groups()
                if language not in {"sh", "bash", "shell", "console"}:
                    continue
                mark = NOT_RUN.search(self.text[: block.start()])
                for command, output in self.lines(language, code):
                    self.commands.append(command)
                    if mark is None:
                        faults += self.run(command, output, home)
                    elif not mark[1]:
                        faults.append(f"no reason is given why this is not run: {command}")
                    else:
                        faults += self.make_faults(command)
        return faults

    @staticmethod
    def lines(language, code):
        """Pairs of a command and the output shown for it, None where a block shows none."""
        pairs = []
        for line in re.sub(r"\\\n\s*", "", code).splitlines():
            if language == "console":
                if line.startswith("$ "):
                    pairs.append((line[2:], []))
                elif pairs:
                    pairs[-1][1].append(line)
            elif line.strip() and not line.lstrip().startswith("#"):
                pairs.append((line, None))
        return pairs

    def run(self, command, output, home):
        if re.match(r"\s*make\b", command):
            return [f"make would run this test again; mark the block: {command}"]
        os.makedirs(f"{home}/root", exist_ok=True)
        environment = {
            "PATH": f"{self.prismo2.parent}:{os.environ['PATH']}",
            "HOME": home,
            "XDG_DATA_HOME": f"{home}/data",
            "PRISMO2_ROOT": f"{home}/root",
            "LANG": "C.UTF-8",
        }
        runnable = re.sub(r"\bbuild/[\w-]+/cli/prismo2\b", str(self.prismo2), command)
        # A session of its own, so that what a command leaves behind ends with it.
        process = subprocess.Popen(
            ["bash", "-o", "pipefail", "-c", runnable], cwd=self.tree, env=environment, text=True,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True)
        try:
            printed, problems = process.communicate(timeout=self.deadline)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            return [f"still running after {self.deadline} s: {command}"]
        if process.returncode != 0:
            return [f"exit {process.returncode}: {command}\n{problems}"]
        if output and not self.shows(output, printed):
            return [f"prints something else: {command}\n{printed}"]
        return []

    @staticmethod
    def shows(output, actual):
        pattern = "".join(r"(?:.*\n)*" if line.strip() == "…" else re.escape(line.rstrip()) + r"[ ]*\n"
                          for line in output)
        return re.fullmatch(pattern, actual) is not None

    def make_faults(self, command):
        target = re.match(r"\s*make\s+(\w+)", command)
        if not target:
            return []
        done = subprocess.run(["make", "-n", target[1]], cwd=self.tree, capture_output=True, text=True, check=False)
        return [f"no such target: {command}"] if done.returncode else []


def sh(code, before=""):
    return f"{before}```sh\n{code}\n```\n"


class ReadmeTest(unittest.TestCase):
    prismo2 = None

    def faults(self, text):
        return Readme(text, self.prismo2).faults()

    def test_every_path_exists_and_every_command_works(self):
        readme = Readme((TREE / "README.md").read_text(), self.prismo2)
        self.assertEqual(readme.faults(), [])
        self.assertTrue(any("prismo2 " in command for command in readme.commands), "no command of prismo2 is shown")

    def test_a_command_that_works_is_no_fault(self):
        self.assertEqual(self.faults(sh("# rows\nprismo2 rows \\\n  --json\nbuild/release/cli/prismo2 rows")), [])

    def test_commands_share_one_device_root(self):
        self.assertEqual(self.faults(sh("prismo2 set enabled false") + sh("[ $(prismo2 get enabled) = false ]")), [])

    def test_an_unknown_command_is_a_fault(self):
        self.assertEqual(len(self.faults(sh("prismo2 rows\nprismo2 no-such-command"))), 1)

    def test_a_failure_inside_a_pipe_is_a_fault(self):
        self.assertEqual(len(self.faults(sh("prismo2 no-such-command | cat"))), 1)

    def test_shown_output_that_differs_is_a_fault(self):
        shown = "```console\n$ prismo2 set enabled true\n$ prismo2 get enabled\n{}\n```\n"
        self.assertEqual(self.faults(shown.format("true")), [])
        self.assertEqual(self.faults(shown.format("…")), [])
        self.assertEqual(len(self.faults(shown.format("false"))), 1)

    def test_a_command_that_does_not_end_is_a_fault(self):
        self.assertEqual(len(Readme(sh("sleep 60 | cat"), self.prismo2, deadline=0.2).faults()), 1)

    def test_make_is_not_run(self):
        self.assertEqual(len(self.faults(sh("make test"))), 1)

    def test_a_marked_block_is_not_run(self):
        self.assertEqual(self.faults(sh("false\nmake run", "<!-- not run: takes long -->\n")), [])

    def test_a_mark_needs_a_reason(self):
        self.assertEqual(len(self.faults(sh("false", "<!-- not run: -->\n"))), 1)

    def test_a_mark_does_not_excuse_a_make_target_that_is_missing(self):
        self.assertEqual(len(self.faults(sh("make no-such-target", "<!-- not run: takes long -->\n"))), 1)

    def test_a_missing_path_is_a_fault_wherever_it_stands(self):
        self.assertEqual(self.faults("[a](Makefile) `tests/readme/` tests/readme/readme_test.py. and/or"), [])
        for text in "[a](docs/gone.md#top)", "`build/no-such-preset`", "build/dev/cli/no-such-program", "`gone/away/`", "See tests/gone.", "```\ntests/gone  what\n```\n":
            with self.subTest(text):
                self.assertEqual(len(self.faults(text)), 1)


if __name__ == "__main__":
    ReadmeTest.prismo2 = sys.argv.pop(1)
    unittest.main()

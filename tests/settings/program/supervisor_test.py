#!/usr/bin/env python3
"""supervisor_test.py SUPERVISOR: what prismo2-settings does around its window.

A script takes the place of the window's program.
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

import namespace
from waiting import until

# Records each start in $WORLD/started, and each request on its socket in $WORLD/asked.
WINDOW = """#!/usr/bin/python3
import os, select, socket, sys
with open(os.environ["WORLD"] + "/started", "a") as file:
    file.write(f"{os.getpid()} {' '.join(sys.argv[1:])}\\n")
descriptor = [int(a.split("=")[1]) for a in sys.argv if a.startswith("--requests=")]
if descriptor:
    requests = socket.socket(fileno=descriptor[0])
    while True:
        select.select([requests], [], [])
        asked = requests.recv(1000).decode()
        with open(os.environ["WORLD"] + "/asked", "a") as file:
            file.write(asked + "\\n")
select.select([], [], [])
"""


class Supervisor(unittest.TestCase):
    program = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.world = pathlib.Path(directory.name)
        for made in "bin", "libexec/prismo2", "root", "runtime":
            (self.world / made).mkdir(parents=True)
        shutil.copy(self.program, self.world / "bin/prismo2-settings")
        self.be(WINDOW)
        self.environment = {"PATH": os.environ["PATH"], "HOME": str(self.world / "home"), "WORLD": str(self.world),
                            "XDG_RUNTIME_DIR": str(self.world / "runtime")}

    def be(self, window):
        path = self.world / "libexec/prismo2/backboardd"
        path.write_text(window)
        path.chmod(0o755)

    def open(self, *arguments, root="root", ignored=None, **changes):
        process = subprocess.Popen([self.world / "bin/prismo2-settings", "--root", self.world / root, *arguments],
                                   env=self.environment | changes, stderr=subprocess.PIPE, text=True,
                                   preexec_fn=lambda: ignored and signal.signal(ignored, signal.SIG_IGN))
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def lines(self, name):
        path = self.world / name
        return path.read_text().splitlines() if path.exists() else []

    def windows(self, count=1):
        """Waits for `count` windows and returns the process ids of all started ones."""
        until(lambda: len(self.lines("started")) >= count, lambda: f"{count} windows: {self.lines('started')}")
        return [int(line.split()[0]) for line in self.lines("started")]

    def is_gone(self, process):
        try:
            return pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()[0] == "Z"
        except FileNotFoundError:
            return True

    def assert_ends(self, process, status, said=""):
        self.assertEqual((process.wait(timeout=10), process.stderr.read()), (status, said))

    # The window's process

    def test_window_has_the_process_name_that_the_page_kills(self):
        self.open()
        [window] = self.windows()
        self.assertEqual(pathlib.Path(f"/proc/{window}/comm").read_text(), "backboardd\n")

    def test_window_gets_the_options(self):
        self.open("--style=dark")
        self.windows()
        self.assertRegex(self.lines("started")[0], rf"^\d+ --root {self.world}/root --style=dark --requests=\d+$")

    def test_window_killed_by_name_comes_back(self):
        supervisor = self.open()
        [first] = self.windows()
        namespace.kill_all("backboardd")
        again = self.windows(2)[1]
        self.assertTrue(self.is_gone(first))
        self.assertFalse(self.is_gone(again))
        self.assertIsNone(supervisor.poll())

    def test_closing_the_window_ends_both(self):
        self.be("#!/bin/sh\nexit 0\n")
        self.assert_ends(self.open(), 0)

    def test_failing_window_ends_both_with_its_status(self):
        self.be("#!/bin/sh\necho no display >&2; exit 1\n")
        self.assert_ends(self.open(), 1, "no display\n")

    def test_window_that_keeps_dying_is_given_up_with_a_reason(self):
        self.be('#!/bin/sh\necho "$$" >> "$WORLD/started"; kill -SEGV $$\n')
        self.assert_ends(self.open(), 1, "prismo2-settings: the window keeps dying: Segmentation fault, "
                                         "4 times within 5 seconds\n")
        self.assertEqual(len(self.windows()), 4)

    def test_aborted_window_is_not_restarted(self):
        self.be('#!/bin/sh\necho "$$" >> "$WORLD/started"; echo no display >&2; kill -ABRT $$\n')
        self.assert_ends(self.open(), 1, "no display\n")
        self.assertEqual(len(self.windows()), 1)

    def test_end_of_the_window_is_noticed_despite_an_ignored_sigchld(self):
        self.be("#!/bin/sh\nexit 3\n")
        self.assert_ends(self.open(ignored=signal.SIGCHLD), 3)

    def test_missing_window_program_is_reported_once(self):
        window = self.world / "libexec/prismo2/backboardd"
        window.unlink()
        self.assert_ends(self.open(), 1, f"prismo2-settings: {window}: No such file or directory\n")

    # The end

    def test_killed_supervisor_takes_the_window_with_it(self):
        supervisor = self.open()
        [window] = self.windows()
        supervisor.kill()
        until(lambda: self.is_gone(window), "the end of the window")

    def test_termination_signal_ends_both(self):
        for number in signal.SIGTERM, signal.SIGINT, signal.SIGHUP:
            with self.subTest(number.name):
                count = len(self.lines("started"))
                supervisor = self.open()
                window = self.windows(count + 1)[-1]
                supervisor.send_signal(number)
                self.assertEqual(supervisor.wait(timeout=10), 128 + number)
                self.assertTrue(self.is_gone(window))

    def test_ignored_signal_ends_neither(self):
        supervisor = self.open(ignored=signal.SIGHUP)
        [window] = self.windows()
        supervisor.send_signal(signal.SIGHUP)
        with self.assertRaises(subprocess.TimeoutExpired):
            supervisor.wait(timeout=0.3)
        self.assertFalse(self.is_gone(window))
        supervisor.terminate()
        self.assertEqual(supervisor.wait(timeout=10), 128 + signal.SIGTERM)

    def test_unresponsive_window_is_killed(self):
        self.be('#!/bin/sh\ntrap "" TERM; echo "$$" >> "$WORLD/started"; while :; do sleep 1; done\n')
        supervisor = self.open()
        [window] = self.windows()
        supervisor.terminate()
        self.assertEqual(supervisor.wait(timeout=10), 128 + signal.SIGTERM)
        self.assertTrue(self.is_gone(window))

    # One window for each device root

    def test_second_start_asks_the_first_window_to_come_to_the_front(self):
        first = self.open()
        self.windows()
        self.assert_ends(self.open(XDG_ACTIVATION_TOKEN="a-token"), 0)
        until(lambda: self.lines("asked") == ["a-token"], lambda: f"the request: {self.lines('asked')}")
        self.assertEqual(len(self.windows()), 1)
        self.assertIsNone(first.poll())

    def test_root_is_the_same_by_any_path(self):
        (self.world / "link").symlink_to("root")
        self.open()
        self.windows()
        self.assert_ends(self.open(root="link"), 0)

    def test_another_root_has_its_own_window(self):
        (self.world / "other").mkdir()
        self.open()
        self.open(root="other")
        self.assertEqual(len(self.windows(2)), 2)

    def test_request_during_a_restart_is_not_lost(self):
        supervisor = self.open()
        [window] = self.windows()
        os.kill(window, signal.SIGSTOP)
        self.assert_ends(self.open(XDG_ACTIVATION_TOKEN="later"), 0)
        os.kill(window, signal.SIGKILL)
        until(lambda: self.lines("asked") == ["later"], lambda: f"the request: {self.lines('asked')}")
        self.assertIsNone(supervisor.poll())

    def test_many_requests_to_a_hung_window_open_no_other(self):
        self.open()
        [window] = self.windows()
        os.kill(window, signal.SIGSTOP)
        for _ in range(15):
            self.assert_ends(self.open(), 0)
        self.assertEqual(len(self.windows()), 1)

    def test_only_one_of_many_simultaneous_starts_opens_a_window(self):
        started = [self.open() for _ in range(8)]
        until(lambda: sum(process.poll() is None for process in started) == 1, "the end of all but one")
        self.assertEqual([process.poll() for process in started if process.poll() is not None], [0] * 7)
        self.assertEqual(len(self.windows()), 1)

    def test_leftovers_of_a_killed_supervisor_are_harmless(self):
        first = self.open()
        [window] = self.windows()
        first.kill()
        first.wait()
        until(lambda: self.is_gone(window), "the end of the window")
        self.open()
        self.assertEqual(len(self.windows(2)), 2)

    def test_runtime_directory_may_have_a_long_path(self):
        runtime = self.world / ("r" * 120)
        runtime.mkdir()
        self.open(XDG_RUNTIME_DIR=str(runtime))
        self.windows()
        self.assert_ends(self.open(XDG_RUNTIME_DIR=str(runtime)), 0)

    def test_state_directory_replaces_a_missing_runtime_directory(self):
        self.open(XDG_RUNTIME_DIR="")
        self.windows()
        self.assert_ends(self.open(XDG_RUNTIME_DIR=""), 0)

    def test_window_opens_if_the_check_for_another_fails(self):
        (self.world / "file").touch()
        supervisor = self.open(XDG_RUNTIME_DIR=str(self.world / "file"))
        self.windows()
        supervisor.terminate()
        self.assertRegex(supervisor.communicate()[1], r"^prismo2-settings: cannot check for an open window: .*file.*\n$")

    def test_missing_root_is_left_to_the_window(self):
        self.open(root="no-such-directory")
        self.windows()
        self.assertNotIn("--requests", self.lines("started")[0])

    # Arguments and output

    def ask(self, *arguments):
        return subprocess.run([self.program, *arguments], env=self.environment, capture_output=True, text=True,
                              timeout=10, check=False)

    def test_bad_argument_is_one_line_and_status_2(self):
        for arguments in ["--bad"], ["word"], ["--root"], ["--root="], ["--style", "blue"], ["--requests=3"]:
            with self.subTest(arguments):
                done = self.ask(*arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertRegex(done.stderr, r"^prismo2-settings: [^\n]*\n$")
        self.assertEqual(self.lines("started"), [])

    def test_help_and_version_need_no_display(self):
        self.assertRegex(self.ask("--version").stdout, r"^prismo2-settings \d+\.\d+\.\d+\n$")
        self.assertIn("--root DIR", self.ask("--help").stdout)

    def test_unprintable_help_is_a_failure(self):
        with open("/dev/full", "w") as full:
            done = subprocess.run([self.program, "--help"], stdout=full, timeout=10, check=False)
        self.assertEqual(done.returncode, 1)

    def test_it_loads_no_toolkit(self):
        loaded = subprocess.run(["ldd", self.program], capture_output=True, text=True, check=True).stdout
        self.assertNotIn("Qt", loaded)


if __name__ == "__main__":
    namespace.enter()
    Supervisor.program = os.path.abspath(sys.argv.pop(1))
    unittest.main()

#!/usr/bin/env python3
"""run_test.py PRISMO2_SETTINGS: scripts/run serves the window if there is no display, and leaves nothing behind.

Runs in a private PID namespace, where every other process belongs to the script.
"""

import os
import pathlib
import re
import signal
import socket
import subprocess
import sys
import tempfile
import unittest
import urllib.request

import namespace
from display import Display
from waiting import until

TREE = pathlib.Path(__file__).resolve().parents[3]


def processes():
    """Maps the id of every other process to its name."""
    while True:
        # Orphans become children of this process, which must reap them.
        try:
            if os.waitpid(-1, os.WNOHANG)[0] == 0:
                break
        except ChildProcessError:
            break
    found = {}
    for status in pathlib.Path("/proc").glob("[0-9]*/comm"):
        try:
            found[int(status.parent.name)] = status.read_text().strip()
        except OSError:
            pass  # gone meanwhile
    found.pop(1, None)
    return found


def end_all():
    """Cleans up after a failed test, so that it does not fail the next one."""
    for process in processes():
        try:
            os.kill(process, signal.SIGKILL)
        except ProcessLookupError:
            pass
    until(lambda: not processes(), "the end of what was killed")


def listeners():
    """The network addresses on which these processes listen."""
    ours = set()
    for process in processes():
        for descriptor in pathlib.Path("/proc").glob(f"{process}/fd/*"):
            try:
                ours.add(os.readlink(descriptor))
            except OSError:
                pass  # gone meanwhile
    lines = [line.split() for name in ("tcp", "tcp6") for line in pathlib.Path("/proc/net", name).read_text().splitlines()[1:]]
    return {words[1].split(":")[0] for words in lines if words[3] == "0A" and f"socket:[{words[9]}]" in ours}


class Run(unittest.TestCase):
    program = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.world = pathlib.Path(directory.name)
        for made in "root", "runtime", "files":
            (self.world / made).mkdir(mode=0o700)
        self.environment = {"PATH": os.environ["PATH"], "HOME": str(self.world), "LANG": "C.UTF-8",
                            "XDG_RUNTIME_DIR": str(self.world / "runtime"), "TMPDIR": str(self.world / "files")}

    def start(self, **changes):
        script = subprocess.Popen([TREE / "scripts/run", self.program, "--root", self.world / "root"], text=True,
                                  env=self.environment | changes, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.addCleanup(script.stdout.close)
        self.addCleanup(end_all)
        return script

    def serve(self):
        script = self.start()
        address = script.stdout.readline().strip()
        self.assertRegex(address, r"^http://127\.0\.0\.1:\d+/vnc\.html#.*password=\w{8}$")
        until(lambda: "backboardd" in processes().values(), lambda: f"the window: {processes()}")
        return script, address

    def assert_nothing_is_left(self):
        until(lambda: not processes(), lambda: f"the end of {processes()}")
        self.assertEqual(list((self.world / "files").iterdir()), [])

    def end(self, name, number):
        # The first one with that name: a server may have child processes for its connections.
        os.kill(min(process for process, its in processes().items() if its == name), number)

    def test_page_is_served_on_loopback_only(self):
        script, address = self.serve()
        with urllib.request.urlopen(address, timeout=10) as page:
            self.assertEqual(page.status, 200)
        self.assertEqual(listeners(), {"0100007F"})
        script.terminate()
        self.assertEqual(script.wait(timeout=10), 128 + signal.SIGTERM)
        self.assert_nothing_is_left()

    def test_screen_requires_the_password(self):
        script, _ = self.serve()
        command = pathlib.Path(f"/proc/{next(p for p, n in processes().items() if n == 'x11vnc')}/cmdline").read_text()
        port = int(re.search(r"-rfbport\0(\d+)", command)[1])
        with socket.create_connection(("127.0.0.1", port), timeout=10) as screen:
            screen.sendall(screen.recv(12))
            count = screen.recv(1)[0]
            offered = set(screen.recv(count))
        self.assertTrue(offered)
        self.assertNotIn(1, offered, "1 means no authentication")
        script.terminate()
        script.wait(timeout=10)
        self.assert_nothing_is_left()

    def test_any_signal_leaves_nothing_behind(self):
        for number in signal.SIGINT, signal.SIGHUP:
            with self.subTest(number.name):
                script, _ = self.serve()
                script.send_signal(number)
                self.assertEqual(script.wait(timeout=10), 128 + number)
                self.assert_nothing_is_left()

    def test_killing_the_script_leaves_no_process(self):
        script, _ = self.serve()
        script.kill()
        script.wait()
        until(lambda: not processes(), lambda: f"the end of {processes()}")

    def test_end_of_the_window_or_a_server_ends_everything(self):
        ends = {"prismo2-setting": signal.SIGTERM, "Xvfb": signal.SIGTERM, "x11vnc": signal.SIGTERM,
                "websockify": signal.SIGKILL}  # it sometimes ignores SIGTERM
        for name, number in ends.items():
            with self.subTest(name):
                script, _ = self.serve()
                self.end(name, number)
                script.wait(timeout=10)
                self.assert_nothing_is_left()

    def test_window_opens_on_an_existing_display(self):
        display = Display()
        self.addCleanup(display.close)
        script = self.start(DISPLAY=display.name)
        until(display.windows, "the window")
        self.assertNotIn("x11vnc", processes().values())
        script.terminate()
        self.assertEqual(script.wait(timeout=10), 128 + signal.SIGTERM)


if __name__ == "__main__":
    namespace.enter()
    Run.program = os.path.abspath(sys.argv.pop(1))
    unittest.main()

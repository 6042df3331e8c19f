#!/usr/bin/env python3
"""window_test.py PRISMO2_SETTINGS: the window on a desktop: its place, restarts and stacking order."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import namespace
from display import Display
from waiting import until


class Window(unittest.TestCase):
    program = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.world = pathlib.Path(directory.name)
        for made in "root", "other", "runtime":
            (self.world / made).mkdir(mode=0o700)
        self.state = self.world / "state/prismo2/settings.ini"
        self.display = Display()
        self.addCleanup(self.display.close)

    def open(self, root="root"):
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.world), "XDG_STATE_HOME": str(self.world / "state"),
                       "XDG_RUNTIME_DIR": str(self.world / "runtime"), "DISPLAY": self.display.name, "LANG": "C.UTF-8"}
        process = subprocess.Popen([self.program, "--root", self.world / root], env=environment)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        return process

    def window(self, others=()):
        return until(lambda: [w for w in self.display.windows() if w not in others], "a window")[-1]

    def close(self, process):
        process.terminate()
        process.wait(timeout=10)
        until(lambda: not self.display.windows(), "the end of the window")

    def assert_place(self, window, place):
        until(lambda: self.display.place(window) == place, lambda: f"{place}; it is {self.display.place(window)}")

    def keep(self, text):
        self.state.parent.mkdir(parents=True)
        self.state.write_text(text)

    def test_window_opens_at_phone_size(self):
        self.open()
        self.assertEqual(self.display.place(self.window())[2:], (390, 780))

    def test_window_reopens_where_it_was_closed(self):
        process = self.open()
        window = self.window()
        self.display.tool("windowmove", window, 100, 60)
        self.display.tool("windowsize", window, 500, 640)
        until(lambda: self.state.exists() and "@Rect(100 60 500 640)" in self.state.read_text(), "the kept place")
        self.close(process)
        self.open()
        self.assert_place(self.window(), (100, 60, 500, 640))

    def test_killed_window_comes_back_at_its_place(self):
        process = self.open()
        window = self.window()
        self.display.tool("windowmove", window, 200, 50)
        until(lambda: self.state.exists() and "@Rect(200 50 " in self.state.read_text(), "the kept place")
        killed = self.display.process(window)
        namespace.kill_all("backboardd")
        window = until(lambda: [w for w in self.display.windows() if self.display.process(w) != killed], "a window")[0]
        self.assert_place(window, (200, 50, 390, 780))
        self.assertIsNone(process.poll())

    def test_place_off_screen_is_moved_on_screen(self):
        self.keep("[General]\nwindow=@Rect(5000 -300 390 780)\n")
        self.open()
        self.assert_place(self.window(), (1024 - 390, 0, 390, 780))

    def test_window_larger_than_the_screen_is_shrunk(self):
        self.keep("[General]\nwindow=@Rect(0 0 4000 4000)\n")
        self.open()
        self.assert_place(self.window(), (0, 0, 1024, 900))

    def test_damaged_place_is_ignored(self):
        for number, damage in enumerate(["window=@Rect(1 2)", "window=@Rect(0 0 -5 9)", "window=@Variant(\\0\\0\\0\\x7f)", "\0\0[[["]):
            with self.subTest(damage):
                self.state.parent.mkdir(parents=True, exist_ok=True)
                self.state.write_text(f"[General]\n{damage}\n")
                process = self.open()
                self.assertEqual(self.display.place(self.window())[2:], (390, 780))
                self.close(process)

    def test_window_opens_despite_an_unwritable_state_directory(self):
        (self.world / "state").touch()
        self.open()
        self.display.tool("windowmove", self.window(), 10, 20)
        self.assert_place(self.window(), (10, 20, 390, 780))

    def test_second_start_raises_the_first_window(self):
        self.open()
        first = self.window()
        self.open("other")
        second = self.window(others=[first])
        until(lambda: self.display.windows() == [first, second], "the second window in front")
        self.assertEqual(self.open().wait(timeout=10), 0)
        until(lambda: self.display.windows() == [second, first], "the first window in front")


if __name__ == "__main__":
    namespace.enter()
    Window.program = os.path.abspath(sys.argv.pop(1))
    unittest.main()

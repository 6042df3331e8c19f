"""A private display for a test, with mouse and keyboard input."""

import os
import re
import subprocess
import time

from waiting import until

# Seconds. Longer than the pause before an animation starts.
STILL = 0.25


class Display:
    def __init__(self, width=1024, height=900):
        ready, started = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(started), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[started], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(started)
        with os.fdopen(ready) as number:
            self.name = ":" + number.readline().strip()
        if self.name == ":":
            raise RuntimeError("Xvfb did not start")

    def close(self):
        self.server.terminate()
        self.server.wait()

    def run(self, *command, text=True):
        done = subprocess.run(command, env=dict(os.environ, DISPLAY=self.name), capture_output=True, text=text,
                              timeout=20, check=False)
        return done.stdout

    def tool(self, *arguments):
        return self.run("xdotool", *map(str, arguments))

    def windows(self):
        """The ids of the program's visible windows, the topmost one last."""
        ours = set(self.tool("search", "--onlyvisible", "--class", "prismo2-settings").split())
        tree = self.run("xwininfo", "-root", "-tree")
        inOrder = [str(int(number, 16)) for number in re.findall(r"^ +(0x[0-9a-f]+) ", tree, re.MULTILINE)]
        return [number for number in reversed(inOrder) if number in ours]

    def focus(self):
        """Focuses the topmost window, as a window manager would."""
        self.tool("windowfocus", "--sync", self.windows()[-1])

    def process(self, window):
        return self.tool("getwindowpid", window).strip()

    def place(self, window):
        """Returns x, y, width and height."""
        told = self.tool("getwindowgeometry", "--shell", window)
        return tuple(int(value) for value in re.findall(r"^(?:X|Y|WIDTH|HEIGHT)=(-?\d+)$", told, re.MULTILINE))

    def save(self, path):
        """Saves a screenshot once nothing moves."""
        last, since = None, 0

        def stands_still():
            nonlocal last, since
            picture = self.run("import", "-silent", "-window", "root", "png:-", text=False)
            if picture != last:
                last, since = picture, time.monotonic()
            return picture and time.monotonic() - since > STILL
        until(stands_still, "a still screen")
        path.write_bytes(last)

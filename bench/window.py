#!/usr/bin/python3
"""window.py BUILD: measures the window of prismo2-settings on its own display, drawn in software."""

import contextlib
import os
import signal
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

TREE = Path(__file__).resolve().parents[1]
sys.path[:0] = [str(TREE / "tests/settings/program"), str(TREE / "tests/cli")]

from device import png  # noqa: E402
from display import Display  # noqa: E402

APPLICATIONS = 2000
STARTS = 10
# A supervisor gives up after more deaths in so short a time.
SUPERVISORS, KILLS = 3, 3
PLIST = """<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>com.example.app{0}</string>
<key>CFBundleDisplayName</key><string>{1} {0}</string><key>CFBundleExecutable</key><string>App</string>
<key>CFBundleIconFiles</key><array><string>Icon</string></array></dict></plist>
"""


def install_applications(root):
    for number in range(APPLICATIONS):
        bundle = root / f"Applications/App{number}.app"
        bundle.mkdir(parents=True)
        (bundle / "Info.plist").write_text(PLIST.format(number, chr(ord("A") + number % 26) + "pplication"))
        # Every icon has its own size, so that none is shared.
        (bundle / "Icon.png").write_bytes(png(40 + number % 50, 40 + number // 50))


def measure_returns(command, environment):
    """Yields the milliseconds from killing a window to the first frame of the next one."""
    with subprocess.Popen(command, env=environment, text=True, stdout=subprocess.PIPE) as supervisor:
        for turn in range(KILLS + 1):
            window, shown = int(supervisor.stdout.readline()), int(supervisor.stdout.readline())
            if turn > 0:
                yield (shown - killed) / 1e6
            if turn < KILLS:
                killed = time.monotonic_ns()
                os.kill(window, signal.SIGKILL)
        supervisor.terminate()


def row(what, value, unit, target):
    verdict = "yes" if value <= target else "MISSED"
    print(f"  {what:<50} {value:7.1f} {unit}   at most {target:g}: {verdict}")


def main():
    program = Path(sys.argv[1]).resolve() / "bench/window-bench"
    with (contextlib.closing(Display(390, 780)) as display,
          tempfile.TemporaryDirectory(prefix="prismo2-bench-") as scratch):
        root = Path(scratch, "root")
        install_applications(root)
        os.mkdir(f"{scratch}/runtime", 0o700)
        environment = dict(os.environ, HOME=scratch, XDG_RUNTIME_DIR=f"{scratch}/runtime", DISPLAY=display.name)

        def measure(what, *arguments):
            done = subprocess.run([program, what, root, *arguments], env=environment, text=True, check=True,
                                  stdout=subprocess.PIPE)
            return [float(line) for line in done.stdout.split()]

        measure("start", "0")  # warms the caches
        starts = [measure("start", str(time.monotonic_ns())) for _ in range(STARTS)]
        taps = measure("tap")
        frames = measure("scroll")
        returns = [taken for _ in range(SUPERVISORS) for taken in measure_returns([program, "supervised", root], environment)]

    print("The window, drawn in software under Xvfb")
    row("start to first frame, median", statistics.median(start[0] for start in starts), "ms", 150)
    row("kill to the next first frame, median", statistics.median(returns), "ms", 150)
    row("                              longest", max(returns), "ms", 150)
    row("tap on a switch to its redraw, median", statistics.median(taps), "ms", 100)
    row("                               longest", max(taps), "ms", 100)
    row(f"scroll frame, {APPLICATIONS} applications, median", statistics.median(frames), "ms", 33)
    row("                                 longest", max(frames), "ms", 33)
    row("memory with the page open", max(start[1] for start in starts), "MB", 120)


main()

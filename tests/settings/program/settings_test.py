#!/usr/bin/env python3
"""settings_test.py PRISMO2_SETTINGS PRISMO2 PICTURES: the whole program, used through the accessibility tree.

After each step the test reads the settings file with plistlib and checks what `prismo2 watch` reports to another process.
It saves a screenshot of each step in PICTURES.
"""

import os
import pathlib
import plistlib
import select
import subprocess
import sys
import tempfile
import unittest

import namespace
from display import Display
from person import Person, SessionBus
from waiting import until

CHANGED = "com.corvane.prismo2.changed"
READY = "com.example.ready"
BANNER = "Prismo 2 – Tap to Respring?"
APPLICATION = "com.example.notes"


class Settings(unittest.TestCase):
    program = prismo2 = pictures = None

    @classmethod
    def setUpClass(cls):
        cls.bus = SessionBus()
        cls.addClassCleanup(cls.bus.close)
        cls.display = Display(390, 780)
        cls.addClassCleanup(cls.display.close)
        cls.me = Person(cls.display)

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.world = pathlib.Path(directory.name)
        self.root = self.world / "device"
        self.file = self.root / "var/mobile/Library/Preferences/com.corvane.prismo2.plist"
        for made in "device", "runtime":
            (self.world / made).mkdir(mode=0o700)
        self.install("Notes", APPLICATION)
        self.install("Weather", "com.example.weather")
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": str(self.world), "LANG": "C.UTF-8", "PRISMO2_ROOT": str(self.root),
            "XDG_RUNTIME_DIR": str(self.world / "runtime"), "DISPLAY": self.display.name,
            "DBUS_SESSION_BUS_ADDRESS": self.bus.address, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.count = 0
        self.listen()
        self.settings = self.start(self.program)
        self.me.press("push button", "Prismo 2")
        self.me.sees("check box", "Prismo Enabled")

    def install(self, name, identifier):
        bundle = self.root / f"Applications/{name}.app"
        bundle.mkdir(parents=True)
        (bundle / "Info.plist").write_bytes(plistlib.dumps(
            {"CFBundleIdentifier": identifier, "CFBundleDisplayName": name, "CFBundleExecutable": name}))

    def start(self, *command, **options):
        process = subprocess.Popen(command, env=self.environment, **options)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        return process

    def command(self, *arguments):
        subprocess.run([self.prismo2, *arguments], env=self.environment, check=True, timeout=10)

    # What another process hears

    def listen(self):
        self.watcher = self.start(self.prismo2, "watch", CHANGED, READY, stdout=subprocess.PIPE)
        self.addCleanup(self.watcher.stdout.close)
        self.lines = []

        def hears():
            self.command("post", READY)
            return self.tells(0.05)
        until(hears, "a listener that hears")

    def tells(self, patience):
        """True if it prints something within `patience` seconds."""
        if not select.select([self.watcher.stdout], [], [], patience)[0]:
            return False
        self.lines += os.read(self.watcher.stdout.fileno(), 4096).decode().splitlines()
        return True

    def heard(self):
        """Exactly one line for the change."""
        until(lambda: self.tells(0.05) and CHANGED in self.lines, "what was told")
        self.assertEqual([line for line in self.lines if line != READY], [CHANGED])
        self.lines.clear()

    # What was stored

    def stored(self):
        return plistlib.loads(self.file.read_bytes()) if self.file.exists() else {}

    def assert_stored(self, **values):
        """These values are in the file and their change was reported. Saves a screenshot."""
        until(lambda: values.items() <= self.stored().items(), lambda: f"{values} in {self.stored()}")
        self.heard()
        self.picture()

    def picture(self):
        self.count += 1
        test = self.id().rsplit(".test_", 1)[1]
        self.display.save(self.pictures / f"{test}-{self.count}.png")

    # Shared steps

    def choose_type(self, row, title):
        self.me.press("push button", row)
        self.me.press("radio button", title)

    def go_back(self):
        self.me.press("push button", "Back")
        self.me.sees("check box", "Prismo Enabled")

    def pick_color(self, row, text):
        self.me.press("push button", row)
        self.me.type("Hex Color", text)
        self.picture()
        self.me.press("push button", "Choose")
        self.me.sees_no("text", "Hex Color")

    # Claims

    def test_pressed_switch_is_stored_and_reported(self):
        self.me.press("check box", "Prismo Enabled")
        self.assert_stored(enabled=False)
        until(lambda: "checked" not in self.me.states(self.me.sees("check box", "Prismo Enabled")), "the switch off")

    def test_chosen_type_is_stored_reported_and_shown(self):
        self.choose_type("Keyboard Enabled", "Custom")
        self.assert_stored(keyboard_color_type=2)
        self.go_back()
        until(lambda: self.me.sees("push button", "Keyboard Enabled").get_description() == "Custom", "the type")
        self.picture()

    def test_color_is_picked_by_hex_text(self):
        self.pick_color("Global Color", "3366ff")
        self.assert_stored(global_color="#3366ff:1.000000")
        until(lambda: self.me.sees("push button", "Global Color").get_description() == "#3366ff", "the color")

    def test_application_gets_its_own_color(self):
        self.me.press("radio button", "Application")
        self.me.sees("push button", "No App Selected")
        self.picture()
        self.me.press("push button", "No App Selected")
        self.me.sees("push button", "Weather")
        self.picture()
        self.me.press("push button", "Notes")
        self.me.sees("heading", "Prismo 2")
        self.choose_type("Keyboard Enabled", "Custom")
        self.assert_stored(**{f"{APPLICATION}_keyboard_color_type": 2})
        self.go_back()
        self.pick_color("Keyboard Color", "00aa88")
        self.assert_stored(**{f"{APPLICATION}_keyboard_color": "#00aa88:1.000000"})
        self.assertNotIn("keyboard_color", self.stored())

    def test_banner_restarts_the_user_interface_and_the_window_comes_back(self):
        self.me.press("check box", "Prismo Enabled")
        self.assert_stored(enabled=False)
        self.me.sees("push button", BANNER)
        self.picture()
        [before] = self.display.windows()
        process = self.display.process(before)
        self.me.press("push button", BANNER)
        until(lambda: [w for w in self.display.windows() if self.display.process(w) != process], "another window")
        self.me.press("push button", "Prismo 2")
        until(lambda: "checked" not in self.me.states(self.me.sees("check box", "Prismo Enabled")), "the switch off")
        self.picture()
        self.assertIsNone(self.settings.poll())

    def test_change_by_the_command_shows_in_the_window(self):
        self.command("set", "enabled", "off")
        until(lambda: "checked" not in self.me.states(self.me.sees("check box", "Prismo Enabled")), "the switch off")
        self.me.sees("push button", BANNER)
        self.picture()

    def test_type_set_by_the_command_shows_in_the_open_chooser(self):
        self.me.press("push button", "Keyboard Enabled")
        self.me.sees("radio button", "Custom")
        self.command("type", "keyboard", "custom")
        until(lambda: "checked" in self.me.states(self.me.sees("radio button", "Custom")), "the mark")
        self.assertNotIn("checked", self.me.states(self.me.sees("radio button", "Global")))
        self.picture()

    def test_replaced_file_shows_after_the_notification(self):
        self.command("set", "use_album_art", "on")
        replacement = self.file.with_suffix(".new")
        replacement.write_bytes(plistlib.dumps({"global_color": "#123456", "enabled": False}))
        replacement.rename(self.file)
        self.command("post", CHANGED)
        until(lambda: self.me.sees("push button", "Global Color").get_description() == "#123456", "the color")
        self.picture()


if __name__ == "__main__":
    namespace.enter()
    Settings.program, Settings.prismo2 = map(os.path.abspath, (sys.argv.pop(1), sys.argv.pop(1)))
    Settings.pictures = pathlib.Path(sys.argv.pop(1))
    Settings.pictures.mkdir(parents=True, exist_ok=True)
    unittest.main()

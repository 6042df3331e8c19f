#!/usr/bin/env python3
"""page_text_test.py PRISMO2: `rows` as a person reads it, plain in a pipe and colored in a terminal."""

import os
import plistlib
import pty
import re
import subprocess
import time

import device
from device import APP, VERSION, World, main

PAGE = """\
Prismo 2

Scope
  Scope                             [System]  Application
  Prismo Enabled                    on
  All settings below are system-wide.

Global
  Global Color                      #3366ff
  Global Enabled                    Icon Color >
  Main color that is used throughout Prismo.

Keyboard
  Keyboard Color                    #aabbcc
  Keyboard Enabled                  Custom >

StatusBar
  StatusBar Color                   #de3027 (disabled)
  StatusBar Enabled                 Disabled >

SMS
  <Using Global Color>              #3366ff (disabled)
  SMS Enabled                       Global >

NC
  <Using Global Color>              #3366ff (disabled)
  NC Enabled                        Global >

CC
  <Using Global Color>              #3366ff (disabled)
  CC Enabled                        Global >

Volume
  <Using Global Color>              #3366ff (disabled)
  Volume Enabled                    Global >

Folder
  <Using Global Color>              #3366ff (disabled)
  Folder Enabled                    Global >

More
  Change Boot Logo Color (Cydia)
  Clear Icon Color Cache

  Album Art Color for NC|CC|HUD     off
  Override NC, CC, and Volume HUD with the now playing artwork average color.

  © quillmoth 2016 - {year}
  Version: {version}
"""


class PageText(World):
    def setUp(self):
        super().setUp()
        self.store({"enabled": True, "global_color": "#3366ff:1.000000", "global_color_type": 1,
                    "keyboard_color": "#aabbcc:1.000000", "keyboard_color_type": 2, "statusbar_color_type": 1})

    def terminal(self, *arguments, **environment):
        """What the command writes to a terminal."""
        here, there = pty.openpty()
        process = subprocess.Popen([device.BINARY, *arguments], env=self.environment | environment, stdin=there,
                                   stdout=there, stderr=subprocess.DEVNULL)
        os.close(there)
        chunks = []
        try:
            while chunk := os.read(here, 65536):
                chunks.append(chunk)
        except OSError:
            pass  # the end of a terminal
        os.close(here)
        self.assertEqual(process.wait(device.TIMEOUT), 0)
        return b"".join(chunks).decode().replace("\r\n", "\n")

    def test_the_page_in_a_pipe(self):
        page = PAGE.format(year=time.gmtime().tm_year, version=VERSION)
        self.assertEqual(self.ask("rows"), page)
        self.assertEqual(self.ask("rows", environment={"TERM": "xterm-256color"}), page)

    def test_a_line_fits_a_terminal(self):
        self.assertLessEqual(max(map(len, self.ask("rows").splitlines())), 80)

    def test_a_terminal_gets_colors_and_the_same_text(self):
        told = self.terminal("rows", TERM="xterm-256color")
        self.assertIn("\x1b[48;2;51;102;255m", told)
        self.assertIn("\x1b[48;2;170;187;204m", told)
        self.assertEqual(told.count("\x1b[48;2;"), 8, "a swatch for each color")
        bare = re.sub(r"\x1b\[[0-9;]*m", "", told)
        self.assertNotIn("\x1b", bare)
        self.assertEqual(bare.split(), self.ask("rows").split())

    def test_every_attribute_is_reset(self):
        for line in self.terminal("rows", TERM="xterm").splitlines():
            attributes = re.findall(r"\x1b\[([0-9;]*)m", line)
            self.assertEqual(attributes[1::2], ["0"] * (len(attributes) // 2), line)
            self.assertEqual(len(attributes) % 2, 0, line)

    def test_colors_can_be_turned_off(self):
        plain = self.ask("rows")
        for environment in {"TERM": "xterm", "NO_COLOR": "1"}, {"TERM": "dumb"}, {}:
            self.assertEqual(self.terminal("rows", **environment), plain, environment)
        self.assertIn("\x1b[", self.terminal("rows", TERM="xterm", NO_COLOR=""), "an empty NO_COLOR asks for nothing")

    def test_json_has_no_colors_in_a_terminal(self):
        self.assertNotIn("\x1b", self.terminal("rows", "--json", TERM="xterm"))
        self.assertNotIn("\x1b", self.terminal("get", "enabled", TERM="xterm"))

    def test_an_application_is_named(self):
        self.install(APP, "Zürich Käse")
        text = self.ask("--app", APP, "rows")
        self.assertIn("\nSelected App\n  Zürich Käse                       >\n", text)
        self.assertIn("  Custom Zürich Käse Settings Enabled off\n", text)
        self.assertIn("System  [Application]\n", text)

    def test_rows_without_a_choice_stay_in_column(self):
        self.assertIn("\n  NC Enabled                        >\n", self.ask("--app", APP, "rows"))

    def test_names_and_values_do_not_reach_the_terminal_as_escapes(self):
        # Seven-bit and eight-bit control characters.
        escapes = "\x1b[31m\x1b]0;title\x07\x7f\n", "\u009b31m\u0085", "\x1b[2J"
        for number, text in enumerate(escapes):
            self.install(f"com.example{number}", text)
            self.install(f"com.{text}", "Example")
        self.store({"enabled": escapes[0], "nc_color_type": escapes[1], escapes[2]: escapes[1]}, plistlib.FMT_BINARY)
        commands = [["get", "enabled"], ["get", "nc_color_type"], ["apps"], ["rows"],
                    ["store", "com.corvane.prismo2", "list"], ["store", "com.corvane.prismo2", "get", escapes[2]]]
        for identifier in [f"com.example{number}" for number in range(3)] + [f"com.{text}" for text in escapes]:
            commands += [["--app", identifier, *words] for words in (["rows"], ["get", "enabled"],
                                                                     ["get", "folder_color"],
                                                                     ["--dry-run", "set", "nc_color", "abc"])]
        for words in commands:
            for options in [], ["--json"]:
                done = self.run_command(*words, *options)
                told = done.stdout + done.stderr
                self.assertNotEqual(told, "", words)
                controls = [c for c in told if (ord(c) < 32 and c != "\n") or 127 <= ord(c) < 160]
                self.assertEqual(controls, [], (words, options, told))

    def test_an_escaped_name_is_still_the_name(self):
        name = "\x1b[31m\u009b\x7f\u00e9\u00a0"
        self.install(APP, name)
        self.assertEqual(self.ask_json("apps")["sections"][0]["applications"], [{"identifier": APP, "name": name}])

    def test_a_name_with_a_new_line_stays_on_its_line(self):
        self.install(APP, "two\nlines")
        self.assertIn(f"  {APP}  two?lines\n", self.ask("apps"))


if __name__ == "__main__":
    main()

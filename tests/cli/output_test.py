#!/usr/bin/env python3
"""output_test.py PRISMO2: exit codes, and what goes to which output."""

import json
import os
import pty
import time

import device
from device import APP, CHANGED, World, main


class Documents(World):
    """With --json every command prints one document."""

    def setUp(self):
        super().setUp()
        self.install(APP, "Example")

    def test_get(self):
        self.assertEqual(self.ask_json("get", "enabled"), {"key": "enabled", "value": True})
        self.assertEqual(self.ask_json("get", "nc_color_type"), {"key": "nc_color_type", "value": 0})
        self.assertEqual(self.ask_json("get", "nc_color"), {"key": "nc_color", "value": "#de3027"})

    def test_get_of_a_missing_value_prints_null(self):
        done = self.run_command("--app", APP, "--json", "get", "enabled")
        self.assertEqual((done.returncode, done.stderr), (3, ""))
        self.assertEqual(self.document(done.stdout), {"key": "enabled", "value": None})

    def test_set_prints_the_new_value(self):
        self.assertEqual(self.ask_json("set", "enabled", "no"), {"key": "enabled", "value": False})
        self.assertEqual(self.ask_json("set", "nc_color_type", "custom"), {"key": "nc_color_type", "value": 2})

    def test_type(self):
        self.assertEqual(self.ask_json("type", "nc"), {"element": "nc", "value": 0, "title": "global"})
        self.assertEqual(self.ask_json("type", "nc", "disabled"), {"element": "nc", "value": 1, "title": "disabled"})

    def test_color(self):
        told = {"element": "nc", "color": "#de3027", "alpha": 1.0}
        self.assertEqual(self.ask_json("color", "nc"), told)
        self.assertEqual(self.ask_json("color", "nc", "abc:0.25"), told | {"color": "#aabbcc", "alpha": 0.25})

    def test_apps(self):
        self.install("com.example.bought", "Bought", store=True)
        self.assertEqual(self.ask_json("apps"), {"sections": [
            {"title": "System Applications", "applications": [{"identifier": APP, "name": "Example"}]},
            {"title": "User Applications", "applications": [{"identifier": "com.example.bought", "name": "Bought"}]}]})

    def test_maintenance_and_posting(self):
        self.assertIsInstance(self.ask_json("clear-cache"), dict)
        self.assertIsInstance(self.ask_json("--dry-run", "respring"), dict)
        self.assertIsInstance(self.ask_json("--dry-run", "package"), dict)
        self.assertIsInstance(self.ask_json("post", "a.b"), dict)

    def test_store(self):
        domain = "com.example.x"
        self.assertIsInstance(self.ask_json("store", domain, "set", "a", "1"), dict)
        for words in ["get", "a"], ["list"], ["remove", "a"]:
            self.assertIsInstance(self.ask_json("store", domain, *words), dict)

    def test_rows(self):
        self.assertEqual(len(self.ask_json("rows")["rows"]), 33)

    def test_drive_prints_an_object_for_each_line_with_and_without_it(self):
        for options in [], ["--json"]:
            answers = self.play("state", "", "# nothing", "back", options=["--virtual-time", *options], code=3)
            self.assertEqual([answer["ok"] for answer in answers], [True, False])


class Texts(World):
    """Without --json, commands print what was asked for, or nothing."""

    def test_get_prints_the_bare_value(self):
        self.store({"enabled": False, "nc_color_type": 1, "global_color": "#12ab34:0.500000"})
        self.assertEqual(self.ask("get", "enabled"), "false\n")
        self.assertEqual(self.ask("get", "nc_color_type"), "1\n")
        self.assertEqual(self.ask("get", "global_color"), "#12ab34:0.500000\n")

    def test_unprintable_characters_show_as_question_marks(self):
        self.install(b"com.example.\xc3\xa9".decode(), "a\x07b\x85c\u2028d")
        self.assertEqual(self.ask("apps"), "System Applications\n  com.example.\u00e9  a?b?c\u2028d\n")
        done = self.run_command(b"a\xffb\xe2\x82\xc3\xa9\xc2\x9b\xed\xa0\x80")
        self.assertEqual(done.stderr, "prismo2: unknown command 'a?b??\u00e9????'\n")

    def test_get_of_a_missing_value_prints_nothing(self):
        done = self.run_command("--app", APP, "get", "enabled")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (3, "", ""))

    def test_changes_are_silent(self):
        for words in (["set", "enabled", "off"], ["type", "nc", "custom"], ["color", "nc", "abc"], ["clear-cache"],
                      ["post", "a.b"], ["store", "com.example.x", "set", "a", "1"],
                      ["store", "com.example.x", "remove", "a"]):
            self.assertEqual(self.ask(*words), "", words)

    def test_apps_shows_sections_identifiers_and_names(self):
        self.install(APP, "Ümläut")
        self.install("com.example.bought.long", "Bought", store=True)
        self.assertEqual(self.ask("apps"), "System Applications\n  com.example.app          Ümläut\n\n"
                                           "User Applications\n  com.example.bought.long  Bought\n")

    def test_help_names_every_command(self):
        text = self.ask("--help")
        for command in ("rows get set type color apps clear-cache respring package watch post drive store").split():
            self.assertIn(f"\n  {command} ", text)
            self.assertIn(f"Usage: prismo2 {command}", self.ask(command, "--help"))

    def test_help_says_which_arguments_are_required(self):
        self.assertRegex(self.ask("color", "--help"), r"\n  ELEMENT \(required\) +[^\n]*\n  COLOR \(optional\) ")
        self.assertIn("KEY (required)", self.ask("store", "com.example.x", "set", "--help"))

    def test_version(self):
        self.assertRegex(self.ask("--version"), r"^prismo2 \d+\.\d+\.\d+\n$")

    def test_nothing_is_read_from_a_terminal(self):
        keyboard, terminal = pty.openpty()
        self.addCleanup(os.close, keyboard)
        self.addCleanup(os.close, terminal)
        for words in ["rows"], ["get", "enabled"], ["set", "enabled", "off"], ["watch", "--timeout", "0"]:
            self.ask(*words, input=None, stdin=terminal)

    def test_no_display_bus_or_locale_is_needed(self):
        for locale in "C", "de_DE.UTF-8", "no such locale":
            self.assertEqual(self.ask("color", "nc", "abc:0.5", environment={"LC_ALL": locale, "LC_NUMERIC": locale}),
                             "")
            self.assertEqual(self.settings()["nc_color"], "#aabbcc:0.500000")


class ExitCodes(World):
    wrong = [
        [], ["nonsense"], ["--nonsense", "rows"], ["rows", "--nonsense"], ["rows", "more"], ["get"], ["set", "enabled"],
        ["set"], ["get", "enabled", "more"], ["set", "enabled", "on", "more"], ["get", "nonsense"], ["get", ""],
        ["get", "Enabled"], ["get", "com.example.app_enabled"], ["set", "nonsense", "on"], ["set", "enabled", "maybe"],
        ["set", "enabled", ""], ["set", "enabled", "2"], ["set", "nc_color_type", "3"], ["set", "nc_color_type", "-1"],
        ["set", "nc_color_type", "purple"], ["set", "global_color_type", "2"], ["set", "global_color_type", "disabled"],
        ["set", "nc_color", "purple"], ["set", "nc_color", ""], ["type"], ["type", "nonsense"], ["type", ""],
        ["type", "nc", "purple"], ["type", "global", "custom"], ["type", "nc", "icon color"], ["color"],
        ["color", "nonsense"], ["color", "nc", "purple"], ["color", "nc", "#12345"], ["color", "nc", "#abc:2"],
        ["type", "nc", ""], ["color", "nc", ""], ["post"], ["post", ""], ["post", "a/b"], ["post", "a" * 256],
        ["post", ".."], ["watch", "a/b"], ["watch", "--count", "0"], ["watch", "--count", "x"],
        ["watch", "--count", "-1"], ["watch", "--timeout", "-1"], ["watch", "--timeout", "x"], ["--app"], ["--root"],
        ["get", "enabled", "--virtual-time"], ["clear-cache", "more"], ["store"], ["store", "com.example.x"],
        ["store", "com.example.x", "nonsense"], ["rows", "get", "enabled"],
    ]
    nothing = [["--app", "", "get", "enabled"], ["get", "scope_enabled"], ["--app", APP, "get", "use_album_art"],
               ["--app", APP, "type", "folder"], ["--app", "", "color", "nc"],
               ["store", "com.example.x", "remove", "a"]]

    def test_wrong_usage_is_2_with_one_line(self):
        for words in self.wrong:
            with self.subTest(words):
                self.refusal(2, *words)
        self.assertIsNone(self.settings())

    complaints = {
        ("nonsense",): "unknown command 'nonsense'",
        ("Rows",): "unknown command 'Rows'",
        ("store", "com.example.x", "nonsense"): "unknown command 'nonsense' of 'store'",
        (): "a command is missing; 'prismo2 --help' lists them",
        ("store", "a"): "a command of 'store' is missing; 'prismo2 store --help' lists them",
        **dict.fromkeys([("type", "nonsense"), ("color", "nonsense")], "unknown element 'nonsense', not one of "
                        "global, keyboard, statusbar, sms, nc, cc, volume or folder"),
        ("rows", "--nonsense"): "unknown option '--nonsense'",
        ("--nonsense", "rows"): "unknown option '--nonsense'",
        ("get", "enabled", "more", "words"): "unexpected argument 'more'",
        ("set", "enabled"): "set: VALUE is required",
        ("--root",): "--root needs a value",
        ("--app", "a", "--app", "b", "rows"): "--app is given more than once",
        ("watch", "--count", "0"): "--count: '0' is not a number of lines, at least 1",
        ("watch", "--timeout", "-1"): "--timeout: '-1' is not a number of seconds from 0 to 1000000000",
    }

    def test_a_usage_error_names_the_word(self):
        for words, complaint in self.complaints.items():
            self.assertEqual(self.refusal(2, *words), complaint)

    def test_nothing_there_is_3_with_one_line(self):
        for words in self.nothing:
            with self.subTest(words):
                self.refusal(3, *words)

    def test_a_failure_is_1_with_one_line(self):
        for words in (["--root", "/nonexistent/root", "rows"], ["drive", "/nonexistent/script"], ["package"],
                      ["drive", "/"]):
            with self.subTest(words):
                self.refusal(1, *words)

    def test_a_link_that_an_application_opens_succeeds(self):
        opened = self.home / "opened"
        opener = self.tool("opener", f'#!/bin/sh\necho "$1" > "{opened}.new"\nmv "{opened}.new" "{opened}"\n')
        applications = self.home / "data/applications"
        applications.mkdir(parents=True)
        (applications / "opener.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Opener\nMimeType=x-scheme-handler/cydia;\n"
            f"Exec={opener} %u\n")
        (applications / "mimeinfo.cache").write_text("[MIME Cache]\nx-scheme-handler/cydia=opener.desktop;\n")
        self.assertEqual(self.ask_json("package"), {"opened": "cydia://package/com.corvane.splashtoner"})
        deadline = time.monotonic() + device.TIMEOUT
        while not opened.exists() and time.monotonic() < deadline:
            time.sleep(0.005)
        self.assertEqual(opened.read_text(), "cydia://package/com.corvane.splashtoner\n")

    def test_errors_print_no_document(self):
        for words in ["get", "nonsense"], ["set", "enabled", "maybe"], ["post", "a/b"]:
            self.refusal(2, "--json", *words)

    def test_an_error_says_what_is_accepted(self):
        self.assertIn("true false on off yes no 1 0", self.refusal(2, "set", "enabled", "maybe"))
        self.assertIn("2 'custom'", self.refusal(2, "set", "nc_color_type", "maybe"))
        self.assertIn("maybe", self.refusal(2, "color", "nc", "maybe"))

    def test_an_error_is_one_line_without_control_characters(self):
        for words in ["get", "a\nb\x1b[31m"], ["set", "enabled", "\x9b31m\r\n"], ["post", "a/\x07"], ["no\nsense"]:
            text = self.refusal(2, *words)
            self.assertFalse([c for c in text if ord(c) < 32 or 127 <= ord(c) < 160], text)

    def test_the_change_notification_may_be_posted_by_hand(self):
        self.assertEqual(json.loads(self.ask("--json", "post", CHANGED)), {"posted": CHANGED})
        self.ask("post", "a" * 255)


if __name__ == "__main__":
    main()

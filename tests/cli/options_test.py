#!/usr/bin/env python3
"""options_test.py PRISMO2: which device root and scope a command works on, and what a dry run leaves alone."""

import os
import shutil

from device import APP, CHANGED, SETTINGS, World, main, snapshot


class Options(World):
    def test_options_stand_before_or_after_the_command(self):
        del self.environment["PRISMO2_ROOT"]
        root = ["--root", str(self.root)]
        self.ask("set", "enabled", "off", *root)
        self.assertEqual(self.settings(), {"enabled": False})
        for words in ([*root, "--json", "get", "enabled"], ["get", *root, "enabled", "--json"],
                      ["--json", "get", "enabled", *root], ["get", "--json", "enabled", f"--root={self.root}"]):
            self.assertEqual(self.ask(*words), '{"key":"enabled","value":false}\n', words)

    def test_application_and_dry_run_stand_after_the_command_too(self):
        self.ask("set", "enabled", "off", "--app", APP)
        self.assertEqual(self.settings(), {APP + "_enabled": False})
        self.ask("set", "enabled", "on", "--dry-run", "--app", APP)
        self.assertEqual(self.settings(), {APP + "_enabled": False})

    def test_an_option_of_a_command_stands_among_general_ones(self):
        self.assertEqual(self.ask("watch", "--timeout", "0", "--json"), "")
        self.assertEqual(self.ask("--json", "store", "com.example.x", "--default", "a=1", "get", "a"),
                         '{"domain":"com.example.x","key":"a","value":1}\n')

    def test_a_value_that_looks_like_an_option_follows_two_dashes(self):
        self.ask("store", "com.example.x", "set", "--", "key", "-1")
        self.assertEqual(self.ask("store", "com.example.x", "get", "key"), "-1\n")

    def test_a_value_may_be_empty_in_both_spellings(self):
        for words in ["--app", "", "rows"], ["--app=", "rows"], ["rows", "--app="]:
            self.assertIn("No App Selected", self.ask(*words), words)
        self.assertEqual(self.ask("store", "com.example.x", "--notify=", "list"), "")

    def test_after_two_dashes_a_word_stays_as_it_is(self):
        self.ask("store", "com.example.x", "set", "--", "--key=", "1")
        self.assertEqual(self.ask("store", "com.example.x", "list"), "--key= = 1\n")


class Scope(World):
    def test_an_application_has_its_own_keys(self):
        self.ask("--app", APP, "set", "keyboard_color_type", "custom")
        self.ask("--app", APP, "set", "keyboard_color", "#abc")
        self.assertEqual(self.settings(), {APP + "_keyboard_color_type": 2,
                                           APP + "_keyboard_color": "#aabbcc:1.000000"})

    def test_without_a_chosen_application_there_are_no_settings(self):
        for words in ["get", "enabled"], ["set", "enabled", "on"], ["type", "keyboard"], ["color", "keyboard"]:
            self.assertIn("in this scope", self.refusal(3, "--app", "", *words))
        self.assertIsNone(self.settings())

    def test_folders_and_album_art_are_system_wide_only(self):
        for words in ["get", "use_album_art"], ["get", "folder_color"], ["type", "folder"], ["color", "folder", "abc"]:
            self.refusal(3, "--app", APP, *words)

    def test_the_switch_of_an_application_is_not_system_wide(self):
        self.refusal(3, "get", "scope_enabled")
        self.ask("--app", APP, "set", "scope_enabled", "on")
        self.assertEqual(self.settings(), {APP + "_scope_enabled": True})


class Root(World):
    def setUp(self):
        super().setUp()
        shutil.rmtree(self.root)
        del self.environment["PRISMO2_ROOT"]
        self.default = self.home / ".local/share/prismo2/device"

    def test_the_option_overrides_the_variable(self):
        for name in "one", "two":
            (self.home / name).mkdir()
        self.ask("--root", "one", "set", "enabled", "off", environment={"PRISMO2_ROOT": str(self.home / "two")})
        self.assertTrue((self.home / "one" / SETTINGS).exists())
        self.assertEqual(list((self.home / "two").iterdir()), [])

    def test_the_variable_overrides_the_default(self):
        self.root.mkdir()
        self.ask("set", "enabled", "off", environment={"PRISMO2_ROOT": str(self.root)})
        self.assertEqual(self.settings(), {"enabled": False})
        self.assertFalse(self.default.exists())

    def test_the_default_is_in_the_data_directory(self):
        self.ask("set", "enabled", "off", environment={"XDG_DATA_HOME": str(self.home / "data")})
        self.assertTrue((self.home / "data/prismo2/device" / SETTINGS).exists())
        self.assertFalse((self.home / ".local").exists())

    def test_without_a_data_directory_it_is_below_the_home(self):
        for nothing in {}, {"XDG_DATA_HOME": ""}, {"PRISMO2_ROOT": ""}:
            self.ask("set", "enabled", "off", environment=nothing)
            self.assertTrue((self.default / SETTINGS).exists())
            shutil.rmtree(self.default)

    def test_the_default_is_made_on_first_use(self):
        self.assertEqual(self.ask("get", "enabled"), "true\n")
        self.assertEqual(os.readlink(self.default / "User"), "var/mobile")
        for directory in "Applications", "var/run", "User/Library/Preferences":
            self.assertTrue((self.default / directory).is_dir(), directory)
        self.assertFalse((self.default / SETTINGS).exists())
        self.assertEqual(self.default.stat().st_mode & 0o777, 0o700)

    def test_help_and_wrong_usage_make_nothing(self):
        for words in ["--help"], ["--version"], ["get", "--help"], ["nonsense"], ["get"]:
            self.run_command(*words)
        self.assertFalse((self.home / ".local").exists())

    def test_a_dry_run_makes_nothing(self):
        for words in ["rows"], ["get", "enabled"], ["set", "enabled", "off"], ["clear-cache"], ["drive"], ["apps"]:
            self.ask("--dry-run", *words)
        self.assertFalse((self.home / ".local").exists())

    def test_a_named_root_is_not_made(self):
        missing = str(self.home / "missing")
        self.assertIn(missing, self.refusal(1, "--root", missing, "rows"))
        self.assertIn(missing, self.refusal(1, "get", "enabled", environment={"PRISMO2_ROOT": missing}))
        self.assertFalse(os.path.exists(missing))

    def test_an_empty_root_is_wrong_usage(self):
        for words in ["--root", "", "rows"], ["--root=", "rows"], ["rows", "--root="]:
            self.assertEqual(self.refusal(2, *words), "--root: the device root is empty")

    def test_a_root_that_is_a_file_is_named(self):
        file = self.home / "file"
        file.write_text("")
        self.assertIn(f"{file}: Not a directory", self.refusal(1, "--root", str(file), "rows"))

    def test_without_a_home_there_is_no_default(self):
        del self.environment["HOME"]
        self.assertIn("--root", self.refusal(1, "rows"))

    def test_a_relative_home_or_data_directory_is_ignored(self):
        self.ask("rows", environment={"XDG_DATA_HOME": "data"})
        self.assertTrue(self.default.exists())
        shutil.rmtree(self.home / ".local")
        self.assertIn("$HOME", self.refusal(1, "rows", environment={"HOME": "home"}))
        self.assertEqual([path.name for path in self.home.iterdir() if path.name in ("data", "home")], [])


class DryRun(World):
    commands = [["rows"], ["get", "enabled"], ["set", "enabled", "off"], ["set", "keyboard_color", "abc"],
                ["type", "keyboard"], ["type", "keyboard", "custom"], ["color", "keyboard"], ["color", "nc", "abc"],
                ["apps"], ["clear-cache"], ["respring"], ["post", CHANGED], ["watch", "--timeout", "0"],
                ["store", "com.example.x", "set", "a", "1"], ["store", "com.example.x", "list"], ["drive"]]

    def setUp(self):
        super().setUp()
        self.install(APP, "Example")
        self.store({"enabled": True, "cached_icon_color_x": "#123456"})

    def test_the_tree_stays_as_it_is_to_the_byte_and_the_nanosecond(self):
        (self.root / "var/mobile/Library/Preferences/com.example.x.plist").write_text("no property list")
        before = snapshot(self.home)
        for words in self.commands:
            for options in [], ["--json"], ["--app", APP]:
                self.run_command("--dry-run", *options, *words)
                self.assertEqual(snapshot(self.home), before, (words, options))

    def test_driven_pages_leave_the_tree_alone_too(self):
        before = snapshot(self.home)
        self.play_dry("tap enabled", "tap clearIconColorCache", "kill backboardd", f"post {CHANGED}", "share", "send")
        self.assertEqual(snapshot(self.home), before)

    def test_it_says_what_it_would_do(self):
        write = "would write /User/Library/Preferences/com.corvane.prismo2.plist\n"
        post = f"would post {CHANGED}\n"
        self.assertEqual(self.ask("--dry-run", "set", "enabled", "off"), write + post)
        self.assertEqual(self.ask("--dry-run", "type", "nc", "custom"), write + post)
        self.assertEqual(self.ask("--dry-run", "color", "nc", "abc"),
                         write + f"would post {CHANGED} #aabbcc:1.000000\n")
        self.assertEqual(self.ask("--dry-run", "clear-cache"), write + post)
        self.assertEqual(self.ask("--dry-run", "post", "a.b"), "would post a.b\n")
        self.assertEqual(self.ask("--dry-run", "respring"), "would spawn /usr/bin/killall -9 backboardd\n")
        self.assertEqual(self.ask("--dry-run", "store", "com.example.x", "set", "a", "1", "--notify", "a.b"),
                         "would write /var/mobile/Library/Preferences/com.example.x.plist\nwould post a.b\n")

    def test_its_document_lists_the_effects(self):
        document = self.ask_json("--dry-run", "set", "enabled", "off")
        self.assertEqual(document, {"key": "enabled", "value": False, "effects": [
            {"kind": "write", "path": "/User/Library/Preferences/com.corvane.prismo2.plist"},
            {"kind": "post", "name": CHANGED}]})

    def test_it_names_the_link_that_it_would_open(self):
        self.assertEqual(self.ask("--dry-run", "package"), "would openURL cydia://package/com.corvane.splashtoner\n")

    def test_it_works_on_a_copy_of_the_root(self):
        self.store({"enabled": False})
        self.assertEqual(self.ask("--dry-run", "get", "enabled"), "false\n")
        self.assertIn(APP, self.ask("--dry-run", "apps"))
        answers = self.play_dry("set enabled on", "file")
        self.assertEqual(answers[1], {"ok": True, "file": {"enabled": True}})


if __name__ == "__main__":
    main()

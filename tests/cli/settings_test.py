#!/usr/bin/env python3
"""settings_test.py PRISMO2: get, set and type for every switch and every color type, in both scopes."""

import os

from device import APP, ELEMENTS, World, main

ON = ["true", "on", "yes", "1"]
OFF = ["false", "off", "no", "0"]
TYPES = ["global", "disabled", "custom"]
GLOBAL_TYPES = ["global", "icon color"]


class Settings(World):
    # For each scope: its options, key prefix, elements and switches.
    scopes = [([], "", ELEMENTS, ["enabled", "use_album_art"]),
              (["--app", APP], APP + "_", ELEMENTS[:-1], ["enabled", "scope_enabled"])]

    def holds(self, key, value, what=None):
        """The file holds that value of exactly that type under that key."""
        found = self.settings().get(key)
        self.assertEqual((type(found), found), (type(value), value), (key, what))

    @staticmethod
    def types(element):
        return GLOBAL_TYPES if element == "global" else TYPES


class Switches(Settings):
    def test_each_word_is_stored_as_a_boolean(self):
        for options, prefix, _, switches in self.scopes:
            for key in switches:
                for word in [*OFF, *ON, "TRUE", "Off", "YES"]:
                    value = word.lower() in ON
                    self.ask(*options, "set", key, word)
                    self.holds(prefix + key, value, word)
                    self.assertEqual(self.ask(*options, "get", key), f"{value}\n".lower())

    def test_other_words_change_nothing(self):
        self.store({"enabled": True})
        before = self.settings_path.read_bytes()
        for word in "", "2", "-1", "t", "y", "enabled", " on", "on ", "null", "01", "1.0":
            self.refusal(2, "set", "enabled", word)
        self.assertEqual(self.settings_path.read_bytes(), before)

    def test_without_a_value_the_system_wide_defaults_are_shown(self):
        self.assertEqual(self.ask("get", "enabled"), "true\n")
        self.assertEqual(self.ask("get", "use_album_art"), "false\n")
        self.assertIsNone(self.settings(), "reading makes no file")

    def test_without_a_value_an_application_shows_the_system_wide_one_or_nothing(self):
        done = self.run_command("--app", APP, "get", "enabled")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (3, "", ""))
        self.ask("set", "enabled", "off")
        self.assertEqual(self.ask("--app", APP, "get", "enabled"), "false\n")
        self.ask("--app", APP, "set", "enabled", "on")
        self.assertEqual(self.ask("--app", APP, "get", "enabled"), "true\n")
        self.assertEqual(self.ask("get", "enabled"), "false\n")

    def test_an_application_need_not_be_installed(self):
        self.ask("--app", "not.installed", "set", "enabled", "off")
        self.holds("not.installed_enabled", False)

    def test_a_value_of_another_kind_is_shown_as_by_the_switch(self):
        for value, shown in (1, True), (0, False), (2.5, True), ("yes", True), ("0", False), ("", False), (-7, True):
            self.store({"enabled": value})
            self.assertEqual(self.ask("get", "enabled"), "true\n" if shown else "false\n", value)
            self.assertIs(self.ask_json("get", "enabled")["value"], shown)


class ColorTypes(Settings):
    def test_numbers_and_titles_are_stored_as_integers(self):
        for options, prefix, elements, _ in self.scopes:
            for element in elements:
                key = f"{element}_color_type"
                for value, title in enumerate(self.types(element)):
                    for word in str(value), title, title.upper():
                        self.ask(*options, "set", key, word)
                        self.holds(prefix + key, value, word)
                    self.assertEqual(self.ask(*options, "get", key), f"{value}\n")

    def test_the_chooser_stores_titles_as_integers(self):
        for options, prefix, elements, _ in self.scopes:
            for element in elements:
                for value, title in reversed(list(enumerate(self.types(element)))):
                    self.ask(*options, "type", element, title)
                    self.holds(f"{prefix}{element}_color_type", value, title)
                    self.assertEqual(self.ask(*options, "type", element), title + "\n")

    def test_titles_of_the_other_chooser_are_refused(self):
        for words in (["type", "global", "custom"], ["type", "global", "disabled"], ["type", "nc", "icon color"],
                      ["set", "global_color_type", "2"], ["set", "nc_color_type", "3"],
                      ["set", "nc_color_type", "true"],
                      ["set", "nc_color_type", "icon color"], ["set", "nc_color_type", ""], ["type", "nc", "3"],
                      ["set", "nc_color_type", "0x1"], ["set", "nc_color_type", "1 "]):
            self.refusal(2, *words)
        self.assertIsNone(self.settings())

    def test_the_chooser_shows_global_without_a_stored_type_in_both_scopes(self):
        for options, _, elements, _ in self.scopes:
            for element in elements:
                self.assertEqual(self.ask(*options, "type", element), "global\n")

    def test_the_row_falls_back_to_the_system_wide_type_and_the_chooser_does_not(self):
        self.ask("set", "nc_color_type", "custom")
        self.assertEqual(self.ask("--app", APP, "type", "nc"), "global\n")
        self.assertEqual(self.ask("--app", APP, "get", "nc_color_type"), "2\n")

    def test_an_unknown_type_is_shown_only_by_its_number(self):
        self.store({"nc_color_type": 9})
        self.assertEqual(self.ask("get", "nc_color_type"), "9\n")
        done = self.run_command("type", "nc")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (3, "", ""))


class File(Settings):
    def test_settings_add_up_in_one_file(self):
        self.ask("set", "enabled", "off")
        self.ask("type", "nc", "custom")
        self.ask("color", "nc", "abc")
        self.ask("--app", APP, "set", "enabled", "on")
        self.assertEqual(self.settings(), {"enabled": False, "nc_color_type": 2, "nc_color": "#aabbcc:1.000000",
                                           APP + "_enabled": True})

    def test_the_file_is_replaced_as_a_whole(self):
        self.store({"enabled": True})
        with open(self.settings_path, "rb") as reader:
            before = reader.read()
            reader.seek(0)
            self.ask("set", "enabled", "off")
            self.assertEqual(reader.read(), before, "a reader of the old file keeps reading it")
        self.assertEqual(self.settings(), {"enabled": False})
        self.assertEqual(os.listdir(self.settings_path.parent), [self.settings_path.name])

    def test_the_mode_is_kept_and_a_new_file_is_readable_by_all(self):
        self.ask("set", "enabled", "off")
        self.assertEqual(self.settings_path.stat().st_mode & 0o7777, 0o644)
        self.settings_path.chmod(0o640)
        self.ask("set", "enabled", "on")
        self.assertEqual(self.settings_path.stat().st_mode & 0o7777, 0o640)

    def test_a_link_inside_the_root_is_followed(self):
        elsewhere = self.root / "var/elsewhere.plist"
        self.settings_path.symlink_to("/var/elsewhere.plist")
        self.ask("set", "enabled", "off")
        self.assertTrue(self.settings_path.is_symlink())
        self.assertIn(b"<false/>", elsewhere.read_bytes())
        self.assertEqual(self.ask("get", "enabled"), "false\n")

    def test_a_link_does_not_lead_out_of_the_root(self):
        outside = self.home / "outside.plist"
        outside.write_bytes(b"")
        self.settings_path.symlink_to("../../../../../../outside.plist")
        self.run_command("set", "enabled", "off")
        self.assertEqual(outside.read_bytes(), b"")

    def test_clearing_the_cache_removes_only_its_keys(self):
        kept = {"enabled": True, APP + "_cached_icon_color_x": "#fff", "Cached_icon_color_x": "#fff",
                "xcached_icon_color_x": "#fff", "cached_icon_color": "#fff"}
        self.store(kept | {"cached_icon_color_" + APP: "#123456", "cached_icon_color_": 1})
        self.ask("clear-cache")
        self.assertEqual(self.settings(), kept)

    def test_clearing_the_cache_creates_a_missing_file_empty(self):
        self.ask("clear-cache")
        self.assertEqual(self.settings(), {})


if __name__ == "__main__":
    main()

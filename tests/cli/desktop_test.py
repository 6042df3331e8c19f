#!/usr/bin/env python3
"""desktop_test.py PRISMO2: the applications of the desktop, for a root that holds none, and who pays for them."""

from device import APP, World, main

NOTES = "org.example.notes"


class Desktop(World):
    def setUp(self):
        super().setUp()
        entries = self.home / "data/applications"
        entries.mkdir(parents=True)
        (entries / f"{NOTES}.desktop").write_text("[Desktop Entry]\nType=Application\nName=Notes\nExec=/bin/true\n")

    def application_name(self, *options):
        """What the row of the chosen application shows."""
        rows = self.rows(*options)
        return next(row["name"] for row in rows if row["identifier"] == "currentAppCell")

    def loads_desktop(self, *words):
        """Does the command itself bring in the desktop's library?"""
        log = self.home / "loaded"
        self.ask(*words, environment={"LD_DEBUG": "files", "LD_DEBUG_OUTPUT": str(log)})
        logs = list(self.home.glob("loaded.*"))
        self.assertTrue(logs)
        texts = [path.read_text() for path in logs]
        for path in logs:
            path.unlink()
        return any("libgio" in text for text in texts)

    def test_a_desktop_application_is_named(self):
        self.assertEqual(self.application_name("--app", NOTES), "Notes")

    def test_a_dry_run_shows_the_same_page_as_a_real_run(self):
        for app in NOTES, "com.not.installed":
            dry = self.ask_json("--dry-run", "--app", app, "rows")
            del dry["effects"]
            self.assertEqual(dry["rows"][:-1], self.rows("--app", app)[:-1])  # the last asks the package database

    def test_a_root_with_applications_hides_the_desktop_applications(self):
        self.install(APP, "Example")
        self.assertEqual(self.application_name("--app", NOTES), "")

    def test_only_an_application_page_loads_the_library(self):
        for dry in [], ["--dry-run"]:
            self.assertTrue(self.loads_desktop(*dry, "--app", NOTES, "rows"))
            for words in (["rows"], ["--app", "", "rows"], ["get", "enabled"], ["--app", NOTES, "get", "nc_color"],
                          ["set", "enabled", "off"], ["--app", NOTES, "set", "scope_enabled", "on"],
                          ["--app", NOTES, "type", "nc"], ["--app", NOTES, "color", "nc"],
                          ["--app", NOTES, "clear-cache"], ["post", "a.b"]):
                self.assertFalse(self.loads_desktop(*dry, *words), (dry, words))

    def test_applications_in_the_root_avoid_loading_the_library(self):
        self.install(APP, "Example")
        self.assertFalse(self.loads_desktop("--app", APP, "rows"))
        self.assertFalse(self.loads_desktop("--app", NOTES, "rows"))


if __name__ == "__main__":
    main()

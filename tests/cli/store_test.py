#!/usr/bin/env python3
"""store_test.py PRISMO2: `store`, on any domain's preferences."""

import json
import plistlib
import select

import device
from device import World, main

DOMAIN = "com.example.x"


class StoreWorld(World):
    def setUp(self):
        super().setUp()
        self.path = self.settings_path.parent / f"{DOMAIN}.plist"

    def values(self, path=None):
        """The file as another reader sees it."""
        return plistlib.loads((path or self.path).read_bytes())

    def store_ask(self, *words):
        return self.ask("store", DOMAIN, *words)


class Store(StoreWorld):
    def test_the_text_decides_the_type(self):
        texts = {"true": True, "false": False, "0": 0, "1": 1, "-1": -1, "42": 42, str(2**63 - 1): 2**63 - 1,
                 str(-(2**63)): -(2**63), "1.5": 1.5, "-0.25": -0.25, "1e3": 1000.0, "2.0": 2.0, "text": "text", "": "",
                 " 1": " 1", "1 ": "1 ", "0x10": "0x10", "TRUE": "TRUE", "yes": "yes", "nan": "nan", "inf": "inf",
                 "1,5": "1,5", "\U0001f3a8": "\U0001f3a8", "null": "null"}
        for text, value in texts.items():
            self.store_ask("set", "--", "key", text)
            found = self.values()["key"]
            self.assertEqual((type(found), found), (type(value), value), text)

    def test_with_the_string_option_every_value_is_text(self):
        for text in "true", "1", "1.5", "text":
            self.store_ask("set", "--string", "key", text)
            self.assertEqual(self.values(), {"key": text})
            self.assertEqual(self.store_ask("get", "key"), text + "\n")

    def test_get_prints_what_set_stored(self):
        for text in "true", "-7", "1.5", "some text", str(2**63 - 1):
            self.store_ask("set", "--", "key", text)
            self.assertEqual(self.store_ask("get", "key"), text + "\n")
            self.assertEqual(self.ask_json("store", DOMAIN, "get", "key")["key"], "key")

    def test_get_of_a_missing_value_exits_with_3(self):
        done = self.run_command("store", DOMAIN, "get", "key")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (3, "", ""))
        self.assertFalse(self.path.exists())

    def test_other_values_are_kept(self):
        self.path.write_bytes(plistlib.dumps({"data": b"\0", "n": {"a": [1]}, "key": 1}, fmt=plistlib.FMT_BINARY))
        self.store_ask("set", "key", "2")
        self.assertEqual(self.values(), {"data": b"\0", "n": {"a": [1]}, "key": 2})

    def test_remove(self):
        self.store_ask("set", "a", "1")
        self.store_ask("set", "b", "2")
        self.store_ask("remove", "a")
        self.assertEqual(self.values(), {"b": 2})
        self.assertIn("'a'", self.refusal(3, "store", DOMAIN, "remove", "a"))
        self.assertEqual(self.values(), {"b": 2})

    def test_list(self):
        self.assertEqual(self.store_ask("list"), "")
        self.store_ask("set", "text", "a b")
        self.store_ask("set", "number", "1")
        self.assertEqual(self.store_ask("list"), "number = 1\ntext = a b\n")
        self.assertEqual(self.ask_json("store", DOMAIN, "list"),
                         {"domain": DOMAIN, "values": {"number": 1, "text": "a b"}})

    def test_defaults_stand_in_for_missing_values(self):
        self.store_ask("set", "a", "1")
        defaults = ["--default", "a=5", "--default", "b=2.5", "--default", "c==x=", "--default", "d="]
        self.assertEqual(self.ask_json("store", DOMAIN, *defaults, "list")["values"],
                         {"a": 1, "b": 2.5, "c": "=x=", "d": ""})
        self.assertEqual(self.store_ask(*defaults, "get", "b"), "2.5\n")
        self.assertEqual(self.store_ask("get", "b", "--default", "b=true"), "true\n")
        self.assertEqual(self.store_ask("--string", "--default", "b=1", "get", "b"), "1\n")
        self.assertEqual(self.values(), {"a": 1})

    def test_a_default_needs_a_key(self):
        for text in "a", "=1", "":
            self.refusal(2, "store", DOMAIN, "--default", text, "list")

    def test_the_file_is_found_through_either_home(self):
        self.store_ask("set", "a", "1")
        self.assertTrue((self.root / "User/Library/Preferences" / self.path.name).exists())

    def test_another_path(self):
        elsewhere = self.root / "var/mobile/Library/Other/x.plist"
        self.store_ask("--path", "/var/mobile/Library/Other/x.plist", "set", "a", "1")
        self.assertEqual(self.values(elsewhere), {"a": 1})
        self.assertFalse(self.path.exists())
        self.assertEqual(self.store_ask("get", "a", "--path", "/User/Library/Other/x.plist"), "1\n")

    def test_with_another_path_the_domain_file_is_not_read(self):
        self.path.write_text("no property list")
        self.store_ask("--path", "/User/x.plist", "set", "a", "1")
        self.assertEqual(self.store_ask("--path", "/User/x.plist", "list", "--default", "b=2"), "a = 1\nb = 2\n")
        self.assertEqual(self.path.read_text(), "no property list")
        self.assertEqual(self.ask_json("store", DOMAIN, "--path", "/User/x.plist", "get", "a"),
                         {"domain": DOMAIN, "key": "a", "value": 1})

    def test_another_path_is_watched(self):
        store = self.start("store", DOMAIN, "--path", "/User/x.plist", "watch", "--notify", "a.b", "--count", "1")
        while store.poll() is None:
            self.store_ask("--path", "/User/x.plist", "set", "a", "1", "--notify", "a.b")
        self.assertEqual(store.communicate(), ("a = 1\n", ""))

    def test_another_path_stays_inside_the_root(self):
        outside = self.home / "outside.plist"
        self.run_command("store", DOMAIN, "--path", "/../../../outside.plist", "set", "a", "1")
        self.run_command("store", DOMAIN, "--path", str(outside), "set", "a", "1")
        self.assertFalse(outside.exists())

    def test_a_directory_outside_the_home_is_not_made(self):
        self.assertIn("/nowhere/x.plist",
                      self.refusal(1, "store", DOMAIN, "--path", "/nowhere/x.plist", "set", "a", "1"))
        self.assertFalse((self.root / "nowhere").exists())

    def test_an_invalid_domain_is_wrong_usage(self):
        for domain in "../x", "", "a/b", "/", "a/", "/a", "../../x":
            for words in ["set", "a", "1"], ["get", "a"], ["list"], ["remove", "a"]:
                self.refusal(2, "store", domain, *words)
        self.assertEqual(list(self.settings_path.parent.iterdir()), [])

    def test_wrong_usage(self):
        for words in ([], ["get"], ["set", "a"], ["remove"], ["list", "more"], ["watch"], ["nonsense"],
                      ["--notify", "a/b", "list"], ["--notify", "a.b", "watch", "--count", "0"], ["get", "a", "b"]):
            self.refusal(2, "store", DOMAIN, *words)

    def test_the_page_scope_has_no_effect(self):
        self.ask("--app", "com.example.app", "store", DOMAIN, "set", "a", "1")
        self.assertEqual(self.values(), {"a": 1})


class Notifications(StoreWorld):
    def watching(self):
        watcher = self.start("store", DOMAIN, "watch", "--json", "--notify", "x.changed", "--default", "b=7")
        self.await_listener(watcher)
        return watcher

    def await_listener(self, watcher):
        # It prints a line for a post once it listens, and another line for each later post.
        for _ in range(200):
            self.ask("post", "x.changed")
            if select.select([watcher.stdout], [], [], 0.2)[0]:
                self.line(watcher)
                while select.select([watcher.stdout], [], [], 0.3)[0]:
                    self.line(watcher)
                return
        self.fail("it does not listen")

    def line(self, watcher):
        self.assertTrue(select.select([watcher.stdout], [], [], device.TIMEOUT)[0], "nothing was printed")
        return json.loads(watcher.stdout.readline())

    def test_a_change_is_seen_with_its_values(self):
        watcher = self.watching()
        self.store_ask("set", "a", "1", "--notify", "x.changed")
        self.assertEqual(self.line(watcher), {"domain": DOMAIN, "values": {"a": 1, "b": 7}})
        self.store_ask("remove", "a", "--notify", "x.changed")
        self.assertEqual(self.line(watcher), {"domain": DOMAIN, "values": {"b": 7}})

    def test_without_a_name_nothing_is_posted(self):
        watcher = self.start("watch", "x.changed", "com.corvane.prismo2.changed", "--timeout", "0.5")
        self.store_ask("set", "a", "1")
        self.store_ask("set", "a", "2", "--notify", "other")
        self.assertEqual(watcher.communicate(timeout=device.TIMEOUT)[0], "")

    def test_watching_ends_at_its_limits(self):
        self.assertEqual(self.store_ask("watch", "--notify", "x.changed", "--timeout", "0.1"), "")
        watcher = self.start("store", DOMAIN, "watch", "--notify", "x.changed", "--count", "1")
        self.store_ask("set", "a", "1")
        while watcher.poll() is None:
            self.ask("post", "x.changed")
        self.assertEqual((watcher.returncode, watcher.stdout.read()), (0, "a = 1\n"))


if __name__ == "__main__":
    main()

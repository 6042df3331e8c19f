#!/usr/bin/env python3
"""watch_test.py PRISMO2: a change in one process is seen by another, which finds the new value in the file."""

import json
import os
import pathlib
import select
import signal
import threading
import time

import device
from device import APP, CHANGED, World, main


class Watch(World):
    def line(self, process):
        """The next line that the process prints."""
        ready, _, _ = select.select([process.stdout], [], [], device.TIMEOUT)
        self.assertTrue(ready, "nothing was printed")
        return process.stdout.readline()

    def watching(self, *arguments):
        """A watcher that is listening: it watches the device's notifications, and sleeps."""
        return self.wait_for(self.start("watch", *arguments))

    def wait_for(self, process):
        deadline = time.monotonic() + 20
        while time.monotonic() < deadline:
            self.assertIsNone(process.poll(), "it ended")
            if self.watches(process) and pathlib.Path(f"/proc/{process.pid}/stat").read_text().split()[2] == "S":
                return process
            time.sleep(0.005)
        self.fail("it does not listen")

    def watches(self, process):
        directory = self.root / "var/run/notify"
        for info in pathlib.Path(f"/proc/{process.pid}/fdinfo").iterdir():
            try:
                if directory.exists() and f" ino:{directory.stat().st_ino:x} " in info.read_text():
                    return True
            except OSError:
                pass  # closed meanwhile
        return False

    def finish(self, process):
        out, err = process.communicate(timeout=device.TIMEOUT)
        return process.returncode, out, err

    def test_every_kind_of_change_is_seen(self):
        watcher = self.watching()
        for words in (["set", "enabled", "off"], ["type", "nc", "custom"], ["color", "nc", "abc"], ["clear-cache"],
                      ["--app", APP, "set", "scope_enabled", "on"], ["post", CHANGED]):
            self.ask(*words)
            self.assertEqual(self.line(watcher), CHANGED + "\n", words)

    def test_a_color_is_stored_as_text_and_its_change_is_seen(self):
        watcher = self.watching()
        self.ask("color", "keyboard", "3366ff")
        self.assertEqual(self.line(watcher), CHANGED + "\n")
        self.assertEqual(self.settings(), {"keyboard_color": "#3366ff:1.000000"})

    def test_the_new_value_is_in_the_file_when_the_change_is_seen(self):
        watcher = self.watching()
        for number in range(20):
            value = number % 2 == 0
            setter = self.start("set", "enabled", str(value).lower())
            self.line(watcher)
            self.assertIs(self.settings()["enabled"], value)
            self.assertEqual(self.finish(setter), (0, "", ""))

    def test_reading_posts_nothing(self):
        watcher = self.watching("--timeout", "0.5")
        self.ask("get", "enabled")
        self.ask("rows")
        self.ask("--dry-run", "set", "enabled", "off")
        self.refusal(2, "set", "enabled", "maybe")
        self.assertEqual(self.finish(watcher), (0, "", ""))

    def test_count_ends_it_after_that_many_lines(self):
        watcher = self.watching("--count", "2")
        for _ in range(2):
            self.assertIsNone(watcher.poll())
            self.ask("set", "enabled", "off")
            self.line(watcher)
        self.assertEqual(self.finish(watcher), (0, "", ""))

    def test_timeout_ends_it_after_that_many_seconds(self):
        began = time.monotonic()
        self.assertEqual(self.ask("watch", "--timeout", "0.4"), "")
        self.assertGreaterEqual(time.monotonic() - began, 0.4)

    def test_without_limits_it_continues(self):
        watcher = self.watching()
        time.sleep(0.3)
        self.assertIsNone(watcher.poll())
        watcher.send_signal(signal.SIGTERM)
        self.assertEqual(self.finish(watcher), (-signal.SIGTERM, "", ""))

    def test_each_line_is_a_document(self):
        watcher = self.watching("--json", "--count", "2")
        for _ in range(2):
            self.ask("post", CHANGED)
            self.assertEqual(json.loads(self.line(watcher)), {"name": CHANGED})

    def test_names_can_be_chosen(self):
        watcher = self.watching("a.b", "c.d", "--json")
        for name in "c.d", "a.b", "c.d":
            self.ask("post", "other")
            self.ask("post", CHANGED)
            self.ask("post", name)
            self.assertEqual(json.loads(self.line(watcher))["name"], name)

    def test_a_repeated_name_is_watched_once(self):
        watcher = self.watching("a.b", "a.b", "--timeout", "0.5")
        self.ask("post", "a.b")
        self.assertEqual(self.finish(watcher), (0, "a.b\n", ""))

    def test_a_problem_is_reported_when_it_occurs(self):
        watcher = self.watching()
        place = self.root / "var/run"
        while not place.is_file():  # the watcher makes a directory that is gone again, and may be the first to do so
            place.rename(self.home / f"gone-{time.monotonic_ns()}")
            try:
                place.write_text("")
            except IsADirectoryError:
                pass
        ready, _, _ = select.select([watcher.stderr], [], [], device.TIMEOUT)
        self.assertTrue(ready, "nothing was told")
        self.assertIn("var/run/notify", self.complaint(watcher.stderr.readline()))
        self.assertIsNone(watcher.poll())

    def test_a_watch_with_problems_fails(self):
        store = self.start("store", "com.example.x", "watch", "--notify", "a.b", "--count", "2")
        self.wait_for(store)
        path = self.settings_path.parent / "com.example.x.plist"
        for number in 1, 2:
            path.write_text("x" * number)
            self.ask("post", "a.b")
            self.assertIn(str(path), self.complaint(store.stderr.readline()))
        self.assertEqual(self.finish(store), (1, "", ""))

    def test_every_watcher_sees_a_change(self):
        watchers = [self.watching("--count", "1") for _ in range(5)]
        self.ask("set", "enabled", "off")
        for watcher in watchers:
            self.assertEqual(self.finish(watcher), (0, CHANGED + "\n", ""))

    def test_two_roots_do_not_hear_each_other(self):
        watcher = self.watching("--timeout", "0.5")
        other = self.home / "other"
        other.mkdir()
        self.ask("--root", str(other), "set", "enabled", "off")
        self.assertEqual(self.finish(watcher), (0, "", ""))

    def test_posts_to_a_stopped_watcher_arrive_as_one(self):
        watcher = self.watching("--timeout", "2")
        watcher.send_signal(signal.SIGSTOP)
        for _ in range(5):
            self.ask("post", CHANGED)
        watcher.send_signal(signal.SIGCONT)
        self.assertEqual(self.finish(watcher), (0, CHANGED + "\n", ""))

    def test_a_driven_page_shows_what_another_process_sets(self):
        self.store({"nc_color_type": 0})
        session = self.start_session()
        self.assertEqual(self.named_row(session, "<Using Global Color>")["enabled"], False)
        self.ask("type", "nc", "custom")
        deadline = time.monotonic() + device.TIMEOUT
        while not self.named_row(session, "Notification Center Color"):
            self.assertLess(time.monotonic(), deadline, "the page was not rebuilt")
            self.tell(session, "wait 0.05")

    def test_many_processes_at_once_leave_a_whole_file(self):
        self.store({"kept": "value"})
        words = [["set", "enabled", "on"], ["set", "enabled", "off"], ["type", "nc", "custom"], ["color", "cc", "abc"]]
        threads = [threading.Thread(target=lambda each=each: [self.ask(*each) for _ in range(10)]) for each in words]
        for thread in threads:
            thread.start()
        while any(thread.is_alive() for thread in threads):
            self.assertEqual(self.settings()["kept"], "value")
        for thread in threads:
            thread.join()
        self.assertEqual(os.listdir(self.settings_path.parent), [self.settings_path.name])

    # A session of `drive` in real time

    def tell(self, session, line):
        session.stdin.write(line + "\n")
        session.stdin.flush()
        return json.loads(self.line(session))

    def named_row(self, session, name):
        rows = self.tell(session, "rows")["rows"]
        return next((row for row in rows if row["name"] == name), None)


if __name__ == "__main__":
    main()

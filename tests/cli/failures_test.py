#!/usr/bin/env python3
"""failures_test.py PRISMO2: obstacles to the settings file are reported, and nothing else changes."""

import os
import plistlib
import resource
import shutil
import socket
import time

import device
from device import APP, CHANGED, SETTINGS, World, main, snapshot

CHANGES = [["set", "enabled", "off"], ["type", "nc", "custom"], ["color", "nc", "abc"], ["clear-cache"],
           ["--app", APP, "set", "scope_enabled", "on"]]
# What is shown if nothing can be read: the defaults.
READS = {("get", "enabled"): "true\n", ("type", "nc"): "global\n", ("color", "nc"): "#de3027\n",
         ("store", "com.corvane.prismo2", "list", "--default", "a=1"): "a = 1\n",
         ("store", "com.corvane.prismo2", "get", "a", "--default", "a=1"): "1\n"}
NAME = "com.corvane.prismo2.plist"


class Unread(World):
    def shows_defaults(self, *causes):
        rows = self.ask("rows", environment={"PRISMO2_ROOT": str(self.empty_root())})
        for words, shown in (READS | {("rows",): rows}).items():
            done = self.run_command(*words)
            self.assertEqual((done.returncode, done.stdout), (1, shown), words)
            for cause in causes:
                self.assertIn(cause, self.complaint(done.stderr), words)

    def empty_root(self):
        path = self.home / "empty"
        path.mkdir(exist_ok=True)
        return path


class InTheWay(Unread):
    """Neither read nor written if something else is in the place of the file."""

    def refuses(self, cause, commands=None, path=NAME):
        before = snapshot(self.settings_path.parent)
        for words in commands or CHANGES:
            text = self.refusal(1, *words)
            self.assertIn(path, text, words)
            self.assertIn(cause, text, words)
            self.assertEqual(snapshot(self.settings_path.parent), before, words)
        self.shows_defaults(path, cause)
        self.assertEqual(snapshot(self.settings_path.parent), before)

    def test_a_directory(self):
        self.settings_path.mkdir()
        self.refuses("directory")

    def test_a_link_to_itself(self):
        self.settings_path.symlink_to(NAME)
        self.refuses("Too many levels of symbolic links")

    def test_two_links_to_each_other(self):
        self.settings_path.symlink_to("other")
        (self.settings_path.parent / "other").symlink_to(NAME)
        self.refuses("Too many levels of symbolic links")

    def test_a_fifo(self):
        os.mkfifo(self.settings_path)
        self.refuses("Not a regular file")

    def test_a_socket(self):
        server = socket.socket(socket.AF_UNIX)
        self.addCleanup(server.close)
        here = os.getcwd()
        os.chdir(self.settings_path.parent)  # a socket's path is short
        server.bind(NAME)
        os.chdir(here)
        self.refuses("No such device or address")

    def test_a_driven_page_continues_and_its_session_fails(self):
        self.settings_path.mkdir()
        done = self.run_command("drive", "--virtual-time", input="set enabled off\nfile\n")
        self.assertEqual(done.returncode, 1)
        self.assertEqual([device.json.loads(line) for line in done.stdout.splitlines()],
                         [{"ok": True}, {"ok": True, "file": None}])
        for line in done.stderr.splitlines():
            self.assertIn(NAME, self.complaint(line + "\n"))
        self.assertNotEqual(done.stderr, "")

    def test_a_file_where_its_directory_should_be(self):
        shutil.rmtree(self.settings_path.parent)
        self.settings_path.parent.write_text("")
        for words in CHANGES:
            self.assertIn("Not a directory", self.refusal(1, *words))
        self.assertEqual(self.settings_path.parent.read_text(), "")

    def test_a_file_size_limit(self):
        self.store({"kept": "x" * 8192})
        before = snapshot(self.settings_path.parent)
        limit = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))
        self.assertIn(NAME, self.refusal(1, "set", "enabled", "off", preexec_fn=limit))
        self.assertEqual(snapshot(self.settings_path.parent), before)

    def test_a_missing_directory_is_made(self):
        shutil.rmtree(self.root / "var")
        (self.root / "User").unlink()
        self.ask("set", "enabled", "off")
        self.assertEqual(self.settings(), {"enabled": False})
        self.assertEqual(os.readlink(self.root / "User"), "var/mobile")


class Malformed(Unread):
    bytes = b"<plist><dict><key>enabled</key><fal"

    def setUp(self):
        super().setUp()
        self.settings_path.write_bytes(self.bytes)

    def test_the_defaults_are_shown_with_a_problem(self):
        self.shows_defaults(str(self.root), NAME)
        self.assertEqual(self.settings_path.read_bytes(), self.bytes)

    def test_a_json_document_is_printed_with_a_problem_too(self):
        done = self.run_command("get", "enabled", "--json")
        self.assertEqual((done.returncode, self.document(done.stdout)), (1, {"key": "enabled", "value": True}))
        self.complaint(done.stderr)

    def test_a_missing_application_value_is_a_failure_then(self):
        self.assertIn(NAME, self.refusal(1, "--app", APP, "get", "enabled"))

    def test_a_dry_run_agrees_with_a_real_run(self):
        for words in [*CHANGES, ["store", "com.corvane.prismo2", "set", "a", "1"]]:
            for options in [], ["--json"]:
                done = self.run_command("--dry-run", *options, *words)
                self.assertEqual(done.returncode, 0, words)
                self.assertIn(f"{NAME}: Was not a property list and would be replaced",
                              self.complaint(done.stderr))
                self.assertIn("write", done.stdout)
        self.assertEqual(self.settings_path.read_bytes(), self.bytes)

    def test_it_is_replaced_and_its_bytes_are_kept_next_to_it(self):
        for number, words in enumerate([*CHANGES, ["store", "com.corvane.prismo2", "set", "a", "1"]], start=1):
            self.settings_path.write_bytes(self.bytes + b"%d" % number)
            done = self.run_command(*words)
            self.assertEqual((done.returncode, done.stdout), (0, ""), words)
            kept = [path for path in self.settings_path.parent.iterdir() if path != self.settings_path]
            self.assertEqual(len(kept), number)
            told = self.complaint(done.stderr)
            newest = next(path for path in kept if path.read_bytes() == self.bytes + b"%d" % number)
            self.assertTrue(newest.name.startswith(NAME + "."), newest)
            self.assertIn(newest.name, told)
            self.assertIn(str(self.root), told)
            self.assertIsInstance(self.settings(), dict)

    def test_a_later_failure_does_not_hide_where_the_bytes_are_kept(self):
        (self.root / "var/run").mkdir()
        (self.root / "var/run/notify").write_text("")
        done = self.run_command("set", "enabled", "off")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        kept, failure = (self.complaint(line + "\n") for line in done.stderr.splitlines())
        self.assertTrue(failure.endswith("var/run/notify: Not a directory"), failure)
        name = next(path.name for path in self.settings_path.parent.iterdir() if path != self.settings_path)
        self.assertIn(name, kept)

    def test_a_missing_row_does_not_hide_that_the_file_could_not_be_read(self):
        done = self.run_command("--app", APP, "get", "use_album_art")
        self.assertEqual((done.returncode, done.stdout), (3, ""))
        malformed, nothing = (self.complaint(line + "\n") for line in done.stderr.splitlines())
        self.assertEqual(nothing, "no row for 'use_album_art' in this scope")
        self.assertIn(NAME, malformed)

    def test_the_new_file_holds_the_one_change(self):
        self.run_command("set", "enabled", "off")
        self.assertEqual(self.settings(), {"enabled": False})

    def test_other_property_lists_are_malformed_too(self):
        for shape in (b"text", b"\0", plistlib.dumps(["a"]), plistlib.dumps("text"), b"bplist00" + b"\xff" * 60,
                      plistlib.dumps({"a": 1}, fmt=plistlib.FMT_BINARY)[:-9], b"<plist>" * 100000,
                      plistlib.dumps({"a": 1})[:-9], b"\xff\xfe<\0p\0"):
            self.settings_path.write_bytes(shape)
            self.assertEqual(self.run_command("get", "enabled").returncode, 1)
            self.assertEqual(self.run_command("set", "enabled", "off").returncode, 0, shape[:20])
            self.assertEqual(self.settings(), {"enabled": False})

    def test_a_dry_session_reports_it_once(self):
        done = self.run_command("drive", "--dry-run", "--virtual-time", input="set enabled off\nset enabled on\n")
        self.assertEqual(done.returncode, 0)
        self.assertIn("would be replaced", self.complaint(done.stderr))

    def test_a_driven_page_continues(self):
        done = self.run_command("drive", "--virtual-time", input="file\nset enabled off\nfile\n")
        answers = [device.json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual([answer.get("file") for answer in answers], [None, None, {"enabled": False}])
        self.assertEqual(done.returncode, 0)
        self.complaint(done.stderr)


class BeyondTheLimits(Unread):
    """Valid, but more than is read: never treated as malformed."""

    def test_it_is_neither_read_nor_replaced(self):
        cause = "More than a property list may hold here"
        for values in {"long": "x" * (9 << 20)}, {"many": list(range(200000))}:
            for format in plistlib.FMT_XML, plistlib.FMT_BINARY:
                self.store(values, format)
                before = snapshot(self.settings_path.parent)
                self.shows_defaults(NAME, cause)
                for words in CHANGES:
                    self.assertTrue(self.refusal(1, *words).endswith(f"{NAME}: {cause}"), words)
                self.assertEqual(snapshot(self.settings_path.parent), before)


class Unwritable(World):
    def test_a_character_that_xml_lacks_is_never_written(self):
        self.store({"kept": "\x01"}, plistlib.FMT_BINARY)
        before = snapshot(self.settings_path.parent)
        self.assertTrue(self.refusal(1, "set", "enabled", "off").endswith(
            NAME + ": text with a character that XML does not have"))
        self.assertEqual(snapshot(self.settings_path.parent), before)


class DryRun(World):
    """Reports the obstacles of the real run in the same words and with the same exit code, and changes nothing."""

    def agrees(self, cause, *words):
        before = snapshot(self.home)
        dry = self.run_command("--dry-run", *words)
        self.assertEqual(snapshot(self.home), before)
        real = self.run_command(*words)
        self.assertEqual((dry.returncode, dry.stderr), (real.returncode, real.stderr))
        self.assertEqual(dry.returncode, 1)
        self.assertIn(cause, self.complaint(dry.stderr))
        return dry

    def refuses(self, cause, *words):
        self.assertNotIn("would write", self.agrees(cause, *words).stdout)

    def test_a_missing_root(self):
        self.refuses("No such file", "--root", str(self.home / "missing"), "set", "enabled", "off")
        self.environment["PRISMO2_ROOT"] = str(self.home / "missing")
        self.refuses("No such file", "set", "enabled", "off")

    def test_a_link_to_a_missing_directory(self):
        self.settings_path.symlink_to("/nowhere/file")
        self.refuses("No such file", "set", "enabled", "off")

    def test_a_directory_that_cannot_be_made(self):
        shutil.rmtree(self.root / "var")
        (self.root / "var").write_text("")
        for words in CHANGES:
            self.refuses("Not a directory", *words)

    def test_a_value_that_no_file_can_hold(self):
        self.refuses("XML", "store", "com.example.x", "set", "a", "\x01", "--string")

    def test_a_file_beyond_the_limits(self):
        self.store({"many": list(range(200000))})
        for words in CHANGES:
            self.refuses("More than a property list may hold here", *words)

    def test_a_directory_in_place_of_the_file(self):
        self.settings_path.mkdir()
        for words in CHANGES:
            self.refuses("directory", *words)

    def test_a_file_where_notifications_should_be(self):
        (self.root / "var/run").mkdir()
        (self.root / "var/run/notify").write_text("")
        for words in [*CHANGES, ["post", "a.b"], ["drive", "/dev/null"]]:
            self.agrees("var/run/notify: Not a directory", *words)

    def test_without_an_obstacle_it_succeeds(self):
        shutil.rmtree(self.root / "var")
        (self.root / "User").unlink()
        for words in [*CHANGES, ["post", "a.b"]]:
            self.ask("--dry-run", *words)


class Output(World):
    def setUp(self):
        super().setUp()
        self.install(APP, "Example")

    def test_a_full_output_is_a_failure(self):
        for words in (["rows"], ["rows", "--json"], ["get", "enabled"], ["apps"], ["color", "nc"], ["type", "nc"],
                      ["--help"]):
            with open("/dev/full", "w", encoding="ascii") as full:
                done = self.run_command(*words, stdout=full)
            self.assertEqual(done.returncode, 1, words)
            self.assertIn("No space left on device", self.complaint(done.stderr), words)

    def test_a_closed_output_is_a_failure(self):
        for words in ["get", "enabled"], ["rows"], ["apps"]:
            done = self.run_command(*words, prefix=["/bin/sh", "-c", 'exec "$@" >&-', "sh"])
            self.assertEqual(done.returncode, 1, words)
            self.assertIn("Bad file descriptor", self.complaint(done.stderr), words)

    def test_a_closed_output_never_becomes_the_settings_file(self):
        for redirection in ">&-", "<&-", "2>&-", "<&- >&- 2>&-":
            self.run_command("set", "enabled", "off", prefix=["/bin/sh", "-c", f'exec "$@" {redirection}', "sh"])
            self.assertEqual(self.settings(), {"enabled": False})
            self.run_command("rows", prefix=["/bin/sh", "-c", f'exec "$@" {redirection}', "sh"])
            self.assertEqual(self.settings(), {"enabled": False})

    def test_a_closed_pipe_ends_a_watcher(self):
        watcher = self.start("watch")
        watcher.stdout.close()
        deadline = time.monotonic() + device.TIMEOUT
        while watcher.poll() is None:
            self.assertLess(time.monotonic(), deadline)
            self.ask("post", CHANGED)
        self.assertNotEqual(watcher.returncode, 0)


class Script(World):
    def test_a_script_that_cannot_be_read_is_named(self):
        for script in str(self.home / "missing"), str(self.home):
            self.assertIn(script, self.refusal(1, "drive", script))
        loop = self.home / "loop"
        loop.symlink_to("loop")
        self.assertIn("loop: Too many levels", self.refusal(1, "drive", str(loop)))

    def test_an_empty_script_does_nothing(self):
        self.assertEqual(self.ask("drive", "/dev/null"), "")
        self.assertFalse((self.root / SETTINGS).exists())


if __name__ == "__main__":
    main()

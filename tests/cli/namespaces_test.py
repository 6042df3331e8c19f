#!/usr/bin/env python3
"""namespaces_test.py PRISMO2: full disks, read-only disks, missing permissions and tools.

Disks and tools are replaced in a mount namespace of the command's own.
"""

import json
import os
import plistlib
import shutil
import time
import unittest

import device
from device import APP, World, main, namespace, namespaces_work, snapshot

NAME = "com.corvane.prismo2.plist"
CHANGES = [["set", "enabled", "off"], ["type", "nc", "custom"], ["color", "nc", "abc"], ["clear-cache"],
           ["--app", APP, "set", "scope_enabled", "on"], ["store", "com.corvane.prismo2", "set", "a", "1"]]
READS = [["get", "enabled"], ["rows"], ["type", "nc"], ["color", "nc"], ["store", "com.corvane.prismo2", "list"]]
MALFORMED = b"no property list"
NOBODY = 65534
REASON = "mount namespaces are not permitted here"
NAMESPACES = namespaces_work()

# The settings directory becomes a disk. Afterwards it must be unchanged.
ON_DISK = """
mount -t tmpfs -o size=64k none "$DISK"
cd "$DISK"
eval "$PREPARE"
state() { ls -lAi --time-style=full-iso; md5sum ./*; }
before=$(state)
code=0
"$@" || code=$?
test "$before" = "$(state)" || { echo "the disk was changed" >&2; exit 99; }
exit $code
"""


@unittest.skipUnless(NAMESPACES, REASON)
class Disks(World):
    def on_disk(self, cause, *words, prepare, content=plistlib.dumps({"enabled": True})):
        (self.home / "content").write_bytes(content)
        text = self.refusal(1, *words, prefix=namespace(ON_DISK)[:-1] + ["sh"], environment={
            "DISK": str(self.settings_path.parent), "PREPARE": prepare.format(content=self.home / "content")})
        self.assertIn(NAME, text)
        self.assertIn(cause, text)

    FULL = "; cat /dev/zero > filler 2>/dev/null || true"

    def test_a_full_disk_without_a_file(self):
        for words in CHANGES:
            self.on_disk("No space left on device", *words, prepare="true" + self.FULL)

    def test_a_full_disk_keeps_the_file(self):
        # A file that is written in place may have room itself.
        for words in CHANGES[:-1]:
            self.on_disk("No space left on device", *words, prepare="cp {content} " + NAME + self.FULL)
        self.on_disk("No space left on device", "store", "com.corvane.prismo2", "set", "a", "x" * 8192,
                     prepare="cp {content} " + NAME + self.FULL)

    def test_a_full_disk_keeps_a_malformed_file(self):
        for words in CHANGES:
            self.on_disk("No space left on device", *words, prepare="cp {content} " + NAME + self.FULL,
                         content=MALFORMED)

    def test_a_read_only_disk(self):
        for words in CHANGES:
            self.on_disk("Read-only file system", *words,
                         prepare="cp {content} " + NAME + '; mount -o remount,ro "$DISK"')

    def test_a_read_only_disk_without_a_file(self):
        for words in CHANGES:
            self.on_disk("Read-only file system", *words, prepare='touch other; mount -o remount,ro "$DISK"')

    def test_a_read_only_disk_is_read(self):
        self.store({"enabled": False})
        place = str(self.settings_path.parent)
        read_only = namespace(f'mount --bind "{place}" "{place}"; mount -o remount,bind,ro "{place}"')
        self.assertEqual(self.ask("get", "enabled", prefix=read_only), "false\n")

    def test_a_default_root_that_cannot_be_made_is_named(self):
        del self.environment["PRISMO2_ROOT"]
        (self.home / "disk").mkdir()
        read_only = namespace(f'mount -t tmpfs -o ro none "{self.home}/disk"')
        self.assertIn("Read-only file system", self.refusal(
            1, "get", "enabled", prefix=read_only, environment={"XDG_DATA_HOME": str(self.home / "disk")}))


class Permissions(World):
    """As a user without permissions."""

    def setUp(self):
        super().setUp()
        self.prefix = []
        if os.geteuid() == 0:
            if not shutil.which("setpriv"):
                self.skipTest("root may do everything, and there is no setpriv to be somebody else")
            # The tree may be in a directory that only root may enter.
            self.install_program()
            self.prefix = ["/usr/bin/setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        self.home.chmod(0o755)
        self.store({"enabled": False})
        if self.prefix:
            for path in [self.root, *self.root.rglob("*")]:
                os.chown(path, NOBODY, NOBODY, follow_symlinks=False)

    def restricted(self, path, mode):
        before = path.stat().st_mode & 0o7777
        path.chmod(mode)
        self.addCleanup(path.chmod, before)

    def refuses(self, commands):
        for words in commands:
            text = self.refusal(1, *words, prefix=self.prefix)
            self.assertIn("Permission denied", text, words)
            self.assertIn(str(self.root), text, words)

    def shows_defaults(self):
        for words in READS:
            done = self.run_command(*words, prefix=self.prefix)
            self.assertEqual(done.returncode, 1, words)
            self.assertIn(NAME + ": Permission denied", self.complaint(done.stderr), words)
        self.assertEqual(self.run_command("get", "enabled", prefix=self.prefix).stdout, "true\n")

    def test_with_permission_it_works(self):
        self.ask("set", "enabled", "on", prefix=self.prefix)
        self.assertEqual(self.settings(), {"enabled": True})

    def test_an_unreadable_file_is_not_replaced(self):
        self.restricted(self.settings_path, 0)
        before = snapshot(self.settings_path.parent)
        self.refuses(CHANGES)
        self.shows_defaults()
        self.assertEqual(snapshot(self.settings_path.parent), before)

    def test_a_read_only_directory(self):
        self.restricted(self.settings_path.parent, 0o555)
        before = snapshot(self.settings_path.parent)
        self.refuses(CHANGES[:-1])  # a store writes in place, which is permitted
        self.assertEqual(snapshot(self.settings_path.parent), before)
        self.assertEqual(self.ask("get", "enabled", prefix=self.prefix), "false\n")

    def test_a_read_only_file_written_in_place(self):
        self.restricted(self.settings_path, 0o444)
        self.refuses(CHANGES[-1:])
        self.assertEqual(self.settings(), {"enabled": False})

    def test_a_root_that_cannot_be_entered(self):
        self.restricted(self.root, 0)
        self.refuses([*CHANGES, ["post", "a.b"]])
        self.shows_defaults()

    def test_a_notification_that_cannot_be_posted_is_a_failure(self):
        (self.root / "var/run").mkdir()
        self.restricted(self.root / "var/run", 0o555)
        self.assertEqual(self.refusal(1, "post", "a.b", prefix=self.prefix),
                         f"{self.root}/var/run/notify: Permission denied")


@unittest.skipUnless(NAMESPACES and os.path.exists("/usr/bin/killall"), REASON + ", or there is no killall")
class Tool(World):
    def stub(self, text):
        path = self.tool("killall", text)
        return namespace(f'mount --bind "{path}" /usr/bin/killall')

    def told(self, count=1):
        """The arguments of that many starts of the tool; the command does not wait for it."""
        deadline = time.monotonic() + device.TIMEOUT
        while len(list(self.home.glob("told.*"))) < count and time.monotonic() < deadline:
            time.sleep(0.005)
        paths = list(self.home.glob("told.*"))
        texts = sorted(path.read_text() for path in paths)
        for path in paths:
            path.unlink()
        return texts

    def recorder(self):
        return self.stub(f'#!/bin/sh\ncd "{self.home}"\necho "$*" > "new.$$"\nmv "new.$$" "told.$$"\n')

    def test_restarting_the_interface_starts_the_tool(self):
        prefix = self.recorder()
        self.assertEqual(self.ask("respring", prefix=prefix), "")
        self.assertEqual(self.told(), ["-9 backboardd\n"])
        self.assertEqual(self.ask_json("respring", prefix=prefix), {"started": True})
        self.assertEqual(self.told(), ["-9 backboardd\n"])

    def test_the_banner_starts_it_too(self):
        prefix = self.recorder()
        answers = self.play("set enabled off", "banner", "kill SpringBoard", "kill SpringBoard TERM", prefix=prefix)
        self.assertEqual([answer.get("result") for answer in answers], [None, None, 0, 0])
        self.assertEqual(self.told(3), ["-9 SpringBoard\n", "-9 backboardd\n", "-TERM SpringBoard\n"])

    def test_output_of_the_tool_is_in_no_answer(self):
        prefix = self.stub("#!/bin/sh\necho noise\n")
        done = self.run_command("drive", input="kill x l\nstate\n", prefix=prefix)
        self.assertEqual([json.loads(line)["ok"] for line in done.stdout.splitlines()], [True, True])
        self.assertEqual((done.returncode, done.stderr), (0, "noise\n"))
        done = self.run_command("respring", "--json", prefix=prefix)
        self.assertEqual((json.loads(done.stdout), done.stderr), ({"started": True}, "noise\n"))

    def test_the_tool_starts_without_an_output_too(self):
        prefix = self.recorder() + ["/bin/sh", "-c", 'exec "$@" >&- 2>&-', "sh"]
        self.run_command("respring", prefix=prefix)
        self.assertEqual(self.told(), ["-9 backboardd\n"])

    def test_a_dry_run_does_not_start_the_tool(self):
        prefix = self.recorder()
        self.ask("--dry-run", "respring", prefix=prefix)
        self.run_command("drive", "--dry-run", input="kill SpringBoard\nset enabled off\nbanner\n", prefix=prefix)
        time.sleep(0.1)
        self.assertEqual(list(self.home.glob("told.*")), [])

    def test_a_tool_that_cannot_be_started_is_a_failure(self):
        for options in [], ["--json"]:
            text = self.refusal(1, "respring", *options, prefix=namespace("mount --bind /dev/null /usr/bin/killall"))
            self.assertEqual(text, "/usr/bin/killall: Permission denied")


if __name__ == "__main__":
    main()

"""A device root for one test, and the command run on it in a clean environment."""

import json
import os
import pathlib
import plistlib
import shutil
import stat
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

CHANGED = "com.corvane.prismo2.changed"
SETTINGS = "var/mobile/Library/Preferences/com.corvane.prismo2.plist"
APP = "com.example.app"
ELEMENTS = ["global", "keyboard", "statusbar", "sms", "nc", "cc", "volume", "folder"]
TIMEOUT = 30
BINARY = None

# The version that the stub of the package database reports, so that no page asks the database of this machine.
VERSION = "1.2.3-4"
DPKG = f"""#!/bin/sh
echo "Package: $2"
echo "Version: {VERSION}"
"""


def png(width, height):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    lines = b"".join(b"\0" + b"\x33\x66\xff" * width for _ in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(lines)) + chunk(b"IEND", b""))


def snapshot(directory):
    """Everything below the directory: kind, mode, time of change and content of each entry."""
    found = {}
    for path in [pathlib.Path(directory), *sorted(pathlib.Path(directory).rglob("*"))]:
        status = path.lstat()
        if path.is_symlink():
            content = os.readlink(path)
        else:
            content = path.read_bytes() if stat.S_ISREG(status.st_mode) else None
        found[str(path)] = (status.st_mode, status.st_mtime_ns, status.st_ino, content)
    return found


class World(unittest.TestCase):
    """A home directory with a device root in it, which the environment variable names."""

    maxDiff = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="prismo2-cli-")
        self.addCleanup(directory.cleanup)
        self.home = pathlib.Path(directory.name)
        self.root = self.home / "device"
        (self.root / SETTINGS).parent.mkdir(parents=True)
        (self.root / "Applications").mkdir()
        (self.root / "User").symlink_to("var/mobile")
        self.settings_path = self.root / SETTINGS
        self.tools = self.home / "tools"
        self.tools.mkdir()
        self.tool("dpkg", DPKG)
        self.environment = {"PATH": f"{self.tools}:/usr/bin:/bin", "HOME": str(self.home), "LC_ALL": "C.UTF-8",
                            "PRISMO2_ROOT": str(self.root),
                            # None of this machine's applications: no link may open one of them.
                            "XDG_DATA_DIRS": str(self.home / "data")}

    def tool(self, name, text):
        path = self.tools / name
        path.write_text(text)
        path.chmod(0o755)
        return path

    def install_program(self):
        """Runs a copy of the program from now on. Returns the directory of its installation, in the home directory."""
        global BINARY
        built = pathlib.Path(BINARY)
        installation = self.home / "installation"
        program = installation / built.parent.name / built.name
        program.parent.mkdir(parents=True)
        shutil.copy(built, program)
        shutil.copytree(built.parent.parent / "share/prismo2/base", installation / "share/prismo2/base")
        self.addCleanup(globals().update, BINARY=BINARY)
        BINARY = str(program)
        return installation

    # The device's content

    def install(self, identifier, name, store=False, icon=None):
        folder = self.root / ("var/containers/Bundle/Application/0001" if store else "Applications")
        bundle = folder / (identifier.replace("/", "_") + ".app")
        bundle.mkdir(parents=True)
        info = {"CFBundleIdentifier": identifier, "CFBundleDisplayName": name}
        if icon:
            info["CFBundleIconFiles"] = ["Icon"]
            (bundle / "Icon.png").write_bytes(png(icon, icon))
        (bundle / "Info.plist").write_bytes(plistlib.dumps(info, fmt=plistlib.FMT_BINARY))
        return bundle

    def store(self, values, format=plistlib.FMT_XML):
        self.settings_path.write_bytes(plistlib.dumps(values, fmt=format))

    def settings(self):
        """The settings file as another reader sees it; None if it is missing."""
        return plistlib.loads(self.settings_path.read_bytes()) if self.settings_path.exists() else None

    # The command

    def run_command(self, *arguments, input="", prefix=(), environment=None, **options):
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        return subprocess.run([*prefix, BINARY, *arguments], input=input, text=True, errors="surrogateescape",
                              env=self.environment | (environment or {}), timeout=TIMEOUT, check=False, cwd=self.home,
                              **options)

    def ask(self, *arguments, **options):
        """What a command that succeeds prints."""
        done = self.run_command(*arguments, **options)
        self.assertEqual((done.returncode, done.stderr), (0, ""), arguments)
        return done.stdout

    def ask_json(self, *arguments, **options):
        """The one document that a command prints."""
        return self.document(self.ask(*arguments, "--json", **options))

    def document(self, text):
        self.assertTrue(text.endswith("\n"))
        self.assertEqual(text.count("\n"), 1, text)
        return json.loads(text)

    def refusal(self, code, *arguments, **options):
        """The one line on standard error of a command that fails. It prints nothing else."""
        done = self.run_command(*arguments, **options)
        self.assertEqual((done.returncode, done.stdout), (code, ""), (arguments, done.stderr))
        return self.complaint(done.stderr)

    def complaint(self, text):
        self.assertTrue(text.startswith("prismo2: ") and text.endswith("\n"), text)
        self.assertEqual(text.count("\n"), 1, text)
        return text[len("prismo2: "):-1]

    def rows(self, *options):
        return self.ask_json(*options, "rows")["rows"]

    def start(self, *arguments, stdin=subprocess.DEVNULL):
        """A command that keeps running; it is killed when the test ends."""
        process = subprocess.Popen([BINARY, *arguments], env=self.environment, text=True, cwd=self.home, stdin=stdin,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        process.kill()
        process.wait()
        for stream in process.stdin, process.stdout, process.stderr:
            if stream:
                stream.close()

    # `drive`

    def play(self, *lines, options=("--virtual-time",), code=0, **more):
        """The answers to the lines of a script."""
        done = self.run_command("drive", *options, input="".join(line + "\n" for line in lines), **more)
        self.assertEqual((done.returncode, done.stderr), (code, ""), done.stdout)
        return [json.loads(line) for line in done.stdout.splitlines()]

    def start_session(self):
        """A session that takes its script line by line, in real time."""
        return self.start("drive", stdin=subprocess.PIPE)

    def play_dry(self, *lines, code=0):
        return self.play(*lines, options=("--virtual-time", "--dry-run"), code=code)


def namespace(script):
    """The words that run a script, and then a command, as root of a new mount namespace."""
    return ["/usr/bin/unshare", "-rm", "/bin/sh", "-c", f'set -e; {script}\nexec "$@"', "sh"]


def namespaces_work():
    return bool(shutil.which("unshare")) and subprocess.run(
        namespace("mount -t tmpfs none /mnt") + ["/bin/true"], capture_output=True, timeout=TIMEOUT,
        check=False).returncode == 0


def main():
    global BINARY
    BINARY = os.path.abspath(sys.argv.pop(1))
    unittest.main()

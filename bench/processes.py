#!/usr/bin/python3
"""processes.py BUILD: measures whole processes of prismo2 and of comparable tools in one run.

Run it under dbus-run-session: the other tools need a bus, prismo2 does not. Prints medians and their ratios.
The ratios say more than the times, which depend on the machine.
"""

import json
import os
import plistlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

SCHEMA = """<schemalist><schema id="org.prismo2.Bench" path="/org/prismo2/bench/">
<key name="enabled" type="b"><default>true</default></key></schema></schemalist>
"""
RUNS = 200
ROUNDS = 60


def median_times(commands, preparations=()):
    """The median wall-clock time of each command in seconds, measured by hyperfine without a shell.
    Before each run the command's preparation runs, unmeasured."""
    prepare = [word for each in preparations for word in ("--prepare", each)]
    with tempfile.NamedTemporaryFile() as report:
        subprocess.run(["hyperfine", "-N", "--style", "none", "--warmup", "20", "--runs", str(RUNS), *prepare,
                        "--export-json", report.name, *commands],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return [result["median"] for result in json.load(report)["results"]]


def median_latency(listener, setters):
    """The median time from starting a setter until the listener prints its next line, in seconds."""
    times = []
    for i in range(ROUNDS):
        start = time.perf_counter()
        # Popen would add half a millisecond to both.
        setter = os.posix_spawn(setters[i % 2][0], setters[i % 2], os.environ)
        if not listener.stdout.readline():
            sys.exit(f"{listener.args[0]} exited")
        times.append(time.perf_counter() - start)
        if os.waitpid(setter, 0)[1] != 0:
            sys.exit(f"{setters[i % 2]} failed")
    return statistics.median(times)


def install_applications(root, count):
    for number in range(count):
        bundle = root / "var/containers/Bundle/Application" / f"{number:04}" / "App.app"
        bundle.mkdir(parents=True)
        information = {f"Other{i}": f"value {i}" for i in range(40)}
        information |= {"CFBundleIdentifier": f"com.example.app{number:04}", "CFBundleIconFiles": ["Icon60x60"]}
        (bundle / "Info.plist").write_bytes(plistlib.dumps(information, fmt=plistlib.FMT_BINARY))
        (bundle / "Icon60x60@2x.png").write_bytes(b"\x89PNG\r\n\x1a\n")


def row(what, ours, peer_name, peer, target=None):
    verdict = "" if target is None else f"   at most {target:.2f}: {'yes' if ours / peer <= target else 'MISSED'}"
    print(f"  {what:<34} {ours * 1000:7.2f} ms   {peer_name:<18} {peer * 1000:7.2f} ms   "
          f"ratio {ours / peer:.2f}{verdict}")


def main():
    build = Path(sys.argv[1]).resolve()
    prismo2 = str(build / "cli" / "prismo2")
    with tempfile.TemporaryDirectory(prefix="prismo2-bench-") as scratch:
        scratch = Path(scratch)
        root = scratch / "root"
        (root / "User" / "Library" / "Preferences").mkdir(parents=True)
        schemas = scratch / "schemas"
        schemas.mkdir()
        (schemas / "org.prismo2.Bench.gschema.xml").write_text(SCHEMA)
        compiler = next(iter(Path("/usr/lib").glob("*/glib-2.0/glib-compile-schemas")))
        subprocess.run([compiler, schemas], check=True)
        for name in ("config", "runtime"):
            (scratch / name).mkdir(mode=0o700)
        os.environ |= {"PRISMO2_ROOT": str(root), "GSETTINGS_SCHEMA_DIR": str(schemas),
                       "GSETTINGS_BACKEND": "dconf", "XDG_CONFIG_HOME": str(scratch / "config"),
                       "XDG_RUNTIME_DIR": str(scratch / "runtime")}

        subprocess.run([prismo2, "set", "enabled", "true"], check=True)
        subprocess.run(["gsettings", "set", "org.prismo2.Bench", "enabled", "true"], check=True)

        print(f"One-shot processes, medians of {RUNS} runs; every write is on disk when the command ends")
        ours_set, gsettings_set, kwrite = median_times(
            [f"{prismo2} set enabled off", "gsettings set org.prismo2.Bench enabled false",
             "kwriteconfig5 --file prismo2bench --group General --key enabled false"],
            # A store may skip the write if the value stays the same.
            [f"{prismo2} set enabled on", "gsettings set org.prismo2.Bench enabled true",
             "kwriteconfig5 --file prismo2bench --group General --key enabled true"])
        row("prismo2 set", ours_set, "gsettings set", gsettings_set, 0.35)
        row("prismo2 set", ours_set, "kwriteconfig5", kwrite)
        ours_get, dconf_read, gsettings_get, kread = median_times(
            [f"{prismo2} get enabled", "dconf read /org/prismo2/bench/enabled",
             "gsettings get org.prismo2.Bench enabled",
             "kreadconfig5 --file prismo2bench --group General --key enabled"])
        row("prismo2 get", ours_get, "dconf read", dconf_read, 0.45)
        row("prismo2 get", ours_get, "gsettings get", gsettings_get)
        row("prismo2 get", ours_get, "kreadconfig5", kread)

        applications = scratch / "applications"
        install_applications(applications, 2000)
        (listing,) = median_times([f"{prismo2} --root {applications} apps"])
        print(f"  {'prismo2 apps, 2,000 applications':<34} {listing * 1000:7.2f} ms   at most 100: "
              f"{'yes' if listing <= 0.1 else 'MISSED'}")

        print(f"\nFrom starting a change until another process has the new value, medians of {ROUNDS} rounds")
        with subprocess.Popen([build / "bench" / "bench-listener", root, "enabled"], stdout=subprocess.PIPE) as ours:
            ours.stdout.readline()
            ours_latency = median_latency(ours, [[prismo2, "set", "enabled", v] for v in ("true", "false")])
            ours.terminate()
        with subprocess.Popen(["gsettings", "monitor", "org.prismo2.Bench", "enabled"],
                              stdout=subprocess.PIPE) as peer:
            time.sleep(0.5)  # it does not report when it is ready
            gsettings = shutil.which("gsettings")
            setters = [[gsettings, "set", "org.prismo2.Bench", "enabled", v] for v in ("true", "false")]
            peer_latency = median_latency(peer, setters)
            peer.terminate()
        row("prismo2 set -> file re-read", ours_latency, "gsettings monitor", peer_latency, 0.30)


if __name__ == "__main__":
    main()

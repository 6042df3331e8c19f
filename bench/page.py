#!/usr/bin/python3
"""page.py BUILD: measures building the root page, as a multiple of one bare parse of its settings file."""

import json
import subprocess
import sys
from pathlib import Path

TARGET = 16


def main():
    bench = Path(sys.argv[1]) / "bench" / "page-bench"
    output = subprocess.run([bench, "--benchmark_format=json", "--benchmark_min_time=0.5",
                             "--benchmark_repetitions=5", "--benchmark_enable_random_interleaving=true"],
                            check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    medians = {each["run_name"]: each["cpu_time"] for each in json.loads(output)["benchmarks"]
               if each.get("aggregate_name") == "median"}
    print("The root page, without the version query (medians)")
    for keys in (40, 10000):
        parse, load, build = (medians[f"{name}/{keys}"] for name in ("parseOnce", "loadSettingsFile", "buildPage"))
        verdict = "yes" if build / parse <= TARGET else "MISSED"
        print(f"  {keys:>6} keys: libplist parse {parse:9.1f} us   load {load:9.1f} us = {load / parse:.2f} parses   "
              f"page {build:9.1f} us = {build / parse:.2f} parses   at most {TARGET}: {verdict}")


if __name__ == "__main__":
    main()

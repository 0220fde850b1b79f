#!/usr/bin/env python3
"""The README's run command shows its jobs: scripts/demo.sh over the built vxk finishes, and prints the
sheets of a point, a reprojected sample read back by ogrinfo, and a generated sheet read back by it."""
import os
import subprocess
import sys

EXPECTED = [
    "$ vxk sheet --at 55.7558 37.6173\n",
    "1:10000      N-37-4-В-а-4   (the library writes -4-В-а-4)\n",
    "1:200000     O-38-XXXI   (on its edge, also N-37-VI, O-37-XXXVI, N-38-I)\n",
    "south:  55.333333333333336   55°20'00\"N\n",
    "upper:  O-37-XXXVI\n",
    "$ vxk reproject data/samples/roads.shp gk7/roads.shp --prj --from \"+proj=longlat",
    "  NAME (String) = М-10\n  LINESTRING (7413187.97203235 6182348.16634147,",
    "$ vxk generate N-37-VI --out n37vi\n",
    "  NAME (String) = N-37-VI\n",
    "Extent: (41.000000, 55.333333) - (42.000000, 56.000000)\n",
    'ID["EPSG",4284]]',
]


def main():
    build = os.path.dirname(os.path.normpath(os.environ["VXK_BIN_DIR"]))
    script = os.path.join(os.environ["VXK_SOURCE_DIR"], "scripts", "demo.sh")
    done = subprocess.run(["bash", script, build], capture_output=True)
    out = done.stdout.decode("utf-8", "replace")
    failures = [f"exit {done.returncode}: {done.stderr.decode('utf-8', 'replace')}"] if done.returncode else []
    failures += [f"missing: {e!r}" for e in EXPECTED if e not in out]
    for f in failures:
        print("FAILED:", f)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

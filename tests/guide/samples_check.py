#!/usr/bin/env python3
"""The samples of data/samples/ are what scripts/make-samples.py writes: the script is run into a
scratch folder, and GDAL reads both sets, feature by feature, with their systems and code pages."""
import filecmp
import os
import subprocess
import sys

from osgeo import ogr

ogr.UseExceptions()


def features(path):
    ds = ogr.Open(path)
    layer = ds.GetLayer()
    return [(f.items(), f.GetGeometryRef().ExportToWkt()) for f in layer]


def main():
    source = os.environ["VXK_SOURCE_DIR"]
    samples = os.path.join(source, "data", "samples")
    scratch = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "samples-again")
    subprocess.run([sys.executable, os.path.join(source, "scripts", "make-samples.py"), scratch], check=True)
    failures = []
    for name in ("towns", "roads", "lakes"):
        bundled, again = features(os.path.join(samples, name + ".shp")), features(os.path.join(scratch, name + ".shp"))
        if bundled != again or not bundled:
            failures.append(f"{name}: the bundled features differ from the script's")
        for side in (".prj", ".cpg"):
            if not filecmp.cmp(os.path.join(samples, name + side), os.path.join(scratch, name + side), shallow=False):
                failures.append(f"{name}{side} differs")
    for f in failures:
        print("FAILED:", f)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

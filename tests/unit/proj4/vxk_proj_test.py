#!/usr/bin/env python3
"""vxk proj, run as a user runs it: the four questions, their output, exit status and errors. The
expected texts are written here; equivalence answers are those PROJ gives for systems (+type=crs)."""
import os
import subprocess
import sys

VXK = os.path.join(os.environ["VXK_BIN_DIR"], "vxk")

failures = []


def check(ok, what):
    print(("ok   " if ok else "FAIL ") + what)
    if not ok:
        failures.append(what)


def vxk(*args):
    return subprocess.run([VXK, "proj", *args], capture_output=True, text=True)


def usage_error(args, what):
    r = vxk(*args)
    lines = r.stderr.splitlines()
    check(r.returncode == 2 and len(lines) == 1 and "vxk proj --help" in lines[0] and r.stdout == "",
          f"usage error, one line and a pointer to --help: {what} -> {r.returncode} {r.stderr!r}")


def test_help():
    r = vxk("--help")
    check(r.returncode == 0 and r.stdout.startswith("usage: vxk proj describe"), "vxk proj --help")
    for question in ("describe", "gdal", "same", "list"):
        r = vxk(question, "--help")
        check(r.returncode == 0 and "usage: vxk proj" in r.stdout, f"vxk proj {question} --help")
    r = subprocess.run([VXK, "--help"], capture_output=True, text=True)
    check(r.returncode == 0 and "\n  proj " in r.stdout, "vxk --help names the proj command")


def test_usage_errors():
    usage_error([], "no question")
    usage_error(["frobnicate"], "unknown question")
    usage_error(["describe"], "describe without a text")
    usage_error(["describe", "+proj=merc", "+proj=utm"], "describe with two texts")
    usage_error(["describe", "--lang", "de", "+proj=merc"], "describe in an unknown language")
    usage_error(["describe", "+proj=merc", "--lang"], "--lang without a value")
    usage_error(["gdal"], "gdal without a text")
    usage_error(["gdal", "--lang", "ru", "+proj=merc"], "--lang is for describe only")
    usage_error(["same", "EPSG:4326"], "same with one text")
    usage_error(["same", "EPSG:4326", "EPSG:4326", "EPSG:4326"], "same with three texts")
    usage_error(["list", "+proj=merc", "+proj=utm"], "list with two texts")
    usage_error(["list", "--bogus"], "unknown option")


def test_describe():
    r = vxk("describe", "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +units=m")
    check(r.returncode == 0 and r.stdout ==
          "Projection = tmerc\nCentral Meridian = 39\nFalse Easting = 7500000\nSpheroid = krass\n",
          f"describe in English: {r.stdout!r}")
    r = vxk("describe", "--lang", "ru", "+proj=utm +zone=37 +south +datum=WGS84 +towgs84=1,2,3")
    check(r.returncode == 0 and r.stdout ==
          "Проекция = utm\nНомер зоны = 37\nДатум = WGS84\nПараметры датума = 1,2,3,0,0,0,0\n",
          f"describe in Russian: {r.stdout!r}")
    r = vxk("describe", "--lang", "en", "+units=m +south")
    check(r.returncode == 0 and r.stdout == "Projection = Unknown\n", f"nothing to describe: {r.stdout!r}")
    r = vxk("describe", "--lang", "ru", "")
    check(r.returncode == 0 and r.stdout == "Проекция = Не определена\n", f"empty text in Russian: {r.stdout!r}")


def test_gdal():
    r = vxk("gdal", "+proj=lcc +lat_1=45 +lon_0=10 +ellps=GRS80")
    check(r.returncode == 0 and r.stdout == "+proj=lcc +lon_0=10 +lat_0=45 +lat_1=45 +lat_2=45 +ellps=GRS80 +no_defs\n",
          f"gdal form of a one-parallel conic: {r.stdout!r}")
    r = vxk("gdal", "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs")
    check(r.returncode == 0 and r.stdout ==
          "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +ellps=krass +units=m +no_defs\n",
          f"gdal form of Gauss-Kruger zone 7: {r.stdout!r}")
    r = vxk("gdal", "EPSG:4326")
    check(r.returncode == 1 and r.stdout == "" and "EPSG:4326" in r.stderr,
          f"gdal of a text without PROJ string parameters: {r.returncode} {r.stderr!r}")


def test_same():
    cases = [
        (["+init=epsg:32637", "+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs +type=crs"], 0, "same\n"),
        (["EPSG:4326", "+proj=longlat +datum=WGS84 +no_defs +type=crs"], 0, "same\n"),
        (["+proj=utm +zone=37 +datum=WGS84 +type=crs", "+zone=37 +datum=WGS84 +proj=utm +type=crs"], 0, "same\n"),
        (["+proj=utm +zone=37 +datum=WGS84 +type=crs", "+proj=utm +zone=38 +datum=WGS84 +type=crs"], 1,
         "not the same\n"),
        (["EPSG:4326", "EPSG:4258"], 1, "not the same\n"),
    ]
    for args, status, out in cases:
        r = vxk("same", *args)
        check(r.returncode == status and r.stdout == out and r.stderr == "",
              f"same {args} -> {r.returncode} {r.stdout!r} {r.stderr!r}")
    r = vxk("same", "+proj=utm +zone=37 +datum=WGS84", "+zone=37 +proj=utm +datum=WGS84")
    check(r.returncode == 1 and r.stdout == "not the same\n" and "+type=crs" in r.stderr,
          f"operations compared by their text, with a note: {r.stderr!r}")
    r = vxk("same", "garbage", "EPSG:4326")
    check(r.returncode == 2 and r.stdout == "" and "first" in r.stderr and "garbage" in r.stderr,
          f"first text unreadable: {r.stderr!r}")
    r = vxk("same", "EPSG:4326", "+proj=nonesuch +type=crs")
    check(r.returncode == 2 and "second" in r.stderr and "nonesuch" in r.stderr, f"second text unreadable: {r.stderr!r}")


def test_list():
    r = vxk("list")
    lines = r.stdout.splitlines()
    check(r.returncode == 0 and len(lines) == 209, f"list has 209 entries: {len(lines)}")
    indices = [int(line.split()[0]) for line in lines]
    check(indices == list(range(1, 210)), "entries indexed 1 to 209 in order")
    gk7 = [line for line in lines if "Gauss-Kruger, zone 7 " in line]
    check(len(gk7) == 1 and gk7[0].endswith(
        "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +units=m +no_defs"), f"Gauss-Kruger zone 7: {gk7}")
    utm = [line for line in lines if "UTM, zone 37, southern hemisphere" in line]
    check(len(utm) == 1 and utm[0].endswith("+proj=utm +zone=37 +south +datum=WGS84 +units=m +no_defs"),
          f"UTM zone 37 south: {utm}")

    r = vxk("list", "--params", "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +datum=WGS84")
    lines = r.stdout.splitlines()
    check(r.returncode == 0 and len(lines) == 5 and
          lines[0].split()[0] == "9" and "Polar Stereographic, north pole, true scale parallel" in lines[0] and
          lines[0].endswith("+proj=stere +lon_0=0 +lat_0=90 +x_0=0 +y_0=0 +lat_ts=90 +units=m +no_defs") and
          [l.strip() for l in lines[1:]] == ["lon_0=0 [-180,180]", "x_0=0", "y_0=0", "lat_ts=90 [-90,90]"],
          f"the entry of a polar stereographic string with its parameters: {lines}")
    r = vxk("list", "+proj=krovak +ellps=bessel")
    check(r.returncode == 1 and r.stdout == "" and "krovak" in r.stderr, f"no entry fits: {r.stderr!r}")


for test in (test_help, test_usage_errors, test_describe, test_gdal, test_same, test_list):
    test()
if failures:
    print(f"{len(failures)} checks failed")
    sys.exit(1)
print("all checks passed")

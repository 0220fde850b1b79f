#!/usr/bin/env python3
"""`vxk sheet --at`, `--bounds` and `--children` run as a user runs them, against sheet boxes worked out
here, in exact fractions, from the nomenclature: bands of 4 degrees from the equator, columns of 6 degrees
from 180 degrees west, and each level a grid of its parent (2 by 2, 6 by 6 or 12 by 12) numbered row by
row from the corner on the edge farther from the equator (the north-west corner in the north; the
generator mirrors the rows in the south). A point on an edge belongs to the sheet east of it and to the
one farther from the equator. The WKT and GeoJSON that vxk prints are read with GDAL."""
import json
import math
import os
import random
import sys
from fractions import Fraction as F

from osgeo import ogr

ogr.UseExceptions()

from vxk_sheet_check import expect, failures, run  # next to this script

TMP = os.environ.get("VXK_TEST_TMP", "/tmp")

LETTERS = "ABCDEFGHIJKLMNOPQRSTUV"
ROMANS = ("I II III IV V VI VII VIII IX X XI XII XIII XIV XV XVI XVII XVIII XIX XX XXI XXII XXIII XXIV XXV "
          "XXVI XXVII XXVIII XXIX XXX XXXI XXXII XXXIII XXXIV XXXV XXXVI").split()
SCALES = ["1:1000000", "1:500000", "1:200000", "1:100000", "1:50000", "1:25000", "1:10000"]
# A level: its parent's scale, the grid it cuts the parent into, and how a position is written.
LEVELS = {
    "1:500000": ("1:1000000", 2, 2, lambda i: "АБВГ"[i]),
    "1:200000": ("1:1000000", 6, 6, lambda i: ROMANS[i]),
    "1:100000": ("1:1000000", 12, 12, lambda i: str(i + 1)),
    "1:50000": ("1:100000", 2, 2, lambda i: "АБВГ"[i]),
    "1:25000": ("1:50000", 2, 2, lambda i: "абвг"[i]),
    "1:10000": ("1:25000", 2, 2, lambda i: str(i + 1)),
}


# ---- the nomenclature, worked out here ------------------------------------------------------------------

def chain(scale):
    """The levels from just below the million sheet down to the scale."""
    out = []
    while scale != "1:1000000":
        out.insert(0, scale)
        scale = LEVELS[scale][0]
    return out


def cell(box, columns, rows, index, south):
    west, east, s, n = box
    w, h = (east - west) / columns, (n - s) / rows
    x = west + (index % columns) * w
    if south:
        y = s + (index // columns) * h
        return (x, x + w, y, y + h)
    y = n - (index // columns) * h
    return (x, x + w, y - h, y)


def sheet_at(lat, lon, scale, south):
    """The designation and box of the single sheet at the scale that holds the point (fractions)."""
    band = min(int(abs(lat) // 4) + 1, 22)
    x = (lon + 180) % 360 - 180
    column = int((x + 180) // 6) + 1
    top = F(4 * band)
    west = F(6 * (column - 1) - 180)
    box = (west, west + 6, -top, -top + 4) if south else (west, west + 6, top - 4, top)
    name = f"{LETTERS[band - 1]}-{column}"
    for level in chain(scale):
        _, columns, rows, write = LEVELS[level]
        w, e, s, n = box
        width, height = (e - w) / columns, (n - s) / rows
        c = int((x - w) // width)
        far = (lat - s) if south else (n - lat)  # from the edge farther from the equator
        r = max(0, math.ceil(far / height) - 1)
        box = cell(box, columns, rows, r * columns + c, south)
        name += "-" + write(r * columns + c)
    return name, box


def box_of(designation, south=False):
    """The box of a full single designation, by walking down from its million sheet."""
    f = designation.split("-")
    band, column = LETTERS.index(f[0]) + 1, int(f[1])
    top, west = F(4 * band), F(6 * (column - 1) - 180)
    box = (west, west + 6, -top, -top + 4) if south else (west, west + 6, top - 4, top)
    if len(f) == 2:
        scale = "1:1000000"
    elif f[2].isdigit():
        scale = ["1:100000", "1:50000", "1:25000", "1:10000"][len(f) - 3]
    else:
        scale = "1:200000" if f[2] in ROMANS else "1:500000"
    for level, text in zip(chain(scale), f[2:]):
        _, columns, rows, write = LEVELS[level]
        index = [write(i) for i in range(columns * rows)].index(text)
        box = cell(box, columns, rows, index, south)
    return box


def close(got, want, what):
    ok = len(got) == 4 and all(abs(float(g) - float(w)) < 1e-9 for g, w in zip(got, want))
    expect(ok, f"{what}: box {tuple(map(float, got))}, expected {tuple(map(float, want))}")


# ---- the sheet of a point -----------------------------------------------------------------------------

def at_lines(out):
    """{scale: (designation, rest of the line)} of `vxk sheet --at`."""
    rows = {}
    for line in out.splitlines()[1:]:
        scale, _, rest = line.partition(" ")
        rest = rest.strip()
        name, _, note = rest.partition("   ")
        rows[scale] = (name, note)
    return rows


def check_point(lat, lon, south=False):
    args = ["--at", str(lat), str(lon)] + (["--south"] if south else [])
    rc, out, err = run(*args)
    expect(rc == 0, f"{args}: exit {rc}: {err}")
    rows = at_lines(out)
    hemisphere_south = south or F(lat) < 0
    for scale in SCALES:
        want, box = sheet_at(F(lat), F(lon), scale, hemisphere_south)
        got = rows.get(scale, ("<missing>", ""))[0]
        expect(got == want, f"{args}: {scale} is {got}, expected {want}")
        w, e, s, n = box
        x = (F(lon) + 180) % 360 - 180
        expect(w <= x <= e and s <= F(lat) <= n, f"{args}: {want} {box} does not hold the point")
    return rows


def check_points():
    rng = random.Random(22)
    points = [(round(rng.uniform(-88, 88), 6), round(rng.uniform(-180, 180), 6)) for _ in range(40)]
    # Edges of every level: whole degrees, sixteenths of a degree (the 1:10,000 columns), the equator,
    # the date line, the last band's far edge.
    points += [(56, 42), (55, 37.5), (54, 37.5625), (0, 37), (0, 180), (0, -180), (4, 6), (88, 36.5),
               (-88, -179.9375), (-56, 42), (-4, 0), (87.999, 179.999), (60, 0), (-60, 0.0625),
               (-45, 180), (88, -180), (45, -900), (45, 540), (-87.75, 359.9375), (0, 0)]
    for lat, lon in points:
        check_point(lat, lon)
    check_point(0, 37, south=True)
    check_point(0, 180, south=True)

    rows = check_point(56, 42)
    expect(rows["1:1000000"][1] == "(on its edge, also N-37, O-37, N-38)",
           f"56 42: the other sheets of the edge are {rows['1:1000000'][1]!r}")
    rows = check_point(0, 37)
    expect("A-37 (south)" in rows["1:1000000"][1], f"0 37: {rows['1:1000000']}")
    # 180 degrees: the sheet east of the date line, column 1, whichever turn of the globe is written.
    for lat, lon in [(-45, 180), (45, -180), (45, -900), (45, 540)]:
        rows = check_point(lat, lon)
        expect(rows["1:1000000"] == ("L-1", "(on its edge, also L-60)"), f"{lat} {lon}: {rows['1:1000000']}")
        others = rows["1:10000"][1].rstrip(")").split("also ")[-1].split(", ")
        expect(rows["1:10000"][0] == "L-1-97-В-в-3" and
               sorted(others) == ["L-1-109-А-а-1", "L-60-108-Г-г-4", "L-60-120-Б-б-2"],
               f"{lat} {lon}: {rows['1:10000']}")
    # The far edge of the last band belongs to it; the pole and the cap beyond have no sheet.
    rows = check_point(88, -180)
    expect(rows["1:10000"] == ("V-1-1-А-а-1", "(the library writes -1-А-а-1; on its edge, also V-60-12-Б-б-2)"),
           f"88 -180: {rows['1:10000']}")
    for lat in ["88.0000001", "90", "-90", "-88.5"]:
        rc, out, err = run("--at", lat, "0")
        expect(rc == 1 and out == "" and "polar cap" in err, f"--at {lat}: exit {rc}, {out!r} {err!r}")
    # The equator: the northern sheet unless --south, the other hemisphere's named as such.
    rows = check_point(0, 0)
    expect(rows["1:1000000"] == ("A-31", "(on its edge, also A-30 (south), A-30, A-31 (south))"), f"0 0: {rows}")
    rows = check_point(0, 0, south=True)
    expect(rows["1:1000000"] == ("A-31", "(on its edge, also A-30, A-30 (north), A-31 (north))"), f"0 0 S: {rows}")
    rows = check_point(55.7558, 37.6173)
    expect(rows["1:10000"] == ("N-37-4-В-а-4", "(the library writes -4-В-а-4)"), f"Moscow: {rows['1:10000']}")

    rc, out, _ = run("--at", "55d45'21\"N", "37d37'02\"E", "--scale", "1:200 000")
    expect(rc == 0 and out.splitlines()[1:] == ["1:200000     N-37-II"], f"--at in DMS: {out!r}")
    rc, out, _ = run("--at", "-33.9", "18.4", "--scale", "100000")
    expect(rc == 0 and out.splitlines()[1].split()[1] == sheet_at(F("-33.9"), F("18.4"), "1:100000", True)[0],
           f"--at south: {out!r}")


# ---- the box of a sheet ---------------------------------------------------------------------------------

def geojson_boxes(text, what):
    """The boxes and designations of a FeatureCollection, read by GDAL."""
    path = os.path.join(TMP, "vxk_sheet_where.geojson")
    with open(path, "w", encoding="utf-8") as f:
        f.write(text)
    ds = ogr.Open(path)
    layer = ds.GetLayer()
    out = []
    for feature in layer:
        w, e, s, n = feature.GetGeometryRef().GetEnvelope()
        out.append((feature.GetField("designation"), (w, e, s, n), feature.GetField("library")))
    expect(layer.GetFeatureCount() == len(json.loads(text)["features"]), f"{what}: GDAL read a different count")
    return out


def check_bounds():
    cases = [("N-37-VI", False), ("N-37", False), ("A-37-I", True), ("N-37-4-В-а-4", False),
             ("I-34-73-Б-г-1", True), ("V-60-144-Г-г-4", False), ("A-1-А", True)]
    for designation, south in cases:
        extra = ["--south"] if south else []
        want = box_of(designation, south)
        rc, out, err = run(designation, "--bounds", "--format", "wkt", *extra)
        expect(rc == 0, f"{designation} --bounds: exit {rc}: {err}")
        close(ogr.CreateGeometryFromWkt(out.strip()).GetEnvelope(), want, f"{designation} wkt")
        rc, out, err = run(designation, "--bounds", "--format", "geojson", *extra)
        [(name, box, library)] = geojson_boxes(out, designation)
        expect(name == designation, f"{designation} geojson: designation {name}")
        close(box, want, f"{designation} geojson")
        rc, out, err = run(designation, "--bounds", *extra)
        text = {k: float(v.split()[0]) for k, v in (l.split(":", 1) for l in out.splitlines() if ":" in l)
                if k in ("west", "east", "south", "north")}
        close([text.get(k, math.nan) for k in ("west", "east", "south", "north")], want, f"{designation} text")

    # A joined sheet: its first sheet, then the whole, eastwards.
    rc, out, err = run("N-37-VI,38-I", "--bounds")
    blocks = out.split("\n\n")
    expect(rc == 0 and len(blocks) == 2 and "sheet:  N-37-VI\n" in blocks[0] and "sheet:  N-37-VI,38-I" in blocks[1]
           and "east:   43 " in blocks[1] and "east:   42 " in blocks[0], f"joined --bounds: {out!r}")
    rc, out, err = run("--type", "4", "N-59", "--bounds", "--format", "wkt")
    close(ogr.CreateGeometryFromWkt(out.strip()).GetEnvelope(), (168, 192, 52, 56), "N-59,60,1,2")


# ---- the sheets inside a sheet --------------------------------------------------------------------------

def check_children():
    for parent, south, scale, count in [("N-37", False, "1:200000", 36), ("N-37", False, "1:10000", 9216),
                                        ("A-37", True, "1:500000", 4), ("N-37-VI", False, "1:100000", 4),
                                        ("N-37-А", False, "1:50000", 144), ("N-37,38", False, "1:200000", 72)]:
        extra = ["--south"] if south else []
        rc, out, err = run("--children", parent, "--scale", scale, "--format", "geojson", *extra)
        expect(rc == 0, f"--children {parent} {scale}: exit {rc}: {err}")
        sheets = geojson_boxes(out, f"--children {parent}")
        expect(len(sheets) == count, f"--children {parent} {scale}: {len(sheets)} sheets, expected {count}")
        for name, box, _ in sheets:
            close(box, box_of(name, south), f"--children {parent}: {name}")
        rc, text, _ = run("--children", parent, "--scale", scale, *extra)
        expect(text.split() == [name for name, _, _ in sheets], f"--children {parent}: text and geojson differ")
    rc, out, _ = run("--children", "N-37", "--scale", "1:200000")
    expect(out.split() == [f"N-37-{r}" for r in ROMANS], f"--children N-37: {out.split()}")
    rc, out, _ = run("--children", "--south", "A-37", "--scale", "1:500000", "--format", "wkt")
    envelopes = [ogr.CreateGeometryFromWkt(l).GetEnvelope() for l in out.splitlines()]
    expect(envelopes and envelopes[0] == (36, 39, -4, -2), f"--children south: the first is {envelopes[:1]}")


# ---- every designation printed reads back ---------------------------------------------------------------

def check_read_back():
    printed = []
    _, out, _ = run("--at", "56", "42")
    for scale, (name, note) in at_lines(out).items():
        printed.append(name)
        printed += [n.replace(" (south)", "") for n in note.strip("()").split("also ", 1)[-1].split(", ")
                    if note.startswith("(on its edge") and "-" in n]
    _, out, _ = run("--children", "N-37-144", "--scale", "1:10000")
    printed += out.split()
    _, out, _ = run("--neighbours", "--type", "3", "N-37-VI")
    printed += [l.split()[1] for l in out.splitlines() if l.split(":")[0] in ("sheet", "left", "right", "upper", "lower")]
    for d in sorted(set(printed)):
        rc, out, err = run(d)
        fields = dict(l.split(":", 1) for l in out.splitlines() if ":" in l)
        got = fields.get("in full", fields.get("designation", "")).strip().split("   ")[0]
        expect(rc == 0 and got == d, f"{d} does not read back: exit {rc}, {got!r} {err}")


def main():
    check_points()
    check_bounds()
    check_children()
    check_read_back()
    for f in failures:
        print("FAILED:", f)
    print(f"{len(failures)} failure(s)")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

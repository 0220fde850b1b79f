#!/usr/bin/env python3
"""The labels and marks round a generated sheet, read and measured with GDAL.

"FrameAdj.shp", scene set of 1:200,000 sheets (inside a million sheet, at its corner, at the equator):
  - four records whose TEXT are, in the order left, right, upper, lower, the neighbours that
    `vxk sheet --neighbours` prints; FONT "Times New Roman", SIZE "6.50", L_CODE 400911;
  - each line lies on the outer frame, 9.8 mm (1960 m) from the sheet's edge (the ring of "Hypsa.shp"),
    measured with GEOS; it is as long as its name's characters times 260 m, and its middle stands as
    far from the two corners of its side as the side allows (the middle stretch of that side).
"FrameDig.shp", latlong set: every label's text equals the degree text of the coordinate its base line
    marks, worked out here from the line's own position: a base line beside the sheet marks the whole
    minute of latitude nearest its middle (degrees when it stands above that parallel, minutes below);
    one above or below the sheet marks the whole minute of longitude nearest its middle ("DD° MM'").
"Frame.shp", latlong set: after the frames, the minute marks: on each side one tick across the band
    at every mark (n * m + 1 of them for the divisions n and m), each on its meridian or parallel, and
    the bars from mark 2k to mark 2k + 1, so that filled and open intervals alternate from the corner;
    at 1:200,000 also a tick from the edge itself at each main line and edge.
Usage: gdal_marks_check.py GENERATE_TOOL
"""
import math
import os
import subprocess
import sys

from osgeo import gdal, ogr

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from gdal_generate_check import PULKOVO, Sheet, generate  # noqa: E402

ogr.UseExceptions()
gdal.SetConfigOption("SHAPE_ENCODING", "CP1251")

VXK = os.path.join(os.environ.get("VXK_BIN_DIR", "."), "vxk")
OUTER = 1960.0  # 9.8 mm at 1:200,000
SYMBOL = 260.0  # a character of a neighbour's name at 1:200,000


def features(path):
    ds = ogr.Open(path)
    return ds, list(ds.GetLayer())


def points(f):
    return [p[:2] for p in f.GetGeometryRef().GetPoints()]


def line(pts):
    g = ogr.Geometry(ogr.wkbLineString)
    for x, y in pts:
        g.AddPoint_2D(x, y)
    return g


def point(p):
    g = ogr.Geometry(ogr.wkbPoint)
    g.AddPoint_2D(*p)
    return g


def edge_ring(out):
    ds, fs = features(os.path.join(out, "HYPS/Hypsa.shp"))
    return [p[:2] for p in fs[0].GetGeometryRef().GetGeometryRef(0).GetPoints()]


def box(out):
    ds = ogr.Open(os.path.join(out, "latlong/HYPS/Hypsa.shp"))
    return ds.GetLayer().GetExtent()


def degree_text(value, parts):
    """The texts of the rules: whole degrees of the magnitude (folded beyond 180), minutes of the
    seconds rounded once."""
    a = abs(value)
    t = int(math.trunc(a))
    d = round(a * 3600) - 3600 * t
    degrees = f"{360 - t if t > 180 else t:02d}\u00b0"
    minutes = f"{d // 60:02d}'"
    return {"grd": degrees, "min": minutes, "grd_min": degrees + " " + minutes}[parts]


def neighbours(sheet):
    args = [VXK, "sheet", "--neighbours"] + (["--south"] if sheet.south else []) + [sheet.name()]
    run = subprocess.run(args, capture_output=True, text=True, check=True)
    found = dict(line.split(":", 1) for line in run.stdout.splitlines() if ":" in line)
    return [found[k].strip() for k in ("left", "right", "upper", "lower")]


def check_frameadj(sheet, out, problems):
    path = os.path.join(out, "FRAME/FrameAdj.shp")
    ds, fs = features(path)
    texts = [f.GetField("TEXT") for f in fs]
    expected = neighbours(sheet)
    if texts != expected:
        problems.append(f"{path}: TEXT {texts}, vxk sheet --neighbours prints {expected}")
        return
    for f in fs:
        if (f.GetField("L_CODE"), f.GetField("FONT"), f.GetField("SIZE")) != (400911, "Times New Roman", "6.50"):
            problems.append(f"{path}: record {f.GetField('ID')} has the wrong code, font or size")
    edge_line = line(edge_ring(out))
    ds2, frame = features(os.path.join(out, "FRAME/Frame.shp"))
    # the broken outer frame, records 3 to 6: north-west, south-west, north-east, south-east, each split
    # at its corner, the one vertex that stands further out than the margin
    split = []
    for f in frame[2:6]:
        pts = points(f)
        k = max(range(len(pts)), key=lambda i: point(pts[i]).Distance(edge_line))
        split.append((pts[:k], pts[k + 1:]))
    (nw_side, nw_top), (sw_side, sw_bottom), (ne_top, ne_side), (se_bottom, se_side) = split
    pieces = [(sw_side, nw_side), (se_side, ne_side), (nw_top, ne_top), (sw_bottom, se_bottom)]
    for f, name, (before, after) in zip(fs, expected, pieces):
        pts = points(f)
        g = line(pts)
        what = f"{path}: {name}"
        if abs(g.Length() - len(name) * SYMBOL) > 1e-6:
            problems.append(f"{what}: {g.Length()} m long, expected {len(name)} characters of {SYMBOL} m")
        worst = max(abs(point(p).Distance(edge_line) - OUTER) for p in pts)
        if worst > 0.2:
            problems.append(f"{what}: stands {worst} m off the outer frame")
        # the gap in the outer frame is the name's line, and the frame's two pieces on that side are as
        # long as each other: the name stands on the middle stretch
        if not before or not after or before[-1] != pts[0] or after[0] != pts[-1]:
            problems.append(f"{what}: the outer frame's gap is not the name's line")
        elif abs(line(before).Length() - line(after).Length()) > 1e-6:
            problems.append(f"{what}: the frame on either side is {line(before).Length()} and "
                            f"{line(after).Length()} m long")


def graticule(out):
    """The box's edges and the positions of the graticule lines of "Hypsl.shp" (latlong set), as GDAL
    reads them: longitudes of the meridians, latitudes of the parallels."""
    xmin, xmax, ymin, ymax = box(out)
    ds, fs = features(os.path.join(out, "latlong/HYPS/Hypsl.shp"))
    xs = [xmin, xmax] + [points(f)[0][0] for f in fs if f.GetField("L_CODE") == 400012]
    ys = [ymin, ymax] + [points(f)[0][1] for f in fs if f.GetField("L_CODE") == 400011]
    return xs, ys


def check_framedig(out, problems):
    """A base line beside the sheet marks the parallel (or edge) nearest its middle, and carries its
    degrees when it stands above it, its minutes below; one above or below the sheet marks the meridian
    (or edge) nearest its middle, with its degrees and minutes. The positions come back from the
    reprojection with a rounding error of some 1e-12 degree, taken off at 1e-7 before the text is made."""
    path = os.path.join(out, "latlong/FRAME/FrameDig.shp")
    xmin, xmax, ymin, ymax = box(out)
    xs, ys = graticule(out)
    ds, fs = features(path)
    if not fs:
        problems.append(f"{path}: no labels")
    for f in fs:
        pts = points(f)
        mx = (pts[0][0] + pts[-1][0]) / 2
        my = (pts[0][1] + pts[-1][1]) / 2
        if max(p[0] for p in pts) < xmin or min(p[0] for p in pts) > xmax:
            marked = round(min(ys, key=lambda y: abs(y - my)), 7)
            expected = degree_text(marked, "grd" if my > marked else "min")
        else:
            marked = round(min(xs, key=lambda x: abs(x - mx)), 7)
            expected = degree_text(marked, "grd_min")
        if f.GetField("TEXT") != expected or f.GetField("L_CODE") != 400912 or f.GetField("SIZE") != "8.00":
            problems.append(f"{path}: record {f.GetField('ID')} at ({mx}, {my}) reads {f.GetField('TEXT')!r}, "
                            f"expected {expected!r} for {marked}")


def check_marks(sheet, out, problems):
    path = os.path.join(out, "latlong/FRAME/Frame.shp")
    xmin, xmax, ymin, ymax = box(out)
    ds, fs = features(path)
    frames = 6 if sheet.roman else 5
    marks = [points(f) for f in fs[frames:]]
    n_x, m_x, n_y, m_y = (3 * sheet.joined, 20, 2, 20) if sheet.roman else (6 * sheet.joined, 6, 4, 6)
    # A mark's ends are offsets along lattice chords; beside the sheet the chord to the next column out
    # spans a degree, and its slope against the parallel moves a point 1.4 km out by some 10 m: kinds are
    # told apart at 1e-4 degree, positions checked to 2e-4 (a minute is 0.0167).
    tol, near = 1e-9, 2e-4
    for side, along, lo, hi, q, main in (("bottom", 0, xmin, xmax, n_x * m_x, n_x),
                                         ("top", 0, xmin, xmax, n_x * m_x, n_x),
                                         ("left", 1, ymin, ymax, n_y * m_y, n_y),
                                         ("right", 1, ymin, ymax, n_y * m_y, n_y)):
        across = 1 - along

        def outside(p):
            v = p[across]
            return {"bottom": v < ymin - tol, "top": v > ymax + tol, "left": v < xmin - tol,
                    "right": v > xmax + tol}[side]

        mine = [m for m in marks if all(outside(p) or abs(p[across] - (ymin if side == "bottom" else ymax if side
                                                                        == "top" else xmin if side == "left"
                                                                        else xmax)) < near for p in m)
                and any(outside(p) for p in m) and all(lo - near <= p[along] <= hi + near for p in m)]
        ticks = [m for m in mine if abs(m[0][along] - m[1][along]) < 1e-4]
        bars = sorted(sorted(p[along] for p in m) for m in mine if abs(m[0][across] - m[1][across]) < 1e-4)
        band = [t for t in ticks if all(outside(p) for p in t)] if sheet.roman else ticks
        edge_ticks = [t for t in ticks if t not in band]
        want = [lo + k * (hi - lo) / q for k in range(q + 1)]
        got = sorted(t[0][along] for t in band)
        what = f"{path} {side}"
        if len(got) != len(want) or any(abs(a - b) > near for a, b in zip(got, want)):
            problems.append(f"{what}: {len(got)} ticks, expected {len(want)} at every mark")
        expected_bars = [[want[2 * k], want[2 * k + 1]] for k in range(len(want) // 2)]
        if len(bars) != len(expected_bars) or any(abs(a - c) > near or abs(b - d) > near
                                                  for (a, b), (c, d) in zip(bars, expected_bars)):
            problems.append(f"{what}: {len(bars)} bars, expected {len(expected_bars)} over every second interval")
        if len(edge_ticks) != (main + 1 if sheet.roman else 0):
            problems.append(f"{what}: {len(edge_ticks)} ticks from the edge")
        if len(mine) != len(ticks) + len(bars):
            problems.append(f"{what}: {len(mine) - len(ticks) - len(bars)} marks of no kind")
    if len(marks) != sum(1 for _ in marks):
        problems.append(f"{path}: marks lost")


ADJ_SHEETS = [Sheet("N", 37, roman=6), Sheet("N", 37, roman=1), Sheet("A", 37, roman=34),
              Sheet("A", 37, roman=4, south=True)]
SHEETS = [Sheet("N", 37), Sheet("N", 37, roman=6), Sheet("A", 37, south=True), Sheet("M", 40, roman=8, south=True),
          Sheet("N", 37, joined=2), Sheet("Q", 37), Sheet("N", 60, roman=36), Sheet("N", 1)]


def main():
    tool = sys.argv[1]
    root = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "gdal_marks_check")
    problems = []
    for sheet in ADJ_SHEETS:
        out = os.path.join(root, "adj_" + sheet.name() + ("_south" if sheet.south else ""))
        if not generate(tool, sheet, sheet.zone(), out):
            problems.append(f"{sheet.name()}: the generator answered false")
            continue
        check_frameadj(sheet, out, problems)
        print(f"{sheet.name()}: neighbours checked")
    for sheet in SHEETS:
        out = os.path.join(root, sheet.name().replace(",", "_") + ("_south" if sheet.south else ""))
        if not generate(tool, sheet, sheet.zone(), out):
            problems.append(f"{sheet.name()}: the generator answered false")
            continue
        check_framedig(out, problems)
        check_marks(sheet, out, problems)
        print(f"{sheet.name()}: labels and marks checked")
    # the checks must see a sheet's labels and marks taken for another's
    wrong = []
    check_frameadj(Sheet("N", 37, roman=7), os.path.join(root, "adj_N-37-VI"), wrong)
    check_marks(Sheet("N", 37, joined=2), os.path.join(root, "N-37"), wrong)
    if not wrong:
        problems.append("self-test: the checks missed another sheet's neighbours and marks")
    for p in problems:
        print("FAIL:", p)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""The dashes of the coordinate labels, measured with GDAL and GEOS on the lines that dash_tool writes,
against the sheet's lattice worked out here with osr from the sheet's box and divisions:
  - a parallel's dash starts its offset out from the frame along the parallel's chord to the next
    lattice column outside (dx_left_paral_dash on the left, dx_right_paral_dash on the right), shifted
    north or south of that chord (paral_dash_shift_btm for the degrees on the left and the minutes on
    the right, paral_dash_shift_top for the others), runs parallel to it and eastwards, over
    dx_upper_paral_dash (degrees, above) or dx_lower_paral_dash (minutes, below) in x;
  - a meridian's dash crosses the meridian's chord to the next lattice row outside at right angles,
    merid_dash_dy beyond the frame (merid_corner_dash_dy at a corner), reaching merid_dash_left_length
    to one side and merid_dash_right_length to the other as the rules place them;
  - each at every edge and corner of the sheet, to 1 mm in metres or 1e-9 in degrees, with its label
    text (degrees, minutes, or both for a meridian) worked out here, and L_CODE, FONT and SIZE.
Usage: gdal_dashes_check.py DASH_TOOL
"""
import math
import os
import shutil
import subprocess
import sys

from osgeo import gdal, ogr, osr

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from gdal_generate_check import LETTERS, PULKOVO, Sheet  # noqa: E402

ogr.UseExceptions()
osr.UseExceptions()
gdal.SetConfigOption("SHAPE_ENCODING", "CP1251")

# (metres, degrees) of each size at 1:1,000,000 and at 1:200,000.
SIZES = {
    False: dict(left=(5813.66666893264, 0.05222417099919488), right=(1938.55166595654, 0.017414010719722855),
                upper=(3811.4325415325607, 0.034238100692043416), lower=(3165.81458664031, 0.02843851423542367),
                top=(1532.04778900269, 0.013762386161452275), btm=(1460.24049136588, 0.013117341165870624),
                west=(4392.0, 0.039453338502218396), east=(3596.0, 0.032302870048719796),
                dy=(3060.47242196827, 0.027492225510159), corner=(4307.08669329961, 0.03869056221975182)),
    True: dict(left=(835.856190859022, 0.007508496638692136), right=(199.223339116669, 0.0017896233687869282),
               upper=(634.802865146441, 0.005702434499271547), lower=(555.6824714888, 0.00499169595796834),
               top=(245.47946094320903, 0.002205142137507861), btm=(264.170779077596, 0.0023730462589579117),
               west=(622.855526614744, 0.0055951115504346526), east=(690.232320737283, 0.006200357330423453),
               dy=(363.510577815946, 0.0032654157276205643), corner=(732.543829110224, 0.0065804416342433725)),
}


def sizes(sheet, degrees):
    return {k: v[1 if degrees else 0] for k, v in SIZES[bool(sheet.roman)].items()}


def divisions(sheet):
    return (3 * sheet.joined, 20, 2, 20) if sheet.roman else (6 * sheet.joined, 6, 4, 6)


def inner(a, b, n):
    return [a + k * (b - a) / n for k in range(1, n)]


def run_tool(tool, sheet, scene, out):
    shutil.rmtree(out, ignore_errors=True)
    os.makedirs(out)
    args = [tool, str(LETTERS.index(sheet.letter) + 1), str(sheet.number), str(sheet.roman), str(sheet.joined),
            "1" if sheet.south else "0", scene, out + "/", *map(str, divisions(sheet))]
    return subprocess.run(args, capture_output=True).returncode == 0


def degree_text(value):
    """Degrees and minutes of a position that is a whole number of minutes, as magnitudes."""
    degrees, minutes = divmod(round(abs(value) * 60), 60)
    return f"{degrees:02d}\u00b0", f"{minutes:02d}'"


def point(p):
    g = ogr.Geometry(ogr.wkbPoint)
    g.AddPoint_2D(*p)
    return g


def segment(a, b):
    g = ogr.Geometry(ogr.wkbLineString)
    g.AddPoint_2D(*a)
    g.AddPoint_2D(*b)
    return g


def north_of(v, w, p):
    return p[1] > v[1] + (p[0] - v[0]) * (w[1] - v[1]) / (w[0] - v[0])


class Scene:
    """The lattice's points as the scene has them, from osr."""

    def __init__(self, scene):
        source, target = osr.SpatialReference(), osr.SpatialReference()
        source.ImportFromProj4(PULKOVO)
        target.ImportFromProj4(scene)
        for s in (source, target):
            s.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
        self.transform = osr.CoordinateTransformation(source, target)

    def __call__(self, lon, lat):
        return self.transform.TransformPoint(lon, lat)[:2]


def expected_dashes(sheet, z):
    """(kind, label, where) of each record in order. A parallel: ('p', text, (lon of its edge, step outward,
    lat, offset, shift, north, extent)); a meridian: ('m', text, (lon, lat of its edge, step outward,
    offset, first length, second length, first end west))."""
    west, east, south, north = sheet.box()
    n_lon, _, n_lat, _ = divisions(sheet)
    out = []

    def left(lat):
        grd, mnt = degree_text(lat)
        out.append(("p", grd, (west, -1, lat, z["left"], z["btm"], True, z["upper"])))
        out.append(("p", mnt, (west, -1, lat, z["left"], z["top"], False, z["lower"])))

    def right(lat):
        grd, mnt = degree_text(lat)
        out.append(("p", mnt, (east, 1, lat, z["right"], z["btm"], False, z["lower"])))
        out.append(("p", grd, (east, 1, lat, z["right"], z["top"], True, z["upper"])))

    for lat in inner(south, north, n_lat):
        left(lat)
        right(lat)
    left(south), left(north), right(south), right(north)

    def meridian(lon, lat, step, offset, first, second, west_first):
        out.append(("m", " ".join(degree_text(lon)), (lon, lat, step, offset, first, second, west_first)))

    meridian(east, north, 1, z["corner"], z["west"], z["east"], True)
    meridian(west, north, 1, z["corner"], z["west"], z["east"], True)
    meridian(west, south, -1, z["corner"], z["west"], z["east"], False)
    meridian(east, south, -1, z["corner"], z["west"], z["east"], False)
    for lon in inner(west, east, n_lon):
        meridian(lon, south, -1, z["dy"], z["east"], z["west"], False)
        meridian(lon, north, 1, z["dy"], z["west"], z["east"], True)
    return out


def measure_parallel(scene, dash, where, tolerance):
    edge_lon, step, lat, offset, shift, north, extent = where
    v, w = scene(edge_lon, lat), scene(edge_lon + step, lat)
    chord = segment(v, w)
    s, e = dash[0], dash[1]
    off = point(s).Distance(chord)
    along = math.sqrt(max(point(s).Distance(point(v)) ** 2 - off ** 2, 0.0))
    got = (along, off, point(e).Distance(chord), e[0] - s[0])
    bad = max(abs(a - b) for a, b in zip(got, (offset, shift, shift, extent)))
    if bad > tolerance or north_of(v, w, s) != north:
        return f"offset, shift, shift at the end, extent {got}, expected {(offset, shift, shift, extent)}" + (
            "" if north_of(v, w, s) == north else f", on the wrong side of the parallel")
    return None


def measure_meridian(scene, dash, where, tolerance):
    lon, edge_lat, step, offset, first, second, west_first = where
    v, w = scene(lon, edge_lat), scene(lon, edge_lat + step)
    chord = segment(v, w)
    line = segment(dash[0], dash[1])
    got = (point(v).Distance(line), point(dash[0]).Distance(chord), point(dash[1]).Distance(chord), line.Length())
    want = (offset, first, second, first + second)
    bad = max(abs(a - b) for a, b in zip(got, want))
    if bad > tolerance or (dash[0][0] < dash[1][0]) != west_first:
        return f"offset, first, second, length {got}, expected {want}, first end west {west_first}"
    return None


def check(sheet, scene_text, out, degrees, problems, scale=1.0):
    path = os.path.join(out, "Dashes.shp")
    ds = ogr.Open(path)
    features = list(ds.GetLayer())
    z = {k: v * scale for k, v in sizes(sheet, degrees).items()}
    expected = expected_dashes(sheet, z)
    if len(features) != len(expected):
        problems.append(f"{path}: {len(features)} dashes, expected {len(expected)}")
        return
    scene = Scene(scene_text)
    tolerance = 1e-9 if degrees else 1e-3
    for k, (f, (kind, text, where)) in enumerate(zip(features, expected)):
        dash = [p[:2] for p in f.GetGeometryRef().GetPoints()]
        fields = (f.GetField("ID"), f.GetField("L_CODE"), f.GetField("TEXT"), f.GetField("FONT"), f.GetField("SIZE"))
        if fields != (k + 1, 400912, text, "Times New Roman", "8.00"):
            problems.append(f"{path} record {k + 1}: {fields}, expected the text {text!r}")
        if len(dash) != 2:
            problems.append(f"{path} record {k + 1}: {len(dash)} vertices")
            continue
        wrong = (measure_parallel if kind == "p" else measure_meridian)(scene, dash, where, tolerance)
        if wrong:
            problems.append(f"{path} record {k + 1} ({text}): {wrong}")


SHEETS = [Sheet("N", 37), Sheet("N", 37, roman=6), Sheet("M", 40, roman=8, south=True), Sheet("A", 37, south=True)]


def main():
    tool = sys.argv[1]
    root = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "gdal_dashes_check")
    problems = []
    for sheet in SHEETS:
        for scene in (sheet.zone(), PULKOVO):
            out = os.path.join(root, sheet.name() + ("_latlong" if scene == PULKOVO else ""))
            if not run_tool(tool, sheet, scene, out):
                problems.append(f"{sheet.name()} in {scene}: the dashes were not written")
                continue
            check(sheet, scene, out, scene == PULKOVO, problems)
        print(f"{sheet.name()}: dashes checked")
    wrong = []
    check(Sheet("N", 37), Sheet("N", 37).zone(), os.path.join(root, "N-37"), False, wrong, scale=1.000001)
    if not wrong:
        problems.append("self-test: sizes a millionth too large went unnoticed")
    for p in problems:
        print("FAIL:", p)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())

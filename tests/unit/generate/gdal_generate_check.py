#!/usr/bin/env python3
"""Generated sheets read by GDAL. The sheets are made by generate_tool, a C host of the public header.

For each sheet, generated in its Gauss-Kruger zone on Pulkovo 1942 and again with a geographic scene:
  - the latlong "Hypsa.shp" has one record, the sheet's geographic box to 1e-7 degree (the corners
    worked out here from the designation's rules), and the table ID 1, L_CODE -1, NAME the designation;
  - the set holds "Hypsa.shp", "Hypsl.shp", "Hypsp.shp", "Frame.shp" and "FrameDig.shp" in both
    folders, and "FrameAdj.shp" in the scene set of a 1:200,000 sheet, and ogrinfo opens every
    shape file of both sets without an error or a warning;
  - every scene file that has a latlong copy (the area alone when the scene is already geographic),
    reprojected by ogr2ogr to the geographic system, agrees with that copy vertex by vertex to 1e-7
    degree;
  - the .prj of every scene file is the same system as GDAL's own ESRI rendering of the scene PROJ
    string (osr IsSame), and that of every latlong file is Pulkovo 1942 (EPSG 4284).
Longitudes are compared modulo 360: every reprojection of the library wraps longitudes around the
meridian 45 (to -135 up to 225), so the sheets of column 1 come back at 180 to 186 degrees east, which
is the same place.
Needs GDAL's Python bindings (python3-gdal) and gdal-bin. Usage: gdal_generate_check.py GENERATE_TOOL
"""
import os
import shutil
import subprocess
import sys

from osgeo import ogr, osr

ogr.UseExceptions()
osr.UseExceptions()

PULKOVO = "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
LETTERS = "ABCDEFGHIJKLMNOPQRSTUV"
ROMANS = ["I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X", "XI", "XII", "XIII", "XIV", "XV", "XVI",
          "XVII", "XVIII", "XIX", "XX", "XXI", "XXII", "XXIII", "XXIV", "XXV", "XXVI", "XXVII", "XXVIII", "XXIX",
          "XXX", "XXXI", "XXXII", "XXXIII", "XXXIV", "XXXV", "XXXVI"]
TOLERANCE = 1e-7


def lon_apart(a, b):
    return abs((a - b + 180) % 360 - 180)


def apart(p, q):
    """Distance in degrees of two points, the longitudes modulo 360."""
    return max(lon_apart(p[0], q[0]), abs(p[1] - q[1]))


class Sheet:
    """A designation and where its rules put the sheet."""

    def __init__(self, letter, number, roman=0, joined=1, south=False):
        self.letter, self.number, self.roman, self.joined, self.south = letter, number, roman, joined, south

    def name(self):
        numbers = ",".join(str((self.number - 1 + i) % 60 + 1) for i in range(self.joined))
        text = f"{self.letter}-{numbers}"
        return f"{text}-{ROMANS[self.roman - 1]}" if self.roman else text

    def box(self):
        """Million sheets are 6 by 4 degrees, columns from 180 W, bands from the equator in each
        hemisphere; a 1:200,000 sheet is one of 6 by 6 of a million sheet, 1 degree by 40 minutes, its
        rows counted from the million sheet's north edge in the north and from its south edge in the
        south."""
        band = LETTERS.index(self.letter) + 1
        west = (self.number - 1) * 6 - 180
        south, north = (-4 * band, -4 * band + 4) if self.south else (4 * band - 4, 4 * band)
        if not self.roman:
            return west, west + 6 * self.joined, south, north
        row, column = divmod(self.roman - 1, 6)
        west += column
        if self.south:
            south += row * 2 / 3
            north = south + 2 / 3
        else:
            north -= row * 2 / 3
            south = north - 2 / 3
        return west, west + self.joined, south, north

    def zone(self):
        """The Gauss-Kruger zone of the sheet's middle meridian, on Pulkovo 1942."""
        west, east, _, _ = self.box()
        middle = ((west + east) / 2 + 180) % 360 - 180
        zone = int((middle + 180) // 6) + 1 - 30
        zone = zone if zone > 0 else zone + 60
        meridian = zone * 6 - 3 if zone <= 30 else zone * 6 - 3 - 360
        return (f"+proj=tmerc +lat_0=0 +lon_0={meridian} +k=1 +x_0={zone * 1000000 + 500000} +y_0=0 +ellps=krass "
                "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs")


SHEETS = [
    Sheet("N", 37),
    Sheet("N", 37, roman=6),
    Sheet("A", 37, south=True),
    Sheet("M", 40, roman=8, south=True),
    Sheet("N", 37, joined=2),
    Sheet("N", 37, joined=4),
    Sheet("N", 1),
    Sheet("N", 60),
    Sheet("N", 60, roman=36),
    Sheet("Q", 37),
    Sheet("Q", 37, roman=14),
]


def generate(tool, sheet, scene, out):
    shutil.rmtree(out, ignore_errors=True)
    for folder in ("HYPS", "FRAME", "latlong/HYPS", "latlong/FRAME"):
        os.makedirs(os.path.join(out, folder))
    divisions = (3 * sheet.joined, 20, 2, 20) if sheet.roman else (6 * sheet.joined, 6, 4, 6)
    args = [tool, str(LETTERS.index(sheet.letter) + 1), str(sheet.number), str(sheet.roman), str(sheet.joined),
            "1" if sheet.south else "0", scene, out + "/", *map(str, divisions)]
    run = subprocess.run(args, capture_output=True, text=True)
    return run.returncode == 0


def ring(path):
    ds = ogr.Open(path)
    layer = ds.GetLayer()
    features = list(layer)
    geometry = features[0].GetGeometryRef()
    return ds, layer, features, geometry.GetGeometryRef(0).GetPoints()


def check_ogrinfo(path, problems):
    run = subprocess.run(["ogrinfo", "-ro", "-al", path], capture_output=True, text=True, errors="replace")
    text = run.stdout + run.stderr
    if run.returncode != 0 or "Warning" in text or "ERROR" in text:
        problems.append(f"ogrinfo {path}: exit {run.returncode}\n{run.stderr}")


def expected_set(sheet):
    """The shape files of a standard sheet's run, scene set and latlong set."""
    scene = ["HYPS/Hypsa.shp", "HYPS/Hypsl.shp", "HYPS/Hypsp.shp", "FRAME/Frame.shp", "FRAME/FrameDig.shp"]
    adjacent = ["FRAME/FrameAdj.shp"] if sheet.roman else []  # scene set only
    return scene + adjacent + ["latlong/" + p for p in scene]


def shape_files(out):
    """The shape files of both sets, as paths under out."""
    found = []
    for folder in ("HYPS", "FRAME", "latlong/HYPS", "latlong/FRAME"):
        found += sorted(os.path.join(folder, n) for n in os.listdir(os.path.join(out, folder)) if n.endswith(".shp"))
    return found


def check_files(sheet, out, problems):
    expected = sorted(expected_set(sheet))
    if sorted(shape_files(out)) != expected:
        problems.append(f"{out}: shape files {shape_files(out)}, expected {expected}")


def check_latlong(sheet, out, problems):
    path = os.path.join(out, "latlong/HYPS/Hypsa.shp")
    ds, layer, features, _ = ring(path)
    if len(features) != 1:
        problems.append(f"{path}: {len(features)} records")
        return
    got = layer.GetExtent()
    want = sheet.box()
    if max(lon_apart(got[0], want[0]), lon_apart(got[1], want[1]), abs(got[2] - want[2]),
           abs(got[3] - want[3])) > TOLERANCE:
        problems.append(f"{path}: box {got}, expected {want}")
    definition = layer.GetLayerDefn()
    fields = [(definition.GetFieldDefn(k).GetName(), definition.GetFieldDefn(k).GetWidth())
              for k in range(definition.GetFieldCount())]
    if fields != [("ID", 6), ("L_CODE", 9), ("NAME", 100)]:
        problems.append(f"{path}: columns {fields}")
    f = features[0]
    values = (f.GetField("ID"), f.GetField("L_CODE"), f.GetField("NAME"))
    if values != (1, -1, sheet.name()):
        problems.append(f"{path}: values {values}, expected (1, -1, {sheet.name()!r})")


def check_latlong_prj(out, problems):
    pulkovo = osr.SpatialReference()
    pulkovo.ImportFromEPSG(4284)
    for rel in shape_files(out):
        if not rel.startswith("latlong/"):
            continue
        path = os.path.join(out, rel)
        ds = ogr.Open(path)
        got = ds.GetLayer().GetSpatialRef()
        if got is None or not got.IsSame(pulkovo, ["IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES"]):
            problems.append(f"{path}: the .prj is not Pulkovo 1942")


def vertices(path):
    """Every vertex of every feature, in order."""
    ds = ogr.Open(path)
    out = []
    for feature in ds.GetLayer():
        geometry = feature.GetGeometryRef()
        parts = [geometry.GetGeometryRef(k) for k in range(geometry.GetGeometryCount())] or [geometry]
        for part in parts:
            out += part.GetPoints() or []
    return out


def check_back_projection(scene, out, problems, every_file=True):
    """ogr2ogr takes every scene file that has a latlong copy (or the area alone) back to the geographic
    system; it must meet the copy vertex by vertex."""
    for rel in shape_files(out) if every_file else ["HYPS/Hypsa.shp"]:
        mine = os.path.join(out, "latlong", rel)
        if rel.startswith("latlong/") or not os.path.exists(mine):
            continue
        theirs = os.path.join(out, "ogr2ogr_" + os.path.basename(rel))
        subprocess.run(["ogr2ogr", "-overwrite", "-s_srs", scene, "-t_srs", PULKOVO, theirs, os.path.join(out, rel)],
                       check=True, capture_output=True)
        a, b = vertices(mine), vertices(theirs)
        if len(a) != len(b):
            problems.append(f"{mine}: {len(a)} vertices, ogr2ogr gives {len(b)}")
            continue
        worst = max((apart(p, q) for p, q in zip(a, b)), default=0.0)
        if worst > TOLERANCE:
            problems.append(f"{mine}: differs from ogr2ogr by {worst} degrees")


def check_scene_prj(scene, out, problems):
    expected = osr.SpatialReference()
    expected.ImportFromProj4(scene)
    esri = osr.SpatialReference()
    esri.SetFromUserInput(expected.ExportToWkt(["FORMAT=WKT1_ESRI"]))
    for rel in shape_files(out):
        if rel.startswith("latlong/"):
            continue
        path = os.path.join(out, rel)
        ds = ogr.Open(path)  # the layer lives as long as its data source
        got = ds.GetLayer().GetSpatialRef()
        if got is None or not got.IsSame(esri):
            problems.append(f"{path}: the .prj is not the scene's system {scene}")


def self_test(root):
    """The checks must see a wrong sheet, a wrong scene and a spoilt vertex."""
    out = os.path.join(root, "N-37")
    failures = []
    for label, check in [
        ("wrong sheet", lambda found: check_latlong(Sheet("N", 38), out, found)),
        ("wrong scene", lambda found: check_scene_prj(Sheet("N", 44).zone(), out, found)),
        ("wrong back projection", lambda found: check_back_projection(Sheet("N", 44).zone(), out, found)),
    ]:
        found = []
        check(found)
        if not found:
            failures.append(f"self-test: the {label} went unnoticed")
    return failures


def main():
    tool = sys.argv[1]
    root = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "gdal_generate_check")
    problems = []
    for sheet in SHEETS:
        for scene in (sheet.zone(), PULKOVO):
            out = os.path.join(root, sheet.name().replace(",", "_") + ("_latlong" if scene == PULKOVO else ""))
            if not generate(tool, sheet, scene, out):
                problems.append(f"{sheet.name()} in {scene}: the generator answered false")
                continue
            check_files(sheet, out, problems)
            for path in shape_files(out):
                check_ogrinfo(os.path.join(out, path), problems)
            check_latlong(sheet, out, problems)
            check_latlong_prj(out, problems)
            check_back_projection(scene, out, problems, every_file=scene != PULKOVO)  # the area in degrees
            check_scene_prj(scene, out, problems)
        print(f"{sheet.name()}: checked")
    problems += self_test(root)
    for p in problems:
        print("FAIL:", p)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())

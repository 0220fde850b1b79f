#!/usr/bin/env python3
"""`vxk reproject` with coordinate systems in every form a GIS user has them: EPSG codes, OGC and ESRI
WKT, PROJJSON, a .prj file, and none at all (the source's .prj or .pj4). Results are checked against
cs2cs to 1 mm, read back with GDAL; warnings, --verbose, measures, counts and the progress bar are
checked through the program as a user runs it.

    vxk_reproject_systems_check.py   (VXK_BIN_DIR, VXK_TEST_TMP and VXK_SOURCE_DIR from CTest)
"""
import math
import os
import pty
import re
import shutil
import struct
import subprocess
import sys
import unittest

from osgeo import ogr, osr

ogr.UseExceptions()
osr.UseExceptions()

VXK = os.path.join(os.environ.get("VXK_BIN_DIR", "."), "vxk")
TMP = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "vxk_reproject_systems")
SAMPLES = os.path.join(os.environ.get("VXK_SOURCE_DIR", "."), "data", "samples")

PULKOVO = "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
GK7 = ("+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
       "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs")
ORTHO = ("+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 "
         "+units=m +no_defs")

# Points in lon/lat near Moscow, in France and in the middle of the United States.
MOSCOW = [(37.6173, 55.7558), (36.2, 54.9), (40.1, 56.3), (38.5, 55.1)]
FRANCE = [(2.35, 48.85), (-1.55, 47.2), (5.37, 43.3)]
KANSAS = [(-100.0, 40.0), (-99.5, 39.2)]


def vxk(*args, stderr=subprocess.PIPE):
    return subprocess.run([VXK, "reproject", *args], stdout=subprocess.PIPE, stderr=stderr, text=True,
                          errors="replace")


def write_shape(path, points, geom=ogr.wkbPoint, wkt=None, srs=None):
    """A shape file written by GDAL: one record per point, or the given WKT geometries."""
    drv = ogr.GetDriverByName("ESRI Shapefile")
    if os.path.exists(path):
        drv.DeleteDataSource(path)
    ds = drv.CreateDataSource(path)
    layer = ds.CreateLayer(os.path.basename(path)[:-4], srs=srs, geom_type=geom)
    layer.CreateField(ogr.FieldDefn("ID", ogr.OFTInteger))
    for i, g in enumerate(wkt if wkt is not None else [f"POINT ({x} {y})" for x, y in points]):
        f = ogr.Feature(layer.GetLayerDefn())
        f.SetField("ID", i)
        f.SetGeometry(ogr.CreateGeometryFromWkt(g))
        layer.CreateFeature(f)
    ds = None


def read_points(path):
    ds = ogr.Open(path)
    layer = ds.GetLayer()
    out = []
    for f in layer:
        g = f.GetGeometryRef()
        out.append(None if g is None else (g.GetX(), g.GetY()))
    return out


def cs2cs(src, dst, points, lat_first=False, north_first=False):
    """cs2cs's image of lon/lat points: systems as cs2cs takes them, axes in their authority order when
    lat_first (input) or north_first (output) is set; gives (x, y) pairs east then north."""
    feed = "".join(f"{y!r} {x!r}\n" if lat_first else f"{x!r} {y!r}\n" for x, y in points)
    run = subprocess.run(["cs2cs", "-f", "%.6f", *src.split(), "+to", *dst.split()] if src.startswith("+")
                         else ["cs2cs", "-f", "%.6f", src, dst],
                         input=feed, capture_output=True, text=True, check=True)
    out = []
    for line in run.stdout.splitlines():
        a, b = (float(v) for v in line.split()[:2])
        out.append((b, a) if north_first else (a, b))
    return out


class Base(unittest.TestCase):
    def setUp(self):
        self.tmp = os.path.join(TMP, self._testMethodName)
        shutil.rmtree(self.tmp, ignore_errors=True)
        os.makedirs(self.tmp)

    def path(self, name):
        return os.path.join(self.tmp, name)

    def assert_close(self, ours, theirs, tolerance=0.001):
        self.assertEqual(len(ours), len(theirs))
        for a, b in zip(ours, theirs):
            self.assertLess(math.hypot(a[0] - b[0], a[1] - b[1]), tolerance, (a, b))


class EpsgAndWkt(Base):
    """Systems given by code, WKT or PROJJSON agree with cs2cs given the same systems, to 1 mm."""

    def run_case(self, points, src_arg, dst_arg, cs_src, cs_dst, lat_first=False, north_first=False):
        src = self.path("src.shp")
        write_shape(src, points)
        dst = self.path("dst.shp")
        run = vxk(src, dst, "--from", src_arg, "--to", dst_arg)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stderr, "")
        self.assert_close(read_points(dst), cs2cs(cs_src, cs_dst, points, lat_first, north_first))
        return dst

    def test_wgs84_to_utm_by_codes(self):
        self.run_case(MOSCOW, "EPSG:4326", "EPSG:32637", "EPSG:4326", "EPSG:32637", lat_first=True)

    def test_pulkovo_to_gauss_kruger_by_codes(self):
        # One datum on both sides: PROJ applies no shift, and neither may the library.
        self.run_case(MOSCOW, "EPSG:4284", "EPSG:28407", "EPSG:4284", "EPSG:28407", lat_first=True,
                      north_first=True)

    def test_wgs84_to_lambert_93_and_web_mercator(self):
        self.run_case(FRANCE, "EPSG:4326", "EPSG:2154", "EPSG:4326", "EPSG:2154", lat_first=True)
        self.run_case(FRANCE, "EPSG:4326", "EPSG:3857", "EPSG:4326", "EPSG:3857", lat_first=True)

    def test_ogc_and_esri_wkt_and_projjson(self):
        for fmt in ("WKT1_GDAL", "WKT1_ESRI", "WKT2_2019", "PROJJSON"):
            text = subprocess.run(["projinfo", "-q", "-o", fmt, "EPSG:32637"], capture_output=True, text=True,
                                  check=True).stdout.strip()
            with self.subTest(fmt):
                self.run_case(MOSCOW, "EPSG:4326", text, "EPSG:4326", "EPSG:32637", lat_first=True)

    def test_urn_and_init_forms(self):
        self.run_case(MOSCOW, "urn:ogc:def:crs:EPSG::4326", "+init=epsg:32637", "EPSG:4326", "EPSG:32637",
                      lat_first=True)

    def test_a_prj_file_given_by_name(self):
        prj = self.path("utm37.prj")
        with open(prj, "w") as f:
            f.write(osr_wkt(32637, esri=True))
        self.run_case(MOSCOW, "EPSG:4326", prj, "EPSG:4326", "EPSG:32637", lat_first=True)

    def test_mixed_with_a_proj_string(self):
        self.run_case(MOSCOW, "+proj=longlat +datum=WGS84 +no_defs", "EPSG:32637",
                      "+proj=longlat +datum=WGS84 +type=crs", "EPSG:32637")

    def test_names_of_systems_in_proj_database(self):
        self.run_case(MOSCOW, "WGS 84", "WGS 84 / UTM zone 37N", "EPSG:4326", "EPSG:32637", lat_first=True)

    def test_a_missing_file_and_an_unknown_name_are_clear_errors(self):
        run = vxk(self.make_src(), self.path("dst.shp"), "--from", "EPSG:4326", "--to", "gk7/system.prj")
        self.assertEqual(run.returncode, 1)
        self.assertIn("there is no file 'gk7/system.prj' for --to", run.stderr)
        run = vxk(self.make_src(), self.path("dst.shp"), "--from", "EPSG:4326", "--to", "Nowhere 1900")
        self.assertEqual(run.returncode, 1)
        self.assertIn("PROJ cannot read --to \"Nowhere 1900\"", run.stderr)
        self.assertFalse(os.path.exists(self.path("dst.shp")))

    def test_unknown_code_is_a_clear_error(self):
        run = vxk(self.make_src(), self.path("dst.shp"), "--from", "EPSG:4326", "--to", "EPSG:999999")
        self.assertEqual(run.returncode, 1)
        self.assertIn("PROJ cannot read --to \"EPSG:999999\": crs not found", run.stderr)
        self.assertFalse(os.path.exists(self.path("dst.shp")))

    def test_broken_wkt_is_a_clear_error(self):
        run = vxk(self.make_src(), self.path("dst.shp"), "--from", "EPSG:4326", "--to", 'PROJCS["x",GEOGCS[')
        self.assertEqual(run.returncode, 1)
        self.assertIn("PROJ cannot read --to", run.stderr)

    def test_geocentric_system_is_refused(self):
        run = vxk(self.make_src(), self.path("dst.shp"), "--from", "EPSG:4326", "--to", "EPSG:4978")
        self.assertEqual(run.returncode, 1)
        self.assertIn("is not a geographic or projected system", run.stderr)

    def test_compound_system_drops_its_vertical_part_with_a_warning(self):
        dst = self.path("dst.shp")
        run = vxk(self.make_src(), dst, "--from", "EPSG:4326", "--to", "EPSG:32637+5773")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("warning: --to: the vertical system \"EGM96 height\" is dropped", run.stderr)
        self.assert_close(read_points(dst), cs2cs("EPSG:4326", "EPSG:32637", MOSCOW, lat_first=True))

    def make_src(self):
        src = self.path("src.shp")
        write_shape(src, MOSCOW)
        return src


def osr_wkt(code, esri=False):
    srs = osr.SpatialReference()
    srs.ImportFromEPSG(code)
    if esri:
        srs.MorphToESRI()
    return srs.ExportToWkt()


class SourceSystemFromFiles(Base):
    def test_the_prj_of_the_source_is_read_when_from_is_missing(self):
        src = self.path("towns.shp")
        for ext in (".shp", ".shx", ".dbf", ".cpg", ".prj"):
            shutil.copy(os.path.join(SAMPLES, "towns" + ext), src[:-4] + ext)
        by_prj, by_code = self.path("a.shp"), self.path("b.shp")
        run = vxk(src, by_prj, "--to", "EPSG:28407", "--verbose")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("towns.prj' is taken as \"+proj=longlat +ellps=krass +towgs84=", run.stderr)
        self.assertEqual(vxk(src, by_code, "--from", "EPSG:4284", "--to", "EPSG:28407").returncode, 0)
        self.assertEqual(read_points(by_prj), read_points(by_code))
        # The samples are Pulkovo 1942 in geographic coordinates: on one datum, cs2cs applies no shift.
        lonlat = read_points(src)
        self.assert_close(read_points(by_prj), cs2cs("EPSG:4284", "EPSG:28407", lonlat, True, True))

    def test_a_pj4_beside_the_source_comes_first(self):
        src = self.path("p.shp")
        write_shape(src, MOSCOW, srs=None)
        with open(src[:-4] + ".prj", "w") as f:
            f.write(osr_wkt(4326))
        with open(src[:-4] + ".pj4", "w") as f:
            f.write(PULKOVO + "\n")
        dst = self.path("gk.shp")
        run = vxk(src, dst, "--to", GK7, "-v")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("p.pj4' is taken as \"" + PULKOVO + "\"", run.stderr)
        self.assert_close(read_points(dst), cs2cs(PULKOVO, GK7, MOSCOW))

    def test_a_source_without_prj_is_refused_and_nothing_written(self):
        src = self.path("bare.shp")
        write_shape(src, MOSCOW)
        run = vxk(src, self.path("out/x.shp"), "--to", "EPSG:32637")
        self.assertEqual(run.returncode, 2)
        self.assertIn("has no .prj (nor .pj4) to tell its coordinate system; give it with --from", run.stderr)
        self.assertFalse(os.path.exists(self.path("out")))

    def test_each_file_of_a_folder_with_its_own_prj(self):
        folder = self.path("in")
        os.makedirs(folder)
        write_shape(os.path.join(folder, "w.shp"), MOSCOW)
        with open(os.path.join(folder, "w.prj"), "w") as f:
            f.write(osr_wkt(4326, esri=True))
        utm = cs2cs("EPSG:4326", "EPSG:32637", MOSCOW, lat_first=True)
        write_shape(os.path.join(folder, "u.shp"), utm)
        with open(os.path.join(folder, "u.prj"), "w") as f:
            f.write(osr_wkt(32637))
        run = vxk(folder, self.path("out") + "/", "--to", "EPSG:32637", "-j", "2")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("2 files, 2 reprojected, 0 failed; 8 records written", run.stdout)
        self.assert_close(read_points(self.path("out/w.shp")), utm)
        self.assert_close(read_points(self.path("out/u.shp")), utm)


class PrjBesideTheResult(Base):
    def test_written_by_default_and_read_by_gdal_as_the_destination(self):
        src = self.path("src.shp")
        write_shape(src, MOSCOW)
        dst = self.path("dst.shp")
        self.assertEqual(vxk(src, dst, "--from", "EPSG:4326", "--to", "EPSG:32637").returncode, 0)
        ds = ogr.Open(dst)  # kept while its layer is used: GDAL frees the layer with it
        srs = ds.GetLayer().GetSpatialRef()
        wanted = osr.SpatialReference()
        wanted.ImportFromEPSG(32637)
        self.assertTrue(srs.IsSame(wanted), srs.ExportToWkt())

    def test_no_prj_leaves_it_out_and_removes_an_old_one(self):
        src = self.path("src.shp")
        write_shape(src, MOSCOW)
        dst = self.path("dst.shp")
        self.assertEqual(vxk(src, dst, "--from", "EPSG:4326", "--to", "EPSG:32637").returncode, 0)
        self.assertTrue(os.path.exists(dst[:-4] + ".prj"))
        run = vxk(src, dst, "--from", "EPSG:4326", "--to", "EPSG:32637", "--no-prj")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertFalse(os.path.exists(dst[:-4] + ".prj"))


class Warnings(Base):
    def test_a_consistent_run_says_nothing_on_standard_error(self):
        src = self.path("src.shp")
        write_shape(src, MOSCOW)
        run = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual((run.returncode, run.stderr), (0, ""))

    def test_dropped_parameters_are_named_with_what_they_did(self):
        src = self.path("src.shp")
        write_shape(src, MOSCOW)
        run = vxk(src, self.path("dst.shp"), "--from", PULKOVO + " +pm=paris", "--to", GK7 + " +axis=neu")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("warning: --from: +pm=paris is not a parameter of the library's projection strings and is "
                      "dropped: longitudes are taken from Greenwich", run.stderr)
        self.assertIn("warning: --to: +axis=neu is not a parameter", run.stderr)
        self.assertIn("The parameters dropped from --from (see above) are the first thing to look at", run.stderr)

    def test_nad27_says_how_far_from_cs2cs_and_what_to_write(self):
        src = self.path("us.shp")
        write_shape(src, KANSAS)
        dst = self.path("wgs.shp")
        nad27, wgs84 = "+proj=longlat +datum=NAD27 +no_defs", "+proj=longlat +datum=WGS84 +no_defs"
        run = vxk(src, dst, "--from", nad27, "--to", wgs84)
        self.assertEqual(run.returncode, 0, run.stderr)
        found = re.search(r"warning: the result will be up to ([0-9.]+) m away from PROJ's own transformation",
                          run.stderr)
        self.assertTrue(found, run.stderr)
        self.assertIn("--from has no datum shift it can apply", run.stderr)
        self.assertRegex(run.stderr, r"give it as a PROJ string with \+ellps and \+towgs84=-?\d")
        # The distance told is the distance between our result and cs2cs's, to a metre.
        theirs = cs2cs(nad27 + " +type=crs", wgs84 + " +type=crs", KANSAS)
        far = max(math.hypot((a[0] - b[0]) * 111319.49 * math.cos(math.radians(a[1])), (a[1] - b[1]) * 111319.49)
                  for a, b in zip(read_points(dst), theirs))
        self.assertGreater(far, 5)
        self.assertAlmostEqual(float(found.group(1)), far, delta=max(1.0, far * 0.02))
        # Written as PROJ's shift suggests, the result agrees with cs2cs.
        towgs84 = re.search(r"(\+towgs84=[-0-9.,]+) \(PROJ's shift there\)", run.stderr).group(1)
        fixed = vxk(src, dst, "--from", "+proj=longlat +ellps=clrk66 " + towgs84 + " +no_defs", "--to", wgs84)
        self.assertEqual(fixed.returncode, 0, fixed.stderr)
        mm = max(math.hypot((a[0] - b[0]) * 111319.49 * math.cos(math.radians(a[1])), (a[1] - b[1]) * 111319.49)
                 for a, b in zip(read_points(dst), theirs))
        self.assertLess(mm, 2.0, fixed.stderr)

    def test_a_hostile_parameter_list_is_cut_and_clean(self):
        src = self.path("src.shp")
        write_shape(src, MOSCOW)
        run = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to",
                  GK7 + "".join(f" +p{i}=\x1b[2J" for i in range(500)))
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("492 more parameters are dropped as well", run.stderr)
        self.assertLess(len(run.stderr), 4000)
        self.assertFalse(any(ord(c) < 0x20 and c != "\n" for c in run.stderr), repr(run.stderr))


class RecordsAndCounts(Base):
    def test_verbose_lists_null_records_and_why(self):
        src = self.path("src.shp")
        write_shape(src, None, geom=ogr.wkbLineString,
                    wkt=["LINESTRING (37 55, 38 56)", "LINESTRING (37 55, -140 -50, 38 56)"])
        run = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to", ORTHO, "--verbose")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("2 records written, 1 became a null record (it could not be transformed)", run.stdout)
        self.assertIn("dst.shp: record 2 (FID 1): vertex 2 (-140, -50) cannot be transformed", run.stderr)
        quiet = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to", ORTHO)
        self.assertEqual(quiet.stderr, "")

    def test_verbose_names_a_damaged_record(self):
        src = self.path("src.shp")
        write_shape(src, MOSCOW)
        with open(src, "r+b") as f:
            f.truncate(os.path.getsize(src) - 10)
        run = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to", GK7, "-v")
        self.assertEqual(run.returncode, 3, run.stderr)
        self.assertIn("4 records written, 1 could not be read: the source is damaged", run.stdout)
        self.assertIn("record 4 (FID 3): it could not be read: the source is damaged there", run.stderr)

    def test_measures_are_mentioned_once(self):
        src = self.path("m.shp")
        write_shape(src, None, geom=ogr.wkbPointM, wkt=["POINT M (37 55 1)", "POINT M (38 56 2)"])
        run = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stderr.count("measures (M)"), 1, run.stderr)
        self.assertIn("note: the measures (M) of the source's records are not kept", run.stderr)
        folder = self.path("in")
        os.makedirs(folder)
        for n in "ab":
            write_shape(os.path.join(folder, n + ".shp"), None, geom=ogr.wkbLineStringZM,
                        wkt=["LINESTRING ZM (37 55 1 5, 38 56 2 6)"])
        write_shape(os.path.join(folder, "z.shp"), None, geom=ogr.wkbLineString25D,
                    wkt=["LINESTRING Z (37 55 1, 38 56 2)"])
        run = vxk(folder, self.path("out") + "/", "--from", PULKOVO, "--to", GK7, "-j", "2")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stderr.count("measures (M)"), 1, run.stderr)
        self.assertIn("the measures (M) of 2 sources' records are not kept", run.stderr)
        plain = vxk(self.path("in/z.shp"), self.path("z.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(plain.stderr, "")

    def test_lying_counts_and_offsets_do_not_crash_the_checks(self):
        # Measures are told from the lengths of z records, and --verbose reads every record's type: a
        # record that claims 2^31 parts and points, and an index entry far past the end, are read as
        # what they are, in bounds.
        src = self.path("z.shp")
        write_shape(src, None, geom=ogr.wkbLineString25D,
                    wkt=["LINESTRING Z (37 55 1, 38 56 2)", "LINESTRING Z (37 55 1, 38 56 2)"])
        with open(src, "r+b") as f:
            f.seek(100 + 8 + 36)
            f.write(struct.pack("<ii", 0x7FFFFFFF, 0x7FFFFFFF))
        with open(src[:-4] + ".shx", "r+b") as f:
            f.seek(100 + 8)
            f.write(struct.pack(">ii", 0x7FFFFFF0, 0x7FFFFFF0))
        run = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to", GK7, "--verbose")
        self.assertIn(run.returncode, (0, 3), run.stderr)
        self.assertIn("record 1 (FID 0): it could not be read", run.stderr)
        self.assertIn("record 2 (FID 1): it could not be read", run.stderr)
        self.assertNotIn("measures", run.stderr)

    def test_counts_are_spelled_for_people(self):
        src = self.path("one.shp")
        write_shape(src, MOSCOW[:1])
        run = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertTrue(run.stdout.endswith("dst.shp: 1 record written\n"), run.stdout)
        two = self.path("two.shp")
        write_shape(two, [(37, 55), (-140, -50), (-141, -51)])
        run = vxk(two, self.path("dst.shp"), "--from", PULKOVO, "--to", ORTHO)
        self.assertIn("3 records written, 2 became null records (they could not be transformed)", run.stdout)


class ProgressBar(Base):
    def run_on_terminal(self, *args):
        """Runs vxk with standard error on a pseudo terminal; gives what it wrote there."""
        master, slave = pty.openpty()
        proc = subprocess.Popen([VXK, "reproject", *args], stdout=subprocess.DEVNULL, stderr=slave)
        os.close(slave)
        chunks = []
        while True:
            try:
                data = os.read(master, 4096)
            except OSError:
                break
            if not data:
                break
            chunks.append(data)
        proc.wait()
        os.close(master)
        return proc.returncode, b"".join(chunks).decode("utf-8", "replace")

    def test_only_on_a_terminal(self):
        src = self.path("many.shp")
        write_shape(src, [(37 + i * 1e-4, 55) for i in range(6000)])
        code, shown = self.run_on_terminal(src, self.path("dst.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(code, 0, shown)
        self.assertIn("100% 6000/6000", shown)
        piped = vxk(src, self.path("dst.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(piped.stderr, "")


if __name__ == "__main__":
    unittest.main(verbosity=2)

#!/usr/bin/env python3
"""The `vxk reproject` command: arguments, messages, exit status, the destination folder, progress and
.prj. Run by CTest with VXK_BIN_DIR and VXK_TEST_TMP in the environment."""
import os
import shutil
import struct
import subprocess
import sys
import unittest

VXK = os.path.join(os.environ.get("VXK_BIN_DIR", "."), "vxk")
TMP = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "vxk_reproject_test")

PULKOVO = "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
GK7 = ("+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
       "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs")
ORTHO = "+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass +units=m +no_defs"


def write_points(path, points):
    """A point shape file (with .shx and a one-column .dbf) written byte by byte."""
    def header(length_bytes):
        return (struct.pack(">i", 9994) + bytes(20) + struct.pack(">i", length_bytes // 2) +
                struct.pack("<ii", 1000, 1) + struct.pack("<8d", 0, 0, 1, 1, 0, 0, 0, 0))
    body, index = b"", b""
    for i, (x, y) in enumerate(points):
        index += struct.pack(">ii", (100 + len(body)) // 2, 10)
        body += struct.pack(">ii", i + 1, 10) + struct.pack("<idd", 1, x, y)
    with open(path, "wb") as f:
        f.write(header(100 + len(body)) + body)
    with open(path[:-4] + ".shx", "wb") as f:
        f.write(header(100 + len(index)) + index)
    with open(path[:-4] + ".dbf", "wb") as f:
        f.write(bytes([3, 126, 1, 1]) + struct.pack("<IHH", len(points), 65, 6) + bytes(20) +
                b"ID".ljust(11, b"\0") + b"N" + bytes(4) + bytes([5, 0]) + bytes(14) + b"\r" +
                b"".join(b" " + str(i).rjust(5).encode() for i in range(len(points))) + b"\x1a")


def vxk(*args):
    return subprocess.run([VXK, "reproject", *args], capture_output=True, text=True)


class VxkReproject(unittest.TestCase):
    def setUp(self):
        shutil.rmtree(TMP, ignore_errors=True)
        os.makedirs(TMP)
        self.src = os.path.join(TMP, "points.shp")
        write_points(self.src, [(37.5, 55.7), (-140.0, -50.0), (38.0, 56.0)])

    def test_help_shows_usage_and_examples(self):
        run = vxk("--help")
        self.assertEqual(run.returncode, 0)
        self.assertIn("usage: vxk reproject SRC.shp DST.shp --from", run.stdout)
        self.assertIn("examples:", run.stdout)
        self.assertIn("--prj", run.stdout)

    def test_listed_among_the_commands(self):
        run = subprocess.run([VXK, "--help"], capture_output=True, text=True)
        self.assertIn("reproject", run.stdout)

    def test_reports_records_and_losses_and_creates_the_folder(self):
        dst = os.path.join(TMP, "new", "deeper", "out.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", ORTHO)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("3 records written, 1 became null records", run.stdout)
        for ext in (".shp", ".shx", ".dbf"):
            self.assertTrue(os.path.exists(dst[:-4] + ext), ext)
        self.assertFalse(os.path.exists(dst[:-4] + ".prj"))
        with open(self.src[:-4] + ".dbf", "rb") as a, open(dst[:-4] + ".dbf", "rb") as b:
            self.assertEqual(a.read(), b.read())

    def test_missing_arguments_are_a_usage_error(self):
        for args in ([], [self.src], [self.src, "out.shp", "--from", PULKOVO],
                     [self.src, "out.shp", "--from", PULKOVO, "--to"],
                     [self.src, "out.shp", "--from", PULKOVO, "--to", GK7, "--bogus"]):
            run = vxk(*args)
            self.assertEqual(run.returncode, 2, args)
            self.assertIn("vxk reproject:", run.stderr)
            self.assertIn("usage:", run.stderr)

    def test_bad_projection_is_a_clear_error(self):
        dst = os.path.join(TMP, "out.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", "/some/file.prj")
        self.assertEqual(run.returncode, 1)
        self.assertIn("cannot build the transformation", run.stderr)
        self.assertFalse(os.path.exists(dst))

    def test_missing_source_is_a_clear_error(self):
        run = vxk(os.path.join(TMP, "nothing.shp"), os.path.join(TMP, "out.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 1)
        self.assertIn("cannot read the source", run.stderr)
        self.assertIn("nothing.shp", run.stderr)

    def test_source_without_index_is_a_clear_error(self):
        os.remove(self.src[:-4] + ".shx")
        run = vxk(self.src, os.path.join(TMP, "out.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 1)
        self.assertIn("points.shx", run.stderr)

    def test_unwritable_destination_is_a_clear_error(self):
        blocker = os.path.join(TMP, "blocker")
        open(blocker, "w").close()
        run = vxk(self.src, os.path.join(blocker, "out.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 1)
        self.assertIn("vxk reproject:", run.stderr)

    def test_progress_bar_when_asked(self):
        run = vxk(self.src, os.path.join(TMP, "out.shp"), "--from", PULKOVO, "--to", GK7, "--progress")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("100% 3/3", run.stderr)
        self.assertIn("[####", run.stderr)

    def test_no_progress_bar_off_a_terminal(self):
        run = vxk(self.src, os.path.join(TMP, "out.shp"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.stderr, "")

    def test_prj_in_esri_wkt_when_asked(self):
        dst = os.path.join(TMP, "out.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7, "--prj")
        self.assertEqual(run.returncode, 0, run.stderr)
        with open(dst[:-4] + ".prj", encoding="ascii") as f:
            wkt = f.read()
        self.assertTrue(wkt.startswith("PROJCS["), wkt)
        self.assertIn("Transverse_Mercator", wkt)
        self.assertIn('"Central_Meridian",39', wkt)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

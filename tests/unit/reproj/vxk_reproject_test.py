#!/usr/bin/env python3
"""The `vxk reproject` command: arguments, messages, exit status, the destination folder, progress and
.prj. Run by CTest with VXK_BIN_DIR and VXK_TEST_TMP in the environment."""
import hashlib
import os
import resource
import shutil
import stat
import struct
import subprocess
import sys
import tempfile
import unittest

VXK = os.path.join(os.environ.get("VXK_BIN_DIR", "."), "vxk")
TMP = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "vxk_reproject_test")

PULKOVO = "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
GK7 = ("+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
       "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs")
ORTHO = ("+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 "
         "+units=m +no_defs")


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


def vxk(*args, limit_file_size=None, limit_memory=None, as_user=None):
    """Runs vxk reproject as a user runs it, optionally under a file size limit (bytes), an address
    space limit (bytes) or as another user (uid) on a folder that user may not write."""
    def limits():
        if limit_file_size is not None:
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit_file_size, limit_file_size))
        if limit_memory is not None:
            resource.setrlimit(resource.RLIMIT_AS, (limit_memory, limit_memory))
    prefix = [] if as_user is None else ["setpriv", f"--reuid={as_user}", f"--regid={as_user}", "--clear-groups"]
    return subprocess.run([*prefix, VXK, "reproject", *args], capture_output=True, text=True,
                          errors="replace", preexec_fn=limits)


def snapshot(folder):
    """Every file under a folder with the digest of its bytes: what a run must leave as it was."""
    found = {}
    for root, dirs, files in os.walk(folder):
        for name in dirs + files:
            path = os.path.join(root, name)
            rel = os.path.relpath(path, folder)
            if os.path.islink(path):
                found[rel] = "link " + os.readlink(path)
            elif os.path.isdir(path):
                found[rel] = "folder"
            else:
                with open(path, "rb") as f:
                    found[rel] = hashlib.sha256(f.read()).hexdigest()
    return found


def reachable_by_others(path):
    """True when users other than the owner may pass through every folder above path."""
    path = os.path.abspath(path)
    while path != "/":
        path = os.path.dirname(path)
        if not os.stat(path).st_mode & stat.S_IXOTH:
            return False
    return True


def records(shp):
    """The record types of a shape file, read here through its index (an independent reader)."""
    with open(shp[:-4] + ".shx", "rb") as f:
        index = f.read()
    with open(shp, "rb") as f:
        body = f.read()
    types = []
    for k in range((len(index) - 100) // 8):
        offset, _ = struct.unpack(">ii", index[100 + 8 * k:108 + 8 * k])
        types.append(struct.unpack("<i", body[offset * 2 + 8:offset * 2 + 12])[0])
    return types


class VxkReproject(unittest.TestCase):
    def setUp(self):
        shutil.rmtree(TMP, ignore_errors=True)
        os.makedirs(TMP)
        self.src = os.path.join(TMP, "points.shp")
        write_points(self.src, [(37.5, 55.7), (-140.0, -50.0), (38.0, 56.0)])

    def test_help_shows_usage_and_examples(self):
        run = vxk("--help")
        self.assertEqual(run.returncode, 0)
        self.assertIn("usage: vxk reproject SRC.shp DST.shp [--from SYSTEM] --to SYSTEM", run.stdout)
        self.assertIn("examples:", run.stdout)
        self.assertIn("--prj", run.stdout)

    def test_listed_among_the_commands(self):
        run = subprocess.run([VXK, "--help"], capture_output=True, text=True)
        self.assertIn("reproject", run.stdout)

    def test_reports_records_and_losses_and_creates_the_folder(self):
        dst = os.path.join(TMP, "new", "deeper", "out.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", ORTHO)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("3 records written, 1 became a null record (it could not be transformed)", run.stdout)
        for ext in (".shp", ".shx", ".dbf", ".prj"):
            self.assertTrue(os.path.exists(dst[:-4] + ext), ext)
        with open(self.src[:-4] + ".dbf", "rb") as a, open(dst[:-4] + ".dbf", "rb") as b:
            self.assertEqual(a.read(), b.read())

    def test_missing_arguments_are_a_usage_error(self):
        for args in ([], [self.src], [self.src, "out.shp", "--from", PULKOVO],
                     [self.src, "out.shp", "--from", PULKOVO, "--to"],
                     [self.src, "out.shp", "--from", PULKOVO, "--to", GK7, "--bogus"]):
            run = vxk(*args)
            self.assertEqual(run.returncode, 2, args)
            self.assertTrue(run.stderr.startswith("vxk reproject: "), run.stderr)
            self.assertTrue(run.stderr.endswith("(see 'vxk reproject --help')\n"), run.stderr)
            self.assertEqual(run.stderr.count("\n"), 1, run.stderr)

    def test_bad_projection_is_a_clear_error(self):
        dst = os.path.join(TMP, "out.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", "/some/file.prj")
        self.assertEqual(run.returncode, 1)
        self.assertIn("there is no file '/some/file.prj' for --to", run.stderr)
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", "+proj=nonsense")
        self.assertEqual(run.returncode, 1)
        self.assertIn("cannot build the transformation", run.stderr)
        self.assertFalse(os.path.exists(dst))

    def test_bad_projection_leaves_no_folder_it_created(self):
        dst = os.path.join(TMP, "new", "deeper", "out.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", "+proj=nonsense")
        self.assertEqual(run.returncode, 1)
        self.assertFalse(os.path.exists(os.path.join(TMP, "new")))

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
        self.assertIn("vxk reproject: cannot create the folder", run.stderr)
        self.assertNotIn("usage:", run.stderr)
        self.assertIn("blocker", run.stderr)
        self.assertIn("Not a directory", run.stderr)

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


class VxkReprojectKeepsData(unittest.TestCase):
    """A user's data is never lost, and no failure is silent: every run checks its exit status, its
    message, and that the source files are byte for byte as they were."""

    def setUp(self):
        self.tmp = os.path.join(TMP, "safety")
        shutil.rmtree(self.tmp, ignore_errors=True)
        os.makedirs(self.tmp)
        self.src = os.path.join(self.tmp, "src", "roads.shp")
        os.makedirs(os.path.dirname(self.src))
        write_points(self.src, [(37.5 + 0.001 * i, 55.7 + 0.001 * i) for i in range(2000)])
        with open(self.src[:-4] + ".cpg", "w") as f:
            f.write("1251")
        self.before = snapshot(os.path.dirname(self.src))

    def assert_source_unchanged(self):
        self.assertEqual(snapshot(os.path.dirname(self.src)), self.before)

    def assert_no_staging_left(self, folder):
        leftovers = [n for n in os.listdir(folder) if n.startswith(".vxk-")] if os.path.isdir(folder) else []
        self.assertEqual(leftovers, [])

    def run_ok(self, dst, *extra):
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7, *extra)
        self.assertEqual(run.returncode, 0, run.stderr)
        return run

    # ---- a destination that is the source

    def check_refused(self, dst):
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 2, run.stderr)
        self.assertIn("is the source", run.stderr)
        self.assertIn("give another destination", run.stderr)
        self.assertEqual(run.stdout, "")
        self.assert_source_unchanged()

    def test_same_path_is_refused(self):
        self.check_refused(self.src)

    def test_another_spelling_is_refused(self):
        folder = os.path.dirname(self.src)
        self.check_refused(os.path.join(folder, ".", "..", "src", "roads.shp"))
        cwd = os.getcwd()
        os.chdir(folder)
        try:
            self.check_refused("./roads.shp")
        finally:
            os.chdir(cwd)

    def test_a_link_to_the_source_is_refused(self):
        link = os.path.join(self.tmp, "link.shp")
        os.symlink(self.src, link)
        self.check_refused(link)
        hard = os.path.join(self.tmp, "hard.shp")
        os.link(self.src, hard)
        self.check_refused(hard)
        folder_link = os.path.join(self.tmp, "same_folder")
        os.symlink(os.path.dirname(self.src), folder_link)
        self.check_refused(os.path.join(folder_link, "roads.shp"))

    def test_a_destination_whose_table_is_the_source_table_is_refused(self):
        other = os.path.join(self.tmp, "other.shp")
        os.link(self.src[:-4] + ".dbf", other[:-4] + ".dbf")
        self.check_refused(other)

    # ---- a source that is damaged or is not a shape file

    def test_truncated_source_is_reported_as_damaged(self):
        with open(self.src, "rb") as f:
            body = f.read()
        cut = 100 + 28 * 1000 + 10  # in the middle of record 1001 of 2000
        with open(self.src, "wb") as f:
            f.write(body[:cut])
        self.before = snapshot(os.path.dirname(self.src))
        dst = os.path.join(self.tmp, "out", "roads.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 3, run.stderr)
        self.assertIn("2000 records written, 1000 could not be read: the source is damaged", run.stdout)
        self.assertIn("is damaged: 1000 of 2000 records could not be read", run.stderr)
        types = records(dst)
        self.assertEqual(len(types), 2000)
        self.assertEqual(types[:1000], [1] * 1000)
        self.assertEqual(types[1000:], [0] * 1000)
        self.assert_source_unchanged()

    def test_index_cut_short_is_reported_as_damaged(self):
        shx = self.src[:-4] + ".shx"
        os.truncate(shx, os.path.getsize(shx) - 8 * 500)
        self.before = snapshot(os.path.dirname(self.src))
        dst = os.path.join(self.tmp, "out", "roads.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 3, run.stderr)
        self.assertIn("1500 records written", run.stdout)
        self.assertIn("500 could not be read: the source is damaged", run.stdout)
        self.assertIn("is damaged: its header counts 2000 records, it holds 1500", run.stderr)
        self.assert_source_unchanged()

    def test_index_with_an_impossible_length_is_refused(self):
        with open(self.src[:-4] + ".shx", "r+b") as f:
            f.seek(24)
            f.write(struct.pack(">i", 10))
        self.check_not_a_shape_file("its header gives it a length of 20 bytes, less than the header itself")

    def check_not_a_shape_file(self, expected):
        self.before = snapshot(os.path.dirname(self.src))
        dst = os.path.join(self.tmp, "out", "roads.shp")
        limit = None if os.environ.get("VXK_SANITIZE") == "1" else 1 << 30
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7, limit_memory=limit)
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertIn(expected, run.stderr)
        self.assertEqual(run.stdout, "")
        self.assertFalse(os.path.exists(os.path.join(self.tmp, "out")))
        self.assert_source_unchanged()

    def test_index_that_is_a_folder_is_refused(self):
        os.remove(self.src[:-4] + ".shx")
        os.mkdir(self.src[:-4] + ".shx")
        self.check_not_a_shape_file("is a folder")

    def test_text_files_named_shp_and_shx_are_refused(self):
        for ext in (".shp", ".shx"):
            with open(self.src[:-4] + ext, "w") as f:
                f.write("name,x,y\n" + "Moscow,37.6,55.75\n" * 20)
        self.check_not_a_shape_file("is not a shape file: its file code is")

    def test_empty_index_is_refused(self):
        open(self.src[:-4] + ".shx", "w").close()
        self.check_not_a_shape_file("is not a shape file: it is shorter than the 100-byte header")

    def test_index_with_a_wrong_file_code_is_refused(self):
        with open(self.src[:-4] + ".shx", "r+b") as f:
            f.write(struct.pack(">i", 9993))
        self.check_not_a_shape_file("its file code is 9993, not 9994")

    def test_table_that_is_a_folder_fails_the_run(self):
        os.remove(self.src[:-4] + ".dbf")
        os.mkdir(self.src[:-4] + ".dbf")
        self.check_not_a_shape_file("cannot copy")

    def test_code_page_that_is_a_folder_fails_the_run(self):
        os.remove(self.src[:-4] + ".cpg")
        os.mkdir(self.src[:-4] + ".cpg")
        self.check_not_a_shape_file("cannot copy")

    def check_damaged_table(self, expected):
        self.before = snapshot(os.path.dirname(self.src))
        dst = os.path.join(self.tmp, "out", "roads.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 3, run.stderr)
        self.assertIn("roads.dbf' is damaged: " + expected, run.stderr)
        self.assertIn("2000 records written; the source table is damaged and was copied as it is", run.stdout)
        self.assertEqual(records(dst), [1] * 2000)
        with open(self.src[:-4] + ".dbf", "rb") as a, open(dst[:-4] + ".dbf", "rb") as b:
            self.assertEqual(a.read(), b.read())
        self.assert_source_unchanged()

    def test_empty_table_is_reported_as_damaged(self):
        open(self.src[:-4] + ".dbf", "w").close()
        self.check_damaged_table("it is empty")

    def test_table_whose_header_counts_too_many_records_is_reported_as_damaged(self):
        with open(self.src[:-4] + ".dbf", "r+b") as f:
            f.seek(4)
            f.write(struct.pack("<I", 1 << 30))
        self.check_damaged_table(f"its header counts {1 << 30} records of 6 bytes, the file holds 2000")

    # ---- write failures: nothing half-written, nothing earlier destroyed

    def earlier_result(self):
        dst = os.path.join(self.tmp, "out", "roads.shp")
        self.run_ok(dst, "--prj")
        return dst, snapshot(os.path.dirname(dst))

    def test_file_size_limit_fails_with_reason_and_keeps_the_earlier_result(self):
        dst, earlier = self.earlier_result()
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7, limit_file_size=20000)
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertIn("File too large", run.stderr)
        self.assertIn(dst, run.stderr)
        self.assertIn("nothing was written", run.stderr)
        self.assertEqual(run.stdout, "")
        self.assertEqual(snapshot(os.path.dirname(dst)), earlier)
        self.assert_source_unchanged()

    def test_file_size_limit_leaves_no_folder_it_created(self):
        dst = os.path.join(self.tmp, "new", "deeper", "roads.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7, limit_file_size=20000)
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertIn("File too large", run.stderr)
        self.assertFalse(os.path.exists(os.path.join(self.tmp, "new")))
        self.assert_source_unchanged()

    def test_read_only_folder_fails_with_reason(self):
        user = None
        if os.geteuid() == 0:
            # Root writes in any folder whatever its modes, so the run is made as the unprivileged user
            # "nobody" (setpriv, of util-linux), for whom the folder is read-only. Nobody must reach the
            # files: when the test folder lies under one closed to other users (a home folder), the case
            # runs in a folder of its own under the system's temporary folder.
            if not shutil.which("setpriv"):
                self.skipTest("running as root without setpriv: a read-only folder does not stop root")
            if not reachable_by_others(self.tmp):
                self.move_to_open_folder()
            user = 65534
        dst, earlier = self.earlier_result()
        folder = os.path.dirname(dst)
        os.chmod(folder, 0o555)
        try:
            run = vxk(self.src, dst, "--from", PULKOVO, "--to", GK7, as_user=user)
        finally:
            os.chmod(folder, 0o755)
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertIn("cannot write in the folder", run.stderr)
        self.assertIn("Permission denied", run.stderr)
        self.assertEqual(run.stdout, "")
        self.assertEqual(snapshot(folder), earlier)
        self.assert_source_unchanged()

    def move_to_open_folder(self):
        """The source moves to a new folder under the system's temporary folder, open to other users."""
        self.tmp = tempfile.mkdtemp(prefix="vxk_read_only_")
        self.addCleanup(shutil.rmtree, self.tmp, True)
        os.chmod(self.tmp, 0o755)
        src_folder = os.path.join(self.tmp, "src")
        shutil.copytree(os.path.dirname(self.src), src_folder)
        os.chmod(src_folder, 0o755)
        for name in os.listdir(src_folder):
            os.chmod(os.path.join(src_folder, name), 0o644)
        self.src = os.path.join(src_folder, os.path.basename(self.src))
        self.before = snapshot(src_folder)

    def test_folder_where_nothing_can_be_made_fails_with_reason(self):
        run = vxk(self.src, "/proc/dst.shp", "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertIn("cannot write in the folder '/proc'", run.stderr)
        self.assertIn("No such file or directory", run.stderr)
        self.assert_source_unchanged()

    # ---- replacing an earlier result

    def test_rerun_replaces_every_side_file_and_removes_stale_ones(self):
        dst = os.path.join(self.tmp, "out", "roads.shp")
        self.run_ok(dst, "--prj")
        for stale in (".qix", ".sbn", ".PRJ"):
            open(dst[:-4] + stale, "w").close()
        with open(dst + ".xml", "w") as f:
            f.write("<metadata>written by a person</metadata>")
        with open(os.path.join(self.tmp, "out", "notes.txt"), "w") as f:
            f.write("not ours")
        for ext in (".dbf", ".cpg"):
            os.remove(self.src[:-4] + ext)
        self.before = snapshot(os.path.dirname(self.src))
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", ORTHO, "--no-prj")
        self.assertEqual(run.returncode, 0, run.stderr)
        left = sorted(os.listdir(os.path.dirname(dst)))
        self.assertEqual(left, ["notes.txt", "roads.shp", "roads.shp.xml", "roads.shx"])
        self.assert_source_unchanged()
        if shutil.which("ogrinfo"):
            info = subprocess.run(["ogrinfo", "-so", "-al", dst], capture_output=True, text=True)
            self.assertEqual(info.returncode, 0, info.stderr)
            self.assertIn("Feature Count: 2000", info.stdout)
            self.assertNotIn("Transverse_Mercator", info.stdout)

    # ---- what PROJ says

    def test_refused_projection_is_named_cut_and_clean(self):
        hostile = "+proj=foo " + "+x=\x01\x1b[2J" * 10000
        dst = os.path.join(self.tmp, "out", "roads.shp")
        run = vxk(self.src, dst, "--from", PULKOVO, "--to", hostile)
        self.assertEqual(run.returncode, 1)
        self.assertIn("PROJ refused the destination system", run.stderr)
        self.assertIn("Unknown projection", run.stderr)
        self.assertIn("bytes)", run.stderr)
        self.assertLess(len(run.stderr), 2000)
        self.assertFalse(any(ord(c) < 0x20 and c != "\n" for c in run.stderr), repr(run.stderr))
        self.assertFalse(os.path.exists(os.path.join(self.tmp, "out")))
        run = vxk(self.src, dst, "--from", "+proj=utm +zone=99 +ellps=krass", "--to", GK7)
        self.assertEqual(run.returncode, 1)
        self.assertIn("PROJ refused the source system", run.stderr)
        self.assertIn("zone", run.stderr)
        self.assert_source_unchanged()

    def test_proj_prints_nothing_and_its_reason_comes_once_with_a_count(self):
        far = os.path.join(self.tmp, "far.shp")
        # Latitudes past the pole: PROJ refuses each with a line of its own on its default log.
        write_points(far, [(37.0, 55.0)] + [(37.0, 95.0 + i) for i in range(50)])
        run = vxk(far, os.path.join(self.tmp, "out", "far.shp"), "--from", "+proj=longlat +ellps=krass +no_defs",
                  "--to", "+proj=tmerc +lon_0=39 +ellps=krass +units=m")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("51 records written, 50 became null records", run.stdout)
        lines = run.stderr.splitlines()
        self.assertEqual(len(lines), 1, run.stderr)
        self.assertTrue(lines[0].startswith("vxk reproject: note: PROJ: "), lines[0])
        self.assertIn("(50 times)", lines[0])

    # ---- the name of the destination

    def test_destination_without_extension_gets_shp(self):
        run = self.run_ok(os.path.join(self.tmp, "m3", "x"))
        self.assertIn("m3/x.shp: 2000 records written", run.stdout)
        self.assertEqual(sorted(os.listdir(os.path.join(self.tmp, "m3"))), ["x.cpg", "x.dbf", "x.prj", "x.shp", "x.shx"])
        if shutil.which("ogrinfo"):
            info = subprocess.run(["ogrinfo", "-so", "-al", os.path.join(self.tmp, "m3", "x.shp")],
                                  capture_output=True, text=True)
            self.assertIn("Feature Count: 2000", info.stdout)

    def test_destination_with_another_extension_is_refused(self):
        for name in ("x.txt", "x.dbf", "x.shx"):
            run = vxk(self.src, os.path.join(self.tmp, "m3", name), "--from", PULKOVO, "--to", GK7)
            self.assertEqual(run.returncode, 2, name)
            self.assertIn("is not a .shp file", run.stderr)
        self.assertFalse(os.path.exists(os.path.join(self.tmp, "m3")))
        self.assert_source_unchanged()


class VxkReprojectFolder(unittest.TestCase):
    """Folder mode: every shape file of a folder (or of several files) into a destination folder, by -j N
    processes, with one progress bar, one summary line, and a bad file reported while the others
    complete."""

    def setUp(self):
        self.tmp = os.path.join(TMP, "folder")
        shutil.rmtree(self.tmp, ignore_errors=True)
        self.src = os.path.join(self.tmp, "src")
        os.makedirs(self.src)
        for k in range(5):
            # 40 points each; in "c" one lies outside the orthographic view and becomes a null record
            points = [(37.0 + 0.01 * i, 55.0 + 0.01 * k) for i in range(40)]
            if k == 2:
                points[7] = (-140.0, -50.0)
            write_points(os.path.join(self.src, "abcde"[k] + ".shp"), points)
        with open(os.path.join(self.src, "notes.txt"), "w") as f:
            f.write("not a shape file\n")

    def break_one(self, name="d"):
        os.remove(os.path.join(self.src, name + ".shx"))

    def test_every_file_of_a_folder_with_one_summary_line(self):
        dst = os.path.join(self.tmp, "out")
        run = vxk(self.src, dst, "-j", "2", "--from", PULKOVO, "--to", ORTHO)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stdout.count("\n"), 1, run.stdout)
        self.assertIn("5 files, 5 reprojected, 0 failed; 200 records written, 1 became a null record (it could "
                      "not be transformed)", run.stdout)
        self.assertEqual(run.stderr, "")
        names = sorted(os.listdir(dst))
        self.assertEqual(names, sorted(n + e for n in "abcde" for e in (".dbf", ".prj", ".shp", ".shx")))
        self.assertEqual(records(os.path.join(dst, "c.shp")).count(0), 1)
        self.assertEqual(records(os.path.join(dst, "a.shp")), [1] * 40)

    def test_the_same_files_as_one_by_one(self):
        dst = os.path.join(self.tmp, "out")
        run = vxk(self.src, dst, "-j3", "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 0, run.stderr)
        for n in "abcde":
            one = os.path.join(self.tmp, "one", n + ".shp")
            self.assertEqual(vxk(os.path.join(self.src, n + ".shp"), one, "--from", PULKOVO, "--to", GK7).returncode, 0)
            for ext in (".shp", ".shx", ".dbf"):
                with open(one[:-4] + ext, "rb") as a, open(os.path.join(dst, n + ext), "rb") as b:
                    self.assertEqual(a.read(), b.read(), n + ext)

    def test_a_bad_file_is_reported_and_the_others_complete(self):
        self.break_one()
        dst = os.path.join(self.tmp, "out")
        run = vxk(self.src, dst, "--jobs", "2", "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 1)
        self.assertIn("cannot read the source", run.stderr)
        self.assertIn("d.shx", run.stderr)
        self.assertIn("5 files, 4 reprojected, 1 failed; 160 records written", run.stdout)
        for n in "abce":
            self.assertEqual(records(os.path.join(dst, n + ".shp")), [1] * 40, n)
        self.assertFalse(os.path.exists(os.path.join(dst, "d.shp")))
        self.assertEqual([f for f in os.listdir(dst) if f.startswith(".")], [])

    def test_nothing_done_leaves_no_folder_it_created(self):
        dst = os.path.join(self.tmp, "new", "out")
        run = vxk(os.path.join(self.src, "a.shp"), os.path.join(self.src, "b.shp"), dst,
                  "--from", PULKOVO, "--to", "+proj=nonsense")
        self.assertEqual(run.returncode, 1)
        self.assertIn("2 files, 0 reprojected, 2 failed", run.stdout)
        self.assertFalse(os.path.exists(os.path.join(self.tmp, "new")))

    def test_several_files_and_a_folder_written_as_one(self):
        one = os.path.join(self.tmp, "single")
        run = vxk(os.path.join(self.src, "a.shp"), one + "/", "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("1 file, 1 reprojected", run.stdout)
        self.assertTrue(os.path.exists(os.path.join(one, "a.shp")))

    def test_progress_bar_over_the_whole_job(self):
        run = vxk(self.src, os.path.join(self.tmp, "out"), "-j", "2", "--progress", "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("100% 200/200 5/5 files", run.stderr)
        self.assertTrue(run.stderr.endswith("\n"))

    def test_messages_of_a_bad_file_stand_on_lines_of_their_own(self):
        self.break_one("b")
        run = vxk(self.src, os.path.join(self.tmp, "out"), "-j", "2", "--progress", "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 1)
        line = [l for l in run.stderr.split("\n") if "b.shx" in l][0]
        self.assertTrue(line.split("\r")[-1].strip().startswith("vxk reproject: cannot read the source"), line)

    def test_the_source_folder_as_destination_is_refused(self):
        before = snapshot(self.src)
        run = vxk(self.src, self.src, "-j", "2", "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 2)
        self.assertIn("is the source", run.stderr)
        self.assertEqual(snapshot(self.src), before)

    def test_two_sources_of_one_name_are_refused(self):
        other = os.path.join(self.tmp, "other")
        os.makedirs(other)
        write_points(os.path.join(other, "A.shp"), [(37.5, 55.7)])
        run = vxk(self.src, other, os.path.join(self.tmp, "out"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 2)
        self.assertIn("two sources are named", run.stderr)
        self.assertFalse(os.path.exists(os.path.join(self.tmp, "out")))

    def test_bad_counts_of_processes_are_refused(self):
        for jobs in (["-j", "0"], ["-j", "x"], ["-j"], ["--jobs", "1000"], ["-j-1"]):
            run = vxk(self.src, os.path.join(self.tmp, "out"), "--from", PULKOVO, "--to", GK7, *jobs)
            self.assertEqual(run.returncode, 2, jobs)
            self.assertIn("(see 'vxk reproject --help')", run.stderr)

    def test_a_folder_without_shape_files_is_refused(self):
        empty = os.path.join(self.tmp, "empty")
        os.makedirs(empty)
        run = vxk(empty, os.path.join(self.tmp, "out"), "--from", PULKOVO, "--to", GK7)
        self.assertEqual(run.returncode, 2)
        self.assertIn("no shape file", run.stderr)

    def test_results_read_by_ogrinfo(self):
        if not shutil.which("ogrinfo"):
            self.skipTest("ogrinfo is not installed")
        dst = os.path.join(self.tmp, "out")
        self.assertEqual(vxk(self.src, dst, "-j", "2", "--from", PULKOVO, "--to", GK7).returncode, 0)
        for n in "abcde":
            info = subprocess.run(["ogrinfo", "-so", "-al", os.path.join(dst, n + ".shp")], capture_output=True, text=True)
            self.assertIn("Feature Count: 40", info.stdout, n)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

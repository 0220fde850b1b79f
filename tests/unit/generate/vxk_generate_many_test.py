#!/usr/bin/env python3
"""`vxk generate` for many sheets at once, as a user runs it: several designations, a file of them, and
the 36 1:200,000 sheets of a 1:1,000,000 sheet, each into a folder named by its designation, checked
with GDAL against boxes worked out here from the nomenclature; a failing sheet among good ones; the
options that reach every sheet; and the refusals."""
import os
import shutil
import subprocess
import sys

from osgeo import ogr

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from checks import expect, failures, verdict  # noqa: E402

ogr.UseExceptions()

VXK = os.path.join(os.environ.get("VXK_BIN_DIR", "."), "vxk")
ROOT = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "vxk_generate_many")
GEOGRAPHIC = "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
ROMANS = ["I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X", "XI", "XII", "XIII", "XIV", "XV", "XVI",
          "XVII", "XVIII", "XIX", "XX", "XXI", "XXII", "XXIII", "XXIV", "XXV", "XXVI", "XXVII", "XXVIII", "XXIX",
          "XXX", "XXXI", "XXXII", "XXXIII", "XXXIV", "XXXV", "XXXVI"]


def run(*args, stdin=None):
    p = subprocess.run([VXK, "generate", *args], capture_output=True, input=stdin)
    return p.returncode, p.stdout.decode("utf-8"), p.stderr.decode("utf-8")


def fresh(name):
    path = os.path.join(ROOT, name)
    shutil.rmtree(path, ignore_errors=True)
    return path


def box_200(west, north, k, south=False):
    """The box of the 1:200,000 sheet k (1 to 36) of the million sheet whose west and north edges (its
    south edge in the south) are given: rows of six from the north edge, in the south from the south
    edge, 1 degree by 40 minutes."""
    row, column = divmod(k - 1, 6)
    if south:
        bottom = north + row * 2 / 3
        return west + column, west + column + 1, bottom, bottom + 2 / 3
    return west + column, west + column + 1, north - (row + 1) * 2 / 3, north - row * 2 / 3


def check_sheet(folder, name, box):
    path = os.path.join(folder, name, "latlong", "HYPS", "Hypsa.shp")
    if not os.path.exists(path):
        failures.append(f"{name}: no {path}")
        return
    ds = ogr.Open(path)
    layer = ds.GetLayer()
    f = layer.GetNextFeature()
    expect(f.GetField("NAME") == name, f"{name}: NAME {f.GetField('NAME')!r}")
    got = layer.GetExtent()
    expect(all(abs(a - b) < 1e-7 for a, b in zip(got, box)), f"{name}: box {got}, expected {box}")


def leftovers(folder):
    return [n for n in os.listdir(folder) if ".vxk-" in n] if os.path.isdir(folder) else []


def check_several():
    out = fresh("several")
    rc, stdout, err = run("N-37-V", " n-37-vi ", "N-37", "--out", out, "-j", "2")
    expect(rc == 0, f"several: exit {rc}: {err}")
    expect(sorted(os.listdir(out)) == ["N-37", "N-37-V", "N-37-VI"], f"several: {os.listdir(out)}")
    expect("N-37-VI written to" in stdout and "3 sheets written under" in stdout, f"several: {stdout!r}")
    check_sheet(out, "N-37-V", box_200(36, 56, 5))
    check_sheet(out, "N-37-VI", box_200(36, 56, 6))
    check_sheet(out, "N-37", (36, 42, 52, 56))


def check_children():
    out = fresh("children")
    rc, stdout, err = run("--children", "N-37", "--out", out, "-j2")
    expect(rc == 0, f"--children N-37: exit {rc}: {err}")
    expect(sorted(os.listdir(out)) == sorted(f"N-37-{r}" for r in ROMANS), f"--children N-37: {sorted(os.listdir(out))}")
    for k, roman in enumerate(ROMANS, 1):
        check_sheet(out, f"N-37-{roman}", box_200(36, 56, k))
    expect(stdout.count(" written to ") == 36 and "36 sheets written under" in stdout, f"--children: {stdout!r}")
    expect(not leftovers(out), f"--children: left {leftovers(out)}")

    out = fresh("children_south")
    rc, _, err = run("--children", "A-37", "--south", "--out", out, "-j", "2")
    expect(rc == 0, f"--children A-37 --south: exit {rc}: {err}")
    for k in (1, 6, 31, 36):
        check_sheet(out, f"A-37-{ROMANS[k - 1]}", box_200(36, -4, k, south=True))


def check_file_and_a_failure():
    """A file with comments, blanks, a repeat and a text that is no sheet; one sheet's folder holds a file
    of the user's, so that sheet is refused: the others are written all the same, and the exit says 1."""
    out = fresh("from_file")
    os.makedirs(os.path.join(out, "N-37-II", "HYPS"))
    theirs = os.path.join(out, "N-37-II", "HYPS", "notes.txt")
    with open(theirs, "w") as f:
        f.write("mine")
    listing = os.path.join(ROOT, "sheets.txt")
    with open(listing, "w") as f:
        f.write("# the first row\nN-37-I\n\n  N-37-II  \nN-37-III\nn-37-i\nZ-99\n")
    rc, stdout, err = run("--from-file", listing, "--out", out, "-j", "2")
    expect(rc == 1, f"--from-file with failures: exit {rc}")
    expect("N-37-I is given more than once" in err, f"--from-file: the repeat is not told: {err!r}")
    expect("Z-99:" in err and "N-37-II:" in err and "was not written by this command" in err,
           f"--from-file: failures not told: {err!r}")
    expect("2 of 4 sheets failed: N-37-II, Z-99" in err, f"--from-file: summary {err!r}")
    check_sheet(out, "N-37-I", box_200(36, 56, 1))
    check_sheet(out, "N-37-III", box_200(36, 56, 3))
    expect(os.path.exists(theirs) and not os.path.exists(os.path.join(out, "N-37-II", "HYPS", "Hypsa.shp")),
           "the refused sheet's folder was touched")
    expect(not leftovers(out), f"--from-file: left {leftovers(out)}")

    out = fresh("stdin")
    rc, _, err = run("--from-file", "-", "--out", out, "--scene", "latlong", stdin=b"N-37-IV\nN-37-X\n")
    expect(rc == 0, f"--from-file -: exit {rc}: {err}")
    for name in ("N-37-IV", "N-37-X"):
        with open(os.path.join(out, name, "HYPS", "Hypsa.pj4")) as f:
            expect(f.read().strip() == GEOGRAPHIC, f"{name}: --scene latlong did not reach the sheet")


def check_progress_bar():
    """On a terminal the sheets done are shown as a bar that is redrawn in place, with a failure told
    above it; the lines of the sheets written are left out there."""
    out = fresh("bar")
    master, slave = os.openpty()
    p = subprocess.Popen([VXK, "generate", "N-37-I", "Z-1", "N-37-II", "--out", out, "-j", "2"],
                         stdout=subprocess.PIPE, stderr=slave)
    os.close(slave)
    screen = b""
    while True:
        try:
            chunk = os.read(master, 4096)
        except OSError:  # the terminal is gone when the process has ended
            break
        if not chunk:
            break
        screen += chunk
    stdout = p.stdout.read().decode("utf-8")
    rc = p.wait()
    os.close(master)
    screen = screen.decode("utf-8")
    expect(rc == 1, f"progress bar: exit {rc}")
    expect(screen.startswith("\r[" + " " * 30 + "] 0/3 sheets"), f"progress bar: begins {screen[:60]!r}")
    expect("\r[" + "#" * 30 + "] 3/3 sheets, 1 failed" in screen, f"progress bar: ends {screen[-80:]!r}")
    expect("\r\x1b[Kvxk generate: Z-1:" in screen, f"progress bar: the failure is not told above it: {screen!r}")
    expect(stdout == "", f"progress bar: on standard output {stdout!r}")
    expect("1 of 3 sheets failed: Z-1" in screen, f"progress bar: summary {screen!r}")


def check_all_fail():
    out = fresh("all_fail")
    rc, _, err = run("Z-1", "Z-2", "--out", os.path.join(out, "deeper"))
    expect(rc == 1 and "2 of 2 sheets failed" in err, f"all failing: exit {rc}: {err}")
    expect(not os.path.exists(os.path.join(out, "deeper")), "all failing: the folder made for them stays")


def check_usage():
    for args, status, words in (
        (["--children", "N-37", "--box", "1", "2", "3", "4", "--steps", "1", "1", "--out", "x"], 2, "--box"),
        (["N-37", "N-38", "--out", "x", "-j", "0"], 2, "1 to 64"),
        (["N-37", "N-38", "--out", "x", "-j", "65"], 2, "1 to 64"),
        (["--children", "N-37-VI", "--out", os.path.join(ROOT, "no")], 1, "single 1:1,000,000 sheet"),
        (["--children", "N-37,38", "--out", os.path.join(ROOT, "no")], 1, "single 1:1,000,000 sheet"),
        (["--from-file", os.path.join(ROOT, "none.txt"), "--out", os.path.join(ROOT, "no")], 1, "cannot read"),
    ):
        rc, _, err = run(*args)
        expect(rc == status and words in err, f"{args}: exit {rc}: {err!r}")
    expect(not os.path.exists(os.path.join(ROOT, "no")), "a refused run made its folder")
    rc, stdout, _ = run("--help")
    expect(rc == 0 and "--children SHEET" in stdout and "--from-file FILE" in stdout and "-j N" in stdout,
           f"--help: {stdout!r}")


def main():
    shutil.rmtree(ROOT, ignore_errors=True)
    os.makedirs(ROOT)
    check_several()
    check_children()
    check_file_and_a_failure()
    check_progress_bar()
    check_all_fail()
    check_usage()
    return verdict()


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""`vxk generate` run as a user runs it: what it writes (read back with GDAL and ogrinfo), what it
prints, how it reads designations, and that a refused or failed run leaves nothing behind."""
import os
import shutil
import subprocess
import sys

from osgeo import ogr, osr

ogr.UseExceptions()

VXK = os.path.join(os.environ.get("VXK_BIN_DIR", "."), "vxk")
ROOT = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "vxk_generate")
PULKOVO = "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
UTM37 = "+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs"
failures = []


def expect(cond, what):
    if not cond:
        failures.append(what)


def run(*args):
    p = subprocess.run([VXK, "generate", *args], capture_output=True)
    return p.returncode, p.stdout.decode("utf-8"), p.stderr.decode("utf-8")


def fresh(name):
    path = os.path.join(ROOT, name)
    shutil.rmtree(path, ignore_errors=True)
    return path


def leftovers():
    """Temporary folders that a run left in or beside its destination."""
    return [os.path.join(d, n) for d, dirs, _ in os.walk(ROOT) for n in dirs if ".vxk-" in n]


def area(path):
    ds = ogr.Open(path)
    layer = ds.GetLayer()
    f = layer.GetNextFeature()
    return ds, layer, f


def check_set(out, name, box, scene_is_geographic=False):
    for rel in ("HYPS/Hypsa", "latlong/HYPS/Hypsa"):
        for ext in (".shp", ".shx", ".dbf", ".prj", ".pj4", ".cpg"):
            expect(os.path.exists(os.path.join(out, rel + ext)), f"{out}: no {rel}{ext}")
        with open(os.path.join(out, rel + ".cpg")) as f:
            expect(f.read() == "1251", f"{out}/{rel}.cpg does not say 1251")
        info = subprocess.run(["ogrinfo", "-ro", "-al", os.path.join(out, rel + ".shp")], capture_output=True,
                              text=True)
        expect(info.returncode == 0 and "Warning" not in info.stdout + info.stderr,
               f"ogrinfo {out}/{rel}.shp: {info.stderr}")
    ds, layer, f = area(os.path.join(out, "latlong/HYPS/Hypsa.shp"))
    expect(f.GetField("NAME") == name, f"{out}: NAME {f.GetField('NAME')!r}, expected {name!r}")
    expect(layer.GetMetadata_Dict("SHAPEFILE").get("SOURCE_ENCODING") == "CP1251", f"{out}: not read as CP1251")
    got = layer.GetExtent()
    expect(all(abs(a - b) < 1e-7 for a, b in zip(got, box)), f"{out}: latlong box {got}, expected {box}")
    ds2, scene_layer, _ = area(os.path.join(out, "HYPS/Hypsa.shp"))
    expect(bool(scene_layer.GetSpatialRef().IsGeographic()) == scene_is_geographic, f"{out}: scene units")


def check_sheets():
    out = fresh("n37vi")
    rc, stdout, err = run("N-37-VI", "--out", out)
    expect(rc == 0, f"N-37-VI: exit {rc}: {err}")
    expect("HYPS/Hypsa.shp" in stdout and "latlong/HYPS/Hypsa.shp" in stdout and "written to" in stdout,
           f"N-37-VI: output {stdout!r}")
    expect("+lon_0=39" in stdout and "+x_0=7500000" in stdout, f"N-37-VI: not zone 7: {stdout!r}")
    check_set(out, "N-37-VI", (41, 42, 56 - 2 / 3, 56))

    for text in (" n-37-vi ", "N-37-ХІ", "М-37", "n-37,38"):  # blanks, case, Cyrillic look-alikes
        out = fresh("forgiving")
        rc, stdout, err = run(text, "--out", out)
        expect(rc == 0, f"{text!r}: exit {rc}: {err}")
    check_set(out, "N-37,38", (36, 48, 52, 56))

    out = fresh("south")
    rc, _, err = run("A-37", "--south", "--out", out)
    expect(rc == 0, f"--south A-37: exit {rc}: {err}")
    check_set(out, "A-37", (36, 42, -4, 0))

    out = fresh("latlong_scene")
    rc, _, err = run("N-37", "--scene", "latlong", "--out", out)
    expect(rc == 0, f"--scene latlong: exit {rc}: {err}")
    check_set(out, "N-37", (36, 42, 52, 56), scene_is_geographic=True)
    with open(os.path.join(out, "HYPS/Hypsa.pj4")) as f:
        expect(f.read().strip() == PULKOVO, f"--scene latlong: the scene is not the sheet's own system")

    out = fresh("utm_scene")
    rc, _, err = run("N-37", "--scene", UTM37, "--out", out)
    expect(rc == 0, f"--scene UTM: exit {rc}: {err}")
    ds, layer, _ = area(os.path.join(out, "HYPS/Hypsa.shp"))
    expected = osr.SpatialReference()
    expected.ImportFromProj4(UTM37)
    expect(layer.GetSpatialRef().IsSame(expected, ["IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES"]),
           "--scene UTM: the .prj is not UTM zone 37")

    out = fresh("divisions")
    rc, _, err = run("N-37", "--lon-divs", "12,2", "--lat-divs", "8,3", "--out", out)
    expect(rc == 0, f"--lon-divs: exit {rc}: {err}")


def check_box():
    out = fresh("box")
    rc, stdout, err = run("--box", "30", "36", "50", "54", "--steps", "1", "1", "--out", out)
    expect(rc == 0, f"--box: exit {rc}: {err}")
    check_set(out, "Base list", (30, 36, 50, 54))
    expect("+lon_0=33" in stdout, f"--box: not the zone of its middle: {stdout!r}")


def check_refusals():
    """Each of these exits 1 with its reason, and leaves neither the destination nor a temporary folder."""
    cases = [
        (["Н-37"], "reads as N"),
        (["N-37-b"], "reads as Б"),
        (["N-37,39"], "reads N-37,38"),
        (["N-37-12"], "1:1,000,000 and 1:200,000"),
        (["X-1"], "is not a band letter"),
        (["N-37", "--scene", "+proj=bogus"], "cannot use the projection"),
        (["N-37", "--lon-divs", "0,6"], "each division must be 1 or more"),
        (["N-37", "--lat-divs", "1000,1000"], "more than 100000 lines or marks"),
        (["--box", "30", "36", "50", "54", "--steps", "-1", "1"], "grid steps must be finite and positive"),
        (["--box", "36", "30", "50", "54", "--steps", "1", "1"], "each minimum below its maximum"),
        (["--box", "0", "1", "50", "54", "--steps", "1e-9", "1"], "more than 100000"),
    ]
    for args, words in cases:
        out = fresh("refused")
        rc, stdout, err = run(*args, "--out", os.path.join(out, "deeper"))
        expect(rc == 1, f"{args}: exit {rc}")
        expect(words in err, f"{args}: message {err!r} lacks {words!r}")
        expect(stdout == "", f"{args}: printed {stdout!r}")
        expect(not os.path.exists(out), f"{args}: left {out}")
        expect(not leftovers(), f"{args}: left {leftovers()}")


def check_usage():
    for args in (["N-37"], ["--out"], ["N-37", "N-38", "--out", "x"], ["--box", "1", "2", "--out", "x"],
                 ["N-37", "--out", "x", "--lon-divs", "6"], ["N-37", "--out", "x", "--bogus"]):
        rc, _, err = run(*args)
        expect(rc == 2, f"{args}: exit {rc}, expected 2: {err}")
    rc, stdout, _ = run("--help")
    expect(rc == 0 and "--lon-divs M,A" in stdout and "every 10'" in stdout and "--scene" in stdout,
           f"--help: {stdout!r}")


def check_replacing():
    out = fresh("replace")
    run("N-37", "--out", out)
    rc, _, err = run("N-38", "--out", out)
    expect(rc == 0, f"a second run into the same folder: exit {rc}: {err}")
    _, _, f = area(os.path.join(out, "latlong/HYPS/Hypsa.shp"))
    expect(f.GetField("NAME") == "N-38", "the second run did not replace the first")
    mine = os.path.join(out, "HYPS", "my_notes.txt")
    with open(mine, "w") as f:
        f.write("mine")
    rc, _, err = run("N-39", "--out", out)
    expect(rc == 1 and "was not written by this command" in err, f"a foreign file: exit {rc}: {err}")
    expect(os.path.exists(mine), "the foreign file is gone")
    _, _, f = area(os.path.join(out, "latlong/HYPS/Hypsa.shp"))
    expect(f.GetField("NAME") == "N-38", "a refused run touched the set before it")
    with open(os.path.join(out, "keep.txt"), "w") as f:
        f.write("mine")
    os.remove(mine)
    rc, _, err = run("N-39", "--out", out)
    expect(rc == 0 and os.path.exists(os.path.join(out, "keep.txt")), f"other files of the folder: {rc} {err}")
    expect(not leftovers(), f"left {leftovers()}")


def main():
    os.makedirs(ROOT, exist_ok=True)
    check_sheets()
    check_box()
    check_refusals()
    check_usage()
    check_replacing()
    for f in failures:
        print("FAILED:", f)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

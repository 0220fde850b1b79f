#!/usr/bin/env python3
"""vxk labels, run as a user runs it. The TLD files are written here by hand from docs/tld-format.md,
and the reprojected coordinates are checked against cs2cs (proj-bin), so that neither the format nor
the numbers are checked against the library itself."""
import json
import math
import os
import resource
import shutil
import struct
import subprocess
import sys

VXK = os.path.join(os.environ["VXK_BIN_DIR"], "vxk")
TMP = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "vxk_labels_check")
SRC = "+proj=longlat +datum=WGS84"
DST = "+proj=merc +lon_0=0 +datum=WGS84 +units=m"

failures = []


def check(ok, what):
    print(("ok   " if ok else "FAIL ") + what)
    if not ok:
        failures.append(what)


def wide(text):
    return struct.pack("<I", len(text)) + b"".join(struct.pack("<I", ord(c)) for c in text)


def record(kind, points, metrics, text, font, color, style, align, angle, callout):
    body = struct.pack("<iIIid", kind, color, style, align, angle)
    body += struct.pack("<I", len(points)) + b"".join(struct.pack("<dd", *p) for p in points)
    body += struct.pack("<I", len(metrics)) + b"".join(struct.pack("<ddd", *m) for m in metrics)
    body += wide(text) + wide(font)
    if callout is None:
        body += struct.pack("<I", 0)
    else:
        body += struct.pack("<II", 1, len(callout)) + b"".join(struct.pack("<dd", *p) for p in callout)
    return struct.pack("<I", len(body)) + body


LABELS = [
    dict(kind=2, points=[(37.5, 55.7), (37.6, 55.72), (37.7, 55.75)],
         metrics=[(0.01, 0.002, -0.001), (0.012, 0.0, 0.001), (0.014, -0.002, 0.0)],
         text="Москва-река", font="Times New Roman", color=0xFF0033CC, style=2, align=7, angle=12.5,
         callout=[(37.65, 55.8)]),
    dict(kind=1, points=[(30.3, 59.9), (30.4, 59.95)], metrics=[(0.02, 0.001, 0.003)],
         text='Санкт-Петербург "СПб"', font="Arial", color=0x80112233, style=5, align=-1, angle=-90.0,
         callout=None),
]


def tld(labels):
    return b"VXTL" + struct.pack("<II", 1, len(labels)) + b"".join(record(**l) for l in labels)


def vxk(*args, limit_file_size=None, cwd=None):
    def limits():
        if limit_file_size is not None:
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit_file_size, limit_file_size))
    return subprocess.run([os.path.abspath(VXK), "labels", *args], capture_output=True, text=True,
                          preexec_fn=limits, cwd=cwd)


def file_bytes(path):
    with open(path, "rb") as f:
        return f.read()


def cs2cs(points):
    text = "".join(f"{x!r} {y!r}\n" for x, y in points)
    out = subprocess.run(["cs2cs", *SRC.split(), "+to", *DST.split(), "-f", "%.6f"], input=text,
                         capture_output=True, text=True, check=True).stdout
    return [tuple(float(v) for v in line.split()[:2]) for line in out.splitlines()]


def dump(path):
    r = vxk("--dump", path)
    check(r.returncode == 0, f"--dump {os.path.basename(path)} exits 0 ({r.stderr.strip()})")
    return json.loads(r.stdout)


def near(a, b, tol):
    return all(abs(p - q) <= tol for p, q in zip(a, b))


def main():
    os.makedirs(TMP, exist_ok=True)
    src = os.path.join(TMP, "src.tld")
    dst = os.path.join(TMP, "dst.tld")
    for p in (src, dst):
        if os.path.exists(p):
            os.remove(p)
    with open(src, "wb") as f:
        f.write(tld(LABELS))

    # The hand-written file reads as written.
    before = dump(src)["labels"]
    check(len(before) == 2, "the hand-written file holds two labels")
    check(before[0]["text"] == "Москва-река" and before[1]["text"] == 'Санкт-Петербург "СПб"', "texts read back")
    check(before[0]["color"] == "#FF0033CC" and before[1]["style"] == 5 and before[1]["align"] == -1,
          "colour, style and align read back")
    check(before[0]["callout"] == [[37.65, 55.8]] and before[1]["callout"] is None, "callouts read back")

    r = vxk(src, dst, "--from", SRC, "--to", DST)
    check(r.returncode == 0 and "2 labels written" in r.stdout, f"reprojection exits 0: {r.stdout.strip()}")
    after = dump(dst)["labels"]

    k_ends = cs2cs([(0, 0), (1, 1)])
    k = math.dist(*k_ends) / math.sqrt(2)
    for i, label in enumerate(LABELS):
        got = after[i]
        want = cs2cs(label["points"])
        check(all(near(g, w, 1e-3) for g, w in zip(got["points"], want)), f"label {i}: points agree with cs2cs")
        sizes = [(m["size"], m["dx"], m["dy"]) for m in got["sizes"]]
        scaled = [tuple(v * k for v in m) for m in label["metrics"]]
        check(all(near(s, w, 1e-6 * k) for s, w in zip(sizes, scaled)) and len(sizes) == len(scaled),
              f"label {i}: sizes and deltas multiplied by k = {k:.3f}")
        for field in ("type", "text", "font", "color", "style", "align", "angle"):
            check(got[field] == before[i][field], f"label {i}: {field} carried unchanged")
    check(near(after[0]["callout"][0], cs2cs([(37.65, 55.8)])[0], 1e-3), "callout end point agrees with cs2cs")

    # The systems by EPSG code: the same points as the PROJ strings of World Mercator on WGS 84.
    os.remove(dst)
    r = vxk(src, dst, "--from", "EPSG:4326", "--to", "EPSG:3395")
    check(r.returncode == 0 and r.stderr == "", f"EPSG codes are taken: {r.stderr.strip()}")
    by_code = dump(dst)["labels"]
    check(all(near(g, w, 1e-3) for i in range(len(LABELS))
              for g, w in zip(by_code[i]["points"], after[i]["points"])), "EPSG codes give the same points")
    r = vxk(src, dst, "--from", "EPSG:999999", "--to", DST)
    check(r.returncode == 1 and "crs not found" in r.stderr, f"an unknown code is refused: {r.stderr.strip()}")

    # The same file as source and destination is refused, however it is spelled: a failed write once
    # left the source cut short.
    inplace = os.path.join(TMP, "inplace.tld")
    with open(inplace, "wb") as f:
        f.write(tld(LABELS))
    link = os.path.join(TMP, "inplace_link.tld")
    if os.path.lexists(link):
        os.remove(link)
    os.symlink(inplace, link)
    hard = os.path.join(TMP, "inplace_hard.tld")
    if os.path.lexists(hard):
        os.remove(hard)
    os.link(inplace, hard)
    for same, cwd in ((inplace, None), (os.path.join(TMP, ".", "inplace.tld"), None), ("./inplace.tld", TMP),
                      (link, None), (hard, None)):
        r = vxk(inplace, same, "--from", SRC, "--to", DST, cwd=cwd)
        check(r.returncode == 2 and "is the source" in r.stderr and "give another destination" in r.stderr
              and r.stdout == "" and file_bytes(inplace) == tld(LABELS),
              f"the source as destination ({same}) is refused and left as it was: {r.stderr.strip()}")

    # A write that fails leaves the earlier destination as it was, and says why.
    earlier = file_bytes(dst)
    r = vxk(src, dst, "--from", SRC, "--to", "+proj=merc +lon_0=10 +datum=WGS84", limit_file_size=64)
    check(r.returncode == 1 and "File too large" in r.stderr and file_bytes(dst) == earlier
          and not [n for n in os.listdir(TMP) if n.startswith(".")],
          f"a write past a file size limit exits 1 and keeps the earlier file: {r.stderr.strip()}")

    # Failures, each with a message and nothing written.
    bad = os.path.join(TMP, "bad.tld")
    r = vxk(src, bad, "--from", "not a projection", "--to", DST)
    check(r.returncode == 1 and "PROJ cannot read --from \"not a projection\"" in r.stderr and
          not os.path.exists(bad), f"a system PROJ does not know exits 1 and writes nothing: {r.stderr.strip()}")
    r = vxk(src, bad, "--from", "+proj=nonsense", "--to", DST)
    check(r.returncode == 1 and "cannot build the transformation" in r.stderr and not os.path.exists(bad),
          "an unbuildable transformation exits 1 and writes nothing")
    r = vxk(os.path.join(TMP, "absent.tld"), bad, "--from", SRC, "--to", DST)
    check(r.returncode == 1 and "cannot" in r.stderr and not os.path.exists(bad), "a missing source exits 1")
    truncated = os.path.join(TMP, "truncated.tld")
    with open(truncated, "wb") as f:
        f.write(tld(LABELS)[:-7])
    r = vxk("--dump", truncated)
    check(r.returncode == 1 and "truncated" in r.stderr, f"a truncated file is refused: {r.stderr.strip()}")
    shutil.rmtree(os.path.join(TMP, "new"), ignore_errors=True)
    r = vxk(src, os.path.join(TMP, "new", "folder.tld"), "--from", SRC, "--to", DST)
    check(r.returncode == 0 and os.path.exists(os.path.join(TMP, "new", "folder.tld")),
          "a missing destination folder is created")
    shutil.rmtree(os.path.join(TMP, "new"), ignore_errors=True)
    r = vxk(src, os.path.join(TMP, "new", "folder.tld"), "--from", SRC, "--to", DST, limit_file_size=64)
    check(r.returncode == 1 and not os.path.exists(os.path.join(TMP, "new")),
          "a failed run removes the folder it created")
    r = vxk(src, dst, "--from", SRC)
    check(r.returncode == 2 and "--to" in r.stderr and r.stderr.endswith("(see 'vxk labels --help')\n"),
          "a missing --to is a usage error, told in one line")
    r = vxk()
    check(r.returncode == 2, "no arguments is a usage error")
    r = vxk("--help")
    check(r.returncode == 0 and "examples:" in r.stdout and "--dump" in r.stdout, "--help shows examples")
    sys.exit(1 if failures else 0)


main()

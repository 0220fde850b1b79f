#!/usr/bin/env python3
"""The GDAL form of PROJ strings, checked with GDAL and PROJ's own tools.

For every entry of the catalogue (`vxk proj list`, with an earth added where the entry has none) and
for the Gauss-Kruger, UTM and Lambert systems a user writes by hand, the GDAL form (`vxk proj gdal`)
must be imported by GDAL's osr without error, as a plain system (its WKT has no PROJ4 extension), and
points transformed by GDAL into the GDAL form must agree to 1 mm with the same points transformed by
cs2cs into the original text. The one intended difference, a two-parallel Lambert conic without
+lat_0, is checked as the shift of origin that it is.
"""
import math
import os
import re
import subprocess
import sys

from osgeo import osr

osr.UseExceptions()

VXK = os.path.join(os.environ["VXK_BIN_DIR"], "vxk")
TOLERANCE_M = 0.001
TOLERANCE_DEG = 1e-8  # about 1 mm on the ground
PULKOVO = "+ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12"

failures = []


def check(ok, what):
    if not ok:
        print("FAIL " + what)
        failures.append(what)


def vxk(*args):
    return subprocess.run([VXK, "proj", *args], capture_output=True, text=True)


def catalogue():
    """(index, caption, PROJ string) of every entry, read from `vxk proj list`."""
    r = vxk("list")
    assert r.returncode == 0, r.stderr
    entries = []
    for line in r.stdout.splitlines():
        head, text = line.split("+proj=", 1)
        index, caption = head.strip().split(None, 1)
        entries.append((int(index), caption.strip(), "+proj=" + text.strip()))
    return entries


def param(text, name):
    m = re.search(r"\+" + name + r"=([-0-9.eE]+)", text)
    return float(m.group(1)) if m else None


def earth_of(caption, text):
    """The earth added to an entry without one: the Gauss-Kruger zones are on Pulkovo 1942."""
    if "+datum=" in text or "+ellps=" in text:
        return ""
    return PULKOVO if caption.startswith("Gauss-Kruger") else "+ellps=WGS84"


def geographic_of(text):
    """The geographic system on the same earth as the text, written here from its parameters."""
    keep = [p for p in text.split() if p.split("=")[0] in ("+datum", "+ellps", "+towgs84", "+a", "+b", "+R", "+rf")]
    return "+proj=longlat " + " ".join(keep) + " +no_defs"


def wrap(lon):
    return (lon + 180.0) % 360.0 - 180.0


def test_points(text):
    """Points around the centre of the projection, inside its domain."""
    if "+proj=utm" in text:
        lon0 = 6 * param(text, "zone") - 183
        lat0 = -45.0 if "+south" in text else 45.0
    else:
        lon0 = param(text, "lon_0") or param(text, "lonc") or 0.0
        lat0 = param(text, "lat_0")
        if lat0 is None:
            lat0 = param(text, "lat_1") or 0.0
    if abs(lat0) >= 85:
        sign = 1 if lat0 > 0 else -1
        return [(wrap(lon0 + dl), sign * lat) for dl in (0, 30, -60) for lat in (85, 80)]
    return [(wrap(lon0 + dl), max(-80.0, min(80.0, lat0 + dp))) for dl in (-2, 0, 3) for dp in (-2, 1, 4)]


def cs2cs(src, dst, points, geographic_out):
    fmt = "%.10f" if geographic_out else "%.6f"
    stdin = "".join(f"{lon!r} {lat!r}\n" for lon, lat in points)
    r = subprocess.run(["cs2cs", "-f", fmt, *src.split(), "+to", *dst.split()], input=stdin,
                       capture_output=True, text=True)
    if r.returncode != 0:
        return None
    out = []
    for line in r.stdout.splitlines():
        f = line.split()
        out.append((float(f[0]), float(f[1])) if f[0] != "*" else (math.inf, math.inf))
    return out


def srs(text):
    s = osr.SpatialReference()
    err = s.ImportFromProj4(text)
    s.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    return s if err == 0 else None


def proj_tool(text, points):
    """PROJ's own projection operation, without any system around it: the `proj` program."""
    stdin = "".join(f"{lon!r} {lat!r}\n" for lon, lat in points)
    r = subprocess.run(["proj", "-f", "%.6f", *text.split()], input=stdin, capture_output=True, text=True)
    return [tuple(float(v) for v in line.split()[:2]) for line in r.stdout.splitlines()] if r.returncode == 0 else None


def one_parallel_conic(text):
    return "+proj=lcc" in text and "+lat_2=" not in text


def gdal_points(src, dst, points):
    t = osr.CoordinateTransformation(srs(src), srs(dst))
    return [tuple(t.TransformPoint(lon, lat)[:2]) for lon, lat in points]


def gdal_form(text):
    r = vxk("gdal", text)
    return r.stdout.strip() if r.returncode == 0 else None


def compare(label, original, northing_shift=0.0):
    """original through cs2cs against its GDAL form through GDAL; the GDAL form's northings may be
    expected to differ by a constant."""
    corrected = gdal_form(original)
    check(corrected is not None, f"{label}: vxk proj gdal gives a text for {original}")
    if corrected is None:
        return
    check("+lon_wrap" not in corrected and corrected.endswith("+no_defs"), f"{label}: tail of {corrected}")
    try:
        dst = srs(corrected)
    except RuntimeError as e:
        dst = None
        check(False, f"{label}: GDAL cannot import {corrected}: {e}")
    if dst is None:
        return
    check("EXTENSION" not in dst.ExportToWkt(), f"{label}: GDAL keeps {corrected} as a PROJ4 extension")
    geo = geographic_of(original)
    points = test_points(corrected)
    geographic = "+proj=longlat" in original or "+proj=latlong" in original
    expected = cs2cs(geo, original, points, geographic)
    check(expected is not None, f"{label}: cs2cs transforms into {original}")
    if expected is not None and one_parallel_conic(original):
        # A Lambert conic with one parallel is a cone tangent there, with its origin on it: so PROJ's
        # projection operation reads it, and so the GDAL form writes it out. PROJ 9.1 reads the same
        # string as a coordinate system (cs2cs, GDAL, the library's own reprojection) with +lat_2 and
        # +lat_0 taken for 0, another conic; the GDAL form is checked against the operation.
        reference = proj_tool(original, points)
        moved = max(abs(a - b) for e, r in zip(expected, reference) for a, b in zip(e, r))
        print(f"note {label}: cs2cs reads {original} as another conic, {moved:.0f} m away from PROJ's operation")
        expected = reference
    if expected is None:
        return
    got = gdal_points(geo, corrected, points)
    tol = TOLERANCE_DEG if geographic else TOLERANCE_M
    for p, e, g in zip(points, expected, got):
        dx, dy = g[0] - e[0], g[1] - (e[1] - northing_shift)
        check(abs(dx) <= tol and abs(dy) <= tol,
              f"{label}: point {p}: cs2cs {e} with {original}, GDAL {g} with {corrected} (shift {northing_shift})")


def check_catalogue():
    entries = catalogue()
    check(len(entries) == 209, f"the catalogue lists {len(entries)} entries")
    for index, caption, text in entries:
        earth = earth_of(caption, text)
        original = text.replace(" +no_defs", (" " + earth if earth else "") + " +no_defs")
        compare(f"entry {index} {caption}", original)
    return len(entries)


HAND_WRITTEN = [
    # The systems of the vxk reproject examples, as users write them.
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 " + PULKOVO + " +units=m +no_defs",
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m",
    "+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs",
    "+proj=utm +zone=37 +south +ellps=WGS84 +units=m +no_defs",
    "+proj=longlat " + PULKOVO + " +no_defs",
    # Gauss-Kruger zones east of 180 degrees, with the meridian written either way.
    "+proj=tmerc +lat_0=0 +lon_0=183 +k=1 +x_0=31500000 +y_0=0 " + PULKOVO + " +units=m +no_defs",
    "+proj=tmerc +lat_0=0 +lon_0=-177 +k=1 +x_0=31500000 +y_0=0 " + PULKOVO + " +units=m +no_defs",
    # The conics the correction is for.
    "+proj=lcc +lat_1=45 +lon_0=10 +ellps=GRS80 +units=m +no_defs",
    "+proj=lcc +lat_1=52 +lon_0=100 +x_0=1000000 +k_0=0.9999 +ellps=krass +no_defs",
    "+proj=lcc +lat_1=45 +lat_2=55 +lat_0=40 +lon_0=10 +ellps=GRS80 +no_defs",
    # A sphere keeps +a and +b in the GDAL form.
    "+proj=merc +R=6371000 +no_defs",
]


def check_hand_written():
    for text in HAND_WRITTEN:
        compare("by hand", text)


def check_conic_without_origin():
    """+lat_1 and +lat_2 without +lat_0: PROJ puts the origin on the equator, the GDAL form on +lat_1.
    A Lambert conic's northing is rho(origin) - rho(point) cos(theta), so the two differ by the constant
    rho(0) - rho(lat_1), which is the original northing of the point (lon_0, lat_1)."""
    text = "+proj=lcc +lat_1=45 +lat_2=55 +lon_0=10 +ellps=GRS80 +units=m +no_defs"
    shift = cs2cs(geographic_of(text), text, [(10.0, 45.0)], False)[0][1]
    check(shift > 4.9e6, f"the origin shift of the conic is the northing of 45 N: {shift}")
    compare("conic without origin", text, northing_shift=shift)


def check_why_lon_wrap_goes():
    """The library's own tail would make GDAL keep the text as a PROJ4 extension, not as a WKT system."""
    s = srs("+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +units=m +lon_wrap=45 +no_defs")
    check(s is not None and "EXTENSION" in s.ExportToWkt(), "GDAL keeps +lon_wrap only as a PROJ4 extension")


n = check_catalogue()
check_hand_written()
check_conic_without_origin()
check_why_lon_wrap_goes()
if failures:
    print(f"{len(failures)} checks failed")
    sys.exit(1)
print(f"all checks passed: {n} catalogue entries and {len(HAND_WRITTEN) + 1} hand-written systems")

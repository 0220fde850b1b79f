#!/usr/bin/env python3
"""`vxk render` as a user runs it: pictures of a generated N-37-VI (scene and latlong sets) and of a free
box, and of a complete set that GDAL wrote (sheet_mock.py) with every record kind and label. The PNG
files are read back with GDAL, the SVG files with Python's XML parser."""
import os
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ET

import numpy
from osgeo import gdal, ogr

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from checks import expect, verdict  # noqa: E402
from sheet_mock import LABEL, add, layer, write_mock_set  # noqa: E402

gdal.UseExceptions()
ogr.UseExceptions()

VXK = os.path.join(os.environ.get("VXK_BIN_DIR", "."), "vxk")
ROOT = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "vxk_render")
SVG = "{http://www.w3.org/2000/svg}"


def vxk(*args):
    p = subprocess.run([VXK, *args], capture_output=True)
    return p.returncode, p.stdout.decode("utf-8"), p.stderr.decode("utf-8")


def pixels(png):
    """The picture as an array of rows, columns and the three colours."""
    ds = gdal.Open(png)
    return numpy.dstack([ds.GetRasterBand(b + 1).ReadAsArray() for b in range(3)])


def near(image, rgb, tolerance=30):
    """The number of pixels within the tolerance of a colour."""
    return int((numpy.abs(image.astype(int) - numpy.array(rgb)).max(axis=2) <= tolerance).sum())


def check_png(png, width, height=None, what=""):
    expect(os.path.exists(png), f"{what}: no {png}")
    if not os.path.exists(png):
        return None
    image = pixels(png)
    expect(image.shape[1] == width, f"{what}: {image.shape[1]} pixels wide, asked {width}")
    if height is not None:
        expect(image.shape[0] == height, f"{what}: {image.shape[0]} pixels high, asked {height}")
    expect(len(numpy.unique(image.reshape(-1, 3), axis=0)) > 1, f"{what}: every pixel has one colour")
    return image


def labels_of_set(folder):
    """The texts of the label files of a set, as GDAL reads them, in order."""
    texts = []
    for name in ("FrameDig", "FrameAdj"):
        path = os.path.join(folder, "FRAME", name + ".shp")
        if os.path.exists(path):
            ds = ogr.Open(path)
            texts += [f.GetField("TEXT").strip() for f in ds.GetLayer() if (f.GetField("TEXT") or "").strip()]
    return texts


def check_svg(svg, title, labels, width):
    """A valid SVG document: its title, the label texts in its description, and a glyph drawn for every
    character of them."""
    root = ET.parse(svg).getroot()
    expect(root.tag == SVG + "svg", f"{svg}: root element {root.tag}")
    expect(root.get("width") == f"{width}px", f"{svg}: width {root.get('width')}")
    expect(root.findtext(SVG + "title") == title, f"{svg}: title {root.findtext(SVG + 'title')!r}")
    desc = (root.findtext(SVG + "desc") or "").split("\n")
    expect(desc[0] == "Labels:" and desc[1:] == labels, f"{svg}: labels {desc[1:]} != {labels}")
    glyphs = sum(1 for e in root.iter(SVG + "use") if "glyph" in (e.get("{http://www.w3.org/1999/xlink}href") or ""))
    characters = sum(len(t.replace(" ", "")) for t in labels)
    expect(glyphs >= characters, f"{svg}: {glyphs} glyphs drawn for {characters} characters of the labels")


def fresh(name):
    path = os.path.join(ROOT, name)
    shutil.rmtree(path, ignore_errors=True)
    os.makedirs(path)
    return path


def check_generated_sheet():
    work = fresh("n37vi")
    rc, _, err = vxk("generate", "N-37-VI", "--out", os.path.join(work, "set"))
    expect(rc == 0, f"generate N-37-VI: {err}")
    png = os.path.join(work, "sheet.png")
    rc, out, err = vxk("render", os.path.join(work, "set"), "--out", png, "--size", "640")
    expect(rc == 0, f"render N-37-VI: exit {rc}: {err}")
    expect("N-37-VI, 1:200,000 drawn from" in out and "picture written to" in out, f"render N-37-VI: {out!r}")
    image = check_png(png, 640, what="N-37-VI png")
    if image is not None:
        expect(f"640 x {image.shape[0]} pixels" in out, f"render N-37-VI: the size told is not the picture's: {out!r}")
        expect(near(image, (252, 247, 230), 6) > 10000, "N-37-VI png: the sheet's area is not drawn")
    mask = os.umask(0)
    os.umask(mask)
    expect(os.stat(png).st_mode & 0o777 == 0o666 & ~mask, f"{png}: modes {oct(os.stat(png).st_mode)}")
    rc, _, err = vxk("render", os.path.join(work, "set"), "--out", png, "--size", "500x300")
    expect(rc == 0, f"render N-37-VI --size 500x300: exit {rc}: {err}")
    check_png(png, 500, 300, "N-37-VI --size 500x300")

    svg = os.path.join(work, "sheet.svg")
    rc, out, err = vxk("render", os.path.join(work, "set"), "--out", svg, "--size", "700")
    expect(rc == 0, f"render N-37-VI svg: exit {rc}: {err}")
    check_svg(svg, "N-37-VI, 1:200,000", labels_of_set(os.path.join(work, "set")), 700)

    png = os.path.join(work, "latlong.png")
    rc, out, err = vxk("render", os.path.join(work, "set", "latlong"), "--out", png, "--size", "400")
    expect(rc == 0, f"render the latlong set: exit {rc}: {err}")
    check_png(png, 400, what="latlong png")
    expect(not [n for n in os.listdir(work) if ".vxk-" in n], f"temporary files left in {work}")


def check_mock_set():
    """Every record kind, every label: the styles are told apart in the PNG, the texts are in the SVG."""
    work = fresh("mock")
    labels = [t.strip() for t in write_mock_set(os.path.join(work, "set"))]
    png = os.path.join(work, "mock.png")
    rc, out, err = vxk("render", os.path.join(work, "set"), "--out", png, "--size", "1200")
    expect(rc == 0, f"render the mock: exit {rc}: {err}")
    expect("not in the set" not in out, f"render the mock: {out!r}")
    image = check_png(png, 1200, what="mock png")
    if image is not None:
        for name, rgb in (("paper", (252, 247, 230)), ("point red", (199, 41, 26)), ("black", (0, 0, 0))):
            expect(near(image, rgb) > 20, f"mock png: no {name} pixels")
        # The graticule's thin blue lines are blended with the paper: pixels clearly more blue than red.
        bluish = int((image[:, :, 2].astype(int) > image[:, :, 0].astype(int) + 40).sum())
        expect(bluish > 1000, f"mock png: {bluish} pixels of the graticule's blue")
    svg = os.path.join(work, "mock.svg")
    rc, out, err = vxk("render", os.path.join(work, "set"), "--out", svg, "--size", "1200")
    expect(rc == 0, f"render the mock svg: exit {rc}: {err}")
    check_svg(svg, "N-37-VI, 1:200,000", labels, 1200)

    os.remove(os.path.join(work, "set", "HYPS", "Hypsa.shp"))
    rc, _, err = vxk("render", os.path.join(work, "set"), "--out", png)
    expect(rc == 1 and "--scale" in err, f"a set without its area: exit {rc}: {err}")
    rc, out, err = vxk("render", os.path.join(work, "set"), "--out", png, "--scale", "1:200,000", "--size", "300")
    expect(rc == 0 and "HYPS/Hypsa.shp" in out, f"--scale: exit {rc}: {err} {out}")
    check_png(png, 300, what="--scale png")


def one_label(name, ends, text, font, size):
    """A set that GDAL writes with one label file of one record: its base line in metres, its text, font
    and size. Rendered at 1:200,000 on a page 1000 pixels wide."""
    work = fresh(name)
    frame = os.path.join(work, "set", "FRAME")
    os.makedirs(frame)
    ds, lyr = layer(frame, "FrameAdj", ogr.wkbLineString, LABEL)
    add(lyr, list(ends), ID=1, L_CODE=400911, TEXT=text, FONT=font, SIZE=size)
    ds = None
    png = os.path.join(work, "label.png")
    rc, _, err = vxk("render", os.path.join(work, "set"), "--out", png, "--scale", "1:200000", "--size", "1000")
    expect(rc == 0, f"render {name}: exit {rc}: {err}")
    return pixels(png) if rc == 0 else None


def ink(image):
    """The box (left, top, right, bottom) of the text's black pixels."""
    rows, cols = numpy.nonzero(image.max(axis=2) < 90)
    return (cols.min(), rows.min(), cols.max(), rows.max()) if len(rows) else (0, 0, -1, -1)


def base_line(image):
    """The box of the base line's grey pixels."""
    grey = (numpy.abs(image.astype(int) - 178).max(axis=2) <= 25) & (image.max(axis=2) - image.min(axis=2) < 8)
    rows, cols = numpy.nonzero(grey)
    return (cols.min(), rows.min(), cols.max(), rows.max()) if len(rows) else (0, 0, -1, -1)


def check_label_placement():
    """A label stands centred on its base line and turned with it, in the font and at the size that its
    table gives. The page's scale is read off the base line, 8000 m long: 6.5 points at 1:200,000 are
    458.6 m on the ground, and the capitals and digits of a serif face stand about 0.66 of that high."""
    text, times, length = "N-37-XXXVI", "Times New Roman", 8000.0
    flat = one_label("label_flat", [(0, 0), (length, 0)], text, times, "6.50")
    if flat is None:
        return
    x0, y0, x1, y1 = ink(flat)
    lx0, ly0, lx1, ly1 = base_line(flat)
    expect(lx0 < x0 and x1 < lx1, f"flat label: ink {x0}..{x1} beyond its line {lx0}..{lx1}")
    expect(abs((x0 + x1) / 2 - (lx0 + lx1) / 2) <= 3, f"flat label: not centred along its line: {x0}..{x1}, {lx0}..{lx1}")
    expect(abs((y0 + y1) / 2 - (ly0 + ly1) / 2) <= 3, f"flat label: not centred on its line: {y0}..{y1}, {ly0}..{ly1}")
    per_metre = (lx1 - lx0) / length
    em = 6.5 * 25.4 / 72 * 200 * per_metre
    height = y1 - y0
    expect(0.6 * em < height < 0.75 * em, f"flat label: {height} pixels high at 6.5 points, an em is {em:.1f}")
    # The neighbours' names are planned at 260 m a character: Times New Roman at 6.5 points.
    expect(abs((x1 - x0) / per_metre - 260 * len(text)) < 0.15 * 260 * len(text), f"flat label: {x1 - x0} pixels wide")

    big = one_label("label_big", [(0, 0), (length, 0)], text, times, "13.00")
    if big is not None:
        ratio = (ink(big)[3] - ink(big)[1]) / height
        expect(1.85 < ratio < 2.15, f"a label at 13 points is {ratio:.2f} times as high as at 6.5")

    narrow = "IIIIIIII"  # narrow letters of a proportional face, as wide as any other in a fixed one
    widths = []
    for font in (times, "Liberation Mono"):
        image = one_label("label_" + font.replace(" ", "_"), [(0, 0), (length, 0)], narrow, font, "6.50")
        widths.append(ink(image)[2] - ink(image)[0] if image is not None else 0)
    expect(widths[1] > 1.4 * widths[0], f"the same label in Times New Roman and Liberation Mono: {widths} pixels wide")

    standing = one_label("label_standing", [(0, 0), (0, length)], text, times, "6.50")
    if standing is not None:
        sx0, sy0, sx1, sy1 = ink(standing)
        lx0, ly0, lx1, ly1 = base_line(standing)
        per = (ly1 - ly0) / length
        expect(sy1 - sy0 > 3 * (sx1 - sx0), f"a label on an upright line is not turned with it: {sx1 - sx0} by {sy1 - sy0}")
        expect(abs((sx1 - sx0) / per - height / per_metre) < 0.05 * height / per_metre,
               f"a label on an upright line: {(sx1 - sx0) / per:.0f} m across, flat {height / per_metre:.0f} m")
        expect(abs((sx0 + sx1) / 2 - (lx0 + lx1) / 2) <= 3 and abs((sy0 + sy1) / 2 - (ly0 + ly1) / 2) <= 3,
               f"a label on an upright line: not centred on it: {sx0}..{sx1}, {sy0}..{sy1}; {lx0}..{lx1}, {ly0}..{ly1}")

def check_box():
    work = fresh("box")
    rc, _, err = vxk("generate", "--box", "30", "33", "50", "52", "--steps", "1", "1", "--out", os.path.join(work, "set"))
    expect(rc == 0, f"generate a box: {err}")
    rc, out, err = vxk("render", os.path.join(work, "set"), "--out", os.path.join(work, "box.png"), "--size", "300")
    expect(rc == 0 and "Base list, 1:1,000,000" in out, f"render a box: exit {rc}: {err} {out}")


def check_refusals():
    work = fresh("refused")
    old = os.path.join(work, "old.png")
    with open(old, "wb") as f:
        f.write(b"an earlier picture")
    empty = fresh("refused_empty_set")
    cases = [
        ([empty, "--out", old], 1, "holds no generated sheet"),
        ([os.path.join(work, "none"), "--out", old], 1, "is not a folder"),
        ([empty], 2, "--out"),
        ([empty, "--out", os.path.join(work, "a.jpg")], 2, ".png or a .svg"),
        ([empty, "--out", old, "--size", "5"], 2, "16 to 10000"),
        ([empty, "--out", old, "--scale", "1:x"], 2, "--scale takes 1:N"),
        ([empty, "--out", old, "--bogus"], 2, "unknown option"),
    ]
    for args, status, words in cases:
        rc, out, err = vxk("render", *args)
        expect(rc == status and words in err and out == "", f"render {args}: exit {rc}, {err!r}")
    with open(old, "rb") as f:
        expect(f.read() == b"an earlier picture", "a refused render changed the earlier picture")
    mock = os.path.join(work, "set")
    write_mock_set(mock)
    rc, _, err = vxk("render", mock, "--out", os.path.join(work, "missing", "a.png"))
    expect(rc == 1 and "does not exist" in err, f"--out into a missing folder: exit {rc}, {err!r}")
    expect(not os.path.exists(os.path.join(work, "missing")), "--out into a missing folder made it")
    rc, _, err = vxk("render", mock, "--out", old, "--size", "200")
    expect(rc == 0, f"replacing a picture: exit {rc}, {err!r}")
    check_png(old, 200, what="the replaced picture")
    expect(not [n for n in os.listdir(work) if ".vxk-" in n], f"temporary files left in {work}")
    rc, out, _ = vxk("render", "--help")
    expect(rc == 0 and "--size W[xH]" in out and "--scale 1:N" in out, f"--help: {out!r}")


def main():
    shutil.rmtree(ROOT, ignore_errors=True)
    os.makedirs(ROOT)
    check_generated_sheet()
    check_mock_set()
    check_label_placement()
    check_box()
    check_refusals()
    return verdict()


if __name__ == "__main__":
    sys.exit(main())

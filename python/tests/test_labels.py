"""Text lists, TLD files and their reprojection; points checked against PROJ's cs2cs."""

from __future__ import annotations

import math
from pathlib import Path
from typing import List, Tuple

import pytest

import vxk
from conftest import run
from vxk._native import lib

LONGLAT = "+proj=longlat +ellps=krass +no_defs"
GK7 = "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs"


def cs2cs(points: List[Tuple[float, float]], src: str = LONGLAT, dst: str = GK7) -> List[Tuple[float, float]]:
    text = "".join(f"{x!r} {y!r}\n" for x, y in points)
    done = run(["cs2cs", "-f", "%.10f", *src.split(), "+to", *dst.split()], input=text)
    assert done.returncode == 0, done.stderr
    return [(float(line.split()[0]), float(line.split()[1])) for line in done.stdout.splitlines()]


def sample() -> vxk.TextList:
    labels = vxk.TextList()
    town = labels.add("Тверь", [(35.9, 56.86)], size=0.01, font="Arial")
    town.color, town.style, town.align, town.angle = 0xFF112233, vxk.labels.STYLE_BOLD | vxk.labels.STYLE_ITALIC, 4, 15.0
    town.sizes = [vxk.Size(0.01, 0.002, -0.001)]
    town.add_callout([(36.0, 57.0), (36.1, 57.1)])
    river = labels.add("Волга", [(37.0, 56.0), (37.1, 56.05), (37.2, 56.1)], type=vxk.labels.PER_POINT, size=0.02)
    river.sizes = [vxk.Size(0.02, 0.0, 0.001 * i) for i in range(3)]
    labels.add("", [])
    return labels


def test_a_list_keeps_every_field():
    labels = sample()
    assert len(labels) == 3 and "3 labels" in repr(labels)
    town, river, empty = labels
    assert (town.text, town.font, town.type, town.points) == ("Тверь", "Arial", 1, [(35.9, 56.86)])
    assert (town.color, town.style, town.align, town.angle) == (0xFF112233, 3, 4, 15.0)
    assert town.sizes == [(0.01, 0.002, -0.001)]
    assert town.callout is not None and town.callout.end_points == [(36.0, 57.0), (36.1, 57.1)]
    assert len(river.sizes) == 3 and river.sizes[2].dy == pytest.approx(0.002)
    assert empty.points == [] and empty.callout is None and len(empty.sizes) == 1
    assert labels[-1].text == "" and "Волга" in repr(river)
    with pytest.raises(IndexError):
        labels[3]
    with pytest.raises(ValueError):
        town.sizes = []


def test_callout_editing_and_removal():
    labels = sample()
    town = labels[0]
    callout = town.callout
    callout[1] = (1.0, 2.0)
    callout.append((3.0, 4.0))
    assert list(callout) == [(36.0, 57.0), (1.0, 2.0), (3.0, 4.0)] and callout[-1] == (3.0, 4.0) and len(callout) == 3
    with pytest.raises(IndexError):
        callout[3]
    town.remove_callout()
    assert town.callout is None
    with pytest.raises(LookupError):
        len(callout)
    town.add_point((36.5, 57.5))
    town.points = [(1.0, 1.0)]
    assert town.points == [(1.0, 1.0)]
    town.type = vxk.labels.PER_POINT
    assert town.type == 2


def test_views_fail_cleanly_once_the_list_changes():
    labels = sample()
    river = labels[1]
    labels.clear()
    assert len(labels) == 0
    with pytest.raises(IndexError):
        river.text
    labels.close()
    with pytest.raises(ValueError, match="closed"):
        len(labels)
    assert "closed" in repr(labels)


def test_a_tld_file_round_trip(tmp_path: Path):
    path = tmp_path / "labels.tld"
    with sample() as labels:
        labels.save(path)
    with vxk.TextList.load(path) as back:
        assert [(t.text, t.type, t.points, t.sizes, t.font, t.color, t.style, t.align, t.angle) for t in back] == [
            (t.text, t.type, t.points, t.sizes, t.font, t.color, t.style, t.align, t.angle) for t in sample()]
        assert back[0].callout.end_points == [(36.0, 57.0), (36.1, 57.1)]


def test_tld_file_errors(tmp_path: Path):
    with pytest.raises(vxk.FileError, match="does its folder exist"):
        vxk.TldFile(tmp_path / "no" / "such.tld")
    with pytest.raises(vxk.FileError, match="cannot read"):
        vxk.TextList.load(tmp_path / "missing.tld")
    path = tmp_path / "cut.tld"
    sample().save(path)
    path.write_bytes(path.read_bytes()[:-10])
    with vxk.TldFile(path) as f:
        with pytest.raises(vxk.FileError) as caught:
            f.read()
    assert len(caught.value.labels) == 2  # the labels read whole before the defect
    assert f.closed


def test_list_reprojection_against_cs2cs():
    labels = sample()
    labels.reproject(LONGLAT, GK7)
    town, river, _ = labels
    assert town.points == pytest.approx(cs2cs([(35.9, 56.86)]), abs=1e-3)
    assert river.points == pytest.approx(cs2cs([(37.0, 56.0), (37.1, 56.05), (37.2, 56.1)]), abs=1e-3)
    assert town.callout.end_points == pytest.approx(cs2cs([(36.0, 57.0), (36.1, 57.1)]), abs=1e-3)
    (x0, y0), (x1, y1) = cs2cs([(0.0, 0.0), (1.0, 1.0)])
    k = math.hypot(x1 - x0, y1 - y0) / math.sqrt(2)
    assert town.sizes[0] == pytest.approx((0.01 * k, 0.002 * k, -0.001 * k), rel=1e-6)
    assert [s.dy for s in river.sizes] == pytest.approx([0.0, 0.001 * k, 0.002 * k], rel=1e-6)


def test_an_unbuildable_list_reprojection_leaves_the_list():
    labels = sample()
    with pytest.raises(vxk.ProjectionError):
        labels.reproject(LONGLAT, "+proj=nonsense")
    assert labels[0].points == [(35.9, 56.86)]


def test_file_reprojection_writes_what_the_librarys_own_function_writes(tmp_path: Path):
    src = tmp_path / "src.tld"
    sample().save(src)
    vxk.reproject_tld(src, tmp_path / "ours.tld", src=LONGLAT, dst=GK7)
    assert lib.vx_proj4_tld_w(str(src), LONGLAT, str(tmp_path / "wide.tld"), GK7)
    assert lib.vx_proj4_tld(bytes(src), LONGLAT.encode(), bytes(tmp_path / "narrow.tld"), GK7.encode())
    ours = (tmp_path / "ours.tld").read_bytes()
    assert ours == (tmp_path / "wide.tld").read_bytes() == (tmp_path / "narrow.tld").read_bytes()
    assert vxk.TextList.load(tmp_path / "ours.tld")[0].points == pytest.approx(cs2cs([(35.9, 56.86)]), abs=1e-3)
    vxk.reproject_tld(src, src, src=LONGLAT, dst=GK7)  # in place
    assert src.read_bytes() == ours


def test_file_reprojection_errors(tmp_path: Path):
    with pytest.raises(vxk.FileError):
        vxk.reproject_tld(tmp_path / "missing.tld", tmp_path / "out.tld", src=LONGLAT, dst=GK7)
    src = tmp_path / "src.tld"
    sample().save(src)
    with pytest.raises(vxk.ProjectionError):
        vxk.reproject_tld(src, tmp_path / "out.tld", src=LONGLAT, dst="")
    assert not (tmp_path / "out.tld").exists()
    with pytest.raises(vxk.FileError):
        vxk.reproject_tld(src, tmp_path / "no" / "out.tld", src=LONGLAT, dst=GK7)


def test_the_reserved_reprojection_always_fails(tmp_path: Path):
    assert not lib.vx_proj4_xsp(b"a", LONGLAT.encode(), bytes(tmp_path / "b"), GK7.encode())
    assert not (tmp_path / "b").exists()

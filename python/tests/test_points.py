"""Points through vxk.Transformer, checked against PROJ's cs2cs."""

from __future__ import annotations

from typing import List, Tuple

import pytest

import vxk
from conftest import run

TOWGS84 = "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12"
PULKOVO = f"+proj=longlat +ellps=krass {TOWGS84} +no_defs"
GK7 = f"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass {TOWGS84} +units=m +no_defs"
WGS84 = "+proj=longlat +datum=WGS84 +no_defs"
ORTHO = "+proj=ortho +lat_0=55 +lon_0=39 +datum=WGS84 +units=m +no_defs"


def cs2cs(points: List[Tuple[float, float]], src: str, dst: str) -> List[Tuple[float, float]]:
    text = "".join(f"{x!r} {y!r}\n" for x, y in points)
    done = run(["cs2cs", "-f", "%.10f", *src.split(), "+to", *dst.split()], input=text)
    assert done.returncode == 0, done.stderr
    return [tuple(float(v) for v in line.split()[:2]) for line in done.stdout.splitlines()]


def flat(points) -> List[float]:
    return [v for p in points for v in p]


def grid(x0: float, x1: float, y0: float, y1: float, n: int = 12) -> List[Tuple[float, float]]:
    return [(x0 + (x1 - x0) * i / (n - 1), y0 + (y1 - y0) * j / (n - 1)) for i in range(n) for j in range(n)]


@pytest.mark.parametrize(
    "src,dst,area,tolerance",
    [
        (PULKOVO, GK7, (36.0, 42.0, 50.0, 60.0), 1e-3),
        (GK7, PULKOVO, (7300000.0, 7700000.0, 5500000.0, 6600000.0), 1e-8),
        (WGS84, PULKOVO, (30.0, 50.0, 40.0, 70.0), 1e-8),
    ],
)
def test_points_agree_with_cs2cs(src, dst, area, tolerance):
    points = grid(*area)
    with vxk.Transformer(src, dst) as t:
        mine = t.transform(points)
    expected = cs2cs(points, src, dst)
    assert flat(mine) == pytest.approx(flat(expected), abs=tolerance)


def test_a_point_off_the_projection_raises_or_gives_none():
    points = [(39.0, 55.0), (-141.0, -55.0), (40.0, 56.0)]  # the second is on the far side of the globe
    with vxk.Transformer(WGS84, ORTHO) as t:
        with pytest.raises(vxk.ProjectionError, match="1 of 3 points cannot be transformed"):
            t.transform(points)
        lenient = t.transform(points, strict=False)
    assert lenient[1] is None
    assert lenient[0] == pytest.approx(cs2cs(points[:1], WGS84, ORTHO)[0], abs=1e-3)
    assert lenient[2] == pytest.approx(cs2cs(points[2:], WGS84, ORTHO)[0], abs=1e-3)


def test_one_point_and_no_points():
    with vxk.Transformer(PULKOVO, GK7) as t:
        x, y = t(39.0, 55.0)
        assert t.transform([]) == []
    assert x == pytest.approx(7500000.0, abs=1e-6)
    assert y == pytest.approx(cs2cs([(39.0, 55.0)], PULKOVO, GK7)[0][1], abs=1e-3)


def test_a_transformation_that_cannot_be_built_raises():
    with pytest.raises(vxk.ProjectionError, match="cannot build the transformation"):
        vxk.Transformer(PULKOVO, "+proj=nonsense")


def test_a_closed_transformer_refuses_work_and_frees_its_handle():
    before = vxk.live_handles()
    t = vxk.Transformer(PULKOVO, GK7)
    assert vxk.live_handles() == before + 1
    t.close()
    assert vxk.live_handles() == before
    with pytest.raises(ValueError, match="closed"):
        t.transform([(39.0, 55.0)])

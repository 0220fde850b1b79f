"""Shape file reprojection against ogr2ogr: the same file, made by GDAL, reprojected by both with the same
two PROJ strings, read back by GDAL."""

from __future__ import annotations

import json
from pathlib import Path
from typing import Any, Dict, List

import pytest

import vxk
from conftest import run
from vxk._native import lib

TOWGS84 = "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12"
PULKOVO = f"+proj=longlat +ellps=krass {TOWGS84} +no_defs"
GK7 = f"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass {TOWGS84} +units=m +no_defs"
WGS84 = "+proj=longlat +datum=WGS84 +no_defs"
ORTHO = "+proj=ortho +lat_0=55 +lon_0=39 +datum=WGS84 +units=m +no_defs"


def feature(geometry: Dict[str, Any], **properties: Any) -> Dict[str, Any]:
    return {"type": "Feature", "geometry": geometry, "properties": properties}


def ring(x: float, y: float, d: float) -> List[List[float]]:
    return [[x, y], [x, y + d], [x + d, y + d], [x + d, y], [x, y]]


def make_shape(folder: Path, name: str, features: List[Dict[str, Any]]) -> Path:
    """A shape file written by GDAL from GeoJSON made here."""
    source = folder / f"{name}.geojson"
    source.write_text(json.dumps({"type": "FeatureCollection", "features": features}), encoding="utf-8")
    shp = folder / f"{name}.shp"
    result = run(["ogr2ogr", "-f", "ESRI Shapefile", "-lco", "ENCODING=CP1251", shp, source])
    assert result.returncode == 0, result.stderr
    return shp


def read_back(shp: Path) -> List[Dict[str, Any]]:
    """The features of a shape file as GDAL reads them."""
    out = shp.with_suffix(".read.geojson")
    result = run(["ogr2ogr", "-f", "GeoJSON", "-lco", "COORDINATE_PRECISION=10", out, shp])
    assert result.returncode == 0, result.stderr
    return json.loads(out.read_text(encoding="utf-8"))["features"]


def flat(coords: Any) -> List[List[float]]:
    if coords and isinstance(coords[0], (int, float)):
        return [coords]
    return [p for c in coords for p in flat(c)]


LAYERS = {
    "roads": [
        feature({"type": "LineString", "coordinates": [[37.6, 55.7], [38.1, 55.9], [39.2, 56.3]]},
                name="Москва — Владимир", lanes=4),
        feature({"type": "LineString", "coordinates": [[39.0, 54.0], [39.5, 54.2]]}, name="road", lanes=1),
        feature({"type": "MultiLineString", "coordinates": [[[40.0, 57.0], [41.0, 57.5]], [[42.0, 58.0], [42.5, 58.1]]]},
                name="две", lanes=2),
        feature({"type": "LineString", "coordinates": [[36.0, 50.0], [36.0, 60.0]]}, name="long", lanes=2),
    ],
    "forests": [
        feature({"type": "Polygon", "coordinates": [ring(38.5, 55.0, 0.5), ring(38.6, 55.1, 0.1)[::-1]]}, name="лес"),
        feature({"type": "MultiPolygon", "coordinates": [[ring(30.0, 60.0, 1.0)], [ring(45.0, 44.0, 2.0)]]}, name="two"),
    ],
    "towns": [feature({"type": "Point", "coordinates": [37.0 + i, 50.0 + i / 3]}, name=f"town {i}") for i in range(6)],
}


@pytest.fixture()
def roads(tmp_path: Path, ogr2ogr: str) -> Path:
    return make_shape(tmp_path, "roads", LAYERS["roads"])


@pytest.mark.parametrize("layer", sorted(LAYERS))
def test_reprojection_agrees_with_ogr2ogr(tmp_path: Path, ogr2ogr: str, layer: str):
    source = make_shape(tmp_path, layer, LAYERS[layer])
    ours = tmp_path / "gk" / f"{layer}.shp"
    result = vxk.reproject(source, ours, src=PULKOVO, dst=GK7)
    assert result == vxk.ShapeResult(records=len(LAYERS[layer]), failed=0)
    theirs = tmp_path / "ogr" / f"{layer}.shp"
    theirs.parent.mkdir()
    done = run(["ogr2ogr", "-s_srs", PULKOVO, "-t_srs", GK7, "-lco", "ENCODING=CP1251", theirs, source])
    assert done.returncode == 0, done.stderr
    a, b = read_back(ours), read_back(theirs)
    assert len(a) == len(b) == len(LAYERS[layer])
    for fa, fb, original in zip(a, b, LAYERS[layer]):
        assert fa["properties"] == fb["properties"] == original["properties"]
        assert fa["geometry"]["type"] == fb["geometry"]["type"]
        pa, pb = flat(fa["geometry"]["coordinates"]), flat(fb["geometry"]["coordinates"])
        assert len(pa) == len(pb) == len(flat(original["geometry"]["coordinates"]))
        for (xa, ya), (xb, yb) in zip(pa, pb):
            assert abs(xa - xb) < 1e-3 and abs(ya - yb) < 1e-3
            assert 6_000_000 < xa < 9_000_000 and 4_000_000 < ya < 7_000_000
    assert ours.with_suffix(".dbf").read_bytes() == source.with_suffix(".dbf").read_bytes()
    assert ours.with_suffix(".cpg").read_bytes() == source.with_suffix(".cpg").read_bytes()
    assert not ours.with_suffix(".prj").exists()


def test_a_record_outside_the_domain_becomes_a_null_record(tmp_path: Path, ogr2ogr: str):
    shp = make_shape(tmp_path, "far", [
        feature({"type": "Point", "coordinates": [39.0, 55.0]}, n=1),
        feature({"type": "Point", "coordinates": [-141.0, -55.0]}, n=2),  # the far side of the globe
        feature({"type": "Point", "coordinates": [40.0, 56.0]}, n=3),
    ])
    result = vxk.reproject(shp, tmp_path / "out" / "far.shp", src=WGS84, dst=ORTHO)
    assert result == (3, 1)
    back = read_back(tmp_path / "out" / "far.shp")
    assert [f["properties"]["n"] for f in back] == [1, 2, 3]
    assert back[1]["geometry"] is None and back[0]["geometry"]["coordinates"][:2] == pytest.approx([0, 0], abs=1e-6)


def test_progress_and_prj(tmp_path: Path, roads: Path):
    seen = []
    dst = tmp_path / "gk" / "roads.shp"
    vxk.reproject(roads, dst, src=PULKOVO, dst=GK7, progress=lambda done, total: seen.append((done, total)), prj=True)
    assert seen == [(1, 4), (2, 4), (3, 4), (4, 4)]
    assert dst.with_suffix(".prj").read_text(encoding="utf-8") == vxk.esri_wkt(GK7)
    info = run(["ogrinfo", "-so", dst, "roads"])
    assert info.returncode == 0 and "Transverse_Mercator" in info.stdout.replace(" ", "_")


def test_an_exception_in_progress_is_raised_after_the_run(tmp_path: Path, roads: Path):
    def stop(done: int, total: int) -> None:
        raise KeyboardInterrupt

    with pytest.raises(KeyboardInterrupt):
        vxk.reproject(roads, tmp_path / "x.shp", src=PULKOVO, dst=GK7, progress=stop)


def test_an_unbuildable_transformation_raises_and_writes_nothing(tmp_path: Path, roads: Path):
    for src, dst in [(PULKOVO, ""), ("", GK7), (PULKOVO, "+proj=nonsense"), (str(roads), GK7)]:
        with pytest.raises(vxk.ProjectionError, match="cannot build the transformation"):
            vxk.reproject(roads, tmp_path / "no" / "roads.shp", src=src, dst=dst)
    assert not (tmp_path / "no").exists()
    assert isinstance(vxk.ProjectionError("x"), ValueError)


def test_a_missing_source_raises_with_the_librarys_message(tmp_path: Path):
    with pytest.raises(vxk.FileError) as caught:
        vxk.reproject(tmp_path / "missing.shp", tmp_path / "out.shp", src=PULKOVO, dst=GK7)
    assert caught.value.messages and caught.value.messages[0].startswith("Can't open file")
    assert "Can't open file" in str(caught.value) and isinstance(caught.value, OSError)


def test_the_destination_may_not_be_the_source(tmp_path: Path, roads: Path):
    before = roads.read_bytes()
    for dst in (roads, tmp_path / "." / "roads.shp"):
        with pytest.raises(vxk.FileError, match="is the source"):
            vxk.reproject(roads, dst, src=PULKOVO, dst=GK7)
    assert roads.read_bytes() == before


def test_the_flat_functions_write_the_same_file(tmp_path: Path, roads: Path):
    vxk.reproject(roads, tmp_path / "a.shp", src=PULKOVO, dst=GK7)
    assert lib.vx_proj4_shp(bytes(roads), PULKOVO.encode(), bytes(tmp_path / "b.shp"), GK7.encode())
    assert lib.vx_proj4_shp_w(str(roads), PULKOVO, str(tmp_path / "c.shp"), GK7)
    assert not lib.vx_proj4_shp_w(str(roads), PULKOVO, str(tmp_path / "d.shp"), "")
    a = (tmp_path / "a.shp").read_bytes()
    assert a == (tmp_path / "b.shp").read_bytes() == (tmp_path / "c.shp").read_bytes()
    assert not (tmp_path / "d.shp").exists()

"""vxk.generate and vxk.generate_box: the sets written, read back with GDAL, compared with what
`vxk generate` writes, and the destination kept as it was when a run fails or is refused."""

from __future__ import annotations

import json
import os
from pathlib import Path
from typing import Any, Dict, List

import pytest

import vxk
from conftest import run

THIRD = 1.0 / 3.0


def features(shp: Path) -> List[Dict[str, Any]]:
    """The features of a shape file as GDAL reads them."""
    out = shp.parent / (shp.stem + ".read.geojson")
    done = run(["ogr2ogr", "-f", "GeoJSON", "-lco", "COORDINATE_PRECISION=12", out, shp])
    assert done.returncode == 0, done.stderr
    try:
        return json.loads(out.read_text(encoding="utf-8"))["features"]
    finally:
        out.unlink()


def bounds(feature: Dict[str, Any]) -> List[float]:
    points = [p for ring in feature["geometry"]["coordinates"] for p in ring]
    xs, ys = [p[0] for p in points], [p[1] for p in points]
    return [min(xs), max(xs), min(ys), max(ys)]


def tree(root: Path) -> Dict[str, bytes]:
    return {p.relative_to(root).as_posix(): p.read_bytes() for p in sorted(root.rglob("*")) if p.is_file()}


def test_a_sheet_writes_both_sets_with_its_area_where_the_sheet_is(tmp_path: Path, ogr2ogr: str):
    result = vxk.generate("N-37-VI", tmp_path / "out")
    assert result.folder == str(tmp_path / "out")
    assert result.scene == vxk.gauss_kruger(39.0)
    assert result.files["HYPS/Hypsa.shp"] == 1 and result.files["latlong/HYPS/Hypsa.shp"] == 1
    for shp in result.files:
        for ext in (".shx", ".dbf", ".cpg", ".prj", ".pj4"):
            assert (tmp_path / "out" / shp).with_suffix(ext).is_file(), (shp, ext)
    (area,) = features(tmp_path / "out/latlong/HYPS/Hypsa.shp")
    assert area["properties"]["NAME"] == "N-37-VI"
    assert bounds(area) == pytest.approx([41.0, 42.0, 55.0 + THIRD, 56.0], abs=1e-7)
    assert not [p for p in tmp_path.iterdir() if p.name != "out"], "the temporary folder stays behind"


def test_the_sets_equal_those_of_the_vxk_program(tmp_path: Path, vxk_program: Path):
    vxk.generate("N-37-VI", tmp_path / "py")
    done = run([vxk_program, "generate", "N-37-VI", "--out", tmp_path / "cli"])
    assert done.returncode == 0, done.stderr
    assert tree(tmp_path / "py") == tree(tmp_path / "cli")


def test_a_latlong_scene_and_divisions(tmp_path: Path):
    result = vxk.generate(vxk.Sheet.parse("N-37"), tmp_path / "n37", scene="latlong", lon_divs=(2, 2), lat_divs=(2, 2))
    assert result.scene == vxk.geographic_system()
    assert (tmp_path / "n37/HYPS/Hypsa.pj4").read_text(encoding="utf-8").strip() == vxk.geographic_system()


def test_a_southern_sheet(tmp_path: Path, ogr2ogr: str):
    vxk.generate("A-37", tmp_path / "s", hemisphere="S")
    (area,) = features(tmp_path / "s/latlong/HYPS/Hypsa.shp")
    assert bounds(area) == pytest.approx([36.0, 42.0, -4.0, 0.0], abs=1e-7)


def test_a_box_is_named_base_list(tmp_path: Path, ogr2ogr: str):
    result = vxk.generate_box((36.5, 38.0, 54.25, 55.0), tmp_path / "box", steps=(0.5, 0.25))
    assert result.scene == vxk.gauss_kruger(37.25)
    (area,) = features(tmp_path / "box/latlong/HYPS/Hypsa.shp")
    assert area["properties"]["NAME"] == "Base list"
    assert bounds(area) == pytest.approx([36.5, 38.0, 54.25, 55.0], abs=1e-7)


def test_a_run_replaces_an_earlier_one(tmp_path: Path):
    vxk.generate("N-37-VI", tmp_path / "out")
    vxk.generate("N-37-V", tmp_path / "out")
    text = (tmp_path / "out/HYPS/Hypsa.dbf").read_bytes()
    assert b"N-37-V " in text or text.rstrip(b"\x1a ").endswith(b"N-37-V")


@pytest.mark.parametrize(
    "call,error",
    [
        (lambda out: vxk.generate("N-37-1", out), vxk.DesignationError),
        (lambda out: vxk.generate("N-37-VI", out, scene="+proj=nonsense"), vxk.ProjectionError),
        (lambda out: vxk.generate("N-37-VI", out, lon_divs=(0, 1)), vxk.VxkError),
        (lambda out: vxk.generate_box((38.0, 36.0, 54.0, 55.0), out), vxk.VxkError),
        (lambda out: vxk.generate_box((36.0, 38.0, 54.0, 55.0), out, steps=(0.0, 1.0)), vxk.VxkError),
    ],
)
def test_a_refused_run_creates_nothing(tmp_path: Path, call, error):
    with pytest.raises(error):
        call(tmp_path / "deep" / "out")
    assert list(tmp_path.iterdir()) == []


def test_a_failed_run_leaves_the_earlier_result(tmp_path: Path):
    vxk.generate("N-37-VI", tmp_path / "out")
    before = tree(tmp_path / "out")
    with pytest.raises(vxk.VxkError, match="failed; nothing was written"):
        vxk.generate("N-37-VI", tmp_path / "out", lat_divs=(1, 0))
    assert tree(tmp_path / "out") == before
    assert [p.name for p in tmp_path.iterdir()] == ["out"]


def test_a_folder_with_foreign_files_is_not_replaced(tmp_path: Path):
    (tmp_path / "out/HYPS").mkdir(parents=True)
    (tmp_path / "out/HYPS/notes.txt").write_text("mine")
    with pytest.raises(vxk.FileError, match="notes.txt"):
        vxk.generate("N-37-VI", tmp_path / "out")
    assert (tmp_path / "out/HYPS/notes.txt").read_text() == "mine"
    assert sorted(os.listdir(tmp_path / "out/HYPS")) == ["notes.txt"]


def test_a_file_in_the_way_is_refused(tmp_path: Path):
    (tmp_path / "out").write_text("a file")
    with pytest.raises(vxk.FileError, match="not a folder"):
        vxk.generate("N-37-VI", tmp_path / "out")
    assert (tmp_path / "out").read_text() == "a file"


def test_no_handle_is_left(tmp_path: Path):
    before = vxk.live_handles()
    vxk.generate("N-37-VI", tmp_path / "out")
    assert vxk.live_handles() == before

"""The examples of docs/python.md, run as they are written there."""

from __future__ import annotations

import doctest
import json
from pathlib import Path

import pytest

from conftest import SOURCE_DIR, run

PAGE = SOURCE_DIR / "docs" / "python.md"


def roads(folder: Path) -> None:
    """The roads.shp that the page's examples read: three lines in geographic coordinates, made by GDAL."""
    lines = [
        [[37.6, 55.7], [38.1, 55.9], [39.2, 56.3]],
        [[39.0, 54.0], [39.5, 54.2]],
        [[40.0, 57.0], [41.0, 57.5], [41.5, 57.4]],
    ]
    features = [{"type": "Feature", "geometry": {"type": "LineString", "coordinates": c}, "properties": {"id": i}}
                for i, c in enumerate(lines)]
    (folder / "roads.geojson").write_text(json.dumps({"type": "FeatureCollection", "features": features}))
    shp = folder / "roads.shp"
    done = run(["ogr2ogr", "-f", "ESRI Shapefile", "-lco", "ENCODING=CP1251", shp, folder / "roads.geojson"])
    assert done.returncode == 0, done.stderr


def test_the_examples_of_the_python_page(tmp_path: Path, monkeypatch: pytest.MonkeyPatch, ogr2ogr: str):
    roads(tmp_path)
    monkeypatch.chdir(tmp_path)
    result = doctest.testfile(str(PAGE), module_relative=False, optionflags=doctest.ELLIPSIS, verbose=False)
    assert result.attempted > 40
    assert result.failed == 0, f"{result.failed} of the page's examples failed (see the output above)"

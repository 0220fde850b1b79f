"""Reprojection of shape files and TLD label files between two PROJ strings."""

from __future__ import annotations

import os
from typing import Any, Callable, List, NamedTuple, Optional

from . import _native as N
from ._native import lib
from ._support import PathLike, path_bytes, path_text, proj_bytes, reports
from .errors import FileError, VxkError
from .projection import check_transform, esri_wkt

Progress = Callable[[int, int], Any]


class ShapeResult(NamedTuple):
    """What a shape file reprojection wrote."""

    records: int  # records written, one per record of the source
    failed: int  # of these, records written as null records because they could not be transformed


def _prepare(source: PathLike, destination: PathLike) -> None:
    """Refuses to write over the source, and makes the destination's folder."""
    src, dst = os.path.abspath(source), os.path.abspath(destination)
    if src == dst or (os.path.exists(dst) and os.path.exists(src) and os.path.samefile(src, dst)):
        raise FileError(f"the destination '{path_text(destination)}' is the source")
    folder = os.path.dirname(dst)
    try:
        os.makedirs(folder, exist_ok=True)
    except OSError as e:
        raise FileError(f"cannot create the folder '{folder}': {e.strerror}") from e


def reproject(
    source: PathLike,
    destination: PathLike,
    *,
    src: str,
    dst: str,
    progress: Optional[Progress] = None,
    prj: bool = False,
) -> ShapeResult:
    """Rewrites the shape file ``source`` in the coordinate system ``dst`` (from ``src``, both PROJ
    strings) as ``destination``, and copies its ``.dbf`` and ``.cpg`` beside it.

    Records keep their order; one that cannot be transformed becomes a null record, so that the table
    stays aligned (counted in ``failed`` of the result). Measures are dropped, heights kept. The folder
    of the destination is made if missing; an existing destination is replaced, and the destination
    may not be the source. ``progress(done, total)`` is called after each record. With ``prj`` the
    destination system is also written as ESRI WKT in a ``.prj`` beside the result.

    Raises ProjectionError when the transformation cannot be built (nothing is written then), and
    FileError when the library reports a file it could not open, read or write.
    """
    check_transform(src, dst)
    _prepare(source, destination)
    counts = N.vx_proj4_shp_counts()
    raised: List[BaseException] = []

    def on_progress(done: int, total: int, user: Any) -> None:
        if progress is not None and not raised:
            try:
                progress(done, total)
            except BaseException as e:  # carried out of the library's call, raised after it
                raised.append(e)

    callback = N.vx_proj4_shp_progress_t(on_progress)
    with reports() as r:
        built = lib.vx_proj4_shp_ex(
            path_bytes(source), proj_bytes(src), path_bytes(destination), proj_bytes(dst), callback, None, counts
        )
    if raised:
        raise raised[0]
    if not built:
        check_transform(src, dst)
        raise VxkError("the reprojection failed", r.errors)
    if r.errors:
        raise FileError(f"reprojecting '{path_text(source)}' to '{path_text(destination)}' failed", r.errors)
    if prj:
        _write_prj(destination, dst)
    return ShapeResult(counts.records, counts.failed)


def _write_prj(destination: PathLike, proj: str) -> None:
    prj_path = os.path.splitext(path_text(destination))[0] + ".prj"
    try:
        with open(prj_path, "w", encoding="utf-8", newline="") as f:
            f.write(esri_wkt(proj))
    except OSError as e:
        raise FileError(f"cannot write '{prj_path}': {e.strerror}") from e


def reproject_tld(source: PathLike, destination: PathLike, *, src: str, dst: str) -> None:
    """Rewrites the TLD label file ``source`` in the coordinate system ``dst`` (from ``src``) as
    ``destination``; the two may be the same file.

    Label points and callout end points are transformed; sizes and offsets are multiplied by one
    length factor taken at the origin of the source system. A point that cannot be transformed keeps
    its source position. Raises ProjectionError when the transformation cannot be built (nothing is
    written then) and FileError when a file cannot be read or written.
    """
    from .labels import TextList

    check_transform(src, dst)
    with TextList.load(source) as labels:
        labels.reproject(src, dst)
        labels.save(destination)

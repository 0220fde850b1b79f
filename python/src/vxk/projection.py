"""Projection texts: geographic or not, ESRI WKT, projection files beside shape files, and whether a
transformation between two texts can be built.

A projection text is a PROJ string, such as "+proj=tmerc +lon_0=39 +ellps=krass +units=m", never the
name of a file.
"""

from __future__ import annotations

from ._native import lib
from ._support import PathLike, path_text, reports, sink
from .errors import FileError, ProjectionError


def is_longlat(proj: str) -> bool:
    """True when the text is a geographic system (its "+proj" is "longlat" or "latlong")."""
    return bool(lib.vx_pj4_is_longlat_w(proj))


def esri_wkt(proj: str) -> str:
    """The same coordinate system as ESRI WKT, the text of a ``.prj`` file (PROJ's own conversion).

    Raises ProjectionError when PROJ cannot make a coordinate system of the text.
    """
    with reports() as r, sink() as (handle, rows):
        done = lib.vx_pj4_export_esri(proj, handle)
    if not done:
        raise ProjectionError(f"cannot express {proj!r} as ESRI WKT", r.errors)
    return "".join(rows)


def save_pj4(shape_path: PathLike, proj: str) -> None:
    """Writes the projection text beside a shape file, as its ``.pj4`` (one line of UTF-8).

    Raises FileError when the file cannot be written.
    """
    with reports() as r:
        done = lib.vx_pj4_save_w(path_text(shape_path), proj)
    if not done:
        raise FileError(f"cannot write the projection file of '{path_text(shape_path)}'", r.errors)


def load_pj4(path: PathLike) -> str:
    """The projection text of a ``.pj4`` file.

    Raises FileError when the file is missing, empty or not a projection file.
    """
    with reports() as r, sink() as (handle, rows):
        done = lib.vx_pj4_load_simple_w(path_text(path), handle)
    if not done or not rows:
        raise FileError(f"cannot read a projection text from '{path_text(path)}'", r.errors)
    return rows[0]


def can_transform(src: str, dst: str) -> bool:
    """Whether the library can build the transformation from ``src`` to ``dst``."""
    with reports():
        reprojector = lib.vx_rpj_fb_d2_create()
        if not reprojector:
            raise MemoryError("the library could not make a reprojector")
        try:
            return bool(lib.vx_rpj_fb_d2_init_w(reprojector, src, dst))
        finally:
            lib.vx_rpj_fb_d2_destroy(reprojector)


def check_transform(src: str, dst: str) -> None:
    """Raises ProjectionError when the transformation from ``src`` to ``dst`` cannot be built."""
    if not can_transform(src, dst):
        raise ProjectionError(
            f"cannot build the transformation from {src!r} to {dst!r}: check both PROJ strings"
        )

"""Projection texts: geographic or not, ESRI WKT, the GDAL form, descriptions for people, equivalence,
the library's catalogue of projections, projection files beside shape files, and whether a
transformation between two texts can be built.

A projection text is a PROJ string, such as "+proj=tmerc +lon_0=39 +ellps=krass +units=m", never the
name of a file.
"""

from __future__ import annotations

from typing import List, Optional

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


def gdal_form(proj: str) -> str:
    """The PROJ string in the form that GDAL takes: the library's known parameters only, completed where
    GDAL needs it (the parallels and origin of a one-parallel Lambert conic), ending in "+no_defs".

    Raises ProjectionError when the text has no parameter the library knows.
    """
    with reports() as r, sink() as (handle, rows):
        done = lib.vx_pj4_export_gdal(proj, handle)
    if not done or not rows:
        raise ProjectionError(f"no projection the library knows in {proj!r}", r.errors)
    return rows[0]


def describe(proj: str, language: str = "en") -> List[str]:
    """A description of the projection for people, one "label = value" line per parameter.

    ``language`` is "en" or "ru"; the language of the library's other messages is not changed.
    """
    if language not in ("en", "ru"):
        raise ValueError(f"language must be 'en' or 'ru', not {language!r}")
    with sink() as (handle, rows):
        lib.vx_pj4_describe_w(proj, 0 if language == "ru" else 1, handle)
    return list(rows)


def same_system(a: str, b: str) -> bool:
    """Whether two texts (PROJ strings, "EPSG:n", WKT, PROJJSON) describe the same coordinate system, as
    PROJ judges it. A PROJ string without "+type=crs" is an operation to PROJ, and two operations are the
    same only when their texts are.

    Raises ProjectionError when PROJ cannot read one of the texts.
    """
    answer = lib.vx_pj4_equivalent_w(a, b)
    if answer == -1:
        raise ProjectionError(f"PROJ cannot read {a!r}")
    if answer == -2:
        raise ProjectionError(f"PROJ cannot read {b!r}")
    return answer == 1


def catalogue(proj: Optional[str] = None) -> List[List[str]]:
    """The library's catalogue of projections, one list of fields per entry: index, caption, further
    caption, the entry's PROJ string with its defaults, then "name=default" fields (with " [min,max]" for
    a number with limits). With ``proj`` given, only the entry that text fits; empty when none does.
    """
    with sink() as (handle, rows):
        found = lib.vx_pj4_fetch_catalogue(proj or None, handle)
    return [row.split("\t") for row in rows] if found else []

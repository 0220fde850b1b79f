"""vxk: reprojection of vector data and the standard topographic map sheets, over libvxk_proj4_shp.

    import vxk
    s = vxk.Sheet.parse("N-37-VI")          # a sheet designation, validated
    s.neighbours                             # its four neighbours
    vxk.sheets_of("N-37", scale="1:200000")  # the sheets of a finer scale in it
    vxk.reproject("roads.shp", "gk/roads.shp", src="+proj=longlat ...", dst="+proj=tmerc ...")
    vxk.generate("N-37-VI", "out/")          # the shape files that draw the sheet, both sets

The package calls the shared library through ctypes. It finds the library installed with the project
(``cmake --install``), or at the path in the environment variable ``VXK_LIBRARY``. Failures that the
library reports become exceptions derived from ``vxk.VxkError``.
"""

from __future__ import annotations

from . import lists
from ._native import lib as _lib
from ._support import live_handles
from .errors import DesignationError, FileError, LibraryNotFoundError, ProjectionError, VxkError
from .generate import Generated, gauss_kruger, generate, generate_box, geographic_system
from .labels import Callout, Label, Size, TextList, TldFile
from .points import Transformer
from .projection import (
    can_transform,
    catalogue,
    describe,
    esri_wkt,
    gdal_form,
    is_longlat,
    load_pj4,
    same_system,
    save_pj4,
)
from .reproject import ShapeResult, reproject, reproject_tld
from .sheet import Hemisphere, Neighbours, Scale, Sheet, SheetType, sheets_of

__version__ = "0.1.0"

__all__ = [
    "Callout",
    "DesignationError",
    "FileError",
    "Generated",
    "Hemisphere",
    "Label",
    "LibraryNotFoundError",
    "Neighbours",
    "ProjectionError",
    "Scale",
    "ShapeResult",
    "Sheet",
    "SheetType",
    "Size",
    "TextList",
    "TldFile",
    "Transformer",
    "VxkError",
    "can_transform",
    "catalogue",
    "describe",
    "esri_wkt",
    "gauss_kruger",
    "gdal_form",
    "generate",
    "generate_box",
    "geographic_system",
    "get_language",
    "is_longlat",
    "library_path",
    "lists",
    "live_handles",
    "load_pj4",
    "reproject",
    "reproject_tld",
    "same_system",
    "save_pj4",
    "set_language",
    "sheets_of",
]

_LANGUAGES = {"ru": 0, "en": 1}


def set_language(language: str) -> None:
    """The language of the library's messages: "en" (the default) or "ru". Set it before the first
    call that can report anything: the library reads it once."""
    if language not in _LANGUAGES:
        raise ValueError(f"{language!r} is not a language of the library (en, ru)")
    _lib.vx_res_set_lng(_LANGUAGES[language])


def get_language() -> str:
    """"en" or "ru"."""
    return "ru" if _lib.vx_res_get_lng() == 0 else "en"


def library_path() -> str:
    """The file from which the shared library was loaded (loading it if that has not happened yet)."""
    return _lib.path

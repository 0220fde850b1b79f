"""Generation of the shape files that draw a map sheet or a free box of coordinates.

A run writes two sets under one folder: the scene set in ``HYPS/`` and ``FRAME/``, in the scene
projection, and the same drawing in the sheet's geographic system (Pulkovo 1942) in ``latlong/HYPS/``
and ``latlong/FRAME/``. As ``vxk generate`` does, the run is written in a temporary folder beside the
destination and moved into place only when the library reported no failure, so that a failed run
leaves an earlier result as it was and no half-written set.
"""

from __future__ import annotations

import math
import os
import shutil
import tempfile
from pathlib import Path
from typing import Callable, Dict, Iterator, List, NamedTuple, Optional, Tuple, Union

from ._native import lib
from ._support import PathLike, reports
from .errors import DesignationError, FileError, VxkError
from .projection import check_transform, load_pj4
from .sheet import Scale, Sheet

# The folders of a run, and the files a run may replace in them.
_TOPS = ("HYPS", "FRAME", "latlong")
_FOLDERS = ("HYPS", "FRAME", "latlong/HYPS", "latlong/FRAME")
_NAMES = {"Hypsa", "Hypsl", "Hypsp", "Frame", "FrameDig", "FrameAdj"}
_EXTENSIONS = {".shp", ".shx", ".dbf", ".prj", ".pj4", ".cpg"}

Divisions = Tuple[int, int]


class Generated(NamedTuple):
    """What one run wrote."""

    folder: str  # the destination folder that holds the two sets
    scene: str  # the PROJ string of the scene set
    files: Dict[str, int]  # each shape file, relative to the folder ("HYPS/Hypsa.shp"), with its records


def geographic_system() -> str:
    """The PROJ string of the geographic system in which sheets are laid out: the style library's
    ``std_list/proj0.pj4``."""
    return load_pj4(os.path.join(lib.vx_options_get_style_libs_path(), "std_list", "proj0.pj4"))


def gauss_kruger(longitude: float) -> str:
    """The Gauss-Kruger system (Pulkovo 1942) of the six-degree zone that holds ``longitude``; on the
    edge between two zones, the eastern one. The default scene of a sheet, as in ``vxk generate``."""
    wrapped = longitude - 360.0 * math.floor((longitude + 180.0) / 360.0)
    zone = int(math.floor((wrapped + 360.0 if wrapped < 0 else wrapped) / 6.0)) + 1
    meridian = zone * 6 - 3
    if meridian > 180:
        meridian -= 360
    return (
        f"+proj=tmerc +lat_0=0 +lon_0={meridian} +k=1 +x_0={zone * 1000000 + 500000} +y_0=0 +ellps=krass "
        "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs"
    )


def _scene_of(scene: Optional[str], middle_longitude: float, geographic: str) -> str:
    chosen = gauss_kruger(middle_longitude) if scene is None else geographic if scene == "latlong" else scene
    check_transform(geographic, chosen)
    return chosen


def _default_divisions(sheet: Sheet) -> Tuple[Divisions, Divisions]:
    """Meridians and parallels every 10' with marks every 100" at 1:1,000,000; every 20' with marks every
    minute at 1:200,000 (per joined sheet along the width)."""
    if sheet.scale == Scale.K200:
        return (3 * int(sheet.type), 20), (2, 20)
    return (6 * int(sheet.type), 6), (4, 6)


def generate(
    sheet: Union[Sheet, str],
    out: PathLike,
    *,
    scene: Optional[str] = None,
    lon_divs: Optional[Divisions] = None,
    lat_divs: Optional[Divisions] = None,
    hemisphere: str = "N",
) -> Generated:
    """Generates the shape files of a sheet at 1:1,000,000 or 1:200,000 into the folder ``out``.

    ``sheet`` is a Sheet or a designation (read by ``Sheet.parse`` with ``hemisphere``). ``scene`` is
    the PROJ string of the scene set; None takes the Gauss-Kruger zone of the sheet's middle meridian,
    and "latlong" the geographic system. ``lon_divs`` = (main, additional) cuts the sheet's width into
    ``main`` parts by meridians and each part into ``additional`` by marks; ``lat_divs`` the same for
    its height and the parallels. The defaults are those of ``vxk generate``.

    The folders are created; files of an earlier run in ``out`` are replaced, and a run refuses to
    replace a folder that holds files no run writes. Raises DesignationError for a sheet at another
    scale, ProjectionError when the scene cannot be reached, and VxkError or FileError, with the
    library's reasons, when the run fails (the destination is then as it was).
    """
    record = sheet if isinstance(sheet, Sheet) else Sheet.parse(sheet, hemisphere=hemisphere)
    if record.scale not in (Scale.MLN, Scale.K200):
        raise DesignationError(
            f"{record.designation} is a sheet at {record.scale_text}; sheets are generated at 1:1,000,000 and 1:200,000"
        )
    geographic = geographic_system()
    chosen = _scene_of(scene, record.mid_meridian, geographic)
    default_lon, default_lat = _default_divisions(record)
    lon, lat = lon_divs or default_lon, lat_divs or default_lat

    def run(folder: str) -> bool:
        params = lib.vx_stdlist_params_create(record._handle)
        if not params:
            raise MemoryError("the library could not make generation parameters")
        try:
            lib.vx_stdlist_params_set_output_dir(params, folder)
            lib.vx_stdlist_params_set_scene_proj(params, chosen)
            lib.vx_stdlist_params_set_lon_divs(params, int(lon[0]), int(lon[1]))
            lib.vx_stdlist_params_set_lat_divs(params, int(lat[0]), int(lat[1]))
            return bool(lib.vx_stdlist_generate_shapes(params))
        finally:
            lib.vx_stdlist_params_destroy(params)

    return _staged_run(out, chosen, run, record.designation)


def generate_box(
    box: Tuple[float, float, float, float],
    out: PathLike,
    *,
    steps: Tuple[float, float] = (1.0, 1.0),
    scene: Optional[str] = None,
) -> Generated:
    """Generates the shape files of a free box of coordinates into the folder ``out``.

    ``box`` is (xmin, xmax, ymin, ymax) in degrees of the geographic system; ``steps`` the distances in
    degrees between main meridians and between main parallels. The box is drawn as a northern
    1:1,000,000 sheet named "Base list". ``scene`` as for ``generate`` (None: the Gauss-Kruger zone of
    the box's middle longitude). Raises VxkError with the library's reasons when the box or the steps
    are refused or the run fails; the destination is then as it was.
    """
    xmin, xmax, ymin, ymax = (float(v) for v in box)
    geographic = geographic_system()
    chosen = _scene_of(scene, (xmin + xmax) / 2, geographic)

    def run(folder: str) -> bool:
        params = lib.vx_stdlist_custom_params_create()
        if not params:
            raise MemoryError("the library could not make generation parameters")
        try:
            lib.vx_stdlist_custom_params_set_output_dir(params, folder)
            lib.vx_stdlist_custom_params_set_scene_proj(params, chosen)
            lib.vx_stdlist_custom_params_set_box(params, xmin, xmax, ymin, ymax)
            lib.vx_stdlist_custom_params_set_grid_steps(params, float(steps[0]), float(steps[1]))
            return bool(lib.vx_stdlist_custom_generate_shapes(params))
        finally:
            lib.vx_stdlist_custom_params_destroy(params)

    return _staged_run(out, chosen, run, f"the box {xmin:g} {xmax:g} {ymin:g} {ymax:g}")


# --- the staged run --------------------------------------------------------------------------------------


def _own_file(relative: Path) -> bool:
    return (
        relative.parent.as_posix() in _FOLDERS and relative.stem in _NAMES and relative.suffix in _EXTENSIONS
    )


def _refuse_foreign_files(destination: Path) -> None:
    for top in _TOPS:
        folder = destination / top
        if not folder.exists():
            continue
        if not folder.is_dir():
            raise FileError(f"'{folder}' is in the way: it is not a folder")
        for path in folder.rglob("*"):
            if path.is_file() and not _own_file(path.relative_to(destination)):
                raise FileError(f"'{folder}' holds '{path.name}', which no run writes; it is left as it is")


def _shape_files(root: Path) -> Iterator[Path]:
    return iter(sorted(root.rglob("*.shp")))


def _records(shp: Path) -> int:
    """Records of a shape file, from its index: 100 bytes of header and 8 bytes a record."""
    size = shp.with_suffix(".shx").stat().st_size
    return (size - 100) // 8


def _check_written(stage: Path) -> None:
    for area in ("HYPS/Hypsa.shp", "latlong/HYPS/Hypsa.shp"):
        if not (stage / area).is_file():
            raise VxkError(f"the run wrote no {area}")
    for shp in _shape_files(stage):
        if not shp.with_suffix(".shx").is_file() or not shp.with_suffix(".dbf").is_file():
            raise VxkError(f"the run left {shp.relative_to(stage)} without its index or table")


def _write_cpg_files(stage: Path) -> None:
    """GDAL and other readers take the code page of a table from the .cpg beside it."""
    for dbf in sorted(stage.rglob("*.dbf")):
        dbf.with_suffix(".cpg").write_text("1251", encoding="ascii")


def _commit(stage: Path, destination: Path) -> None:
    """Moves each top folder into place, the old one aside first; undoes the moves when one fails."""
    moved: List[str] = []
    try:
        for top in _TOPS:
            if not (stage / top).exists():
                continue
            if (destination / top).exists():
                os.rename(destination / top, stage / f".old-{top}")
            os.rename(stage / top, destination / top)
            moved.append(top)
    except OSError as e:
        for top in reversed(moved):
            os.rename(destination / top, stage / top)
        for top in _TOPS:
            if (stage / f".old-{top}").exists() and not (destination / top).exists():
                os.rename(stage / f".old-{top}", destination / top)
        raise FileError(f"cannot move the run into '{destination}': {e.strerror}") from e


def _made_folders(destination: Path) -> List[Path]:
    """Creates the destination and the missing folders above it; gives those it created, outermost
    first."""
    missing = [p for p in [destination, *destination.parents] if not p.exists()]
    missing.reverse()
    for folder in missing:
        try:
            folder.mkdir()
        except OSError as e:
            raise FileError(f"cannot create the folder '{folder}': {e.strerror}") from e
    return missing


def _staged_run(out: PathLike, scene: str, run: Callable[[str], bool], what: str) -> Generated:
    destination = Path(os.path.abspath(os.fspath(out)))
    if destination.exists() and not destination.is_dir():
        raise FileError(f"'{destination}' exists and is not a folder")
    _refuse_foreign_files(destination)
    created = _made_folders(destination)
    committed = False
    stage: Optional[Path] = None
    try:
        try:
            stage = Path(tempfile.mkdtemp(prefix=f".{destination.name}.vxk-", dir=destination.parent))
        except OSError as e:
            raise FileError(f"cannot create a temporary folder beside '{destination}': {e.strerror}") from e
        for folder in _FOLDERS:
            (stage / folder).mkdir(parents=True)
        with reports() as r:
            ok = run(str(stage) + os.sep)
        if not ok or r.errors:
            raise VxkError(f"the generation of {what} failed; nothing was written", r.errors)
        _check_written(stage)
        _write_cpg_files(stage)
        files = {shp.relative_to(stage).as_posix(): _records(shp) for shp in _shape_files(stage)}
        _commit(stage, destination)
        committed = True
        return Generated(str(destination), scene, files)
    finally:
        if stage is not None:
            shutil.rmtree(stage, ignore_errors=True)
        if not committed:
            for folder in reversed(created):
                try:
                    folder.rmdir()
                except OSError:
                    pass

"""Finding the library, the library's reports as exceptions, languages, projection texts, and ownership
of handles over many create and destroy cycles."""

from __future__ import annotations

import ctypes
import gc
import os
import subprocess
import sys
import threading
from pathlib import Path

import pytest

import vxk
from vxk import _loader
from vxk._native import lib

GK7 = "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs"
LONGLAT = "+proj=longlat +ellps=krass +no_defs"


def python(code: str, **env: str) -> subprocess.CompletedProcess:
    """Runs code in a fresh interpreter of this environment (the library loaded anew)."""
    full = dict(os.environ, **env)
    return subprocess.run([sys.executable, "-c", code], env=full, capture_output=True, text=True)


# --- finding the library -------------------------------------------------------------------------------


def test_the_library_is_found_and_has_every_function():
    path = vxk.library_path()
    assert os.path.exists(path) or path == _loader.SONAME
    assert lib.vx_res_get_lng() in (0, 1)


def test_vxk_library_names_the_file():
    done = python("import vxk; print(vxk.library_path())", VXK_LIBRARY=vxk.library_path())
    assert done.returncode == 0, done.stderr
    assert done.stdout.strip() == vxk.library_path()


def test_a_library_that_is_not_there_gives_a_clear_error(tmp_path: Path):
    code = "import vxk\ntry:\n    vxk.Sheet()\nexcept vxk.LibraryNotFoundError as e:\n    print(e)\n"
    done = python(code, VXK_LIBRARY=str(tmp_path / "nothing.so"))
    assert done.returncode == 0, done.stderr
    assert "VXK_LIBRARY=" in done.stdout and "nothing.so" in done.stdout and "cannot be loaded" in done.stdout


def test_without_the_library_anywhere_the_error_tells_where_it_looked(monkeypatch):
    monkeypatch.delenv("VXK_LIBRARY", raising=False)
    monkeypatch.setattr(_loader, "SONAME", "libvxk_no_such_library.so.0")
    with pytest.raises(vxk.LibraryNotFoundError) as caught:
        _loader.load()
    text = str(caught.value)
    assert "cmake --install" in text and "VXK_LIBRARY" in text and sys.prefix in text
    assert isinstance(caught.value, ImportError)


def test_the_places_searched_begin_with_the_python_prefix():
    places = _loader.candidates()
    assert places[0].startswith(os.path.join(sys.prefix, "lib"))
    assert _loader.SONAME in places and "/usr/local/lib/" + _loader.SONAME in places


# --- reports and languages -----------------------------------------------------------------------------


def test_reports_reach_the_exception_and_the_environment_is_removed_afterwards(tmp_path: Path):
    with pytest.raises(vxk.FileError) as caught:
        vxk.reproject(tmp_path / "none.shp", tmp_path / "out.shp", src=LONGLAT, dst=GK7)
    assert any(m.startswith("Can't open file") for m in caught.value.messages)
    # After the call no environment is installed: a report of the library goes nowhere.
    with vxk._support.reports() as r:
        pass
    assert r.errors == []


def test_russian_messages():
    code = (
        "import vxk, tempfile, os\n"
        "vxk.set_language('ru')\n"
        "d = tempfile.mkdtemp()\n"
        "try:\n"
        "    vxk.reproject(os.path.join(d, 'a.shp'), os.path.join(d, 'b.shp'), src='+proj=longlat +ellps=krass',"
        " dst='+proj=merc +ellps=krass')\n"
        "except vxk.FileError as e:\n"
        "    print(vxk.get_language(), e.messages[0])\n"
    )
    done = python(code)
    assert done.returncode == 0, done.stderr
    assert done.stdout.startswith("ru Не могу открыть файл")


def test_languages():
    assert vxk.get_language() in ("en", "ru")
    with pytest.raises(ValueError):
        vxk.set_language("de")


def test_threads_are_serialised_around_reporting_calls(tmp_path: Path):
    errors = []

    def work(i: int) -> None:
        try:
            vxk.reproject(tmp_path / f"none{i}.shp", tmp_path / f"out{i}.shp", src=LONGLAT, dst=GK7)
        except vxk.FileError as e:
            errors.append(e.messages)

    threads = [threading.Thread(target=work, args=(i,)) for i in range(8)]
    for t in threads:
        t.start()
    for t in threads:
        t.join()
    assert len(errors) == 8 and all(len(m) >= 1 for m in errors)


# --- projection texts ----------------------------------------------------------------------------------


def test_projection_texts(tmp_path: Path):
    assert vxk.is_longlat(LONGLAT) and vxk.is_longlat("+proj=latlong +datum=WGS84") and not vxk.is_longlat(GK7)
    wkt = vxk.esri_wkt(GK7)
    assert wkt.startswith("PROJCS[") and "Transverse_Mercator" in wkt
    with pytest.raises(vxk.ProjectionError):
        vxk.esri_wkt("+proj=nonsense")
    shp = tmp_path / "roads.shp"
    vxk.save_pj4(shp, GK7)
    assert (tmp_path / "roads.pj4").exists()
    assert vxk.load_pj4(tmp_path / "roads.pj4") == GK7
    with pytest.raises(vxk.FileError):
        vxk.load_pj4(tmp_path / "missing.pj4")
    with pytest.raises(vxk.FileError):
        vxk.save_pj4(tmp_path / "no" / "roads.shp", GK7)
    assert vxk.can_transform(LONGLAT, GK7) and not vxk.can_transform(LONGLAT, "") and not vxk.can_transform("x", GK7)



def test_gdal_form_descriptions_equivalence_and_catalogue():
    assert vxk.gdal_form("+proj=lcc +lat_1=45 +lon_0=10 +ellps=GRS80") == (
        "+proj=lcc +lon_0=10 +lat_0=45 +lat_1=45 +lat_2=45 +ellps=GRS80 +no_defs"
    )
    with pytest.raises(vxk.ProjectionError):
        vxk.gdal_form("/not/a/projection")
    assert vxk.describe("+proj=tmerc +lon_0=39 +ellps=krass") == [
        "Projection = tmerc",
        "Central Meridian = 39",
        "Spheroid = krass",
    ]
    assert len(vxk.describe("+proj=tmerc +lon_0=39 +ellps=krass", "ru")) == 3
    with pytest.raises(ValueError):
        vxk.describe(GK7, "de")
    assert vxk.same_system("EPSG:4326", "+proj=longlat +datum=WGS84 +type=crs")
    assert not vxk.same_system("EPSG:4326", "EPSG:4284")
    with pytest.raises(vxk.ProjectionError):
        vxk.same_system("+proj=nonsense", "EPSG:4326")
    entries = vxk.catalogue()
    assert len(entries) > 100 and all(e[0] == str(i + 1) for i, e in enumerate(entries))
    (utm37,) = vxk.catalogue("+proj=utm +zone=37 +datum=WGS84")
    assert utm37[1] == "UTM" and "zone=37" in utm37[4:]
    assert vxk.catalogue("+proj=utm +zone=99") == []

def test_the_batch_reprojector_of_the_thin_layer():
    reprojector = lib.vx_rpj_fb_d2_create()
    try:
        assert lib.vx_rpj_fb_d2_init_w(reprojector, LONGLAT, GK7)
        assert not lib.vx_rpj_fb_d2_init_w(reprojector, LONGLAT, "+proj=nonsense")
        # No point vector can be made through the header yet, so only a null one is handed over.
        assert not lib.vx_rpj_fb_d2_apply_pv(reprojector, None, 0)
    finally:
        lib.vx_rpj_fb_d2_destroy(reprojector)


# --- ownership of handles ------------------------------------------------------------------------------


def heap_in_use() -> int:
    """Bytes of the C heap in use: from the sanitizer's allocator when it is loaded, else from glibc."""
    process = ctypes.CDLL(None)
    sanitizer = getattr(process, "__sanitizer_get_current_allocated_bytes", None)
    if sanitizer is not None:
        sanitizer.restype = ctypes.c_size_t
        return int(sanitizer())

    class Mallinfo2(ctypes.Structure):
        _fields_ = [(n, ctypes.c_size_t) for n in
                    ("arena", "ordblks", "smblks", "hblks", "hblkhd", "usmblks", "fsmblks", "uordblks", "fordblks",
                     "keepcost")]

    process.mallinfo2.restype = Mallinfo2
    info = process.mallinfo2()
    return int(info.uordblks + info.hblkhd)


CYCLES = 10_000


def one_of_each(tmp: Path) -> None:
    with vxk.Sheet.parse("N-37-VI") as s:
        s.neighbours
    sheet = vxk.Sheet()  # freed by collection, not by close
    del sheet
    with vxk.TextList() as labels:
        labels.add("x", [(1.0, 2.0)]).add_callout([(3.0, 4.0)])
    with vxk.TldFile(tmp / "l.tld"):
        pass
    vxk.lists.hemispheres()


@pytest.mark.parametrize("work,cycles", [("one_of_each", CYCLES), ("transformations", CYCLES // 20)])
def test_no_handle_leaks_over_many_create_destroy_cycles(tmp_path: Path, work: str, cycles: int):
    def run_once() -> None:
        if work == "one_of_each":
            one_of_each(tmp_path)
        else:
            vxk.can_transform(LONGLAT, GK7)

    for _ in range(200):  # warm up: caches of the library, PROJ and Python settle
        run_once()
    gc.collect()
    handles, heap = vxk.live_handles(), heap_in_use()
    for _ in range(cycles):
        run_once()
    gc.collect()
    grown = heap_in_use() - heap
    assert vxk.live_handles() == handles
    # A record alone takes about 100 bytes of heap: one leaked per cycle would show as 1 MB.
    assert grown < 64 * 1024, f"the C heap grew by {grown} bytes over {cycles} cycles"


def test_a_leak_would_be_seen():
    gc.collect()
    heap = heap_in_use()
    kept = [lib.vx_stdlist_create() for _ in range(CYCLES)]
    try:
        assert heap_in_use() - heap > 64 * 1024
    finally:
        for h in kept:
            lib.vx_stdlist_destroy(h)


def test_a_sanitizer_build_runs_with_its_runtime():
    """In the sanitizer build the library is checked as it runs: its runtime must be in the process."""
    if os.environ.get("VXK_SANITIZE") != "1":
        pytest.skip("not the sanitizer build")
    assert hasattr(ctypes.CDLL(None), "__asan_init")

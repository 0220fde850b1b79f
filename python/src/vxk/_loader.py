"""Finding and loading libvxk_proj4_shp.so.

The places, in order:

1. the file named by the environment variable ``VXK_LIBRARY`` (and nothing else when it is set);
2. the ``lib`` folder of the Python prefix, where ``cmake --install build --prefix <venv>`` puts it
   for a virtual environment;
3. the dynamic loader's own search by the library's name (``LD_LIBRARY_PATH``, the ``ldconfig`` cache,
   the system folders);
4. ``/usr/local/lib`` and ``/usr/lib``, where ``cmake --install`` puts it by default, in case the loader's
   cache has not been refreshed since.
"""

from __future__ import annotations

import ctypes
import os
import sys
from typing import List, Tuple

from .errors import LibraryNotFoundError

SONAME = "libvxk_proj4_shp.so.0"
ENV_VAR = "VXK_LIBRARY"


def candidates() -> List[str]:
    """The places tried, in order, when ``VXK_LIBRARY`` is not set."""
    prefixes = [sys.prefix, "/usr/local", "/usr"]
    folders = []
    for prefix in prefixes:
        folders += [os.path.join(prefix, d) for d in ("lib", "lib64", "lib/x86_64-linux-gnu")]
    in_prefix = [os.path.join(f, SONAME) for f in folders[:3]]
    fixed = [os.path.join(f, SONAME) for f in folders[3:]]
    return in_prefix + [SONAME] + fixed


def _try(path: str) -> Tuple[ctypes.CDLL | None, str]:
    try:
        return ctypes.CDLL(path), ""
    except OSError as e:
        return None, str(e)


def load() -> ctypes.CDLL:
    """Loads the library, or raises LibraryNotFoundError telling where it looked and why it failed."""
    named = os.environ.get(ENV_VAR)
    if named:
        cdll, why = _try(named)
        if cdll is None:
            raise LibraryNotFoundError(f"{ENV_VAR}={named} cannot be loaded: {why}")
        return cdll
    tried = []
    for path in candidates():
        if os.path.isabs(path) and not os.path.exists(path):
            tried.append(f"  {path}: no such file")
            continue
        cdll, why = _try(path)
        if cdll is not None:
            return cdll
        tried.append(f"  {path}: {why}")
    raise LibraryNotFoundError(
        "the shared library libvxk_proj4_shp.so was not found. Install it with the project "
        "(cmake --install build, or cmake --install build --prefix <this virtual environment>) or set "
        f"{ENV_VAR} to its path. Tried:\n" + "\n".join(tried)
    )

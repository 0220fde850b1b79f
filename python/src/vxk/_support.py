"""What the classes of the package share: ownership of handles, string sinks, the library's reports.

The library reports file errors and other failures through one environment of callbacks for the whole
process. While a call that can report runs, ``reports()`` installs an environment that collects what
comes, and removes it afterwards; calls that can report are serialised by one lock, since the library
holds none and shares its environment and its PROJ context between threads.
"""

from __future__ import annotations

import contextlib
import itertools
import logging
import os
import threading
import weakref
from typing import Any, Callable, Dict, Iterator, List, Optional, Union

from ._native import lib
from . import _native as N

PathLike = Union[str, "os.PathLike[str]"]

log = logging.getLogger("vxk")

# The narrow code page of the library's messages and narrow feeds.
NARROW_CODE_PAGE = "cp1251"

# --- ownership of handles ------------------------------------------------------------------------------

_live = {"count": 0}
_live_lock = threading.Lock()


def live_handles() -> int:
    """The number of library handles that objects of this package own at the moment."""
    return _live["count"]


def _release(destroy: Callable[[Any], None], handle: Any) -> None:
    destroy(handle)
    with _live_lock:
        _live["count"] -= 1


class Owned:
    """An object that owns one library handle and destroys it when closed or collected.

    Closing twice is harmless; using a closed object raises ValueError.
    """

    _handle_value: Any = None
    _finalizer: Optional[weakref.finalize] = None

    def _own(self, handle: Any, destroy: Callable[[Any], None]) -> None:
        if not handle:
            raise MemoryError("the library could not make a new object")
        with _live_lock:
            _live["count"] += 1
        self._handle_value = handle
        self._finalizer = weakref.finalize(self, _release, destroy, handle)

    @property
    def _handle(self) -> Any:
        if self._finalizer is None or not self._finalizer.alive:
            raise ValueError(f"this {type(self).__name__} is closed")
        return self._handle_value

    @property
    def closed(self) -> bool:
        """True once the object has given its handle back to the library."""
        return self._finalizer is None or not self._finalizer.alive

    def close(self) -> None:
        """Frees the library's object now rather than when this one is collected."""
        if self._finalizer is not None:
            self._finalizer()

    def __enter__(self) -> Any:
        return self

    def __exit__(self, *exc: object) -> None:
        self.close()


# --- string sinks --------------------------------------------------------------------------------------

_rows: Dict[int, List[str]] = {}
_keys = itertools.count(1)


def _on_row(text: Optional[str], user: Optional[int]) -> None:
    if user in _rows:
        _rows[user].append(text if text is not None else "")


_ON_ROW = N.vx_unicode_string_callback_t(_on_row)


@contextlib.contextmanager
def sink() -> Iterator[Any]:
    """A string sink for one call; yields (sink handle, the list that receives its rows)."""
    key = next(_keys)
    rows: List[str] = []
    _rows[key] = rows
    handle = lib.vx_string_adp_create(N.vx_ansi_string_callback_t(), _ON_ROW, key)
    try:
        if not handle:
            raise MemoryError("the library could not make a string sink")
        yield handle, rows
    finally:
        lib.vx_string_adp_destroy(handle)
        del _rows[key]


def fetch(function: Callable[..., Any], *args: Any) -> List[str]:
    """The rows that one call of a library function feeds into a sink passed as its last argument."""
    with sink() as (handle, rows):
        function(*args, handle)
    return rows


# --- the library's reports -----------------------------------------------------------------------------


class Reports:
    """What the library reported while one call ran."""

    def __init__(self) -> None:
        self.errors: List[str] = []
        self.messages: List[str] = []


call_lock = threading.RLock()
_current: List[Reports] = []


def _decode(text: Optional[bytes]) -> str:
    return (text or b"").decode(NARROW_CODE_PAGE, "replace")


def _on_message(user: Any, text: Optional[bytes]) -> None:
    line = _decode(text)
    log.info("%s", line)
    if _current:
        _current[-1].messages.append(line)


def _on_error(user: Any, text: Optional[bytes]) -> None:
    line = _decode(text)
    log.debug("library error: %s", line)
    if _current:
        _current[-1].errors.append(line)


def _on_debug(user: Any, text: Optional[bytes]) -> None:
    log.debug("%s", _decode(text))


_CALLBACKS = N.vx_env_callbacks(
    message=N.vx_env_text_fn(_on_message),
    error=N.vx_env_text_fn(_on_error),
    debug_message=N.vx_env_text_fn(_on_debug),
)


@contextlib.contextmanager
def reports() -> Iterator[Reports]:
    """Collects the library's reports during the calls in the block; serialises such blocks."""
    with call_lock:
        collected = Reports()
        outermost = not _current
        _current.append(collected)
        if outermost:
            lib.vx_env_install_out(_CALLBACKS, None)
        try:
            yield collected
        finally:
            _current.pop()
            if outermost:
                lib.vx_env_remove_out()
            else:
                _current[-1].errors += collected.errors
                _current[-1].messages += collected.messages


# --- texts and paths -----------------------------------------------------------------------------------


def path_text(path: PathLike) -> str:
    """A path as the wide text that the library takes."""
    return os.fsdecode(path)


def path_bytes(path: PathLike) -> bytes:
    """A path as the narrow (UTF-8, the file system's) text that the library takes."""
    return os.fsencode(path)


def proj_bytes(proj: str) -> bytes:
    """A PROJ string as the narrow text that the library takes."""
    return proj.encode("utf-8")

"""Points transformed between two PROJ strings by the library's batch reprojector."""

from __future__ import annotations

from typing import Iterable, List, Optional, Sequence, Tuple

from . import _native as N
from ._native import lib
from ._support import Owned, reports
from .errors import ProjectionError

Point = Tuple[float, float]


class _Vector(Owned):
    """A point vector of the library, filled from Python and read back."""

    def __init__(self, points: Sequence[Point]) -> None:
        self._own(lib.vx_pv_d2_create(), lib.vx_pv_d2_destroy)
        lib.vx_pv_d2_set_size(self._handle, len(points))
        if lib.vx_pv_d2_get_size(self._handle) != len(points):
            raise MemoryError(f"the library cannot hold {len(points)} points")
        for i, (x, y) in enumerate(points):
            lib.vx_pv_d2_set_vtx(self._handle, i, N.Tvx_vtx_d2(float(x), float(y)))

    def points(self) -> List[Point]:
        out = []
        for i in range(lib.vx_pv_d2_get_size(self._handle)):
            v = lib.vx_pv_d2_get_vtx(self._handle, i)
            out.append((v.x, v.y))
        return out


class Transformer(Owned):
    """One transformation from ``src`` to ``dst`` (PROJ strings), built once and applied to many points.

    Coordinates are (x, y): longitude and latitude in degrees for a geographic system, easting and
    northing for a projected one. Raises ProjectionError when the transformation cannot be built. Use
    it in a ``with`` block, or call ``close()``, to free the library's object at once.
    """

    def __init__(self, src: str, dst: str) -> None:
        with reports() as r:
            self._own(lib.vx_rpj_fb_d2_create(), lib.vx_rpj_fb_d2_destroy)
            built = lib.vx_rpj_fb_d2_init_w(self._handle, src, dst)
        if not built:
            self.close()
            raise ProjectionError(f"cannot build the transformation from {src!r} to {dst!r}", r.errors)
        self.src, self.dst = src, dst

    def _apply(self, points: Sequence[Point]) -> Tuple[bool, List[Point]]:
        with _Vector(points) as v, reports():
            done = bool(lib.vx_rpj_fb_d2_apply_pv(self._handle, v._handle, 1))
            return done, v.points()

    def transform(self, points: Iterable[Point], *, strict: bool = True) -> List[Optional[Point]]:
        """The images of the points, in their order.

        A point that cannot be transformed (outside the target projection's domain, or not finite)
        raises ProjectionError, naming how many failed; with ``strict=False`` its place holds None
        instead.
        """
        given = [(float(x), float(y)) for x, y in points]
        done, images = self._apply(given)
        if done:
            return list(images)
        # The batch says only that some point failed: each is tried alone to tell which.
        result: List[Optional[Point]] = []
        for p in given:
            one_done, one = self._apply([p])
            result.append(one[0] if one_done else None)
        failed = sum(1 for p in result if p is None)
        if strict and failed:
            first = given[result.index(None)]
            raise ProjectionError(f"{failed} of {len(given)} points cannot be transformed, the first {first}")
        return result

    def __call__(self, x: float, y: float) -> Point:
        """The image of one point; raises ProjectionError when it cannot be transformed."""
        image = self.transform([(x, y)])[0]
        assert image is not None
        return image

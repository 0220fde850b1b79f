"""Text lists (labels of a map) in memory, TLD files, and their reprojection."""

from __future__ import annotations

from typing import Any, Iterable, Iterator, List, NamedTuple, Optional, Sequence, Tuple

from . import _native as N
from ._native import lib
from ._support import Owned, PathLike, path_text, reports
from .errors import FileError, ProjectionError

Point = Tuple[float, float]

# The type of a label that has a size and offsets at every point (text set along a line).
PER_POINT = 2

STYLE_BOLD = 1
STYLE_ITALIC = 2
STYLE_UNDERLINE = 4
STYLE_STRIKEOUT = 8


class Size(NamedTuple):
    """The size of a label's text and its offset from the point, in map units."""

    size: float
    dx: float
    dy: float


def _vtx(point: Sequence[float]) -> N.Tvx_vtx_d2:
    x, y = point
    return N.Tvx_vtx_d2(float(x), float(y))


def _pt(v: N.Tvx_vtx_d2) -> Point:
    return (v.x, v.y)


def _grown(ok: bool) -> None:
    if not ok:
        raise MemoryError("the library could not grow the label")


class Callout:
    """The callout of a label: the end points of its leader lines. A view into the list that owns it;
    it raises LookupError once the label has lost its callout."""

    def __init__(self, label: Label) -> None:
        self._label = label

    @property
    def _handle(self) -> Any:
        handle = lib.vx_text_data_get_callout(self._label._handle)
        if not handle:
            raise LookupError("the label has no callout any more")
        return handle

    def __len__(self) -> int:
        return int(lib.vx_callout_get_size(self._handle))

    def __getitem__(self, index: int) -> Point:
        return _pt(lib.vx_callout_get_end_point(self._handle, _index(index, len(self))))

    def __setitem__(self, index: int, point: Sequence[float]) -> None:
        lib.vx_callout_set_end_point(self._handle, _vtx(point), _index(index, len(self)))

    def __iter__(self) -> Iterator[Point]:
        return iter(self.end_points)

    @property
    def end_points(self) -> List[Point]:
        """Every end point, in order."""
        handle = self._handle
        return [_pt(lib.vx_callout_get_end_point(handle, i)) for i in range(lib.vx_callout_get_size(handle))]

    def append(self, point: Sequence[float]) -> None:
        """Adds an end point."""
        _grown(lib.vx_callout_add_end_point(self._handle, _vtx(point)))


def _index(index: int, size: int) -> int:
    if index < 0:
        index += size
    if not 0 <= index < size:
        raise IndexError("index out of range")
    return index


class Label:
    """One label of a text list: a view into the list, which owns it. It raises IndexError once the
    list no longer has a label at its place."""

    def __init__(self, owner: TextList, index: int) -> None:
        self._owner = owner
        self._index = index

    @property
    def _handle(self) -> Any:
        handle = lib.vx_text_list_at(self._owner._handle, self._index)
        if not handle:
            raise IndexError(f"the list has no label {self._index} any more")
        return handle

    def __repr__(self) -> str:
        return f"<vxk.Label {self.text!r} type {self.type}, {len(self.points)} points>"

    @property
    def type(self) -> int:
        """The label's type; type 2 (PER_POINT) has a size and offsets at every point. Changing it
        re-fits the sizes."""
        return int(lib.vx_text_data_get_type(self._handle))

    @type.setter
    def type(self, value: int) -> None:
        lib.vx_text_data_set_type(self._handle, int(value))

    @property
    def points(self) -> List[Point]:
        """The points at which the label stands; setting replaces them all."""
        h = self._handle
        return [_pt(lib.vx_text_data_get_point(h, i)) for i in range(lib.vx_text_data_get_count(h))]

    @points.setter
    def points(self, points: Iterable[Sequence[float]]) -> None:
        vertices = [_vtx(p) for p in points]
        h = self._handle
        _grown(lib.vx_text_data_set_count(h, len(vertices)))
        for i, v in enumerate(vertices):
            lib.vx_text_data_set_point(h, v, i)

    def add_point(self, point: Sequence[float]) -> None:
        """Appends a point (with size and offsets 0 for a type 2 label)."""
        _grown(lib.vx_text_data_add_point(self._handle, _vtx(point)))

    @property
    def sizes(self) -> List[Size]:
        """The sizes and offsets: one per point for type 2, a single one otherwise. Setting gives
        each in turn; there must be as many as the label holds."""
        h = self._handle
        return [
            Size(lib.vx_text_data_get_size(h, i), lib.vx_text_data_get_delta_x(h, i), lib.vx_text_data_get_delta_y(h, i))
            for i in range(lib.vx_text_data_get_size_count(h))
        ]

    @sizes.setter
    def sizes(self, sizes: Sequence[Sequence[float]]) -> None:
        h = self._handle
        count = lib.vx_text_data_get_size_count(h)
        if len(sizes) != count:
            raise ValueError(f"the label holds {count} sizes, not {len(sizes)}")
        for i, (size, dx, dy) in enumerate(sizes):
            lib.vx_text_data_set_size(h, float(size), i)
            lib.vx_text_data_set_delta_x(h, float(dx), i)
            lib.vx_text_data_set_delta_y(h, float(dy), i)

    @property
    def text(self) -> str:
        """The label's text."""
        return lib.vx_text_data_get_text(self._handle)

    @text.setter
    def text(self, value: str) -> None:
        _grown(lib.vx_text_data_set_text(self._handle, value))

    @property
    def font(self) -> str:
        """The font name."""
        return lib.vx_text_data_get_font_name(self._handle)

    @font.setter
    def font(self, value: str) -> None:
        _grown(lib.vx_text_data_set_font_name(self._handle, value))

    @property
    def color(self) -> int:
        """Colour as 0xAARRGGBB; a new label is opaque black."""
        return int(lib.vx_text_data_get_color(self._handle))

    @color.setter
    def color(self, value: int) -> None:
        lib.vx_text_data_set_color(self._handle, value)

    @property
    def style(self) -> int:
        """Style bits: STYLE_BOLD, STYLE_ITALIC, STYLE_UNDERLINE, STYLE_STRIKEOUT or the host's own."""
        return int(lib.vx_text_data_get_style(self._handle))

    @style.setter
    def style(self, value: int) -> None:
        lib.vx_text_data_set_style(self._handle, value)

    @property
    def align(self) -> int:
        """Where the point stands in the text's box: 0 to 8 row by row from the top left."""
        return int(lib.vx_text_data_get_align(self._handle))

    @align.setter
    def align(self, value: int) -> None:
        lib.vx_text_data_set_align(self._handle, value)

    @property
    def angle(self) -> float:
        """Angle of the base line in degrees, counter-clockwise from the x axis."""
        return float(lib.vx_text_data_get_angle(self._handle))

    @angle.setter
    def angle(self, value: float) -> None:
        lib.vx_text_data_set_angle(self._handle, value)

    @property
    def callout(self) -> Optional[Callout]:
        """The label's callout, None when it has none."""
        return Callout(self) if lib.vx_text_data_get_callout(self._handle) else None

    def add_callout(self, end_points: Iterable[Sequence[float]] = ()) -> Callout:
        """Gives the label a callout (or takes the one it has) and appends the end points to it."""
        if not lib.vx_text_data_add_callout(self._handle):
            raise MemoryError("the library could not make a callout")
        callout = Callout(self)
        for p in end_points:
            callout.append(p)
        return callout

    def remove_callout(self) -> None:
        """Takes the callout away; views of it fail from then on."""
        lib.vx_text_data_remove_callout(self._handle)


class TextList(Owned):
    """A list of labels held by the library, owned by this object (freed when collected, or at once by
    ``close()`` or at the end of a ``with`` block)."""

    def __init__(self) -> None:
        self._own(lib.vx_text_list_create(), lib.vx_text_list_destroy)

    def __len__(self) -> int:
        return int(lib.vx_text_list_get_size(self._handle))

    def __getitem__(self, index: int) -> Label:
        return Label(self, _index(index, len(self)))

    def __iter__(self) -> Iterator[Label]:
        return (Label(self, i) for i in range(len(self)))

    def __repr__(self) -> str:
        return "<vxk.TextList closed>" if self.closed else f"<vxk.TextList of {len(self)} labels>"

    def add(
        self,
        text: str = "",
        points: Iterable[Sequence[float]] = (),
        *,
        type: int = 1,
        size: float = 0.0,
        font: str = "",
    ) -> Label:
        """Appends a label and gives it back. ``size`` is given to every size the label holds."""
        index = len(self)
        if not lib.vx_text_list_add(self._handle):
            raise MemoryError("the library could not add a label")
        label = Label(self, index)
        label.type = type
        label.points = points
        label.text = text
        label.font = font
        label.sizes = [Size(size, s.dx, s.dy) for s in label.sizes]
        return label

    def clear(self) -> None:
        """Removes every label."""
        lib.vx_text_list_clear(self._handle)

    def reproject(self, src: str, dst: str) -> None:
        """Reprojects the labels in place from ``src`` to ``dst`` (PROJ strings): points and callout end
        points are transformed, sizes and offsets multiplied by one length factor taken at the origin of
        the source system. A point that cannot be transformed keeps its position.

        Raises ProjectionError, with the list untouched, when the transformation cannot be built.
        """
        with reports() as r:
            done = lib.vx_proj4_text_list_w(self._handle, src, dst)
        if not done:
            raise ProjectionError(f"cannot build the transformation from {src!r} to {dst!r}", r.errors)

    @classmethod
    def load(cls, path: PathLike) -> TextList:
        """The labels of a TLD file; raises FileError when it is missing or cannot be read whole."""
        with TldFile(path) as f:
            return f.read()

    def save(self, path: PathLike) -> None:
        """Writes the labels to a TLD file, replacing it; raises FileError when that fails."""
        with TldFile(path) as f:
            f.write(self)


class TldFile(Owned):
    """A TLD label file, open from construction to ``close()`` (use it in a ``with`` block).

    Opening succeeds on an existing file and on a new file in an existing folder; nothing is read or
    written until ``read`` or ``write``.
    """

    def __init__(self, path: PathLike) -> None:
        self.path = path_text(path)
        with reports() as r:
            handle = lib.vx_tld_file_open_w(self.path)
        if not handle:
            raise FileError(f"cannot open the label file '{self.path}' (does its folder exist?)", r.errors)
        self._own(handle, lib.vx_tld_file_close)

    def _error(self) -> str:
        return lib.vx_tld_file_get_error(self._handle) or "unknown reason"

    def read(self) -> TextList:
        """All the labels of the file, as a new TextList.

        Raises FileError when the file is missing, truncated or inconsistent; its ``labels`` attribute
        then holds the labels read completely before the defect.
        """
        labels = TextList()
        with reports() as r:
            done = lib.vx_tld_file_read_all(self._handle, labels._handle)
        if not done:
            error = FileError(f"cannot read the label file '{self.path}': {self._error()}", r.errors)
            error.labels = labels  # type: ignore[attr-defined]
            raise error
        return labels

    def write(self, labels: TextList) -> None:
        """Writes the whole list, replacing the file; raises FileError when that fails."""
        with reports() as r:
            done = lib.vx_tld_file_write_all(self._handle, labels._handle, 0)
        if not done:
            raise FileError(f"cannot write the label file '{self.path}': {self._error()}", r.errors)

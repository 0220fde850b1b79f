"""Map sheets of the standard series: the designation record, its levels, neighbours and children."""

from __future__ import annotations

import ctypes
import enum
from typing import Any, Callable, Dict, List, NamedTuple, Tuple, Union

from . import lists
from ._native import lib
from ._support import Owned, fetch, sink
from .errors import DesignationError


class Scale(enum.IntEnum):
    """The scales of the series, with the library's numbering.

    1:300,000 (``K300``) is declared but never valid; ``NONE`` and ``END`` are the marks below and
    above the range, never valid either.
    """

    NONE = 0
    MLN = 1  # 1:1,000,000
    K500 = 2  # 1:500,000
    K300 = 3  # 1:300,000
    K200 = 4  # 1:200,000
    K100 = 5  # 1:100,000
    K50 = 6  # 1:50,000
    K25 = 7  # 1:25,000
    K10 = 8  # 1:10,000
    END = 9

    @property
    def text(self) -> str:
        """The library's text of the scale, such as "1:200000"; empty for the scales that have none."""
        rows = fetch(lib.vx_stdlist_fetch_scale_str, int(self))
        return rows[0] if rows else ""

    def __str__(self) -> str:
        return self.text or self.name

    @classmethod
    def parse(cls, value: ScaleLike) -> Scale:
        """A scale from its text ("1:200000"; blanks, commas and underscores between digits are
        allowed, as in "1:200 000") or its number; raises DesignationError for anything else."""
        if isinstance(value, str):
            text = "".join(c for c in value.strip() if c not in " ,_")
            legal = set(lists.scales()) - {""}
            for scale in cls:
                if text in legal and scale.text == text:
                    return scale
            raise DesignationError(f"{value!r} is not a scale of the series ({', '.join(sorted(legal))})")
        try:
            return cls(int(value))
        except (ValueError, TypeError):
            raise DesignationError(f"{value!r} is not a scale") from None


class SheetType(enum.IntEnum):
    """How many adjoining sheets are joined in one row."""

    SINGLE = 1
    DOUBLE = 2
    TRIPLE = 3
    QUADRUPLE = 4

    @property
    def text(self) -> str:
        """The library's name of the type (in Russian)."""
        return lists.types()[self - 1]


class Hemisphere(enum.IntEnum):
    """The hemisphere of a sheet, which its designation does not show."""

    NORTH = 1
    SOUTH = 2

    @property
    def text(self) -> str:
        """"N" or "S"."""
        return lists.hemispheres()[self - 1]


ScaleLike = Union[Scale, int, str]
TypeLike = Union[SheetType, int]
HemisphereLike = Union[Hemisphere, int, str]


def _type_of(value: TypeLike) -> SheetType:
    try:
        return SheetType(int(value))
    except (ValueError, TypeError):
        raise DesignationError(f"{value!r} is not a sheet type (1 to 4)") from None


def _hemisphere_of(value: HemisphereLike) -> Hemisphere:
    if isinstance(value, str):
        if value in lists.hemispheres():
            return Hemisphere(lists.hemispheres().index(value) + 1)
        raise DesignationError(f"{value!r} is not a hemisphere (N or S)")
    try:
        return Hemisphere(int(value))
    except (ValueError, TypeError):
        raise DesignationError(f"{value!r} is not a hemisphere") from None


class Neighbours(NamedTuple):
    """The designations of the four neighbours of a sheet, as the library gives them."""

    left: str
    right: str
    upper: str
    lower: str


def _one_char(value: Any) -> bool:
    return isinstance(value, str) and len(value) == 1


def _digits(value: Any) -> bool:
    return isinstance(value, str) and value.isascii() and value.isdigit()


def _level(what: str, get: Callable[[Any], Any], put: Callable[[Any, Any], bool], doc: str) -> property:
    """A level of the designation as a property: reading asks the library, and a value that the library
    refuses raises DesignationError and leaves the record as it was. (`get` and `put` reach the library
    only when called, so that importing the package does not load it.)"""

    def getter(self: Sheet) -> Any:
        return get(self._handle)

    def setter(self: Sheet, value: Any) -> None:
        self._guarded(lambda h: put(h, value), f"{value!r} is not {what}")

    return property(getter, setter, doc=doc)


def _set_number(by_int: Callable[[Any, int], bool], by_text: Callable[[Any, str], Any]) -> Callable:
    """A setter of a number level that takes an int, or a text parsed by the library."""

    def put(h: Any, value: Any) -> bool:
        if isinstance(value, bool) or not isinstance(value, (int, str)):
            return False
        if isinstance(value, int):
            return value >= 0 and by_int(h, value)
        return _digits(value) and bool(by_text(h, value))

    return put


def _set_100_text(h: Any, text: str) -> bool:
    # The library's text setter of this level keeps the old number on a bad text and says nothing, so
    # the number is cleared first: success is a number stored.
    lib.vx_stdlist_set_100_number(h, 0)
    lib.vx_stdlist_set_100_number_str(h, text)
    return lib.vx_stdlist_get_100_number(h) != 0


def _set_10_text(h: Any, text: str) -> bool:
    return len(text) == 1 and lib.vx_stdlist_set_10_number_str(h, text) != 0


class Sheet(Owned):
    """The designation record of a map sheet, owned by this object.

    A new record is the sheet "A-1": north, 1:1,000,000, single. ``Sheet.parse`` reads a designation;
    the properties read and set the record through the library, and a value the library refuses raises
    DesignationError without changing the record. The record is freed when the object is collected,
    or at once by ``close()`` or at the end of a ``with`` block.
    """

    def __init__(self) -> None:
        self._own(lib.vx_stdlist_create(), lib.vx_stdlist_destroy)

    # --- reading a designation -------------------------------------------------------------------------

    @classmethod
    def parse(
        cls, text: str, *, type: TypeLike | None = None, hemisphere: HemisphereLike = "N"
    ) -> Sheet:
        """The sheet of a designation such as "N-37-VI", validated.

        The designation names the first (westernmost) sheet, at any scale from 1:1,000,000
        ("N-37") to 1:10,000 ("N-37-12-Б-в-4"). A joined designation as the library prints it, such
        as "N-37-VI,38-I", is read too: its type is the number of sheets, and the text must be the one
        the library prints for it. ``type`` joins that many sheets in one row; ``hemisphere`` is "N" or
        "S" (the designation does not tell). Raises DesignationError when the text is not a
        designation, the type is not available at its scale, or the sheet is not valid.
        """
        if not isinstance(text, str):
            raise DesignationError(f"{text!r} is not a designation text")
        text = text.strip()
        parts = text.split(",")
        if type is not None and len(parts) > 1 and int(type) != len(parts):
            raise DesignationError(f"'{text}' joins {len(parts)} sheets, not {int(type)}")
        sheet = cls()
        scale = sheet._read_levels(parts[0])
        sheet.place(scale, type if type is not None else len(parts), hemisphere)
        if not sheet.valid:
            raise DesignationError(f"'{text}' is not a valid sheet")
        if len(parts) > 1 and sheet.designation != text:
            raise DesignationError(f"'{text}' is not a joined sheet as the library writes it ('{sheet.designation}')")
        return sheet

    def _read_levels(self, text: str) -> Scale:
        """Fills the levels from the designation of one sheet; gives the scale it names."""
        f = text.split("-")
        if len(f) < 2:
            raise DesignationError(f"'{text}' is not a designation: expected at least a band and a column, as in N-37")
        self.mln_letter = f[0]
        if not _digits(f[1]):
            raise DesignationError(f"{f[1]!r} is not a column number (1 to 60)")
        self.mln_number = f[1]
        if len(f) == 2:
            return Scale.MLN
        if _digits(f[2]):
            self.number_100 = f[2]
            return self._read_below_100(f)
        # Only the level that the text names is set, so that the others keep the values of a new record.
        scale = Scale.K500 if f[2] in lists.letters_500() else Scale.K200
        try:
            setattr(self, "letter_500" if scale == Scale.K500 else "roman_200", f[2])
        except DesignationError:
            raise DesignationError(
                f"{f[2]!r} is neither a 1:500,000 letter (Cyrillic А to Г), a Roman numeral I to XXXVI nor a "
                "1:100,000 number"
            ) from None
        if len(f) > 3:
            raise DesignationError(f"unexpected {f[3]!r} after {f[2]!r}")
        return scale

    def _read_below_100(self, f: List[str]) -> Scale:
        levels = [("letter_50", Scale.K50), ("letter_25", Scale.K25), ("number_10", Scale.K10)]
        if len(f) > 6:
            raise DesignationError(f"unexpected {f[6]!r} after the 1:10,000 number")
        scale = Scale.K100
        for value, (name, level_scale) in zip(f[3:], levels):
            setattr(self, name, value)
            scale = level_scale
        return scale

    # --- the whole record ------------------------------------------------------------------------------

    @property
    def designation(self) -> str:
        """The designation as the library prints it, such as "N-37-VI,38-I" ("" at 1:300,000)."""
        rows = fetch(lib.vx_stdlist_to_string, self._handle)
        return rows[0] if rows else ""

    def __str__(self) -> str:
        return self.designation

    def __repr__(self) -> str:
        if self.closed:
            return "<vxk.Sheet closed>"
        state = "valid" if self.valid else "not valid"
        return (
            f"<vxk.Sheet {self.designation!r} {self.scale_text or self.scale.name}, "
            f"type {int(self.type)}, {self.hemisphere}, {state}>"
        )

    def __eq__(self, other: object) -> bool:
        """Equal when every field of the two records is: levels off the sheet's own chain count too."""
        if not isinstance(other, Sheet):
            return NotImplemented
        return bool(lib.vx_stdlist_equal(self._handle, other._handle))

    __hash__ = None  # type: ignore[assignment]  # a record changes

    def copy(self) -> Sheet:
        """A new record with all the fields of this one."""
        other = Sheet()
        lib.vx_stdlist_assign(other._handle, self._handle)
        return other

    __copy__ = copy

    def reset(self) -> None:
        """Back to the new record "A-1"."""
        lib.vx_stdlist_init_default(self._handle)

    @property
    def valid(self) -> bool:
        """Whether the record is a sheet of the series: the levels of its scale in range."""
        return bool(lib.vx_stdlist_valid(self._handle))

    def place(self, scale: ScaleLike, type: TypeLike = SheetType.SINGLE, hemisphere: HemisphereLike = "N") -> None:
        """Sets scale, type and hemisphere together. The levels keep their values.

        Raises DesignationError, leaving the record as it was, when the type is not available at the
        scale: 1:200,000 joins 1 to 3 sheets, the other scales 1, 2 or 4.
        """
        s, t, h = Scale.parse(scale), _type_of(type), _hemisphere_of(hemisphere)

        def put(handle: Any) -> bool:
            return (
                lib.vx_stdlist_init(handle, s, SheetType.SINGLE, h)
                and lib.vx_stdlist_init(handle, s, t, h)
                and lib.vx_stdlist_get_type(handle) == t
            )

        self._guarded(put, f"type {int(t)} is not available at {s.text or s.name} "
                      "(1:200,000 joins 1 to 3 sheets, the other scales 1, 2 or 4)")

    @property
    def scale(self) -> Scale:
        """The scale. Setting it keeps type and hemisphere (see ``place``)."""
        return Scale(lib.vx_stdlist_get_scale(self._handle))

    @scale.setter
    def scale(self, value: ScaleLike) -> None:
        self.place(value, self.type, self.hemisphere)

    @property
    def scale_text(self) -> str:
        """The library's text of the scale, "?" for the scales that have none."""
        return lib.vx_stdlist_scale_tostr(self._handle)

    @property
    def type(self) -> SheetType:
        """The sheet type. Setting it keeps scale and hemisphere (see ``place``)."""
        return SheetType(lib.vx_stdlist_get_type(self._handle))

    @type.setter
    def type(self, value: TypeLike) -> None:
        self.place(self.scale, value, self.hemisphere)

    @property
    def type_text(self) -> str:
        """The library's name of the type (in Russian)."""
        return lib.vx_stdlist_type_tostr(self._handle)

    @property
    def hemisphere(self) -> str:
        """"N" or "S". Setting it keeps scale and type."""
        return chr(lib.vx_stdlist_hemisphere_tostr(self._handle))

    @hemisphere.setter
    def hemisphere(self, value: HemisphereLike) -> None:
        self.place(self.scale, self.type, value)

    @property
    def mid_meridian(self) -> float:
        """The middle meridian of the sheet's columns in whole degrees, as the library works it out."""
        return float(lib.vx_stdlist_get_mid_meridian(self._handle))

    @property
    def supported_types(self) -> Tuple[SheetType, ...]:
        """The types that the library advises offering at the sheet's latitude band."""
        flags = (ctypes.c_bool * 4)()
        lib.vx_stdlist_fetch_supported_types(self._handle, flags)
        return tuple(SheetType(i + 1) for i in range(4) if flags[i])

    @property
    def neighbours(self) -> Neighbours:
        """The four neighbours of a 1:200,000 sheet of the same type: left, right, upper, lower.

        Raises DesignationError at any other scale.
        """
        with sink() as (handle, rows):
            known = lib.vx_stdlist_fetch_neighbours(self._handle, handle)
        if not known or len(rows) != 4:
            raise DesignationError(
                f"neighbours are known for 1:200,000 sheets only; '{self.designation}' is at {self.scale_text}"
            )
        return Neighbours(*rows)

    # --- levels ----------------------------------------------------------------------------------------

    mln_letter = _level(
        "a band letter (A to V)",
        lambda h: chr(lib.vx_stdlist_get_mln_letter(h)),
        lambda h, v: _one_char(v) and lib.vx_stdlist_set_mln_letter(h, v),
        "Band letter of the 1:1,000,000 sheet, \"A\" to \"V\"; \"?\" when not set.",
    )
    mln_number = _level(
        "a column number (1 to 60)",
        lambda h: int(lib.vx_stdlist_get_mln_number(h)),
        _set_number(lambda h, n: lib.vx_stdlist_set_mln_number(h, n), lambda h, t: lib.vx_stdlist_set_mln_number_str(h, t)),
        "Column number of the 1:1,000,000 sheet, 1 to 60 (set as int or text).",
    )
    letter_500 = _level(
        "a 1:500,000 letter (Cyrillic А to Г)",
        lambda h: chr(lib.vx_stdlist_get_500_letter(h)),
        lambda h, v: _one_char(v) and lib.vx_stdlist_set_500_letter(h, v),
        "Letter of the 1:500,000 sheet, Cyrillic \"А\" to \"Г\"; \"?\" when not set.",
    )
    roman_200 = _level(
        "a 1:200,000 Roman numeral (I to XXXVI)",
        lambda h: fetch(lib.vx_stdlist_get_200_roman, h)[0],
        lambda h, v: isinstance(v, str) and lib.vx_stdlist_set_200_roman(h, v),
        "Roman numeral of the 1:200,000 sheet, \"I\" to \"XXXVI\"; \"?\" when not set.",
    )
    number_100 = _level(
        "a 1:100,000 number (1 to 144)",
        lambda h: int(lib.vx_stdlist_get_100_number(h)),
        _set_number(lambda h, n: lib.vx_stdlist_set_100_number(h, n), _set_100_text),
        "Number of the 1:100,000 sheet, 1 to 144 (set as int or text).",
    )
    letter_50 = _level(
        "a 1:50,000 letter (Cyrillic А to Г)",
        lambda h: chr(lib.vx_stdlist_get_50_letter(h)),
        lambda h, v: _one_char(v) and lib.vx_stdlist_set_50_letter(h, v) != 0,
        "Letter of the 1:50,000 sheet, Cyrillic \"А\" to \"Г\"; \"?\" when not set.",
    )
    letter_25 = _level(
        "a 1:25,000 letter (Cyrillic а to г)",
        lambda h: chr(lib.vx_stdlist_get_25_letter(h)),
        lambda h, v: _one_char(v) and lib.vx_stdlist_set_25_letter(h, v) != 0,
        "Letter of the 1:25,000 sheet, Cyrillic \"а\" to \"г\"; \"?\" when not set.",
    )
    number_10 = _level(
        "a 1:10,000 number (1 to 4)",
        lambda h: int(lib.vx_stdlist_get_10_number(h)),
        _set_number(lambda h, n: lib.vx_stdlist_set_10_number(h, n), _set_10_text),
        "Number of the 1:10,000 sheet, 1 to 4 (set as int or text).",
    )

    def _guarded(self, put: Callable[[Any], Any], refusal: str) -> None:
        """Runs a change of the record; when the library refuses it, restores the record and raises."""
        h = self._handle
        backup = lib.vx_stdlist_create()
        if not backup:
            raise MemoryError("the library could not make a new record")
        try:
            lib.vx_stdlist_assign(backup, h)
            if not put(h):
                lib.vx_stdlist_assign(h, backup)
                raise DesignationError(refusal)
        finally:
            lib.vx_stdlist_destroy(backup)

    # --- children --------------------------------------------------------------------------------------

    def children(self, scale: ScaleLike) -> List[Sheet]:
        """Every sheet of a finer scale that lies in this one, in the order of the lists of legal values
        (row by row from the north-west corner), single sheets of the same hemisphere.

        The scale must lie below this sheet's on the chain of levels: 1:500,000, 1:200,000 and
        1:100,000 below 1:1,000,000, then 1:50,000, 1:25,000 and 1:10,000 each below the one before.
        """
        target = Scale.parse(scale)
        if not self.valid or self.type != SheetType.SINGLE:
            raise DesignationError(f"children are listed for a valid single sheet, not {self!r}")
        steps = _steps_between(self.scale, target)
        sheets = [self.copy()]
        for step in steps:
            name, values = _LEVEL_OF[step]
            sheets = [_with_level(parent, name, value) for parent in sheets for value in values()]
        for child in sheets:
            child.place(target, SheetType.SINGLE, self.hemisphere)
        return sheets


# The scale whose sheet each scale divides, and the level that the division adds.
_PARENT: Dict[Scale, Scale] = {
    Scale.K500: Scale.MLN,
    Scale.K200: Scale.MLN,
    Scale.K100: Scale.MLN,
    Scale.K50: Scale.K100,
    Scale.K25: Scale.K50,
    Scale.K10: Scale.K25,
}
_LEVEL_OF: Dict[Scale, Tuple[str, Callable[[], Tuple[str, ...]]]] = {
    Scale.K500: ("letter_500", lists.letters_500),
    Scale.K200: ("roman_200", lists.romans_200),
    Scale.K100: ("number_100", lists.numbers_100),
    Scale.K50: ("letter_50", lists.letters_50),
    Scale.K25: ("letter_25", lists.letters_25),
    Scale.K10: ("number_10", lists.numbers_10),
}


def _steps_between(parent: Scale, target: Scale) -> List[Scale]:
    """The scales from just below `parent` down to `target` along the chain of levels."""
    steps = []
    s = target
    while s != parent:
        if s not in _PARENT:
            raise DesignationError(
                f"{target.text or target.name} sheets do not divide a {parent.text or parent.name} sheet"
            )
        steps.append(s)
        s = _PARENT[s]
    if not steps:
        raise DesignationError(f"children are of a finer scale than {parent.text}")
    return steps[::-1]


def _with_level(parent: Sheet, name: str, value: str) -> Sheet:
    child = parent.copy()
    setattr(child, name, value)
    return child


def sheets_of(parent: Union[Sheet, str], scale: ScaleLike, *, hemisphere: HemisphereLike = "N") -> List[Sheet]:
    """The sheets at ``scale`` that lie in ``parent`` (a Sheet, or a designation read with the given
    hemisphere): see ``Sheet.children``."""
    sheet = parent if isinstance(parent, Sheet) else Sheet.parse(parent, hemisphere=hemisphere)
    return sheet.children(scale)

"""The lists of legal values of every level of the sheet series, as the library gives them.

Each function returns the rows in the library's order, as texts: numbers too come as their text
("1" to "60"), and the letters of 1:500,000, 1:50,000 and 1:25,000 are Cyrillic.
"""

from __future__ import annotations

from typing import Tuple

from ._native import lib
from ._support import fetch


def hemispheres() -> Tuple[str, ...]:
    """"N" and "S"."""
    return tuple(fetch(lib.vx_stdlist_fetch_hemispheres))


def scales() -> Tuple[str, ...]:
    """The empty text, then "1:1000000" to "1:10000" (1:300,000 is left out)."""
    return tuple(fetch(lib.vx_stdlist_fetch_scales))


def types() -> Tuple[str, ...]:
    """The names of the four sheet types, single to quadruple, in the library's own (Russian) words."""
    return tuple(fetch(lib.vx_stdlist_fetch_types))


def mln_letters() -> Tuple[str, ...]:
    """The band letters of 1:1,000,000, "A" to "V"."""
    return tuple(fetch(lib.vx_stdlist_fetch_mln_letters))


def mln_numbers() -> Tuple[str, ...]:
    """The column numbers of 1:1,000,000, "1" to "60"."""
    return tuple(fetch(lib.vx_stdlist_fetch_mln_numbers))


def letters_500() -> Tuple[str, ...]:
    """The letters of 1:500,000, "А" to "Г" (Cyrillic capitals)."""
    return tuple(fetch(lib.vx_stdlist_fetch_500_letters))


def romans_200() -> Tuple[str, ...]:
    """The Roman numerals of 1:200,000, "I" to "XXXVI"."""
    return tuple(fetch(lib.vx_stdlist_fetch_200_romans))


def numbers_100() -> Tuple[str, ...]:
    """The numbers of 1:100,000, "1" to "144"."""
    return tuple(fetch(lib.vx_stdlist_fetch_100_numbers))


def letters_50() -> Tuple[str, ...]:
    """The letters of 1:50,000, "А" to "Г" (Cyrillic capitals)."""
    return tuple(fetch(lib.vx_stdlist_fetch_50_letters))


def letters_25() -> Tuple[str, ...]:
    """The letters of 1:25,000, "а" to "г" (Cyrillic small letters)."""
    return tuple(fetch(lib.vx_stdlist_fetch_25_letters))


def numbers_10() -> Tuple[str, ...]:
    """The numbers of 1:10,000, "1" to "4"."""
    return tuple(fetch(lib.vx_stdlist_fetch_10_numbers))

"""Sheets: the record, its levels, printing, neighbours, children and lists."""

from __future__ import annotations

import copy

import pytest

import vxk
from vxk import Scale, Sheet, SheetType
from vxk._native import lib


def test_a_new_sheet_is_a_1_valid():
    s = Sheet()
    assert (s.designation, str(s), s.valid) == ("A-1", "A-1", True)
    assert (s.scale, s.type, s.hemisphere) == (Scale.MLN, SheetType.SINGLE, "N")
    assert (s.mln_letter, s.mln_number, s.letter_500, s.roman_200) == ("A", 1, "А", "I")
    assert (s.number_100, s.letter_50, s.letter_25, s.number_10) == (1, "А", "а", 1)
    assert s.mid_meridian == -177.0
    assert "A-1" in repr(s)


def test_parse_reads_every_scale():
    expected = {
        "N-37": Scale.MLN, "N-37-Б": Scale.K500, "N-37-VI": Scale.K200, "N-37-12": Scale.K100,
        "N-37-12-Б": Scale.K50, "N-37-12-Б-в": Scale.K25, "N-37-12-Б-в-4": Scale.K10,
    }
    for text, scale in expected.items():
        s = Sheet.parse(text)
        assert s.scale == scale and s.valid
        assert s.designation == (text if scale != Scale.K10 else "-12-Б-в-4")


def test_parse_reads_a_joined_designation_as_the_library_prints_it():
    s = Sheet.parse("N-37-VI,38-I,II")
    assert s.type == SheetType.TRIPLE and s.designation == "N-37-VI,38-I,II"
    assert Sheet.parse("N-37-Б,38-А,Б,39-А").type == SheetType.QUADRUPLE
    with pytest.raises(vxk.DesignationError, match="as the library writes it"):
        Sheet.parse("N-37-VI,38-II")
    with pytest.raises(vxk.DesignationError, match="joins 2 sheets, not 3"):
        Sheet.parse("N-37-VI,38-I", type=3)
    with pytest.raises(vxk.DesignationError):
        Sheet.parse("N-37,38,39")  # a triple does not exist at 1:1,000,000
    with pytest.raises(vxk.DesignationError):
        Sheet.parse(37)  # type: ignore[arg-type]


def test_the_hemisphere_is_not_printed():
    north, south = Sheet.parse("N-37-VI"), Sheet.parse("N-37-VI", hemisphere="S")
    assert north.designation == south.designation and south.hemisphere == "S"
    assert north != south
    south.hemisphere = vxk.Hemisphere.NORTH
    assert north == south
    with pytest.raises(vxk.DesignationError):
        south.hemisphere = "E"


def test_a_refused_level_raises_and_leaves_the_record_as_it_was():
    s = Sheet.parse("N-37-12-Б-в-4")
    for name, bad in [("mln_letter", "Z"), ("mln_letter", "?"), ("mln_letter", "NN"), ("mln_number", 61),
                      ("mln_number", "61"), ("mln_number", -1), ("mln_number", 2.5), ("letter_500", "A"),
                      ("roman_200", "XL"), ("roman_200", 5), ("number_100", 145), ("number_100", "145"),
                      ("number_100", "x"), ("letter_50", "Д"), ("letter_25", "Г"), ("number_10", 5),
                      ("number_10", "5"), ("number_10", "44"), ("mln_number", True)]:
        before = s.copy()
        with pytest.raises(vxk.DesignationError):
            setattr(s, name, bad)
        assert s == before, (name, bad)
    assert s.valid and s.designation == "-12-Б-в-4"


def test_levels_set_through_properties():
    s = Sheet()
    s.mln_letter, s.mln_number = "N", "37"
    s.place("1:200000", SheetType.DOUBLE)
    s.roman_200 = "VI"
    assert s.designation == "N-37-VI,38-I"
    s.place(Scale.K100, 1)
    s.number_100 = 12
    s.letter_50, s.letter_25, s.number_10 = "Б", "в", "4"
    s.scale = Scale.K10
    assert s.designation == "-12-Б-в-4" and s.valid
    s.number_10 = 2
    assert s.number_10 == 2
    s.scale = "1:500000"
    s.letter_500 = "Г"
    assert s.designation == "N-37-Г"


def test_type_not_available_at_a_scale_is_refused():
    s = Sheet.parse("N-37")
    with pytest.raises(vxk.DesignationError, match="type 3 is not available at 1:1000000"):
        s.type = 3
    assert s.type == SheetType.SINGLE
    s.type = SheetType.QUADRUPLE
    assert s.designation == "N-37,38,39,40" and s.mid_meridian == 48.0
    with pytest.raises(vxk.DesignationError):
        s.scale = Scale.K200  # a quadruple does not exist at 1:200,000
    assert s.scale == Scale.MLN and s.type == SheetType.QUADRUPLE
    with pytest.raises(vxk.DesignationError):
        s.type = 7


def test_scale_300000_is_accepted_but_never_valid():
    s = Sheet()
    s.scale = Scale.K300
    assert not s.valid and s.scale_text == "?" and s.designation == ""
    assert Scale.K300.text == "" and Scale.END.text == ""


def test_scales_read_from_their_texts():
    assert Scale.parse("1:200000") is Scale.K200
    assert Scale.parse(" 1:1 000 000 ") is Scale.MLN and Scale.parse("1:25,000") is Scale.K25
    assert Scale.parse(5) is Scale.K100 and Scale.K10.text == "1:10000" and str(Scale.K50) == "1:50000"
    for bad in ("1:300000", "1:2000", "", "K200", 10, None):
        with pytest.raises(vxk.DesignationError):
            Scale.parse(bad)  # type: ignore[arg-type]


def test_type_and_hemisphere_texts():
    assert SheetType.DOUBLE.text == "Сдвоенный лист"
    assert vxk.Hemisphere.SOUTH.text == "S"
    s = Sheet.parse("N-37", type=2)
    assert s.type_text == "Сдвоенный лист"


def test_supported_types_follow_the_band():
    assert Sheet.parse("S-37-VI").supported_types == (SheetType.SINGLE, SheetType.DOUBLE)
    assert Sheet.parse("T-37-VI").supported_types == (SheetType.SINGLE, SheetType.TRIPLE)
    assert Sheet.parse("T-37").supported_types == (SheetType.SINGLE, SheetType.DOUBLE, SheetType.QUADRUPLE)
    assert Sheet.parse("N-37").supported_types == (SheetType.SINGLE,)


def test_neighbours():
    n = Sheet.parse("N-37-VI").neighbours
    assert n == vxk.Neighbours("N-37-V", "N-38-I", "O-37-XXXVI", "N-37-XII")
    assert n.upper == "O-37-XXXVI"
    assert Sheet.parse("N-37-I", type=2).neighbours.left == "N-36-V,VI"
    with pytest.raises(vxk.DesignationError):
        Sheet.parse("N-37").neighbours


def test_children_through_the_lists_of_legal_values():
    romans = vxk.sheets_of("N-37", scale="1:200000")
    assert [str(s) for s in romans] == [f"N-37-{r}" for r in vxk.lists.romans_200()]
    assert len(vxk.sheets_of("N-37", Scale.K500)) == 4
    hundred = vxk.sheets_of("N-37", "1:100000")
    assert len(hundred) == 144 and str(hundred[11]) == "N-37-12"
    tens = Sheet.parse("N-37-12").children("1:10000")
    assert len(tens) == 64 and str(tens[0]) == "-12-А-а-1" and str(tens[-1]) == "-12-Г-г-4"
    assert all(t.valid and t.scale == Scale.K10 for t in tens)
    south = vxk.sheets_of("N-37-12-Б", "1:25000", hemisphere="S")
    assert [s.hemisphere for s in south] == ["S"] * 4
    assert [str(s) for s in south] == ["N-37-12-Б-а", "N-37-12-Б-б", "N-37-12-Б-в", "N-37-12-Б-г"]


def test_children_equal_the_sheets_read_from_their_designations():
    for parent, scale in [("N-37", "1:500000"), ("N-37", "1:200000"), ("N-37-12-Б", "1:25000")]:
        for child in vxk.sheets_of(parent, scale):
            assert Sheet.parse(str(child)) == child


def test_children_outside_the_chain_are_refused():
    with pytest.raises(vxk.DesignationError, match="do not divide"):
        vxk.sheets_of("N-37-VI", "1:100000")
    with pytest.raises(vxk.DesignationError, match="do not divide"):
        vxk.sheets_of("N-37-Б", "1:200000")
    with pytest.raises(vxk.DesignationError, match="finer scale"):
        vxk.sheets_of("N-37", "1:1000000")
    with pytest.raises(vxk.DesignationError, match="single sheet"):
        Sheet.parse("N-37", type=2).children("1:500000")


def test_copy_equal_reset():
    s = Sheet.parse("N-37-12-Б")
    c = copy.copy(s)
    assert c == s and c is not s
    c.letter_50 = "В"
    assert c != s
    assert (s == "N-37-12-Б") is False
    c.reset()
    assert c == Sheet()
    with pytest.raises(TypeError):
        hash(s)


def test_a_closed_sheet_refuses_use():
    with Sheet.parse("N-37") as s:
        assert s.valid
    assert s.closed and "closed" in repr(s)
    with pytest.raises(ValueError, match="closed"):
        s.designation
    s.close()


def test_lists_of_legal_values():
    assert vxk.lists.hemispheres() == ("N", "S")
    assert vxk.lists.scales() == ("", "1:1000000", "1:500000", "1:200000", "1:100000", "1:50000", "1:25000",
                                  "1:10000")
    assert len(vxk.lists.types()) == 4
    assert vxk.lists.mln_letters()[0] == "A" and vxk.lists.mln_letters()[-1] == "V" and len(vxk.lists.mln_letters()) == 22
    assert vxk.lists.mln_numbers() == tuple(str(n) for n in range(1, 61))
    assert vxk.lists.letters_500() == vxk.lists.letters_50() == ("А", "Б", "В", "Г")
    assert vxk.lists.romans_200()[5] == "VI" and len(vxk.lists.romans_200()) == 36
    assert vxk.lists.numbers_100() == tuple(str(n) for n in range(1, 145))
    assert vxk.lists.letters_25() == ("а", "б", "в", "г")
    assert vxk.lists.numbers_10() == ("1", "2", "3", "4")


# --- the thin layer's functions that the classes do not use, called as the header describes them ----


def test_index_functions_of_the_thin_layer():
    s = Sheet.parse("N-37-12-Б-в-4")
    h = s._handle
    assert lib.vx_stdlist_get_mln_letter_idx(h) == vxk.lists.mln_letters().index("N") + 1
    assert (lib.vx_stdlist_get_500_letter_idx(h), lib.vx_stdlist_get_200_roman_idx(h)) == (1, 1)
    assert (lib.vx_stdlist_get_50_letter_idx(h), lib.vx_stdlist_get_25_letter_idx(h)) == (2, 3)
    assert chr(lib.vx_stdlist_get_10_number_str(h)) == "4"
    assert lib.vx_stdlist_set_mln_letter_idx(h, 16) and s.mln_letter == "P"
    assert not lib.vx_stdlist_set_mln_letter_idx(h, 23) and s.mln_letter == "?"
    assert lib.vx_stdlist_set_500_letter_idx(h, 4) and s.letter_500 == "Г"
    assert lib.vx_stdlist_set_200_roman_idx(h, 36) and s.roman_200 == "XXXVI"
    assert lib.vx_stdlist_set_50_letter_idx(h, 3) and s.letter_50 == "В"
    lib.vx_stdlist_set_25_letter_idx(h, 9)  # stored unchecked, read back as 0
    assert lib.vx_stdlist_get_25_letter_idx(h) == 0 and s.letter_25 == "?"
    assert not s.valid


def test_text_functions_of_the_thin_layer():
    s = Sheet.parse("N-37-12")
    h = s._handle
    assert vxk._support.fetch(lib.vx_stdlist_get_mln_number_str, h) == ["37"]
    assert vxk._support.fetch(lib.vx_stdlist_get_100_number_str, h) == ["12"]
    lib.vx_stdlist_set_100_number_str(h, "145")  # out of range: the old number stays
    assert s.number_100 == 12
    assert not lib.vx_stdlist_set_mln_number_str(h, "61")  # out of range: the number is reset
    assert s.mln_number == 0
    assert vxk._support.fetch(lib.vx_stdlist_get_mln_number_str, h) == ["?"]


def test_the_string_sink_of_the_thin_layer():
    sheet = Sheet()
    with vxk._support.sink() as (handle, rows):
        lib.vx_string_adp_feed(handle, "один")
        lib.vx_string_adp_feed(handle, None)
        lib.vx_stdlist_to_string(sheet._handle, handle)
    assert rows == ["один", "", "A-1"]

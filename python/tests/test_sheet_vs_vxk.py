"""Designations read by the package against the vxk program, which reads them in C++ through the same
library: every field it prints, the neighbours, the refusals and the lists of legal values."""

from __future__ import annotations

import itertools
from typing import Dict, List

import pytest

import vxk
from conftest import run

# Sheets at every scale, at the edges of every level and inside, with every type and both hemispheres.
FIRST_SHEETS = [
    "A-1", "N-37", "V-60", "T-59", "P-1",
    "N-37-А", "N-60-Б", "A-1-Г", "U-37-В",
    "N-37-I", "N-37-VI", "N-37-XXXVI", "N-60-VI", "P-37-XXXI", "T-60-VI", "S-37-XII",
    "N-37-1", "N-37-11", "N-37-12", "N-37-144", "V-60-133",
    "N-37-11-А", "N-37-11-Б", "N-37-12-Б", "N-37-12-Г", "N-37-144-В",
    "N-37-5-А-а", "N-37-5-А-б", "N-37-5-Б-б", "N-37-12-Б-б", "N-37-12-Г-г", "N-37-12-Б-а",
    "N-37-12-Б-в-4", "N-37-1-А-а-1", "A-60-144-Г-г-4",
]
CASES = [
    (d, t, h)
    for d, t, h in itertools.product(FIRST_SHEETS, (1, 2, 3, 4), ("N", "S"))
    if h == "N" or t == 1 or d in ("N-37", "S-37-XII", "N-60-Б")
]

BAD = [
    "X-1", "Z-1", "N-61", "N-0", "N", "", "N-37-XL", "N-37-145", "N-37-0", "N-37-12-Д",
    "N-37-12-Б-в-5", "N-37-12-Б-в-4-1", "N-37-А-1", "N-37-VI-1", "N-037x",
]
# vxk reads designations forgivingly (case, blanks, Latin and Cyrillic look-alikes) and prints the one it
# read; the package takes the designation exactly as the library writes it.
FORGIVEN = [("n-37", "N-37"), ("N-37-A", "N-37-А"), (" N - 37 - VI ", "N-37-VI"), ("N-37-12-Б-Г", "N-37-12-Б-г")]


def fields(output: str) -> Dict[str, str]:
    return {k.strip(): v.strip() for k, v in (line.split(":", 1) for line in output.splitlines() if ":" in line)}


def options(type_: int, hemisphere: str) -> List[str]:
    return ["--type", str(type_)] + (["--south"] if hemisphere == "S" else [])


@pytest.mark.parametrize("designation,type_,hemisphere", CASES)
def test_designation_fields_agree_with_vxk_sheet(vxk_program, designation, type_, hemisphere):
    result = run([vxk_program, "sheet", *options(type_, hemisphere), designation])
    if result.returncode != 0:
        assert result.returncode == 1, result.stderr
        with pytest.raises(vxk.DesignationError):
            vxk.Sheet.parse(designation, type=type_, hemisphere=hemisphere)
        return
    printed = fields(result.stdout)
    sheet = vxk.Sheet.parse(designation, type=type_, hemisphere=hemisphere)
    assert sheet.designation == printed["designation"]
    assert sheet.scale_text == printed["scale"]
    assert f"{int(sheet.type)} ({sheet.type_text})" == printed["type"]
    assert sheet.hemisphere == printed["hemisphere"]
    assert ("yes" if sheet.valid else "no") == printed["valid"]
    assert format(sheet.mid_meridian, "g") == printed["mid meridian"]


def test_the_cases_cover_every_scale_and_type(vxk_program):
    seen = set()
    for designation, type_, hemisphere in CASES:
        try:
            sheet = vxk.Sheet.parse(designation, type=type_, hemisphere=hemisphere)
        except vxk.DesignationError:
            continue
        seen.add((sheet.scale, sheet.type))
    scales = {vxk.Scale.MLN, vxk.Scale.K500, vxk.Scale.K200, vxk.Scale.K100, vxk.Scale.K50, vxk.Scale.K25, vxk.Scale.K10}
    assert {s for s, _ in seen} == scales
    assert (vxk.Scale.K200, vxk.SheetType.TRIPLE) in seen and (vxk.Scale.K50, vxk.SheetType.QUADRUPLE) in seen


@pytest.mark.parametrize("designation", BAD)
def test_both_refuse_the_same_texts(vxk_program, designation):
    result = run([vxk_program, "sheet", designation])
    assert result.returncode == 1, result.stdout
    with pytest.raises(vxk.DesignationError):
        vxk.Sheet.parse(designation)


@pytest.mark.parametrize("text,designation", FORGIVEN)
def test_vxk_forgives_what_the_package_takes_exactly(vxk_program, text, designation):
    result = run([vxk_program, "sheet", text])
    assert result.returncode == 0, result.stderr
    assert fields(result.stdout)["designation"] == designation
    assert vxk.Sheet.parse(designation).designation == designation
    with pytest.raises(vxk.DesignationError):
        vxk.Sheet.parse(text)


def at_200(designation: str) -> bool:
    levels = designation.split("-")
    return len(levels) == 3 and set(levels[2]) <= set("IVX")


@pytest.mark.parametrize("designation,type_,hemisphere", [c for c in CASES if at_200(c[0])])
def test_neighbours_agree_with_vxk_sheet(vxk_program, designation, type_, hemisphere):
    result = run([vxk_program, "sheet", "--neighbours", *options(type_, hemisphere), designation])
    if result.returncode != 0:
        with pytest.raises(vxk.DesignationError):
            vxk.Sheet.parse(designation, type=type_, hemisphere=hemisphere).neighbours
        return
    printed = fields(result.stdout)
    sheet = vxk.Sheet.parse(designation, type=type_, hemisphere=hemisphere)
    assert printed["sheet"] == sheet.designation
    assert tuple(sheet.neighbours) == (printed["left"], printed["right"], printed["upper"], printed["lower"])


def test_neighbours_elsewhere_are_refused_by_both(vxk_program):
    for designation in ("N-37", "N-37-А", "N-37-12", "N-37-12-Б"):
        assert run([vxk_program, "sheet", "--neighbours", designation]).returncode == 1
        with pytest.raises(vxk.DesignationError, match="1:200,000 sheets only"):
            vxk.Sheet.parse(designation).neighbours


def test_lists_agree_with_vxk_sheet(vxk_program):
    result = run([vxk_program, "sheet", "--lists"])
    assert result.returncode == 0
    rows = [line[15:] for line in result.stdout.splitlines()]
    ours = [vxk.lists.hemispheres(), vxk.lists.scales(), vxk.lists.types(), vxk.lists.mln_letters(),
            vxk.lists.mln_numbers(), vxk.lists.letters_500(), vxk.lists.romans_200(), vxk.lists.numbers_100(),
            vxk.lists.letters_50(), vxk.lists.letters_25(), vxk.lists.numbers_10()]
    assert rows == [", ".join(v if v else '""' for v in values) for values in ours]

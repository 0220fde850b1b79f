"""The thin layer declares every function of the public header, with the same signature, in the same
section; and nothing else. A function exported in the header without a declaration in
python/src/vxk/_native.py fails here, and the message says what to add."""

from __future__ import annotations

import ctypes
import re
from typing import Any, Dict, List, Tuple

from conftest import SOURCE_DIR

from vxk import _native as N

HEADER = SOURCE_DIR / "include" / "vxk_proj4_shp.h"

BASIC = {
    "void": None,
    "bool": ctypes.c_bool,
    "char": ctypes.c_char,
    "int": ctypes.c_int,
    "unsigned": ctypes.c_uint,
    "double": ctypes.c_double,
    "int32_t": ctypes.c_int32,
    "uint32_t": ctypes.c_uint32,
    "uint64_t": ctypes.c_uint64,
    "wchar_t": ctypes.c_wchar,
}
POINTERS = {"char": ctypes.c_char_p, "wchar_t": ctypes.c_wchar_p, "void": ctypes.c_void_p}


def clean(text: str) -> str:
    """The header without comments and preprocessor lines; the section marks stay as statements."""
    text = re.sub(r"/\*\s*@section\s+([\w-]+)\s*\*/", r"@section \1;", text)
    text = re.sub(r"/\*.*?\*/", " ", text, flags=re.S)
    text = re.sub(r"//[^\n]*", "", text)
    return re.sub(r"^\s*#[^\n]*", "", text, flags=re.M)


class Header:
    """The declarations of the public header that the thin layer must mirror."""

    def __init__(self, text: str) -> None:
        text = clean(text)
        self.aliases = dict((name, base) for base, name in re.findall(r"typedef\s+(\w+)\s+(\w+)\s*;", text))
        self.callbacks = {
            name: (ret.strip(), split_params(params))
            for ret, name, params in re.findall(r"typedef\s+([\w\s\*]+?)\s*\(\s*\*\s*(\w+)\s*\)\s*\(([^)]*)\)\s*;", text)
        }
        self.structs = {
            name: split_params(body.replace(";", ","))
            for name, body in re.findall(r"typedef\s+struct\s+(\w+)\s*\{([^}]*)\}", text)
        }
        self.functions: Dict[str, Tuple[str, str, List[str]]] = {}
        section = ""
        for statement in text.split(";"):
            marker = re.search(r"@section\s+([\w-]+)", statement)
            if marker:
                section = marker.group(1)
                continue
            m = re.search(r"\bVX_API\b\s+(.*?)\b(\w+)\s*\((.*)\)\s*$", statement, flags=re.S)
            if m:
                self.functions[m.group(2)] = (section, m.group(1).strip(), split_params(m.group(3)))


def split_params(text: str) -> List[str]:
    params = [" ".join(p.split()) for p in text.split(",") if p.strip()]
    return [] if params == ["void"] else params


def type_of(param: str) -> Tuple[str, int]:
    """The base type name and the number of pointer levels of a parameter (its name dropped)."""
    p = param.replace("const ", "").replace("*", " * ")
    array = re.search(r"\[\s*\d*\s*\]\s*$", p)
    if array:
        p = p[: array.start()]
    words = p.split()
    stars = words.count("*") + (1 if array else 0)
    names = [w for w in words if w != "*"]
    if len(names) > 1:
        names = names[:-1]  # the parameter's name
    return names[-1] if names else "void", stars


def mismatch(header: Header, c_type: str, declared: Any) -> str:
    """Empty when `declared` is the ctypes form of the C type, else what is wrong."""
    base, stars = type_of(c_type)
    base = header.aliases.get(base, base)
    if stars == 0:
        if base in BASIC:
            return "" if declared is BASIC[base] else f"{c_type} wants {BASIC[base]}"
        if base in header.callbacks:
            return callback_mismatch(header, base, declared)
        if base in header.structs:
            return struct_mismatch(header, base, declared)
        return f"unknown C type {c_type}"
    if stars == 1 and base in POINTERS:
        return "" if declared is POINTERS[base] else f"{c_type} wants {POINTERS[base].__name__}"
    if stars == 1 and isinstance(declared, type) and issubclass(declared, ctypes._Pointer):
        target = declared._type_
        wanted = BASIC.get(base)
        ok = target is wanted if wanted is not None else getattr(target, "__name__", "") == base
        return "" if ok else f"{c_type} wants a pointer to {base}"
    return f"{c_type} wants a pointer to {base}"


def callback_mismatch(header: Header, name: str, declared: Any) -> str:
    if declared is not getattr(N, name, None):
        return f"{name} wants the thin layer's {name}"
    ret, params = header.callbacks[name]
    return signature_mismatch(header, ret, params, declared._restype_, list(declared._argtypes_))


def struct_mismatch(header: Header, name: str, declared: Any) -> str:
    if getattr(declared, "__name__", "") != name or not issubclass(declared, ctypes.Structure):
        return f"{name} wants the thin layer's structure {name}"
    fields = header.structs[name]
    if [f.split()[-1] for f in fields] != [n for n, _ in declared._fields_]:
        return f"the fields of {name} differ from the header's"
    for field, (_, field_type) in zip(fields, declared._fields_):
        wrong = mismatch(header, field, field_type)
        if wrong:
            return f"{name}: {wrong}"
    return ""


def signature_mismatch(header: Header, ret: str, params: List[str], restype: Any, argtypes: List[Any]) -> str:
    wrong = mismatch(header, ret + " result", restype)
    if wrong:
        return f"result: {wrong}"
    if len(params) != len(argtypes):
        return f"{len(params)} arguments in the header, {len(argtypes)} declared"
    for i, (param, declared) in enumerate(zip(params, argtypes)):
        wrong = mismatch(header, param, declared)
        if wrong:
            return f"argument {i + 1} ({param}): {wrong}"
    return ""


def test_every_function_of_the_header_is_declared_once_in_its_section():
    header = Header(HEADER.read_text(encoding="utf-8"))
    assert len(header.functions) > 100, "the header was not read"
    problems = []
    for name, (section, ret, params) in sorted(header.functions.items()):
        declared_in = [s for s, decls in N.DECLARATIONS.items() if name in decls]
        prototype = f"{ret} {name}({', '.join(params)})"
        if not declared_in:
            problems.append(f"{name}: exported by the header (section {section}) but not declared in "
                            f"vxk/_native.py; add to DECLARATIONS['{section}']: {prototype}")
            continue
        if declared_in != [section]:
            problems.append(f"{name}: in section {section} of the header, declared in {declared_in}")
        restype, argtypes = N.DECLARATIONS[declared_in[0]][name]
        wrong = signature_mismatch(header, ret, params, restype, argtypes)
        if wrong:
            problems.append(f"{name}: {wrong}; the header says {prototype}")
    for name in sorted(set(N.signatures()) - set(header.functions)):
        problems.append(f"{name}: declared in vxk/_native.py but not in the header")
    assert not problems, "\n".join(problems)


def test_every_section_of_the_header_has_its_place_in_the_thin_layer():
    header = Header(HEADER.read_text(encoding="utf-8"))
    sections = set(re.findall(r"@section\s+([\w-]+)", HEADER.read_text(encoding="utf-8")))
    assert sections == set(N.DECLARATIONS)
    assert {s for s, _, _ in header.functions.values()} <= sections


def test_the_checker_finds_a_missing_and_a_wrong_declaration(monkeypatch):
    header = Header(
        "/* @section stdlist */ VX_API bool vx_stdlist_valid(const Tvx_stdlist_string* sheet);"
        "VX_API int vx_new_function(const wchar_t* text, uint64_t n);"
    )
    assert header.functions["vx_new_function"] == ("stdlist", "int", ["const wchar_t* text", "uint64_t n"])
    assert not signature_mismatch(header, "bool", ["const Tvx_stdlist_string* sheet"], ctypes.c_bool, [N.SHEET])
    assert signature_mismatch(header, "bool", ["const Tvx_stdlist_string* sheet"], ctypes.c_int, [N.SHEET])
    assert signature_mismatch(header, "bool", ["const Tvx_stdlist_string* sheet"], ctypes.c_bool, [N.LIST])
    assert signature_mismatch(header, "int", ["const wchar_t* text", "uint64_t n"], ctypes.c_int,
                              [ctypes.c_char_p, ctypes.c_uint64])
    assert signature_mismatch(header, "int", ["const wchar_t* text", "uint64_t n"], ctypes.c_int,
                              [ctypes.c_wchar_p, ctypes.c_uint32])
    assert signature_mismatch(header, "int", ["const wchar_t* text", "uint64_t n"], ctypes.c_int, [ctypes.c_wchar_p])


def test_every_declared_function_is_in_the_library():
    for name in N.signatures():
        assert getattr(N.lib, name) is not None, name

#!/usr/bin/env python3
"""Checks that the built library exports exactly the functions that the public header declares and the
linker version script lists: no name may appear or vanish by accident."""
import argparse
import re
import subprocess
import sys


def header_names(path):
    text = open(path, encoding="utf-8").read()
    text = re.sub(r"/\*.*?\*/", "", text, flags=re.S)
    text = re.sub(r"//[^\n]*", "", text)
    text = re.sub(r"^\s*#[^\n]*", "", text, flags=re.M)
    return set(re.findall(r"\bVX_API\b[^;{]*?\b([A-Za-z_]\w*)\s*\(", text))


def map_names(path):
    text = open(path, encoding="utf-8").read()
    text = re.sub(r"/\*.*?\*/", "", text, flags=re.S)
    body = text.split("global:", 1)[1].split("local:", 1)[0]
    return set(n.strip() for n in body.split(";") if n.strip())


def library_names(path):
    out = subprocess.run(["nm", "-D", "--defined-only", path], check=True, capture_output=True,
                         text=True).stdout
    names = set()
    for line in out.splitlines():
        parts = line.split()
        if len(parts) >= 3 and parts[1] in "TtWiDdBbRrVv":
            name = parts[2].split("@")[0]
            if name != "VXK_PROJ4_SHP_1":
                names.add(name)
    return names


def report(label, names):
    for n in sorted(names):
        print(f"  {label}: {n}")


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--lib", required=True)
    ap.add_argument("--header", required=True)
    ap.add_argument("--map", required=True)
    a = ap.parse_args()
    h, m, lib = header_names(a.header), map_names(a.map), library_names(a.lib)
    ok = True
    if h != m:
        ok = False
        print("header and version script differ:")
        report("only in header", h - m)
        report("only in version script", m - h)
    if h != lib:
        ok = False
        print("header and library exports differ:")
        report("declared, not exported", h - lib)
        report("exported, not declared", lib - h)
    print(f"{len(h)} names declared, {len(lib)} exported")
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main())

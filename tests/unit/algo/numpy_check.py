#!/usr/bin/env python3
"""The solvers against numpy.

usage: numpy_check.py ALGO_PROBE SCRATCH_DIR

A few hundred random well-conditioned systems (Gaussian elimination, inversion, least squares and the
tridiagonal sweep) must agree with numpy.linalg to 1e-9 relative; singular systems, dependent columns
and a tridiagonal matrix with a zero first diagonal element must give false.
"""
import os
import subprocess
import sys

import numpy as np

RNG = np.random.default_rng(20240611)
REL = 1e-9


def well_conditioned(n):
    while True:
        a = RNG.uniform(-10, 10, (n, n))
        if np.linalg.cond(a) < 1e4:
            return a


def rows(a):
    return "\n".join(" ".join(repr(float(v)) for v in row) for row in a)


def numbers(v):
    return " ".join(repr(float(e)) for e in v)


def cases():
    """(text of the system, what numpy says: an array, or None for false)"""
    for _ in range(120):
        n = int(RNG.integers(1, 25))
        a, b = well_conditioned(n), RNG.uniform(-100, 100, n)
        yield f"gauss {n}\n{rows(a)}\n{numbers(b)}", np.linalg.solve(a, b)
    for _ in range(60):
        n = int(RNG.integers(1, 15))
        a = well_conditioned(n)
        yield f"inverse {n}\n{rows(a)}", np.linalg.inv(a).ravel()
    for _ in range(80):
        cols = int(RNG.integers(1, 8))
        nrows = cols + int(RNG.integers(0, 30))
        a = RNG.uniform(-10, 10, (nrows, cols))
        if np.linalg.cond(a) > 1e3:
            continue
        b = RNG.uniform(-50, 50, nrows)
        yield f"lsq {nrows} {cols}\n{rows(a)}\n{numbers(b)}", np.linalg.lstsq(a, b, rcond=None)[0]
    for _ in range(80):
        n = int(RNG.integers(2, 60))
        btm, top = RNG.uniform(-1, 1, n), RNG.uniform(-1, 1, n)
        main = RNG.uniform(2.5, 5, n) * RNG.choice([-1, 1], n)  # diagonally dominant
        d = RNG.uniform(-10, 10, n)
        dense = np.diag(main) + np.diag(top[:-1], 1) + np.diag(btm[1:], -1)
        text = f"tridiag {n}\n{numbers(btm)}\n{numbers(main)}\n{numbers(top)}\n{numbers(d)}"
        yield text, np.linalg.solve(dense, d)
    # Singular: a row repeated, a row of zeros, dependent columns of integers.
    for n in (2, 3, 5, 8):
        a = RNG.integers(-9, 10, (n, n)).astype(float)
        a[-1] = a[0]
        yield f"gauss {n}\n{rows(a)}\n{numbers(np.ones(n))}", None
        yield f"inverse {n}\n{rows(a)}", None
        z = RNG.integers(-9, 10, (n, n)).astype(float)
        z[n // 2] = 0
        yield f"gauss {n}\n{rows(z)}\n{numbers(np.ones(n))}", None
        c = RNG.integers(-9, 10, (n + 4, n)).astype(float)
        c[:, -1] = 2 * c[:, 0]
        yield f"lsq {n + 4} {n}\n{rows(c)}\n{numbers(np.ones(n + 4))}", None
    # The sweep does not pivot: a zero first diagonal element fails a system that has an answer.
    yield "tridiag 3\n0 1 1\n0 1 1\n1 1 0\n1 2 3", None


def main():
    probe, scratch = sys.argv[1], sys.argv[2]
    os.makedirs(scratch, exist_ok=True)
    systems = list(cases())
    src, dst = os.path.join(scratch, "systems.txt"), os.path.join(scratch, "answers.txt")
    with open(src, "w") as f:
        f.write("\n".join(text for text, _ in systems) + "\n")
    subprocess.run([probe, "solve", src, dst], check=True)
    with open(dst) as f:
        answers = f.read().splitlines()
    if len(answers) != len(systems):
        print(f"FAIL: {len(answers)} answers for {len(systems)} systems")
        return 1
    failures = 0
    for k, ((text, want), got) in enumerate(zip(systems, answers)):
        head = text.split("\n", 1)[0]
        if want is None:
            if got != "false":
                failures += 1
                print(f"FAIL: system {k} ({head}) is singular, the solver gave {got[:60]}")
            continue
        parts = got.split()
        if parts[0] != "ok":
            failures += 1
            print(f"FAIL: system {k} ({head}) gave false")
            continue
        x = np.array([float(v) for v in parts[1:]])
        if x.shape != want.shape:
            failures += 1
            print(f"FAIL: system {k} ({head}): {x.size} numbers, numpy {want.size}")
            continue
        err = np.max(np.abs(x - want)) / max(np.max(np.abs(want)), 1e-300)
        if not err <= REL:
            failures += 1
            print(f"FAIL: system {k} ({head}): relative difference {err:.3g}")
    kinds = {}
    for text, _ in systems:
        kind = text.split()[0]
        kinds[kind] = kinds.get(kind, 0) + 1
    print(f"{len(systems)} systems {kinds}, {failures} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

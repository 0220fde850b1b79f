#!/usr/bin/env python3
"""Runs `vxk sheet` as a user would and checks what it prints and how it exits."""
import os
import subprocess
import sys

VXK = os.path.join(os.environ.get("VXK_BIN_DIR", "."), "vxk")
failures = []


def run(*args):
    p = subprocess.run([VXK, "sheet", *args], capture_output=True)
    return p.returncode, p.stdout.decode("utf-8"), p.stderr.decode("utf-8")


def field(out, name):
    for line in out.splitlines():
        if line.startswith(name + ":"):
            return line.split(":", 1)[1].strip()
    return None


def expect(cond, what):
    if not cond:
        failures.append(what)


def check_sheet(args, **fields):
    rc, out, err = run(*args)
    expect(rc == 0, f"{args}: exit {rc}, stderr {err!r}")
    for name, value in fields.items():
        got = field(out, name.replace("_", " "))
        expect(got == value, f"{args}: {name} is {got!r}, expected {value!r}")


def check_error(args, status, words):
    rc, out, err = run(*args)
    expect(rc == status, f"{args}: expected exit {status}, got {rc} ({err!r})")
    expect(out == "", f"{args}: printed {out!r} on failure")
    for w in words:
        expect(w in err, f"{args}: message {err!r} lacks {w!r}")
    if status == 2:
        expect(err.count("\n") == 1 and err.endswith("(see 'vxk sheet --help')\n"),
               f"{args}: a usage error is one line with a pointer to the help: {err!r}")


def main():
    import vxk_sheet_cases as c  # next to this script
    for args, fields in c.SHEETS:
        check_sheet(args, **fields)
    for args, words in c.FAILURES:
        check_error(args, 1, words)
    for args, words in c.USAGE:
        check_error(args, 2, words)
    for args, checks in c.OUTPUTS:
        rc, out, err = run(*args)
        expect(rc == 0, f"{args}: exit {rc}, stderr {err!r}")
        for text in checks:
            expect(text in out, f"{args}: output lacks {text!r}:\n{out}")
    p = subprocess.run([VXK, "--help"], capture_output=True)
    top = p.stdout.decode("utf-8")
    expect(p.returncode == 0 and "sheet" in top and "vxk sheet N-37-VI" in top, f"vxk --help: {top!r}")
    for f in failures:
        print("FAILED:", f)
    print(f"{len(failures)} failure(s)")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
    sys.exit(main())

#!/usr/bin/env python3
"""Runs the examples of user guide pages as they are written there, and compares what they print.

    run_examples.py PAGE.md...

An example is a line "$ COMMAND" in a ```sh or ```console block (a line ending in "\\" goes on to the
next), followed by what it prints, standard output and standard error together, up to the next "$ "
line or the end of the block. A line "..." stands for any number of lines; blanks at the ends of lines
and of the output do not count. Blocks without a "$ " line (syntax summaries) are not run.

The commands of a page run one after another with bash, in a scratch folder of their own where `data`
is the source tree's data folder, with the built `vxk` first on the PATH. Needs VXK_BIN_DIR,
VXK_SOURCE_DIR and VXK_TEST_TMP (ctest sets them).
"""
import os
import re
import shutil
import subprocess
import sys

FENCE = re.compile(r"^```(\w*)\s*$")


def examples(text):
    """(line number, command, expected lines) of every example of a page."""
    out = []
    in_block, runnable = False, False
    current = None
    lines = text.splitlines()
    i = 0
    while i < len(lines):
        line = lines[i]
        fence = FENCE.match(line)
        if fence:
            if current:
                out.append(current)
                current = None
            in_block, runnable = (not in_block), fence.group(1) in ("sh", "console")
        elif in_block and runnable and line.startswith("$ "):
            if current:
                out.append(current)
            command, start = line[2:], i + 1
            while command.endswith("\\") and i + 1 < len(lines):
                i += 1
                command += "\n" + lines[i]
            current = (start, command, [])
        elif in_block and current:
            current[2].append(line)
        i += 1
    return out


def matches(got, want):
    """Whether the printed lines match the expected ones, "..." standing for any number of lines."""
    got = [l.rstrip() for l in got]
    want = [l.rstrip() for l in want]
    while got and not got[-1]:
        got.pop()
    while want and not want[-1]:
        want.pop()

    def at(g, w):
        if w == len(want):
            return g == len(got)
        if want[w] == "...":
            return any(at(k, w + 1) for k in range(g, len(got) + 1))
        return g < len(got) and got[g] == want[w] and at(g + 1, w + 1)

    return at(0, 0)


def run_page(page, bin_dir, source, scratch_root):
    name = os.path.splitext(os.path.basename(page))[0]
    scratch = os.path.join(scratch_root, "guide-" + name)
    shutil.rmtree(scratch, ignore_errors=True)
    os.makedirs(scratch)
    os.symlink(os.path.join(source, "data"), os.path.join(scratch, "data"))
    env = dict(os.environ, PATH=bin_dir + os.pathsep + os.environ.get("PATH", ""), LC_ALL="C.UTF-8")
    with open(page, encoding="utf-8") as f:
        found = examples(f.read())
    failures = 0
    for line, command, want in found:
        done = subprocess.run(["bash", "-c", command], cwd=scratch, env=env, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT)
        got = done.stdout.decode("utf-8", "replace").splitlines()
        if not matches(got, want):
            failures += 1
            print(f"{page}:{line}: $ {command}\n--- expected\n" + "\n".join(want) + "\n--- got (exit "
                  f"{done.returncode})\n" + "\n".join(got) + "\n")
    print(f"{page}: {len(found)} examples, {failures} failed")
    return len(found), failures


def main():
    bin_dir, source = os.environ["VXK_BIN_DIR"], os.environ["VXK_SOURCE_DIR"]
    scratch_root = os.environ.get("VXK_TEST_TMP", "/tmp")
    total = failed = 0
    for page in sys.argv[1:]:
        n, f = run_page(page, bin_dir, source, scratch_root)
        total, failed = total + n, failed + f
        if n == 0:
            print(f"{page}: no examples found")
            failed += 1
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

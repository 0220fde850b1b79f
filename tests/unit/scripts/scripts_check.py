#!/usr/bin/env python3
"""Runs the project's scripts with stand-ins for cmake, ctest, apt and the fuzz targets, which record
how they were called, and checks what the scripts asked of them.

  scripts_check.py test-sh SOURCE_DIR SCRATCH      scripts/test.sh
  scripts_check.py fuzz-run-sh SOURCE_DIR SCRATCH  fuzz/run.sh
"""
import glob
import os
import shutil
import stat
import subprocess
import sys

failures = []


def check(ok, what):
    print(("ok   " if ok else "FAIL ") + what)
    if not ok:
        failures.append(what)


def stand_in(path, body):
    """An executable shell script that logs its name and arguments, one call per line, then runs body."""
    with open(path, "w") as f:
        f.write("#!/usr/bin/env bash\n"
                'printf "%s" "$(basename "$0")" >> "$CALLS"\n'
                'for a in "$@"; do printf " %s" "$a" >> "$CALLS"; done\n'
                'echo >> "$CALLS"\n' + body + "\n")
    os.chmod(path, os.stat(path).st_mode | stat.S_IXUSR | stat.S_IXGRP | stat.S_IXOTH)


def calls(log):
    with open(log) as f:
        return [line.split() for line in f.read().splitlines()]


def run_test_sh(source, scratch, ctest_status):
    """A copy of the scripts in a scratch tree, with cmake and ctest replaced; gives the calls and status."""
    shutil.rmtree(scratch, ignore_errors=True)
    os.makedirs(os.path.join(scratch, "tree", "scripts"))
    for name in ("test.sh", "build.sh"):
        shutil.copy(os.path.join(source, "scripts", name), os.path.join(scratch, "tree", "scripts", name))
    stand_in(os.path.join(scratch, "tree", "scripts", "install-deps.sh"), "")
    bin_dir = os.path.join(scratch, "bin")
    os.makedirs(bin_dir)
    # cmake makes the build folder it is given, so that the script can go into it.
    stand_in(os.path.join(bin_dir, "cmake"), 'prev=; for a in "$@"; do [ "$prev" = -B ] && mkdir -p "$a"; prev=$a; done')
    stand_in(os.path.join(bin_dir, "ctest"), f"exit {ctest_status}")
    log = os.path.join(scratch, "calls")
    open(log, "w").close()
    env = dict(os.environ, PATH=bin_dir + os.pathsep + os.environ["PATH"], CALLS=log)
    run = subprocess.run(["bash", os.path.join(scratch, "tree", "scripts", "test.sh")], env=env,
                         capture_output=True, text=True)
    return calls(log), run.returncode


def check_test_sh(source, scratch):
    made, status = run_test_sh(source, scratch, 0)
    check(status == 0, "test.sh succeeds when the suite does")
    configures = [c for c in made if c[0] == "cmake" and "-S" in c]
    check(len(configures) == 2, f"two builds are configured ({len(configures)})")
    for c in configures:
        folder = c[c.index("-B") + 1]
        check("-DVXK_BUILD_TESTS=ON" in c, f"{folder} is configured with the tests switched on")
    runs = [c for c in made if c[0] == "ctest"]
    check(len(runs) == 2, f"the suite runs in both builds ({len(runs)})")
    for c in runs:
        check("--no-tests=error" in c, "a ctest run that finds no test fails: " + " ".join(c))
    sanitized = [c for c in configures if "-DVXK_SANITIZE=ON" in c]
    check(len(sanitized) == 1, "one of the builds is the sanitizer build")
    _, status = run_test_sh(source, scratch, 8)
    check(status != 0, "test.sh fails when ctest fails (or finds no test)")


def check_fuzz_run_sh(source, scratch):
    shutil.rmtree(scratch, ignore_errors=True)
    bin_dir = os.path.join(scratch, "build", "bin")
    os.makedirs(bin_dir)
    targets = sorted(os.path.basename(p)[len("fuzz_"):-len(".cpp")]
                     for p in glob.glob(os.path.join(source, "fuzz", "fuzz_*.cpp")))
    check(len(targets) >= 7, f"fuzz targets found: {', '.join(targets)}")
    for name in targets:
        seeds = os.listdir(os.path.join(source, "fuzz", "corpus", name))
        check(len(seeds) >= 3, f"fuzz_{name} has a seed corpus ({len(seeds)} files)")
        stand_in(os.path.join(bin_dir, "fuzz_" + name), "exit 0")
    broken = {"shp": "broken_", "dbf": "broken_", "reproj_shape": "truncated_record", "tld": "truncated"}
    for name, prefix in broken.items():
        seeds = os.listdir(os.path.join(source, "fuzz", "corpus", name))
        check(any(s.startswith(prefix) for s in seeds) and any(not s.startswith(prefix) for s in seeds),
              f"fuzz_{name}'s seeds hold valid and broken files")
    log = os.path.join(scratch, "calls")
    open(log, "w").close()
    work = os.path.join(scratch, "work")
    env = dict(os.environ, CALLS=log, VXK_FUZZ_WORK=work)
    run = subprocess.run(["bash", os.path.join(source, "fuzz", "run.sh"), os.path.join(scratch, "build"), "7"],
                         env=env, capture_output=True, text=True)
    check(run.returncode == 0, f"run.sh succeeds when every target does ({run.stderr.strip()})")
    made = calls(log)
    check(sorted(c[0] for c in made) == sorted("fuzz_" + t for t in targets), "every target runs once")
    for c in made:
        name = c[0][len("fuzz_"):]
        check("-max_total_time=7" in c, f"{c[0]} runs for the time given")
        check(c[-1] == os.path.join(source, "fuzz", "corpus", name), f"{c[0]} starts from its seeds, read only")
        check(c[-2] == os.path.join(work, name, "corpus"), f"{c[0]} writes new inputs to the work folder")
    stand_in(os.path.join(bin_dir, "fuzz_shp"), "exit 1")
    run = subprocess.run(["bash", os.path.join(source, "fuzz", "run.sh"), os.path.join(scratch, "build"), "1"],
                         env=env, capture_output=True, text=True)
    check(run.returncode == 1 and "failed: shp" in run.stderr, "a target that finds something fails the run")
    os.remove(os.path.join(bin_dir, "fuzz_tld"))
    run = subprocess.run(["bash", os.path.join(source, "fuzz", "run.sh"), os.path.join(scratch, "build"), "1", "tld"],
                         env=env, capture_output=True, text=True)
    check(run.returncode == 1 and "missing" in run.stderr, "a target that was not built fails the run")


def main():
    what, source, scratch = sys.argv[1:4]
    {"test-sh": check_test_sh, "fuzz-run-sh": check_fuzz_run_sh}[what](source, scratch)
    sys.exit(1 if failures else 0)


main()

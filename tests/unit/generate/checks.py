"""What the checks of the vxk command tests share: failures are gathered, not raised, so that one run
tells all of them; verdict() prints them and gives the exit status."""
failures = []


def expect(cond, what):
    if not cond:
        failures.append(what)


def verdict():
    for f in failures:
        print("FAIL:", f)
    print(f"{len(failures)} failures")
    return 1 if failures else 0

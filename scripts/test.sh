#!/usr/bin/env bash
# Installs the dependencies, then builds and runs the whole test suite twice: a normal build, and a
# build with AddressSanitizer and UndefinedBehaviorSanitizer. Each build is configured with the tests
# switched on, whatever an earlier configuration of the same folder chose (scripts/run.sh builds
# without them), and a run in which no test was found fails. In each, the suite also makes a virtual
# environment (build*/python-venv), installs the library and the Python package into it, and runs the
# package's pytest suite there (python/tests.cmake).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

bash scripts/build.sh build -DVXK_BUILD_TESTS=ON -DVXK_SANITIZE=OFF
(cd build && ctest -j2 --output-on-failure --timeout 600 --no-tests=error)

bash scripts/build.sh build-asan -DVXK_BUILD_TESTS=ON -DVXK_SANITIZE=ON
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
(cd build-asan && ctest -j2 --output-on-failure --timeout 900 --no-tests=error)

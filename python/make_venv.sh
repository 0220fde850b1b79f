#!/usr/bin/env bash
# Makes the virtual environment of the Python tests: make_venv.sh BUILD_DIR VENV_DIR PACKAGE_DIR
# The library of BUILD_DIR goes into the environment's prefix by cmake --install, and the package into
# it by pip, from a copy (pip builds in the folder it is given), without network.
set -euo pipefail
build=$1
venv=$2
package=$3
rm -rf "$venv" "$build/python-package"
/usr/bin/python3 -m venv --system-site-packages "$venv"
cmake --install "$build" --prefix "$venv" >/dev/null
cp -r "$package" "$build/python-package"
rm -rf "$build/python-package/tests"
"$venv/bin/python" -m pip install --quiet --no-build-isolation --no-index --no-deps "$build/python-package"
# The library is not loaded here: a sanitizer build needs its runtime preloaded, which the tests do.
test -e "$venv/lib/libvxk_proj4_shp.so.0"
"$venv/bin/python" -c 'import vxk; print("vxk", vxk.__version__, "in", vxk.__file__)'

"""Shared helpers of the package's tests.

The tests run against the library that the package finds (see vxk._loader). Tools of the project and
independent tools are found through the environment that the suite's runner sets:

  VXK_SOURCE_DIR  the repository (default: two folders above this one)
  VXK_BIN_DIR     the folder of the vxk program of the same build
"""

from __future__ import annotations

import os
import shutil
import subprocess
from pathlib import Path
from typing import Dict, List

import pytest

SOURCE_DIR = Path(os.environ.get("VXK_SOURCE_DIR", Path(__file__).resolve().parents[2]))


def tool_env() -> Dict[str, str]:
    """The environment for other programs: without the sanitizer runtime that a sanitizer build
    preloads into Python."""
    env = dict(os.environ)
    env.pop("LD_PRELOAD", None)
    return env


def run(args: List[str], **kw) -> subprocess.CompletedProcess:
    return subprocess.run([str(a) for a in args], env=tool_env(), capture_output=True, text=True, **kw)


@pytest.fixture(scope="session")
def vxk_program() -> Path:
    folder = os.environ.get("VXK_BIN_DIR")
    found = Path(folder) / "vxk" if folder else shutil.which("vxk")
    if not found or not Path(found).exists():
        pytest.fail("the vxk program was not found: set VXK_BIN_DIR to the bin folder of the build")
    return Path(found)


@pytest.fixture(scope="session")
def ogr2ogr() -> str:
    found = shutil.which("ogr2ogr")
    if not found:
        pytest.fail("ogr2ogr (gdal-bin) is needed: bash scripts/install-deps.sh")
    return found

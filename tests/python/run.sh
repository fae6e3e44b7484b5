#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# tests/python/run.sh PYTHON BUILD_FOLDER TARVOKOL_CLI: the tests of the Python module of a build, then its types.
set -euo pipefail
python=$1 build=$2
export TARVOKOL_CLI=$3 PYTHONPATH=$build/lib/python PYTHONDONTWRITEBYTECODE=1 MYPYPATH=$build/lib/python
cd "$(dirname "$0")"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
"$python" -m pytest -q -p no:cacheprovider .
"$python" -m mypy --strict --cache-dir "$scratch" "$build/lib/python/tarvokol/__init__.py" typed_use.py

# SPDX-License-Identifier: GPL-3.0-or-later
"""The module of the build tree, the command line beside it, and panels to calculate."""
import json
import os
import pathlib
import subprocess

import numpy
import pytest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
CLI = os.environ["TARVOKOL_CLI"]


@pytest.fixture
def example():
    return SOURCE / "examples" / "Ridge_Point_Narrow_Webs.TKL"


@pytest.fixture
def metric():
    return SOURCE / "examples" / "Metric_Deep_Panel.TKL"


@pytest.fixture
def command_line():
    """Runs the command line and gives back its JSON objects."""
    def run(*words):
        done = subprocess.run([CLI, *map(str, words), "--json", "--quiet"], capture_output=True, text=True, check=False)
        assert done.returncode in (0, 1), done.stderr
        return [json.loads(line) for line in done.stdout.splitlines()]
    return run


@pytest.fixture
def random_figures():
    """So many panels, some of them refused, always the same."""
    def make(count):
        draw = numpy.random.default_rng(20251122)
        return {"Height": draw.uniform(-0.5, 15, count), "DepthCover": draw.uniform(-5, 1500, count),
                "HoleWidth": draw.uniform(5, 14, count), "WebThickness": draw.uniform(-0.5, 30, count),
                "BarrierPillarWidth": draw.uniform(1, 100, count), "NumberHoles": draw.integers(0, 23, count).astype(float),
                "CoalStrength": draw.uniform(100, 2000, count), "UnitWeight": draw.uniform(100, 200, count),
                "AbutmentAngle": draw.uniform(1, 60, count), "SFWeb": draw.uniform(0.5, 3, count),
                "SFBarrier": draw.uniform(0.5, 3, count)}
    return make

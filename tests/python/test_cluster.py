# SPDX-License-Identifier: GPL-3.0-or-later
"""The recipe for clusters, on a scheduler and two workers that are processes of their own."""
import importlib.util
import os
import pathlib
import signal
import subprocess
import sys

import numpy
import pytest
from distributed import Client

import tarvokol

SOURCE = pathlib.Path(__file__).resolve().parents[2]
RECIPE = SOURCE / "docs" / "recipes" / "cluster_map.py"
PANEL = SOURCE / "examples" / "Ridge_Point_Narrow_Webs.TKL"
DEPTHS, WEBS = numpy.linspace(-100, 1000, 400), numpy.linspace(-1, 40, 500)


@pytest.fixture(scope="module")
def recipe():
    spec = importlib.util.spec_from_file_location("cluster_map", RECIPE)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    sys.modules["cluster_map"] = module
    return module


@pytest.fixture
def cluster(tmp_path):
    """A client of a scheduler with two workers, and the workers, each with the recipe's folder on its path."""
    address = tmp_path / "scheduler.json"
    path = os.pathsep.join([str(RECIPE.parent), os.environ["PYTHONPATH"]])
    environment = {**os.environ, "PYTHONPATH": path, "DASK_DISTRIBUTED__ADMIN__TICK__LIMIT": "1h"}

    def start(name, *words):
        with open(tmp_path / f"{name}.log", "wb") as log:
            return subprocess.Popen([sys.executable, "-m", *words, "--no-dashboard", "--scheduler-file", address], stdout=log,
                                    stderr=log, cwd=tmp_path, env=environment)

    worker = ("distributed.cli.dask_worker", "--nthreads", "1", "--no-nanny", "--local-directory", tmp_path)
    started = [start("scheduler", "distributed.cli.dask_scheduler", "--host", "127.0.0.1", "--port", "0")]
    started += [start(name, *worker) for name in ("worker_1", "worker_2")]
    try:
        with Client(scheduler_file=str(address), timeout=60) as client:
            client.wait_for_workers(2, timeout=60)
            yield client, started[1:]
    finally:
        for process in reversed(started):
            process.kill()
            process.wait()


def test_the_thinnest_web_of_each_depth_is_the_first_that_meets_the_target(recipe):
    panel = tarvokol.read(PANEL)
    panel.SFWeb = 1.6
    rows = recipe.map_here(panel, numpy.array([100.0, 150, 200, 250, 300, 9000]), numpy.arange(2, 15.25, 0.25), 100)
    # As the sweep of the command line finds them with the same steps; no web of 15 ft holds 9,000 ft.
    assert [web for web, _, _ in rows[:5]] == [2.75, 3.75, 4.75, 5.5, 6.5]
    assert numpy.isnan(rows[5][0])


def test_a_killed_worker_loses_nothing_and_counts_nothing_twice(recipe, cluster):
    client, workers = cluster
    panel = tarvokol.read(PANEL)
    told = []

    def kill_in_the_middle(done, count):
        told.append((done, count))
        if done == 3:
            workers[0].send_signal(signal.SIGKILL)

    rows = recipe.map_on_cluster(client, panel, DEPTHS, WEBS, 10 * len(WEBS), kill_in_the_middle)
    assert workers[0].wait() == -signal.SIGKILL
    assert workers[1].poll() is None
    assert told == [(done, 40) for done in range(1, 41)]
    here = recipe.map_here(panel, DEPTHS, WEBS, len(DEPTHS) * len(WEBS))
    assert [digest for _, _, digest in rows] == [digest for _, _, digest in here]
    numpy.testing.assert_array_equal([web for web, _, _ in rows], [web for web, _, _ in here])
    # Of the depths 36 are below 0, and 13 webs are at each of the others: those are refused, each once.
    depths, webs = numpy.count_nonzero(DEPTHS <= 0), numpy.count_nonzero(WEBS <= 0)
    assert sum(count for _, count, _ in rows) == depths * len(WEBS) + (len(DEPTHS) - depths) * webs


@pytest.mark.parametrize("panels", [1, 499, 500, 1001, 10**9])
def test_pieces_are_all_rows_once(recipe, panels):
    ranges = recipe.pieces(7, 500, panels)
    assert [row for first, last in ranges for row in range(first, last)] == list(range(7))
    assert all((last - first) * 500 <= max(panels, 500) for first, last in ranges)


def test_the_program_prints_a_table_and_the_same_digest_in_any_pieces():
    def run(*words):
        return subprocess.run([sys.executable, RECIPE, PANEL, "--depths", "100:300:5", "--webs", "2:15:53", *words], check=True,
                              capture_output=True, text=True)
    whole, parted = run(), run("--piece", "60")
    assert whole.stdout.splitlines()[0] == "DepthCover,WebThickness"
    assert [line.split(",")[0] for line in whole.stdout.splitlines()[1:]] == ["100.0", "150.0", "200.0", "250.0", "300.0"]
    assert whole.stderr.startswith("265 panels, 0 refused, digest ")
    assert (whole.stdout, whole.stderr) == (parted.stdout, parted.stderr)

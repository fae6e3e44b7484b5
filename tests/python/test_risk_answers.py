# SPDX-License-Identifier: GPL-3.0-or-later
"""What a risk study answers beside the spread: own targets, joint probabilities, Sobol' indices, as the command line does."""
import pytest

import tarvokol

RANDOM = {"CoalStrength": "lognormal:100%:15%", "DepthCover": "triangular:80%:100%:140%"}
WORDS = [word for field, distribution in RANDOM.items() for word in ("--random", f"{field}={distribution}")]


@pytest.fixture
def panel(example):
    return tarvokol.read(example)


@pytest.mark.parametrize("seed", range(1, 7))
def test_own_targets_and_joint_probability_equal_the_command_lines(panel, example, command_line, seed):
    told = command_line("risk", example, *WORDS, "--samples", 3000, "--seed", seed, "--below", "WebsOnly=1.45",
                        "--below", "Overall=1.6")[0]
    result = tarvokol.risk(panel, RANDOM, samples=3000, seed=seed, below=[("WebsOnly", 1.45), ("Overall", 1.6)])
    assert result["joint"] == told["joint"]
    for name, factor in told["factors"].items():
        assert result["factors"][name]["below"] == factor["below"]
    assert 1.45 in [below["target"] for below in result["factors"]["WebsOnly"]["below"]]


@pytest.mark.parametrize("seed", range(1, 7))
def test_sobol_indices_equal_the_command_lines(panel, example, command_line, seed):
    told = command_line("risk", example, *WORDS, "--samples", 2000, "--seed", seed, "--sobol")[0]
    result = tarvokol.risk(panel, RANDOM, samples=2000, seed=seed, sobol=True)
    assert result["sobol_refused"] == told["sobol_refused"]
    for name, factor in told["factors"].items():
        assert result["factors"][name]["sobol"] == factor["sobol"]


def test_indices_stand_only_where_they_are_asked_for(panel):
    result = tarvokol.risk(panel, RANDOM, samples=100)
    assert "sobol_refused" not in result
    assert "sobol" not in result["factors"]["Overall"]


def test_a_target_of_1_stands_once(panel):
    result = tarvokol.risk(panel, RANDOM, samples=100, below=[("Overall", 1)])
    assert [below["target"] for below in result["factors"]["Overall"]["below"]].count(1.0) == 1


def test_threads_change_no_bit_of_the_indices(panel):
    results = [tarvokol.risk(panel, RANDOM, samples=5000, sobol=True, threads=threads) for threads in (1, 2, 5)]
    assert results[0] == results[1] == results[2]


@pytest.mark.parametrize("below", [[("WebsOnly", 0)], [("WebsOnly", float("nan"))], [("WebsOnly", 1.6), ("WebsOnly", 1.6)],
                                   [("ExtractionRatio", 1.6)], [("Web", 1.6)]])
def test_targets_without_sense_are_refused(panel, below):
    with pytest.raises(tarvokol.Refusal):
        tarvokol.risk(panel, RANDOM, samples=100, below=below)


def test_indices_of_correlated_fields_are_refused(panel):
    with pytest.raises(tarvokol.Refusal, match="correlat"):
        tarvokol.risk(panel, RANDOM, correlate={("CoalStrength", "DepthCover"): 0.5}, samples=100, sobol=True)


@pytest.mark.parametrize("below", [["WebsOnly"], [("WebsOnly", "much")], [(5, 1.6)], 5])
def test_targets_of_another_kind_are_wrong_arguments(panel, below):
    with pytest.raises((TypeError, ValueError)):
        tarvokol.risk(panel, RANDOM, samples=100, below=below)

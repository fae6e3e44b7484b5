# SPDX-License-Identifier: GPL-3.0-or-later
"""The study of the command line, with the same bits."""
import numpy
import pytest

import tarvokol

RANDOM = {"CoalStrength": "lognormal:100%:15%", "DepthCover": "triangular:80%:100%:140%"}


@pytest.fixture
def panel(example):
    return tarvokol.read(example)


@pytest.mark.parametrize("latin", [True, False])
def test_figures_equal_the_command_lines(panel, example, command_line, latin):
    words = [word for field, distribution in RANDOM.items() for word in ("--random", f"{field}={distribution}")]
    told = command_line("risk", example, *words, "--correlate", "CoalStrength,DepthCover=-0.5", "--samples", 5000, "--seed", 7,
                        *([] if latin else ["--plain"]))[0]
    result = tarvokol.risk(panel, RANDOM, correlate={("CoalStrength", "DepthCover"): -0.5}, samples=5000, seed=7, latin=latin)
    for key in ("samples", "seed", "method", "refused", "messages"):
        assert result[key] == told[key], key
    for name, factor in told["factors"].items():
        mine = result["factors"][name]
        assert mine["mean"] == factor["mean"]
        assert mine["standard_deviation"] == factor["standard_deviation"]
        assert {float(share): value for share, value in factor["quantiles"].items()} == mine["quantiles"]
        assert mine["below"] == factor["below"]
        assert mine["rank_correlation"] == factor["rank_correlation"]


def test_samples_are_kept_on_demand(panel):
    result = tarvokol.risk(panel, {"Height": "uniform:-1:8"}, samples=2000, keep_samples=True)
    drawn = result["drawn"]
    assert drawn["Height"].shape == (2000,)
    rows = tarvokol.factors(panel, Height=drawn["Height"])
    assert rows["WebsOnly"].tobytes() == drawn["WebsOnly"].tobytes()
    assert result["refused"] == numpy.isnan(drawn["WebsOnly"]).sum() > 0
    assert result["messages"] == ["Invalid entry height"]
    assert "drawn" not in tarvokol.risk(panel, {"Height": "uniform:5:8"}, samples=100)


def test_threads_change_no_bit(panel):
    results = [tarvokol.risk(panel, RANDOM, samples=30000, threads=threads) for threads in (1, 2, 5)]
    assert results[0] == results[1] == results[2]


def test_requests_without_sense_are_refused_with_the_programs_words(panel):
    for random, words in (({"Heigth": "uniform:5:6"}, "unknown field"), ({"Height": "uniform:6"}, "uniform"),
                          ({"Height": "gauss:1:2"}, "is no distribution")):
        with pytest.raises(tarvokol.Refusal, match=words):
            tarvokol.risk(panel, random, samples=100)
    with pytest.raises(tarvokol.Refusal, match="both fields must be drawn"):
        tarvokol.risk(panel, {"Height": "uniform:5:6"}, correlate={("Height", "DepthCover"): 0.5}, samples=100)
    with pytest.raises(TypeError):
        tarvokol.risk(panel, {"Height": 5}, samples=100)

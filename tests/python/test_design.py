# SPDX-License-Identifier: GPL-3.0-or-later
"""The design study of the command line, with the same bits."""
import pytest

import tarvokol

RANDOM = {"CoalStrength": "lognormal:100%:15%"}
FIND = {"WebThickness": ("WebsOnly", 1.6, 0.05)}
WORDS = ["--random", "CoalStrength=lognormal:100%:15%", "--find", "WebThickness", "--until", "WebsOnly<1.6", "--probability", "5%"]
BARRIER = ["--find", "BarrierPillarWidth", "--until", "BarrierPillar<2"]
KEYS = ("samples", "seed", "method", "step", "found", "together")


@pytest.fixture
def panel(example):
    return tarvokol.read(example)


@pytest.mark.parametrize("seed", range(1, 5))
@pytest.mark.parametrize(("words", "options"), [([], {}), (["--step", 0.25], {"step": 0.25}), (["--plain"], {"latin": False}),
                                                (["--between", "WebThickness=2:40"], {"between": {"WebThickness": (2, 40)}})])
def test_values_equal_the_command_lines(panel, example, command_line, seed, words, options):
    told = command_line("design", example, *WORDS, "--samples", 2000, "--seed", seed, *words)[0]
    result = tarvokol.design(panel, RANDOM, FIND, samples=2000, seed=seed, **options)
    assert result == {key: told[key] for key in KEYS}


def test_web_and_barrier_equal_the_command_lines(panel, example, command_line):
    told = command_line("design", example, *WORDS, *BARRIER, "--samples", 2000)[0]
    result = tarvokol.design(panel, RANDOM, {**FIND, "BarrierPillarWidth": ("BarrierPillar", 2, 0.05)}, samples=2000)
    assert result == {key: told[key] for key in KEYS}


def test_threads_change_no_bit(panel):
    results = [tarvokol.design(panel, RANDOM, FIND, samples=2000, threads=threads) for threads in (1, 2, 5)]
    assert results[0] == results[1] == results[2]


@pytest.mark.parametrize(("find", "words"), [
    ({"Web": ("WebsOnly", 1.6, 0.05)}, 'unknown field "Web"'),
    ({"WebThickness": ("Webs", 1.6, 0.05)}, 'unknown figure "Webs"'),
    ({"WebThickness": ("WebsOnly", 0, 0.05)}, "WebThickness: the target must be above 0"),
    ({"WebThickness": ("WebsOnly", 1.6, 1)}, "WebThickness: the probability must lie between 0 and 100 %"),
    ({"CoalStrength": ("WebsOnly", 1.6, 0.05)}, "CoalStrength: a field that is drawn cannot be sought")])
def test_demands_without_sense_are_refused(panel, find, words):
    with pytest.raises(tarvokol.Refusal, match=words):
        tarvokol.design(panel, RANDOM, find, samples=2000)


@pytest.mark.parametrize(("options", "words"), [
    ({"step": 0}, "the step must be above 0"),
    ({"between": {"WebThickness": (5, 4)}}, "WebThickness: LO must be below HI"),
    ({"between": {"Height": (4, 5)}}, "Height: the field is not sought"),
    ({"between": {"WebThickness": (1, 1.5)}}, "the probability of WebsOnly < 1.6 does not come down to 5 %")])
def test_steps_and_ranges_without_sense_are_refused(panel, options, words):
    with pytest.raises(tarvokol.Refusal, match=words):
        tarvokol.design(panel, RANDOM, FIND, samples=2000, **options)


@pytest.mark.parametrize("find", [{"WebThickness": 1.6}, {"WebThickness": ("WebsOnly", 1.6)}, {"WebThickness": ("WebsOnly", "a", "b")}])
def test_demands_of_another_kind_are_wrong_arguments(panel, find):
    with pytest.raises((TypeError, ValueError)):
        tarvokol.design(panel, RANDOM, find, samples=2000)

# SPDX-License-Identifier: GPL-3.0-or-later
"""One panel: the same figures as the command line's, the program's words where it refuses."""
import copy
import pickle

import numpy
import pytest

import tarvokol


def test_a_panel_made_of_figures_has_the_factors_of_the_engines_page():
    panel = tarvokol.Panel(Height=10, DepthCover=300, HoleWidth=10, WebThickness=10, BarrierPillarWidth=40, NumberHoles=10,
                           CoalStrength=900, UnitWeight=162, AbutmentAngle=21, SFWeb=1.6, SFBarrier=2)
    assert f"{tarvokol.analyse(panel)['StabilityFactor'][0]:.2f}" == "2.53"
    assert panel.NumberHoles == 10
    assert panel.units == "english"
    assert panel.SFWeb == float(numpy.float32(1.6))


def test_analysis_equals_the_command_lines(example, metric, command_line):
    for path in (example, metric):
        told = command_line("results", path)[0]
        figures = tarvokol.analyse(tarvokol.read(path))
        assert len(figures) == 12
        for name, values in figures.items():
            assert values.tolist() == told[name], name


def test_sizes_equal_the_command_lines(example, metric, command_line):
    for path in (example, metric):
        told = command_line("size", path)[0]
        sizes = tarvokol.size(tarvokol.read(path))
        assert (sizes["SuggestedWeb"], sizes["SuggestedBarrier"]) == (told["SuggestedWeb"], told["SuggestedBarrier"])
        assert sizes["message"] == ""


@pytest.mark.parametrize("kind", ["sf-height", "sf-depth", "sf-hole", "web", "barrier"])
def test_curves_equal_the_command_lines(kind, example, metric, command_line):
    for path in (example, metric):
        told = command_line("curve", kind, path)[0]
        rows = tarvokol.curve(tarvokol.read(path), kind)
        assert rows.shape == (told["CurvePoints"],)
        for name, values in zip(rows.dtype.names, told["CurveData"]):
            assert rows[name].tolist() == values, name


def test_a_curve_has_the_range_that_is_asked_for(example):
    panel = tarvokol.read(example)
    rows = tarvokol.curve(panel, "sf-depth", low=100, high=10)
    assert rows["DepthCover"][0] == numpy.float32(panel.DepthCover)
    step = 0.1 * panel.DepthCover / 50
    assert 1.1 * panel.DepthCover - 1.5 * step < rows["DepthCover"][-1] < 1.1 * panel.DepthCover + 0.5 * step
    with pytest.raises(ValueError, match='"depth" is none of sf-height'):
        tarvokol.curve(panel, "depth")


def test_refusals_are_exceptions_with_the_programs_words(example):
    panel = tarvokol.read(example)
    tarvokol.check(panel)
    panel.Height = 0
    for refused in (tarvokol.check, tarvokol.analyse, lambda one: tarvokol.curve(one, "web")):
        with pytest.raises(tarvokol.Refusal, match="^Invalid entry height$"):
            refused(panel)
    assert issubclass(tarvokol.Refusal, ValueError)
    panel = tarvokol.read(example)
    panel.NumberHoles = 21
    with pytest.raises(tarvokol.EngineError, match="^Subscript out of range$"):
        tarvokol.check(panel)


def test_figures_are_stored_as_the_program_stores_them():
    panel = tarvokol.Panel()
    panel.NumberHoles = 0
    assert panel.NumberHoles == 1  # as in a project file
    for value in (2.5, 1e6):
        with pytest.raises(ValueError, match="NumberHoles: cannot be stored in this field"):
            panel.NumberHoles = value
    with pytest.raises(ValueError, match="SFWeb: cannot be stored in this field"):
        panel.SFWeb = 1e300
    with pytest.raises(ValueError, match="Height: is no number"):
        panel.Height = float("nan")
    with pytest.raises(ValueError, match='units are "english" or "metric", not "imperial"'):
        panel.units = "imperial"
    with pytest.raises(TypeError, match='Panel has no figure "Depth"'):
        tarvokol.Panel(Depth=1)
    with pytest.raises(TypeError):
        panel.Height = "ten"


def test_a_file_is_read_and_written(tmp_path, example, metric):
    for path in (example, metric):
        panel = tarvokol.read(path)
        copy_of_it = tmp_path / path.name
        tarvokol.write(copy_of_it, panel)
        assert tarvokol.read(copy_of_it) == panel
        with pytest.raises(tarvokol.EngineError, match="^File already exists"):
            tarvokol.write(copy_of_it, panel)
        panel.Height = 7
        tarvokol.write(str(copy_of_it), panel, force=True)
        assert tarvokol.read(str(copy_of_it)).Height == 7
    (tmp_path / "other.TKL").write_text("something else\n")
    with pytest.raises(tarvokol.Refusal, match="^Invalid file format$"):
        tarvokol.read(tmp_path / "other.TKL")
    with pytest.raises(tarvokol.EngineError, match="^File not found$"):
        tarvokol.read(tmp_path / "none.TKL")
    (tmp_path / "torn.TKL").write_text("TARVOKOL_101\n0\n")
    with pytest.raises(tarvokol.EngineError, match="^Input past end of file$"):
        tarvokol.read(tmp_path / "torn.TKL")


def test_panels_are_copied_compared_and_pickled(metric):
    panel = tarvokol.read(metric)
    assert panel.units == "metric"
    for twin in (copy.copy(panel), copy.deepcopy(panel), pickle.loads(pickle.dumps(panel))):
        assert twin == panel
        assert (twin.title, twin.description) == (panel.title, panel.description)
        twin.DepthCover += 1
        assert twin != panel
    assert pickle.loads(pickle.dumps(tarvokol.Panel())) == tarvokol.Panel()
    assert repr(panel).startswith("Panel(units='metric', Height=")


def test_every_name_has_its_words():
    for name in tarvokol.__all__:
        assert getattr(tarvokol, name).__doc__, name

# SPDX-License-Identifier: GPL-3.0-or-later
"""Figures in arrays: bit for bit the command line's, whatever the arrays look like."""
import concurrent.futures
import csv
import resource
import threading

import numpy
import pytest

import tarvokol

FACTORS = ["Overall", "WebsOnly", "BarrierPillar", "ExtractionRatio"]


def same_bits(one, other):
    return numpy.asarray(one, "<f8").tobytes() == numpy.asarray(other, "<f8").tobytes()


@pytest.fixture
def panel(example):
    return tarvokol.read(example)


def test_ten_thousand_panels_equal_those_of_the_command_line(panel, example, command_line, random_figures, tmp_path):
    figures = random_figures(10000)
    with open(tmp_path / "rows.csv", "w", newline="", encoding="ascii") as file:
        writer = csv.writer(file)
        writer.writerow(figures)
        writer.writerows(zip(*(map(repr, map(float, values)) for values in figures.values())))
    told = command_line("table", example, tmp_path / "rows.csv")
    rows = tarvokol.factors(panel, **figures)
    assert rows.shape == (10000,)
    none = float("nan")
    for name in FACTORS:
        assert same_bits(rows[name], [none if row.get(name) is None else row[name] for row in told]), name
    assert [tarvokol.MESSAGES[index] for index in rows["Message"]] == [" | ".join(row["messages"]) for row in told]
    refused = rows["Message"] != 0
    assert 1000 < refused.sum() < 9000
    assert numpy.isnan(rows["WebsOnly"][refused]).all() and not numpy.isnan(rows["WebsOnly"][~refused]).any()


def test_every_number_of_threads_gives_the_same_bits(panel, random_figures):
    figures = random_figures(70000)
    rows = tarvokol.factors(panel, threads=1, **figures)
    for threads in (2, 3, 16):
        again = tarvokol.factors(panel, threads=threads, **figures)
        assert all(again[name].tobytes() == rows[name].tobytes() for name in rows.dtype.names)
    with pytest.raises(ValueError, match="threads: 0 is not a whole number from 1 to 1024"):
        tarvokol.factors(panel, threads=0, Height=1)


def test_the_bytes_of_a_result_are_its_figures_and_nothing_that_lay_in_memory(panel, random_figures):
    figures = random_figures(1000)
    rows = tarvokol.factors(panel, **figures)
    filled = [numpy.full(5000, 7.7) for _ in range(50)]  # of the same size, and gone again
    del filled
    assert tarvokol.factors(panel, **figures).tobytes() == rows.tobytes()
    assert set(rows.view("V40").view("<i4").reshape(-1, 10)[:, 9]) == {0}


def test_shapes_broadcast(panel):
    depth, web = numpy.arange(50, 55.0), numpy.arange(3, 6.0)[:, None]
    rows = tarvokol.factors(panel, DepthCover=depth, WebThickness=web, Height=6)
    assert rows.shape == (3, 5)
    one = tarvokol.factors(panel, DepthCover=52, WebThickness=4, Height=6)
    assert one.shape == ()
    assert rows[1, 2] == one
    panel.DepthCover, panel.WebThickness, panel.Height = 52, 4, 6
    assert one["WebsOnly"] == tarvokol.analyse(panel)["StabilityFactor"][1]
    with pytest.raises(ValueError):
        tarvokol.factors(panel, DepthCover=[1.0, 2], WebThickness=[1.0, 2, 3])
    assert tarvokol.factors(panel)["WebsOnly"] == one["WebsOnly"]


def test_hostile_arrays(panel):
    depth = numpy.linspace(50, 400, 24)
    expected = tarvokol.factors(panel, DepthCover=depth)["WebsOnly"]
    read_only = depth.copy()
    read_only.flags.writeable = False
    for other in (depth.astype(">f8"), numpy.asfortranarray(depth.reshape(4, 6)), read_only, numpy.repeat(depth, 2)[::2],
                  list(depth), tuple(depth)):
        assert (tarvokol.factors(panel, DepthCover=other)["WebsOnly"].ravel() == expected).all()
    assert (tarvokol.factors(panel, DepthCover=depth[::-1])["WebsOnly"][::-1] == expected).all()
    assert (tarvokol.factors(panel, DepthCover=numpy.array([100, 200], "i2"))["WebsOnly"] ==
            tarvokol.factors(panel, DepthCover=[100.0, 200.0])["WebsOnly"]).all()
    assert tarvokol.factors(panel, DepthCover=numpy.array([])).shape == (0,)
    assert tarvokol.factors(panel, DepthCover=numpy.empty((3, 0)), Height=5).shape == (3, 0)
    for wrong in ("100", ["100"], [b"1"], [None], [1j], [True], numpy.array([object()]), numpy.array(["2020-01-01"], "M8[D]")):
        with pytest.raises(TypeError, match="DepthCover: .* are no numbers"):
            tarvokol.factors(panel, DepthCover=wrong)
    with pytest.raises(ValueError, match="DepthCover: has masked values"):
        tarvokol.factors(panel, DepthCover=numpy.ma.masked_invalid([1.0, numpy.nan]))
    with pytest.raises(ValueError, match='unknown field "Depth"; the fields are Height, DepthCover,'):
        tarvokol.factors(panel, Depth=[1])
    with pytest.raises(TypeError):
        tarvokol.factors("panel.TKL", Height=1)


def test_what_no_panel_holds_is_refused_by_its_row(panel):
    def messages(**figures):
        rows = tarvokol.factors(panel, **figures)
        assert numpy.isnan(rows["Overall"][rows["Message"] != 0]).all()
        return [tarvokol.MESSAGES[index] for index in rows["Message"]]

    nan, inf = float("nan"), float("inf")
    assert messages(DepthCover=[nan, 100, -1]) == ["DepthCover: is no number", "", "Invalid depth of cover"]
    assert messages(NumberHoles=[2.5, 5, 99999, 21]) == ["NumberHoles: cannot be stored in this field", "",
                                                       "NumberHoles: cannot be stored in this field", "Subscript out of range"]
    assert messages(SFWeb=[1e39, 1.5]) == ["SFWeb: cannot be stored in this field", ""]
    assert messages(Height=[5, 5], DepthCover=nan) == ["DepthCover: is no number"] * 2
    assert messages(Height=[inf, 0, -inf]) == ["Height: is no number", "Invalid entry height", "Height: is no number"]
    assert tarvokol.MESSAGES[0] == "" and len(set(tarvokol.MESSAGES)) == len(tarvokol.MESSAGES)


def test_threads_calculate_at_once_and_leave_the_interpreter_alone(panel, random_figures):
    figures = random_figures(200000)
    expected = tarvokol.factors(panel, **figures)["WebsOnly"].tobytes()
    turns = 0
    running = threading.Event()

    def work():
        running.set()
        return tarvokol.factors(panel, threads=1, **figures)["WebsOnly"].tobytes()

    with concurrent.futures.ThreadPoolExecutor(4) as pool:
        results = [pool.submit(work) for _ in range(8)]
        running.wait()
        while not all(result.done() for result in results):
            turns += 1
        assert all(result.result() == expected for result in results)
    assert turns > 0


def test_a_million_calls_leave_no_memory_behind(panel):
    depth = numpy.array([100.0])

    def many(count):
        for _ in range(count):
            tarvokol._engine.factors(panel, {"DepthCover": depth}, [1], 1)
        return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss

    before = many(20000)
    assert many(1000000) - before < 8192  # KiB


class Frame:
    """What factors asks of a frame: columns, their values, an index."""

    def __init__(self, data, index):
        self.data, self.index = data, index
        self.columns = list(data)

    def __getitem__(self, name):
        return self

    def __len__(self):
        return len(self.index)

    def to_numpy(self):
        return numpy.array([100.0, 200.0])


def test_frames_go_in_and_come_out_by_column_name(panel):
    expected = tarvokol.factors(panel, DepthCover=[100.0, 200.0])
    out = tarvokol.factors(panel, Frame({"Hole": 0, "DepthCover": 0}, index=["a", "b"]))
    assert isinstance(out, Frame) and out.index == ["a", "b"]
    assert out.columns == [*FACTORS, "Message"]
    assert same_bits(out.data["WebsOnly"], expected["WebsOnly"])
    with pytest.raises(ValueError, match="the column depthcover is no field; did you mean DepthCover?"):
        tarvokol.factors(panel, Frame({"depthcover": 0}, index=["a", "b"]))
    with pytest.raises(ValueError, match="no column of the frame is a field"):
        tarvokol.factors(panel, Frame({"Hole": 0}, index=["a", "b"]))
    with pytest.raises(TypeError, match="in the frame or in arrays"):
        tarvokol.factors(panel, Frame({"DepthCover": 0}, index=["a", "b"]), Height=1)


def test_frames_of_pandas(panel):
    pandas = pytest.importorskip("pandas")
    frame = pandas.DataFrame({"Hole": ["A", "B"], "DepthCover": [100, 200]}, index=[7, 8])
    out = tarvokol.factors(panel, frame)
    assert list(out.index) == [7, 8]
    assert same_bits(out["WebsOnly"].to_numpy(), tarvokol.factors(panel, DepthCover=[100, 200])["WebsOnly"])

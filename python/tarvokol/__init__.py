# SPDX-License-Identifier: GPL-3.0-or-later
"""Stability design of highwall mining panels.

A panel is a row of holes that a highwall miner drives into a seam, with webs between them and a barrier beside them. Its stability
factors are strength over load: of the whole panel, of the webs alone, of the barrier pillar.

    import numpy, tarvokol
    panel = tarvokol.read("panel.TKL")
    tarvokol.analyse(panel)["StabilityFactor"]                    # Overall, WebsOnly, BarrierPillar
    depth, web = numpy.meshgrid(numpy.arange(50, 401), numpy.arange(2, 12, 0.1))
    tarvokol.factors(panel, DepthCover=depth, WebThickness=web)["WebsOnly"]

Figures are in the panel's own units: lengths in ft or m, strength in psi or MPa, unit weight in pcf or kN/m3, angles in degrees;
suggested sizes are inches in both. The figures are those of the program and of the command line, to the last bit, on any number of
threads. What the program refuses raises Refusal with the program's words; what cannot be calculated raises EngineError.
"""
from __future__ import annotations

import os
from collections.abc import Iterable, Mapping
from typing import Any

import numpy

from . import _engine
from ._engine import MESSAGES, EngineError, Panel, Refusal, Shortage

__all__ = ["FIELDS", "MESSAGES", "EngineError", "Panel", "Refusal", "Shortage", "analyse", "check", "curve", "design", "factors",
           "read", "risk", "size", "write"]

FIELDS = ("Height", "DepthCover", "HoleWidth", "WebThickness", "BarrierPillarWidth", "NumberHoles", "CoalStrength", "UnitWeight",
          "AbutmentAngle", "SFWeb", "SFBarrier")
"""The fields of a panel that factors and the studies set, by the names of the command line and of its tables."""

_CURVES = {
    "sf-height": ("Height", "Overall", "WebsOnly", "BarrierPillar"),
    "sf-depth": ("DepthCover", "Overall", "WebsOnly", "BarrierPillar"),
    "sf-hole": ("HoleWidth", "Overall", "WebsOnly", "BarrierPillar"),
    "web": ("DepthCover", "SuggestedWeb"),
    "barrier": ("DepthCover", "SuggestedBarrier"),
}


def read(path: str | os.PathLike[str]) -> Panel:
    """The panel of a project file (.TKL), with its title and description.

    Raises Refusal ("Invalid file format") for a file of another format and EngineError for one that is not there, cannot be read or
    ends early. No figure is tested; see check.
    """
    return _engine.read(os.fspath(path))


def write(path: str | os.PathLike[str], panel: Panel, *, force: bool = False) -> None:
    """Writes the panel as a project file, whole or not at all.

    A file that stands there is replaced with force alone; otherwise EngineError ("File already exists").
    """
    _engine.write(os.fspath(path), panel, force)


def check(panel: Panel) -> None:
    """The input check of the program. Raises Refusal with its words: "Invalid entry height"."""
    _engine.check(panel)


def analyse(panel: Panel) -> dict[str, numpy.ndarray[Any, numpy.dtype[numpy.float64]]]:
    """Strengths, loads and stability factors, by the keys of `tarvokol-cli results --json`.

    StabilityFactor, CapacityTotal, DevelopmentLoad, SideAbutmentLoad and PanelSpan have 3 elements (whole panel, webs, barrier),
    AppliedAbutmentLoad and TotalLoad 4; CenterDist, PillarWidth, PillarStrength, PillarArea and PillarCapacity one per pillar, the
    barrier first. Forces are in lbs or kN, strengths in psf or kPa, as the analysis leaves them. Raises Refusal where the check does.
    """
    return _engine.analyse(panel)


def size(panel: Panel) -> dict[str, Any]:
    """The widths that meet the panel's targets, as the button "Size pillars" gives them.

    SuggestedWeb and SuggestedBarrier in inches, of a Metric panel too, -1 where the solver fails; `message` says what it then says, and
    is empty otherwise. Raises Refusal where the panel cannot be sized.
    """
    return _engine.size(panel)


def curve(panel: Panel, kind: str, *, low: float = 50.0, high: float = 100.0) -> numpy.ndarray[Any, numpy.dtype[Any]]:
    """A parametric curve, from `low` percent of the panel's own value to `high` percent above it.

    `kind` is sf-height, sf-depth, sf-hole, web or barrier. A structured array, one row per point: what varies (Height, DepthCover,
    HoleWidth), then Overall, WebsOnly and BarrierPillar, or SuggestedWeb or SuggestedBarrier (feet in an English panel, inches in
    a Metric one; -1 where the solver fails). Singles, as the program stores them. Raises Refusal where the check does, ValueError for another kind.
    """
    rows = _engine.curve(panel, kind, low, high)
    names = _CURVES[kind]
    return numpy.ascontiguousarray(rows).view([(name, numpy.float32) for name in names]).reshape(len(rows))


def _threads(threads: int | None) -> int:
    if threads is None:
        return max(1, len(os.sched_getaffinity(0)))
    if not 1 <= threads <= 1024:
        raise ValueError(f"threads: {threads} is not a whole number from 1 to 1024")
    return threads


def _column(name: str, values: Any) -> numpy.ndarray[Any, numpy.dtype[Any]]:
    array = numpy.asarray(values)
    if isinstance(values, numpy.ma.MaskedArray) and numpy.any(values.mask):
        raise ValueError(f"{name}: has masked values")
    if array.dtype.kind not in "iuf":
        raise TypeError(f"{name}: {array.dtype} are no numbers")
    return array


def _columns_of_frame(frame: Any) -> dict[str, Any]:
    columns = {}
    lower = {field.lower(): field for field in FIELDS}
    for name in frame.columns:
        if name in FIELDS:
            columns[name] = frame[name].to_numpy()
        elif str(name).lower() in lower:
            raise ValueError(f"the column {name} is no field; did you mean {lower[str(name).lower()]}?")
    return columns


def factors(panel: Panel, frame: Any = None, *, threads: int | None = None, **figures: Any) -> Any:
    """The stability factors of many panels, which differ from `panel` in the figures given.

    Each figure is a field of FIELDS with its values, a number or an array, in the panel's units; they broadcast like NumPy arrays. The
    result has their common shape and the fields Overall, WebsOnly, BarrierPillar, ExtractionRatio (percent) and Message. A panel that
    the program refuses has NaN, and MESSAGES[Message] says why; Message is 0 otherwise. NaN among the values is such a panel.

    Of a pandas frame those columns are taken that are named as fields, and a frame with the same index comes back. All cores calculate
    unless `threads` tells their number; the interpreter runs on meanwhile. Raises TypeError for what is no number, ValueError for
    unknown names and shapes that do not fit.
    """
    if frame is not None:
        if figures:
            raise TypeError("figures stand in the frame or in arrays, not in both")
        rows = factors(panel, threads=threads, **_columns_of_frame(frame))
        if rows.shape != (len(frame),):
            raise ValueError(f"no column of the frame is a field; the fields are {', '.join(FIELDS)}")
        return type(frame)({name: rows[name] for name in rows.dtype.names}, index=frame.index)
    for name in figures:
        if name not in FIELDS:
            raise ValueError(f'unknown field "{name}"; the fields are {", ".join(FIELDS)}')
    arrays = {name: _column(name, values) for name, values in figures.items()}
    shape = numpy.broadcast_shapes(*(array.shape for array in arrays.values()))
    count = int(numpy.prod(shape, dtype=numpy.int64))
    columns = {name: numpy.ascontiguousarray(array if array.size == 1 != count else numpy.broadcast_to(array, shape),
                                             dtype=numpy.float64) for name, array in arrays.items()}
    return _engine.factors(panel, columns, list(shape), _threads(threads))


def _pairs(correlate: Mapping[tuple[str, str], float] | None) -> list[tuple[str, str, float]]:
    return [(first, second, float(value)) for (first, second), value in (correlate or {}).items()]


def risk(panel: Panel, random: Mapping[str, str], *, correlate: Mapping[tuple[str, str], float] | None = None, samples: int = 100000,
         seed: int = 1, latin: bool = True, keep_samples: bool = False, threads: int | None = None,
         below: Iterable[tuple[str, float]] = (), sobol: bool = False) -> dict[str, Any]:
    """How likely the factors lie below their targets when figures are uncertain; the study of `tarvokol-cli risk`.

    `random` names each drawn field and its distribution as the command line does: {"CoalStrength": "lognormal:100%:15%"}. `correlate`
    has the correlations of pairs of fields. `samples` are Latin hypercubes, independent draws with latin=False. Same request, same bits,
    on any number of threads, and the same as the command line's with the same seed.

    `below` has targets of the study's own beside those of the project, each a factor and a figure above 0: [("WebsOnly", 1.6)]. With
    sobol each factor has first-order and total indices of every field, of independent fields alone.

    The keys are those of its JSON: `samples`, `seed`, `method`, `refused`, `messages`, and `factors` with mean, standard_deviation,
    quantiles, below (the project's own target, then 1, then those asked for: probability with its 95 % interval), rank_correlation
    and, where asked for, sobol of each factor; `joint`, the probability that webs or barrier or both fall below their targets; with
    sobol `sobol_refused`, the base samples left out. With keep_samples `drawn` has the samples themselves, in arrays; a refused sample
    has NaN factors. An index of a factor that does not vary is NaN. Raises Refusal for a request that makes no sense, Shortage where
    memory or threads do not suffice.
    """
    pairs = _pairs(correlate)
    targets = [(factor, float(target)) for factor, target in below]
    return _engine.risk(panel, list(random.items()), pairs, targets, sobol, samples, seed, latin, keep_samples, _threads(threads))


def design(panel: Panel, random: Mapping[str, str], find: Mapping[str, tuple[str, float, float]], *,
           correlate: Mapping[tuple[str, str], float] | None = None, between: Mapping[str, tuple[float, float]] | None = None,
           step: float | None = None, samples: int = 100000, seed: int = 1, latin: bool = True,
           threads: int | None = None) -> dict[str, Any]:
    """The value of a field at which a factor is unlikely enough to lie below its target; the study of `tarvokol-cli design`.

    `find` names each field that is sought, with a factor, its target and the probability below it that is allowed, a share of 1:
    {"WebThickness": ("WebsOnly", 1.6, 0.05)}. Webs are found before barriers. `between` has other ranges of the search, in the panel's
    units (default: a tenth of the panel's own value to ten times it; 1 to 20 holes, 1 to 89 degrees); `step` rounds what was found to
    its multiples, to the safe side. The rest is as in risk; the figures are the command line's, to the last bit, on any number of threads.

    The keys are those of its JSON: `samples`, `seed`, `method`, `step`, `found` (for each field: value with its 95 % interval, used,
    before, after, curve, in the panel's units) and `together`, the probability that any of the factors falls below its target. Raises
    Refusal for a request that makes no sense and where no value of the range meets the demand, Shortage where memory or threads do not
    suffice.
    """
    demands = [(field, factor, float(target), float(share)) for field, (factor, target, share) in find.items()]
    ranges = [(field, float(low), float(high)) for field, (low, high) in (between or {}).items()]
    return _engine.design(panel, list(random.items()), demands, _pairs(correlate), ranges, step, samples, seed, latin, _threads(threads))

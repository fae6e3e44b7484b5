# SPDX-License-Identifier: GPL-3.0-or-later
"""Twenty questions to `risk` and three to `fit`, put to OpenTURNS as well. Its panel is an implementation of its own, in arrays
of NumPy, of the formulas in the reference note "Pillar strength and load model"."""

import json
import math
import subprocess
from typing import NamedTuple

SAMPLES = 100000
# Lines of a project file after its description.
FIELDS = ("Height", "DepthCover", "HoleWidth", "WebThickness", "BarrierPillarWidth", "NumberHoles", "CrosscutAngle",
          "CrosscutSpacing", "CoalStrength", "UnitWeight", "AbutmentAngle", "SFWeb", "SFBarrier", "SpareSingle")


class Question(NamedTuple):
    project: str  # among the examples
    factor: str
    target: float
    random: dict  # field: distribution as the program writes it
    correlate: dict = {}  # (field, field): correlation of the normal scores
    sobol: bool = False


_BENCH, _DEEP = "Contour_Bench_Shallow.TKL", "Deep_Cover_20_Holes.TKL"
_STRENGTH = {"CoalStrength": "lognormal:900:135"}
_THREE = {"CoalStrength": "lognormal:900:135", "DepthCover": "triangular:108:120:144", "Height": "normal:4.5:0.225"}
_FIVE = {**_THREE, "UnitWeight": "uniform:155:169", "WebThickness": "truncnormal:3.25:0.1:3:3.5"}

QUESTIONS = {
    "1": Question(_BENCH, "WebsOnly", 1.6, _STRENGTH),
    "2": Question(_BENCH, "BarrierPillar", 2.0, {"CoalStrength": "normal:900:135"}),
    "3": Question(_BENCH, "WebsOnly", 1.6, _THREE, sobol=True),
    "4": Question(_BENCH, "BarrierPillar", 2.0, _THREE, sobol=True),
    "5": Question(_BENCH, "Overall", 1.5, _FIVE, sobol=True),
    "6": Question(_BENCH, "WebsOnly", 1.3, {"CoalStrength": "weibull:965:7.2", "DepthCover": "gumbel:118:6"}),
    "7": Question(_BENCH, "BarrierPillar", 1.5, {"CoalStrength": "gamma:22.5:40", "BarrierPillarWidth": "pert:9:10:12"}),
    "8": Question(_BENCH, "WebsOnly", 1.4, {"CoalStrength": "beta:3:4:600:1300", "WebThickness": "uniform:3:3.5"}, sobol=True),
    "9": Question(_BENCH, "WebsOnly", 1.6, {"CoalStrength": "normal:900:135", "DepthCover": "normal:120:12"},
                  {("CoalStrength", "DepthCover"): -0.5}),
    "10": Question(_BENCH, "BarrierPillar", 2.0, {"CoalStrength": "lognormal:900:135", "Height": "lognormal:4.5:0.45"},
                   {("CoalStrength", "Height"): 0.6}),
    "11": Question(_DEEP, "WebsOnly", 1.6, {"CoalStrength": "lognormal:900:180", "DepthCover": "normal:420:21"}, sobol=True),
    "12": Question(_DEEP, "BarrierPillar", 1.2, {"CoalStrength": "weibull:950:5", "AbutmentAngle": "triangular:15:21:27",
                                                "UnitWeight": "normal:162:3"}, sobol=True),
    "13": Question(_BENCH, "WebsOnly", 1.0, _STRENGTH),
    "14": Question(_BENCH, "WebsOnly", 0.8, {"CoalStrength": "normal:900:135"}),
    "15": Question(_BENCH, "BarrierPillar", 1.0, _THREE),
    "16": Question(_BENCH, "WebsOnly", 0.85, _THREE),
    "17": Question(_BENCH, "Overall", 0.9, _FIVE),
    "18": Question(_BENCH, "WebsOnly", 0.75, {"CoalStrength": "gamma:22.5:40", "DepthCover": "gumbel:118:6"}),
    "19": Question(_BENCH, "WebsOnly", 0.8, {"CoalStrength": "normal:900:135", "DepthCover": "normal:120:12"},
                   {("CoalStrength", "DepthCover"): -0.5}),
    "20": Question(_DEEP, "WebsOnly", 0.6, {"CoalStrength": "lognormal:900:180", "DepthCover": "normal:420:21",
                                           "Height": "uniform:5:6"}),
}

# Values whose distribution is asked for.
MEASURED = {
    "laboratory strengths": "Tamsin_Ridge_Strengths.csv",
    "Weibull figures": [965.0 * (-math.log(1 - (i - 0.3) / 40.4)) ** (1 / 4.0) for i in range(1, 41)],
    "lognormal figures": [math.exp(6.8 + 0.3 * math.sin(2.1 * i) + 0.2 * math.cos(5.3 * i)) for i in range(1, 61)],
}


def project_figures(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    return {name: float(text) for name, text in zip(FIELDS, lines[lines.index("##EndDesc##") + 1:])}


def _json(arguments):
    return json.loads(subprocess.run([str(word) for word in arguments], stdout=subprocess.PIPE, check=True).stdout)


def ask_program(cli, examples, question):
    """What `risk` says of a question."""
    words = [cli, "risk", examples / question.project, "--quiet", "--json", "--samples", SAMPLES,
             "--below", f"{question.factor}={question.target!r}"]
    for field, distribution in question.random.items():
        words += ["--random", f"{field}={distribution}"]
    for (one, other), value in question.correlate.items():
        words += ["--correlate", f"{one},{other}={value}"]
    answer = _json(words + (["--sobol"] if question.sobol else []))
    factor = answer["factors"][question.factor]
    below = next(one for one in factor["below"] if abs(one["target"] - question.target) < 1e-6)
    found = {"probability": below["probability"], "low": below["low"], "high": below["high"]}
    for rare in answer["rare"]:
        if rare["factor"] == question.factor and abs(rare["target"] - question.target) < 1e-6:
            found["rare"] = {key: rare[key] for key in
                             ("outcome", "reliability_index", "importance", "probability", "low", "high")}
    if question.sobol:
        found["sobol"] = factor["sobol"]
    return found


def column(examples, values, folder):
    """The values of a set, and the path of a table that holds them as its column Strength."""
    if isinstance(values, str):
        path = examples / values
        rows = [line.split(",") for line in path.read_text(encoding="utf-8").splitlines()]
        place = next(i for i, title in enumerate(rows[0]) if title.startswith("Strength"))
        return [float(row[place]) for row in rows[1:] if row[place].strip()], path
    path = folder / "measured.csv"
    path.write_text("Strength\n" + "".join(f"{value!r}\n" for value in values), encoding="utf-8")
    return values, path


def ask_fit(cli, path):
    answer = _json([cli, "fit", path, "--column", "Strength", "--quiet", "--json"])
    return {fit["distribution"]: {"parameters": [one["value"] for one in fit["parameters"].values()],
                                  "log_likelihood": fit["log_likelihood"]} for fit in answer["fits"]}

# SPDX-License-Identifier: GPL-3.0-or-later
"""Sobol' indices of the webs' factor by OpenTURNS with vectorised NumPy: sobol_openturns.py BASE_SAMPLES [alone]. With their 95 %
intervals as OpenTURNS makes them unless told otherwise, by a bootstrap, or the indices alone. The panel's formulas are those of the
validation."""

import pathlib
import sys

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/validation"))

import openturns  # noqa: E402
from openturns_answers import distribution_of, function_of  # noqa: E402
from uncertainty import Question  # noqa: E402

question = Question("Contour_Bench_Shallow.TKL", "WebsOnly", 1.6, {
    "CoalStrength": "lognormal:900:135", "DepthCover": "triangular:108:120:144", "Height": "normal:4.5:0.225",
    "UnitWeight": "uniform:155:169", "WebThickness": "normal:3.25:0.1"})
base = int(sys.argv[1])
function = function_of(ROOT / "examples", question)
inputs = openturns.SobolIndicesExperiment(distribution_of(question), base).generate()
indices = openturns.JansenSensitivityAlgorithm(inputs, function(inputs), base)
first, total = indices.getFirstOrderIndices(), indices.getTotalOrderIndices()
if "alone" not in sys.argv[2:]:
    indices.getFirstOrderIndicesInterval()
    indices.getTotalOrderIndicesInterval()
for i, field in enumerate(question.random):
    print(field, first[i], total[i])

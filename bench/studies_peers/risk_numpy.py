# SPDX-License-Identifier: GPL-3.0-or-later
"""The risk study of bench/studies.sh with NumPy: Latin hypercube, inverse transform, factors, statistics."""
import json
import sys

import numpy as np

from sweep_numpy import factors

SHARES = [0.01, 0.05, 0.10, 0.25, 0.50, 0.75, 0.90, 0.95, 0.99]
CENTRE = ([2.5090809287301226727e3, 3.3430575583588128105e4, 6.7265770927008700853e4, 4.5921953931549871457e4,
           1.3731693765509461125e4, 1.9715909503065514427e3, 1.3314166789178437745e2, 3.3871328727963666080e0],
          [5.2264952788528545610e3, 2.8729085735721942674e4, 3.9307895800092710610e4, 2.1213794301586595867e4,
           5.3941960214247511077e3, 6.8718700749205790830e2, 4.2313330701600911252e1, 1.0])
TAIL = ([7.74545014278341407640e-4, 2.27238449892691845833e-2, 2.41780725177450611770e-1, 1.27045825245236838258,
         3.64784832476320460504, 5.76949722146069140550, 4.63033784615654529590, 1.42343711074968357734],
        [1.05075007164441684324e-9, 5.47593808499534494600e-4, 1.51986665636164571966e-2, 1.48103976427480074590e-1,
         6.89767334985100004550e-1, 1.67638483018380384940, 2.05319162663775882187, 1.0])


def normal_quantile(p):
    """Wichura's AS 241 as far as a million samples reach."""
    q = p - 0.5
    r = 0.180625 - q * q
    centre = q * np.polyval(CENTRE[0], r) / np.polyval(CENTRE[1], r)
    r = np.sqrt(-np.log(np.minimum(p, 1 - p))) - 1.6
    tail = np.copysign(np.polyval(TAIL[0], r) / np.polyval(TAIL[1], r), q)
    return np.where(np.abs(q) <= 0.425, centre, tail)


def ranks(values):
    rank = np.empty(len(values))
    rank[np.argsort(values)] = np.arange(len(values))
    return rank


def main(samples):
    random = np.random.default_rng(1)
    strata = [(random.permutation(samples) + random.random(samples)) / samples for _ in range(3)]
    log_variance = np.log(1 + 0.15 ** 2)
    strength = np.exp(np.log(900) - log_variance / 2 + np.sqrt(log_variance) * normal_quantile(strata[0]))
    low, mode, high = 108.0, 120.0, 144.0
    rising = (mode - low) / (high - low)
    depth = np.where(strata[1] < rising, low + np.sqrt(strata[1] * (high - low) * (mode - low)),
                     high - np.sqrt((1 - strata[1]) * (high - low) * (high - mode)))
    height = 4.5 + 0.225 * normal_quantile(strata[2])
    drawn = {"CoalStrength": strength, "DepthCover": depth, "Height": height}
    drawn_ranks = {name: ranks(values) for name, values in drawn.items()}
    result = {}
    targets = {"Overall": [1.0], "WebsOnly": [1.6, 1.0], "BarrierPillar": [2.0, 1.0]}
    for name, values in zip(targets, factors(height, depth, 9.5, 3.25, 10.0, 14, strength, 162.0, 21.0)):
        own = ranks(values)
        result[name] = {"mean": values.mean(), "standard_deviation": values.std(ddof=1),
                        "quantiles": list(np.quantile(values, SHARES)),
                        "below": [float((values < target).mean()) for target in targets[name]],
                        "rank_correlation": {field: np.corrcoef(own, rank)[0, 1] for field, rank in drawn_ranks.items()}}
    json.dump(result, sys.stdout)


if __name__ == "__main__":
    main(int(sys.argv[1]))

# SPDX-License-Identifier: GPL-3.0-or-later
"""The sweep of bench/studies.sh as an engineer would write it with NumPy, all panels at once; pandas writes the rows."""
import sys

import numpy as np
import pandas as pd

RADIANS_PER_DEGREE = 0.017453292519943278


def factors(height, depth, hole, web, barrier, holes, strength, weight, angle, length=1e6):
    """Overall, webs and barrier of panels in English units."""
    def pillar_strength(width):
        return strength * 144 * (0.54 * width / height - 0.18 * width ** 2 / (height * length) + 0.64)

    span = (holes - 1) * web + holes * hole
    web_capacity = pillar_strength(web) * web
    barrier_capacity = pillar_strength(barrier) * barrier
    tangent = np.tan(angle * RADIANS_PER_DEGREE)
    side = np.where(span / 2 > depth * tangent, depth ** 2 * tangent * weight / 2,
                    (depth * span / 2 - span ** 2 / (8 * tangent)) * weight)
    overall = (barrier_capacity + (holes - 1) * web_capacity) / ((span + barrier) * weight * depth)
    webs = web_capacity / (weight * depth * (hole + web))
    return overall, webs, barrier_capacity / (2 * side + weight * depth * barrier)


def main(side, path):
    web, depth = np.meshgrid(np.linspace(2, 12, side), np.linspace(50, 900, side), indexing="ij")
    web, depth = web.ravel(), depth.ravel()
    height, hole, barrier, holes, strength, weight, angle = 4.5, 9.5, 10.0, 14, 900.0, 162.0, 21.0
    overall, webs, barriers = factors(height, depth, hole, web, barrier, holes, strength, weight, angle)
    extraction = 100 * holes * hole / ((holes - 1) * web + barrier + holes * hole)
    pd.DataFrame({"WebThickness": web, "DepthCover": depth, "Overall": overall, "WebsOnly": webs,
                  "BarrierPillar": barriers, "ExtractionRatio": extraction}).to_csv(path, index=False)


if __name__ == "__main__":
    main(int(sys.argv[1]), sys.argv[2])

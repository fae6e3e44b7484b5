#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How long factors() takes for a grid of panels, beside the same calculation in C++ and the three formulas by hand in NumPy.

    PYTHONPATH=build/release/lib/python /usr/bin/python3 bench/python_module.py [SIDE [STUDY_LOOP]]

SIDE x SIDE panels (default 3162, ten million) on one thread; STUDY_LOOP is the program bench/study_loop of a build with
-DTARVOKOL_BENCH=ON. The best of five runs each.
"""
import subprocess
import sys
import time

import numpy

import tarvokol

PANEL = tarvokol.Panel(Height=4.5, HoleWidth=9.5, BarrierPillarWidth=10, NumberHoles=14, CoalStrength=900, UnitWeight=162,
                       AbutmentAngle=21, SFWeb=1.6, SFBarrier=2)


def by_hand(depth, web):
    """The factors of a panel of this geometry as one would write them down for this one grid."""
    p, holes = PANEL, PANEL.NumberHoles

    def strength(width):
        return p.CoalStrength * 144 * (0.54 * width / p.Height - 0.18 * width ** 2 / (p.Height * p.CrosscutSpacing) + 0.64)

    webs = strength(web) * web
    barrier = strength(p.BarrierPillarWidth) * p.BarrierPillarWidth
    load = p.UnitWeight * depth
    span = (holes - 1) * web + holes * p.HoleWidth
    return (webs * (holes - 1) + barrier) / (load * (span + p.BarrierPillarWidth)), webs / (load * (web + p.HoleWidth)), \
        barrier / (load * (p.BarrierPillarWidth + p.HoleWidth))


def best(work):
    times = []
    for _ in range(5):
        start = time.perf_counter()
        work()
        times.append(time.perf_counter() - start)
    return min(times)


def main():
    side = int(sys.argv[1]) if len(sys.argv) > 1 else 3162
    web, depth = (axis.copy() for axis in
                  numpy.broadcast_arrays(numpy.linspace(2, 12, side)[:, None], numpy.linspace(50, 900, side)))
    print(f"{side * side} panels, one thread")
    print(f"tarvokol.factors  {best(lambda: tarvokol.factors(PANEL, threads=1, DepthCover=depth, WebThickness=web)):.3f} s")
    print(f"NumPy by hand     {best(lambda: by_hand(depth, web)):.3f} s")
    if len(sys.argv) > 2:
        told = subprocess.run([sys.argv[2], "rows", str(side)], check=True, capture_output=True, text=True).stdout
        print(f"C++ loop          {float(told):.3f} s")


if __name__ == "__main__":
    main()

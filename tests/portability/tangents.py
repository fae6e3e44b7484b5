#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the tangent with mpmath, correctly rounded, and with the C library's, over random angles.

    tests/portability/tangents.py DRIVER [--angles N] [--seed S]

DRIVER is built from tangent_driver.cpp. Prints the counts; exit status 1 if a tangent is not the nearest double
or lies more than one unit in the last place from the C library's.
"""
import argparse
import array
import math
import random
import subprocess
import sys

import mpmath

DEGREE = 0.017453292519943278


def angles(rng, count):
    for i in range(count):
        kind = i % 8
        if kind < 5:
            yield rng.uniform(0, 90) * DEGREE
        elif kind == 5:
            yield round(rng.uniform(0, 90), rng.randrange(7)) * DEGREE or 1.0
        elif kind == 6:
            yield rng.uniform(90, 3600) * DEGREE
        else:
            yield math.ldexp(rng.uniform(1, 2), rng.randrange(-27, 1023))


def tangents(driver, values, *arguments):
    done = subprocess.run([driver, *arguments], input=values.tobytes(), capture_output=True, check=True)
    return array.array("d", done.stdout)


def nearest(x):
    mpmath.mp.prec = 1300 if x > 1e4 else 200
    return float(mpmath.tan(mpmath.mpf(x)))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("driver")
    parser.add_argument("--angles", type=int, default=1000000)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    values = array.array("d", angles(random.Random(options.seed), options.angles))
    found = tangents(options.driver, values)
    whole = tangents(options.driver, values[::50], "whole")
    wrong = [x for x, tangent in zip(values, found) if tangent != nearest(x)]
    wrong_whole = [x for x, tangent in zip(values[::50], whole) if tangent != nearest(x)]
    other = sum(1 for x, tangent in zip(values, found) if tangent != math.tan(x))
    far = [x for x, tangent in zip(values, found) if abs(tangent - math.tan(x)) > math.ulp(tangent)]
    print(f"{len(values)} angles: {len(wrong)} not the nearest double, {len(wrong_whole)} of {len(whole)} by whole "
          f"numbers alone; {other} other than the C library's, {len(far)} by more than one unit in the last place")
    for x in [*wrong, *wrong_whole, *far][:10]:
        print("  ", x.hex(), x)
    return 1 if wrong or wrong_whole or far else 0


if __name__ == "__main__":
    sys.exit(main())

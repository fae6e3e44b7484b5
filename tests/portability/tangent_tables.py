#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes core/engine/tangent_tables.h and tests/reference/tangents.csv with mpmath, correctly rounded.

    tests/portability/tangent_tables.py SOURCE_FOLDER
"""
import math
import pathlib
import random
import struct
import sys

import mpmath

STEPS = 256
LAST = 202
WORDS = 46
DEGREE = 0.017453292519943278
PER_ROW = 2

mpmath.mp.prec = 2400


def parts(value, count):
    """The value as a sum of doubles, each the nearest to what the ones before leave."""
    result = []
    for _ in range(count):
        result.append(float(value))
        value -= mpmath.mpf(result[-1])
    return result


def header():
    lines = ["// Written by tests/portability/tangent_tables.py; what the tangent looks up.",
             "#pragma once", "", "#include <cstdint>", "", "namespace tarvokol::tangent_tables {", "",
             "// The tangent of i / 256 and its square, each as the sum of two doubles.",
             "struct Entry {", "    double tangent, tangent_rest, square, square_rest;", "};",
             f"inline constexpr Entry kTangents[] = {{"]
    for i in range(LAST):
        tangent = mpmath.tan(mpmath.mpf(i) / STEPS)
        figures = parts(tangent, 2) + parts(tangent * tangent, 2)
        lines.append("    {" + ", ".join(figure.hex() for figure in figures) + "},")
    lines += ["};", "", "// pi / 2 as the sum of three doubles.", "inline constexpr double kHalfPi[] = {"
              + ", ".join(figure.hex() for figure in parts(mpmath.pi / 2, 3)) + "};", "",
              f"// 2 / pi, {32 * WORDS} bits after the point, the highest first.",
              "inline constexpr std::uint32_t kTwoOverPi[] = {"]
    bits = int(mpmath.floor(2 / mpmath.pi * mpmath.mpf(2) ** (32 * WORDS)))
    words = [f"0x{bits >> (32 * (WORDS - 1 - i)) & 0xffffffff:08x}" for i in range(WORDS)]
    lines += ["    " + ", ".join(words[i:i + 8]) + "," for i in range(0, WORDS, 8)]
    lines += ["};", "", "// pi / 2, 32 bits in front of the point, then after it."]
    half_pi = int(mpmath.floor(mpmath.pi / 2 * mpmath.mpf(2) ** 352))
    words = [f"0x{half_pi >> (32 * (11 - i)) & 0xffffffff:08x}" for i in range(12)]
    lines += ["inline constexpr std::uint32_t kHalfPiWords[] = {"]
    lines += ["    " + ", ".join(words[i:i + 8]) + "," for i in range(0, 12, 8)]
    lines += ["};", "", "}  // namespace tarvokol::tangent_tables", ""]
    return "\n".join(lines)


def bits(value):
    return struct.pack(">d", value).hex()


def angles():
    rng = random.Random(14)
    yield from (math.radians(1), 1.334708 * DEGREE, 45 * DEGREE, 90 * DEGREE, 89.999999 * DEGREE, 135 * DEGREE)
    for degrees in range(1, 181):
        yield degrees * DEGREE
    for _ in range(1500):
        yield rng.uniform(0, 90) * DEGREE
    for _ in range(300):
        yield rng.uniform(90, 5000) * DEGREE
    for _ in range(200):
        yield math.ldexp(rng.uniform(1, 2), rng.randrange(-1074, 1023))
    for quarter in range(1, 200):  # the doubles beside the multiples of a quarter turn
        near = float(mpmath.pi / 4 * quarter)
        yield from (math.nextafter(near, 0), near, math.nextafter(near, math.inf))
    for i in range(1, LAST):  # the places where the table changes its entry
        yield (i - 0.5) / STEPS
        yield i / STEPS
    # Doubles whose tangent comes within 2^-50 of half a unit in the last place to a double or to a middle of two.
    for text in ["0x1.DFFFFFFFFFF1Fp-22", "0x1.67FFFFFFFA114p-18", "0x1.50486B2F87014p-5", "0x1.52C39EF070CADp-4",
                 "0x1.A33F32AC5CEB5p-3", "0x1.D696BFA988DB9p-2", "0x1.46AC372243536p-1"]:
        yield float.fromhex(text)


def table():
    return "Radians,Tangent\n" + "".join(f"{bits(x)},{bits(float(mpmath.tan(mpmath.mpf(x))))}\n" for x in angles())


def main():
    folder = pathlib.Path(sys.argv[1])
    (folder / "core/engine/tangent_tables.h").write_text(header())
    (folder / "tests/reference/tangents.csv").write_text(table())


if __name__ == "__main__":
    main()

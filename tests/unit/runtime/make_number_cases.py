#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Works out the cases of number_cases.inc with exact decimal arithmetic.

Usage: make_number_cases.py > number_cases.inc
"""
import random
import struct
from decimal import Decimal, ROUND_HALF_EVEN, ROUND_HALF_UP, getcontext

getcontext().prec = 800
getcontext().Emin = -999999
getcontext().Emax = 999999
random.seed(20240307)

PICTURES = ["##0.00", "##0.", "#.##", "#0", "0.00", "##0.0", "00"]
SCIENTIFIC = "#.00E+00"


def significant(value, digits):
    """(negative, digit string without trailing zeros, exponent) of a value at so many significant digits."""
    exact = Decimal(value)
    if exact == 0:
        return False, "0", 0
    scale = exact.adjusted() - digits + 1
    rounded = exact.quantize(Decimal(1).scaleb(scale), rounding=ROUND_HALF_EVEN)
    sign, figures, exponent = rounded.as_tuple()
    text = "".join(map(str, figures))
    power = exponent + len(text) - 1
    return bool(sign), text.rstrip("0") or "0", power


def exponent_text(power):
    return "E" + ("-" if power < 0 else "+") + "%02d" % abs(power)


def general(value, digits):
    negative, figures, power = significant(value, digits)
    if figures == "0":
        return "0"
    if power < -4 or power >= digits:
        text = figures[0] + ("." + figures[1:] if len(figures) > 1 else "") + exponent_text(power)
    else:
        text = format(Decimal(figures).scaleb(power - len(figures) + 1), "f")
        if "." in text:
            text = text.rstrip("0").rstrip(".")
    return ("-" if negative else "") + text


def picture(value, form):
    negative, figures, power = significant(value, 15)
    decimal = Decimal(figures).scaleb(power - len(figures) + 1)
    mantissa_form, _, exponent_form = form.partition("E+")
    whole_form, point, fraction_form = mantissa_form.partition(".")
    step = Decimal(1).scaleb(-len(fraction_form))
    tail = ""
    if exponent_form:
        power = decimal.adjusted() if decimal else 0
        decimal = decimal.scaleb(-power).quantize(step, rounding=ROUND_HALF_UP)
        if decimal >= 10:
            decimal = (decimal / 10).quantize(step)
            power += 1
        tail = exponent_text(power)
    else:
        decimal = decimal.quantize(step, rounding=ROUND_HALF_UP)
    whole, _, fraction = format(decimal, "f").partition(".")
    whole = whole.lstrip("0")
    if exponent_form:
        whole = whole or "0"
    whole = whole.rjust(whole_form.count("0"), "0")
    while fraction and fraction.endswith("0") and fraction_form[len(fraction) - 1] == "#":
        fraction = fraction[:-1]
    sign = "-" if negative and decimal != 0 else ""
    return sign + whole + point + fraction + tail


def neighbours(value):
    bits = struct.unpack("<q", struct.pack("<d", value))[0]
    return [struct.unpack("<d", struct.pack("<q", bits + step))[0] for step in (-2, -1, 0, 1, 2)]


def picture_values():
    values = [0.0, 1.0, 10.0, 100.0, 900.0, 1e-5, 1e14, 1e15, 1e16, 1.7e308, 5e-324, 2.2250738585072014e-308]
    for text in ("0.005", "0.015", "0.045", "0.05", "0.5", "0.995", "1.005", "1.125", "1.5", "2.5", "2.675", "9.5",
                 "9.95", "9.995", "9.9949", "99.995", "999.995", "0.0949999999999999", "999999.5", "1234.565",
                 "1234.567", "99999999.995", "125000", "124500", "125500", "999499.999", "999500", "9995000",
                 "0.00009995", "0.0001", "9.999999999999995E-05", "1.0049999999999", "0.00499999999999999",
                 "0.004999999999999999", "4503599627370497.5", "123456789012.345", "999999999999.995",
                 "9999999999999.995", "0.000123456", "1.995E-300", "9.995E+200"):
        values += neighbours(float(text))
    for _ in range(60):
        values.append(random.randint(0, 10 ** random.randint(1, 8)) / 1000)      # halves of the third decimal
        values.append(random.randint(1, 10 ** 6) * 1000 + 500 * random.randint(0, 1))
        values.append(random.random() * 10.0 ** random.randint(-12, 18))
    return [float(value) for value in values] + [-float(value) for value in values]


def general_values():
    values = picture_values()
    for power in range(-20, 25):
        values += neighbours(float("1E%d" % power))
        values.append(random.random() * 10.0 ** power)
    return values


def single_values():
    values = [0.0, 1.6, 2.0, 21.0, 50.0, 100.0, 0.1, 1e-4, 9.9999995e-5, 1e-5, 9999999.0, 1e7, 16777216.0, 3.4e38, 1e-45,
              999999.94, 0.33333334, 1234567.9]
    for _ in range(200):
        values.append(random.random() * 10.0 ** random.randint(-8, 12))
    return [struct.unpack("<f", struct.pack("<f", value))[0] for value in values for value in (value, -value)]


def parse_texts():
    texts = []
    for _ in range(300):
        digits = "".join(random.choice("0123456789") for _ in range(random.randint(1, 22)))
        place = random.randint(0, len(digits))
        text = digits[:place] + random.choice(["", "."]) + digits[place:]
        if random.random() < 0.4:
            text += random.choice("EeDd") + random.choice(["", "+", "-"]) + str(random.randint(0, 250))
        text = random.choice(["", "-", "+"]) + text
        texts.append((text, float(text.replace("d", "e").replace("D", "e")) + 0.0))
    return texts


def spaced(text):
    return "".join(c + " " * (random.random() < 0.2) for c in text)


def main():
    print("// Made by make_number_cases.py with exact decimal arithmetic.")
    print("// clang-format off")
    print("const PictureCase kPictureCases[] = {")
    for value in picture_values():
        if abs(value) < 1e20:
            print("{%s, {%s}}," % (value.hex(), ", ".join('"%s"' % picture(value, form) for form in PICTURES)))
    print("};\nconst ScientificCase kScientificCases[] = {")
    for value in picture_values():
        print('{%s, "%s"},' % (value.hex(), picture(value, SCIENTIFIC)))
    print("};\nconst GeneralCase kGeneralCases[] = {")
    for value in general_values():
        print('{%s, "%s"},' % (value.hex(), general(value, 15)))
    print("};\nconst SingleCase kSingleCases[] = {")
    for value in single_values():
        print('{%sf, "%s"},' % (value.hex(), general(value, 7)))
    print("};\nconst ParseCase kParseCases[] = {")
    for text, value in parse_texts():
        print('{"%s", %s},' % (spaced(text), value.hex()))
    print("};\n// clang-format on")


main()

# SPDX-License-Identifier: GPL-3.0-or-later
"""How the report writes figures."""


def count(value):
    return f"{value:,}"


def part(value):
    """A relative difference: "6.0E-15"."""
    if value == 0:
        return "0"
    mantissa, exponent = f"{value:.1E}".split("E")
    return f"{mantissa}E{int(exponent)}"


def percent(value, digits=1):
    return f"{100.0 * value:.{digits}f} %"


def all_digits(value):
    """A figure of the program."""
    return repr(value).removesuffix(".0")

# SPDX-License-Identifier: GPL-3.0-or-later
"""compare_risks.py OURS THEIRS: two sets of random numbers agree within what their sizes allow."""
import json
import sys


def main(ours, theirs):
    with open(ours) as a, open(theirs) as b:
        mine, other = json.load(a)["factors"], json.load(b)
    for factor, figures in other.items():
        own = mine[factor]
        pairs = [(own["mean"], figures["mean"]), (own["standard_deviation"], figures["standard_deviation"])]
        pairs += list(zip(own["quantiles"].values(), figures["quantiles"]))
        pairs += [(below["probability"], share) for below, share in zip(own["below"], figures["below"])]
        pairs += [(own["rank_correlation"][field], value) for field, value in figures["rank_correlation"].items()]
        for x, y in pairs:
            if abs(x - y) > 0.005 * max(1.0, abs(x)):
                sys.exit(f"{factor}: {x} and {y} differ")
    print("risk figures agree")


if __name__ == "__main__":
    main(*sys.argv[1:])

#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The thinnest web for each depth, from a map that is too large for one machine.

    cluster_map.py PANEL.TKL [--scheduler HOST:PORT] [--depths 100:1000:10000] [--webs 2:40:10000] [--piece 1000000]

The map has a panel for each depth and each web thickness, in the panel's units: LOW:HIGH:COUNT, 10,000 x 10,000 where nothing is
said. Prints a CSV with the thinnest web that meets the panel's target at each depth, nothing where none of them does; standard error
tells how many panels that were, how many the program refuses, and a digest of all their factors: it is the same, to the last bit, on
any number of workers and in pieces of any size.

Runs on the workers of a Dask scheduler (`dask scheduler`, and `dask worker HOST:PORT` on each machine; the module `tarvokol` is
installed on all of them), else on this machine. A worker that is lost loses nothing: its pieces are calculated again by the others.
"""
import argparse
import hashlib
import sys

import numpy
import tarvokol


def rows_of(panel, depths, webs):
    """For each depth: the thinnest web that meets the target or NaN, how many panels are refused, a digest of the factors."""
    figures = tarvokol.factors(panel, threads=1, DepthCover=depths[:, None], WebThickness=webs[None, :])
    meets = figures["WebsOnly"] >= panel.SFWeb
    thinnest = numpy.where(meets.any(axis=1), webs[meets.argmax(axis=1)], numpy.nan)
    refused = numpy.count_nonzero(figures["Message"], axis=1)
    return [(web, int(count), hashlib.sha256(row.tobytes()).digest()) for web, count, row in zip(thinnest, refused, figures)]


def pieces(rows, columns, panels):
    """[first, last) of the rows of each piece, of at most so many panels, at least one row."""
    step = max(1, panels // columns)
    return [(first, min(first + step, rows)) for first in range(0, rows, step)]


def map_on_cluster(client, panel, depths, webs, panels, told=lambda done, count: None):
    """The rows of all depths, in their order. `told` is called with the number of finished pieces and of all."""
    from distributed import as_completed
    ranges = {}
    for first, last in pieces(len(depths), len(webs), panels):
        ranges[client.submit(rows_of, panel, depths[first:last], webs, pure=False)] = first
    rows = {}
    # Each range has one place, however often it was calculated.
    for future, result in as_completed(ranges, with_results=True):
        rows[ranges[future]] = result
        told(len(rows), len(ranges))
    return [row for first in sorted(rows) for row in rows[first]]


def map_here(panel, depths, webs, panels):
    return [row for first, last in pieces(len(depths), len(webs), panels) for row in rows_of(panel, depths[first:last], webs)]


def axis(text):
    low, high, count = text.split(":")
    return numpy.linspace(float(low), float(high), int(count))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("panel")
    parser.add_argument("--scheduler")
    parser.add_argument("--depths", type=axis, default="100:1000:10000")
    parser.add_argument("--webs", type=axis, default="2:40:10000")
    parser.add_argument("--piece", type=int, default=1000000, help="panels of a piece; some 40 bytes each in the worker's memory")
    options = parser.parse_args()
    panel = tarvokol.read(options.panel)
    if options.scheduler:
        from distributed import Client
        with Client(options.scheduler) as client:
            rows = map_on_cluster(client, panel, options.depths, options.webs, options.piece)
    else:
        rows = map_here(panel, options.depths, options.webs, options.piece)
    print("DepthCover,WebThickness")
    for depth, (web, _, _) in zip(options.depths, rows):
        print(f"{float(depth)!r},{'' if numpy.isnan(web) else repr(float(web))}")
    digest = hashlib.sha256(b"".join(row for _, _, row in rows)).hexdigest()
    print(f"{len(rows) * len(options.webs)} panels, {sum(count for _, count, _ in rows)} refused, digest {digest}", file=sys.stderr)


if __name__ == "__main__":
    main()

"""Section 6 of the report: limits and known oddities of the model, with their size."""

import math

import exact
from pages import heading, paragraph, table
from reference_rows import WORKED

NAMES = (("height", "extraction height", "ft"), ("depth", "depth of cover", "ft"), ("hole", "hole width", "ft"),
         ("web", "web", "ft"), ("barrier", "barrier", "ft"), ("strength", "strength", "psi"),
         ("weight", "unit weight", "pcf"), ("angle", "abutment angle", "degrees"), ("sf_web", "target for webs", ""),
         ("sf_barrier", "target for barriers", ""))


def _percent(value, digits=1):
    return f"{100.0 * value:.{digits}f} %"


def _ranges(usual):
    return ", ".join(f"{name} {usual[key][0]:g} to {usual[key][1]:g} {unit}".strip() for key, name, unit in NAMES)


def _road_rows(found):
    for road, spread in found["part of the true width"].items():
        yield (road, *(_percent(spread[key], 3 if road.endswith("button") else 0) for key in ("smallest", "middle", "largest")),
               f"{found['not found'][road]:,} of {found['panels']:,}")


def _sizing_roads(found):
    columns = ("Width", "#smallest", "#middle", "#largest", "#not found")
    english, metric = found["English sizes"], found["Metric sizes"]
    return [
        paragraph("**Sizes by button and by curve.** Each suggested width as a part of the width that the panel's own figures and targets ask for, at the panel's own depth. 100 % is right; less is too",
                  "narrow. English panels:"),
        table(columns, list(_road_rows(english))),
        paragraph("Metric panels:"),
        table(columns, list(_road_rows(metric))),
        paragraph("The **buttons are right in both systems** (the Metric figures deviate by the two decimals of strength and unit weight in the dialog, and stand in inches). The **web curve is right in",
                  "English projects only**. The **Metric curves must not be used for design**: their vertical stress is metres times pcf, 0.3048 of the true one, so the width is about a third of what",
                  "is needed, and it is drawn in inches. The **barrier curve is a trend in either system**: it takes the target for webs, keeps the wedge at the project's depth, and its span adds",
                  "inches of hole to feet or metres of web. \"Not found\" counts the panels at which the iteration gives up; Metric runs start at the number of metres taken as inches, from where Newton's method",
                  "sometimes steps below zero."),
    ]


def _other_rows(found, program):
    more, shown, webs = found["one web more"]["barrier"], found["shown decimals"], found["thicker webs"]
    over_90 = WORKED[0]._replace(angle=120.0)
    figures = program.ask("analysis", [WORKED[0], over_90])
    length_term = 0.18 * 200.0 / 1e6 / 0.54
    degree_error = abs(180.0 * 0.017453292519943278 / math.pi - 1.0)
    tenth = exact.analyse(WORKED[0]._replace(depth=WORKED[0].depth * 1.001))[2] / exact.analyse(WORKED[0])[2]
    return [
        ("The barrier's size takes n webs into its span, the analysis n − 1",
         f"the barrier comes out up to {_percent(more['largest'] - 1)} wider, {_percent(more['middle'] - 1)} in the middle; never narrower"),
        ("The button reads strength and unit weight with the two decimals of their boxes",
         f"nothing in English; Metric webs change by {_percent(shown['Metric']['smallest'] - 1, 2)} to +{_percent(shown['Metric']['largest'] - 1, 2)}"),
        ("A thicker web can lower Overall: it adds load of weak pillar to a panel that a strong barrier carries",
         f"one foot more lowered it in {_percent(webs['falls'] / webs['panels'])} of the panels, by {_percent(webs['largest fall'])} at most; judge webs by Webs ONLY"),
        ("Overall and Webs ONLY carry no abutment load", "the whole of it goes to the barrier; at the wide span of example 7.1 it is two thirds of the barrier's load"),
        ("The length term in a pillar of 1,000,000",
         f"takes at most {length_term:.1E} of the strength of a pillar of 200 ft".replace("E-0", "E-")),
        ("Degrees to radians by 3.14159265358979 / 180", f"the angle is {degree_error:.1E} of itself too small".replace("E-0", "E-")),
        ("An abutment angle above 90 degrees from a project file is not refused",
         f"example 7.1 with 120 degrees: side load {figures[1][12]:,.0f} instead of {figures[0][12]:,.0f} lbs/ft, Barrier Pillar {figures[1][2]:.2f} instead of {figures[0][2]:.2f}: meaningless"),
        ("A height curve of an English project always runs from 3 to 12 ft", "whatever the project's height is"),
        ("For comparison: one per mille more depth", f"changes Barrier Pillar of example 7.1 by {_percent(float(tenth) - 1, 2)}"),
    ]


def oddity_blocks(found, program, usual):
    return [
        heading(2, "6. Limits and known oddities of the model, with their size"),
        paragraph("The model is closed and simple: one depth, one strength, equal webs; no roof, floor, slips, second seam, water or time. Some of its habits are kept on purpose, so that figures stay",
                  f"comparable. How much they matter was measured over panels as they are mined: {_ranges(usual)}, 2 to 20 holes."),
        *_sizing_roads(found),
        paragraph("**Others:**"),
        table(("Oddity", "Size"), _other_rows(found, program)),
    ]

"""The validation report: docs/validation.md and the help topic that the manual holds, too."""

import examples
from comparison import GROUPS
from oddities import USUAL
from pages import code, heading, items, markdown, paragraph, table, topic
from panels import RANGES
from report_oddities import oddity_blocks

TITLE = "Validation of the calculation"
SEE_ALSO = (("model.htm", "The model: formulas and units"), ("sizing.htm", "The sizing solver"),
            ("curves.htm", "Curves: what is varied and how"), ("things_to_know.htm", "Things to know"))


def count(value):
    return f"{value:,}"


def part(value):
    """A relative difference: "6.0E-15"."""
    if value == 0:
        return "0"
    mantissa, exponent = f"{value:.1E}".split("E")
    return f"{mantissa}E{int(exponent)}"


def percent(value, digits=2):
    return f"{100.0 * value:.{digits}f} %"


def _bits(found):
    other = found["other bits"]
    if other["by the tangent"] + other["otherwise"] == 0:
        return "every figure of every one is the same to the last bit"
    return (f"{count(other['by the tangent'])} differ in the last digits, each because the tangent of the C library is one unit off in "
            f"its last place there; {count(other['otherwise'])} for another reason")


def _held(breach):
    return "no breach" if breach["breaches"] == 0 else f"{count(breach['breaches'])} breaches"


def _largest(found, key):
    return found["largest relative error"][key]["value"]


def figure(value):
    """All digits of a figure of the program."""
    return repr(value).removesuffix(".0")


def summary(full, worked):
    analysis, sizes, curves = full["analysis"], full["sizes"], full["curves"]
    factors = max(_largest(analysis, name) for name in ("Overall", "Webs ONLY", "Barrier Pillar"))
    return [
        heading(1, TITLE),
        paragraph(
            "Whether a web or a barrier is wide enough is decided with the figures of TARVO-KOL. This report lets somebody who does not know us judge how",
            "far they can be trusted: what was compared, with what, how large the largest difference was, and what that means in the",
            "pit. It checks the **calculation**: that the program does what its formulas say. It cannot check the **model**, that is, whether",
            "the formulas describe your seam; section 6 and the reference notes tell what the model leaves out."),
        table(("Question", "Amount", "#Largest difference", "What it means"), (
            ("Do the stability factors follow the formulas?", f"{count(analysis['panels'])} random panels",
             part(factors), "right to more than 13 digits; the report shows three"),
            ("Do the suggested sizes solve their equations?", f"{count(sizes['panels'])} random panels",
             part(sizes["largest error"]["web"]["value"]),
             "webs are right to seven digits, less than the thickness of a hair; barriers: section 3"),
            ("Are the curves the same calculation?", f"{count(curves['points'])} points of {count(curves['curves'])} curves",
             "0" if curves["other bits"]["otherwise"] == 0 else str(curves["other bits"]["otherwise"]),
             "each point is what results or sizing give for that input"),
            ("Do English and Metric agree?", f"{count(full['unit systems']['panels'])} random panels",
             part(full["unit systems"]["converted"]["value"]), "below 1E-4: 1.600 becomes 1.6001 at most; section 5 says why"),
            ("Do suggested sizes reach their targets?",
             f"{count(full['sizes fed back']['webs'])} webs, {count(full['sizes fed back']['barriers'])} barriers",
             part(full["sizes fed back"]["web, unexplained"]["value"]),
             "for webs, beyond the differences that the model states; section 5"),
            ("Does the program agree with a calculation by hand?", f"{len(worked)} worked examples of the reference notes, line by line",
             part(max(example.largest_difference() for example in worked)), "half a unit in the sixteenth digit is the best that a computer can do"),
        )),
    ]


def method():
    return [
        heading(2, "1. What was compared with what"),
        paragraph(
            "A second program, written in another language from the formulas in the reference notes, shares no line with TARVO-KOL. It stands in",
            "`tests/validation` and has two parts. The **exact model** works with 40 decimal digits and never rounds in between: its figures are the truth",
            "that the formulas define. The **step model** repeats the calculation in the computer's own arithmetic, rounding where the",
            "program must round: its figures must be the program's to the last bit. The first tells how large the rounding errors are, the second finds any slip, however",
            "small. The tangent is worked out by a third party's library (mpmath) to 45 digits."),
        paragraph("Random panels are drawn from these ranges, evenly over the powers of two, far beyond what is mined; in Metric panels about the same, in",
                  "m, MPa and kN/m3. Half of them hold figures as they are typed, with up to three decimals, half hold all 16 digits. Holes go from 2 to 20, every tenth panel has a pillar length of",
                  f"{RANGES['length'][0]:,.0f} to {RANGES['length'][1]:,.0f}, the others 1,000,000."),
        table(("Input", "#from", "#to", "Unit"), [
            (name, f"{RANGES[key][0]:,g}", f"{RANGES[key][1]:,g}", unit) for name, key, unit in (
                ("extraction height", "height", "ft"), ("depth of cover", "depth", "ft"), ("hole width", "hole", "ft"),
                ("web thickness", "web", "ft"), ("barrier width", "barrier", "ft"), ("coal strength", "strength", "psi"),
                ("unit weight", "weight", "pcf"), ("abutment angle", "angle", "degrees"),
                ("target for webs", "sf_web", ""), ("target for barriers", "sf_barrier", ""))]),
    ]


def analysis_blocks(found):
    meaning = {
        "Overall": "", "Webs ONLY": "the web's width passes through a sum and a difference with the hole width; thin webs beside wide holes lose most",
        "Barrier Pillar": "near 90 degrees the tangent enlarges the rounding of the angle",
        "span and pillar widths": "as Webs ONLY",
    }
    return [
        heading(2, "2. Stability factors"),
        paragraph(f"{count(found['panels'])} random panels, {count(found['metric'])} of them Metric, {count(found['wide'])} with a wide span and the others cut off.",
                  f"Beside the step model {_bits(found)}. Beside the exact model the largest relative errors are:"),
        table(("Figure", "#Largest relative error", "Where it comes from"),
              [(name, part(_largest(found, name)), meaning.get(name, "")) for name in GROUPS]),
        paragraph("An error of 1E-14 in a factor of 1.60 changes its fourteenth decimal. To change the factor as much by the inputs, the depth of 100 m would have to be",
                  "wrong by less than the size of an atom. Whatever error a factor has comes from survey and strength, not from the arithmetic."),
    ]


def sizing_blocks(found):
    errors = found["largest error"]
    return [
        heading(2, "3. Suggested sizes"),
        paragraph(f"{count(found['panels'])} random panels, web and barrier each. Beside the step model {_bits(found)}.",
                  "The equations are quadratic, so the exact model has the root itself, without any iteration:"),
        table(("Size", "#Largest error", "Where it comes from"), (
            ("web", part(errors["web"]["value"]), "relative; the result is kept in single precision, which has seven digits"),
            ("barrier", part(errors["barrier"]["value"]), "relative, at barriers of a fraction of an inch, which nobody builds; see the next line"),
            ("barrier, inches", part(errors["barrier, inches"]["value"]),
             "inches; the iteration stops when load and capacity differ by 0.001 lb per inch, which is some thousandths of an inch under strange loads"),
        )),
        paragraph(f"The iteration found no size for {count(found['webs not found'])} webs and {count(found['barriers not found'])} barriers of these panels, although the equation",
                  "always has a root: from a start far on the wrong side Newton's method steps below zero. The program says so and gives −1, never a wrong width. Section 6 tells how often that",
                  "happens with panels as they are mined."),
    ]


def curve_blocks(found):
    return [
        heading(2, "4. Curves"),
        paragraph(f"{count(found['curves'])} curves of all five kinds with {count(found['points'])} points, half of them with the built-in range of 50 and 100 percent, half with others:",
                  f"beside the step model {_bits(found)}. Every point is stored in single precision, so it is the factor or the width to seven digits. The range is walked by",
                  f"adding the step, so rounding decides whether the last point still belongs to it: {count(found['curves of 50 points'])} of these curves have 50 points where most have 51."),
    ]


def invariant_blocks(full):
    units, span, fed = full["unit systems"], full["span limit"], full["sizes fed back"]
    monotony, scaling, holes = full["monotony"], full["scaling"], full["number of holes"]
    return [
        heading(2, "5. What must hold whatever the figures"),
        paragraph("These checks need no second model: they compare the program with itself. Each ran over", f"{count(units['panels'])} random panels of its own."),
        table(("What must hold", "Found", "Remarks"), (
            ("A panel told in Metric units has the English factors",
             f"largest difference {part(units['converted']['value'])}",
             f"the conversion figures 145.0377, 6.3663022639200495 and 3.280839895013123 do not quite agree with 144 and 1000: together they raise every factor by {part(units['factor of the conversion figures'])}. "
             f"Beyond that the systems differ by {part(units['unexplained']['value'])}"),
            ("The same with the pillar length 1,000,000 in both systems",
             f"{part(units['length 1000000 in both']['value'])} more at most",
             "1,000,000 m is longer than 1,000,000 ft; a barrier of 512 ft feels it, one of 50 ft a tenth of that"),
            ("At a span of exactly twice the reach of the wedge the cut-off formula holds", _held(span["cut-off formula at equality"]),
             f"both formulas give the same load there, to {part(span['formulas at equality']['value'])}"),
            ("From below, the load comes up to the limit without a step", f"{part(span['below, beside 1 - d squared']['value'])}",
             "short of the limit by a part d, the load is less by d squared"),
            ("From above, it stays at the full wedge", _held(span["above, beside the full wedge"]), ""),
            ("A suggested web, entered, gives its target", f"unexplained {part(fed['web, unexplained']['value'])}",
             f"explained: the solver counts the hole around the web's end, leaves out the length term, and in Metric the conversion figures enter; together up to {part(fed['web, from the target']['value'])}"),
            ("A suggested barrier, entered, gives its target or more", f"{_held(fed['barrier below its target but for the length term'])}; unexplained {part(fed['barrier, unexplained']['value'])}",
             "the solver's span has one web more than the panel, which is on the safe side (section 6); the length term, which it leaves out, is not"),
            ("Higher seam: every factor falls", _held(monotony["height"]), "pillars not wider than long"),
            ("Deeper cover: every factor falls", _held(monotony["depth"]), ""),
            ("Stronger coal: every factor rises", _held(monotony["strength"]), ""),
            ("Thicker web: Webs ONLY rises, Barrier Pillar does not", _held(monotony["web"]),
             f"Overall may fall, and did in {percent(monotony['Overall falls with a thicker web'] / monotony['panels'], 1)} of the panels; section 6"),
            ("A panel k times as large under rock of a k-th of the weight has the same factors",
             f"{_held(scaling['larger panel, powers of two'])}; {part(scaling['larger panel, any k']['value'])}",
             "to the last bit for k = 1/16 to 16 in powers of two; rounding for any other k from 1/4 to 4"),
            ("Coal k times as strong gives k times the factors", _held(scaling["stronger coal, powers of two"]), "to the last bit"),
            ("Another number of holes leaves Webs ONLY as it is", _held(holes["Webs ONLY"]), "to the last bit"),
            ("In a wide panel it leaves Barrier Pillar as it is", _held(holes["Barrier Pillar"]),
             f"{count(holes['wide both times'])} panels were wide with both numbers; to the last bit"),
            ("The same for the suggested web, and for the suggested barrier of a wide panel",
             f"{_held(holes['suggested web'])}, {_held(holes['suggested barrier'])}", "to the last bit"),
        )),
    ]


def _panel_example(number, example):
    rows = [(line.quantity, line.working, f"{examples.hand_text(line.hand)} {line.unit}".strip(),
             "" if line.program is None else figure(line.program)) for line in example.lines]
    return [
        heading(3, f"7.{number} {example.title}"),
        paragraph(example.given),
        table(("Quantity", "By hand", "#Result", "#Program"), rows),
        paragraph(f"Largest relative difference of a line: {part(example.largest_difference())}."),
    ]


def _newton(number, example):
    rows = [(str(step.step), f"{step.width:,.6f}", f"{step.value:.6E}", f"{step.slope:.6E}") for step in example.steps]
    difference = examples.exact.relative_error(example.program, example.root)
    return [
        heading(3, f"7.{number} Newton's method, {example.title} (note \"Sizing equations and their iteration\", section 3)"),
        table(("#Step", "#B (in)", "#f(B)", "#f'(B)"), rows),
        paragraph(f"Root by the quadratic formula: {examples.hand_text(example.root)} in. Program: {example.program!r} in after {example.steps[-1].step} steps,",
                  f"a relative difference of {part(difference)}; the result is a single."),
    ]


def example_blocks(panels, program):
    sized = examples.sizing_examples(program)
    blocks = [
        heading(2, "7. Worked examples"),
        paragraph("\"By hand\" is worked out in exact decimal arithmetic from the figures as typed. Intermediate results are written with eight digits and carried on with all; results are shown with ten.",
                  "\"Program\" has all digits that the program holds. Symbols are those of the topic \"The model: formulas and units\"."),
    ]
    for number, example in enumerate(panels, 1):
        blocks += _panel_example(number, example)
    for number, example in enumerate(sized, len(panels) + 1):
        blocks += _newton(number, example)
    number = len(panels) + len(sized) + 1
    sizes = examples.size_rows(program)
    blocks += [
        heading(3, f"7.{number} Suggested sizes of the notes"),
        table(("Case", "#Web by hand (in)", "#Program (in)", "#Barrier by hand (in)", "#Program (in)"), [
            (row.case, f"{row.hand[0]:.6f}", f"{row.program[0]:.6f}", f"{row.hand[1]:.6f}", f"{row.program[1]:.6f}")
            for row in sizes]),
        heading(3, f"7.{number + 1} Other panels of the notes and the example projects"),
        table(("Panel", "#Overall by hand", "#Program", "#Webs ONLY by hand", "#Program", "#Barrier Pillar by hand", "#Program"), [
            (row.case, *(text for pair in zip(row.hand, row.program) for text in (f"{pair[0]:.8f}", f"{pair[1]:.8f}")))
            for row in examples.factor_rows(program)]),
    ]
    return blocks


def repeat_blocks(record):
    return [
        heading(2, "8. How to repeat it"),
        paragraph("In a built source tree, on Debian with python3 and python3-mpmath:"),
        code("tests/validation/run --full      # all figures of this report again, some minutes",
             "tests/validation/run --check     # the short run that belongs to the tests, seconds"),
        paragraph(f"The full run draws {count(record['panels'])} panels for each section from fixed seeds, the same ones on every machine, and writes its figures to",
                  "`tests/validation/recorded_figures.json` and this report from them. The short run has the first thousand panels of each section; it fails if a figure leaves its limit, is not the",
                  "recorded one, or if this report, the help topic or the reference rows are not what the programs make today. `tests/reference` holds 500 panels with all figures to 17 digits for",
                  "whoever wants to check a program of his own."),
    ]


def blocks(record, program):
    full, worked = record["full"], examples.panel_examples(program)
    return [
        *summary(full, worked), *method(), *analysis_blocks(full["analysis"]), *sizing_blocks(full["sizes"]),
        *curve_blocks(full["curves"]), *invariant_blocks(full), *oddity_blocks(full["oddities"], program, USUAL),
        *example_blocks(worked, program), *repeat_blocks(record),
    ]


def files(record, program):
    """Path in the project and text of each file."""
    page = blocks(record, program)
    return {"docs/validation.md": markdown(page), "resources/help/validation.htm": topic(page, SEE_ALSO)}

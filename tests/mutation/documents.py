# SPDX-License-Identifier: GPL-3.0-or-later
"""Slips in what is no C++: forms, help topics, desktop entries, scripts."""
import re

from mutations import Mutation

KINDS = ("form", "document", "entry", "script")

_FORM_NUMBER = re.compile(r"<(number|double|width|height|x|y)>(-?[\d.]+)</\1>")
_FORM_FLAG = re.compile(r"<bool>(true|false)</bool>")
_FORM_BUDDY = re.compile(r'<property name="buddy">.*?</property>')


def _next_number(number):
    """A number that is as good to look at, of as many decimals."""
    decimals = len(number.partition(".")[2])
    step = 10 ** -decimals
    return f"{float(number.replace(',', '')) + step:.{decimals}f}"


def form_faults(text):
    """A form: sizes, ranges, steps, flags, and which control a label stands for."""
    for found in _FORM_NUMBER.finditer(text):
        replacement = str(int(found.group(2)) * 2 + 1) if found.group(2).isdigit() else _next_number(found.group(2))
        yield Mutation("form", found.start(2), found.end(2), replacement)
    for found in _FORM_FLAG.finditer(text):
        yield Mutation("form", found.start(1), found.end(1), "false" if found.group(1) == "true" else "true")
    for found in _FORM_BUDDY.finditer(text):
        yield Mutation("form", found.start(), found.end(), "")


_TAG = re.compile(r"<[^>]*>")
_TOPIC_NUMBER = re.compile(r"(?<![\w.&#,])\d+(?:,\d{3})*(?:\.\d+)?(?![\w;,]|\.\d)")


def topic_faults(text):
    """A help topic: the numbers that a reader sees, and where a link or a word of the index leads."""
    body = text.find("<body")
    shown = _TAG.sub(lambda found: " " * len(found.group()), text)
    for found in _TOPIC_NUMBER.finditer(shown, max(body, 0)):
        yield Mutation("document", found.start(), found.end(), _next_number(found.group()))
    links = list(re.finditer(r'(?:href|ref)="(\w+\.htm)"', text))
    for one, two in zip(links, links[1:]):
        if one.group(1) != two.group(1):
            yield Mutation("document", one.start(1), one.end(1), two.group(1))


def contents_faults(text):
    """The help's contents and index: a word that leads to its neighbour's topic."""
    links = list(re.finditer(r'ref="(\w+\.htm)"', text))
    for one, two in zip(links, links[1:]):
        if one.group(1) != two.group(1):
            yield Mutation("document", one.start(1), one.end(1), two.group(1))


def entry_faults(text):
    """A desktop entry or a list of types: a letter of a value, a whole line."""
    for found in re.finditer(r"^(?!\[|#)(?P<key>[A-Za-z-]+)=(?P<value>.*\w)", text, re.MULTILINE):
        last = found.end("value") - 1
        yield Mutation("entry", last, last + 1, "q" if text[last] != "q" else "z")
        yield Mutation("entry", found.start(), min(text.find("\n", found.end()) + 1, len(text)) or len(text), "")
    for found in re.finditer(r'(?<=[ <])[\w-]+="([^"]*\w)[^"\w]*"', text):
        if found.group().startswith(("xmlns", "version", "encoding")):
            continue
        last = found.end(1) - 1
        yield Mutation("entry", last, last + 1, "q" if text[last] != "q" else "z")


_SCRIPT_CHANGES = (
    (re.compile(r" \|\| (?:exit|return)(?: \d)?"), ""),
    (re.compile(r"(?<=\[ )-([nz])(?= )"), {"-n": "-z", "-z": "-n"}),
    (re.compile(r"(?<=\[ )-([efdr])(?= )"), {"-e": "-d", "-f": "-d", "-d": "-f", "-r": "-d"}),
    (re.compile(r"(?<= )(?:&&|\|\|)(?= )"), {"&&": "||", "||": "&&"}),
    (re.compile(r"(?<=exit )\d|(?<=return )\d"), {"0": "1", "1": "0", "2": "1"}),
    (re.compile(r" >&2"), ""),
    (re.compile(r"(?<= )-(?:eq|ne|lt|gt)(?= )"), {"-eq": "-ne", "-ne": "-eq", "-lt": "-gt", "-gt": "-lt"}),
)
_SCRIPT_STATEMENT = re.compile(r"^[ ]*((?:trap|export|rm|wait|kill|umask|shift|usage|cat|cd|mkdir)\b(?!\()[^\\\n]*|set -euo pipefail)$",
                               re.MULTILINE)


def script_faults(text):
    """A script: a failure that is not passed on, a test turned round, a line that is forgotten."""
    comments = [(found.start(), found.end()) for found in re.finditer(r"^[ ]*#.*$", text, re.MULTILINE)]
    for pattern, replacement in _SCRIPT_CHANGES:
        for found in pattern.finditer(text):
            if any(begin <= found.start() < end for begin, end in comments):
                continue
            other = replacement if isinstance(replacement, str) else replacement.get(found.group())
            if other is not None:
                yield Mutation("script", found.start(), found.end(), other)
    for found in _SCRIPT_STATEMENT.finditer(text):
        yield Mutation("script", found.start(1), found.end(1), ":")

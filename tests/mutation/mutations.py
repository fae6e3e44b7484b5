# SPDX-License-Identifier: GPL-3.0-or-later
"""Turned operators of source text that a test should notice: found in the text, without a compiler."""
import re
from dataclasses import dataclass

KINDS = ("constant", "comparison", "arithmetic", "condition", "dropped", "order", "text")


@dataclass(frozen=True)
class Mutation:
    """One change: the characters begin..end of a text give way to `replacement`."""

    kind: str
    begin: int
    end: int
    replacement: str

    def applied_to(self, text):
        return text[: self.begin] + self.replacement + text[self.end :]


@dataclass(frozen=True)
class Region:
    """A stretch of a source text that is no code: a comment, a literal or a line of the preprocessor."""

    kind: str  # "comment", "string", "raw", "character", "preprocessor"
    begin: int
    end: int


# The order decides: what stands in a literal is no comment, and the other way round.
_REGIONS = re.compile(
    r"""(?P<raw>R"(?P<mark>[^()\s\\]*)\(.*?\)(?P=mark)")"""
    r"""|(?P<comment>//[^\n]*|/\*.*?\*/)"""
    r"""|(?P<preprocessor>^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*)"""
    r"""|(?P<string>"(?:[^"\\\n]|\\.)*")"""
    r"""|(?P<character>(?<![0-9A-Za-z_])'(?:[^'\\\n]|\\.)+')""",
    re.DOTALL | re.MULTILINE | re.VERBOSE,
)


def regions(text):
    return [Region(found.lastgroup if found.lastgroup != "mark" else "raw", found.start(), found.end())
            for found in _REGIONS.finditer(text)]


def code_only(text, found):
    """The text with blanks in place of everything that is no code; every place stays where it is."""
    pieces, at = [], 0
    for region in found:
        pieces.append(text[at : region.begin])
        pieces.append(re.sub(r"[^\n]", " ", text[region.begin : region.end]))
        at = region.end
    return "".join(pieces) + text[at:]


_COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
_ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="}
_CONNECTIVES = {"&&": "||", "||": "&&"}


# The layout puts blanks around binary operators and none into template arguments.
def _operators(code, kind, changes):
    pattern = "|".join(re.escape(sign) for sign in sorted(changes, key=len, reverse=True))
    for found in re.finditer(r"(?<= )(?:" + pattern + r")(?=[ \n])", code):
        if _opens_template(code, found.start()):
            continue
        yield Mutation(kind, found.start(), found.end(), changes[found.group()])


def _opens_template(code, at):
    return code[:at].rstrip().endswith(("template", "operator"))


# A number written in binary stands in a table that a program made; its last digits are below what anybody can notice.
_NUMBER = re.compile(r"(?<![\w.'])(?<!p[-+])(?:0[xX][0-9A-Fa-f]+|(?:\d[\d']*\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)(?=[fFuUlL]{0,3}(?![\w.]))")


def _changed_number(number):
    if re.fullmatch(r"\d+", number):
        return str(int(number) + 1)
    if number.lower().startswith("0x"):
        return "0x" + format(int(number, 16) ^ 1, "X")
    if re.fullmatch(r"[\d']+", number):
        return str(int(number.replace("'", "")) + 1)
    value = float(number.replace("'", ""))
    return repr(value * 1.25 if value else 1.0)


def _constants(code):
    for found in _NUMBER.finditer(code):
        yield Mutation("constant", found.start(), found.end(), _changed_number(found.group()))
    for found in re.finditer(r"\b(true|false)\b", code):
        other = "false" if found.group() == "true" else "true"
        yield Mutation("constant", found.start(), found.end(), other)


def closing(code, opening):
    """Where the bracket that opens at `opening` closes; None if it does not."""
    depth = 0
    for at in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[at], 0)
        if depth == 0:
            return at
    return None


def _conditions(text, code):
    for found in re.finditer(r"\b(?:if|while) \(", code):
        begin = found.end() - 1
        end = closing(code, begin)
        if end is None or ";" in code[begin:end] or re.search(r"[^=!<>]=[^=]", code[begin:end]):
            continue  # the condition declares something
        yield Mutation("condition", begin, end + 1, "(!" + text[begin : end + 1] + ")")


_STATEMENT = re.compile(
    r"""^(?P<indent>[ ]+)
        (?:if[ ]\(.*\)[ ])?                                  # with its condition
        (?:(?:\+\+|--)[\w.:\[\]>()-]+;                       # ++count;
         |[\w.:\[\]>()*&-]+[ ][-+*/|&^]?=[ ][^=].*;          # place = value;
         |[\w.:>\[\]()-]+\(.*\);                             # Call(arguments);
         |return;)$""",
    re.VERBOSE,
)
_NO_STATEMENT = re.compile(r"^\s*(?:return\b(?!;)|static_assert|using|else|case|default|delete\b|throw\b|for\b|while\b)")


def _statement_lines(code):
    """Begin and end of the lines that hold one whole statement."""
    at = 0
    for line in code.splitlines(keepends=True):
        bare = line.rstrip()
        whole = bare.count("(") == bare.count(")") and bare.count("{") == bare.count("}")
        if whole and _STATEMENT.match(_without_literals(bare)) and not _NO_STATEMENT.match(bare):
            yield at, at + len(line)
        at += len(line)


# Literals have become blanks; a call may be left with many of them.
def _without_literals(line):
    indent = len(line) - len(line.lstrip())
    return line[:indent] + re.sub(r" +", " ", line[indent:])


def _begins_statement(code, begin):
    """False on the later lines of a statement, and on the branch of a condition or loop that has no braces."""
    return code[:begin].rstrip().endswith((";", "{", "}"))


def _is_branch(code, begin):
    return code[:begin].rstrip().endswith((")", "else"))


def _starts_else(code, end):
    return code[end:].lstrip().startswith("else")


def _dropped(code):
    for begin, end in _statement_lines(code):
        branch = _is_branch(code, begin)
        if _starts_else(code, end) or not (branch or _begins_statement(code, begin)):
            continue
        indent = len(code[begin:end]) - len(code[begin:end].lstrip(" "))
        yield Mutation("dropped", begin + indent, end - 1, ";" if branch else "")


_ASSIGNED = re.compile(r"(?:[\w.\[\]()]*?)(\w+)(?:\[[^]]*\]|\([^)]*\))? [-+*/|&^]?= ")


def _assigned(line):
    found = _ASSIGNED.match(line)
    return found.group(1) if found else None


def _order_matters(one, two):
    """True if one line names what the other assigns, or if they call two functions."""
    first, second = _assigned(one), _assigned(two)
    if first is None and second is None:
        calls = [re.match(r"\w+\(", line) for line in (one, two)]
        return all(calls) and calls[0].group() != calls[1].group()
    if first is not None and second is not None and first == second:
        return one != two
    return any(name is not None and re.search(rf"\b{name}\b", line) for name, line in ((first, two), (second, one)))


def _swapped_lines(text, code):
    lines = [line for line in _statement_lines(code) if _begins_statement(code, line[0])]
    for (begin, middle), (second, end) in zip(lines, lines[1:]):
        one, two = text[begin:middle], text[second:end]
        same_indent = len(one) - len(one.lstrip()) == len(two) - len(two.lstrip())
        if middle != second or not same_indent or "return;" in one + two or _starts_else(code, end):
            continue
        if not _order_matters(one.strip(), two.strip()):
            continue
        yield Mutation("order", begin, end, two + one)


# What takes its arguments in any order.
_EITHER_ORDER = re.compile(r"\b(?:std::min|std::max|std::swap|std::hypot)$")


def _swapped_arguments(code):
    for found in re.finditer(r"\(([A-Za-z_][\w.]*), ([A-Za-z_][\w.]*)\)", code):
        first, second = found.groups()
        if first != second and not _EITHER_ORDER.search(code[max(found.start() - 12, 0) : found.start()]):
            yield Mutation("order", found.start(), found.end(), f"({second}, {first})")


_TEXT_KEPT = re.compile(r"^\s*(?:static_assert|extern)\b")


def _texts(text, found):
    for region in found:
        if region.kind != "string":
            continue
        line_begin = text.rfind("\n", 0, region.begin) + 1
        if _TEXT_KEPT.match(text[line_begin : region.begin]):
            continue
        letters = [at for at in range(region.begin + 1, region.end - 1)
                   if text[at].isalpha() and text[at].isascii() and text[at - 1] not in "\\%"]
        if not letters or "\\x" in text[region.begin : region.end]:
            continue
        place = letters[-1]
        yield Mutation("text", place, place + 1, "q" if text[place] != "q" else "z")


def source_mutations(text):
    """All changes of a C++ text."""
    found = regions(text)
    code = code_only(text, found)
    changes = []
    changes += _operators(code, "comparison", _COMPARISONS)
    changes += _operators(code, "condition", _CONNECTIVES)
    changes += _operators(code, "arithmetic", _ARITHMETIC)
    changes += _constants(code)
    changes += _conditions(text, code)
    changes += _dropped(code)
    changes += _swapped_lines(text, code)
    changes += _swapped_arguments(code)
    changes += _texts(text, found)
    return changes


def form_mutations(text):
    """All changes of a form's file: the texts that it shows."""
    changes = []
    for found in re.finditer(r"<string>([^<]*[A-Za-z])([^A-Za-z<]*)</string>", text):
        place = found.end(1) - 1
        changes.append(Mutation("text", place, place + 1, "q" if text[place] != "q" else "z"))
    return changes


def line_of(text, mutation):
    return text.count("\n", 0, mutation.begin) + 1


def lines_around(text, mutation):
    """The changed lines before and after the change, each as one line of text."""
    begin = text.rfind("\n", 0, mutation.begin) + 1
    end = text.find("\n", max(mutation.end - 1, mutation.begin))
    end = len(text) if end < 0 else end
    before = text[begin:end]
    after = text[begin : mutation.begin] + mutation.replacement + text[mutation.end : end]
    return " ".join(before.split()), " ".join(after.split())

# SPDX-License-Identifier: GPL-3.0-or-later
"""Slips that a person makes in C++: something forgotten, or a neighbour taken. Found in the text, without a compiler."""
import re

from mutations import Mutation, closing, code_only, regions

KINDS = ("reset", "flush", "lock", "early return", "escape", "connect", "arguments", "neighbour", "shift")

_LINE_BEGIN = re.compile(r"^[ \t]+(?=\S)", re.MULTILINE)


def statements(code):
    """Begin and end of the statements that begin a line: up to the semicolon outside of brackets."""
    for found in _LINE_BEGIN.finditer(code):
        before = code[: found.start()].rstrip()
        if before and before[-1] not in ";{}:":
            continue  # a later line of a statement, or the branch of a condition
        end = _semicolon(code, found.end())
        if end is not None:
            yield found.end(), end


def _semicolon(code, begin):
    depth = 0
    for at in range(begin, len(code)):
        depth += {"(": 1, "{": 1, "[": 1, ")": -1, "}": -1, "]": -1}.get(code[at], 0)
        if depth < 0:
            return None
        if depth == 0 and code[at] == ";":
            return at + 1
        if depth == 0 and code[at] == "}" and not code[at + 1 :].lstrip(" ").startswith((";", ")", ",", ".")):
            return None  # the body of a function, a loop or a record


# What brings a thing back to its beginning: between two files, two runs, two clicks.
_RESET = re.compile(
    r"""(?:[\w.:\[\]()>-]+(?:\.|->))?
        (?:clear|reset|resize[ ]?\(0\)|Clear\w*|Reset\w*|Forget\w*|erase)\(.*\);$
        |[\w.:\[\]>-]+[ ]=[ ](?:\{\}|0|0\.0|false|-1|nullptr|std::nullopt|\w+\(\));$""",
    re.VERBOSE | re.DOTALL)
# What brings bytes to where they belong, and says goodbye to a file.
_FLUSH = re.compile(r"(?:if \()?[^;=]*(?:\b|_|[a-z])(?:fsync|fdatasync|[Ff]lush|Flush\w*|Sync\w*|sync|close|Close\w*|EndDoc)\(.*;$", re.DOTALL)
_LOCK = re.compile(r"(?:const )?std::(?:lock_guard|scoped_lock|unique_lock|shared_lock)\b.*;$|(?:[\w.]+ = )?(?:Q\w*Locker|FileLock)\b.*;$|[\w.]+\.lock\(\);$")
_EARLY = re.compile(r"if \(.*\)\s+(?:return\b.*|continue|break|throw\b.*|Raise\(.*\));$", re.DOTALL)
_CONNECT = re.compile(r"(?:QObject::)?connect\(.*\);$", re.DOTALL)
_DROPPED = (("reset", _RESET), ("flush", _FLUSH), ("lock", _LOCK), ("early return", _EARLY), ("connect", _CONNECT))


# What only tells of a function; without it nothing compiles.
_DECLARATION = re.compile(r"^(?:virtual|static|explicit|void|bool|using|friend)\b|\) (?:const )?noexcept;$|&&|\)(?: const)?(?: noexcept)? = (?:0|default|delete);$")


def _forgotten(code):
    for begin, end in statements(code):
        statement = code[begin:end]
        if code[end:].lstrip().startswith("else") or (_DECLARATION.search(statement) and not statement.startswith("if")):
            continue
        for kind, pattern in _DROPPED:
            if pattern.match(statement):
                yield Mutation(kind, begin, end, "")


# What makes a text harmless for who reads it: a shell, a page, a table.
_ESCAPE = re.compile(r"\b(?:\w+::)?(?:\w*Escaped?|Quoted\w*|\w*Quoted|QuotedForShell|AsCsv\w*|CsvCell)\(")


def _escapes(text, code):
    for found in _ESCAPE.finditer(code):
        end = closing(code, found.end() - 1)
        inner = text[found.end() : end] if end else ""
        if not inner or _declares(code, found.start(), end) or "," in code[found.end() : end]:
            continue
        yield Mutation("escape", found.start(), end + 1, inner)
    for found in re.finditer(r"\.toHtmlEscaped\(\)", code):
        yield Mutation("escape", found.start(), found.end(), "")


def _declares(code, begin, end):
    """True for the name in a declaration or definition: a type stands before it."""
    before = code[max(begin - 40, 0) : begin].rstrip(" ")
    return bool(re.match(r"[\w>&*]", before[-1:])) and not re.search(r"\b(?:return|throw|else|case)$", before)


_SIMPLE = re.compile(r"-?[\w.]+(?:->\w+|::\w+)*(?:\[\w+\])?$")


def _pieces(code, opening, end):
    """Begin and end of the arguments between two brackets, without the blanks around them."""
    depth, begin, pieces = 0, opening + 1, []
    for at in range(opening + 1, end + 1):
        if depth == 0 and (code[at] == "," or at == end):
            piece = code[begin:at]
            left = len(piece) - len(piece.lstrip())
            pieces.append((begin + left, begin + len(piece.rstrip())))
            begin = at + 1
        depth += {"(": 1, "{": 1, "[": 1, ")": -1, "}": -1, "]": -1}.get(code[at], 0)
    return pieces


_EITHER_ORDER = re.compile(r"\b(?:min|max|swap|hypot|connect|tie|if|for|while|switch)$")


# Neighbours of one look are of one type more often than not; where they are not, the compiler says so.
def _arguments(code):
    for found in re.finditer(r"\w[\w>]*(?=\()", code):
        if _EITHER_ORDER.search(found.group()):
            continue
        opening = found.end()
        end = closing(code, opening)
        if end is None or _declares(code, found.start(), end):
            continue
        places = _pieces(code, opening, end)
        for (one, one_end), (two, two_end) in zip(places, places[1:]):
            first, second = code[one:one_end], code[two:two_end]
            alike = first[:1].isdigit() == second[:1].isdigit()
            if first != second and alike and _SIMPLE.match(first) and _SIMPLE.match(second):
                yield Mutation("arguments", one, two_end, second + code[one_end:two] + first)


# Words that stand beside each other in the trade: who writes one may have meant the other.
_PAIRS = [("Web", "Barrier"), ("web", "barrier"), ("Width", "Height"), ("width", "height"), ("Width", "Length"),
          ("Feet", "Inches"), ("Feet", "Meters"), ("Psi", "Kpa"), ("Pounds", "Tons"), ("English", "Metric"),
          ("Imperial", "Metric"), ("Applied", "Total"), ("Hole", "Web"), ("Depth", "Height"), ("Row", "Column"),
          ("row", "column"), ("First", "Last"), ("first", "last"), ("Lowest", "Highest"), ("lowest", "highest"),
          ("lower", "upper"), ("Lower", "Upper"), ("least", "most"), ("left", "right"), ("top", "bottom"), ("Left", "Right"),
          ("Top", "Bottom"), ("Min", "Max"), ("front", "back"), ("first", "second"),
          ("Old", "New"), ("old", "new"), ("Source", "Target"), ("source", "target"), ("from", "to"), ("x", "y"), ("X", "Y"),
          ("Read", "Written"), ("one", "two"), ("_0", "_1"), ("1", "2"), ("hits", "samples"), ("Ini", "Fin")]
_NEIGHBOURS = {}
for _pair in _PAIRS:
    for _one, _other in (_pair, _pair[::-1]):
        _NEIGHBOURS.setdefault(_one, []).append(_other)
_PARTS = re.compile(r"[A-Z]?[a-z]+|[A-Z]+(?![a-z])|_?\d+")


def _other_names(name):
    """The names that a word's neighbour makes of a name: SFWeb gives SFBarrier."""
    return [name[: part.start()] + other + name[part.end() :]
            for part in _PARTS.finditer(name) for other in _NEIGHBOURS.get(part.group(), ())]


# Names that are declared, called or assigned to may not be known otherwise; what is read is.
def _neighbours(code):
    words = list(re.finditer(r"\b[A-Za-z_]\w*\b", code))
    known = {word.group() for word in words}
    for word in words:
        after = code[word.end() : word.end() + 3]
        if re.match(r" [-+*/|&^]?=[^=]", after) or after[:1] in "{:" or _declares(code, word.start(), word.end()):
            continue
        for other in _other_names(word.group()):
            if other in known:
                yield Mutation("neighbour", word.start(), word.end(), other)


# The first and the last of many: where a range begins, where it ends.
_SHIFTS = (
    (re.compile(r"(?<=\w)\.size\(\)(?=[;) ])"), ".size() - 1"),
    (re.compile(r"(?<=[\w\])]) [-+] 1\b(?![.'\w])"), ""),
    (re.compile(r"(?<=[\w)]\.begin\(\))(?=[,) ])"), " + 1"),
    (re.compile(r"(?<=for \(int i = )0(?=;)"), "1"),
    (re.compile(r"(?<=for \(std::size_t i = )0(?=;)"), "1"),
)


def _shifts(code):
    for pattern, replacement in _SHIFTS:
        for found in pattern.finditer(code):
            yield Mutation("shift", found.start(), found.end(), replacement)


def source_faults(text):
    """All slips of a C++ text."""
    code = code_only(text, regions(text))
    faults = []
    faults += _forgotten(code)
    faults += _escapes(text, code)
    faults += _arguments(code)
    faults += _neighbours(code)
    faults += _shifts(code)
    return faults

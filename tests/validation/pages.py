# SPDX-License-Identifier: GPL-3.0-or-later
"""A page of Markdown, as simple as the report needs it: headings, paragraphs, lists, tables, indented code; bold and code
inside texts. And the same page as a help topic."""

import html
import re


def table(columns, rows):
    """A table; a column whose name begins with "#" holds figures and is set to the right."""
    names = [column.lstrip("#") for column in columns]
    marks = ["---:" if column.startswith("#") else "---" for column in columns]
    return "\n".join("| " + " | ".join(row) + " |" for row in (names, marks, *rows))


def _inline(text):
    escaped = html.escape(text, quote=False)
    escaped = re.sub(r"\*\*(.+?)\*\*", r"<b>\1</b>", escaped)
    return re.sub(r"`(.+?)`", r"<code>\1</code>", escaped)


def _topic_table(lines):
    names, marks, *rows = [[cell.strip() for cell in line.strip("|").split("|")] for line in lines]
    sides = ["right" if mark.endswith(":") else "left" for mark in marks]
    head = "".join(f'<th align="{side}">{_inline(name)}</th>' for side, name in zip(sides, names))
    made = ['<table border="1" cellspacing="0" cellpadding="4">', f"<thead><tr>{head}</tr></thead>"]
    for row in rows:
        cells = (f'<td align="right">{_inline(cell)}</td>' if side == "right" else f"<td>{_inline(cell)}</td>"
                 for side, cell in zip(sides, row))
        made.append("<tr>" + "".join(cells) + "</tr>")
    return "\n".join([*made, "</table>"])


def _topic_list(block):
    points = re.split(r"^- ", block, flags=re.MULTILINE)[1:]
    return "\n".join(["<ul>", *(f"<li>{_inline(' '.join(point.split()))}</li>" for point in points), "</ul>"])


def _topic_block(block):
    heading = re.match(r"(#+) (.*)", block)
    if heading:
        level = len(heading[1])
        return f"<h{level}>{_inline(heading[2])}</h{level}>"
    if block.startswith("|"):
        return _topic_table(block.split("\n"))
    if block.startswith("- "):
        return _topic_list(block)
    if block.startswith("    "):
        lines = (html.escape(line[4:], quote=False) for line in block.split("\n"))
        return "<pre>" + "\n".join(lines) + "</pre>"
    return f"<p>{_inline(block)}</p>"


TOPIC = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Strict//EN" "http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd">
<html xmlns="http://www.w3.org/1999/xhtml">
<head>
<meta http-equiv="Content-Type" content="text/html; charset=utf-8" />
<title>{title}</title>
<link rel="stylesheet" type="text/css" href="help.css" />
</head>
<body>
{body}
<p><b>See also:</b> {see_also}</p>
</body>
</html>
"""


def topic(markdown, see_also):
    """The page as a help topic; its first line is the title. `see_also`: file and title of other topics."""
    blocks = re.split(r"\n\n+", markdown.rstrip("\n"))
    links = ", ".join(f'<a href="{file}">{html.escape(name)}</a>' for file, name in see_also)
    return TOPIC.format(title=html.escape(blocks[0].lstrip("# ")), body="\n".join(map(_topic_block, blocks)),
                        see_also=links)

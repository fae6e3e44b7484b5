"""A page as a list of blocks, written as Markdown and as a help topic. In texts `**` marks bold and a grave accent code."""

import html
import re


def heading(level, text):
    return ("heading", level, text)


def paragraph(*texts):
    return ("paragraph", " ".join(texts))


def items(*texts):
    return ("items", texts)


def code(*lines):
    return ("code", lines)


def table(columns, rows):
    """Columns by their names; a name that begins with "#" stands for figures and is set to the right."""
    return ("table", columns, rows)


def _markdown_table(columns, rows):
    names = [column.lstrip("#") for column in columns]
    marks = ["---:" if column.startswith("#") else "---" for column in columns]
    return "\n".join("| " + " | ".join(row) + " |" for row in (names, marks, *rows))


def markdown(blocks):
    parts = []
    for kind, *rest in blocks:
        if kind == "heading":
            parts.append("#" * rest[0] + " " + rest[1])
        elif kind == "paragraph":
            parts.append(rest[0])
        elif kind == "items":
            parts.append("\n".join(f"- {text}" for text in rest[0]))
        elif kind == "code":
            parts.append("\n".join(f"    {line}" for line in rest[0]))
        else:
            parts.append(_markdown_table(*rest))
    return "\n\n".join(parts) + "\n"


def _inline(text):
    escaped = html.escape(text, quote=False)
    escaped = re.sub(r"\*\*(.+?)\*\*", r"<b>\1</b>", escaped)
    return re.sub(r"`(.+?)`", r"<code>\1</code>", escaped)


def _topic_table(columns, rows):
    align = ["right" if column.startswith("#") else "left" for column in columns]
    head = "".join(f'<th align="{side}">{_inline(column.lstrip("#"))}</th>' for side, column in zip(align, columns))
    lines = ['<table border="1" cellspacing="0" cellpadding="4">', f"<thead><tr>{head}</tr></thead>"]
    for row in rows:
        cells = (f'<td align="right">{_inline(cell)}</td>' if side == "right" else f"<td>{_inline(cell)}</td>"
                 for side, cell in zip(align, row))
        lines.append("<tr>" + "".join(cells) + "</tr>")
    return "\n".join([*lines, "</table>"])


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


def topic(blocks, see_also):
    """A help topic; the first block is its title. `see_also`: file and title of other topics."""
    parts = []
    for kind, *rest in blocks:
        if kind == "heading":
            parts.append(f"<h{rest[0]}>{_inline(rest[1])}</h{rest[0]}>")
        elif kind == "paragraph":
            parts.append(f"<p>{_inline(rest[0])}</p>")
        elif kind == "items":
            parts.append("<ul>\n" + "\n".join(f"<li>{_inline(text)}</li>" for text in rest[0]) + "\n</ul>")
        elif kind == "code":
            parts.append("<pre>" + "\n".join(html.escape(line, quote=False) for line in rest[0]) + "</pre>")
        else:
            parts.append(_topic_table(*rest))
    links = ", ".join(f'<a href="{file}">{html.escape(name)}</a>' for file, name in see_also)
    return TOPIC.format(title=html.escape(blocks[0][2]), body="\n".join(parts), see_also=links)

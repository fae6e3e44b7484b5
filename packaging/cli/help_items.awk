# SPDX-License-Identifier: GPL-3.0-or-later
# Takes one help page apart; see reference.sh. An item begins at column 3, its text stands after two blanks or more, or on
# the lines below at a deeper column. Examples are no items.
function flush() {
    if (left != "") item(left, text)
    left = text = ""
}

function item(left, text,    spelling, rest, choices, argument, number) {
    if (section == "Subcommands:") {
        print "command|" left "|" text
        return
    }
    number = left ~ / \.\.\./ ? "many" : left ~ / REQUIRED/ ? "one" : "optional"
    gsub(/ \.\.\.| REQUIRED/, "", left)
    if (match(left, /:\{[^}]*\}/)) {
        choices = substr(left, RSTART + 2, RLENGTH - 3)
        gsub(/,/, " ", choices)
        left = substr(left, 1, RSTART - 1)
    }
    sub(/:[A-Z]+( in \[.*\])?$/, "", left)
    spelling = argument = left
    sub(/ .*/, "", spelling)
    sub(/ $/, "", spelling)
    if (!sub(/^[^ ]* +/, "", argument)) argument = ""
    sub(/^TEXT$/, "WORD", argument)
    gsub(/,/, " ", spelling)
    if (section == "Positionals:")
        print "positional|" command "|" spelling "|" number "|" choices "|" text
    else if (section == "Options:")
        print "option|" command "|" spelling "|" argument "|" choices "|" text "|" (number == "many" ? "again" : "")
}

# "A, B, C." as words divided by blanks.
function words(list) {
    gsub(/,/, "", list)
    sub(/\.$/, "", list)
    return list
}

/^[A-Z][A-Za-z]*:$/ { flush(); section = $0; next }
/^Fields, in the project's units: / { flush(); section = "Fields"; fields = substr($0, 33); next }
section == "Fields" && /^[A-Z]/ { fields = fields " " $0; next }
section == "Fields" && fields != "" { print "fields|" command "|" words(fields); fields = "" }
/^Units of [a-z-]+: / {
    flush()
    section = "Units"
    quantity = substr($3, 1, length($3) - 1)
    sub(/^[^:]*: /, "")
    print "units|" command "|" quantity "|" words($0)
    next
}
section == "" { next }
/^  [^ ]/ {
    flush()
    left = substr($0, 3)
    if (match(left, /  +/)) {
        text = substr(left, RSTART + RLENGTH)
        left = substr(left, 1, RSTART - 1)
    }
    next
}
/^ +[^ ]/ {
    sub(/^ +/, "")
    text = text (text == "" ? "" : " ") $0
}
END { flush() }

# SPDX-License-Identifier: GPL-3.0-or-later
# The reference of reference.sh as the sections COMMANDS and OPTIONS of a man page.
function escaped(text) {
    gsub(/\\/, "\\e", text)
    gsub(/`/, "", text)
    gsub(/-/, "\\-", text)
    sub(/^\./, "\\\\\\&.", text)
    return text
}

function spelled(spellings,    list, count, i, line) {
    count = split(spellings, list, " ")
    for (i = 1; i <= count; ++i) line = line (i > 1 ? "\\fR, \\fB" : "") escaped(list[i])
    return "\\fB" line "\\fR"
}

function with_argument(argument, choices) {
    choices = escaped(choices)
    if (gsub(/ /, "\\fR|\\fB", choices) || choices != "") return " \\fB" choices "\\fR"
    return argument == "" ? "" : " \\fI" escaped(argument) "\\fR"
}

# In lines of 78 characters at most, as a man page's source has them; none begins as a macro does.
function folded(text,    words, count, i, line, lines) {
    count = split(text, words, " ")
    for (i = 1; i <= count; ++i) {
        if (line != "" && length(line " " words[i]) > 78) {
            lines = lines line "\n"
            line = ""
        }
        if (line == "" && words[i] ~ /^[.\047]/) words[i] = "\\&" words[i]
        line = line (line == "" ? "" : " ") words[i]
    }
    return lines line
}

function sentence(text) {
    return folded(escaped(text) (text ~ /\.$/ ? "" : "."))
}

BEGIN { FS = "|" }
$1 == "command" {
    order[++commands] = $2
    texts[$2] = $3
}
$1 == "positional" {
    usage[$2] = usage[$2] ($4 == "optional" ? " [\\fI" escaped($3) "\\fR]" : " \\fI" escaped($3) "\\fR" ($4 == "many" ? " ..." : ""))
    items[$2] = items[$2] ".TP\n\\fI" escaped($3) "\\fR\n" sentence($6) "\n"
}
$1 == "option" {
    items[$2] = items[$2] ".TP\n" spelled($3) with_argument($4, $5) ($7 != "" ? " ..." : "") "\n" sentence($6) "\n"
}
END {
    print ".SH OPTIONS"
    printf "%s", items[""]
    print ".SH COMMANDS"
    for (i = 1; i <= commands; ++i) {
        name = order[i]
        print ".SS " name
        print "\\fBtarvokol\\-cli " name "\\fR [\\fIOPTIONS\\fR]" usage[name]
        print ".PP"
        print sentence(texts[name])
        printf "%s", items[name]
    }
}

# SPDX-License-Identifier: GPL-3.0-or-later
# What the completions make of the name of an argument, for the languages of all shells.

# True of a name that stands for a path.
function is_path(argument) {
    return argument ~ /^(PATH|FILE|PROJECT)$/ || argument ~ /^(FILE|ROWS)\.[A-Za-z]+$/
}

# True of a value that is a field or begins with the name of one: "FIELD", "FIELD=VALUES" and "A,B=R".
function begins_with_field(argument) {
    return argument ~ /^FIELD(=|$)/ || argument ~ /^A,B=/
}

# The beginnings that fields give such a value: "Height=", or "Height," for the first of a pair.
function field_words(argument, fields,    mark) {
    if (argument == "FIELD") return fields
    mark = argument ~ /^A,B=/ ? "," : "="
    gsub(/ |$/, mark "&", fields)
    return fields
}

# True of a value whose field is followed by a distribution.
function is_distributed(argument) {
    return argument == "FIELD=DISTRIBUTION"
}

# The beginnings of distributions, "normal: lognormal: ...", of a help that begins with them as "FIELD=normal:MEAN:SD, ... or
# data:FILE.csv:COLUMN; ...". Nothing for another help.
function distribution_words(help,    list, count, i, words) {
    if (help !~ /^FIELD=[a-z]+:/) return ""
    sub(/^FIELD=/, "", help)
    sub(/;.*/, "", help)
    count = split(help, list, /, | or /)
    for (i = 1; i <= count; ++i) words = words (i > 1 ? " " : "") substr(list[i], 1, index(list[i], ":"))
    return words
}

# Every field with every distribution: "Height=normal: Height=lognormal: ...".
function distributed_fields(fields, distributions,    field, kind, m, n, i, j, words) {
    m = split(fields, field, " ")
    n = split(distributions, kind, " ")
    for (i = 1; i <= m; ++i)
        for (j = 1; j <= n; ++j) words = words (words == "" ? "" : " ") field[i] "=" kind[j]
    return words
}

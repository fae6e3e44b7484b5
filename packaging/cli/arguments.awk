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

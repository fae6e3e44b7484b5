# SPDX-License-Identifier: GPL-3.0-or-later
# The reference of reference.sh as a completion for zsh.
function quoted(text) {
    gsub(/'/, "'\\''", text)
    return "'" text "'"
}

function bare(text) {
    gsub(/[\[\]`]/, "", text)
    return text
}

# What stands after an option or at a place: one of the choices, or a file.
function values(choices) {
    return choices != "" ? "(" choices ")" : "_files"
}

BEGIN {
    FS = "|"
    print "#compdef tarvokol-cli"
    print "# Completion of tarvokol-cli for zsh, made of its help."
}
$1 == "command" {
    order[++count] = $2
    commands = commands "        " quoted($2 ":" bare($3)) "\n"
}
$1 == "positional" {
    mark = $4 == "many" ? "*:" : $4 == "one" ? ":" : "::"
    specifications[$2] = specifications[$2] " \\\n            " quoted(mark bare($3) ":" values($5))
}
$1 == "option" {
    spelled = split($3, spellings, " ")
    for (i = 1; i <= spelled; ++i) {
        text = spellings[i] "[" bare($6) "]"
        if ($4 != "") text = text ":" bare($4) ":" values($5)
        specifications[$2] = specifications[$2] " \\\n            " quoted(text)
    }
}
END {
    print "_tarvokol-cli() {"
    print "    local -a commands"
    print "    commands=("
    printf "%s", commands
    print "    )"
    print "    if (( CURRENT == 2 )); then"
    print "        _describe command commands"
    print "        _arguments" specifications[""]
    print "        return"
    print "    fi"
    print "    shift words"
    print "    (( CURRENT-- ))"
    print "    case $words[1] in"
    for (i = 1; i <= count; ++i)
        printf "        %s)\n            _arguments%s\n            ;;\n", order[i], specifications[order[i]]
    print "    esac"
    print "}"
    print "_tarvokol-cli \"$@\""
}

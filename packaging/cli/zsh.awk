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

# A colon would end what is done.
function in_action(words) {
    gsub(/:/, "\\:", words)
    return words
}

# What stands after an option or at a place: one of the choices, the beginning of a field's value, a unit of the quantity that
# was given, or a file. Of a number there is nothing to offer.
function values(command, argument, choices) {
    if (choices != "") return "(" choices ")"
    if (is_distributed(argument))
        return "{if compset -P \"*=\"; then compadd -S \"\" -- " in_action(distributions) "; else compadd -S \"\" -- " \
               field_words(argument, fields) "; fi}"
    if (begins_with_field(argument)) return "{compadd -S \"\" -- " field_words(argument, fields) "}"
    if (argument == "UNIT") return "{case $line[1] in " units[command] " esac}"
    return is_path(argument) ? "_files" : " "
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
# The same for every command; one may ask for a field without a list in its help.
$1 == "fields" { fields = $3 }
$1 == "units" { units[$2] = units[$2] "(" $3 ") compadd -- " $4 " ;; " }
$1 == "option" && is_distributed($4) && distribution_words($6) != "" { distributions = distribution_words($6) }
$1 == "positional" || $1 == "option" { items[++lines] = $0 }
function add_positional(    mark) {
    mark = $4 == "many" ? "*:" : $4 == "one" ? ":" : "::"
    specifications[$2] = specifications[$2] " \\\n            " quoted(mark bare($3) ":" values($2, $3, $5))
}
function add_option(    spelled, spellings, i, text) {
    spelled = split($3, spellings, " ")
    for (i = 1; i <= spelled; ++i) {
        text = ($7 != "" ? "*" : "") spellings[i] ($4 != "" && spellings[i] ~ /^--/ ? "=" : "") "[" bare($6) "]"
        if ($4 != "") text = text ":" bare($4) ":" values($2, $4, $5)
        specifications[$2] = specifications[$2] " \\\n            " quoted(text)
    }
}
END {
    for (number = 1; number <= lines; ++number) {
        $0 = items[number]
        if ($1 == "option") add_option()
        else add_positional()
    }
    print "_tarvokol-cli() {"
    print "    local -a commands line"
    print "    commands=("
    printf "%s", commands
    print "        \x27help:What a command does, takes and gives\x27"
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
    print "        help)\n            _describe command commands\n            ;;"
    print "    esac"
    print "}"
    print "_tarvokol-cli \"$@\""
}

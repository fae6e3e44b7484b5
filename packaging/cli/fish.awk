# SPDX-License-Identifier: GPL-3.0-or-later
# The reference of reference.sh as a completion for fish.
function quoted(text) {
    gsub(/\\/, "\\\\", text)
    gsub(/'/, "\\'", text)
    return "'" text "'"
}

function condition(command) {
    return command == "" ? "__fish_use_subcommand" : "__fish_seen_subcommand_from " command
}

BEGIN {
    FS = "|"
    print "# Completion of tarvokol-cli for fish, made of its help."
}
$1 == "command" {
    print "complete -c tarvokol-cli -f -n __fish_use_subcommand -a " $2 " -d " quoted($3)
}
$1 == "command" { commands = commands " " $2 }
# The same for every command; one may ask for a field without a list in its help.
$1 == "fields" { fields = $3 }
$1 == "units" {
    print "complete -c tarvokol-cli -f -n " quoted(condition($2) "; and __fish_seen_subcommand_from " $3) " -a " quoted($4)
}
$1 == "positional" && $5 != "" {
    print "complete -c tarvokol-cli -n " quoted(condition($2)) " -a " quoted($5)
}
$1 == "positional" { positionals[$2] = positionals[$2] " " $3 }
$1 == "option" && is_distributed($4) && distribution_words($6) != "" { distributions = distribution_words($6) }
$1 == "option" { items[++lines] = $0 }
function print_option(    line, count, spellings, i) {
    line = "complete -c tarvokol-cli -n " quoted(condition($2))
    count = split($3, spellings, " ")
    for (i = 1; i <= count; ++i)
        line = line (spellings[i] ~ /^--/ ? " -l " substr(spellings[i], 3) : " -s " substr(spellings[i], 2))
    if ($5 != "") line = line " -x -a " quoted($5)
    else if (is_distributed($4))
        line = line " -x -a " quoted(field_words($4, fields) " " distributed_fields(fields, distributions))
    else if (begins_with_field($4)) line = line " -x -a " quoted(field_words($4, fields))
    else if ($4 != "") line = line (is_path($4) ? " -r" : " -x")
    print line " -d " quoted($6)
}
END {
    for (number = 1; number <= lines; ++number) {
        $0 = items[number]
        print_option()
    }
    print "complete -c tarvokol-cli -f -n __fish_use_subcommand -a help -d " quoted("What a command does, takes and gives")
    print "complete -c tarvokol-cli -f -n \"__fish_seen_subcommand_from help\" -a " quoted(substr(commands, 2))
}

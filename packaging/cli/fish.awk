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
$1 == "positional" && $5 != "" {
    print "complete -c tarvokol-cli -n " quoted(condition($2)) " -a " quoted($5)
}
$1 == "option" {
    line = "complete -c tarvokol-cli -n " quoted(condition($2))
    count = split($3, spellings, " ")
    for (i = 1; i <= count; ++i)
        line = line (spellings[i] ~ /^--/ ? " -l " substr(spellings[i], 3) : " -s " substr(spellings[i], 2))
    if ($5 != "") line = line " -x -a " quoted($5)
    else if ($4 != "") line = line " -r"
    print line " -d " quoted($6)
}

# SPDX-License-Identifier: GPL-3.0-or-later
# The reference of reference.sh as a completion for bash.
BEGIN { FS = "|" }
$1 == "command" {
    order[++count] = $2
    commands = commands " " $2
}
$1 == "option" {
    options[$2] = options[$2] " " $3
    spelled = split($3, spellings, " ")
    for (i = 1; i <= spelled; ++i)
        if ($5 != "")
            choices = choices "        \"" $2 " " spellings[i] "\") words=\"" $5 "\" ;;\n"
        else if ($4 != "")
            paths = paths "        \"" $2 " " spellings[i] "\") paths=yes ;;\n"
}
$1 == "positional" && $5 != "" { first[$2] = $5 }
END {
    print "# Completion of tarvokol-cli for bash, made of its help."
    print "_tarvokol_cli() {"
    print "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command='' words='' paths=''"
    print "    [ \"$COMP_CWORD\" -eq 1 ] || command=${COMP_WORDS[1]}"
    print "    case \"$command $previous\" in"
    printf "%s%s", choices, paths
    print "    esac"
    print "    if [ -z \"$words$paths\" ]; then"
    print "        case \"$COMP_CWORD $command $current\" in"
    printf "            1*) words=\"%s%s\" ;;\n", substr(commands, 2), options[""]
    for (i = 1; i <= count; ++i) {
        printf "            *\" %s -\"*) words=\"%s\" ;;\n", order[i], substr(options[order[i]], 2)
        if (first[order[i]] != "") printf "            \"2 %s \"*) words=\"%s\" ;;\n", order[i], first[order[i]]
    }
    print "        esac"
    print "    fi"
    print "    if [ -n \"$words\" ]; then"
    print "        mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")"
    print "        return"
    print "    fi"
    print "    compopt -o filenames 2>/dev/null"
    print "    mapfile -t COMPREPLY < <(compgen -f -- \"$current\")"
    print "}"
    print "complete -F _tarvokol_cli tarvokol-cli"
}

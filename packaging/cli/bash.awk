# SPDX-License-Identifier: GPL-3.0-or-later
# The reference of reference.sh as a completion for bash.
function add_value(command, spelling, words, path) {
    values = values "        \"" command " " spelling "\") " (words != "" ? "words=\"" words "\"" : path ? "paths=yes" : "none=yes") " ;;\n"
}
BEGIN { FS = "|" }
$1 == "command" {
    order[++count] = $2
    commands = commands " " $2
}
# The same for every command; one may ask for a field without a list in its help.
$1 == "fields" { fields = $3 }
$1 == "units" { units = units "            \"3 " $2 " " $3 "\") words=\"" $4 "\" ;;\n" }
$1 == "option" {
    options[$2] = options[$2] " " $3
    taking[++takers] = $2 "|" $3 "|" $4 "|" $5
    if (is_distributed($4)) {
        drawing = drawing (drawing == "" ? "" : " | ") "\"" $2 " " $3 "\""
        if (distribution_words($6) != "") distributions = distribution_words($6)
    }
}
$1 == "positional" && $5 != "" { first[$2] = $5 }
$1 == "positional" && is_path($3) { reads_files[$2] = 1 }
END {
    for (i = 1; i <= takers; ++i) {
        split(taking[i], option, "|")
        if (option[3] == "") continue
        spelled = split(option[2], spellings, " ")
        words = begins_with_field(option[3]) ? field_words(option[3], fields) : option[4]
        for (j = 1; j <= spelled; ++j) add_value(option[1], spellings[j], words, is_path(option[3]))
    }
    print "# Completion of tarvokol-cli for bash, made of its help."
    print "_tarvokol_cli() {"
    print "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} before='' command=''"
    print "    local words='' paths='' none='' front='' option=''"
    print "    [ \"$COMP_CWORD\" -lt 2 ] || before=${COMP_WORDS[COMP_CWORD-2]}"
    print "    [ \"$COMP_CWORD\" -lt 3 ] || option=${COMP_WORDS[COMP_CWORD-3]}"
    print "    [ \"$COMP_CWORD\" -eq 1 ] || command=${COMP_WORDS[1]}"
    print "    # \"--format=csv\" is one word or three, as the user has set up the shell."
    print "    [ \"$current\" != = ] || { option=$before before=$previous previous== current=''; }"
    print "    # The field stands before its \"=\"."
    print "    case \"$command $option\" in"
    print "        " drawing ") [ \"$previous\" != = ] || words=\"" distributions "\" ;;"
    print "    esac"
    print "    if [ -n \"$words\" ]; then"
    print "        :"
    print "    elif [ \"$previous\" = = ] && [[ $before == --* ]]; then"
    print "        previous=$before"
    print "    elif [ \"$previous\" = = ] || [ \"$previous\" = : ] || [ \"$current\" = : ]; then"
    print "        none=yes"
    print "    elif [[ $current == --*=* ]]; then"
    print "        previous=${current%%=*} front=${current%%=*}= current=${current#*=}"
    print "    fi"
    print "    case \"$command $previous\" in"
    printf "%s", values
    print "        \"help \"*) words=\"" substr(commands, 2) "\" ;;"
    print "    esac"
    print "    if [ -z \"$words$paths$none\" ]; then"
    print "        case \"$COMP_CWORD $command $previous\" in"
    printf "%s", units
    print "        esac"
    print "    fi"
    print "    if [ -z \"$words$paths$none\" ]; then"
    print "        case \"$COMP_CWORD $command $current\" in"
    printf "            1*) words=\"%s help%s\" ;;\n", substr(commands, 2), options[""]
    for (i = 1; i <= count; ++i) {
        printf "            *\" %s -\"*) words=\"%s\" ;;\n", order[i], substr(options[order[i]], 2)
        if (first[order[i]] != "") printf "            \"2 %s \"*) words=\"%s\" ;;\n", order[i], first[order[i]]
        if (!reads_files[order[i]]) printf "            *\" %s \"*) none=yes ;;\n", order[i]
    }
    print "        esac"
    print "    fi"
    print "    [ -z \"$none\" ] || return 0"
    print "    if [ -n \"$words\" ]; then"
    print "        mapfile -t COMPREPLY < <(compgen -P \"$front\" -W \"$words\" -- \"$current\")"
    print "        case \"${COMPREPLY[*]}\" in *[=,:]) compopt -o nospace 2>/dev/null ;; esac"
    print "        return 0"
    print "    fi"
    print "    compopt -o filenames 2>/dev/null"
    print "    mapfile -t COMPREPLY < <(compgen -P \"$front\" -f -- \"$current\")"
    print "}"
    print "complete -F _tarvokol_cli tarvokol-cli"
}

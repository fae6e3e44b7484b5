#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# reference.sh CLI: what `CLI --help` and the help of every command tell, one line an item, fields divided by "|":
#   command|NAME|TEXT
#   option|COMMAND|SPELLINGS|ARGUMENT|CHOICES|TEXT|"again" for one that may be given again
#   positional|COMMAND|NAME|many, one or optional|CHOICES|TEXT
#   fields|COMMAND|WORDS: what an argument that begins with FIELD or is a pair, "A,B", begins with
#   units|COMMAND|QUANTITY|WORDS: what UNIT may be once QUANTITY is given
# COMMAND is empty for the options of the program itself; spellings and choices are divided by blanks. The man page and the
# completions are made of this, so that they cannot differ from the program.
set -euo pipefail
cli=$1
here=$(dirname "$0")

"$cli" --help | awk -v command= -f "$here/help_items.awk"
for command in $("$cli" --help | awk -v command= -f "$here/help_items.awk" | sed -n 's/^command|\([^|]*\)|.*/\1/p'); do
    "$cli" "$command" --help | awk -v command="$command" -f "$here/help_items.awk"
done

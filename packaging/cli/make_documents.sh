#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# make_documents.sh CLI MAN_FOLDER FOLDER: writes the man page of the command line, its head and tail taken from MAN_FOLDER,
# and its completions for bash, zsh and fish into FOLDER.
set -euo pipefail
cli=$1 man=$2 folder=$3
here=$(dirname "$0")
mkdir -p "$folder"
reference=$folder/reference.txt
"$here/reference.sh" "$cli" > "$reference"
{
    cat "$man/tarvokol-cli.1.head"
    awk -f "$here/man.awk" "$reference"
    cat "$man/tarvokol-cli.1.tail"
} > "$folder/tarvokol-cli.1"
gzip -9nfk "$folder/tarvokol-cli.1"
awk -f "$here/arguments.awk" -f "$here/bash.awk" "$reference" > "$folder/tarvokol-cli"
awk -f "$here/arguments.awk" -f "$here/zsh.awk" "$reference" > "$folder/_tarvokol-cli"
awk -f "$here/arguments.awk" -f "$here/fish.awk" "$reference" > "$folder/tarvokol-cli.fish"

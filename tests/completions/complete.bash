#!/usr/bin/env bash
# What an interactive bash offers where the tab key is pressed behind LINE, one
# a line, sorted:
#
#   complete.bash COMPLETIONS LINE
#
# COMPLETIONS is the file to try, on the qvgraph that is first in PATH.
set -euo pipefail

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cat >"$work/rc" <<RC
source '$1'
offered() {
    _qvgraph "\$@"
    [ "\${#COMPREPLY[@]}" -eq 0 ] || printf '%s\n' "\${COMPREPLY[@]}" >'$work/offered'
}
complete -F offered qvgraph
RC
# Tab; control-U, so that nothing runs; and the end.
printf '%s\t\025\nexit\n' "$2" |
    HISTFILE='' bash --noprofile --rcfile "$work/rc" -i >"$work/log" 2>&1
[ ! -e "$work/offered" ] || LC_ALL=C sort -u "$work/offered"

#!/usr/bin/env bash
# Prints the completions that an interactive bash offers for the tab key after LINE, one
# per line, sorted:
#
#   complete.bash COMPLETIONS LINE
#
# COMPLETIONS is the file to test. It completes the first qvgraph in PATH.
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
# Types a tab, then control-U so that nothing runs, then exits.
printf '%s\t\025\nexit\n' "$2" |
    HISTFILE='' bash --noprofile --rcfile "$work/rc" -i >"$work/log" 2>&1
[ ! -e "$work/offered" ] || LC_ALL=C sort -u "$work/offered"

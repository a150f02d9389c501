# Prints the completions that an interactive zsh offers for the tab key after LINE, one
# per line, sorted:
#
#   zsh -f complete.zsh COMPLETIONS LINE
#
# COMPLETIONS is the directory of the function to test. It completes the first qvgraph
# in PATH.
emulate -R zsh
zmodload zsh/zpty

work=$(mktemp -d) || exit
trap 'rm -rf $work' EXIT
mkfifo $work/offered

cat >$work/rc <<RC
PROMPT=
fpath=(${(q)1} \$fpath)
autoload -Uz compinit
compinit -u -D
exec 9>${(q)work}/offered
# Reports the added completions. With -O, -A and -D, compadd adds none.
compadd() {
    local -a added
    if (( ! \${@[(I)-[OAD]]} )); then
        builtin compadd -O added "\$@"
        (( ! \$#added )) || print -rlu 9 -- "+"\$^added
    fi
    builtin compadd "\$@"
}
finished() { print -u 9 -- end }
comppostfuncs=(finished)
bindkey '^I' complete-word
RC

zpty shell zsh -f -i
zpty -w shell "source $work/rc"
zpty -w -n shell "$2"$'\t'
offered=()
while read -r -t 30 line && [[ $line == +* ]]; do
    offered+=(${line#+})
done <$work/offered
zpty -d shell
[[ $line == end ]] || { print -u 2 "zsh offered nothing in time"; exit 1 }
(( ! $#offered )) || print -rl -- $offered | LC_ALL=C sort -u

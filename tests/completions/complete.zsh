# What an interactive zsh offers where the tab key is pressed behind LINE, one a
# line, sorted:
#
#   zsh -f complete.zsh COMPLETIONS LINE
#
# COMPLETIONS is the folder with the function to try, on the qvgraph that is
# first in PATH.
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
# Tells what is added. With -O, -A and -D a helper asks, and adds nothing.
compadd() {
    local -a added
    if (( ! \${@[(I)-[OAD]]} )); then
        builtin compadd -O added "\$@"
        (( ! \$#added )) || print -rlu 9 -- "+"\$^added
    fi
    builtin compadd "\$@"
}
told() { print -u 9 -- end }
comppostfuncs=(told)
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

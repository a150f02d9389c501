# Completes the qvgraph command in bash: verbs, options and their values, rules as the
# command lists them, and files.
#
# Source this file, or install it as "qvgraph" in the directory of bash-completion.

# _qvgraph_words CURRENT WORD...: offers the words that start with CURRENT.
_qvgraph_words() {
    mapfile -t COMPREPLY < <(compgen -W "${*:2}" -- "$1")
}

# _qvgraph_files CURRENT EXTENSION: offers files with that extension, and directories.
# If there are none, offers all files.
_qvgraph_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(
        compgen -f -X "!*.$2" -- "$1"
        compgen -d -- "$1"
    )
    [ "${#COMPREPLY[@]}" -gt 0 ] || mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

# _qvgraph_codes CURRENT: offers rules. If CURRENT is a list, completes its last item.
_qvgraph_codes() {
    local command=${COMP_WORDS[0]/#\~\//"$HOME"/} before='' codes
    [[ $1 != *,* ]] || before=${1%,*},
    codes=$("$command" explain 2>/dev/null | sed -n 's/^  \([a-z0-9-]*\) .*/\1/p')
    mapfile -t COMPREPLY < <(compgen -P "$before" -W "$codes" -- "${1##*,}")
}

# Prints the verb in the words before the cursor, if there is one.
_qvgraph_verb() {
    local word
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $word != -* ]]; then
            printf '%s\n' "$word"
            return
        fi
    done
}

# _qvgraph_value VERB OPTION CURRENT: offers values of an option. Fails if the option
# has no value.
_qvgraph_value() {
    case $1:$2 in
        check:--format) _qvgraph_words "$3" text gcc json sarif github ;;
        draw:--format) _qvgraph_words "$3" dot svg png mermaid html ;;
        explain:--format) _qvgraph_words "$3" text markdown ;;
        inspect:--format) _qvgraph_words "$3" text json ;;
        check:--color | inspect:--color) _qvgraph_words "$3" auto always never ;;
        check:--fail-on) _qvgraph_words "$3" error warning note ;;
        check:--select | check:--ignore) _qvgraph_codes "$3" ;;
        check:--plugin | draw:--plugin | inspect:--plugin) _qvgraph_files "$3" so ;;
        *:-o | *:--output) _qvgraph_files "$3" '*' ;;
        check:--stdin-filename) _qvgraph_files "$3" json ;;
        draw:--pipe | draw:--timeout | inspect:--pipe) ;; # a number
        *) return 1 ;;
    esac
}

# _qvgraph_options CURRENT VERB: offers the options of a verb, or of the command.
_qvgraph_options() {
    local classes="--plugin --stub --no-stub"
    case $2 in
        inspect) _qvgraph_words "$1" --help --format --output --pipe "$classes" --classes --color --verbose --quiet ;;
        check) _qvgraph_words "$1" --help --stdin-filename --format --output --color --quiet --fail-on --select --ignore --strict "$classes" ;;
        draw) _qvgraph_words "$1" --help --format --output --pipe --options --timeout "$classes" --quiet ;;
        explain) _qvgraph_words "$1" --help --format --output ;;
        schema) _qvgraph_words "$1" --help --output ;;
        "") _qvgraph_words "$1" --help --version ;;
    esac
}

_qvgraph() {
    local current=$2 option=$3 verb
    verb=$(_qvgraph_verb)
    COMPREPLY=()
    # bash splits "--format=json" into three words.
    [[ $option != = ]] || option=${COMP_WORDS[COMP_CWORD - 2]}
    if _qvgraph_value "$verb" "$option" "$current"; then
        return
    fi
    if [[ $current == -* && " ${COMP_WORDS[*]:0:COMP_CWORD} " != *" -- "* ]]; then
        _qvgraph_options "$current" "$verb"
        return
    fi
    case $verb in
        inspect | check | draw) _qvgraph_files "$current" json ;;
        explain) _qvgraph_codes "$current" ;;
        "") _qvgraph_words "$current" inspect check draw explain schema ;;
    esac
}
complete -F _qvgraph qvgraph

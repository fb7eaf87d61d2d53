# Completion of tamselctl for bash.

_tamselctl_report() {
    local ranges="last7Days last30Days last90Days last12Months allMonths"
    if [ "$prev" = --range ]; then
        mapfile -t COMPREPLY < <(compgen -W "$ranges" -- "$current")
        return
    fi
    [ "$prev" = --exercise ] && return
    case "${COMP_WORDS[2]}" in
        practice-time) words="--range --exercise --json" ;;
        top) words="--range --json" ;;
        month) [ "$COMP_CWORD" -eq 3 ] && words="$(date +%Y-%m)" || words="--json" ;;
        day) [ "$COMP_CWORD" -eq 3 ] && words="$(date +%Y-%m-%d)" || words="--json" ;;
        ranges) words="--json" ;;
    esac
    [ "$COMP_CWORD" -eq 2 ] && words="practice-time top month day ranges"
    mapfile -t COMPREPLY < <(compgen -W "$words --help" -- "$current")
}

_tamselctl_list() {
    case "$prev" in
        --range) words="last7Days last30Days last90Days last12Months allMonths" ;;
        --sort) words="name practiceRecency practiceTime" ;;
        --search) return ;;
        *) words="--search --sort --range --json --help" ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

_tamselctl() {
    local current="${COMP_WORDS[COMP_CWORD]}" prev="${COMP_WORDS[COMP_CWORD - 1]}" words=""
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        # The program tells its own commands: the lines of its help that begin with two blanks.
        words="$(tamselctl --help 2>/dev/null | sed -n 's/^  \([a-z][a-z-]*\) .*/\1/p')"
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        return
    fi
    case "${COMP_WORDS[1]}" in
        report) _tamselctl_report ;;
        log) mapfile -t COMPREPLY < <(compgen -W "--json --help" -- "$current") ;;
        list) _tamselctl_list ;;
        *)
            case "$current" in
                -*)
                    words="$(tamselctl "${COMP_WORDS[1]}" --help 2>/dev/null | grep -o -e '--[a-z-]*')"
                    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
                    ;;
                *) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
            esac
            ;;
    esac
}

complete -F _tamselctl tamselctl

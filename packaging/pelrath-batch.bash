# Completion of pelrath-batch for bash.

_pelrath_batch_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "${COMP_WORDS[COMP_CWORD]}")
}

_pelrath_batch_files() {
    # Names are completed as files are, with blanks quoted and folders open at their end.
    compopt -o filenames 2> /dev/null
    mapfile -t COMPREPLY < <(compgen "$@" -- "${COMP_WORDS[COMP_CWORD]}")
}

# The number of words behind the command that are no options.
_pelrath_batch_operands() {
    local i count=0
    for ((i = 2; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --to | --as | --levels | --filter | --safe-copy) ((++i)) ;;
        -*) ;;
        *) ((++count)) ;;
        esac
    done
    echo "$count"
}

_pelrath_batch() {
    local word=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]}
    local writing="--safe-copy --no-safe-copy --write-read-only --dry-run --quiet"
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _pelrath_batch_words "list extract insert check diff restore --help --version"
        return
    fi
    case ${COMP_WORDS[COMP_CWORD - 1]} in
    --to | --safe-copy)
        _pelrath_batch_files -d
        return
        ;;
    --as)
        _pelrath_batch_words "dds image"
        return
        ;;
    --levels)
        _pelrath_batch_words "largest all chain"
        return
        ;;
    --filter)
        _pelrath_batch_words "nearest linear bilinear box triangle bell bspline lanczos mitchell"
        return
        ;;
    esac
    if [[ $word == -* ]]; then
        case $command in
        list) _pelrath_batch_words "--json --help" ;;
        extract) _pelrath_batch_words "--to --as --levels --overwrite --quiet --help" ;;
        insert) _pelrath_batch_words "--create --filter $writing --help" ;;
        restore) _pelrath_batch_words "$writing --help" ;;
        *) _pelrath_batch_words "--help" ;;
        esac
        return
    fi
    case $command:$(_pelrath_batch_operands) in
    insert:0 | list:0 | extract:0 | check:0 | diff:[01] | restore:[01]) _pelrath_batch_files -f -X '!*.cdds' -o plusdirs ;;
    insert:*) _pelrath_batch_files -f ;;
    esac
}

complete -F _pelrath_batch pelrath-batch

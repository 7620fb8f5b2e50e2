# Completion of surfacepage in bash: commands, the options that each command's help names, stored pages.
_surfacepage()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local IFS=$'\n'
    if ((COMP_CWORD == 1)); then
        COMPREPLY=($(compgen -W $'info\nplay\nstamp\nfind\ntext\nimages\ntrace\n--help\n--version' -- "$current"))
    elif [[ $previous == --format ]]; then
        COMPREPLY=($(compgen -W $'pdf\npng\njpg\nsvg\nps\nemf' -- "$current"))
    elif [[ $previous == -o || $previous == --output || $previous == --files-from ]]; then
        COMPREPLY=($(compgen -f -- "$current"))
    elif [[ $current == -* ]]; then
        local options=$("${COMP_WORDS[0]}" "${COMP_WORDS[1]}" --help 2>/dev/null | grep -oE '^ +-[^ ]+' | tr -s ', ' '\n')
        COMPREPLY=($(compgen -W "$options" -- "$current"))
    else
        COMPREPLY=($(compgen -f -- "$current" | grep -iE '\.(svg|emf)$'; compgen -d -- "$current"))
    fi
}
complete -o filenames -F _surfacepage surfacepage

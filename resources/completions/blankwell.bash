# Completion of blankwell for bash.

_blankwell() {
    local current=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]-}
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W 'create open quick-create types folders autostart menus install unregister uninstall --help --version --verbose' -- "$current")
        return
    fi
    case $command in
    create)
        if [ "$COMP_CWORD" -eq 2 ]; then
            mapfile -t COMPREPLY < <(compgen -W "$(blankwell types 2>/dev/null | cut -d ' ' -f 1)" -- "$current")
        elif [[ $current == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W '--desktop --front' -- "$current")
        else
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
        fi
        ;;
    autostart)
        if [ "$COMP_CWORD" -eq 2 ]; then
            mapfile -t COMPREPLY < <(compgen -W 'on off' -- "$current")
        fi
        ;;
    menus)
        if [ "$COMP_CWORD" -eq 2 ]; then
            mapfile -t COMPREPLY < <(compgen -W 'list on off' -- "$current")
        elif [ "${COMP_WORDS[2]}" != list ]; then
            mapfile -t COMPREPLY < <(compgen -W "$(blankwell menus list 2>/dev/null | cut -d ' ' -f 1)" -- "$current")
        fi
        ;;
    install)
        if [ "$COMP_CWORD" -eq 2 ]; then
            mapfile -t COMPREPLY < <(compgen -W '--to' -- "$current")
        elif [ "${COMP_WORDS[2]}" = --to ]; then
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
        fi
        ;;
    uninstall)
        mapfile -t COMPREPLY < <(compgen -W '--yes' -- "$current")
        ;;
    types)
        mapfile -t COMPREPLY < <(compgen -W '--json' -- "$current")
        ;;
    folders)
        if [ "$COMP_CWORD" -eq 2 ]; then
            mapfile -t COMPREPLY < <(compgen -W 'add forget --json' -- "$current")
        elif [ "${COMP_WORDS[2]}" = add ]; then
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
        elif [ "${COMP_WORDS[2]}" = forget ]; then
            local IFS=$'\n'
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -W "$(blankwell folders 2>/dev/null)" -- "$current")
        fi
        ;;
    esac
}
complete -F _blankwell blankwell

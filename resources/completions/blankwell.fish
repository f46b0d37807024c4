# Completion of blankwell for fish.

function __blankwell_types
    blankwell types 2>/dev/null | string replace -r '^(\S+) +\S+ +(.*\S)  +(.*)$' '$1\t$2 ($3)'
end

set -l commands create open quick-create types folders autostart menus install unregister uninstall

complete -c blankwell -f
complete -c blankwell -s h -l help -d 'Print a summary'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -l version -d 'Print the version'
complete -c blankwell -l verbose -d 'Write log lines to standard error'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a create -d 'Create a file and print its path'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a open -d 'Do what a request URL asks for'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a types -d 'List the types'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a quick-create -d 'Open the Quick Create panel'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a folders -d 'List, allow and forget folders'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a autostart -d 'Start the application at login, or not'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a menus -d 'Give file managers a menu to create files, or take it'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a install -d 'Copy the application and make it known to the desktop'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a unregister -d 'Take back all by which the desktop knows it'
complete -c blankwell -n "not __fish_seen_subcommand_from $commands" -a uninstall -d 'Move the application to the Trash and remove its settings'

complete -c blankwell -n '__fish_seen_subcommand_from menus; and test (count (commandline -opc)) -eq 2' -a list -d 'List the file managers'
complete -c blankwell -n '__fish_seen_subcommand_from menus; and test (count (commandline -opc)) -eq 2' -a on -d 'Give them the menu'
complete -c blankwell -n '__fish_seen_subcommand_from menus; and test (count (commandline -opc)) -eq 2' -a off -d 'Take it from them'
complete -c blankwell -n '__fish_seen_subcommand_from menus; and __fish_seen_subcommand_from on off' -a "(blankwell menus list 2>/dev/null | string replace -r ' +' '\t')"
complete -c blankwell -n '__fish_seen_subcommand_from uninstall' -l yes -d 'Do not ask'
complete -c blankwell -n '__fish_seen_subcommand_from install' -l to -x -a '(__fish_complete_directories)' -d 'Into this folder'
complete -c blankwell -n '__fish_seen_subcommand_from create; and test (count (commandline -opc)) -eq 2' -a '(__blankwell_types)'
complete -c blankwell -n '__fish_seen_subcommand_from create; and test (count (commandline -opc)) -eq 3' -a '(__fish_complete_directories)'
complete -c blankwell -n '__fish_seen_subcommand_from create' -l desktop -d 'On the Desktop'
complete -c blankwell -n '__fish_seen_subcommand_from create' -l front -d 'In the frontmost file manager window'
complete -c blankwell -n '__fish_seen_subcommand_from types folders' -l json -d 'As JSON'
complete -c blankwell -n '__fish_seen_subcommand_from folders; and test (count (commandline -opc)) -eq 2' -a add -d 'Allow a folder'
complete -c blankwell -n '__fish_seen_subcommand_from folders; and test (count (commandline -opc)) -eq 2' -a forget -d 'Take that back'
complete -c blankwell -n '__fish_seen_subcommand_from autostart; and test (count (commandline -opc)) -eq 2' -a on -d 'Start it at login'
complete -c blankwell -n '__fish_seen_subcommand_from autostart; and test (count (commandline -opc)) -eq 2' -a off -d 'Do not'
complete -c blankwell -n '__fish_seen_subcommand_from add' -a '(__fish_complete_directories)'
complete -c blankwell -n '__fish_seen_subcommand_from forget' -a '(blankwell folders 2>/dev/null)'

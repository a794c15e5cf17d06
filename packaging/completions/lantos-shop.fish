# Completion of lantos-shop and lantos-drive in fish. Commands and options are what the program itself tells of.

function __lantos_options
    $argv --help 2>/dev/null | string replace --filter --regex '^  (?:-h,)?(--[a-z][a-z-]*).*' '$1'
end

function __lantos_commands
    lantos-shop --help 2>/dev/null | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\)  *\(.*\)/\1\t\2/p'
end

function __lantos_options_here
    set -l words (commandline -opc)
    set -l command (string match --invert -- '-*' $words[2..-1])[1]
    if test "$words[1]" = lantos-shop -a -n "$command"
        __lantos_options lantos-shop $command
    else
        __lantos_options $words[1]
    end
end

complete --command lantos-shop --condition __fish_use_subcommand --no-files --arguments '(__lantos_commands)'
complete --command lantos-shop --condition 'string match --quiet -- "-*" (commandline -ct)' --no-files --arguments '(__lantos_options_here)'
complete --command lantos-drive --condition 'string match --quiet -- "-*" (commandline -ct)' --no-files --arguments '(__lantos_options_here)'

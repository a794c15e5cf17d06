# Completion of lantos-shop and lantos-drive in bash. Commands and options are what the program itself tells of.

_lantos_words() {
  "$@" --help 2>/dev/null | sed -n \
    -e 's/^  \(-h,\)\{0,1\}\(--[a-z][a-z-]*\).*/\2/p' \
    -e '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p'
}

_lantos_complete() {
  local program=$1 word=$2 command= given
  for given in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $given in -*) ;; *) command=$given; break ;; esac
  done
  COMPREPLY=()
  if [ "${program##*/}" = lantos-shop ] && [ -n "$command" ]; then
    [ "${word#-}" = "$word" ] || mapfile -t COMPREPLY < <(compgen -W "$(_lantos_words "$program" "$command")" -- "$word")
  else
    mapfile -t COMPREPLY < <(compgen -W "$(_lantos_words "$program")" -- "$word")
  fi
}

complete -o default -F _lantos_complete lantos-shop lantos-drive

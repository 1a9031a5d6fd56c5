# Completes the command line of idlexport in bash.

# Prints the values of an option, one a line: words, or "FILE" or "DIR" for names of those; nothing
# for a text that only the user knows. Fails for what takes no value.
_idlexport_values() {
  case $1 in
    --color) printf '%s\n' auto always never ;;
    --diagnostics) printf '%s\n' text gcc json sarif ;;
    --mapping) printf '%s\n' one-file module-flat module-structured ;;
    --oneway-default) printf '%s\n' true false ;;
    -o | --output) echo DIR ;;
    --depfile | --graph | --stamp) echo FILE ;;
    -a | --artifact | --file-name | --map | --suffix | --target) ;;
    *) return 1 ;;
  esac
}

_idlexport() {
  local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} values
  # Bash takes --color=auto for three words.
  if [[ $current == = ]]; then
    current=
  elif [[ $option == = ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  if ! values=$(_idlexport_values "$option"); then
    if [[ $current == -* ]]; then
      values='-a -h -o -q --artifact --check --color --depfile --diagnostics --file-name --graph --help
        --list --map --mapping --oneway-default --output --outputs --prune --quiet --stamp --strict
        --suffix --summary --target --verbatim --verify --version --werror'
    else
      values=FILE
    fi
  fi
  case $values in
    FILE) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    DIR) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
    *) mapfile -t COMPREPLY < <(compgen -W "$values" -- "$current") ;;
  esac
  # Names of directories may go on; a name with blanks needs its quotes.
  case $values in FILE | DIR) compopt -o filenames 2>/dev/null ;; esac
}

complete -F _idlexport idlexport

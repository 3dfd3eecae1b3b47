# Completion of tdprint's commands, options and values in bash.

# Completes with the names of files and folders, which readline then quotes as needed.
_tdprint_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_tdprint_folders() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -d -- "$1")
}

_tdprint_words() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

# The value of a connection text. The shell splits words at the colon, so that sqlite:shop.db is
# three of them.
_tdprint_database() {
  compopt -o nospace 2>/dev/null
  _tdprint_words "sqlite: DSN= Driver=" "$1"
}

_tdprint_value() {
  local command=$1 option=$2 current=$3
  case $option in
    --db) _tdprint_database "$current" ;;
    --engine) _tdprint_words "sqlite postgresql mariadb sqlserver" "$current" ;;
    --printer) _tdprint_words "$(lpstat -e 2>/dev/null)" "$current" ;;
    --config | --module | --pdf | --html | --log) _tdprint_files "$current" ;;
    --explain) # its file may be left out
      case $current in
        -*) return 1 ;;
        *) _tdprint_files "$current" ;;
      esac
      ;;
    --png | --samples | --pictures) _tdprint_folders "$current" ;;
    --out)
      if [ "$command" = demo ]; then
        _tdprint_folders "$current"
      else
        _tdprint_files "$current"
      fi
      ;;
    --type | --data | --format | --blank-rows) COMPREPLY=() ;;
    --form | --top-left | --top-right | --bottom-left) COMPREPLY=() ;;
    --paper) _tdprint_words "A4 A5 A6 A3 16K 32K Letter Legal 241x280 241x140 241x93.3" "$current" ;;
    --bill | --user | --since | --until) COMPREPLY=() ;;
    *) return 1 ;;
  esac
}

_tdprint() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} options
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    _tdprint_words "print preview check demo settings design area-printers sample-sql record register \
      unregister export-format import-format diff-format log calibrate --help --version" \
      "$current"
    return
  fi
  # A file behind "sqlite:"; readline replaces only what stands behind the colon.
  if [ "$current" = : ] && [ "$previous" = sqlite ]; then
    _tdprint_files ""
    return
  fi
  if [ "$previous" = : ] && [ "${COMP_WORDS[COMP_CWORD - 2]}" = sqlite ]; then
    _tdprint_files "$current"
    return
  fi
  _tdprint_value "${COMP_WORDS[1]}" "$previous" "$current" && return
  case ${COMP_WORDS[1]} in
    print | preview)
      options="--config --db --type --data --format --only-variant --blank-rows --by-area \
        --printer --pdf --png --html --explain --log"
      ;;
    record)
      options="--config --db --type --data --format --only-variant --blank-rows --by-area --mask \
        --out"
      ;;
    check) options="--db --type --format --data --printer --by-area --json" ;;
    demo) options="--out --samples --printer" ;;
    settings) options="--db --type" ;;
    design) options="--db --type --format --data" ;;
    area-printers) options="--db" ;;
    sample-sql) options="--engine --only-schema --samples --out" ;;
    register | unregister) options="--module" ;;
    export-format) options="--db --type --format --out --with-pictures" ;;
    import-format)
      [[ $current == [!-]* ]] && { _tdprint_files "$current"; return; }
      options="--db --type --format --replace --dry-run --pictures"
      ;;
    diff-format)
      [[ $current == [!-]* ]] && { _tdprint_files "$current"; return; }
      options=
      ;;
    log)
      options="--bill --type --format --printer --user --since --until --json"
      # The logs themselves have no option in front.
      if [ "${current#-}" = "$current" ] && [ -n "$current" ]; then
        _tdprint_files "$current"
        return
      fi
      ;;
    calibrate)
      options="--printer --paper --top-left --top-right --bottom-left --check --form --db --type --pdf \
        --list --remove --all-users"
      ;;
    *) options= ;;
  esac
  _tdprint_words "$options --help" "$current"
}

complete -F _tdprint tdprint

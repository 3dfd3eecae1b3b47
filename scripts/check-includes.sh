#!/bin/bash
# Reads which folder includes which, and fails on every arrow that the table in docs/architecture.md
# does not have. A folder may include itself and those of its row, all of which stand above it: so
# includes run one way, and no two folders include each other.
#   scripts/check-includes.sh [ROOT]
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

sources=(src adapters recording checker server designer tools)
{
  sed -n '/^| Folder | May include |/,/^$/p' docs/architecture.md | grep -E '^\| `'
  find "${sources[@]}" -name '*.h'
  grep -rE --include='*.h' --include='*.cpp' '^ *#include "' "${sources[@]}"
} | awk '
  function complain(text) { print text > "/dev/stderr"; failures++ }
  function folderOf(file) { sub(/\/[^\/]*$/, "", file); return file }

  # Where the compiler looks for `name` from a file in `folder`, as far as the project goes.
  function resolve(folder, name,    count, i, roots) {
    count = split(folder "/ src/ adapters/ adapters/qt/ server/ ", roots, " ")
    for (i = 1; i <= count; i++) if (roots[i] name in isHeader) return roots[i] name
    return name in isHeader ? name : ""
  }

  /^\| `/ {  # a row of the table
    split($0, cells, "|")
    gsub(/[` ]/, "", cells[2]); gsub(/[` ]/, "", cells[3])
    count = split(cells[3], others, ",")
    for (i = 1; i <= count; i++) {
      if (!(others[i] in hasRow)) complain("the table: " cells[2] " may not include " others[i] ", which stands below it")
      mayInclude[cells[2], others[i]]
    }
    mayInclude[cells[2], cells[2]]
    hasRow[cells[2]]
    next
  }
  !/#include/ { isHeader[$0]; next }
  {  # FILE:#include "NAME"
    file = $0; sub(/:.*/, "", file)
    name = $0; sub(/^[^"]*"/, "", name); sub(/".*/, "", name)
    folder = folderOf(file)
    target = resolve(folder, name)
    if (target == "") complain(file ": \"" name "\" is no header of the project")
    else if (!(folder in hasRow)) complain(file ": the table has no row for " folder)
    else if (!((folder, folderOf(target)) in mayInclude)) complain(file ": " folder " may not include " folderOf(target))
    includes++
  }
  END {
    if (!includes) complain("no include was found")
    exit failures > 0
  }'

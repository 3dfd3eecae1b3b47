#!/bin/bash
# Each example is in a Debian package: the build of the packages, which fails otherwise, is run rarely.
set -euo pipefail
cd "$1"
mapfile -t patterns < <(sed -n 's|^usr/share/qbtdprinter/||p' packaging/debian/*.install)

# is_packaged FILE: a pattern is that of files in one folder, or a folder with all that it holds.
is_packaged() {
  local pattern
  for pattern in "${patterns[@]}"; do
    if [[ $1 == $pattern && ${1%/*} == "${pattern%/*}" || $1 == "$pattern"/* ]]; then return; fi
  done
  return 1
}

if is_packaged examples/nowhere/file.sql; then
  echo "Any file would be taken for one that is packaged." >&2
  exit 1
fi
failed=0
while IFS= read -r -d '' file; do
  is_packaged "$file" || { echo "$file is in no package: packaging/debian/*.install" >&2; failed=1; }
done < <(find examples -type f -not -path '*/__pycache__/*' -print0)
exit $failed

#!/bin/bash
# Installs the component for the other tests of this folder, registers it and makes the sample.
source "$(dirname "$0")/common.sh"

rm -rf "$prefix" "$XDG_DATA_HOME" "$work/sample.db"
"$cmake" --install "$build" --prefix "$prefix" >"$work/install.log"
registered=$("$prefix/bin/tdprint" register)
expect_texts "$registered" "QbTdPrinter.Printer" "QbTdPrinter.Session" "$(realpath "$prefix")"
"$prefix/bin/tdprint" sample-sql --engine sqlite | sqlite3 "$work/sample.db"

# Each link of the installed docs leads to a file.
docs=$prefix/share/doc/QbTdPrinter
for page in "$docs"/*.md "$docs"/docs/*.md; do
  while read -r link; do
    [ -e "$(dirname "$page")/$link" ] || { echo "$page: $link leads nowhere." >&2; exit 1; }
  done < <(sed '/^```/,/^```/d' "$page" | grep -oP '\]\((?!https?:|#)\K[^)#]+')
done

# What is installed can be built without the tests and what they need.
"$cmake" --preset install -S "$(cached CMAKE_HOME_DIRECTORY)" -B "$work/$name/build" \
  >"$work/$name/configure.log"
if "$cmake" --build "$work/$name/build" --target help | grep -i '_test\b'; then
  echo "Installing builds tests." >&2
  exit 1
fi

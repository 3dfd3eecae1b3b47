#!/bin/bash
# Installs the component for the other tests of this folder, registers it and makes the sample.
source "$(dirname "$0")/common.sh"

rm -rf "$prefix" "$XDG_DATA_HOME" "$work/sample.db"
"$cmake" --install "$build" --prefix "$prefix" >"$work/install.log"
registered=$("$prefix/bin/tdprint" register)
expect_texts "$registered" "QbTdPrinter.Printer" "$(realpath "$prefix")"
"$prefix/bin/tdprint" sample-sql --engine sqlite | sqlite3 "$work/sample.db"

#!/bin/bash
# A print that went to another queue because the format's preferred printer isn't installed says so.
# Called with the program, the project's folder and a folder for what it writes.
set -euo pipefail
program=$1 source=$2 work=$3

"$source/scripts/cups-for-tests.sh"
rm -rf "$work"
mkdir -p "$work"
export LPDEST=QbTd-PDF QBTDPRINTER_STATE_DIR=$work/state QT_QPA_PLATFORM=offscreen
unset DISPLAY WAYLAND_DISPLAY
"$program" sample-sql --engine sqlite --samples "$source/examples" | sqlite3 "$work/shop.db"

# expect_line TEXT PREFERRED OPTIONS…: what standard error says when the format prefers a printer.
expect_line() {
  local expected=$1 preferred=$2
  shift 2
  sqlite3 "$work/shop.db" "update TDBill set FPrintDevice=$preferred"
  "$program" print --db "sqlite:$work/shop.db" --type 21 \
    --data "select * from v_sales_order where FInterID=21002" "$@" 2>"$work/errors"
  [ "$(cat "$work/errors")" = "$expected" ] || { echo "It said:"; cat "$work/errors"; exit 1; } >&2
}

expect_line "tdprint: printed on QbTd-PDF: the format asks for QbTd-PFD, which isn't installed" "'QbTd-PFD'"
expect_line "" "'QbTd-Margins'"
expect_line "" "''"
expect_line "" null
expect_line "" "'QbTd-PFD'" --printer QbTd-PDF
expect_line "" "'QbTd-PFD'" --pdf "$work/order.pdf"

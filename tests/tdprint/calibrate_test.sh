#!/bin/bash
# A printer is calibrated by the command line: the page, the distances, what is kept of them.
# Called with the program, the project's folder and a folder for what it writes.
set -euo pipefail
program=$1 source=$2 work=$3

"$source/scripts/cups-for-tests.sh"
rm -rf "$work"
mkdir -p "$work/home"
export HOME=$work/home XDG_CONFIG_HOME=$work/user XDG_CONFIG_DIRS=$work/machine LC_ALL=C.UTF-8
export QT_QPA_PLATFORM=offscreen
unset DISPLAY WAYLAND_DISPLAY LANG LC_MESSAGES QBTDPRINTER_LOG_FILE
user=$work/user/qbtdprinter/calibration.json machine=$work/machine/qbtdprinter/calibration.json

# calibrate STATUS OPTIONS…: the program's outputs are in $work/out and $work/errors.
calibrate() {
  local expected=$1 status=0
  shift
  "$program" calibrate "$@" >"$work/out" 2>"$work/errors" </dev/null || status=$?
  [ "$status" -eq "$expected" ] || fail "status $status of: $*"
}
fail() {
  echo "$1"
  cat "$work/out" "$work/errors"
  exit 1
} >&2
says() { grep -qF -- "$2" "$work/$1" || fail "$1 doesn't say: $2"; }
is_silent() { [ ! -s "$work/$1" ] || fail "$1 isn't empty"; }

readonly dot=(--printer QbTd-PDF --paper A4)
readonly good=(--top-left 22.3,20.1 --top-right 17.7,20.1 --bottom-left 22.3,19.9)

calibrate 0 --list
says out "There is no calibration on this machine."

calibrate 1 "${dot[@]}" --check
says errors "not printed: there is no calibration of QbTd-PDF on 210 × 297 mm"

# The page, and how to go on.
calibrate 0 "${dot[@]}"
says out "The page went to QbTd-PDF."
says out "tdprint calibrate --printer QbTd-PDF --paper 210x297 --top-left X,Y --top-right X,Y --bottom-left X,Y"
is_silent errors

# Keeping, listing, using, changing.
calibrate 0 "${dot[@]}" "${good[@]}"
says out "Kept in $user:"
says out "QbTd-PDF, 210 × 297 mm: shift 2.30 mm to the right and 0.10 mm down, turn 0.00° clockwise, stretch +0.00 % across and +0.00 % along, skew +0.00°"
says out "tdprint calibrate --printer QbTd-PDF --paper 210x297 --check"
calibrate 0 --list
says out "QbTd-PDF, 210 × 297 mm: shift 2.30 mm to the right"
calibrate 0 "${dot[@]}" --check
says out "The page went to QbTd-PDF."
calibrate 0 --printer QbTd-PDF --paper 210x297 --top-left 21,20 --top-right 19,20 --bottom-left 21,20
[ "$(grep -c '"printer"' "$user")" -eq 1 ] || fail "it was not replaced"

# For all users; a user's own goes before it.
calibrate 0 "${dot[@]}" "${good[@]}" --all-users
says out "Kept in $machine:"
calibrate 0 --list
says out "(not used: this user has another)"
calibrate 0 "${dot[@]}" --remove
says out "Removed from $user: QbTd-PDF, 210 × 297 mm"
calibrate 1 "${dot[@]}" --remove
says errors "nothing removed: $user has no calibration of QbTd-PDF on 210 × 297 mm"
calibrate 0 "${dot[@]}" --check
calibrate 0 "${dot[@]}" --remove --all-users
calibrate 1 "${dot[@]}" --check

# Misreadings.
calibrate 1 "${dot[@]}" --top-left 22,20 --top-right 22,20 --bottom-left 22,45
says errors "not calibrated: the distances would mean"
calibrate 1 "${dot[@]}" --top-left 22,20 --top-right 22,20 --bottom-left 22,250
says errors "not calibrated: the crosses can't be that far from the edges of a sheet of 210 × 297 mm"
calibrate 0 --list
says out "There is no calibration"
calibrate 1 --printer nowhere --paper A4 "${good[@]}"
says errors "nothing done: there is no printer named nowhere"

# Wrong usage.
calibrate 2 "${dot[@]}" --top-left 22,20
says errors "wrong usage: not given: top right cross, from the right edge and from the top edge"
calibrate 2 --paper A4
calibrate 2 --printer QbTd-PDF
calibrate 2 "${dot[@]}" --check --remove
calibrate 2 "${dot[@]}" --check --pdf "$work/check.pdf"
calibrate 2 "${dot[@]}" --form 销售订货单A4
calibrate 2 --printer QbTd-PDF --paper A44
calibrate 2 --printer QbTd-PDF --paper 10x10
calibrate 2 "${dot[@]}" --top-left 22

# Files are as the page is drawn, with a calibration and without.
calibrate 0 --paper 241x140 --pdf "$work/page.pdf" --printer elsewhere
pdfinfo "$work/page.pdf" | grep -q "Page size:  *683.15 x 396.85" || fail "$(pdfinfo "$work/page.pdf")"
"$program" sample-sql --engine sqlite --samples "$source/examples" | sqlite3 "$work/shop.db"
readonly form=(--db "sqlite:$work/shop.db" --type 21 --form "$(sqlite3 "$work/shop.db" \
  'select FTDBillName from TDBill where FTranType=21 and FSelected=1')")
calibrate 0 "${form[@]}" --pdf "$work/before.pdf"
calibrate 0 "${dot[@]}" "${good[@]}"
calibrate 0 "${form[@]}" --printer QbTd-PDF --pdf "$work/after.pdf"
pdftoppm -r 60 "$work/before.pdf" "$work/before"
pdftoppm -r 60 "$work/after.pdf" "$work/after"
cmp "$work"/before-*1.ppm "$work"/after-*1.ppm
calibrate 0 --printer QbTd-PDF "${form[@]}"
calibrate 1 --printer QbTd-PDF --db "sqlite:$work/shop.db" --type 21 --form 没有

# A broken file stays, and is no calibration.
echo broken >"$user"
calibrate 1 "${dot[@]}" "${good[@]}"
says errors "nothing done: $user：第 1 个字节处不是 JSON"
calibrate 1 --list
[ "$(cat "$user")" = broken ] || fail "it was written over"

LC_ALL=zh_CN.UTF-8 calibrate 0 "${dot[@]}"
says out "已打印到 QbTd-PDF。"

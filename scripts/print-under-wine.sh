#!/bin/bash
# Has scripts of Windows create the component by its name and print bills with record sets of their
# own, and compares what the queue made of the sample with the PDF of the other platform: the same
# words, each within 0.2 mm, and the same lines, bars and pictures. Needs the builds release and
# windows-x64; runs inside scripts/wine-for-tests.sh.
#   scripts/print-under-wine.sh [PRINT…]    names of examples/prints.tsv; without one, all of them
#
# QBTD_WINDOWS_BUILD is the folder of the component that prints: build/windows-x64 unless told.
# A folder in QBTD_KEEP gets the files of each print, to be looked at.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/queue-jobs.bash
readonly tdprint=$PWD/build/release/tools/tdprint/tdprint
readonly output=/var/spool/cups-pdf/$QBTD_QUEUES
readonly queue=QbTd-Bill

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Both platforms measure with the same fonts.
mkdir -p "$work/config/qbtdprinter"
cat >"$work/config/qbtdprinter/fonts.conf" <<'FONTS'
宋体 = AR PL UMing CN
黑体 = AR PL UMing CN
楷体 = AR PL UKai CN
仿宋 = AR PL UMing CN
Arial = Liberation Sans
Times New Roman = Liberation Serif
Courier New = Liberation Mono
FONTS
export XDG_CONFIG_HOME=$work/config
wine_config=$(wine cmd /c echo %APPDATA% 2>/dev/null | tr -d '\r')
mkdir -p "$(winepath -u "$wine_config")/qbtdprinter"
cp "$work/config/qbtdprinter/fonts.conf" "$(winepath -u "$wine_config")/qbtdprinter/"

"$tdprint" sample-sql --engine sqlite | sqlite3 "$work/sample.db"
sqlite3 "$work/sample.db" "update TDBill set FPrintDevice='$queue'"

# The goods pictures go into a folder beside the component.
mkdir -p "$work/component/picture"
cp "${QBTD_WINDOWS_BUILD:-build/windows-x64}/QbTdPrinter.dll" "$work/component/"
readonly module=Z:${work//\//\\}\\component\\QbTdPrinter.dll
wine regsvr32 /s "$module"

# run_script SCRIPT ARGUMENTS…: sets `job` to what the queue has made of the script's print. A script
# that its host can't read ends without a word; one that shows a message waits for ever.
run_script() {
  local script=$1
  shift
  touch "$work/before"
  timeout 120 wine cscript //nologo "tests/windows/scripts/$script" "$@" | tr -d '\r' >"$work/told"
  [ "$(<"$work/told")" = printed ] || { cat "$work/told" >&2; exit 1; }
  wait_for_job '*-cscript*.pdf'
  [ -n "$job" ] || { echo "The queue has made nothing of $script." >&2; exit 1; }
}

# print_and_compare NAME TYPE FORMAT ONLYVARIABLES BLANKROWS BYAREA QUERY
print_and_compare() {
  local name=$1 type=$2 format=$3 only=$4 blank=$5 area=$6 query=$7 options=() verdict
  sqlite3 -header -separator $'\t' -nullvalue '\N' "$work/sample.db" "$query" |
    sed 's/$/\r/' | iconv -f UTF-8 -t UTF-16LE | { printf '\xff\xfe'; cat; } >"$work/rows.txt"
  [ "$only" = 0 ] || options+=(--only-variant)
  [ "$blank" = 0 ] || options+=(--blank-rows "$blank")
  [ "$area" = 0 ] || options+=(--by-area)
  "$tdprint" print --db "sqlite:$work/sample.db" --type "$type" --format "$format" \
    --data "$query" --pdf "$work/linux.pdf" "${options[@]}"
  run_script print_bill.vbs "sqlite:$work/sample.db" "Z:${work//\//\\}\\rows.txt" \
    "$type" "$format" "$only" "$blank" "$area" '没有可供打印的数据!'
  if [ -n "${QBTD_KEEP:-}" ]; then
    cp "$job" "$QBTD_KEEP/$name-windows.pdf"
    cp "$work/linux.pdf" "$QBTD_KEEP/$name-linux.pdf"
  fi
  if ! verdict=$(tests/windows/scripts/compare_pages.py "$work/linux.pdf" "$job"); then
    echo "$name: $verdict" >&2
    exit 1
  fi
  echo "$name: $verdict"
}

while IFS=$'\t' read -r name type format only blank area query; do
  case $name in name | '#'*) continue ;; esac
  if [ $# -gt 0 ] && [[ " $* " != *" $name "* ]]; then continue; fi
  print_and_compare "$name" "$type" "$format" "$only" "$blank" "$area" "$query" </dev/null
done <examples/prints.tsv

run_script print_bill.js "sqlite:$work/sample.db" 21 销售订单三联
[ "$(pdftotext "$job" - | grep -c '^row [123]$')" = 3 ] ||
  { echo "The rows of the second script are not on its sheet." >&2; exit 1; }

# Sessions, which print into a file and tell of it.
for script in session.vbs session.js; do
  timeout 120 wine cscript //nologo "tests/windows/scripts/$script" "sqlite:$work/sample.db" 21 \
    销售订单三联 "Z:${work//\//\\}\\$script.html" >"$work/said" || true
  tr -d '\r' <"$work/said" >"$work/told"
  [ "$(<"$work/told")" = printed ] || { echo "$script: $(<"$work/told")" >&2; exit 1; }
done

wine regsvr32 /s /u "$module"
if wine reg query 'HKCR\QbTdPrinter.Printer' >/dev/null 2>&1; then
  echo "The registration is still there." >&2
  exit 1
fi

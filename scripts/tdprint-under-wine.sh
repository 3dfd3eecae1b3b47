#!/bin/bash
# Runs each command of tdprint.exe as its users do, and looks at what they get. Needs the build that
# is looked at and the queues of scripts/cups-for-tests.sh; runs inside scripts/wine-for-tests.sh.
#   scripts/tdprint-under-wine.sh FOLDER    that of tdprint.exe and QbTdPrinter.dll
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/queue-jobs.bash
readonly programs=$(cd "$1" && pwd)
readonly output=/var/spool/cups-pdf/$QBTD_QUEUES
readonly query='select * from v_sales_order where FInterID=21002 order by FEntryID'

# A folder whose name no code page of the West has, and blanks.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
readonly folder="$work/套打 单据"
mkdir "$folder"
cp "$programs/tdprint.exe" "$programs/QbTdPrinter.dll" "$folder/"
cp -r examples "$folder/"

fail() {
  echo "tdprint.exe: $*" >&2
  [ ! -s "$work/errors" ] || sed 's/^/  /' "$work/errors" >&2
  exit 1
}

# windows_path PATH: as the programs of Windows write it.
windows_path() { printf '%s' "Z:${1//\//\\}"; }

# run STATUS ARGUMENTS…: its outputs are in $work/said and $work/errors. A program that waits for a
# user who isn't there is ended some day.
run() {
  local wanted=$1 status=0
  shift
  timeout 900 wine "$folder/tdprint.exe" "$@" >"$work/said" 2>"$work/errors" || status=$?
  [ "$status" = "$wanted" ] || fail "$*: status $status, expected $wanted"
}
says() { grep -qF -- "$1" "$work/said" || fail "“$1” isn't in: $(<"$work/said")"; }
complains() { grep -qF -- "$1" "$work/errors" || fail "“$1” isn't in the complaint"; }
is_file() { [ -s "$1" ] || fail "$1 isn't there"; }

readonly shop=$folder/shop.db
readonly database=sqlite:$(windows_path "$shop")

# Help, versions and wrong usage.
run 0 --version
says "tdprint $(sed -n 's/^project(QbTdPrinter VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)"
run 0 --help
for command in print preview check demo settings area-printers sample-sql record register \
  unregister export-format import-format diff-format log calibrate; do
  says "  $command "
done
run 2 print --type 21
run 2 design
complains "the designer isn't there on Windows"

# The sample, as a script on standard output, which SQLite of this machine reads.
run 0 sample-sql --engine sqlite
sqlite3 "$shop" <"$work/said"
sqlite3 "$shop" "update TDBill set FPrintDevice='QbTd-Bill'"
run 0 sample-sql --engine sqlserver --out "$(windows_path "$folder/脚本.sql")"
is_file "$folder/脚本.sql"

# Files, with names that only wide characters hold, and on a way longer than 260 characters.
readonly long=$folder/$(printf '很长的文件夹名%.0s' {1..8})/$(printf '第二层%.0s' {1..20})
mkdir -p "$long/$(printf 'x%.0s' {1..100})"
print=(print --db "$database" --type 21 --format 销售订单三联 --data "$query")
run 0 "${print[@]}" --html "$(windows_path "$long/$(printf 'x%.0s' {1..100})/销售 订单.html")"
grep -q 要大朵 "$long"/x*/*.html || fail "the HTML file lacks its Chinese text"
run 0 "${print[@]}" --html -
says 要大朵
run 0 "${print[@]}" --png "$(windows_path "$folder/页")"
[ "$(identify -format '%wx%h' "$folder/页/page-001.png")" = 1423x827 ] ||
  fail "the page is $(identify "$folder/页/page-001.png")"
run 1 "${print[@]}" --html "$(windows_path "$folder/nowhere/order.html")"
complains nowhere
run 1 "${print[@]}" --pdf "$(windows_path "$folder/order.pdf")"
complains PDF
run 1 print --db "$database" --type 21 --format 没有的格式 --data "$query"
complains "bill type 21 has no format named 没有的格式"
run 1 print --db "$database" --type 21 --data "delete from TDBill"
run 0 "${print[@]}" --html "$(windows_path "$folder/a.html")" --explain
complains "FRowNote is an empty text in the data (first: bill XD-2403-0002, row 1, page 1)"

# Options of a file.
printf '\xef\xbb\xbfdb = %s\r\ntype = 21\r\ndata = %s\r\n' "$database" "$query" >"$folder/订单.tdprint"
run 0 print --config "$(windows_path "$folder/订单.tdprint")" --html -
says 要大朵

cp "$folder/订单.tdprint" "$long"/x*/
cp "$shop" "$long"/x*/
run 0 print --config "$(windows_path "$(echo "$long"/x*)/订单.tdprint")" --html - \
  --db "sqlite:$(windows_path "$(echo "$long"/x*)/shop.db")"
says 要大朵

# A print, and the log of it. The queue writes a file.
touch "$work/before"
run 0 "${print[@]}" --printer QbTd-Bill --log "$(windows_path "$folder/打印.log")"
wait_for_job '*tdprint*.pdf'
[ -n "$job" ] || fail "the queue has made nothing"
pdftotext "$job" - | grep -q 要大朵 || fail "$job lacks its Chinese text"
run 0 log --bill XD-2403-0002 "$(windows_path "$folder/打印.log")"
says QbTd-Bill
cp "$folder/打印.log" "$long"/x*/
run 0 log --bill XD-2403-0002 "$(windows_path "$(echo "$long"/x*)/打印.log")"
says QbTd-Bill
QBTDPRINTER_LOG_FILE=$(windows_path "$folder/打印.log") run 0 log --json
says XD-2403-0002
run 1 "${print[@]}" --printer QbTd-Gone
complains QbTd-Gone

# What killed runs have left goes with a later one; what stands behind a link of such a name, or in
# it, stays, and so does what none of them makes.
temporary=$(winepath -u "$(wine cmd /c echo %TEMP% 2>/dev/null | tr -d '\r')")
readonly leftovers=("$temporary"/tdprint-000000000000000{1,2,3,4})
rm -rf "${leftovers[@]}"  # of a run of this script that has failed
mkdir -p "$work/others/picture" "${leftovers[0]}/picture" "${leftovers[2]}" "${leftovers[3]}/kept"
for file in "$work"/others/{,picture/}mine.jpg "${leftovers[0]}"/{,picture/}goods.jpg \
  "${leftovers[3]}/kept/mine.jpg"; do echo picture >"$file"; done
ln -s "$work/others" "${leftovers[1]}"
ln -s "$work/others/picture" "${leftovers[2]}/picture"
touch -d '2 hours ago' "$work"/others{/picture,} "${leftovers[@]}"
run 0 "${print[@]}" --html -
[ ! -e "${leftovers[0]}" ] || fail "the folder of a killed run is still there"
is_file "$work/others/mine.jpg"
is_file "$work/others/picture/mine.jpg"
is_file "${leftovers[3]}/kept/mine.jpg"
rm -rf "${leftovers[@]}"

# Formats: checked, carried over, recorded.
run 1 check --db "$database" --type 21 --format 销售订单三联 --data "$query"
says "“QbTd-Bill” leaves 6.4 mm there"
run 2 check --db "$database" --type 99 --format 没有
run 0 export-format --db "$database" --type 21 --format 销售订单三联 \
  --out "$(windows_path "$folder/三联.json")"
run 0 import-format --db "$database" --format 三联二 "$(windows_path "$folder/三联.json")"
says 三联二
run 0 export-format --db "$database" --type 21 --format 三联二
cp "$work/said" "$folder/二.json"
run 1 diff-format "$(windows_path "$folder/三联.json")" "$(windows_path "$folder/二.json")"
says 三联二
run 0 record --db "$database" --type 21 --format 销售订单三联 --data "$query" --mask \
  --out "$(windows_path "$folder/scenario.json")"
is_file "$folder/scenario.json"

# Registration.
run 0 register
says "$(windows_path "$folder/QbTdPrinter.dll")"
wine reg query 'HKCR\QbTdPrinter.Printer\CLSID' >/dev/null 2>&1 || fail "the class isn't registered"
run 1 register --module "$(windows_path "$folder/examples/prints.tsv")"
complains "not registered"
run 0 unregister
says "Removed the classes"
run 0 unregister
says "Nothing was registered"
mkdir "$folder/other"
cp "$folder/QbTdPrinter.dll" "$folder/other"
other=$(windows_path "$folder/other/QbTdPrinter.dll")
run 0 register --module "$other"
run 0 unregister
says "Still registered: $other for all users of this machine"
run 0 unregister --module "$other"
says "Removed the classes"

# The whole demo.
run 0 demo --out "$(windows_path "$folder/演示")"
is_file "$folder/演示/sales-order-5-lines.html"
is_file "$folder/演示/stock-pick-40-lines/page-002.png"
echo "tdprint.exe: every command does what its page says"

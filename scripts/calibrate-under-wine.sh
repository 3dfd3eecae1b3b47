#!/bin/bash
# Calibrates printers with tdprint.exe as an administrator does, and looks at what the queues make of
# pages before and after. Needs the build that is looked at and the queues of
# scripts/cups-for-tests.sh; runs inside scripts/wine-for-tests.sh.
#   scripts/calibrate-under-wine.sh FOLDER    that of tdprint.exe
#
# A folder in QBTD_KEEP gets the files of each print, to be looked at.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/queue-jobs.bash
readonly program=$(cd "$1" && pwd)/tdprint.exe
readonly output=/var/spool/cups-pdf/$QBTD_QUEUES

variable() { winepath -u "$(wine cmd /c echo "%$1%" 2>/dev/null | tr -d '\r')"; }
user_folder=$(variable APPDATA)/qbtdprinter
machine_folder=$(variable PROGRAMDATA)/qbtdprinter
work=$(mktemp -d)
clean() { rm -rf "$work" "$user_folder/calibration.json" "$machine_folder/calibration.json"; }
trap clean EXIT
rm -f "$user_folder/calibration.json" "$machine_folder/calibration.json"

fail() {
  echo "calibrate: $*" >&2
  [ ! -s "$work/errors" ] || sed 's/^/  /' "$work/errors" >&2
  exit 1
}

# run STATUS ARGUMENTS…: its outputs are in $work/said and $work/errors.
run() {
  local wanted=$1 status=0
  shift
  timeout 300 wine "$program" "$@" >"$work/said" 2>"$work/errors" </dev/null || status=$?
  [ "$status" = "$wanted" ] || fail "$*: status $status, expected $wanted"
}
says() { grep -qF -- "$1" "$work/said" || fail "“$1” isn't in: $(<"$work/said")"; }
complains() { grep -qF -- "$1" "$work/errors" || fail "“$1” isn't in the complaint"; }

# printed NAME ARGUMENTS…: what the queue makes of the command is $work/NAME.pdf then.
printed() {
  local name=$1 job=
  shift
  touch "$work/before"
  run 0 "$@"
  wait_for_job '*tdprint*.pdf'
  [ -n "$job" ] || fail "the queue has made nothing of $*"
  mv "$job" "$work/$name.pdf"
  [ -z "${QBTD_KEEP:-}" ] || cp "$work/$name.pdf" "$QBTD_KEEP/"
}

# is_mapped PLAIN CALIBRATED SHEET DISTANCES…: of two prints, by their names.
is_mapped() {
  local plain=$1 calibrated=$2
  shift 2
  tests/windows/scripts/compare_mapped.py "$work/$plain.pdf" "$work/$calibrated.pdf" "$@" ||
    fail "$calibrated is not where the calibration puts $plain"
}

run 0 calibrate --list
says "There is no calibration on this machine."
readonly bill=(--printer QbTd-Bill --paper 241x140) a5=(--printer QbTd-PDF --paper A5)
run 1 calibrate "${bill[@]}" --check
complains "there is no calibration of QbTd-Bill on 241 × 140 mm"

# The sample's bills, as the printers print them.
run 0 sample-sql --engine sqlite
sqlite3 "$work/sample.db" <"$work/said"
readonly database=sqlite:Z:${work//\//\\}\\sample.db
readonly order=(print --db "$database" --type 21 --format 销售订单三联 --printer QbTd-Bill
  --data 'select * from v_sales_order where FInterID=21002 order by FEntryID')
readonly receipt=(print --db "$database" --type 12 --format 采购入库单A5 --printer QbTd-PDF
  --data 'select * from v_purchase_receipt where FInterID=12002 order by FEntryID')
printed order "${order[@]}"
printed receipt "${receipt[@]}"

# A page to measure on, in the queue's eyes without a flaw.
printed page calibrate "${bill[@]}"
says "The page went to QbTd-Bill."
says "tdprint calibrate --printer QbTd-Bill --paper 241x140 --top-left X,Y --top-right X,Y --bottom-left X,Y"

# Shifted and stretched, and then crooked, too.
readonly stretched=(22.3,20.1 18.2,20.1 22.3,20.4) crooked=(21.6,18.2 19.1,20.4 20.9,22.1)
keep() {
  local -n distances=$1
  shift
  run 0 calibrate "$@" --top-left "${distances[0]}" --top-right "${distances[1]}" \
    --bottom-left "${distances[2]}"
}
keep stretched "${bill[@]}"
says "Kept in "
[ -s "$user_folder/calibration.json" ] || fail "nothing is in $user_folder"
run 0 calibrate --list
says "QbTd-Bill, 241 × 140 mm: shift"
printed stretched "${order[@]}"
is_mapped order stretched 241x140 "${stretched[@]}"
keep crooked "${bill[@]}"
printed crooked "${order[@]}"
is_mapped order crooked 241x140 "${crooked[@]}"
printed receipt-still "${receipt[@]}"
is_mapped receipt receipt-still 148x210 20,20 20,20 20,20

# The page to measure on is printed as ever; the one that shows whether it is right, is not.
printed page-again calibrate "${bill[@]}"
is_mapped page page-again 241x140 20,20 20,20 20,20
printed check calibrate "${bill[@]}" --check
printed frames calibrate --printer QbTd-Bill --db "$database" --type 21 --form 销售订单三联

# A page across its sheet.
keep crooked "${a5[@]}"
printed receipt-crooked "${receipt[@]}"
is_mapped receipt receipt-crooked 148x210 "${crooked[@]}"

# For all users; a user's own goes before it.
run 0 calibrate "${bill[@]}" --remove
keep stretched "${bill[@]}" --all-users
[ -s "$machine_folder/calibration.json" ] || fail "nothing is in $machine_folder"
printed for-all "${order[@]}"
is_mapped order for-all 241x140 "${stretched[@]}"
run 0 calibrate "${bill[@]}" --remove --all-users

# A file that is broken is told and not used, and stays.
echo broken >"$user_folder/calibration.json"
run 3 "${order[@]}"
complains "第 1 个字节处不是 JSON"
run 1 calibrate "${bill[@]}" --top-left 20,20 --top-right 20,20 --bottom-left 20,20
[ "$(<"$user_folder/calibration.json")" = broken ] || fail "it was written over"

run 1 calibrate --printer QbTd-Gone --paper A4
complains "there is no printer named QbTd-Gone"
run 1 calibrate --paper A4 --pdf "Z:${work//\//\\}\\page.pdf"
complains "Microsoft Print to PDF"
run 2 calibrate "${bill[@]}" --check --remove
echo "calibrate: prints come out where the calibrations put them"

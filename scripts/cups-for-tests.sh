#!/bin/bash
# Starts the printing system if it isn't running, and makes the queues that the tests print to.
# Running it again changes nothing. As root, or with sudo. It takes the printing system that
# CUPS_SERVER names, where that is running.
#
#   QbTd-PDF      writes each job to /var/spool/cups-pdf/$QBTD_QUEUES/job_<number>-*.pdf;
#                 QBTD_QUEUES is qbtd where it isn't set
#   QbTd-Margins  the same, on a printer whose unprintable margins differ on all four sides
#   QbTd-Fixed    the same, on a printer that has A4 and A5 sheets and takes no other size
#   QbTd-Office   the same, on a printer with two trays that prints on both sides
#   QbTd-Refusing takes no jobs
#   QbTd-Form     as QbTd-PDF; its own sheet is a form of 230 by 127 mm
#   QbTd-Bill     the same, on a printer whose driver has a form of 241 by 140 mm
set -euo pipefail

readonly queues=${QBTD_QUEUES:-qbtd}
readonly output=/var/spool/cups-pdf/$queues
readonly driver=/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd

if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Run this as root, or install sudo." >&2; exit 1; }
  exec sudo --preserve-env=CUPS_SERVER,QBTD_QUEUES "$0" "$@"
fi
PATH=$PATH:/usr/sbin:/sbin

# Test programs run side by side; one of them prepares, the others wait.
exec 9>/run/lock/qbtd-cups-for-tests
flock 9

is_running() { [ "$(LC_ALL=C lpstat -r 2>/dev/null)" = "scheduler is running" ]; }

start() {
  if [ -d /run/systemd/system ]; then
    systemctl start cups
  else
    # It lives on, and would keep the caller's pipes open.
    cupsd </dev/null >/dev/null 2>&1 9>&-
  fi
  for _ in $(seq 100); do
    if is_running; then return; fi
    sleep 0.1
  done
  echo "The printing system does not start; see /var/log/cups/error_log." >&2
  exit 1
}

has_queue() { lpstat -p "$1" >/dev/null 2>&1; }

make_queue() {
  lpadmin -p "$1" -E -v "cups-pdf:/$queues" -P "$2" -o printer-is-shared=false 2>/dev/null
}

is_running || start

install -d -m 1777 "$output"
# Written only when it differs, and replaced whole: a job that is printed meanwhile reads it.
configuration=/etc/cups/cups-pdf-$queues.conf
wanted="Out $output
AnonDirName $output
Label 1
UserUMask 0022"
if [ "$(cat "$configuration" 2>/dev/null)" != "$wanted" ]; then
  printf '%s\n' "$wanted" >"$configuration.new"
  mv "$configuration.new" "$configuration"
fi

# make_queue_with NAME SED-ARGUMENTS…: a queue whose driver is edited.
make_queue_with() {
  local queue=$1 edited
  shift
  edited=$(mktemp --suffix=.ppd)
  sed "$@" "$driver" >"$edited"
  make_queue "$queue" "$edited"
  rm -f "$edited"
}

has_queue QbTd-PDF || make_queue QbTd-PDF "$driver"
has_queue QbTd-Margins || make_queue_with QbTd-Margins \
  -e 's/^\*HWMargins: .*/*HWMargins: 12 60 18 30/' \
  -e 's/^\(\*ImageableArea A4[^"]*"\)[^"]*/\112 60 577 812/'
has_queue QbTd-Fixed || make_queue_with QbTd-Fixed \
  -e '/^\*CustomPageSize/,/^\*End/d' \
  -e '/^\*\(VariablePaperSize\|MaxMedia\|ParamCustomPageSize\|HWMargins\)/d' \
  -e '/^\*\(PageSize\|PageRegion\|ImageableArea\|PaperDimension\) [^:]*:/{/ A[45]\//!d}' \
  -e 's/421 595/420 595/g'
# one_of NAME CHOICE…: an option of a driver; the first choice is its default.
one_of() {
  local name=$1
  shift
  printf '*OpenUI *%s/%s: PickOne\n*OrderDependency: 20 AnySetup *%s\n' "$name" "$name" "$name"
  printf '*Default%s: %s\n' "$name" "${1%%/*}"
  for choice in "$@"; do printf '*%s %s: ""\n' "$name" "$choice"; done
  printf '*CloseUI: *%s\n' "$name"
}

has_queue QbTd-Office || make_queue_with QbTd-Office -e '$r '<(
  one_of InputSlot 'Tray1/Tray 1' 'Tray2/Tray 2'
  one_of Duplex None/Off DuplexNoTumble/Long DuplexTumble/Short
)
has_queue QbTd-Refusing || {
  make_queue QbTd-Refusing "$driver"
  cupsreject QbTd-Refusing
}
has_queue QbTd-Form || {
  make_queue QbTd-Form "$driver"
  lpadmin -p QbTd-Form -o media-default=Custom.230x127mm
}
# The form's size in points.
readonly bill='683.15 396.85'
has_queue QbTd-Bill || make_queue_with QbTd-Bill \
  -e 's/421 595/420 595/g' \
  -e "s|^\*PageSize A4/|*PageSize Bill/241 x 140 mm: \"<</PageSize[$bill]/ImagingBBox null>>setpagedevice\"\n&|" \
  -e "s|^\*PageRegion A4/|*PageRegion Bill/241 x 140 mm: \"<</PageSize[$bill]/ImagingBBox null>>setpagedevice\"\n&|" \
  -e "s|^\*ImageableArea A4/|*ImageableArea Bill/241 x 140 mm: \"18 18 665.15 378.85\"\n&|" \
  -e "s|^\*PaperDimension A4/|*PaperDimension Bill/241 x 140 mm: \"$bill\"\n&|"

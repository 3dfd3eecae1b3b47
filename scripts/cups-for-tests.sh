#!/bin/bash
# Starts the printing system if it isn't running, and makes the queues that the tests print to.
# Running it again changes nothing. As root, or with sudo.
#
#   QbTd-PDF      writes each job to /var/spool/cups-pdf/qbtd/job_<number>-*.pdf
#   QbTd-Margins  the same, on a printer whose unprintable margins differ on all four sides
set -euo pipefail

readonly output=/var/spool/cups-pdf/qbtd
readonly driver=/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd

if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Run this as root, or install sudo." >&2; exit 1; }
  exec sudo "$0" "$@"
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
    cupsd 9>&-
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
  lpadmin -p "$1" -E -v cups-pdf:/qbtd -P "$2" -o printer-is-shared=false 2>/dev/null
}

is_running || start

install -d -m 1777 "$output"
cat >/etc/cups/cups-pdf-qbtd.conf <<CONFIGURATION
Out $output
AnonDirName $output
Label 1
UserUMask 0022
CONFIGURATION

has_queue QbTd-PDF || make_queue QbTd-PDF "$driver"
if ! has_queue QbTd-Margins; then
  margins=$(mktemp --suffix=.ppd)
  trap 'rm -f "$margins"' EXIT
  sed -e 's/^\*HWMargins: .*/*HWMargins: 12 60 18 30/' \
    -e 's/^\(\*ImageableArea A4[^"]*"\)[^"]*/\112 60 577 812/' "$driver" >"$margins"
  make_queue QbTd-Margins "$margins"
fi

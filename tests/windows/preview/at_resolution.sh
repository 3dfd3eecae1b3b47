#!/bin/bash
# Runs a program for Windows on a screen of another resolution.
#   at_resolution.sh DOTS-PER-INCH PROGRAM ARGUMENTS…
set -euo pipefail
key='HKCU\Control Panel\Desktop'
put() { wine reg add "$key" /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null; }
trap 'put 96' EXIT
put "$1"
wine "${@:2}"

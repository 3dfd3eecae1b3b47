#!/bin/bash
# Prints what a user of the preview waits for, in a document of 2,000 pages: a real window on a
# display that shows nothing.
#
#   preview.sh BUILD_FOLDER
#
# The build folder is one with QBTD_BENCHMARKS=ON; only an optimised one gives figures that mean
# anything.
set -euo pipefail

build=$(realpath "$1")
readonly build
cd "$(dirname "$0")/.."
folder=$(mktemp -d)
readonly folder
trap 'rm -rf "$folder"' EXIT

"$build/tools/tdprint/tdprint" sample-sql --samples examples --engine sqlite |
  sqlite3 "$folder/sample.db"
export QBTDPRINTER_STATE_DIR=$folder/state
exec {number}<>"$folder/display"
Xvfb -displayfd "$number" -screen 0 1600x1200x24 -nolisten tcp 2>"$folder/xvfb.log" &
trap 'kill $!; rm -rf "$folder"' EXIT
until [ -s "$folder/display" ]; do sleep 0.1; done
DISPLAY=:$(cat "$folder/display") "$build/benchmarks/preview_benchmark" "$folder/sample.db"

#!/bin/bash
# Prints the table of docs/performance.md from one run: whole prints beside a bare painter loop, their
# memory, and the rows per second on each engine.
#
#   table.sh BUILD_FOLDER [RUNS]
#
# The build folder is one with QBTD_BENCHMARKS=ON; only an optimised one gives figures that mean
# anything. Each figure is a median of RUNS, 5 if it isn't given.
set -euo pipefail

build=$(realpath "$1")
readonly build runs=${2:-5}
cd "$(dirname "$0")/.."
source benchmarks/databases.sh

export QT_QPA_PLATFORM=offscreen QBTDPRINTER_STATE_DIR=$folder/state
"$build/benchmarks/table" "$runs" "$folder" "$build/tools/tdprint/tdprint" \
  "$build/benchmarks/painter_loop" "${databases[@]}"

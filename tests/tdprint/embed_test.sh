#!/bin/bash
# Installs the component, builds the embedding example against the installed package with nothing
# else of the project in reach, and prints a bill of the installed sample with it.
set -euo pipefail
cmake=$1 build=$2 example=$3 work=$4

rm -rf "$work"
mkdir -p "$work"
"$cmake" --install "$build" --prefix "$work/prefix" >"$work/install.log"

flags=$(sed -n 's/^CMAKE_CXX_FLAGS:STRING=//p' "$build/CMakeCache.txt")
compiler=$(sed -n 's/^CMAKE_CXX_COMPILER:[A-Z]*=//p' "$build/CMakeCache.txt")
"$cmake" -S "$example" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >"$work/configure.log"
"$cmake" --build "$work/build"

# An unknown printer keeps the demo from sending a job to a queue of this machine.
export CUPS_SERVER=localhost:1 QT_QPA_PLATFORM=offscreen QBTDPRINTER_STATE_DIR=$work/state
"$work/prefix/bin/tdprint" demo --out "$work/demo"
"$work/build/embed" "$work/demo/sample.db" 21 "select * from v_sales_order" "$work/orders.pdf"
pages=$(pdfinfo "$work/orders.pdf" | sed -n 's/^Pages: *//p')
[ "$pages" -ge 1 ]
texts=$(pdftotext "$work/orders.pdf" -)
[[ $texts == *销售* ]]

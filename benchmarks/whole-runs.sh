#!/bin/bash
# Prints a bill of 10,000 rows from SQLite, PostgreSQL and MariaDB, and tells the rows per second and
# the shares of database, logic and rendering.
#
#   whole-runs.sh BUILD_FOLDER [OPTION OF GOOGLE BENCHMARK…]
#
# The build folder is one with QBTD_BENCHMARKS=ON; only an optimised one gives figures that mean
# anything.
set -euo pipefail

build=$(realpath "$1")
readonly build
shift
cd "$(dirname "$0")/.."
source benchmarks/databases.sh

"$build/benchmarks/bill_benchmark" "$@" "${databases[@]}"

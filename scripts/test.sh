#!/bin/bash
# Builds everything in every way that is promised and passes every test. Enough on a fresh
# Debian 12, as root or with sudo. Stops at the first step that fails.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)

step() {
  echo
  echo "== $* =="
}

# beside LOG COMMAND…: runs it while the compiler works on what follows; `finished` waits for it.
# Tests that drive servers, queues and emulated programs wait more than they calculate.
beside() {
  log=$1
  "${@:2}" >"$log" 2>&1 &
  other=$!
  trap 'wait "$other" || true' EXIT
}
finished() {
  wait "$other" || { cat "$log"; exit 1; }
  cat "$log"
}

step "Packages"
scripts/install-packages.sh windows

step "The logic alone, with nothing but a compiler"
cmake --preset logic -DCMAKE_BUILD_TYPE=Debug
cmake --build --preset logic -j "$jobs"

step "Format"
git ls-files -z '*.h' '*.cpp' '*.c' | xargs -0 clang-format --dry-run -Werror

step "Includes"
scripts/check-includes.sh

step "Docs"
scripts/check-docs.py

# It reads all sources that are not tests, with their warnings as errors, and makes nothing of them.
step "The second compiler and its static analysis"
cmake --preset clang
run-clang-tidy -quiet -p build/clang -j "$jobs" >build/clang-tidy.log 2>&1 ||
  { grep -E 'warning:|error:' build/clang-tidy.log | sort -u; exit 1; }

step "Fuzzers, ten seconds each"
scripts/fuzz.sh 10

# What the tests of the libraries do is seen under the sanitizers; these run what is installed.
step "The programs and the module as they are released, with the benchmarks"
cmake --preset release -DQBTD_TESTS=PROGRAMS -DQBTD_BENCHMARKS=ON
cmake --build --preset release -j "$jobs"

# The tests run in 64 bits; of the 32 bits only what is handed over is built.
step "Their tests, and the component for Windows"
beside build/test-release.log ctest --preset release -j "$jobs"
scripts/build-windows.sh
finished

step "Its tests under emulation, and the build with the sanitizers"
beside build/test-windows.log scripts/test-windows.sh
cmake --preset sanitize -DQBTD_PARSED_HEADERS=ON
cmake --build --preset sanitize -j "$jobs"
finished

step "The tests under the sanitizers"
ctest --preset sanitize -j "$jobs"

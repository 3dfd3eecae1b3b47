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

# All tests run under the sanitizers; what is released prints the sample.
step "The main job with the program as it is released, the module and the benchmarks"
scripts/demo.sh
cmake --preset release -DQBTD_TESTS=OFF -DQBTD_BENCHMARKS=ON
cmake --build --preset release -j "$jobs"

# The tests run in 64 bits; of the 32 bits only what is handed over is built.
step "The component for Windows"
scripts/build-windows.sh

# Emulated programs wait more than they calculate: meanwhile the compiler works.
step "Its tests under emulation, and the build with the sanitizers"
scripts/test-windows.sh >build/test-windows.log 2>&1 &
windows=$!
trap 'wait "$windows" || true' EXIT
cmake --preset sanitize -DQBTD_PARSED_HEADERS=ON
cmake --build --preset sanitize -j "$jobs"
wait "$windows" || { cat build/test-windows.log; exit 1; }
cat build/test-windows.log

step "The tests under the sanitizers"
ctest --preset sanitize -j "$jobs"

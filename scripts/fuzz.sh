#!/bin/bash
# Builds the fuzzers under the sanitizers and runs each of them, from the seeds in fuzz/seeds.
#
#   scripts/fuzz.sh [SECONDS]    for each fuzzer; a minute without it
#
# Stops at the first input that breaks something and says which file holds it; the inputs that
# were found on the way stay in build/fuzz/corpus.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

cmake -S . -B build/fuzz -G Ninja -DQBTD_FUZZERS=ON -DQBTD_TESTS=OFF -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_CXX_FLAGS="-O1 -fsanitize=fuzzer-no-link,address,undefined"
fuzzers=(picture barcode format_value statement)
cmake --build build/fuzz --target "${fuzzers[@]/%/_fuzzer}"

fuzz() { # fuzzer
  local corpus=build/fuzz/corpus/$1 seeds=fuzz/seeds/$1 log=build/fuzz/$1.log
  if [ "$1" = picture ]; then
    seeds=build/fuzz/pictures
    mkdir -p "$seeds"
    for format in png jpg bmp gif tif; do convert -size 16x12 plasma: "$seeds/seed.$format"; done
  fi
  mkdir -p "$corpus"
  "build/fuzz/fuzz/${1}_fuzzer" -max_total_time="$seconds" -rss_limit_mb=1500 -timeout=10 \
    -artifact_prefix="build/fuzz/$1-" "$corpus" "$seeds" >"$log" 2>&1 || { cat "$log"; return 1; }
  echo "$1: $(grep "^Done" "$log")"
}
export -f fuzz
export seconds
printf '%s\n' "${fuzzers[@]}" | xargs -P "$(nproc)" -I{} bash -c 'fuzz {}'
echo "Nothing was found."

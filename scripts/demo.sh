#!/bin/bash
# Installs what is missing, builds, makes the sample database and prints the sample bills as PDF,
# PNG and HTML into out/ and as a job into a real printer queue. Enough on a fresh Debian 12, as
# root or with sudo. Says at its end where everything is.
set -euo pipefail
cd "$(dirname "$0")/.."

readonly queue=QbTd-PDF
readonly queue_output=/var/spool/cups-pdf/qbtd

scripts/install-packages.sh
cmake --preset release -DQBTD_TESTS=OFF
cmake --build --preset release -j "$(nproc)" --target tdprint

printer=()
if scripts/cups-for-tests.sh; then
  printer=(--printer "$queue")
else
  echo "The printing system doesn't start here; the bills are printed into files only." >&2
fi

echo
before=$(date +%s)
build/release/tools/tdprint/tdprint demo --out out "${printer[@]}"

if [ ${#printer[@]} -gt 0 ]; then
  # The queue has taken the job; its file follows within seconds.
  for _ in $(seq 60); do
    job=$(find "$queue_output" -name '*.pdf' -newermt "@$before" -size +0 2>/dev/null | tail -1)
    [ -z "$job" ] || break
    sleep 0.5
  done
  [ -n "$job" ] || { echo "The queue $queue has made no file of its job." >&2; exit 1; }
  cp "$job" out/printed-by-the-queue.pdf
  echo "What the queue made of the job: $PWD/out/printed-by-the-queue.pdf"
fi

#!/bin/bash
# Runs the tests of the component for Windows in a wine prefix and on a display of their own:
#   - those of the logic and of the adapters;
#   - scripts in two languages that create the component by its name; the first prints every sample,
#     compared with the PDF of the other platform;
#   - the exports of both DLLs, and that they load nothing but libraries of the system.
# The programs are those that scripts/build-windows.sh has built for 64 bits; those for 32 bits are
# not run, since Debian's wine does that only with packages of another architecture.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh windows
scripts/cups-for-tests.sh

# check_module ARCHITECTURE TRIPLET
check_module() {
  local module=build/windows-$1/QbTdPrinter.dll listing exports others
  listing=$("$2-objdump" -p "$module")
  exports=$(sed -n 's/^\t\[ *[0-9]*\] \([A-Za-z].*\)/\1/p' <<<"$listing" | sort | xargs)
  [ "$exports" = "DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer" ] ||
    { echo "$module exports: $exports" >&2; exit 1; }
  others=$(sed -n 's/^\tDLL Name: //p' <<<"$listing" | grep -E '^lib|^zlib|^sqlite|^zint' || true)
  [ -z "$others" ] || { echo "$module loads: $others" >&2; exit 1; }
}
check_module x64 x86_64-w64-mingw32
check_module x86 i686-w64-mingw32

# What the prints are compared with.
cmake --preset release
cmake --build --preset release -j "$(nproc)" --target tdprint

scripts/wine-for-tests.sh ctest --preset windows-x64
scripts/wine-for-tests.sh scripts/print-under-wine.sh

#!/bin/bash
# Runs the tests of the component for Windows in a wine prefix and on a display of their own:
#   - those of the logic and of the adapters;
#   - scripts in two languages that create the component by its name; the first prints every sample,
#     compared with the PDF of the other platform;
#   - each command of tdprint.exe, and each of its windows, used with keys and mouse;
#   - what the queues make of printers that are calibrated;
#   - the exports of both DLLs, and that they and the programs load nothing but libraries of the system;
#   - the version that all of them tell, and the manifest and the icon of tdprint.exe;
#   - the zip that scripts/package-windows.sh makes, unpacked and used.
# The programs are those that scripts/build-windows.sh has built for 64 bits; scripts/test-windows-x86.sh
# runs those for 32 bits, since Debian's wine does that only with packages of another architecture.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh windows

readonly version=$(sed -n 's/^project(QbTdPrinter VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)

# check_files ARCHITECTURE TRIPLET
check_files() {
  local folder=build/windows-$1 listing exports others file resources
  listing=$("$2-objdump" -p "$folder/QbTdPrinter.dll")
  exports=$(sed -n 's/^\t\[ *[0-9]*\] \([A-Za-z].*\)/\1/p' <<<"$listing" | sort | xargs)
  [ "$exports" = "DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer" ] ||
    { echo "$folder/QbTdPrinter.dll exports: $exports" >&2; exit 1; }
  for file in QbTdPrinter.dll tdprint.exe; do
    others=$("$2-objdump" -p "$folder/$file" | sed -n 's/^\tDLL Name: //p' |
      grep -E '^lib|^zlib|^sqlite|^zint' || true)
    [ -z "$others" ] || { echo "$folder/$file loads: $others" >&2; exit 1; }
    resources=$("$2-windres" "$folder/$file" -O rc)
    grep -qF "\"FileVersion\", \"$version\"" <<<"$resources" ||
      { echo "$folder/$file doesn't tell its version" >&2; exit 1; }
  done
  # The system looks for the manifest of a program under these numbers.
  grep -q '^1 24 ' <<<"$resources" && grep -q '<longPathAware' <<<"$resources" ||
    { echo "$folder/tdprint.exe has no manifest" >&2; exit 1; }
  # Its sizes are what a group of icons lists.
  [ "$(grep -c '^[0-9]* 3 ' <<<"$resources")" -eq 8 ] && grep -q '^1 14 ' <<<"$resources" ||
    { echo "$folder/tdprint.exe has no icon" >&2; exit 1; }
}
check_files x64 x86_64-w64-mingw32
check_files x86 i686-w64-mingw32

# What the prints are compared with; a build that is there stays as it was configured.
[ -e build/release/CMakeCache.txt ] || cmake --preset release
cmake --build --preset release -j "$(nproc)" --target tdprint

# The system's own processes start first: one that a test starts holds its output, and has the test
# waited for until it ends.
scripts/wine-for-tests.sh bash -c 'wineserver -p60
  wine explorer /desktop=tests,1600x1200 cmd /c exit >/dev/null 2>&1
  exec ctest --preset windows-x64'
scripts/wine-for-tests.sh scripts/tdprint-under-wine.sh build/windows-x64
scripts/wine-for-tests.sh scripts/windows-under-wine.sh build/windows-x64
scripts/wine-for-tests.sh scripts/calibrate-under-wine.sh build/windows-x64
scripts/wine-for-tests.sh scripts/print-under-wine.sh
scripts/package-windows.sh
scripts/wine-for-tests.sh scripts/test-windows-package.sh

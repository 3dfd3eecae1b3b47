#!/bin/bash
# Runs the tests of the component for Windows in a wine prefix and on a display of their own. The
# programs are those that scripts/build-windows.sh has built for 64 bits; those for 32 bits are
# compiled and their exports looked at, since Debian's wine runs them only with packages of another
# architecture.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh windows
scripts/cups-for-tests.sh
scripts/wine-for-tests.sh ctest --preset windows-x64

# What the tests of this folder share: the installed component in $work/prefix, its sample in
# $work/sample.db, and a machine without printers and without a display.
# Called with CMAKE BUILD WORK NAME; the name tells the tests apart, which run side by side.
set -euo pipefail
cmake=$1 build=$2 work=$3 name=$4
prefix=$work/prefix

export CUPS_SERVER=localhost:1 QT_QPA_PLATFORM=offscreen
export XDG_DATA_HOME=$work/data QBTDPRINTER_STATE_DIR=$work/$name/state
unset DISPLAY WAYLAND_DISPLAY

cached() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }

# Builds an installed example against the installed package, with nothing else of the project in
# reach, and warnings as errors.
build_example() {
  local flags
  flags="$(cached CMAKE_CXX_FLAGS) -Wall -Wextra -Wconversion -Werror"
  "$cmake" --no-warn-unused-cli -S "$prefix/share/qbtdprinter/examples/$1" -B "$work/$name/build" \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$(cached CMAKE_CXX_COMPILER)" \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_C_FLAGS="$flags" >"$work/$name-configure.log"
  "$cmake" --build "$work/$name/build"
}

# expect_texts CONTENT TEXT…
expect_texts() {
  local content=$1 text
  shift
  for text in "$@"; do
    [[ $content == *"$text"* ]] || { echo "“$text” wasn't printed." >&2; exit 1; }
  done
}

# What the last print of this test put into the export file.
exported() { cat "$QBTDPRINTER_STATE_DIR/订单.html"; }

rm -rf "${work:?}/$name"
mkdir -p "$work/$name"

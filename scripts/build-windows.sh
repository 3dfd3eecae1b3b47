#!/bin/bash
# Builds the component for Windows on Debian 12, as root or with sudo for the packages:
#   build/windows-x64/ and build/windows-x86/, each with QbTdPrinter.dll and tdprint.exe
#
#   scripts/build-windows.sh [windows-x64] [windows-x86]    both without an argument
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)
readonly sources=$PWD/build/windows-sources

scripts/install-packages.sh windows

# fetch PACKAGE FOLDER: the sources of Debian's package, patched as Debian builds them. The machine's
# own list of places gets a line for sources, without a change in it.
fetch() {
  local apt=$sources/apt
  mkdir -p "$apt/lists/partial"
  apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' | sort -u >"$apt/sources.list"
  local options=(-q -o "Dir::Etc::SourceList=$apt/sources.list" -o Dir::Etc::SourceParts=/dev/null
    -o "Dir::State::Lists=$apt/lists" -o APT::Sandbox::User=root)
  [ -e "$apt/updated" ] || apt-get "${options[@]}" update
  touch "$apt/updated"
  rm -rf "$sources/$2.new"
  mkdir "$sources/$2.new"
  (cd "$sources/$2.new" && apt-get "${options[@]}" source "$1")
  mv "$sources/$2.new/$1"-*/ "$sources/$2"
  rm -rf "$sources/$2.new"
}

if [ ! -e "$sources/zint/backend/zint.h" ]; then
  fetch zint zint
fi
if [ ! -e "$sources/sqlite/sqlite3.c" ]; then
  rm -rf "$sources/sqlite" "$sources/sqlite-tree"
  fetch sqlite3 sqlite-tree
  mkdir "$sources/sqlite.new"
  (cd "$sources/sqlite.new" && ../sqlite-tree/configure -q --disable-tcl && make -s sqlite3.c)
  mv "$sources/sqlite.new" "$sources/sqlite"
fi

presets=("$@")
[ $# -gt 0 ] || presets=(windows-x64 windows-x86)
for preset in "${presets[@]}"; do
  cmake --preset "$preset"
  cmake --build --preset "$preset" -j "$jobs"
done

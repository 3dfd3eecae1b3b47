#!/bin/bash
# Makes build/packages/QbTdPrinter-VERSION-windows.zip of what scripts/build-windows.sh has built: the
# component and tdprint.exe for both kinds of programs, the sample, examples, documentation and the
# licences of all that is built in. The version is that of CMakeLists.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-packages.sh windows

version=$(sed -n 's/^project(QbTdPrinter VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
readonly packages=$PWD/build/packages
readonly name=QbTdPrinter-$version-windows
readonly tree=$packages/$name
mkdir -p "$packages"
rm -rf "$tree" "$tree.zip"

# for_windows FILE: a text as the editors of Windows read it.
for_windows() { printf '\xef\xbb\xbf'; sed -e "s/@VERSION@/$version/" -e 's/\r*$/\r/' "$1"; }

add_programs() {
  local folder=$1 triplet=$2 file
  mkdir -p "$tree/$folder"
  for file in QbTdPrinter.dll tdprint.exe; do
    "$triplet-strip" -o "$tree/$folder/$file" "build/windows-$folder/$file"
  done
}
add_programs x64 x86_64-w64-mingw32
add_programs x86 i686-w64-mingw32

for_windows packaging/windows/README.txt >"$tree/README.txt"

# The pages keep the places that they have here, and so does all that they lead to.
git ls-files -z README.md README.zh-CN.md CHANGELOG.md CONTRIBUTING.md SECURITY.md LICENSE docs \
  examples server/interface server/python scripts/install-packages.sh |
  xargs -0 cp --parents -t "$tree"

# What is built in, and the terms under which it may be handed on.
mkdir -p "$tree/licences"
readonly sources=build/windows-sources doc=/usr/share/doc
add_licence() {
  local title=$1 file
  shift
  for file in "$@"; do for_windows "$file" >>"$tree/licences/$title.txt"; done
}
add_licence QbTdPrinter LICENSE
add_licence SQLite "$sources/sqlite-tree/debian/copyright"
add_licence zint "$sources/zint/debian/copyright"
add_licence nlohmann-json "$doc/nlohmann-json3-dev/copyright"
add_licence CLI11 "$doc/libcli11-dev/copyright"
add_licence GCC-run-time-libraries "$doc/gcc-mingw-w64-base/copyright"
add_licence GPL-3 /usr/share/common-licenses/GPL-3
add_licence LGPL-2.1 /usr/share/common-licenses/LGPL-2.1
add_licence mingw-w64 "$doc/mingw-w64-x86-64-dev/copyright"

# The versions, in a column of the table.
of_source() { printf '%-23s' "$(dpkg-parsechangelog -l "$sources/$1/debian/changelog" -S Version)"; }
of_package() { printf '%-23s' "$(dpkg-query -W -f '${source:Version}' "$1")"; }
for_windows packaging/windows/licences.txt |
  sed -e "s/@own@/$(printf '%-23s' "$version")/" \
    -e "s/@sqlite@/$(of_source sqlite-tree)/" -e "s/@zint@/$(of_source zint)/" \
    -e "s/@json@/$(of_package nlohmann-json3-dev)/" -e "s/@cli11@/$(of_package libcli11-dev)/" \
    -e "s/@gcc@/$(of_package gcc-mingw-w64-base)/" \
    -e "s/@mingw@/$(of_package mingw-w64-x86-64-dev)/" >"$tree/licences/README.txt"

(cd "$packages" && cmake -E tar cf "$name.zip" --format=zip "$name")
rm -rf "$tree"
echo "The package: $tree.zip"

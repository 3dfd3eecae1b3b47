#!/bin/bash
# Makes the Debian packages into build/packages/ and has them checked. The sources are those of the
# last commit; the version is that of CMakeLists.txt. As root, or with sudo for what is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-packages.sh

version=$(sed -n 's/^project(QbTdPrinter VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
readonly packages=$PWD/build/packages
readonly tree=$packages/qbtdprinter-$version
rm -rf "$packages"
mkdir -p "$tree"
git archive HEAD | tar -x -C "$tree"
cp -r packaging/debian "$tree/debian"
cat >"$tree/debian/changelog" <<CHANGELOG
qbtdprinter ($version) bookworm; urgency=medium

  * CHANGELOG.md says what is new.

 -- $(sed -n 's/^Maintainer: //p' packaging/debian/control)  $(git log -1 --format=%cD)
CHANGELOG

(cd "$tree" && DEB_BUILD_OPTIONS="parallel=$(nproc)" dpkg-buildpackage -b -us -uc)
rm -rf "$tree"
lintian --allow-root --fail-on error --info "$packages"/*.changes
echo "The packages: $packages"

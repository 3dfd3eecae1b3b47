#!/bin/bash
# Installs every Debian package that building, testing and printing the samples needs.
# The one place where packages are named. Run as root or by a user with sudo.
#   scripts/install-packages.sh [windows]    windows: also what the build for Windows needs
set -euo pipefail

packages=(
  # the compilers, the build and its checks
  g++ clang clang-format clang-tidy cmake make ninja-build pkg-config git
  # the platform: windows, drawing and printing; the embedded database; barcodes
  qt6-base-dev qt6-pdf-dev qt6-image-formats-plugins qt6-translations-l10n libgl-dev
  libsqlite3-dev unixodbc-dev libcups2-dev libzint-dev libdeflate-dev libcli11-dev nlohmann-json3-dev
  # fonts that stand in for the families that stored formats name
  fontconfig fonts-noto-cjk fonts-arphic-uming fonts-arphic-ukai fonts-liberation fonts-dejavu-core
  # a printer queue that writes PDF files
  cups cups-client printer-driver-cups-pdf
  # server databases: the drivers, and servers for the tests to start on loopback
  odbc-postgresql odbc-mariadb tdsodbc postgresql mariadb-server
  # what checks the man page, the desktop entry, the file type and the description of tdprint
  man-db desktop-file-utils shared-mime-info appstream
  # the example that prints from Python, and the check of the docs
  python3
  # what makes Debian packages, checks them, and makes the bare system that they are tried in
  debhelper dh-python lintian mmdebstrap
  # what presses the keys where scripts/make-pictures.sh takes pictures of the windows
  xdotool
  # what the tests and benchmarks are written with, and what they read the results with
  libgtest-dev libbenchmark-dev poppler-utils zbar-tools imagemagick chromium sqlite3 xvfb
)

if [ "${1:-}" = windows ]; then
  packages+=(
    # the cross compilers for both architectures
    g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix binutils-mingw-w64
    # what makes the type library
    mingw-w64-tools
    # what draws the program's icon in its sizes
    librsvg2-bin
    # what takes the sources of SQLite and zint, and makes SQLite's one file of its many
    dpkg-dev gcc libc6-dev make patch xz-utils tcl
    # what programs of Windows reach their SQLite files by
    libsqliteodbc
    # what the tests run in, and what makes the 32-bit system of scripts/test-windows-x86.sh
    wine wine64 fonts-wine x11-utils xdotool arch-test
  )
fi

# Of packages that it has never heard of dpkg tells nothing.
known=$(dpkg-query --show --showformat='${db:Status-Status} ${Package}\n' "${packages[@]}" \
  2>/dev/null || true)
missing=()
for package in "${packages[@]}"; do
  grep -qxF "installed $package" <<<"$known" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Run this as root, or install sudo." >&2; exit 1; }
  as_root=(sudo)
fi

echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -q -y --no-install-recommends "${missing[@]}"

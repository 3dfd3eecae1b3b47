#!/bin/bash
# Runs the 32-bit component and tdprint.exe, which Debian's wine for 64 bits can't: makes a Debian of
# 32 bits in build/windows-x86-root, once, and lets the scripts of the 64-bit tests use its wine. As
# root: the bare system gets packages of its own from the registry that this machine uses.
#   scripts/test-windows-x86.sh [PRINT…]    names of examples/prints.tsv; without one, two of them
set -euo pipefail
cd "$(dirname "$0")/.."
# Mounts of its own, which end with it.
[ "${QBTD_OWN_MOUNTS:-}" ] || QBTD_OWN_MOUNTS=1 exec unshare --mount "$0" "$@"
readonly project=$PWD root=$PWD/build/windows-x86-root wrappers=$PWD/build/windows-x86-wine

scripts/install-packages.sh windows

if [ ! -e "$root/complete" ]; then
  rm -rf "$root"
  # Debian's own archive alone: what is made to be thrown away needs no security updates.
  source=$(apt-get indextargets --format 'deb $(REPO_URI) $(CODENAME) $(COMPONENT)' \
    'Created-By: Packages' 'Codename: bookworm' 'Component: main' | sort -u)
  mmdebstrap --variant=apt --architectures=i386 --aptopt='APT::Install-Recommends "false"' \
    --include=wine,wine32,libcups2,fonts-wine,fonts-liberation,fonts-arphic-uming,fonts-arphic-ukai \
    bookworm "$root" "$source"
  touch "$root/complete"
fi

# What is inside and outside has the same path: the project, the scratch folders in /tmp, and the
# sockets of the display and the printing system there.
mkdir -p "$root$project" "$wrappers"
mount --bind /proc "$root/proc"
mount --bind /dev "$root/dev"
mount --bind /tmp "$root/tmp"
mount --bind "$project" "$root$project"

for program in wine wineboot wineserver winepath; do
  cat >"$wrappers/$program" <<WRAPPER
#!/bin/bash
export PATH=/usr/sbin:/usr/bin:/sbin:/bin
exec chroot "$root" /bin/sh -c 'cd "\$0" && exec "\$@"' "\$PWD" $program "\$@"
WRAPPER
  chmod +x "$wrappers/$program"
done
export PATH=$wrappers:$PATH QBTD_WINE_BITS=32 QBTD_WINDOWS_BUILD=build/windows-x86

prints=("$@")
[ $# -gt 0 ] || prints=(sales-order-5-lines stock-pick-40-lines)
scripts/wine-for-tests.sh scripts/tdprint-under-wine.sh build/windows-x86
scripts/wine-for-tests.sh scripts/print-under-wine.sh "${prints[@]}"

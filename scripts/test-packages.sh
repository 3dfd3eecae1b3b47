#!/bin/bash
# Installs the packages of build/packages/ into a bare Debian 12 below that folder, as a new user
# would, prints with each of them there, runs the commands of every page of the documentation as they
# are printed there, and removes the packages without a trace. As root: the bare system gets packages
# of its own from the registry that this machine uses.
set -euo pipefail
cd "$(dirname "$0")/.."
# Mounts and processes of its own, which end with it.
[ "${1:-}" = in-own-system ] ||
  exec unshare --mount --pid --fork --kill-child "$0" in-own-system
readonly packages=$PWD/build/packages root=$PWD/build/packages/root

in_root() {
  chroot "$root" /usr/bin/env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive "$@"
}
install_in_root() { in_root apt-get install -q -y --no-install-recommends "$@"; }

# What a package could leave behind. Lists that Debian's own tools keep, and what servers write,
# change with each run.
files_in_root() {
  find "$root" -xdev \( -path "$root/proc" -o -path "$root/sys" -o -path "$root/dev" -o \
    -path "$root/tmp" -o -path "$root/root" -o -path "$root/run" -o -path "$root/var/log" -o \
    -path "$root/var/cache" -o -path "$root/var/lib/dpkg" -o -path "$root/var/lib/apt" -o \
    -path "$root/var/lib/mysql" -o -path "$root/var/lib/postgresql" \) -prune -o -print | sort
}

mapfile -t sources < <(find /etc/apt -name '*.list' -o -name 'debian.sources')
rm -rf --one-file-system "$root"
mmdebstrap --variant=apt bookworm "$root" "${sources[@]}"
mount -t proc proc "$root/proc"
mount --bind /dev "$root/dev"
mount -t tmpfs tmpfs "$root/dev/shm"
# No service starts by being installed.
printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"
chmod +x "$root/usr/sbin/policy-rc.d"
find "$packages" -maxdepth 1 -name '*.deb' ! -name '*-dbgsym_*' -exec cp -t "$root/tmp" {} +

# What the packages ask for, what the examples are built with and the servers of the pages come first,
# so that the difference afterwards is that of the packages alone.
mapfile -t files < <(cd "$root" && printf '/%s\n' tmp/*.deb)
mapfile -t names < <(for file in "${files[@]}"; do dpkg-deb -f "$root$file" Package; done)
in_root apt-get update -q
install_in_root fonts-arphic-ukai fonts-arphic-uming fonts-liberation fonts-noto-cjk gcc g++ cmake make \
  pkgconf poppler-utils sqlite3 postgresql odbc-postgresql mariadb-server logrotate xvfb xdotool "${files[@]}"
in_root apt-get purge -q -y "${names[@]}"
files_in_root >"$packages/before"
install_in_root "${files[@]}"

in_root bash -euo pipefail <<'NEW_USER'
cd /root
# All of what is printed is read, so that nobody's pipe breaks.
expect() { grep -F -- "$1" >/dev/null || { echo "“$1” wasn't printed." >&2; exit 1; }; }
export QBTDPRINTER_STATE_DIR=/root/state

tdprint demo --out out
pdftotext out/sales-order-5-lines.pdf - | expect XD-2403-0002
tdprint sample-sql --engine sqlite >/dev/null
tdprint register

examples=/usr/share/qbtdprinter/examples
cmake -S $examples/c -B c >/dev/null
cmake --build c >/dev/null
c/print_order sqlite:out/sample.db 21 销售订单三联
expect 精制食盐 <state/订单.html
c/order_to_pdf sqlite:out/sample.db 21 "select * from v_sales_order where FInterID=21002" by-c.pdf
pdftotext by-c.pdf - | expect 要大朵

cmake -S $examples/embed -B embed >/dev/null
cmake --build embed >/dev/null
embed/embed out/sample.db 21 "select * from v_sales_order where FInterID=21002" order.pdf
pdftotext order.pdf - | expect 要大朵

read -ra flags < <(pkg-config --cflags --libs qbtdprinter)
g++ -std=c++20 -fPIC $examples/embed/main.cpp -o by-pkg-config "${flags[@]}"
./by-pkg-config out/sample.db 21 "select * from v_sales_order where FInterID=21002" again.pdf
pdftotext again.pdf - | expect 要大朵

sqlite3 -json out/sample.db "select * from v_sales_order where FInterID=21001" >rows.json
$examples/python/print_bill.py sqlite:out/sample.db 21 rows.json
expect XD-2403-0001 <state/订单.html
# -B: nothing is left behind in the folder of the examples.
python3 -B $examples/python/bill_to_pdf.py sqlite:out/sample.db 21 rows.json by-python.pdf
pdftotext by-python.pdf - | expect XD-2403-0001
NEW_USER

# The servers listen on sockets of the bare system only.
mkdir "$root/root/scripts"
cp scripts/{check-docs.py,doc_pages.py,run-page-commands.py,page-commands.bash} "$root/root/scripts"
in_root bash -euo pipefail <<'READER'
cd /root
pg_ctlcluster 15 main start -- -w -o '-c listen_addresses='
runuser -u postgres -- createuser --superuser root
mkdir -p /run/mysqld
chown mysql /run/mysqld
mariadbd --user=mysql --skip-networking >/var/log/mariadbd.log 2>&1 &
until mariadb-admin ping >/dev/null 2>&1; do kill -0 $!; sleep 0.2; done

failed=0
scripts/check-docs.py --links /usr/share/doc/qbtdprinter-doc || failed=1
scripts/run-page-commands.py /usr/share/doc/qbtdprinter-doc pages || failed=1
scripts/run-page-commands.py /usr/share/man man {,zh_CN/}man1/tdprint.1.gz || failed=1
pdftotext pages/docs/recipes.md/examples/recipes/cheque.pdf - | grep -F 壹拾万柒仟元伍角叁分 >/dev/null
mariadb-admin shutdown
pg_ctlcluster 15 main stop
exit $failed
READER

in_root apt-get purge -q -y "${names[@]}"
files_in_root >"$packages/after"
if ! diff "$packages/before" "$packages/after"; then
  echo "The packages leave something behind." >&2
  exit 1
fi
umount -R "$root/proc" "$root/dev"  # or the machine's devices would be removed with the rest
rm -rf --one-file-system "$root"

#!/bin/bash
# Unpacks the newest zip of build/packages/ as a new user would, and works with what is in it under
# wine: prints, registers, and runs the example that wine has a host for. Runs inside
# scripts/wine-for-tests.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
package=$(ls -t build/packages/QbTdPrinter-*-windows.zip | head -1)
package=$PWD/$package

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
cmake -E tar xf "$package"
cd QbTdPrinter-*-windows
expect() { grep -qF -- "$1" || { echo "“$1” wasn't said." >&2; exit 1; }; }

for file in README.txt licences/{QbTdPrinter,SQLite,zint,nlohmann-json,CLI11,mingw-w64}.txt \
  licences/GCC-run-time-libraries.txt x86/QbTdPrinter.dll x86/tdprint.exe docs/windows.md \
  examples/windows/{PrintBill.cs,print_bill.py}; do
  [ -s "$file" ] || { echo "$file is missing." >&2; exit 1; }
done
grep -q Exception licences/GCC-run-time-libraries.txt
python3 -c 'import ast, sys; ast.parse(open(sys.argv[1], encoding="utf-8").read())' \
  examples/windows/print_bill.py

wine x64/tdprint.exe sample-sql --engine sqlite --out sample.sql
sqlite3 sample.db <sample.sql
wine x64/tdprint.exe print --db sqlite:sample.db --type 21 --html order.html \
  --data "select * from v_sales_order where FInterID=21002"
grep -q 要大朵 order.html
wine x64/tdprint.exe register | expect "Registered"
wine cscript //nologo examples/windows/print_bill.vbs \
  "sqlite:Z:${PWD//\//\\}\\sample.db" 12 "" QbTd-Bill | expect "printed, pages: 1"
wine x64/tdprint.exe unregister | expect "Removed"
echo "The package does what its README.txt says."

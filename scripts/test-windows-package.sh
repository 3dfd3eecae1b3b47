#!/bin/bash
# Unpacks the newest zip of build/packages/ as a new user would, and takes the steps of its README.txt
# under wine: the demo, the registration, and a print by the example that wine has a host for. Runs
# inside scripts/wine-for-tests.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
package=$(ls -t build/packages/QbTdPrinter-*-windows.zip | head -1)
package=$PWD/$package
readonly project=$PWD

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
cmake -E tar xf "$package"
cd QbTdPrinter-*-windows
# All of what is said is read, so that nobody's pipe breaks.
expect() { grep -F -- "$1" >/dev/null || { echo "“$1” wasn't said." >&2; exit 1; }; }

for file in README.txt licences/{README,QbTdPrinter,SQLite,zint,nlohmann-json,CLI11,mingw-w64}.txt \
  licences/{GCC-run-time-libraries,GPL-3,LGPL-2.1}.txt x86/QbTdPrinter.dll x86/tdprint.exe \
  docs/windows.md examples/windows/{PrintBill.cs,print_bill.py}; do
  [ -s "$file" ] || { echo "$file is missing." >&2; exit 1; }
done
grep -q Exception licences/GCC-run-time-libraries.txt
if grep -l '@[a-zA-Z0-9]*@' README.txt licences/README.txt; then
  echo "A version is missing." >&2
  exit 1
fi

"$project/scripts/check-docs.py" --links .

# The examples that wine has no host for are read: the language of one, the members that both call.
python3 -c 'import ast, sys; ast.parse(open(sys.argv[1], encoding="utf-8").read())' \
  examples/windows/print_bill.py
for member in $(grep -oh '\bsession\.[A-Z][A-Za-z]*' examples/windows/* | sort -u); do
  grep -q "HRESULT ${member#session.}(" "$project/server/interface/QbTdPrinter.idl" ||
    { echo "The component has no ${member#session.}." >&2; exit 1; }
done

wine x64/tdprint.exe demo --out bills | expect sales-order-5-lines
[ -s bills/sales-order-5-lines/page-001.png ]
wine x64/tdprint.exe print --db 'sqlite:bills\sample.db' --type 21 --html order.html \
  --data "select * from v_sales_order where FInterID=21002"
grep -q 要大朵 order.html
wine x64/tdprint.exe register | expect "Registered"
wine cscript //nologo 'examples\windows\print_bill.vbs' 'sqlite:bills\sample.db' 21 "" QbTd-Bill |
  expect "printed, pages: 1"
wine x64/tdprint.exe unregister | expect "Removed"
wine regsvr32 /s 'x64\QbTdPrinter.dll'
wine regsvr32 /s /u 'x64\QbTdPrinter.dll'
echo "The package does what its README.txt says."

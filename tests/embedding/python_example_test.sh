#!/bin/bash
# A Python program that loads the module prints an order of the sample from a record set of its own.
source "$(dirname "$0")/common.sh"

export PYTHONPATH=$prefix/share/qbtdprinter/python PYTHONDONTWRITEBYTECODE=1
script=$prefix/share/qbtdprinter/examples/python/print_bill.py

# The sanitizers' own library must be there before the module that was built with them; Python
# itself leaks.
preload=
if [[ $(cached CMAKE_CXX_FLAGS) == *-fsanitize* ]]; then
  compiler=$(cached CMAKE_CXX_COMPILER)
  preload="$("$compiler" -print-file-name=libasan.so) \
    $("$compiler" -print-file-name=libubsan.so) $("$compiler" -print-file-name=libstdc++.so)"
  export ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0
fi
run() { LD_PRELOAD=$preload "$@"; }

rows=$work/$name/rows.json
sqlite3 -json "$work/sample.db" "select * from v_sales_order where FInterID=21002" >"$rows"
run python3 "$script" "sqlite:$work/sample.db" 21 "$rows"
expect_texts "$(exported)" XD-2403-0002 要大朵

# A session writes a PDF, tells of its pages and explains it.
script_to_pdf=$(dirname "$script")/bill_to_pdf.py
pdf=$work/$name/bill.pdf
said=$(run python3 "$script_to_pdf" "sqlite:$work/sample.db" 21 "$rows" "$pdf" 2>&1)
expect_texts "$said" "page 1 is ready" XD-2403-0002
expect_texts "$(pdftotext "$pdf" -)" XD-2403-0002 要大朵
error=$(run python3 "$script_to_pdf" "sqlite:$work/sample.db" 98 "$rows" "$pdf" 2>&1) && exit 1
expect_texts "$error" "Sorry, $pdf was not made." "未指定套打格式，打印被取消！"

# Without rows there is nothing to print, and the component's own error says so.
echo '[]' >"$rows"
error=$(run python3 "$script" "sqlite:$work/sample.db" 21 "$rows" 2>&1) && exit 1
expect_texts "$error" "0x800403e9: 没有可供打印的数据!"

PYTHONPATH+=:$(dirname "$script")
run python3 -m unittest discover --quiet --start-directory "$(dirname "$0")" --pattern '*_test.py'

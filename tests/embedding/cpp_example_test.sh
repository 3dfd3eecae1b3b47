#!/bin/bash
# A C++ program that links the library prints an order of the sample into a PDF file.
source "$(dirname "$0")/common.sh"

build_example embed
pdf=$work/$name/order.pdf
said=$("$work/$name/build/embed" "$work/sample.db" 21 \
  "select * from v_sales_order where FInterID=21002" "$pdf")
expect_texts "$said" "1 pages"
expect_texts "$(pdftotext "$pdf" -)" XD-2403-0002 要大朵

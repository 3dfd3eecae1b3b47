#!/bin/bash
# A C++ program that links the library prints an order of the sample into a PDF file.
source "$(dirname "$0")/common.sh"

build_example embed
pdf=$work/$name/order.pdf
said=$("$work/$name/build/embed" "$work/sample.db" 21 \
  "select * from v_sales_order where FInterID=21002" "$pdf")
expect_texts "$said" "1 pages"
expect_texts "$(pdftotext "$pdf" -)" XD-2403-0002 要大朵

# Without CMake, too.
export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name qbtdprinter.pc)")
read -ra flags < <(pkg-config --define-variable=prefix="$prefix" --cflags --libs qbtdprinter)
read -ra own < <(cached CMAKE_CXX_FLAGS)
"$(cached CMAKE_CXX_COMPILER)" -std=c++20 -fPIC "${own[@]}" \
  "$prefix/share/qbtdprinter/examples/embed/main.cpp" -o "$work/$name/by-pkg-config" "${flags[@]}"
"$work/$name/by-pkg-config" "$work/sample.db" 21 \
  "select * from v_sales_order where FInterID=21002" "$work/$name/again.pdf"
expect_texts "$(pdftotext "$work/$name/again.pdf" -)" 要大朵

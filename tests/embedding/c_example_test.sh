#!/bin/bash
# A C program that loads the module prints rows of its own with a format of the sample.
source "$(dirname "$0")/common.sh"

build_example c
print_order=$work/$name/build/print_order
"$print_order" "sqlite:$work/sample.db" 21 销售订单三联
expect_texts "$(exported)" 江南食品 珍珠米 精制食盐 1,080.00

# Without a registration the error has its number and its description.
error=$(XDG_DATA_HOME=$work/$name/nothing "$print_order" sqlite:none.db 21 x 2>&1) && exit 1
expect_texts "$error" 0x800401f3 QbTdPrinter.Printer 没有登记

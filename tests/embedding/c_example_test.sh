#!/bin/bash
# A C program that loads the module prints rows of its own with a format of the sample.
source "$(dirname "$0")/common.sh"

build_example c
print_order=$work/$name/build/print_order
"$print_order" "sqlite:$work/sample.db" 21 销售订单三联
expect_texts "$(exported)" 江南食品 珍珠米 精制食盐 1,080.00

# A session writes a PDF, and the program says what became of it.
order_to_pdf=$work/$name/build/order_to_pdf
sql="select * from v_sales_order where FInterID=21002"
said=$("$order_to_pdf" "sqlite:$work/sample.db" 21 "$sql" "$work/$name/order.pdf")
expect_texts "$said" "Your order is in $work/$name/order.pdf: 1 page(s)."
expect_texts "$(pdftotext "$work/$name/order.pdf" -)" XD-2403-0002
error=$("$order_to_pdf" "sqlite:$work/sample.db" 98 "$sql" "$work/$name/none.pdf" 2>&1) && exit 1
expect_texts "$error" "Sorry, there is no $work/$name/none.pdf." "未指定套打格式，打印被取消！"
error=$("$order_to_pdf" "sqlite:$work/sample.db" 21 "select * from nowhere" x.pdf 2>&1) && exit 1
expect_texts "$error" "Sorry, the order can't be read: 数据库错误"

# Without a registration the error has its number and its description.
error=$(XDG_DATA_HOME=$work/$name/nothing "$print_order" sqlite:none.db 21 x 2>&1) && exit 1
expect_texts "$error" 0x800401f3 QbTdPrinter.Printer 没有登记

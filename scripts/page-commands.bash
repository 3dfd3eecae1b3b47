# What notes of the pages may call, for scripts/run-page-commands.py. Each reads the block that it
# belongs to.
examples=/usr/share/qbtdprinter/examples

# The sample in the database of that name, as if it had never been touched.
fresh_sample() {
  rm -f "$1"
  tdprint sample-sql --engine sqlite | sqlite3 "$1"
}

# Part of a C++ program, with what it finds declared. … stands for a program's own statements.
compile_cpp() {
  local block
  block=$(sed 's/…/;/')
  {
    printf '#include "%s"\n' desktop/desktop_platform.h explanation/explanation_text.h \
      memory_rows/memory_recordset.h service/printer.h
    echo '#include <iostream>'
    grep '^#include' <<<"$block" || true
    echo "void Part(${1:-}) {"
    grep -v '^#include' <<<"$block"
    echo "}"
  } >part.cpp
  read -ra flags < <(pkg-config --cflags qbtdprinter)
  g++ -std=c++20 -fPIC -fsyntax-only "${flags[@]}" part.cpp
}

# The same of a C program.
compile_c() {
  {
    echo "#include <stddef.h>"
    printf '#include "client/%s"\n' client.h recordsets.h
    echo "void Part(void) {"
    sed 's/…/;/'
    echo "}"
  } >part.c
  read -ra flags < <(pkg-config --cflags qbtdprinter)
  gcc -fsyntax-only "${flags[@]}" part.c
}

# Part of a CMakeLists.txt whose program is made of that source.
build_shop() {
  {
    echo "cmake_minimum_required(VERSION 3.25)"
    cat
  } >CMakeLists.txt
  grep -q '^project' CMakeLists.txt || sed -i '1a project(shop LANGUAGES CXX)' CMakeLists.txt
  sed -i "/^project/a add_executable(shop $1)" CMakeLists.txt
  cmake -S . -B build
  cmake --build build
}

# Part of a Python program that has rows to print.
run_python() {
  {
    echo "import json, sys"
    echo "sys.path.insert(0, '$examples/python')"
    echo "import qbtdprinter"
    echo "from print_bill import Rows"
    echo "rows = Rows(json.load(open('rows.json')))"
    cat
  } >part.py
  sqlite3 -json shop.db "select * from v_sales_order where FInterID=21002" >rows.json
  tdprint register
  python3 -B part.py  # nothing is left behind in the folder of the examples
}

# Lines that are among those that the block before has said.
among_what_was_said() {
  local line
  while IFS= read -r line; do
    grep -qxF -- "$line" "$said_before" || { echo "“$line” wasn't said but:"; cat "$said_before"; return 1; }
  done
}

# Commands that open windows: each window gets these keys, by which it closes.
with_windows_closed_by() {
  local display screen commands window patience=600
  exec {display}< <(exec Xvfb -displayfd 1 -screen 0 1600x1200x24 -nolisten tcp 2>/dev/null)
  screen=$!
  read -r DISPLAY <&"$display"
  export DISPLAY=:$DISPLAY
  QT_QPA_PLATFORM=xcb bash -euo pipefail -c "$(cat)" &
  commands=$!
  while kill -0 "$commands" 2>/dev/null; do
    for window in $(xdotool search --onlyvisible --name . 2>/dev/null); do
      xdotool windowfocus "$window" key "$@" 2>/dev/null || true
    done
    sleep 0.2
    ((--patience)) || kill "$commands"
  done
  wait "$commands"
  kill "$screen"
}

# The servers' databases as they are before anything is loaded: shop, and branch, which has the tables.
fresh_servers() {
  local database
  : >~/.odbc.ini
  for database in shop branch; do
    dropdb --if-exists --force "$database"
    createdb "$database"
    mariadb -e "drop database if exists $database; create database $database"
    cat >>~/.odbc.ini <<SOURCE
[$database]
Driver=PostgreSQL Unicode
Servername=/var/run/postgresql
Database=$database
SOURCE
  done
  psql -q postgres -c 'drop role if exists clerk' -c 'drop role if exists administrator'
  tdprint sample-sql --engine postgresql --only-schema | psql -q -v ON_ERROR_STOP=1 branch
}

# What a clerk has printed at a counter.
log_of_a_shop() {
  local place='format 销售订单三联, detail row, 单价 (variable FPrice), bill XD-2403-0002, row 3, page 1'
  case $LANG in
    zh*) place='格式“销售订单三联”，明细行，单价（变量 FPrice），单据 XD-2403-0002，第 3 行，第 1 页' ;;
  esac
  export QBTDPRINTER_LOG_FILE=/var/log/prints.log
  tr -d '\n' <<LINE >$QBTDPRINTER_LOG_FILE
{"time":"2024-03-01T09:30:00.000Z","user":"zhang","machine":"counter-3","address":"192.168.1.13",
"program":"shop","billType":21,"format":"销售订单三联","bills":["XD-2403-0002"],"pages":1,
"printer":"针式打印机","jobs":[17],"result":"printed",
"messages":[{"text":"类型不匹配","place":"$place"}],"seconds":0.2}
LINE
  echo >>$QBTDPRINTER_LOG_FILE
  cp $QBTDPRINTER_LOG_FILE $QBTDPRINTER_LOG_FILE.1
}

# An options file of a clerk.
options_file() {
  cat >"$1" <<'OPTIONS'
db = sqlite:/tmp/bills/sample.db
type = 21
data = select * from v_sales_order where FInterID=21002
OPTIONS
}

#!/bin/bash
# Prints a bill of 10,000 rows from SQLite, PostgreSQL and MariaDB, and tells the rows per second and
# the shares of database, logic and rendering. The servers are private ones on loopback.
#
#   whole-runs.sh BUILD_FOLDER [OPTION OF GOOGLE BENCHMARK…]
#
# The build folder is one with QBTD_BENCHMARKS=ON; only an optimised one gives figures that mean
# anything.
set -euo pipefail

readonly build=$(realpath "$1")
shift
cd "$(dirname "$0")/.."
folder=$(mktemp -d)
chmod a+rx "$folder"  # the servers run as another user

free_port() {
  local port
  for port in $(shuf -i 20000-30000 -n 50); do
    if ! (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
      echo "$port"
      return
    fi
  done
  return 1
}

readonly postgresql_port=$(free_port) mariadb_port=$(free_port)
server() {
  local port=${2}_port
  tests/odbc/database-servers.sh "$1" "$2" "$folder" "${!port}"
}
finish() {
  server stop postgresql || true
  server stop mariadb || true
  rm -rf "$folder"
}
trap finish EXIT
server start postgresql
server start mariadb

sample() { "$build/tools/tdprint/tdprint" sample-sql --samples examples --engine "$1"; }
readonly user=clerk password='geheim;}1'
sample sqlite | sqlite3 "$folder/sample.db"
sample postgresql | PGPASSWORD=$password psql -q -v ON_ERROR_STOP=1 -h 127.0.0.1 \
  -p "$postgresql_port" -U $user qbtd
sample mariadb | MYSQL_PWD=$password mariadb --no-defaults -h 127.0.0.1 -P "$mariadb_port" \
  -u $user qbtd

readonly login="Server=127.0.0.1;Database=qbtd;UID=$user;PWD={geheim;}}1}"
"$build/benchmarks/bill_benchmark" "$@" \
  SQLite "sqlite:$folder/sample.db" \
  PostgreSQL "Driver={PostgreSQL Unicode};Port=$postgresql_port;$login" \
  MariaDB "Driver={MariaDB Unicode};Port=$mariadb_port;$login"

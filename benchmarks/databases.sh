# The databases that the benchmarks print from: SQLite and private servers on loopback, each with the
# sample. To be sourced after $build is set; leaves
#   databases   NAME CONNECTION for each of them
#   folder      a folder for files, removed at the end like the servers
# shellcheck shell=bash

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
readonly databases=(
  SQLite "sqlite:$folder/sample.db"
  PostgreSQL "Driver={PostgreSQL Unicode};Port=$postgresql_port;$login"
  MariaDB "Driver={MariaDB Unicode};Port=$mariadb_port;$login"
)

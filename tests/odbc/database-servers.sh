#!/bin/bash
# Private database servers on loopback for tests, below a folder that the caller removes afterwards.
#
#   database-servers.sh start|stop postgresql|mariadb FOLDER PORT
#
# The first start makes the server's files, a database "qbtd" and a user "clerk" with the password
# "geheim;}1". Stopping keeps the files, so that a start goes on with the same data.
set -euo pipefail

readonly action=$1 engine=$2 folder=$3/$2 port=$4
readonly user=clerk password='geheim;}1'
PATH=$PATH:/usr/sbin:$(echo /usr/lib/postgresql/*/bin)

# Neither server runs as root. Each has a folder of its own for passing files: MariaDB clears its
# one when it starts, and would take away what another one just uses.
as_owner() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u nobody -- env PATH="$PATH" TMPDIR="$folder/passing" "$@"
  else
    TMPDIR="$folder/passing" "$@"
  fi
}

wait_for() {
  for _ in $(seq 300); do
    if "$@" >/dev/null 2>&1; then return; fi
    sleep 0.1
  done
  return 1
}

start_postgresql() {
  local new=
  if [ ! -d "$folder/data" ]; then
    new=yes
    printf %s "$password" >"$folder/password"
    chmod a+r "$folder/password"
    as_owner initdb -D "$folder/data" -U $user -A scram-sha-256 --pwfile="$folder/password" \
      -E UTF8 --locale=C.UTF-8 -N >>"$folder/server.log"
  fi
  as_owner pg_ctl -D "$folder/data" -w -t 60 -l "$folder/postgresql.log" \
    -o "-p $port -c listen_addresses=127.0.0.1 -c unix_socket_directories= -c fsync=off" \
    start >>"$folder/server.log"
  if [ -n "$new" ]; then
    PGPASSWORD=$password createdb -h 127.0.0.1 -p "$port" -U $user qbtd
  fi
}

stop_postgresql() {
  if ! as_owner pg_ctl -D "$folder/data" status >/dev/null 2>&1; then return; fi
  as_owner pg_ctl -D "$folder/data" -w -t 60 -m fast stop >>"$folder/server.log"
}

start_mariadb() {
  local new=
  if [ ! -d "$folder/data" ]; then
    new=yes
    as_owner mariadb-install-db --no-defaults --datadir="$folder/data" --skip-test-db \
      --auth-root-authentication-method=normal >>"$folder/server.log" 2>&1
  fi
  as_owner mariadbd --no-defaults --datadir="$folder/data" --bind-address=127.0.0.1 \
    --port="$port" --socket="$folder/socket" --pid-file="$folder/pid" --max-allowed-packet=64M \
    --innodb-flush-log-at-trx-commit=0 --innodb-flush-method=nosync \
    >>"$folder/server.log" 2>&1 </dev/null &
  wait_for mariadb-admin --no-defaults --socket="$folder/socket" -u root ping
  if [ -n "$new" ]; then
    mariadb --no-defaults --socket="$folder/socket" -u root -e "
      create database qbtd character set utf8mb4;
      create user $user@'127.0.0.1' identified by '$password';
      grant all on *.* to $user@'127.0.0.1' with grant option"
  fi
}

stop_mariadb() {
  if [ ! -e "$folder/pid" ]; then return; fi
  mariadb-admin --no-defaults --socket="$folder/socket" -u root shutdown
  wait_for test ! -e "$folder/pid"
}

if [ ! -d "$folder" ]; then
  mkdir -p "$folder/passing"
  if [ "$(id -u)" -eq 0 ]; then chown nobody "$folder" "$folder/passing"; fi
fi
trap '[ $? -eq 0 ] || cat "$folder"/*.log >&2' EXIT
"${action}_$engine"

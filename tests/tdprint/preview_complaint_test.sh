#!/bin/bash
# A preview that can't be shown says so in a box as well, for who opened it by a double click.
# Called with the program and a folder for what it writes.
set -euo pipefail
program=$1 work=$2

rm -rf "$work"
mkdir -p "$work"
printf 'db = sqlite:%s/none.db\ntype = 21\ndata = select 1\n' "$work" >"$work/order.tdprint"

mkfifo "$work/number"
# By itself the display starts afresh when its last client leaves, and turns away who comes meanwhile.
Xvfb -displayfd 3 -screen 0 800x600x24 -nolisten tcp -noreset 3>"$work/number" 2>"$work/xvfb.log" &
server=$!
trap 'kill $server' EXIT
read -r number <"$work/number"
export DISPLAY=:$number QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY

"$program" preview --config "$work/order.tdprint" 2>"$work/errors" &
preview=$!
# No picture can be taken while the display is busy with another one's request.
shows_something() { [ "$(import -window root png:- | identify -format %k -)" -gt 1 ]; }
until shows_something 2>>"$work/pictures.log"; do
  kill -0 "$preview" || { echo "It ended without a box." >&2; cat "$work/errors" >&2; exit 1; }
  sleep 0.1
done
kill "$preview"
grep "^tdprint: the database can't be opened: " "$work/errors"

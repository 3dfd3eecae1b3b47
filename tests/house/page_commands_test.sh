#!/bin/bash
# What runs the commands of the pages passes a page whose blocks do what it says, and tells the place of
# one that doesn't.
set -euo pipefail
run=$1/scripts/run-page-commands.py
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/pages"

page() { # name; standard input: its text, with ' for `
  tr "'" '`' >"$folder/pages/$1"
}
passes() { # name
  "$run" "$folder/pages" "$folder/work/$RANDOM$RANDOM" "$1" >"$folder/said" || { cat "$folder/said"; exit 1; }
}
fails() { # name, what is said
  if "$run" "$folder/pages" "$folder/work/$RANDOM$RANDOM" "$1" >"$folder/said"; then
    echo "$1 has passed." >&2
    exit 1
  fi
  grep -qF "$2" "$folder/said" || { cat "$folder/said" >&2; exit 1; }
}

page right.md <<'PAGE'
<!-- before: word=twice -->
'''sh
export kept=$word
cd ..; cd -
'''

<!-- run: cat >block -->
'''ini
a = $b
'''

<!-- not run: it would fail -->
'''sh
false
'''

<!-- exits: 3 -->
'''sh
echo $kept
cat block
(exit 3)
'''

'''text
twice
a = $b
'''

<!-- run: grep -x "a = .b" "$said_before" -->
'''text
a line of it
'''
PAGE
passes right.md
grep -qx "right.md: as printed: 5 of 6 blocks" "$folder/said"

page language.zh-CN.md <<'PAGE'
'''sh
echo $LANG; pwd >>~/place
'''

'''text
zh_CN.UTF-8
'''
PAGE
passes language.zh-CN.md

page failing.md <<'PAGE'
Words.

'''sh
true
echo before it fails >&2
false | true
'''
PAGE
fails failing.md "failing.md:3: status 1
before it fails"

page saying.md <<'PAGE'
'''sh
echo something
'''

'''text
something else
'''
PAGE
fails saying.md "saying.md:5: this is said:
something"

page status.md <<'PAGE'
<!-- exits: 2 -->
'''sh
true
'''
PAGE
fails status.md "status.md:2: status 1"

page earlier.md <<'PAGE'
<!-- exits: 2 -->
'''sh
false
(exit 2)
'''
PAGE
fails earlier.md "earlier.md:2: status 1"

page words.md <<'PAGE'
Nothing to run.
PAGE
fails words.md "nothing to run"

mkdir "$folder/pages/zh_CN"
cat >"$folder/pages/zh_CN/tool.1" <<'PAGE'
.Sh 概要
.Bd -literal
false
.Ed
.Sh 示例
.\" before: word=hi
.Bd -literal -offset indent
test $word = hi \e
  -a $LANG = zh_CN.UTF-8
.Ed
PAGE
passes zh_CN/tool.1

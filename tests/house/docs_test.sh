#!/bin/bash
# The check of the docs passes on the pages as they are, and fails where a link leads nowhere, where a
# block of code is neither run nor says why, where a page and its twin in the other language differ,
# and where a twin is missing.
set -euo pipefail
source=$1
check=$source/scripts/check-docs.py
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$check" "$source"

tar -C "$source" --exclude=./build --exclude=./out --exclude=./.git -cf - . | tar -C "$folder" -xf -

plant() { # file, sed script, what the check says
  cp "$folder/$1" "$folder/kept"
  sed -i -E "$2" "$folder/$1"
  if cmp -s "$folder/$1" "$folder/kept"; then
    echo "Nothing was planted in $1 by $2." >&2
    exit 1
  fi
  if "$check" "$folder" 2>"$folder/said"; then
    echo "The check has passed $1 with $2." >&2
    exit 1
  fi
  grep -qF "$3" "$folder/said" || { cat "$folder/said" >&2; exit 1; }
  mv "$folder/kept" "$folder/$1"
}

plant README.md 's|\(docs/clerks\.md\)|(docs/clerk.md)|' "docs/clerk.md leads nowhere"
plant docs/developing.md 's|architecture\.md#one-way-down|architecture.md#one-way-up|' \
  "docs/architecture.md has no heading one-way-up"
plant docs/clerks.zh-CN.md 's|^## 打印预览|### 打印预览|' "the headings' levels are"
plant docs/databases.zh-CN.md '/^\| `t_icitem` \|/d' "rows, that at docs/databases.md"
plant docs/databases.zh-CN.md 's/^(\| 表 \| 索引 \|)$/\1 x |/' "the row has 3 cells"
plant docs/format-pictures.zh-CN.md 's/`"1,234,567\.89"`/`"1,234,567.88"`/' "the code in the table is"
plant docs/embedding.zh-CN.md 's/^td::Printer printer\(own\);/td::Printer printer(platform);/' \
  "the code differs from that at docs/embedding.md"
plant docs/print-log.zh-CN.md 's/^```text/```sh/' "the code differs from that at docs/print-log.md"
plant docs/clerks.zh-CN.md '/^!\[套打设置\]/d' "images/settings.png', -1) of docs/clerks.md is missing"
plant docs/clerks.zh-CN.md '/^2\. /d' "the lists have"
plant docs/clerks.zh-CN.md '/^长度单位是缇/d' "paragraphs, in docs/clerks.md"
plant docs/clerks.zh-CN.md 's/都有效\*\*。按/都有效。**按/' "is no emphasis"
plant docs/formats.zh-CN.md 's|format-pictures\.zh-CN\.md|format-pictures.md|' \
  "leads to the page in the other language"
plant docs/formats.zh-CN.md 's|#总页数放在哪里|#图像|' "of docs/formats.md is missing"
plant docs/fonts.md '/^\[中文\]/d' "no link at the top leads to docs/fonts.zh-CN.md"
plant tools/tdprint/tdprint.zh_CN.1 '/^\.It Fl -only-schema/d' "stands where tools/tdprint/tdprint.1"
plant tools/tdprint/tdprint.zh_CN.1 's/sample-sql --engine postgresql/sample-sql --engine mariadb/' \
  "stands where tools/tdprint/tdprint.1"
plant docs/checking.md '/^<!-- not run: the form of the call -->$/d' "no note says how the block is run"
plant docs/checking.zh-CN.md 's/^<!-- exits: 1 -->/<!-- exits: 0 -->/' \
  "the notes differ from those at docs/checking.md"
plant docs/fonts.md 's/^<!-- run:/<!-- runs:/' "is no note of a block"
plant docs/print-log.md 's/^(<!-- before: .*)$/\1\n/' "the note isn't followed by a block of code"
plant tools/tdprint/tdprint.zh_CN.1 's/before: log_of_a_shop/before: log_of_a_bank/' \
  "the notes differ from those at tools/tdprint/tdprint.1"
plant CHANGELOG.md 's/^## [0-9.]+/## 99.0.0/' "the newest version is 99.0.0"

# Comments are words, too, and so is what a program says.
sed -i 's|// 每个成员都有默认值|// 都有默认值|' "$folder/docs/embedding.zh-CN.md"
sed -i 's|任务 17|任务 18|' "$folder/docs/print-log.zh-CN.md"
"$check" "$folder"

fails_without() { # file, what the check says
  mv "$folder/$1" "$folder/kept"
  if "$check" "$folder" 2>"$folder/said"; then
    echo "The check has passed the docs without $1." >&2
    exit 1
  fi
  grep -qF "$2" "$folder/said" || { cat "$folder/said" >&2; exit 1; }
  mv "$folder/kept" "$folder/$1"
}

fails_without docs/formats.zh-CN.md "docs/formats.md:1: the page has no Chinese twin"
fails_without docs/formats.md "docs/formats.zh-CN.md:1: there is no docs/formats.md"
fails_without tools/tdprint/tdprint.zh_CN.1 "tdprint.zh_CN.1:1: there is no such man page"

# Of installed pages the links alone are followed: there is no project that has a version.
rm "$folder/CMakeLists.txt"
"$check" --links "$folder"
rm "$folder/LICENSE"
if "$check" --links "$folder" 2>"$folder/said"; then
  echo "A link has passed that leads nowhere." >&2
  exit 1
fi
grep -qF "LICENSE leads nowhere" "$folder/said"

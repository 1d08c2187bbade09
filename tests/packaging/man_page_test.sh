#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# varnock(1) renders without a warning and says what varnock --help says:
# every line of the help, spaces aside, is in the rendered page.
#   man_page_test.sh VARNOCK-TOOL MAN-PAGE
set -euo pipefail
tool=$1
page=$2

warnings=$(groff -man -Tutf8 -ww -z "$page" 2>&1)
[ -z "$warnings" ] || { echo "groff warns about $page: $warnings" >&2; exit 1; }

squeeze() { tr -s ' \n' '  '; }
# Compared without regard to case: section headings are in capitals.
rendered=$(MANWIDTH=200 MAN_KEEP_FORMATTING= man -l -Tutf8 -P cat "$page" 2>/dev/null |
  sed 's/\x1b\[[0-9;]*m//g; s/.\x08//g; s/‐/-/g; s/−/-/g' | squeeze)
missing=0
while IFS= read -r line; do
  text=$(printf '%s' "$line" | squeeze | sed 's/^ //; s/ $//')
  [ -n "$text" ] || continue
  case $text in usage:*) text=${text#usage: } ;; esac
  if [[ ${rendered,,} != *"${text,,}"* ]]; then
    echo "not in the manual page: $text" >&2
    missing=1
  fi
done < <("$tool" --help)
exit $missing

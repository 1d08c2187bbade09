#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The shared library exports the public headers' namespace and nothing else:
# no layer's internals, no standard-library instantiation, no symbol of the
# libraries it links, and every symbol under the version node VARNOCK_1.
#   exported_symbols_test.sh LIBRARY PUBLIC-HEADER-DIR
set -euo pipefail
library=$1
headers=$2

symbols=$(nm -D --defined-only --with-symbol-versions "$library" | awk '{ $1 = ""; $2 = ""; print substr($0, 3) }')
if ! grep -q '^_ZN7varnock4User7GetUserE' <<<"$symbols"; then
  echo "$library does not export varnock::User::GetUser" >&2
  exit 1
fi

public_text=$(cat "$headers"/*.h | grep -v 'friend')
failed=0
while IFS= read -r mangled; do
  [ -n "$mangled" ] || continue
  name=${mangled%@*}
  name=${name%@}
  version=${mangled#"$name"}
  if [ "$name" = VARNOCK_1 ]; then continue; fi
  if [ "$version" != "@@VARNOCK_1" ]; then
    echo "not under VARNOCK_1: $mangled" >&2
    failed=1
  fi
  readable=$(c++filt "$name")
  stripped=${readable#typeinfo name for }
  stripped=${stripped#typeinfo for }
  stripped=${stripped#vtable for }
  stripped=${stripped#non-virtual thunk to }
  if [[ ! $stripped =~ ^varnock::([A-Za-z_][A-Za-z0-9_]*) ]]; then
    echo "outside the public namespace: $readable" >&2
    failed=1
    continue
  fi
  declared=${BASH_REMATCH[1]}
  # Declared by a public header as a class, struct or function (a friend
  # declaration promises nothing).
  if ! grep -Eq "(class|struct|enum class) $declared\b|[ *&>:]$declared\(" <<<"$public_text"; then
    echo "not declared by a public header: $readable" >&2
    failed=1
  fi
done <<<"$symbols"
exit $failed

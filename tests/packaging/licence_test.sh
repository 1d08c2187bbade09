#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Every source file of the tree names its licence in its first lines (after
# a #! line), as SPDX-License-Identifier: MIT; the licence file is there.
#   licence_test.sh SOURCE-DIR
set -euo pipefail
cd "$1"
grep -q '^MIT License$' LICENSE

missing=0
while IFS= read -r -d '' file; do
  if ! head -n 2 "$file" | grep -q 'SPDX-License-Identifier: MIT'; then
    echo "no licence line: $file" >&2
    missing=1
  fi
done < <(find include src tests bench fuzz tools python examples scripts cmake .ci windows \
  CMakeLists.txt setup.py pyproject.toml \
  -path fuzz/corpus -prune -o -type f \
  \( -name '*.cpp' -o -name '*.h' -o -name '*.py' -o -name '*.pyi' -o -name '*.sh' \
  -o -name '*.cmake' -o -name 'CMakeLists.txt' -o -name '*.in' -o -name '*.map' \
  -o -name '*.toml' -o -name '*.dict' -o -name 'Makefile' -o -name '*.vbs' -o -name '*.js' \
  -o -name '*.rc' -o -name '*.def' -o -path '.ci/*' \) -print0 2>/dev/null)
exit $missing

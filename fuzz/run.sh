#!/usr/bin/env bash
# Runs every fuzz target for SECONDS (default 60) each, starting from its
# checked-in seeds, and fails when any target finds something. Builds the
# `fuzz` preset first when needed. New corpus entries stay in a scratch
# folder that is removed afterwards; reproducers are kept under
# build-fuzz/findings/<target>/ and their paths printed.
#   fuzz/run.sh [SECONDS]
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
if ! [[ $seconds =~ ^[0-9]+$ ]] || [ "$seconds" -lt 1 ]; then
  echo "usage: fuzz/run.sh [SECONDS]" >&2
  exit 2
fi
targets=(
  number_and_date_text
  connection_string
  sqlite_dialect
  value_notation
  render_read_round_trip
  late_bound_calls
)

[ -f build-fuzz/CMakeCache.txt ] || cmake --preset fuzz
cmake --build --preset fuzz -j2

scratch=$(mktemp -d "${TMPDIR:-/tmp}/varnock-fuzz-run.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
findings_root=$PWD/build-fuzz/findings

failed=()
for target in "${targets[@]}"; do
  corpus=$scratch/corpus/$target
  findings=$findings_root/$target
  mkdir -p "$corpus" "$findings" "$scratch/tmp/$target"
  cp fuzz/corpus/"$target"/* "$corpus"/
  touch "$scratch/$target.start"
  echo "== $target: ${seconds}s"
  status=0
  # The targets' scratch registers and event logs go under $scratch too.
  TMPDIR=$scratch/tmp/$target nice build-fuzz/fuzz/"$target" \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$findings/" "$corpus" >"$scratch/$target.log" 2>&1 || status=$?
  # The closing lines: the last coverage report and the final counts.
  grep -E '^#[0-9]+' "$scratch/$target.log" | tail -n 1 || true
  grep -E '^stat::(number_of_executed_units|average_exec_per_sec)' "$scratch/$target.log" || true
  # A slow input is reported by libFuzzer but is no finding; -timeout is.
  new=$(find "$findings" -type f -newer "$scratch/$target.start" ! -name 'slow-unit-*' | sort)
  if [ "$status" -ne 0 ] || [ -n "$new" ]; then
    tail -n 60 "$scratch/$target.log"
    echo "== $target FAILED (exit $status)"
    for f in $new; do echo "reproducer: $f"; done
    failed+=("$target")
  fi
done

if [ ${#failed[@]} -gt 0 ]; then
  echo "fuzzing found problems in: ${failed[*]}"
  exit 1
fi
echo "fuzzing: ${#targets[@]} targets ran ${seconds}s each without a finding"

#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs every fuzz target for SECONDS (default 60) each, two at a time,
# starting from its checked-in seeds, and fails when any target finds
# something. Builds the `fuzz` preset's targets first when needed. New corpus
# entries stay in a scratch folder that is removed afterwards; reproducers are
# kept under build-fuzz/findings/<target>/ and their paths printed.
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
  text_collation
)
parallel=2

[ -f build-fuzz/CMakeCache.txt ] || cmake --preset fuzz
cmake --build --preset fuzz -j2 --target "${targets[@]/#/fuzz_}"

# In memory where the machine has it: the registers' writes then cost no disk
# flushes, which triples the rate of the targets that write rows.
scratch_base=${TMPDIR:-/tmp}
[ -d /dev/shm ] && [ -w /dev/shm ] && scratch_base=/dev/shm
scratch=$(mktemp -d "$scratch_base/varnock-fuzz-run.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
findings_root=$PWD/build-fuzz/findings

# Runs one target; its exit status is left in $scratch/<target>.status.
fuzz_one() {
  local target=$1
  local corpus=$scratch/corpus/$target
  mkdir -p "$corpus" "$findings_root/$target" "$scratch/tmp/$target"
  cp fuzz/corpus/"$target"/* "$corpus"/
  touch "$scratch/$target.start"
  local options=()
  # Words a target's inputs are made of, where it has them.
  [ -f fuzz/"$target".dict ] && options+=(-dict=fuzz/"$target".dict)
  local status=0
  # The target's scratch register and event log go under $scratch too.
  TMPDIR=$scratch/tmp/$target nice build-fuzz/fuzz/"$target" \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$findings_root/$target/" "${options[@]}" "$corpus" >"$scratch/$target.log" 2>&1 ||
    status=$?
  echo "$status" >"$scratch/$target.status"
}

running=0
for target in "${targets[@]}"; do
  if [ "$running" -ge "$parallel" ]; then
    wait -n || true
    running=$((running - 1))
  fi
  echo "== $target: ${seconds}s"
  fuzz_one "$target" &
  running=$((running + 1))
done
wait

failed=()
for target in "${targets[@]}"; do
  status=$(cat "$scratch/$target.status")
  echo "== $target"
  # The last coverage report and the final counts.
  grep -E '^#[0-9]+' "$scratch/$target.log" | tail -n 1 || true
  grep -E '^stat::(number_of_executed_units|average_exec_per_sec)' "$scratch/$target.log" || true
  # A slow input is reported by libFuzzer but is no finding; -timeout is.
  new=$(find "$findings_root/$target" -type f -newer "$scratch/$target.start" \
    ! -name 'slow-unit-*' | sort)
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

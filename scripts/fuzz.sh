#!/usr/bin/env bash
# Builds the fuzz targets with clang and libFuzzer (in build-fuzz/) and runs
# each on its seed corpus in tests/fuzz/corpus/NAME:
#   fra       the reader of motion files
#   scene     the project's scene reader
#   registry  the parser of the registry files of POSIX systems
#   live      the choice of a running renderer from a library's reports
#   settings  the plug-in's settings file
#   scripts/fuzz.sh            the short run of continuous integration: each
#                              target a million inputs of at most 256 bytes or
#                              60 seconds, whichever comes first, each input
#                              allowed 5 seconds
#   scripts/fuzz.sh SECONDS    a longer run of that many seconds a target
# New inputs that reach new code go to build-fuzz/corpus/NAME, not to the
# seeds; a crash leaves its input in build-fuzz/.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
install_missing_packages
build_dir="$VANTREL_ROOT/build-fuzz"
cmake -S "$VANTREL_ROOT" -B "$build_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVANTREL_FUZZ=ON \
  -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
cmake --build "$build_dir" -j "$(nproc)"

if [ $# -gt 0 ]; then
  limit=(-max_total_time="$1" -max_len=4096)
else
  limit=(-runs=1000000 -max_total_time=60 -max_len=256)
fi
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# No fill of fresh blocks and a small quarantine: the readers allocate a
# little per input, and the defaults spend more time there than in them.
export ASAN_OPTIONS=max_malloc_fill_size=0:quarantine_size_mb=16
cd "$build_dir"
failed=0
for target in fra:fra_reader_fuzzer scene:scene_reader_fuzzer registry:registry_file_fuzzer \
              live:live_instances_fuzzer settings:settings_file_fuzzer; do
  name=${target%%:*}
  fuzzer=${target#*:}
  corpus="$build_dir/corpus/$name"
  mkdir -p "$corpus"
  dictionary=()
  if [ -f "$VANTREL_ROOT/tests/fuzz/$name.dict" ]; then dictionary=(-dict="$VANTREL_ROOT/tests/fuzz/$name.dict"); fi
  log="$build_dir/$fuzzer.log"
  set +e
  "$build_dir/tests/fuzz/$fuzzer" "${limit[@]}" -timeout=5 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$build_dir/" "${dictionary[@]}" "$corpus" "$VANTREL_ROOT/tests/fuzz/corpus/$name" >"$log" 2>&1
  status=$?
  set -e
  grep -E 'ERROR|SUMMARY|Test unit written' "$log" || true
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
  echo "$fuzzer: ${runs:-?} inputs, ${rate:-?} per second, exit status $status (log: $log)"
  if [ "$status" -ne 0 ]; then failed=1; fi
done
exit "$failed"

#!/usr/bin/env bash
# Builds the fuzz targets with clang and libFuzzer (in build-fuzz/) and runs
# the reader of motion files on its seed corpus.
#   scripts/fuzz.sh            the short run of continuous integration: one
#                              million inputs of at most 256 bytes, each
#                              allowed 5 seconds
#   scripts/fuzz.sh SECONDS    a longer run of that many seconds
# New inputs that reach new code go to build-fuzz/corpus/fra, not to the
# seeds in tests/fuzz/corpus/fra; a crash leaves its input in build-fuzz/.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
install_missing_packages
build_dir="$VANTREL_ROOT/build-fuzz"
cmake -S "$VANTREL_ROOT" -B "$build_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVANTREL_FUZZ=ON \
  -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
cmake --build "$build_dir" -j "$(nproc)"

if [ $# -gt 0 ]; then
  limit=(-max_total_time="$1" -max_len=4096)
else
  limit=(-runs=1000000 -max_len=256)
fi
corpus="$build_dir/corpus/fra"
mkdir -p "$corpus"
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# No fill of fresh blocks and a small quarantine: the reader allocates a
# little per input, and the defaults spend more time there than in the reader.
export ASAN_OPTIONS=max_malloc_fill_size=0:quarantine_size_mb=16
log="$build_dir/fra_reader_fuzzer.log"
cd "$build_dir"
set +e
"$build_dir/tests/fuzz/fra_reader_fuzzer" "${limit[@]}" -timeout=5 -rss_limit_mb=2048 -print_final_stats=1 \
  -dict="$VANTREL_ROOT/tests/fuzz/fra.dict" "$corpus" "$VANTREL_ROOT/tests/fuzz/corpus/fra" >"$log" 2>&1
status=$?
set -e
grep -E 'INITED|DONE|^Done|ERROR|SUMMARY|Test unit written|^stat::(number_of_executed_units|average_exec_per_sec)' "$log" || true
runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
echo "fra_reader_fuzzer: ${runs:-?} inputs, ${rate:-?} per second, exit status $status (log: $log)"
exit "$status"

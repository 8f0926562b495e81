#!/usr/bin/env bash
# Builds everything and runs every test.
#   scripts/test.sh               the normal build, in build/
#   scripts/test.sh --sanitize    with AddressSanitizer and UBSan, in build-sanitize/
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
install_missing_packages
if [ "${1:-}" = "--sanitize" ]; then
  build_dir="$VANTREL_ROOT/build-sanitize"
  build_project "$build_dir" -DVANTREL_SANITIZE=ON -DVANTREL_BUILD_BENCH=OFF
  export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
else
  build_dir="$VANTREL_ROOT/build"
  build_project "$build_dir"
fi
ctest --test-dir "$build_dir" --output-on-failure -j "$(nproc)"

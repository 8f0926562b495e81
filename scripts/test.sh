#!/usr/bin/env bash
# Builds everything and runs every test.
#   scripts/test.sh               the normal build, in build/
#   scripts/test.sh --sanitize    with AddressSanitizer and UBSan, in build-sanitize/
#   scripts/test.sh --release     the Release build a user makes, default options, in build-release/
# The first two treat warnings as errors.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
install_missing_packages
case "${1:-}" in
  --sanitize)
    build_dir="$VANTREL_ROOT/build-sanitize"
    build_project "$build_dir" -DVANTREL_WERROR=ON -DVANTREL_SANITIZE=ON -DVANTREL_BUILD_BENCH=OFF
    export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
    export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
    ;;
  --release)
    build_dir="$VANTREL_ROOT/build-release"
    build_project "$build_dir" -DCMAKE_BUILD_TYPE=Release
    ;;
  *)
    build_dir="$VANTREL_ROOT/build"
    build_project "$build_dir" -DVANTREL_WERROR=ON
    ;;
esac
ctest --test-dir "$build_dir" --output-on-failure -j "$(nproc)"

#!/usr/bin/env bash
# Builds everything and runs every test.
#   scripts/test.sh               the normal build, in build/
#   scripts/test.sh --sanitize    with AddressSanitizer and UBSan, in build-sanitize/
#   scripts/test.sh --release     the Release build a user makes, default options, in build-release/
#   scripts/test.sh --windows     the Windows DLL and the tests that need no Open CASCADE, cross-built
#                                 with mingw-w64 in build-windows/ and run under Wine
# All but the Release build treat warnings as errors.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
install_missing_packages
ctest_options=()
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
  --windows)
    build_dir="$VANTREL_ROOT/build-windows"
    install_missing_packages "${VANTREL_WINDOWS_PACKAGES[@]}"
    build_windows_tinyxml "$build_dir"
    # The scene that the Linux build writes for the model that the Windows
    # build's export must match byte for byte.
    build_project_targets "$VANTREL_ROOT/build" "vantrel-sample-scene vantrel_plugin" -DVANTREL_WERROR=ON
    reference="$build_dir/linux-sample/sample.vnz"
    mkdir -p "$(dirname "$reference")"
    "$VANTREL_ROOT/build/bin/vantrel-sample-scene" "$(ls "$VANTREL_ROOT"/build/bin/libvantrel_plugin.so)" "$reference"
    start_wine "$build_dir"
    cmake -S "$VANTREL_ROOT" -B "$build_dir" --toolchain "$VANTREL_ROOT/cmake/mingw-w64-x86_64.cmake" \
      -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVANTREL_WERROR=ON -DVANTREL_BUILD_CAD=OFF -DVANTREL_BUILD_BENCH=OFF \
      -DVANTREL_REFERENCE_SCENE="$reference"
    cmake --build "$build_dir" -j "$(nproc)"
    # A Wine client that loses its server is tried once more.
    ctest_options=(--repeat until-pass:2)
    ;;
  *)
    build_dir="$VANTREL_ROOT/build"
    build_project "$build_dir" -DVANTREL_WERROR=ON
    ;;
esac
ctest --test-dir "$build_dir" --output-on-failure -j "$(nproc)" "${ctest_options[@]}"

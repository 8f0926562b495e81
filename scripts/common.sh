# Shared by the set-up scripts: installs the Debian packages that the build
# lacks, then configures and builds into the given directory.
set -euo pipefail

VANTREL_PACKAGES=(
  cmake g++ make pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev
  libtinyxml-dev libicu-dev
  libocct-foundation-dev libocct-modeling-data-dev libocct-modeling-algorithms-dev
  libocct-data-exchange-dev libocct-ocaf-dev libocct-visualization-dev
  libtbb-dev  # Open CASCADE's CMake package names the TBB libraries it links
  clang libfuzzer-14-dev  # the fuzz targets (scripts/fuzz.sh)
  rapidjson-dev  # vantrel-scene edits the glTF JSON that the kernel writes
  xvfb xauth libgl1-mesa-dri  # vantrel-scene preview draws with OpenGL on a virtual X display
)
# Node.js and npm run the Khronos glTF validator in the tests; a Node.js
# that is already there (with its own npm) is kept.
if ! command -v node >/dev/null 2>&1; then VANTREL_PACKAGES+=(nodejs); fi
if ! command -v npm >/dev/null 2>&1; then VANTREL_PACKAGES+=(npm); fi

# The cross build for Windows and Wine to run its tests (scripts/test.sh --windows).
VANTREL_WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix wine64 dpkg-dev)

# install_missing_packages [PACKAGE...]: those given, else the build's own.
install_missing_packages() {
  local wanted=("$@")
  if [ ${#wanted[@]} -eq 0 ]; then wanted=("${VANTREL_PACKAGES[@]}"); fi
  local missing=()
  for package in "${wanted[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then return 0; fi
  echo "Installing Debian packages: ${missing[*]}"
  local sudo=""
  if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# install_gltf_validator BUILD_DIR: the npm package gltf-validator into
# BUILD_DIR/gltf-validator, where the tests look for it. Without it (no
# registry at hand) the validation test skips.
install_gltf_validator() {
  local folder="$1/gltf-validator"
  if [ -d "$folder/node_modules/gltf-validator" ]; then return 0; fi
  mkdir -p "$folder"
  npm install --prefix "$folder" --no-audit --no-fund --loglevel=error gltf-validator@2.0.0-dev.3.10 ||
    echo "Could not install the glTF validator: its test will be skipped"
}

# build_windows_tinyxml BUILD_DIR: Debian's TinyXML, its source package
# fetched with apt into BUILD_DIR/deps through a source list of its own (the
# machine's apt configuration stays as it is), built as a static library for
# Windows with its pkg-config file in BUILD_DIR/deps/prefix. Kept across runs.
build_windows_tinyxml() {
  local deps="$1/deps" prefix="$1/deps/prefix"
  if [ -f "$prefix/lib/libtinyxml.a" ]; then return 0; fi
  mkdir -p "$deps/apt-lists/partial" "$deps/apt-cache" "$prefix/lib/pkgconfig" "$prefix/include"
  echo "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] http://deb.debian.org/debian bookworm main" \
    >"$deps/sources.list"
  local apt_options=(-o "Dir::Etc::SourceList=$deps/sources.list" -o Dir::Etc::SourceParts=/dev/null
                     -o "Dir::State::Lists=$deps/apt-lists" -o "Dir::Cache=$deps/apt-cache")
  apt-get "${apt_options[@]}" update -qq
  rm -rf "$deps/tinyxml-source" && mkdir -p "$deps/tinyxml-source"
  (cd "$deps/tinyxml-source" && apt-get "${apt_options[@]}" source -qq tinyxml)
  local source
  source="$(find "$deps/tinyxml-source" -mindepth 1 -maxdepth 1 -type d -name 'tinyxml-*')"
  local objects=()
  for file in tinyxml tinystr tinyxmlerror tinyxmlparser; do
    x86_64-w64-mingw32-g++-posix -O2 -DTIXML_USE_STL -c "$source/$file.cpp" -o "$deps/$file.o"
    objects+=("$deps/$file.o")
  done
  cp "$source/tinyxml.h" "$source/tinystr.h" "$prefix/include/"
  printf '%s\n' "prefix=$prefix" 'Name: TinyXml' 'Description: simple, small, C++ XML parser' 'Version: 2.6.2' \
    'Libs: -L${prefix}/lib -ltinyxml' 'Cflags: -I${prefix}/include -DTIXML_USE_STL' >"$prefix/lib/pkgconfig/tinyxml.pc"
  x86_64-w64-mingw32-ar rcs "$prefix/lib/libtinyxml.a" "${objects[@]}"
}

# start_wine BUILD_DIR: Wine's prefix for the Windows tests in
# BUILD_DIR/wine, made on the first run, with the settings of the toolchain's
# emulator; its server stays up between the tests. A new prefix is set up
# by wineboot under a server that its services keep running: then that one
# serves the tests, and the lasting server is not started beside it.
start_wine() {
  local wine=(env WINEPREFIX="$1/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY= LANG=C.UTF-8 LC_ALL=)
  if [ ! -f "$1/wine/system.reg" ]; then "${wine[@]}" /usr/lib/wine/wine64 wineboot --init; fi
  "${wine[@]}" /usr/lib/wine/wineserver -p60 2>/dev/null || true
}

# build_project_targets BUILD_DIR "TARGET..." [cmake options...]: configures
# if need be and builds only the targets named.
build_project_targets() {
  local build_dir="$1" targets="$2"; shift 2
  if [ ! -f "$build_dir/CMakeCache.txt" ]; then
    cmake -S "$VANTREL_ROOT" -B "$build_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
  fi
  # shellcheck disable=SC2086
  cmake --build "$build_dir" -j "$(nproc)" --target $targets
}

# build_project BUILD_DIR [cmake options...]
build_project() {
  local build_dir="$1"; shift
  cmake -S "$VANTREL_ROOT" -B "$build_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
  cmake --build "$build_dir" -j "$(nproc)"
  install_gltf_validator "$build_dir"
}

VANTREL_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

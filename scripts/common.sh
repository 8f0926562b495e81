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

install_missing_packages() {
  local missing=()
  for package in "${VANTREL_PACKAGES[@]}"; do
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

# build_project BUILD_DIR [cmake options...]
build_project() {
  local build_dir="$1"; shift
  cmake -S "$VANTREL_ROOT" -B "$build_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
  cmake --build "$build_dir" -j "$(nproc)"
  install_gltf_validator "$build_dir"
}

VANTREL_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

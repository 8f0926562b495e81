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
)

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

# build_project BUILD_DIR [cmake options...]
build_project() {
  local build_dir="$1"; shift
  cmake -S "$VANTREL_ROOT" -B "$build_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
  cmake --build "$build_dir" -j "$(nproc)"
}

VANTREL_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

#!/usr/bin/env bash
# Checks that two builds write byte-identical scenes: exports the bundled
# sample and every model in ../shared/models with the vantrel-host of each
# build and compares the files.
#   scripts/same-scenes.sh OLD_BIN_DIR [NEW_BIN_DIR]
# Each BIN_DIR holds vantrel-host with the plug-in beside it; NEW_BIN_DIR
# defaults to build/bin. Exits 1 when any scene differs.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
old_bin="${1:?usage: same-scenes.sh OLD_BIN_DIR [NEW_BIN_DIR]}"
new_bin="${2:-$root/build/bin}"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

"$new_bin/vantrel-host" sample "$work/sample.step" >/dev/null
models=("$work/sample.step")
if [ -d "$root/../shared/models" ]; then
  for model in "$root"/../shared/models/*.{stp,step,stl,iges,igs,brep}; do
    [ -e "$model" ] && models+=("$model")
  done
else
  echo "../shared/models is absent: comparing the sample only"
fi

status=0
for model in "${models[@]}"; do
  name="$(basename "$model")"
  for side in old new; do
    bin="$old_bin"; [ "$side" = new ] && bin="$new_bin"
    mkdir -p "$work/$side"
    "$bin/vantrel-host" export "$model" -o "$work/$side/$name.vnz" --workdir "$work/$side" >/dev/null
  done
  if cmp -s "$work/old/$name.vnz" "$work/new/$name.vnz"; then
    echo "same       $name ($(stat -c %s "$work/new/$name.vnz") bytes)"
  else
    echo "DIFFERENT  $name"
    status=1
  fi
done
exit $status

#!/usr/bin/env bash
# Exports the sample (as it stands, with +Z up, without exact surfaces) and
# every model of ../shared/models, writes a textured and an animated scene by
# hand, converts each scene to .glb and .gltf with vantrel-scene and has the
# Khronos glTF validator check them: every file must have 0 errors. Skips
# (status 77) when Node.js or the validator isn't installed.
#   validate-gltf.sh HOST_PROGRAM SCENE_PROGRAM VALIDATOR_DIR SOURCE_DIR
set -euo pipefail
host="$1" scene_tool="$2" validator_dir="$3" source_dir="$4"

if ! command -v node >/dev/null || [ ! -d "$validator_dir/node_modules/gltf-validator" ]; then
  echo "SKIPPED: the glTF validator is not installed in $validator_dir (scripts/common.sh installs it with npm)"
  exit 77
fi
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

"$host" sample "$work/sample.step" >/dev/null
"$host" export "$work/sample.step" -o "$work/sample.vnz" --workdir "$work" >/dev/null
"$host" export "$work/sample.step" -o "$work/sample-z-up.vnz" --up z --workdir "$work" >/dev/null
"$host" export "$work/sample.step" -o "$work/sample-meshes.vnz" --no-nurbs --workdir "$work" >/dev/null
models="$source_dir/../shared/models"
if [ -d "$models" ]; then
  for model in "$models"/*; do
    case "$model" in *.step|*.stp|*.STEP|*.STP|*.iges|*.igs|*.brep|*.stl|*.obj) ;; *) continue ;; esac
    name="$(basename "${model%.*}")"
    "$host" export "$model" -o "$work/$name.vnz" --workdir "$work" >/dev/null
  done
else
  echo "no shared models at $models: only the sample and the textured scene are checked"
fi

# A textured square in text arrays, its image a 1 by 1 PNG beside it.
mkdir -p "$work/textures"
echo "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==" |
  base64 -d >"$work/textures/tile.png"
cat >"$work/textured.vnz" <<'SCENE'
group "tile" {
object "tile" {
geometry "triangles" {
"vertices" [ 0 0 0,1 0 0,1 1 0,0 1 0 ] ,
"normals" [ 0 0 1,0 0 1,0 0 1,0 0 1 ] ,
"uv_tex" [ 0,0,1,0,1,1,0,1 ] ,
"triangles" [ 0,1,2,0,2,3 ] ,
}
material "tile" {
surface "nvx_advanced" {
"diffuse" 0.6 0.4 0.2,
"diffuse" ! "texture_rgb" {
"texture" "textures/tile.png",
},
}
}
}
}
SCENE

# A group that turns and moves over three frames, millimetres with +Z up.
cat >"$work/animated.vnz" <<'SCENE'
load "nvxrtopt.so" {
"import_up_vector" 2,
"meter_scale" 1000,
}
group "asm" {
group "arm" {
object "arm" {
geometry "triangles" {
"vertices" [ 0 0 0,100 0 0,0 100 0 ] ,
"triangles" [ 0,1,2 ] ,
}
}
animation "fbx_animation" "arm" {
"start_time" 0,
"duration" 0.12,
"folder" "Creo animation",
"matrices" [
1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1, 0 1 0 0 -1 0 0 0 0 0 1 0 10 0 0 1, -1 0 0 0 0 -1 0 0 0 0 1 0 20 0 0 1 ],
"timestamps" [
0, 40, 80 ],
}
transform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 50 1
}
}
SCENE

outputs=()
for scene in "$work"/*.vnz; do
  for extension in glb gltf; do
    "$scene_tool" to-gltf "$scene" -o "${scene%.vnz}.$extension" >/dev/null
    outputs+=("${scene%.vnz}.$extension")
  done
done
node "$source_dir/scripts/gltf-validate.js" "$validator_dir" "${outputs[@]}"
